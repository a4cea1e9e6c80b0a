#include "x509/dump/dump_output.h"

#include <algorithm>
#include <cstdio>

#include "encode/hex.h"

namespace zul {

void DumpOutput::write(std::string_view text) {
    const std::string_view lineEnd = platform::line_end();
    while (!text.empty()) {
        const size_t length = std::min(text.find('\n'), text.size());
        file_.write(text.data(), length);
        if (length == text.size())
            break;
        file_.write(lineEnd.data(), lineEnd.size());
        text.remove_prefix(length + 1);
    }
}

void DumpOutput::put_number(long value) {
    char text[24];
    snprintf(text, sizeof text, "%ld", value);
    put(text);
}

void DumpOutput::put_hex(const uint8_t* bytes, size_t n) {
    for (size_t i = 0; i < n; i++) {
        const char text[3] = {kHexDigits[bytes[i] >> 4], kHexDigits[bytes[i] & 15], ' '};
        file_.write(text, sizeof text);
    }
}

void DumpOutput::put_hex_block(std::string_view indent, const uint8_t* bytes, size_t n) {
    constexpr size_t kLine = 16;
    do {
        const size_t part = std::min(n, kLine);
        put(indent);
        put_hex(bytes, part);
        put("\n");
        bytes += part;
        n -= part;
    } while (n > 0);
}

} // namespace zul
