#include "cipher/chacha20_poly1305.h"

#include <cstring>

#include "frame/constant_time.h"

namespace zul {
namespace {

// The key stream of one message. Its blocks from 0 on, of which the first is the key of the tag, are made in
// one go as far as they serve a short message.
class KeyStream {
  public:
    KeyStream(const uint8_t* key, const uint8_t* nonce, size_t size)
        : key_(key), nonce_(nonce), isShort_(size <= kShort), made_(kChaChaBlock + (isShort_ ? size : 0)) {
        memset(first_, 0, made_);
        chacha20(first_, first_, made_, key, nonce, 0);
    }
    KeyStream(const KeyStream&) = delete;
    KeyStream& operator=(const KeyStream&) = delete;
    // The kernels leave vectors of the key on the stack, within kKernelStack of here.
    ~KeyStream() {
        wipe_bytes(first_, made_);
        wipe_dead_stack(kKernelStack);
    }
    void make_tag(uint8_t* tag, const uint8_t* aad, size_t aadSize, const uint8_t* encrypted,
                  size_t size) const {
        Poly1305 mac(first_);
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
    void add_to(uint8_t* out, const uint8_t* in, size_t size) const {
        if (!isShort_)
            chacha20(out, in, size, key_, nonce_, 1);
        for (size_t i = 0; isShort_ && i < size; i++)
            out[i] = in[i] ^ first_[kChaChaBlock + i];
    }

  private:
    static constexpr size_t kShort = 15 * kChaChaBlock, kKernelStack = 3072;
    const uint8_t *key_, *nonce_;
    bool isShort_;
    size_t made_; // of first_
    alignas(16) uint8_t first_[kChaChaBlock + kShort];
};

} // namespace

void chacha20_poly1305_encrypt(uint8_t* out, uint8_t* tag, const uint8_t* key, const uint8_t* nonce,
                               const uint8_t* aad, size_t aadSize, const uint8_t* in, size_t size) {
    const KeyStream stream(key, nonce, size);
    stream.add_to(out, in, size);
    stream.make_tag(tag, aad, aadSize, out, size);
}

bool chacha20_poly1305_decrypt(uint8_t* out, const uint8_t* tag, const uint8_t* key, const uint8_t* nonce,
                               const uint8_t* aad, size_t aadSize, const uint8_t* in, size_t size) {
    const KeyStream stream(key, nonce, size);
    Secret<kPoly1305Tag> expected;
    stream.make_tag(expected.data(), aad, aadSize, in, size);
    if (!bytes_equal(expected.data(), tag, kPoly1305Tag))
        return false;
    stream.add_to(out, in, size);
    return true;
}

} // namespace zul
