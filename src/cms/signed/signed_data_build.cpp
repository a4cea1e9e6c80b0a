#include "cms/signed/signed_data_build.h"

#include "asn1/asn_build.h"
#include "cms/content/content_info.h"
#include "cms/message/message_file.h"
#include "frame/err.h"
#include "frame/text.h"
#include "zulcore.h"

namespace zul {

static AsnList signed_data(SignedDataParts parts) {
    constexpr uint32_t kVersion = 1;
    AsnList content = parts.content.failed() ? AsnList::failure()
                      : parts.content        ? asn_NewExplicit(0, std::move(parts.content))
                                             : AsnList();
    return asn_NewSequence(
        asn_LinkList(asn_NewInteger(kVersion), asn_NewSet(std::move(parts.digestAlgorithm)),
                     asn_NewSequence(asn_LinkList(asn_NewOid("data"), std::move(content))),
                     std::move(parts.certificates), asn_NewSet(std::move(parts.signerInfo))));
}

int write_signed_data(const char* path, SignedDataParts parts, int options, const char* label) {
    AsnList message = signed_data(std::move(parts));
    if ((options & ZUL_CMS_BARE_SIGNEDDATA) == 0)
        message = content_info("signedData", std::move(message));
    const int error = message_write(path, message.head(), options, label, {.keepsPart = true});
    return error == CREATE_ERROR ? err_fail(error, "Cannot create file %s", shown_name(path)) : error;
}

} // namespace zul
