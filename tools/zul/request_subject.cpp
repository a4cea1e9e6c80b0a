#include <algorithm>
#include <cstdint>

#include "certificates.h"
#include "der.h"

// A request's name (RFC 2986, 4.1; X.520), so that names of UTF8String, as most programs make them, and
// values with a ";" come out of a certificate as they went in.
namespace tool {

namespace {

constexpr unsigned char kSequence = 0x30, kSet = 0x31;

struct AttributeRow {
    const char* keyword;
    std::string_view oid;
};
constexpr AttributeRow kAttributes[] = {
    {"CN", "\x55\x04\x03"},
    {"C", "\x55\x04\x06"},
    {"O", "\x55\x04\x0A"},
    {"OU", "\x55\x04\x0B"},
    {"L", "\x55\x04\x07"},
    {"ST", "\x55\x04\x08"},
    {"SN", "\x55\x04\x04"},
    {"G", "\x55\x04\x2A"},
    {"T", "\x55\x04\x0C"},
    {"E", "\x2A\x86\x48\x86\xF7\x0D\x01\x09\x01"},
    {"DC", "\x09\x92\x26\x89\x93\xF2\x2C\x64\x01\x19"},
};

void add_utf8(std::string& text, uint32_t c) {
    const auto add = [&text](uint32_t byte) { text += static_cast<char>(byte); };
    if (c < 0x80) {
        add(c);
        return;
    }
    if (c < 0x800) {
        add(0xC0 | c >> 6);
    } else {
        if (c < 0x10000) {
            add(0xE0 | c >> 12);
        } else {
            add(0xF0 | c >> 18);
            add(0x80 | (c >> 12 & 0x3F));
        }
        add(0x80 | (c >> 6 & 0x3F));
    }
    add(0x80 | (c & 0x3F));
}

// utf8_of converts characters of width bytes each; empty for an invalid text.
std::string utf8_of(std::string_view bytes, size_t width) {
    std::string text;
    if (bytes.size() % width != 0)
        return {};
    for (size_t at = 0; at < bytes.size(); at += width) {
        uint32_t c = 0;
        for (size_t i = 0; i < width; ++i)
            c = c << 8 | static_cast<unsigned char>(bytes[at + i]);
        if (c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF))
            return {};
        add_utf8(text, c);
    }
    return text;
}

// value_text gives a value as UTF-8; empty for a type that is no text.
std::string value_text(const DerPart& value) {
    switch (value.tag) {
    case 0x0C: { // UTF8String
        const std::string text(value.content);
        return CNV_CheckUTF8(text.c_str()) > 0 ? text : "";
    }
    case 0x12: // NumericString
    case 0x13: // PrintableString
    case 0x14: // T61String
    case 0x16: // IA5String
    case 0x1A: // VisibleString
        return utf8_of(value.content, 1);
    case 0x1E: // BMPString
        return utf8_of(value.content, 2);
    case 0x1C: // UniversalString
        return utf8_of(value.content, 4);
    default:
        return {};
    }
}

bool is_ascii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

constexpr unsigned char kInteger = 0x02, kOid = 0x06, kAttributeList = 0xA0;
// extensionRequest (RFC 2985, 5.4.2) and the one of Windows.
constexpr std::string_view kExtensionRequests[] = {"\x2A\x86\x48\x86\xF7\x0D\x01\x09\x0E",
                                                   "\x2B\x06\x01\x04\x01\x82\x37\x02\x01\x0E"};

bool is_extension_request(const DerPart& part) {
    return part.tag == kOid && std::find(std::begin(kExtensionRequests), std::end(kExtensionRequests),
                                         part.content) != std::end(kExtensionRequests);
}

} // namespace

// The places of the elements: certificationRequestInfo is the first at level 1, and at level 2 come version,
// name, key and attributes.
RequestParts::RequestParts(const SecretBytes& request, const std::string& name)
    : request_(request), name_(name) {
    constexpr unsigned char kTags[] = {kInteger, kSequence, kSequence, kAttributeList};
    size_t first = 0, second = 0; // how many there were at levels 1 and 2
    for (const DerPart& part : der_parts(request, name, 4)) {
        first += part.level == 1 ? 1 : 0;
        if (first != 1 || part.level < 2)
            continue;
        if (part.level == 2) {
            if (second == std::size(kTags) || part.tag != kTags[second])
                second = std::size(kTags) + 1;
            else
                second++;
        }
        if (second > std::size(kTags))
            break;
        if (part.level == 2 && second == 3)
            publicKey.assign(part.all.begin(), part.all.end());
        asksExtensions = asksExtensions || (second == 4 && part.level == 4 && is_extension_request(part));
    }
    if (second < 3 || second > std::size(kTags))
        throw Refused::by_system(BAD_FORMAT_ERROR, name, "It is no certification request.");
}

// In the name come sets, in them sequences, and in each a type and a value.
Name RequestParts::subject() const {
    std::string text;
    const auto refuse = [this](const std::string& what) {
        throw Refused::by_system(NOT_SUPPORTED_ERROR, name_,
                                 "Its name has " + what + "; say with --subject what the name shall be.");
    };
    size_t seen[6] = {};
    const DerPart* type = nullptr;
    const std::vector<DerPart> parts = der_parts(request_, name_, 5);
    for (const DerPart& part : parts) {
        seen[part.level]++;
        std::fill(seen + part.level + 1, std::end(seen), size_t{0});
        if (seen[1] > 1 || seen[2] > 2)
            break;
        if (seen[2] != 2 || part.level < 3)
            continue;
        if ((part.level == 3 && part.tag != kSet) || (part.level == 4 && part.tag != kSequence))
            refuse("a damaged part");
        if (part.level == 4 && seen[4] > 1)
            refuse("several attributes in one part");
        if (part.level == 5 && seen[5] == 1)
            type = &part;
        if (part.level != 5 || seen[5] != 2)
            continue;
        const auto* row = std::find_if(std::begin(kAttributes), std::end(kAttributes),
                                       [type](const auto& each) { return each.oid == type->content; });
        if (row == std::end(kAttributes))
            refuse("an attribute without a keyword");
        const std::string value = value_text(part);
        if (value.empty() || value.find('\0') != value.npos)
            refuse("a value that is no text");
        text += (text.empty() ? "" : ";") + std::string(row->keyword) + "=" + quote_value(value);
    }
    if (text.empty())
        refuse("no attributes");
    return {text, is_ascii(text)};
}

void RequestArgument::warn_of_extensions(const std::vector<std::string>& copies) const {
    if (parts_.asksExtensions && copies.empty())
        warn(name() + " asks for extensions, which are not taken over: --copy names those that shall be");
}

} // namespace tool
