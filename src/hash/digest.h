#pragma once
#include "hash/md2.h"
#include "hash/md5.h"
#include "hash/sha1.h"
#include "hash/sha256.h"
#include "hash/sha512.h"
#include "zulcore.h"

// The seven digests behind their algorithm numbers.
namespace zul {

enum DigestAlgorithm : int {
    kDigestSha1 = ZUL_HASH_SHA1,
    kDigestMd5 = ZUL_HASH_MD5,
    kDigestMd2 = ZUL_HASH_MD2,
    kDigestSha256 = ZUL_HASH_SHA256,
    kDigestSha384 = ZUL_HASH_SHA384,
    kDigestSha512 = ZUL_HASH_SHA512,
    kDigestSha224 = ZUL_HASH_SHA224,
    kDigestSha1Rng = ZUL_HASH_SHA1_RNG, // SHA-1 under a second number
};

constexpr int kDigestAlgorithmMask = 0xF; // in an options word
constexpr size_t kMaxDigestSize = 64;
constexpr size_t kMaxDigestBlockSize = 128;

// digest_length is the size of a digest in bytes, or -BAD_FLAG_ERROR for a number that names none.
int digest_length(int algorithm);
// digest_block_size is the size of the blocks that a digest absorbs, in bytes, or -BAD_FLAG_ERROR.
int digest_block_size(int algorithm);

// A digest of any algorithm in progress; a plain structure that may be copied.
struct DigestContext {
    int algorithm;
    union {
        Sha1Context sha1;
        Sha256Context sha256;
        Sha512Context sha512;
        Md5Context md5;
        Md2Context md2;
    };
};

// digest_init gives 0 or -BAD_FLAG_ERROR; only a context that it has accepted may be used further.
int digest_init(DigestContext& context, int algorithm);
void digest_update(DigestContext& context, const void* data, size_t size);
// digest_final writes the digest, wipes the context and returns the length written.
int digest_final(DigestContext& context, uint8_t* digest);

// hash_bytes and hash_file write the first outMax bytes of a digest. Both return the bytes written, or the
// digest's length if out is null or outMax below 1, or a negated error code.
// hash_bytes: -BAD_PARAM_ERROR for a negative length, -BAD_FLAG_ERROR for a bad algorithm.
int hash_bytes(uint8_t* out, int outMax, const void* data, int64_t length, int algorithm);
// hash_file: -OPEN_ERROR, which goes before -BAD_FLAG_ERROR. options: the algorithm and ZUL_HASH_MODE_TEXT. A
// read error ends the message there.
int hash_file(uint8_t* out, int outMax, const char* path, int options);

} // namespace zul
