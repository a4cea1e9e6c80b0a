#pragma once
#include "asn1/asn_scope.h"
#include "asn1/asn_value.h"
#include "frame/memory.h"
#include "x509/input/der_source.h"

namespace zul {

// One entry of revokedCertificates. The bytes belong to the reader and are valid until its next step.
struct CrlEntry {
    const uint8_t* serialNumber = nullptr; // content octets of the INTEGER
    size_t serialLength = 0;
    char revocationDate[kAsnTimeText] = ""; // time text, empty for an invalid time
};

// CrlReader reads a CRL (RFC 5280, 5.1), DER or BER, field by field. It holds one entry at a time in memory.
class CrlReader {
  public:
    // open reads a CRL up to its entries. The source must stay open as long as the reader. It gives 0,
    // INVALID_DATA_ERROR with a text for an invalid time, or BAD_FORMAT_ERROR without a text for anything but
    // a CRL.
    [[nodiscard]] int open(DerSource& source);

    int version() const { return version_; } // 1 if the field is missing
    const asn_Node* issuer() const { return issuer_.head(); }
    const char* thisUpdate() const { return thisUpdate_; } // time texts
    const char* nextUpdate() const { return nextUpdate_; } // empty if there is none

    // next reads one entry; found is false when there are no more. It gives 0, or INVALID_DATA_ERROR with a
    // text for a damaged entry.
    [[nodiscard]] int next(CrlEntry& entry, bool& found);
    // find reads on, as next does, to the entry of a serial number. The number is given as the content octets
    // of an INTEGER, and its value is compared.
    [[nodiscard]] int find(const uint8_t* serial, size_t length, CrlEntry& entry, bool& found);

    // finish skips the entries that are left and reads what follows them: 0, or INVALID_DATA_ERROR without a
    // text if the signature is missing or an unknown field follows.
    [[nodiscard]] int finish();
    const asn_Node* signatureAlgorithm() const { return signatureAlgorithm_.head(); } // after finish
    const asn_Node* signatureValue() const { return signatureValue_.head(); }

  private:
    // RawEntry is an entry as it is read. Its serial number is in the stream's memory or in serial_.
    struct RawEntry {
        const uint8_t* serial = nullptr;
        size_t serialLength = 0, dateLength = 0;
        uint32_t dateTag = 0;
    };
    static constexpr size_t kMaxSerial = size_t{64} * 1024; // bytes
    static constexpr size_t kMaxDate = 64;                  // bytes of a date that are read

    [[nodiscard]] bool read_version();
    bool at_time() const;
    [[nodiscard]] int read_time_field(char out[kAsnTimeText]);
    [[nodiscard]] int read_times();
    [[nodiscard]] bool enter_list();
    [[nodiscard]] bool skip_extensions();
    [[nodiscard]] bool read_end();

    [[nodiscard]] inline bool read_serial(const AsnScope& entry, RawEntry& raw);
    [[nodiscard]] inline bool read_date(const AsnScope& entry, RawEntry& raw, bool isWanted);
    [[nodiscard]] bool skip_entry_extensions(const AsnScope& entry);
    [[nodiscard]] inline bool take_entry(RawEntry& raw, int lastOctet);
    [[nodiscard]] inline int read_entry(RawEntry& raw, int lastOctet, bool& found);
    void show(const RawEntry& raw, CrlEntry& entry);

    ByteStream* stream_ = nullptr;
    AsnScope object_, toBeSigned_, list_;
    int version_ = 1;
    AsnList issuer_, signatureAlgorithm_, signatureValue_;
    char thisUpdate_[kAsnTimeText] = "", nextUpdate_[kAsnTimeText] = "";
    bool damaged_ = false;
    SecretBuffer serial_;
    uint8_t date_[kMaxDate];
};

} // namespace zul
