#pragma once
#include "asn1/asn_node.h"
#include "frame/memory.h"

// The structure of PKCS #12 files (RFC 7292, section 4), in BER or DER.
namespace zul {

constexpr int64_t kPfxVersion = 3;
constexpr size_t kMaxPfxFile = 1 << 24; // bytes of a file that is read
constexpr uint32_t kMaxNestedBags = 8;  // bags in a bag that holds bags, and so on

// PfxReader is a PFX as far as it can be read without a password.
class PfxReader {
  public:
    // open gives 0 or a positive code with a text: that of the reader, or INVALID_DATA_ERROR if it
    // is not a PFX. The version may be any; the other fields are checked when they are asked for.
    [[nodiscard]] int open(const char* fileOrText);
    int64_t version() const { return version_; }

    const asn_Node* mac_data() const; // null if there is none
    // read_safe gives the encoding of the AuthenticatedSafe, which the MAC covers: 0, or
    // INVALID_DATA_ERROR with a text if the PFX holds no plain data (but signed data, for example).
    [[nodiscard]] int read_safe(SecretBuffer& safe) const;

  private:
    AsnList list_;
    int64_t version_ = 0;
};

// pfx_find_certificate and pfx_find_key give the first X.509 certificate, and the first
// EncryptedPrivateKeyInfo, of an AuthenticatedSafe as they stand in it: 0 or a positive code with a text.
// NO_DATA_ERROR: there is none; NOT_SUPPORTED_ERROR: only encrypted data may hold one;
// INVALID_DATA_ERROR: the data before it are malformed, or nested deeper than kMaxNestedBags.
[[nodiscard]] int pfx_find_certificate(const SecretBuffer& safe, SecretBuffer& certificate);
[[nodiscard]] int pfx_find_key(const SecretBuffer& safe, SecretBuffer& encryptedPrivateKeyInfo);

} // namespace zul
