#pragma once
#include "cert/make/crl_revoked.h"

namespace zul {

// KeptEntry is an entry of an earlier list.
struct KeptEntry {
    DerView encoding;
    CrlEntryView view;
    CrlEntryExtensions extensions;
    DerView issuer, issuerNames; // as the table of issuers has it, and as the list does
    int64_t date = 0;

    bool names_issuer() const { return !extensions.certificateIssuer.empty(); }
};

// EntryWriter appends entries of revokedCertificates (RFC 5280, 5.1.2.6 and 5.3) to a buffer. Lists of nodes
// would take many times as much memory.
class EntryWriter {
  public:
    // issuer is the content of GeneralNames that entries without certificateIssuer begin with.
    EntryWriter(SecretBuffer& out, DerView issuer) : out_(out), issuer_(issuer) {}

    void write(const RevokedEntry& entry);
    // keep writes an entry as it is encoded, if that means its issuer.
    void keep(const KeptEntry& entry);

  private:
    void write_parts(DerView serialNumber, DerView time, DerView extensions);
    void add_issuer(DerView names);

    SecretBuffer& out_;
    SecretBuffer extensions_, fields_, value_; // of one entry
    DerView issuer_;                           // of the entry before
};

} // namespace zul
