#include <algorithm>
#include <climits>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "support/temp_dir.h"
#include "zulcore.h"

TEST(ErrorLookup, CountsTheNulInItsRoom) {
    struct Case {
        int room, code, result;
        const char* text;
    };
    const Case cases[] = {
        {10, 6, 9, "Parameter"},
        {10, -6, 9, "Parameter"},
        {2, 6, 1, "P"},
        {1, 6, 29, "unchanged"},
        {0, 6, 29, "unchanged"},
        {-5, 6, 29, "unchanged"},
        {INT_MIN, 6, 29, "unchanged"},
        {64, 6, 29, "Parameter is wrong or missing"},
        {64, 0, 21, "OK, success, no error"},
        {64, 9999, 19, "Miscellaneous error"},
        {64, -299, 26, "PRNG: Catastrophic failure"},
        {64, 10, 0, "unchanged"},
        {64, 31, 0, "unchanged"},
        {64, 200, 0, "unchanged"},
        {64, 300, 0, "unchanged"},
        {64, INT_MIN, 0, "unchanged"},
        {64, INT_MAX, 0, "unchanged"},
    };
    for (const Case& c : cases) {
        char text[64] = "unchanged";
        EXPECT_EQ(ZUL_ErrorLookup(text, c.room, c.code), c.result) << c.room << " " << c.code;
        EXPECT_STREQ(text, c.text) << c.room << " " << c.code;
    }
    EXPECT_EQ(ZUL_ErrorLookup(nullptr, 0, 6), 29);
}

TEST(ErrorState, LivesUntilTheNextCallThatClearsIt) {
    unsigned char byte = 0;
    ASSERT_EQ(CNV_HexStrFromBytes(nullptr, 0, nullptr, 3), -BAD_PARAM_ERROR);
    char text[8];
    ZUL_ErrorLookup(text, sizeof text, 6);
    ZUL_ModuleName(nullptr, 0, 0);
    ZUL_Version(nullptr, nullptr);
    ZUL_CompileTime(nullptr, 0);
    ZUL_LastError(nullptr, 0);
    EXPECT_EQ(ZUL_ErrorCode(), BAD_PARAM_ERROR);
    EXPECT_EQ(CNV_HexStrFromBytes(nullptr, 0, &byte, 1), 2);
    EXPECT_EQ(ZUL_ErrorCode(), 0);
}

TEST(LastError, IsBoundedAndCutToItsRoom) {
    const std::string name = "/no/such/place/" + std::string(10000, 'x');
    ASSERT_EQ(WIPE_File(name.c_str(), 0), OPEN_ERROR);
    const int length = ZUL_LastError(nullptr, 0);
    EXPECT_EQ(length, 511);
    std::vector<char> text(600, '#');
    EXPECT_EQ(ZUL_LastError(text.data(), 599), length);
    EXPECT_EQ(strlen(text.data()), 511u);
    EXPECT_EQ(ZUL_LastError(text.data(), 5), 5);
    EXPECT_STREQ(text.data(), "Canno");
}

TEST(Module, TellsWhatItIs) {
    char text[300];
#ifdef _WIN32
    const std::string platform = "Win64", file = "zulcore.dll";
#else
    const std::string platform = "Lin64", file = "libzulcore.so";
#endif
    EXPECT_EQ(ZUL_ModuleName(nullptr, 0, ZUL_MODULE_PLATFORM), 5);
    EXPECT_EQ(ZUL_ModuleName(text, 5, ZUL_MODULE_PLATFORM), 5);
    EXPECT_EQ(text, platform);
    EXPECT_EQ(ZUL_ModuleName(text, 3, ZUL_MODULE_PLATFORM), 3);
    EXPECT_EQ(text, platform.substr(0, 3));

    const int length = ZUL_ModuleName(text, 299, 0);
    const std::string path = text;
    EXPECT_EQ(static_cast<size_t>(length), path.size());
    EXPECT_EQ(ZUL_ModuleName(nullptr, 0, 0), length);
    EXPECT_EQ(path.substr(path.size() - file.size()), file);
    EXPECT_TRUE(std::filesystem::path(path).is_absolute()) << path;

    WIPE_Data(text, 1);
    EXPECT_EQ(ZUL_ModuleName(text, 299, 1), -BAD_FLAG_ERROR);
    EXPECT_EQ(ZUL_ErrorCode(), 0);
    EXPECT_EQ(ZUL_Version(nullptr, nullptr), 360);

    EXPECT_EQ(ZUL_CompileTime(nullptr, 0), 20);
    EXPECT_EQ(ZUL_CompileTime(text, 299), 20);
    EXPECT_EQ(text[3], ' ');
    EXPECT_EQ(text[6], ' ');
    EXPECT_EQ(text[11], ' ');
    EXPECT_EQ(text[14], ':');
    EXPECT_EQ(ZUL_CompileTime(text, 3), 3);
}

TEST(WipeData, ZeroesOrRefuses) {
    unsigned char bytes[5] = {1, 2, 3, 4, 5};
    EXPECT_EQ(WIPE_Data(bytes + 1, 3), 0);
    EXPECT_EQ(std::vector<unsigned char>(bytes, bytes + 5), (std::vector<unsigned char>{1, 0, 0, 0, 5}));
    for (const int length : {0, -1, INT_MIN}) {
        EXPECT_EQ(WIPE_Data(bytes, length), BAD_PARAM_ERROR);
        EXPECT_EQ(ZUL_ErrorCode(), BAD_PARAM_ERROR);
    }
    EXPECT_EQ(WIPE_Data(nullptr, 10), BAD_PARAM_ERROR);
}

TEST(WipeFile, OverwritesAndDeletes) {
    const test::TempDir dir;
    for (const size_t size : {0u, 1u, 4095u, 4096u, 4097u, 20000u}) {
        const std::string path = dir.write("secret", std::string(size, 'S'));
        const std::string other = dir.file("other name of the same file");
        std::filesystem::create_hard_link(path, other);
        EXPECT_EQ(WIPE_File(path.c_str(), 12345), 0);
        EXPECT_FALSE(test::file_exists(path));
        const std::vector<uint8_t> left = test::read_file(other);
        EXPECT_EQ(left.size(), size);
        EXPECT_EQ(std::count(left.begin(), left.end(), 0), static_cast<long>(size));
        std::filesystem::remove(other);
    }
}

TEST(WipeFile, RefusesWhatItCannotWipe) {
    const test::TempDir dir;
    const std::string readOnly = dir.write("read-only", "kept");
    std::filesystem::permissions(readOnly, std::filesystem::perms::owner_read);
    const std::string missing = dir.file("missing");
    const struct {
        const char* path;
        int code;
    } cases[] = {{nullptr, NULL_ERROR},
                 {"", OPEN_ERROR},
                 {missing.c_str(), OPEN_ERROR},
                 {dir.path().c_str(), OPEN_ERROR},
                 {readOnly.c_str(), OPEN_ERROR}};
    for (const auto& c : cases) {
        EXPECT_EQ(WIPE_File(c.path, 0), c.code) << (c.path != nullptr ? c.path : "null");
        EXPECT_EQ(ZUL_ErrorCode(), c.code);
    }
    EXPECT_EQ(test::read_text(readOnly), "kept");
    std::filesystem::permissions(readOnly, std::filesystem::perms::owner_all);
}
