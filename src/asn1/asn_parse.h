#pragma once
#include "asn1/asn_node.h"

// Parsers of BER: definite and indefinite lengths. A failed parse gives an empty list; where the engine knows
// why, the thread's error text says so.
namespace zul {

class ByteStream;

AsnList asn_ParseBytes(const void* bytes, size_t n); // one outermost element; what follows it is not read
AsnList asn_ParseAll(const void* bytes, size_t n);   // successive elements up to the end
AsnList asn_ParseFile(const char* path);             // one outermost element
AsnList asn_ParseBase64(const char* text);
// All of them call asn_Parse. With quiet it sets no text, for data that may be something else. With a
// packLevel, a SEQUENCE of that level that begins with a SET (a Name) becomes one packed node, if it is DER:
// the nodes of a name take up to forty times its own size.
constexpr int kAsnPackNone = -1;
AsnList asn_Parse(ByteStream& stream, bool all, bool quiet = false, int packLevel = kAsnPackNone);

// asn_ReadElement parses one complete element and leaves the stream where it was.
AsnList asn_ReadElement(ByteStream& stream);

// A template is an array of pairs ended by one of level kAsnTemplateEnd. asn_MatchTemplate parses and gives
// the list only if its nodes, end-of-contents markers left out, are exactly the pairs in their order.
struct AsnTemplate {
    uint32_t tag;
    uint32_t level;
};
constexpr uint32_t kAsnTemplateEnd = 0xFFFFFFFF;
AsnList asn_MatchTemplate(ByteStream& stream, const AsnTemplate* shape);

// asn_LooksLikeDer reads one header without consuming it: 1 if its class is universal or context-specific,
// its tag is from 1 to 49 and it and its content make size bytes, else 0.
[[nodiscard]] int asn_LooksLikeDer(ByteStream& stream, size_t size);

// asn_FindElement finds the count-th (from 1) element of a tag and level, -1 for any, without building a
// list: 1 and where its header begins and its whole size, else 0.
[[nodiscard]] int asn_FindElement(size_t* offset, size_t* size, const void* bytes, size_t n, int tag,
                                  int count, int level);

// asn_SplitSigned finds the parts of SEQUENCE { SEQUENCE tbs, SEQUENCE algorithm, BIT STRING signature }:
// 0, or -1 if the stream holds no such thing.
[[nodiscard]] int asn_SplitSigned(ByteStream& stream, size_t* tbsOffset, size_t* tbsSize, size_t* algOffset,
                                  size_t* sigOffset);

} // namespace zul
