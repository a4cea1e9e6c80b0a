#include "key/ecdsa_der.h"

#include <cstring>

namespace zul {
namespace {

constexpr uint8_t kSequence = 0x30, kInteger = 0x02, kLongLength = 0x81;

size_t header_size(size_t content) {
    return content < 0x80 ? 2 : 3;
}

uint8_t* put_header(uint8_t* out, uint8_t tag, size_t content) {
    *out++ = tag;
    if (content >= 0x80)
        *out++ = kLongLength;
    *out++ = static_cast<uint8_t>(content);
    return out;
}

// The bytes that a number needs as an INTEGER.
size_t integer_size(const uint8_t*& number, size_t bytes) {
    while (bytes > 1 && *number == 0) {
        number++;
        bytes--;
    }
    return bytes + (*number >> 7);
}

// take_header reads a header in the fewest octets, of content that is there.
bool take_header(const uint8_t*& at, const uint8_t* end, uint8_t tag, size_t* content) {
    if (end - at < 2 || at[0] != tag)
        return false;
    const bool isLong = at[1] == kLongLength;
    if (isLong && (end - at < 3 || at[2] < 0x80))
        return false;
    if (!isLong && at[1] >= 0x80)
        return false;
    *content = isLong ? at[2] : at[1];
    at += isLong ? 3 : 2;
    return static_cast<size_t>(end - at) >= *content;
}

bool take_integer(uint8_t* out, size_t bytes, const uint8_t*& at, const uint8_t* end) {
    size_t size = 0;
    if (!take_header(at, end, kInteger, &size) || size == 0 || (at[0] & 0x80) != 0 ||
        (size > 1 && at[0] == 0 && (at[1] & 0x80) == 0))
        return false;
    const size_t lead = at[0] == 0 ? 1 : 0;
    if (size - lead > bytes)
        return false;
    memset(out, 0, bytes);
    memcpy(out + bytes - (size - lead), at + lead, size - lead);
    at += size;
    return true;
}

} // namespace

size_t ecdsa_der_most(size_t bytes) {
    const size_t content = 2 * (2 + bytes + 1);
    return header_size(content) + content;
}

size_t ecdsa_der_write(uint8_t* out, const uint8_t* rs, size_t bytes) {
    const uint8_t *const numbers[] = {rs, rs + bytes}, *start[2];
    size_t sizes[2];
    for (int i = 0; i < 2; i++) {
        start[i] = numbers[i];
        sizes[i] = integer_size(start[i], bytes);
    }
    uint8_t* at = put_header(out, kSequence, sizes[0] + sizes[1] + 4);
    for (int i = 0; i < 2; i++) {
        at = put_header(at, kInteger, sizes[i]);
        const auto own = static_cast<size_t>(numbers[i] + bytes - start[i]);
        if (sizes[i] > own)
            *at++ = 0;
        memcpy(at, start[i], own);
        at += own;
    }
    return static_cast<size_t>(at - out);
}

bool ecdsa_der_read(uint8_t* rs, size_t bytes, const uint8_t* der, size_t size) {
    const uint8_t* at = der;
    const uint8_t* const end = der + size;
    size_t content = 0;
    return take_header(at, end, kSequence, &content) && at + content == end &&
           take_integer(rs, bytes, at, end) && take_integer(rs + bytes, bytes, at, end) && at == end;
}

} // namespace zul
