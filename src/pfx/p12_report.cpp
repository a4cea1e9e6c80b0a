#include "pfx/p12_report.h"

#include <cstdio>

#include "encode/hex.h"
#include "pfx/p12_text.h"

namespace zul {

void P12Report::put_number(size_t value) {
    char digits[24];
    snprintf(digits, sizeof digits, "%lu", static_cast<unsigned long>(value));
    put(digits);
}

void P12Report::put_name(const char* name) {
    put("\"");
    put(name);
    put("\":");
}

void P12Report::head(unsigned version) {
    put(isJson_ ? "{\"version\":" : "PKCS #12 version ");
    put_number(version);
    put(isJson_ ? "" : "\n");
}

void P12Report::finish() {
    put(isJson_ ? "}\n" : "");
}

void P12Report::begin_array(const char* name) {
    if (!isJson_)
        return;
    put(",");
    put_name(name);
    put("[");
    isFirst_ = true;
}

void P12Report::end_array() {
    put(isJson_ ? "]" : "");
}

void P12Report::begin(const char* title, const char* name) {
    if (isJson_) {
        put(",");
        put_name(name);
        put("{");
    } else {
        put(title);
        put(":");
    }
    isFirst_ = true;
}

void P12Report::begin(const char* title, size_t number) {
    if (isJson_) {
        put(isFirst_ ? "{" : ",{");
        put_name("number");
        put_number(number);
        isFirst_ = false;
        return;
    }
    put(title);
    put(" ");
    put_number(number);
    put(":");
    isFirst_ = true;
}

void P12Report::end() {
    put(isJson_ ? "}" : "\n");
    isFirst_ = false;
}

void P12Report::no_record(const char* title, const char* name) {
    if (isJson_) {
        put(",");
        put_name(name);
        put("null");
    } else {
        put(title);
        put(": none\n");
    }
}

void P12Report::field(const char* name) {
    if (isJson_) {
        put(isFirst_ ? "" : ",");
        put_name(name);
    } else {
        put(isFirst_ ? " " : ", ");
        put(name);
        put("=");
    }
    isFirst_ = false;
}

void P12Report::word(const char* name, const char* value) {
    if (*value == '\0')
        return;
    field(name);
    put(isJson_ ? "\"" : "");
    put(value);
    put(isJson_ ? "\"" : "");
}

void P12Report::quoted(const char* name, std::string_view value) {
    field(name);
    append_quoted(text_, value);
}

void P12Report::hex(const char* name, const SecretBuffer& value) {
    SecretBuffer digits(2 * value.size() + 1);
    hex_encode(digits.text(), digits.size(), value.data(), value.size());
    word(name, digits.text());
}

void P12Report::number(const char* name, size_t value) {
    field(name);
    put_number(value);
}

void P12Report::flag(const char* name, bool value) {
    field(name);
    if (isJson_)
        put(value ? "true" : "false");
    else
        put(value ? "yes" : "no");
}

} // namespace zul
