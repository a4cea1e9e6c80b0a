#include <cstdlib>
#include <cstring>
#include <string>

#include "asn1/asn_encode.h"
#include "asn1/asn_parse.h"
#include "hash/digest.h"
#include "key/pss_rules.h"
#include "key/signature_choice.h"
#include "rsa/rsa_pss.h"
#include "zulcore.h"

// Parameters of RSASSA-PSS that can be read are written so that they read as the same; a key with them signs
// only as they allow. Any bytes are an encoding that is refused or is the one of its own salt.

using namespace zul;

static void require(bool claim) {
    if (!claim)
        std::abort();
}

static bool same(const PssRules& a, const PssRules& b) {
    return a.restricts == b.restricts && a.digest == b.digest && a.mgfDigest == b.mgfDigest &&
           a.leastSalt == b.leastSalt;
}

static void check_encoding(const PssEncoding& encoding, const uint8_t* data, size_t size) {
    size_t room = 0;
    if (!pss_salt_room(encoding, &room) || encoding.saltSize > room)
        return;
    const SecretBuffer bytes(encoding.bytes());
    SecretBuffer made(encoding.bytes()), salt(encoding.saltSize + 1);
    memcpy(made.data(), data, size < made.size() ? size : made.size());
    memcpy(salt.data(), data, size < encoding.saltSize ? size : encoding.saltSize);
    uint8_t digest[kMaxDigestSize] = {7};
    (void)pss_verify(made.data(), encoding, digest);
    pss_encode(made.data(), encoding, digest, salt.data());
    require(pss_verify(made.data(), encoding, digest));
    made[size % made.size()] ^= 1;
    require(!pss_verify(made.data(), encoding, digest));
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    PssRules rules, again;
    const AsnList list = asn_ParseBytes(data, size);
    if (list.head() != nullptr && pss_rules_read(rules, list.head()) == 0) {
        const SecretBuffer der = asn_Encode(pss_rules_list(rules));
        const AsnList written = asn_ParseBytes(der.data(), der.size());
        require(pss_rules_read(again, written.head()) == 0 && same(rules, again));
        Key key;
        key.kind = KeyKind::rsaPss;
        key.pss = rules;
        SignatureAlgorithm algorithm;
        require(signature_choose(algorithm, nullptr, key) == 0);
        require(algorithm.digest == rules.digest && algorithm.mgfDigest == rules.mgfDigest);
        for (const char* name :
             {"rsa-pss-sha256", "rsa-pss-sha1;salt=20", "rsa-pss-sha384;mgf=sha512;salt=max"}) {
            if (signature_choose(algorithm, name, key) == 0)
                require(algorithm.digest == rules.digest && algorithm.mgfDigest == rules.mgfDigest);
        }
        check_encoding({2047, rules.digest, rules.mgfDigest, rules.leastSalt}, data, size);
    }
    const std::string text(reinterpret_cast<const char*>(data), size);
    SignatureAlgorithm algorithm;
    (void)signature_choose(algorithm, text.c_str(), Key{});
    if (size >= 2)
        check_encoding({8 * size_t{data[0]} + data[1] % 8 + 1, kDigestSha256, kDigestSha1, data[1]}, data,
                       size);
    return 0;
}
