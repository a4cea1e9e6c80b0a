#pragma once
#include <optional>

#include "asn1/asn_node.h"
#include "asn1/asn_value.h"
#include "frame/memory.h"
#include "x509/input/der_source.h"

namespace zul {

// One entry of revokedCertificates. The bytes are the reader's, good until its next step.
struct CrlEntry {
    const uint8_t* serialNumber = nullptr; // content octets of the INTEGER
    size_t serialLength = 0;
    char revocationDate[kAsnTimeText] = ""; // time text, empty if it is no time
};

// CrlReader reads a CRL (RFC 5280, 5.1) field by field. Of its entries one at a time is in memory; only a CRL
// that is not DER is parsed whole, at most kMaxX509Object bytes of it.
class CrlReader {
  public:
    // open reads up to the entries of the CRL in a source, which stays open as long as the reader: 0,
    // INVALID_DATA_ERROR with a text if a time is none, or BAD_FORMAT_ERROR, without a text, if it is no CRL.
    int open(DerSource& source);
    // For an argument that nothing else reads; also OPEN_ERROR and the like with a text.
    int open(const char* fileOrText);

    int version() const { return version_; } // 1 if it does not say
    const asn_Node* issuer() const { return issuer_.head(); }
    const char* thisUpdate() const { return thisUpdate_; } // time texts
    const char* nextUpdate() const { return nextUpdate_; } // empty if there is none

    // next reads one entry: 1; 0 when there are no more; -INVALID_DATA_ERROR with a text.
    int next(CrlEntry& entry);
    // find reads on to the entry of a serial number, given as the content octets of an INTEGER, whose value
    // counts: as next.
    int find(const uint8_t* serial, size_t length, CrlEntry& entry);

    // finish reads what follows the entries, any of which are skipped: 0, or INVALID_DATA_ERROR, without a
    // text, if there is no signature, or something that belongs to no CRL.
    int finish();
    const asn_Node* signatureAlgorithm() const { return signatureAlgorithm_.head(); } // after finish
    const asn_Node* signatureValue() const { return signatureValue_.head(); }

  private:
    // An element of definite length whose header has been read.
    struct Element {
        uint8_t octet; // the identifier
        size_t start, content, end;
    };
    // An entry in the buffer.
    struct RawEntry {
        uint8_t *serial, *date;
        size_t serialLength, dateLength;
        uint8_t dateOctet;
    };

    static constexpr uint8_t kSequenceOctet = kAsnConstructed | kAsnSequence;
    static constexpr int kIndefinite = -1;         // the length of an element is not told
    static constexpr size_t kMaxEntry = 64 * 1024; // bytes of an entry

    static bool is_time_octet(uint8_t octet) { return octet == kAsnUtcTime || octet == kAsnGeneralizedTime; }
    static const char* time_of(uint8_t octet, uint8_t* content, size_t length, char out[kAsnTimeText]);

    int read_header(size_t limit, Element& element);
    int read_header_of(uint8_t octet, size_t limit, Element& element);
    int parse_small(const Element& element, AsnList& list);
    bool convert();
    int read_fields();
    int read_version(const Element& element);
    int read_times(Element& element);
    int read_time_field(const Element& element, char out[kAsnTimeText]);
    int enter_list(const Element& element);

    int enter_entry(size_t& size);
    bool parse_entry(size_t size, RawEntry& raw);
    int take_entry(RawEntry& raw);
    bool convert_at_entry();
    int read_entry(RawEntry& raw);
    static void show(const RawEntry& raw, CrlEntry& entry);

    int read_end();
    int read_extensions(const Element& element);

    DerSource own_;
    SecretBuffer der_; // of a CRL that was not
    std::optional<ByteStream> converted_;
    ByteStream* stream_ = nullptr;

    int version_ = 1;
    AsnList issuer_, signatureAlgorithm_, signatureValue_;
    char thisUpdate_[kAsnTimeText] = "", nextUpdate_[kAsnTimeText] = "";
    size_t objectEnd_ = 0, toBeSignedEnd_ = 0, entriesEnd_ = 0;
    size_t entriesRead_ = 0;
    bool damaged_ = false;
    SecretBuffer buffer_; // of one entry
};

} // namespace zul
