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

} // namespace

std::string object_text(const std::string& file) {
    const SecretBytes content = Input(file).read_all();
    if (content.empty())
        throw Refused::by_system(NO_DATA_ERROR, shown_name(file));
    std::string text(reinterpret_cast<const char*>(content.data()), content.size());
    constexpr char kFirstOfDer = 0x30;
    if (text.front() != kFirstOfDer) {
        std::replace(text.begin(), text.end(), ';', ' '); // in the text between blocks; no block has it
        std::replace(text.begin(), text.end(), '\0', ' ');
        if (text.find(kBegin) != text.npos)
            return text;
        return std::string(kBegin) + "X-----\n" + text + "\n-----END X-----\n";
    }
    const int length = static_cast<int>(content.size());
    std::string base64(static_cast<size_t>(CNV_B64StrFromBytes(nullptr, 0, content.data(), length)), '\0');
    CNV_B64StrFromBytes(base64.data(), static_cast<int>(base64.size()), content.data(), length);
    return std::string(kBegin) + "X-----\n" + base64 + "\n-----END X-----\n";
}

std::string object_list(const std::vector<std::string>& files) {
    std::string list;
    for (const std::string& file : files)
        list += (list.empty() ? "" : ";") + (is_plain_name(file) ? file : object_text(file));
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
    accept_length(CERT_Report(report.data(), length, argument.c_str(), options), name);
    return report;
}

} // namespace tool
