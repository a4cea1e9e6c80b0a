#include <climits>
#include <cstring>

#include "support/module_calls.h"

namespace {

using Byte = unsigned char;

const Byte kData[] = {0xAB, 0xCD, 0xEF};
const char kLatin1[] = "a\xE9z";   // a, e with acute, z
const char kUtf8[] = "a\xC3\xA9z"; // the same
const char kEuro[] = "a\xE2\x82\xAC";

} // namespace

TEST(CnvHex, CutsAtAPairAndFillsNoMoreThanItsRoom) {
    const char* expected[] = {"", "AB", "AB", "ABCD", "ABCD", "ABCDEF", "ABCDEF"};
    EXPECT_EQ(CNV_HexStrFromBytes(nullptr, 99, kData, 3), 6);
    EXPECT_EQ(CNV_HexStrFromBytes(nullptr, 0, kData, 0), 0);
    for (int room = 1; room < 8; room++) {
        std::vector<char> out(static_cast<size_t>(room) + 1, '#');
        const std::string cut = expected[room - 1];
        EXPECT_EQ(CNV_HexStrFromBytes(out.data(), room, kData, 3), static_cast<int>(cut.size())) << room;
        EXPECT_EQ(out.data(), cut) << room;
    }
    Byte bytes[4] = {0, 0, 0, 0x77};
    EXPECT_EQ(CNV_BytesFromHexStr(nullptr, 0, "ABC"), 1);
    EXPECT_EQ(CNV_BytesFromHexStr(bytes, 3, "AB:cd ef 01 02"), 3);
    EXPECT_EQ(memcmp(bytes, "\xAB\xCD\xEF\x77", 4), 0);
    EXPECT_EQ(CNV_BytesFromHexStr(bytes, 3, ""), 0);
}

TEST(CnvB64, CutsAtAGroup) {
    const Byte four[] = {'A', 'B', 'C', 'D'};
    EXPECT_EQ(CNV_B64StrFromBytes(nullptr, 0, four, 0), 0);
    EXPECT_EQ(CNV_B64StrFromBytes(nullptr, 0, four, 1), 4);
    EXPECT_EQ(CNV_B64StrFromBytes(nullptr, 0, four, 4), 8);
    char text[] = "#########";
    EXPECT_EQ(CNV_B64StrFromBytes(text, 7, four, 4), 4);
    EXPECT_STREQ(text, "QUJD");
    EXPECT_EQ(CNV_B64StrFromBytes(text, 8, four, 4), 8);
    EXPECT_STREQ(text, "QUJDRA==");
    Byte bytes[4] = {0, 0, 0, 0x77};
    EXPECT_EQ(CNV_BytesFromB64Str(nullptr, 0, "QUJD=RA=="), 3);
    EXPECT_EQ(CNV_BytesFromB64Str(bytes, 3, "QUJD=RA=="), 3);
    EXPECT_EQ(memcmp(bytes, "ABC\x77", 4), 0);
    EXPECT_EQ(CNV_BytesFromB64Str(bytes, 2, "QUJD"), 0);
    EXPECT_EQ(CNV_BytesFromB64Str(bytes, 4, ""), 0);
}

TEST(CnvFilters, KeepInOrderAndWorkInPlace) {
    const struct {
        int (*filter)(char*, const char*, int);
        const char* text;
        int length;
        const char* kept;
    } cases[] = {
        {CNV_HexFilter, "g1:aF /9", 8, "1aF9"},
        {CNV_HexFilter, "1234", 2, "12"},
        {CNV_HexFilter, "1234", 0, ""},
        {CNV_HexFilter, "12", 100, "12"},
        {CNV_B64Filter, "-Az0+\r\n/9_==*", 14, "Az0+/9=="},
        {CNV_B64Filter, "QU\xC3\xA9JD", 5, "QUJ"},
    };
    for (const auto& c : cases) {
        char out[32] = "##############", inPlace[32];
        strcpy(inPlace, c.text);
        EXPECT_EQ(c.filter(nullptr, c.text, c.length), static_cast<int>(strlen(c.kept))) << c.text;
        EXPECT_EQ(c.filter(out, c.text, c.length), static_cast<int>(strlen(c.kept))) << c.text;
        EXPECT_STREQ(out, c.kept);
        c.filter(inPlace, inPlace, c.length);
        EXPECT_STREQ(inPlace, c.kept);
    }
}

TEST(CnvUtf8, Classifies) {
    const struct {
        const char* text;
        int kind;
    } cases[] = {{"", 1}, {"plain", 1}, {kUtf8, 2}, {kEuro, 3}, {kLatin1, 0}, {"\xC0\x80", 0}};
    for (const auto& c : cases) {
        EXPECT_EQ(CNV_CheckUTF8(c.text), c.kind) << c.text;
        EXPECT_EQ(CNV_CheckUTF8Bytes(reinterpret_cast<const Byte*>(c.text), static_cast<int>(strlen(c.text))),
                  c.kind)
            << c.text;
    }
}

TEST(CnvLatin1, ConvertsBothWaysCutAtACharacter) {
    const char* utf8Cut[] = {"a", "a", "a\xC3\xA9", "a\xC3\xA9z", "a\xC3\xA9z"};
    const char* latin1Cut[] = {"a", "a\xE9", "a\xE9z", "a\xE9z"};
    for (int room = 1; room <= 5; room++) {
        char out[8] = "#######";
        const char* expected = utf8Cut[room - 1];
        EXPECT_EQ(CNV_UTF8FromLatin1(out, room, kLatin1), static_cast<int>(strlen(expected)));
        EXPECT_STREQ(out, expected);
        Byte bytes[8] = "#######";
        const int length = CNV_UTF8BytesFromLatin1(bytes, room, kLatin1);
        EXPECT_EQ(length, static_cast<int>(strlen(expected)));
        EXPECT_EQ(memcmp(bytes, expected, strlen(expected)), 0);
        EXPECT_EQ(bytes[length], '#');
    }
    for (int room = 1; room <= 4; room++) {
        char out[8] = "#######", fromBytes[8] = "#######";
        const char* expected = latin1Cut[room - 1];
        EXPECT_EQ(CNV_Latin1FromUTF8(out, room, kUtf8), static_cast<int>(strlen(expected)));
        EXPECT_STREQ(out, expected);
        const auto* utf8 = reinterpret_cast<const Byte*>(kUtf8);
        EXPECT_EQ(CNV_Latin1FromUTF8Bytes(fromBytes, room, utf8, 4), static_cast<int>(strlen(expected)));
        EXPECT_STREQ(fromBytes, expected);
    }
    EXPECT_EQ(CNV_UTF8FromLatin1(nullptr, 0, kLatin1), 4);
    EXPECT_EQ(CNV_UTF8BytesFromLatin1(nullptr, 0, kLatin1), 4);
    EXPECT_EQ(CNV_Latin1FromUTF8(nullptr, 0, kUtf8), 3);
}

TEST(CnvLatin1, ErrorsLeaveAnEmptyTextEvenBeyondTheRoom) {
    for (const int room : {1, 7}) {
        char out[8] = "#######";
        EXPECT_EQ(CNV_Latin1FromUTF8(out, room, kEuro), -OUT_OF_RANGE_ERROR);
        EXPECT_STREQ(out, "");
        strcpy(out, "#");
        EXPECT_EQ(CNV_Latin1FromUTF8Bytes(out, room, reinterpret_cast<const Byte*>("ab\xC3"), 3),
                  -INVALID_DATA_ERROR);
        EXPECT_STREQ(out, "");
        EXPECT_EQ(ZUL_ErrorCode(), INVALID_DATA_ERROR);
    }
    EXPECT_EQ(CNV_Latin1FromUTF8(nullptr, 0, kEuro), -OUT_OF_RANGE_ERROR);
}

TEST(CnvQueries, OfTwoFunctionsLeaveTheLengthAsTheCode) {
    const auto* utf8 = reinterpret_cast<const Byte*>(kUtf8);
    EXPECT_RESULT(CNV_ByteEncoding(nullptr, 0, utf8, 4, 0x10 | ZUL_CNV_LATIN1_FROM_UTF8), 3);
    EXPECT_RESULT(CNV_Latin1FromUTF8Bytes(nullptr, 0, utf8, 4), 3);
    EXPECT_RESULT(CNV_ByteEncoding(nullptr, 0, utf8, 2, ZUL_CNV_LATIN1_FROM_UTF8), -INVALID_DATA_ERROR);
    Byte out[8];
    EXPECT_EQ(CNV_ByteEncoding(out, 8, utf8, 4, 0x11), 6); // only the low four bits count
    EXPECT_EQ(ZUL_ErrorCode(), 0);
    EXPECT_EQ(CNV_Latin1FromUTF8(nullptr, 0, kUtf8), 3);
    EXPECT_EQ(CNV_UTF8FromLatin1(nullptr, 0, kLatin1), 4);
    EXPECT_EQ(ZUL_ErrorCode(), 0);
}

TEST(CnvArguments, AreRefusedAndRecorded) {
    char text[8];
    Byte bytes[8];
    const struct {
        const char* what;
        int result, code;
    } cases[] = {
        {"hex of null", CNV_HexStrFromBytes(text, 7, nullptr, 0), BAD_PARAM_ERROR},
        {"hex, negative", CNV_HexStrFromBytes(text, 7, kData, -1), BAD_PARAM_ERROR},
        {"hex, no int holds it", CNV_HexStrFromBytes(nullptr, 0, kData, INT_MAX), OUT_OF_RANGE_ERROR},
        {"from hex", CNV_BytesFromHexStr(bytes, 8, nullptr), BAD_PARAM_ERROR},
        {"hex filter, input", CNV_HexFilter(text, nullptr, 1), BAD_PARAM_ERROR},
        {"hex filter, negative", CNV_HexFilter(nullptr, "12", INT_MIN), BAD_PARAM_ERROR},
        {"base64 of null", CNV_B64StrFromBytes(text, 7, nullptr, 3), BAD_PARAM_ERROR},
        {"base64, negative", CNV_B64StrFromBytes(text, 7, kData, INT_MIN), BAD_PARAM_ERROR},
        {"base64, no int holds it", CNV_B64StrFromBytes(text, -1, kData, INT_MAX), OUT_OF_RANGE_ERROR},
        {"from base64", CNV_BytesFromB64Str(nullptr, 0, nullptr), BAD_PARAM_ERROR},
        {"base64 filter, input", CNV_B64Filter(text, nullptr, 1), BAD_PARAM_ERROR},
        {"base64 filter, negative", CNV_B64Filter(text, "12", -1), BAD_PARAM_ERROR},
        {"check", CNV_CheckUTF8(nullptr), BAD_PARAM_ERROR},
        {"check bytes", CNV_CheckUTF8Bytes(nullptr, 0), BAD_PARAM_ERROR},
        {"check bytes, negative", CNV_CheckUTF8Bytes(kData, -1), BAD_PARAM_ERROR},
        {"to UTF-8", CNV_UTF8FromLatin1(text, 7, nullptr), BAD_PARAM_ERROR},
        {"to UTF-8, empty", CNV_UTF8FromLatin1(text, 7, ""), BAD_PARAM_ERROR},
        {"to bytes", CNV_UTF8BytesFromLatin1(bytes, 8, nullptr), BAD_PARAM_ERROR},
        {"to bytes, empty", CNV_UTF8BytesFromLatin1(bytes, 8, ""), BAD_PARAM_ERROR},
        {"to Latin-1", CNV_Latin1FromUTF8(text, 7, nullptr), BAD_PARAM_ERROR},
        {"to Latin-1, empty", CNV_Latin1FromUTF8(nullptr, 0, ""), BAD_PARAM_ERROR},
        {"from bytes", CNV_Latin1FromUTF8Bytes(text, 7, nullptr, 1), BAD_PARAM_ERROR},
        {"from bytes, none", CNV_Latin1FromUTF8Bytes(text, 7, kData, 0), BAD_PARAM_ERROR},
        {"from bytes, 0", CNV_Latin1FromUTF8Bytes(text, 7, reinterpret_cast<const Byte*>("\0a"), 2),
         BAD_PARAM_ERROR},
        {"bytes", CNV_ByteEncoding(bytes, 8, nullptr, 1, 1), BAD_PARAM_ERROR},
        {"bytes, negative", CNV_ByteEncoding(bytes, 8, kData, -1, 1), BAD_PARAM_ERROR},
        {"bytes, no option", CNV_ByteEncoding(bytes, 8, kData, 3, 0x10), BAD_FLAG_ERROR},
        {"bytes, both options", CNV_ByteEncoding(nullptr, 0, kData, 3, 3), BAD_FLAG_ERROR},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.result, -c.code) << c.what;
    EXPECT_EQ(ZUL_ErrorCode(), BAD_FLAG_ERROR); // of the last of them
    CNV_HexFilter(text, nullptr, 1);
    EXPECT_EQ(ZUL_ErrorCode(), BAD_PARAM_ERROR);
}
