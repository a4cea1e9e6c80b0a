// BIT STRINGs (X.690, 8.6): an octet that counts the unused bits of the last byte, then the bits.
#include <cstring>

#include "asn1/asn_value.h"
#include "frame/err.h"

namespace zul {

static uint32_t reverse_bits(uint32_t value) {
    uint32_t reversed = 0;
    for (int i = 0; i < 32; i++, value >>= 1)
        reversed = reversed << 1 | (value & 1);
    return reversed;
}

// used_mask gives the used bits of the last byte for the octet that counts the unused ones. With more than 8
// unused bits none are used.
static uint8_t used_mask(uint8_t unused) {
    return static_cast<uint8_t>(unused >= 8 ? 0u : 0xFFu << unused);
}

uint32_t asn_GetBitFlags(const asn_Node* node) {
    if (asn_is(node, kAsnConstructed, kAsnBitString)) {
        err_set_text("ASN.1 internal error: constructed BITSTRING not supported");
        return 0;
    }
    if (!asn_is(node, kAsnUniversal, kAsnBitString) || node->data == nullptr)
        return 0;
    const uint32_t n = node->length - 1;
    if (n > 4) {
        err_set_text("ASN.1 internal error: unexpected BITSTRING longer than 32-bits");
        return 0;
    }
    uint32_t word = 0;
    for (uint32_t i = 0; i < n; i++) {
        const unsigned mask = i + 1 == n ? used_mask(node->data[0]) : 0xFFu;
        word |= (node->data[1 + i] & mask) << (24 - 8 * i);
    }
    return reverse_bits(word);
}

size_t asn_BitFlagsToBytes(uint32_t flags, uint8_t buf[4], unsigned* unused) {
    const uint32_t word = reverse_bits(flags);
    size_t n = 0;
    for (size_t i = 0; i < 4; i++) {
        buf[i] = static_cast<uint8_t>(word >> (24 - 8 * i));
        if (buf[i] != 0)
            n = i + 1;
    }
    *unused = 0;
    if (n != 0)
        while ((buf[n - 1] >> *unused & 1) == 0)
            ++*unused;
    return n;
}

bool asn_GetBitString(const asn_Node* node, SecretBuffer& content) {
    if (!asn_is(node, kAsnUniversal, kAsnBitString) || node->data == nullptr)
        return false;
    const size_t n = node->length - 1;
    content = SecretBuffer(n + 1);
    content.shrink(n);
    if (n != 0) {
        memcpy(content.data(), node->data + 1, n);
        content[n - 1] &= used_mask(node->data[0]);
    }
    return true;
}

} // namespace zul
