#pragma once
#include "asn1/der_reader.h"
#include "frame/text_buffer.h"

// Names of object identifiers in certificates, as their standards write them. They are apart from the table
// of asn1/oid_table.h, whose names show in texts that callers know.
namespace zul {

// oid_name gives the name of an object identifier: empty if it is not known.
std::string_view oid_name(DerView oid);

// attribute_keyword gives the short keyword of an attribute of names ("CN"): empty if there is none.
std::string_view attribute_keyword(DerView oid);

// put_oid_dotted writes the dotted form; "#" and hex digits for what is no object identifier or has an arc of
// more than 128 bits.
void put_oid_dotted(TextBuffer& out, DerView oid);
// put_oid writes the name if there is one, or else the dotted form.
void put_oid(TextBuffer& out, DerView oid);

} // namespace zul
