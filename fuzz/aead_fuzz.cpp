#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "zulcore.h"

// Any input is refused or decrypted to what encrypts to it again; and, encrypted itself, it comes back, but
// not with a bit changed anywhere. The first bytes choose the algorithm and the lengths of nonce and
// associated data.

static void require(bool claim) {
    if (!claim)
        std::abort();
}

using Bytes = std::vector<unsigned char>;

namespace {

constexpr struct {
    const char* name;
    size_t keySize;
    bool anyNonce;
} kAlgorithms[] = {{"aes-128-gcm", 16, true},
                   {"aes-192-gcm", 24, true},
                   {"aes-256-gcm", 32, true},
                   {"aes-256-gcm-siv", 32, false},
                   {"chacha20-poly1305", 32, false}};

int length(const Bytes& bytes) {
    return static_cast<int>(bytes.size());
}

// A call with output of the size that the query gives, and nothing around the blocks.
struct Message {
    const char* algorithm;
    Bytes key, nonce, aad;
    int options;

    template<class Function>
    int run(Function function, const Bytes& input, Bytes& output) const {
        const auto call = [&](unsigned char* out, int room) {
            return function(out, room, input.data(), length(input), key.data(), length(key), nonce.data(),
                            length(nonce), aad.data(), length(aad), algorithm, options);
        };
        const int needed = call(nullptr, 0);
        if (needed < 0)
            return needed;
        output.assign(static_cast<size_t>(needed), 0xEE);
        const int written = call(output.data(), needed);
        require(written == needed || written == -DECRYPT_ERROR);
        require(written >= 0 || std::all_of(output.begin(), output.end(), [](int b) { return b == 0; }));
        return written;
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 4)
        return 0;
    const auto& algorithm = kAlgorithms[data[0] % std::size(kAlgorithms)];
    const size_t nonceSize = algorithm.anyNonce ? size_t{1} + data[1] % 40 : 12, aadSize = data[2];
    const bool hasRandomNonce = (data[3] & 1) != 0;
    const Bytes rest(data + 4, data + size);
    Message message = {algorithm.name, Bytes(algorithm.keySize, 0x4B), Bytes(nonceSize, 0x4E), {}, 0};
    message.aad.assign(rest.begin(), rest.begin() + static_cast<int>(std::min(aadSize, rest.size())));
    Bytes plain, sealed, again;
    const int opened = message.run(AEAD_Decrypt, rest, plain);
    require(opened >= 0 || opened == -DECRYPT_ERROR || opened == -BAD_LENGTH_ERROR);
    if (opened >= 0) {
        require(message.run(AEAD_Encrypt, plain, again) == length(rest));
        require(again == rest);
    }
    if (hasRandomNonce) {
        message.nonce.clear();
        message.options = ZUL_AEAD_RANDOM_NONCE;
    }
    require(message.run(AEAD_Encrypt, rest, sealed) == length(rest) + (hasRandomNonce ? 28 : 16));
    require(message.run(AEAD_Decrypt, sealed, plain) == length(rest) && plain == rest);
    sealed[(size * 31 + data[1]) % sealed.size()] ^= static_cast<unsigned char>(1 << data[3] % 8);
    require(message.run(AEAD_Decrypt, sealed, plain) == -DECRYPT_ERROR);
    return 0;
}
