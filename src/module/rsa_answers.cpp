#include <cstring>

#include "hash/digest.h"
#include "module/known_answers.h"
#include "rsa/rsa_operation.h"
#include "rsa/rsa_pairwise.h"
#include "rsa/rsa_pss.h"

namespace zul {

namespace {

// A key used for these tests alone: 1024 bits, e = 65537.
constexpr char kN[] =
    "e0648a8d42bba9c92b6759001ad75363bc0b3b1c32c619b53a435f822a5b4d2c443fd30b8ea05c59a633c0ee1e1e2ec3"
    "c2eaa74bf96f2f46d71ffd1d36d37404262732c9bed44388d990a80d8ba36bbf6ca876b3c8332b7704d8ab315184719c"
    "cc3fdc40bb77ed91dc70b997fd5bc9a4ce8619e61a5e401793c42b7d538f0a4f";
constexpr char kD[] =
    "2b529e0169e9eb7ce0796290879e1d067b6ebba9d50fb434ee1bc5dbceabb3f9a0efa5a26c95ff5e7b9d305988cd1100"
    "50a897462ed14d9262c4554d07a1c99b0ae5ad1768745d0a220b520c3d5d163e479a865a1bf68a745a0443ade06a6551"
    "4cbd34e052cfb97361c78925bbee233800e13f6208932bd90eb1aa2e32f56ba9";
constexpr char kP[] =
    "f47e35cff41133e94c8201e7737b1d9f29e431c76299c702fd3259752a76f81ff728a59db04ad0758b2f8b917fb72852"
    "e09e7558eb1ae3781d1368c7eaccada3";
constexpr char kQ[] =
    "eaf426d086f7cbf9f7bbb6f885d49775fd079a7925a1ade0ee5df44c91b64c7a0f353efb6cc6b135953cab612baf356b"
    "03f3faacc9d58d60d5622e3f113de365";
constexpr char kDp[] =
    "87fb122ee0ce18932f2c37a6e5019a8e059c975b0fa9fb97dbfefee63d8201aab5aa73c26a6491e06e53394ae93f933b"
    "d5160caa31c8b8aefb6cea2016a55405";
constexpr char kDq[] =
    "22eddf235b1d55aeb8bca86bf40171eef18a02d605d92e6f652084a429796f8f29d9a19e61427cafd99ae66390ca0068"
    "03736f0de7079f7808e10abd07842add";
constexpr char kQInv[] =
    "afe15585956aa6eaa79d5413b4f16ec4a7fd7714293d9c0006bd613472dadba22a9bc32cef9e0b9d24c9b400e2bf26cf"
    "439ffd8423bbc7b54b7dbfb4191ff14f";

// The signature of "abc" by that key and with that salt, by another implementation: RSASSA-PSS with SHA-256.
constexpr char kPssSalt[] = "80e4f520f30a9edbfc3be1a957961f638121a4d07ca05afb08ee2cfe6e639fa1";
constexpr char kPssAnswer[] =
    "a0ff0e52f43356c74e7b5bdb14908655942c64fa4ec3ab9ec411ada000b0d56c36b2fb80b57c46cae2c8e26e9862166e"
    "7a2a5f8c90923fbefb4252317b95142f5690118252874dcefbfd34b11a4a3e2d5e810a4d8204d658b2d2f909524347e7"
    "dde42e48c54b1b29a22ae1272605b854dafcd2611b4c80bb7a5759989b78c0fb";

void set_number(MT number, const char* hex) {
    const KnownBytes bytes(hex);
    mtConvFromOctets(number, bytes.data(), bytes.size());
}

void set_public(RsaKey& key) {
    mtSetShort(key.e, 65537);
    set_number(key.n, kN);
    key.bits = mtBitLength(key.n);
    key.flags = kRsaPublic;
}

} // namespace

bool rsa_holds(int) {
    RsaKey key;
    set_public(key);
    set_number(key.d, kD);
    set_number(key.p, kP);
    set_number(key.q, kQ);
    set_number(key.dP, kDp);
    set_number(key.dQ, kDq);
    set_number(key.qInv, kQInv);
    key.flags |= kRsaPrivate | kRsaCrt;
    return rsaPairwiseTest(&key) == 0;
}

// The pair-wise test covers the operation; what is tested here is the encoding.
bool rsa_pss_holds(int) {
    constexpr size_t kBytes = 128;
    RsaKey key;
    set_public(key);
    const KnownBytes salt(kPssSalt), signature(kPssAnswer);
    uint8_t digest[kMaxDigestSize], encoded[kBytes];
    size_t length = 0;
    if (signature.size() != kBytes || hash_bytes(digest, sizeof digest, "abc", 3, kDigestSha256) < 0)
        return false;
    const PssEncoding encoding = {key.bits - 1, kDigestSha256, kDigestSha256, salt.size()};
    uint8_t recovered[kBytes];
    pss_encode(encoded, encoding, digest, salt.data());
    if (rsaPublic(&key, recovered, &length, signature.data(), kBytes) != 0 || length != kBytes ||
        memcmp(recovered, encoded, kBytes) != 0 || !pss_verify(recovered, encoding, digest))
        return false;
    digest[0] ^= 1;
    return !pss_verify(recovered, encoding, digest);
}

} // namespace zul
