#pragma once
#include <string>

#include "failures.h"
#include "secret_bytes.h"

namespace tool {

// make_context gives a context for data in pieces. begin(memory, size) calls the library's function that
// begins it.
template<class Begin>
SecretBytes make_context(const std::string& subject, Begin begin) {
    SecretBytes context(static_cast<size_t>(accept_length(begin(nullptr, 0), subject)));
    accept_length(begin(context.data(), int_length(context)), subject);
    return context;
}

} // namespace tool
