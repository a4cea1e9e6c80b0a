#pragma once
#include "cipher/cipher_context.h"

namespace zul {

// CipherChoice is one block cipher in one mode.
struct CipherChoice {
    CipherAlgorithm algorithm;
    CipherMode mode;
};

// cipher_choose reads the choice either from a name such as "aes-128/CBC" (case and characters other
// than letters and digits are ignored; no mode means ECB) or from bits 0xFF0 of options, never from both.
// Returns 0, BAD_PARAM_ERROR, BAD_MODE_ERROR or BAD_FLAG_ERROR.
[[nodiscard]] int cipher_choose(CipherChoice* choice, const char* algAndMode, int options);

// cipher_mode_from_text reads a mode of exactly three letters, in any case: "ECB", "CBC", "CFB", "OFB",
// "CTR". Returns 0, BAD_PARAM_ERROR for null or BAD_MODE_ERROR.
[[nodiscard]] int cipher_mode_from_text(CipherMode* mode, const char* text);

// cipher_mode_pads tells whether the mode works on whole blocks only, so that files are padded for it.
constexpr bool cipher_mode_pads(CipherMode mode) {
    return mode == CipherMode::ecb || mode == CipherMode::cbc;
}

} // namespace zul
