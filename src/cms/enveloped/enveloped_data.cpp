#include "cms/enveloped/enveloped_data.h"

#include "asn1/asn_children.h"
#include "asn1/asn_value.h"
#include "frame/err.h"
#include "x509/input/certificate_bundle.h"
#include "x509/input/x509_input.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr char kMalformed[] = "Invalid Enveloped Data Content";

constexpr int kRecipientNameLevel = 3; // of the issuers' Names in RecipientInfos, which are packed

bool read_element(ByteStream& stream, const AsnScope& scope, uint32_t cls, uint32_t tag, AsnList& element,
                  int packLevel = kAsnPackNone) {
    return asn_read_element(stream, scope, cls, tag, kMaxX509Object, element, packLevel);
}

// read_if_there leaves the element empty if another, or none, follows.
bool read_if_there(ByteStream& stream, const AsnScope& scope, uint32_t cls, uint32_t tag, AsnList& element) {
    return !asn_next_is(stream, scope, cls, tag) || read_element(stream, scope, cls, tag, element);
}

[[nodiscard]] int count_children(const asn_Node* parent) {
    int count = 0;
    for (AsnChildren children(parent); !children.at_end(); children.take())
        count++;
    return count;
}

} // namespace

RecipientFields recipient_fields(const asn_Node* recipientInfo) {
    RecipientFields fields;
    if (!asn_is(recipientInfo, kAsnConstructed, kAsnSequence))
        return fields;
    AsnChildren children(recipientInfo);
    fields.version = children.take_integer();
    const bool isIdentifier = children.is(kAsnConstructed, kAsnSequence) || children.is(kAsnContext, 0) ||
                              children.is(kAsnExplicit, 0);
    fields.identifier = isIdentifier ? children.take() : nullptr;
    fields.keyEncryptionAlgorithm = children.take_sequence();
    fields.encryptedKey = children.take_octets();
    return fields;
}

int EnvelopedData::open(const char* fileOrText) {
    if (const int error = source_.open(fileOrText)) {
        err_add_text("Unable to read enveloped-data file");
        return error;
    }
    return source_.read_result(read_message());
}

int EnvelopedData::read_message() {
    ContentInfoScope scope;
    if (!enter_content_info(source_.stream(), scope, "envelopedData"))
        return err_invalid_data("Invalid Content Type - expected enveloped-data");
    if (const int error = read_fields(source_.stream(), scope.structure))
        return error;
    return leave_content_info(source_.stream(), scope) ? 0 : err_invalid_data(kMalformed);
}

int EnvelopedData::read_fields(ByteStream& stream, const AsnScope& scope) {
    constexpr uint32_t kOriginatorInfo = 0, kUnprotectedAttributes = 1;
    AsnList version;
    if (!read_element(stream, scope, kAsnUniversal, kAsnInteger, version) ||
        !asn_skip_optional(stream, scope, kAsnExplicit, kOriginatorInfo) ||
        !read_element(stream, scope, kAsnConstructed, kAsnSet, recipientInfos_, kRecipientNameLevel))
        return err_invalid_data(kMalformed);
    version_ = asn_GetInt(version.head());
    recipientCount_ = count_children(recipients());
    AsnScope inner = scope;
    if (!asn_enter(stream, inner, kAsnConstructed, kAsnSequence))
        return err_invalid_data(kMalformed);
    if (const int error = read_encrypted_content_info(stream, inner))
        return error;
    return asn_skip_optional(stream, scope, kAsnExplicit, kUnprotectedAttributes)
               ? 0
               : err_invalid_data(kMalformed);
}

int EnvelopedData::read_encrypted_content_info(ByteStream& stream, const AsnScope& scope) {
    if (!read_if_there(stream, scope, kAsnUniversal, kAsnOid, contentType_) ||
        !read_if_there(stream, scope, kAsnConstructed, kAsnSequence, contentAlgorithm_))
        return err_invalid_data(kMalformed);
    if (asn_next_is(stream, scope, kAsnContext, 0) || asn_next_is(stream, scope, kAsnExplicit, 0)) {
        const int error = content_.open(stream, scope, kAsnContext, 0);
        if (error != 0)
            return error == INVALID_DATA_ERROR ? err_invalid_data(kMalformed) : error;
    }
    return asn_leave(stream, scope) ? 0 : err_invalid_data(kMalformed);
}

} // namespace zul
