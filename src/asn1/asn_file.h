#pragma once
#include "asn1/asn_node.h"
#include "platform/platform.h"

namespace zul {

// asn_write_file writes a list to a file as DER, or as PEM with lines of lineLen characters if label is not
// null: 0, INVALID_DATA_ERROR (no encoding, and the file untouched) or CREATE_ERROR without a text, which the
// caller knows best, or WRITE_ERROR with one. A file that failed is removed.
[[nodiscard]] int asn_write_file(const char* path, const asn_Node* list, const char* label, int lineLen,
                                 platform::OpenMode mode = platform::OpenMode::create);

} // namespace zul
