#include "cert/names/name_build.h"

#include <cstring>

#include "asn1/asn_build.h"
#include "asn1/oid_dotted.h"
#include "cert/names/domain_name.h"
#include "encode/hex.h"
#include "encode/utf8_scalar.h"
#include "frame/err.h"
#include "frame/memory.h"
#include "frame/slice.h"
#include "key/key_oids.h"
#include "x509/names/pair_reader.h"
#include "zulcore.h"

namespace zul {
namespace {

enum class ValueKind { directory, printable, country, domain, address };

// most is the upper bound in characters: RFC 5280, A.1 and X.520.
struct AttributeRow {
    const char *keyword, *second;
    std::string_view oid;
    ValueKind kind;
    size_t most;
};
constexpr size_t kMostName = 32768;
constexpr AttributeRow kAttributes[] = {
    {"CN", "commonName", "\x55\x04\x03"sv, ValueKind::directory, 64},
    {"C", "countryName", "\x55\x04\x06"sv, ValueKind::country, 2},
    {"O", "organizationName", "\x55\x04\x0A"sv, ValueKind::directory, 64},
    {"OU", "organizationalUnitName", "\x55\x04\x0B"sv, ValueKind::directory, 64},
    {"L", "localityName", "\x55\x04\x07"sv, ValueKind::directory, 128},
    {"ST", "stateOrProvinceName", "\x55\x04\x08"sv, ValueKind::directory, 128},
    {"S", nullptr, "\x55\x04\x08"sv, ValueKind::directory, 128},
    {"STREET", "streetAddress", "\x55\x04\x09"sv, ValueKind::directory, 128},
    {"POSTALCODE", nullptr, "\x55\x04\x11"sv, ValueKind::directory, 40},
    {"E", "emailAddress", "\x2A\x86\x48\x86\xF7\x0D\x01\x09\x01"sv, ValueKind::address, 255},
    {"SN", "surname", "\x55\x04\x04"sv, ValueKind::directory, kMostName},
    {"G", "givenName", "\x55\x04\x2A"sv, ValueKind::directory, kMostName},
    {"INITIALS", nullptr, "\x55\x04\x2B"sv, ValueKind::directory, kMostName},
    {"GENERATIONQUALIFIER", nullptr, "\x55\x04\x2C"sv, ValueKind::directory, kMostName},
    {"T", "title", "\x55\x04\x0C"sv, ValueKind::directory, 64},
    {"DC", "domainComponent", "\x09\x92\x26\x89\x93\xF2\x2C\x64\x01\x19"sv, ValueKind::domain, 63},
    {"UID", "userId", "\x09\x92\x26\x89\x93\xF2\x2C\x64\x01\x01"sv, ValueKind::directory, 256},
    {"SERIALNUMBER", nullptr, "\x55\x04\x05"sv, ValueKind::printable, 64},
    {"DNQUALIFIER", nullptr, "\x55\x04\x2E"sv, ValueKind::printable, 64},
    {"ORGANIZATIONIDENTIFIER", nullptr, "\x55\x04\x61"sv, ValueKind::directory, kMostName},
    {"BUSINESSCATEGORY", nullptr, "\x55\x04\x0F"sv, ValueKind::directory, 128},
    {"PSEUDONYM", nullptr, "\x55\x04\x41"sv, ValueKind::directory, 128},
};

[[nodiscard]] int bad(const char* why) {
    return err_fail(BAD_PARAM_ERROR, "%s", why);
}

const AttributeRow* find_keyword(std::string_view keyword) {
    for (const AttributeRow& row : kAttributes)
        if (same_word(keyword, row.keyword) || (row.second != nullptr && same_word(keyword, row.second)))
            return &row;
    return nullptr;
}

const AttributeRow* find_type(const asn_Node* type) {
    for (const AttributeRow& row : kAttributes)
        if (oid_is(type, row.oid))
            return &row;
    return nullptr;
}

bool is_printable(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') ||
           (c != '\0' && strchr(" '()+,-./:=?", c) != nullptr);
}

[[nodiscard]] int check_text(std::string_view text, size_t most) {
    size_t count = 0;
    while (!text.empty()) {
        char32_t c = 0;
        if (!utf8_next(text, c))
            return bad("Not valid UTF-8");
        if (c < 0x20 || (c >= 0x7F && c < 0xA0))
            return bad("A control character");
        count++;
    }
    return count <= most ? 0 : err_fail(BAD_PARAM_ERROR, "Longer than %d characters", static_cast<int>(most));
}

// value_bytes undoes the forms in hex.
[[nodiscard]] int value_bytes(SecretBuffer& bytes, std::string_view value) {
    constexpr std::string_view kHex = "#x";
    if (!value.starts_with(kHex)) {
        const std::string_view text = slice(value, value.starts_with("##x"));
        bytes.append(text.data(), text.size());
        return 0;
    }
    value.remove_prefix(kHex.size());
    bytes = SecretBuffer(value.size() / 2 + 1);
    size_t size = 0;
    if (!hex_decode_strict(bytes.data(), &size, value.data(), value.size()))
        return bad("Not pairs of hex digits");
    bytes.shrink(size);
    return 0;
}

[[nodiscard]] int make_value(AsnList& list, SecretBuffer& value, const AttributeRow& row) {
    uint32_t tag = kAsnUtf8String;
    const std::string_view text(value.text(), value.size());
    if (row.kind == ValueKind::domain || row.kind == ValueKind::address) {
        tag = kAsnIa5String;
        SecretBuffer ascii;
        bool isWide = false;
        if (row.kind == ValueKind::domain && text.find('.') != std::string_view::npos)
            return bad("A domain component is one label");
        if (const int error = row.kind == ValueKind::domain ? domain_to_ascii(ascii, text, DomainForm::name)
                                                            : email_to_ascii(ascii, isWide, text))
            return error;
        if (isWide)
            return bad("The address is not ASCII before the @: email= takes such an address");
        value = std::move(ascii);
    } else if (row.kind != ValueKind::directory) {
        tag = kAsnPrintableString;
        for (size_t i = 0; i < value.size(); i++) {
            const char upper = static_cast<char>(value[i] & ~0x20);
            const bool isLetter = upper >= 'A' && upper <= 'Z';
            if (row.kind == ValueKind::country ? !isLetter || value.size() != 2 : !is_printable(text[i]))
                return bad(row.kind == ValueKind::country ? "A country is two letters"
                                                          : "A character that a PrintableString lacks");
            if (row.kind == ValueKind::country)
                value[i] = static_cast<uint8_t>(upper);
        }
    }
    if (const int error = check_text({value.text(), value.size()}, row.most))
        return error;
    list = asn_NewString(tag, value.data(), value.size());
    return 0;
}

} // namespace

bool name_is_attribute(std::string_view keyword) {
    return find_keyword(keyword) != nullptr || oid_is_dotted(keyword);
}

int name_attribute_make(AsnList& relativeName, std::string_view keyword, std::string_view value) {
    const AttributeRow* row = find_keyword(keyword);
    AsnList type = row != nullptr ? oid_node(row->oid) : oid_from_dotted(keyword);
    if (!type)
        return bad("Not an attribute's type");
    if (row == nullptr)
        row = find_type(type.head());
    constexpr AttributeRow kOther{nullptr, nullptr, {}, ValueKind::directory, kMostName};
    if (value.empty())
        return bad("An empty value");
    SecretBuffer bytes;
    if (const int error = value_bytes(bytes, value))
        return error;
    AsnList string;
    if (const int error = make_value(string, bytes, row != nullptr ? *row : kOther))
        return error;
    relativeName = asn_NewSet(asn_NewSequence(asn_Link(std::move(type), std::move(string))));
    return 0;
}

} // namespace zul
