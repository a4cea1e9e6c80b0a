#include "activity.h"

#include <system_error>

namespace tool {

Activity::Activity(std::string what, From from) : what_(std::move(what)) {
    if (!line_.is_usable())
        return;
    const std::chrono::milliseconds pause(from == From::now ? 0 : 1000);
    try {
        thread_ = std::thread(&Activity::show, this, pause);
    } catch (const std::system_error&) { // no thread to be had: the work goes on without
    }
}

Activity::~Activity() {
    if (!thread_.joinable())
        return;
    {
        const std::lock_guard lock(mutex_);
        isOver_ = true;
    }
    over_.notify_one();
    thread_.join();
}

void Activity::show(std::chrono::milliseconds pause) {
    using Clock = std::chrono::steady_clock;
    const Clock::time_point begin = Clock::now();
    std::unique_lock lock(mutex_);
    for (size_t turn = 0; !over_.wait_for(lock, pause, [this] { return isOver_; }); ++turn) {
        const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - begin).count();
        line_.show(std::string(1, "|/-\\"[turn % 4]) + " " + what_ + ", " + std::to_string(seconds) + " s");
        pause = std::chrono::milliseconds(125);
    }
}

} // namespace tool
