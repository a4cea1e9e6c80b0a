#include "key/pem_key.h"

#include <algorithm>
#include <cstring>

#include "cipher/cipher_context.h"
#include "cipher/padding.h"
#include "encode/hex.h"
#include "frame/constant_time.h"
#include "frame/err.h"
#include "frame/slice.h"
#include "hash/md5.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr std::string_view kBegin = "-----BEGIN ", kDashes = "-----", kEnd = "-----END ";
constexpr size_t kDekSalt = 8;

struct DekCipher {
    std::string_view name;
    CipherAlgorithm algorithm;
};
constexpr DekCipher kDekCiphers[] = {
    {"AES-128-CBC", CipherAlgorithm::aes128}, {"AES-192-CBC", CipherAlgorithm::aes192},
    {"AES-256-CBC", CipherAlgorithm::aes256}, {"DES-EDE3-CBC", CipherAlgorithm::tdea},
    {"DES-CBC", CipherAlgorithm::des},
};

// take_headers moves header lines from the beginning of the body; of an encrypted one the fields of DEK-Info.
bool take_headers(PemBlock& block) {
    bool isEncrypted = false;
    for (;;) {
        const std::string_view body = trimmed(block.body);
        const size_t end = body.find('\n');
        const std::string_view line = trimmed(slice(body, 0, end));
        const size_t colon = line.find(':');
        if (colon == std::string_view::npos || end == std::string_view::npos)
            return isEncrypted ? !block.cipher.empty() && !block.iv.empty() : block.cipher.empty();
        block.body = slice(body, end + 1);
        const std::string_view name = slice(line, 0, colon), value = trimmed(slice(line, colon + 1));
        if (name == "Proc-Type") {
            isEncrypted = value == "4,ENCRYPTED";
        } else if (name == "DEK-Info") {
            const size_t comma = value.find(',');
            block.cipher = trimmed(slice(value, 0, comma));
            block.iv =
                comma == std::string_view::npos ? std::string_view() : trimmed(slice(value, comma + 1));
        }
    }
}

// next_block takes the next whole block of a text: from a BEGIN line to the first END line behind it. Lines
// without a partner, or with one of another label, are passed over.
bool next_block(std::string_view& text, PemBlock& block) {
    for (size_t end = text.find(kEnd); end != std::string_view::npos; end = text.find(kEnd)) {
        const std::string_view before = slice(text, 0, end);
        text = slice(text, end + kEnd.size());
        const size_t begin = before.rfind(kBegin);
        if (begin == std::string_view::npos)
            continue;
        const std::string_view inside = slice(before, begin + kBegin.size());
        const size_t labelEnd = inside.find(kDashes);
        block = {};
        block.label = slice(inside, 0, labelEnd);
        block.body = slice(inside, block.label.size() + kDashes.size());
        if (labelEnd != std::string_view::npos && text.starts_with(block.label) &&
            slice(text, block.label.size()).starts_with(kDashes))
            return true;
    }
    return false;
}

// key_bytes is the key derivation of these files: MD5 of the digest before, the password and a salt.
void key_bytes(Secret<kMaxCipherKey>& key, size_t size, const char* password, const uint8_t* salt) {
    Secret<kMd5Size> digest;
    for (size_t done = 0; done < size; done += kMd5Size) {
        Wiped<Md5Context> context;
        md5_init(*context);
        if (done > 0)
            md5_update(*context, digest.data(), kMd5Size);
        md5_update(*context, password, strlen(password));
        md5_update(*context, salt, kDekSalt);
        md5_final(*context, digest.data());
        memcpy(key.data() + done, digest.data(), std::min(size - done, kMd5Size));
    }
}

} // namespace

int pem_find_key(std::string_view text, PemBlock& block) {
    PemBlock found, next;
    bool isFound = false;
    while (next_block(text, next)) {
        const bool isPrivate = next.label.ends_with("PRIVATE KEY");
        if (next.label.ends_with("PARAMETERS") || (isFound && !isPrivate))
            continue;
        found = next;
        isFound = true;
        if (isPrivate)
            break;
    }
    if (!isFound || !take_headers(found))
        return err_fail(INVALID_DATA_ERROR, "No whole PEM block of a key");
    block = found;
    return 0;
}

int pem_decrypt_body(SecretBuffer& data, const PemBlock& block, const char* password) {
    const DekCipher* cipher = std::find_if(std::begin(kDekCiphers), std::end(kDekCiphers),
                                           [&](const DekCipher& row) { return row.name == block.cipher; });
    if (cipher == std::end(kDekCiphers))
        return err_fail(NOT_SUPPORTED_ERROR, "Cipher of DEK-Info not supported");
    const size_t blockLength = cipher_block_length(cipher->algorithm);
    uint8_t iv[kMaxCipherBlock];
    size_t ivLength = 0;
    if (block.iv.size() != 2 * blockLength ||
        !hex_decode_strict(iv, &ivLength, block.iv.data(), block.iv.size()))
        return err_fail(BAD_FORMAT_ERROR, "Invalid IV in DEK-Info");
    Secret<kMaxCipherKey> key;
    key_bytes(key, cipher_key_length(cipher->algorithm), password, iv);
    CipherContext context;
    size_t padding = 0;
    if (!data.empty() && data.size() % blockLength == 0 &&
        context.init(cipher->algorithm, CipherMode::cbc, false, key.data(), iv) == 0 &&
        context.update(data.data(), data.data(), data.size()) == 0)
        padding = ct_declassify(pad_count(data.data() + data.size() - blockLength, blockLength));
    data.shrink(data.size() - padding);
    return padding != 0 ? 0 : err_fail(DECRYPT_ERROR, "Decryption error");
}

} // namespace zul
