#pragma once
#include <cstdio>
#include <map>
#include <string>

#include "keys.h"

// The folder of an authority of two levels ('zul ca'). The root's key signs the issuing authority and its own
// CRL alone, so root.key may be kept elsewhere between.
//
//     root.key root.pem root.cer root.crl   the root: private key, certificate (PEM and DER), CRL (DER)
//     ca.key ca.pem ca.cer ca.crl           the issuing authority
//     issued/SERIAL.pem                     each certificate that was made
//     index.txt                             a line for each of them (ca_index.h)
//     settings.txt                          what certificates and lists have in common
//     lock                                  held by a command that changes something
//
// What was revoked stands in the CRLs alone, each of which continues the one before and replaces it in one
// step: a revocation is either complete or did not happen.
namespace tool {

// Signer names the root or the issuing authority; it is the stem of their files.
using Signer = std::string;
inline const Signer kRoot = "root", kIssuing = "ca";

class AuthorityFolder {
  public:
    static constexpr const char* kNew = "new.pem"; // a certificate before the index has it

    explicit AuthorityFolder(const std::string& folder) : folder_(folder) {}
    // open refuses a folder without an authority.
    static AuthorityFolder open(const std::string& folder);

    std::string file(const std::string& name) const { return folder_ + "/" + name; }
    std::string issued(const std::string& serial) const { return file("issued/" + serial + ".pem"); }
    const std::string& name() const { return folder_; }

    // refuse_output protects the authority's own files.
    void refuse_output(const std::string& out) const;
    Key key(const Signer& signer, const PasswordOption& password) const;
    // make_list makes the first CRL, or continues the one that is there. revoked is as in CERT_IssueCRL.
    void make_list(const Signer& signer, const Key& key, const std::string& revoked, int days,
                   bool isFirst) const;

  private:
    std::string folder_;
};

// save_private_key encrypts with AES-256, unless the password is empty.
void save_private_key(const std::string& file, const Key& key, const SecretBytes& password);

// AuthorityLock lets one command at a time change a folder: another one waits for some seconds, then it is
// refused. The system takes the lock from a process that ends in any way.
class AuthorityLock {
  public:
    explicit AuthorityLock(const AuthorityFolder& folder);
    AuthorityLock(const AuthorityLock&) = delete;
    AuthorityLock& operator=(const AuthorityLock&) = delete;
    ~AuthorityLock();

  private:
    std::FILE* file_;
};

// AuthoritySettings are the lines "keyword=value" of settings.txt; "#" begins a comment.
class AuthoritySettings {
  public:
    static constexpr const char *kCrl = "crl", *kIssuers = "caIssuers", *kOcsp = "ocsp",
                                *kRootCrl = "rootCrl", *kRootIssuers = "rootCaIssuers", *kDays = "days",
                                *kListDays = "crlDays", *kRootListDays = "rootCrlDays";

    AuthoritySettings() = default;
    explicit AuthoritySettings(const AuthorityFolder& folder); // Refused for a line that is none

    void set(const std::string& keyword, const std::string& value) { values_[keyword] = value; }
    std::string get(const std::string& keyword) const;
    int number(const std::string& keyword) const;
    int list_days(const Signer& signer) const { return number(signer == kRoot ? kRootListDays : kListDays); }
    // sources gives where what a signer issues points to: pairs of a description.
    std::string sources(const Signer& signer) const;
    std::string text() const; // of settings.txt

  private:
    std::map<std::string, std::string> values_;
};

} // namespace tool
