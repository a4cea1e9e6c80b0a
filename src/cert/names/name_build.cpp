#include "cert/names/name_build.h"

#include "asn1/asn_build.h"
#include "asn1/oid_dotted.h"
#include "cert/names/domain_name.h"
#include "cert/names/name_attribute.h"
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

[[nodiscard]] int bad(const char* why) {
    return err_fail(BAD_PARAM_ERROR, "%s", why);
}

const NameAttributeType* find_keyword(std::string_view keyword) {
    for (const NameAttributeType& row : kNameAttributes)
        if (same_word(keyword, row.keyword) || (row.second != nullptr && same_word(keyword, row.second)))
            return &row;
    return nullptr;
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

[[nodiscard]] int make_value(AsnList& list, SecretBuffer& value, const NameAttributeType& row) {
    uint32_t tag = kAsnUtf8String;
    const std::string_view text(value.text(), value.size());
    if (row.kind == NameValueKind::domain || row.kind == NameValueKind::address) {
        tag = kAsnIa5String;
        SecretBuffer ascii;
        bool isWide = false;
        if (row.kind == NameValueKind::domain && text.find('.') != std::string_view::npos)
            return bad("A domain component is one label");
        if (const int error = row.kind == NameValueKind::domain
                                  ? domain_to_ascii(ascii, text, DomainForm::name)
                                  : email_to_ascii(ascii, isWide, text))
            return error;
        if (isWide)
            return bad("The address is not ASCII before the @: email= takes such an address");
        value = std::move(ascii);
    } else if (row.kind != NameValueKind::directory) {
        tag = kAsnPrintableString;
        for (size_t i = 0; i < value.size(); i++) {
            const char upper = static_cast<char>(value[i] & ~0x20);
            const bool isLetter = upper >= 'A' && upper <= 'Z';
            if (row.kind == NameValueKind::country ? !isLetter || value.size() != 2
                                                   : !is_printable_character(text[i]))
                return bad(row.kind == NameValueKind::country ? "A country is two letters"
                                                              : "A character that a PrintableString lacks");
            if (row.kind == NameValueKind::country)
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
    const NameAttributeType* row = find_keyword(keyword);
    AsnList type = row != nullptr ? oid_node(row->oid) : oid_from_dotted(keyword);
    if (!type)
        return bad("Not an attribute's type");
    if (row == nullptr)
        row = &name_attribute_of({reinterpret_cast<const char*>(type.head()->data), type.head()->length});
    if (value.empty())
        return bad("An empty value");
    SecretBuffer bytes;
    if (const int error = value_bytes(bytes, value))
        return error;
    if (bytes.empty())
        return bad("An empty value");
    AsnList string;
    if (const int error = make_value(string, bytes, *row))
        return error;
    relativeName = asn_NewSet(asn_NewSequence(asn_Link(std::move(type), std::move(string))));
    return 0;
}

} // namespace zul
