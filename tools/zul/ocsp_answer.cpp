#include "ocsp_answer.h"

#include <chrono>
#include <cstdlib>

#include "armour.h"
#include "der.h"
#include "object_lists.h"

namespace tool {

namespace {

constexpr unsigned char kInteger = 0x02, kBitString = 0x03, kOctetString = 0x04, kGeneralizedTime = 0x18,
                        kSequence = 0x30, kField0 = 0xA0, kGood = 0x80, kRevoked = 0xA1;

[[noreturn]] void malformed(const std::string& name) {
    throw Refused::by_system(INVALID_DATA_ERROR, name, "It is not a valid OCSP response.");
}

// Fields are the elements of an encoding, side by side, with the bytes that they stand in.
struct Fields {
    SecretBytes bytes;
    std::vector<DerPart> parts;

    Fields(std::string_view content, const std::string& name)
        : bytes(content.begin(), content.end()), parts(der_parts(bytes, name, 0)) {}

    // find gives the first element with a tag; null if there is none.
    const DerPart* find(unsigned char tag) const {
        for (const DerPart& part : parts)
            if (part.tag == tag)
                return &part;
        return nullptr;
    }
};

SecretBytes bytes_of(std::string_view text) {
    return {text.begin(), text.end()};
}

std::string hex_of(std::string_view bytes) {
    std::string text;
    for (const char byte : bytes) {
        char digits[3];
        std::snprintf(digits, sizeof digits, "%02x", static_cast<unsigned>(static_cast<unsigned char>(byte)));
        text += digits;
    }
    return text;
}

// time_text turns a GeneralizedTime into "2026-01-31T12:30:00" (RFC 5280, 4.1.2.5.2).
std::string time_text(std::string_view digits, const std::string& name) {
    if (digits.size() != 15 || digits.find_first_not_of("0123456789") != 14 || digits[14] != 'Z')
        malformed(name);
    const auto part = [digits](size_t at, size_t size = 2) { return std::string(digits.substr(at, size)); };
    return part(0, 4) + "-" + part(4) + "-" + part(6) + "T" + part(8) + ":" + part(10) + ":" + part(12);
}

std::chrono::sys_seconds seconds_of(const std::string& text) {
    using namespace std::chrono;
    const auto number = [&text](size_t at, size_t size = 2) {
        return static_cast<unsigned>(std::strtoul(text.substr(at, size).c_str(), nullptr, 10));
    };
    const year_month_day date{year(static_cast<int>(number(0, 4))), month(number(5)), day(number(8))};
    return sys_days(date) + hours(number(11)) + minutes(number(14)) + seconds(number(17));
}

// signature_name gives the name that SIG_Verify has for an algorithm, empty for one without.
std::string signature_name(const std::string& algorithm) {
    constexpr std::string_view kRsa = "WithRSAEncryption", kEcdsa = "ecdsa-with-SHA";
    if (algorithm.starts_with("sha") && algorithm.ends_with(kRsa))
        return "rsa-" + algorithm.substr(0, algorithm.size() - kRsa.size());
    if (algorithm.starts_with(kEcdsa))
        return "ecdsa-sha" + algorithm.substr(kEcdsa.size());
    return algorithm.ends_with("Ed25519") ? "ed25519" : "";
}

OcspStatus read_status(std::string_view content, const std::string& name) {
    const Fields fields(content, name);
    if (fields.parts.size() < 3 || fields.parts[0].tag != kSequence ||
        fields.parts[2].tag != kGeneralizedTime)
        malformed(name);
    OcspStatus status;
    const unsigned char tag = fields.parts[1].tag;
    if (tag == kGood || tag == kRevoked)
        status.kind = tag == kGood ? OcspStatus::Kind::good : OcspStatus::Kind::revoked;
    status.thisUpdate = time_text(fields.parts[2].content, name);
    if (const DerPart* next = fields.find(kField0)) {
        const Fields time(next->content, name);
        if (time.parts.size() != 1 || time.parts[0].tag != kGeneralizedTime)
            malformed(name);
        status.nextUpdate = time_text(time.parts[0].content, name);
    }
    const Fields id(fields.parts[0].content, name);
    if (id.parts.size() != 4 || id.parts[1].tag != kOctetString || id.parts[2].tag != kOctetString ||
        id.parts[3].tag != kInteger || id.parts[3].content.empty())
        malformed(name);
    status.issuerNameHash = hex_of(id.parts[1].content);
    status.issuerKeyHash = hex_of(id.parts[2].content);
    status.serialNumber = bytes_of(id.parts[3].content);
    return status;
}

} // namespace

std::string OcspStatus::serial_hex() const {
    const std::string digits = hex_of({as_text(serialNumber), serialNumber.size()});
    return digits.size() > 2 && digits.starts_with("00") ? digits.substr(2) : digits;
}

// A request about the same number, made of the issuer's certificate, has the two digests that are right.
bool OcspStatus::is_of(const ObjectArgument& issuer) const {
    constexpr int kDigests[] = {ZUL_HASH_SHA1, ZUL_HASH_SHA224, ZUL_HASH_SHA256, ZUL_HASH_SHA384,
                                ZUL_HASH_SHA512};
    constexpr size_t kDigits[] = {40, 56, 64, 96, 128};
    for (size_t i = 0; i < std::size(kDigits); ++i) {
        if (issuerKeyHash.size() != kDigits[i])
            continue;
        const std::string serial = "#x00" + serial_hex(); // only the digests of the issuer are compared
        const auto make = [&](char* out, int room) {
            return accept_length(
                OCSP_MakeRequest(out, room, issuer.text(), serial.c_str(), nullptr, kDigests[i]),
                issuer.name());
        };
        std::string text(static_cast<size_t>(make(nullptr, 0)), '\0');
        make(text.data(), static_cast<int>(text.size()));
        const SecretBytes request = decode_text(SecretBytes(text.begin(), text.end()), false, "request");
        const std::string hex = hex_of({as_text(request), request.size()});
        return hex.find(issuerNameHash) != hex.npos && hex.find(issuerKeyHash) != hex.npos;
    }
    return false;
}

int OcspStatus::refusal(const std::string& moment) const {
    if (kind == Kind::revoked)
        return BAD_KEY_ERROR;
    if (kind == Kind::unknown)
        return NO_DATA_ERROR;
    // A responder that names no time for the next answer has a newer one all the time: this one serves a day.
    const bool isOver = nextUpdate.empty()
                            ? seconds_of(moment) > seconds_of(thisUpdate) + std::chrono::hours(24)
                            : moment > nextUpdate;
    return isOver || thisUpdate > moment ? EXPIRED_ERROR : 0;
}

OcspResponse::OcspResponse(const SecretBytes& der, const std::string& name) : name_(name) {
    const std::string pem = ObjectArgument(name, der).text();
    if (cert_query(pem, name, "kind") != "ocspResponse")
        malformed(name);
    const std::vector<DerPart> parts = der_parts(der, name, 3);
    for (const DerPart& part : parts)
        if (part.level == 3 && part.tag == kOctetString) {
            algorithm_ = signature_name(cert_query(pem, name, "signatureAlgorithm"));
            read_basic(part.content);
        }
}

void OcspResponse::read_basic(std::string_view basic) {
    const Fields outer(basic, name_);
    if (outer.parts.size() != 1)
        malformed(name_);
    const Fields fields(outer.parts[0].content, name_);
    if (fields.parts.size() < 3 || fields.parts[0].tag != kSequence || fields.parts[2].tag != kBitString ||
        fields.parts[2].content.size() < 2 || fields.parts[2].content[0] != '\0')
        malformed(name_);
    signed_ = bytes_of(fields.parts[0].all);
    signature_ = bytes_of(fields.parts[2].content.substr(1));
    if (const DerPart* certificates = fields.find(kField0)) {
        const Fields list(certificates->content, name_);
        if (list.parts.size() != 1)
            malformed(name_);
        const Fields all(list.parts[0].content, name_);
        for (const DerPart& each : all.parts)
            certificates_.push_back(bytes_of(each.all));
    }
    const Fields data(fields.parts[0].content, name_);
    const DerPart* responses = data.find(kSequence);
    if (responses == nullptr)
        malformed(name_);
    const Fields singles(responses->content, name_);
    for (const DerPart& each : singles.parts)
        statuses_.push_back(read_status(each.content, name_));
}

void OcspResponse::refuse_others_than(const ObjectArgument& issuer) const {
    for (const OcspStatus& status : statuses_)
        if (!status.is_of(issuer))
            throw Refused::by_system(NO_MATCH_ERROR, name_,
                                     "It is about a certificate of another issuer than " + issuer.name() +
                                         ".");
}

bool OcspResponse::is_signed_by(const SecretBytes& certificate) const {
    try {
        const Key key = Key::read_content(certificate, name_, [] { return SecretBytes(); });
        return SIG_Verify(signature_.data(), int_length(signature_), signed_.data(), int_length(signed_),
                          key.text(), algorithm_.c_str(), 0) == 0;
    } catch (const Refused&) { // a key that the library does not know has not signed
        return false;
    }
}

std::string OcspResponse::signer(const Certificate& certificate, const std::string& moment) const {
    const ObjectArgument& issuer = certificate.argument;
    if (!has_known_algorithm())
        throw Refused::by_system(NOT_SUPPORTED_ERROR, name_,
                                 "Its signature can be checked together with a certificate: --cert CERT");
    if (is_signed_by(certificate.der))
        return issuer.name();
    const std::string conditions =
        "purpose=ocsp;maxDepth=0;anchor=key" + (moment.empty() ? "" : ";time=" + moment);
    for (const SecretBytes& each : certificates_) {
        const ObjectArgument responder(name_, each);
        // In this order, since a stranger's response may hold thousands of certificates and be large.
        if (CERT_CheckPath(nullptr, 0, responder.text(), nullptr, issuer.text(), nullptr, conditions.c_str(),
                           0) == 0 &&
            is_signed_by(each))
            return "the responder " + cert_query(responder.text(), name_, "subject") + ", which " +
                   issuer.name() + " has authorized";
    }
    throw Refused::by_system(SIGNATURE_ERROR, name_,
                             "Neither the key of " + issuer.name() +
                                 " has signed it, nor that of a responder which it has authorized, or it "
                                 "was changed.");
}

} // namespace tool
