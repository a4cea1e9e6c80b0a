#include "frame/wipe_file.h"

#include <cstring>

#include "frame/err.h"
#include "frame/file_stream.h"
#include "frame/text.h"
#include "frame/weak_random.h"
#include "zulcore.h"

namespace zul {

namespace {

constexpr size_t kChunk = 4096;

size_t chunk_of(int64_t remaining) {
    return remaining < static_cast<int64_t>(kChunk) ? static_cast<size_t>(remaining) : kChunk;
}

bool write_pass(File& file, int64_t length, const uint8_t* pattern) {
    if (!platform::file_rewind(file.handle()))
        return false;
    for (int64_t remaining = length; remaining > 0;) {
        const size_t size = chunk_of(remaining);
        if (!platform::file_write(file.handle(), pattern, size))
            return false;
        remaining -= static_cast<int64_t>(size);
    }
    return platform::file_commit(file.handle());
}

// Every chunk was written from the start of the same pattern, so each is compared with that start.
bool read_back(File& file, int64_t length, const uint8_t* pattern) {
    if (!platform::file_rewind(file.handle()))
        return false;
    uint8_t chunk[kChunk];
    for (int64_t remaining = length; remaining > 0;) {
        const size_t size = chunk_of(remaining);
        if (platform::file_read(file.handle(), chunk, size) != size || memcmp(chunk, pattern, size) != 0)
            return false;
        remaining -= static_cast<int64_t>(size);
    }
    return true;
}

bool overwrite(File& file, int64_t length) {
    uint8_t pattern[kChunk];
    for (const int fill : {0x00, 0xFF, 0xAA, 0x55}) {
        memset(pattern, fill, sizeof pattern);
        if (!write_pass(file, length, pattern))
            return false;
    }
    WeakRandom blur;
    for (int pass = 0; pass < 2; pass++) {
        for (uint8_t& byte : pattern)
            byte = blur.byte();
        if (!write_pass(file, length, pattern))
            return false;
    }
    if (!read_back(file, length, pattern))
        return false;
    memset(pattern, 0, sizeof pattern);
    return write_pass(file, length, pattern);
}

} // namespace

int wipe_file(const char* path) {
    File file(path, platform::OpenMode::update);
    const int64_t length = file.is_open() ? platform::file_length(file.handle()) : -1;
    if (length < 0)
        return err_fail(OPEN_ERROR, "Cannot open file '%s'", shown_name(path));
    const bool overwritten = length == 0 || overwrite(file, length);
    if (!file.close() || !overwritten || !platform::file_remove(path))
        return err_fail(WIPE_ERROR, "Cannot wipe file '%s'", shown_name(path));
    return 0;
}

} // namespace zul
