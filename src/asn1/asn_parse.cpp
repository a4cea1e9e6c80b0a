#include "asn1/asn_parse.h"

#include <cstring>

#include "asn1/asn_element.h"
#include "asn1/asn_header.h"
#include "asn1/asn_levels.h"
#include "asn1/byte_stream.h"
#include "encode/base64.h"
#include "frame/err.h"

namespace zul {

namespace {

void set_past_end(size_t offset) {
    err_set_text("ASN.1 data error at offset %ld: Attempt to read past EOF.", static_cast<long>(offset));
}

// read_content gives a node with the content of a primitive element, null with a text if it is too long or
// not there. It checks the length of the remaining data first, so that a false length costs no memory.
asn_Node* read_content(ByteStream& stream, const AsnHeader& header, bool quiet) {
    if (header.length > kAsnMaxContent) {
        if (!quiet)
            err_set_text("ASN.1 data error at offset %ld: Length value exceeds max of %d.",
                         static_cast<long>(stream.offset()), static_cast<int>(kAsnMaxContent));
        return nullptr;
    }
    if (const size_t left = stream.remaining(); header.length > left) {
        if (!quiet)
            set_past_end(stream.offset() + left);
        return nullptr;
    }
    asn_Node* node = asn_make_node(header.cls, header.tag, header.length);
    if (header.length != 0 && stream.read(node->data, header.length) != header.length) {
        node->length = header.length;
        asn_Free(&node);
        if (!quiet)
            set_past_end(stream.offset());
    }
    return node;
}

// read_packed gives a node that holds the whole content of a constructed element, null if that is not a DER
// name; the stream stays where it was then.
asn_Node* read_packed(ByteStream& stream, const AsnHeader& header, uint32_t level) {
    constexpr int kSetOctet = kAsnConstructed | kAsnSet;
    if (header.cls != kAsnConstructed || header.tag != kAsnSequence || header.ndef != 0 ||
        header.length == 0 || header.length > kAsnMaxContent || header.length > stream.remaining() ||
        stream.peek() != kSetOctet)
        return nullptr;
    const size_t start = stream.offset();
    asn_Node* node = asn_make_node(header.cls, header.tag, header.length);
    if (stream.read(node->data, header.length) == header.length &&
        asn_IsDerContent(node->data, header.length, level + 1))
        return node;
    node->length = header.length;
    asn_Free(&node);
    static_cast<void>(stream.seek(start)); // what cannot go back fails at its next header
    return nullptr;
}

} // namespace

AsnList asn_Parse(ByteStream& stream, bool all, bool quiet, int packLevel) {
    AsnList list;
    AsnLevels levels;
    AsnHeader header;
    int64_t consumed = 0;
    while (asn_read_header(stream, header) == 1) {
        consumed += header.hdrsize;
        const uint32_t level = levels.depth();
        // An element that reaches beyond its parent is refused before it costs memory. (One that reaches
        // beyond the data or is too long gets a text below.)
        if (header.length <= kAsnMaxContent && header.length <= stream.remaining() &&
            !levels.holds(consumed + header.length))
            return {};
        asn_Node* node = nullptr;
        if (static_cast<int>(level) == packLevel && levels.holds(consumed + header.length))
            node = read_packed(stream, header, level);
        if (node != nullptr) {
            consumed += header.length;
        } else if ((header.cls & kAsnConstructed) != 0) {
            if (header.length == kAsnLengthUnset || !levels.holds(consumed + header.length))
                return {};
            if (!levels.enter(header.ndef != 0 ? AsnLevels::kOpen : consumed + header.length)) {
                if (!quiet)
                    err_set_text("ASN.1 internal error: stack overflow");
                return {};
            }
            node = asn_make_node(header.cls, header.tag, 0);
        } else {
            if (header.is_false_marker())
                return {};
            node = read_content(stream, header, quiet);
            if (node == nullptr)
                return {};
            consumed += header.length;
        }
        node->length = header.length;
        node->ndef = header.ndef;
        node->level = level;
        node->hdrsize = header.hdrsize;
        memcpy(node->hdr, header.hdr, sizeof node->hdr);
        list.append(node);

        const AsnLevels::Step step = levels.leave(consumed, asn_is_eoc(node));
        if (step == AsnLevels::Step::underflow && !quiet)
            err_set_text("ASN.1 internal error: stack underflow");
        if (step != AsnLevels::Step::good)
            return {};
        if (levels.depth() == 0 && !all)
            break;
    }
    return levels.depth() == 0 ? std::move(list) : AsnList();
}

AsnList asn_ParseBytes(const void* bytes, size_t n) {
    ByteStream stream(bytes, n);
    return asn_Parse(stream, false);
}

AsnList asn_ParseAll(const void* bytes, size_t n) {
    ByteStream stream(bytes, n);
    return asn_Parse(stream, true);
}

AsnList asn_ParseFile(const char* path) {
    ByteStream stream(path);
    return asn_Parse(stream, false);
}

AsnList asn_ParseBase64(const char* text) {
    SecretBuffer decoded(b64_decoded_length(text));
    b64_decode(decoded.data(), decoded.size(), text);
    return asn_ParseBytes(decoded.data(), decoded.size());
}

AsnList asn_ReadElement(ByteStream& stream) {
    const size_t start = stream.offset();
    AsnList list = asn_Parse(stream, false);
    return stream.seek(start) ? std::move(list) : AsnList();
}

AsnList asn_MatchTemplate(ByteStream& stream, const AsnTemplate* shape) {
    AsnList list = asn_Parse(stream, false);
    if (!list || (list.head()->ndef != 0 && !asn_is_eoc(list.tail())))
        return {};
    for (const asn_Node* node = list.head(); node != nullptr; node = node->next) {
        if (asn_is_eoc(node))
            continue;
        if (shape->level == kAsnTemplateEnd || node->tag != shape->tag || node->level != shape->level)
            return {};
        shape++;
    }
    return shape->level == kAsnTemplateEnd ? std::move(list) : AsnList();
}

} // namespace zul
