#pragma once
#include <string_view>

#include "frame/memory.h"

// Keys of age: X25519 keys as Bech32 texts.
namespace zul {

constexpr std::string_view kRecipientPrefix = "age", kIdentityPrefix = "age-secret-key-";
// A header for that many recipients is still read.
constexpr unsigned kMostAgeKeys = 20000;

enum class AgeKeyKind { recipient, identity };

// AgeKeys holds the keys of a list: texts and names of files, joined by ";".
class AgeKeys {
  public:
    // read gives 0, or a code with a text: BAD_KEY_ERROR (a text or line that is no such key), OPEN_ERROR,
    // READ_ERROR, NO_DATA_ERROR (a list or file without a key), OUT_OF_RANGE_ERROR (too many) or
    // BAD_PARAM_ERROR (a file is the one at the path output, if that is given).
    [[nodiscard]] int read(const char* list, AgeKeyKind kind, const char* output = nullptr);

    size_t count() const { return bytes_.size() / kSize; }
    const uint8_t* key(size_t i) const { return bytes_.data() + kSize * i; }

  private:
    static constexpr size_t kSize = 32;

    [[nodiscard]] int read_file(const char* path, unsigned entry, const char* output);
    [[nodiscard]] bool add(std::string_view text);
    [[nodiscard]] int add_line(std::string_view line, unsigned number, const char* path);
    const char* word() const { return kind_ == AgeKeyKind::recipient ? "recipient" : "identity"; }

    AgeKeyKind kind_{};
    SecretBuffer bytes_;
};

} // namespace zul
