#include "progress.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "operating_system.h"
#include "streams.h"

namespace tool {

namespace {

bool is_watched(const std::string& out) {
    return StatusLine::is_possible() && !(is_standard_stream(out) && output_is_terminal());
}

std::string two_digits(int64_t number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

std::string duration(int64_t seconds) {
    const int64_t hours = seconds / 3600, minutes = seconds / 60 % 60;
    return (hours > 0 ? std::to_string(hours) + ":" + two_digits(minutes) : std::to_string(minutes)) + ":" +
           two_digits(seconds % 60);
}

// amount gives bytes in a unit that leaves two or three digits.
std::string amount(int64_t bytes) {
    static constexpr const char* kUnits[] = {" kB", " MB", " GB"};
    int64_t tenths = bytes / 100;
    size_t unit = 0;
    for (; tenths >= 10000 && unit + 1 < std::size(kUnits); ++unit)
        tenths /= 1000;
    return std::to_string(tenths / 10) + (tenths < 100 ? "." + std::to_string(tenths % 10) : "") +
           kUnits[unit];
}

std::string bar(int64_t done, int64_t total, size_t width) {
    const auto filled = static_cast<size_t>(done / (total / static_cast<int64_t>(width) + 1));
    std::string text(width, ' ');
    std::fill_n(text.begin(), std::min(filled, width), '=');
    if (filled < width)
        text[filled] = '>';
    return "[" + text + "] ";
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
    : isShown_(line_.is_usable() && is_watched(out)), total_(input.bytes_left()) {}

void Progress::add(size_t bytes) {
    done_ += static_cast<int64_t>(bytes);
    if (!isShown_)
        return;
    const Clock::time_point now = Clock::now();
    if (now < next_)
        return;
    next_ = now + std::chrono::milliseconds(250);
    line_.show(text(now, line_.room()));
}

std::string Progress::text(Clock::time_point now, size_t room) const {
    constexpr size_t kLeastBar = 5, kLongestBar = 40;
    const int64_t milliseconds =
        std::max<int64_t>(1, std::chrono::duration_cast<std::chrono::milliseconds>(now - begin_).count());
    const double rate =
        static_cast<double>(done_) / static_cast<double>(milliseconds); // bytes in a millisecond
    const std::string speed = amount(static_cast<int64_t>(rate * 1000)) + "/s";
    if (total_ <= 0 || done_ > total_) // not known, or the file has grown
        return amount(done_) + ", " + speed;
    const std::string percent = std::to_string(done_ / (total_ / 100 + 1)) + " %";
    std::string line = std::string(5 - std::min<size_t>(5, percent.size()), ' ') + percent + ", " + speed;
    if (rate > 0)
        line += ", " + duration(static_cast<int64_t>(static_cast<double>(total_ - done_) / rate / 1000)) +
                " left";
    if (line.size() + 3 + kLeastBar > room)
        return line.size() <= room ? line : percent;
    return bar(done_, total_, std::min(kLongestBar, room - line.size() - 3)) + line;
}

} // namespace tool
