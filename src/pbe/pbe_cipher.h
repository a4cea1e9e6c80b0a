#pragma once
#include "pbe/pbe_params.h"

namespace zul {

// pbe_derive_key derives the key of params.keyLength bytes, and the IV of the schemes other than PBES2 into
// params. It converts the password for the PKCS #12 schemes.
void pbe_derive_key(PbeParams& params, Secret<kPbeMaxKey>& key);

// pbe_encrypt_blocks and pbe_decrypt_blocks work in place on whole blocks of params.ivLength bytes: 0 or
// NOT_SUPPORTED_ERROR with a text.
[[nodiscard]] int pbe_encrypt_blocks(const PbeParams& params, const Secret<kPbeMaxKey>& key, uint8_t* data,
                                     size_t blocks);
[[nodiscard]] int pbe_decrypt_blocks(const PbeParams& params, const Secret<kPbeMaxKey>& key, uint8_t* data,
                                     size_t blocks);

} // namespace zul
