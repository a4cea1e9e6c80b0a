#include "cert/report/public_key_fields.h"

#include "cert/fields/oid_names.h"

namespace zul {

namespace {

struct NamedBits {
    std::string_view name;
    int bits;
};

// The bits of the field of a curve.
constexpr NamedBits kCurves[] = {
    {"secp256r1", 256},       {"secp384r1", 384},       {"secp521r1", 521},
    {"secp256k1", 256},       {"secp224r1", 224},       {"secp192r1", 192},
    {"secp160r1", 160},       {"secp192k1", 192},       {"secp224k1", 224},
    {"sect163k1", 163},       {"sect163r2", 163},       {"sect233k1", 233},
    {"sect233r1", 233},       {"sect283k1", 283},       {"sect283r1", 283},
    {"sect409k1", 409},       {"sect409r1", 409},       {"sect571k1", 571},
    {"sect571r1", 571},       {"brainpoolP160r1", 160}, {"brainpoolP192r1", 192},
    {"brainpoolP224r1", 224}, {"brainpoolP256r1", 256}, {"brainpoolP256t1", 256},
    {"brainpoolP320r1", 320}, {"brainpoolP384r1", 384}, {"brainpoolP384t1", 384},
    {"brainpoolP512r1", 512}, {"brainpoolP512t1", 512}, {"sm2", 256},
};
constexpr NamedBits kFixed[] = {
    {"id-Ed25519", 256},
    {"id-X25519", 256},
    {"id-Ed448", 456},
    {"id-X448", 448},
};

template<size_t count>
int bits_of(const NamedBits (&rows)[count], std::string_view name) {
    for (const NamedBits& row : rows)
        if (row.name == name)
            return row.bits;
    return 0;
}

// first_integer gives the bits of the first INTEGER of a SEQUENCE.
int first_integer(DerView sequence) {
    DerView content, number;
    return der_single(sequence, kDerSequence, content) && DerReader(content).take(kDerInteger, number)
               ? positive_bits(number)
               : 0;
}

// specified_bits gives the bits of the field of explicit parameters (RFC 3279, 2.3.5).
int specified_bits(DerView parameters) {
    DerView content, fieldId, type, number, fieldParameters;
    if (!der_single(parameters, kDerSequence, content))
        return 0;
    DerReader fields(content);
    if (!fields.skip(kDerInteger) || !fields.take(kDerSequence, fieldId))
        return 0;
    DerReader field(fieldId);
    if (!field.take(kDerOid, type))
        return 0;
    if (oid_name(type) == "prime-field")
        return field.take(kDerInteger, number) ? positive_bits(number) : 0;
    int degree;
    return field.take(kDerSequence, fieldParameters) &&
                   DerReader(fieldParameters).take(kDerInteger, number) && der_small_integer(number, degree)
               ? degree
               : 0;
}

} // namespace

int positive_bits(DerView integer) {
    if (!der_is_integer(integer) || integer[0] >= 0x80)
        return 0;
    size_t first = 0;
    while (first < integer.size && integer[first] == 0)
        first++;
    if (first == integer.size || integer.size > (1 << 24))
        return 0;
    int bits = static_cast<int>(8 * (integer.size - first - 1));
    for (unsigned top = integer[first]; top != 0; top >>= 1)
        bits++;
    return bits;
}

bool public_key_view_read(DerView publicKeyInfo, PublicKeyView& key) {
    DerView content, bits;
    if (!der_single(publicKeyInfo, kDerSequence, content))
        return false;
    DerReader fields(content);
    if (!algorithm_view_read(fields, key.algorithm) || !fields.take(kDerBitString, bits) ||
        !fields.at_end() || !der_bits(bits, key.key, key.unusedBits))
        return false;
    key.name = oid_name(key.algorithm.oid);
    return true;
}

bool public_key_is_ec(const PublicKeyView& key) {
    return key.name == "id-ecPublicKey" || key.name == "id-ecDH" || key.name == "id-ecMQV";
}

bool public_key_is_rsa(const PublicKeyView& key) {
    return key.name == "rsaEncryption" || key.name == "id-RSASSA-PSS" || key.name == "id-RSAES-OAEP" ||
           key.name == "rsa";
}

DerView public_key_curve(const PublicKeyView& key) {
    DerView oid;
    return public_key_is_ec(key) && der_single(key.algorithm.parameters, kDerOid, oid) ? oid : DerView();
}

int public_key_bits(const PublicKeyView& key) {
    if (public_key_is_rsa(key))
        return first_integer(key.key);
    if (key.name == "id-dsa" || key.name == "dhpublicnumber" || key.name == "dhKeyAgreement")
        return first_integer(key.algorithm.parameters);
    if (!public_key_is_ec(key))
        return bits_of(kFixed, key.name);
    const DerView curve = public_key_curve(key);
    return curve.empty() ? specified_bits(key.algorithm.parameters) : bits_of(kCurves, oid_name(curve));
}

} // namespace zul
