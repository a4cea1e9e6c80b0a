#include "seal/stream_payload.h"

#include <utility>

#include "cipher/chacha20_poly1305.h"
#include "frame/err.h"
#include "rng/rng.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr size_t kChunk = size_t{64} * 1024, kTag = kPoly1305Tag;

// Chunks reads one chunk ahead, since the last one is known only when nothing follows. Each is worked on
// where it was read.
class Chunks {
  public:
    Chunks(SealInput& input, size_t wanted)
        : input_(input), wanted_(wanted), chunk_(kChunk + kTag), ahead_(kChunk + kTag),
          next_(input.read(ahead_.data(), wanted)) {}

    // advance goes to the next chunk, of which the first may be empty: 0, or the input's error.
    [[nodiscard]] int advance() {
        std::swap(chunk_, ahead_);
        size_ = next_;
        next_ = size_ == wanted_ && input_.error() == 0 ? input_.read(ahead_.data(), wanted_) : 0;
        return input_.error();
    }
    uint8_t* data() { return chunk_.data(); }
    size_t size() const { return size_; }
    bool is_last() const { return next_ == 0; }

  private:
    SealInput& input_;
    const size_t wanted_;
    SecretBuffer chunk_, ahead_;
    size_t size_ = 0, next_;
};

// PayloadKey gives each chunk the next nonce: a counter of 11 bytes, big-endian, and a byte that is 1 for the
// last chunk.
class PayloadKey {
  public:
    PayloadKey(const FileKey& fileKey, const uint8_t* nonce) {
        age_derive(key_, fileKey.data(), fileKey.size(), nonce, kPayloadNonce, "payload");
    }
    void encrypt(uint8_t* chunk, size_t size, bool isLast) {
        chacha20_poly1305_encrypt(chunk, chunk + size, key_.data(), next_nonce(isLast), nullptr, 0, chunk,
                                  size);
    }
    [[nodiscard]] bool decrypt(uint8_t* chunk, size_t size, bool isLast) {
        return chacha20_poly1305_decrypt(chunk, chunk + size, key_.data(), next_nonce(isLast), nullptr, 0,
                                         chunk, size);
    }

  private:
    const uint8_t* next_nonce(bool isLast) {
        for (size_t i = 0; i < sizeof chunk_; i++)
            nonce_[kChaChaNonce - 2 - i] = static_cast<uint8_t>(chunk_ >> 8 * i);
        chunk_++;
        nonce_[kChaChaNonce - 1] = isLast;
        return nonce_;
    }

    AgeKey key_;
    uint64_t chunk_ = 0;
    uint8_t nonce_[kChaChaNonce]{};
};

} // namespace

int seal_payload(SealOutput& output, SealInput& input, const FileKey& fileKey) {
    uint8_t nonce[kPayloadNonce];
    if (const int code = rng_bytes(nonce, sizeof nonce))
        return code;
    if (!output.write(nonce, sizeof nonce))
        return WRITE_ERROR;
    PayloadKey key(fileKey, nonce);
    Chunks chunks(input, kChunk);
    do {
        if (const int code = chunks.advance())
            return code;
        key.encrypt(chunks.data(), chunks.size(), chunks.is_last());
        if (!output.write(chunks.data(), chunks.size() + kTag))
            return WRITE_ERROR;
    } while (!chunks.is_last());
    return 0;
}

int open_payload(FileWriter& output, SealInput& input, const FileKey& fileKey) {
    uint8_t nonce[kPayloadNonce];
    if (input.read(nonce, sizeof nonce) != sizeof nonce)
        return input.error() != 0 ? input.error()
                                  : err_fail(BAD_FORMAT_ERROR, "The file ends before its content");
    PayloadKey key(fileKey, nonce);
    Chunks chunks(input, kChunk + kTag);
    bool isFirst = true;
    do {
        if (const int code = chunks.advance())
            return code;
        if (chunks.size() < kTag)
            return err_fail(DECRYPT_ERROR, "The content is cut off");
        const size_t size = chunks.size() - kTag;
        if (!key.decrypt(chunks.data(), size, chunks.is_last()) || (size == 0 && !isFirst))
            return err_fail(DECRYPT_ERROR, "The content is damaged or cut off");
        if (!output.write(chunks.data(), size))
            return WRITE_ERROR;
        isFirst = false;
    } while (!chunks.is_last());
    return 0;
}

} // namespace zul
