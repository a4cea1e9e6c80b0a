#pragma once
#include "platform/platform.h"

namespace zul {

// PromptClaim is the right to ask the user. One thread has it at a time, since two prompts would share a
// terminal and the module's buffers. A second claim is refused, whether another thread makes it or a message
// that the first prompt dispatches.
class PromptClaim {
  public:
    PromptClaim() : held_(!taken_.exchange(true)) {}
    PromptClaim(const PromptClaim&) = delete;
    PromptClaim& operator=(const PromptClaim&) = delete;
    ~PromptClaim() {
        if (held_)
            platform::end_prompt(taken_);
    }
    bool held() const { return held_; }

  private:
    static inline std::atomic<bool> taken_{false};
    const bool held_;
};

} // namespace zul
