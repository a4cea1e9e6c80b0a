#pragma once
#include "cert/fields/cert_extensions.h"

namespace zul {

class PathBudget;
class SignerKey;

// PathLink is one certificate of a path, or the trust anchor at its head. It owns nothing.
struct PathLink {
    // Both are null for an anchor that is a name and a key alone.
    const CertificateView* certificate = nullptr;
    const CertExtensions* extensions = nullptr;

    DerView name; // the subject, a whole Name
    DerView publicKeyInfo;
    const SignerKey* key = nullptr;   // has read publicKeyInfo, with the parameters of the issuer's key
    const PathLink* issuer = nullptr; // null for the anchor

    const PathLink& anchor() const { return issuer == nullptr ? *this : issuer->anchor(); }
};

} // namespace zul
