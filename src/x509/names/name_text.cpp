// Names as text (the other way: distinguished_name.cpp).
#include <algorithm>
#include <cstring>
#include <iterator>

#include "asn1/asn_children.h"
#include "asn1/asn_element.h"
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

// A hostile name shall not ask for a block that the process does not survive.
constexpr size_t kMaxNameText = 0x10000000;

class NameWriter {
  public:
    NameWriter(SecretBuffer& text, char delimiter, bool latin1)
        : text_(text), delimiter_(delimiter), latin1_(latin1) {}

    bool pair(const asn_Node* type, const asn_Node* value) {
        if (!text_.empty() && !put(&delimiter_, 1))
            return false;
        return put_type(type) && put("=", 1) && put_value(value);
    }

  private:
    bool put(const char* text) { return put(text, strlen(text)); }
    bool put(const void* bytes, size_t n) {
        if (n > kMaxNameText - text_.size())
            return false;
        text_.append(bytes, n);
        return true;
    }

    bool put_type(const asn_Node* type) {
        OidInfo oid;
        if (asn_GetOid(type, &oid) == 0) {
            const auto* word = std::find_if(std::begin(kNameWords), std::end(kNameWords),
                                            [&](const NameWord& row) { return !strcmp(row.type, oid.name); });
            return put(word != std::end(kNameWords) ? word->keyword : oid.name);
        }
        char dotted[256];
        return oid_ToDotted(type, dotted, sizeof dotted - 1) >= 0 && put(dotted);
    }

    // A reader of the text would not see what follows a zero byte, so that a value with one is not shown as
    // it is.
    bool put_value(const asn_Node* value) {
        if ((value->cls & kAsnConstructed) != 0)
            return put_content(value);
        if (value->data != nullptr && value->length > kMaxNameText)
            return false;
        const SecretBuffer shown = asn_GetText(value, latin1_);
        if (memchr(shown.data(), 0, shown.size()) != nullptr)
            return put_hex(value->data, value->length, true);
        return put(shown.data(), shown.size());
    }

    bool put_content(const asn_Node* value) {
        bool isFirst = true;
        for (AsnChildren parts(value); !parts.at_end(); isFirst = false) {
            const SecretBuffer part = asn_EncodeElement(parts.take());
            if (!put_hex(part.data(), part.size(), isFirst))
                return false;
        }
        return true;
    }

    bool put_hex(const uint8_t* bytes, size_t n, bool isFirst) {
        if (n > (kMaxNameText - text_.size()) / 3)
            return false;
        for (size_t i = 0; i < n; i++) {
            const char digits[] = {' ', kHexDigits[bytes[i] >> 4], kHexDigits[bytes[i] & 0xF]};
            const size_t skipped = isFirst && i == 0;
            text_.append(digits + skipped, sizeof digits - skipped);
        }
        return true;
    }

    SecretBuffer& text_;
    char delimiter_;
    bool latin1_;
};

bool put_attribute(const asn_Node* attribute, NameWriter& writer) {
    if (!asn_is(attribute, kAsnConstructed, kAsnSequence))
        return false;
    AsnChildren parts(attribute);
    const asn_Node* type = parts.take_oid();
    const asn_Node* value = parts.take();
    if (type == nullptr || value == nullptr || !parts.at_end())
        return false;
    return writer.pair(type, value);
}

// put_attributes counts those it wrote.
bool put_attributes(const asn_Node* name, NameWriter& writer, int& count) {
    if (!asn_is(name, kAsnConstructed, kAsnSequence))
        return false;
    for (AsnChildren relativeNames(name); !relativeNames.at_end();) {
        const asn_Node* relativeName = relativeNames.take();
        AsnChildren attributes(relativeName);
        if (!asn_is(relativeName, kAsnConstructed, kAsnSet) || attributes.at_end())
            return false;
        for (; !attributes.at_end(); count++)
            if (!put_attribute(attributes.take(), writer))
                return false;
    }
    return true;
}

} // namespace

int name_text(const asn_Node* name, const char* delimiter, int options, SecretBuffer& text) {
    SecretBuffer written;
    written.append("", 0);
    const char between = delimiter == nullptr || *delimiter == '\0' ? ';' : *delimiter;
    NameWriter writer(written, between, (options & ZUL_X509_LATIN1) != 0);
    int count = 0;
    if (!put_attributes(name, writer, count)) {
        err_add_text("Invalid AVA in Distinguished Name %d", count + 1);
        return BAD_FORMAT_ERROR;
    }
    text = std::move(written);
    return 0;
}

int name_print(const asn_Node* name, char* out, int nChars, const char* delimiter, int options) {
    SecretBuffer text;
    if (const int error = name_text(name, delimiter, options, text))
        return -error;
    return text_result(out, nChars, text.text());
}

} // namespace zul
