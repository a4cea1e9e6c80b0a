#pragma once
#include <cstddef>
#include <cstdint>

namespace zul {

// Error codes live in include/zulcore.h. Inside the library they are positive. The few functions that return
// a length give the code negated, and say so.

// err_clear empties the calling thread's error text and code.
void err_clear();

// err_record keeps the absolute value of a nonzero code if the thread has none yet; returns code unchanged.
int err_record(int code);
int err_code();
const char* err_text();

// err_set_text replaces the thread's error text, err_add_text appends to it after "; ". The whole is at most
// 511 characters; the rest is cut.
void err_set_text(const char* format, ...) __attribute__((format(printf, 1, 2)));
void err_add_text(const char* format, ...) __attribute__((format(printf, 1, 2)));

// err_fail adds a text and returns the code, which it leaves unrecorded.
[[nodiscard]] int err_fail(int code, const char* format, ...) __attribute__((format(printf, 2, 3)));
[[nodiscard]] int err_invalid_data(const char* text); // with INVALID_DATA_ERROR
// Failures that many exports share, each with its text.
[[nodiscard]] int err_missing_argument();        // BAD_PARAM_ERROR
[[nodiscard]] int err_unknown_option();          // BAD_FLAG_ERROR
[[nodiscard]] int err_short_room(size_t needed); // SHORT_BUF_ERROR
[[nodiscard]] int err_unknown_context();         // INVALID_DATA_ERROR

} // namespace zul
