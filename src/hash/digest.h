#pragma once
#include "hash/md2.h"
#include "hash/md5.h"
#include "hash/sha1.h"
#include "hash/sha256.h"
#include "hash/sha3.h"
#include "hash/sha512.h"
#include "zulcore.h"

// The digests behind their algorithm numbers.
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
    // Above what an options word can hold: these have names alone.
    kDigestSha512_256 = 16,
    kDigestSha3_224,
    kDigestSha3_256,
    kDigestSha3_384,
    kDigestSha3_512,
    kDigestShake128,
    kDigestShake256,
};

constexpr int kDigestAlgorithmMask = 0xF; // in an options word
constexpr size_t kMaxDigestSize = 64;
constexpr size_t kMaxDigestBlockSize = 168;

// A digest of any algorithm in progress: a plain structure without pointers that may be copied.
struct DigestContext {
    int algorithm;
    union {
        Sha1Context sha1;
        Sha256Context sha256;
        Sha512Context sha512;
        Sha3Context sha3;
        Md5Context md5;
        Md2Context md2;
    };
};

// DigestDescriptor describes one algorithm. The names are those of the table of object identifiers, null
// where the algorithm has none.
struct DigestDescriptor {
    int algorithm;
    const char* name;
    const char* rsaSignature; // the signature algorithm of RSA (PKCS #1 v1.5) with this digest
    size_t size, blockSize;   // of the digest and of the blocks that it absorbs, in bytes
    bool hasHmac;
    bool isExtendable; // SHAKE: size is that of the usual output
    void (*init)(DigestContext& context);
    void (*update)(DigestContext& context, const void* data, size_t size);
    void (*final)(DigestContext& context, uint8_t* digest);
};

// digest_find gives the digest of a number, digest_named the one of a name; null for any other.
const DigestDescriptor* digest_find(int algorithm);
const DigestDescriptor* digest_named(const char* name);

// digest_length and digest_block_size are the sizes of an algorithm in bytes, 0 for a number without one.
size_t digest_length(int algorithm);
size_t digest_block_size(int algorithm);

// digest_init begins a digest with an algorithm that digest_find knows.
void digest_init(DigestContext& context, int algorithm);
void digest_update(DigestContext& context, const void* data, size_t size);
// digest_final writes the digest, wipes the context and returns the length written.
int digest_final(DigestContext& context, uint8_t* digest);

// hash_bytes and hash_file write the first outMax bytes of a digest. Both return the bytes written, or the
// digest's length if out is null or outMax below 1, or a negated error code.
// hash_bytes: -BAD_PARAM_ERROR for a negative length, -BAD_FLAG_ERROR for a bad algorithm.
[[nodiscard]] int hash_bytes(uint8_t* out, int outMax, const void* data, int64_t length, int algorithm);
// hash_file: -OPEN_ERROR, which goes before -BAD_FLAG_ERROR. options: the algorithm and ZUL_HASH_MODE_TEXT. A
// read error ends the message there.
[[nodiscard]] int hash_file(uint8_t* out, int outMax, const char* path, int options);

} // namespace zul
