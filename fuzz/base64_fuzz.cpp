#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include "encode/base64.h"
#include "encode/hex.h"

// Reads the input as base64 and as hex: the count announced is the count decoded, and with less room the
// result is a beginning of the whole. The input encoded decodes to itself.

using namespace zul;
using Bytes = std::vector<uint8_t>;

static void require(bool claim) {
    if (!claim)
        std::abort();
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const char* text = reinterpret_cast<const char*>(data);
    const std::string ended(text, size);

    Bytes whole(b64_decoded_length(text, size));
    require(b64_decode(whole.data(), whole.size(), text, size) == whole.size());
    require(b64_decoded_length(ended.c_str()) == whole.size());
    Bytes part(whole.size() / 2);
    part.resize(b64_decode(part.data(), part.size(), text, size));
    require(std::equal(part.begin(), part.end(), whole.begin()));

    std::vector<char> line(b64_encoded_length(size) + 1);
    require(b64_encode(line.data(), line.size(), data, size) == line.size() - 1);
    Bytes back(size);
    require(b64_decode(back.data(), size, line.data()) == size);
    require(back == Bytes(data, data + size));

    std::vector<char> digits(size + 1);
    const size_t kept = hex_filter(digits.data(), ended.c_str(), size);
    Bytes bytes(hex_decoded_length(ended.c_str()));
    require(hex_decode(bytes.data(), bytes.size(), ended.c_str()) == bytes.size());
    Bytes strict(kept / 2);
    size_t length = 0;
    require(hex_decode_strict(strict.data(), &length, digits.data(), kept / 2 * 2) && strict == bytes);
    return 0;
}
