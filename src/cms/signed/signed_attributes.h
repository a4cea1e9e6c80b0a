#pragma once
#include "asn1/asn_node.h"

namespace zul {

// signed_attributes_make makes the attributes of a new message (RFC 5652, 11; RFC 8551, 2.5.2) as the SET OF
// that is digested, in the order of DER: contentType and messageDigest, and what the ZUL_CMS_ADD_ options ask
// for.
AsnList signed_attributes_make(const uint8_t* digest, size_t digestLength, int options);

} // namespace zul
