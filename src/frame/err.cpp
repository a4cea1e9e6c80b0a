#include "frame/err.h"

#include <cstdarg>
#include <cstdio>

#include "frame/text.h"
#include "frame/thread_record.h"
#include "frame/wipe.h"
#include "zulcore.h"

namespace zul {

// The whole room is wiped, since a longer text may have stood in it. If the text is
// empty, the room is already wiped.
static void clear_text(ThreadRecord& record) {
    if (record.errorText[0] != '\0')
        wipe_bytes(record.errorText, sizeof record.errorText);
}

void err_clear() {
    ThreadRecord* record = thread_record(RecordPath::error);
    clear_text(*record);
    record->errorCode = 0;
}

int err_record(int code) {
    if (code != 0) {
        ThreadRecord* record = thread_record(RecordPath::error);
        if (record->errorCode == 0)
            record->errorCode = code < 0 ? -code : code;
    }
    return code;
}

int err_code() {
    return thread_record(RecordPath::error)->errorCode;
}

const char* err_text() {
    return thread_record(RecordPath::error)->errorText;
}

void err_set_text(const char* format, ...) {
    va_list arguments;
    ThreadRecord* record = thread_record(RecordPath::error);
    clear_text(*record);
    va_start(arguments, format);
    vsnprintf(record->errorText, kErrorTextSize, format, arguments);
    va_end(arguments);
}

static void add_text(const char* format, va_list arguments) __attribute__((format(printf, 1, 0)));

static void add_text(const char* format, va_list arguments) {
    Wiped<char[kErrorTextSize]> addition;
    vsnprintf(*addition, kErrorTextSize, format, arguments);

    char* text = thread_record(RecordPath::error)->errorText;
    if (text[0] != '\0')
        str_append(text, "; ", kErrorTextSize);
    str_append(text, *addition, kErrorTextSize);
}

void err_add_text(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    add_text(format, arguments);
    va_end(arguments);
}

int err_fail(int code, const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    add_text(format, arguments);
    va_end(arguments);
    return code;
}

int err_invalid_data(const char* text) {
    return err_fail(INVALID_DATA_ERROR, "%s", text);
}

int err_missing_argument() {
    return err_fail(BAD_PARAM_ERROR, "An argument is missing, or a length is negative");
}

int err_unknown_option() {
    return err_fail(BAD_FLAG_ERROR, "Unknown option");
}

int err_short_room(size_t needed) {
    return err_fail(SHORT_BUF_ERROR, "The output needs room for %d", static_cast<int>(needed));
}

int err_unknown_context() {
    return err_fail(INVALID_DATA_ERROR, "Not a context of this kind that was begun and has not ended");
}

} // namespace zul
