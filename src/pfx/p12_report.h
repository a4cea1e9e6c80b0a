#pragma once
#include <string_view>

#include "frame/memory.h"

namespace zul {

// P12Report writes records of fields: as lines "Title: field=value, field=value", or as a JSON object of
// objects and arrays.
class P12Report {
  public:
    explicit P12Report(bool isJson) : isJson_(isJson) {}

    // head begins the report with the version of the file; finish ends it.
    void head(unsigned version);
    void finish();

    // begin and end enclose a record. A numbered one belongs to an array, which begin_array and end_array
    // enclose.
    void begin_array(const char* name);
    void end_array();
    void begin(const char* title, const char* name);
    void begin(const char* title, size_t number);
    void end();
    void no_record(const char* title, const char* name); // "none", or null

    // Fields. A word is plain ASCII; a quoted text may be anything. Empty words are left out.
    void word(const char* name, const char* value);
    void quoted(const char* name, std::string_view value);
    void hex(const char* name, const SecretBuffer& value);
    void number(const char* name, size_t value);
    void flag(const char* name, bool value);

    const SecretBuffer& text() const { return text_; }

  private:
    void put(std::string_view text) { text_.append(text.data(), text.size()); }
    void put_number(size_t value);
    void put_name(const char* name); // of a member, with what separates it from the one before
    void field(const char* name);

    bool isJson_, isFirst_ = true;
    SecretBuffer text_;
};

} // namespace zul
