#pragma once
#include "bignum/mp.h"

namespace zul {

// MpScratch owns the working space of one operation, zero at the start and wiped at its end, and hands it out
// from the front.
class MpScratch {
  public:
    explicit MpScratch(size_t size) : digits_(mpAlloc(size)), size_(size) {}
    MpScratch(const MpScratch&) = delete;
    MpScratch& operator=(const MpScratch&) = delete;
    ~MpScratch() { mpFree(&digits_, size_); }

    DIGIT_T* take(size_t n) {
        DIGIT_T* part = digits_ + used_;
        used_ += n;
        return part;
    }

  private:
    DIGIT_T* digits_;
    size_t size_;
    size_t used_ = 0;
};

} // namespace zul
