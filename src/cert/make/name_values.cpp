#include "cert/make/name_values.h"

#include <cstring>

#include "asn1/asn_build.h"
#include "asn1/asn_element.h"
#include "asn1/asn_parse.h"
#include "asn1/oid_dotted.h"
#include "cert/make/description.h"
#include "cert/names/domain_name.h"
#include "cert/names/ip_address.h"
#include "cert/names/name_build.h"
#include "encode/hex.h"
#include "encode/utf8_scalar.h"
#include "frame/err.h"
#include "frame/slice.h"
#include "x509/names/pair_reader.h"
#include "zulcore.h"

namespace zul {
namespace {

// Context tags of GeneralName.
enum NameTag : uint32_t {
    kOtherName = 0,
    kRfc822Name = 1,
    kDnsName = 2,
    kDirectoryName = 4,
    kUri = 6,
    kIpAddress = 7,
    kRegisteredId = 8
};
constexpr char kSmtpUtf8Mailbox[] = "1.3.6.1.5.5.7.8.9", kPrincipalName[] = "1.3.6.1.4.1.311.20.2.3";

constexpr struct {
    const char* keyword;
    GeneralForm form;
} kForms[] = {
    {"dns", GeneralForm::dns},          {"ip", GeneralForm::ip},
    {"email", GeneralForm::email},      {"uri", GeneralForm::uri},
    {"rid", GeneralForm::registeredId}, {"dirName", GeneralForm::directory},
    {"dir", GeneralForm::directory},    {"other", GeneralForm::other},
    {"upn", GeneralForm::principal},
};

[[nodiscard]] int bad(const char* why) {
    return err_fail(BAD_PARAM_ERROR, "%s", why);
}

AsnList tagged(NameTag tag, std::string_view content) {
    return asn_NewContextPrim(tag, content.data(), content.size());
}

AsnList tagged(NameTag tag, const SecretBuffer& content) {
    return asn_NewContextPrim(tag, content.data(), content.size());
}

AsnList other_name(AsnList type, AsnList value) {
    return asn_NewExplicit(kOtherName, asn_Link(std::move(type), asn_NewExplicit(0, std::move(value))));
}

[[nodiscard]] int check_utf8(std::string_view text) {
    if (text.empty())
        return bad("An empty value");
    while (!text.empty()) {
        char32_t c = 0;
        if (!utf8_next(text, c) || c < 0x20 || (c >= 0x7F && c < 0xA0))
            return bad("Not valid UTF-8, or a control character");
    }
    return 0;
}

[[nodiscard]] int directory_name(AsnList& name, std::string_view text) {
    SecretBuffer copy;
    copy.append(text.data(), text.size());
    AsnList content;
    const int error = distinguished_name_make(content, copy.text());
    name = asn_NewExplicit(kDirectoryName, std::move(content));
    return error;
}

[[nodiscard]] int email_name(AsnList& name, std::string_view text) {
    SecretBuffer address;
    bool isWide = false;
    if (const int error = email_to_ascii(address, isWide, text))
        return error;
    name = isWide ? other_name(oid_from_dotted(kSmtpUtf8Mailbox),
                               asn_NewString(kAsnUtf8String, address.data(), address.size()))
                  : tagged(kRfc822Name, address);
    return 0;
}

[[nodiscard]] int any_other_name(AsnList& name, std::string_view text) {
    constexpr std::string_view kUtf8 = "utf8:";
    const size_t colon = text.find(':');
    AsnList type = oid_from_dotted(slice(text, 0, colon));
    if (!type || colon == std::string_view::npos)
        return bad("Another name is OID:utf8:TEXT or OID:HEX");
    const std::string_view value = slice(text, colon + 1);
    AsnList content;
    if (value.starts_with(kUtf8)) {
        const std::string_view string = slice(value, kUtf8.size());
        if (const int error = check_utf8(string))
            return error;
        content = asn_NewString(kAsnUtf8String, string.data(), string.size());
    } else if (const int error = der_element_from_hex(content, value)) {
        return error;
    }
    name = other_name(std::move(type), std::move(content));
    return 0;
}

[[nodiscard]] int ip_constraint(AsnList& base, std::string_view text) {
    const size_t slash = text.find('/');
    IpAddress address, mask;
    if (slash == std::string_view::npos || !ip_from_text(address, slice(text, 0, slash)))
        return bad("A range of addresses is ADDRESS/BITS or ADDRESS/MASK");
    const std::string_view length = slice(text, slash + 1);
    if (length.size() <= 3 && !length.empty() &&
        length.find_first_not_of("0123456789") == std::string_view::npos) {
        unsigned bits = 0;
        for (const char c : length)
            bits = bits * 10 + static_cast<unsigned>(c - '0');
        if (bits > 8 * address.size)
            return bad("The prefix is longer than the address");
        mask.size = address.size;
        ip_mask(mask.bytes, mask.size, bits);
    } else if (!ip_from_text(mask, length) || mask.size != address.size) {
        return bad("A range of addresses is ADDRESS/BITS or ADDRESS/MASK");
    }
    uint8_t both[2 * sizeof address.bytes];
    bool hasEnded = false; // the ones of a mask stand in front (RFC 4632)
    for (size_t i = 0; i < address.size; i++) {
        if ((address.bytes[i] & ~mask.bytes[i]) != 0)
            return bad("The address has bits behind the prefix");
        const auto zeros = static_cast<uint8_t>(~mask.bytes[i]);
        if ((zeros & (zeros + 1)) != 0 || (hasEnded && mask.bytes[i] != 0))
            return bad("The mask is no prefix");
        hasEnded = mask.bytes[i] != 0xFF;
    }
    memcpy(both, address.bytes, address.size);
    memcpy(both + address.size, mask.bytes, address.size);
    base = asn_NewContextPrim(kIpAddress, both, 2 * address.size);
    return 0;
}

// host_constraint takes a host, or a domain with "." in front, which is below it alone.
[[nodiscard]] int host_constraint(AsnList& base, NameTag tag, std::string_view text) {
    SecretBuffer ascii, whole;
    const bool isDomain = text.starts_with('.');
    if (const int error = domain_to_ascii(ascii, slice(text, isDomain), DomainForm::name))
        return error;
    whole.append(".", isDomain);
    whole.append(ascii.data(), ascii.size());
    base = tagged(tag, whole);
    return 0;
}

[[nodiscard]] int email_constraint(AsnList& base, std::string_view text) {
    if (text.find('@') == std::string_view::npos)
        return host_constraint(base, kRfc822Name, text);
    SecretBuffer address;
    bool isWide = false;
    if (const int error = email_to_ascii(address, isWide, text))
        return error;
    base = tagged(kRfc822Name, address);
    return isWide ? bad("An address in a constraint is ASCII before the @") : 0;
}

[[nodiscard]] int dns_constraint(AsnList& base, std::string_view text, bool excludesAll) {
    if (text.empty() && excludesAll) {
        base = tagged(kDnsName, text);
        return 0;
    }
    if (text.starts_with('.'))
        return bad(
            "A constraint of host names holds for all names below the domain: write it without the dot");
    SecretBuffer ascii;
    if (const int error = domain_to_ascii(ascii, text, DomainForm::name))
        return error;
    base = tagged(kDnsName, ascii);
    return 0;
}

// split takes the form off a text "FORM:TEXT"; false if it has none that is known.
bool split(std::string_view& text, GeneralForm& form) {
    const size_t colon = text.find(':');
    if (colon == std::string_view::npos)
        return false;
    for (const auto& row : kForms) {
        if (same_word(slice(text, 0, colon), row.keyword)) {
            text.remove_prefix(colon + 1);
            form = row.form;
            return true;
        }
    }
    return false;
}

} // namespace

int der_element_from_hex(AsnList& element, std::string_view text) {
    SecretBuffer bytes(text.size() / 2 + 1);
    size_t size = 0, offset = 0, whole = 0;
    if (!hex_decode_strict(bytes.data(), &size, text.data(), text.size()) || size == 0)
        return bad("Not pairs of hex digits");
    const bool isOne =
        asn_FindElement(&offset, &whole, bytes.data(), size, -1, 1, 0) != 0 && offset == 0 && whole == size;
    if (isOne)
        element = asn_ParseAll(bytes.data(), size);
    return isOne && element && asn_IsDer(element.head()) ? 0 : bad("Not the DER of one element");
}

int relative_names_make(AsnList& names, const char* text) {
    DescriptionReader reader(text, nullptr, 0);
    while (const DescriptionItem* item = reader.next()) {
        AsnList relativeName;
        if (const int error = name_is_attribute(item->keyword)
                                  ? name_attribute_make(relativeName, item->keyword, item->value)
                                  : reader.unknown())
            return reader.fail(error);
        names = asn_Link(std::move(names), std::move(relativeName));
    }
    if (reader.error() != 0)
        return reader.error();
    return names ? 0 : bad("A name without attributes");
}

int distinguished_name_make(AsnList& name, const char* text) {
    AsnList names;
    const int error = relative_names_make(names, text);
    name = asn_NewSequence(std::move(names));
    return error;
}

int general_name_make(AsnList& name, GeneralForm form, std::string_view text) {
    SecretBuffer ascii;
    IpAddress address;
    switch (form) {
    case GeneralForm::dns:
        if (const int error = domain_to_ascii(ascii, text, DomainForm::wildcard))
            return error;
        name = tagged(kDnsName, ascii);
        return 0;
    case GeneralForm::ip:
        if (!ip_from_text(address, text))
            return bad("Not an IP address");
        name = asn_NewContextPrim(kIpAddress, address.bytes, address.size);
        return 0;
    case GeneralForm::email:
        return email_name(name, text);
    case GeneralForm::uri:
        name = tagged(kUri, text);
        return uri_check(text);
    case GeneralForm::registeredId: {
        const AsnList identifier = oid_from_dotted(text);
        if (!identifier)
            return bad("Not a dotted object identifier");
        name = asn_NewContextPrim(kRegisteredId, identifier.head()->data, identifier.head()->length);
        return 0;
    }
    case GeneralForm::directory:
        return directory_name(name, text);
    case GeneralForm::other:
        return any_other_name(name, text);
    case GeneralForm::principal:
        break;
    }
    name =
        other_name(oid_from_dotted(kPrincipalName), asn_NewString(kAsnUtf8String, text.data(), text.size()));
    return check_utf8(text);
}

int general_name_read(AsnList& name, std::string_view text) {
    GeneralForm form = GeneralForm::uri;
    split(text, form);
    return general_name_make(name, form, text);
}

int name_constraint_make(AsnList& base, std::string_view text, bool excludesAll) {
    GeneralForm form = GeneralForm::other;
    if (!split(text, form))
        return bad("A constraint is FORM:TEXT, with dns, ip, email, uri or dir as its form");
    switch (form) {
    case GeneralForm::dns:
        return dns_constraint(base, text, excludesAll);
    case GeneralForm::ip:
        return ip_constraint(base, text);
    case GeneralForm::email:
        return email_constraint(base, text);
    case GeneralForm::uri:
        return host_constraint(base, kUri, text);
    case GeneralForm::directory:
        return directory_name(base, text);
    default:
        return bad("A constraint is FORM:TEXT, with dns, ip, email, uri or dir as its form");
    }
}

} // namespace zul
