#pragma once
#include "certificates.h"

// Certificates in numbers, and the paths that they make.
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

constexpr size_t kLongestPath = 20; // the longest path that the library checks

// check_path refuses an invalid path. trusted is the certificate that the path begins with, or null; hint is
// a sentence for the reader.
void check_path(const std::vector<Certificate>& certificates, const Certificate* trusted, bool ignoreDates,
                const std::string& hint = {});
// path_to_trusted chooses among any number of certificates those that lead from one to a trusted one. Without
// a path it gives that one alone.
std::vector<Certificate> path_to_trusted(const Certificate& last, const std::vector<Certificate>& others,
                                         const Certificate& trusted);

} // namespace tool
