#include "frame/text.h"

#include <algorithm>
#include <climits>
#include <cstring>

namespace zul {

bool may_be_name(std::string_view text, size_t longest) {
    return text.size() <= longest && text.find_first_of("\r\n") == std::string_view::npos;
}

const char* shown_name(const char* text, size_t longest) {
    return may_be_name(text, longest) ? text : "...";
}

int str_length(const char* text) {
    if (text == nullptr)
        return 0;
    return static_cast<int>(std::min<size_t>(strlen(text), INT_MAX));
}

int str_copy(char* dest, const char* src, int size) {
    if (dest == nullptr || src == nullptr || size <= 0)
        return 0;
    const int length = str_length(src);
    const int copied = std::min(length, size - 1);
    memcpy(dest, src, static_cast<size_t>(copied));
    dest[copied] = '\0';
    return length;
}

int str_append(char* dest, const char* src, int size) {
    if (dest == nullptr || src == nullptr || size <= 0)
        return 0;
    const int before = str_length(dest);
    const int length = str_length(src);
    if (before < size)
        str_copy(dest + before, src, size - before);
    return length > INT_MAX - before ? INT_MAX : before + length;
}

int text_result(char* out, int room, const char* text) {
    const int length = str_length(text);
    if (out == nullptr || room <= 0)
        return length;
    const int copied = std::min(length, room);
    memcpy(out, text, static_cast<size_t>(copied));
    out[copied] = '\0';
    return copied;
}

} // namespace zul
