#pragma once
#include "cert/fields/cert_extensions.h"

// CRLs in DER as views into their encoding (RFC 5280, 5).
namespace zul {

struct CrlView : SignedView {
    int version = 1;
    AlgorithmView innerAlgorithm;
    DerView issuer; // the whole Name
    DerElement thisUpdateTime, nextUpdateTime;
    int64_t thisUpdate = 0, nextUpdate = 0;
    bool hasNextUpdate = false;
    DerView revoked;    // the content of revokedCertificates
    DerView extensions; // the content of SEQUENCE OF Extension
};

// crl_view_read reads all but the entries, which CrlEntryReader reads: 0, or BAD_FORMAT_ERROR with a text.
[[nodiscard]] int crl_view_read(DerView encoding, CrlView& crl);

struct CrlEntryView {
    DerView serialNumber; // content
    DerElement dateTime;
    DerView extensions;
};
class CrlEntryReader {
  public:
    explicit CrlEntryReader(DerView revoked) : reader_(revoked) {}
    // next gives false at the end and for a malformed entry; at_end tells which.
    [[nodiscard]] bool next(CrlEntryView& entry);
    bool at_end() const { return reader_.at_end(); }

  private:
    DerReader reader_;
};

// DistributionPointName (RFC 5280, 4.2.1.13): fullName or nameRelativeToCRLIssuer; both empty if there is
// none.
struct DistributionPointName {
    DerView fullName;     // content of GeneralNames
    DerView relativeName; // content of a RelativeDistinguishedName
};
// distribution_point_name_read reads the content of an explicit tag around one.
[[nodiscard]] bool distribution_point_name_read(DerView content, DistributionPointName& name);

// ReasonFlags: bit 1 keyCompromise to bit 8 aACompromise. All of them, where a point or a list names none.
constexpr uint32_t kAllReasons = 0x1FE;

struct DistributionPoint {
    DistributionPointName name;
    uint32_t reasons = kAllReasons;
    DerView crlIssuer; // content of GeneralNames, empty if it is the certificate's issuer
};
class DistributionPointReader {
  public:
    explicit DistributionPointReader(DerView points) : reader_(points) {}
    [[nodiscard]] bool next(DistributionPoint& point);
    bool at_end() const { return reader_.at_end(); }

  private:
    DerReader reader_;
};

// IssuingDistributionPoint (RFC 5280, 5.2.5).
struct IssuingPoint {
    DistributionPointName name;
    bool onlyUserCerts = false, onlyCaCerts = false, isIndirect = false, onlyAttributeCerts = false;
    uint32_t onlySomeReasons = kAllReasons;
    bool hasReasons = false;
};
[[nodiscard]] bool issuing_point_read(DerView value, IssuingPoint& point);

struct CrlExtensions {
    DerView number, deltaBase; // contents of INTEGERs, empty if missing
    bool isDelta = false;
    AuthorityKeyId authorityKeyIdentifier;
    bool hasIssuingPoint = false;
    IssuingPoint issuingPoint;
    DerView freshestCrl;
    DerView unknownCritical;
};
[[nodiscard]] int crl_extensions_read(const CrlView& crl, CrlExtensions& extensions);

struct CrlEntryExtensions {
    int reason = 0; // CRLReason, unspecified without one
    bool hasReason = false;
    DerElement invalidityDate;
    DerView certificateIssuer; // content of GeneralNames
    DerView unknownCritical;
};
[[nodiscard]] int crl_entry_extensions_read(const CrlEntryView& entry, CrlEntryExtensions& extensions);

} // namespace zul
