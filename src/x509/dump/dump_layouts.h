#pragma once
#include "x509/crl/crl_reader.h"
#include "x509/dump/dump_output.h"

// The layouts of text_dump. Each gives 0 or a positive code with a text; the file then holds what comes
// before the fault.
namespace zul {

[[nodiscard]] int dump_certificate(DumpOutput& out, const asn_Node* certificate);
[[nodiscard]] int dump_request(DumpOutput& out, const asn_Node* request);
[[nodiscard]] int dump_crl(DumpOutput& out, CrlReader& crl);

// Pieces of all three.
[[nodiscard]] int dump_name(DumpOutput& out, const char* label, const asn_Node* name, const char* ifMissing);
[[nodiscard]] int dump_public_key(DumpOutput& out, const asn_Node* subjectPublicKeyInfo);
[[nodiscard]] int dump_signature(DumpOutput& out, const asn_Node* algorithm, const asn_Node* value,
                                 const char* ifMissing);

} // namespace zul
