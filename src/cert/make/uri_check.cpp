// RFC 3986; RFC 5280, 4.2.1.6 for the host.
#include <cstring>

#include "cert/make/name_values.h"
#include "cert/names/domain_name.h"
#include "cert/names/ip_address.h"
#include "frame/err.h"
#include "frame/slice.h"
#include "x509/names/pair_reader.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr char kBadPort[] = "The URI's port is no number",
               kStrayBracket[] = "A bracket outside the URI's host";

[[nodiscard]] int bad(const char* why) {
    return err_fail(BAD_PARAM_ERROR, "%s", why);
}

bool is_letter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

bool is_hex(char c) {
    const char lower = static_cast<char>(c | 0x20);
    return is_digit(c) || (lower >= 'a' && lower <= 'f');
}

bool has_uri_characters(std::string_view text) {
    for (size_t i = 0; i < text.size(); i++) {
        if (text[i] == '%') {
            if (i + 2 >= text.size() || !is_hex(text[i + 1]) || !is_hex(text[i + 2]))
                return false;
        } else if (!is_letter(text[i]) && !is_digit(text[i]) &&
                   (text[i] == '\0' || strchr("-._~:/?#[]@!$&'()*+,;=", text[i]) == nullptr)) {
            return false;
        }
    }
    return true;
}

// A port may be empty (RFC 3986, 3.2.3).
bool is_number(std::string_view port) {
    return port.find_first_not_of("0123456789") == std::string_view::npos;
}

[[nodiscard]] int check_host(std::string_view authority) {
    if (const size_t at = authority.find('@'); at != std::string_view::npos) {
        if (slice(authority, 0, at).find_first_of("[]") != std::string_view::npos)
            return bad(kStrayBracket);
        authority = slice(authority, at + 1);
    }
    IpAddress address;
    if (authority.starts_with('[')) {
        const size_t end = authority.find(']');
        const bool isAddress = end != std::string_view::npos &&
                               ip_from_text(address, slice(authority, 1, end - 1)) && address.size == 16;
        if (!isAddress)
            return bad("The URI's host is no IPv6 address");
        const std::string_view port = slice(authority, end + 1);
        return port.empty() || (port[0] == ':' && is_number(slice(port, 1))) ? 0 : bad(kBadPort);
    }
    const size_t colon = authority.find(':');
    const std::string_view port = colon == std::string_view::npos ? "" : slice(authority, colon + 1);
    if (!is_number(port))
        return bad(kBadPort);
    const std::string_view host = slice(authority, 0, colon);
    SecretBuffer ascii;
    return ip_from_text(address, host) ? 0 : domain_to_ascii(ascii, host, DomainForm::name);
}

} // namespace

int uri_check(std::string_view text) {
    const size_t colon = text.find(':');
    const std::string_view scheme = slice(text, 0, colon);
    bool isScheme = colon != std::string_view::npos && !scheme.empty() && is_letter(scheme[0]);
    for (const char c : scheme)
        isScheme = isScheme && (is_letter(c) || is_digit(c) || c == '+' || c == '-' || c == '.');
    std::string_view rest = slice(text, colon + 1);
    if (!isScheme || rest.empty())
        return bad("Not an absolute URI");
    if (!has_uri_characters(text))
        return bad("A character that a URI has to write as % and two hex digits");
    const bool hasAuthority = rest.starts_with("//");
    rest.remove_prefix(hasAuthority ? 2 : 0);
    const std::string_view authority = slice(rest, 0, hasAuthority ? rest.find_first_of("/?#") : 0);
    rest.remove_prefix(authority.size());
    if (rest.find_first_of("[]") != std::string_view::npos)
        return bad(kStrayBracket);
    if (rest.find('#') != rest.rfind('#'))
        return bad("A second # in the URI");
    if (!hasAuthority)
        return 0;
    // Directories of the caller's own domain have no host in their URIs.
    const bool mayLackHost =
        same_word(scheme, "ldap") || same_word(scheme, "ldaps") || same_word(scheme, "file");
    return authority.empty() && mayLackHost ? 0 : check_host(authority);
}

} // namespace zul
