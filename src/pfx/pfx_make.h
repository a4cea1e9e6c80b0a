#pragma once

namespace zul {

struct PfxOrder {
    const char* newFile;
    const char* certFile;
    const char* keyFile;      // an encrypted private key; empty: none
    const char* password;     // of the key and of the MAC; empty: no key either
    const char* friendlyName; // may be empty
    int options;
};

// pfx_make makes a PFX file of a certificate and perhaps its key: 0 or a positive code with a text.
[[nodiscard]] int pfx_make(const PfxOrder& order);

} // namespace zul
