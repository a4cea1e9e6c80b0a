#include "cert/names/name_match.h"
#include "support/der_view.h"

using namespace zul;
using test::bytes_of, test::element, test::operator+, test::view;

namespace {

Bytes attribute(uint8_t type, uint8_t string, const Bytes& value) {
    return element(0x30, element(0x06, Bytes{0x55, 0x04, type}) + element(string, value));
}
// Each RDN is a list of attributes.
Bytes name(const std::vector<std::vector<Bytes>>& rdns) {
    Bytes content;
    for (const auto& rdn : rdns) {
        Bytes set;
        for (const Bytes& one : rdn)
            set = set + one;
        content = content + element(0x31, set);
    }
    return element(0x30, content);
}
Bytes common_name(uint8_t string, const Bytes& value) {
    return name({{attribute(3, string, value)}});
}

constexpr uint8_t kUtf8 = 0x0C, kPrintable = 0x13, kTeletex = 0x14, kIa5 = 0x16, kUniversal = 0x1C,
                  kBmp = 0x1E;

} // namespace

TEST(NameMatch, ComparesCharacters) {
    const struct {
        uint8_t typeA;
        Bytes a;
        uint8_t typeB;
        Bytes b;
        bool isSame;
    } cases[] = {
        {kPrintable, bytes_of("Good CA"), kPrintable, bytes_of("Good CA"), true},
        {kPrintable, bytes_of("Good CA"), kUtf8, bytes_of("gOOD cA"), true},
        {kPrintable, bytes_of("Good CA"), kPrintable, bytes_of("  Good   CA "), true},
        {kPrintable, bytes_of("Good CA"), kPrintable, bytes_of("GoodCA"), false},
        {kPrintable, bytes_of("Good CA"), kPrintable, bytes_of("Good CB"), false},
        {kPrintable, bytes_of("Good CA"), kIa5, bytes_of("Good\tCA\n"), true},
        {kPrintable, bytes_of("A"), kBmp, {0, 'a'}, true},
        {kPrintable, bytes_of("A"), kUniversal, {0, 0, 0, 'a'}, true},
        {kPrintable, bytes_of(""), kUtf8, bytes_of("  "), true},
        {kTeletex, {0xC9}, kUtf8, {0xC3, 0xA9}, true},     // E acute, e acute
        {kUtf8, {0xCE, 0xA3}, kBmp, {0x03, 0xC2}, true},   // sigma, final sigma
        {kUtf8, {0xD0, 0x81}, kUtf8, {0xD1, 0x91}, true},  // io
        {kUtf8, {0xC3, 0x97}, kUtf8, {0xC3, 0xB7}, false}, // times, divided by
        {kUtf8, {0xF0, 0x9F, 0x98, 0x80}, kBmp, {0xD8, 0x3D, 0xDE, 0x00}, true},
        {kUtf8, {'a', 0xC2, 0xA0, 'b'}, kUtf8, bytes_of("a b"), true}, // no-break space
        {kUtf8, {'a', 0xC2, 0xAD, 'b'}, kUtf8, bytes_of("ab"), true},  // soft hyphen
        {kUtf8, {'a', 0x80}, kUtf8, {'A', 0x80}, false},               // not UTF-8
        {kBmp, {0xDC, 0x00}, kBmp, {0xDC, 0x00}, true},                // no characters, but the same bytes
        {kUtf8, bytes_of("\u0100\u0139\u014A\u0178\u0179\u0460\u048A\u04D0\u1E00\u1EA0\u1EFE"), kUtf8,
         bytes_of("\u0101\u013A\u014B\u00FF\u017A\u0461\u048B\u04D1\u1E01\u1EA1\u1EFF"), true},
        {kUtf8, bytes_of("\u0130"), kUtf8, bytes_of("\u0131"), false}, // dotted, dotless i
        {kUtf8, bytes_of("\u0138"), kUtf8, bytes_of("\u0139"), false},
        {kUtf8, bytes_of("a\u1680\u2000\u2028\u202F\u205F\u3000b"), kUtf8, bytes_of("a b"), true},
        {kUtf8, bytes_of("a\u034F\u180B\u200B\u202A\u2060\uFE00\uFEFF\uFFF9b"), kUtf8, bytes_of("ab"), true},
        {0x04, bytes_of("A"), 0x04, bytes_of("a"), false},
        {0x04, bytes_of("A"), kPrintable, bytes_of("A"), false},
    };
    for (const auto& c : cases) {
        const Bytes a = common_name(c.typeA, c.a), b = common_name(c.typeB, c.b);
        EXPECT_EQ(names_match(view(a), view(b)), c.isSame) << test::to_hex(a) << " " << test::to_hex(b);
        EXPECT_EQ(name_digest(view(a)) == name_digest(view(b)), c.isSame);
    }
}

TEST(NameMatch, ComparesStructure) {
    const Bytes a = attribute(3, kPrintable, bytes_of("A")), b = attribute(3, kPrintable, bytes_of("b")),
                otherType = attribute(10, kPrintable, bytes_of("A")),
                bigB = attribute(3, kUtf8, bytes_of("B"));
    const auto same = [](const Bytes& x, const Bytes& y) { return names_match(view(x), view(y)); };
    EXPECT_TRUE(same(name({{a, b}}), name({{bigB, a}}))); // a SET has no order
    EXPECT_FALSE(same(name({{a}, {b}}), name({{b}, {a}})));
    EXPECT_FALSE(same(name({{a}, {b}}), name({{a, b}})));
    EXPECT_FALSE(same(name({{a, a}}), name({{a}})));
    EXPECT_FALSE(same(name({{a}}), name({{otherType}})));
    EXPECT_FALSE(same(name({{a}}), name({})));
    Bytes broken = name({{a}, {b}});
    broken[broken.size() - 2]++;
    EXPECT_FALSE(same(broken, name({{a}, {b}})));
    EXPECT_TRUE(same(broken, broken));
}

TEST(NameMatch, GoesOnWithARelativeName) {
    const Bytes a = attribute(3, kPrintable, bytes_of("A")), b = attribute(3, kPrintable, bytes_of("B")),
                smallA = attribute(3, kUtf8, bytes_of("a"));
    NameDigester digester;
    const Bytes issuer = name({{a}}), relative = b, whole = name({{smallA}, {b}});
    digester.add_name(view(issuer));
    digester.add_rdn(view(relative));
    EXPECT_EQ(digester.digest(), name_digest(view(whole)));
}
