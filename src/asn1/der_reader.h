#pragma once
#include <cstdint>
#include <cstring>
#include <string_view>

// A cursor over DER (X.690, 10) in memory. It copies nothing and takes the one encoding that DER allows:
// definite lengths in the fewest octets. A read that fails leaves the cursor where it was.
namespace zul {

// DerView is a piece of an encoding, which belongs to somebody else.
struct DerView {
    const uint8_t* data = nullptr;
    size_t size = 0;

    DerView() = default;
    DerView(const void* bytes, size_t n) : data(static_cast<const uint8_t*>(bytes)), size(n) {}

    bool empty() const { return size == 0; }
    const uint8_t* begin() const { return data; }
    const uint8_t* end() const { return data + size; }
    uint8_t operator[](size_t i) const { return data[i]; }
    std::string_view text() const { return {reinterpret_cast<const char*>(data), size}; }
    friend bool operator==(DerView a, DerView b) {
        return a.size == b.size && (a.size == 0 || memcmp(a.data, b.data, a.size) == 0);
    }
};

// Identifier octets: class, the constructed bit and a tag below 31.
constexpr uint8_t kDerBoolean = 0x01, kDerInteger = 0x02, kDerBitString = 0x03, kDerOctetString = 0x04,
                  kDerNull = 0x05, kDerOid = 0x06, kDerEnumerated = 0x0A, kDerUtf8String = 0x0C,
                  kDerPrintableString = 0x13, kDerTeletexString = 0x14, kDerIa5String = 0x16,
                  kDerUtcTime = 0x17, kDerGeneralizedTime = 0x18, kDerVisibleString = 0x1A,
                  kDerUniversalString = 0x1C, kDerBmpString = 0x1E, kDerSequence = 0x30, kDerSet = 0x31;
constexpr uint8_t der_context(unsigned n) { // [n] of a primitive type
    return static_cast<uint8_t>(0x80 | n);
}
constexpr uint8_t der_explicit(unsigned n) { // [n] of a constructed type, or explicit
    return static_cast<uint8_t>(0xA0 | n);
}

// DerElement is one element: its identifier octet, its content, and both with the length octets between.
struct DerElement {
    uint8_t identifier = 0;
    DerView content, encoding;

    bool is(uint8_t type) const { return identifier == type && encoding.data != nullptr; }
};

class DerReader {
  public:
    explicit DerReader(DerView bytes) : next_(bytes.data), end_(bytes.data + bytes.size) {}

    bool at_end() const { return next_ == end_; }
    bool next_is(uint8_t identifier) const { return next_ != end_ && *next_ == identifier; }
    DerView rest() const { return {next_, static_cast<size_t>(end_ - next_)}; }

    // take_any takes the next element: false at the end, for a tag above 30, and for an encoding that is not
    // DER or does not end in time.
    [[nodiscard]] bool take_any(DerElement& element);
    // take takes the content of an element of one type.
    [[nodiscard]] bool take(uint8_t identifier, DerView& content);
    // take_optional is also true, with found false, if another element or none follows.
    [[nodiscard]] bool take_optional(uint8_t identifier, DerView& content, bool& found);
    [[nodiscard]] bool skip(uint8_t identifier) {
        DerView ignored;
        return take(identifier, ignored);
    }

  private:
    const uint8_t *next_, *end_;
};

// der_single reads bytes that are one element of a type and nothing else.
[[nodiscard]] bool der_single(DerView bytes, uint8_t identifier, DerView& content);

// Contents of primitive elements: false for what DER does not allow.
[[nodiscard]] bool der_boolean(DerView content, bool& value);
[[nodiscard]] bool der_is_integer(DerView content); // in the fewest octets
// der_small_integer reads an INTEGER from 0 to 2^31 - 1. A larger one becomes 2^31 - 1, a negative one is
// refused.
[[nodiscard]] bool der_small_integer(DerView content, int& value);
[[nodiscard]] bool der_is_oid(DerView content);
// der_bits gives the bits of a BIT STRING as whole bytes: unused bits have to be 0.
[[nodiscard]] bool der_bits(DerView content, DerView& bytes, unsigned& unused);
// der_flags reads named bits: bit n is 2^n. Bits above 31 are left out. Zero bits at the end, which DER
// forbids (X.690, 11.2.2), are common and harmless.
[[nodiscard]] bool der_flags(DerView content, uint32_t& flags);
// der_time reads the forms of UTCTime and GeneralizedTime that RFC 5280, 4.1.2.5 allows, in seconds since
// 1970.
[[nodiscard]] bool der_time(const DerElement& element, int64_t& seconds);

} // namespace zul
