#include "asn1/asn_file.h"

#include "asn1/asn_encode.h"
#include "encode/output_file.h"
#include "zulcore.h"

namespace zul {

int asn_write_file(const char* path, const asn_Node* list, const char* label, int lineLen,
                   const WriteRules& rules) {
    // Encoded first, so that a file that exists is not lost to a list that cannot be written.
    const SecretBuffer der = asn_Encode(list);
    return der.empty() ? int{INVALID_DATA_ERROR} : output_write(path, der, label, lineLen, rules);
}

} // namespace zul
