// Content encryption: Triple DES and RC2 (RFC 3370, 5.1 and 5.2), AES (RFC 3565, 4.1).
#include "cms/enveloped/content_cipher.h"

#include <cstring>

#include "asn1/asn_build.h"
#include "asn1/asn_children.h"
#include "asn1/asn_value.h"
#include "frame/err.h"
#include "x509/fields/subject_public_key.h"
#include "zulcore.h"

namespace zul {

struct ContentCipherRow {
    const char* name;
    ContentCipher::Kind kind;
    size_t keyLength, blockLength;
    int option; // that chooses it, 0 for none
};

namespace {

using Kind = ContentCipher::Kind;

constexpr int kCipherMask = 0xF0;
constexpr ContentCipherRow kCiphers[] = {
    {"des-EDE3-CBC", Kind::tdes, 24, 8, ZUL_CMS_CIPHER_TDEA},
    {"aes128-CBC", Kind::aes, 16, 16, ZUL_CMS_CIPHER_AES128},
    {"aes192-CBC", Kind::aes, 24, 16, ZUL_CMS_CIPHER_AES192},
    {"aes256-CBC", Kind::aes, 32, 16, ZUL_CMS_CIPHER_AES256},
    {"des_3CBC_pad", Kind::tdes, 24, 8, 0},
    {"rc2CBC", Kind::rc2, 0, 8, 0},
};
constexpr const ContentCipherRow& kTripleDes = kCiphers[0];
constexpr const ContentCipherRow& kPaddedTripleDes = kCiphers[4];

int invalid(const char* text) {
    err_add_text("%s", text);
    return INVALID_DATA_ERROR;
}

// rc2_bits gives the effective key bits for a parameter version, 0 for one that does not serve (RFC 2268, 6).
unsigned rc2_bits(int64_t version) {
    switch (version) {
    case 160:
        return 40;
    case 120:
        return 64;
    case 58:
        return 128;
    }
    const bool serves = version >= 256 && version <= int64_t{8 * ContentCipher::kMaxKey} && version % 8 == 0;
    return serves ? static_cast<unsigned>(version) : 0;
}

} // namespace

void ContentCipher::take(const ContentCipherRow& row) {
    name_ = row.name;
    kind_ = row.kind;
    keyLength_ = row.keyLength;
    blockLength_ = row.blockLength;
}

void ContentCipher::choose(int options) {
    take((options & ZUL_CMS_NAMED_SIGALG) != 0 ? kPaddedTripleDes : kTripleDes);
    for (const ContentCipherRow& row : kCiphers)
        if (row.kind == Kind::aes && row.option == (options & kCipherMask))
            take(row);
}

bool ContentCipher::read_iv(const asn_Node* node) {
    SecretBuffer iv;
    if (!asn_GetOctets(node, iv) || iv.size() != blockLength_)
        return false;
    memcpy(iv_, iv.data(), blockLength_);
    return true;
}

int ContentCipher::read_rc2_parameter(const asn_Node* parameter) {
    if (!asn_is(parameter, kAsnConstructed, kAsnSequence))
        return invalid("Missing R.2-CBC-Parameter");
    AsnChildren fields(parameter);
    const int64_t version = asn_GetInt(fields.take_integer());
    if (version < 0) // none, or one of more than 4 octets
        return invalid("Missing R.2-CBC-Parameter");
    rc2Bits_ = rc2_bits(version);
    if (rc2Bits_ == 0) {
        err_add_text("Invalid ParameterVersion (%d)", static_cast<int>(version));
        return INVALID_DATA_ERROR;
    }
    keyLength_ = rc2Bits_ / 8;
    return read_iv(fields.take_octets()) ? 0 : invalid("Invalid IV for R.2 encryption");
}

int ContentCipher::read(const asn_Node* algorithm) {
    char name[kAlgorithmName];
    algorithm_name(algorithm, name);
    const ContentCipherRow* found = nullptr;
    for (const ContentCipherRow& row : kCiphers)
        if (strcmp(row.name, name) == 0)
            found = &row;
    if (found == nullptr) {
        err_add_text("Unsupported content encryption algorithm '%s'", name);
        return NOT_SUPPORTED_ERROR;
    }
    take(*found);
    AsnChildren fields(algorithm);
    fields.take_oid();
    if (kind_ == Kind::rc2)
        return read_rc2_parameter(fields.peek());
    if (read_iv(fields.peek()))
        return 0;
    return invalid(kind_ == Kind::aes ? "Invalid IV for AES encryption"
                                      : "Invalid IV for Triple DES encryption");
}

AsnList ContentCipher::algorithm_identifier() const {
    return asn_NewSequence(asn_LinkList(asn_NewOid(name_), asn_NewOctetString(iv_, blockLength_)));
}

void ContentCipher::finish_key(uint8_t* key) const {
    if (kind_ != Kind::tdes)
        return;
    for (size_t i = 0; i < keyLength_; i++) { // odd parity (FIPS 46-3), which tokens check
        unsigned sum = key[i] >> 1;
        sum ^= sum >> 4;
        sum ^= sum >> 2;
        sum ^= sum >> 1;
        key[i] = static_cast<uint8_t>((key[i] & 0xFE) | (~sum & 1));
    }
}

void ContentCipher::encrypt(const uint8_t* key, uint8_t* iv, uint8_t* data, size_t blocks) const {
    if (kind_ == Kind::aes) {
        Wiped<AesKey> aes;
        aes_set_encrypt_key(*aes, key, keyLength_);
        aes_cbc_encrypt(*aes, iv, data, data, blocks);
    } else if (kind_ == Kind::tdes) {
        Wiped<TdesKey> tdes;
        tdes_set_key(*tdes, key);
        tdes_cbc_encrypt(*tdes, iv, data, data, blocks);
    } else {
        Wiped<Rc2Key> rc2;
        rc2_set_key(*rc2, key, keyLength_, rc2Bits_);
        rc2_cbc_encrypt(*rc2, iv, data, data, blocks);
    }
}

void ContentCipher::decrypt(const uint8_t* key, uint8_t* iv, uint8_t* data, size_t blocks) const {
    if (kind_ == Kind::aes) {
        Wiped<AesKey> aes;
        aes_set_key(*aes, key, keyLength_);
        aes_cbc_decrypt(*aes, iv, data, data, blocks);
    } else if (kind_ == Kind::tdes) {
        Wiped<TdesKey> tdes;
        tdes_set_key(*tdes, key);
        tdes_cbc_decrypt(*tdes, iv, data, data, blocks);
    } else {
        Wiped<Rc2Key> rc2;
        rc2_set_key(*rc2, key, keyLength_, rc2Bits_);
        rc2_cbc_decrypt(*rc2, iv, data, data, blocks);
    }
}

} // namespace zul
