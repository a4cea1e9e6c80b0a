#include "cert/path/constrained_text.h"

#include <algorithm>

#include "cert/names/ip_address.h"
#include "frame/slice.h"
#include "x509/names/pair_reader.h"

namespace zul {

namespace {

bool ends_with(std::string_view text, std::string_view end) {
    return text.size() >= end.size() && same_word(slice(text, text.size() - end.size()), end);
}

// A dot at the end makes a name absolute, and no other.
std::string_view without_last_dot(std::string_view name) {
    return name.ends_with('.') ? slice(name, 0, name.size() - 1) : name;
}

std::string_view behind_first_label(std::string_view name) {
    const size_t dot = name.find('.');
    return dot == std::string_view::npos ? std::string_view() : slice(name, dot + 1);
}

bool is_visible(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c > ' ' && c < 0x7F; });
}

} // namespace

std::string_view host_of_uri(std::string_view uri) {
    const size_t colon = uri.find(':');
    const std::string_view rest =
        colon == std::string_view::npos ? std::string_view() : slice(uri, colon + 1);
    if (!rest.starts_with("//"))
        return {};
    std::string_view authority = slice(rest, 2);
    authority = slice(authority, 0, authority.find_first_of("/?#"));
    const size_t at = authority.rfind('@');
    if (at != std::string_view::npos)
        authority = slice(authority, at + 1);
    const std::string_view host = slice(authority, 0, authority.find(':'));
    IpAddress address;
    return host.starts_with('[') || ip_from_text(address, host) ? std::string_view() : host;
}

bool dns_is_within(std::string_view name, std::string_view base, bool overlaps) {
    name = without_last_dot(name);
    base = without_last_dot(base);
    if (base.empty())
        return true;
    if (overlaps && name.starts_with("*.")) {
        const std::string_view below = slice(name, 2);
        const std::string_view plain = base.starts_with('.') ? slice(base, 1) : base;
        if (same_word(behind_first_label(plain), below) || same_word(plain, below))
            return true;
    }
    if (base.starts_with('.'))
        return name.size() > base.size() && ends_with(name, base);
    return ends_with(name, base) &&
           (name.size() == base.size() || name[name.size() - base.size() - 1] == '.');
}

bool host_is_within(std::string_view host, std::string_view base) {
    host = without_last_dot(host);
    base = without_last_dot(base);
    if (base.starts_with('.'))
        return host.size() > base.size() && ends_with(host, base);
    return base.empty() || same_word(host, base);
}

bool mailbox_is_within(std::string_view mailbox, std::string_view base, bool anyCase) {
    const size_t at = mailbox.rfind('@'), baseAt = base.rfind('@');
    const std::string_view host = slice(mailbox, at + 1);
    if (baseAt == std::string_view::npos)
        return host_is_within(host, base);
    const std::string_view local = slice(mailbox, 0, at), baseLocal = slice(base, 0, baseAt);
    return (anyCase ? same_word(local, baseLocal) : local == baseLocal) &&
           same_word(without_last_dot(host), without_last_dot(slice(base, baseAt + 1)));
}

bool is_comparable_host(std::string_view host) {
    host = without_last_dot(host);
    return !host.empty() && is_visible(host) && !host.starts_with('.') &&
           host.find("..") == std::string_view::npos;
}

bool is_comparable_base(std::string_view base) {
    return base.empty() || is_comparable_host(base.starts_with('.') ? slice(base, 1) : base);
}

bool is_comparable_mailbox(std::string_view mailbox) {
    const size_t at = mailbox.rfind('@');
    return at != std::string_view::npos && at > 0 && is_comparable_host(slice(mailbox, at + 1));
}

} // namespace zul
