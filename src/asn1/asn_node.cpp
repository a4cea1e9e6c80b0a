#include "asn1/asn_node.h"

#include <cstring>
#include <new>

#include "frame/memory.h"

namespace zul {

asn_Node* asn_make_node(uint32_t cls, uint32_t tag, size_t n) {
    const size_t contentSize = n == 0 ? 0 : n + 1;
    // cppcheck-suppress legacyUninitvar ; it takes the placement for a read
    auto* node = new (emalloc(sizeof(asn_Node) + contentSize)) asn_Node{};
    node->cls = cls;
    node->tag = tag;
    node->length = kAsnLengthUnset;
    if (n != 0) {
        node->data = reinterpret_cast<uint8_t*>(node + 1);
        node->data[n] = 0;
    }
    return node;
}

void asn_Free(asn_Node** list) {
    if (list == nullptr)
        return;
    for (asn_Node* node = *list; node != nullptr;) {
        asn_Node* next = node->next;
        if (node->data != nullptr)
            wipe_bytes(node->data, node->length);
        efree(node);
        node = next;
    }
    *list = nullptr;
}

AsnList::AsnList(asn_Node* first) : head_(first), tail_(first) {
    while (tail_ != nullptr && tail_->next != nullptr)
        tail_ = tail_->next;
}

void AsnList::append(asn_Node* node) {
    node->prev = tail_;
    if (tail_ != nullptr)
        tail_->next = node;
    else
        head_ = node;
    tail_ = node;
}

static asn_Node* copy_node(const asn_Node* node) {
    const size_t n = node->data == nullptr ? 0 : node->length;
    asn_Node* copy = asn_make_node(node->cls, node->tag, n);
    copy->length = node->length;
    copy->ndef = node->ndef;
    copy->level = node->level;
    copy->hdrsize = node->hdrsize;
    memcpy(copy->hdr, node->hdr, sizeof copy->hdr);
    if (n != 0)
        memcpy(copy->data, node->data, n);
    return copy;
}

AsnList asn_CopyList(const asn_Node* list) {
    AsnList copy;
    for (; list != nullptr; list = list->next)
        copy.append(copy_node(list));
    return copy;
}

AsnList asn_CopyElement(const asn_Node* node) {
    AsnList copy;
    if (node == nullptr)
        return copy;
    const uint32_t base = node->level;
    do {
        copy.append(copy_node(node));
        copy.tail()->level -= base;
        node = node->next;
    } while (node != nullptr && node->level > base);
    return copy;
}

} // namespace zul
