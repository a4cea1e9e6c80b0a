// GeneralNames in reports (RFC 5280, 4.2.1.6).
#include "cert/names/name_print.h"
#include "cert/report/report_fields.h"

namespace zul {

namespace {

void show_address(ReportWriter& report, std::string_view key, DerView address) {
    if (address.size != 4 && address.size != 16) {
        report.malformed(key, address);
        return;
    }
    TextBuffer text;
    put_ip_address(text, address);
    report.word(key, text.text());
}

void show_other_name(ReportWriter& report, std::string_view key, const GeneralNameView& name) {
    show_guarded(report, key, name.encoding, [&] {
        DerReader fields(name.value);
        DerView type, wrapped;
        DerElement value;
        if (!fields.take(kDerOid, type) || !fields.take(der_explicit(0), wrapped) ||
            !DerReader(wrapped).take_any(value))
            return false;
        report.begin_object(key);
        const bool isGood = show_oid(report, "typeId", type);
        report.string("value", value);
        report.end_object();
        return isGood;
    });
}

} // namespace

void show_general_name(ReportWriter& report, std::string_view key, const GeneralNameView& name) {
    const std::string_view form = general_name_keyword(name.type);
    report.begin_choice(key);
    switch (name.type) {
    case GeneralNameType::otherName:
        show_other_name(report, form, name);
        break;
    case GeneralNameType::rfc822Name:
    case GeneralNameType::dNSName:
    case GeneralNameType::uniformResourceIdentifier:
        report.ascii(form, name.value);
        break;
    case GeneralNameType::directoryName:
        report.name(form, name.value);
        break;
    case GeneralNameType::iPAddress:
        show_address(report, form, name.value);
        break;
    case GeneralNameType::registeredID:
        static_cast<void>(show_oid(report, form, name.value));
        break;
    case GeneralNameType::x400Address:
    case GeneralNameType::ediPartyName:
        report.bytes(form, name.encoding);
        break;
    }
    report.end_choice();
}

bool show_general_names(ReportWriter& report, std::string_view key, DerView names) {
    DerReader reader(names);
    report.begin_list(key);
    while (!reader.at_end()) {
        DerElement element;
        GeneralNameView name;
        if (!reader.take_any(element))
            return false;
        DerReader one(element.encoding);
        if (take_general_name(one, name))
            show_general_name(report, {}, name);
        else
            report.malformed({}, element.encoding);
    }
    report.end_list();
    return true;
}

} // namespace zul
