#pragma once
#include "hash/sha512.h"

// Ed25519 and Ed25519ph (RFC 8032, 5.1). Keys are 32 bytes, signatures 64.
namespace zul {

constexpr size_t kEd25519Key = 32, kEd25519Signature = 64;

// What is signed, which signing reads twice: feed hands all of it to a digest, and is false if it cannot be
// read. For the pre-hashed form it is the SHA-512 digest of the message.
class Ed25519Message {
  public:
    virtual bool feed(Sha512Context& digest) = 0;

  protected:
    ~Ed25519Message() = default;
};

class Ed25519Bytes final : public Ed25519Message {
  public:
    Ed25519Bytes(const void* data, size_t size) : data_(data), size_(size) {}
    bool feed(Sha512Context& digest) override {
        sha512_update(digest, data_, size_);
        return true;
    }

  private:
    const void* data_;
    size_t size_;
};

enum class Ed25519Form { pure, preHashed };

void ed25519_public(uint8_t* publicKey, const uint8_t* privateKey);

// ed25519_sign is false, with zeros for a signature, if the message cannot be read. publicKey is the private
// key's.
[[nodiscard]] bool ed25519_sign(uint8_t* signature, const uint8_t* privateKey, const uint8_t* publicKey,
                                Ed25519Message& message, Ed25519Form form);

// ed25519_key_is_valid: the canonical encoding of a point of the curve that is not of small order.
[[nodiscard]] bool ed25519_key_is_valid(const uint8_t* publicKey);

// ed25519_verify applies the strict rules: S below the order, a valid key, the equation without the cofactor,
// R compared byte by byte. unread is set if the message cannot be read.
[[nodiscard]] bool ed25519_verify(const uint8_t* signature, const uint8_t* publicKey, Ed25519Message& message,
                                  Ed25519Form form, bool* unread);

} // namespace zul
