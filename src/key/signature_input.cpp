#include "key/signature_input.h"

#include <cstring>

#include "frame/err.h"
#include "frame/file_stream.h"
#include "frame/text.h"
#include "zulcore.h"

namespace zul {

int SignatureBytes::digest(uint8_t* out, int algorithm) {
    Wiped<DigestContext> context;
    digest_init(*context, algorithm);
    digest_update(*context, data_, size_);
    digest_final(*context, out);
    return 0;
}

bool SignatureBytes::feed(Sha512Context& digest) {
    sha512_update(digest, data_, size_);
    return true;
}

int SignatureDigest::digest(uint8_t* out, int algorithm) {
    if (size_ != digest_length(algorithm))
        return err_fail(BAD_LENGTH_ERROR, "The digest has not the length of its algorithm");
    memcpy(out, data_, size_);
    return 0;
}

int SignatureDigest::whole_error() {
    return err_fail(NOT_SUPPORTED_ERROR,
                    "Ed25519 signs whole messages; ed25519ph signs their SHA-512 digest");
}

template<class Take>
int SignatureFile::read(Take take) {
    constexpr size_t kPiece = 65536;
    FileReader file(path_);
    if (!file.is_open())
        return err_fail(OPEN_ERROR, "Cannot open file '%s'", shown_name(path_));
    SecretBuffer piece(kPiece);
    for (size_t size = kPiece; size == kPiece;) {
        size = file.read(piece.data(), kPiece);
        take(piece.data(), size);
    }
    return file.failed() ? err_fail(READ_ERROR, "Cannot read file '%s'", shown_name(path_)) : 0;
}

int SignatureFile::digest(uint8_t* out, int algorithm) {
    Wiped<DigestContext> context;
    digest_init(*context, algorithm);
    const int error = read([&](const uint8_t* data, size_t size) { digest_update(*context, data, size); });
    digest_final(*context, out);
    return error;
}

bool SignatureFile::feed(Sha512Context& digest) {
    uint8_t all[kSha256Size];
    Wiped<Sha256Context> own;
    sha256_init(*own);
    const int error = read([&](const uint8_t* data, size_t size) {
        sha512_update(digest, data, size);
        sha256_update(*own, data, size);
    });
    sha256_final(*own, all);
    const bool isSame = !wasFed_ || memcmp(all, fed_, sizeof all) == 0;
    memcpy(fed_, all, sizeof all);
    wasFed_ = true;
    if (error == 0 && !isSame)
        err_add_text("File '%s' has changed while it was read", shown_name(path_));
    feedError_ = error != 0 ? error : READ_ERROR;
    return error == 0 && isSame;
}

} // namespace zul
