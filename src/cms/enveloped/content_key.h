#pragma once
#include "cms/enveloped/content_cipher.h"
#include "frame/wipe.h"
#include "rsa/rsa_key.h"

namespace zul {

// LastBlock is the end of an encrypted content, with what its decryption is chained to.
struct LastBlock {
    const uint8_t* chain; // the block before it, or the IV
    const uint8_t* block;
};

// recover_content_key decrypts a content-encryption key with PKCS #1 v1.5 (RFC 8017, 7.2.2): true if the
// block holds a key of the cipher's length and the content's padding is right under it; *pad is its length.
//
// The padding of this scheme is an oracle for whoever can send messages and see what becomes of them (RFC
// 3218, the million message attack). So a block that is wrong in whatever way goes on with a random key of
// the right length, without a branch, and fails at the same place and in the same time as a content whose
// padding is damaged.
//
// What is left is a weak oracle: the content is not authenticated, and a wrong key of the right length passes
// the check of the last block's padding for about 1 content in 256. So whoever has a block opened again and
// again, with contents of his own, sees in the end whether it is a good one. A caller who opens messages for
// strangers has to limit how many.
bool recover_content_key(const RsaKey& key, const uint8_t* encryptedKey, size_t length,
                         const ContentCipher& cipher, const LastBlock& last,
                         Secret<ContentCipher::kMaxKey>& contentKey, size_t* pad);

} // namespace zul
