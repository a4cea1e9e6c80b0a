#include <filesystem>

#include "support/module_calls.h"

namespace {

std::vector<std::string> lines_of(const std::string& text) {
    std::vector<std::string> lines;
    size_t start = 0, end;
    while ((end = text.find("\r\n", start)) != std::string::npos) {
        lines.push_back(text.substr(start, end - start));
        start = end + 2;
    }
    EXPECT_EQ(start, text.size()) << "the last line does not end with CR LF";
    return lines;
}

} // namespace

TEST(PemFile, WritesTheLinesAskedFor) {
    const test::TempDir dir;
    const std::string in = dir.write("in", test::sequence(200)), out = dir.file("out");
    const struct {
        int asked;
        size_t length;
    } cases[] = {{0, 64}, {3, 64},  {-1, 64}, {-70, 64}, {4, 4},
                 {7, 4},  {64, 64}, {70, 68}, {76, 76},  {1000, 268}};
    for (const auto& c : cases) {
        ASSERT_EQ(PEM_FileFromBinFile(out.c_str(), in.c_str(), "SOME LABEL", c.asked), 0);
        const std::vector<std::string> lines = lines_of(test::read_text(out));
        ASSERT_EQ(lines.size(), 2 + (268 + c.length - 1) / c.length) << c.asked;
        EXPECT_EQ(lines.front(), "-----BEGIN SOME LABEL-----");
        EXPECT_EQ(lines.back(), "-----END SOME LABEL-----");
        for (size_t i = 1; i + 2 < lines.size(); i++)
            EXPECT_EQ(lines[i].size(), c.length);
    }
    for (const char* label : {static_cast<const char*>(nullptr), ""}) {
        ASSERT_EQ(PEM_FileFromBinFile(out.c_str(), in.c_str(), label, 0), 0);
        EXPECT_EQ(lines_of(test::read_text(out)).size(), 5u);
    }
}

TEST(PemFile, ReadsBackWithZerosAfterTheData) {
    const test::TempDir dir;
    const std::string armour = dir.file("armour"), out = dir.file("out");
    for (const size_t size : {1u, 2u, 3u, 48u, 49u, 5000u, 200000u}) {
        const std::vector<uint8_t> data = test::sequence(size);
        const std::string in = dir.write("in", data);
        ASSERT_EQ(PEM_FileFromBinFile(armour.c_str(), in.c_str(), "X", 64), 0);
        ASSERT_EQ(PEM_FileToBinFile(out.c_str(), armour.c_str()), 0);
        const size_t chars = (size + 2) / 3 * 4, body = 2 + chars + (chars + 63) / 64 * 2;
        std::vector<uint8_t> expected = data;
        expected.resize((body + 3) / 4 * 3 + 1);
        EXPECT_EQ(test::read_file(out), expected) << size;
    }
}

TEST(PemFile, MayBeItsOwnInput) {
    const test::TempDir dir;
    const std::vector<uint8_t> data = test::sequence(100);
    const std::string path = dir.write("file", data);
    ASSERT_EQ(PEM_FileFromBinFile(path.c_str(), path.c_str(), "X", 0), 0);
    ASSERT_EQ(PEM_FileToBinFile(path.c_str(), path.c_str()), 0);
    std::vector<uint8_t> back = test::read_file(path);
    ASSERT_GT(back.size(), data.size());
    back.resize(data.size());
    EXPECT_EQ(back, data);
}

TEST(PemFile, FailuresHaveTheirCodesAndLeaveNoFile) {
    const test::TempDir dir;
    const std::string good = dir.write("good", "-----BEGIN X-----\nQUJD\n-----END X-----\n");
    const std::string empty = dir.write("empty", "");
    const std::string emptyBody = dir.write("empty body", "-----BEGIN X-----99-----END X-----\n");
    const std::string bare = dir.write("bare", "QUJDREVGR0hJSktMTU5PUFFSU1RVVldYWVo=\n");
    const std::string huge = dir.write("huge", "");
    std::filesystem::resize_file(huge, 0x3FFFFFFF);
    const std::string missing = dir.file("missing"), out = dir.file("out"), noFolder = dir.file("no/folder");
    const std::string longName(10000, 'n');
    const struct {
        const char *out, *in;
        int from, to; // the codes of the two functions
    } cases[] = {
        {nullptr, good.c_str(), 6, 6},
        {"", good.c_str(), 6, 6},
        {out.c_str(), nullptr, 6, 6},
        {out.c_str(), "", 6, 6},
        {out.c_str(), missing.c_str(), 1, 1},
        {out.c_str(), dir.path().c_str(), 1, 1},
        {out.c_str(), longName.c_str(), 1, 1},
        {out.c_str(), huge.c_str(), 1, 1},
        {dir.path().c_str(), good.c_str(), 2, 2},
        {noFolder.c_str(), good.c_str(), 2, 2},
        {longName.c_str(), good.c_str(), 2, 2},
        {out.c_str(), empty.c_str(), 0, 7},
        {out.c_str(), emptyBody.c_str(), 0, 7},
        {out.c_str(), bare.c_str(), 0, 7},
#ifdef __linux__
        {"/dev/full", good.c_str(), 4, 4},
        {out.c_str(), "/proc/self/mem", 1, 1}, // opens, and fails at the first read
#endif
    };
    for (const auto& c : cases) {
        const std::string what = std::string(c.out ? c.out : "(null)") + " from " + (c.in ? c.in : "(null)");
        for (const bool from : {true, false}) {
            const int code = from ? c.from : c.to;
            EXPECT_EQ(from ? PEM_FileFromBinFile(c.out, c.in, "X", 0) : PEM_FileToBinFile(c.out, c.in), -code)
                << what;
            EXPECT_EQ(ZUL_ErrorCode(), code) << what;
            EXPECT_EQ(test::file_exists(out), code == 0) << what;
            std::filesystem::remove(out);
            const bool hasText = code != 0 && code != 6;
            EXPECT_EQ(ZUL_LastError(nullptr, 0) > 0, hasText) << what;
        }
    }
}
