// Schemes of PKCS #5 (RFC 8018) and PKCS #12 (RFC 7292, appendix C).
#include "pbe/pbe_params.h"

#include <cstring>

#include "frame/err.h"
#include "hash/digest.h"
#include "pbe/kdf.h"
#include "zulcore.h"

namespace zul {

namespace {

constexpr PbeScheme kSchemes[] = {
    {"pbeWithSHAAnd3-KeyTripleDES-CBC", PbeKind::pkcs12, kDigestSha1, CipherAlgorithm::tdea, 0, 24},
    {"pbeWithSHAAnd128BitRC2-CBC", PbeKind::pkcs12, kDigestSha1, CipherAlgorithm::rc2, 128, 16},
    {"pbeWithSHAAnd40BitRC2-CBC", PbeKind::pkcs12, kDigestSha1, CipherAlgorithm::rc2, 40, 5},
    {"pbeWithMD5AndDES-CBC", PbeKind::pbes1, kDigestMd5, CipherAlgorithm::des, 0},
    {"pbeWithMD2AndDES-CBC", PbeKind::pbes1, kDigestMd2, CipherAlgorithm::des, 0},
    {"pbeWithSHA1AndDES-CBC", PbeKind::pbes1, kDigestSha1, CipherAlgorithm::des, 0},
    {"pbeWithMD5AndRC2-CBC", PbeKind::pbes1, kDigestMd5, CipherAlgorithm::rc2, 64},
    {"pbeWithMD2AndRC2-CBC", PbeKind::pbes1, kDigestMd2, CipherAlgorithm::rc2, 64},
    {"pbeWithSHA1AndRC2-CBC", PbeKind::pbes1, kDigestSha1, CipherAlgorithm::rc2, 64},
    {"pkcs5PBES2", PbeKind::pbes2, 0, CipherAlgorithm::tdea, 0},
};

constexpr PbePrf kPrfs[] = {
    {"hmacWithSHA1", kDigestSha1},
    {"hmacWithSHA256", kDigestSha256},
    {"hmacWithSHA384", kDigestSha384},
    {"hmacWithSHA512", kDigestSha512},
};

constexpr PbePrf kFurtherPrfs[] = {
    {"hmacWithSHA224", kDigestSha224},
    {"1.2.840.113549.2.13", kDigestSha512_256}, // the table of names lacks it
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

const PbePrf* pbe_prf(const char* name) {
    return find(kPrfs, name);
}

const PbePrf* pbe_further_prf(const char* name) {
    return find(kFurtherPrfs, name);
}

const PbePrf* pbe_prf_of(int hashAlg) {
    for (const PbePrf& prf : kPrfs)
        if (prf.hashAlg == hashAlg)
            return &prf;
    return &kPrfs[0];
}

void pbe_take_scheme(PbeParams& params, const PbeScheme* scheme) {
    params.scheme = scheme;
    params.cipher = scheme->cipher;
    params.rc2Bits = scheme->rc2Bits;
    params.keyLength = scheme->keyLength;
    params.ivLength = 8;
}

void pbe_take_cipher(PbeParams& params, const BlockCipher& cipher) {
    params.cipher = cipher.algorithm;
    params.keyLength = cipher.keyLength;
    params.ivLength = cipher.blockLength;
}

int pbe_check_iterations(uint32_t iterations) {
    if (iterations <= kMaxForeignIterations)
        return 0;
    return err_fail(OUT_OF_RANGE_ERROR, "Iteration count is above %u", kMaxForeignIterations);
}

int pbe_take_password(PbeParams& params, const char* password) {
    if (password == nullptr)
        return BAD_PARAM_ERROR;
    const size_t length = std::strlen(password);
    if (length > kMaxAllocation / 4) // its BMP form, padded and with a salt, can still be allocated
        return BAD_LENGTH_ERROR;
    params.password = SecretBuffer(length);
    std::memcpy(params.password.data(), password, length);
    params.bmp = false;
    return 0;
}

} // namespace zul
