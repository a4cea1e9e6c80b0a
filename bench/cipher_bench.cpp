#include <array>
#include <openssl/evp.h>
#include <vector>

#include "bench_pair.h"
#include "bench_sizes.h"
#include "cipher/aes.h"
#include "cipher/tdes.h"
#include "zulcore.h"

namespace {

constexpr int kSize = 1 << 14, kLargest = 1 << 20;
std::array<unsigned char, 32> key;
std::array<unsigned char, 16> iv;
std::vector<unsigned char> input(kLargest, 0x5a), ours(kLargest), theirs(kLargest);

struct CipherRow {
    const char* name;
    int options;
    bool encrypt;
    const char* peerName;
};

// Both sides set key and IV in every call; the peer's context is used again.
void add_cipher(const CipherRow& row, int size, const std::string& suffix) {
    EVP_CIPHER* algorithm = EVP_CIPHER_fetch(nullptr, row.peerName, nullptr);
    EVP_CIPHER_CTX* context = EVP_CIPHER_CTX_new();
    bench_register({row.name + suffix, static_cast<size_t>(size),
                    [row, size] {
                        CIPHER_Bytes(row.encrypt, ours.data(), input.data(), size, key.data(), iv.data(),
                                     nullptr, row.options);
                    },
                    [row, algorithm, context, size] {
                        int length = 0;
                        EVP_CipherInit_ex2(context, algorithm, key.data(), iv.data(), row.encrypt, nullptr);
                        EVP_CIPHER_CTX_set_padding(context, 0);
                        EVP_CipherUpdate(context, theirs.data(), &length, input.data(), size);
                    }});
}

const CipherRow cipherRows[] = {
    {"AES-128-ECB encrypt", ZUL_CIPHER_AES128 | ZUL_MODE_ECB, true, "AES-128-ECB"},
    {"AES-128-ECB decrypt", ZUL_CIPHER_AES128 | ZUL_MODE_ECB, false, "AES-128-ECB"},
    {"AES-128-CBC encrypt", ZUL_CIPHER_AES128 | ZUL_MODE_CBC, true, "AES-128-CBC"},
    {"AES-128-CBC decrypt", ZUL_CIPHER_AES128 | ZUL_MODE_CBC, false, "AES-128-CBC"},
    {"AES-128-CTR", ZUL_CIPHER_AES128 | ZUL_MODE_CTR, true, "AES-128-CTR"},
    {"AES-128-CFB encrypt", ZUL_CIPHER_AES128 | ZUL_MODE_CFB, true, "AES-128-CFB"},
    {"AES-128-OFB", ZUL_CIPHER_AES128 | ZUL_MODE_OFB, true, "AES-128-OFB"},
    {"AES-256-ECB encrypt", ZUL_CIPHER_AES256 | ZUL_MODE_ECB, true, "AES-256-ECB"},
    {"AES-256-ECB decrypt", ZUL_CIPHER_AES256 | ZUL_MODE_ECB, false, "AES-256-ECB"},
    {"AES-256-CBC encrypt", ZUL_CIPHER_AES256 | ZUL_MODE_CBC, true, "AES-256-CBC"},
    {"AES-256-CBC decrypt", ZUL_CIPHER_AES256 | ZUL_MODE_CBC, false, "AES-256-CBC"},
    {"AES-256-CTR", ZUL_CIPHER_AES256 | ZUL_MODE_CTR, true, "AES-256-CTR"},
    {"AES-256-CFB encrypt", ZUL_CIPHER_AES256 | ZUL_MODE_CFB, true, "AES-256-CFB"},
    {"AES-256-OFB", ZUL_CIPHER_AES256 | ZUL_MODE_OFB, true, "AES-256-OFB"},
    {"Triple DES CBC encrypt", ZUL_CIPHER_TDEA | ZUL_MODE_CBC, true, "DES-EDE3-CBC"},
    {"Triple DES ECB encrypt", ZUL_CIPHER_TDEA | ZUL_MODE_ECB, true, "DES-EDE3-ECB"},
    {"Triple DES CBC decrypt", ZUL_CIPHER_TDEA | ZUL_MODE_CBC, false, "DES-EDE3-CBC"},
    // The peer has no counter mode for it; its block rate in ECB is what such a mode would reach.
    {"Triple DES CTR (their ECB)", ZUL_CIPHER_TDEA | ZUL_MODE_CTR, true, "DES-EDE3-ECB"},
};

} // namespace

BENCH_ROWS {
    // Three different keys of single DES, or the peer and this library could take a short cut.
    for (size_t i = 0; i < key.size(); ++i)
        key[i] = static_cast<unsigned char>(i * 37 + 11);
    bench_register_note("kernels", [] {
        return std::string("AES ") + zul::aes_kernel() + ", Triple DES " + zul::tdes_kernel();
    });
    // The modes that are used most at every size, the others where the block rate shows.
    for (const CipherRow& row : cipherRows) {
        const std::string name = row.name;
        if (name != "AES-128-CBC encrypt" && name != "AES-256-CBC decrypt" && name != "AES-256-CTR") {
            add_cipher(row, kSize, "");
            continue;
        }
        for (const BenchSize& size : bench_sizes)
            add_cipher(row, size.bytes, size.suffix);
    }
}
