// The content octets of an OBJECT IDENTIFIER (X.690, 8.19) from its dotted form.
#include "asn1/oid_dotted.h"

#include <cstring>

#include "asn1/asn_build.h"
#include "frame/slice.h"

namespace zul {
namespace {

constexpr size_t kMaxOctets = 32;
constexpr size_t kMaxText = 200; // longer ones do not fit into the octets

bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

// An arc of any size in groups of seven bits, the least one first: arcs made from a UUID have 128 bits.
class ArcGroups {
  public:
    // read takes the digits of an arc and adds a number to it; false if there are none, or a zero in front.
    bool read(std::string_view digits, unsigned addition) {
        if (digits.empty() || (digits[0] == '0' && digits.size() > 1))
            return false;
        for (const char c : digits)
            if (!is_digit(c) || !step(10, static_cast<unsigned>(c - '0')))
                return false;
        return step(1, addition);
    }
    // append writes the groups behind size octets; false if there is no room.
    bool append(uint8_t* out, size_t& size) const {
        const size_t count = count_ == 0 ? 1 : count_;
        if (count > kMaxOctets - size)
            return false;
        for (size_t i = count; i > 0; i--)
            out[size++] = static_cast<uint8_t>(groups_[i - 1] | (i > 1 ? 0x80 : 0));
        return true;
    }

  private:
    bool step(unsigned factor, unsigned carry) {
        for (size_t i = 0; i < count_ || carry != 0; i++) {
            if (i == kMaxOctets)
                return false;
            if (i == count_)
                groups_[count_++] = 0;
            carry += groups_[i] * factor;
            groups_[i] = carry & 0x7F;
            carry >>= 7;
        }
        return true;
    }

    uint8_t groups_[kMaxOctets] = {};
    size_t count_ = 0;
};

} // namespace

bool oid_is_dotted(std::string_view text) {
    return !text.empty() && is_digit(text[0]) &&
           text.find_first_not_of("0123456789.") == std::string_view::npos;
}

AsnList oid_from_dotted(std::string_view text) {
    if (text.size() > kMaxText || text.size() < 3 || text[0] < '0' || text[0] > '2' || text[1] != '.')
        return {};
    const auto root = static_cast<unsigned>(text[0] - '0');
    text.remove_prefix(2);
    uint8_t octets[kMaxOctets];
    size_t size = 0;
    for (bool isSecond = true;; isSecond = false) {
        const size_t end = text.find('.');
        const std::string_view digits = slice(text, 0, end);
        if (isSecond && root < 2 && (digits.size() > 2 || (digits.size() == 2 && digits[0] > '3')))
            return {};
        ArcGroups arc;
        if (!arc.read(digits, isSecond ? root * 40 : 0) || !arc.append(octets, size))
            return {};
        if (end == std::string_view::npos)
            break;
        text.remove_prefix(end + 1);
    }
    return asn_NewString(kAsnOid, octets, size);
}

} // namespace zul
