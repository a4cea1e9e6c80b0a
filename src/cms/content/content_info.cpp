#include "cms/content/content_info.h"

#include "asn1/asn_build.h"

namespace zul {

AsnList content_info(const char* contentType, AsnList content) {
    return asn_NewSequence(asn_LinkList(asn_NewOid(contentType), asn_NewExplicit(0, std::move(content))));
}

} // namespace zul
