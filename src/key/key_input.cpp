#include "key/key_input.h"

#include <algorithm>
#include <string_view>

#include "encode/base64.h"
#include "frame/err.h"
#include "key/key_read.h"
#include "key/key_string.h"
#include "zulcore.h"

namespace zul {

// The shortest key string, that of a public key of 32 bytes, is longer.
static constexpr size_t kLeastKeyString = 64;

static bool is_key_string(std::string_view text) {
    constexpr std::string_view kMarks[] = {"PUBR", "PVTR", "PUBK", "PVTK"};
    return text.size() > kLeastKeyString &&
           std::any_of(std::begin(kMarks), std::end(kMarks),
                       [=](std::string_view mark) { return text.starts_with(mark); }) &&
           std::all_of(text.begin(), text.end(), b64_is_char);
}

int key_input(Key& key, const char* keyOrFile) {
    return is_key_string(keyOrFile) ? key_string_read(keyOrFile, key) : key_read(key, keyOrFile, nullptr);
}

int key_input_private(Key& key, const char* keyOrFile) {
    if (const int error = key_input(key, keyOrFile))
        return error;
    return key.isPrivate ? 0 : err_fail(BAD_KEY_ERROR, "Not a private key");
}

} // namespace zul
