#include <cstring>
#include <string>

#include "cert/names/domain_name.h"
#include "cert/names/ip_address.h"
#include "cert/names/name_match.h"
#include "cert/names/name_print.h"
#include "cert/names/punycode.h"
#include "cert/names/subject_names.h"
#include "encode/utf8.h"
#include "encode/utf8_scalar.h"
#include "frame/err.h"
#include "fuzz_support.h"
#include "zulcore.h"

// The input as a reference that a certificate is asked for: it is a host, an address, a mailbox or refused
// with a text. An address that is read is printed so that it reads as the same; a name in ASCII stays what it
// is, and matches itself. As a label and its Punycode: one is the other's.

using namespace zul;
using fuzz::require;

static void check_address(std::string_view text) {
    IpAddress address, again;
    if (!ip_from_text(address, text))
        return;
    require(address.size == 4 || address.size == 16);
    TextBuffer shown;
    put_ip_address(shown, {address.bytes, address.size});
    require(ip_from_text(again, shown.text()) && again.size == address.size &&
            memcmp(again.bytes, address.bytes, address.size) == 0);
}

static void check_domain(std::string_view text, DomainForm form) {
    SecretBuffer ascii, again;
    err_clear();
    if (domain_to_ascii(ascii, text, form) != 0) {
        require(*err_text() != '\0');
        return;
    }
    const std::string_view name(ascii.text(), ascii.size());
    require(!name.empty() && name.size() <= 253);
    require(domain_to_ascii(again, name, form) == 0 && name == std::string_view(again.text(), again.size()));
    if (form == DomainForm::name)
        require(host_name_matches(name, name));
}

static void check_label(std::string_view text) {
    char form[kMaxLabel];
    SecretBuffer label, other;
    if (const size_t length = punycode_encode(form, text)) {
        require(length <= kMaxLabel && punycode_decode(label, {form, length}));
        require(text == std::string_view(label.text(), label.size()));
    }
    if (punycode_decode(other, text)) {
        const std::string_view decoded(other.text(), other.size());
        std::string_view rest = decoded;
        for (char32_t character; !rest.empty();)
            require(utf8_next(rest, character));
        require(utf8_classify(reinterpret_cast<const uint8_t*>(text.data()), text.size()) ==
                    Utf8Class::ascii ||
                text.empty());
        // Forms of upper case and with a needless delimiter decode too.
        const size_t length = punycode_encode(form, decoded);
        require(length == 0 || (punycode_decode(label, {form, length}) &&
                                decoded == std::string_view(label.text(), label.size())));
    }
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    check_address(text);
    check_domain(text, DomainForm::name);
    check_domain(text, DomainForm::wildcard);
    check_label(text);
    SecretBuffer address;
    bool isWide = false;
    if (email_to_ascii(address, isWide, text) == 0)
        require(std::string_view(address.text(), address.size()).find('@') != std::string_view::npos);
    err_clear();
    ReferenceForm form;
    const int error = reference_form(text, form);
    require(error == 0 || (error == BAD_PARAM_ERROR && *err_text() != '\0'));

    const size_t half = size / 2;
    const DerView one(data, half), other(data + half, size - half), whole(data, size);
    require(names_match(one, one) && names_match(whole, whole));
    require(names_match(one, other) == (name_digest(one) == name_digest(other)));
    return 0;
}
