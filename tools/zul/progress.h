#pragma once
#include <chrono>
#include <cstdint>
#include <string>

namespace tool {

class Input;

// Progress shows on standard error how much of an input was processed, in one line that is wiped at the end:
// only at a terminal, and only once the work has taken a second.
class Progress {
  public:
    // out is what the data goes to: nothing is shown among data on the terminal.
    explicit Progress(const Input& input, const std::string& out = {});
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress();

    // is_wanted tells whether the progress of reading a regular file would be seen: it is large, and standard
    // error a terminal.
    static bool is_wanted(const std::string& in, const std::string& out = {});

    void add(size_t bytes);

  private:
    using Clock = std::chrono::steady_clock;
    void show(Clock::time_point now);

    bool isShown_;
    int64_t total_, done_ = 0; // a total of 0 or less is not known
    Clock::time_point begin_ = Clock::now(), next_ = begin_ + std::chrono::seconds(1);
    size_t width_ = 0; // of the line on the terminal
};

} // namespace tool
