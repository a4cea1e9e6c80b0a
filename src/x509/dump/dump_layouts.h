#pragma once
#include "x509/crl/crl_reader.h"
#include "x509/dump/dump_output.h"

// The layouts of text_dump. Each gives 0 or a positive code with a text; what comes before the fault is
// written then.
namespace zul {

int dump_certificate(DumpOutput& out, const asn_Node* certificate);
int dump_request(DumpOutput& out, const asn_Node* request);
int dump_crl(DumpOutput& out, CrlReader& crl);

// Pieces of all three.
int dump_bad_format(const char* text); // BAD_FORMAT_ERROR with a text
int dump_name(DumpOutput& out, const char* label, const asn_Node* name, const char* ifMissing);
int dump_public_key(DumpOutput& out, const asn_Node* subjectPublicKeyInfo);
int dump_signature(DumpOutput& out, const asn_Node* algorithm, const asn_Node* value, const char* ifMissing);

} // namespace zul
