#pragma once
#include "asn1/asn_node.h"
#include "frame/file_writer.h"

namespace zul {

// asn_write_file writes the encoding of a list to a file, as output_write does. A list without an encoding is
// INVALID_DATA_ERROR, without a text, and leaves the file untouched.
constexpr int kPemLineLen = 64; // the usual one
[[nodiscard]] int asn_write_file(const char* path, const asn_Node* list, const char* label, int lineLen,
                                 const WriteRules& rules = {});

} // namespace zul
