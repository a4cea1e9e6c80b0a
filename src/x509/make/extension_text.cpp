#include "x509/make/extension_text.h"

#include "frame/err.h"
#include "frame/slice.h"
#include "frame/text.h"
#include "x509/fields/hex_value.h"
#include "x509/names/pair_reader.h"
#include "zulcore.h"

namespace zul {
namespace {

std::string_view view(const SecretBuffer& text) {
    return text.empty() ? std::string_view() : std::string_view(text.text());
}

[[nodiscard]] int bad_value(const char* keyword) {
    return err_fail(BAD_PARAM_ERROR, "Invalid value of %s in extension", keyword);
}

[[nodiscard]] int take_hex(const char* keyword, const SecretBuffer& value, SecretBuffer& bytes) {
    return hex_value(view(value), bytes) ? 0 : bad_value(keyword);
}

// An address is printable ASCII (RFC 5280, 4.2.1.6).
[[nodiscard]] int take_address(SecretBuffer value, SecretBuffer& address) {
    for (size_t i = 0; i < value.size(); i++)
        if (value[i] < 0x20 || value[i] >= 0x7F)
            return bad_value("rfc822Name");
    address = std::move(value);
    return 0;
}

[[nodiscard]] int take_pair(std::string_view keyword, SecretBuffer value, CertificateText& result) {
    if (same_word(keyword, "rfc822Name") || same_word(keyword, "subjectAltNameRfc822Name"))
        return take_address(std::move(value), result.emailAddress);
    if (same_word(keyword, "serialNumber"))
        return take_hex("serialNumber", value, result.serialNumber);
    if (same_word(keyword, "subjectKeyIdentifier"))
        return take_hex("subjectKeyIdentifier", value, result.subjectKeyIdentifier);
    if (same_word(keyword, "notBefore")) {
        result.notBefore = std::move(value);
        return 0;
    }
    if (same_word(keyword, "notAfter")) {
        result.notAfter = std::move(value);
        return 0;
    }
    return err_fail(BAD_PARAM_ERROR, "Invalid attribute name in extension");
}

} // namespace

int read_certificate_text(const char* text, CertificateText& result) {
    if (text == nullptr)
        return 0;
    PairReader pairs(text);
    while (pairs.next())
        if (const int error = take_pair(pairs.keyword(), pairs.value(), result))
            return error;
    return 0;
}

int read_crl_text(const char* text, CrlText& result) {
    if (text == nullptr)
        return 0;
    PairReader pairs(text);
    while (pairs.next()) {
        const std::string_view keyword = pairs.keyword();
        if (same_word(keyword, "thisUpdate")) {
            result.thisUpdate = pairs.value();
        } else if (same_word(keyword, "nextUpdate")) {
            result.nextUpdate = pairs.value();
        } else {
            constexpr size_t kLongest = 255;
            const std::string_view shown = may_be_name(keyword) ? slice(keyword, 0, kLongest) : "...";
            return err_fail(BAD_PARAM_ERROR, "Invalid attribute name '%.*s'", static_cast<int>(shown.size()),
                            shown.data());
        }
    }
    return 0;
}

} // namespace zul
