// Schemes of PKCS #5 (RFC 8018) and PKCS #12 (RFC 7292, appendix C).
#include "pbe/pbe_params.h"

#include <cstring>

#include "hash/digest.h"

namespace zul {

namespace {

constexpr PbeScheme kSchemes[] = {
    {"pbeWithSHAAnd3-KeyTripleDES-CBC", PbeKind::pkcs12, kDigestSha1, PbeCipher::desEde3, 0, 24},
    {"pbeWithSHAAnd128BitRC2-CBC", PbeKind::pkcs12, kDigestSha1, PbeCipher::rc2, 128, 16},
    {"pbeWithSHAAnd40BitRC2-CBC", PbeKind::pkcs12, kDigestSha1, PbeCipher::rc2, 40, 5},
    {"pbeWithMD5AndDES-CBC", PbeKind::pbes1, kDigestMd5, PbeCipher::des, 0},
    {"pbeWithMD2AndDES-CBC", PbeKind::pbes1, kDigestMd2, PbeCipher::des, 0},
    {"pbeWithSHA1AndDES-CBC", PbeKind::pbes1, kDigestSha1, PbeCipher::des, 0},
    {"pbeWithMD5AndRC2-CBC", PbeKind::pbes1, kDigestMd5, PbeCipher::rc2, 64},
    {"pbeWithMD2AndRC2-CBC", PbeKind::pbes1, kDigestMd2, PbeCipher::rc2, 64},
    {"pbeWithSHA1AndRC2-CBC", PbeKind::pbes1, kDigestSha1, PbeCipher::rc2, 64},
    {"pkcs5PBES2", PbeKind::pbes2, 0, PbeCipher::desEde3, 0},
};

constexpr PbeCipherInfo kCiphers[] = {
    {"des-EDE3-CBC", PbeCipher::desEde3, 24, 8},
    {"desCBC", PbeCipher::des, 8, 8},
    {"rc2CBC", PbeCipher::rc2, 0, 8},
    {"aes128-CBC", PbeCipher::aes128, 16, 16},
    {"aes192-CBC", PbeCipher::aes192, 24, 16},
    {"aes256-CBC", PbeCipher::aes256, 32, 16},
};

constexpr PbePrf kPrfs[] = {
    {"hmacWithSHA1", kDigestSha1},
    {"hmacWithSHA256", kDigestSha256},
    {"hmacWithSHA384", kDigestSha384},
    {"hmacWithSHA512", kDigestSha512},
};

template<class Entry, size_t N>
const Entry* find(const Entry (&table)[N], const char* name) {
    for (const Entry& entry : table) {
        if (std::strcmp(entry.name, name) == 0)
            return &entry;
    }
    return nullptr;
}

} // namespace

const PbeScheme* pbe_scheme(const char* name) {
    return find(kSchemes, name);
}

const PbeCipherInfo* pbe_cipher(const char* name) {
    return find(kCiphers, name);
}

const PbePrf* pbe_prf(const char* name) {
    return find(kPrfs, name);
}

const PbeCipherInfo& pbe_cipher_info(PbeCipher cipher) {
    for (const PbeCipherInfo& info : kCiphers) {
        if (info.cipher == cipher)
            return info;
    }
    return kCiphers[0];
}

void pbe_take_scheme(PbeParams& params, const PbeScheme* scheme) {
    params.scheme = scheme;
    params.cipher = scheme->cipher;
    params.rc2Bits = scheme->rc2Bits;
    params.keyLength = scheme->keyLength;
    params.ivLength = 8;
}

void pbe_take_cipher(PbeParams& params, const PbeCipherInfo& info) {
    params.cipher = info.cipher;
    params.keyLength = info.keyLength;
    params.ivLength = info.ivLength;
}

int pbe_take_password(PbeParams& params, const char* password) {
    if (password == nullptr)
        return BAD_PARAM_ERROR;
    const size_t length = std::strlen(password);
    if (length > kMaxAllocation / 4) // its BMP form, and that in whole blocks with a salt, are still blocks
        return BAD_LENGTH_ERROR;
    params.password = SecretBuffer(length);
    std::memcpy(params.password.data(), password, length);
    params.bmp = false;
    return 0;
}

} // namespace zul
