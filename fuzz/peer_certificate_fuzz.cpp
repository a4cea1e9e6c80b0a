#include <algorithm>
#include <cstring>
#include <ctime>
#include <openssl/rsa.h>
#include <openssl/x509.h>
#include <openssl/x509v3.h>

#include "cert/fields/certificate_view.h"
#include "cert/names/name_print.h"
#include "der/der_tree.h"
#include "frame/err.h"
#include "key/key_der.h"
#include "peer_support.h"

// A certificate that the library and libcrypto both read has the same fields for both. Where one of them
// refuses, a rule below has to say why.

using namespace zul;
using fuzz::Bytes;
using fuzz::require;

namespace {

using Certificate = fuzz::Handle<X509, X509_free>;

DerView view_of(const ASN1_STRING* string) {
    return {ASN1_STRING_get0_data(string), static_cast<size_t>(ASN1_STRING_length(string))};
}

template<class Object>
Bytes encoding_of(int (*encode)(const Object*, uint8_t**), const Object* object) {
    Bytes out(static_cast<size_t>(std::max(0, encode(object, nullptr))));
    uint8_t* at = out.data();
    if (!out.empty())
        encode(object, &at);
    return out;
}

bool same(const Bytes& bytes, DerView view) {
    return DerView(bytes.data(), bytes.size()) == view;
}

// is_canonical tells whether lengths have the fewest octets, SEQUENCE and SET alone are constructed, and tags
// are below 31, as no certificate has others. libcrypto does not look at any of it.
bool is_canonical(const fuzz::DerTree& tree) {
    return std::all_of(tree.begin(), tree.end(), [](const fuzz::DerNode& node) {
        if (node.is_raw() || node.form != fuzz::LengthForm::shortest || node.identifier.size() != 1)
            return false;
        const auto identifier = static_cast<uint8_t>(node.identifier[0]);
        const uint8_t tag = identifier & 0x1F;
        const bool isUniversal = identifier < 0x40, isConstructed = (identifier & 0x20) != 0;
        if (node.is(kDerBoolean) && node.value != std::string(1, '\0') && node.value != "\xFF")
            return false;
        return (!isUniversal || isConstructed == (tag == 0x10 || tag == 0x11)) && is_canonical(node.children);
    });
}

bool is_der(DerView encoding) {
    fuzz::DerTree tree;
    return fuzz::der_tree_read(tree, encoding.text()) && is_canonical(tree);
}

// Times that libcrypto reads but that RFC 5280 does not allow.
bool has_strict_time(const ASN1_TIME* time) {
    const fuzz::Handle<ASN1_TIME, ASN1_TIME_free> made(ASN1_TIME_new());
    const std::string text(view_of(time).text());
    return ASN1_TIME_set_string_X509(made.get(), text.c_str()) == 1 &&
           text.size() == (ASN1_STRING_type(time) == V_ASN1_UTCTIME ? 13U : 15U) &&
           strlen(text.c_str()) == text.size();
}

bool has_duplicate_extension(const X509* certificate) {
    for (int i = 0; i < X509_get_ext_count(certificate); i++)
        if (X509_get_ext_by_OBJ(certificate, X509_EXTENSION_get_object(X509_get_ext(certificate, i)), i) >= 0)
            return true;
    return false;
}

// explains_refusal tells whether the library may refuse what libcrypto has read.
bool explains_refusal(const X509* certificate, DerView encoding) {
    if (!is_der(encoding))
        return true;
    const long version = X509_get_version(certificate);
    const auto* extensions = X509_get0_extensions(certificate);
    const ASN1_BIT_STRING *issuerId = nullptr, *subjectId = nullptr;
    X509_get0_uids(certificate, &issuerId, &subjectId);
    if (version < 0 || version > 2 || (version == 0 && (issuerId != nullptr || subjectId != nullptr)))
        return true;
    // Extensions belong to version 3, are one at least, and of a type each.
    if (extensions != nullptr &&
        (version != 2 || X509_get_ext_count(certificate) == 0 || has_duplicate_extension(certificate)))
        return true;
    if (!has_strict_time(X509_get0_notBefore(certificate)) ||
        !has_strict_time(X509_get0_notAfter(certificate)))
        return true;
    // What DER has another form for comes out different when it is written again (unused bits that are set).
    X509* const copy = X509_dup(certificate);
    require(copy != nullptr);
    const Certificate owner(copy);
    i2d_re_X509_tbs(copy, nullptr);
    return !same(encoding_of<X509>(i2d_X509, copy), encoding);
}

template<class Object, class Decode>
bool peer_reads(DerView part, Decode decode, void (*release)(Object*)) {
    const uint8_t* at = part.data;
    Object* object = decode(nullptr, &at, static_cast<long>(part.size));
    const bool isRead = object != nullptr && at == part.end();
    release(object);
    return isRead;
}

// explains_acceptance tells whether the library may read what libcrypto refuses: it leaves names, keys and
// parameters to those who need them.
bool explains_acceptance(const CertificateView& ours) {
    for (const DerView name : {ours.issuer, ours.subject})
        if (!peer_reads(name, d2i_X509_NAME, X509_NAME_free))
            return true;
    if (!peer_reads(ours.publicKeyInfo, d2i_X509_PUBKEY, X509_PUBKEY_free))
        return true;
    for (const AlgorithmView& algorithm : {ours.signatureAlgorithm, ours.innerAlgorithm})
        if (!peer_reads(algorithm.encoding, d2i_X509_ALGOR, X509_ALGOR_free))
            return true;
    // Unique identifiers, whose content nobody reads.
    DerView content;
    DerElement element;
    bool hasIdentifier = false;
    require(der_single(ours.toBeSigned, kDerSequence, content));
    for (DerReader fields(content); fields.take_any(element);)
        hasIdentifier =
            hasIdentifier || element.identifier == der_context(1) || element.identifier == der_context(2);
    return hasIdentifier;
}

void compare_time(const ASN1_TIME* theirs, int64_t ours) {
    tm time = {};
    require(ASN1_TIME_to_tm(theirs, &time) == 1 && timegm(&time) == ours);
}

void compare_extensions(const X509* theirs, const CertificateView& ours) {
    ExtensionReader reader(ours.extensions);
    ExtensionView extension;
    const int count = std::max(0, X509_get_ext_count(theirs));
    for (int i = 0; i < count; i++) {
        X509_EXTENSION* other = X509_get_ext(theirs, i);
        const ASN1_OBJECT* type = X509_EXTENSION_get_object(other);
        require(reader.next(extension));
        require(DerView(OBJ_get0_data(type), OBJ_length(type)) == extension.oid);
        require((X509_EXTENSION_get_critical(other) != 0) == extension.isCritical);
        require(view_of(X509_EXTENSION_get_data(other)) == extension.value);
    }
    require(!reader.next(extension));
}

// A key that the library reads is one for libcrypto too. The reverse need not be: there are more algorithms,
// and numbers of RSA with which anybody could sign.
void compare_key(const X509* theirs, const CertificateView& ours) {
    AsnList list;
    Key key;
    if (!key_parse(ours.publicKeyInfo.data, ours.publicKeyInfo.size, list) ||
        key_read_structure(list.head(), key) != 0)
        return;
    EVP_PKEY* other = X509_get0_pubkey(theirs);
    if (other == nullptr) {
        // libcrypto reads neither a modulus above 16384 bits nor every set of PSS parameters.
        require(key.is_rsa());
        return;
    }
    if (key.is_rsa()) {
        require(key.rsa && EVP_PKEY_get_bits(other) == static_cast<int>(key.rsa->bits));
        return;
    }
    uint8_t* encoded = nullptr;
    const size_t size = EVP_PKEY_get1_encoded_public_key(other, &encoded);
    const size_t publicBytes = key_kind_info(key.kind).publicBytes;
    Bytes point(encoded, encoded + size);
    OPENSSL_free(encoded);
    if (size == publicBytes + 1 && key.is_ec())
        point.erase(point.begin());
    // A compressed point stays so in libcrypto.
    if (point.size() == publicBytes)
        require(memcmp(point.data(), key.point, publicBytes) == 0);
    else
        require(key.is_ec() && memcmp(point.data() + 1, key.point, point.size() - 1) == 0);
}

void compare(const X509* theirs, const CertificateView& ours) {
    require(X509_get_version(theirs) + 1 == ours.version);
    const Bytes serial = encoding_of<ASN1_INTEGER>(i2d_ASN1_INTEGER, X509_get0_serialNumber(theirs));
    DerView content;
    require(der_single({serial.data(), serial.size()}, kDerInteger, content) && content == ours.serialNumber);
    require(same(encoding_of<X509_NAME>(i2d_X509_NAME, X509_get_issuer_name(theirs)), ours.issuer) ||
            !is_der(ours.issuer));
    require(same(encoding_of<X509_NAME>(i2d_X509_NAME, X509_get_subject_name(theirs)), ours.subject) ||
            !is_der(ours.subject));
    compare_time(X509_get0_notBefore(theirs), ours.notBefore);
    compare_time(X509_get0_notAfter(theirs), ours.notAfter);
    const ASN1_BIT_STRING* signature = nullptr;
    const X509_ALGOR* algorithm = nullptr;
    X509_get0_signature(&signature, &algorithm, theirs);
    require(ours.unusedBits != 0 || view_of(signature) == ours.signature);
    const ASN1_OBJECT* oid = nullptr;
    X509_ALGOR_get0(&oid, nullptr, nullptr, algorithm);
    require(DerView(OBJ_get0_data(oid), OBJ_length(oid)) == ours.signatureAlgorithm.oid);
    compare_extensions(theirs, ours);
    compare_key(theirs, ours);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    CertificateView ours;
    const uint8_t* at = data;
    const Certificate theirs(size == 0 ? nullptr : d2i_X509(nullptr, &at, static_cast<long>(size)));
    const bool theyRead = theirs != nullptr && at == data + size;
    const bool weRead = certificate_view_read({data, size}, ours) == 0;
    if (weRead && theyRead)
        compare(theirs.get(), ours);
    else if (weRead)
        require(explains_acceptance(ours));
    else if (theyRead)
        require(explains_refusal(theirs.get(), {data, size}));
    return 0;
}
