#pragma once
#include "asn1/asn_node.h"

namespace zul {

// AsnLevels is the nesting of the elements that a reader is inside of. Positions are counted from any fixed
// place of the data.
class AsnLevels {
  public:
    enum class Step { good, underflow, mismatch };
    static constexpr int64_t kOpen = -1; // an end that only an end-of-contents marker tells

    uint32_t depth() const { return depth_; }
    bool enter(int64_t end) { // false if that is too deep
        if (depth_ == kAsnMaxDepth)
            return false;
        ends_[depth_++] = end;
        return true;
    }

    // holds tells whether an element that ends at a position lies inside the innermost one.
    bool holds(int64_t end) const {
        return depth_ == 0 || ends_[depth_ - 1] == kOpen || end <= ends_[depth_ - 1];
    }

    // leave goes out of every element that ends at a position, and of one more for an end-of-contents marker:
    // underflow if there is none, mismatch if that has a length, or if an element has been read past its end.
    Step leave(int64_t position, bool marker) {
        while (depth_ > 0 && (ends_[depth_ - 1] == position || marker)) {
            const int64_t end = ends_[--depth_];
            if (end == position)
                continue;
            if (end != kOpen)
                return Step::mismatch;
            marker = false;
        }
        if (marker)
            return Step::underflow;
        return depth_ > 0 && ends_[depth_ - 1] != kOpen && ends_[depth_ - 1] < position ? Step::mismatch
                                                                                        : Step::good;
    }

  private:
    int64_t ends_[kAsnMaxDepth];
    uint32_t depth_ = 0;
};

} // namespace zul
