#include "cert/fields/crl_view.h"

#include "cert/fields/cert_oids.h"
#include "cert/fields/general_name.h"
#include "frame/err.h"
#include "zulcore.h"

namespace zul {

namespace {

[[nodiscard]] int bad_crl(const char* field) {
    return err_fail(BAD_FORMAT_ERROR, "Invalid CRL: %s", field);
}

bool next_is_time(const DerReader& reader) {
    return reader.next_is(kDerUtcTime) || reader.next_is(kDerGeneralizedTime);
}

bool take_flag(DerReader& fields, unsigned n, bool& flag) {
    DerView content;
    bool found;
    return fields.take_optional(der_context(n), content, found) && (!found || der_boolean(content, flag));
}

// take_point_name takes the [0] of a distribution point.
bool take_point_name(DerReader& fields, DistributionPointName& name) {
    DerView content;
    bool found;
    return fields.take_optional(der_explicit(0), content, found) &&
           (!found || distribution_point_name_read(content, name));
}

bool take_reasons(DerReader& fields, unsigned n, uint32_t& reasons, bool& found) {
    DerView bits;
    return fields.take_optional(der_context(n), bits, found) && (!found || der_flags(bits, reasons));
}

bool read_integer(DerView value, DerView& number) {
    return der_single(value, kDerInteger, number) && der_is_integer(number) && number[0] < 0x80;
}

} // namespace

int crl_view_read(DerView encoding, CrlView& crl) {
    DerView content, version, outer;
    bool found;
    if (!signed_view_read(encoding, crl) || !der_single(crl.toBeSigned, kDerSequence, content))
        return bad_crl("not a SEQUENCE of three fields in DER");
    DerReader fields(content);
    crl.version = 0;
    if (!fields.take_optional(kDerInteger, version, found) ||
        (found && (!der_small_integer(version, crl.version) || crl.version != 1)))
        return bad_crl("version");
    crl.version++;
    if (!algorithm_view_read(fields, crl.innerAlgorithm))
        return bad_crl("signature");
    DerElement issuer;
    if (!fields.next_is(kDerSequence) || !fields.take_any(issuer))
        return bad_crl("issuer");
    crl.issuer = issuer.encoding;
    if (!fields.take_any(crl.thisUpdateTime) || !der_time(crl.thisUpdateTime, crl.thisUpdate))
        return bad_crl("thisUpdate");
    crl.hasNextUpdate = next_is_time(fields);
    if (crl.hasNextUpdate &&
        (!fields.take_any(crl.nextUpdateTime) || !der_time(crl.nextUpdateTime, crl.nextUpdate)))
        return bad_crl("nextUpdate");
    crl.revoked = crl.extensions = {};
    if (!fields.take_optional(kDerSequence, crl.revoked, found))
        return bad_crl("revokedCertificates");
    if (!fields.take_optional(der_explicit(0), outer, found) || !fields.at_end() ||
        (found && (crl.version != 2 || !der_single(outer, kDerSequence, crl.extensions) ||
                   !extensions_are_valid(crl.extensions))))
        return bad_crl("crlExtensions");
    return 0;
}

bool CrlEntryReader::next(CrlEntryView& entry) {
    DerReader ahead = reader_;
    DerView content;
    bool found;
    if (ahead.at_end() || !ahead.take(kDerSequence, content))
        return false;
    DerReader fields(content);
    entry.extensions = {};
    if (!fields.take(kDerInteger, entry.serialNumber) || !der_is_integer(entry.serialNumber) ||
        !next_is_time(fields) || !fields.take_any(entry.dateTime) ||
        !fields.take_optional(kDerSequence, entry.extensions, found) || !fields.at_end() ||
        (found && !extensions_are_valid(entry.extensions)))
        return false;
    reader_ = ahead;
    return true;
}

bool distribution_point_name_read(DerView content, DistributionPointName& name) {
    DerReader choice(content);
    bool isFull, isRelative;
    return choice.take_optional(der_explicit(0), name.fullName, isFull) &&
           choice.take_optional(der_explicit(1), name.relativeName, isRelative) && choice.at_end() &&
           isFull != isRelative &&
           (isFull ? general_names_are_valid(name.fullName) : !name.relativeName.empty());
}

bool DistributionPointReader::next(DistributionPoint& point) {
    DerReader ahead = reader_;
    DerView content;
    bool found;
    if (ahead.at_end() || !ahead.take(kDerSequence, content))
        return false;
    point = {};
    DerReader fields(content);
    if (!take_point_name(fields, point.name) || !take_reasons(fields, 1, point.reasons, found) ||
        !fields.take_optional(der_explicit(2), point.crlIssuer, found) || !fields.at_end() ||
        (found && !general_names_are_valid(point.crlIssuer)))
        return false;
    reader_ = ahead;
    return true;
}

bool issuing_point_read(DerView value, IssuingPoint& point) {
    DerView content;
    if (!der_single(value, kDerSequence, content))
        return false;
    DerReader fields(content);
    return take_point_name(fields, point.name) && take_flag(fields, 1, point.onlyUserCerts) &&
           take_flag(fields, 2, point.onlyCaCerts) &&
           take_reasons(fields, 3, point.onlySomeReasons, point.hasReasons) &&
           take_flag(fields, 4, point.isIndirect) && take_flag(fields, 5, point.onlyAttributeCerts) &&
           fields.at_end() && point.onlyUserCerts + point.onlyCaCerts + point.onlyAttributeCerts <= 1;
}

int crl_extensions_read(const CrlView& crl, CrlExtensions& extensions) {
    ExtensionReader reader(crl.extensions);
    ExtensionView extension;
    while (reader.next(extension)) {
        bool isGood = true;
        if (extension.is(kOidCrlNumber)) {
            isGood = read_integer(extension.value, extensions.number);
        } else if (extension.is(kOidDeltaCrlIndicator)) {
            extensions.isDelta = true;
            isGood = read_integer(extension.value, extensions.deltaBase);
        } else if (extension.is(kOidAuthorityKeyIdentifier)) {
            isGood = authority_key_id_read(extension.value, extensions.authorityKeyIdentifier);
        } else if (extension.is(kOidIssuingDistributionPoint)) {
            extensions.hasIssuingPoint = true;
            isGood = issuing_point_read(extension.value, extensions.issuingPoint);
        } else if (extension.is(kOidFreshestCrl)) {
            isGood = der_single(extension.value, kDerSequence, extensions.freshestCrl);
        } else if (extension.isCritical && extensions.unknownCritical.data == nullptr) {
            extensions.unknownCritical = extension.oid;
        }
        if (!isGood)
            return bad_crl("crlExtensions");
    }
    return 0;
}

int crl_entry_extensions_read(const CrlEntryView& entry, CrlEntryExtensions& extensions) {
    ExtensionReader reader(entry.extensions);
    ExtensionView extension;
    while (reader.next(extension)) {
        bool isGood = true;
        if (extension.is(kOidReasonCode)) {
            DerView code;
            extensions.hasReason = true;
            isGood = der_single(extension.value, kDerEnumerated, code) &&
                     der_small_integer(code, extensions.reason) && extensions.reason <= 10 &&
                     extensions.reason != 7;
        } else if (extension.is(kOidInvalidityDate)) {
            DerReader time(extension.value);
            isGood = time.next_is(kDerGeneralizedTime) && time.take_any(extensions.invalidityDate) &&
                     time.at_end();
        } else if (extension.is(kOidCertificateIssuer)) {
            isGood = der_single(extension.value, kDerSequence, extensions.certificateIssuer) &&
                     general_names_are_valid(extensions.certificateIssuer);
        } else if (extension.isCritical && extensions.unknownCritical.data == nullptr) {
            extensions.unknownCritical = extension.oid;
        }
        if (!isGood)
            return bad_crl("crlEntryExtensions");
    }
    return 0;
}

} // namespace zul
