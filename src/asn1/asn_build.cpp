#include "asn1/asn_build.h"

#include "asn1/asn_header.h"
#include "frame/err.h"

namespace zul {

AsnList asn_New(uint32_t cls, uint32_t tag) {
    asn_Node* node = asn_make_node(cls, tag, 0);
    return {node, node};
}

asn_Node* asn_NewAfter(AsnList& list, asn_Node* prev, uint32_t cls, uint32_t tag) {
    asn_Node* node = asn_make_node(cls, tag, 0);
    node->level = prev->level;
    if (prev == list.tail()) {
        list.append(node);
        return node;
    }
    node->prev = prev;
    node->next = prev->next;
    prev->next->prev = node;
    prev->next = node;
    return node;
}

size_t asn_SetHeader(asn_Node* node) {
    if (node->length == kAsnLengthUnset) {
        err_set_text("asn_SetHeader: Attempt to set header without length.");
        return 0;
    }
    if (node->hdrsize == 0)
        node->hdrsize = static_cast<uint32_t>(asn_header_octets(node, node->hdr));
    return node->hdrsize == 0 ? 0 : size_t{node->hdrsize} + node->length;
}

// encoded_size gives the size of the elements at the level of the first node. The content of an element of
// indefinite length is summed up; any other element has its length. False if a length is unset.
static bool encoded_size(const asn_Node* list, uint64_t& size) {
    size = 0;
    bool summing = false;
    const uint32_t level = list == nullptr ? 0 : list->level;
    for (const asn_Node* node = list; node != nullptr; node = node->next) {
        uint8_t hdr[8];
        const size_t headerSize = asn_header_octets(node, hdr);
        if (node->length == kAsnLengthUnset || headerSize == 0)
            return false;
        if (node->level == level) {
            summing = node->ndef != 0;
            size += headerSize + (summing ? 0 : node->length);
        } else if (summing && node->level > level) {
            size += headerSize + (node->data == nullptr ? 0 : node->length);
        }
    }
    return true;
}

size_t asn_Length(const asn_Node* list) {
    uint64_t size;
    if (encoded_size(list, size))
        return static_cast<size_t>(size);
    err_set_text("asn_Length: sub-length not set\n");
    return 0;
}

// put_under links content behind a node of the list, with its headers set and its levels for a place under
// the list's first node, whatever level it comes from.
static AsnList put_under(AsnList list, asn_Node* after, AsnList content) {
    asn_Node* header = list.head();
    const uint32_t from = content ? content.head()->level : 0;
    for (asn_Node* node = content.head(); node != nullptr; node = node->next) {
        asn_SetHeader(node);
        node->level += header->level + 1 - from;
    }
    asn_Node* listEnd = list.tail();
    asn_Node* contentEnd = content.tail();
    asn_Node* first = content.release();
    if (first == nullptr)
        return list;
    asn_Node* follows = after->next;
    contentEnd->next = follows;
    if (follows != nullptr)
        follows->prev = contentEnd;
    after->next = first;
    first->prev = after;
    list.release();
    return {header, follows == nullptr ? contentEnd : listEnd};
}

AsnList asn_Join(AsnList header, AsnList content) {
    if (header.failed() || content.failed())
        return AsnList::failure();
    asn_Node* node = header.head();
    if (node == nullptr || node->length != kAsnLengthUnset) {
        err_set_text("asn_Join: Illegal join");
        return AsnList::failure();
    }
    uint64_t size;
    if (!encoded_size(content.head(), size)) {
        err_set_text("asn_Join: sub-length not set\n");
        return AsnList::failure();
    }
    if (size >= kAsnLengthUnset) {
        err_set_text("asn_Join: Illegal join");
        return AsnList::failure();
    }
    node->length = static_cast<uint32_t>(size);
    if (asn_SetHeader(node) == 0)
        return AsnList::failure();
    return put_under(std::move(header), node, std::move(content));
}

AsnList asn_NdefAppend(AsnList header, AsnList content) {
    asn_Node* node = header.head();
    if (node == nullptr || node->ndef == 0 || content.failed())
        return AsnList::failure();
    uint64_t size;
    if (!encoded_size(content.head(), size) || size + node->length >= kAsnLengthUnset) {
        err_set_text("asn_NdefAppend: sub-length not set\n");
        return AsnList::failure();
    }
    node->length += static_cast<uint32_t>(size);
    asn_Node* end = header.tail();
    return put_under(std::move(header), end, std::move(content));
}

AsnList asn_Link(AsnList a, AsnList b) {
    if (a.failed() || b.failed())
        return AsnList::failure();
    if (!a)
        return b;
    if (!b)
        return a;
    if (b.head()->prev != nullptr) {
        err_set_text("asn_Link: 2nd header is invalid\n");
        b.release(); // what precedes it owns it
        return AsnList::failure();
    }
    asn_Node* last = b.tail();
    asn_Node* middle = a.tail();
    asn_Node* second = b.release();
    middle->next = second;
    second->prev = middle;
    return {a.release(), last};
}

AsnList asn_NewNdef(uint32_t cls, uint32_t tag) {
    AsnList list = asn_New(cls, tag);
    asn_Node* node = list.head();
    node->hdr[0] = static_cast<uint8_t>(cls | tag);
    node->hdr[1] = 0x80;
    node->hdrsize = 2;
    node->ndef = 1;
    node->length = 0;
    return list;
}

AsnList asn_NewNdefUniversal(uint32_t tag) {
    return asn_NewNdef(kAsnConstructed, tag);
}

AsnList asn_NewNdefExplicit(uint32_t n) {
    return asn_NewNdef(kAsnExplicit, n);
}

// The marker closes the innermost element of indefinite length that is still open. It becomes the last child
// of that element, as in parsed lists.
AsnList asn_AppendEOC(AsnList list) {
    if (list.failed())
        return list;
    uint32_t level = list ? list.head()->level : 0;
    size_t closed = 0;
    for (const asn_Node* node = list.tail(); node != nullptr; node = node->prev) {
        if (asn_is_eoc(node))
            closed++;
        else if (node->ndef != 0 && closed > 0)
            closed--;
        else if (node->ndef != 0) {
            level = node->level + 1;
            break;
        }
    }
    asn_Node* marker = asn_make_node(kAsnUniversal, 0, 0);
    marker->length = 0;
    marker->level = level;
    asn_SetHeader(marker);
    list.append(marker);
    return list;
}

} // namespace zul
