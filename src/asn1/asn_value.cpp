#include "asn1/asn_value.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "asn1/oid.h"
#include "frame/err.h"

namespace zul {

namespace {

bool is_primitive(const asn_Node* node) {
    return node != nullptr && (node->cls & kAsnConstructed) == 0;
}

// content_size is the size of what a node itself holds.
uint32_t content_size(const asn_Node* node) {
    return node->data == nullptr ? 0 : node->length;
}

// buffer_of gives a buffer of n bytes with a NUL behind them.
SecretBuffer buffer_of(size_t n) {
    SecretBuffer buffer(n + 1);
    buffer.shrink(n);
    return buffer;
}

SecretBuffer copy_of(const uint8_t* bytes, size_t n) {
    SecretBuffer copy = buffer_of(n);
    if (n != 0)
        memcpy(copy.data(), bytes, n);
    return copy;
}

} // namespace

int64_t asn_GetInt(const asn_Node* node) {
    if (!asn_is(node, kAsnUniversal, kAsnInteger) && !asn_is(node, kAsnUniversal, kAsnEnumerated))
        return -1;
    const uint32_t n = content_size(node);
    if (n < 1 || n > 4)
        return -1;
    uint32_t value = 0;
    for (uint32_t i = 0; i < n; i++)
        value = value << 8 | node->data[i];
    return value;
}

int asn_GetIntegerBytes(const asn_Node* node, uint8_t* buf, size_t max) {
    if (!asn_is(node, kAsnUniversal, kAsnInteger))
        return -1;
    const uint8_t* bytes = node->data;
    uint32_t n = content_size(node);
    while (n > 0 && *bytes == 0) {
        bytes++;
        n--;
    }
    if (n > max)
        return -1;
    if (n != 0)
        memcpy(buf, bytes, n);
    return static_cast<int>(n);
}

int asn_GetBoolean(const asn_Node* node) {
    if (!asn_is(node, kAsnUniversal, kAsnBoolean) || content_size(node) == 0)
        return -1;
    return std::any_of(node->data, node->data + node->length, [](uint8_t byte) { return byte != 0; });
}

int asn_GetOid(const asn_Node* node, OidInfo* rec) {
    *rec = {};
    if (!asn_is(node, kAsnUniversal, kAsnOid))
        return -1;
    const uint32_t n = content_size(node);
    if (n == 0 || n >= sizeof rec->bytes)
        return -1;
    memcpy(rec->bytes, node->data, n);
    rec->length = static_cast<int32_t>(n);
    return oid_FromBytes(rec);
}

int asn_OidEquals(const asn_Node* node, const OidInfo* rec) {
    if (!asn_is(node, kAsnUniversal, kAsnOid) || rec->length < 0)
        return -1;
    const uint32_t n = content_size(node);
    if (n != static_cast<uint32_t>(rec->length) || n > sizeof rec->bytes)
        return -1;
    return n == 0 || memcmp(node->data, rec->bytes, n) == 0 ? 0 : -1;
}

bool asn_OidIs(const asn_Node* node, const char* name) {
    OidInfo named;
    return oid_FromName(&named, name) > 0 && asn_OidEquals(node, &named) == 0;
}

bool asn_GetOctets(const asn_Node* node, SecretBuffer& content) {
    if (asn_is(node, kAsnUniversal, kAsnOctetString)) {
        content = copy_of(node->data, content_size(node));
        return true;
    }
    if (!asn_is(node, kAsnConstructed, kAsnOctetString))
        return false;
    const auto inside = [=](const asn_Node* part) { return part != nullptr && part->level > node->level; };
    size_t total = 0;
    for (const asn_Node* part = node->next; inside(part); part = part->next) {
        if ((part->tag != kAsnOctetString || (part->cls & ~kAsnConstructed) != 0) && !asn_is_eoc(part))
            return false;
        total += content_size(part);
    }
    if (total >= kMaxAllocation)
        return false;
    content = buffer_of(total);
    size_t done = 0;
    for (const asn_Node* part = node->next; inside(part); part = part->next) {
        const uint32_t n = content_size(part);
        if (n != 0)
            memcpy(content.data() + done, part->data, n);
        done += n;
    }
    return true;
}

bool asn_GetPrimitiveData(const asn_Node* node, SecretBuffer& content) {
    if (!is_primitive(node) || node->length == kAsnLengthUnset)
        return false;
    content = copy_of(node->data, content_size(node));
    return true;
}

bool asn_StoreData(const asn_Node* node, SecretBuffer& content) {
    if (node == nullptr)
        return false;
    if (node->ndef != 0) {
        err_set_text("asn_StoreData internal error: indefinite-length not supported");
        return false;
    }
    if (!asn_GetPrimitiveData(node, content)) {
        err_set_text("asn_StoreData internal error: invalid length");
        return false;
    }
    return true;
}

bool asn_DataAppend(SecretBuffer& content, const asn_Node* node) {
    if (node == nullptr)
        return false;
    const size_t before = content.size(), added = content_size(node);
    if (added >= kMaxAllocation - before) {
        fprintf(stderr, "asn_DataAppend: Not enough memory\n");
        content = SecretBuffer();
        return false;
    }
    content.append(node->data, added);
    return true;
}

} // namespace zul
