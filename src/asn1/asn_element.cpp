#include "asn1/asn_element.h"

#include <algorithm>
#include <cstring>

#include "asn1/asn_header.h"
#include "asn1/asn_levels.h"
#include "asn1/byte_stream.h"

namespace zul {
namespace {

size_t content_size(const asn_Node* node) {
    return node->data == nullptr ? 0 : node->length;
}

// has_encoding gives a node's header octets; false if it has none yet.
bool has_encoding(const asn_Node* node, uint8_t hdr[8], size_t& headerSize) {
    headerSize = asn_header_octets(node, hdr);
    return headerSize != 0 && node->length != kAsnLengthUnset;
}

// der_header makes the header octets for a content of some length: their number, or 0 if a node cannot hold
// them.
size_t der_header(const asn_Node* node, uint64_t length, uint8_t out[8]) {
    constexpr uint32_t kLowTag = 0x1F;
    constexpr size_t kRoom = 8;
    unsigned tagGroups = 0;
    if (node->tag >= kLowTag)
        for (uint32_t rest = node->tag; rest != 0; rest >>= 7)
            tagGroups++;
    unsigned lengthOctets = 0;
    if (length >= 0x80)
        for (uint64_t rest = length; rest != 0; rest >>= 8)
            lengthOctets++;
    if (length >= kAsnLengthUnset || 2 + tagGroups + lengthOctets > kRoom)
        return 0;

    size_t size = 0;
    out[size++] = static_cast<uint8_t>(node->cls | (tagGroups == 0 ? node->tag : kLowTag));
    while (tagGroups-- > 0)
        out[size++] =
            static_cast<uint8_t>((node->tag >> (7 * tagGroups) & 0x7F) | (tagGroups > 0 ? 0x80 : 0));
    out[size++] = static_cast<uint8_t>(lengthOctets == 0 ? length : 0x80 | lengthOctets);
    while (lengthOctets-- > 0)
        out[size++] = static_cast<uint8_t>(length >> (8 * lengthOctets));
    return size;
}

// A string in segments (X.690, 8.6.4, 8.7.3 and 8.23.6).
bool is_segmented(const asn_Node* node) {
    constexpr uint32_t kObjectDescriptor = 7;
    const uint32_t tag = node->tag;
    return node->cls == kAsnConstructed &&
           (tag == kAsnBitString || tag == kAsnOctetString || tag == kObjectDescriptor ||
            tag == kAsnUtf8String || (tag >= kAsnNumericString && tag <= kAsnBmpString));
}

// is_segment tells whether a node inside a segmented string may be there: a segment has the string's own
// type, or is an OCTET STRING for any but bits.
bool is_segment(const asn_Node* node, uint32_t stringTag) {
    return (node->cls & ~kAsnConstructed) == kAsnUniversal &&
           (node->tag == stringTag || (node->tag == kAsnOctetString && stringTag != kAsnBitString));
}

// join_segments makes the primitive form of a segmented string; null if it has none.
asn_Node* join_segments(const asn_Node* string, const asn_Node* end) {
    const size_t octetOfUnused = string->tag == kAsnBitString;
    size_t size = octetOfUnused;
    uint8_t unused = 0;
    for (const asn_Node* part = string->next; part != end; part = part->next) {
        if (asn_is_eoc(part))
            continue;
        if (!is_segment(part, string->tag))
            return nullptr;
        if ((part->cls & kAsnConstructed) != 0)
            continue;
        if (octetOfUnused != 0) {
            if (content_size(part) == 0 || unused != 0) // only the last one may have unused bits
                return nullptr;
            unused = part->data[0];
        }
        size += content_size(part) - octetOfUnused;
        if (size > kAsnMaxMade)
            return nullptr;
    }
    asn_Node* joined = asn_make_node(kAsnUniversal, string->tag, size);
    joined->length = static_cast<uint32_t>(size);
    size_t done = octetOfUnused;
    if (octetOfUnused != 0)
        joined->data[0] = unused;
    for (const asn_Node* part = string->next; part != end; part = part->next) {
        const size_t n = content_size(part);
        if (n == 0)
            continue;
        memcpy(joined->data + done, part->data + octetOfUnused, n - octetOfUnused);
        done += n - octetOfUnused;
    }
    return joined;
}

asn_Node* copy_of(const asn_Node* node) {
    const size_t n = content_size(node);
    asn_Node* copy = asn_make_node(node->cls, node->tag, n);
    copy->length = node->length;
    if (n != 0)
        memcpy(copy->data, node->data, n);
    return copy;
}

// set_headers computes lengths and headers from the end of a list to its beginning, so that the lengths of
// all children are known before that of their parent.
bool set_headers(const AsnList& list) {
    uint64_t inside[kAsnMaxDepth + 2] = {}; // sizes of the elements of each level since the last parent
    for (asn_Node* node = list.tail(); node != nullptr; node = node->prev) {
        if (node->level > kAsnMaxDepth)
            return false;
        uint64_t length = node->length;
        if ((node->cls & kAsnConstructed) != 0 && node->data == nullptr) {
            length = inside[node->level + 1];
            inside[node->level + 1] = 0;
        }
        const size_t headerSize = der_header(node, length, node->hdr);
        if (headerSize == 0)
            return false;
        node->length = static_cast<uint32_t>(length);
        node->hdrsize = static_cast<uint32_t>(headerSize);
        inside[node->level] += headerSize + length;
    }
    return true;
}

} // namespace

const asn_Node* asn_ElementEnd(const asn_Node* element) {
    const asn_Node* end = element;
    while (end != nullptr && (end == element || end->level > element->level))
        end = end->next;
    return end;
}

SecretBuffer asn_EncodeElement(const asn_Node* element) {
    const asn_Node* end = asn_ElementEnd(element);
    uint8_t hdr[8];
    size_t total = 0, headerSize;
    for (const asn_Node* node = element; node != end; node = node->next) {
        if (!has_encoding(node, hdr, headerSize))
            return {};
        total += headerSize + content_size(node);
    }
    if (total == 0 || total > kMaxAllocation)
        return {};
    SecretBuffer out(total);
    uint8_t* next = out.data();
    for (const asn_Node* node = element; node != end; node = node->next) {
        headerSize = asn_header_octets(node, hdr);
        memcpy(next, hdr, headerSize);
        next += headerSize;
        if (const size_t n = content_size(node); n != 0) {
            memcpy(next, node->data, n);
            next += n;
        }
    }
    return out;
}

namespace {

// Pieces gives the encoding of an element piece by piece: each node's header and then its content.
class Pieces {
  public:
    explicit Pieces(const asn_Node* element) : node_(element), end_(asn_ElementEnd(element)) {}

    // next gives a piece that is not empty, or n = 0 at the end; false for a node that has no header.
    bool next(const uint8_t*& piece, size_t& n) {
        if (atContent_) {
            piece = node_->data;
            n = node_->length;
        } else if (node_ != end_) {
            piece = hdr_;
            if (!has_encoding(node_, hdr_, n))
                return false;
        } else {
            n = 0;
            return true;
        }
        atContent_ = !atContent_ && content_size(node_) != 0;
        if (!atContent_)
            node_ = node_->next;
        return true;
    }

  private:
    const asn_Node *node_, *end_;
    bool atContent_ = false;
    uint8_t hdr_[8] = {};
};

bool is_der_node(const asn_Node* node) {
    if (node->ndef != 0 || asn_is_eoc(node) || node->length == kAsnLengthUnset || is_segmented(node))
        return false;
    uint8_t hdr[8];
    const size_t size = der_header(node, node->length, hdr);
    return size != 0 && (node->hdrsize == 0 || (node->hdrsize == size && memcmp(node->hdr, hdr, size) == 0));
}

} // namespace

// Bytes are compared, not nodes: an element may be packed in one of the lists.
bool asn_SameElement(const asn_Node* a, const asn_Node* b) {
    if (a == nullptr || b == nullptr)
        return false;
    Pieces left(a), right(b);
    const uint8_t *l = nullptr, *r = nullptr;
    size_t leftSize = 0, rightSize = 0;
    for (;;) {
        if ((leftSize == 0 && !left.next(l, leftSize)) || (rightSize == 0 && !right.next(r, rightSize)))
            return false;
        if (leftSize == 0 || rightSize == 0)
            return leftSize == rightSize;
        const size_t n = std::min(leftSize, rightSize);
        if (memcmp(l, r, n) != 0)
            return false;
        l += n;
        r += n;
        leftSize -= n;
        rightSize -= n;
    }
}

bool asn_IsDer(const asn_Node* list, const asn_Node* end) {
    for (const asn_Node* node = list; node != end; node = node->next)
        if (!is_der_node(node))
            return false;
    return true;
}

bool asn_IsDerContent(const uint8_t* bytes, size_t n, uint32_t level) {
    ByteStream stream(bytes, n);
    AsnLevels levels;
    for (uint32_t i = 0; i < level; i++)
        if (!levels.enter(static_cast<int64_t>(n)))
            return false;
    AsnHeader header;
    while (!stream.at_end()) {
        if (asn_read_header(stream, header) != 1 || header.length > stream.remaining())
            return false;
        asn_Node node = {};
        node.cls = header.cls;
        node.tag = header.tag;
        node.length = header.length;
        node.ndef = header.ndef;
        node.hdrsize = header.hdrsize;
        memcpy(node.hdr, header.hdr, sizeof node.hdr);
        const auto end = static_cast<int64_t>(stream.offset() + header.length);
        const bool isConstructed = (header.cls & kAsnConstructed) != 0;
        if (!is_der_node(&node) || !levels.holds(end) ||
            !(isConstructed ? levels.enter(end) : stream.skip(header.length)) ||
            levels.leave(static_cast<int64_t>(stream.offset()), false) != AsnLevels::Step::good)
            return false;
    }
    return levels.depth() == 0;
}

AsnList asn_ToDer(AsnList list) {
    if (list.failed() || asn_IsDer(list.head()))
        return list;
    AsnList der;
    for (const asn_Node* node = list.head(); node != nullptr;) {
        if (asn_is_eoc(node)) {
            node = node->next;
            continue;
        }
        const bool segmented = is_segmented(node);
        const asn_Node* next = segmented ? asn_ElementEnd(node) : node->next;
        const bool endless = node->ndef != 0 && (node->cls & kAsnConstructed) == 0;
        asn_Node* made = endless ? nullptr : segmented ? join_segments(node, next) : copy_of(node);
        if (made == nullptr)
            return AsnList::failure();
        made->level = node->level;
        der.append(made);
        node = next;
    }
    return set_headers(der) ? std::move(der) : AsnList::failure();
}

} // namespace zul
