// Texts of elements.
#include <cstring>

#include "asn1/asn_value.h"
#include "encode/hex.h"
#include "encode/utf8.h"

namespace zul {

namespace {

bool is_plain_text(uint32_t tag) {
    switch (tag) {
    case kAsnNumericString:
    case kAsnPrintableString:
    case kAsnTeletexString:
    case kAsnIa5String:
    case kAsnUtcTime:
    case kAsnGeneralizedTime:
    case kAsnVisibleString:
        return true;
    default:
        return false;
    }
}

// from_wide takes the lowest byte of each character, false if one does not fit in it.
bool from_wide(SecretBuffer& text, const uint8_t* bytes, size_t n, size_t width) {
    if (n % width != 0)
        return false;
    for (size_t i = 0; i < n; i++)
        if (i % width == width - 1)
            text[i / width] = bytes[i];
        else if (bytes[i] != 0)
            return false;
    text.shrink(n / width);
    return true;
}

bool to_latin1(SecretBuffer& text, uint32_t tag, const uint8_t* bytes, size_t n) {
    Conversion converted;
    switch (tag) {
    case kAsnUtf8String:
        if (latin1_from_utf8(text.data(), n, bytes, n, &converted) != 0)
            return false;
        text[converted.stored] = 0;
        text.shrink(converted.stored);
        return true;
    case kAsnBmpString:
        return from_wide(text, bytes, n, 2);
    case kAsnUniversalString:
        return from_wide(text, bytes, n, 4);
    default:
        return false;
    }
}

SecretBuffer hex_text(const uint8_t* bytes, size_t n) {
    SecretBuffer text(3 * n + 1);
    char* end = text.text();
    for (size_t i = 0; i < n; i++) {
        *end++ = kHexDigits[bytes[i] >> 4];
        *end++ = kHexDigits[bytes[i] & 0xF];
        *end++ = ' ';
    }
    if (n != 0)
        end[-1] = '\0';
    text.shrink(n == 0 ? 0 : 3 * n - 1);
    return text;
}

} // namespace

SecretBuffer asn_GetText(const asn_Node* node, bool convert) {
    const size_t n = node == nullptr || node->data == nullptr ? 0 : node->length;
    if (n == 0 || n > kMaxAllocation / 3 - 1)
        return hex_text(nullptr, 0);
    const bool isUniversal = (node->cls & ~kAsnConstructed) == kAsnUniversal;
    SecretBuffer text(n + 1);
    text.shrink(n);
    if (isUniversal && is_plain_text(node->tag)) {
        memcpy(text.data(), node->data, n);
        return text;
    }
    if (isUniversal && convert && to_latin1(text, node->tag, node->data, n))
        return text;
    return hex_text(node->data, n);
}

} // namespace zul
