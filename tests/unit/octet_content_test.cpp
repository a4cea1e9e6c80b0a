#include "asn1/asn_node.h"
#include "cms/content/content_output.h"
#include "cms/content/octet_content.h"
#include "frame/err.h"
#include "support/unit_test.h"
#include "zulcore.h"

using namespace zul;

static std::string repeated(const std::string& text, size_t n) {
    std::string all;
    while (n-- > 0)
        all += text;
    return all;
}

// content_of gives the content of an element as text, "?" if it is refused. Others use the stream in between.
static std::string content_of(const std::string& hex, uint32_t cls, size_t end = SIZE_MAX) {
    const std::vector<uint8_t> element = test::from_hex(hex);
    ByteStream stream(element.data(), element.size());
    OctetContent content;
    const uint32_t tag = cls == kAsnUniversal ? uint32_t{kAsnOctetString} : 0;
    if (content.open(stream, {end, false}, cls, tag) != 0)
        return "?";
    EXPECT_EQ(stream.offset(), element.size());
    std::string whole(content.size() + 1, '\0'), again;
    EXPECT_EQ(content.read(whole.data(), whole.size()), content.size());
    whole.pop_back();
    EXPECT_TRUE(content.rewind());
    for (char c; content.read(&c, 1) == 1; again += c)
        EXPECT_TRUE(stream.seek(0));
    EXPECT_EQ(again, whole);
    return whole;
}

TEST(OctetContent, JoinsSegments) {
    const std::string deepest = repeated("2480", kAsnMaxDepth) + "040161" + repeated("0000", kAsnMaxDepth);
    const struct {
        std::string hex, content;
        uint32_t cls = kAsnUniversal;
    } cases[] = {
        {"0403616263", "abc"},
        {"0400", ""},
        {"240704016104026263", "abc"},
        {"2480240304016124800402626300000000", "abc"},
        {"240724800401610000", "a"},
        {deepest, "a"},
        {"A08004036162630000", "abc", kAsnContext},
        {"A0808001610000", "?", kAsnContext}, // segments have no tag of their own
        {"8003616263", "?"},
        {"24052480040161", "?"},   // an open one in one that ends before it
        {"0404616263", "?"},       // beyond the end of the data
        {"2403040261620000", "?"}, // a segment beyond the end of the string
        {"240404016100", "?"},     // half a segment
        {"24050C03616263", "?"},   // of another type
        {"2480040161", "?"},       // without its end
        {"2480040161008100", "?"}, // with what is no end
        {"24050401610000", "?"},   // with an end that ends nothing
        {"2480" + deepest + "0000", "?"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(content_of(c.hex, c.cls), c.content) << c.hex;
    for (size_t end = 0; end <= 10; end++) {
        EXPECT_EQ(content_of("0403616263", kAsnUniversal, end), end >= 5 ? "abc" : "?") << end;
        EXPECT_EQ(content_of("24800401610401620000", kAsnUniversal, end), end == 10 ? "ab" : "?") << end;
    }
}

TEST(OctetContent, LimitsPieces) {
    for (const uint32_t more : {0u, 1u}) {
        std::vector<uint8_t> element = {0x04, 0x84, 0x01, 0x00, 0x00, static_cast<uint8_t>(more)};
        element.resize(element.size() + kAsnMaxContent + more);
        ByteStream stream(element.data(), element.size());
        OctetContent content;
        err_clear();
        EXPECT_EQ(content.open(stream, AsnScope(), kAsnUniversal, kAsnOctetString),
                  more == 0 ? 0 : MSG_TOO_LONG_ERROR);
        EXPECT_EQ(*err_text() != '\0', more == 1);
    }
}

// A million octets each in a segment of its own; a file is read through one buffer.
TEST(OctetContent, GoesToAFile) {
    const test::TempDir dir;
    constexpr size_t kCount = 1000000;
    const std::string out = dir.file("out");
    const std::string pair = "\x04\x01\x61\x04\x01\x62";
    const std::string in = dir.write("in", "\x24\x80" + repeated(pair, kCount / 2) + std::string(2, '\0'));
    ByteStream stream(in.c_str());
    OctetContent content;
    ASSERT_EQ(content.open(stream, AsnScope(), kAsnUniversal, kAsnOctetString), 0);
    int length = 0;
    EXPECT_EQ(content_to_file(content, out.c_str(), nullptr, &length), 0);
    EXPECT_EQ(length, static_cast<int>(kCount));
    EXPECT_EQ(test::read_text(out), repeated("ab", kCount / 2));
}
