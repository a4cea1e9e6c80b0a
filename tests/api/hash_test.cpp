#include <algorithm>
#include <climits>
#include <cstring>
#include <filesystem>

#include "support/module_calls.h"

namespace {

constexpr char kAbcSha1[] = "a9993e364706816aba3e25717850c26c9cd0d89d";
constexpr char kEmptySha1[] = "da39a3ee5e6b4b0d3255bfef95601890afd80709";
constexpr int kLengths[] = {20, 16, 16, 32, 48, 64, 28, 20}; // of the digests, by number

std::string hex_of_file(const std::string& path, int options) {
    char text[129] = "unchanged";
    const int length = HASH_HexFromFile(text, 128, path.c_str(), options);
    return length < 0 ? std::to_string(length) : text;
}

} // namespace

TEST(HashExports, MeetTheStandards) {
    for (const char* file : {"hash/sha_fips180.txt", "hash/md_rfc.txt"}) {
        for (const auto& v : test::read_vectors(file)) {
            const auto algorithm = static_cast<int>(v.number("Algorithm"));
            const std::string once = v.text("Message");
            std::string message;
            for (long long times = v.number("Times"); times > 0; times--)
                message += once;
            const auto size = static_cast<int>(message.size());
            char text[129];
            EXPECT_EQ(HASH_HexFromBytes(text, 128, message.data(), size, algorithm), 2 * kLengths[algorithm]);
            EXPECT_EQ(text, v.text("Digest"));
            const std::string hex = test::to_hex(std::vector<uint8_t>(message.begin(), message.end()));
            EXPECT_EQ(HASH_HexFromHex(text, 128, hex.c_str(), algorithm), 2 * kLengths[algorithm]);
            EXPECT_EQ(text, v.text("Digest"));
            const test::TempDir dir;
            EXPECT_EQ(hex_of_file(dir.write("message", message), algorithm), v.text("Digest"));
        }
    }
}

TEST(HashExports, CutTheDigestToItsRoom) {
    for (const int options : {0, 1, 2, 3, 4, 5, 6, 7, 0x10, 0x7FFFFFF5, INT_MIN | 3}) {
        const int length = kLengths[options & 0xF];
        EXPECT_EQ(HASH_Bytes(nullptr, 0, "abc", 3, options), length);
        EXPECT_EQ(HASH_HexFromBytes(nullptr, 0, "abc", 3, options), 2 * length);
        EXPECT_EQ(HASH_HexFromHex(nullptr, 0, "616263", options), 2 * length);
        unsigned char whole[64];
        ASSERT_EQ(HASH_Bytes(whole, 64, "abc", 3, options), length);
        const std::string hex = test::to_hex(whole, static_cast<size_t>(length));
        for (const int room : {INT_MIN, -1, 0, 1, 2, 7, length - 1, length, length + 1, 2 * length - 1,
                               2 * length, 2 * length + 1, INT_MAX}) {
            unsigned char bytes[130];
            memset(bytes, 0xEE, sizeof bytes);
            const int written = std::max(0, std::min(room, length));
            EXPECT_EQ(HASH_Bytes(bytes, room, "abc", 3, options), room > 0 ? written : length);
            EXPECT_TRUE(std::equal(bytes, bytes + written, whole)) << room;
            EXPECT_EQ(bytes[written], 0xEE) << room;

            char text[132];
            memset(text, '#', sizeof text);
            const int digits = std::max(0, std::min(room / 2 * 2, 2 * length));
            EXPECT_EQ(HASH_HexFromBytes(text, room, "abc", 3, options), room > 0 ? digits : 2 * length);
            EXPECT_EQ(std::string(text, static_cast<size_t>(digits)),
                      hex.substr(0, static_cast<size_t>(digits)));
            EXPECT_EQ(text[digits], room > 0 ? '\0' : '#') << room;
            EXPECT_EQ(text[digits + 1], '#') << room;
        }
        EXPECT_EQ(ZUL_ErrorCode(), 0);
    }
}

// What each misuse returns and what ZUL_ErrorCode is afterwards; no output may be touched.
TEST(HashExports, RefuseMisuse) {
    const test::TempDir dir;
    const std::string file = dir.write("file", "abc"), missing = dir.file("missing");
    const std::string longName(10000, 'n');
    unsigned char bytes[64];
    char text[129];
    EXPECT_RECORDED(HASH_Bytes(bytes, 64, nullptr, 3, 0), -6, 0);
    EXPECT_RECORDED(HASH_Bytes(bytes, 64, nullptr, 0, 0), -6, 0);
    EXPECT_RECORDED(HASH_Bytes(bytes, 64, "abc", -1, 0), -6, 0);
    EXPECT_RECORDED(HASH_Bytes(bytes, 64, "abc", INT_MIN, 8), -6, 0);
    EXPECT_RECORDED(HASH_Bytes(bytes, 64, "abc", 3, 8), -17, 17);
    EXPECT_RECORDED(HASH_Bytes(nullptr, 0, "abc", 3, 15), -17, 17);
    EXPECT_RECORDED(HASH_HexFromBytes(text, 128, nullptr, 3, 0), -6, 0);
    EXPECT_RECORDED(HASH_HexFromBytes(text, 128, "abc", -1, 0), -6, 0);
    EXPECT_RECORDED(HASH_HexFromBytes(text, 128, "abc", 3, 8), -17, 17);
    EXPECT_RECORDED(HASH_HexFromBytes(nullptr, 0, "abc", 3, 9), -17, 17);
    EXPECT_RECORDED(HASH_HexFromHex(text, 128, nullptr, 0), -6, 0);
    EXPECT_RECORDED(HASH_HexFromHex(text, 128, "616", 0), -8, 8);
    EXPECT_RECORDED(HASH_HexFromHex(text, 128, "616", 8), -8, 8);
    EXPECT_RECORDED(HASH_HexFromHex(text, 128, "6162", 8), -17, 17);
    EXPECT_RECORDED(HASH_File(bytes, 64, nullptr, 0), -6, 0);
    EXPECT_RECORDED(HASH_File(bytes, 64, "", 0), -6, 0);
    EXPECT_RECORDED(HASH_File(bytes, 64, missing.c_str(), 0), -1, 1);
    EXPECT_RECORDED(HASH_File(bytes, 64, missing.c_str(), 8), -1, 1);
    EXPECT_RECORDED(HASH_File(nullptr, 0, missing.c_str(), 0), -1, 1);
    EXPECT_RECORDED(HASH_File(bytes, 64, file.c_str(), 8), -17, 17);
    EXPECT_RECORDED(HASH_File(bytes, 64, dir.path().c_str(), 0), -1, 1);
    EXPECT_RECORDED(HASH_File(bytes, 64, longName.c_str(), 0), -1, 1);
    EXPECT_RECORDED(HASH_HexFromFile(text, 128, nullptr, 0), -6, 0);
    EXPECT_RECORDED(HASH_HexFromFile(text, 128, "", 0), -6, 0);
    EXPECT_RECORDED(HASH_HexFromFile(text, 128, missing.c_str(), 0), -1, 1);
    EXPECT_RECORDED(HASH_HexFromFile(text, 128, file.c_str(), 15), -17, 17);
}

TEST(HashHexFromHex, TakesDamagedTextForTheEmptyMessage) {
    const struct {
        const char *message, *digest;
    } cases[] = {{"616263", kAbcSha1}, {"", kEmptySha1},       {"6162636x", kEmptySha1}, {"zz", kEmptySha1},
                 {"61 62", "-8"},      {"61 6 2", kEmptySha1}, {"61626", "-8"}};
    for (const auto& c : cases) {
        char text[41] = "";
        const int length = HASH_HexFromHex(text, 40, c.message, 0);
        EXPECT_EQ(length < 0 ? std::to_string(length) : text, c.digest) << c.message;
        EXPECT_EQ(ZUL_ErrorCode(), length < 0 ? INVALID_DATA_ERROR : 0) << c.message;
    }
    char upper[41], lower[41];
    HASH_HexFromHex(upper, 40, "ABCDEF", 0);
    HASH_HexFromHex(lower, 40, "abcdef", 0);
    EXPECT_STREQ(upper, lower);
}

TEST(HashFile, TurnsLineEndsInTextModeOnly) {
    const test::TempDir dir;
    // CR LF pairs on each side of the places where a reader may cut: 1,024 and 65,536 bytes.
    std::string dos, unixText;
    for (int i = 0; i < 40000; i++) {
        dos += i % 3 == 0 ? "a\r\n" : "\r\n";
        unixText += i % 3 == 0 ? "a\n" : "\n";
    }
    const std::string dosFile = dir.write("dos", dos), unixFile = dir.write("unix", unixText);
    EXPECT_EQ(hex_of_file(dosFile, ZUL_HASH_MODE_TEXT), hex_of_file(unixFile, 0));
    EXPECT_EQ(hex_of_file(unixFile, ZUL_HASH_MODE_TEXT), hex_of_file(unixFile, 0));
    EXPECT_NE(hex_of_file(dosFile, 0), hex_of_file(unixFile, 0));
    EXPECT_EQ(hex_of_file(dir.write("empty", ""), ZUL_HASH_MODE_TEXT), kEmptySha1);

    // Chunks of the reader and of the digests do not show.
    for (const size_t size : {1023u, 1024u, 1025u, 65535u, 65536u, 65537u, 200000u}) {
        const std::string content = dos.substr(0, size) + std::string(size - std::min(size, dos.size()), 'x');
        char text[129];
        HASH_HexFromBytes(text, 128, content.data(), static_cast<int>(size), ZUL_HASH_SHA512);
        EXPECT_EQ(hex_of_file(dir.write("sized", content), ZUL_HASH_SHA512), text) << size;
    }
}

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
// Digests by openssl 3.0 of 4 GiB and 5 bytes of zero.
TEST(HashFile, ReadsBeyondFourGigabytes) {
    const test::TempDir dir;
    const std::string path = dir.write("large", "");
    std::error_code error;
    std::filesystem::resize_file(path, (uintmax_t{1} << 32) + 5, error);
    if (error)
        GTEST_SKIP() << "no room for a large file: " << error.message();
    EXPECT_EQ(hex_of_file(path, ZUL_HASH_SHA1), "7ce9d83c5eacca17b354408ce637473229a7d5e2");
}
#endif
