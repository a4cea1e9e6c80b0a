#pragma once
#include "asn1/asn_node.h"

namespace zul {

// message_write writes a message to a file as DER and, with ZUL_CMS_FORMAT_BASE64, rewrites that in base64
// lines of 64 (armoured if label is not null): 0 or a positive code with a text, CREATE_ERROR with noFile
// ("... %s ..."), WRITE_ERROR, or that of the rewriting with "Error converting to base64".
int message_write(const char* path, const asn_Node* message, int options, const char* label,
                  const char* noFile);

// content_info wraps a SignedData or EnvelopedData (RFC 5652, 3).
AsnList content_info(const char* contentType, AsnList content);

} // namespace zul
