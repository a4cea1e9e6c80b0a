#include "asn1/asn_encode.h"

#include <algorithm>
#include <cstring>

#include "asn1/asn_build.h"
#include "asn1/asn_header.h"
#include "encode/base64.h"
#include "encode/pem.h"
#include "frame/file_writer.h"
#include "hash/digest.h"

namespace zul {

namespace {

// Encoding gives the pieces of a list's encoding: each node's header and then its content.
class Encoding {
  public:
    explicit Encoding(const asn_Node* list) : node_(list) {}

    // next gives a piece that is not empty; false at the end, or at a node that has no header.
    bool next(const uint8_t*& piece, size_t& size) {
        if (contentNext_) {
            contentNext_ = false;
            piece = node_->data;
            size = node_->length;
            node_ = node_->next;
            return true;
        }
        if (node_ == nullptr)
            return false;
        piece = hdr_;
        size = asn_header_octets(node_, hdr_);
        contentNext_ = node_->data != nullptr && node_->length != 0;
        if (!contentNext_)
            node_ = node_->next;
        return size != 0;
    }

  private:
    const asn_Node* node_;
    bool contentNext_ = false;
    uint8_t hdr_[8] = {};
};

// whole_size is the size of the encoding of all nodes, 0 if there are none or one has no length.
size_t whole_size(const asn_Node* list) {
    size_t total = 0;
    uint8_t hdr[8];
    for (; list != nullptr; list = list->next) {
        const size_t headerSize = asn_header_octets(list, hdr);
        if (headerSize == 0 || list->length == kAsnLengthUnset)
            return 0;
        total += headerSize + (list->data == nullptr ? 0 : list->length);
    }
    return total;
}

} // namespace

SecretBuffer asn_Encode(const asn_Node* list) {
    if (!asn_HasEncoding(list))
        return {};
    SecretBuffer out(whole_size(list));
    Encoding encoding(list);
    const uint8_t* piece;
    for (size_t done = 0, n; encoding.next(piece, n); done += n)
        memcpy(out.data() + done, piece, n);
    return out;
}

SecretBuffer asn_EncodeBase64(const asn_Node* list) {
    const SecretBuffer encoding = asn_Encode(list);
    if (encoding.empty() || b64_encoded_length(encoding.size()) >= kMaxAllocation)
        return {};
    return b64_text(encoding.data(), encoding.size());
}

bool asn_HasEncoding(const asn_Node* list) {
    const size_t size = whole_size(list);
    return size != 0 && size <= kMaxAllocation;
}

int asn_WriteFile(const asn_Node* list, FileWriter& file) {
    if (whole_size(list) == 0)
        return -1;
    Encoding encoding(list);
    const uint8_t* piece;
    size_t n;
    while (encoding.next(piece, n))
        if (!file.write(piece, n))
            return -1;
    return 0;
}

void asn_WritePem(const asn_Node* list, PemWriter& writer) {
    Encoding encoding(list);
    const uint8_t* piece;
    for (size_t n; encoding.next(piece, n);)
        writer.add(piece, n);
}

void asn_Digest(const asn_Node* list, DigestContext& context) {
    Encoding encoding(list);
    const uint8_t* piece;
    for (size_t n; encoding.next(piece, n);)
        digest_update(context, piece, n);
}

int asn_Compare(const asn_Node* a, const asn_Node* b) {
    const bool noA = whole_size(a) == 0, noB = whole_size(b) == 0;
    if (noA || noB)
        return noA - noB;
    Encoding left(a), right(b);
    const uint8_t *l = nullptr, *r = nullptr;
    size_t leftSize = 0, rightSize = 0;
    for (;;) {
        const bool more = leftSize != 0 || left.next(l, leftSize);
        const bool rightMore = rightSize != 0 || right.next(r, rightSize);
        if (!more || !rightMore)
            return more - rightMore;
        const size_t n = std::min(leftSize, rightSize);
        if (const int order = memcmp(l, r, n); order != 0)
            return order;
        l += n;
        r += n;
        leftSize -= n;
        rightSize -= n;
    }
}

void asn_SortSet(AsnList* lists, size_t n) {
    std::sort(lists, lists + n,
              [](const AsnList& a, const AsnList& b) { return asn_Compare(a.head(), b.head()) < 0; });
}

} // namespace zul
