#include <cstring>
#include <string>

#include "frame/err.h"
#include "fuzz_support.h"
#include "seal/age_keys.h"
#include "seal/bech32.h"
#include "zulcore.h"

// A text whose checksum is right gives its parts; a key that is read is written as the same text. The first
// 32 bytes as a key: its text reads back, and not with one character changed.

using namespace zul;
using fuzz::require;

static void check_text(const std::string& text) {
    Bech32Parts parts;
    if (!bech32_split(parts, text))
        return;
    require(text.size() <= kBech32Longest && parts.prefixLength > 0 &&
            parts.prefixLength + 1 + parts.count + kBech32Checksum == text.size());
    for (size_t i = 0; i < parts.count; i++)
        require(parts.values[i] < 32);
}

static void check_list(const std::string& text) {
    for (const AgeKeyKind kind : {AgeKeyKind::recipient, AgeKeyKind::identity}) {
        const std::string prefix(kind == AgeKeyKind::recipient ? kRecipientPrefix : kIdentityPrefix);
        uint8_t key[kBech32Key];
        if (!bech32_read(key, prefix, text))
            continue;
        std::string again(bech32_key_length(prefix) + 1, '\0');
        bech32_write(again.data(), prefix, key, text[0] < 'a');
        again.pop_back();
        require(again == text);
        AgeKeys keys;
        err_clear();
        const int code = keys.read(text.c_str(), kind);
        require((code == 0) == (keys.count() == 1) && (code == 0 || *err_text() != '\0'));
    }
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    check_text(text);
    check_list(text);
    if (size < kBech32Key + 2)
        return 0;
    const bool isUpper = (data[kBech32Key] & 1) != 0;
    std::string made(bech32_key_length(kRecipientPrefix) + 1, '\0');
    bech32_write(made.data(), kRecipientPrefix, data, isUpper);
    made.pop_back();
    uint8_t key[kBech32Key];
    require(bech32_read(key, kRecipientPrefix, made) && memcmp(key, data, sizeof key) == 0);
    check_text(made);
    check_list(made);
    // Up to four changed characters are always found (BIP 173).
    std::string changed = made;
    for (size_t i = kBech32Key; i + 1 < size && i < kBech32Key + 8; i += 2)
        changed[data[i] % changed.size()] = static_cast<char>(data[i + 1]);
    require(changed == made || !bech32_read(key, kRecipientPrefix, changed) ||
            memcmp(key, data, sizeof key) == 0);
    return 0;
}
