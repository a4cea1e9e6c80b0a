#include "cipher/cipher_choice.h"

#include <cstring>

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

// A name that begins another one stands after it.
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

int choose_by_name(CipherChoice* choice, const char* text) {
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
    err_add_text("Unknown cipher '%s': give aes128, aes192, aes256 or tdea with ecb, cbc, cfb, ofb or ctr",
                 shown_name(text, kLongestAlgorithmName));
    return -BAD_PARAM_ERROR;
}

int choose_by_options(CipherChoice* choice, int options) {
    switch (options & kModeBits) {
    case ZUL_MODE_ECB:
        choice->mode = CipherMode::ecb;
        break;
    case ZUL_MODE_CBC:
        choice->mode = CipherMode::cbc;
        break;
    case ZUL_MODE_OFB:
        choice->mode = CipherMode::ofb;
        break;
    case ZUL_MODE_CFB:
        choice->mode = CipherMode::cfb;
        break;
    case ZUL_MODE_CTR:
        choice->mode = CipherMode::ctr;
        break;
    default:
        return -BAD_MODE_ERROR;
    }
    return cipher_algorithm_option(&choice->algorithm, options) ? 0 : -BAD_FLAG_ERROR;
}

} // namespace

int cipher_choose(CipherChoice* choice, const char* algAndMode, int options) {
    const bool byName = algAndMode != nullptr && algAndMode[0] != '\0';
    const bool byOptions = (options & (kAlgorithmBits | kModeBits)) != 0;
    if (byName == byOptions) {
        err_add_text(byName ? "Cipher given both by name and by options" : "No cipher given");
        return -BAD_PARAM_ERROR;
    }
    return byName ? choose_by_name(choice, algAndMode) : choose_by_options(choice, options);
}

bool cipher_algorithm_option(CipherAlgorithm* algorithm, int options) {
    switch (options & kAlgorithmBits) {
    case ZUL_CIPHER_TDEA:
        *algorithm = CipherAlgorithm::tdea;
        return true;
    case ZUL_CIPHER_AES128:
        *algorithm = CipherAlgorithm::aes128;
        return true;
    case ZUL_CIPHER_AES192:
        *algorithm = CipherAlgorithm::aes192;
        return true;
    case ZUL_CIPHER_AES256:
        *algorithm = CipherAlgorithm::aes256;
        return true;
    default:
        return false;
    }
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
    err_add_text("Unknown mode '%s': give ECB, CBC, CFB, OFB or CTR",
                 shown_name(text, kLongestAlgorithmName));
    return BAD_MODE_ERROR;
}

} // namespace zul
