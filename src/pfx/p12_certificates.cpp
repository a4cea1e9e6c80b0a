#include "pfx/p12_certificates.h"

#include <cstring>

#include "asn1/asn_encode.h"
#include "asn1/asn_input.h"
#include "encode/base64.h"
#include "encode/whole_file.h"
#include "frame/err.h"
#include "frame/file_stream.h"
#include "frame/slice.h"
#include "frame/text.h"
#include "pfx/pfx_reader.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr std::string_view kBegin = "-----BEGIN ", kEnd = "-----END ", kDashes = "-----";

bool is_pem(std::string_view text) {
    return text.find(kBegin) != std::string_view::npos;
}

bool has(const P12Entries& certificates, const SecretBuffer& der) {
    for (const P12Entry* entry = certificates.head(); entry != nullptr; entry = entry->next)
        if (entry->content.size() == der.size() && memcmp(entry->content.data(), der.data(), der.size()) == 0)
            return true;
    return false;
}

[[nodiscard]] int add(P12Entries& certificates, SecretBuffer der) {
    if (has(certificates, der))
        return 0;
    if (certificates.count() == P12Entries::kMost)
        return err_fail(OUT_OF_RANGE_ERROR, "More than %u certificates",
                        static_cast<unsigned>(P12Entries::kMost));
    P12Entry& entry = certificates.add();
    entry.kind = P12Kind::certificate;
    entry.content = std::move(der);
    return p12_open_certificate(entry);
}

// add_pem adds the certificates of PEM (RFC 7468, 5). Other blocks, as of keys, are passed over.
[[nodiscard]] int add_pem(P12Entries& certificates, std::string_view text) {
    bool hasAny = false;
    for (size_t begin = text.find(kBegin); begin != std::string_view::npos; begin = text.find(kBegin)) {
        text = slice(text, begin + kBegin.size());
        const std::string_view label = slice(text, 0, text.find(kDashes));
        if (label != "CERTIFICATE" && label != "X509 CERTIFICATE")
            continue;
        text = slice(text, label.size() + kDashes.size());
        const std::string_view body = slice(text, 0, text.find(kDashes));
        if (!slice(text, body.size()).starts_with(kEnd))
            return err_fail(BAD_FORMAT_ERROR, "A PEM block of a certificate has no end");
        SecretBuffer der(b64_decoded_length(body.data(), body.size()));
        b64_decode(der.data(), der.size(), body.data(), body.size());
        if (const int error = add(certificates, std::move(der)))
            return error;
        hasAny = true;
    }
    return hasAny ? 0 : err_fail(NO_DATA_ERROR, "No PEM block of a certificate");
}

[[nodiscard]] int add_list(P12Entries& certificates, const AsnList& list) {
    return add(certificates, asn_Encode(list));
}

[[nodiscard]] int add_item(P12Entries& certificates, const char* item) {
    if (is_pem(item))
        return add_pem(certificates, item);
    AsnList list;
    SecretBuffer content;
    const bool mayBeName = may_be_name(item);
    const int unread = mayBeName ? read_whole_file(item, content, kMaxPfxFile) : OPEN_ERROR;
    if (unread == 0) {
        const std::string_view bytes(content.text(), content.size());
        // DER may hold the text of a PEM block by chance.
        if (is_pem(bytes) && !bytes.starts_with('0'))
            return add_pem(certificates, bytes);
        const int error = asn_read_content(content.data(), content.size(), list);
        return error != 0 ? error : add_list(certificates, list);
    }
    if (unread == READ_ERROR || (mayBeName && platform::file_is_regular(item)))
        return unread; // a second attempt would take one certificate of several
    err_clear();
    const int error = asn_read_input(item, list, kMaxPfxFile);
    return error != 0 ? error : add_list(certificates, list);
}

// take_item takes the next item, without its blanks, off a list; false at its end.
bool take_item(std::string_view& rest, SecretBuffer& item) {
    while (!rest.empty()) {
        const size_t end = rest.find(';');
        const std::string_view text = trimmed(slice(rest, 0, end));
        rest = end == std::string_view::npos ? std::string_view() : slice(rest, end + 1);
        item = SecretBuffer();
        item.append(text.data(), text.size());
        if (!text.empty())
            return true;
    }
    return false;
}

} // namespace

int p12_read_certificates(P12Entries& certificates, const char* list) {
    std::string_view rest(list);
    SecretBuffer item;
    while (take_item(rest, item))
        if (const int error = add_item(certificates, item.text()))
            return error;
    return 0;
}

bool p12_lists_file(const char* list, const char* path) {
    std::string_view rest(list);
    SecretBuffer item;
    while (take_item(rest, item))
        if (may_be_name(item.text()) && is_same_file(item.text(), path))
            return true;
    return false;
}

} // namespace zul
