#include <cstdlib>
#include <cstring>
#include <string>

#include "asn1/asn_encode.h"
#include "asn1/asn_input.h"
#include "key/ecdsa_der.h"
#include "key/key_check.h"
#include "key/key_der.h"
#include "key/key_read.h"
#include "key/key_string.h"

// What is read as a key is written as DER that reads as the same key, also through its key string.

using namespace zul;

static void require(bool claim) {
    if (!claim)
        std::abort();
}

static void round_trip(const Key& key, AsnList (*writer)(const Key&)) {
    const SecretBuffer der = asn_Encode(writer(key));
    AsnList list;
    Key again;
    require(key_parse(der.data(), der.size(), list) && key_read_structure(list.head(), again) == 0);
    require(key_same_public(key, again) && again.isPrivate == (writer != key_public_info));
    const SecretBuffer second = asn_Encode(writer(again));
    require(der.size() == second.size() && memcmp(der.data(), second.data(), der.size()) == 0);
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    AsnList list;
    Key key, opened;
    if (asn_read_content(data, size, list) == 0 && key_read_structure(list.head(), key) == 0) {
        round_trip(key, key_public_info);
        if (key.isPrivate)
            round_trip(key, key_private_info);
        const SecretBuffer text = key_string_write(key);
        require(key_string_read(text.text(), opened) == 0 && key_same_public(key, opened));
    }
    uint8_t rs[2 * kMaxEcBytes], der[2 * kMaxEcBytes + 16];
    if (ecdsa_der_read(rs, kMaxEcBytes, data, size))
        require(ecdsa_der_write(der, rs, kMaxEcBytes) == size && memcmp(der, data, size) == 0);
    const std::string text(reinterpret_cast<const char*>(data), size);
    Key other;
    if (text.find("-----BEGIN ") != std::string::npos && text.find("DEK-Info") == std::string::npos &&
        text.find('\0') == std::string::npos)
        (void)key_read(other, text.c_str(), nullptr);
    return 0;
}
