#pragma once
#include "asn1/asn_node.h"
#include "cipher/block_cipher.h"
#include "frame/memory.h"

namespace zul {

// ContentCipher is a content encryption algorithm with its parameters (RFC 3565, RFC 3370, 5), all CBC.
class ContentCipher {
  public:
    static constexpr size_t kMaxKey = kMaxCipherKey, kMaxBlock = kMaxCipherBlock;

    void choose(int options); // for a new message; the IV is to be set
    // read takes an AlgorithmIdentifier: 0 or a positive code with a text.
    [[nodiscard]] int read(const asn_Node* algorithm);
    AsnList algorithm_identifier() const; // of a cipher chosen; empty list: failure
    size_t key_length() const { return keyLength_; }
    size_t block_length() const { return blockLength_; }
    uint8_t* iv() { return iv_; }
    const uint8_t* iv() const { return iv_; }

    void finish_key(uint8_t* key) const; // makes a key of key_length() random bytes one of the cipher

    // encrypt and decrypt work in place on whole blocks, with a key of key_length() bytes, from the IV given
    // (block_length() bytes): 0 or a positive code, without a text.
    [[nodiscard]] int encrypt(const uint8_t* key, const uint8_t* iv, uint8_t* data, size_t blocks) const {
        return run(true, key, iv, data, blocks);
    }
    [[nodiscard]] int decrypt(const uint8_t* key, const uint8_t* iv, uint8_t* data, size_t blocks) const {
        return run(false, key, iv, data, blocks);
    }

  private:
    void take(const BlockCipher& cipher);
    [[nodiscard]] int run(bool encrypt, const uint8_t* key, const uint8_t* iv, uint8_t* data,
                          size_t blocks) const;
    bool read_iv(const asn_Node* node);
    [[nodiscard]] int read_rc2_parameter(const asn_Node* parameter);

    CipherAlgorithm algorithm_ = CipherAlgorithm::tdea;
    const char* name_ = nullptr; // of the OID table
    size_t keyLength_ = 0, blockLength_ = 0;
    unsigned rc2Bits_ = 0;
    uint8_t iv_[kMaxBlock] = {};
};

} // namespace zul
