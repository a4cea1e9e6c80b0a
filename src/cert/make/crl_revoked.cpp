#include "cert/make/crl_revoked.h"

#include <cstring>

#include "asn1/asn_build.h"
#include "asn1/asn_encode.h"
#include "cert/fields/cert_extensions.h"
#include "cert/fields/general_name.h"
#include "cert/input/object_list.h"
#include "cert/make/crl_reason.h"
#include "cert/make/crl_revoked_reader.h"
#include "cert/make/issuer_certificate.h"
#include "cert/make/name_values.h"
#include "cert/make/time_value.h"
#include "frame/err.h"
#include "frame/text.h"
#include "x509/fields/hex_value.h"
#include "x509/names/pair_reader.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr size_t kMaxSerial = 20; // octets (RFC 5280, 4.1.2.2)

[[nodiscard]] int bad(const char* why) {
    return err_fail(BAD_PARAM_ERROR, "%s", why);
}

SecretBuffer copy_of(std::string_view text) {
    SecretBuffer copy;
    copy.append(text.data(), text.size());
    return copy;
}

DerView view_of(const SecretBuffer& bytes) {
    return {bytes.data(), bytes.size()};
}

// EntryBuilder reads the fields of one entry.
class EntryBuilder {
  public:
    EntryBuilder(RevokedList& list, const RevokedScope& scope) : list_(list), scope_(scope) {}

    [[nodiscard]] int take(std::string_view keyword, std::string_view value);
    [[nodiscard]] int finish();

  private:
    using Take = int (EntryBuilder::*)(std::string_view value);
    enum Field : unsigned { serial = 1, cert = 2, date = 4, reason = 8, invalidity = 16, issuer = 32 };

    [[nodiscard]] int take_serial(std::string_view value);
    [[nodiscard]] int take_certificate(std::string_view value);
    [[nodiscard]] int take_date(std::string_view value);
    [[nodiscard]] int take_invalidity(std::string_view value);
    [[nodiscard]] int take_reason(std::string_view value);
    [[nodiscard]] int take_issuer(std::string_view value);
    [[nodiscard]] int take_time(int64_t& seconds, std::string_view value) const;
    [[nodiscard]] int check_kind(const CertificateView& certificate) const;
    [[nodiscard]] int set_issuer(const AsnList& name);

    RevokedList& list_;
    const RevokedScope& scope_;
    RevokedEntry entry_;
    unsigned seen_ = 0; // fields, as bits
};

int EntryBuilder::take(std::string_view keyword, std::string_view value) {
    constexpr struct {
        const char* keyword;
        Field field;
        Take take;
    } kFields[] = {
        {"serial", serial, &EntryBuilder::take_serial},
        {"cert", cert, &EntryBuilder::take_certificate},
        {"date", date, &EntryBuilder::take_date},
        {"reason", reason, &EntryBuilder::take_reason},
        {"invalidity", invalidity, &EntryBuilder::take_invalidity},
        {"issuer", issuer, &EntryBuilder::take_issuer},
    };
    for (const auto& row : kFields) {
        if (!same_word(keyword, row.keyword))
            continue;
        if ((seen_ & row.field) != 0)
            return bad("Given twice");
        seen_ |= row.field;
        return (this->*row.take)(value);
    }
    return bad("Unknown keyword (serial, cert, date, reason, invalidity, issuer)");
}

int EntryBuilder::take_serial(std::string_view value) {
    SecretBuffer bytes;
    if (!hex_value(value, bytes))
        return bad("Not hex digits");
    // A certificate with the number 0 conforms to no standard, but can be revoked.
    size_t zeros = 0;
    while (zeros + 1 < bytes.size() && bytes[zeros] == 0)
        zeros++;
    const size_t size = bytes.size() - zeros;
    if (size > kMaxSerial || (size == kMaxSerial && bytes[zeros] >= 0x80))
        return bad("A serial number has at most 20 bytes, with the sign");
    const AsnList number = asn_NewIntegerBytes(bytes.data() + zeros, size);
    entry_.serialNumber = list_.bytes.add({number.head()->data, number.head()->length});
    return 0;
}

int EntryBuilder::take_certificate(std::string_view value) {
    ObjectList file;
    CertificateView certificate;
    if (const int error = file.add_argument(value.data(), value.size()))
        return error;
    if (file[0].kind != ObjectKind::certificate)
        return err_fail(BAD_FORMAT_ERROR, "Not a certificate");
    if (const int error = certificate_view_read(file[0].der, certificate))
        return error;
    entry_.serialNumber = list_.bytes.add(certificate.serialNumber);
    if (!names_match(certificate.issuer, scope_.issuerName)) {
        if (!scope_.point.isIndirect)
            return err_fail(NO_MATCH_ERROR,
                            "The certificate has another issuer, and the list is not indirect");
        if (const int error = set_issuer(asn_NewExplicit(4, elements_of(certificate.issuer))))
            return error;
    }
    return check_kind(certificate);
}

// check_kind tells whether a list for some kind of certificates is for this one too.
int EntryBuilder::check_kind(const CertificateView& certificate) const {
    CertExtensions extensions;
    if (const int error = cert_extensions_read(certificate, extensions))
        return error;
    const IssuingPoint& point = scope_.point;
    if (point.onlyAttributeCerts || (extensions.isCa ? point.onlyUserCerts : point.onlyCaCerts))
        return bad("The list is for another kind of certificates");
    return 0;
}

int EntryBuilder::take_time(int64_t& seconds, std::string_view value) const {
    const SecretBuffer text = copy_of(value);
    tm time = {};
    if (const int error = time_value_read(time, text.text(), "00:00:00"))
        return error;
    seconds = time_seconds(time);
    return seconds <= scope_.thisUpdate ? 0 : bad("A date after the list's thisUpdate");
}

int EntryBuilder::take_date(std::string_view value) {
    entry_.hasDate = true;
    return take_time(entry_.date, value);
}

int EntryBuilder::take_invalidity(std::string_view value) {
    entry_.hasInvalidityDate = true;
    return take_time(entry_.invalidityDate, value);
}

int EntryBuilder::take_reason(std::string_view value) {
    return crl_reason_read(entry_.reason, value);
}

int EntryBuilder::take_issuer(std::string_view value) {
    if (!scope_.point.isIndirect)
        return bad("Only an indirect list has certificates of other issuers");
    AsnList name;
    if (const int error = general_name_make(name, GeneralForm::directory, value))
        return error;
    return set_issuer(name);
}

int EntryBuilder::set_issuer(const AsnList& name) {
    const SecretBuffer encoding = asn_Encode(name);
    if (encoding.empty())
        return bad("A name without an encoding");
    entry_.issuer = list_.issuers.add(view_of(encoding), list_.bytes);
    return 0;
}

int EntryBuilder::finish() {
    const uint32_t flag = crl_reason_flag(entry_.reason);
    if ((seen_ & (serial | cert)) == 0)
        return bad("serial or cert is missing");
    if ((seen_ & cert) != 0 && (seen_ & (serial | issuer)) != 0)
        return bad("A certificate gives the serial number and the issuer itself");
    if (scope_.point.hasReasons && entry_.reason != kReasonRemoveFromCrl &&
        (flag & scope_.point.onlySomeReasons) == 0)
        return bad("The list is for other reasons");
    if (entry_.issuer.empty())
        entry_.issuer = scope_.issuerNames;
    list_.entries.add(entry_);
    return 0;
}

[[nodiscard]] int read_entry(RevokedList& list, RevokedReader& reader, const RevokedScope& scope) {
    if (list.entries.size() == kMaxRevoked)
        return bad("More than 1,048,576 entries");
    EntryBuilder builder(list, scope);
    while (reader.next_field()) {
        if (const int error = builder.take(reader.keyword(), reader.value())) {
            err_add_text("in '%s=%s'", shown_name(copy_of(reader.keyword()).text()),
                         shown_name(copy_of(reader.value()).text()));
            return error;
        }
    }
    return reader.error() != 0 ? reader.error() : builder.finish();
}

// read_name gives the Name in GeneralNames that have nothing else.
[[nodiscard]] bool read_name(DerView names, DerView& name) {
    GeneralNameReader reader(names);
    GeneralNameView one;
    if (!reader.next(one) || !reader.at_end() || one.type != GeneralNameType::directoryName)
        return false;
    name = one.value;
    return true;
}

} // namespace

DerView IssuerTable::find(DerView names) const {
    DerView name;
    if (!read_name(names, name))
        return names;
    const uint32_t slot = slots_.empty() ? 0 : slots_[slot_of(name_digest(name))];
    return slot == 0 ? names : rows_[slot - 1].names;
}

size_t IssuerTable::slot_of(const NameDigest& digest) const {
    const size_t mask = slots_.size() - 1;
    size_t i = digest.hash() & mask;
    while (slots_[i] != 0 && !(rows_[slots_[i] - 1].digest == digest))
        i = (i + 1) & mask;
    return i;
}

void IssuerTable::grow() {
    const size_t size = slots_.empty() ? 16 : 2 * slots_.size();
    slots_.clear();
    slots_.reserve(size);
    while (slots_.size() < size)
        slots_.add(0);
    for (size_t i = 0; i < rows_.size(); i++)
        slots_[slot_of(rows_[i].digest)] = static_cast<uint32_t>(i + 1);
}

DerView IssuerTable::add(DerView names, StableBytes& bytes) {
    const DerView found = find(names);
    DerView name;
    if (found.data != names.data || !read_name(names, name))
        return found;
    if (2 * (rows_.size() + 1) >= slots_.size())
        grow();
    const Row& row = rows_.add({name_digest(name), bytes.add(names)});
    slots_[slot_of(row.digest)] = static_cast<uint32_t>(rows_.size());
    return row.names;
}

DerView StableBytes::add(DerView bytes) {
    if (bytes.empty())
        return {"", 0};
    if (blocks_.empty() || blocks_.back().size() - filled_ < bytes.size) {
        blocks_.add(SecretBuffer(bytes.size > kBlock ? bytes.size : kBlock));
        filled_ = 0;
    }
    uint8_t* place = blocks_.back().data() + filled_;
    memcpy(place, bytes.data, bytes.size);
    filled_ += bytes.size;
    return {place, bytes.size};
}

int revoked_text_read(RevokedList& list, const char* text, const RevokedScope& scope) {
    const std::string_view whole(text == nullptr ? "" : text);
    if (whole.size() > kMaxRevokedText)
        return bad("The text of the revoked certificates is too long");
    list.issuers.add(scope.issuerNames, list.bytes);
    RevokedReader reader(whole);
    while (reader.next_entry()) {
        if (const int error = read_entry(list, reader, scope)) {
            err_add_text("in entry %u of the revoked certificates", static_cast<unsigned>(reader.number()));
            return error;
        }
    }
    return 0;
}

} // namespace zul
