#pragma once
#include <cstdint>

namespace zul {

class OctetContent;

// content_digest digests a content piece by piece: 0, or READ_ERROR with a text.
[[nodiscard]] int content_digest(OctetContent& content, int algorithm, uint8_t* digest);

// is_attribute_set tells whether a content is the encoding of signed attributes (RFC 5652, 5.3). The
// signature of such attributes is also one of them as content without signed attributes, which the signer
// never saw.
bool is_attribute_set(OctetContent& content);

} // namespace zul
