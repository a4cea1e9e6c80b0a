#include <cstdlib>
#include <cstring>
#include <string>

#include "asn1/asn_children.h"
#include "asn1/asn_parse.h"
#include "asn1/asn_value.h"
#include "encode/base64.h"
#include "pfx/pfx_mac.h"
#include "pfx/pfx_reader.h"
#include "zulcore.h"

// Any input is read or refused with a known code. What is found is one SEQUENCE of the file. A MAC made of
// the file's content verifies.

using namespace zul;

static void require(bool claim) {
    if (!claim)
        std::abort();
}

// Iteration counts of real files would take all the time of the search.
static bool asks_for_many_iterations(const asn_Node* macData) {
    constexpr int64_t kMany = 500;
    for (AsnChildren fields(macData); const asn_Node* field = fields.take();) {
        if (asn_is(field, kAsnUniversal, kAsnInteger) && (asn_GetInt(field) > kMany || field->length > 4))
            return true;
    }
    return false;
}

static void look_for(int (*find)(const SecretBuffer&, SecretBuffer&), const SecretBuffer& safe) {
    SecretBuffer content;
    const int error = find(safe, content);
    require(error == 0 || error == NO_DATA_ERROR || error == NOT_SUPPORTED_ERROR ||
            error == INVALID_DATA_ERROR);
    if (error == 0) {
        const AsnList list = asn_ParseBytes(content.data(), content.size());
        require(asn_is(list.head(), kAsnConstructed, kAsnSequence));
    }
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string text(b64_encoded_length(size) + 1, '\0');
    text.resize(b64_encode(text.data(), text.size(), data, size));
    PfxReader pfx;
    if (pfx.open(("-----BEGIN PKCS12-----\n" + text + "\n-----END PKCS12-----\n").c_str()) != 0)
        return 0;
    require(pfx.version() >= 0);
    SecretBuffer safe;
    if (pfx.read_safe(safe) != 0)
        return 0;
    look_for(pfx_find_certificate, safe);
    look_for(pfx_find_key, safe);
    if (pfx.mac_data() != nullptr && !asks_for_many_iterations(pfx.mac_data())) {
        const int error = pfx_check_mac(pfx.mac_data(), safe, "p");
        require(error == 0 || error == SIGNATURE_ERROR || error == NOT_SUPPORTED_ERROR ||
                error == OUT_OF_RANGE_ERROR || error == INVALID_DATA_ERROR);
    }
    // Too slow for every input: two thousand iterations.
    if (size % 64 == 0) {
        const AsnList made = pfx_mac_data(safe, "p");
        require(pfx_check_mac(made.head(), safe, "p") == 0 && pfx_check_mac(made.head(), safe, "") != 0);
    }
    return 0;
}
