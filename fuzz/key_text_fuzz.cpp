#include <cstring>
#include <string>

#include "asn1/asn_encode.h"
#include "asn1/asn_parse.h"
#include "asn1/asn_value.h"
#include "frame/err.h"
#include "fuzz_support.h"
#include "key/key_der.h"
#include "key/key_read.h"
#include "key/key_string.h"
#include "key/pem_key.h"
#include "rsa/rsa_key_input.h"
#include "rsa/rsa_key_string.h"
#include "zulcore.h"

// The input as the text of a key: a key string, PEM with and without encryption, base64. What is read is a
// key that can be written; what is refused has a text. As DER: an encrypted key, under the password of the
// seeds.

using namespace zul;
using fuzz::require;

// Iteration counts and memory of real files would take all the time of the search.
static bool is_costly(const uint8_t* data, size_t size) {
    constexpr int64_t kMany = 500;
    const AsnList list = asn_ParseBytes(data, size);
    bool hasScrypt = false;
    for (const asn_Node* node = list.head(); node != nullptr; node = node->next) {
        hasScrypt = hasScrypt || (asn_is(node, kAsnUniversal, kAsnOid) && asn_OidIs(node, "scrypt"));
        if (asn_is(node, kAsnUniversal, kAsnInteger) && (asn_GetInt(node) > kMany || node->length > 4))
            return true;
    }
    return hasScrypt;
}

static void check(const Key& key, int error) {
    require(error == 0 || *err_text() != '\0');
    if (error == 0)
        require(!asn_Encode(key.isPrivate ? key_private_info(key) : key_public_info(key)).empty());
}

static void read_text(const std::string& text) {
    PemBlock block;
    const bool isPem = pem_find_key(text, block) == 0;
    if (isPem) {
        require(block.body.data() >= text.data() &&
                block.body.data() + block.body.size() <= text.data() + text.size());
        SecretBuffer body(b64_decoded_length(block.body.data(), block.body.size()));
        b64_decode(body.data(), body.size(), block.body.data(), block.body.size());
        if (is_costly(body.data(), body.size()))
            return;
    }
    // Anything else may be the name of a file.
    if (isPem || text.find("-----BEGIN ") != std::string::npos) {
        Key key;
        for (const char* password : {static_cast<const char*>(nullptr), "password"}) {
            err_clear();
            check(key, key_read(key, text.c_str(), password));
        }
    }
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text = std::string(reinterpret_cast<const char*>(data), size).c_str();
    Key key;
    err_clear();
    check(key, key_string_read(text.c_str(), key));
    RsaKey rsa;
    bool isPrivate = false;
    if (rsa_open_any(text.c_str(), rsa, &isPrivate) == 0)
        require(rsa.bits > 1 && ((rsa.flags & kRsaPrivate) != 0) == isPrivate);
    SecretBuffer der;
    KeyStringType type;
    (void)key_string_open(text.c_str(), der, &type);
    read_text(text);

    if (size > 0 && data[0] == 0x30 && !is_costly(data, size)) {
        const std::string pem = fuzz::as_pem(data, size);
        Key opened;
        err_clear();
        check(opened, key_read(opened, pem.c_str(), "password"));
        RsaKey old;
        if (rsa_input_encrypted_key(pem.c_str(), "password", old) == 0)
            require(old.bits > 1 && (old.flags & kRsaPrivate) != 0);
    }
    return 0;
}
