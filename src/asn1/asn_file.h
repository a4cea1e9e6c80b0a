#pragma once
#include "asn1/asn_node.h"
#include "frame/file_writer.h"

namespace zul {

// asn_write_file writes a list to a file as output_write does its encoding; INVALID_DATA_ERROR, without a
// text and with the file untouched, if it has none.
constexpr int kPemLineLen = 64; // of PEM, where nothing else is asked for
[[nodiscard]] int asn_write_file(const char* path, const asn_Node* list, const char* label, int lineLen,
                                 const WriteRules& rules = {});

} // namespace zul
