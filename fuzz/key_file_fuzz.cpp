#include <cstdlib>
#include <cstring>
#include <string>

#include "asn1/asn_encode.h"
#include "asn1/asn_input.h"
#include "asn1/asn_parse.h"
#include "rsa/rsa_der.h"
#include "rsa/rsa_key_input.h"

// A key that is read is written as DER that reads as the same key.

using namespace zul;

static void require(bool claim) {
    if (!claim)
        std::abort();
}

using Read = bool (*)(const asn_Node* list, RsaKey& key);
using Write = AsnList (*)(const RsaKey& key);

static void round_trip(const asn_Node* list, Read reader, Write writer) {
    RsaKey key, again;
    if (!reader(list, key))
        return;
    require(rsa_values_usable(key));
    const SecretBuffer der = asn_Encode(writer(key));
    const AsnList parsed = asn_ParseBytes(der.data(), der.size());
    require(parsed && reader(parsed.head(), again));
    const SecretBuffer second = asn_Encode(writer(again));
    require(der.size() == second.size() && memcmp(der.data(), second.data(), der.size()) == 0);
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    AsnList list;
    if (asn_read_content(data, size, list) == 0) {
        round_trip(list.head(), rsa_read_public_key, rsa_public_key_list);
        round_trip(list.head(), rsa_read_subject_public_key_info, rsa_subject_public_key_info);
        round_trip(list.head(), rsa_read_private_key, rsa_private_key_list);
        round_trip(list.head(), rsa_read_private_key_info, rsa_private_key_info);
    }
    // As an argument, unless it names a file.
    const std::string text(reinterpret_cast<const char*>(data), size);
    if (text.find("-----BEGIN") != std::string::npos && text.find('\0') == std::string::npos) {
        RsaKey key;
        require((rsa_input_public_key(text.c_str(), key) == 0) == (key.flags != 0));
    }
    return 0;
}
