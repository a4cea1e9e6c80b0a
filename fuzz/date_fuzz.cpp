#include <cstdlib>
#include <cstring>
#include <string>

#include "asn1/asn_build.h"
#include "asn1/asn_value.h"
#include "x509/fields/x509_time.h"

// A date text that is accepted gives a time whose own text, and whose encoding, is read as the same time. The
// time of an element has a text of the same form.

using namespace zul;

static void require(bool claim) {
    if (!claim)
        std::abort();
}

static std::string text_of(const tm& time) {
    char text[kAsnTimeText];
    asn_format_time(time, text);
    require(strlen(text) == sizeof "yyyy-mm-ddThh:nn:ssZ" - 1);
    return text;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    tm time, again;
    const std::string input(reinterpret_cast<const char*>(data), size);
    if (read_date_text(input.c_str(), "23:59:59", &time)) {
        const std::string text = text_of(time);
        require(read_date_text(text.c_str(), nullptr, &again) && text_of(again) == text);
        require(asn_GetTime(asn_NewTime(time).head(), &again) == 0 && text_of(again) == text);
    }
    for (const uint32_t tag : {kAsnUtcTime, kAsnGeneralizedTime}) {
        const AsnList list = asn_NewString(tag, data, size);
        char text[kAsnTimeText];
        const bool found = asn_GetTime(list.head(), &time) == 0;
        require(asn_time_text(list.head(), text) == (found ? text_of(time) : ""));
    }
    return 0;
}
