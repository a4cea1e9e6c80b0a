#pragma once

namespace zul {

// verify_signed_data gives 0 if the signature of a message verifies, else a positive code with a text. cert
// and hexDigest may be null or empty.
int verify_signed_data(const char* fileOrText, const char* cert, const char* hexDigest);

// signed_data_digest writes the digest that was signed, in lower-case hex under the common length rule: its
// length or a negated code. That of a message with signed attributes is their messageDigest, once their
// signature has been checked.
int signed_data_digest(char* out, int room, const char* fileOrText, const char* cert);

} // namespace zul
