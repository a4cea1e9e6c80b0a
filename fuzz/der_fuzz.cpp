#include <cstdlib>
#include <cstring>
#include <vector>

#include "asn1/asn_build.h"
#include "asn1/asn_encode.h"
#include "asn1/asn_parse.h"
#include "asn1/asn_value.h"
#include "asn1/asn_walk.h"
#include "asn1/byte_stream.h"
#include "asn1/oid.h"

// A parsed list encodes to the bytes that it was read from, by itself and under a new header. The reader
// without a list finds the same elements at the same places. A template made of the list matches. No reader
// of nodes reads beyond them.

using namespace zul;

static void require(bool claim) {
    if (!claim)
        std::abort();
}

static void require_encoding(const asn_Node* list, const uint8_t* bytes, size_t size) {
    const SecretBuffer out = asn_Encode(list);
    require(out.size() == size && memcmp(out.data(), bytes, size) == 0);
}

static void extract_all(const asn_Node* list) {
    for (const asn_Node* node = list; node != nullptr; node = node->next) {
        uint8_t bytes[16];
        char text[64];
        SecretBuffer content;
        OidInfo oid;
        tm time;
        require(asn_GetInt(node) <= UINT32_MAX && asn_GetIntegerBytes(node, bytes, sizeof bytes) <= 16);
        require(asn_GetOid(node, &oid) != 0 || asn_OidEquals(node, &oid) == 0);
        require(oid_ToDotted(node, text, sizeof text - 1) < static_cast<int>(sizeof text));
        static_cast<void>(asn_GetBoolean(node));
        const uint32_t flags = asn_GetBitFlags(node);
        unsigned unused;
        const size_t n = asn_BitFlagsToBytes(flags, bytes, &unused);
        require(asn_GetBitFlags(asn_NewBitString(unused, bytes, n).head()) == flags);
        for (const auto get : {asn_GetBitString, asn_GetOctets, asn_GetPrimitiveData, asn_StoreData})
            require(!get(node, content) || content.text()[content.size()] == '\0');
        for (const bool convert : {false, true}) {
            const SecretBuffer shown = asn_GetText(node, convert);
            require(shown.text()[shown.size()] == '\0');
        }
        static_cast<void>(asn_GetTime(node, &time));
        require(strlen(asn_time_text(node, text)) < kAsnTimeText);
    }
    for (const char* name : {"commonName", "keyUsage", "pkcs5PBKDF2"})
        asn_FindOidValue(list, name, kAsnOctetString);
}

// find_all compares the first elements of a list with what is found in its encoding.
static void find_all(const asn_Node* list, const uint8_t* data, size_t size) {
    size_t offset = 0;
    int count = 0;
    for (const asn_Node* node = list; node != nullptr && count < 40; node = node->next) {
        if (!asn_is_eoc(node)) {
            size_t at, length;
            require(asn_FindElement(&at, &length, data, size, -1, ++count, -1) == 1 && at == offset);
            require_encoding(asn_CopyElement(node).head(), data + at, length);
        }
        offset += node->hdrsize + (node->data == nullptr ? 0 : node->length);
    }
}

static void match_itself(const asn_Node* list, const uint8_t* data, size_t size) {
    std::vector<AsnTemplate> shape;
    for (const asn_Node* node = list; node != nullptr; node = node->next)
        if (!asn_is_eoc(node))
            shape.push_back({node->tag, node->level});
    shape.push_back({0, kAsnTemplateEnd});
    ByteStream stream(data, size);
    const bool openPrimitive = list->ndef != 0 && list->next == nullptr;
    require(openPrimitive || asn_MatchTemplate(stream, shape.data()));
    require(stream.seek(0) && asn_ReadElement(stream) && stream.offset() == 0);
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const AsnList all = asn_ParseAll(data, size);
    if (all) {
        const size_t length = asn_Length(all.head());
        require(length <= size);
        require_encoding(all.head(), data, length);
    }

    const AsnList list = asn_ParseBytes(data, size);
    if (!list) {
        size_t at, length;
        static_cast<void>(asn_FindElement(&at, &length, data, size, -1, 1000, -1));
        return 0;
    }
    const size_t length = asn_Length(list.head());
    require(length <= size);
    require_encoding(list.head(), data, length);
    require_encoding(asn_CopyList(list.head()).head(), data, length);
    const AsnList wrapped = asn_NewExplicit(1, asn_CopyList(list.head()));
    require_encoding(wrapped.head()->next, data, length);
    const SecretBuffer whole = asn_Encode(wrapped);
    require(asn_Compare(list.head(), wrapped.head()->next) == 0);
    uint32_t deepest = 0;
    for (const asn_Node* node = list.head(); node != nullptr; node = node->next)
        deepest = node->level > deepest ? node->level : deepest;
    require(deepest <= kAsnMaxDepth);
    if (deepest + 1 < kAsnMaxDepth)
        require_encoding(asn_ParseBytes(whole.data(), whole.size()).head(), whole.data(), whole.size());

    extract_all(list.head());
    find_all(list.head(), data, size);
    match_itself(list.head(), data, size);
    return 0;
}
