#include "asn1/asn_walk.h"

#include "asn1/asn_parse.h"
#include "asn1/asn_value.h"
#include "asn1/byte_stream.h"
#include "asn1/oid.h"
#include "frame/err.h"

namespace zul {

namespace {

// first_after gives the first node behind one that meets a condition.
template<class Condition>
asn_Node* first_after(const asn_Node* node, Condition meets) {
    if (node == nullptr)
        return nullptr;
    asn_Node* found = node->next;
    while (found != nullptr && !meets(found))
        found = found->next;
    return found;
}

// steps repeats a step n times. 0 steps give the node itself.
template<class Step>
asn_Node* steps(const asn_Node* node, int n, Step step) {
    auto* at = const_cast<asn_Node*>(node);
    for (; n > 0 && at != nullptr; n--)
        at = step(at);
    return at;
}

bool is_context(const asn_Node* node, uint32_t n) {
    return (node->cls & ~kAsnConstructed) == kAsnContext && node->tag == n;
}

} // namespace

asn_Node* asn_FindTag(const asn_Node* node, uint32_t tag) {
    return first_after(node, [=](const asn_Node* other) { return other->tag == tag; });
}

asn_Node* asn_FindTagAtLevel(const asn_Node* node, uint32_t tag, uint32_t level) {
    return first_after(node,
                       [=](const asn_Node* other) { return other->tag == tag && other->level == level; });
}

asn_Node* asn_FindTagAtLevelN(const asn_Node* node, uint32_t tag, int n, uint32_t level) {
    return steps(node, n, [=](const asn_Node* at) { return asn_FindTagAtLevel(at, tag, level); });
}

AsnList asn_FetchElement(const asn_Node* node, uint32_t tag, int n, int level) {
    if (level >= 0)
        return asn_CopyElement(asn_FindTagAtLevelN(node, tag, n, static_cast<uint32_t>(level)));
    return asn_CopyElement(steps(node, n, [=](const asn_Node* at) { return asn_FindTag(at, tag); }));
}

asn_Node* asn_NextAtLevel(const asn_Node* node, uint32_t level) {
    return first_after(node, [=](const asn_Node* other) { return other->level == level; });
}

asn_Node* asn_Skip(const asn_Node* node, int n, uint32_t level) {
    return steps(node, n, [=](const asn_Node* at) { return asn_NextAtLevel(at, level); });
}

asn_Node* asn_FindContext(const asn_Node* node, uint32_t n) {
    return first_after(node, [=](const asn_Node* other) { return is_context(other, n); });
}

asn_Node* asn_FindContextAtLevel(const asn_Node* node, uint32_t n, uint32_t level) {
    return first_after(node,
                       [=](const asn_Node* other) { return is_context(other, n) && other->level == level; });
}

namespace {

// Elements are packed into strings a few layers deep at most; a limit keeps the work in proportion to the
// size of hostile data.
constexpr size_t kMaxLayers = 8;

// packed_element parses the content of an OCTET STRING or BIT STRING if that is one element.
AsnList packed_element(const asn_Node* node) {
    const bool isBits = asn_is(node, kAsnUniversal, kAsnBitString);
    if ((!isBits && !asn_is(node, kAsnUniversal, kAsnOctetString)) || node->data == nullptr)
        return {};
    const size_t before = isBits; // the octet of unused bits
    const size_t size = node->length - before;
    ByteStream stream(node->data + before, size);
    return asn_LooksLikeDer(stream, size) == 1 ? asn_Parse(stream, false, true) : AsnList();
}

} // namespace

AsnList asn_FindOidValue(const asn_Node* list, const char* oid, uint32_t tag) {
    OidInfo wanted;
    if (oid_FromName(&wanted, oid) == 0)
        return {};
    AsnList packed[kMaxLayers];
    const asn_Node* resume[kMaxLayers]; // where to go on after each layer
    size_t layers = 0;
    for (const asn_Node* node = list;;) {
        while (node == nullptr && layers > 0)
            node = resume[--layers];
        if (node == nullptr)
            return {};
        if (node->hdrsize == 0) {
            err_set_text("Invalid HeaderSize found");
            return {};
        }
        if (asn_OidEquals(node, &wanted) == 0)
            return asn_CopyElement(asn_FindTag(node, tag));
        AsnList inner = layers < kMaxLayers ? packed_element(node) : AsnList();
        node = node->next;
        if (inner) {
            resume[layers] = node;
            node = inner.head();
            packed[layers++] = std::move(inner);
        }
    }
}

} // namespace zul
