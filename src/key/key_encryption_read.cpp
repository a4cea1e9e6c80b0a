#include <cstring>

#include "frame/err.h"
#include "frame/name_table.h"
#include "frame/slice.h"
#include "frame/text.h"
#include "hash/digest.h"
#include "hash/digest_names.h"
#include "key/key_encryption.h"
#include "pbe/pbe_params.h"
#include "pbe/scrypt.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr uint32_t kIterations = 600'000, kMaxIterations = 10'000'000;
constexpr uint64_t kScryptN = 16384, kScryptR = 8, kScryptP = 1; // OpenSSL reads no larger n by itself
constexpr uint64_t kMaxNumber = uint64_t{1} << 32;

constexpr NameRow kKdfs[] = {{"pbkdf2", static_cast<int>(KeyKdf::pbkdf2), false},
                             {"scrypt", static_cast<int>(KeyKdf::scrypt), false}};
constexpr NameRow kCiphers[] = {
    {"aes-128-cbc", static_cast<int>(CipherAlgorithm::aes128), false},
    {"aes-192-cbc", static_cast<int>(CipherAlgorithm::aes192), false},
    {"aes-256-cbc", static_cast<int>(CipherAlgorithm::aes256), false},
    {"tdea-cbc", static_cast<int>(CipherAlgorithm::tdea), false},
    {"3des-cbc", static_cast<int>(CipherAlgorithm::tdea), true},
    {"des-ede3-cbc", static_cast<int>(CipherAlgorithm::tdea), true},
};
enum Parameter { kIterationsParameter, kKdfParameter, kCipherParameter, kHashParameter, kN, kR, kP };
constexpr NameRow kParameters[] = {
    {"iterations", kIterationsParameter, false},
    {"kdf", kKdfParameter, false},
    {"cipher", kCipherParameter, false},
    {"hash", kHashParameter, false},
    {"n", kN, false},
    {"r", kR, false},
    {"p", kP, false},
};

[[nodiscard]] int read_number(uint64_t& value, const char* text, uint64_t most) {
    value = 0;
    const char* at = text;
    for (; *at >= '0' && *at <= '9' && value <= most; at++)
        value = 10 * value + static_cast<uint64_t>(*at - '0');
    if (at == text || (*at != '\0' && value <= most))
        return err_fail(BAD_PARAM_ERROR, "'%s' is not a number", shown_name(text));
    return value >= 1 && value <= most ? 0
                                       : err_fail(OUT_OF_RANGE_ERROR, "%s is out of range", shown_name(text));
}

[[nodiscard]] int read_hash(int& digest, const char* text) {
    if (const int error = digest_choose(&digest, text))
        return error;
    return pbe_prf_of(digest)->hashAlg == digest
               ? 0
               : err_fail(NOT_SUPPORTED_ERROR, "'%s' is no hash of PBES2", shown_name(text));
}

// The parameters given, a bit for each.
constexpr unsigned kOfPbkdf2 = 1 << kIterationsParameter | 1 << kHashParameter,
                   kOfScrypt = 1 << kN | 1 << kR | 1 << kP;

[[nodiscard]] int take(KeyEncryption& encryption, unsigned& given, const char* name, const char* value) {
    int parameter = 0, choice = 0;
    if (name_find(kParameters, name, &parameter) != 0) {
        err_set_text("Unknown parameter '%s' (known: iterations, kdf, cipher, hash, n, r, p)",
                     shown_name(name));
        return BAD_PARAM_ERROR;
    }
    if (*value == '\0' || (given & 1U << parameter) != 0)
        return err_fail(BAD_PARAM_ERROR, "Parameter '%s' has no value, or is given twice", name);
    given |= 1U << parameter;
    uint64_t iterations = 0;
    int error = 0;
    switch (parameter) {
    case kIterationsParameter:
        error = read_number(iterations, value, kMaxIterations);
        encryption.iterations = static_cast<uint32_t>(iterations);
        return error;
    case kKdfParameter:
        error = name_find(kKdfs, value, &choice);
        encryption.kdf = static_cast<KeyKdf>(choice);
        return error;
    case kCipherParameter:
        error = name_find(kCiphers, value, &choice);
        encryption.cipher = static_cast<CipherAlgorithm>(choice);
        return error;
    case kHashParameter:
        return read_hash(encryption.digest, value);
    case kN:
        return read_number(encryption.n, value, kMaxNumber);
    case kR:
        return read_number(encryption.r, value, kMaxNumber);
    default:
        return read_number(encryption.p, value, kMaxNumber);
    }
}

} // namespace

int key_encryption_read(KeyEncryption& encryption, const char* parameters) {
    encryption = {KeyKdf::pbkdf2, CipherAlgorithm::aes256, kDigestSha256, kIterations, kScryptN, kScryptR,
                  kScryptP};
    unsigned given = 0;
    std::string_view rest(parameters == nullptr ? "" : parameters);
    while (!rest.empty()) {
        const size_t end = rest.find(';');
        const std::string_view item = trimmed(slice(rest, 0, end));
        rest = end == std::string_view::npos ? std::string_view() : slice(rest, end + 1);
        if (item.empty())
            continue;
        char text[64] = {};
        const size_t equals = item.find('=');
        if (equals == std::string_view::npos || item.size() >= sizeof text)
            return err_fail(BAD_PARAM_ERROR, "Parameters are name=value, parted by semicolons");
        memcpy(text, item.data(), item.size());
        text[equals] = '\0';
        if (const int error = take(encryption, given, text, text + equals + 1))
            return error;
    }
    const bool isScrypt = encryption.kdf == KeyKdf::scrypt;
    if ((given & (isScrypt ? kOfPbkdf2 : kOfScrypt)) != 0)
        return err_fail(BAD_PARAM_ERROR, "A parameter does not belong to the key derivation");
    return isScrypt ? scrypt_check_file({encryption.n, encryption.r, encryption.p}) : 0;
}

} // namespace zul
