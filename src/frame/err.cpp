#include "frame/err.h"

#include <cstdarg>
#include <cstdio>

#include "frame/text.h"
#include "frame/thread_record.h"

namespace zul {

void err_clear() {
    ThreadRecord* record = thread_record(RecordPath::error);
    record->errorText[0] = '\0';
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
    va_start(arguments, format);
    vsnprintf(thread_record(RecordPath::error)->errorText, kErrorTextSize, format, arguments);
    va_end(arguments);
}

static void add_text(const char* format, va_list arguments) __attribute__((format(printf, 1, 0)));

static void add_text(const char* format, va_list arguments) {
    char addition[kErrorTextSize];
    vsnprintf(addition, sizeof addition, format, arguments);

    char* text = thread_record(RecordPath::error)->errorText;
    if (text[0] != '\0')
        str_append(text, "; ", kErrorTextSize);
    str_append(text, addition, kErrorTextSize);
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

} // namespace zul
