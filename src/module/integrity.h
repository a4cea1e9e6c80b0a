#pragma once
#include <cstdint>

// The module's seal: a digest of the module's own file, kept inside it.
namespace zul {

// ModuleSeal lies in the module's initialised data and is filled in after linking by
// tools/seal/seal_module.py, which finds it by its marker. Numbers are little-endian.
struct ModuleSeal {
    uint8_t marker[16];
    uint8_t key[32];
    uint8_t fileSize[8]; // of the file as it was sealed
    uint8_t digestAt[8]; // the place of the digest in it
    uint8_t digest[32];
};

// module_is_intact checks the file that this module was loaded from: HMAC-SHA-256 of all its bytes but the
// digest itself is the digest. Of a Windows module the checksum, the directory entry of the certificate table
// and that table behind the end are left out too, as Authenticode does, so that a sealed module can be
// signed. False for a module that was never sealed, or whose file cannot be read.
[[nodiscard]] bool module_is_intact();

} // namespace zul
