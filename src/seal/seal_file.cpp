#include "seal/seal_file.h"

#include <algorithm>

#include "frame/err.h"
#include "frame/text.h"
#include "rng/rng.h"
#include "seal/age_keys.h"
#include "seal/header_open.h"
#include "seal/stanza_scrypt.h"
#include "seal/stanza_x25519.h"
#include "seal/stream_payload.h"
#include "zulcore.h"

namespace zul {
namespace {

// The names of a request: null stands for standard input or output.
struct Names {
    const char *in, *out;

    explicit Names(const SealRequest& request)
        : in((request.options & ZUL_SEAL_STDIN) != 0 ? nullptr : request.fileIn),
          out((request.options & ZUL_SEAL_STDOUT) != 0 ? nullptr : request.fileOut) {}
};

int check_request(const SealRequest& request, int options) {
    if ((request.options & ~options) != 0)
        return err_unknown_option();
    if ((request.options & ZUL_SEAL_STDIN) == 0 && is_missing(request.fileIn))
        return err_fail(BAD_PARAM_ERROR, "The name of the input file is missing");
    if ((request.options & ZUL_SEAL_STDOUT) == 0 && is_missing(request.fileOut))
        return err_fail(BAD_PARAM_ERROR, "The name of the output file is missing");
    return 0;
}

// An identity in the place of a name must not get into a log.
const char* shown(const char* name) {
    constexpr std::string_view kMark = "SECRET-KEY";
    const std::string_view text = name;
    const auto same = [](char c, char mark) { return (c >= 'a' && c <= 'z' ? c - ('a' - 'A') : c) == mark; };
    const bool isKey = std::search(text.begin(), text.end(), kMark.begin(), kMark.end(), same) != text.end();
    return isKey ? "..." : shown_name(name);
}

// The content of large files is not waited for: a crash of the whole system soon afterwards may lose it, as
// that of any file just written.
FileWriter open_output(const Names& names, File& standard) {
    if (names.out == nullptr)
        return FileWriter(std::move(standard));
    return FileWriter(names.out, {.replaces = true, .commits = false});
}

int output_failure(const Names& names, int code) {
    const bool isOpening = code == CREATE_ERROR;
    if (names.out == nullptr)
        return err_fail(code, isOpening ? "Cannot open standard output" : "Cannot write to standard output");
    return err_fail(code, isOpening ? "Cannot create file '%s'" : "Cannot write file '%s'", shown(names.out));
}

// A device named twice has no content to lose; its length is not known.
bool is_output(const File& input, const Names& names, const File& standard) {
    if (platform::file_length(input.handle()) < 0)
        return false;
    return names.out == nullptr ? platform::file_is(input.handle(), standard.handle())
                                : platform::file_is(input.handle(), names.out);
}

// open_files opens the input, and the standard output if that is wanted. The output comes first: an input may
// get the number of a standard output that is closed.
int open_files(File& input, File& standard, const Names& names) {
    if (names.out == nullptr) {
        standard = File(platform::file_standard(platform::Standard::output));
        if (!standard.is_open())
            return output_failure(names, CREATE_ERROR);
    }
    input = names.in == nullptr ? File(platform::file_standard(platform::Standard::input))
                                : File(names.in, platform::OpenMode::read);
    if (!input.is_open())
        return names.in == nullptr ? err_fail(OPEN_ERROR, "Cannot open standard input")
                                   : err_fail(OPEN_ERROR, "Cannot open file '%s'", shown(names.in));
    if (is_output(input, names, standard))
        return err_fail(BAD_PARAM_ERROR, "Output is the input file '%s'",
                        names.in == nullptr ? "(standard input)" : shown_name(names.in));
    return 0;
}

int make_header(AgeHeader& header, const FileKey& fileKey, const AgeKeys& recipients, const char* password) {
    for (size_t i = 0; i < recipients.count(); i++) {
        const int code = x25519_stanza_add(header, recipients.key(i), fileKey);
        if (code == BAD_KEY_ERROR)
            err_add_text("Recipient %u is a key of small order", static_cast<unsigned>(i + 1));
        if (code != 0)
            return code;
    }
    if (recipients.count() == 0)
        if (const int code = scrypt_stanza_add(header, password, fileKey))
            return code;
    header.finish(fileKey);
    return 0;
}

} // namespace

int seal_file(const SealRequest& request) {
    if (const int code = check_request(request, ZUL_SEAL_ARMOUR | ZUL_SEAL_STDIN | ZUL_SEAL_STDOUT))
        return code;
    if (is_missing(request.keys) == is_missing(request.password))
        return err_fail(BAD_PARAM_ERROR, "Either recipients or a password have to be given");
    const Names names(request);
    AgeKeys recipients;
    if (!is_missing(request.keys))
        if (const int code = recipients.read(request.keys, AgeKeyKind::recipient, names.out))
            return code;
    File file, standard;
    if (const int code = open_files(file, standard, names))
        return code;
    FileInput input(std::move(file), names.in);
    FileKey fileKey;
    if (const int code = rng_bytes(fileKey.data(), fileKey.size()))
        return code;
    AgeHeader header;
    if (const int code = make_header(header, fileKey, recipients, request.password))
        return code;
    FileWriter writer = open_output(names, standard);
    if (!writer.is_open())
        return output_failure(names, CREATE_ERROR);
    SealInput plain(input, false);
    SealOutput output(writer, (request.options & ZUL_SEAL_ARMOUR) != 0);
    int code = output.write(header.text().data(), header.text().size()) ? 0 : WRITE_ERROR;
    if (code == 0)
        code = seal_payload(output, plain, fileKey);
    if (code == 0 && !output.finish())
        code = WRITE_ERROR;
    return code == WRITE_ERROR ? output_failure(names, code) : code;
}

int seal_open_file(const SealRequest& request) {
    if (const int code = check_request(request, ZUL_SEAL_STDIN | ZUL_SEAL_STDOUT))
        return code;
    if (is_missing(request.keys) && is_missing(request.password))
        return err_fail(BAD_PARAM_ERROR, "Identities or a password have to be given");
    const Names names(request);
    AgeKeys identities;
    if (!is_missing(request.keys))
        if (const int code = identities.read(request.keys, AgeKeyKind::identity, names.out))
            return code;
    File file, standard;
    if (const int code = open_files(file, standard, names))
        return code;
    FileInput input(std::move(file), names.in);
    SealInput bytes(input, armour_begins(input));
    FileKey fileKey;
    {
        AgeHeader header;
        if (const int code = header.read(bytes))
            return code;
        if (const int code =
                header_open(fileKey, header, identities, request.password == nullptr ? "" : request.password))
            return code;
    }
    FileWriter writer = open_output(names, standard);
    if (!writer.is_open())
        return output_failure(names, CREATE_ERROR);
    int code = open_payload(writer, bytes, fileKey);
    if (code == 0 && !writer.finish())
        code = WRITE_ERROR;
    return code == WRITE_ERROR ? output_failure(names, code) : code;
}

} // namespace zul
