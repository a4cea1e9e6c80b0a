#pragma once
#include "rsa/rsa_generate.h"

namespace zul {

// The arguments of RSA_MakeKeys; the options of the generation also choose formats and encryption.
struct RsaKeyFiles {
    const char* publicFile;
    const char* privateFile;
    const char* password;
    int iterationCount;
};

// rsa_make_keys makes a key pair and writes both files: 0 or a positive code, with texts. A private key file
// that cannot be created leaves a text only. A failed pair-wise test is also reported to the machine's owner.
[[nodiscard]] int rsa_make_keys(const RsaKeyFiles& files, const RsaGeneration& generation);

} // namespace zul
