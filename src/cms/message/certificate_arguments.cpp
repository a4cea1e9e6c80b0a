#include "cms/message/certificate_arguments.h"

#include <cstring>
#include <string_view>

#include "frame/slice.h"

namespace zul {

CertificateArguments::CertificateArguments(const char* list) {
    std::string_view rest(list);
    if (rest.size() > kMaxAllocation - 1) // a list that cannot be copied has nothing
        return;
    text_ = SecretBuffer(rest.size() + 1);
    memcpy(text_.data(), list, rest.size());
    for (rest = {text_.text(), rest.size()}; count_ < kMaxCount;) {
        const size_t end = rest.find(';');
        const std::string_view item = trimmed(slice(rest, 0, end));
        if (end == std::string_view::npos && item.empty())
            break;
        // Each ends in the place of a blank or ";" behind it, or of the NUL behind all.
        char* const start = item.empty() ? nullptr : text_.text() + (item.data() - text_.text());
        if (start != nullptr)
            start[item.size()] = '\0';
        items_[count_++] = start == nullptr ? "" : start;
        if (end == std::string_view::npos)
            break;
        rest.remove_prefix(end + 1);
    }
}

} // namespace zul
