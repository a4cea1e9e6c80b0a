// Reads AlgorithmIdentifiers of the schemes: RFC 8018, appendix A; RFC 7292, appendix C.
#include <cstring>

#include "asn1/asn_children.h"
#include "asn1/asn_value.h"
#include "asn1/oid.h"
#include "frame/err.h"
#include "pbe/pbe_params.h"
#include "zulcore.h"

namespace zul {

namespace {

// OidName is the name of an object identifier, or the dotted form of one that the table lacks.
class OidName {
  public:
    explicit OidName(const asn_Node* node) {
        OidInfo info;
        if (asn_GetOid(node, &info) == 0)
            std::memcpy(text_, info.name, sizeof info.name);
        else if (oid_ToDotted(node, text_, kMax) < 0)
            text_[0] = '\0';
    }
    const char* text() const { return text_; }
    bool is(const char* name) const { return std::strcmp(text_, name) == 0; }

  private:
    static constexpr size_t kMax = 159; // 32 octets never have a longer dotted form
    char text_[kMax + 1] = {};
};

[[nodiscard]] int no_params() {
    return err_fail(BAD_FORMAT_ERROR, "Failed to extract PBE parameters");
}

[[nodiscard]] int no_cipher_params() {
    return err_fail(BAD_FORMAT_ERROR, "PBES2 encryption scheme parameters invalid or not supported");
}

// positive reads an INTEGER from 1 to 2^32-1; 0 for any other.
uint32_t positive(const asn_Node* node) {
    uint8_t bytes[4];
    if (node == nullptr || node->length == 0 || (node->data[0] & 0x80) != 0)
        return 0;
    const int length = asn_GetIntegerBytes(node, bytes, sizeof bytes);
    uint32_t value = 0;
    for (int i = 0; i < length; i++)
        value = value << 8 | bytes[i];
    return value;
}

[[nodiscard]] int read_salt_and_iterations(PbeParams& params, AsnChildren& children) {
    const asn_Node* salt = children.take_octets();
    params.iterations = positive(children.take_integer());
    if (!asn_GetOctets(salt, params.salt) || params.salt.size() > kAsnMaxContent || params.iterations == 0)
        return no_params();
    return pbe_check_iterations(params.iterations);
}

[[nodiscard]] int read_prf(PbeParams& params, const asn_Node* algorithm, PbeReader reader) {
    AsnChildren children(algorithm);
    const asn_Node* oid = children.take_oid();
    if (oid == nullptr)
        return no_params();
    const OidName name(oid);
    params.prf = pbe_prf(name.text());
    if (reader == PbeReader::anyKey) {
        children.take_if(kAsnUniversal, kAsnNull);
        if (!children.at_end())
            return no_params();
        if (params.prf == nullptr)
            params.prf = pbe_further_prf(name.text());
    }
    return params.prf != nullptr
               ? 0
               : err_fail(NOT_SUPPORTED_ERROR, "PRF algorithm '%s' not supported", name.text());
}

// read_pbkdf2 reads PBKDF2-params. keyLength becomes 0 if the field is absent.
[[nodiscard]] int read_pbkdf2(PbeParams& params, const asn_Node* algorithm, uint32_t* keyLength,
                              PbeReader reader) {
    AsnChildren children(algorithm);
    const asn_Node* oid = children.take_oid();
    if (oid == nullptr)
        return no_params();
    const OidName name(oid);
    if (!name.is("pkcs5PBKDF2"))
        return err_fail(NOT_SUPPORTED_ERROR, "Key derivation algorithm '%s' not supported", name.text());
    AsnChildren fields(children.take_sequence());
    if (!children.at_end())
        return no_params();
    if (const int error = read_salt_and_iterations(params, fields))
        return error;
    *keyLength = 0;
    if (const asn_Node* field = fields.take_integer(); field != nullptr) {
        *keyLength = positive(field);
        if (*keyLength == 0)
            return no_params();
    }
    const asn_Node* prfAlgorithm = fields.take_sequence();
    if (!fields.at_end())
        return no_params();
    params.prf = pbe_prf("hmacWithSHA1");
    if (prfAlgorithm == nullptr)
        return 0;
    return read_prf(params, prfAlgorithm, reader);
}

// read_rc2 reads RC2-CBC-Parameter as far as the IV. A version stands for effective key bits: three small
// versions by a table, a version from 256 up for itself, a missing one for 32.
[[nodiscard]] int read_rc2(PbeParams& params, AsnChildren& fields) {
    params.rc2Bits = 32;
    const asn_Node* node = fields.take_integer();
    if (node == nullptr)
        return 0;
    const int64_t version = positive(node); // 0 for an invalid one
    switch (version) {
    case 160:
        params.rc2Bits = 40;
        return 0;
    case 120:
        params.rc2Bits = 64;
        return 0;
    case 58:
        params.rc2Bits = 128;
        return 0;
    default:
        if (version < 256 || version > 1024)
            return err_fail(NOT_SUPPORTED_ERROR, "Invalid ParameterVersion (%d)", static_cast<int>(version));
        params.rc2Bits = static_cast<unsigned>(version);
        return 0;
    }
}

// read_cipher reads the encryption scheme of PBES2; keyLength is that of PBKDF2-params, or 0.
[[nodiscard]] int read_cipher(PbeParams& params, const asn_Node* algorithm, uint32_t keyLength) {
    AsnChildren children(algorithm);
    const asn_Node* oid = children.take_oid();
    if (oid == nullptr)
        return no_cipher_params();
    const OidName name(oid);
    const BlockCipher* cipher = block_cipher_named(name.text());
    if (cipher == nullptr)
        return err_fail(NOT_SUPPORTED_ERROR, "'%s' not supported", name.text());
    pbe_take_cipher(params, *cipher);
    SecretBuffer iv;
    if (params.cipher == CipherAlgorithm::rc2) {
        AsnChildren fields(children.take_sequence());
        if (const int error = read_rc2(params, fields); error != 0)
            return error;
        if (!asn_GetOctets(fields.take_octets(), iv) || !fields.at_end())
            return no_cipher_params();
        params.keyLength = keyLength != 0 ? keyLength : (params.rc2Bits + 7) / 8;
    } else if (!asn_GetOctets(children.take_octets(), iv)) {
        return no_cipher_params();
    }
    if (!children.at_end() || iv.size() != params.ivLength || params.keyLength > kPbeMaxKey ||
        (keyLength != 0 && keyLength != params.keyLength))
        return no_cipher_params();
    std::memcpy(params.iv.data(), iv.data(), iv.size());
    return 0;
}

} // namespace

int pbe_read_algorithm(PbeParams& params, const asn_Node* algorithmIdentifier, PbeReader reader) {
    AsnChildren children(algorithmIdentifier);
    const asn_Node* oid = children.take_oid();
    if (oid == nullptr)
        return no_params();
    const OidName name(oid);
    const PbeScheme* scheme = pbe_scheme(name.text());
    if (scheme == nullptr)
        return err_fail(NOT_SUPPORTED_ERROR, "Unsupported PBE algorithm: %s", name.text());
    pbe_take_scheme(params, scheme);
    AsnChildren fields(children.take_sequence());
    if (!children.at_end())
        return no_params();
    if (scheme->kind != PbeKind::pbes2) {
        const int error = read_salt_and_iterations(params, fields);
        return error != 0 || fields.at_end() ? error : no_params();
    }

    const asn_Node* derivation = fields.take_sequence();
    const asn_Node* encryption = fields.take_sequence();
    if (derivation == nullptr || encryption == nullptr || !fields.at_end())
        return no_params();
    uint32_t keyLength = 0;
    const int error = read_pbkdf2(params, derivation, &keyLength, reader);
    return error != 0 ? error : read_cipher(params, encryption, keyLength);
}

} // namespace zul
