#include "x509/fields/thumbprint.h"

#include <utility>

#include "asn1/asn_element.h"
#include "asn1/asn_encode.h"
#include "encode/hex.h"
#include "frame/err.h"
#include "zulcore.h"

namespace zul {

int der_digest(uint8_t out[kMaxDigestSize], AsnList object, int algorithm) {
    const SecretBuffer der = asn_Encode(asn_ToDer(std::move(object)));
    if (der.empty())
        return err_fail(INVALID_DATA_ERROR, "Invalid ASN.1 data");
    const int length =
        hash_bytes(out, kMaxDigestSize, der.data(), static_cast<int64_t>(der.size()), algorithm);
    return length < 0 ? -length : 0;
}

bool thumbprint_text(AsnList certificate, DigestAlgorithm algorithm, char out[kThumbprintText + 1]) {
    *out = '\0';
    uint8_t digest[kMaxDigestSize];
    if (der_digest(digest, std::move(certificate), algorithm) != 0)
        return false;
    hex_encode_lower(out, kThumbprintText + 1, digest, digest_length(algorithm));
    return true;
}

} // namespace zul
