#pragma once
#include <cstddef>
#include <cstdint>
#include <utility>

// The data structure of the DER engine (X.690): a flat list of element nodes in the order of their encoding,
// each with its nesting level. There is no tree; the content of a constructed element are the nodes that
// follow it with a greater level.
namespace zul {

// Identifier octet: class and the constructed bit, as asn_Node::cls holds them.
constexpr uint32_t kAsnUniversal = 0x00, kAsnConstructed = 0x20, kAsnContext = 0x80;
constexpr uint32_t kAsnExplicit = kAsnContext | kAsnConstructed;

enum AsnTag : uint32_t {
    kAsnBoolean = 1,
    kAsnInteger = 2,
    kAsnBitString = 3,
    kAsnOctetString = 4,
    kAsnNull = 5,
    kAsnOid = 6,
    kAsnEnumerated = 10,
    kAsnUtf8String = 12,
    kAsnSequence = 16,
    kAsnSet = 17,
    kAsnNumericString = 18,
    kAsnPrintableString = 19,
    kAsnTeletexString = 20,
    kAsnIa5String = 22,
    kAsnUtcTime = 23,
    kAsnGeneralizedTime = 24,
    kAsnVisibleString = 26,
    kAsnUniversalString = 28,
    kAsnBmpString = 30,
};

constexpr uint32_t kAsnLengthUnset = 0xFFFFFFFF;
constexpr uint32_t kAsnMaxContent = 0x1000000; // the largest content of one primitive element
constexpr size_t kAsnMaxDepth = 200;

struct asn_Node {
    uint32_t cls; // class | constructed bit, as in the identifier octet
    uint32_t tag;
    uint32_t length;  // content length, or kAsnLengthUnset
    uint32_t ndef;    // 1: the header has the indefinite-length form
    uint32_t level;   // nesting depth, 0 outermost
    uint32_t hdrsize; // valid bytes of hdr; 0 not yet computed
    uint8_t hdr[8];   // identifier and length octets
    asn_Node* next;
    asn_Node* prev;
    // Content of a primitive element, null if it has none; a NUL stands behind it. A constructed element that
    // has data is packed: its content stands here in DER instead of in nodes of their own.
    uint8_t* data;
};

// asn_make_node gives a node without a list, with room for n bytes of content (0: none, data null) in the
// node's own block, which the caller fills. Its length is unset. At most kAsnMaxMade bytes.
constexpr size_t kAsnMaxMade = 0x3FFF0000;
asn_Node* asn_make_node(uint32_t cls, uint32_t tag, size_t n);

// An end-of-contents marker (00 00) ends an element of indefinite length.
inline bool asn_is_eoc(const asn_Node* node) {
    return node->cls == 0 && node->tag == 0;
}
inline bool asn_is(const asn_Node* node, uint32_t cls, uint32_t tag) {
    return node != nullptr && node->cls == cls && node->tag == tag;
}

// asn_Free wipes and frees a list and sets the caller's pointer to null.
void asn_Free(asn_Node** list);

// AsnList owns a list. Makers return one. A function that takes one by value consumes it, also when it fails.
// A failure is an empty list marked as failed, and the thread's error text has the reason. A list made of a
// failure is a failure too, so no element is left out silently. A plain AsnList() is no failure and adds
// nothing.
class AsnList {
  public:
    AsnList() = default;
    explicit AsnList(asn_Node* first); // first and all that follow it
    AsnList(asn_Node* first, asn_Node* last) : head_(first), tail_(last) {}
    AsnList(AsnList&& other) noexcept
        : head_(std::exchange(other.head_, nullptr)), tail_(std::exchange(other.tail_, nullptr)),
          failed_(other.failed_) {}
    AsnList& operator=(AsnList&& other) noexcept {
        std::swap(head_, other.head_);
        std::swap(tail_, other.tail_);
        std::swap(failed_, other.failed_);
        return *this;
    }
    ~AsnList() { asn_Free(&head_); }

    static AsnList failure() {
        AsnList list;
        list.failed_ = true;
        return list;
    }

    explicit operator bool() const { return head_ != nullptr; }
    bool failed() const { return failed_; }
    asn_Node* head() const { return head_; }
    asn_Node* tail() const { return tail_; } // so that linking costs the same however long the list is
    void append(asn_Node* node);             // takes a node without a list
    // release passes the nodes to the caller, who frees them.
    asn_Node* release() {
        tail_ = nullptr;
        return std::exchange(head_, nullptr);
    }

  private:
    asn_Node* head_ = nullptr;
    asn_Node* tail_ = nullptr;
    bool failed_ = false;
};

// Deep copies: of a whole list; of one element with its children, levels made relative to it.
AsnList asn_CopyList(const asn_Node* list);
AsnList asn_CopyElement(const asn_Node* node);

} // namespace zul
