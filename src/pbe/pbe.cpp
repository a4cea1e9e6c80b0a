// EncryptedPrivateKeyInfo, RFC 5208, section 6.
#include "pbe/pbe.h"

#include <cstdio>
#include <cstring>
#include <new>

#include "asn1/asn_build.h"
#include "asn1/asn_children.h"
#include "asn1/asn_parse.h"
#include "asn1/asn_value.h"
#include "asn1/byte_stream.h"
#include "cipher/padding.h"
#include "frame/constant_time.h"
#include "frame/debug_output.h"
#include "frame/err.h"
#include "hash/digest.h"
#include "pbe/kdf.h"
#include "pbe/pbe_cipher.h"
#include "platform/platform.h"
#include "zulcore.h"

namespace zul {

namespace {

constexpr size_t kSaltLength = 8;

void trace(const char* line) {
    if (debugOutput.structures != 0)
        std::fputs(line, stdout);
}

static_assert(ZUL_PBE_CIPHER_AES128 == ZUL_CIPHER_AES128 && ZUL_PBE_CIPHER_AES192 == ZUL_CIPHER_AES192 &&
              ZUL_PBE_CIPHER_AES256 == ZUL_CIPHER_AES256);

// choose_pbes2 takes the cipher (Triple DES if there is no such one) and the PRF of options.
void choose_pbes2(PbeParams& params, int options) {
    pbe_take_scheme(params, pbe_scheme("pkcs5PBES2"));
    const BlockCipher* cipher = block_cipher_option(options);
    pbe_take_cipher(params, cipher != nullptr ? *cipher : block_cipher(CipherAlgorithm::tdea));
    params.prf = pbe_prf_of(options & 0xF);
}

void choose_scheme(PbeParams& params, int options) {
    if ((options & ZUL_PBE_PBES2) != 0)
        return choose_pbes2(params, options);
    switch (options & 0xF) {
    case ZUL_PBE_MD5_DES:
        return pbe_take_scheme(params, pbe_scheme("pbeWithMD5AndDES-CBC"));
    case ZUL_PBE_MD2_DES:
        return pbe_take_scheme(params, pbe_scheme("pbeWithMD2AndDES-CBC"));
    case ZUL_PBE_SHA1_DES:
        return pbe_take_scheme(params, pbe_scheme("pbeWithSHA1AndDES-CBC"));
    case ZUL_PBE_PBES2_DEFAULT:
        return choose_pbes2(params, 0);
    default:
        return pbe_take_scheme(params, pbe_scheme("pbeWithSHAAnd3-KeyTripleDES-CBC"));
    }
}

uint64_t calendar_seconds() {
    constexpr uint64_t kUnitsPerSecond = 10'000'000, kSecondsTo1970 = 11'644'473'600;
    return platform::system_time() / kUnitsPerSecond - kSecondsTo1970;
}

// make_salt digests the password, the plain text and, for PBES2, the time. In the other schemes the same
// password and key always give the same salt, and so the same file.
void make_salt(PbeParams& params, const uint8_t* plain, size_t plainLen) {
    Wiped<Sha1Context> context;
    Secret<kSha1Size> digest;
    sha1_init(*context);
    sha1_update(*context, params.password.data(), params.password.size());
    sha1_update(*context, plain, plainLen);
    if (params.scheme->kind == PbeKind::pbes2) {
        uint8_t time[8];
        store_word<std::endian::little>(time, calendar_seconds());
        sha1_update(*context, time, sizeof time);
    }
    sha1_final(*context, digest.data());
    params.salt = SecretBuffer(kSaltLength);
    std::memcpy(params.salt.data(), digest.data(), kSaltLength);
    trace("Made salt\n");
}

// is_sequence tells whether bytes are one SEQUENCE and nothing more.
bool is_sequence(const SecretBuffer& bytes) {
    ByteStream stream(bytes.data(), bytes.size());
    const AsnList list = asn_Parse(stream, false);
    return asn_is(list.head(), kAsnConstructed, kAsnSequence) && stream.at_end();
}

[[nodiscard]] int decrypt_in_place(PbeParams& params, SecretBuffer& data) {
    const size_t block = params.ivLength;
    if (data.empty() || data.size() % block != 0)
        return err_fail(DECRYPT_ERROR, "Decryption error");
    Secret<kPbeMaxKey> key;
    pbe_derive_key(params, key);
    if (const int error = pbe_decrypt_blocks(params, key, data.data(), data.size() / block); error != 0)
        return error;
    const size_t padding = ct_declassify(pad_count(data.data() + data.size() - block, block));
    if (padding == 0)
        return err_fail(DECRYPT_ERROR, "Decryption error");
    data.shrink(data.size() - padding);
    return is_sequence(data) ? 0 : err_fail(DECRYPT_ERROR, "Not valid PrivateKeyInfo data");
}

} // namespace

PbeContext::PbeContext() : params_(new (emalloc(sizeof(PbeParams))) PbeParams) {}

PbeContext::~PbeContext() {
    params_->~PbeParams();
    wipe_bytes(params_, sizeof *params_);
    efree(params_);
}

int pbe_setup(PbeContext& context, const char* password, int iterationCount, int options) {
    PbeParams& params = *context;
    if (const int error = pbe_take_password(params, password); error != 0)
        return error;
    params.iterations = iterationCount < 1 ? 1 : static_cast<uint32_t>(iterationCount);
    choose_scheme(params, options);
    return 0;
}

AsnList pbe_encrypt(PbeContext& context, const uint8_t* plain, size_t plainLen) {
    PbeParams& params = *context;
    if (params.scheme == nullptr) {
        err_add_text("Unsupported PBE algorithm: %s", "none");
        return {};
    }
    const size_t padding = pad_bytes_needed(plainLen, params.ivLength);
    if (plainLen > kAsnMaxContent - padding) {
        err_add_text("Invalid EncryptedPrivateKeyInfo format");
        return {};
    }
    make_salt(params, plain, plainLen);
    if (params.scheme->kind == PbeKind::pbes2) {
        pkcs12_kdf(params.iv.data(), params.ivLength, kDigestSha1, Pkcs12Purpose::iv, params.password.data(),
                   params.password.size(), params.salt.data(), params.salt.size(), params.iterations);
    }
    Secret<kPbeMaxKey> key;
    pbe_derive_key(params, key);
    trace("Made key\n");

    SecretBuffer data(plainLen + padding);
    if (plainLen != 0)
        std::memcpy(data.data(), plain, plainLen);
    std::memset(data.data() + plainLen, static_cast<int>(padding), padding);
    if (pbe_encrypt_blocks(params, key, data.data(), data.size() / params.ivLength) != 0)
        return {};
    trace("Made ciphertext\n");
    return asn_NewSequence(
        asn_LinkList(pbe_algorithm_list(params), asn_NewOctetString(data.data(), data.size())));
}

int pbe_decrypt(const asn_Node* encryptedPrivateKeyInfo, const char* password, SecretBuffer& plain,
                PbeReader reader) {
    plain = SecretBuffer();
    PbeContext context;
    PbeParams& params = *context;
    if (const int error = pbe_take_password(params, password); error != 0)
        return error;

    SecretBuffer data;
    AsnChildren children = AsnChildren::of_sequence(encryptedPrivateKeyInfo);
    const asn_Node* algorithm = children.take_sequence();
    if (algorithm == nullptr || !asn_GetOctets(children.take_octets(), data) || !children.at_end()) {
        return err_fail(BAD_FORMAT_ERROR, "Invalid EncryptedPrivateKeyInfo format");
    }
    int error = pbe_read_algorithm(params, algorithm, reader);
    if (error == 0)
        error = decrypt_in_place(params, data);
    if (error == 0)
        plain = std::move(data);
    return error;
}

} // namespace zul
