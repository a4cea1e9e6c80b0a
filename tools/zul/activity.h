#pragma once
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

#include "terminal_style.h"

namespace tool {

// Activity shows that a call of the library is at work, and for how long, if it takes more than a second.
// Nobody may be asked for anything meanwhile.
class Activity {
  public:
    enum class From { later, now };
    explicit Activity(std::string what, From from = From::later);
    Activity(const Activity&) = delete;
    Activity& operator=(const Activity&) = delete;
    ~Activity();

  private:
    void show(std::chrono::milliseconds pause);

    std::string what_;
    StatusLine line_;
    bool isOver_ = false;
    std::mutex mutex_;
    std::condition_variable over_;
    std::thread thread_;
};

} // namespace tool
