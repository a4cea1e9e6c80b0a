#include "cert/names/subject_names.h"

#include "cert/fields/cert_oids.h"
#include "cert/names/domain_name.h"
#include "cert/names/ip_address.h"
#include "cert/names/name_print.h"
#include "cert/names/string_value.h"
#include "frame/err.h"
#include "frame/slice.h"
#include "frame/text.h"
#include "x509/names/pair_reader.h"
#include "zulcore.h"

namespace zul {

namespace {

constexpr size_t kNone = std::string_view::npos;
constexpr size_t kMaxLabel = 63, kMaxHost = 253;

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
}

bool is_label(std::string_view label) {
    if (label.empty() || label.size() > kMaxLabel || label.front() == '-' || label.back() == '-')
        return false;
    for (const char c : label)
        if ((lower(c) < 'a' || lower(c) > 'z') && (c < '0' || c > '9') && c != '-')
            return false;
    return true;
}

// is_host tells whether a name is made of labels; labels gives their number.
bool is_host(std::string_view name, size_t& labels) {
    labels = 1;
    if (name.size() > kMaxHost)
        return false;
    for (size_t dot; (dot = name.find('.')) != kNone; labels++) {
        if (!is_label(slice(name, 0, dot)))
            return false;
        name.remove_prefix(dot + 1);
    }
    return is_label(name);
}

bool is_ascii(std::string_view text) {
    for (const char c : text)
        if (static_cast<unsigned char>(c) >= 0x80)
            return false;
    return true;
}

struct Reference {
    ReferenceForm form = ReferenceForm::host;
    SecretBuffer text; // of a host or an e-mail address, with an ASCII domain
    bool isWide = false;
    IpAddress address;

    std::string_view view() const { return {text.text(), text.size()}; }
};

[[nodiscard]] int bad_reference(const char* why) {
    return err_fail(BAD_PARAM_ERROR, "Not the name of a host, an IP address or an e-mail address: %s", why);
}

[[nodiscard]] int read_host(Reference& reference, std::string_view text) {
    if (text.ends_with('.'))
        text.remove_suffix(1);
    if (!is_ascii(text))
        return domain_to_ascii(reference.text, text, DomainForm::name);
    // A-labels are taken as they are: whether they are good ones is for those who register them to say.
    size_t labels;
    if (!is_host(text, labels))
        return bad_reference("labels of 1 to 63 letters, digits and hyphens are needed");
    if (slice(text, text.rfind('.') + 1).find_first_not_of("0123456789") == kNone)
        return bad_reference("the last label is a number");
    for (const char c : text) {
        const char small = lower(c);
        reference.text.append(&small, 1);
    }
    return 0;
}

[[nodiscard]] int read_reference(Reference& reference, std::string_view text) {
    if (text.find('@') != kNone) {
        reference.form = ReferenceForm::email;
        return email_to_ascii(reference.text, reference.isWide, text);
    }
    const bool isBracketed = text.size() > 2 && text.front() == '[' && text.back() == ']';
    if (isBracketed)
        text = slice(text, 1, text.size() - 2);
    if (text.find(':') != kNone || (!isBracketed && ip_from_text(reference.address, text))) {
        reference.form = ReferenceForm::address;
        return ip_from_text(reference.address, text) ? 0 : bad_reference("a malformed IPv6 address");
    }
    return isBracketed ? bad_reference("brackets are for IPv6 addresses") : read_host(reference, text);
}

bool email_matches(std::string_view presented, std::string_view email) {
    const size_t at = presented.rfind('@'), ours = email.rfind('@');
    return at == ours && at != kNone && slice(presented, 0, at) == slice(email, 0, at) &&
           same_word(slice(presented, at), slice(email, at));
}

// mailbox_of gives the UTF8String of an SmtpUTF8Mailbox: false for another form.
bool mailbox_of(const GeneralNameView& name, std::string_view& mailbox) {
    DerReader fields(name.value);
    DerView type, wrapped, text;
    if (name.type != GeneralNameType::otherName || !fields.take(kDerOid, type) ||
        type.text() != kOidSmtpUtf8Mailbox || !fields.take(der_explicit(0), wrapped) ||
        !der_single(wrapped, kDerUtf8String, text))
        return false;
    mailbox = text.text();
    return true;
}

bool name_matches(const GeneralNameView& name, const Reference& reference) {
    std::string_view mailbox;
    switch (reference.form) {
    case ReferenceForm::host:
        return name.type == GeneralNameType::dNSName &&
               host_name_matches(name.value.text(), reference.view());
    case ReferenceForm::address:
        return name.type == GeneralNameType::iPAddress &&
               name.value == DerView(reference.address.bytes, reference.address.size);
    case ReferenceForm::email:
        if (reference.isWide)
            return mailbox_of(name, mailbox) && email_matches(mailbox, reference.view());
        return name.type == GeneralNameType::rfc822Name && email_matches(name.value.text(), reference.view());
    }
    return false;
}

// precludes_subject tells whether a name of subjectAltName says that the subject's names do not count.
bool precludes_subject(const GeneralNameView& name, ReferenceForm form) {
    std::string_view mailbox;
    if (form == ReferenceForm::email)
        return name.type == GeneralNameType::rfc822Name || mailbox_of(name, mailbox);
    return name.type == GeneralNameType::dNSName || name.type == GeneralNameType::iPAddress ||
           name.type == GeneralNameType::uniformResourceIdentifier;
}

// is_plain_text tells whether the value of an attribute is ASCII in a type of string that names stand in.
bool is_plain_text(const DerElement& value) {
    const uint8_t type = value.identifier;
    return (type == kDerPrintableString || type == kDerIa5String || type == kDerUtf8String ||
            type == kDerTeletexString) &&
           is_ascii(value.content.text());
}

// last_common_name is false too if the last one is no plain text.
bool last_common_name(DerView subject, DerView& host) {
    NameReader reader = NameReader::of_name(subject);
    NameAttribute attribute;
    bool isFound = false;
    while (reader.next(attribute)) {
        if (attribute.type.text() != kOidCommonName)
            continue;
        isFound = is_plain_text(attribute.value);
        host = attribute.value.content;
    }
    return isFound && reader.is_good();
}

bool subject_has_email(DerView subject, std::string_view email) {
    NameReader reader = NameReader::of_name(subject);
    NameAttribute attribute;
    bool matches = false;
    while (reader.next(attribute))
        matches = matches || (attribute.type.text() == kOidEmailAddress && is_plain_text(attribute.value) &&
                              email_matches(attribute.value.content.text(), email));
    return matches && reader.is_good();
}

bool subject_matches(DerView subject, const Reference& reference) {
    DerView host;
    if (reference.form == ReferenceForm::host)
        return last_common_name(subject, host) && host_name_matches(host.text(), reference.view());
    return reference.form == ReferenceForm::email && !reference.isWide &&
           subject_has_email(subject, reference.view());
}

// put_names lists the names that the certificate has, as many as an error text has room for.
void put_names(TextBuffer& list, DerView names) {
    constexpr size_t kMaxList = 300, kMaxNames = 20;
    GeneralNameReader reader(names);
    GeneralNameView name;
    for (size_t i = 0; reader.next(name); i++) {
        const size_t before = list.size();
        if (i > 0)
            list.put(", ");
        TextBuffer one;
        if (name.value.size <= kMaxList)
            put_general_name(one, name);
        list.put(one.text());
        if (list.size() > kMaxList || name.value.size > kMaxList || i == kMaxNames) {
            list.shrink(before);
            list.put(before > 0 ? ", ..." : "...");
            return;
        }
    }
}

[[nodiscard]] int no_match(std::string_view text, DerView names) {
    TextBuffer shown, list;
    DerElement element;
    element.identifier = kDerUtf8String;
    element.content = {text.data(), text.size()};
    if (text.size() <= 100 && may_be_name(text))
        put_string(shown, element);
    else
        shown.put("...");
    put_names(list, names);
    if (list.size() == 0)
        return err_fail(NO_MATCH_ERROR, "The certificate is not for '%s': it has no subjectAltName",
                        shown.c_str());
    return err_fail(NO_MATCH_ERROR, "The certificate is not for '%s' but for %s", shown.c_str(),
                    list.c_str());
}

} // namespace

bool host_name_matches(std::string_view presented, std::string_view host) {
    size_t labels;
    if (!presented.starts_with("*."))
        return is_host(presented, labels) && same_word(presented, host);
    const std::string_view parent = slice(presented, 2);
    const size_t dot = host.find('.');
    return presented.size() <= kMaxHost && is_host(parent, labels) && labels >= 2 && dot != kNone &&
           dot > 0 && same_word(parent, slice(host, dot + 1));
}

int reference_form(std::string_view text, ReferenceForm& form) {
    Reference reference;
    const int error = read_reference(reference, text);
    form = reference.form;
    return error;
}

bool subject_host(const CertificateView& certificate, const CertExtensions& extensions, DerView& host) {
    GeneralNameReader reader(extensions.subjectAltName);
    GeneralNameView name;
    while (reader.next(name))
        if (precludes_subject(name, ReferenceForm::host))
            return false;
    return last_common_name(certificate.subject, host);
}

int check_subject_name(const CertificateView& certificate, const CertExtensions& extensions,
                       std::string_view text, int options) {
    Reference reference;
    if (const int error = read_reference(reference, text))
        return error;
    GeneralNameReader reader(extensions.subjectAltName);
    GeneralNameView name;
    bool mayUseSubject = (options & ZUL_CERT_SUBJECT_NAME) != 0;
    while (reader.next(name)) {
        if (name_matches(name, reference))
            return 0;
        mayUseSubject = mayUseSubject && !precludes_subject(name, reference.form);
    }
    if (mayUseSubject && subject_matches(certificate.subject, reference))
        return 0;
    return no_match(text, extensions.subjectAltName);
}

} // namespace zul
