#include "seal/age_armour.h"

#include <algorithm>
#include <cstring>

#include "encode/base64.h"
#include "frame/err.h"
#include "frame/slice.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr std::string_view kBegin = "-----BEGIN AGE ENCRYPTED FILE-----",
                           kEnd = "-----END AGE ENCRYPTED FILE-----", kBlanks = " \t\r\n";

} // namespace

bool armour_begins(FileInput& input) {
    const std::string_view text = input.ahead(kMostArmourBlanks + 1);
    const size_t first = text.find_first_not_of(kBlanks);
    return first != std::string_view::npos && text[first] == '-';
}

void ArmourReader::fail(const char* text) {
    if (error() == 0)
        error_ = err_fail(BAD_FORMAT_ERROR, "Malformed armour: %s", text);
    state_ = State::after;
}

// take_line takes one line without its end, or what stands after the last one.
bool ArmourReader::take_line(std::string_view& line) {
    const std::string_view text = input_.ahead(kArmourColumns + 2);
    const size_t end = text.find('\n');
    if (end == std::string_view::npos && text.size() >= kArmourColumns + 2)
        return false;
    line = slice(text, 0, end);
    input_.skip(std::min(text.size(), line.size() + 1));
    if (!line.empty() && line.back() == '\r')
        line.remove_suffix(1);
    return line.size() <= kArmourColumns;
}

void ArmourReader::begin() {
    const std::string_view text = input_.ahead(kMostArmourBlanks + 1);
    const size_t first = std::min(text.find_first_not_of(kBlanks), text.size());
    const bool atLineStart = first == 0 || text[first - 1] == '\n';
    input_.skip(first);
    std::string_view line;
    if (first > kMostArmourBlanks || !atLineStart || !take_line(line) || line != kBegin)
        return fail("the BEGIN line");
    state_ = State::body;
}

void ArmourReader::end() {
    state_ = State::after;
    const std::string_view text = input_.ahead(kMostArmourBlanks + 1);
    if (text.size() > kMostArmourBlanks || text.find_first_not_of(kBlanks) != std::string_view::npos)
        fail("something stands behind the END line");
}

void ArmourReader::decode_line() {
    std::string_view line;
    if (!take_line(line))
        return fail("a line is too long");
    if (line == kEnd)
        return end();
    if (state_ == State::last || line.empty())
        return fail("no END line where it has to be");
    size_t size = 0;
    if (!b64_decode_canonical(bytes_, &size, line, true))
        return fail("a line is not canonical base64");
    next_ = 0;
    filled_ = size;
    if (size < kArmourBytes)
        state_ = State::last;
}

size_t ArmourReader::read(uint8_t* out, size_t size) {
    if (state_ == State::before)
        begin();
    size_t done = 0;
    while (done < size) {
        if (next_ == filled_) {
            if (state_ == State::after)
                break;
            decode_line();
            continue;
        }
        const size_t part = std::min(filled_ - next_, size - done);
        memcpy(out + done, bytes_ + next_, part);
        next_ += part;
        done += part;
    }
    return done;
}

SealOutput::SealOutput(FileWriter& file, bool armoured) : file_(file), armoured_(armoured) {
    if (armoured_)
        failed_ = !file_.write(kBegin.data(), kBegin.size()) || !file_.write("\n", 1);
}

void SealOutput::write_lines(const uint8_t* data, size_t size) {
    char line[kArmourColumns + 1];
    for (size_t at = 0; at < size && !failed_; at += kArmourBytes) {
        const size_t length = b64_encode(line, sizeof line, data + at, std::min(kArmourBytes, size - at));
        line[length] = '\n';
        failed_ = !file_.write(line, length + 1);
    }
}

bool SealOutput::write(const uint8_t* data, size_t size) {
    if (!armoured_) {
        failed_ = failed_ || !file_.write(data, size);
        return !failed_;
    }
    if (held_ != 0) {
        const size_t part = std::min(size, kArmourBytes - held_);
        memcpy(rest_ + held_, data, part);
        held_ += part;
        data += part;
        size -= part;
        if (held_ < kArmourBytes)
            return !failed_;
        write_lines(rest_, std::exchange(held_, 0));
    }
    held_ = size % kArmourBytes;
    write_lines(data, size - held_);
    memcpy(rest_, data + size - held_, held_);
    return !failed_;
}

bool SealOutput::finish() {
    if (armoured_) {
        write_lines(rest_, std::exchange(held_, 0));
        failed_ = failed_ || !file_.write(kEnd.data(), kEnd.size()) || !file_.write("\n", 1);
    }
    return !failed_ && file_.finish();
}

} // namespace zul
