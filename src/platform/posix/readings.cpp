#include <algorithm>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <sys/statvfs.h>
#include <sys/sysinfo.h>
#include <time.h>
#include <unistd.h>

#include "platform/platform.h"

namespace zul::platform {

uint64_t system_time() {
    constexpr uint64_t kUnixEpoch = 116444736000000000; // in 100-nanosecond units since 1601-01-01
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return kUnixEpoch + static_cast<uint64_t>(now.tv_sec) * 10000000 +
           static_cast<uint64_t>(now.tv_nsec) / 100;
}

bool local_time_normalise(tm* time) {
    tm parts = *time; // the system may change it before it fails
    const time_t moment = mktime(&parts);
    return moment != static_cast<time_t>(-1) && gmtime_r(&moment, time) != nullptr;
}

uint32_t tick_count() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return static_cast<uint32_t>(static_cast<uint64_t>(now.tv_sec) * 1000 +
                                 static_cast<uint64_t>(now.tv_nsec) / 1000000);
}

uint64_t precise_ticks() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<uint64_t>(now.tv_sec) * 1000000000 + static_cast<uint64_t>(now.tv_nsec);
}

bool free_clusters(uint32_t* count) {
    struct statvfs status {};
    if (statvfs(".", &status) != 0)
        return false;
    *count = static_cast<uint32_t>(status.f_bfree);
    return true;
}

size_t memory_status(uint8_t* reading) {
    struct sysinfo status {};
    static_assert(sizeof status <= kReadingSize);
    if (sysinfo(&status) != 0)
        return 0;
    memcpy(reading, &status, sizeof status);
    return sizeof status;
}

// read_file hands a file's content to the sink, up to a limit; false if it has none.
static bool read_file(int directory, const char* path, size_t limit,
                      void (*sink)(void* context, const void* data, size_t size), void* context) {
    const int fd = openat(directory, path, O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (fd < 0)
        return false;
    char piece[4096];
    bool any = false;
    while (limit > 0) {
        const ssize_t got = read(fd, piece, std::min(sizeof piece, limit));
        if (got <= 0)
            break;
        any = true;
        limit -= static_cast<size_t>(got);
        sink(context, piece, static_cast<size_t>(got));
    }
    close(fd);
    return any;
}

namespace {
struct Reading {
    uint8_t* bytes;
    size_t size;
};
} // namespace

static void append_reading(void* context, const void* data, size_t size) {
    auto* reading = static_cast<Reading*>(context);
    const size_t part = std::min(size, kReadingSize - reading->size);
    memcpy(reading->bytes + reading->size, data, part);
    reading->size += part;
}

size_t power_status(uint8_t* reading) {
    Reading status{reading, 0};
    DIR* supplies = opendir("/sys/class/power_supply");
    if (supplies == nullptr)
        return 0;
    // NOLINTNEXTLINE(concurrency-mt-unsafe): no other thread has this folder
    while (const dirent* entry = readdir(supplies)) {
        if (entry->d_name[0] == '.')
            continue;
        char path[300];
        for (const char* value : {"online", "capacity", "charge_now", "voltage_now"}) {
            snprintf(path, sizeof path, "%s/%s", entry->d_name, value);
            read_file(dirfd(supplies), path, 32, append_reading, &status);
        }
    }
    closedir(supplies);
    return status.size;
}

bool activity_report(void (*sink)(void* context, const void* data, size_t size), void* context) {
    // Not /proc/interrupts: it takes several times as long, and this file sums up its counts.
    return read_file(AT_FDCWD, "/proc/stat", size_t{64} * 1024, sink, context);
}

} // namespace zul::platform
