#pragma once
#include <chrono>
#include <cstdint>
#include <string>

#include "terminal_style.h"

namespace tool {

class Input;

// Progress shows how much of an input was processed, how fast, and how long the rest takes: only at a
// terminal, and only once the work has taken a second.
class Progress {
  public:
    // out is what the data goes to: nothing is shown among data on the terminal.
    explicit Progress(const Input& input, const std::string& out = {});

    // is_wanted tells whether the progress of reading a regular file would be seen: it is large, and standard
    // error a terminal.
    static bool is_wanted(const std::string& in, const std::string& out = {});

    void add(size_t bytes);

  private:
    using Clock = std::chrono::steady_clock;
    std::string text(Clock::time_point now, size_t room) const;

    StatusLine line_;
    bool isShown_;
    int64_t total_, done_ = 0; // a total of 0 or less is not known
    Clock::time_point begin_ = Clock::now(), next_ = begin_ + std::chrono::seconds(1);
};

} // namespace tool
