#include <cstdlib>
#include <vector>

#include "encode/utf8.h"
#include "zulcore.h"

// Classification and conversion agree: classes 1 and 2 convert to Latin-1 and back to the same bytes, class 3
// is out of range, invalid input does not convert; and any bytes taken as Latin-1 become UTF-8 of class 1
// or 2.

using namespace zul;
using Bytes = std::vector<uint8_t>;

static void require(bool claim) {
    if (!claim)
        std::abort();
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const Utf8Class found = utf8_classify(data, size);
    Bytes latin1(size);
    Conversion result;
    const int error = latin1_from_utf8(latin1.data(), size, data, size, &result);
    require((error == 0) == (found == Utf8Class::ascii || found == Utf8Class::latin1));
    require(found != Utf8Class::wide || error == OUT_OF_RANGE_ERROR);
    if (error == 0) {
        require((result.length == size) == (found == Utf8Class::ascii));
        Bytes back(size);
        require(utf8_from_latin1(back.data(), size, latin1.data(), result.length).stored == size);
        require(back == Bytes(data, data + size));
    }

    Bytes utf8(utf8_from_latin1(nullptr, 0, data, size).length);
    require(utf8_from_latin1(utf8.data(), utf8.size(), data, size).stored == utf8.size());
    const Utf8Class made = utf8_classify(utf8.data(), utf8.size());
    require(made == Utf8Class::ascii || made == Utf8Class::latin1);
    return 0;
}
