#pragma once

namespace zul {

// SealRequest holds the arguments of SEAL_File or SEAL_OpenFile.
struct SealRequest {
    const char *fileOut, *fileIn;
    const char* keys; // recipients or identities
    const char* password;
    int options;
};

// seal_file and seal_open_file give 0, or a code with a text as the exports document them.
[[nodiscard]] int seal_file(const SealRequest& request);
[[nodiscard]] int seal_open_file(const SealRequest& request);

} // namespace zul
