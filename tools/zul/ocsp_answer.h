#pragma once
#include <string>
#include <vector>

#include "certificate_set.h"

// OCSP responses (RFC 6960, 4.2.1) as arguments of commands.
namespace tool {

// OcspStatus is what a response says of one certificate. Times are those of date_text, empty if there is
// none.
struct OcspStatus {
    enum class Kind { good, revoked, unknown };
    Kind kind = Kind::unknown;
    SecretBytes serialNumber; // the content of the INTEGER
    std::string issuerNameHash, issuerKeyHash, thisUpdate, nextUpdate;

    // is_of tells whether the issuer is that of the certificate that was asked for.
    bool is_of(const ObjectArgument& issuer) const;
    // refusal gives the code that a status has at a time: 0 only if it is good, and not too old.
    int refusal(const std::string& moment) const;
    std::string serial_hex() const;
};

class OcspResponse {
  public:
    // der: a response as the library shows it; Refused for another one.
    OcspResponse(const SecretBytes& der, const std::string& name);

    // statuses is empty for a response that is not successful.
    const std::vector<OcspStatus>& statuses() const { return statuses_; }
    // has_known_algorithm tells whether signer can verify the signature.
    bool has_known_algorithm() const { return !algorithm_.empty(); }
    // signer gives who signed, in words: the issuer, whose certificate it takes, or a certificate in the
    // response that the issuer has given this purpose (RFC 6960, 4.2.2.2). Refused if none of them did.
    // moment is that of the check, empty for now.
    std::string signer(const Certificate& certificate, const std::string& moment) const;
    // refuse_others_than refuses statuses of certificates that another authority has issued.
    void refuse_others_than(const ObjectArgument& issuer) const;

  private:
    void read_basic(std::string_view basic);
    bool is_signed_by(const SecretBytes& certificate) const;

    std::string name_, algorithm_;
    SecretBytes signed_, signature_;
    std::vector<SecretBytes> certificates_;
    std::vector<OcspStatus> statuses_;
};

} // namespace tool
