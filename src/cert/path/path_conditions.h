#pragma once
#include "cert/fields/cert_extensions.h"
#include "frame/array.h"

namespace zul {

// What a certificate is to be used for (RFC 5280, 4.2.1.12).
enum class PathPurpose : uint8_t { any, server, client, email, code, timestamp, ocsp };

// Of which certificates the status has to be known as good. known: of none, but what is known counts.
enum class RevocationDemand : uint8_t { none, known, leaf, all };

// PathConditions are the inputs of path validation (RFC 5280, 6.1.1) beside the path itself.
struct PathConditions {
    int64_t time = 0; // seconds since 1970
    SecretBuffer host, email, ip;
    PathPurpose purpose = PathPurpose::any;
    Array<SecretBuffer> policies; // user-initial-policy-set as content octets; empty: any-policy
    bool needsExplicitPolicy = false, inhibitsMapping = false, inhibitsAnyPolicy = false;
    int maxDepth = 20; // certificates between the anchor and the end entity
    RevocationDemand revocation = RevocationDemand::none;
    bool hasRevocation = false;
    // Without it the anchor is a name and a key alone (RFC 5280, 6.1.1 (d)); with it the dates and extensions
    // of its certificate count too (RFC 5937).
    bool anchorIsCertificate = true;
    bool isWeb = false;  // the rules of web_rules.h
    int nameOptions = 0; // of check_subject_name
};

// path_conditions_read reads a text of conditions, null for none: 0, or BAD_PARAM_ERROR with a text that says
// what is possible.
[[nodiscard]] int path_conditions_read(PathConditions& conditions, const char* text);

const char* purpose_name(PathPurpose purpose);
const char* demand_name(RevocationDemand demand);

// check_leaf_purpose tells whether the extensions of an end entity allow a purpose, check_authority_purpose
// whether those of a certificate above it do: 0, or NO_MATCH_ERROR with a text.
[[nodiscard]] int check_leaf_purpose(const CertExtensions& extensions, PathPurpose purpose);
[[nodiscard]] int check_authority_purpose(const CertExtensions& extensions, PathPurpose purpose);

} // namespace zul
