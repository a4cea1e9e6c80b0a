#include "cert/path/cert_signature.h"

#include <new>
#include <optional>

#include "frame/err.h"
#include "frame/memory.h"
#include "key/key_der.h"
#include "key/key_oids.h"
#include "key/signature.h"
#include "key/signature_identifier_read.h"
#include "x509/verify/dsa.h"
#include "zulcore.h"

namespace zul {

namespace {

constexpr std::string_view kOidDsa = "\x2A\x86\x48\xCE\x38\x04\x01"sv; // 1.2.840.10040.4.1
constexpr size_t kMaxDsaBytes = 2048;                                  // of one number

struct DsaOid {
    int digest;
    std::string_view oid;
};
constexpr DsaOid kDsaOids[] = {
    // RFC 3279, 2.2.2; RFC 5758, 3.1
    {kDigestSha1, "\x2A\x86\x48\xCE\x38\x04\x03"sv},
    {kDigestSha224, "\x60\x86\x48\x01\x65\x03\x04\x03\x01"sv},
    {kDigestSha256, "\x60\x86\x48\x01\x65\x03\x04\x03\x02"sv},
};

const DsaOid* dsa_oid(const AlgorithmView& algorithm) {
    for (const DsaOid& row : kDsaOids)
        if (algorithm.oid.text() == row.oid)
            return &row;
    return nullptr;
}

[[nodiscard]] int no_match() {
    return err_fail(SIGNATURE_ERROR, "The signature does not verify");
}

bool is_null_or_none(DerView parameters) {
    DerView content;
    return parameters.empty() || (der_single(parameters, kDerNull, content) && content.empty());
}

// take_number takes a positive INTEGER.
bool take_number(DerReader& reader, DerView& number) {
    if (!reader.take(kDerInteger, number) || !der_is_integer(number) || number[0] >= 0x80 ||
        number.size > kMaxDsaBytes + 1)
        return false;
    if (number[0] == 0)
        number = {number.data + 1, number.size - 1};
    return !number.empty();
}

bool take_big_number(DerReader& reader, MT value) {
    DerView number;
    if (!take_number(reader, number))
        return false;
    mtConvFromOctets(value, number.data, number.size);
    return true;
}

bool is_broken(int digest) {
    return digest == kDigestMd2 || digest == kDigestMd5;
}

int64_t square(size_t bits) {
    const auto words = static_cast<int64_t>((bits + 63) / 64);
    return words * words;
}

} // namespace

struct SignerKey::Values {
    Key key;
    std::optional<DsaPublicKey> dsa;
};

SignerKey::SignerKey(SignerKey&& other) noexcept {
    *this = std::move(other);
}

SignerKey& SignerKey::operator=(SignerKey&& other) noexcept {
    std::swap(values_, other.values_);
    std::swap(dsaParameters_, other.dsaParameters_);
    return *this;
}

SignerKey::~SignerKey() {
    if (values_ != nullptr)
        values_->~Values();
    efree(values_);
}

int SignerKey::read(DerView publicKeyInfo, const SignerKey* issuer) {
    SignerKey fresh;
    fresh.values_ = new (emalloc(sizeof(Values))) Values;
    DerView content, bits;
    AlgorithmView algorithm;
    if (!der_single(publicKeyInfo, kDerSequence, content))
        return err_fail(BAD_FORMAT_ERROR, "Invalid SubjectPublicKeyInfo");
    DerReader fields(content);
    if (!algorithm_view_read(fields, algorithm) || !fields.take(kDerBitString, bits) || !fields.at_end())
        return err_fail(BAD_FORMAT_ERROR, "Invalid SubjectPublicKeyInfo");
    if (algorithm.oid.text() == kOidDsa) {
        if (const int error = fresh.read_dsa(algorithm.parameters, bits, issuer))
            return error;
    } else {
        AsnList list;
        if (!key_parse(publicKeyInfo.data, publicKeyInfo.size, list) ||
            key_shape(list.head()) != KeyShape::publicInfo)
            return err_fail(BAD_FORMAT_ERROR, "Invalid SubjectPublicKeyInfo");
        if (const int error = key_read_structure(list.head(), fresh.values_->key))
            return error;
    }
    *this = std::move(fresh);
    return 0;
}

int SignerKey::read_dsa(DerView parameters, DerView bits, const SignerKey* issuer) {
    dsaParameters_ = parameters;
    if (is_null_or_none(parameters))
        dsaParameters_ = issuer == nullptr ? DerView() : issuer->dsa_parameters();
    if (dsaParameters_.empty())
        return err_fail(NOT_SUPPORTED_ERROR, "The DSA key has no parameters, nor has its issuer's key");
    DsaPublicKey& dsa = values_->dsa.emplace();
    DerView content;
    if (!der_single(dsaParameters_, kDerSequence, content))
        return err_fail(BAD_FORMAT_ERROR, "Invalid parameters of a DSA key");
    DerReader numbers(content);
    if (!take_big_number(numbers, dsa.p) || !take_big_number(numbers, dsa.q) ||
        !take_big_number(numbers, dsa.g) || !numbers.at_end())
        return err_fail(BAD_FORMAT_ERROR, "Invalid parameters of a DSA key");
    DerReader value(DerView(bits.data + 1, bits.empty() ? 0 : bits.size - 1));
    if (bits.empty() || bits[0] != 0 || !take_big_number(value, dsa.y) || !value.at_end())
        return err_fail(BAD_FORMAT_ERROR, "Invalid DSA key");
    dsa.bits = mtBitLength(dsa.p);
    return 0;
}

int64_t SignerKey::cost() const {
    if (values_->dsa.has_value())
        return square(values_->dsa->bits) * 4 * static_cast<int64_t>(mtBitLength(values_->dsa->q));
    const Key& key = values_->key;
    if (key.is_rsa())
        return 4 * square(key.rsa->bits) * (1 + static_cast<int64_t>(mtBitLength(key.rsa->e)));
    return key.kind == KeyKind::p521 ? 400'000 : 200'000;
}

int SignerKey::check(DerView bytes, const AlgorithmView& algorithm, DerView signature,
                     PathBudget& budget) const {
    // Digests take five nanoseconds a byte at most.
    if (!budget.take_signature(cost() + 5 * static_cast<int64_t>(bytes.size)))
        return err_fail(OUT_OF_RANGE_ERROR, "Too many signatures to verify");
    if (values_->dsa.has_value())
        return check_dsa(bytes, algorithm, signature);
    SignatureAlgorithm choice;
    if (const int error = signature_identifier_read(choice, algorithm.oid, algorithm.parameters))
        return dsa_oid(algorithm) == nullptr
                   ? error
                   : err_fail(SIGNATURE_ERROR, "The signature algorithm is not the key's");
    if (is_broken(choice.digest) || (choice.scheme == SignatureScheme::rsaPss && is_broken(choice.mgfDigest)))
        return err_fail(NOT_SUPPORTED_ERROR, "Signatures with MD2 and MD5 are refused");
    if (!signature_fits(choice, values_->key))
        return err_fail(SIGNATURE_ERROR, "The signature algorithm is not the key's");
    SignatureBytes input(bytes.data, bytes.size);
    return signature_check(signature.data, signature.size, values_->key, choice, input, 0);
}

int SignerKey::check_dsa(DerView bytes, const AlgorithmView& algorithm, DerView signature) const {
    const DsaOid* const choice = dsa_oid(algorithm);
    if (choice == nullptr)
        return err_fail(SIGNATURE_ERROR, "The signature algorithm is not the key's");
    if (!is_null_or_none(algorithm.parameters))
        return err_fail(BAD_FORMAT_ERROR, "Invalid parameters of a signature algorithm");
    DerView content, r, s;
    if (!der_single(signature, kDerSequence, content))
        return no_match();
    DerReader numbers(content);
    if (!take_number(numbers, r) || !take_number(numbers, s) || !numbers.at_end())
        return no_match();
    uint8_t digest[kMaxDigestSize];
    SignatureBytes input(bytes.data, bytes.size);
    if (const int error = input.digest(digest, choice->digest))
        return error;
    return dsa_verify(*values_->dsa, digest, digest_length(choice->digest), r.data, r.size, s.data, s.size) ==
                   0
               ? 0
               : no_match();
}

int SignerKey::check_object(const SignedView& object, const AlgorithmView& inner, PathBudget& budget) const {
    if (!(object.signatureAlgorithm.encoding == inner.encoding))
        return err_fail(SIGNATURE_ERROR, "The signature algorithm is not the one inside of what is signed");
    if (object.unusedBits != 0)
        return no_match();
    return check(object.toBeSigned, object.signatureAlgorithm, object.signature, budget);
}

const Key* SignerKey::key() const {
    return values_->dsa.has_value() ? nullptr : &values_->key;
}

size_t SignerKey::bits() const {
    if (values_->dsa.has_value())
        return values_->dsa->bits;
    const Key& key = values_->key;
    return key.is_rsa() ? key.rsa->bits : static_cast<size_t>(key_kind_info(key.kind).bits);
}

bool key_inherits_parameters(DerView publicKeyInfo) {
    DerView content;
    AlgorithmView algorithm;
    if (!der_single(publicKeyInfo, kDerSequence, content))
        return false;
    DerReader fields(content);
    return algorithm_view_read(fields, algorithm) && algorithm.oid.text() == kOidDsa &&
           is_null_or_none(algorithm.parameters);
}

bool signature_uses_sha1(const AlgorithmView& algorithm) {
    if (const DsaOid* const dsa = dsa_oid(algorithm))
        return dsa->digest == kDigestSha1;
    SignatureAlgorithm choice;
    if (algorithm.oid.text() == key_kind_info(KeyKind::ed25519).oid ||
        signature_identifier_read(choice, algorithm.oid, algorithm.parameters) != 0)
        return false;
    return choice.digest == kDigestSha1;
}

} // namespace zul
