#include "x509/make/revoked_list.h"

#include <string_view>

#include "asn1/asn_build.h"
#include "bignum/mt.h"
#include "frame/err.h"
#include "frame/slice.h"
#include "x509/fields/hex_value.h"
#include "x509/fields/x509_time.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr std::string_view kSeparators = ";,=", kSpace = " \t\r\n";
constexpr size_t kMaxDecimalDigits = 1000; // a serial number has about 50; the conversion is quadratic
constexpr size_t kMaxDateText = 32;

std::string_view take_item(std::string_view& rest) {
    const size_t end = rest.find_first_of(kSeparators);
    const std::string_view item = slice(rest, 0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    return trimmed(item, kSpace);
}

AsnList decimal_integer(std::string_view text) {
    if (text.empty() || text.size() > kMaxDecimalDigits)
        return AsnList::failure();
    BigInt value;
    mt_resize(value, kMaxDecimalDigits / 9 + 1); // nine digits are less than 32 bits
    for (const char c : text) {
        if (c < '0' || c > '9')
            return AsnList::failure();
        mtShortMult(value, value, 10);
        mtShortAdd(value, value, static_cast<DIGIT_T>(c - '0'));
    }
    SecretBuffer bytes(mtConvToOctets(value, nullptr, 0));
    mtConvToOctets(value, bytes.data(), bytes.size());
    return asn_NewIntegerBytes(bytes.data(), bytes.size());
}

AsnList serial_number(std::string_view text) {
    if (!text.starts_with("#x") && !text.starts_with("#X"))
        return decimal_integer(text);
    SecretBuffer bytes;
    return hex_value(text, bytes) ? asn_NewIntegerBytes(bytes.data(), bytes.size()) : AsnList::failure();
}

AsnList revocation_date(std::string_view text) {
    char copy[kMaxDateText + 1] = "";
    tm time;
    if (text.size() > kMaxDateText)
        return AsnList::failure();
    text.copy(copy, text.size());
    return read_date_text(copy, "00:00:00", &time) ? asn_NewTime(time) : AsnList::failure();
}

} // namespace

int read_revoked_list(const char* text, AsnList& entries) {
    std::string_view rest = trimmed(text == nullptr ? "" : text, kSpace);
    while (!rest.empty()) {
        AsnList serial = serial_number(take_item(rest));
        AsnList date = revocation_date(take_item(rest));
        AsnList entry = asn_NewSequence(asn_LinkList(std::move(serial), std::move(date)));
        if (entry.failed())
            return err_fail(BAD_FORMAT_ERROR, "Invalid certlist string\n");
        entries = asn_Link(std::move(entries), std::move(entry));
    }
    return 0;
}

} // namespace zul
