#pragma once
#include <cstring>
#include <string_view>

#include "asn1/asn_node.h"
#include "asn1/der_reader.h"

namespace zul {

// CrlNumber is the value of cRLNumber or BaseCRLNumber (RFC 5280, 5.2.3): not negative, at most 20 octets.
class CrlNumber {
  public:
    CrlNumber() = default; // 0
    explicit CrlNumber(uint64_t value);

    // read_text reads decimal digits, or hex digits behind "0x": 0 or BAD_PARAM_ERROR with a text.
    [[nodiscard]] int read_text(std::string_view text);
    // read_content reads the content of an INTEGER: false if it is negative or longer than 20 octets.
    [[nodiscard]] bool read_content(DerView content);
    // increment gives false if the next number needs more octets.
    [[nodiscard]] bool increment() { return multiply_add(1, 1); }

    AsnList integer() const;
    friend bool operator<(const CrlNumber& a, const CrlNumber& b) {
        return memcmp(a.bytes_, b.bytes_, sizeof a.bytes_) < 0;
    }

  private:
    static constexpr size_t kBytes = 20;
    [[nodiscard]] bool set_magnitude(DerView magnitude);
    [[nodiscard]] bool multiply_add(unsigned factor, unsigned summand);

    uint8_t bytes_[kBytes]{}; // big-endian; the first bit is 0
};

} // namespace zul
