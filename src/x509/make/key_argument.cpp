#include "x509/make/key_argument.h"

#include <algorithm>
#include <string_view>

#include "encode/base64.h"
#include "frame/err.h"
#include "frame/file_stream.h"
#include "rsa/rsa_key_input.h"
#include "rsa/rsa_key_string.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr std::string_view kPublicMark = "PUBR", kPrivateMark = "PVTR";

bool is_b64_text(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return b64_is_char(c) || c == ' ' || (c >= '\t' && c <= '\r'); });
}

bool is_key_string(std::string_view text) {
    return text.size() > kLongestKeyName &&
           (text.starts_with(kPublicMark) || text.starts_with(kPrivateMark)) && is_b64_text(text);
}

[[nodiscard]] int faulty_key_string() {
    return err_fail(INVALID_DATA_ERROR, "Internal key data is faulty");
}

} // namespace

bool argument_opens(const char* fileOrText, size_t longestName) {
    const std::string_view text(fileOrText);
    if (text.find("-----BEGIN") != std::string_view::npos || is_key_string(text))
        return true;
    const size_t start = text.find_first_not_of(" \t\r\n");
    if (text.size() > longestName && start != std::string_view::npos && text[start] == 'M' &&
        is_b64_text(text))
        return true;
    // A pipe that has been read has no writer any more, for which opening it again would wait.
    return platform::file_is_pipe(fileOrText) || File(fileOrText, platform::OpenMode::read).is_open();
}

int read_public_key(const char* fileOrText, RsaKey& key) {
    if (!is_key_string(fileOrText))
        return rsa_input_public_key(fileOrText, key);
    return rsa_open_any(fileOrText, key, nullptr) == 0 ? 0 : faulty_key_string();
}

int read_signing_key(const char* fileOrText, const char* password, RsaKey& key) {
    if (!is_key_string(fileOrText))
        return rsa_input_encrypted_key(fileOrText, password, key);
    return rsa_open_private(fileOrText, key) == 0 ? 0 : faulty_key_string();
}

} // namespace zul
