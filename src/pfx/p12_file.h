#pragma once
#include "pfx/p12_entry.h"
#include "pfx/p12_mac.h"

namespace zul {

// P12Safe is a ContentInfo of the AuthenticatedSafe (RFC 7292, 4.1).
struct P12Safe {
    enum class Kind : uint8_t { plain, encrypted, other };
    Kind kind = Kind::other;
    P12Scheme scheme;              // of an encrypted one
    char type[kOidText]{};         // of another one: the OID of its content
    size_t bytes = 0, entries = 0; // bytes: of the content as it stands, encrypted or not
    bool isRead = false;
    P12Safe* next = nullptr;
};

// P12File is a PKCS #12 file (RFC 7292, 4), in BER or DER, in the steps that reading it takes.
class P12File {
  public:
    P12File() = default;
    P12File(const P12File&) = delete;
    P12File& operator=(const P12File&) = delete;
    ~P12File();

    // open reads what needs no password. 0 or a positive code with a text: OPEN_ERROR, READ_ERROR,
    // INVALID_DATA_ERROR (no DER), BAD_FORMAT_ERROR, NOT_SUPPORTED_ERROR, OUT_OF_RANGE_ERROR.
    [[nodiscard]] int open(const char* fileOrText);
    [[nodiscard]] int open_list(const AsnList& list);
    bool has_mac() const { return hasMac_; }
    const P12Mac& mac() const { return mac_; }

    // check verifies the MAC, if there is one: DECRYPT_ERROR if it does not match.
    [[nodiscard]] int check(P12Password& password);
    bool is_verified() const { return isVerified_; }

    // read reads the entries, without a password (null) those that are not encrypted. What cannot be
    // decrypted is DECRYPT_ERROR, or BAD_FORMAT_ERROR after a MAC that was verified. A scheme that is not
    // supported fails unless skipsUnknown is set, which leaves such a part unread.
    [[nodiscard]] int read(P12Password* password, bool skipsUnknown);
    const P12Entries& entries() const { return entries_; }
    const P12Safe* safes() const { return safes_; }

    // open_key reads the key of an entry: also the codes of key_read_structure.
    [[nodiscard]] int open_key(P12Entry& entry, P12Password& password);

  private:
    [[nodiscard]] int read_safe(P12Safe& safe, size_t number, const asn_Node* info, P12Password* password,
                                bool skipsUnknown);
    [[nodiscard]] int read_encrypted(P12Safe& safe, AsnList& contents, const asn_Node* encryptedData,
                                     P12Password* password, bool skipsUnknown);
    [[nodiscard]] int decryption_result(int error) const;

    SecretBuffer authSafe_;
    P12Mac mac_;
    bool hasMac_ = false, isVerified_ = false;
    P12Entries entries_;
    P12Safe *safes_ = nullptr, *lastSafe_ = nullptr;
    P12Work work_;
};

} // namespace zul
