#pragma once
#include <cstdint>
#include <cstring>
#include <string_view>

#include "frame/memory.h"

namespace zul {

// TextBuffer takes up a text, either in a block that grows or in a caller's room, beyond which it only
// counts. Blocks are not wiped: secrets belong into SecretBuffer.
class TextBuffer {
  public:
    TextBuffer() : grows_(true) {}
    // room: the characters that out holds, beside a NUL. With a null out, or a room of 0 or less, none.
    TextBuffer(char* out, int room)
        : data_(out), room_(out != nullptr && room > 0 ? static_cast<size_t>(room) : 0), grows_(false) {}
    TextBuffer(const TextBuffer&) = delete;
    TextBuffer& operator=(const TextBuffer&) = delete;
    ~TextBuffer() {
        if (grows_)
            efree(data_);
    }

    void put(std::string_view text) {
        if (text.size() > room_ - stored())
            put_beyond(text);
        else
            append(text);
    }
    void put(char c) { put(std::string_view(&c, 1)); }
    void put_number(int64_t number);
    void put_hex(const uint8_t* bytes, size_t count); // two lower-case digits a byte
    void pad(size_t count);                           // blanks

    size_t size() const { return size_; } // of the whole text
    void shrink(size_t size) {
        if (size < size_)
            size_ = size;
    }
    // text is what is stored; the view holds until something is put.
    std::string_view text() const { return {data_, stored()}; }
    // c_str ends the text of a block that grows with a NUL.
    const char* c_str() {
        put('\0');
        size_--;
        return data_;
    }
    // result ends the text in a caller's room, at a whole character of UTF-8, and gives the length under the
    // common length rule, or OUT_OF_RANGE_ERROR negated.
    int result();
    bool is_cut() const { return room_ != 0 && size_ > room_; }

  private:
    size_t stored() const { return size_ < room_ ? size_ : room_; }
    void append(std::string_view text) {
        if (!text.empty())
            memcpy(data_ + size_, text.data(), text.size());
        size_ += text.size();
    }
    void put_beyond(std::string_view text);

    char* data_ = nullptr;
    size_t room_ = 0, size_ = 0;
    bool grows_;
};

} // namespace zul
