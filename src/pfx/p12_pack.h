#pragma once

namespace zul {

struct P12PackOrder {
    const char* newFile;
    const char *certs, *privateKey; // each may be empty, but not both
    const char* password;
    const char* name; // may be empty
    int options;
};

// p12_pack writes a PKCS #12 file: 0 or a positive code with a text.
[[nodiscard]] int p12_pack(const P12PackOrder& order);

} // namespace zul
