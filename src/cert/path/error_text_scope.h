#pragma once
#include "frame/err.h"
#include "frame/text.h"
#include "frame/wipe.h"

namespace zul {

// ErrorTextScope puts the thread's error text back at its end: what is read or verified only to see whether
// it serves may fail.
class ErrorTextScope {
  public:
    ErrorTextScope() { str_append(*text_, err_text(), sizeof *text_); }
    ErrorTextScope(const ErrorTextScope&) = delete;
    ErrorTextScope& operator=(const ErrorTextScope&) = delete;
    ~ErrorTextScope() { err_set_text("%s", *text_); }

  private:
    Wiped<char[512]> text_;
};

} // namespace zul
