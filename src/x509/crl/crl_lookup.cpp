#include "x509/crl/crl_lookup.h"

#include <cstring>

#include "frame/err.h"
#include "frame/text.h"
#include "x509/crl/crl_reader.h"
#include "x509/fields/certificate.h"
#include "x509/fields/x509_time.h"
#include "x509/input/x509_input.h"
#include "x509/verify/verify.h"
#include "zulcore.h"

namespace zul {

namespace {

class Lookup {
  public:
    Lookup(const char* certFile, const char* crlFile) : certFile_(certFile), crlFile_(crlFile) {}

    [[nodiscard]] int read_date(const char* date);
    [[nodiscard]] int run(bool& revoked);
    [[nodiscard]] int run_signed(const char* issuerCert, bool& revoked);

  private:
    [[nodiscard]] int read_certificate();
    [[nodiscard]] int search(DerSource& list, bool& revoked) const;
    [[nodiscard]] int find(CrlReader& crl, bool& revoked) const;

    const char *certFile_, *crlFile_;
    char date_[kAsnTimeText] = "";
    AsnList object_;
    CertificateFields certificate_;
};

int Lookup::read_date(const char* date) {
    tm time;
    if (is_missing(date))
        return 0;
    if (!read_date_text(date, "00:00:00", &time))
        return err_fail(BAD_PARAM_ERROR, "Date format is invalid");
    asn_format_time(time, date_);
    return 0;
}

int Lookup::read_certificate() {
    if (const int error = x509_read_certificate(certFile_, object_))
        return error;
    certificate_ = certificate_fields(object_.head());
    const bool hasSerial = certificate_.serialNumber != nullptr && certificate_.serialNumber->data != nullptr;
    return hasSerial ? 0 : err_fail(BAD_FORMAT_ERROR, "No Serial Number found in cert");
}

// find reads the rest of the list only if the entry is not found.
int Lookup::find(CrlReader& crl, bool& revoked) const {
    const asn_Node* serial = certificate_.serialNumber;
    CrlEntry entry;
    if (crl.find(serial->data, serial->length, entry, revoked) != 0 || (!revoked && crl.finish() != 0))
        return err_fail(INVALID_DATA_ERROR, "Invalid CRL");
    if (!revoked || *date_ == '\0')
        return 0;
    if (*entry.revocationDate == '\0')
        return err_fail(INVALID_DATA_ERROR, "Invalid revocation date in CRL");
    revoked = strcmp(entry.revocationDate, date_) <= 0;
    return 0;
}

int Lookup::search(DerSource& list, bool& revoked) const {
    CrlReader crl;
    if (const int error = crl.open(list))
        return err_fail(error, "Invalid CRL");
    if (!same_name(certificate_.issuer, crl.issuer()))
        return err_fail(ISSUER_ERROR, "Cert issuer is not the same as CRL issuer");
    return find(crl, revoked);
}

int Lookup::run(bool& revoked) {
    DerSource list;
    if (const int error = read_certificate())
        return error;
    if (const int error = list.open(crlFile_))
        return err_fail(error, "Invalid CRL");
    return list.read_result(search(list, revoked));
}

// run_signed verifies and searches the list in one pass, so it reads the certificate first. A bad signature
// is reported before a fault of the certificate or of the list.
int Lookup::run_signed(const char* issuerCert, bool& revoked) {
    AsnList issuer;
    DerSource list;
    if (x509_read_certificate(issuerCert, issuer) != 0 || list.open(crlFile_) != 0)
        return SIGNATURE_ERROR;
    const asn_Node* key = certificate_fields(issuer.head()).subjectPublicKeyInfo;
    SignedPass pass;
    int state = pass.begin(key, list);
    int error = 0;
    if (state == 0) {
        const int noCertificate = read_certificate();
        error = noCertificate != 0 ? noCertificate : search(list, revoked);
        state = pass.end();
        if (state == 0 && (error == 0 || noCertificate != 0 || !list.load(kMaxX509Object)))
            return error;
        err_clear();
    } else if (state != SignedPass::kOtherForm) {
        return SIGNATURE_ERROR;
    }
    // One pass cannot check BER, which may be signed in its DER form. Such a list is read again, in memory.
    list.load(kMaxX509Object);
    if (!list.is_in_memory())
        return err_fail(SIGNATURE_ERROR, "Signature did not verify");
    if (verify_source(key, list, crlFile_) != 0)
        return SIGNATURE_ERROR;
    error = read_certificate();
    return error != 0 ? error : search(list, revoked);
}

} // namespace

int crl_lookup(const char* certFile, const char* crlFile, const char* issuerCert, const char* date,
               bool& revoked) {
    Lookup lookup(certFile, crlFile);
    revoked = false;
    if (const int error = lookup.read_date(date))
        return error;
    return is_missing(issuerCert) ? lookup.run(revoked) : lookup.run_signed(issuerCert, revoked);
}

} // namespace zul
