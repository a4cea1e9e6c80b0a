#include "cipher/chacha20_poly1305.h"

#include "frame/constant_time.h"

namespace zul {
namespace {

void make_tag(uint8_t* tag, const uint8_t* key, const uint8_t* nonce, const uint8_t* aad, size_t aadSize,
              const uint8_t* encrypted, size_t size) {
    Secret<kPoly1305Key> macKey;
    chacha20(macKey.data(), macKey.data(), kPoly1305Key, key, nonce, 0);
    Poly1305 mac(macKey.data());
    mac.absorb_padded(aad, aadSize);
    mac.absorb_padded(encrypted, size);
    uint8_t lengths[kPoly1305Block];
    for (size_t i = 0; i < 8; i++) {
        lengths[i] = static_cast<uint8_t>(uint64_t{aadSize} >> 8 * i);
        lengths[8 + i] = static_cast<uint8_t>(uint64_t{size} >> 8 * i);
    }
    mac.absorb_padded(lengths, sizeof lengths);
    mac.finish(tag);
}

} // namespace

void chacha20_poly1305_encrypt(uint8_t* out, uint8_t* tag, const uint8_t* key, const uint8_t* nonce,
                               const uint8_t* aad, size_t aadSize, const uint8_t* in, size_t size) {
    chacha20(out, in, size, key, nonce, 1);
    make_tag(tag, key, nonce, aad, aadSize, out, size);
}

bool chacha20_poly1305_decrypt(uint8_t* out, const uint8_t* tag, const uint8_t* key, const uint8_t* nonce,
                               const uint8_t* aad, size_t aadSize, const uint8_t* in, size_t size) {
    Secret<kPoly1305Tag> expected;
    make_tag(expected.data(), key, nonce, aad, aadSize, in, size);
    if (!bytes_equal(expected.data(), tag, kPoly1305Tag))
        return false;
    chacha20(out, in, size, key, nonce, 1);
    return true;
}

} // namespace zul
