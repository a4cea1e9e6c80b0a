#pragma once
#include <cstring>

#include "frame/memory.h"
#include "zulcore.h"

namespace zul {

// uncut_text_result hands out a text that is useless when cut, and sets *length to its length, also without
// output or room: 0, or SHORT_BUF_ERROR and an empty text. size() is that of the text, and fits an int.
[[nodiscard]] inline int uncut_text_result(char* out, int nChars, const SecretBuffer& text, int* length) {
    *length = static_cast<int>(text.size());
    if (out == nullptr || nChars <= 0)
        return 0;
    *out = '\0';
    if (nChars < *length)
        return SHORT_BUF_ERROR;
    if (*length > 0)
        memcpy(out, text.data(), text.size());
    out[*length] = '\0';
    return 0;
}

} // namespace zul
