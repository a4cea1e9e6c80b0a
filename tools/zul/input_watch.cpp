#include "input_watch.h"

#include <chrono>
#include <system_error>

#include "failures.h"
#include "operating_system.h"
#include "streams.h"

namespace tool {

namespace {

bool redirect(const std::string& in, const std::string& out) {
    try {
        const Input input(in);
        input.refuse_output(out);
        return input.become_standard_input();
    } catch (const Refused&) { // the library refuses it too, by its name
        return false;
    }
}

} // namespace

InputWatch::InputWatch(const std::string& in, const std::string& out) {
    if (!Progress::is_wanted(in, out))
        return;
    if (!is_standard_stream(in)) {
        hasRedirected_ = redirect(in, out);
        if (!hasRedirected_)
            return;
    }
    progress_.emplace(Input("-"), out);
    try {
        thread_ = std::thread(&InputWatch::watch, this, bytes_left(stdin));
    } catch (const std::system_error&) { // no thread to be had: the work goes on without
    }
}

InputWatch::~InputWatch() {
    if (!thread_.joinable())
        return;
    {
        const std::lock_guard lock(mutex_);
        isOver_ = true;
    }
    over_.notify_one();
    thread_.join();
}

void InputWatch::watch(int64_t left) {
    std::unique_lock lock(mutex_);
    for (std::chrono::milliseconds pause(1000); !over_.wait_for(lock, pause, [this] { return isOver_; });
         pause = std::chrono::milliseconds(250)) {
        const int64_t now = bytes_left(stdin);
        const int64_t read = now >= 0 && now < left ? left - now : 0; // a file may grow
        left -= read;
        progress_->add(static_cast<size_t>(read));
    }
}

} // namespace tool
