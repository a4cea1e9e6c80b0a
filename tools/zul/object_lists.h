#pragma once
#include <string>
#include <vector>

// Certificates, CRLs and OCSP responses of many files, as arguments of the CERT_ functions.
namespace tool {

// object_list joins files by ";". A file whose name the library would misread, and standard input, is read
// here and goes as text.
std::string object_list(const std::vector<std::string>& files);

// object_text gives what a file holds as text: PEM, or base64 of DER in a block.
std::string object_text(const std::string& file);

// refuse_second_standard_input: only one of the files can be standard input.
void refuse_second_standard_input(std::initializer_list<const std::vector<std::string>*> lists);

// cert_report gives what CERT_Report says of one argument, in UTF-8.
std::string cert_report(const std::string& argument, const std::string& name, bool json);

} // namespace tool
