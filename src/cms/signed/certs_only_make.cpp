#include "cms/signed/carried_certificates.h"
#include "cms/signed/signed_data_build.h"
#include "cms/signed/signed_data_make.h"
#include "frame/err.h"
#include "zulcore.h"

namespace zul {

int make_certs_only(const char* path, const char* certList, int options) {
    const CertificateArguments list(certList);
    CarriedCertificates certificates;
    if (const int error = certificates.read(list, (options & ZUL_CMS_EXCLUDE_CERTS) == 0))
        return error;
    SignedDataParts parts;
    parts.certificates = certificates.set();
    if (!parts.certificates)
        return err_fail(NO_DATA_ERROR, "OuterContentInfo would be empty");
    return write_signed_data(path, std::move(parts), options, "PKCS7");
}

} // namespace zul
