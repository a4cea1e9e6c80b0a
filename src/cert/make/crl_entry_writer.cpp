#include "cert/make/crl_entry_writer.h"

#include <cstdio>

#include "cert/fields/cert_oids.h"
#include "cert/make/time_value.h"

namespace zul {
namespace {

constexpr int64_t kYear1950 = -631152000, kYear2050 = 2524608000;

DerView view_of(const SecretBuffer& bytes) {
    return {bytes.data(), bytes.size()};
}

void append_element(SecretBuffer& out, uint8_t identifier, DerView content) {
    uint8_t header[2 + sizeof(uint32_t)] = {identifier};
    size_t size = 1;
    if (content.size < 0x80) {
        header[size++] = static_cast<uint8_t>(content.size);
    } else {
        size_t octets = 1;
        while (octets < sizeof(uint32_t) && content.size >> (8 * octets) != 0)
            octets++;
        header[size++] = static_cast<uint8_t>(0x80 | octets);
        while (octets-- > 0)
            header[size++] = static_cast<uint8_t>(content.size >> (8 * octets));
    }
    out.append(header, size);
    if (!content.empty())
        out.append(content.data, content.size);
}

// append_time writes a Time (RFC 5280, 4.1.2.5), or a GeneralizedTime in any case.
void append_time(SecretBuffer& out, int64_t seconds, bool isGeneralized) {
    const tm time = time_of_seconds(seconds);
    char text[64];
    const int size = snprintf(text, sizeof text, "%04d%02d%02d%02d%02d%02dZ", time.tm_year + 1900,
                              time.tm_mon + 1, time.tm_mday, time.tm_hour, time.tm_min, time.tm_sec);
    const size_t century = isGeneralized || seconds < kYear1950 || seconds >= kYear2050 ? 0 : 2;
    append_element(out, century == 0 ? kDerGeneralizedTime : kDerUtcTime,
                   {text + century, static_cast<size_t>(size) - century});
}

void append_extension(SecretBuffer& out, std::string_view oid, bool isCritical, DerView value) {
    constexpr uint8_t kTrue = 0xFF;
    SecretBuffer extension;
    append_element(extension, kDerOid, {oid.data(), oid.size()});
    if (isCritical)
        append_element(extension, kDerBoolean, {&kTrue, 1});
    append_element(extension, kDerOctetString, value);
    append_element(out, kDerSequence, view_of(extension));
}

} // namespace

void EntryWriter::add_issuer(DerView names) {
    value_.shrink(0);
    append_element(value_, kDerSequence, names);
    append_extension(extensions_, kOidCertificateIssuer, true, view_of(value_));
}

void EntryWriter::write_parts(DerView serialNumber, DerView time, DerView extensions) {
    fields_.shrink(0);
    append_element(fields_, kDerInteger, serialNumber);
    fields_.append(time.data, time.size);
    if (!extensions.empty())
        append_element(fields_, kDerSequence, extensions);
    append_element(out_, kDerSequence, view_of(fields_));
}

void EntryWriter::write(const RevokedEntry& entry) {
    extensions_.shrink(0);
    if (entry.reason != 0) {
        const auto reason = static_cast<uint8_t>(entry.reason);
        value_.shrink(0);
        append_element(value_, kDerEnumerated, {&reason, 1});
        append_extension(extensions_, kOidReasonCode, false, view_of(value_));
    }
    if (entry.hasInvalidityDate) {
        value_.shrink(0);
        append_time(value_, entry.invalidityDate, true);
        append_extension(extensions_, kOidInvalidityDate, false, view_of(value_));
    }
    if (!(entry.issuer == issuer_))
        add_issuer(entry.issuer);
    issuer_ = entry.issuer;
    value_.shrink(0);
    append_time(value_, entry.date, false);
    write_parts(entry.serialNumber, view_of(value_), view_of(extensions_));
}

void EntryWriter::keep(const KeptEntry& entry) {
    if (entry.names_issuer() || entry.issuer == issuer_) {
        out_.append(entry.encoding.data, entry.encoding.size);
    } else {
        extensions_.shrink(0);
        if (!entry.view.extensions.empty())
            extensions_.append(entry.view.extensions.data, entry.view.extensions.size);
        add_issuer(entry.issuerNames);
        write_parts(entry.view.serialNumber, entry.view.dateTime.encoding, view_of(extensions_));
    }
    issuer_ = entry.issuer;
}

} // namespace zul
