#pragma once
#include "asn1/asn_node.h"
#include "frame/file_writer.h"

namespace zul {

// message_write writes a message to a file as DER or, with ZUL_CMS_FORMAT_BASE64, as lines of base64 (as PEM
// if label is not null): 0, CREATE_ERROR without a text, which the caller knows best, or another positive
// code with one.
[[nodiscard]] int message_write(const char* path, const asn_Node* message, int options, const char* label,
                                const WriteRules& rules);

} // namespace zul
