#pragma once
#include <cstdint>

#include "frame/memory.h"

namespace zul {

// P12Password holds the encodings that a password may have had when a file was made, the usual one first. The
// text is UTF-8, or Latin-1 if it is no UTF-8; null is the empty password.
//
// The derivation of PKCS #12 takes a BMPString with its NUL (RFC 7292, appendix B.1). Some programs encode
// the empty password as no bytes, and some widen each byte of a password whatever its encoding. PBES2 and
// PBMAC1 take the text as UTF-8 (RFC 9579, 5), and programs that do not convert it take it as it is.
class P12Password {
  public:
    static constexpr size_t kMaxForms = 2;
    explicit P12Password(const char* text);

    // fits tells whether a text is short enough to derive a key from.
    static bool fits(const char* text);

    size_t wide_forms() const { return wideForms_; }
    const SecretBuffer& wide(size_t form) const { return wide_[form]; }
    size_t byte_forms() const { return byteForms_; }
    const SecretBuffer& bytes(size_t form) const { return bytes_[form]; } // a NUL stands behind them

    // prefer_... makes a form the first one: what has proved right once is tried first.
    void prefer_wide(size_t form) { swap(wide_, form); }
    void prefer_bytes(size_t form) { swap(bytes_, form); }

  private:
    static void swap(SecretBuffer (&forms)[kMaxForms], size_t form) {
        if (form != 0)
            forms[0] = std::move(forms[form]); // which swaps the two
    }

    SecretBuffer wide_[kMaxForms], bytes_[kMaxForms];
    size_t wideForms_ = 1, byteForms_ = 1;
};

} // namespace zul
