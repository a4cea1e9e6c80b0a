#include "seal/stanza_scrypt.h"

#include <cstdio>
#include <cstring>

#include "frame/err.h"
#include "frame/slice.h"
#include "pbe/scrypt.h"
#include "rng/rng.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr std::string_view kSaltLabel = "age-encryption.org/v1/scrypt";
constexpr size_t kSaltLength = age_base64_length(sizeof ScryptStanza::salt);

int derive_wrap_key(AgeKey& wrapKey, std::string_view password, const uint8_t* ownSalt, int logN) {
    uint8_t salt[kSaltLabel.size() + sizeof ScryptStanza::salt];
    memcpy(salt, kSaltLabel.data(), kSaltLabel.size());
    memcpy(salt + kSaltLabel.size(), ownSalt, sizeof ScryptStanza::salt);
    return scrypt(wrapKey.data(), wrapKey.size(), password.data(), password.size(), salt, sizeof salt,
                  {uint64_t{1} << logN, 8, 1});
}

} // namespace

int ScryptStanza::read(const AgeStanza& stanza) {
    const std::string_view saltText = slice(stanza.arguments, 0, stanza.arguments.find(' ')),
                           factor = slice(stanza.arguments, saltText.size() + 1);
    if (stanza.argumentCount != 2 || !age_base64_read(salt, sizeof salt, saltText) ||
        !age_wrapped_key(wrapped, stanza) ||
        factor.find_first_not_of("0123456789") != std::string_view::npos || factor.front() == '0')
        return err_fail(BAD_FORMAT_ERROR, "Malformed header: its scrypt stanza");
    logN = 0;
    for (const char digit : factor) {
        logN = 10 * logN + (digit - '0');
        if (logN > kMostScryptLogN)
            return err_fail(OUT_OF_RANGE_ERROR, "The work factor of scrypt is above 2^%d", kMostScryptLogN);
    }
    return 0;
}

int scrypt_stanza_add(AgeHeader& header, std::string_view password, const FileKey& fileKey, int logN) {
    uint8_t salt[sizeof ScryptStanza::salt], wrapped[kWrappedFileKey];
    if (const int code = rng_bytes(salt, sizeof salt))
        return code;
    AgeKey wrapKey;
    if (const int code = derive_wrap_key(wrapKey, password, salt, logN))
        return code;
    file_key_wrap(wrapped, fileKey, wrapKey);
    char saltText[kSaltLength + 1], line[64];
    age_base64_write(saltText, salt, sizeof salt);
    snprintf(line, sizeof line, "%s %s %d", ScryptStanza::kType.data(), saltText, logN);
    header.add(line, wrapped);
    return 0;
}

int scrypt_stanza_open(FileKey& fileKey, const ScryptStanza& stanza, std::string_view password) {
    AgeKey wrapKey;
    if (const int code = derive_wrap_key(wrapKey, password, stanza.salt, stanza.logN))
        return code;
    if (!file_key_unwrap(fileKey, stanza.wrapped, wrapKey))
        return err_fail(DECRYPT_ERROR, "Wrong password");
    return 0;
}

} // namespace zul
