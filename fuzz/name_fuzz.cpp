#include <cstdlib>
#include <cstring>
#include <string>

#include "asn1/asn_children.h"
#include "asn1/asn_encode.h"
#include "asn1/asn_parse.h"
#include "x509/names/distinguished_name.h"
#include "zulcore.h"

// The input as a name's text: the parts that are recognised make a Name of as many parts, whose encoding
// reads back and prints. The input as a Name: it prints whole or not at all, and a short room gets the
// beginning of the same text.

using namespace zul;

static void require(bool claim) {
    if (!claim)
        std::abort();
}

static bool print(const asn_Node* name, int options) {
    SecretBuffer text;
    const int error = name_text(name, "|", options, text);
    require(error == 0 || (error == BAD_FORMAT_ERROR && text.empty()));
    int length = 0;
    require(name_print(name, nullptr, 0, "|", options, &length) == error);
    if (error != 0)
        return false;
    require(length == static_cast<int>(text.size()));
    require(strlen(text.text()) == text.size());
    char start[9];
    require(name_print(name, start, 8, "|", options, &length) == 0);
    require(length == static_cast<int>(text.size() < 8 ? text.size() : 8) && start[length] == '\0');
    require(memcmp(start, text.text(), static_cast<size_t>(length)) == 0);
    return true;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    for (const int options : {0, ZUL_X509_UTF8}) {
        AsnList name;
        const int count = name_encode(text.c_str(), options, name);
        require(print(name.head(), 0) && print(name.head(), ZUL_X509_LATIN1));
        const SecretBuffer der = asn_Encode(name);
        const AsnList parsed = asn_ParseBytes(der.data(), der.size());
        int parts = 0;
        for (AsnChildren children(parsed.head()); !children.at_end(); children.take())
            parts++;
        require(parts == count && asn_Compare(name.head(), parsed.head()) == 0);
    }

    const AsnList list = asn_ParseAll(data, size);
    for (const asn_Node* node = list.head(); node != nullptr; node = node->next)
        require(print(node, 0) == print(node, ZUL_X509_LATIN1));
    return 0;
}
