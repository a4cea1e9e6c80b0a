#include "cert/make/crl_number.h"

#include "asn1/asn_build.h"
#include "frame/err.h"
#include "x509/fields/hex_value.h"
#include "zulcore.h"

namespace zul {
CrlNumber::CrlNumber(uint64_t value) {
    for (size_t i = kBytes; value != 0; value >>= 8)
        bytes_[--i] = static_cast<uint8_t>(value);
}

bool CrlNumber::multiply_add(unsigned factor, unsigned summand) {
    unsigned carry = summand;
    for (size_t i = kBytes; i-- > 0;) {
        carry += bytes_[i] * factor;
        bytes_[i] = static_cast<uint8_t>(carry);
        carry >>= 8;
    }
    return carry == 0 && bytes_[0] < 0x80;
}

int CrlNumber::read_text(std::string_view text) {
    constexpr char kTooLong[] = "A number of more than 20 octets";
    *this = CrlNumber();
    if (text.starts_with("0x") || text.starts_with("0X")) {
        SecretBuffer bytes;
        if (!hex_value(text, bytes))
            return err_fail(BAD_PARAM_ERROR, "Not hex digits");
        size_t zeros = 0;
        while (zeros < bytes.size() - 1 && bytes[zeros] == 0)
            zeros++;
        const DerView magnitude(bytes.data() + zeros, bytes.size() - zeros);
        return set_magnitude(magnitude) ? 0 : err_fail(BAD_PARAM_ERROR, kTooLong);
    }
    for (const char c : text) {
        if (c < '0' || c > '9')
            return err_fail(BAD_PARAM_ERROR, "Not a number");
        if (!multiply_add(10, static_cast<unsigned>(c - '0')))
            return err_fail(BAD_PARAM_ERROR, kTooLong);
    }
    return 0;
}

bool CrlNumber::set_magnitude(DerView magnitude) {
    *this = CrlNumber();
    if (magnitude.size > kBytes)
        return false;
    memcpy(bytes_ + kBytes - magnitude.size, magnitude.data, magnitude.size);
    return bytes_[0] < 0x80;
}

bool CrlNumber::read_content(DerView content) {
    return !content.empty() && content[0] < 0x80 && set_magnitude(content);
}

AsnList CrlNumber::integer() const {
    return asn_NewIntegerBytes(bytes_, sizeof bytes_);
}

} // namespace zul
