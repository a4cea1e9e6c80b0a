#include "cms/signed/carried_certificates.h"

#include <cstring>

#include "asn1/asn_element.h"
#include "asn1/asn_encode.h"
#include "frame/err.h"
#include "frame/text.h"
#include "x509/input/x509_input.h"
#include "zulcore.h"

namespace zul {
namespace {

[[nodiscard]] int read_certificate(const char* argument, AsnList& certificate) {
    if (x509_read_certificate(argument, certificate) == 0) {
        certificate = asn_ToDer(std::move(certificate));
        if (certificate)
            return 0;
    }
    return err_fail(OPEN_ERROR, "Cannot read certificate '%s'", shown_name(argument));
}

void append_encoding(SecretBuffer& encodings, const AsnList& certificate) {
    const SecretBuffer der = asn_Encode(certificate);
    encodings.append(der.data(), der.size());
}

} // namespace

// Only the encoding is kept, which takes a small part of the list's memory.
int CarriedCertificates::add(const char* argument) {
    AsnList certificate;
    if (*argument == '\0')
        return 0;
    if (const int error = read_certificate(argument, certificate))
        return error;
    append_encoding(encodings_, certificate);
    return 0;
}

int CarriedCertificates::read(const CertificateArguments& list, bool carried) {
    int error = 0;
    for (int i = 0; carried && i < list.count() && error == 0; i++)
        error = add(list[i]);
    return error;
}

int CarriedCertificates::read_for_signer(const CertificateArguments& list, bool carried) {
    if (const int error = read_certificate(list[0], signer_))
        return carried ? error : INVALID_DATA_ERROR;
    if (!carried)
        return 0;
    append_encoding(encodings_, signer_);
    int error = 0;
    for (int i = 1; i < list.count() && error == 0; i++)
        error = add(list[i]);
    return error;
}

// The certificates stand in one node. Lists with it are only written, never walked.
AsnList CarriedCertificates::set() const {
    if (encodings_.empty())
        return {};
    asn_Node* node = asn_make_node(kAsnExplicit, 0, encodings_.size());
    node->length = static_cast<uint32_t>(encodings_.size());
    memcpy(node->data, encodings_.data(), encodings_.size());
    return {node, node};
}

} // namespace zul
