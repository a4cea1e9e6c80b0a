// The buffers of a call: each as long as it is said to be, and at a page that may not be touched.
#include <algorithm>
#include <climits>
#include <cstring>

#include "arguments.h"

namespace endurance {

static constexpr uint8_t kUnwritten = 0xEE;

bool Arguments::rooms_hold_texts(int result) const {
    for (const Room& room : texts_)
        if (result <= room.claimed && room.data[0] != kUnwritten &&
            memchr(room.data, 0, static_cast<size_t>(room.claimed) + 1) == nullptr)
            return false;
    return true;
}

uint8_t* Arguments::place(size_t size) {
    GuardedBlock& block = blocks_[used_++ % blocks_.size()];
    return chance(8) ? block.at_begin() : block.at_end(size);
}

// length draws what a caller says, and the bytes that have to be there for it.
int Arguments::length(size_t* size) {
    static constexpr int kAbsurd[] = {-1, -2, -8, -65536, INT_MIN, INT_MIN + 1, -INT_MAX / 2};
    static constexpr int kUsual[] = {0,  1,  2,  3,  7,  8,  12,  15,  16,  17,  20,  24,  28,   31,   32,
                                     40, 48, 63, 64, 65, 66, 100, 128, 129, 255, 256, 257, 1000, 4096, 65536};
    int said;
    if (absurd(10))
        said = one_of(kAbsurd);
    else if (chance(4))
        said = static_cast<int>(draw(3000));
    else
        said = one_of(kUsual);
    *size = said > 0 ? static_cast<size_t>(said) : 0;
    return said;
}

Room Arguments::text_room(const char*, const char* lengthName) {
    // These count the NUL.
    const bool whole = function_ == "ZUL_ErrorLookup" || strcmp(lengthName, "nPwdLen") == 0;
    size_t size;
    Room room;
    room.claimed = !wild_ || chance(3) ? 60000 : length(&size);
    size = room.claimed > 0 ? static_cast<size_t>(room.claimed) + (whole ? 0 : 1) : 0;
    if (absurd(12))
        return room;
    room.data = place(size);
    memset(room.data, kUnwritten, size);
    if (room.claimed > 0 && !whole)
        texts_.push_back(room);
    return room;
}

Room Arguments::bytes_room(const char* name, const char* lengthName) {
    Room room = input(name, lengthName);
    if (!wild_ && strncmp(lengthName, "nOut", 4) == 0 && !chance(3)) {
        room.claimed = 4096;
        room.data = place(4096);
    }
    // What is more than such a function ever gives is refused before the room is touched.
    if (chance(20) && (function_ == "RNG_Bytes" || function_ == "KDF_Hkdf"))
        room.claimed = INT_MAX - static_cast<int>(draw(20));
    return room;
}

Room Arguments::input(const char*, const char* lengthName) {
    Room room;
    size_t size;
    room.claimed = length(&size);
    const std::string counted = lengthName;
    if (!wild_ && (counted == "nKeyLen" || counted == "nKekLen")) {
        static constexpr int kKeys[] = {16, 24, 32, 32};
        room.claimed = one_of(kKeys);
        size = static_cast<size_t>(room.claimed);
    } else if (!wild_ && (counted == "nNonceLen" || counted == "nIVLen")) {
        room.claimed = counted == "nIVLen" ? (chance(2) ? 16 : 8) : 12;
        size = static_cast<size_t>(room.claimed);
    } else if (!wild_ && (counted == "nDataLen" || counted == "nDigestLen")) {
        static constexpr int kData[] = {128, 32, 64, 24, 20};
        room.claimed = one_of(kData);
        size = static_cast<size_t>(room.claimed);
    }
    if (chance(30) &&
        (counted == "nKekLen" || counted == "nDigestLen" ||
         (counted == "nKeyLen" && !function_.starts_with("HMAC") && !function_.starts_with("KDF")))) {
        room.claimed = INT_MAX; // no key and no digest has such a length
        size = 64;
    }
    if (absurd(12))
        return room;
    room.data = place(size);
    const uint64_t kind = draw(3);
    for (size_t i = 0; i < size; i++)
        room.data[i] = kind == 0 ? 0 : static_cast<uint8_t>(next() >> 56);
    if (kind == 2 && size > 0) {
        const std::string& content = one_of(fixtures_.files).content;
        memcpy(room.data, content.data(), std::min(size, content.size()));
    }
    return room;
}

uint8_t* Arguments::fixed(const char*, size_t size) {
    if (absurd(15))
        return nullptr;
    uint8_t* const data = place(size);
    for (size_t i = 0; i < size; i++)
        data[i] = static_cast<uint8_t>(next() >> 56);
    return data;
}

// Contexts live longer than a call, so that what one call begins others go on with. They lie at odd
// addresses.
void* Arguments::context(const char*) {
    if (chance(20))
        return nullptr;
    std::vector<uint8_t>& room = one_of(contexts_);
    if (chance(30)) // as if the caller had damaged it
        room[1 + draw(600)] ^= static_cast<uint8_t>(1u << draw(8));
    return room.data() + 1;
}

Room Arguments::context_room(const char* name, const char*) {
    Room room;
    room.claimed = 8000;
    room.data = static_cast<uint8_t*>(context(name));
    if (chance(8)) {
        size_t size;
        room.claimed = length(&size);
        if (size > 8000)
            room.claimed = 8000;
    }
    return room;
}

} // namespace endurance
