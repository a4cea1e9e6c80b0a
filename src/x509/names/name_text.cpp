// Writes a Name as text. distinguished_name.cpp does the reverse.
#include <algorithm>
#include <cstring>
#include <iterator>

#include "asn1/asn_element.h"
#include "asn1/asn_scope.h"
#include "asn1/asn_value.h"
#include "asn1/oid.h"
#include "encode/hex.h"
#include "frame/err.h"
#include "x509/names/distinguished_name.h"
#include "x509/names/name_attributes.h"
#include "zulcore.h"

namespace zul {

namespace {

// The limit of a name in characters: running out of memory would end the process.
constexpr size_t kMaxNameText = 0x10000000;

// NameWriter walks the encoding of a Name: nodes would take forty times its memory. It writes what fits into
// a room, and counts the characters of the whole text.
class NameWriter {
  public:
    NameWriter(char* out, size_t room, char delimiter, bool latin1)
        : out_(out), room_(room), delimiter_(delimiter), latin1_(latin1) {}

    size_t size() const { return size_; }

    // put_all writes the attributes of a Name, and counts those it wrote.
    bool put_all(const asn_Node* node, int& count) {
        if (asn_is(node, kAsnConstructed, kAsnSequence) && node->data != nullptr) // packed: it has DER
            return put_content(node->data, node->length, AsnScope{node->length}, count);
        const SecretBuffer encoding = asn_EncodeElement(node);
        ByteStream stream(encoding.data(), encoding.size());
        AsnScope name;
        if (!asn_enter(stream, name, kAsnConstructed, kAsnSequence))
            return false;
        if (!name.isOpen)
            name.end -= stream.offset();
        return put_content(encoding.data() + stream.offset(), encoding.size() - stream.offset(), name, count);
    }

  private:
    bool put_content(const uint8_t* bytes, size_t size, const AsnScope& name, int& count) {
        bytes_ = bytes;
        ByteStream stream(bytes, size);
        while (!asn_at_scope_end(stream, name)) {
            AsnScope relativeName = name;
            if (!asn_enter(stream, relativeName, kAsnConstructed, kAsnSet) ||
                asn_at_scope_end(stream, relativeName))
                return false;
            for (; !asn_at_scope_end(stream, relativeName); count++)
                if (!put_attribute(stream, relativeName))
                    return false;
            if (!asn_leave(stream, relativeName))
                return false;
        }
        return true;
    }

    bool put(const char* text) { return put(text, strlen(text)); }
    bool put(const void* bytes, size_t n) {
        if (n > kMaxNameText - size_)
            return false;
        if (size_ < room_ && n != 0)
            memcpy(out_ + size_, bytes, std::min(n, room_ - size_));
        size_ += n;
        return true;
    }

    bool put_attribute(ByteStream& stream, const AsnScope& relativeName) {
        AsnScope attribute = relativeName;
        if (!asn_enter(stream, attribute, kAsnConstructed, kAsnSequence) ||
            (size_ != 0 && !put(&delimiter_, 1)))
            return false;
        AsnScope type = attribute;
        if (!asn_enter(stream, type, kAsnUniversal, kAsnOid) ||
            !put_type(element(kAsnUniversal, kAsnOid, stream.offset(), type.end)) || !stream.seek(type.end))
            return false;
        return put("=", 1) && put_value(stream, attribute) && asn_leave(stream, attribute);
    }

    // element gives a node for the content between two offsets. It is valid as long as the encoding.
    asn_Node element(uint32_t cls, uint32_t tag, size_t start, size_t end) const {
        asn_Node node = {};
        node.cls = cls;
        node.tag = tag;
        node.length = static_cast<uint32_t>(end - start);
        node.data = start == end ? nullptr : const_cast<uint8_t*>(bytes_ + start);
        return node;
    }

    bool put_type(const asn_Node& type) {
        OidInfo oid;
        if (asn_GetOid(&type, &oid) == 0) {
            const auto* word = std::find_if(std::begin(kNameWords), std::end(kNameWords),
                                            [&](const NameWord& row) { return !strcmp(row.type, oid.name); });
            return put(word != std::end(kNameWords) ? word->keyword : oid.name);
        }
        char dotted[256];
        return oid_ToDotted(&type, dotted, sizeof dotted - 1) >= 0 && put(dotted);
    }

    bool put_value(ByteStream& stream, const AsnScope& attribute) {
        const int octet = asn_at_scope_end(stream, attribute) ? -1 : stream.peek();
        const uint32_t cls = static_cast<uint32_t>(octet) & 0xE0, tag = static_cast<uint32_t>(octet) & 0x1F;
        AsnScope value = attribute;
        if (octet < 0 || !asn_enter(stream, value, cls, tag))
            return false;
        const size_t start = stream.offset();
        if ((cls & kAsnConstructed) != 0) {
            AsnHeader header;
            while (!asn_at_scope_end(stream, value))
                if (!asn_skip_element(stream, value.end, header))
                    return false;
            return put_hex(bytes_ + start, stream.offset() - start) && asn_leave(stream, value);
        }
        return put_primitive(element(cls, tag, start, value.end)) && stream.seek(value.end);
    }

    // A caller would read the text only up to a zero byte, so a value with one is written in hex.
    bool put_primitive(const asn_Node& value) {
        if (value.length > kMaxNameText)
            return false;
        const SecretBuffer shown = asn_GetText(&value, latin1_);
        if (memchr(shown.data(), 0, shown.size()) != nullptr)
            return put_hex(value.data, value.length);
        return put(shown.data(), shown.size());
    }

    bool put_hex(const uint8_t* bytes, size_t n) {
        for (size_t i = 0; i < n; i++) {
            const char digits[] = {' ', kHexDigits[bytes[i] >> 4], kHexDigits[bytes[i] & 0xF]};
            if (!put(digits + (i == 0), sizeof digits - (i == 0)))
                return false;
        }
        return true;
    }

    const uint8_t* bytes_ = nullptr;
    char* out_;
    size_t room_;
    size_t size_ = 0;
    char delimiter_;
    bool latin1_;
};

} // namespace

// write_name writes what fits into a room, and gives the size of the whole text.
static int write_name(const asn_Node* name, const char* delimiter, int options, char* out, size_t room,
                      size_t& size) {
    const char between = delimiter == nullptr || *delimiter == '\0' ? ';' : *delimiter;
    NameWriter writer(out, room, between, (options & ZUL_X509_LATIN1) != 0);
    int count = 0;
    if (!writer.put_all(name, count))
        return err_fail(BAD_FORMAT_ERROR, "Invalid AVA in Distinguished Name %d", count + 1);
    size = writer.size();
    return 0;
}

// Most names fit into a buffer on the stack and are walked once. Others are measured by that and written by a
// second walk: a buffer that grows would take up to three times its size.
constexpr size_t kUsualName = 512;

int name_text(const asn_Node* name, const char* delimiter, int options, SecretBuffer& text) {
    char usual[kUsualName];
    size_t size;
    if (const int error = write_name(name, delimiter, options, usual, sizeof usual, size))
        return error;
    text = SecretBuffer(size + 1);
    text.shrink(size);
    if (size > sizeof usual)
        return write_name(name, delimiter, options, text.text(), size, size);
    memcpy(text.data(), usual, size);
    return 0;
}

int name_print(const asn_Node* name, char* out, int nChars, const char* delimiter, int options, int* length) {
    char usual[kUsualName];
    size_t size;
    if (const int error = write_name(name, delimiter, options, usual, sizeof usual, size))
        return error;
    if (out != nullptr && nChars > 0) {
        const size_t room = std::min(size, static_cast<size_t>(nChars));
        if (room <= sizeof usual)
            memcpy(out, usual, room);
        else if (const int error = write_name(name, delimiter, options, out, room, size))
            return error;
        out[room] = '\0';
        size = room;
    }
    *length = static_cast<int>(size);
    return 0;
}

} // namespace zul
