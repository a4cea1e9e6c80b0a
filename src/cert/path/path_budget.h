#pragma once
#include <cstddef>
#include <cstdint>

namespace zul {

// PathBudget bounds the work of one check: what the input asks for may grow faster than the input. A cost is
// about a nanosecond.
class PathBudget {
  public:
    static constexpr int kMaxSignatures = 1000;
    static constexpr int64_t kMaxCost = 1'000'000'000;
    // The most that an octet of a Name costs to digest: an attribute of 9 octets is one digest.
    static constexpr int64_t kCostOfNameOctet = 100;

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
    [[nodiscard]] bool take_name(size_t size) { return take(kCostOfNameOctet * static_cast<int64_t>(size)); }
    // take_comparison is for comparing two keys of one size, of which many may be known.
    [[nodiscard]] bool take_comparison(size_t size) { return take(10 + static_cast<int64_t>(size / 16)); }
    bool is_spent() const { return isSpent_ || signatures_ == 0; }
    int signatures() const { return kMaxSignatures - signatures_; } // verified so far

  private:
    int signatures_ = kMaxSignatures;
    int64_t left_ = kMaxCost;
    bool isSpent_ = false;
};

} // namespace zul
