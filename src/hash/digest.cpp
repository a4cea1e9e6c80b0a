#include "hash/digest.h"

#include "frame/file_stream.h"
#include "hash/digest_output.h"

namespace zul {

int digest_length(int algorithm) {
    switch (algorithm) {
    case kDigestSha1:
    case kDigestSha1Rng:
        return kSha1Size;
    case kDigestMd5:
        return kMd5Size;
    case kDigestMd2:
        return kMd2Size;
    case kDigestSha224:
        return kSha224Size;
    case kDigestSha256:
        return kSha256Size;
    case kDigestSha384:
        return kSha384Size;
    case kDigestSha512:
        return kSha512Size;
    default:
        return -BAD_FLAG_ERROR;
    }
}

int digest_block_size(int algorithm) {
    switch (algorithm) {
    case kDigestMd2:
        return 16;
    case kDigestSha384:
    case kDigestSha512:
        return Sha512Context::kBlockSize;
    default:
        return digest_length(algorithm) < 0 ? -BAD_FLAG_ERROR : int{Sha256Context::kBlockSize};
    }
}

int digest_init(DigestContext& context, int algorithm) {
    context.algorithm = algorithm;
    switch (algorithm) {
    case kDigestSha1:
    case kDigestSha1Rng:
        sha1_init(context.sha1);
        return 0;
    case kDigestMd5:
        md5_init(context.md5);
        return 0;
    case kDigestMd2:
        md2_init(context.md2);
        return 0;
    case kDigestSha224:
        sha224_init(context.sha256);
        return 0;
    case kDigestSha256:
        sha256_init(context.sha256);
        return 0;
    case kDigestSha384:
        sha384_init(context.sha512);
        return 0;
    case kDigestSha512:
        sha512_init(context.sha512);
        return 0;
    default:
        return -BAD_FLAG_ERROR;
    }
}

void digest_update(DigestContext& context, const void* data, size_t size) {
    switch (context.algorithm) {
    case kDigestSha1:
    case kDigestSha1Rng:
        return sha1_update(context.sha1, data, size);
    case kDigestMd5:
        return md5_update(context.md5, data, size);
    case kDigestMd2:
        return md2_update(context.md2, data, size);
    case kDigestSha224:
    case kDigestSha256:
        return sha256_update(context.sha256, data, size);
    case kDigestSha384:
    case kDigestSha512:
        return sha512_update(context.sha512, data, size);
    }
}

int digest_final(DigestContext& context, uint8_t* digest) {
    const int length = digest_length(context.algorithm);
    switch (context.algorithm) {
    case kDigestSha1:
    case kDigestSha1Rng:
        sha1_final(context.sha1, digest);
        break;
    case kDigestMd5:
        md5_final(context.md5, digest);
        break;
    case kDigestMd2:
        md2_final(context.md2, digest);
        break;
    case kDigestSha224:
    case kDigestSha256:
        sha256_final(context.sha256, digest);
        break;
    case kDigestSha384:
    case kDigestSha512:
        sha512_final(context.sha512, digest);
        break;
    }
    return length;
}

int hash_bytes(uint8_t* out, int outMax, const void* data, int64_t length, int algorithm) {
    if (length < 0)
        return -BAD_PARAM_ERROR;
    const int digestLength = digest_length(algorithm);
    if (digestLength < 0 || out == nullptr || outMax < 1)
        return digestLength;
    DigestContext context;
    digest_init(context, algorithm);
    digest_update(context, data, static_cast<size_t>(length));
    Secret<kMaxDigestSize> digest;
    return digest_result(out, outMax, digest.data(), digest_final(context, digest.data()));
}

// Portions that keep the kernels busy which work on groups of blocks.
static constexpr size_t kFileChunk = 16 * 1024;

int hash_file(uint8_t* out, int outMax, const char* path, int options) {
    FileReader file(path, (options & ZUL_HASH_MODE_TEXT) != 0);
    if (!file.is_open())
        return -OPEN_ERROR;
    const int algorithm = options & kDigestAlgorithmMask;
    const int digestLength = digest_length(algorithm);
    if (digestLength < 0 || out == nullptr || outMax < 1)
        return digestLength;
    DigestContext context;
    digest_init(context, algorithm);
    Secret<kFileChunk> chunk;
    size_t size;
    do {
        size = file.read(chunk.data(), chunk.size());
        digest_update(context, chunk.data(), size);
    } while (size == chunk.size());
    Secret<kMaxDigestSize> digest;
    return digest_result(out, outMax, digest.data(), digest_final(context, digest.data()));
}

} // namespace zul
