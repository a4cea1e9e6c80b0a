#pragma once
#include <cstddef>
#include <cstdint>

#include "cipher/aes.h"
#include "cipher/rc2.h"
#include "cipher/tdes.h"

// The block ciphers and their modes in one table.
namespace zul {

enum class CipherAlgorithm { tdea, aes128, aes192, aes256, des, rc2 };
enum class CipherMode { ecb = 0, cbc = 1, cfb = 2, ofb = 3, ctr = 4 };

constexpr size_t kCipherModes = 5;
constexpr size_t kMaxCipherKey = 32, kMaxCipherBlock = 16; // except RC2 keys (up to 128 bytes)

// An expanded key. Held in a Wiped<CipherSchedule>.
union CipherSchedule {
    AesKey aes;
    TdesKey tdes;
    Rc2Key rc2;
};

struct CipherKey {
    const uint8_t* bytes;
    size_t length;
    unsigned rc2Bits; // effective key bits, for RC2
};

// BlockCipher describes one algorithm.
struct BlockCipher {
    using Run = void(const CipherSchedule& key, uint8_t* chain, uint8_t* out, const uint8_t* in,
                     size_t blocks);

    CipherAlgorithm algorithm;
    int option;          // ZUL_CIPHER_..., 0 for none
    const char* cbcName; // CBC in the table of object identifiers
    size_t keyLength;    // in bytes, 0 for RC2, whose keys vary
    size_t blockLength;  // in bytes, and of an IV too
    // setKey gives false for a key of a wrong length. forDecryption is true only for decrypting ECB and
    // CBC; the other modes encrypt in both directions.
    bool (*setKey)(CipherSchedule& schedule, const CipherKey& key, bool forDecryption);
    struct {
        Run *encrypt, *decrypt;
    } modes[kCipherModes]; // null for a mode that the cipher does not have
};

const BlockCipher& block_cipher(CipherAlgorithm algorithm);

// The cipher of an option (bits 0xF0 of options) or of a name for CBC; null for any other.
const BlockCipher* block_cipher_option(int options);
const BlockCipher* block_cipher_named(const char* cbcName);

} // namespace zul
