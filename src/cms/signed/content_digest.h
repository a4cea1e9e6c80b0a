#pragma once
#include <cstdint>

namespace zul {

class OctetContent;

// content_digest digests a content piece by piece: 0, or READ_ERROR with a text.
[[nodiscard]] int content_digest(OctetContent& content, int algorithm, uint8_t* digest);

// is_attribute_set tells whether a content is the encoding of signed attributes (RFC 5652, 5.3). A
// signature over such attributes is also valid for a message that has them as its content and no signed
// attributes. The signer never signed that message.
bool is_attribute_set(OctetContent& content);

} // namespace zul
