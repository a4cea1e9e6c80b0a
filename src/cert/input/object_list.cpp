#include "cert/input/object_list.h"

#include "cert/fields/cert_oids.h"
#include "encode/base64.h"
#include "encode/whole_file.h"
#include "frame/err.h"
#include "frame/slice.h"
#include "frame/text.h"
#include "zulcore.h"

namespace zul {

namespace {

constexpr std::string_view kBegin = "-----BEGIN ", kEnd = "-----END ", kDashes = "-----";
constexpr size_t kLongestName = 256; // a longer text of base64 is no file's name

[[nodiscard]] int too_many() {
    return err_fail(OUT_OF_RANGE_ERROR, "More than %d certificates and the like",
                    static_cast<int>(ObjectList::kMaxObjects));
}

[[nodiscard]] int no_object(const char* name) {
    return err_fail(INVALID_DATA_ERROR, "Neither PEM nor DER of certificates or the like: '%s'",
                    shown_name(name));
}

bool is_base64(std::string_view text) {
    for (const char c : text)
        if (!b64_is_char(c) && c != ' ' && c != '\t' && c != '\r' && c != '\n')
            return false;
    return text.starts_with('M');
}

SecretBuffer decode(std::string_view base64) {
    SecretBuffer der(base64.size() / 4 * 3 + 4);
    der.shrink(b64_decode(der.data(), der.size(), base64.data(), base64.size()));
    return der;
}

// is_left_out tells whether a label of PEM is that of a key, whose block may stand among certificates.
bool is_left_out(std::string_view label) {
    return label.ends_with("KEY") || label.ends_with("PARAMETERS");
}

// rest_is_signature tells whether an AlgorithmIdentifier and a BIT STRING are left.
bool rest_is_signature(DerReader fields) {
    return fields.skip(kDerSequence) && fields.skip(kDerBitString) && fields.at_end();
}

ObjectKind kind_of_signed(DerView toBeSigned) {
    DerReader fields(toBeSigned);
    DerView outer;
    if (fields.take(der_explicit(0), outer))
        return fields.next_is(kDerInteger) ? ObjectKind::certificate : ObjectKind::other;
    const bool hasInteger = fields.skip(kDerInteger);
    if (!fields.skip(kDerSequence))
        return ObjectKind::other;
    // A CRL continues with the issuer and a time, a certificate with issuer and validity; a request has the
    // subject's name and key, and [0].
    if (!fields.skip(kDerSequence))
        return ObjectKind::other;
    if (fields.next_is(kDerUtcTime) || fields.next_is(kDerGeneralizedTime))
        return ObjectKind::crl;
    if (fields.next_is(kDerSequence))
        return hasInteger ? ObjectKind::certificate : ObjectKind::other;
    return hasInteger ? ObjectKind::request : ObjectKind::other;
}

} // namespace

ObjectKind object_kind(DerView encoding) {
    DerView content, toBeSigned;
    if (!der_single(encoding, kDerSequence, content))
        return ObjectKind::other;
    DerReader fields(content);
    if (fields.next_is(kDerEnumerated))
        return ObjectKind::ocspResponse;
    if (!fields.take(kDerSequence, toBeSigned) || !rest_is_signature(fields))
        return ObjectKind::other;
    return kind_of_signed(toBeSigned);
}

int ObjectList::add(const char* list) {
    if (list == nullptr)
        return 0;
    for (std::string_view rest = list; !rest.empty();) {
        const size_t end = rest.find(';');
        const std::string_view argument = trimmed(slice(rest, 0, end));
        rest = end == std::string_view::npos ? std::string_view() : slice(rest, end + 1);
        if (argument.empty())
            continue;
        if (const int code = add_argument(argument.data(), argument.size()))
            return code;
    }
    return 0;
}

int ObjectList::add_argument(const char* argument, size_t length) {
    const std::string_view text(argument, length);
    const SecretBuffer copy = [&] {
        SecretBuffer name;
        name.append(argument, length);
        return name;
    }();
    if (text.find(kBegin) != std::string_view::npos)
        return add_pem(text, copy.text());
    if (length > kLongestName && is_base64(text))
        return add_der(decode(text), copy.text(), false);
    SecretBuffer content;
    if (const int code = read_whole_file(copy.text(), content, kMaxBytes))
        return code;
    return add_content(std::move(content), copy.text());
}

int ObjectList::add_content(SecretBuffer content, const char* name) {
    const std::string_view text(content.text(), content.size());
    if (text.find(kBegin) != std::string_view::npos && !text.starts_with('0'))
        return add_pem(text, name);
    const std::string_view inner = trimmed(text);
    if (is_base64(inner))
        return add_der(decode(inner), name, false);
    return add_der(std::move(content), name, false);
}

int ObjectList::add_pem(std::string_view text, const char* name) {
    const size_t before = entries_.size(), unreadableBefore = unreadable_;
    for (;;) {
        const size_t begin = text.find(kBegin);
        if (begin == std::string_view::npos)
            break;
        text = slice(text, begin + kBegin.size());
        const size_t labelEnd = text.find(kDashes);
        const std::string_view label = slice(text, 0, labelEnd);
        const std::string_view inside = slice(text, label.size() + kDashes.size());
        const size_t end = inside.find(kEnd);
        if (end == std::string_view::npos) {
            if (!leavesOut_)
                return no_object(name);
            unreadable_++;
            break;
        }
        const std::string_view body = slice(inside, 0, end);
        text = slice(inside, end + kEnd.size());
        if (is_left_out(label))
            continue;
        const int code = add_der(decode(body), name, label == "PKCS7" || label == "CMS");
        if (code == 0)
            continue;
        if (!leavesOut_ || code == OUT_OF_RANGE_ERROR)
            return code;
        err_set_text("%s", "");
        unreadable_++;
    }
    if (entries_.size() > before)
        return 0;
    return unreadable_ > unreadableBefore
               ? no_object(name)
               : err_fail(NO_DATA_ERROR, "No certificate or the like in '%s'", shown_name(name));
}

int ObjectList::add_der(SecretBuffer der, const char* name, bool isPkcs7) {
    bytes_ += der.size();
    if (bytes_ > kMaxBytes)
        return err_fail(OUT_OF_RANGE_ERROR, "More than 64 MiB of certificates and the like");
    const DerView bytes(der.data(), der.size());
    DerReader reader(bytes);
    DerElement element;
    const size_t before = entries_.size();
    while (!reader.at_end()) {
        if (!reader.next_is(kDerSequence) || !reader.take_any(element)) {
            if (leavesOut_ && entries_.size() > before) {
                unreadable_++;
                break;
            }
            entries_.shrink(before);
            return no_object(name);
        }
        if (!add_signed_data(element.encoding)) {
            if (isPkcs7) {
                entries_.shrink(before);
                return no_object(name);
            }
            entries_.add({element.encoding, object_kind(element.encoding)});
        }
        if (entries_.size() > kMaxObjects) {
            entries_.shrink(before);
            return too_many();
        }
    }
    if (entries_.size() == before)
        return err_fail(NO_DATA_ERROR, "No certificate or the like in '%s'", shown_name(name));
    memory_.add(std::move(der));
    return 0;
}

// add_signed_data takes the certificates and CRLs out of a SignedData in DER (RFC 5652, 5.1): false for
// anything else.
bool ObjectList::add_signed_data(DerView der) {
    DerView content, type, outer, signedData, set;
    bool found;
    if (!der_single(der, kDerSequence, content))
        return false;
    DerReader info(content);
    if (!info.take(kDerOid, type) || type.text() != kOidSignedData || !info.take(der_explicit(0), outer) ||
        !der_single(outer, kDerSequence, signedData))
        return false;
    DerReader fields(signedData);
    if (!fields.skip(kDerInteger) || !fields.skip(kDerSet) || !fields.skip(kDerSequence))
        return false;
    for (unsigned i = 0; i <= 1; i++) {
        if (!fields.take_optional(der_explicit(i), set, found))
            return false;
        if (found)
            add_objects(set);
    }
    return true;
}

void ObjectList::add_objects(DerView set) {
    DerReader reader(set);
    DerElement element;
    while (entries_.size() <= kMaxObjects && reader.take_any(element))
        if (element.is(kDerSequence))
            entries_.add({element.encoding, object_kind(element.encoding)});
}

} // namespace zul
