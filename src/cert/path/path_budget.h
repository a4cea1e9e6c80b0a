#pragma once
#include <cstdint>

namespace zul {

// PathBudget bounds the work of one check: what the input asks for may grow faster than the input. A cost is
// about a nanosecond.
class PathBudget {
  public:
    static constexpr int kMaxSignatures = 1000;
    static constexpr int64_t kMaxCost = 1'000'000'000;

    // take_signature and take tell whether there is enough left, and take it.
    [[nodiscard]] bool take_signature(int64_t cost) { return signatures_ > 0 && (signatures_--, take(cost)); }
    [[nodiscard]] bool take(int64_t cost) {
        if (cost > left_ || isSpent_) {
            isSpent_ = true;
            return false;
        }
        left_ -= cost;
        return true;
    }
    bool is_spent() const { return isSpent_ || signatures_ == 0; }
    int signatures() const { return kMaxSignatures - signatures_; } // verified so far

  private:
    int signatures_ = kMaxSignatures;
    int64_t left_ = kMaxCost;
    bool isSpent_ = false;
};

} // namespace zul
