#include <cstring>
#include <string>
#include <vector>

#include "encode/hex.h"
#include "fuzz_support.h"
#include "zulcore.h"

// Wrapped keys, padded blocks and ciphers over hex. What unwraps, wraps to the same; what is unpadded, pads
// to the same. A failure leaves nothing of the content.

using fuzz::require;
using Bytes = std::vector<unsigned char>;

static int length_of(const Bytes& bytes) {
    return static_cast<int>(bytes.size());
}

static void check_wrap(const Bytes& input, int options) {
    const Bytes kek(options == ZUL_CIPHER_AES128 ? 16 : options == ZUL_CIPHER_AES256 ? 32 : 24, 0x4B);
    const int size =
        CIPHER_KeyUnwrap(nullptr, 0, input.data(), length_of(input), kek.data(), length_of(kek), options);
    if (size <= 0)
        return;
    Bytes key(static_cast<size_t>(size), 0xEE), again(input.size());
    const int got = CIPHER_KeyUnwrap(key.data(), size, input.data(), length_of(input), kek.data(),
                                     length_of(kek), options);
    require(got == size || (got == -1 && key == Bytes(key.size())));
    if (got == size && options != ZUL_CIPHER_TDEA) {
        require(CIPHER_KeyWrap(again.data(), length_of(again), key.data(), size, kek.data(), length_of(kek),
                               options) == length_of(input));
        require(again == input);
    }
    const int wrappedSize =
        CIPHER_KeyWrap(nullptr, 0, input.data(), length_of(input), kek.data(), length_of(kek), options);
    if (wrappedSize <= 0)
        return;
    Bytes wrapped(static_cast<size_t>(wrappedSize)), back(input.size());
    require(CIPHER_KeyWrap(wrapped.data(), wrappedSize, input.data(), length_of(input), kek.data(),
                           length_of(kek), options) == wrappedSize);
    require(CIPHER_KeyUnwrap(back.data(), length_of(back), wrapped.data(), wrappedSize, kek.data(),
                             length_of(kek), options) == length_of(input));
    require(back == input);
}

static void check_pad(const Bytes& input, int blockLength) {
    Bytes plain(input.size() + 1, 0xEE);
    const int got =
        PAD_UnpadBytes(plain.data(), length_of(input), input.data(), length_of(input), blockLength, 0);
    require(got < length_of(input));
    if (got < 0)
        return;
    Bytes padded(input.size());
    require(PAD_BytesBlock(padded.data(), length_of(padded), plain.data(), got, blockLength, 0) ==
            length_of(input));
    require(padded == input);
}

static void check_hex(const std::string& text) {
    std::string out(text.size() + 64, '\0');
    for (const int block : {8, 16}) {
        const int got = PAD_UnpadHex(out.data(), static_cast<int>(out.size()) - 1, text.c_str(), block, 0);
        require(got < static_cast<int>(text.size()) || got <= 0);
    }
    for (const char* mode : {"Aes128/CBC", "Aes256/CTR", "Tdea/ECB"})
        for (const int encrypts : {0, 1}) {
            const int code = CIPHER_Hex(encrypts, out.data(), static_cast<int>(out.size()) - 1, text.c_str(),
                                        "000102030405060708090A0B0C0D0E0F101112131415161718191A1B1C1D1E1F",
                                        "00112233445566778899AABBCCDDEEFF", mode, 0);
            require(code != 0 || zul::hex_decoded_length(out.c_str()) <= text.size());
        }
    (void)CIPHER_Hex(1, out.data(), static_cast<int>(out.size()) - 1, "00112233445566778899AABBCCDDEEFF",
                     text.c_str(), text.c_str(), "Aes128/CBC", 0);
    char digest[200];
    require(HASH_HexFromHex(digest, 199, text.c_str(), ZUL_HASH_SHA256) <= 64);
    require(HMAC_HexFromHex(digest, 199, text.c_str(), text.c_str(), ZUL_HASH_SHA512) <= 128);
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const Bytes input(data, data + size);
    for (const int options : {ZUL_CIPHER_AES128, ZUL_CIPHER_AES192, ZUL_CIPHER_AES256, ZUL_CIPHER_TDEA})
        check_wrap(input, options);
    for (const int block : {8, 16})
        check_pad(input, block);
    check_hex(std::string(reinterpret_cast<const char*>(data), size));
    return 0;
}
