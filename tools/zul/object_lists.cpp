#include "object_lists.h"

#include <algorithm>
#include <zulcore.h>

#include "failures.h"
#include "file_names.h"
#include "streams.h"

namespace tool {

namespace {

constexpr std::string_view kBegin = "-----BEGIN ";

// is_plain_name tells whether a list of the library can hold the name of a file.
bool is_plain_name(const std::string& file) {
    constexpr size_t kLongest = 250;
    return !is_standard_stream(file) && file.size() <= kLongest && file.find(';') == file.npos &&
           file.find(kBegin) == file.npos && file.front() != ' ' && file.back() != ' ';
}

// object_text gives what a file holds as text: PEM, or base64 of DER in a block.
std::string object_text(const std::string& file) {
    const SecretBytes content = Input(file).read_all();
    if (content.empty())
        throw Refused::by_system(NO_DATA_ERROR, file);
    std::string text(reinterpret_cast<const char*>(content.data()), content.size());
    constexpr char kFirstOfDer = 0x30;
    if (text.front() != kFirstOfDer) {
        std::replace(text.begin(), text.end(), ';', ' '); // in the text between blocks; no block has it
        std::replace(text.begin(), text.end(), '\0', ' ');
        if (text.find(kBegin) != text.npos)
            return text;
        return std::string(kBegin) + "X-----\n" + text + "\n-----END X-----\n";
    }
    const int length = int_length(content);
    std::string base64(
        static_cast<size_t>(accept_length(CNV_B64StrFromBytes(nullptr, 0, content.data(), length), file)),
        '\0');
    CNV_B64StrFromBytes(base64.data(), static_cast<int>(base64.size()), content.data(), length);
    return std::string(kBegin) + "X-----\n" + base64 + "\n-----END X-----\n";
}

// accept_objects refuses a file without certificates or the like under its own name, which the library would
// not tell of a text. What is malformed inside is the library's to judge.
void accept_objects(const std::string& argument, const std::string& file) {
    const int result = CERT_Query(nullptr, 0, argument.c_str(), "kind", 0);
    if (result == -INVALID_DATA_ERROR || result == -NO_DATA_ERROR || result == -OUT_OF_RANGE_ERROR)
        throw Refused::by_system(-result, file, "Neither PEM nor DER of certificates or the like.");
}

} // namespace

std::string object_list(const std::vector<std::string>& files) {
    std::string list;
    for (const std::string& file : files) {
        std::string argument = file;
        if (is_on_disk(file) && is_plain_name(file)) {
            const Input readable(file); // or refused under its own name
        } else {
            argument = object_text(file);
        }
        accept_objects(argument, file);
        list += (list.empty() ? "" : ";") + argument;
    }
    return list;
}

void refuse_second_standard_input(std::initializer_list<const std::vector<std::string>*> lists) {
    std::ptrdiff_t count = 0;
    for (const auto* files : lists)
        count += std::count_if(files->begin(), files->end(), is_standard_stream);
    if (count > 1)
        throw UsageError("only one thing can come from standard input");
}

std::string cert_report(const std::string& argument, const std::string& name, bool json) {
    const int options = json ? ZUL_CERT_JSON : 0;
    const int length = accept_length(CERT_Report(nullptr, 0, argument.c_str(), options), name);
    std::string report(static_cast<size_t>(length), '\0');
    if (length > 0)
        accept_length(CERT_Report(report.data(), length, argument.c_str(), options), name);
    return report;
}

std::string cert_query(const std::string& argument, const std::string& name, const char* query) {
    const int length = accept_length(CERT_Query(nullptr, 0, argument.c_str(), query, 0), name);
    std::string value(static_cast<size_t>(length), '\0');
    if (length > 0)
        accept_length(CERT_Query(value.data(), length, argument.c_str(), query, 0), name);
    return value;
}

} // namespace tool
