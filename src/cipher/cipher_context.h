#pragma once
#include <cstddef>
#include <cstdint>

#include "cipher/aes.h"
#include "cipher/tdes.h"
#include "frame/wipe.h"

namespace zul {

enum class CipherAlgorithm { tdea, aes128, aes192, aes256 };
enum class CipherMode { ecb = 0, cbc = 1, cfb = 2, ofb = 3, ctr = 4 };

size_t cipher_key_length(CipherAlgorithm algorithm);   // in bytes
size_t cipher_block_length(CipherAlgorithm algorithm); // in bytes, and of an IV too

// CipherContext is one block cipher in one mode and direction, with the chaining block as it goes on from
// update to update. All of it is wiped at its end.
class CipherContext {
  public:
    CipherContext() = default;
    CipherContext(const CipherContext&) = delete;
    CipherContext& operator=(const CipherContext&) = delete;

    // init begins a message; key and iv have the lengths above, and ECB ignores iv. Returns 0, NULL_ERROR for
    // a missing key or BAD_IV_ERROR for a missing iv; without success no update may follow.
    int init(CipherAlgorithm algorithm, CipherMode mode, bool encrypt, const uint8_t* key, const uint8_t* iv);

    // update enciphers or deciphers the next length bytes; out may be in itself, but may not overlap it
    // otherwise. Returns 0, or BAD_LENGTH_ERROR, which leaves out untouched: ECB and CBC take whole blocks
    // only, and in the other modes nothing may follow a part of a block.
    int update(uint8_t* out, const uint8_t* in, size_t length);

  private:
    union Schedule {
        AesKey aes;
        TdesKey tdes;
    };

    void run(uint8_t* out, const uint8_t* in, size_t blocks);
    void run_aes(uint8_t* out, const uint8_t* in, size_t blocks);
    void run_tdes(uint8_t* out, const uint8_t* in, size_t blocks);

    Wiped<Schedule> schedule_;
    Secret<16> chain_;
    CipherAlgorithm algorithm_ = CipherAlgorithm::aes128;
    CipherMode mode_ = CipherMode::ecb;
    bool encrypt_ = false;
    bool ended_ = false; // by a part of a block
};

} // namespace zul
