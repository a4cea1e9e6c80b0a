#include "cipher/cipher_stream.h"

#include <algorithm>
#include <cstring>

#include "cipher/cipher_choice.h"
#include "cipher/padding.h"
#include "frame/constant_time.h"
#include "frame/err.h"
#include "frame/name_table.h"
#include "frame/wipe.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr int choice(CipherAlgorithm algorithm, CipherMode mode) {
    return static_cast<int>(algorithm) << 4 | static_cast<int>(mode);
}

#define ZUL_MODES(prefix, algorithm, isAlias)                                                                \
    {prefix "-ecb", choice(algorithm, CipherMode::ecb), isAlias},                                            \
        {prefix "-cbc", choice(algorithm, CipherMode::cbc), isAlias},                                        \
        {prefix "-cfb", choice(algorithm, CipherMode::cfb), isAlias},                                        \
        {prefix "-ofb", choice(algorithm, CipherMode::ofb), isAlias}, {                                      \
        prefix "-ctr", choice(algorithm, CipherMode::ctr), isAlias                                           \
    }

constexpr NameRow kNames[] = {
    ZUL_MODES("aes-128", CipherAlgorithm::aes128, false),
    ZUL_MODES("aes-192", CipherAlgorithm::aes192, false),
    ZUL_MODES("aes-256", CipherAlgorithm::aes256, false),
    ZUL_MODES("tdea", CipherAlgorithm::tdea, false),
    ZUL_MODES("3des", CipherAlgorithm::tdea, true),
    ZUL_MODES("des-ede3", CipherAlgorithm::tdea, true),
};

size_t block_length(const CipherStream& stream) {
    return block_cipher(stream.algorithm).blockLength;
}

void run(CipherStream& stream, uint8_t* out, const uint8_t* in, size_t blocks) {
    const auto& functions = block_cipher(stream.algorithm).modes[static_cast<size_t>(stream.mode)];
    (stream.encrypts ? functions.encrypt : functions.decrypt)(stream.schedule, stream.chain, out, in, blocks);
}

// next_key_stream fills held with the key stream of the next block. In CFB the chain becomes it too, until
// the cipher text replaces it.
void next_key_stream(CipherStream& stream) {
    memset(stream.held, 0, sizeof stream.held);
    const auto& functions = block_cipher(stream.algorithm).modes[static_cast<size_t>(stream.mode)];
    functions.encrypt(stream.schedule, stream.chain, stream.held, stream.held, 1);
    stream.heldBytes = 0;
}

void add_key_stream(CipherStream& stream, uint8_t* out, const uint8_t* in, size_t size) {
    for (size_t i = 0; i < size; i++) {
        const uint8_t before = in[i];
        out[i] = before ^ stream.held[stream.heldBytes];
        if (stream.mode == CipherMode::cfb)
            stream.chain[stream.heldBytes] = stream.encrypts ? out[i] : before;
        stream.heldBytes++;
    }
}

[[nodiscard]] int not_whole() {
    return err_fail(BAD_LENGTH_ERROR, "The data does not fill whole blocks");
}

// What may be enciphered of so many bytes in all: whole blocks, but for one that may hold the pad.
size_t ready(const CipherStream& stream, size_t total) {
    const size_t block = block_length(stream);
    if (stream.pads && !stream.encrypts && total > 0)
        return (total - 1) / block * block;
    return total / block * block;
}

} // namespace

int cipher_stream_find(const char* name) {
    int value = 0;
    return name_find(kNames, name, &value);
}

int cipher_stream_begin(CipherStream& stream, const CipherStreamOrder& order) {
    int value = 0;
    if (const int error = name_find(kNames, order.name, &value))
        return error;
    stream.algorithm = static_cast<CipherAlgorithm>(value >> 4);
    stream.mode = static_cast<CipherMode>(value & 0xF);
    const BlockCipher& cipher = block_cipher(stream.algorithm);
    if (order.keySize != cipher.keyLength)
        return err_fail(BAD_KEY_LEN_ERROR, "The key must have %d bytes", static_cast<int>(cipher.keyLength));
    if (order.ivSize != (stream.mode == CipherMode::ecb ? 0 : cipher.blockLength))
        return err_fail(BAD_IV_ERROR, "The IV must have %d bytes",
                        stream.mode == CipherMode::ecb ? 0 : static_cast<int>(cipher.blockLength));
    stream.encrypts = order.encrypts;
    stream.pads = order.pads && cipher_mode_pads(stream.mode);
    if (!cipher.setKey(stream.schedule, {order.key, order.keySize, 0},
                       !order.encrypts && cipher_mode_pads(stream.mode)))
        return BAD_KEY_LEN_ERROR;
    if (order.ivSize > 0)
        memcpy(stream.chain, order.iv, order.ivSize);
    // No key stream is there yet.
    stream.heldBytes = cipher_mode_pads(stream.mode) ? 0 : static_cast<uint32_t>(cipher.blockLength);
    return 0;
}

size_t cipher_stream_room(const CipherStream& stream, size_t size) {
    return cipher_mode_pads(stream.mode) ? ready(stream, stream.heldBytes + size) : size;
}

void cipher_stream_add(CipherStream& stream, uint8_t* out, const uint8_t* in, size_t size) {
    const size_t block = block_length(stream);
    if (!cipher_mode_pads(stream.mode)) {
        const size_t first = std::min(size, block - stream.heldBytes);
        add_key_stream(stream, out, in, first);
        const size_t whole = (size - first) / block;
        run(stream, out + first, in + first, whole);
        const size_t done = first + whole * block;
        if (done < size) {
            next_key_stream(stream);
            add_key_stream(stream, out + done, in + done, size - done);
        }
        return;
    }
    size_t left = ready(stream, stream.heldBytes + size);
    if (left > 0 && stream.heldBytes > 0) {
        const size_t missing = block - stream.heldBytes;
        memcpy(stream.held + stream.heldBytes, in, missing);
        run(stream, out, stream.held, 1);
        out += block;
        in += missing;
        size -= missing;
        left -= block;
        stream.heldBytes = 0;
    }
    run(stream, out, in, left / block);
    if (size == left)
        return; // in may be null
    memcpy(stream.held + stream.heldBytes, in + left, size - left);
    stream.heldBytes += static_cast<uint32_t>(size - left);
}

int cipher_stream_end(CipherStream& stream, uint8_t* out, size_t& length) {
    length = 0;
    if (!cipher_mode_pads(stream.mode))
        return 0;
    const size_t block = block_length(stream);
    if (!stream.pads)
        return stream.heldBytes == 0 ? 0 : not_whole();
    if (stream.encrypts) {
        const size_t pad = block - stream.heldBytes;
        memset(stream.held + stream.heldBytes, static_cast<int>(pad), pad);
        run(stream, out, stream.held, 1);
        length = block;
        return 0;
    }
    if (stream.heldBytes != block)
        return not_whole();
    Secret<kMaxCipherBlock> last;
    run(stream, last.data(), stream.held, 1);
    const size_t pad = ct_declassify(pad_count(last.data(), block));
    if (pad == 0)
        return err_fail(DECRYPT_ERROR, "Wrong padding: wrong key or damaged data");
    length = block - pad;
    memcpy(out, last.data(), length);
    return 0;
}

} // namespace zul
