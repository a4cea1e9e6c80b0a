#pragma once
#include <cstddef>
#include <cstdint>

// The universal hash under GCM (GHASH, SP 800-38D) and GCM-SIV (POLYVAL, RFC 8452). Both are sums of products
// in one field; POLYVAL has the bits in the order of the processor, and GHASH becomes it with its blocks
// reversed byte by byte and its key multiplied by x (RFC 8452, appendix A).
namespace zul {

constexpr size_t kPolyvalBlock = 16;

struct PolyvalKey {
    static constexpr size_t kPowers = 16;
    alignas(64) uint64_t powers[kPowers][2]; // the highest first
    size_t count;                            // powers at the end that are there
    bool isReversed;                         // blocks are GHASH's
};

// polyval_set_key and ghash_set_key make as many powers as pay for messages of that many blocks.
void polyval_set_key(PolyvalKey& key, const uint8_t* h, size_t blocks);
void ghash_set_key(PolyvalKey& key, const uint8_t* h, size_t blocks);

// polyval_update absorbs data; a last part below a block is filled up with zeros. state is zero at the start.
void polyval_update(uint64_t state[2], const PolyvalKey& key, const uint8_t* data, size_t size);

// polyval_write gives the state in the byte order of the key's hash.
void polyval_write(uint8_t* out, const uint64_t state[2], const PolyvalKey& key);

} // namespace zul
