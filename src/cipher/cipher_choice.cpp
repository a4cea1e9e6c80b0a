#include "cipher/cipher_choice.h"

#include <cstring>
#include <iterator>

#include "frame/err.h"
#include "frame/text.h"
#include "zulcore.h"

namespace zul {

namespace {

constexpr int kAlgorithmBits = 0xF0;
constexpr int kModeBits = 0xF00;
// Letters and digits that count in a name; the longest valid one has ten.
constexpr size_t kNameLength = 12;

struct AlgorithmName {
    const char* name;
    CipherAlgorithm algorithm;
};

// Longer names first: desede is a prefix of desede3.
constexpr AlgorithmName kAlgorithmNames[] = {
    {"aes128", CipherAlgorithm::aes128}, {"aes192", CipherAlgorithm::aes192},
    {"aes256", CipherAlgorithm::aes256}, {"tdea", CipherAlgorithm::tdea},
    {"3des", CipherAlgorithm::tdea},     {"desede3", CipherAlgorithm::tdea},
    {"desede", CipherAlgorithm::tdea},
};

struct ModeName {
    const char* name;
    CipherMode mode;
};

constexpr ModeName kModeNames[] = {
    {"ecb", CipherMode::ecb}, {"cbc", CipherMode::cbc}, {"ofb", CipherMode::ofb},
    {"cfb", CipherMode::cfb}, {"ctr", CipherMode::ctr},
};

bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

bool is_upper(char c) {
    return c >= 'A' && c <= 'Z';
}

// The character classes here do not depend on the process's locale.
char to_lower(char c) {
    return is_upper(c) ? static_cast<char>(c - 'A' + 'a') : c;
}

void reduce_name(char (&name)[kNameLength + 1], const char* text) {
    size_t length = 0;
    for (; *text != '\0' && length < kNameLength; text++) {
        const char c = to_lower(*text);
        if ((c >= 'a' && c <= 'z') || is_digit(c))
            name[length++] = c;
    }
    name[length] = '\0';
}

bool mode_named(CipherMode* mode, const char* lowerCase) {
    for (const ModeName& row : kModeNames) {
        if (strcmp(lowerCase, row.name) == 0) {
            *mode = row.mode;
            return true;
        }
    }
    return false;
}

[[nodiscard]] int choose_by_name(CipherChoice* choice, const char* text) {
    char name[kNameLength + 1];
    reduce_name(name, text);
    for (const AlgorithmName& row : kAlgorithmNames) {
        const size_t length = strlen(row.name);
        if (strncmp(name, row.name, length) != 0)
            continue;
        choice->algorithm = row.algorithm;
        choice->mode = CipherMode::ecb;
        if (name[length] == '\0' || mode_named(&choice->mode, name + length))
            return 0;
        break;
    }
    return err_fail(BAD_PARAM_ERROR,
                    "Unknown cipher '%s': give aes128, aes192, aes256 or tdea with ecb, cbc, cfb, ofb or ctr",
                    shown_name(text, kLongestAlgorithmName));
}

// The order of the option bits differs from that of CipherMode.
constexpr CipherMode kModeOptions[] = {CipherMode::ecb, CipherMode::cbc, CipherMode::ofb, CipherMode::cfb,
                                       CipherMode::ctr};
static_assert(ZUL_MODE_OFB == 0x200 && ZUL_MODE_CFB == 0x300 && ZUL_MODE_CTR == 0x400);

[[nodiscard]] int choose_by_options(CipherChoice* choice, int options) {
    const auto mode = static_cast<size_t>((options & kModeBits) >> 8);
    if (mode >= std::size(kModeOptions))
        return BAD_MODE_ERROR;
    const BlockCipher* cipher = block_cipher_option(options);
    if (cipher == nullptr)
        return BAD_FLAG_ERROR;
    *choice = {cipher->algorithm, kModeOptions[mode]};
    return 0;
}

} // namespace

int cipher_choose(CipherChoice* choice, const char* algAndMode, int options) {
    const bool byName = !is_missing(algAndMode);
    const bool byOptions = (options & (kAlgorithmBits | kModeBits)) != 0;
    if (byName == byOptions)
        return err_fail(BAD_PARAM_ERROR, "%s",
                        byName ? "Cipher given both by name and by options" : "No cipher given");
    return byName ? choose_by_name(choice, algAndMode) : choose_by_options(choice, options);
}

int cipher_mode_from_text(CipherMode* mode, const char* text) {
    if (text == nullptr)
        return BAD_PARAM_ERROR;
    char name[4] = {};
    size_t length = 0;
    for (; length < 3 && text[length] != '\0'; length++)
        name[length] = to_lower(text[length]);
    if (length == 3 && text[3] == '\0' && mode_named(mode, name))
        return 0;
    return err_fail(BAD_MODE_ERROR, "Unknown mode '%s': give ECB, CBC, CFB, OFB or CTR",
                    shown_name(text, kLongestAlgorithmName));
}

} // namespace zul
