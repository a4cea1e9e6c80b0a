// EMSA-PKCS1-v1_5: RFC 8017, 9.2.
#include "rsa/pkcs1_signature.h"

#include <cstring>

#include "frame/err.h"
#include "frame/wipe.h"
#include "hash/digest.h"
#include "rsa/pkcs1_encryption.h"

namespace zul {

namespace {

constexpr uint8_t kBlockType = 1, kPadding = 0xFF;
// A reader accepts seven bytes of padding, one fewer than writers make and encryption blocks need, so that
// old signatures stay valid.
constexpr size_t kHeader = 2, kFirstEnd = 9;

} // namespace

int pkcs1_sign_block(uint8_t* out, size_t outLen, const uint8_t* message, size_t length, int algorithm,
                     bool isDigest) {
    const DigestInfoPrefix* const prefix = digest_info_prefix(algorithm);
    if (prefix == nullptr)
        return BAD_FLAG_ERROR;
    if (isDigest && length != prefix->digestLength)
        return err_fail(BAD_LENGTH_ERROR, "Digest provided is not the correct length");
    const size_t infoLength = prefix->length + prefix->digestLength;
    if (outLen < infoLength + kPkcs1Overhead)
        return SHORT_BUF_ERROR;
    Secret<kMaxDigestSize> digest;
    if (isDigest)
        memcpy(digest.data(), message, length);
    else
        static_cast<void>(
            hash_bytes(digest.data(), int{kMaxDigestSize}, message, static_cast<int64_t>(length), algorithm));

    const size_t start = outLen - infoLength;
    out[0] = 0;
    out[1] = kBlockType;
    memset(out + kHeader, kPadding, start - 1 - kHeader);
    out[start - 1] = 0;
    memcpy(out + start, prefix->bytes, prefix->length);
    memcpy(out + start + prefix->length, digest.data(), prefix->digestLength);
    return 0;
}

int pkcs1_open_block(const uint8_t* block, size_t length, size_t* start, const DigestInfoPrefix** prefix) {
    if (length < kFirstEnd + 1 || block[0] != 0 || block[1] != kBlockType)
        return DECRYPT_ERROR;
    size_t end = kHeader;
    while (end < length && block[end] == kPadding)
        end++;
    if (end == length || block[end] != 0 || end < kFirstEnd)
        return DECRYPT_ERROR;
    *start = end + 1;
    *prefix = digest_info_match(block + *start, length - *start);
    return *prefix == nullptr ? DECRYPT_ERROR : 0;
}

} // namespace zul
