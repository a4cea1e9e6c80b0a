#pragma once
#include <string>

#include "algorithms.h"
#include "secret_bytes.h"

// Digests of files of any size, or of standard input, in hex.
namespace tool {

struct DigestForm {
    bool foldsLineEnds = false; // each CR LF counts as LF
    int bytes = 0;              // of the output of an extendable digest; 0: the usual number
};
std::string file_digest(const std::string& file, const Digest& digest, const DigestForm& form = {});
std::string file_hmac(const std::string& file, const Digest& digest, const SecretBytes& key);

} // namespace tool
