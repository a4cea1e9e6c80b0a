#pragma once
#include "cert/fields/general_name.h"
#include "cert/fields/signed_view.h"
#include "cert/report/report_writer.h"

// Fields that several kinds of objects have. Each function writes one field and gives false if it is
// malformed; what it has written by then is for the caller to take back (show_guarded).
namespace zul {

// FieldWalk steps over the fields of a SEQUENCE. After one that cannot be told from the next, the rest is
// written as malformed and nothing more is taken.
class FieldWalk {
  public:
    FieldWalk(ReportWriter& report, DerView content) : report_(report), reader_(content) {}

    // take writes the next field by show(element), which gives false if it is malformed.
    template<class Show>
    void take(std::string_view key, Show show) {
        DerElement element;
        if (!isGood_)
            return;
        isGood_ = reader_.take_any(element);
        if (isGood_)
            show_guarded(report_, key, element.encoding, [&] { return show(element); });
        else
            report_.malformed(key, reader_.rest());
    }
    // take_if does so if the next field has a type.
    template<class Show>
    bool take_if(uint8_t identifier, std::string_view key, Show show) {
        const bool isThere = isGood_ && reader_.next_is(identifier);
        if (isThere)
            take(key, show);
        return isThere;
    }
    // finish writes fields that are left as malformed.
    void finish(std::string_view key) {
        if (isGood_ && !reader_.at_end())
            report_.malformed(key, reader_.rest());
    }
    bool at_end() const { return reader_.at_end(); }
    bool next_is(uint8_t identifier) const { return reader_.next_is(identifier); }

  private:
    ReportWriter& report_;
    DerReader reader_;
    bool isGood_ = true;
};

// An INTEGER or ENUMERATED of any size, in decimal or, beyond 53 bits, as "0x" and hex digits.
void put_integer(TextBuffer& out, DerView content); // one that der_is_integer takes
bool show_integer(ReportWriter& report, std::string_view key, DerView content);
// A serial number or the like, in hex digits; a negative one behind "-".
bool show_hex_integer(ReportWriter& report, std::string_view key, DerView content);
void put_hex_integer(TextBuffer& out, DerView content);

// show_signed writes a signed object whose fields to be signed show writes.
void show_signed(ReportWriter& report, DerView encoding, std::string_view signatureKey,
                 void (*show)(ReportWriter& report, FieldWalk& fields));

// A time as "2026-01-31T12:30:00Z".
bool show_time(ReportWriter& report, std::string_view key, const DerElement& element);
void put_time(TextBuffer& out, const DerElement& element); // one that der_time takes

bool show_oid(ReportWriter& report, std::string_view key, DerView oid);
bool show_name(ReportWriter& report, std::string_view key, const DerElement& element);
bool show_bits(ReportWriter& report, std::string_view key, const DerElement& element); // BIT STRING

// Named bits; a bit without a name is its number.
bool show_named_bits(ReportWriter& report, std::string_view key, DerView content,
                     const std::string_view* names, size_t count);
template<size_t count>
bool show_named_bits(ReportWriter& report, std::string_view key, DerView content,
                     const std::string_view (&names)[count]) {
    return show_named_bits(report, key, content, names, count);
}

// The names of the bits of keyUsage (RFC 5280, 4.2.1.3).
constexpr size_t kKeyUsageNames = 9;
extern const std::string_view kKeyUsageName[kKeyUsageNames];

// An AlgorithmIdentifier: its name as one field, its parameters, unless they are NULL, as another.
bool show_algorithm(ReportWriter& report, std::string_view key, std::string_view parametersKey,
                    const DerElement& element);
// The parameters of RSASSA-PSS (RFC 4055, 3.1).
bool show_pss_parameters(ReportWriter& report, std::string_view key, DerView parameters);

// GeneralNames: their content, at least one.
bool show_general_names(ReportWriter& report, std::string_view key, DerView names);
void show_general_name(ReportWriter& report, std::string_view key, const GeneralNameView& name);

// The values of an attribute, the content of a SET: strings, times, object identifiers, others in hex.
void show_attribute_values(ReportWriter& report, DerView values);

// The content of a SEQUENCE OF Extension. Extensions that are malformed are written as such.
void show_extensions(ReportWriter& report, std::string_view key, DerView extensions);

// The name of a CRLReason (RFC 5280, 5.3.1), empty for another number.
std::string_view crl_reason_name(int reason);
bool show_crl_reason(ReportWriter& report, std::string_view key, DerView content);

// The digests of an encoding.
void show_fingerprints(ReportWriter& report, DerView encoding);

} // namespace zul
