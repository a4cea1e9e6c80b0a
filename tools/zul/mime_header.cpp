#include "mime_header.h"

#include <algorithm>
#include <charconv>

#include "failures.h"
#include "letters.h"
#include "mime_text.h"

namespace tool {

namespace {

constexpr size_t kLongestHeader = 1 << 20, kMostFields = 2000, kMostSegments = 1000, kMostAddresses = 100;

[[noreturn]] void refuse(const std::string& name, const std::string& reason) {
    throw Refused::by_system(BAD_FORMAT_ERROR, name, reason);
}

bool is_token_character(char c) {
    return c > 0x20 && c < 0x7F && std::string_view("()<>@,;:\\\"/[]?=").find(c) == std::string_view::npos;
}

// Scanner reads the words of a structured field.
class Scanner {
  public:
    Scanner(std::string_view text, const std::string& name) : rest_(text), name_(name) {}

    bool is_at_end() const { return rest_.empty(); }
    char next() const { return rest_.empty() ? '\0' : rest_.front(); }
    char take() {
        const char c = rest_.front();
        rest_.remove_prefix(1);
        return c;
    }
    bool take_if(char c) {
        const bool isThere = next() == c && !rest_.empty();
        if (isThere)
            take();
        return isThere;
    }

    // skip_blanks passes over blanks and comments, which nest; true if there were any.
    bool skip_blanks() {
        const size_t before = rest_.size();
        for (size_t depth = 0; !rest_.empty() && (depth > 0 || is_blank(next()) || next() == '(');) {
            const char c = take();
            if (c == '\\' && depth > 0 && !rest_.empty())
                take();
            else if (c == '(')
                ++depth;
            else if (c == ')')
                --depth;
            if (rest_.empty() && depth > 0)
                refuse(name_, "A comment in its header does not end.");
        }
        return rest_.size() < before;
    }

    std::string token() {
        std::string word;
        while (is_token_character(next()))
            word += take();
        return word;
    }

    // quoted reads the rest of a quoted string.
    std::string quoted() {
        std::string text;
        while (!rest_.empty()) {
            char c = take();
            if (c == '"')
                return text;
            if (c == '\\' && !rest_.empty())
                c = take();
            text += c;
        }
        refuse(name_, "A quoted text in its header does not end.");
    }

  private:
    std::string_view rest_;
    const std::string& name_;
};

// percent_decoded decodes a segment of RFC 2231; the first one begins with a character set and a language.
std::string percent_decoded(std::string_view text, bool isFirst, const std::string& name) {
    if (isFirst) {
        const size_t set = text.find('\''), language = set == text.npos ? set : text.find('\'', set + 1);
        if (language == text.npos)
            refuse(name, "A parameter in its header lacks its character set.");
        text.remove_prefix(language + 1);
    }
    std::string out;
    for (size_t i = 0; i < text.size(); ++i) {
        unsigned byte = static_cast<unsigned char>(text[i]);
        if (text[i] == '%') {
            const char* digits = text.data() + i + 1;
            if (i + 2 >= text.size() || std::from_chars(digits, digits + 2, byte, 16).ptr != digits + 2)
                refuse(name, "A parameter in its header has a wrong percent sign.");
            i += 2;
        }
        if (byte == 0)
            refuse(name, "A parameter in its header holds a zero byte.");
        out += static_cast<char>(byte);
    }
    return out;
}

// Segment is a parameter, or a piece of one: name, name*, name*0 or name*0*.
struct Segment {
    std::string base, value;
    size_t index = 0;
    bool isNumbered = false, isEncoded = false;

    Segment(const std::string& attribute, std::string text, const std::string& name)
        : base(attribute), value(std::move(text)) {
        if (base.ends_with('*')) {
            isEncoded = true;
            base.pop_back();
        }
        const size_t star = base.find('*');
        if (star == base.npos)
            return;
        const std::string digits = base.substr(star + 1);
        const char* end = digits.data() + digits.size();
        isNumbered = true;
        const auto [behind, error] = std::from_chars(digits.data(), end, index);
        if (digits.empty() || (digits.size() > 1 && digits[0] == '0') || error != std::errc() ||
            behind != end || index >= kMostSegments)
            refuse(name, "A parameter in its header has a wrong number.");
        base.resize(star);
    }
};

std::string address_in_angles(Scanner& scanner, const std::string& name) {
    std::string address;
    while (!scanner.is_at_end()) {
        const char c = scanner.take();
        if (c == '>')
            return address;
        if (c == '"')
            address += '"' + scanner.quoted() + '"';
        else if (c == '<' || c == ',' || c == '(' || c == ')' || c == ';' || c == '\\' || is_blank(c))
            break;
        else
            address += c;
    }
    refuse(name, "An address in its header is malformed.");
}

bool is_address(const std::string& text) {
    const size_t at = text.rfind('@');
    return at != text.npos && at > 0 && at + 1 < text.size() &&
           (text.find('@') == at || (text.front() == '"' && text[at - 1] == '"')) &&
           std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) >= 0x20 && c != 0x7F; }) &&
           text.find_first_of(" <>", at) == text.npos &&
           text.find("=?") == text.npos; // some readers would decode it, to another address
}

} // namespace

std::string MimeField::value() const {
    std::string line;
    for (std::string_view rest = body; !rest.empty();)
        line += without_line_end(next_line(rest)); // what goes on begins with a blank
    return std::string(without_blanks(line));
}

MimeHeader MimeHeader::read(std::string_view& text, const std::string& name) {
    MimeHeader header;
    header.name_ = name;
    const std::string_view all = text;
    for (size_t number = 1; !text.empty(); ++number) {
        const auto refuse_line = [&](const char* reason) {
            refuse(name, "Line " + std::to_string(number) + " of its header " + reason);
        };
        const char* begin = text.data();
        const std::string_view whole = next_line(text), line = without_line_end(whole);
        if (line.empty())
            return header;
        if (all.size() - text.size() > kLongestHeader || header.fields_.size() == kMostFields)
            refuse(name, "Its header is longer than 1 MiB or 2,000 fields.");
        if (line.find_first_of(std::string_view("\0\r", 2)) != line.npos)
            refuse_line("holds a zero byte or a CR that ends no line.");
        if (without_blanks(line).empty())
            refuse_line("holds blanks alone; some readers end the header there and others do not.");
        if (is_blank(line.front())) {
            if (header.fields_.empty())
                refuse_line("begins with a blank, but goes on with no field.");
            MimeField& last = header.fields_.back();
            last.raw = {last.raw.data(), static_cast<size_t>(begin - last.raw.data()) + whole.size()};
            last.body = {last.body.data(), static_cast<size_t>(begin - last.body.data()) + whole.size()};
            continue;
        }
        const size_t colon = line.find(':');
        const std::string_view word = line.substr(0, colon == line.npos ? 0 : colon);
        if (number == 1 && line.starts_with("From ") && without_blanks(word) != "From")
            continue; // what parts the messages of a mailbox file
        if (!word.empty() && is_blank(word.back()))
            refuse_line("has a blank before its colon; some readers end the header there and others do not.");
        if (word.empty() ||
            !std::all_of(word.begin(), word.end(), [](char c) { return c > 0x20 && c < 0x7F; }))
            refuse_line("is no field: NAME: VALUE.");
        header.fields_.push_back({lower_ascii(word), whole, whole.substr(colon + 1)});
    }
    return header;
}

const MimeField* MimeHeader::find(std::string_view field) const {
    const auto found = std::find_if(fields_.begin(), fields_.end(),
                                    [&](const MimeField& each) { return each.name == field; });
    return found == fields_.end() ? nullptr : &*found;
}

std::string MimeHeader::value(std::string_view field) const {
    if (std::count_if(fields_.begin(), fields_.end(),
                      [&](const MimeField& each) { return each.name == field; }) > 1)
        refuse(name_, "Its header has several fields " + std::string(field) +
                          ", of which readers take different ones.");
    const MimeField* found = find(field);
    return found == nullptr ? "" : found->value();
}

MimeValue::MimeValue(const std::string& value, const std::string& name) : name_(name) {
    const auto refuse_value = [&] { refuse(name, "A field Content-... of its header is malformed."); };
    Scanner scanner(value, name);
    scanner.skip_blanks();
    word_ = scanner.token();
    if (scanner.take_if('/'))
        word_ += "/" + scanner.token();
    word_ = lower_ascii(word_);
    if (word_.empty() || word_.ends_with('/') || word_.starts_with('/'))
        refuse_value();
    std::vector<Segment> segments;
    for (;;) {
        scanner.skip_blanks();
        if (scanner.is_at_end())
            break;
        if (!scanner.take_if(';'))
            refuse_value();
        scanner.skip_blanks();
        if (scanner.is_at_end() || scanner.next() == ';')
            continue;
        const std::string attribute = lower_ascii(scanner.token());
        scanner.skip_blanks();
        if (attribute.empty() || !scanner.take_if('='))
            refuse_value();
        scanner.skip_blanks();
        std::string text;
        if (scanner.take_if('"'))
            text = scanner.quoted();
        else // some programs do not quote what has to be quoted
            while (!scanner.is_at_end() && !is_blank(scanner.next()) &&
                   std::string_view(";\"()\\,").find(scanner.next()) == std::string_view::npos)
                text += scanner.take();
        if (segments.size() == kMostSegments)
            refuse_value();
        segments.emplace_back(attribute, std::move(text), name);
    }
    // Pieces may come in any order.
    std::stable_sort(segments.begin(), segments.end(),
                     [](const Segment& a, const Segment& b) { return a.index < b.index; });
    for (const Segment& each : segments) {
        const auto value_of = [&](const Segment& piece) {
            return piece.isEncoded ? percent_decoded(piece.value, piece.index == 0, name) : piece.value;
        };
        if (each.index > 0) {
            const bool hasFirst = std::any_of(segments.begin(), segments.end(), [&](const Segment& piece) {
                return piece.base == each.base && piece.isNumbered && piece.index == 0;
            });
            if (!hasFirst) // readers disagree whether it counts
                refuse_value();
            continue;
        }
        std::string joined = value_of(each);
        size_t next = 1;
        if (each.isNumbered)
            for (const Segment& piece : segments)
                if (piece.base == each.base && piece.isNumbered && piece.index > 0) {
                    if (piece.index != next++)
                        refuse_value();
                    joined += value_of(piece);
                }
        parameters_.emplace_back(each.base, joined);
    }
}

std::string MimeValue::parameter(std::string_view parameter) const {
    const std::string* found = nullptr;
    for (const auto& [name, value] : parameters_)
        if (name == parameter) {
            if (found != nullptr)
                refuse(name_, "Its header has the parameter " + std::string(parameter) +
                                  " twice; readers take different ones.");
            found = &value;
        }
    return found == nullptr ? "" : *found;
}

std::vector<std::string> mailboxes(const std::string& value, const std::string& name) {
    const auto refuse_address = [&] { refuse(name, "An address in its header is malformed."); };
    std::vector<std::string> addresses;
    Scanner scanner(value, name);
    for (;;) {
        std::string address;
        bool hasAngles = false, hasAt = false, hasBlank = false;
        bool hasBlankInside = false; // which only a name may have
        for (;;) {
            hasBlank = scanner.skip_blanks() || hasBlank;
            if (scanner.is_at_end() || scanner.next() == ',')
                break;
            if (hasAngles)
                refuse_address();
            const char c = scanner.take();
            if (c == '<') {
                if (hasAt) // a name that looks like an address
                    refuse_address();
                address = address_in_angles(scanner, name);
                hasAngles = true;
                hasBlankInside = false;
                continue;
            }
            if (std::string_view("\\>;:)").find(c) != std::string_view::npos)
                refuse_address();
            hasBlankInside = hasBlankInside || (hasBlank && !address.empty());
            hasBlank = false;
            hasAt = hasAt || c == '@';
            address += c == '"' ? '"' + scanner.quoted() + '"' : std::string(1, c);
        }
        if (hasBlankInside || !is_address(address))
            refuse_address();
        addresses.push_back(address);
        if (!scanner.take_if(','))
            return addresses;
        if (addresses.size() == kMostAddresses)
            refuse(name, "A field of its header has more than 100 addresses.");
    }
}

} // namespace tool
