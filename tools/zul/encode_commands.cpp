#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <utility>

#include "armour.h"
#include "commands.h"
#include "failures.h"
#include "letters.h"
#include "streams.h"

namespace tool {

namespace {

enum class Format { hex, base64, pem };

Format find_format(const std::string& name) {
    const std::string lower = lower_ascii(name);
    if (lower == "hex")
        return Format::hex;
    if (lower == "base64" || lower == "b64")
        return Format::base64;
    if (lower == "pem")
        return Format::pem;
    throw UsageError("unknown format " + in_quotes(name) + "; formats: hex, base64, pem");
}

// LineWriter breaks a stream of characters into lines.
class LineWriter {
  public:
    LineWriter(Output& output, size_t width, std::string_view lineEnd)
        : output_(output), width_(width), lineEnd_(lineEnd) {}

    void write(std::string_view text) {
        while (!text.empty()) {
            if (column_ == width_)
                end_line();
            const size_t step = std::min(text.size(), width_ - column_);
            line_.append(text.substr(0, step));
            column_ += step;
            text.remove_prefix(step);
        }
    }
    void finish() {
        if (column_ > 0)
            end_line();
        flush();
    }

  private:
    void end_line() {
        line_ += lineEnd_;
        column_ = 0;
        if (line_.size() >= kChunk)
            flush();
    }
    void flush() {
        output_.write(line_);
        line_.clear();
    }

    Output& output_;
    size_t width_;
    std::string_view lineEnd_;
    std::string line_;
    size_t column_ = 0;
};

// encode_body streams the input through one of the library's encoders, a multiple of three bytes at a time.
void encode_body(Input& input, LineWriter& lines, Format format) {
    static_assert(kChunk % 3 == 0);
    SecretBytes text(2 * kChunk + 1);
    auto* characters = reinterpret_cast<char*>(text.data());
    const auto encoder = format == Format::hex ? CNV_HexStrFromBytes : CNV_B64StrFromBytes;
    input.each_piece([&](const unsigned char* piece, size_t size) {
        const int length = encoder(characters, int_length(text) - 1, piece, static_cast<int>(size));
        lines.write({characters, static_cast<size_t>(accept_length(length, "encode"))});
        return true;
    });
}

struct EncodeCommand {
    std::string format, in, out, label = "DATA";
    unsigned lineLength = 0;

    void run() const {
        const Format kind = find_format(format);
        refuse_same_file(in, out);
        const bool isPem = kind == Format::pem, hasLabel = isPem && !label.empty();
        size_t width = lineLength == 0 ? ~size_t{0} : lineLength;
        if (isPem)
            width = lineLength < 4 ? 64 : lineLength / 4 * 4;
        Input input(in);
        Output output(out);
        if (hasLabel)
            output.write("-----BEGIN " + label + "-----\r\n");
        LineWriter lines(output, width, isPem ? "\r\n" : "\n");
        encode_body(input, lines, kind);
        lines.finish();
        if (hasLabel)
            output.write("-----END " + label + "-----\r\n");
        output.finish();
    }
};

struct DecodeCommand {
    std::string format, in, out;

    void run() const {
        const Format kind = find_format(format);
        refuse_same_file(in, out);
        SecretBytes text = Input(in).read_all();
        if (kind == Format::pem)
            pem_body(text, in);
        const SecretBytes bytes = decode_text(std::move(text), kind == Format::hex, in);
        write_file(out, bytes);
    }
};

} // namespace

void add_encode_commands(CLI::App& app) {
    auto encode = std::make_shared<EncodeCommand>();
    CLI::App* command = app.add_subcommand("encode", "Turn a file into hex, base64 or PEM text");
    command->add_option("FORMAT", encode->format, "hex, base64 or pem")->required()->option_text(" ");
    command->add_option("IN", encode->in, "Input file; - for standard input")->required()->option_text(" ");
    command->add_option("OUT", encode->out, "Output file; - for standard output")
        ->required()
        ->option_text(" ");
    command
        ->add_option("--label", encode->label,
                     "The words after BEGIN and END in pem (DATA); empty for no such lines")
        ->type_name("TEXT");
    command
        ->add_option(
            "--line-length", encode->lineLength,
            "Characters in a line; pem: a multiple of 4 (64), hex and base64: all in one line unless given")
        ->check(CLI::Range(0U, 1000000U))
        ->option_text("N");
    command->footer("Example:\n  zul encode pem --label CERTIFICATE server.der server.pem");
    command->callback([encode] { encode->run(); });

    auto decode = std::make_shared<DecodeCommand>();
    command = app.add_subcommand("decode", "Turn hex, base64 or PEM text back into bytes");
    command->add_option("FORMAT", decode->format, "hex, base64 or pem")->required()->option_text(" ");
    command->add_option("IN", decode->in, "Input file; - for standard input")->required()->option_text(" ");
    command->add_option("OUT", decode->out, "Output file; - for standard output")
        ->required()
        ->option_text(" ");
    command->footer(
        "base64 may be base64url (RFC 4648: - and _ for + and /). Other characters are skipped. Of several\n"
        "PEM blocks the first counts.\n\n"
        "Example:\n  zul decode base64 mail.txt picture.png");
    command->callback([decode] { decode->run(); });
}

} // namespace tool
