#pragma once
#include "asn1/asn_node.h"
#include "cms/signed/signer_info.h"

namespace zul {

class SignedData;

struct SignerMatch {
    AsnList certificate;
    SignerFields signer; // in the message
};

// find_signer finds the first signer that a certificate names, or, if none is given (null or empty), the
// first whose certificate is in the message: 0 or a positive code with a text.
[[nodiscard]] int find_signer(const SignedData& message, const char* cert, SignerMatch& match);

} // namespace zul
