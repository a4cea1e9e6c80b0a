#include <cstdlib>
#include <cstring>
#include <string>

#include "cert/names/string_value.h"
#include "cert/query/cert_query.h"
#include "cert/report/report.h"
#include "encode/base64.h"
#include "encode/shown_character.h"
#include "zulcore.h"

// Of any bytes that pass for an object a report is made, text and JSON, and every query answered. The output
// is UTF-8 that a terminal shows as it is; every line of a text is one that the library has begun; JSON has
// its brackets and quotes in order.

using namespace zul;

namespace {

void require(bool claim) {
    if (!claim)
        std::abort();
}

void check_characters(std::string_view text) {
    StringReader reader(kDerUtf8String, {text.data(), text.size()});
    while (!reader.at_end()) {
        bool isCharacter;
        const char32_t c = reader.next(isCharacter);
        require(isCharacter && (c == '\n' || !is_hidden(c)));
    }
}

void check_lines(std::string_view text) {
    while (!text.empty()) {
        const size_t end = text.find('\n');
        require(end != std::string_view::npos);
        const std::string_view line = text.substr(0, end);
        text.remove_prefix(end + 1);
        bool isTitle = line.empty() || line.starts_with('[');
        for (const char* kind : {"Certificate", "CertificationRequest", "CertificateList", "OCSPResponse"})
            isTitle = isTitle || line == kind;
        require(isTitle || line.starts_with("  "));
    }
}

void check_json(std::string_view json) {
    std::string open;
    bool isInString = false;
    require(json.ends_with("]}\n") && json.find('\n') == json.size() - 1);
    for (size_t i = 0; i + 1 < json.size(); i++) {
        const char c = json[i];
        if (isInString) {
            isInString = c != '"';
            if (c == '\\')
                require(std::strchr("\"\\u", json[++i]) != nullptr);
        } else if (c == '{' || c == '[') {
            open += c;
        } else if (c == '}' || c == ']') {
            require(!open.empty() && open.back() == (c == '}' ? '{' : '[') && json[i - 1] != ',' &&
                    json[i - 1] != ':');
            open.pop_back();
        } else {
            isInString = c == '"';
            require(c != ',' || std::strchr("{[,:", json[i - 1]) == nullptr);
        }
    }
    require(open.empty() && !isInString);
}

void check_report(const ObjectList& objects, bool isJson) {
    TextBuffer whole;
    if (write_report(whole, objects, isJson) != 0)
        return;
    check_characters(whole.text());
    if (isJson)
        check_json(whole.text());
    else
        check_lines(whole.text());
    // In a smaller room the same text, cut.
    std::string part(whole.size() / 2 + 1, '#');
    TextBuffer half(part.data(), static_cast<int>(part.size() - 1));
    require(write_report(half, objects, isJson) == 0 && half.size() == whole.size());
    require(half.result() >= 0 && whole.text().starts_with(part.c_str()));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const SecretBuffer base64 = b64_text(data, size);
    const std::string pem =
        "-----BEGIN X-----\n" + std::string(base64.text(), base64.size()) + "\n-----END X-----\n";
    ObjectList objects;
    if (objects.add_argument(pem.c_str(), pem.size()) != 0)
        return 0;
    check_report(objects, false);
    check_report(objects, true);
    for (const auto table : {field_queries, extension_queries})
        for (size_t i = 0; i < table().count; i++) {
            TextBuffer answer;
            if (cert_query(answer, objects[0], table().rows[i].write) == 0)
                check_characters(answer.text());
        }
    for (const char* reference : {"www.example.com", "192.0.2.1", "joe@example.com"})
        CERT_CheckName(pem.c_str(), reference, ZUL_CERT_SUBJECT_NAME);
    return 0;
}
