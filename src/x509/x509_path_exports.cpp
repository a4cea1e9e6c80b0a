#include "frame/call_frame.h"
#include "x509/verify/path.h"
#include "zulcore.h"

using namespace zul;

int X509_ValidatePath(const char* szCertList, const char* szTrustedCert, int nOptions) {
    CallFrame frame;
    if (szCertList == nullptr || *szCertList == '\0')
        return frame.length(-BAD_PARAM_ERROR);
    return frame.length(validate_path(szCertList, szTrustedCert, nOptions));
}
