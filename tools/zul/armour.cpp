#include "armour.h"

#include <algorithm>
#include <cctype>
#include <utility>

#include "failures.h"
#include "secret_bytes.h"

namespace tool {

void pem_body(SecretBytes& text, const std::string& name) {
    const std::string_view all(reinterpret_cast<const char*>(text.data()), text.size());
    const size_t begin = all.find("-----BEGIN");
    const size_t dashes = begin == all.npos ? begin : all.find("-----", begin + 10);
    if (dashes != all.npos) {
        const size_t body = std::min(all.find_first_not_of(" \t0123456789", dashes + 5), all.size());
        size_t end = all.find("-----END", body);
        if (end == all.npos)
            end = all.find("-----BEGIN", body);
        if (end != all.npos && end > body) {
            text.erase(text.begin() + static_cast<std::ptrdiff_t>(end), text.end());
            text.erase(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(body));
            return;
        }
    }
    throw Refused::by_system(BAD_FORMAT_ERROR, name,
                             "No text between -----BEGIN ...----- and -----END ...----- found.");
}

// take_url_alphabet turns base64url (RFC 4648, 5) into base64, with the padding that it may lack.
static void take_url_alphabet(SecretBytes& text, const std::string& name) {
    const std::string_view all(as_text(text), text.size());
    if (all.find_first_of("-_") == all.npos)
        return;
    if (all.find_first_of("+/") != all.npos)
        throw Refused::by_system(BAD_FORMAT_ERROR, name,
                                 "It mixes base64 (+ and /) with base64url (- and _).");
    std::replace(text.begin(), text.end(), '-', '+');
    std::replace(text.begin(), text.end(), '_', '/');
}

SecretBytes decode_text(SecretBytes text, bool isHex, const std::string& name) {
    if (std::find(text.begin(), text.end(), 0) != text.end())
        throw Refused::by_system(BAD_FORMAT_ERROR, name, "The input holds zero bytes: it is not text.");
    SecretBytes bytes(text.size() / 4 * 3 + 4); // enough for hex too
    text.push_back('\0');
    if (!isHex)
        take_url_alphabet(text, name);
    const auto decoder = isHex ? CNV_BytesFromHexStr : CNV_BytesFromB64Str;
    const int length = decoder(bytes.data(), int_length(bytes), reinterpret_cast<const char*>(text.data()));
    bytes.resize(static_cast<size_t>(accept_length(length, name)));
    return bytes;
}

// is_der tells a SEQUENCE from a text that begins with "0": what is inside may be a text with armour.
static bool is_der(const SecretBytes& content) {
    return content.size() >= 2 && content[0] == 0x30 &&
           (content[1] >= 0x80 || content.size() == 2U + content[1]);
}

SecretBytes binary_content(SecretBytes content, const std::string& name) {
    if (is_der(content))
        return content;
    const std::string_view all(reinterpret_cast<const char*>(content.data()), content.size());
    if (all.find("-----BEGIN") != all.npos) {
        pem_body(content, name);
        if (std::find(content.begin(), content.end(), ':') != content.end())
            throw Refused::by_system(NOT_SUPPORTED_ERROR, name,
                                     "Its PEM block has header lines, as an older way to encrypt does; "
                                     "'openssl pkcs8 -topk8' converts it.");
        return decode_text(std::move(content), false, name);
    }
    const bool isText = !content.empty() && std::all_of(content.begin(), content.end(), [](unsigned char c) {
        return std::isalnum(c) != 0 || std::isspace(c) != 0 ||
               std::string_view("+/=-_").find(static_cast<char>(c)) != std::string_view::npos;
    });
    return isText ? decode_text(std::move(content), false, name) : content;
}

} // namespace tool
