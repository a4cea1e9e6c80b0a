#include "cert/names/name_match.h"

#include <algorithm>

#include "cert/names/string_value.h"
#include "frame/array.h"

namespace zul {

namespace {

// What a part of the canonical form begins with.
constexpr uint8_t kUnread = 0, kRdn = 1, kAttribute = 2, kString = 3, kOther = 4;

// CanonicalBytes gathers bytes for a digest.
class CanonicalBytes {
  public:
    // cppcheck-suppress uninitMemberVar ; no more of the buffer is read than was written
    explicit CanonicalBytes(Sha256Context& context) : context_(context) {}
    CanonicalBytes(const CanonicalBytes&) = delete;
    CanonicalBytes& operator=(const CanonicalBytes&) = delete;
    ~CanonicalBytes() { flush(); }

    void byte(uint8_t value) {
        if (size_ == sizeof buffer_)
            flush();
        buffer_[size_++] = value;
    }
    void number(size_t value) {
        for (int shift = 24; shift >= 0; shift -= 8)
            byte(static_cast<uint8_t>(value >> shift));
    }
    void view(DerView bytes) {
        number(bytes.size);
        flush();
        sha256_update(context_, bytes.data, bytes.size);
    }
    void short_view(DerView bytes) {
        number(bytes.size);
        for (const uint8_t each : bytes)
            byte(each);
    }
    void point(char32_t value) {
        if (value < 0x80)
            return byte(static_cast<uint8_t>(value));
        for (int shift = 18; shift >= 0; shift -= 6) // wider than UTF-8, and as unique
            byte(static_cast<uint8_t>(0x80 | (value >> shift & 0x3F)));
    }

  private:
    void flush() {
        sha256_update(context_, buffer_, size_);
        size_ = 0;
    }

    Sha256Context& context_;
    size_t size_ = 0;
    uint8_t buffer_[256];
};

// is_white_space: what RFC 4518, 2.2 maps to a space, and the spaces that normalisation makes one of.
bool is_white_space(char32_t point) {
    return point == ' ' || (point >= 0x09 && point <= 0x0D) || point == 0x85 || point == 0xA0 ||
           point == 0x1680 || (point >= 0x2000 && point <= 0x200A) || point == 0x2028 || point == 0x2029 ||
           point == 0x202F || point == 0x205F || point == 0x3000;
}

// is_ignored: what RFC 4518, 2.2 maps to nothing.
bool is_ignored(char32_t point) {
    return point < 0x20 || (point >= 0x7F && point <= 0x9F) || point == 0xAD || point == 0x034F ||
           (point >= 0x180B && point <= 0x180E) || (point >= 0x200B && point <= 0x200F) ||
           (point >= 0x202A && point <= 0x202E) || (point >= 0x2060 && point <= 0x206F) ||
           (point >= 0xFE00 && point <= 0xFE0F) || point == 0xFEFF || (point >= 0xFFF9 && point <= 0xFFFC);
}

// folded gives the small letter of a capital one.
char32_t folded(char32_t point) {
    if (point < 0x80)
        return point >= 'A' && point <= 'Z' ? point + 0x20 : point;
    if ((point >= 0xC0 && point <= 0xDE && point != 0xD7) || (point >= 0x0410 && point <= 0x042F) ||
        (point >= 0x0391 && point <= 0x03AB && point != 0x03A2))
        return point + 0x20;
    if (point >= 0x0400 && point <= 0x040F)
        return point + 0x50;
    // Pairs of a capital and a small letter, of which the capital is even, or odd.
    if ((point >= 0x0100 && point <= 0x0137 && point != 0x0130 && point != 0x0131) ||
        (point >= 0x014A && point <= 0x0177) || (point >= 0x0460 && point <= 0x0481) ||
        (point >= 0x048A && point <= 0x04BF) || (point >= 0x04D0 && point <= 0x052F) ||
        (point >= 0x1E00 && point <= 0x1E95) || (point >= 0x1EA0 && point <= 0x1EFF))
        return point | 1;
    if ((point >= 0x0139 && point <= 0x0148) || (point >= 0x0179 && point <= 0x017E))
        return point + (point & 1);
    if (point == 0x0178)
        return 0xFF;
    return point == 0x03C2 ? 0x03C3 : point; // final sigma
}

// add_string adds the characters of a string, whose white space comes as one space between words.
void add_string(CanonicalBytes& out, StringReader reader) {
    bool isAtStart = true, isBehindSpace = false, isCharacter;
    out.byte(kString);
    while (!reader.at_end()) {
        const char32_t point = reader.next(isCharacter);
        if (is_white_space(point)) {
            isBehindSpace = true;
            continue;
        }
        if (is_ignored(point))
            continue;
        if (isBehindSpace && !isAtStart)
            out.byte(' ');
        isAtStart = isBehindSpace = false;
        out.point(folded(point));
    }
    out.byte(0);
}

void add_attribute(CanonicalBytes& out, DerView content) {
    DerReader fields(content);
    DerView type;
    DerElement value;
    if (!fields.take(kDerOid, type) || !fields.take_any(value) || !fields.at_end()) {
        out.byte(kUnread);
        return out.view(content);
    }
    out.byte(kAttribute);
    out.short_view(type);
    if (string_is_valid(value.identifier, value.content))
        return add_string(out, StringReader(value.identifier, value.content));
    out.byte(kOther);
    out.view(value.encoding);
}

// add_attributes adds the members of an RDN of several, a SET whose order depends on how they are encoded.
// Real ones have a few; those beyond kMostAttributes are added as they are encoded, since a digest takes more
// memory than an attribute.
void add_attributes(CanonicalBytes& out, DerView content) {
    constexpr size_t kMostAttributes = 1 << 16;
    Array<NameDigest> digests;
    DerReader reader(content);
    DerView attribute;
    while (digests.size() < kMostAttributes && reader.take(kDerSequence, attribute)) {
        Sha256Context context;
        sha256_init(context);
        {
            CanonicalBytes bytes(context);
            add_attribute(bytes, attribute);
        }
        NameDigest digest = {};
        sha256_final(context, digest.bytes);
        digests.add(digest);
    }
    std::sort(digests.begin(), digests.end(), [](const NameDigest& a, const NameDigest& b) {
        return memcmp(a.bytes, b.bytes, sizeof a.bytes) < 0;
    });
    out.number(digests.size());
    for (const NameDigest& digest : digests)
        for (const uint8_t each : digest.bytes)
            out.byte(each);
    if (!reader.at_end()) {
        out.byte(kUnread);
        out.view(reader.rest());
    }
}

void add_relative_name(CanonicalBytes& out, DerView content) {
    DerReader reader(content);
    DerView attribute;
    out.byte(kRdn);
    if (reader.take(kDerSequence, attribute) && reader.at_end())
        add_attribute(out, attribute);
    else
        add_attributes(out, content);
}

} // namespace

void NameDigester::add_name(DerView name, size_t most) {
    CanonicalBytes out(context_);
    DerView content, rdn;
    if (!der_single(name, kDerSequence, content)) {
        out.byte(kUnread);
        return out.view(name);
    }
    DerReader reader(content);
    for (; most > 0 && reader.take(kDerSet, rdn); most--)
        add_relative_name(out, rdn);
    if (most > 0 && !reader.at_end()) {
        out.byte(kUnread);
        out.view(reader.rest());
    }
}

void NameDigester::add_rdn(DerView content) {
    CanonicalBytes out(context_);
    add_relative_name(out, content);
}

NameDigest NameDigester::digest() const {
    Sha256Context copy = context_;
    NameDigest digest = {};
    sha256_final(copy, digest.bytes);
    return digest;
}

NameDigest name_digest(DerView name) {
    NameDigester digester;
    digester.add_name(name);
    return digester.digest();
}

bool names_match(DerView a, DerView b) {
    return a == b || name_digest(a) == name_digest(b);
}

size_t name_depth(DerView name) {
    DerView content, rdn;
    size_t depth = 0;
    if (!der_single(name, kDerSequence, content))
        return 0;
    for (DerReader reader(content); reader.take(kDerSet, rdn);)
        depth++;
    return depth;
}

} // namespace zul
