#pragma once
#include <cstddef>
#include <cstdint>

#include "cipher/block_cipher.h"
#include "frame/wipe.h"

namespace zul {

inline size_t cipher_key_length(CipherAlgorithm algorithm) { // in bytes
    return block_cipher(algorithm).keyLength;
}
inline size_t cipher_block_length(CipherAlgorithm algorithm) { // in bytes, and of an IV too
    return block_cipher(algorithm).blockLength;
}

// CipherContext is one block cipher in one mode and direction, with the chaining block as it goes on from
// update to update. All of it is wiped at its end.
class CipherContext {
  public:
    CipherContext() = default;
    CipherContext(const CipherContext&) = delete;
    CipherContext& operator=(const CipherContext&) = delete;

    // init begins a message; key and iv have the lengths above, and ECB ignores iv. Returns 0, NULL_ERROR for
    // a missing key, BAD_IV_ERROR for a missing iv, BAD_KEY_LEN_ERROR, or BAD_MODE_ERROR for a mode that the
    // cipher does not have; without success no update may follow.
    [[nodiscard]] int init(CipherAlgorithm algorithm, CipherMode mode, bool encrypt, const CipherKey& key,
                           const uint8_t* iv);
    [[nodiscard]] int init(CipherAlgorithm algorithm, CipherMode mode, bool encrypt, const uint8_t* key,
                           const uint8_t* iv) {
        return init(algorithm, mode, encrypt, {key, cipher_key_length(algorithm), 0}, iv);
    }

    // update enciphers or deciphers the next length bytes; out may be in itself, but may not overlap it
    // otherwise. Returns 0, or BAD_LENGTH_ERROR, which leaves out untouched: ECB and CBC take whole blocks
    // only, and in the other modes nothing may follow a part of a block.
    [[nodiscard]] int update(uint8_t* out, const uint8_t* in, size_t length);

  private:
    void run(uint8_t* out, const uint8_t* in, size_t blocks);

    Wiped<CipherSchedule> schedule_;
    Secret<kMaxCipherBlock> chain_;
    CipherAlgorithm algorithm_ = CipherAlgorithm::aes128;
    CipherMode mode_ = CipherMode::ecb;
    bool encrypt_ = false;
    bool ended_ = false; // by a part of a block
};

} // namespace zul
