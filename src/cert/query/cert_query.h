#pragma once
#include "cert/query/query_object.h"
#include "frame/text_buffer.h"

namespace zul {

// cert_query_find gives the query of a word, in any case: 0, BAD_PARAM_ERROR without a word, or
// BAD_QUERY_ERROR with a text that lists the words.
[[nodiscard]] int cert_query_find(WriteAnswer& query, const char* word);

// cert_query answers it for an object: 0, or an error code with a text.
[[nodiscard]] int cert_query(TextBuffer& out, const ObjectEntry& entry, WriteAnswer query);

} // namespace zul
