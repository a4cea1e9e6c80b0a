#pragma once
#include "frame/memory.h"

namespace zul {

// CertificateArguments splits a list of certificate arguments at its ";". Blanks around an argument are left
// out, as are all arguments after the tenth and an empty one after the last ";".
class CertificateArguments {
  public:
    static constexpr int kMaxCount = 10;

    explicit CertificateArguments(const char* list);
    int count() const { return count_; }
    const char* operator[](int i) const { return items_[i]; } // may be empty

  private:
    SecretBuffer text_;
    const char* items_[kMaxCount];
    int count_ = 0;
};

} // namespace zul
