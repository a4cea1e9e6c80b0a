#pragma once
#include <cstddef>
#include <cstdint>

// The known-answer tests of the load: published examples of the standards, one file for each kind of
// algorithm. The tests draw no random numbers: the generator has not been checked yet.
namespace zul {

// A published value, written as lower-case hex digits.
class KnownBytes {
  public:
    static constexpr size_t kMost = 144;

    // A text with a mistake becomes an empty value, which no result equals.
    explicit KnownBytes(const char* hex);
    const uint8_t* data() const { return bytes_; }
    size_t size() const { return size_; }
    bool equals(const uint8_t* found, size_t size) const;

  private:
    uint8_t bytes_[kMost]{};
    size_t size_ = 0;
};

// Each test is told which algorithm of its kind to test and is true if the answers are right.
bool digest_holds(int digestAlgorithm);
bool hmac_holds(int digestAlgorithm);
bool tdes_holds(int);
bool aes_holds(int);
bool aead_holds(int algorithm);
bool ecdsa_holds(int which);
bool ecdh_holds(int which);
bool ed25519_holds(int);
bool x25519_holds(int);
bool rsa_holds(int);
bool rsa_pss_holds(int);
bool hkdf_holds(int);
bool pbkdf2_holds(int);
bool scrypt_holds(int);
bool argon2id_holds(int);

} // namespace zul
