#include "key/signature.h"

#include <cstring>

#include "ec/ecdsa.h"
#include "frame/err.h"
#include "key/ecdsa_der.h"
#include "rng/rng.h"
#include "rsa/pkcs1_signature.h"
#include "rsa/rsa_blinding.h"
#include "rsa/rsa_operation.h"
#include "rsa/rsa_pss.h"
#include "zulcore.h"

namespace zul {
namespace {

using Digest = Secret<kMaxDigestSize>;

[[nodiscard]] int no_signature() {
    return err_fail(SIGNATURE_ERROR, "The signature does not verify");
}

[[nodiscard]] int too_short() {
    return err_fail(BAD_KEY_LEN_ERROR, "The RSA key is too short for the algorithm");
}

// rsa_encoding sets the PSS encoding of a key: BAD_KEY_LEN_ERROR if the salt has no room.
[[nodiscard]] int rsa_encoding(PssEncoding& encoding, const Key& key, const SignatureAlgorithm& algorithm) {
    encoding = {key.rsa->bits - 1, algorithm.digest, algorithm.mgfDigest, algorithm.saltSize};
    size_t room = 0;
    if (!pss_salt_room(encoding, &room))
        return too_short();
    if (algorithm.salt == PssSalt::digest)
        encoding.saltSize = digest_length(algorithm.digest);
    else if (algorithm.salt == PssSalt::most)
        encoding.saltSize = room;
    else if (algorithm.salt == PssSalt::any)
        encoding.saltSize = key.pss.leastSalt, encoding.mayBeLonger = true;
    return encoding.saltSize > room || encoding.saltSize < key.pss.leastSalt ? too_short() : 0;
}

// encode_pkcs1 fills a block of the key's length.
[[nodiscard]] int encode_pkcs1(SecretBuffer& block, const SignatureAlgorithm& algorithm,
                               const Digest& digest) {
    const DigestInfoPrefix* const prefix = digest_info_prefix(algorithm.digest);
    if (prefix == nullptr)
        return err_fail(NOT_SUPPORTED_ERROR, "PKCS #1 v1.5 has no DigestInfo of this digest");
    return pkcs1_sign_block(block.data(), block.size(), digest.data(), prefix->digestLength, algorithm.digest,
                            true) != 0
               ? too_short()
               : 0;
}

[[nodiscard]] int sign_rsa(SecretBuffer& signature, const Key& key, const SignatureAlgorithm& algorithm,
                           const Digest& digest) {
    SecretBuffer block(key.rsa->bytes());
    if (algorithm.scheme == SignatureScheme::rsaPkcs1) {
        if (const int error = encode_pkcs1(block, algorithm, digest))
            return error;
    } else {
        PssEncoding encoding{};
        if (const int error = rsa_encoding(encoding, key, algorithm))
            return error;
        SecretBuffer salt(encoding.saltSize);
        rng_draw(salt.data(), salt.size());
        // A modulus of 8n + 1 bits leaves a zero byte in front.
        pss_encode(block.data() + block.size() - encoding.bytes(), encoding, digest.data(), salt.data());
    }
    signature = SecretBuffer(block.size());
    return rsa_private_blinded(*key.rsa, signature.data(), block.data());
}

[[nodiscard]] int check_rsa(const uint8_t* signature, size_t size, const Key& key,
                            const SignatureAlgorithm& algorithm, const Digest& digest) {
    SecretBuffer undone(key.rsa->bytes());
    size_t length = 0;
    if (size != undone.size() || rsaPublic(&*key.rsa, undone.data(), &length, signature, size) != 0)
        return no_signature();
    if (algorithm.scheme == SignatureScheme::rsaPkcs1) {
        SecretBuffer block(undone.size());
        if (const int error = encode_pkcs1(block, algorithm, digest))
            return error;
        return memcmp(block.data(), undone.data(), block.size()) == 0 ? 0 : no_signature();
    }
    PssEncoding encoding{};
    if (const int error = rsa_encoding(encoding, key, algorithm))
        return error;
    const size_t front = undone.size() - encoding.bytes();
    const bool isGood =
        (front == 0 || undone[0] == 0) && pss_verify(undone.data() + front, encoding, digest.data());
    return isGood ? 0 : no_signature();
}

[[nodiscard]] int sign_ecdsa(SecretBuffer& signature, const Key& key, const SignatureAlgorithm& algorithm,
                             const Digest& digest, int options) {
    const size_t bytes = key_kind_info(key.kind).secretBytes;
    uint8_t rs[2 * kMaxEcBytes];
    Secret<kEcdsaExtra> extra;
    const bool isDeterministic = (options & ZUL_SIG_DETERMINISTIC) != 0;
    if (!isDeterministic)
        rng_draw(extra.data(), extra.size());
    if (ecdsa_sign(rs, key.curve(), key.secret.data(), digest.data(), digest_length(algorithm.digest),
                   algorithm.digest, isDeterministic ? nullptr : extra.data()) != 0)
        return err_fail(NOT_SUPPORTED_ERROR, "RFC 6979 needs a digest that has an HMAC");
    signature = SecretBuffer((options & ZUL_SIG_RAW) != 0 ? 2 * bytes : ecdsa_der_most(bytes));
    if ((options & ZUL_SIG_RAW) != 0)
        memcpy(signature.data(), rs, 2 * bytes);
    else
        signature.shrink(ecdsa_der_write(signature.data(), rs, bytes));
    return 0;
}

[[nodiscard]] int check_ecdsa(const uint8_t* signature, size_t size, const Key& key,
                              const SignatureAlgorithm& algorithm, const Digest& digest, int options) {
    const size_t bytes = key_kind_info(key.kind).secretBytes;
    uint8_t rs[2 * kMaxEcBytes];
    if ((options & ZUL_SIG_RAW) != 0) {
        if (size != 2 * bytes)
            return no_signature();
        memcpy(rs, signature, size);
    } else if (!ecdsa_der_read(rs, bytes, signature, size)) {
        return no_signature();
    }
    return ecdsa_verify(rs, key.curve(), key.point, digest.data(), digest_length(algorithm.digest))
               ? 0
               : no_signature();
}

// What Ed25519 signs: the input, or the digest of the pre-hashed form.
class Ed25519Input {
  public:
    [[nodiscard]] int begin(const SignatureAlgorithm& algorithm, SignatureInput& input) {
        isWhole_ = algorithm.scheme == SignatureScheme::ed25519;
        input_ = &input;
        return isWhole_ ? input.whole_error() : input.digest(digest_.data(), kDigestSha512);
    }
    Ed25519Message& message() {
        if (isWhole_)
            return *input_;
        return preHashed_;
    }
    Ed25519Form form() const { return isWhole_ ? Ed25519Form::pure : Ed25519Form::preHashed; }

  private:
    bool isWhole_ = true;
    SignatureInput* input_ = nullptr;
    Digest digest_;
    Ed25519Bytes preHashed_{digest_.data(), kSha512Size};
};

bool is_ed25519(const SignatureAlgorithm& algorithm) {
    return algorithm.scheme == SignatureScheme::ed25519 || algorithm.scheme == SignatureScheme::ed25519ph;
}

[[nodiscard]] int sign_ed25519(SecretBuffer& signature, const Key& key, const SignatureAlgorithm& algorithm,
                               SignatureInput& input) {
    Ed25519Input message;
    if (const int error = message.begin(algorithm, input))
        return error;
    signature = SecretBuffer(kEd25519Signature);
    return ed25519_sign(signature.data(), key.secret.data(), key.point, message.message(), message.form())
               ? 0
               : input.feed_error();
}

[[nodiscard]] int check_ed25519(const uint8_t* signature, size_t size, const Key& key,
                                const SignatureAlgorithm& algorithm, SignatureInput& input) {
    Ed25519Input message;
    if (const int error = message.begin(algorithm, input))
        return error;
    bool isUnread = false;
    const bool isGood = size == kEd25519Signature &&
                        ed25519_verify(signature, key.point, message.message(), message.form(), &isUnread);
    if (isUnread)
        return input.feed_error();
    return isGood ? 0 : no_signature();
}

} // namespace

int signature_most(size_t* size, const Key& key, const SignatureAlgorithm& algorithm, int options) {
    PssEncoding encoding{};
    const size_t bytes = key_kind_info(key.kind).secretBytes;
    switch (algorithm.scheme) {
    case SignatureScheme::rsaPss:
        if (const int error = rsa_encoding(encoding, key, algorithm))
            return error;
        *size = key.rsa->bytes();
        return 0;
    case SignatureScheme::rsaPkcs1: {
        SecretBuffer block(key.rsa->bytes());
        *size = block.size();
        return encode_pkcs1(block, algorithm, Digest()); // tells whether the key is long enough
    }
    case SignatureScheme::ecdsa:
        *size = (options & ZUL_SIG_RAW) != 0 ? 2 * bytes : ecdsa_der_most(bytes);
        return 0;
    case SignatureScheme::ed25519:
    case SignatureScheme::ed25519ph:
        break;
    }
    *size = kEd25519Signature;
    return 0;
}

int signature_make(SecretBuffer& signature, const Key& key, const SignatureAlgorithm& algorithm,
                   SignatureInput& input, int options) {
    if (is_ed25519(algorithm))
        return sign_ed25519(signature, key, algorithm, input);
    Digest digest;
    if (const int error = input.digest(digest.data(), algorithm.digest))
        return error;
    return key.is_rsa() ? sign_rsa(signature, key, algorithm, digest)
                        : sign_ecdsa(signature, key, algorithm, digest, options);
}

int signature_check(const uint8_t* signature, size_t size, const Key& key,
                    const SignatureAlgorithm& algorithm, SignatureInput& input, int options) {
    if (is_ed25519(algorithm))
        return check_ed25519(signature, size, key, algorithm, input);
    Digest digest;
    if (const int error = input.digest(digest.data(), algorithm.digest))
        return error;
    return key.is_rsa() ? check_rsa(signature, size, key, algorithm, digest)
                        : check_ecdsa(signature, size, key, algorithm, digest, options);
}

} // namespace zul
