#pragma once
#include "seal/age_header.h"
#include "seal/age_keys.h"

namespace zul {

// header_open finds the file key of a header with one of the identities, or with the password, which may be
// empty, and checks the header's MAC. Codes, with a text: BAD_FORMAT_ERROR (a malformed stanza of a known
// type), OUT_OF_RANGE_ERROR (scrypt costs too much), NO_MATCH_ERROR (nothing given fits),
// DECRYPT_ERROR (a wrong password or MAC), MEMORY_ERROR.
[[nodiscard]] int header_open(FileKey& fileKey, const AgeHeader& header, const AgeKeys& identities,
                              std::string_view password);

} // namespace zul
