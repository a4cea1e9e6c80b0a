// Content encryption: Triple DES and RC2 (RFC 3370, 5.1 and 5.2), AES (RFC 3565, 4.1).
#include "cms/enveloped/content_cipher.h"

#include <cstring>

#include "asn1/asn_build.h"
#include "asn1/asn_children.h"
#include "asn1/asn_value.h"
#include "cipher/cipher_context.h"
#include "frame/err.h"
#include "x509/fields/subject_public_key.h"
#include "zulcore.h"

namespace zul {

namespace {

constexpr char kPaddedTripleDes[] = "des_3CBC_pad"; // another name of Triple DES, which old messages have

// rc2_bits gives the effective key bits for a parameter version, 0 for an unsupported one (RFC 2268, 6).
unsigned rc2_bits(int64_t version) {
    switch (version) {
    case 160:
        return 40;
    case 120:
        return 64;
    case 58:
        return 128;
    }
    const bool isSupported =
        version >= 256 && version <= int64_t{8 * ContentCipher::kMaxKey} && version % 8 == 0;
    return isSupported ? static_cast<unsigned>(version) : 0;
}

} // namespace

void ContentCipher::take(const BlockCipher& cipher) {
    algorithm_ = cipher.algorithm;
    name_ = cipher.cbcName;
    keyLength_ = cipher.keyLength;
    blockLength_ = cipher.blockLength;
}

static_assert(ZUL_CMS_CIPHER_AES128 == ZUL_CIPHER_AES128 && ZUL_CMS_CIPHER_AES192 == ZUL_CIPHER_AES192 &&
              ZUL_CMS_CIPHER_AES256 == ZUL_CIPHER_AES256);

void ContentCipher::choose(int options) {
    const BlockCipher* cipher = block_cipher_option(options);
    take(cipher != nullptr ? *cipher : block_cipher(CipherAlgorithm::tdea));
    if (algorithm_ == CipherAlgorithm::tdea && (options & ZUL_CMS_NAMED_SIGALG) != 0)
        name_ = kPaddedTripleDes;
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
        return err_invalid_data("Missing R.2-CBC-Parameter");
    AsnChildren fields(parameter);
    const int64_t version = asn_GetInt(fields.take_integer());
    if (version < 0) // none, or one of more than 4 octets
        return err_invalid_data("Missing R.2-CBC-Parameter");
    rc2Bits_ = rc2_bits(version);
    if (rc2Bits_ == 0)
        return err_fail(INVALID_DATA_ERROR, "Invalid ParameterVersion (%d)", static_cast<int>(version));
    keyLength_ = rc2Bits_ / 8;
    return read_iv(fields.take_octets()) ? 0 : err_invalid_data("Invalid IV for R.2 encryption");
}

int ContentCipher::read(const asn_Node* algorithm) {
    char name[kAlgorithmName];
    algorithm_name(algorithm, name);
    const BlockCipher* cipher =
        strcmp(name, kPaddedTripleDes) == 0 ? &block_cipher(CipherAlgorithm::tdea) : block_cipher_named(name);
    if (cipher == nullptr || cipher->algorithm == CipherAlgorithm::des)
        return err_fail(NOT_SUPPORTED_ERROR, "Unsupported content encryption algorithm '%s'", name);
    take(*cipher);
    AsnChildren fields(algorithm);
    fields.take_oid();
    if (algorithm_ == CipherAlgorithm::rc2)
        return read_rc2_parameter(fields.peek());
    if (read_iv(fields.peek()))
        return 0;
    return err_invalid_data(algorithm_ == CipherAlgorithm::tdea ? "Invalid IV for Triple DES encryption"
                                                                : "Invalid IV for AES encryption");
}

AsnList ContentCipher::algorithm_identifier() const {
    return asn_NewSequence(asn_LinkList(asn_NewOid(name_), asn_NewOctetString(iv_, blockLength_)));
}

void ContentCipher::finish_key(uint8_t* key) const {
    if (algorithm_ != CipherAlgorithm::tdea)
        return;
    for (size_t i = 0; i < keyLength_; i++) { // odd parity (FIPS 46-3), which tokens check
        unsigned sum = key[i] >> 1;
        sum ^= sum >> 4;
        sum ^= sum >> 2;
        sum ^= sum >> 1;
        key[i] = static_cast<uint8_t>((key[i] & 0xFE) | (~sum & 1));
    }
}

int ContentCipher::run(bool encrypt, const uint8_t* key, const uint8_t* iv, uint8_t* data,
                       size_t blocks) const {
    CipherContext context;
    const int error = context.init(algorithm_, CipherMode::cbc, encrypt, {key, keyLength_, rc2Bits_}, iv);
    return error != 0 ? error : context.update(data, data, blocks * blockLength_);
}

} // namespace zul
