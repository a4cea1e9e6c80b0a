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

constexpr size_t kLongestLine = 256;                        // a key with blanks around it
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF"; // UTF-8; some editors begin a file with it

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
    const bool isWhole = line.size() < kLongestLine;
    if (number == 1 && line.starts_with(kByteOrderMark))
        line = slice(line, kByteOrderMark.size());
    line = trimmed(line);
    if (line.starts_with('#') || (line.empty() && isWhole))
        return 0;
    if (!isWhole || line.size() > kBech32Longest || !add(line))
        return err_fail(BAD_KEY_ERROR, "Line %u of file '%s' is no %s", number, shown_name(path), word());
    return count() > kMostAgeKeys ? OUT_OF_RANGE_ERROR : 0;
}

int AgeKeys::read_file(const char* path, unsigned entry, const char* output) {
    FileReader reader(path);
    if (!reader.is_open()) // the entry may be a mistyped identity, or a password: it must not get into a log
        return err_fail(OPEN_ERROR, "Entry %u of the %s list is no %s, and no file of that name opens", entry,
                        word(), word());
    if (output != nullptr && platform::file_is_regular(output) && platform::file_is(reader.handle(), output))
        return err_fail(BAD_PARAM_ERROR, "Output is file '%s' of the %s list", shown_name(path), word());
    const size_t before = count();
    Secret<kLongestLine + 1> line; // of a longer one the beginning
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
        return err_fail(READ_ERROR, "Cannot read file '%s'", shown_name(path));
    if (const int code = add_line(text(), number, path))
        return code;
    return count() > before ? 0 : err_fail(NO_DATA_ERROR, "File '%s' holds no %s", shown_name(path), word());
}

int AgeKeys::read(const char* list, AgeKeyKind kind, const char* output) {
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
            code = read_file(path.text(), number, output);
        }
        if (code == OUT_OF_RANGE_ERROR)
            err_add_text("More than %u keys", kMostAgeKeys);
        if (code != 0)
            return code;
    }
    return count() > 0 ? 0 : err_fail(NO_DATA_ERROR, "The list holds no %s", word());
}

} // namespace zul
