#include <argon2.h>
#include <array>
#include <openssl/evp.h>
#include <openssl/kdf.h>

#include "bench_pair.h"
#include "bench_peer.h"
#include "pbe/kdf.h"
#include "zulcore.h"

namespace {

constexpr char kPassword[] = "correct horse battery staple";
constexpr int kPasswordLen = sizeof kPassword - 1;
constexpr std::array<unsigned char, 8> kSalt = {1, 2, 3, 4, 5, 6, 7, 8};
std::array<unsigned char, 64> ours, theirs;

// One output block each; what a key costs is a multiple of it.
void add_pbkdf2(const char* name, int option, const EVP_MD* peer, int length) {
    constexpr int kIterations = 100'000;
    bench_register({name, 0,
                    [option, length] {
                        zul::pbkdf2(ours.data(), static_cast<size_t>(length), option, kPassword, kPasswordLen,
                                    kSalt.data(), kSalt.size(), kIterations);
                    },
                    [peer, length] {
                        PKCS5_PBKDF2_HMAC(kPassword, kPasswordLen, kSalt.data(), kSalt.size(), kIterations,
                                          peer, length, theirs.data());
                    }});
}

void add_scrypt(const char* name, int n, int r, int p) {
    bench_register(
        {name, 0,
         [=] { KDF_Scrypt(ours.data(), 32, kPassword, kPasswordLen, kSalt.data(), kSalt.size(), n, r, p); },
         [=] {
             constexpr uint64_t kNoLimit = UINT64_MAX / 2;
             EVP_PBE_scrypt(kPassword, kPasswordLen, kSalt.data(), kSalt.size(), static_cast<uint64_t>(n),
                            static_cast<uint64_t>(r), static_cast<uint64_t>(p), kNoLimit, theirs.data(), 32);
         }});
}

void hkdf_of_peer() {
    static EVP_PKEY_CTX* const context = checked(EVP_PKEY_CTX_new_id(EVP_PKEY_HKDF, nullptr));
    const auto* password = reinterpret_cast<const unsigned char*>(kPassword);
    size_t length = 64;
    check(EVP_PKEY_derive_init(context) > 0 && EVP_PKEY_CTX_set_hkdf_md(context, EVP_sha256()) > 0 &&
          EVP_PKEY_CTX_set1_hkdf_salt(context, kSalt.data(), kSalt.size()) > 0 &&
          EVP_PKEY_CTX_set1_hkdf_key(context, password, kPasswordLen) > 0 &&
          EVP_PKEY_CTX_add1_hkdf_info(context, password, kPasswordLen) > 0 &&
          EVP_PKEY_derive(context, theirs.data(), &length) > 0);
}

// The peer fills each lane by a thread of its own.
void add_argon2(const char* name, int memoryKiB, int passes, int lanes) {
    bench_register({name, 0,
                    [=] {
                        KDF_Argon2id(ours.data(), 32, kPassword, kPasswordLen, kSalt.data(), kSalt.size(),
                                     memoryKiB, passes, lanes);
                    },
                    [=] {
                        argon2id_hash_raw(static_cast<uint32_t>(passes), static_cast<uint32_t>(memoryKiB),
                                          static_cast<uint32_t>(lanes), kPassword, kPasswordLen, kSalt.data(),
                                          kSalt.size(), theirs.data(), 32);
                    }});
}

} // namespace

BENCH_ROWS {
    add_pbkdf2("PBKDF2-HMAC-SHA-256, 100,000 iterations", ZUL_HASH_SHA256, EVP_sha256(), 32);
    add_pbkdf2("PBKDF2-HMAC-SHA-1, 100,000 iterations", ZUL_HASH_SHA1, EVP_sha1(), 20);
    add_pbkdf2("PBKDF2-HMAC-SHA-512, 100,000 iterations", ZUL_HASH_SHA512, EVP_sha512(), 32);
    bench_register({"HKDF-SHA-256, 64 bytes", 0,
                    [] {
                        KDF_Hkdf(ours.data(), 64, kPassword, kPasswordLen, kSalt.data(), kSalt.size(),
                                 kPassword, kPasswordLen, "sha256");
                    },
                    hkdf_of_peer});
    add_scrypt("scrypt, N 16384, r 8, p 1", 16384, 8, 1);
    add_scrypt("scrypt, N 131072, r 8, p 1", 131072, 8, 1);
    add_argon2("Argon2id, 64 MiB, 3 passes, 1 lane", 65536, 3, 1);
    add_argon2("Argon2id, 64 MiB, 3 passes, 4 lanes (peer: 4 threads)", 65536, 3, 4);
}
