#pragma once
#include "cert/fields/signed_view.h"

// OCSP responses in DER as views into their encoding (RFC 6960, 4.2.1).
namespace zul {

// CertId names a certificate by digests of its issuer's name and key.
struct CertId {
    AlgorithmView hashAlgorithm;
    DerView issuerNameHash, issuerKeyHash, serialNumber;
};

enum class OcspCertStatus : uint8_t { good, revoked, unknown };

struct OcspSingleView {
    CertId id;
    OcspCertStatus status = OcspCertStatus::unknown;
    DerElement revocationTimeElement;
    int64_t revocationTime = 0;
    int reason = -1; // CRLReason, -1 if it is not given
    DerElement thisUpdateTime, nextUpdateTime;
    int64_t thisUpdate = 0, nextUpdate = 0;
    bool hasNextUpdate = false;
    DerView extensions; // the content of SEQUENCE OF Extension
};
class OcspSingleReader {
  public:
    explicit OcspSingleReader(DerView responses) : reader_(responses) {}
    [[nodiscard]] bool next(OcspSingleView& single);
    bool at_end() const { return reader_.at_end(); } // false behind one that is malformed

  private:
    DerReader reader_;
};

struct OcspResponseView {
    int responseStatus = 0;       // OCSPResponseStatus; what follows is there for successful (0) alone
    DerView encoding, toBeSigned; // of the BasicOCSPResponse and its tbsResponseData
    DerView responderName;        // the whole Name, or empty
    DerView responderKeyHash;     // SHA-1 of the responder's key, or empty
    DerElement producedAtTime;
    int64_t producedAt = 0;
    DerView responses, extensions;
    AlgorithmView signatureAlgorithm;
    DerView signature;
    DerView certificates; // the content of SEQUENCE OF Certificate
};

// ocsp_response_view_read takes an OCSPResponse of type ocspBasic: 0, or with a text BAD_FORMAT_ERROR, or
// NOT_SUPPORTED_ERROR for another type.
[[nodiscard]] int ocsp_response_view_read(DerView encoding, OcspResponseView& response);

} // namespace zul
