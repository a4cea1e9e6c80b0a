#pragma once
#include "asn1/asn_node.h"

namespace zul {

// AsnChildren steps over the elements directly inside a constructed one. It leaves end-of-contents markers
// out.
class AsnChildren {
  public:
    explicit AsnChildren(const asn_Node* parent)
        : at_(parent == nullptr ? nullptr : parent->next), level_(parent == nullptr ? 0 : parent->level + 1) {
        settle();
    }
    // of_sequence has no children if the node is no SEQUENCE.
    static AsnChildren of_sequence(const asn_Node* node) {
        return AsnChildren(asn_is(node, kAsnConstructed, kAsnSequence) ? node : nullptr);
    }
    const asn_Node* peek() const { return at_; } // null at the end
    bool at_end() const { return at_ == nullptr; }
    bool is(uint32_t cls, uint32_t tag) const { return asn_is(at_, cls, tag); }

    // take steps behind the element that it gives.
    const asn_Node* take() {
        const asn_Node* taken = at_;
        if (at_ != nullptr) {
            at_ = at_->next;
            settle();
        }
        return taken;
    }
    // take_if takes an element of one type, and gives null for another.
    const asn_Node* take_if(uint32_t cls, uint32_t tag) { return is(cls, tag) ? take() : nullptr; }
    const asn_Node* take_sequence() { return take_if(kAsnConstructed, kAsnSequence); }
    const asn_Node* take_integer() { return take_if(kAsnUniversal, kAsnInteger); }
    const asn_Node* take_oid() { return take_if(kAsnUniversal, kAsnOid); }
    const asn_Node* take_octets() {
        const asn_Node* segmented = take_if(kAsnConstructed, kAsnOctetString);
        return segmented != nullptr ? segmented : take_if(kAsnUniversal, kAsnOctetString);
    }

  private:
    // settle moves to the next element of the level, or to null at the parent's end.
    void settle() {
        while (at_ != nullptr && (at_->level > level_ || (at_->level == level_ && asn_is_eoc(at_))))
            at_ = at_->next;
        if (at_ != nullptr && at_->level < level_)
            at_ = nullptr;
    }

    const asn_Node* at_;
    uint32_t level_;
};

} // namespace zul
