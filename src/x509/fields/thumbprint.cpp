#include "x509/fields/thumbprint.h"

#include "asn1/asn_element.h"
#include "asn1/asn_encode.h"
#include "encode/hex.h"
#include "frame/err.h"
#include "zulcore.h"

namespace zul {

// Only an object that is not DER is copied: its names may be long.
int der_digest(uint8_t out[kMaxDigestSize], const asn_Node* object, int algorithm) {
    AsnList converted;
    if (!asn_IsDer(object)) {
        converted = asn_ToDer(asn_CopyList(object));
        object = converted.head();
    }
    if (!asn_HasEncoding(object))
        return err_invalid_data("Invalid ASN.1 data");
    if (digest_find(algorithm) == nullptr)
        return BAD_FLAG_ERROR;
    DigestContext context;
    digest_init(context, algorithm);
    asn_Digest(object, context);
    digest_final(context, out);
    return 0;
}

bool thumbprint_text(const asn_Node* certificate, DigestAlgorithm algorithm, char out[kThumbprintText + 1]) {
    *out = '\0';
    uint8_t digest[kMaxDigestSize];
    if (der_digest(digest, certificate, algorithm) != 0)
        return false;
    hex_encode_lower(out, kThumbprintText + 1, digest, digest_length(algorithm));
    return true;
}

} // namespace zul
