#include "cms/signed/signed_attributes.h"

#include "asn1/asn_build.h"
#include "asn1/asn_encode.h"
#include "x509/fields/x509_time.h"
#include "zulcore.h"

namespace zul {
namespace {

// The list and its order never change, since readers rely on them.
AsnList smime_capabilities() {
    static const char* const kNames[] = {"des-EDE3-CBC", "sha1WithRSAEncryption", "sha-1WithRSAEncryption",
                                         "md5WithRSAEncryption", "rsaEncryption"};
    AsnList all;
    for (const char* name : kNames)
        all = asn_Link(std::move(all), asn_NewSequence(asn_NewOid(name)));
    return asn_NewSequence(std::move(all));
}

} // namespace

AsnList signed_attributes_make(const uint8_t* digest, size_t digestLength, int options) {
    constexpr size_t kMost = 4;
    AsnList attributes[kMost];
    size_t count = 0;
    if ((options & ZUL_CMS_ADD_SIGNTIME) != 0)
        attributes[count++] = asn_NewAttribute("signingTime", asn_NewTime(utc_now()));
    if ((options & ZUL_CMS_ADD_SMIMECAPS) != 0)
        attributes[count++] = asn_NewAttribute("sMIMECapabilities", smime_capabilities());
    attributes[count++] = asn_NewAttribute("messageDigest", asn_NewOctetString(digest, digestLength));
    attributes[count++] = asn_NewAttribute("contentType", asn_NewOid("data"));
    asn_SortSet(attributes, count);

    AsnList all;
    for (size_t i = 0; i < count; i++)
        all = asn_Link(std::move(all), std::move(attributes[i]));
    return asn_NewSet(std::move(all));
}

} // namespace zul
