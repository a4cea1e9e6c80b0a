#include "progress.h"

#include <cstdio>
#include <filesystem>
#include <system_error>

#include "operating_system.h"
#include "streams.h"

namespace tool {

namespace {

bool is_watched(const std::string& out) {
    return errors_are_terminal() && !(is_standard_stream(out) && output_is_terminal());
}

} // namespace

bool Progress::is_wanted(const std::string& in, const std::string& out) {
    constexpr int64_t kLarge = int64_t{16} << 20; // less is read within the second in which nothing shows
    if (!is_watched(out) || !(is_standard_stream(in) || is_on_disk(in)))
        return false;
    std::error_code error;
    const auto size = is_standard_stream(in)
                          ? bytes_left(stdin)
                          : static_cast<int64_t>(std::filesystem::file_size(path_of(in), error));
    return !error && size >= kLarge;
}

Progress::Progress(const Input& input, const std::string& out)
    : isShown_(is_watched(out)), total_(input.bytes_left()) {}

Progress::~Progress() {
    if (width_ == 0)
        return;
    const std::string wiped = "\r" + std::string(width_, ' ') + "\r";
    std::fwrite(wiped.data(), 1, wiped.size(), stderr);
}

void Progress::add(size_t bytes) {
    done_ += static_cast<int64_t>(bytes);
    if (!isShown_)
        return;
    const Clock::time_point now = Clock::now();
    if (now >= next_)
        show(now);
}

void Progress::show(Clock::time_point now) {
    constexpr auto kInterval = std::chrono::milliseconds(250);
    constexpr int64_t kMegabyte = 1000000;
    next_ = now + kInterval;
    const int64_t milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(now - begin_).count();
    const bool isKnown = total_ > 0 && done_ <= total_; // a file may have grown
    std::string line =
        isKnown ? std::to_string(done_ * 100 / total_) + " %" : std::to_string(done_ / kMegabyte) + " MB";
    line += ", " + std::to_string(done_ / (kMegabyte / 1000) / milliseconds) + " MB/s";
    const size_t width = line.size();
    if (width < width_)
        line.append(width_ - width, ' ');
    width_ = line.size();
    line.insert(0, 1, '\r');
    std::fwrite(line.data(), 1, line.size(), stderr);
}

} // namespace tool
