#include <cstdlib>
#include <string>
#include <string_view>

#include "encode/base64.h"
#include "encode/pem.h"

// A body found lies within the text, after a BEGIN and before the END or BEGIN that ends it, and does not
// begin with what the reader skips. A text that is accepted as PEM has a body that is not empty.

using namespace zul;

static void require(bool claim) {
    if (!claim)
        std::abort();
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const char* text = reinterpret_cast<const char*>(data);
    size_t length = 1;
    const char* body = pem_find_body(text, size, &length);
    if (body == nullptr) {
        require(length == 0);
    } else {
        require(body >= text + 15 && body <= text + size &&
                length <= static_cast<size_t>(text + size - body));
        const std::string_view after(body + length, static_cast<size_t>(text + size - body) - length);
        require(after.starts_with("-----END") || after.starts_with("-----BEGIN"));
        require(length == 0 || std::string_view(" \t0123456789").find(body[0]) == std::string_view::npos);
        require(std::string_view(body, length).find("-----END") == std::string_view::npos);
        require(b64_decoded_length(body, length) <= length / 4 * 3 + 2);
    }

    const std::string ended(text, size);
    if (is_pem_text(ended.c_str()))
        require(pem_find_body(ended.c_str(), ended.find('\0') == std::string::npos ? size : ended.find('\0'),
                              &length) &&
                length > 0);
    if (is_b64_der_text(ended.c_str()))
        require(ended[0] == 'M' && !is_pem_text(ended.c_str()));
    return 0;
}
