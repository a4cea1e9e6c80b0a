#include "cms/signed/signed_data.h"

#include "asn1/asn_children.h"
#include "asn1/asn_element.h"
#include "asn1/asn_value.h"
#include "frame/err.h"
#include "x509/input/x509_input.h"
#include "zulcore.h"

namespace zul {
namespace {

// read_version gives -1 for an invalid version: it is from 0 to INT_MAX.
int64_t read_version(ByteStream& stream, const AsnScope& scope) {
    AsnList version;
    if (!asn_read_element(stream, scope, kAsnUniversal, kAsnInteger, kMaxX509Object, version))
        return -1;
    const int64_t number = asn_GetInt(version.head());
    return number >= 0 && (version.head()->data[0] & 0x80) == 0 ? number : -1;
}

} // namespace

int SignedData::open(const char* fileOrText) {
    const int error = source_.open(fileOrText);
    return error != 0 ? error : source_.read_result(read_message());
}

int SignedData::read_message() {
    ByteStream& stream = source_.stream();
    ContentInfoScope scope;
    if (!enter_content_info(stream, scope, "signedData"))
        return err_invalid_data("Invalid Content Type: expected signed-data");
    if (const int error = read_fields(stream, scope.structure))
        return error;
    return leave_content_info(stream, scope) ? 0 : err_invalid_data("Invalid SignedData: invalid end");
}

int SignedData::read_fields(ByteStream& stream, const AsnScope& scope) {
    version_ = read_version(stream, scope);
    if (version_ < 0)
        return err_invalid_data("Invalid SignedData: cannot find CMSVersion");
    if (!asn_skip_type(stream, scope.end, kAsnConstructed, kAsnSet))
        return err_invalid_data("Invalid SignedData: no digestAlgorithms");

    AsnScope inner = scope;
    if (!asn_next_is(stream, scope, kAsnConstructed, kAsnSequence) ||
        !asn_enter(stream, inner, kAsnConstructed, kAsnSequence))
        return err_invalid_data("Invalid SignedData: no encapContentInfo");
    if (const int error = read_content_info(stream, inner))
        return error;

    inner = scope;
    if (asn_next_is(stream, scope, kAsnExplicit, 0) &&
        (!asn_enter(stream, inner, kAsnExplicit, 0) || !certificates_.open_set(stream, inner) ||
         !asn_leave(stream, inner)))
        return err_invalid_data("Invalid SignedData: invalid certificates");
    constexpr uint32_t kRevocationLists = 1;
    if (!asn_skip_optional(stream, scope, kAsnExplicit, kRevocationLists))
        return err_invalid_data("Invalid SignedData: invalid crls");
    return read_signers(stream, scope);
}

int SignedData::read_content_info(ByteStream& stream, AsnScope scope) {
    if (!asn_read_element(stream, scope, kAsnUniversal, kAsnOid, kMaxX509Object, contentType_))
        return err_invalid_data("Invalid SignedData: no contentType");
    hasContent_ = asn_next_is(stream, scope, kAsnExplicit, 0);
    if (hasContent_)
        if (const int error = read_content(stream, scope))
            return error;
    return asn_leave(stream, scope) ? 0 : err_invalid_data("Invalid SignedData: invalid encapContentInfo");
}

int SignedData::read_content(ByteStream& stream, const AsnScope& scope) {
    constexpr const char* kInvalid = "Invalid SignedData: invalid content";
    AsnScope inner = scope;
    if (!asn_enter(stream, inner, kAsnExplicit, 0))
        return err_invalid_data(kInvalid);
    const bool isOctets = asn_next_is(stream, inner, kAsnUniversal, kAsnOctetString) ||
                          asn_next_is(stream, inner, kAsnConstructed, kAsnOctetString);
    AsnHeader other;
    if (isOctets || asn_OidIs(content_type(), "data")) {
        const int error = content_.open(stream, inner, kAsnUniversal, kAsnOctetString);
        if (error != 0)
            return error == INVALID_DATA_ERROR ? err_invalid_data(kInvalid) : error;
    } else if (!asn_skip_element(stream, inner.end, other)) { // PKCS #7 (RFC 2315, 7) has any type there
        return err_invalid_data(kInvalid);
    }
    return asn_leave(stream, inner) ? 0 : err_invalid_data(kInvalid);
}

int SignedData::read_signers(ByteStream& stream, const AsnScope& scope) {
    if (!asn_next_is(stream, scope, kAsnConstructed, kAsnSet))
        return err_invalid_data("Invalid SignedData: no signerInfos");
    if (!asn_read_element(stream, scope, kAsnConstructed, kAsnSet, kMaxX509Object, signerInfos_) ||
        !asn_at_scope_end(stream, scope))
        return err_invalid_data("Invalid SignedData: invalid signerInfos");
    AsnChildren signers(signerInfos_.head());
    for (lastNode_ = signers.peek(); !signers.at_end(); signerCount_++)
        if (signers.take_sequence() == nullptr)
            return err_invalid_data("Invalid SignedData: invalid signerInfos");
    return 0;
}

int SignedData::require_data() const {
    constexpr long kVersion = 1;
    if (version_ != kVersion)
        return err_fail(NOT_SUPPORTED_ERROR, "SignedData version is %ld: only %ld is supported",
                        static_cast<long>(version_), kVersion);
    return asn_OidIs(content_type(), "data")
               ? 0
               : err_invalid_data("Invalid SignedData: contentType must be 'data'");
}

SignerFields SignedData::signer(int n) const {
    if (n < 0 || n >= signerCount_)
        return {};
    if (n < lastSigner_) {
        lastSigner_ = 0;
        lastNode_ = AsnChildren(signerInfos_.head()).peek();
    }
    for (; lastSigner_ < n; lastSigner_++)
        lastNode_ = asn_ElementEnd(lastNode_);
    return signer_fields(lastNode_);
}

} // namespace zul
