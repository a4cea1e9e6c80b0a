#pragma once
#include "asn1/asn_node.h"
#include "frame/memory.h"

// Distinguished names (X.501; RFC 5280, 4.1.2.4) and their text: keyword=value pairs joined by ";".
namespace zul {

struct NameAttribute {
    const char* type; // a name of the OID table
    SecretBuffer value;
    NameAttribute* next = nullptr;
};

// ParsedName is a name read from its text, in its order.
class ParsedName {
  public:
    ParsedName() = default;
    ParsedName(const ParsedName&) = delete;
    ParsedName& operator=(const ParsedName&) = delete;
    ~ParsedName();

    const NameAttribute* first() const { return first_; }
    int count() const { return count_; }
    void append(const char* type, SecretBuffer value);

  private:
    NameAttribute* first_ = nullptr;
    NameAttribute* last_ = nullptr;
    int count_ = 0;
};

// name_parse reads a text and gives the number of attributes recognised; what it does not know it skips.
int name_parse(const char* text, ParsedName& name);

// name_encode makes the Name. options: ZUL_X509_UTF8.
AsnList name_encode(const ParsedName& name, int options);

// name_text writes a Name as text, which a NUL follows. delimiter: null or empty for ";", else its first
// character. options: ZUL_X509_LATIN1. 0, or BAD_FORMAT_ERROR with a text.
int name_text(const asn_Node* name, const char* delimiter, int options, SecretBuffer& text);

// name_print does so into a caller's room, cutting what does not fit: its length, the whole length without
// output or room, or a negated code.
int name_print(const asn_Node* name, char* out, int nChars, const char* delimiter, int options);

} // namespace zul
