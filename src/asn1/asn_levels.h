#pragma once
#include "asn1/asn_node.h"

namespace zul {

// AsnLevels keeps the ends of the elements that a reader is inside of. Positions count from any fixed place
// of the data.
class AsnLevels {
  public:
    enum class Step { good, underflow, mismatch };
    static constexpr int64_t kOpen = -1; // an end that only an end-of-contents marker tells

    uint32_t depth() const { return depth_; }
    bool enter(int64_t end) { // false if that is too deep
        if (depth_ == kAsnMaxDepth)
            return false;
        const int64_t limit = depth_ == 0 ? kNoLimit : limits_[depth_ - 1];
        limits_[depth_] = end == kOpen ? limit : end;
        ends_[depth_++] = end;
        return true;
    }

    // holds tells whether an element that ends at a position lies inside all those of a known end.
    bool holds(int64_t end) const { return depth_ == 0 || end <= limits_[depth_ - 1]; }

    // leave goes out of the element that an end-of-contents marker ends, and then of every one that ends at a
    // position: underflow if the marker ends none, mismatch if it stands in one that has a length, or if an
    // element has been read past its end.
    Step leave(int64_t position, bool marker) {
        const bool endsOpen = marker && depth_ > 0 && ends_[depth_ - 1] == kOpen;
        if (endsOpen)
            depth_--;
        while (depth_ > 0 && ends_[depth_ - 1] == position)
            depth_--;
        if (marker && !endsOpen)
            return depth_ == 0 ? Step::underflow : Step::mismatch;
        return holds(position) ? Step::good : Step::mismatch;
    }

  private:
    static constexpr int64_t kNoLimit = INT64_MAX;

    int64_t ends_[kAsnMaxDepth];
    int64_t limits_[kAsnMaxDepth]; // the nearest known end of an element or of one around it
    uint32_t depth_ = 0;
};

} // namespace zul
