#include "failures.h"

#include <cstdlib>

#include "file_names.h"
#include "terminal_style.h"

namespace tool {

namespace {

#define ZUL_ERROR_ROW(code)                                                                                  \
    { code, #code }
constexpr struct {
    int code;
    const char* name;
} kErrors[] = {
    ZUL_ERROR_ROW(SUCCESS_ERROR),
    ZUL_ERROR_ROW(OPEN_ERROR),
    ZUL_ERROR_ROW(CREATE_ERROR),
    ZUL_ERROR_ROW(READ_ERROR),
    ZUL_ERROR_ROW(WRITE_ERROR),
    ZUL_ERROR_ROW(MEMORY_ERROR),
    ZUL_ERROR_ROW(BAD_PARAM_ERROR),
    ZUL_ERROR_ROW(BAD_FORMAT_ERROR),
    ZUL_ERROR_ROW(INVALID_DATA_ERROR),
    ZUL_ERROR_ROW(EOF_ERROR),
    ZUL_ERROR_ROW(OUT_OF_RANGE_ERROR),
    ZUL_ERROR_ROW(DUP_ERROR),
    ZUL_ERROR_ROW(IO_ERROR),
    ZUL_ERROR_ROW(NULL_ERROR),
    ZUL_ERROR_ROW(DECRYPT_ERROR),
    ZUL_ERROR_ROW(EXPIRED_ERROR),
    ZUL_ERROR_ROW(BAD_FLAG_ERROR),
    ZUL_ERROR_ROW(WIPE_ERROR),
    ZUL_ERROR_ROW(NOT_SUPPORTED_ERROR),
    ZUL_ERROR_ROW(NO_DATA_ERROR),
    ZUL_ERROR_ROW(NO_MATCH_ERROR),
    ZUL_ERROR_ROW(SIGNATURE_ERROR),
    ZUL_ERROR_ROW(TEST_FAILED_ERROR),
    ZUL_ERROR_ROW(KEYGEN_FAILED_ERROR),
    ZUL_ERROR_ROW(ISSUER_ERROR),
    ZUL_ERROR_ROW(BAD_LENGTH_ERROR),
    ZUL_ERROR_ROW(BAD_XML_ERROR),
    ZUL_ERROR_ROW(MSG_TOO_LONG_ERROR),
    ZUL_ERROR_ROW(BAD_QUERY_ERROR),
    ZUL_ERROR_ROW(SHORT_BUF_ERROR),
    ZUL_ERROR_ROW(BAD_KEY_LEN_ERROR),
    ZUL_ERROR_ROW(BAD_BLK_LEN_ERROR),
    ZUL_ERROR_ROW(BAD_MODE_ERROR),
    ZUL_ERROR_ROW(BAD_KEY_ERROR),
    ZUL_ERROR_ROW(BAD_IV_ERROR),
    ZUL_ERROR_ROW(PRNG_ERR_FILE_OPEN),
    ZUL_ERROR_ROW(PRNG_ERR_FILE_CREATE),
    ZUL_ERROR_ROW(PRNG_ERR_FILE_READ),
    ZUL_ERROR_ROW(PRNG_ERR_FILE_WRITE),
    ZUL_ERROR_ROW(PRNG_ERR_FILE_LOCK),
    ZUL_ERROR_ROW(PRNG_ERR_UNINST),
    ZUL_ERROR_ROW(PRNG_ERR_TOOBIG),
    ZUL_ERROR_ROW(PRNG_ERR_FAILURE),
    ZUL_ERROR_ROW(PRNG_ERR_BADPARAM),
    ZUL_ERROR_ROW(PRNG_ERR_NOTAVAIL),
    ZUL_ERROR_ROW(PRNG_ERR_CATASTROPHIC),
    ZUL_ERROR_ROW(MISC_ERROR),
};
#undef ZUL_ERROR_ROW

std::string joined(int code, const std::string& added) {
    const std::string meaning = error_text(code);
    if (added.starts_with(meaning)) // the library repeats it at times
        return added;
    return meaning + (added.empty() ? "" : "; " + added);
}

std::string one_text(int code, const std::string& subject, const std::string& meaning,
                     const std::string& hint) {
    return subject + ": error " + std::to_string(code) + ": " + meaning +
           (hint.empty() ? "" : "\n     " + hint);
}

std::vector<std::string>& all_warnings() {
    static std::vector<std::string> texts;
    return texts;
}

} // namespace

std::string last_error() {
    const int length = ZUL_LastError(nullptr, 0);
    if (length <= 0)
        return {};
    std::string text(static_cast<size_t>(length), '\0'); // its own NUL is the room for the terminator
    ZUL_LastError(text.data(), length);
    // A few of the library's texts end with a line feed, and another may follow.
    for (size_t at = text.find('\n'); at != text.npos; at = text.find('\n', at))
        if (at + 1 == text.size() || text[at + 1] == ';')
            text.erase(at, 1);
        else
            ++at;
    return text;
}

std::string error_text(int code) {
    const int length = ZUL_ErrorLookup(nullptr, 0, code);
    if (length <= 0)
        return {};
    std::string text(static_cast<size_t>(length), '\0');
    ZUL_ErrorLookup(text.data(), length + 1, code);
    return text;
}

std::string error_name(int code) {
    for (const auto& row : kErrors)
        if (row.code == code)
            return row.name;
    return {};
}

Refused::Refused(int code, const std::string& subject, const std::string& added, const std::string& hint)
    : std::runtime_error(one_text(code, shown_name(subject), joined(code, added), hint)), code_(code),
      subject_(shown_name(subject)), meaning_(joined(code, added)), hint_(hint) {}

Refused Refused::by_library(int result, const std::string& subject, const std::string& hint) {
    return Refused(std::abs(result), subject, last_error(), hint);
}

Refused Refused::by_system(int code, const std::string& subject, const std::string& hint) {
    return Refused(code, subject, {}, hint);
}

int accept_length(int result, const std::string& subject, const std::string& hint) {
    if (result < 0)
        throw Refused::by_library(result, subject, hint);
    return result;
}

void accept_status(int result, const std::string& subject, const std::string& hint) {
    if (result != 0)
        throw Refused::by_library(result, subject, hint);
}

void print_error(const char* text) {
    std::fprintf(stderr, "%s %s\n", styled(Style::error, "zul:", stderr).c_str(), text);
}

void warn(const std::string& text) {
    all_warnings().push_back(text);
    std::fprintf(stderr, "%s %s\n", styled(Style::warning, "zul: warning:", stderr).c_str(), text.c_str());
}

void warn_of_secret(const std::string& option, const std::string& instead) {
    static bool isDone = false;
    const char* allowed = std::getenv("ZUL_ALLOW_ARGUMENT_SECRETS");
    if (isDone || (allowed != nullptr && std::string_view(allowed) == "1"))
        return;
    isDone = true;
    warn("other users can see what stands after " + option + ", and the shell's history keeps it; " +
         instead + " keeps it secret");
}

const std::vector<std::string>& warnings() {
    return all_warnings();
}

std::string in_quotes(std::string_view text) {
    return "'" + std::string(text) + "'";
}

} // namespace tool
