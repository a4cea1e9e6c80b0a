#pragma once
#include "hash/digest.h"

// HMAC (RFC 2104, FIPS 198-1) over every digest but MD2.
namespace zul {

// A MAC in progress. Between hmac_init and the first hmac_update it may be copied, so that one key serves
// many messages without being absorbed again; each copy holds key material and is to be wiped.
struct HmacContext {
    DigestContext inner, outer;
};

// hmac_init absorbs a key of any length. The algorithm is one that hmac_length knows.
void hmac_init(HmacContext& context, int algorithm, const void* key, size_t keyLen);
void hmac_update(HmacContext& context, const void* data, size_t size);
// hmac_final writes the MAC, wipes the context and returns the length written.
int hmac_final(HmacContext& context, uint8_t* mac);

// hmac_length is the size of a MAC in bytes, 0 for an algorithm without one.
size_t hmac_length(int algorithm);

// hmac_bytes writes the first outMax bytes of a MAC. It returns the bytes written, or the MAC's length if out
// is null or outMax below 1, or -BAD_FLAG_ERROR.
[[nodiscard]] int hmac_bytes(uint8_t* out, int outMax, const void* data, size_t dataLen, const void* key,
                             size_t keyLen, int algorithm);

} // namespace zul
