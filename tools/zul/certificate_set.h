#pragma once
#include "certificates.h"

// Certificates in numbers.
namespace tool {

// Certificate holds a certificate that was read once, so that the tool and the library see the same bytes and
// lists hold no names of files.
struct Certificate {
    SecretBytes der;
    ObjectArgument argument;

    // file: a name for messages, or - for standard input.
    Certificate(const std::string& file, SecretBytes content)
        : der(std::move(content)), argument(file, der) {}
    bool operator==(const Certificate& other) const { return der == other.der; }
    int number(const char* name) const { return X509_QueryCert(nullptr, 0, argument.text(), name, 0); }
    bool was_signed_by(const Certificate& issuer) const {
        return X509_VerifyCert(argument.text(), issuer.argument.text()) == 0;
    }
    const std::string& name() const { return argument.name(); }
};

// read_certificate takes the first object of a file and refuses anything but a certificate.
Certificate read_certificate(const std::string& file);
// add_certificates takes a file's blocks of PEM, or else the file as one; of a bundle (PKCS #7) all.
void add_certificates(std::vector<Certificate>& certificates, const std::string& file);
// certificate_list gives a list of certificate arguments.
std::string certificate_list(const std::vector<Certificate>& certificates);

constexpr size_t kLongestPath = 20; // of the certificates that a message brings

} // namespace tool
