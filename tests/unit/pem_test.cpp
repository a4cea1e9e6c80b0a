
#include "encode/pem.h"
#include "frame/file_writer.h"
#include "support/unit_test.h"
#include "zulcore.h"

using namespace zul;

TEST(PemReader, FindsTheBody) {
    const std::string none = "(none)";
    const struct {
        std::string text, body;
    } cases[] = {
        {"-----BEGIN X-----\r\nQUJD\r\n-----END X-----\r\n", "\r\nQUJD\r\n"},
        {"-----BEGIN ANY WORD AT ALL-----\nQUJD\n-----END OTHER-----", "\nQUJD\n"},
        {"-----END Y-----\n-----BEGIN X-----\nQUJD\n-----END X-----", "\nQUJD\n"},
        {"-----BEGIN X-----\v42\nQUJD\n-----END X-----", "\v42\nQUJD\n"},
        {"-----BEGIN X-----QUJD-----END X-----", "QUJD"},
        {"-----BEGIN X-----12345678-----END X-----", ""},
        {"-----BEGIN X-----\nQUJD\n-----BEGIN X-----\n-----END X-----", "\nQUJD\n-----BEGIN X-----\n"},
        {"-----BEGIN X-----\nQUJD-----END", none}, // 30 characters
        {"-----BEGIN X-----\nQUJDR-----END", "\nQUJDR"},
        {"-----BEGIN X-----\nQUJDREVGR0hJSktM\n----END X----", none},
        {"-----BEGIN no end of the header line\nQUJDREVG", none},
        {"QUJDREVGR0hJSktMTU5PUFFSU1RVVldYWVo=", none},
    };
    for (const auto& c : cases) {
        const std::vector<char> exact(c.text.begin(), c.text.end()); // no NUL follows
        size_t length = 99;
        const char* body = pem_find_body(exact.data(), exact.size(), &length);
        if (c.body == none) {
            EXPECT_EQ(body, nullptr) << c.text;
            EXPECT_EQ(length, 0u);
        } else {
            ASSERT_NE(body, nullptr) << c.text;
            EXPECT_EQ(std::string(body, length), c.body) << c.text;
        }
    }
}

TEST(PemReader, TellsTextsApart) {
    const char* armoured = "-----BEGIN X-----\nQUJD\n-----END X-----";
    EXPECT_TRUE(is_pem_text(armoured));
    EXPECT_FALSE(is_pem_text((" " + std::string(armoured)).c_str()));
    EXPECT_FALSE(is_pem_text("-----BEGIN X-----1234-----END X-----"));
    EXPECT_FALSE(is_pem_text("-----BEGIN X-----\n--------------------------"));
    EXPECT_FALSE(is_pem_text(""));
    // 31 and 32 characters: the body reader takes the first, this test asks for more.
    EXPECT_FALSE(is_pem_text("-----BEGIN X-----\nQUJDR-----END"));
    EXPECT_TRUE(is_pem_text("-----BEGIN X-----\nQUJDRE-----END"));

    for (const char* text : {"M", "MIIB", "MII B\tc+/==", "M "})
        EXPECT_TRUE(is_b64_der_text(text)) << text;
    for (const char* text : {"", "AIIB", " MIIB", "MIIB\n", "MIIB\rA", "MII\vB", "MII-B", "MII\xA0", "mIIB"})
        EXPECT_FALSE(is_b64_der_text(text)) << text;
}

TEST(PemWriter, CountsWhatItWrites) {
    const test::TempDir dir;
    const std::string path = dir.file("out");
    const std::vector<uint8_t> data(10000, 0x5A);
    const struct {
        size_t size;
        const char* label;
        int lineLen;
    } cases[] = {{0, nullptr, 64},           {0, "X", 64},   {1, "", 4},
                 {10000, "X", 64},           {9999, "X", 4}, {10000, "X", 10000},
                 {10000, nullptr, INT32_MAX}};
    for (const auto& c : cases) {
        FileWriter out(path.c_str());
        const size_t written = pem_write(out, data.data(), c.size, c.label, c.lineLen);
        ASSERT_TRUE(out.finish());
        EXPECT_EQ(test::read_file(path).size(), written) << c.size;
    }
}
