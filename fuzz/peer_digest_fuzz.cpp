#include "hash/digest.h"
#include "hash/hmac.h"
#include "peer_support.h"

// Digests and MACs are those of libcrypto, over the whole message and in two pieces. The first bytes choose
// the algorithm, the kernels, where the message is cut, and how many bytes are the key.

using namespace zul;
using fuzz::Bytes;
using fuzz::require;

namespace {

// libcrypto has no MD2. The digest of SHAKE has the usual length of the library, which its EVP_Digest does
// not have.
constexpr struct {
    int algorithm;
    const char* peer;
} kDigests[] = {{kDigestSha1, "SHA1"},
                {kDigestMd5, "MD5"},
                {kDigestSha256, "SHA256"},
                {kDigestSha384, "SHA384"},
                {kDigestSha512, "SHA512"},
                {kDigestSha224, "SHA224"},
                {kDigestSha512_256, "SHA512-256"},
                {kDigestSha3_224, "SHA3-224"},
                {kDigestSha3_256, "SHA3-256"},
                {kDigestSha3_384, "SHA3-384"},
                {kDigestSha3_512, "SHA3-512"},
                {kDigestShake128, "SHAKE128"},
                {kDigestShake256, "SHAKE256"}};

Bytes peer_digest(const char* name, const Bytes& message, size_t size, bool isExtendable) {
    static EVP_MD_CTX* const context = EVP_MD_CTX_new();
    Bytes out(size);
    require(EVP_DigestInit_ex(context, EVP_get_digestbyname(name), nullptr) == 1 &&
            EVP_DigestUpdate(context, message.data(), message.size()) == 1);
    require((isExtendable ? EVP_DigestFinalXOF(context, out.data(), size)
                          : EVP_DigestFinal_ex(context, out.data(), nullptr)) == 1);
    return out;
}

Bytes peer_mac(const char* name, const Bytes& key, const Bytes& message) {
    static EVP_MAC* const mac = EVP_MAC_fetch(nullptr, "HMAC", nullptr);
    const fuzz::Handle<EVP_MAC_CTX, EVP_MAC_CTX_free> context(EVP_MAC_CTX_new(mac));
    std::string digest(name);
    const OSSL_PARAM parameters[] = {OSSL_PARAM_construct_utf8_string("digest", digest.data(), 0),
                                     OSSL_PARAM_construct_end()};
    Bytes out(kMaxDigestSize);
    size_t size = 0;
    // A null key would be the one of before.
    const uint8_t none = 0;
    require(EVP_MAC_init(context.get(), key.empty() ? &none : key.data(), key.size(), parameters) == 1 &&
            EVP_MAC_update(context.get(), message.data(), message.size()) == 1 &&
            EVP_MAC_final(context.get(), out.data(), &size, out.size()) == 1);
    out.resize(size);
    return out;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 4)
        return 0;
    const auto& row = kDigests[data[0] % std::size(kDigests)];
    const DigestDescriptor& digest = *digest_find(row.algorithm);
    fuzz::hide_features(data[1]);
    const size_t keySize = data[2] % (size - 3);
    const Bytes key(data + 3, data + 3 + keySize);
    // A long message now and then: the kernels take several blocks at a time.
    Bytes message(data + 3 + keySize, data + size);
    if (data[1] >= 0xC0)
        for (int n = 0; n < 6; n++)
            message.insert(message.end(), message.begin(),
                           message.begin() + static_cast<std::ptrdiff_t>(message.size()));
    const size_t cut = message.empty() ? 0 : data[3] * message.size() / 256;

    Bytes ours(digest.size);
    DigestContext context;
    digest_init(context, row.algorithm);
    digest_update(context, message.data(), cut);
    digest_update(context, message.data() + cut, message.size() - cut);
    require(digest_final(context, ours.data()) == static_cast<int>(digest.size));
    require(ours == peer_digest(row.peer, message, digest.size, digest.isExtendable));

    if (digest.hasHmac) {
        HmacContext mac;
        hmac_init(mac, row.algorithm, key.data(), key.size());
        hmac_update(mac, message.data(), cut);
        hmac_update(mac, message.data() + cut, message.size() - cut);
        require(hmac_final(mac, ours.data()) == static_cast<int>(digest.size));
        require(ours == peer_mac(row.peer, key, message));
    }
    return 0;
}
