#include "peer_support.h"
#include "zulcore.h"

// What the library encrypts is what libcrypto encrypts: block ciphers in pieces, and AEAD with its tag, which
// both open. The first bytes choose the algorithm, the kernels, and the lengths of nonce, associated data and
// pieces.

using fuzz::Bytes;
using fuzz::require;

namespace {

// libcrypto 3.0 has no GCM-SIV.
constexpr struct {
    const char *name, *peer;
    size_t keySize, ivSize;
    bool isAead;
} kCiphers[] = {
    {"aes-128-gcm", "AES-128-GCM", 16, 0, true},   {"aes-192-gcm", "AES-192-GCM", 24, 0, true},
    {"aes-256-gcm", "AES-256-GCM", 32, 0, true},   {"chacha20-poly1305", "ChaCha20-Poly1305", 32, 12, true},
    {"aes-128-cbc", "AES-128-CBC", 16, 16, false}, {"aes-256-cbc", "AES-256-CBC", 32, 16, false},
    {"aes-128-ctr", "AES-128-CTR", 16, 16, false}, {"aes-256-ctr", "AES-256-CTR", 32, 16, false},
    {"aes-192-cfb", "AES-192-CFB", 24, 16, false}, {"aes-256-ofb", "AES-256-OFB", 32, 16, false},
    {"aes-192-ecb", "AES-192-ECB", 24, 0, false},  {"tdea-cbc", "DES-EDE3-CBC", 24, 8, false},
    {"tdea-ofb", "DES-EDE3-OFB", 24, 8, false},    {"tdea-cfb", "DES-EDE3-CFB", 24, 8, false},
    {"tdea-ecb", "DES-EDE3-ECB", 24, 0, false}};

int length_of(const Bytes& bytes) {
    return static_cast<int>(bytes.size());
}

struct Order {
    const char *name, *peer;
    Bytes key, iv, aad;
};

EVP_CIPHER_CTX* peer_begin(const Order& order, bool encrypts) {
    static EVP_CIPHER_CTX* const context = EVP_CIPHER_CTX_new();
    EVP_CIPHER_CTX_reset(context);
    require(EVP_CipherInit_ex(context, EVP_get_cipherbyname(order.peer), nullptr, nullptr, nullptr,
                              encrypts) == 1);
    return context;
}

Bytes peer_seal(const Order& order, const Bytes& plain) {
    EVP_CIPHER_CTX* context = peer_begin(order, true);
    Bytes out(plain.size() + 16);
    int length = 0, n = 0;
    require(EVP_CIPHER_CTX_ctrl(context, EVP_CTRL_AEAD_SET_IVLEN, length_of(order.iv), nullptr) == 1 &&
            EVP_EncryptInit_ex(context, nullptr, nullptr, order.key.data(), order.iv.data()) == 1);
    if (!order.aad.empty())
        require(EVP_EncryptUpdate(context, nullptr, &n, order.aad.data(), length_of(order.aad)) == 1);
    if (!plain.empty())
        require(EVP_EncryptUpdate(context, out.data(), &length, plain.data(), length_of(plain)) == 1);
    require(EVP_EncryptFinal_ex(context, out.data() + length, &n) == 1 && length + n == length_of(plain) &&
            EVP_CIPHER_CTX_ctrl(context, EVP_CTRL_AEAD_GET_TAG, 16, out.data() + length) == 1);
    return out;
}

bool peer_opens(const Order& order, const Bytes& sealed) {
    EVP_CIPHER_CTX* context = peer_begin(order, false);
    Bytes out(sealed.size()), tag(sealed.end() - 16, sealed.end());
    int length = 0, n = 0;
    require(EVP_CIPHER_CTX_ctrl(context, EVP_CTRL_AEAD_SET_IVLEN, length_of(order.iv), nullptr) == 1 &&
            EVP_DecryptInit_ex(context, nullptr, nullptr, order.key.data(), order.iv.data()) == 1);
    if (!order.aad.empty())
        require(EVP_DecryptUpdate(context, nullptr, &n, order.aad.data(), length_of(order.aad)) == 1);
    if (sealed.size() > 16)
        require(EVP_DecryptUpdate(context, out.data(), &length, sealed.data(), length_of(sealed) - 16) == 1);
    require(EVP_CIPHER_CTX_ctrl(context, EVP_CTRL_AEAD_SET_TAG, 16, tag.data()) == 1);
    return EVP_DecryptFinal_ex(context, out.data() + length, &n) == 1;
}

void check_aead(const Order& order, const Bytes& input) {
    const auto call = [&](auto function, const Bytes& in, Bytes& out) {
        return function(out.data(), length_of(out), in.data(), length_of(in), order.key.data(),
                        length_of(order.key), order.iv.data(), length_of(order.iv), order.aad.data(),
                        length_of(order.aad), order.name, 0);
    };
    Bytes sealed(input.size() + 16), plain(input.size());
    require(call(AEAD_Encrypt, input, sealed) == length_of(sealed));
    require(sealed == peer_seal(order, input));
    if (input.size() >= 16) {
        const bool opens = call(AEAD_Decrypt, input, plain) >= 0;
        require(opens == peer_opens(order, input));
    }
}

Bytes peer_cipher(const Order& order, const Bytes& input, bool encrypts, bool& isGood) {
    EVP_CIPHER_CTX* context = peer_begin(order, encrypts);
    Bytes out(input.size() + 32);
    int length = 0, n = 0;
    require(EVP_CipherInit_ex(context, nullptr, nullptr, order.key.data(), order.iv.data(), encrypts) == 1);
    if (!input.empty())
        require(EVP_CipherUpdate(context, out.data(), &length, input.data(), length_of(input)) == 1);
    isGood = EVP_CipherFinal_ex(context, out.data() + length, &n) == 1;
    out.resize(static_cast<size_t>(length) + (isGood ? static_cast<size_t>(n) : 0));
    return out;
}

void check_cipher(const Order& order, const Bytes& input, bool encrypts, size_t step) {
    Bytes context(
        static_cast<size_t>(CIPHER_Begin(nullptr, 0, encrypts, order.key.data(), length_of(order.key),
                                         order.iv.data(), length_of(order.iv), order.name, 0)));
    Bytes out(input.size() + 64);
    require(CIPHER_Begin(context.data(), length_of(context), encrypts, order.key.data(), length_of(order.key),
                         order.iv.data(), length_of(order.iv), order.name, 0) > 0);
    size_t length = 0;
    for (size_t at = 0; at < input.size(); at += step) {
        const size_t part = std::min(step, input.size() - at);
        const int got = CIPHER_Add(out.data() + length, static_cast<int>(out.size() - length), context.data(),
                                   input.data() + at, static_cast<int>(part));
        require(got >= 0);
        length += static_cast<size_t>(got);
    }
    const int last = CIPHER_End(out.data() + length, static_cast<int>(out.size() - length), context.data());
    bool peerIsGood = false;
    const Bytes theirs = peer_cipher(order, input, encrypts, peerIsGood);
    // libcrypto takes data of no bytes for no block that could have a bad pad.
    require((last >= 0) == peerIsGood);
    if (last >= 0) {
        out.resize(length + static_cast<size_t>(last));
        require(out == theirs);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 5)
        return 0;
    const auto& row = kCiphers[data[0] % std::size(kCiphers)];
    fuzz::hide_features(data[1]);
    Order order = {row.name, row.peer, Bytes(row.keySize), Bytes(row.ivSize), {}};
    if (row.isAead && row.ivSize == 0)
        order.iv.resize(1 + data[2] % 40);
    for (size_t i = 0; i < order.key.size(); i++)
        order.key[i] = static_cast<uint8_t>(data[4] + i * data[3]);
    for (size_t i = 0; i < order.iv.size(); i++)
        order.iv[i] = data[2] >= 0xF0 ? 0xFF : static_cast<uint8_t>(data[2] * i); // counters that run over
    Bytes input(data + 5, data + size);
    if (data[1] >= 0xC0)
        for (int n = 0; n < 6; n++)
            input.insert(input.end(), input.begin(),
                         input.begin() + static_cast<std::ptrdiff_t>(input.size()));
    if (row.isAead) {
        const size_t aadSize = std::min<size_t>(data[3], input.size());
        order.aad.assign(input.begin(), input.begin() + static_cast<std::ptrdiff_t>(aadSize));
        check_aead(order, input);
        return 0;
    }
    const size_t step = size_t{1} + data[3] * size_t{data[3]};
    check_cipher(order, input, true, step);
    check_cipher(order, input, false, step);
    return 0;
}
