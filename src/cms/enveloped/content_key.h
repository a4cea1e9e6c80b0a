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
// The padding of this scheme is an oracle for an attacker who can send messages and see the result (RFC 3218,
// the million message attack). So an invalid block is replaced by a random key of the right length, without a
// branch, and fails at the same place and in the same time as a content whose padding is damaged.
//
// A weak oracle remains: the content is not authenticated, and a wrong key of the right length passes the
// check of the last block's padding for about 1 content in 256. An attacker who has the same block opened
// again and again with other contents learns in the end whether it is valid. A caller who opens messages of
// strangers has to limit their number.
bool recover_content_key(const RsaKey& key, const uint8_t* encryptedKey, size_t length,
                         const ContentCipher& cipher, const LastBlock& last,
                         Secret<ContentCipher::kMaxKey>& contentKey, size_t* pad);

} // namespace zul
