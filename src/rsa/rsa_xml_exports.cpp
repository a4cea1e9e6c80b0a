#include <cstring>

#include "frame/call_frame.h"
#include "rsa/rsa_key_string.h"
#include "rsa/rsa_xml.h"
#include "zulcore.h"

using namespace zul;

static int to_xml(char* szOutput, int nOutChars, const char* szKeyString, int nOptions) {
    RsaKey key;
    if (const int code = rsa_open_any(szKeyString, key, nullptr)) {
        err_add_text("Could not extract key from string");
        return -code;
    }
    const SecretBuffer xml = rsa_key_to_xml(key, nOptions);
    const auto length = static_cast<int>(xml.size());
    if (szOutput != nullptr && nOutChars >= length)
        memcpy(szOutput, xml.text(), xml.size() + 1);
    return length;
}

int RSA_ToXMLString(char* szOutput, int nOutChars, const char* szKeyString, int nOptions) {
    CallFrame frame;
    if (szKeyString == nullptr)
        return frame.length(-BAD_PARAM_ERROR);
    return frame.length(to_xml(szOutput, nOutChars, szKeyString, nOptions));
}

static int from_xml(char* szOutput, int nOutChars, const char* szXmlString) {
    RsaKey key;
    if (const int code = rsa_key_from_xml(szXmlString, key))
        return -code;
    return (key.flags & kRsaPrivate) != 0 ? rsa_private_key_string(szOutput, nOutChars, key)
                                          : rsa_public_key_string(szOutput, nOutChars, key);
}

int RSA_FromXMLString(char* szOutput, int nOutChars, const char* szXmlString, int) {
    CallFrame frame;
    if (szXmlString == nullptr)
        return frame.length(-BAD_PARAM_ERROR);
    return frame.length(from_xml(szOutput, nOutChars, szXmlString));
}
