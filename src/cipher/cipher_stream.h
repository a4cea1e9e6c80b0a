#pragma once
#include "cipher/block_cipher.h"

namespace zul {

// CipherStream enciphers data that comes in pieces of any length: a plain structure without pointers, wiped
// by its owner. ECB and CBC pad, unless told not to; the other modes give each byte at once.
struct CipherStream {
    CipherSchedule schedule;
    uint8_t chain[kMaxCipherBlock];
    // Data that waits for the rest of its block, or key stream that waits for data.
    uint8_t held[kMaxCipherBlock];
    uint32_t heldBytes; // of data; of key stream those that have been used
    CipherAlgorithm algorithm;
    CipherMode mode;
    bool encrypts, pads;
};

struct CipherStreamOrder {
    const char* name; // "aes-256-cbc"
    const uint8_t *key, *iv;
    size_t keySize, ivSize;
    bool encrypts, pads;
};

// cipher_stream_find tells whether there is a cipher of a name: 0 or the codes of name_find.
[[nodiscard]] int cipher_stream_find(const char* name);

// cipher_stream_begin: 0, the codes of name_find, BAD_KEY_LEN_ERROR or BAD_IV_ERROR.
[[nodiscard]] int cipher_stream_begin(CipherStream& stream, const CipherStreamOrder& order);

// cipher_stream_room is what an add of so many bytes will write.
size_t cipher_stream_room(const CipherStream& stream, size_t size);

// cipher_stream_add writes cipher_stream_room bytes. out may not overlap in, but may be in where the mode is
// neither ECB nor CBC.
void cipher_stream_add(CipherStream& stream, uint8_t* out, const uint8_t* in, size_t size);

// cipher_stream_end writes at most a block and its length: 0, BAD_LENGTH_ERROR if the data does not fill its
// last block, or DECRYPT_ERROR for a damaged pad.
[[nodiscard]] int cipher_stream_end(CipherStream& stream, uint8_t* out, size_t& length);

} // namespace zul
