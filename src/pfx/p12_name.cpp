#include "pfx/p12_name.h"

#include "asn1/asn_children.h"
#include "asn1/asn_element.h"
#include "asn1/asn_value.h"
#include "encode/hex.h"
#include "frame/slice.h"
#include "pfx/p12_scheme.h"
#include "pfx/p12_text.h"
#include "x509/names/name_attributes.h"

namespace zul {
namespace {

bool read_string(SecretBuffer& text, const asn_Node* value) {
    SecretBuffer bytes;
    if (value->cls != kAsnUniversal || !asn_GetPrimitiveData(value, bytes))
        return false;
    switch (value->tag) {
    case kAsnUtf8String:
        text = std::move(bytes);
        return true;
    case kAsnBmpString:
        utf8_from_utf16(text, bytes.data(), bytes.size());
        return true;
    case kAsnPrintableString:
    case kAsnIa5String:
    case kAsnTeletexString:
    case kAsnNumericString:
    case kAsnVisibleString:
        append_latin1(text, view_of(bytes));
        return true;
    default:
        return false;
    }
}

void put_value(SecretBuffer& out, std::string_view value) {
    const bool needsQuotes = value.find_first_of(";'\\") != std::string_view::npos ||
                             trimmed(value).size() != value.size() || value.starts_with('#');
    if (!needsQuotes)
        return append_text(out, value);
    append_text(out, "'");
    for (size_t i = 0; i < value.size(); i++) {
        if (value[i] == '\'' || value[i] == '\\')
            append_text(out, "\\");
        append_text(out, slice(value, i, 1));
    }
    append_text(out, "'");
}

void put_pair(SecretBuffer& out, const asn_Node* attribute) {
    AsnChildren children(attribute);
    const asn_Node* type = children.take_oid();
    const asn_Node* value = children.take();
    if (type == nullptr || value == nullptr)
        return;
    char keyword[kOidText];
    oid_text(type, keyword);
    std::string_view shown = keyword;
    for (const NameWord& word : kNameWords)
        if (shown == word.type)
            shown = word.keyword;
    append_text(out, out.empty() ? "" : ";");
    append_text(out, shown);
    append_text(out, "=");
    if (SecretBuffer text; read_string(text, value))
        return put_value(out, view_of(text));
    const SecretBuffer der = asn_EncodeElement(value);
    SecretBuffer digits(2 * der.size() + 1);
    hex_encode(digits.text(), digits.size(), der.data(), der.size());
    append_text(out, "#");
    append_text(out, digits.text());
}

} // namespace

void p12_name_text(SecretBuffer& out, const asn_Node* name) {
    for (AsnChildren sets(name); !sets.at_end();)
        for (AsnChildren attributes(sets.take()); !attributes.at_end();)
            put_pair(out, attributes.take());
}

} // namespace zul
