#include "cert/report/report_fields.h"

#include <iterator>

#include "cert/fields/oid_names.h"
#include "cert/names/string_value.h"
#include "hash/sha1.h"
#include "hash/sha256.h"

namespace zul {

namespace {

// magnitude_digits writes the hex digits of an INTEGER's magnitude, two for each byte.
void put_magnitude(TextBuffer& out, DerView content, bool isNegative) {
    if (!isNegative) {
        const size_t leading = content.size > 1 && content[0] == 0 ? 1 : 0;
        out.put_hex(content.data + leading, content.size - leading);
        return;
    }
    // Two's complement: all bits inverted, and 1 added, which carries through the zero bytes at the end.
    size_t zeros = 0;
    while (zeros < content.size && content[content.size - 1 - zeros] == 0)
        zeros++;
    const size_t last = content.size - zeros; // bytes up to the one that takes the carry
    size_t first = 0;
    while (first + 1 < last && content[first] == 0xFF)
        first++;
    for (size_t i = first; i < content.size; i++) {
        const auto byte = static_cast<uint8_t>(i + 1 < last ? ~content[i] : i + 1 == last ? -content[i] : 0);
        out.put_hex(&byte, 1);
    }
}

bool value_of(DerView content, int64_t& value) {
    if (content.size > 7)
        return false;
    value = content[0] >= 0x80 ? -1 : 0;
    for (const uint8_t byte : content)
        value = static_cast<int64_t>(static_cast<uint64_t>(value) << 8 | byte);
    constexpr int64_t kMost = int64_t{1} << 53;
    return value >= -kMost && value <= kMost;
}

constexpr std::string_view kReasons[] = {
    "unspecified",   "keyCompromise",        "cACompromise",    "affiliationChanged",
    "superseded",    "cessationOfOperation", "certificateHold", {},
    "removeFromCRL", "privilegeWithdrawn",   "aACompromise"};

} // namespace

constinit const std::string_view kKeyUsageName[kKeyUsageNames] = {
    "digitalSignature", "nonRepudiation", "keyEncipherment", "dataEncipherment", "keyAgreement",
    "keyCertSign",      "cRLSign",        "encipherOnly",    "decipherOnly"};

void put_hex_integer(TextBuffer& out, DerView content) {
    const bool isNegative = !content.empty() && content[0] >= 0x80;
    if (isNegative)
        out.put('-');
    put_magnitude(out, content, isNegative);
}

void put_integer(TextBuffer& out, DerView content) {
    int64_t value;
    if (value_of(content, value)) {
        out.put_number(value);
        return;
    }
    const bool isNegative = content[0] >= 0x80;
    out.put(isNegative ? "-0x" : "0x");
    put_magnitude(out, content, isNegative);
}

bool show_integer(ReportWriter& report, std::string_view key, DerView content) {
    int64_t value;
    if (!der_is_integer(content))
        return false;
    if (value_of(content, value)) {
        report.number(key, value);
        return true;
    }
    TextBuffer text;
    put_integer(text, content);
    report.word(key, text.text());
    return true;
}

bool show_hex_integer(ReportWriter& report, std::string_view key, DerView content) {
    if (!der_is_integer(content))
        return false;
    if (content[0] < 0x80) {
        const size_t leading = content.size > 1 && content[0] == 0 ? 1 : 0;
        report.bytes(key, {content.data + leading, content.size - leading});
        return true;
    }
    TextBuffer text;
    put_hex_integer(text, content);
    report.word(key, text.text());
    return true;
}

void put_time(TextBuffer& out, const DerElement& element) {
    std::string_view digits = element.content.text();
    if (element.is(kDerUtcTime)) {
        out.put(digits[0] < '5' ? "20" : "19");
    } else {
        out.put(digits.substr(0, 2));
        digits.remove_prefix(2);
    }
    constexpr char kMarks[] = {'-', '-', 'T', ':', ':', 'Z'};
    for (size_t i = 0; i < sizeof kMarks; i++) {
        out.put({digits.data() + 2 * i, 2});
        out.put(kMarks[i]);
    }
}

bool show_time(ReportWriter& report, std::string_view key, const DerElement& element) {
    int64_t seconds;
    if (!der_time(element, seconds))
        return false;
    char room[24];
    TextBuffer text(room, sizeof room - 1);
    put_time(text, element);
    report.word(key, text.text());
    return true;
}

bool show_oid(ReportWriter& report, std::string_view key, DerView oid) {
    if (!der_is_oid(oid))
        return false;
    if (const std::string_view name = oid_name(oid); !name.empty()) {
        report.word(key, name);
        return true;
    }
    TextBuffer text;
    put_oid_dotted(text, oid);
    report.word(key, text.text());
    return true;
}

bool show_name(ReportWriter& report, std::string_view key, const DerElement& element) {
    report.name(key, element.encoding);
    return element.is(kDerSequence);
}

bool show_bits(ReportWriter& report, std::string_view key, const DerElement& element) {
    DerView bits;
    unsigned unused;
    if (!element.is(kDerBitString) || !der_bits(element.content, bits, unused))
        return false;
    report.bytes(key, bits);
    return true;
}

bool show_named_bits(ReportWriter& report, std::string_view key, DerView content,
                     const std::string_view* names, size_t count) {
    uint32_t flags;
    if (!der_flags(content, flags))
        return false;
    report.begin_words(key);
    for (size_t bit = 0; bit < 32; bit++) {
        if ((flags >> bit & 1) == 0)
            continue;
        if (bit < count)
            report.word({}, names[bit]);
        else
            report.number({}, static_cast<int64_t>(bit));
    }
    report.end_words();
    return true;
}

bool show_algorithm(ReportWriter& report, std::string_view key, std::string_view parametersKey,
                    const DerElement& element) {
    AlgorithmView algorithm;
    DerReader reader(element.encoding);
    if (!algorithm_view_read(reader, algorithm))
        return false;
    const std::string_view name = oid_name(algorithm.oid);
    static_cast<void>(show_oid(report, key, algorithm.oid));
    DerView null;
    if (algorithm.parameters.empty() || der_single(algorithm.parameters, kDerNull, null))
        return true;
    show_guarded(report, parametersKey, algorithm.parameters, [&] {
        if (name == "id-RSASSA-PSS")
            return show_pss_parameters(report, parametersKey, algorithm.parameters);
        report.bytes(parametersKey, algorithm.parameters);
        return true;
    });
    return true;
}

static bool show_nested_algorithm(ReportWriter& report, std::string_view key, DerView content) {
    DerReader reader(content);
    DerElement element;
    return reader.take_any(element) && reader.at_end() && show_algorithm(report, key, "parameters", element);
}

static bool show_mask_algorithm(ReportWriter& report, DerView content) {
    DerReader reader(content);
    AlgorithmView algorithm;
    if (!algorithm_view_read(reader, algorithm) || !reader.at_end() ||
        !show_oid(report, "maskGenAlgorithm", algorithm.oid))
        return false;
    if (oid_name(algorithm.oid) == "id-mgf1")
        return show_nested_algorithm(report, "maskGenHashAlgorithm", algorithm.parameters);
    if (!algorithm.parameters.empty())
        report.bytes("maskGenParameters", algorithm.parameters);
    return true;
}

bool show_pss_parameters(ReportWriter& report, std::string_view key, DerView parameters) {
    DerView content, hash, mask, salt, trailer, number;
    bool hasHash, hasMask, hasSalt, hasTrailer;
    if (!der_single(parameters, kDerSequence, content))
        return false;
    DerReader fields(content);
    if (!fields.take_optional(der_explicit(0), hash, hasHash) ||
        !fields.take_optional(der_explicit(1), mask, hasMask) ||
        !fields.take_optional(der_explicit(2), salt, hasSalt) ||
        !fields.take_optional(der_explicit(3), trailer, hasTrailer) || !fields.at_end())
        return false;
    report.begin_object(key);
    if (!hasHash)
        report.word("hashAlgorithm", "sha1");
    else if (!show_nested_algorithm(report, "hashAlgorithm", hash))
        return false;
    if (!hasMask) {
        report.word("maskGenAlgorithm", "id-mgf1");
        report.word("maskGenHashAlgorithm", "sha1");
    } else if (!show_mask_algorithm(report, mask)) {
        return false;
    }
    if (!hasSalt)
        report.number("saltLength", 20);
    else if (!der_single(salt, kDerInteger, number) || !show_integer(report, "saltLength", number))
        return false;
    if (!hasTrailer)
        report.number("trailerField", 1);
    else if (!der_single(trailer, kDerInteger, number) || !show_integer(report, "trailerField", number))
        return false;
    report.end_object();
    return true;
}

void show_attribute_values(ReportWriter& report, DerView values) {
    DerReader reader(values);
    DerElement value;
    report.begin_list("values");
    while (reader.take_any(value)) {
        if ((value.is(kDerUtcTime) || value.is(kDerGeneralizedTime)) && show_time(report, {}, value))
            continue;
        if (value.is(kDerOid) && show_oid(report, {}, value.content))
            continue;
        if (string_type_is_known(value.identifier))
            report.string({}, value);
        else
            report.bytes({}, value.encoding);
    }
    if (!reader.at_end())
        report.malformed({}, reader.rest());
    report.end_list();
}

std::string_view crl_reason_name(int reason) {
    return reason >= 0 && reason < static_cast<int>(std::size(kReasons)) ? kReasons[reason]
                                                                         : std::string_view();
}

bool show_crl_reason(ReportWriter& report, std::string_view key, DerView content) {
    int reason;
    if (!der_small_integer(content, reason))
        return false;
    if (const std::string_view name = crl_reason_name(reason); !name.empty())
        report.word(key, name);
    else
        report.number(key, reason);
    return true;
}

void show_fingerprints(ReportWriter& report, DerView encoding) {
    uint8_t sha1[kSha1Size], sha256[kSha256Size];
    Sha1Context sha1Context;
    sha1_init(sha1Context);
    sha1_update(sha1Context, encoding.data, encoding.size);
    sha1_final(sha1Context, sha1);
    Sha256Context sha256Context;
    sha256_init(sha256Context);
    sha256_update(sha256Context, encoding.data, encoding.size);
    sha256_final(sha256Context, sha256);
    report.begin_object("fingerprints");
    report.bytes("sha1", {sha1, sizeof sha1});
    report.bytes("sha256", {sha256, sizeof sha256});
    report.end_object();
}

} // namespace zul
