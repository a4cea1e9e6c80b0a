#include "ec/ecdsa.h"
#include "ec/ed25519.h"
#include "ec/x25519.h"
#include "hash/digest.h"
#include "module/known_answers.h"

namespace zul {

namespace {

struct EcdsaAnswer {
    int digest;
    const char *privateKey, *signature; // of the message "sample"
};

// RFC 6979, A.2.5 to A.2.7, by EcCurve.
constexpr EcdsaAnswer kEcdsaAnswers[] = {
    {kDigestSha256, "c9afa9d845ba75166b5c215767b1d6934e50c3db36e89b127b8a622b120f6721",
     "efd48b2aacb6a8fd1140dd9cd45e81d69d2c877b56aaf991c34d0ea84eaf3716f7cb1c942d657c41d436c7a1b6e29f65"
     "f3e900dbb9aff4064dc4ab2f843acda8"},
    {kDigestSha384,
     "6b9d3dad2e1b8c1c05b19875b6659f4de23c3b667bf297ba9aa47740787137d896d5724e4c70a825f872c9ea60d2edf5",
     "94edbb92a5ecb8aad4736e56c691916b3f88140666ce9fa73d64c4ea95ad133c81a648152e44acf96e36dd1e80fabe46"
     "99ef4aeb15f178cea1fe40db2603138f130e740a19624526203b6351d0a3a94fa329c145786e679e7b82c71a38628ac8"},
    {kDigestSha512,
     "00fad06daa62ba3b25d2fb40133da757205de67f5bb0018fee8c86e1b68c7e75caa896eb32f1f47c70855836a6d16fcc"
     "1466f6d8fbec67db89ec0c08b0e996b83538",
     "00c328fafcbd79dd77850370c46325d987cb525569fb63c5d3bc53950e6d4c5f174e25a1ee9017b5d450606add152b53"
     "4931d7d4e8455cc91f9b15bf05ec36e377fa00617cce7cf5064806c467f678d3b4080d6f1cc50af26ca209417308281b"
     "68af282623eaa63e5b5c0723d8b8c37ff0777b1a20f8ccb1dccc43997f1ee0e44da4a67a"},
};

struct EcdhAnswer {
    const char *own, *other, *shared;
};

// RFC 5903, 8.1 to 8.3, by EcCurve: the initiator's private key and the responder's public one.
constexpr EcdhAnswer kEcdhAnswers[] = {
    {"c88f01f510d9ac3f70a292daa2316de544e9aab8afe84049c62a9c57862d1433",
     "d12dfb5289c8d4f81208b70270398c342296970a0bccb74c736fc7554494bf6356fbf3ca366cc23e8157854c13c58d6a"
     "ac23f046ada30f8353e74f33039872ab",
     "d6840f6b42f6edafd13116e0e12565202fef8e9ece7dce03812464d04b9442de"},
    {"099f3c7034d4a2c699884d73a375a67f7624ef7c6b3c0f160647b67414dce655e35b538041e649ee3faef896783ab194",
     "e558dbef53eecde3d3fccfc1aea08a89a987475d12fd950d83cfa41732bc509d0d1ac43a0336def96fda41d0774a3571"
     "dcfbec7aacf3196472169e838430367f66eebe3c6e70c416dd5f0c68759dd1fff83fa40142209dff5eaad96db9e6386c",
     "11187331c279962d93d604243fd592cb9d0a926f422e47187521287e7156c5c4d603135569b9e9d09cf5d4a270f59746"},
    {"0037ade9319a89f4dabdb3ef411aaccca5123c61acab57b5393dce47608172a095aa85a30fe1c2952c6771d937ba9777"
     "f5957b2639bab072462f68c27a57382d4a52",
     "00d0b3975ac4b799f5bea16d5e13e9af971d5e9b984c9f39728b5e5739735a219b97c356436adc6e95bb0352f6be64a6"
     "c2912d4ef2d0433ced2b6171640012d9460f015c68226383956e3bd066e797b623c27ce0eac2f551a10c2c724d985207"
     "7b87220b6536c5c408a1d2aebb8e86d678ae49cb57091f4732296579ab44fcd17f0fc56a",
     "01144c7d79ae6956bc8edb8e7c787c4521cb086fa64407f97894e5e6b2d79b04d1427e73ca4baa240a34786859810c06"
     "b3c715a3a8cc3151f2bee417996d19f3ddea"},
};

// RFC 8032, 7.1, test 3.
constexpr char kEd25519Private[] = "c5aa8df43f9f837bedb7442f31dcb7b166d38535076f094b85ce3a2e0b4458f7";
constexpr char kEd25519Public[] = "fc51cd8e6218a1a38da47ed00230f0580816ed13ba3303ac5deb911548908025";
constexpr char kEd25519Message[] = "af82";
constexpr char kEd25519Answer[] =
    "6291d657deec24024827e69c3abe01a30ce548a284743a445e3680d7db5ac3ac18ff9b538d16f290ae67f760984dc659"
    "4a7c15e9716ed28dc027beceea1ec40a";

// RFC 7748, 5.2: the first example, and the first of the iteration, which multiplies the base point.
constexpr char kX25519Private[] = "a546e36bf0527c9d3b16154b82465edd62144c0ac1fc5a18506a2244ba449ac4";
constexpr char kX25519Coordinate[] = "e6db6867583030db3594c1a424b15f7c726624ec26b3353b10a903a6d0ab1c4c";
constexpr char kX25519Answer[] = "c3da55379de9c6908e94ea4df28d084f32eccf03491c71f754b4075577a28552";
constexpr char kX25519Public[] = "422c8e7a6227d7bca1350b3e2bb7279f7897b87bb6854b783c60e80311ae3079";

} // namespace

bool ecdsa_holds(int which) {
    const auto curve = static_cast<EcCurve>(which);
    const EcdsaAnswer& answer = kEcdsaAnswers[which];
    const KnownBytes d(answer.privateKey), expected(answer.signature);
    uint8_t digest[kMaxDigestSize], rs[2 * kMaxEcBytes], point[2 * kMaxEcBytes];
    const int size = hash_bytes(digest, sizeof digest, "sample", 6, answer.digest);
    const auto digestSize = static_cast<size_t>(size);
    const EcOperations& operations = ec_operations(curve);
    if (size <= 0 || d.size() != operations.bytes ||
        ecdsa_sign(rs, curve, d.data(), digest, digestSize, answer.digest, nullptr) != 0 ||
        !expected.equals(rs, 2 * operations.bytes))
        return false;
    operations.public_key(point, d.data());
    if (!operations.point_is_valid(point) || !ecdsa_verify(rs, curve, point, digest, digestSize))
        return false;
    // The comparison is one text for all curves, and the fastest one reaches it.
    digest[0] ^= 1;
    return curve != EcCurve::p256 || !ecdsa_verify(rs, curve, point, digest, digestSize);
}

bool ecdh_holds(int which) {
    const EcOperations& operations = ec_operations(static_cast<EcCurve>(which));
    const EcdhAnswer& answer = kEcdhAnswers[which];
    const KnownBytes own(answer.own), other(answer.other);
    uint8_t x[kMaxEcBytes];
    if (own.size() != operations.bytes || other.size() != 2 * operations.bytes ||
        !operations.point_is_valid(other.data()))
        return false;
    operations.agree(x, own.data(), other.data());
    return KnownBytes(answer.shared).equals(x, operations.bytes);
}

bool ed25519_holds(int) {
    const KnownBytes privateKey(kEd25519Private), text(kEd25519Message);
    uint8_t publicKey[kEd25519Key], signature[kEd25519Signature];
    ed25519_public(publicKey, privateKey.data());
    Ed25519Bytes message(text.data(), text.size());
    bool unread = false;
    if (!KnownBytes(kEd25519Public).equals(publicKey, sizeof publicKey) ||
        !ed25519_sign(signature, privateKey.data(), publicKey, message, Ed25519Form::pure) ||
        !KnownBytes(kEd25519Answer).equals(signature, sizeof signature) ||
        !ed25519_verify(signature, publicKey, message, Ed25519Form::pure, &unread))
        return false;
    signature[0] ^= 1;
    return !ed25519_verify(signature, publicKey, message, Ed25519Form::pure, &unread);
}

bool x25519_holds(int) {
    uint8_t out[kX25519Bytes];
    const uint8_t nine[kX25519Bytes] = {9};
    if (!x25519(out, KnownBytes(kX25519Private).data(), KnownBytes(kX25519Coordinate).data()) ||
        !KnownBytes(kX25519Answer).equals(out, sizeof out))
        return false;
    x25519_public(out, nine);
    return KnownBytes(kX25519Public).equals(out, sizeof out);
}

} // namespace zul
