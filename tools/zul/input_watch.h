#pragma once
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

#include "progress.h"

namespace tool {

// InputWatch shows the progress of a library call that reads a whole input and reports nothing meanwhile: a
// thread asks for the position of standard input. A named file becomes standard input for that.
class InputWatch {
  public:
    InputWatch(const std::string& in, const std::string& out);
    InputWatch(const InputWatch&) = delete;
    InputWatch& operator=(const InputWatch&) = delete;
    ~InputWatch();

    // has_redirected is true if the call has to read standard input in place of the named file.
    bool has_redirected() const { return hasRedirected_; }

  private:
    void watch(int64_t left);

    bool hasRedirected_ = false, isOver_ = false;
    std::optional<Progress> progress_;
    std::mutex mutex_;
    std::condition_variable over_;
    std::thread thread_;
};

} // namespace tool
