#include "x509/crl/crl_lookup.h"

#include <cstring>

#include "asn1/asn_element.h"
#include "frame/err.h"
#include "x509/crl/crl_reader.h"
#include "x509/fields/certificate.h"
#include "x509/fields/x509_time.h"
#include "x509/input/der_source.h"
#include "x509/input/x509_input.h"
#include "x509/verify/verify.h"
#include "zulcore.h"

namespace zul {

namespace {

bool is_given(const char* text) {
    return text != nullptr && *text != '\0';
}

int fails(int error, const char* text) {
    err_add_text("%s", text);
    return -error;
}

// open_signed opens a list only if its signature verifies.
bool open_signed(DerSource& list, const char* crlFile, const char* issuerCert) {
    AsnList issuer;
    return x509_read_certificate(issuerCert, issuer) == 0 && list.open(crlFile) == 0 &&
           verify_source(certificate_fields(issuer.head()).subjectPublicKeyInfo, list, crlFile) == 0;
}

// find_entry looks up a certificate's entry: 1, 0 or a negated code. What stands behind an entry found is not
// looked at.
int find_entry(const CertificateFields& certificate, CrlReader& crl, CrlEntry& entry) {
    const asn_Node* serial = certificate.serialNumber;
    const int found = crl.find(serial->data, serial->length, entry);
    if (found < 0)
        return fails(-found, "Invalid CRL");
    if (found == 0 && crl.finish() != 0)
        return fails(INVALID_DATA_ERROR, "Invalid CRL");
    return found;
}

} // namespace

int crl_lookup(const char* certFile, const char* crlFile, const char* issuerCert, const char* date) {
    char dateText[kAsnTimeText] = "";
    if (is_given(date)) {
        tm time;
        if (!read_date_text(date, "00:00:00", &time))
            return fails(BAD_PARAM_ERROR, "Date format is invalid");
        asn_format_time(time, dateText);
    }
    DerSource list; // opened once: what is looked at is what was signed
    const bool isSigned = is_given(issuerCert);
    if (isSigned && !open_signed(list, crlFile, issuerCert))
        return -SIGNATURE_ERROR;

    AsnList object;
    int error = x509_read_certificate(certFile, object);
    if (error != 0)
        return -error;
    const CertificateFields certificate = certificate_fields(object.head());
    if (certificate.serialNumber == nullptr || certificate.serialNumber->data == nullptr)
        return fails(BAD_FORMAT_ERROR, "No Serial Number found in cert");

    CrlReader crl;
    if (!isSigned)
        error = list.open(crlFile);
    if (error == 0)
        error = crl.open(list);
    if (error != 0)
        return fails(error, "Invalid CRL");
    if (!same_name(certificate.issuer, crl.issuer()))
        return fails(ISSUER_ERROR, "Cert issuer is not the same as CRL issuer");

    CrlEntry entry;
    const int found = find_entry(certificate, crl, entry);
    if (found != 1 || *dateText == '\0')
        return found;
    if (*entry.revocationDate == '\0')
        return fails(INVALID_DATA_ERROR, "Invalid revocation date in CRL");
    return strcmp(entry.revocationDate, dateText) > 0 ? 0 : 1;
}

} // namespace zul
