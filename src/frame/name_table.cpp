#include "frame/name_table.h"

#include "frame/err.h"
#include "frame/text.h"
#include "zulcore.h"

namespace zul {

static bool is_same_name(const char* lowerCase, const char* text) {
    for (;; lowerCase++, text++) {
        const char c = *text >= 'A' && *text <= 'Z' ? static_cast<char>(*text - 'A' + 'a') : *text;
        if (c != *lowerCase)
            return false;
        if (c == '\0')
            return true;
    }
}

int name_find(const NameRow* rows, size_t count, const char* text, int* value) {
    for (size_t i = 0; i < count && text != nullptr; i++) {
        if (is_same_name(rows[i].name, text)) {
            *value = rows[i].value;
            return 0;
        }
    }
    char known[400] = "";
    for (size_t i = 0; i < count; i++) {
        if (!rows[i].isAlias) {
            str_append(known, *known == '\0' ? "" : ", ", sizeof known);
            str_append(known, rows[i].name, sizeof known);
        }
    }
    if (is_missing(text))
        return err_fail(BAD_PARAM_ERROR, "Missing algorithm (known: %s)", known);
    return err_fail(NOT_SUPPORTED_ERROR, "Unknown algorithm '%s' (known: %s)", shown_name(text), known);
}

} // namespace zul
