#include "seal/file_input.h"

#include <algorithm>
#include <cstring>

#include "frame/err.h"
#include "frame/text.h"
#include "zulcore.h"

namespace zul {

static constexpr size_t kSmallRead = 4096; // what is as large bypasses the buffer

size_t FileInput::read_file(uint8_t* out, size_t size) {
    if (atEnd_)
        return 0;
    bool failed = false;
    const size_t got = platform::file_read(file_.handle(), out, size, &failed);
    atEnd_ = got < size;
    if (failed)
        error_ = name_ == nullptr ? err_fail(READ_ERROR, "Cannot read standard input")
                                  : err_fail(READ_ERROR, "Cannot read file '%s'", shown_name(name_));
    return got;
}

std::string_view FileInput::ahead(size_t wanted) {
    if (filled_ - next_ < wanted && !atEnd_) {
        memmove(buffer_.data(), buffer_.data() + next_, filled_ - next_);
        filled_ -= std::exchange(next_, 0);
        filled_ += read_file(buffer_.data() + filled_, buffer_.size() - filled_);
    }
    return {buffer_.text() + next_, filled_ - next_};
}

size_t FileInput::read(uint8_t* out, size_t size) {
    size_t done = 0;
    while (done < size) {
        if (next_ == filled_ && size - done >= kSmallRead)
            return done + read_file(out + done, size - done);
        const std::string_view held = ahead(1);
        if (held.empty())
            break;
        const size_t part = std::min(held.size(), size - done);
        memcpy(out + done, held.data(), part);
        skip(part);
        done += part;
    }
    return done;
}

} // namespace zul
