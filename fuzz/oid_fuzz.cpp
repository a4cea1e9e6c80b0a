#include <cstring>
#include <string>

#include "asn1/asn_build.h"
#include "asn1/oid.h"
#include "asn1/oid_dotted.h"
#include "cert/fields/oid_names.h"
#include "fuzz_support.h"

// A dotted text that is accepted has octets whose dotted text is the same, and octets that have one are what
// it gives. A name of the table gives octets that give the name.

using namespace zul;
using fuzz::require;

static std::string dotted(DerView oid) {
    TextBuffer out;
    put_oid_dotted(out, oid);
    return std::string(out.text());
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    if (const AsnList made = oid_from_dotted(text)) {
        require(oid_is_dotted(text));
        const std::string shown = dotted({made.head()->data, made.head()->length});
        require(shown == text || shown.starts_with('#'));
    }
    OidInfo named;
    if (oid_FromName(&named, text.c_str()) > 0) {
        OidInfo found = named;
        found.name[0] = '\0';
        require(oid_FromBytes(&found) == 0 && strcmp(found.name, named.name) == 0);
    }
    const AsnList bytes = asn_NewString(kAsnOid, data, size);
    char old[256], cut[6];
    const int length = oid_ToDotted(bytes.head(), old, sizeof old - 1);
    require(length < 0 || static_cast<size_t>(length) == strlen(old));
    require((oid_ToDotted(bytes.head(), cut, sizeof cut - 1) < 0) == (length < 0));
    require(length < 0 || strncmp(cut, old, sizeof cut - 1) == 0);

    const std::string shown = dotted({data, size});
    require(shown.starts_with('#') || der_is_oid({data, size}));
    constexpr size_t kMostOctets = 32;
    if (!shown.starts_with('#') && size <= kMostOctets) {
        const AsnList again = oid_from_dotted(shown);
        require(again && again.head()->length == size && memcmp(again.head()->data, data, size) == 0);
    }
    return 0;
}
