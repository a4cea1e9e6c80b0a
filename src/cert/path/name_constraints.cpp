#include "cert/path/name_constraints.h"

#include <algorithm>

#include "cert/fields/cert_oids.h"
#include "cert/names/subject_names.h"
#include "cert/path/constrained_text.h"
#include "frame/err.h"
#include "zulcore.h"

namespace zul {

namespace {

using T = GeneralNameType;

constexpr int64_t kCostOfName = 500, kCostOfComparison = 500;

[[nodiscard]] int too_much() {
    return err_fail(OUT_OF_RANGE_ERROR, "Too many names and name constraints");
}
[[nodiscard]] int bad_constraints() {
    return err_fail(BAD_FORMAT_ERROR, "Invalid extension nameConstraints");
}

const char* form_of(GeneralNameType type) {
    switch (type) {
    case T::rfc822Name:
        return "e-mail address";
    case T::dNSName:
        return "dNSName";
    case T::directoryName:
        return "directoryName";
    case T::uniformResourceIdentifier:
        return "uniformResourceIdentifier";
    case T::iPAddress:
        return "iPAddress";
    default:
        return "name of another form";
    }
}

// is_mask tells whether a mask is ones and then zeros (RFC 4632).
bool is_mask(DerView mask) {
    bool hasEnded = false;
    for (const uint8_t byte : mask)
        for (int bit = 7; bit >= 0; bit--) {
            const bool isSet = (byte >> bit & 1) != 0;
            if (isSet && hasEnded)
                return false;
            hasEnded = !isSet;
        }
    return true;
}

// take_cost: a directoryName is digested, with a result for each RDN.
bool take_cost(const GeneralNameView& name, PathBudget& budget) {
    if (name.type == T::directoryName)
        return budget.take_name(name.value.size) &&
               budget.take(kCostOfName * static_cast<int64_t>(1 + name_depth(name.value)));
    return budget.take(kCostOfName + static_cast<int64_t>(10 * name.value.size));
}

bool is_good_base(GeneralNameType type, DerView base) {
    const std::string_view text = base.text();
    const bool isMailbox = text.find('@') != std::string_view::npos;
    switch (type) {
    case T::rfc822Name:
        return isMailbox ? is_comparable_mailbox(text) : is_comparable_base(text);
    case T::dNSName:
    case T::uniformResourceIdentifier:
        return is_comparable_base(text);
    case T::iPAddress:
        return (base.size == 8 || base.size == 32) && is_mask({base.data + base.size / 2, base.size / 2});
    default:
        return true;
    }
}

bool is_comparable(GeneralNameType type, DerView value) {
    switch (type) {
    case T::rfc822Name:
        return is_comparable_mailbox(value.text());
    case T::dNSName:
    case T::uniformResourceIdentifier:
        return is_comparable_host(value.text());
    case T::iPAddress:
        return value.size == 4 || value.size == 16;
    default:
        return false;
    }
}

bool address_is_within(DerView address, DerView base) {
    if (base.size != 2 * address.size)
        return false;
    for (size_t i = 0; i < address.size; i++)
        if (((address[i] ^ base[i]) & base[address.size + i]) != 0)
            return false;
    return true;
}

// mailbox_of reads the UTF8String of an SmtpUTF8Mailbox (RFC 9598, 3).
bool mailbox_of(DerView otherName, DerView& mailbox) {
    DerReader fields(otherName);
    DerView type, value;
    return fields.take(kDerOid, type) && type.text() == kOidSmtpUtf8Mailbox &&
           fields.take(der_explicit(0), value) && der_single(value, kDerUtf8String, mailbox);
}

} // namespace

void CertificateNames::add(GeneralNameType type, DerView value) {
    ConstrainedName name;
    name.type = type;
    name.value = value;
    name.isComparable = is_comparable(type, value);
    names_.add(std::move(name));
}

void CertificateNames::add_directory(DerView name) {
    add(T::directoryName, name);
    ConstrainedName& added = names_.back();
    DerView content, rdn;
    if (!der_single(name, kDerSequence, content))
        return;
    NameDigester digester;
    DerReader reader(content);
    while (reader.take(kDerSet, rdn)) {
        digester.add_rdn(rdn);
        added.prefixes.add(digester.digest());
    }
    added.isComparable = reader.at_end();
}

void CertificateNames::add_alternative(const GeneralNameView& name) {
    DerView mailbox;
    if (name.type == T::directoryName) {
        add_directory(name.value);
    } else if (name.type == T::uniformResourceIdentifier) {
        const std::string_view host = host_of_uri(name.value.text());
        add(name.type, {host.data(), host.size()});
    } else if (name.type == T::otherName && mailbox_of(name.value, mailbox)) {
        add(T::rfc822Name, mailbox);
    } else {
        add(name.type, name.value);
    }
}

void CertificateNames::add_addresses(DerView subject) {
    DerView content, rdn, attribute, type;
    DerElement value;
    if (!der_single(subject, kDerSequence, content))
        return;
    for (DerReader rdns(content); rdns.take(kDerSet, rdn);) {
        for (DerReader attributes(rdn); attributes.take(kDerSequence, attribute);) {
            DerReader fields(attribute);
            if (fields.take(kDerOid, type) && type.text() == kOidEmailAddress && fields.take_any(value))
                add(T::rfc822Name, value.content);
        }
    }
}

int CertificateNames::read(const CertificateView& certificate, const CertExtensions& extensions,
                           PathBudget& budget) {
    bool hasMailbox = false;
    if (!budget.take_name(certificate.subject.size))
        return too_much();
    if (name_depth(certificate.subject) > 0)
        add_directory(certificate.subject);
    GeneralNameReader reader(extensions.subjectAltName);
    GeneralNameView name;
    while (reader.next(name)) {
        if (!take_cost(name, budget))
            return too_much();
        add_alternative(name);
        hasMailbox = hasMailbox || names_.back().type == T::rfc822Name;
    }
    if (!reader.at_end())
        return err_fail(BAD_FORMAT_ERROR, "Invalid extension subjectAltName");
    if (!hasMailbox)
        add_addresses(certificate.subject);
    return 0;
}

void CertificateNames::add_host(const CertificateView& certificate, const CertExtensions& extensions) {
    DerView host;
    if (subject_host(certificate, extensions, host))
        add(T::dNSName, host);
}

int NameConstraints::read(const CertExtensions& extensions, PathBudget& budget) {
    const int error = read_subtrees(permitted_, extensions.permitted, budget);
    return error != 0 ? error : read_subtrees(excluded_, extensions.excluded, budget);
}

int NameConstraints::read_subtrees(Array<Subtree>& subtrees, DerView content, PathBudget& budget) {
    if (content.data != nullptr && content.empty())
        return bad_constraints();
    for (DerReader reader(content); !reader.at_end();) {
        DerView subtree;
        GeneralNameView base;
        if (!reader.take(kDerSequence, subtree))
            return bad_constraints();
        DerReader fields(subtree);
        if (!take_general_name(fields, base) || !is_good_base(base.type, base.value))
            return bad_constraints();
        if (!fields.at_end())
            return err_fail(NOT_SUPPORTED_ERROR, "Name constraint with minimum or maximum");
        if (!take_cost(base, budget))
            return too_much();
        Subtree each{base.type, base.value, 0, {}};
        if (base.type == T::directoryName) {
            each.depth = name_depth(base.value);
            each.digest = name_digest(base.value);
        }
        subtrees.add(each);
    }
    return 0;
}

bool NameConstraints::is_within(const ConstrainedName& name, const Subtree& subtree, bool isExcluded) {
    const std::string_view text = name.value.text(), base = subtree.base.text();
    switch (name.type) {
    case T::rfc822Name:
        return mailbox_is_within(text, base, isExcluded);
    case T::dNSName:
        return dns_is_within(text, base, isExcluded);
    case T::uniformResourceIdentifier:
        return host_is_within(text, base);
    case T::iPAddress:
        return address_is_within(name.value, subtree.base);
    default:
        return subtree.depth == 0 ||
               (subtree.depth <= name.prefixes.size() && name.prefixes[subtree.depth - 1] == subtree.digest);
    }
}

int NameConstraints::check_name(const ConstrainedName& name, PathBudget& budget) const {
    bool isConstrained = false, isPermitted = false, hasPermitted = false;
    for (const bool isExcluded : {true, false}) {
        for (const Subtree& subtree : isExcluded ? excluded_ : permitted_) {
            if (!budget.take(kCostOfComparison / 10))
                return too_much();
            if (subtree.type != name.type)
                continue;
            if (!budget.take(kCostOfComparison +
                             static_cast<int64_t>(std::min(name.value.size, subtree.base.size))))
                return too_much();
            isConstrained = true;
            const bool isIn = name.isComparable && is_within(name, subtree, isExcluded);
            if (isIn && isExcluded)
                return err_fail(ISSUER_ERROR, "The %s is excluded by a name constraint", form_of(name.type));
            hasPermitted = hasPermitted || !isExcluded;
            isPermitted = isPermitted || isIn;
        }
    }
    if (isConstrained && !name.isComparable)
        return err_fail(NOT_SUPPORTED_ERROR, "There is a name constraint for a %s that cannot be compared",
                        form_of(name.type));
    return !hasPermitted || isPermitted
               ? 0
               : err_fail(ISSUER_ERROR, "The %s is not permitted by the name constraints",
                          form_of(name.type));
}

int NameConstraints::check(const CertificateNames& names, PathBudget& budget) const {
    for (const ConstrainedName& name : names)
        if (const int error = check_name(name, budget))
            return error;
    return 0;
}

} // namespace zul
