#include "seal/file_key.h"

#include "cipher/chacha20_poly1305.h"
#include "hash/digest.h"
#include "pbe/hkdf.h"

namespace zul {

static constexpr uint8_t kZeroNonce[kChaChaNonce]{};

void age_derive(AgeKey& out, const void* key, size_t keyLen, const void* salt, size_t saltLen,
                std::string_view info) {
    hkdf(out.data(), out.size(), kDigestSha256, key, keyLen, salt, saltLen, info.data(), info.size());
}

void file_key_wrap(uint8_t* wrapped, const FileKey& fileKey, const AgeKey& wrapKey) {
    chacha20_poly1305_encrypt(wrapped, wrapped + kFileKey, wrapKey.data(), kZeroNonce, nullptr, 0,
                              fileKey.data(), kFileKey);
}

bool file_key_unwrap(FileKey& fileKey, const uint8_t* wrapped, const AgeKey& wrapKey) {
    return chacha20_poly1305_decrypt(fileKey.data(), wrapped + kFileKey, wrapKey.data(), kZeroNonce, nullptr,
                                     0, wrapped, kFileKey);
}

} // namespace zul
