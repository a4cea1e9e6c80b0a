#include <cstdlib>
#include <string>

#include "rsa/rsa_xml.h"
#include "zulcore.h"

// Any text is read or refused; a key that was read is written as XML that gives the same key and the same
// XML.

using namespace zul;

static void require(bool claim) {
    if (!claim)
        std::abort();
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text(data, data + size);
    RsaKey key;
    const int code = rsa_key_from_xml(text.c_str(), key);
    require(code == 0 || code == BAD_XML_ERROR || code == INVALID_DATA_ERROR);
    if (code != 0)
        return 0;
    for (const int options : {0, ZUL_XML_RSAKEYVALUE | ZUL_XML_HEXBINARY}) {
        const SecretBuffer xml = rsa_key_to_xml(key, options);
        RsaKey again;
        require(rsa_key_from_xml(xml.text(), again) == 0);
        require(again.flags == key.flags && again.bits == key.bits && mtIsEqual(again.d, key.d) == 1);
        const SecretBuffer same = rsa_key_to_xml(again, options);
        require(std::string(same.text()) == xml.text() && same.size() == xml.size());
    }
    return 0;
}
