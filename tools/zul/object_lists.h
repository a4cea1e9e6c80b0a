#pragma once
#include <initializer_list>
#include <string>
#include <vector>

// Certificates, CRLs and OCSP responses of many files, as arguments of the CERT_ functions.
namespace tool {

// object_list joins files by ";". A file whose name the library would misread, and what can be read only
// once, is read here and goes as text. Refused, with the file's name, for what cannot be read or holds no
// such object.
std::string object_list(const std::vector<std::string>& files);

// refuse_second_standard_input: only one of the files can be standard input.
void refuse_second_standard_input(std::initializer_list<const std::vector<std::string>*> lists);

// cert_report gives what CERT_Report says of one argument, cert_query what CERT_Query does; both in UTF-8.
std::string cert_report(const std::string& argument, const std::string& name, bool json);
std::string cert_query(const std::string& argument, const std::string& name, const char* query);

} // namespace tool
