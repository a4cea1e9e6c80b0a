// PFX, AuthenticatedSafe and EncryptedData: RFC 7292, 4 and 4.1; RFC 5652, 8.
#include "pfx/p12_file.h"

#include <cstring>
#include <new>

#include "asn1/asn_children.h"
#include "asn1/asn_input.h"
#include "asn1/asn_value.h"
#include "frame/err.h"
#include "key/key_der.h"
#include "pfx/p12_bags.h"
#include "pfx/pfx_reader.h"
#include "zulcore.h"

namespace zul {
namespace {

[[nodiscard]] int malformed(const char* what) {
    return err_fail(BAD_FORMAT_ERROR, "%s is malformed", what);
}

// take_implicit_octets reads [0] IMPLICIT OCTET STRING, in one piece or in segments.
bool take_implicit_octets(AsnChildren& fields, SecretBuffer& content) {
    if (const asn_Node* whole = fields.take_if(kAsnContext, 0); whole != nullptr)
        return asn_GetPrimitiveData(whole, content);
    const asn_Node* segmented = fields.take_if(kAsnExplicit, 0);
    if (segmented == nullptr)
        return false;
    content = SecretBuffer();
    for (AsnChildren segments(segmented); !segments.at_end();) {
        SecretBuffer segment;
        if (!asn_GetOctets(segments.take_octets(), segment))
            return false;
        content.append(segment.data(), segment.size());
    }
    return true;
}

// take_explicit_octets reads [0] EXPLICIT OCTET STRING, the content of a ContentInfo of plain data.
bool take_explicit_octets(AsnChildren& fields, SecretBuffer& content) {
    AsnChildren inside(fields.take_if(kAsnExplicit, 0));
    return asn_GetOctets(inside.take_octets(), content) && inside.at_end();
}

} // namespace

P12File::~P12File() {
    while (P12Safe* safe = safes_) {
        safes_ = safe->next;
        efree(safe);
    }
}

int P12File::open(const char* fileOrText) {
    AsnList list;
    if (const int error = asn_read_input(fileOrText, list, kMaxPfxFile))
        return error;
    return open_list(list);
}

int P12File::open_list(const AsnList& list) {
    AsnChildren fields(list.head());
    const asn_Node* version = fields.take_integer();
    const asn_Node* info = fields.take_sequence();
    const asn_Node* macData = fields.take_sequence();
    if (version == nullptr || info == nullptr || !fields.at_end())
        return err_fail(BAD_FORMAT_ERROR, "Not a PKCS #12 file");
    if (asn_GetInt(version) != kPfxVersion)
        return err_fail(NOT_SUPPORTED_ERROR, "The PKCS #12 file is not of version 3");
    AsnChildren content(info);
    const asn_Node* type = content.take_oid();
    if (!asn_OidIs(type, "data"))
        return asn_OidIs(type, "signedData")
                   ? err_fail(NOT_SUPPORTED_ERROR, "PKCS #12 files with a signature are not supported")
                   : err_fail(BAD_FORMAT_ERROR, "Not a PKCS #12 file");
    if (!take_explicit_octets(content, authSafe_) || !content.at_end())
        return malformed("The content of the PKCS #12 file");
    hasMac_ = macData != nullptr;
    return hasMac_ ? p12_read_mac(mac_, macData) : 0;
}

int P12File::check(P12Password& password) {
    if (!hasMac_)
        return 0;
    const int error = p12_check_mac(mac_, authSafe_, password, work_);
    isVerified_ = error == 0;
    return error;
}

int P12File::read(P12Password* password, bool skipsUnknown) {
    AsnList list;
    if (!key_parse(authSafe_.data(), authSafe_.size(), list))
        return malformed("The content of the PKCS #12 file");
    size_t number = 0;
    for (AsnChildren infos(list.head()); !infos.at_end();) {
        if (++number > P12Entries::kMost)
            return err_fail(OUT_OF_RANGE_ERROR, "More than %u parts",
                            static_cast<unsigned>(P12Entries::kMost));
        auto* safe = new (emalloc(sizeof(P12Safe))) P12Safe;
        (lastSafe_ == nullptr ? safes_ : lastSafe_->next) = safe;
        lastSafe_ = safe;
        if (const int error = read_safe(*safe, number, infos.take_sequence(), password, skipsUnknown))
            return error;
    }
    return 0;
}

int P12File::read_safe(P12Safe& safe, size_t number, const asn_Node* info, P12Password* password,
                       bool skipsUnknown) {
    AsnChildren fields(info);
    const asn_Node* type = fields.take_oid();
    AsnList contents;
    if (type == nullptr)
        return malformed("A part of the PKCS #12 file");
    if (asn_OidIs(type, "data")) {
        safe.kind = P12Safe::Kind::plain;
        SecretBuffer content;
        if (!take_explicit_octets(fields, content) || !fields.at_end() ||
            !key_parse(content.data(), content.size(), contents))
            return malformed("A part of the PKCS #12 file");
        safe.bytes = content.size();
    } else if (asn_OidIs(type, "encryptedData")) {
        AsnChildren inside(fields.take_if(kAsnExplicit, 0));
        safe.kind = P12Safe::Kind::encrypted;
        if (const int error = read_encrypted(safe, contents, inside.take_sequence(), password, skipsUnknown))
            return error;
    } else {
        oid_text(type, safe.type);
    }
    if (!contents)
        return 0;
    safe.isRead = true;
    const size_t before = entries_.count();
    int error = p12_read_bags(entries_, contents.head(), number);
    safe.entries = entries_.count() - before;
    // Without a MAC a wrong password may give something that begins well.
    if (error == BAD_FORMAT_ERROR && safe.kind == P12Safe::Kind::encrypted && !isVerified_) {
        err_clear();
        error = decryption_result(DECRYPT_ERROR);
    }
    return error;
}

int P12File::read_encrypted(P12Safe& safe, AsnList& contents, const asn_Node* encryptedData,
                            P12Password* password, bool skipsUnknown) {
    AsnChildren fields(encryptedData);
    const asn_Node* version = fields.take_integer();
    AsnChildren info(fields.take_sequence());
    const asn_Node* type = info.take_oid();
    const asn_Node* algorithm = info.take_sequence();
    SecretBuffer data;
    if (version == nullptr || algorithm == nullptr || !asn_OidIs(type, "data") ||
        !take_implicit_octets(info, data) || !info.at_end())
        return malformed("An encrypted part of the PKCS #12 file");
    safe.scheme = p12_describe(algorithm);
    safe.bytes = data.size();
    if (password == nullptr)
        return 0;
    const int error = p12_decrypt(contents, algorithm, data, *password, work_);
    if (error == NOT_SUPPORTED_ERROR && skipsUnknown) {
        err_clear();
        return 0;
    }
    return decryption_result(error);
}

int P12File::decryption_result(int error) const {
    if (error != DECRYPT_ERROR)
        return error;
    return isVerified_ ? err_fail(BAD_FORMAT_ERROR, "Encrypted data are damaged, or under another password")
                       : err_fail(DECRYPT_ERROR, "Cannot decrypt: wrong password (or the file was changed)");
}

int P12File::open_key(P12Entry& entry, P12Password& password) {
    AsnList list;
    if (!key_parse(entry.content.data(), entry.content.size(), list))
        return malformed("A key of the PKCS #12 file");
    if (entry.kind == P12Kind::key)
        return p12_take_key(entry, list.head());
    AsnChildren fields(list.head());
    const asn_Node* algorithm = fields.take_sequence();
    SecretBuffer data;
    if (algorithm == nullptr || !asn_GetOctets(fields.take_octets(), data) || !fields.at_end())
        return malformed("An encrypted key of the PKCS #12 file");
    AsnList plain;
    const int error = decryption_result(p12_decrypt(plain, algorithm, data, password, work_));
    if (error != 0)
        return error;
    if (key_shape(plain.head()) != KeyShape::privateInfo)
        return decryption_result(DECRYPT_ERROR);
    return p12_take_key(entry, plain.head());
}

} // namespace zul
