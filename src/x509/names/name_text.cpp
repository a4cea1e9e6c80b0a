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
#include "frame/text.h"
#include "x509/names/distinguished_name.h"
#include "x509/names/name_attributes.h"
#include "zulcore.h"

namespace zul {

namespace {

// The limit of a name in characters: running out of memory would end the process.
constexpr size_t kMaxNameText = 0x10000000;

// NameWriter walks the encoding of a Name: nodes would take forty times its memory.
class NameWriter {
  public:
    NameWriter(SecretBuffer& text, char delimiter, bool latin1)
        : text_(text), delimiter_(delimiter), latin1_(latin1) {}

    // put_all writes the attributes of a Name in memory, and counts those it wrote.
    bool put_all(const uint8_t* bytes, size_t size, int& count) {
        bytes_ = bytes;
        ByteStream stream(bytes, size);
        AsnScope name;
        if (!asn_enter(stream, name, kAsnConstructed, kAsnSequence))
            return false;
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

  private:
    bool put(const char* text) { return put(text, strlen(text)); }
    bool put(const void* bytes, size_t n) {
        if (n > kMaxNameText - text_.size())
            return false;
        text_.append(bytes, n);
        return true;
    }

    bool put_attribute(ByteStream& stream, const AsnScope& relativeName) {
        AsnScope attribute = relativeName;
        if (!asn_enter(stream, attribute, kAsnConstructed, kAsnSequence) ||
            (!text_.empty() && !put(&delimiter_, 1)))
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
        if (n > (kMaxNameText - text_.size()) / 3)
            return false;
        for (size_t i = 0; i < n; i++) {
            const char digits[] = {' ', kHexDigits[bytes[i] >> 4], kHexDigits[bytes[i] & 0xF]};
            text_.append(digits + (i == 0), sizeof digits - (i == 0));
        }
        return true;
    }

    const uint8_t* bytes_ = nullptr;
    SecretBuffer& text_;
    char delimiter_;
    bool latin1_;
};

} // namespace

int name_text(const asn_Node* name, const char* delimiter, int options, SecretBuffer& text) {
    const char between = delimiter == nullptr || *delimiter == '\0' ? ';' : *delimiter;
    const SecretBuffer encoding = asn_EncodeElement(name);
    SecretBuffer written;
    written.append("", 0);
    NameWriter writer(written, between, (options & ZUL_X509_LATIN1) != 0);
    int count = 0;
    if (!writer.put_all(encoding.data(), encoding.size(), count))
        return err_fail(BAD_FORMAT_ERROR, "Invalid AVA in Distinguished Name %d", count + 1);
    text = std::move(written);
    return 0;
}

int name_print(const asn_Node* name, char* out, int nChars, const char* delimiter, int options, int* length) {
    SecretBuffer text;
    if (const int error = name_text(name, delimiter, options, text))
        return error;
    *length = text_result(out, nChars, text.text());
    return 0;
}

} // namespace zul
