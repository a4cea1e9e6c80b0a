#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "armour.h"
#include "commands.h"
#include "der.h"
#include "json_output.h"
#include "streams.h"

namespace tool {

namespace {

constexpr size_t kBytesInLine = 16;

// Listing gathers lines: the bytes can be those of a private key.
class Listing {
  public:
    void add(std::string_view text) { lines_.insert(lines_.end(), text.begin(), text.end()); }
    void indent(size_t count) { lines_.insert(lines_.end(), count, ' '); }
    void add_bytes(const unsigned char* bytes, size_t count) {
        static constexpr char kDigits[] = "0123456789abcdef";
        for (size_t i = 0; i < count; ++i)
            for (const char c : {kDigits[bytes[i] >> 4], kDigits[bytes[i] & 15], ' '})
                lines_.push_back(static_cast<unsigned char>(c));
    }
    void end_line() {
        lines_.push_back('\n');
        if (lines_.size() >= kChunk)
            flush();
    }
    void flush() {
        output_.write(lines_);
        lines_.clear();
    }

  private:
    SecretBytes lines_;
    Output output_{"-"};
};

void list_elements(DerWalk& walk, Listing& listing) {
    for (DerElement element; walk.next(element);) {
        listing.indent(3 * element.level);
        listing.add_bytes(element.header, element.headerSize);
        char text[80];
        std::snprintf(text, sizeof text, " #Level=%zu", element.level);
        listing.add(text);
        std::snprintf(text, sizeof text, " length=0x%zx/%zu", element.length, element.length);
        listing.add(element.isIndefinite ? "  (NDEF)" : text);
        listing.end_line();
        if (element.isConstructed)
            continue;
        const unsigned char* content = element.header + element.headerSize;
        for (size_t done = 0; done < element.length; done += kBytesInLine) {
            listing.indent(3 * (element.level + 1));
            listing.add_bytes(content + done, std::min(kBytesInLine, element.length - done));
            listing.end_line();
        }
    }
}

void list(const SecretBytes& bytes, const std::string& name) {
    Listing listing;
    DerWalk walk(bytes, name);
    try {
        list_elements(walk, listing);
    } catch (const Refused&) {
        listing.flush(); // what precedes the damage of an encoding is shown too
        throw;
    }
    listing.flush();
}

JsonObject der_object(const SecretBytes& bytes, const std::string& name) {
    JsonArray elements;
    DerWalk walk(bytes, name);
    for (DerElement element; walk.next(element);) {
        const unsigned char* content = element.header + element.headerSize;
        JsonObject one;
        one.add("level", element.level).add("offset", element.header - bytes.data());
        one.add_hex("header", element.header, element.headerSize);
        one.add("isConstructed", element.isConstructed);
        if (element.isIndefinite)
            one.add_raw("length", "null");
        else
            one.add("length", element.length);
        if (!element.isConstructed)
            one.add_hex("content", content, element.length);
        elements.add(one);
    }
    return JsonObject().add_file("file", name).add("elements", elements);
}

} // namespace

void add_der_command(CLI::App& app) {
    auto file = std::make_shared<std::string>();
    auto json = std::make_shared<bool>(false);
    CLI::App* command = app.add_subcommand("der", "List the elements of an ASN.1 encoding (DER or BER)");
    command->add_option("FILE", *file, "DER, PEM or base64; - for standard input")
        ->required()
        ->option_text(" ");
    add_json_flag(*command, *json);
    command->footer("Of several PEM blocks the first counts. A private key is listed with all its values.\n\n"
                    "Example:\n  zul der server.pem");
    command->callback([file, json] {
        const SecretBytes bytes = binary_content(Input(*file).read_all(), *file);
        if (bytes.empty())
            throw Refused::by_system(NO_DATA_ERROR, *file);
        if (*json)
            print_json(der_object(bytes, *file));
        else
            list(bytes, *file);
    });
}

} // namespace tool
