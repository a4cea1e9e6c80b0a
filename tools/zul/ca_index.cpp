#include "ca_index.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "certificates.h"
#include "operating_system.h"
#include "streams.h"

namespace tool {

const char* const kIndexHead = "# serial\tfrom\tuntil\tissuer\tprofile\tsubject\tnames\n";

namespace {

std::string escaped(std::string_view text) {
    std::string result;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '\\' || c == '\t' || c == '\n' || c == '\r') {
            result += std::string("\\") + (c == '\t' ? 't' : c == '\n' ? 'n' : c == '\r' ? 'r' : c);
        } else if (byte < 0x20 || byte == 0x7F) {
            char escape[8];
            std::snprintf(escape, sizeof escape, "\\x%02x", byte);
            result += escape;
        } else {
            result += c;
        }
    }
    return result;
}

std::vector<std::string> fields_of(std::string_view line) {
    std::vector<std::string> fields;
    for (size_t at = 0; at <= line.size();) {
        const size_t end = std::min(line.find('\t', at), line.size());
        fields.emplace_back(line.substr(at, end - at));
        at = end + 1;
    }
    return fields;
}

size_t whole_lines(std::string_view content) {
    return content.find_last_of('\n') + 1; // 0 if there is none
}

} // namespace

IndexLine IndexLine::of(const std::string& certificate, const Signer& issuer, const std::string& profile) {
    const auto item = [&certificate](const char* what) {
        const SecretBytes text = key_string(certificate, [&](char* out, int room) {
            return CERT_Query(out, room, certificate.c_str(), what, 0);
        });
        std::string value = as_text(text);
        std::replace(value.begin(), value.end(), '\n', ','); // between several names
        return value;
    };
    return {item("serialNumber"), item("notBefore"),     item("notAfter"), issuer, profile,
            item("subject"),      item("subjectAltName")};
}

std::string IndexLine::text() const {
    std::string line;
    for (const std::string* field : {&serial, &from, &until, &issuer, &profile, &subject, &names})
        line += (line.empty() ? "" : "\t") + escaped(*field);
    return line + "\n";
}

void index_append(const AuthorityFolder& folder, const IndexLine& line) {
    const std::string name = folder.file("index.txt"), text = line.text();
    const SecretBytes content = Input(name).read_all();
    const size_t whole = whole_lines({as_text(content), content.size()});
    std::error_code error;
    if (whole < content.size())
        std::filesystem::resize_file(path_of(name), whole, error);
    std::FILE* file = error ? nullptr : std::fopen(name.c_str(), "ab");
    if (file == nullptr)
        throw Refused::by_system(CREATE_ERROR, name);
    std::setvbuf(file, nullptr, _IONBF, 0);
    const bool isWritten =
        std::fwrite(text.data(), 1, text.size(), file) == text.size() && bring_to_disk(file);
    if (std::fclose(file) != 0 || !isWritten) {
        std::filesystem::resize_file(path_of(name), whole, error);
        throw Refused::by_system(WRITE_ERROR, name);
    }
}

std::vector<IndexLine> index_read(const AuthorityFolder& folder) {
    const std::string name = folder.file("index.txt");
    const SecretBytes content = Input(name).read_all();
    std::string_view rest(as_text(content), content.size());
    rest = rest.substr(0, whole_lines(rest));
    std::vector<IndexLine> lines;
    for (int number = 1; !rest.empty(); ++number) {
        const size_t end = rest.find('\n');
        const std::string_view line = rest.substr(0, end);
        rest.remove_prefix(end + 1);
        if (line.empty() || line[0] == '#')
            continue;
        const std::vector<std::string> fields = fields_of(line);
        if (fields.size() != 7 || fields[0].empty() ||
            fields[0].find_first_not_of("0123456789abcdef") != std::string::npos)
            throw Refused::by_system(BAD_FORMAT_ERROR, name,
                                     "Line " + std::to_string(number) + " is damaged.");
        lines.push_back({fields[0], fields[1], fields[2], fields[3], fields[4], fields[5], fields[6]});
    }
    return lines;
}

std::string index_value(const std::string& field) {
    std::string value;
    for (size_t i = 0; i < field.size(); ++i) {
        const char next = field[i] == '\\' && i + 1 < field.size() ? field[++i] : '\0';
        if (next == 'x' && i + 2 < field.size()) {
            value += static_cast<char>(std::strtoul(field.substr(i + 1, 2).c_str(), nullptr, 16));
            i += 2;
        } else if (next != '\0') {
            value += next == 't' ? '\t' : next == 'n' ? '\n' : next == 'r' ? '\r' : next;
        } else {
            value += field[i];
        }
    }
    return value;
}

IndexLine index_find(const AuthorityFolder& folder, const std::string& serial) {
    for (const IndexLine& line : index_read(folder))
        if (line.serial == serial)
            return line;
    throw Refused::by_system(NO_MATCH_ERROR, folder.name(),
                             "This authority has made no certificate with the number " + serial + ".");
}

} // namespace tool
