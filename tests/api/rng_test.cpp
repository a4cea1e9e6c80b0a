#include <algorithm>
#include <climits>
#include <cstring>
#include <filesystem>
#include <set>

#include "support/module_calls.h"

using test::Bytes;

TEST(RngBytes, ArgumentErrorsAreNotRecorded) {
    unsigned char out[4] = {1, 2, 3, 4};
    struct Case {
        unsigned char* out;
        int size, seedSize, result;
    };
    const Case cases[] = {
        {nullptr, 4, 0, -BAD_PARAM_ERROR},
        {nullptr, 0, 0, -BAD_PARAM_ERROR},
        {out, -1, 0, -BAD_PARAM_ERROR},
        {out, INT_MIN, 0, -BAD_PARAM_ERROR},
        {out, 4, -1, -BAD_PARAM_ERROR},
        {out, 65537, 0, -PRNG_ERR_TOOBIG},
        {out, INT_MAX, 0, -PRNG_ERR_TOOBIG},
        {out, 0, 0, 0},
        {out, 0, 4, 0},
    };
    for (const Case& c : cases)
        EXPECT_RECORDED(RNG_Bytes(c.out, c.size, out, c.seedSize), c.result, 0) << c.size;
    EXPECT_EQ(memcmp(out, "\1\2\3\4", 4), 0);
}

TEST(RngBytes, FillsWhatWasAskedFor) {
    std::set<Bytes> seen;
    const unsigned char additional[1000] = {};
    for (const int size : {16, 20, 21, 65536}) {
        for (const int seedSize : {0, 1, 20, 21, 1000}) {
            Bytes out(static_cast<size_t>(size) + 8, 0xA5);
            ASSERT_EQ(RNG_Bytes(out.data(), size, additional, seedSize), 0);
            EXPECT_EQ(Bytes(out.end() - 8, out.end()), Bytes(8, 0xA5));
            EXPECT_NE(Bytes(out.end() - 16, out.end() - 8), Bytes(8, 0xA5));
            EXPECT_TRUE(seen.insert(out).second);
        }
        Bytes out(static_cast<size_t>(size));
        EXPECT_EQ(RNG_Bytes(out.data(), size, nullptr, 100), 0);
        EXPECT_TRUE(seen.insert(out).second);
    }
}

// The statistical tests fail for about one good sample in ten thousand, so a failure must come twice.
static int test_twice(const char* path) {
    const int result = RNG_Test(path, 0);
    return result == -TEST_FAILED_ERROR ? RNG_Test(path, 0) : result;
}

TEST(RngTest, WritesAReportThatEndsWithItsSample) {
    const test::TempDir dir;
    const std::string path = dir.file("report.txt"), title = "\nTest sample was:-\n";
    ASSERT_EQ(test_twice(path.c_str()), 0);
    const std::string report = test::read_text(path);
    const size_t end = report.find(title);
    ASSERT_NE(end, std::string::npos) << report;
    EXPECT_EQ(report.find("FAILED!"), std::string::npos) << report;
    EXPECT_EQ(std::count_if(report.begin() + static_cast<long>(end + title.size()), report.end(), isxdigit),
              5000);
}

TEST(RngTest, WithoutAFileOrWithABadOne) {
    const test::TempDir dir;
    EXPECT_EQ(test_twice(nullptr), 0);
    EXPECT_EQ(test_twice(""), 0);
    for (const std::string& bad :
         {dir.path(), dir.file("no/such/folder/report.txt"), std::string(10000, 'n')}) {
        EXPECT_RESULT(test_twice(bad.c_str()), -PRNG_ERR_FILE_CREATE);
    }
}

TEST(SeedFile, IsTakenInAndOverwritten) {
    const test::TempDir dir;
    Bytes before(80, 0x55);
    const std::string path = dir.write("seed", before);
    std::set<Bytes> seen{before};
    for (int round = 0; round < 4; round++) {
        const int result =
            round == 0 ? RNG_Initialize(path.c_str(), -1) : RNG_UpdateSeedFile(path.c_str(), -1);
        ASSERT_RESULT(result, 0);
        const Bytes after = test::read_file(path);
        EXPECT_TRUE(seen.insert(after).second);
        // What stands behind the 64 bytes is not the seed's.
        ASSERT_EQ(after.size(), 80u);
        EXPECT_EQ(Bytes(after.begin() + 64, after.end()), Bytes(16, 0x55));
    }
}

TEST(SeedFile, Failures) {
    const test::TempDir dir;
    const std::string readOnly = dir.write("read-only", Bytes(64, 3));
    std::filesystem::permissions(readOnly, std::filesystem::perms::owner_read);
    const std::string shortFile = dir.write("short", Bytes(63, 3)), emptyFile = dir.write("empty", Bytes());
    const std::string longName(10000, 'n');
    const struct {
        std::string path;
        int code;
    } cases[] = {
        {dir.file("missing"), PRNG_ERR_FILE_OPEN},
        {dir.path(), PRNG_ERR_FILE_OPEN},
        {readOnly, PRNG_ERR_FILE_OPEN},
        {longName, PRNG_ERR_FILE_OPEN},
        {shortFile, PRNG_ERR_FILE_READ},
        {emptyFile, PRNG_ERR_FILE_READ},
    };
    for (const auto& c : cases) {
        EXPECT_RESULT(RNG_Initialize(c.path.c_str(), 0), -c.code) << c.path;
        EXPECT_RESULT(RNG_UpdateSeedFile(c.path.c_str(), 0), -c.code) << c.path;
    }
    EXPECT_EQ(test::read_file(shortFile), Bytes(63, 3));
    EXPECT_EQ(test::read_file(readOnly), Bytes(64, 3));
    std::filesystem::permissions(readOnly, std::filesystem::perms::owner_all);
    EXPECT_FALSE(test::file_exists(dir.file("missing")));

    EXPECT_RESULT(RNG_Initialize(nullptr, 0), -PRNG_ERR_BADPARAM);
    EXPECT_EQ(RNG_Initialize("", 0), -PRNG_ERR_FILE_OPEN);
    for (const char* none : {static_cast<const char*>(nullptr), ""})
        EXPECT_RECORDED(RNG_UpdateSeedFile(none, 0), -BAD_PARAM_ERROR, 0);
}
