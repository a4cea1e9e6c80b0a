#include <algorithm>
#include <cctype>
#include <chrono>
#include <ctime>

#include "certificates.h"
#include "letters.h"

namespace tool {

namespace {

constexpr const char* kKeywords[] = {"CN", "C", "O", "OU", "L", "S", "ST", "E", "SN", "G", "T", "DC"};

// What the CERT_ functions know beside.
constexpr const char* kMoreKeywords[] = {
    "STREET",       "POSTALCODE",  "INITIALS",  "GENERATIONQUALIFIER",    "UID",
    "SERIALNUMBER", "DNQUALIFIER", "PSEUDONYM", "ORGANIZATIONIDENTIFIER", "BUSINESSCATEGORY"};

struct UsageRow {
    const char* name;
    int bit;
};
constexpr UsageRow kUsages[] = {
    {"digitalSignature", ZUL_KEYUSAGE_DIGITALSIGNATURE},
    {"nonRepudiation", ZUL_KEYUSAGE_NONREPUDIATION},
    {"keyEncipherment", ZUL_KEYUSAGE_KEYENCIPHERMENT},
    {"dataEncipherment", ZUL_KEYUSAGE_DATAENCIPHERMENT},
    {"keyAgreement", ZUL_KEYUSAGE_KEYAGREEMENT},
    {"keyCertSign", ZUL_KEYUSAGE_KEYCERTSIGN},
    {"cRLSign", ZUL_KEYUSAGE_CRLSIGN},
    {"encipherOnly", ZUL_KEYUSAGE_ENCIPHERONLY},
    {"decipherOnly", ZUL_KEYUSAGE_DECIPHERONLY},
};

bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

bool is_keyword(std::string_view word, NameForm form = NameForm::any) {
    const auto isIt = [word](const char* each) { return lower_ascii(each) == lower_ascii(word); };
    if (std::any_of(std::begin(kKeywords), std::end(kKeywords), isIt))
        return true;
    const bool isDotted = word.find('.') != word.npos && word.find_first_not_of("0123456789.") == word.npos;
    return form == NameForm::any &&
           (isDotted || std::any_of(std::begin(kMoreKeywords), std::end(kMoreKeywords), isIt));
}

// Cursor takes a text apart from its beginning.
struct Cursor {
    std::string_view rest;

    bool take(char c) {
        if (!rest.starts_with(c))
            return false;
        rest.remove_prefix(1);
        return true;
    }
    bool number(size_t minDigits, size_t maxDigits, unsigned limit, unsigned& value) {
        size_t digits = 0;
        for (value = 0; digits < maxDigits && digits < rest.size() && is_digit(rest[digits]); ++digits)
            value = value * 10 + static_cast<unsigned>(rest[digits] - '0');
        rest.remove_prefix(digits);
        return digits >= minDigits && value <= limit;
    }
};

bool read_date(Cursor& cursor, std::string& result) {
    unsigned year, month, day;
    if (!cursor.number(4, 4, 9999, year))
        return false;
    const char separator = cursor.rest.starts_with('/') ? '/' : '-';
    if (!cursor.take(separator) || !cursor.number(1, 2, 12, month) || !cursor.take(separator) ||
        !cursor.number(1, 2, 31, day))
        return false;
    const std::chrono::year_month_day date{std::chrono::year(static_cast<int>(year)),
                                           std::chrono::month(month), std::chrono::day(day)};
    char text[16];
    std::snprintf(text, sizeof text, "%04u-%02u-%02u", year % 10000, month % 100, day % 100);
    result = text;
    return date.ok() && year >= 1900;
}

bool read_time(Cursor& cursor, std::string& result) {
    unsigned hour, minute, second = 0;
    if (!cursor.number(1, 2, 23, hour) || !cursor.take(':') || !cursor.number(1, 2, 59, minute))
        return false;
    if (cursor.take(':') && !cursor.number(1, 2, 59, second))
        return false;
    cursor.take('Z');
    char text[16];
    std::snprintf(text, sizeof text, "T%02u:%02u:%02u", hour % 100, minute % 100, second % 100);
    result += text;
    return true;
}

std::string hex_of_bytes(const std::vector<unsigned char>& bytes) {
    static constexpr char kDigits[] = "0123456789abcdef";
    std::string text;
    for (const unsigned char byte : bytes) {
        text += kDigits[byte >> 4];
        text += kDigits[byte & 15];
    }
    return text;
}

std::string hex_from_decimal(const std::string& digits) {
    std::vector<unsigned char> bytes; // least significant first
    for (const char digit : digits) {
        unsigned carry = static_cast<unsigned>(digit - '0');
        for (unsigned char& byte : bytes) {
            carry += byte * 10U;
            byte = static_cast<unsigned char>(carry);
            carry >>= 8;
        }
        if (carry > 0)
            bytes.push_back(static_cast<unsigned char>(carry));
    }
    if (bytes.empty())
        bytes.push_back(0);
    std::reverse(bytes.begin(), bytes.end());
    return hex_of_bytes(bytes);
}

void check_country(std::string_view value) {
    const bool isHex = value.starts_with("#x") && value.size() == 6;
    const auto isLetter = [](char c) { return std::isalpha(static_cast<unsigned char>(c)) != 0; };
    if (!isHex && (value.size() != 2 || !std::all_of(value.begin(), value.end(), isLetter)))
        throw UsageError("C takes the two letters of a country, not " + in_quotes(value));
}

std::string_view trimmed(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    return text.substr(0, text.find_last_not_of(" \t") + 1);
}

void check_hex(std::string_view value, const std::string& keyword) {
    if (!value.starts_with("#x"))
        return;
    if (value.size() == 2 || value.find_first_not_of("0123456789abcdefABCDEF", 2) != value.npos)
        throw UsageError("the value of " + keyword +
                         " is not hex; '##x' begins a text that begins with '#x'");
    if (value.size() % 2 != 0)
        throw UsageError("the hex value of " + keyword + " has an odd number of digits");
}

// quoted_value takes a value in quotes off the rest of a name.
std::string_view quoted_value(std::string_view& rest, const std::string& keyword) {
    size_t end = 1;
    while (end < rest.size() && rest[end] != '\'')
        end += rest[end] == '\\' ? size_t{2} : size_t{1};
    if (end >= rest.size())
        throw UsageError("the quoted value of " + keyword + " has no end");
    const std::string_view value = rest.substr(0, end + 1);
    rest.remove_prefix(end + 1);
    rest.remove_prefix(std::min(rest.find_first_not_of(" \t"), rest.size()));
    if (!rest.empty() && rest[0] != ';')
        throw UsageError("behind the quoted value of " + keyword + " stands more");
    return value;
}

// take_value takes the value off the rest of a name.
std::string_view take_value(std::string_view& rest, const std::string& keyword) {
    rest.remove_prefix(std::min(rest.find_first_not_of(" \t"), rest.size()));
    const bool isQuoted = rest.starts_with('\'');
    const std::string_view value =
        isQuoted ? quoted_value(rest, keyword) : trimmed(rest.substr(0, rest.find(';')));
    const std::string_view inner = isQuoted ? value.substr(1, value.size() - 2) : value;
    if (inner.empty())
        throw UsageError(keyword + " has no value");
    const bool isCountry = lower_ascii(keyword) == "c";
    if (isQuoted) {
        if (isCountry)
            check_country(inner);
        return value;
    }
    rest.remove_prefix(std::min(rest.find(';'), rest.size()));
    check_hex(value, keyword);
    for (size_t at = value.find(','); at != value.npos; at = value.find(',', at + 1)) {
        const size_t word = std::min(value.find_first_not_of(' ', at + 1), value.size());
        const size_t equals = value.find('=', word);
        if (equals != value.npos && is_keyword(value.substr(word, equals - word)))
            throw UsageError("the parts of a name are separated by ';', not ','; quote the value of " +
                             keyword + " with ' if that is what it is");
    }
    if (isCountry)
        check_country(value);
    return value;
}

} // namespace

std::string date_text(const std::string& text, const std::string& option, const std::string& time) {
    Cursor cursor{text};
    std::string result;
    bool good = read_date(cursor, result);
    const bool hasTime = good && !cursor.rest.empty();
    if (hasTime)
        good = (cursor.take('T') || cursor.take(' ')) && read_time(cursor, result) && cursor.rest.empty();
    if (!good)
        throw UsageError(option + " takes a date such as 2026-01-31 or 2026-01-31T12:30:00 (UTC), not " +
                         in_quotes(text));
    return hasTime ? result : result + time;
}

std::string now_text(int secondsAgo) {
    const std::time_t time = std::time(nullptr) - secondsAgo;
    char text[32] = "";
    // NOLINTNEXTLINE(concurrency-mt-unsafe): the thread of commands alone asks for dates
    if (const tm* utc = std::gmtime(&time))
        std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S", utc);
    return text;
}

std::string serial_hex(const std::string& text, const std::string& option) {
    const bool isHex = text.starts_with("0x") || text.starts_with("0X");
    std::string digits;
    for (const char c : isHex ? text.substr(2) : text)
        if (!isHex || c != ':')
            digits += c;
    const char* allowed = isHex ? "0123456789abcdefABCDEF" : "0123456789";
    if (digits.empty() || digits.size() > 1000 || digits.find_first_not_of(allowed) != digits.npos)
        throw UsageError(option + " takes a serial number, decimal or hex after 0x, not " + in_quotes(text));
    if (!isHex)
        return hex_from_decimal(digits);
    digits = lower_ascii(digits.size() % 2 == 0 ? digits : "0" + digits);
    while (digits.size() > 2 && digits.starts_with("00"))
        digits.erase(0, 2);
    return digits;
}

std::string random_serial() {
    std::vector<unsigned char> bytes(16);
    accept_status(RNG_Bytes(bytes.data(), static_cast<int>(bytes.size()), nullptr, 0), "serial number");
    bytes[0] = static_cast<unsigned char>((bytes[0] & 0x3F) | 0x40); // positive, and of one length
    return hex_of_bytes(bytes);
}

int key_usage(const std::string& names) {
    int bits = 0;
    if (lower_ascii(names) == "none")
        return bits;
    std::string_view rest = names;
    for (bool more = true; more;) {
        const size_t comma = rest.find(',');
        std::string_view word = rest.substr(0, comma);
        more = comma != rest.npos;
        rest.remove_prefix(more ? comma + 1 : rest.size());
        word.remove_prefix(std::min(word.find_first_not_of(' '), word.size()));
        const auto* row = std::find_if(std::begin(kUsages), std::end(kUsages), [word](const UsageRow& each) {
            return lower_ascii(each.name) == lower_ascii(word);
        });
        if (row == std::end(kUsages)) {
            std::string known;
            for (const UsageRow& each : kUsages)
                known += std::string(each.name) + ", ";
            throw UsageError("unknown key usage " + in_quotes(word) + "; usages: " + known + "none");
        }
        bits |= row->bit;
    }
    return bits;
}

Name read_name(const std::string& text, NameForm form) {
    std::string_view rest = text;
    Name name;
    for (;;) {
        rest.remove_prefix(std::min(rest.find_first_not_of("; \t"), rest.size()));
        if (rest.empty())
            break;
        const std::string_view part = rest.substr(0, rest.find(';'));
        const size_t equals = part.find('=');
        if (equals == part.npos)
            throw UsageError(in_quotes(part) + " in the name has no keyword; a name is written as " +
                             "\"C=AU;O=Example;CN=Alice\"");
        const std::string keyword(part.substr(0, equals));
        if (!is_keyword(keyword, form)) {
            std::string known;
            for (const char* each : kKeywords)
                known += (known.empty() ? "" : ", ") + std::string(each);
            throw UsageError("unknown keyword " + in_quotes(keyword) + " in the name; keywords: " + known);
        }
        rest.remove_prefix(equals + 1);
        name.text += (name.text.empty() ? "" : ";") + keyword + "=";
        name.text += take_value(rest, keyword);
    }
    if (name.text.empty())
        throw UsageError("the name is empty; a name is written as \"C=AU;O=Example;CN=Alice\"");
    name.isAscii =
        std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    return name;
}

std::string quote_value(std::string_view value) {
    std::string text = "'";
    for (const char c : value) {
        if (c == '\'' || c == '\\')
            text += '\\';
        text += c;
    }
    return text + "'";
}

} // namespace tool
