#pragma once
#include <string>
#include <vector>

#include "ca_folder.h"

// index.txt: a line for each certificate that an authority has made, its fields parted by tabs; lines that
// begin with "#" are comments. In a field "\t", "\n", "\r", "\\" and "\x1b" stand for characters. A line is
// appended in one write and brought to the disk before the certificate leaves the folder: what is out stands
// in the index. A last line without its end is of a command that was interrupted, whose certificate never got
// out; it does not count, and the next command removes it.
namespace tool {

struct IndexLine {
    std::string serial, from, until, issuer, profile, subject, names;

    // of gives the line of a certificate in a file.
    static IndexLine of(const std::string& certificate, const Signer& issuer, const std::string& profile);
    std::string text() const;
};

// The folder has to be locked for index_append.
void index_append(const AuthorityFolder& folder, const IndexLine& line);
std::vector<IndexLine> index_read(const AuthorityFolder& folder); // fields as they stand there, escaped
std::string index_value(const std::string& field);                // without the escapes
// index_find gives the line of a serial number in hex; Refused if there is none.
IndexLine index_find(const AuthorityFolder& folder, const std::string& serial);
extern const char* const kIndexHead;

} // namespace tool
