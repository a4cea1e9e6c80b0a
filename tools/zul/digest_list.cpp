#include "digest_list.h"

#include <algorithm>

#include "failures.h"
#include "letters.h"

namespace tool {

namespace {

constexpr std::string_view kHexDigits = "0123456789abcdefABCDEF";
constexpr size_t kMostDigits = size_t{1} << 17; // of SHAKE

// The lengths of digests in hex digits, the usual digest of each first. Those of SHAKE are anything.
struct LengthRow {
    size_t digits;
    std::vector<const char*> names;
};
const LengthRow kLengths[] = {{32, {"md5", "md2"}},         {40, {"sha1"}},
                              {56, {"sha224", "sha3-224"}}, {64, {"sha256", "sha512-256", "sha3-256"}},
                              {96, {"sha384", "sha3-384"}}, {128, {"sha512", "sha3-512"}}};

const LengthRow* row_of(size_t digits) {
    const auto* row = std::find_if(std::begin(kLengths), std::end(kLengths),
                                   [digits](const LengthRow& each) { return each.digits == digits; });
    return row == std::end(kLengths) ? nullptr : row;
}

bool has_length(const Digest& digest, size_t digits) {
    if (digest.isExtendable)
        return digits % 2 == 0 && digits <= kMostDigits;
    const LengthRow* row = row_of(digits);
    return row != nullptr && std::any_of(row->names.begin(), row->names.end(), [&](const char* name) {
               return std::string_view(name) == digest.name;
           });
}

// digest_of_tag finds the digest of a tag of the BSDs ("SHA256", "SHA512t256") or of OpenSSL ("SHA2-256");
// null if there is none.
const Digest* digest_of_tag(const std::string& tag) {
    std::string name = lower_ascii(tag);
    if (name.starts_with("sha2-"))
        name.erase(3, 2);
    if (name == "sha512t256")
        name = "sha512-256";
    try {
        return &find_digest(name, DigestUse::hash);
    } catch (const UsageError&) {
        return nullptr;
    }
}

// digest_of_length gives the usual digest of a length, SHA-2 before SHA-3; null if no digest has it.
const Digest* digest_of_length(size_t digits) {
    const LengthRow* row = row_of(digits);
    return row == nullptr ? nullptr : &find_digest(row->names[0], DigestUse::hash);
}

// unescape undoes the escapes of digest_line. False for any other, and for zero bytes.
bool unescape(std::string& name) {
    std::string plain;
    for (size_t i = 0; i < name.size(); ++i) {
        if (name[i] != '\\') {
            plain += name[i];
            continue;
        }
        const char next = ++i < name.size() ? name[i] : '\0';
        if (next != '\\' && next != 'n' && next != 'r')
            return false;
        plain += next == 'n' ? '\n' : next == 'r' ? '\r' : next;
    }
    name = plain;
    return true;
}

bool is_hex(std::string_view text) {
    return !text.empty() && text.find_first_not_of(kHexDigits) == text.npos;
}

std::string_view without_blanks(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    return text;
}

} // namespace

bool DigestLine::read(std::string_view line) {
    line = without_blanks(line);
    const bool isEscaped = line.starts_with('\\');
    if (isEscaped)
        line.remove_prefix(1);
    const size_t digits = std::min(line.find_first_not_of(kHexDigits), line.size());
    const size_t open = line.find('('), close = line.rfind(')');
    tag.clear();
    if (digits > 0 && digits < line.size() && (line[digits] == ' ' || line[digits] == '\t')) {
        hex = line.substr(0, digits);
        line.remove_prefix(digits + 1);
        if (line == " ")
            return false;
        if (line.size() > 1 && (line[0] == ' ' || line[0] == '*')) // else a list without marks
            line.remove_prefix(1);
        name = line;
    } else if (open != line.npos && close != line.npos && open < close) {
        tag = line.substr(0, open);
        tag.erase(tag.find_last_not_of(' ') + 1);
        name = line.substr(open + 1, close - open - 1);
        line = without_blanks(line.substr(close + 1));
        if (tag.empty() || !line.starts_with('='))
            return false;
        hex = without_blanks(line.substr(1));
    } else {
        return false;
    }
    return is_hex(hex) && !name.empty() && name.find('\0') == name.npos && (!isEscaped || unescape(name));
}

DigestList::DigestList(const SecretBytes& content, const Digest* digest) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    std::string_view rest(as_text(content), content.size());
    if (rest.starts_with(kByteOrderMark))
        rest.remove_prefix(kByteOrderMark.size());
    for (int number = 1; !rest.empty(); ++number) {
        const size_t end = std::min(rest.find('\n'), rest.size());
        std::string_view text = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        if (text.ends_with('\r'))
            text.remove_suffix(1);
        if (text.empty() || text[0] == '#')
            continue;
        DigestLine line;
        const Digest* found = nullptr;
        if (line.read(text)) {
            found = line.tag.empty() ? digest : digest_of_tag(line.tag);
            if (found == nullptr && line.tag.empty())
                found = digest_of_length(line.hex.size());
        }
        const bool isOther = digest != nullptr && found != digest;
        if (found == nullptr || isOther || !has_length(*found, line.hex.size())) {
            badLines.push_back(number);
            continue;
        }
        digests.push_back({line.name, lower_ascii(line.hex), found});
    }
}

} // namespace tool
