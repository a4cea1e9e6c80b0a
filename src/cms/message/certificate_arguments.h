#pragma once
#include "frame/memory.h"

namespace zul {

// CertificateArguments takes a list of certificate arguments apart at its ";". Blanks around one are left
// out, what follows the tenth is too, and so is nothing behind a last ";".
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
