#pragma once

namespace zul {

// digest_choose gives the number of a digest's name, as name_find does.
[[nodiscard]] int digest_choose(int* algorithm, const char* name);

// digest_choice_name gives the name of a digest's number that digest_choose takes.
const char* digest_choice_name(int algorithm);

// digest_choose_for_hmac takes those alone that have an HMAC, and SHA-256 for null or an empty name.
[[nodiscard]] int digest_choose_for_hmac(int* algorithm, const char* name);

} // namespace zul
