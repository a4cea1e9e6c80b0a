#include "asn1/oid.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "asn1/asn_node.h"
#include "asn1/oid_octets.h"
#include "asn1/oid_table.h"
#include "frame/err.h"
#include "frame/text.h"

namespace zul {

namespace {

constexpr int32_t kMaxOctets = 31;
constexpr size_t kMaxDottedOctets = 32;

char upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool same_text(const char* a, const char* b) {
    while (*a != '\0' && upper(*a) == upper(*b)) {
        a++;
        b++;
    }
    return upper(*a) == upper(*b);
}

[[nodiscard]] int hex_digit(char c) {
    const char u = upper(c);
    if (u >= '0' && u <= '9')
        return u - '0';
    return u >= 'A' && u <= 'F' ? u - 'A' + 10 : -1;
}

// A number of any size in decimal, the least digit first: arcs may be wider than any integer (those made from
// a UUID have 128 bits).
class Arc {
  public:
    void append_bits(uint8_t octet) {
        unsigned carry = octet & 0x7Fu;
        for (size_t i = 0; i < count_ || carry != 0; i++) {
            if (i == count_)
                digits_[count_++] = 0;
            carry += digits_[i] * 128u;
            digits_[i] = static_cast<uint8_t>(carry % 10);
            carry /= 10;
        }
    }
    size_t write(char* out) {
        size_t length = 0;
        out[length++] = '.';
        if (count_ == 0)
            out[length++] = '0';
        while (count_ > 0)
            out[length++] = static_cast<char>('0' + digits_[--count_]);
        return length;
    }

  private:
    uint8_t digits_[kMaxDottedOctets * 3] = {};
    size_t count_ = 0;
};

} // namespace

int32_t oid_octets_from_hex(uint8_t out[32], const char* text) {
    int32_t count = 0;
    for (;;) {
        unsigned value = 0;
        for (const char* p = text; hex_digit(*p) >= 0 && value <= 0xFF; p++)
            value = value * 16 + static_cast<unsigned>(hex_digit(*p));
        if (value > 0xFF) {
            err_set_text("Invalid hex value in (internal) OID data");
            return 0;
        }
        out[count++] = static_cast<uint8_t>(value);
        for (int i = 0; i < 2 && *text != '\0'; i++)
            text++;
        if (*text == '\0')
            return count;
        if (*text != ' ') {
            err_set_text("Invalid hex string in (internal) OID data");
            return 0;
        }
        if (count == kMaxOctets) {
            err_set_text("Line too long in (internal) OID data");
            return 0;
        }
        text++;
    }
}

int oid_FromName(OidInfo* rec, const char* name) {
    *rec = {};
    if (name == nullptr)
        return 0;
    for (const OidRow& row : kOidTable)
        if (same_text(row.name, name)) {
            rec->length = oid_octets_from_hex(rec->bytes, row.octets);
            if (rec->length > 0)
                str_copy(rec->name, row.name, sizeof rec->name);
            return rec->length;
        }
    return 0;
}

int oid_FromBytes(OidInfo* rec) {
    if (rec->length < 1 || rec->length > kMaxOctets)
        return -1;
    char text[3 * kMaxOctets + 1];
    char* end = text;
    for (int32_t i = 0; i < rec->length; i++, end += 3)
        snprintf(end, 4, "%02X ", rec->bytes[i]);
    end[-1] = '\0';
    for (const OidRow& row : kOidTable)
        if (strcmp(row.octets, text) == 0) {
            str_copy(rec->name, row.name, sizeof rec->name);
            return 0;
        }
    return -1;
}

// has_whole_arcs tells whether an OBJECT IDENTIFIER's octets are what X.690, 8.19 allows. Others would be
// shown as an identifier that they are not.
static bool has_whole_arcs(const asn_Node* oid) {
    bool isStart = true;
    for (uint32_t i = 1; i < oid->length; i++) { // the first octet is two arcs
        if (isStart && oid->data[i] == 0x80)
            return false;
        isStart = oid->data[i] < 0x80;
    }
    return isStart;
}

int oid_ToDotted(const asn_Node* node, char* buf, size_t max) {
    if (!asn_is(node, kAsnUniversal, kAsnOid) || node->data == nullptr || node->length > kMaxDottedOctets ||
        !has_whole_arcs(node))
        return -1;
    // 32 octets make at most 129 characters.
    char text[256];
    unsigned x = node->data[0] / 40u, y = node->data[0] % 40u;
    if (x > 2) {
        y += (x - 2) * 40;
        x = 2;
    }
    auto length = static_cast<size_t>(snprintf(text, sizeof text, "%u.%u", x, y));
    Arc arc;
    for (uint32_t i = 1; i < node->length; i++) {
        arc.append_bits(node->data[i]);
        if (node->data[i] < 0x80)
            length += arc.write(text + length);
    }
    text[length] = '\0';
    return text_result(buf, static_cast<int>(std::min<size_t>(max, sizeof text)), text);
}

} // namespace zul
