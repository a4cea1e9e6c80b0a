#include <cstdlib>
#include <cstring>

#include "asn1/asn_encode.h"
#include "asn1/asn_parse.h"
#include "asn1/asn_value.h"
#include "pbe/pbe.h"
#include "zulcore.h"

// Any input is decrypted to one SEQUENCE or refused with a known code; and, encrypted itself under a scheme
// chosen by its length, it comes back whole or is refused for not being one SEQUENCE.

using namespace zul;

static void require(bool claim) {
    if (!claim)
        std::abort();
}

// Iteration counts of real files would take all the time of the search.
static bool asks_for_many_iterations(const AsnList& list) {
    constexpr int64_t kMany = 500;
    for (const asn_Node* node = list.head(); node != nullptr; node = node->next) {
        if (asn_is(node, kAsnUniversal, kAsnInteger) && (asn_GetInt(node) > kMany || node->length > 4))
            return true;
    }
    return false;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    SecretBuffer plain;
    const AsnList list = asn_ParseBytes(data, size);
    if (!asks_for_many_iterations(list)) {
        const int error = pbe_decrypt(list.head(), "password", plain);
        require(error == 0 || error == BAD_FORMAT_ERROR || error == NOT_SUPPORTED_ERROR ||
                error == OUT_OF_RANGE_ERROR || error == DECRYPT_ERROR);
        require(error == 0 ? plain[0] == 0x30 : plain.empty());
    }

    constexpr int kOptions[] = {0, 1, 2, 3, 4, 0x1023, 0x1034, 0x1045};
    PbeContext context;
    require(pbe_setup(context, "password", 2, kOptions[size % 8]) == 0);
    const SecretBuffer der = asn_Encode(pbe_encrypt(context, data, size));
    const AsnList written = asn_ParseBytes(der.data(), der.size());
    const int error = pbe_decrypt(written.head(), "password", plain);
    require(error == 0 || error == DECRYPT_ERROR);
    require(error != 0 || (plain.size() == size && std::memcmp(plain.data(), data, size) == 0));
    return 0;
}
