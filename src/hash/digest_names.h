#pragma once

namespace zul {

// digest_choose gives the number of a digest's name, as name_find does.
[[nodiscard]] int digest_choose(int* algorithm, const char* name);

// digest_choose_for_hmac takes those alone that have an HMAC, and SHA-256 for null or an empty name.
[[nodiscard]] int digest_choose_for_hmac(int* algorithm, const char* name);

} // namespace zul
