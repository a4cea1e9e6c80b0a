#include "seal/age_keys.h"

#include <algorithm>

#include "frame/err.h"
#include "frame/file_stream.h"
#include "frame/slice.h"
#include "frame/text.h"
#include "seal/bech32.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr size_t kLongestLine = 256; // a key with blanks around it
constexpr size_t kLongestWord = 40;  // letters and digits in a row in a file name that is shown

bool begins_with_prefix(std::string_view text, std::string_view prefix) {
    if (text.size() <= prefix.size() || text[prefix.size()] != '1')
        return false;
    const auto same = [](char small, char c) {
        return (c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c) == small;
    };
    return std::equal(prefix.begin(), prefix.end(), text.begin(), same);
}

bool is_key_text(std::string_view text) {
    return begins_with_prefix(text, kRecipientPrefix) || begins_with_prefix(text, kIdentityPrefix);
}

bool is_word_character(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

// An identity with a wrong beginning is taken for a name. It must not get into a log.
const char* shown(const char* path) {
    size_t length = 0, longest = 0;
    for (const char* c = path; *c != '\0'; c++) {
        length = is_word_character(*c) ? length + 1 : 0;
        longest = std::max(longest, length);
    }
    return longest > kLongestWord ? "..." : shown_name(path);
}

} // namespace

bool AgeKeys::add(std::string_view text) {
    Secret<kSize> key;
    const bool isRecipient = kind_ == AgeKeyKind::recipient;
    if (!bech32_read(key.data(), isRecipient ? kRecipientPrefix : kIdentityPrefix, text))
        return false;
    bytes_.append(key.data(), kSize);
    return true;
}

int AgeKeys::add_line(std::string_view line, unsigned number, const char* path) {
    line = trimmed(line);
    if (line.empty() || line.front() == '#')
        return 0;
    if (line.size() > kBech32Longest || !add(line))
        return err_fail(BAD_KEY_ERROR, "Line %u of file '%s' is no %s", number, shown(path), word());
    return count() > kMostAgeKeys ? OUT_OF_RANGE_ERROR : 0;
}

int AgeKeys::read_file(const char* path) {
    FileReader reader(path);
    if (!reader.is_open())
        return err_fail(OPEN_ERROR, "Cannot open file '%s' of the %s list", shown(path), word());
    const size_t before = count();
    Secret<kLongestLine + 1> line; // of a longer one the beginning, too long for a key
    Secret<4096> part;
    size_t length = 0;
    unsigned number = 1;
    const auto text = [&] { return std::string_view(reinterpret_cast<const char*>(line.data()), length); };
    while (const size_t got = reader.read(part.data(), part.size())) {
        for (size_t i = 0; i < got; i++) {
            if (part[i] != '\n') {
                line[length] = part[i];
                length = std::min(length + 1, kLongestLine);
                continue;
            }
            if (const int code = add_line(text(), number++, path))
                return code;
            length = 0;
        }
    }
    if (reader.failed())
        return err_fail(READ_ERROR, "Cannot read file '%s'", shown(path));
    if (const int code = add_line(text(), number, path))
        return code;
    return count() > before ? 0 : err_fail(NO_DATA_ERROR, "File '%s' holds no %s", shown(path), word());
}

int AgeKeys::read(const char* list, AgeKeyKind kind) {
    kind_ = kind;
    unsigned number = 0;
    for (std::string_view rest = list; !rest.empty();) {
        const size_t end = std::min(rest.find(';'), rest.size());
        const std::string_view entry = trimmed(slice(rest, 0, end));
        rest = slice(rest, end + 1);
        number++;
        if (entry.empty())
            continue;
        int code = 0;
        if (is_key_text(entry)) {
            if (!add(entry))
                code = err_fail(BAD_KEY_ERROR, "Entry %u of the list is no %s", number, word());
            else if (count() > kMostAgeKeys)
                code = OUT_OF_RANGE_ERROR;
        } else {
            SecretBuffer path;
            path.append(entry.data(), entry.size());
            code = read_file(path.text());
        }
        if (code == OUT_OF_RANGE_ERROR)
            err_add_text("More than %u keys", kMostAgeKeys);
        if (code != 0)
            return code;
    }
    return count() > 0 ? 0 : err_fail(NO_DATA_ERROR, "The list holds no %s", word());
}

} // namespace zul
