#include "algorithms.h"

#include <cctype>

#include "failures.h"

namespace tool {

namespace {

constexpr int kNoOption = -1;
constexpr Digest kDigests[] = {
    {"sha1", ZUL_HASH_SHA1, true, false},     {"sha224", ZUL_HASH_SHA224, true, false},
    {"sha256", ZUL_HASH_SHA256, true, false}, {"sha384", ZUL_HASH_SHA384, true, false},
    {"sha512", ZUL_HASH_SHA512, true, false}, {"md5", ZUL_HASH_MD5, true, false},
    {"md2", ZUL_HASH_MD2, false, false},      {"sha512-256", kNoOption, true, false},
    {"sha3-224", kNoOption, true, false},     {"sha3-256", kNoOption, true, false},
    {"sha3-384", kNoOption, true, false},     {"sha3-512", kNoOption, true, false},
    {"shake128", kNoOption, false, true},     {"shake256", kNoOption, false, true},
};

struct CipherRow {
    const char *name, *algorithm;
    std::string_view spellings[6]; // a spelling that begins another one stands after it
    int option;
    size_t keyBytes, blockBytes;
};
constexpr CipherRow kCiphers[] = {
    {"aes-128", "aes-128", {"aes128"}, ZUL_CIPHER_AES128, 16, 16},
    {"aes-192", "aes-192", {"aes192"}, ZUL_CIPHER_AES192, 24, 16},
    {"aes-256", "aes-256", {"aes256"}, ZUL_CIPHER_AES256, 32, 16},
    {"3des", "tdea", {"3des", "des3", "tdea", "tripledes", "desede3", "desede"}, ZUL_CIPHER_TDEA, 24, 8},
};

struct ModeRow {
    std::string_view name;
    int option;
    bool takesIv, pads;
};
constexpr ModeRow kModes[] = {
    {"ecb", ZUL_MODE_ECB, false, true}, {"cbc", ZUL_MODE_CBC, true, true},
    {"cfb", ZUL_MODE_CFB, true, false}, {"ofb", ZUL_MODE_OFB, true, false},
    {"ctr", ZUL_MODE_CTR, true, false},
};

// Password-based encryption of private keys: PBES2 (PKCS #5) takes a digest for its key derivation.
struct KeyEncryptionRow {
    const char *name, *spelling;
    int option;
    const char* cipher; // of PBES2
};
constexpr KeyEncryptionRow kKeyEncryptions[] = {
    {"aes-128", "aes128", ZUL_PBE_PBES2 | ZUL_PBE_CIPHER_AES128, "aes-128-cbc"},
    {"aes-192", "aes192", ZUL_PBE_PBES2 | ZUL_PBE_CIPHER_AES192, "aes-192-cbc"},
    {"aes-256", "aes256", ZUL_PBE_PBES2 | ZUL_PBE_CIPHER_AES256, "aes-256-cbc"},
    {"3des", "3des", ZUL_PBE_PBES2, "tdea-cbc"},
    {"p12-3des", "p123des", ZUL_PBE_SHA_3DES, nullptr},
    {"sha1-des", "sha1des", ZUL_PBE_SHA1_DES, nullptr},
    {"md5-des", "md5des", ZUL_PBE_MD5_DES, nullptr},
    {"md2-des", "md2des", ZUL_PBE_MD2_DES, nullptr},
};

constexpr const char* kCipherNames = "ciphers: aes-128, aes-192, aes-256, 3des";

// plain drops separators and case: "SHA-256" and "sha256" are one name.
std::string plain(const std::string& name) {
    std::string letters;
    for (const char c : name)
        if (std::isalnum(static_cast<unsigned char>(c)))
            letters += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return letters;
}

bool serves(const Digest& digest, DigestUse use) {
    return use == DigestUse::hash || (use == DigestUse::hmac ? digest.hasHmac : digest.option != kNoOption);
}

// find_row finds the cipher that a plain name begins with and cuts that part off the name.
const CipherRow* find_row(std::string& name) {
    for (const CipherRow& row : kCiphers)
        for (const std::string_view spelling : row.spellings)
            if (!spelling.empty() && name.starts_with(spelling)) {
                name.erase(0, spelling.size());
                return &row;
            }
    return nullptr;
}

} // namespace

std::string digest_names(DigestUse use) {
    std::string names;
    for (const Digest& digest : kDigests)
        if (serves(digest, use))
            names += (names.empty() ? "" : ", ") + std::string(digest.name);
    return names;
}

const Digest& find_digest(const std::string& name, DigestUse use) {
    for (const Digest& digest : kDigests) {
        if (plain(name) != plain(digest.name))
            continue;
        if (serves(digest, use))
            return digest;
        if (use == DigestUse::hmac)
            throw UsageError("HMAC is not offered with " + std::string(digest.name) +
                             "; use another of: " + digest_names(use));
    }
    throw UsageError("unknown digest " + in_quotes(name) + "; digests: " + digest_names(use));
}

Cipher find_cipher_and_mode(const std::string& name) {
    std::string rest = plain(name);
    if (const CipherRow* row = find_row(rest)) {
        for (const ModeRow& mode : kModes)
            if (rest == mode.name)
                return {std::string(row->name) + "-" + std::string(mode.name),
                        std::string(row->algorithm) + "-" + std::string(mode.name),
                        row->option | mode.option,
                        row->keyBytes,
                        row->blockBytes,
                        mode.takesIv,
                        mode.pads};
        throw UsageError(in_quotes(name) + " names no mode; modes: ecb, cbc, cfb, ofb, ctr, as in " +
                         row->name + "-cbc");
    }
    throw UsageError("unknown cipher " + in_quotes(name) + "; " + kCipherNames +
                     ", each with -ecb, -cbc, -cfb, -ofb or -ctr, as in aes-256-cbc");
}

Cipher find_cipher(const std::string& name) {
    std::string rest = plain(name);
    const CipherRow* row = find_row(rest);
    if (row == nullptr || !rest.empty())
        throw UsageError("unknown cipher " + in_quotes(name) + "; " + kCipherNames);
    return {row->name, row->algorithm, row->option, row->keyBytes, row->blockBytes, false, false};
}

KeyEncryptionScheme find_key_encryption(const std::string& name, const std::string& digest) {
    std::string names;
    for (const KeyEncryptionRow& row : kKeyEncryptions) {
        names += (names.empty() ? "" : ", ") + std::string(row.name);
        if (plain(name) != row.spelling)
            continue;
        if (row.cipher == nullptr) {
            if (!digest.empty())
                throw UsageError(std::string(row.name) + " has its own key derivation; leave out --prf");
            return {row.option, nullptr};
        }
        const int prf = find_digest(digest.empty() ? "sha256" : digest).option;
        if (prf != ZUL_HASH_SHA1 && prf != ZUL_HASH_SHA256 && prf != ZUL_HASH_SHA384 &&
            prf != ZUL_HASH_SHA512)
            throw UsageError("--prf is sha1, sha256, sha384 or sha512");
        return {row.option | prf, row.cipher};
    }
    throw UsageError("unknown encryption " + in_quotes(name) + "; encryptions: " + names);
}

} // namespace tool
