#include "asn1/der_reader.h"
#include "support/der_view.h"

using namespace zul;
using test::view;

namespace {

DerElement element(uint8_t identifier, const std::string& content) {
    DerElement one;
    one.identifier = identifier;
    one.content = one.encoding = {content.data(), content.size()};
    return one;
}

} // namespace

TEST(DerReader, TakesTheOneEncodingOfDer) {
    const struct {
        const char *encoding, *content; // null: refused
    } rows[] = {
        {"0400", ""},
        {"0401ff", "ff"},
        {"", nullptr},
        {"04", nullptr},
        {"0402ff", nullptr},           // cut
        {"048100", nullptr},           // a length below 128 in the long form
        {"04817fff", nullptr},         //
        {"04820080", nullptr},         // a length octet of zero in front
        {"0480ff0000", nullptr},       // indefinite
        {"04ff00", nullptr},           // reserved
        {"0485000000000100", nullptr}, // more octets than any length needs
        {"0484ffffffff00", nullptr},
        {"1f0100", nullptr}, // a tag above 30
    };
    for (const auto& row : rows) {
        const Bytes bytes = test::from_hex(row.encoding);
        DerReader reader(view(bytes));
        DerElement taken;
        ASSERT_EQ(reader.take_any(taken), row.content != nullptr) << row.encoding;
        if (row.content == nullptr) {
            EXPECT_EQ(reader.rest().size, bytes.size()) << row.encoding;
            continue;
        }
        EXPECT_EQ(test::to_hex(taken.content.data, taken.content.size), row.content);
        EXPECT_TRUE(reader.at_end());
    }
    Bytes longest = {0x04, 0x82, 0x01, 0x00};
    longest.resize(4 + 256);
    DerView content;
    EXPECT_TRUE(der_single(view(longest), kDerOctetString, content));
    EXPECT_EQ(content.size, 256U);
    EXPECT_FALSE(der_single(view(longest), kDerUtf8String, content));
    longest.push_back(0);
    EXPECT_FALSE(der_single(view(longest), kDerOctetString, content));
}

TEST(DerReader, ReadsPrimitiveContents) {
    const auto integer = [](const char* hex) {
        const Bytes content = test::from_hex(hex);
        int value = -1;
        return der_small_integer(view(content), value) ? value : -1;
    };
    const struct {
        const char* hex;
        int value;
    } integers[] = {{"00", 0},
                    {"7f", 127},
                    {"0080", 128},
                    {"7fffffff", INT32_MAX},
                    {"0080000000", INT32_MAX},
                    {"010000000000000000", INT32_MAX},
                    {"", -1},
                    {"0001", -1},
                    {"80", -1},
                    {"ff80", -1}};
    for (const auto& row : integers)
        EXPECT_EQ(integer(row.hex), row.value) << row.hex;

    const struct {
        const char* hex;
        bool isGood;
    } oids[] = {{"2a03", true},  {"8837", true},    {"", false},
                {"2a83", false}, {"2a8003", false}, {"80", false}};
    for (const auto& row : oids) {
        const Bytes content = test::from_hex(row.hex);
        EXPECT_EQ(der_is_oid(view(content)), row.isGood) << row.hex;
    }

    const struct {
        const char* hex;
        bool isGood;
        uint32_t flags;
    } flags[] = {{"0780", true, 1}, {"0106", true, 0x60}, {"070080", true, 0x100}, {"00", true, 0},
                 {"", false, 0},    {"0880", false, 0},   {"0101", false, 0},      {"01", false, 0}};
    for (const auto& row : flags) {
        const Bytes content = test::from_hex(row.hex);
        uint32_t read = 0;
        EXPECT_EQ(der_flags(view(content), read), row.isGood) << row.hex;
        EXPECT_EQ(read, row.flags) << row.hex;
    }

    bool value = false;
    const Bytes one = {0xFF}, other = {0x01}, two = {0xFF, 0xFF};
    EXPECT_TRUE(der_boolean(view(one), value) && value);
    EXPECT_FALSE(der_boolean(view(other), value) || der_boolean(view(two), value));
}

TEST(DerReader, ReadsTimes) {
    constexpr int64_t kNone = INT64_MIN;
    const struct {
        uint8_t type;
        const char* text;
        int64_t seconds;
    } rows[] = {
        {kDerUtcTime, "700101000000Z", 0},
        {kDerUtcTime, "491231235959Z", 2524607999},
        {kDerUtcTime, "500101000000Z", -631152000},
        {kDerGeneralizedTime, "20500101000000Z", 2524608000},
        {kDerGeneralizedTime, "99991231235959Z", 253402300799},
        {kDerGeneralizedTime, "00000101000000Z", -62167219200},
        {kDerGeneralizedTime, "20000229120000Z", 951825600},
        {kDerGeneralizedTime, "21000229120000Z", kNone},
        {kDerUtcTime, "990229000000Z", kNone},
        {kDerUtcTime, "991301000000Z", kNone},
        {kDerUtcTime, "990001000000Z", kNone},
        {kDerUtcTime, "991231240000Z", kNone},
        {kDerUtcTime, "991231236000Z", kNone},
        {kDerUtcTime, "991231235960Z", kNone}, // no leap seconds
        {kDerUtcTime, "9912312359Z", kNone},
        {kDerUtcTime, "991231235959", kNone},
        {kDerUtcTime, "991231235959+0000", kNone},
        {kDerUtcTime, "99123123595:Z", kNone},
        {kDerGeneralizedTime, "20500101000000.5Z", kNone},
        {kDerGeneralizedTime, "500101000000Z", kNone},
        {kDerIa5String, "700101000000Z", kNone},
    };
    for (const auto& row : rows) {
        const std::string text = row.text;
        int64_t seconds = kNone;
        EXPECT_EQ(der_time(element(row.type, text), seconds), row.seconds != kNone) << text;
        EXPECT_EQ(seconds, row.seconds) << text;
    }
}
