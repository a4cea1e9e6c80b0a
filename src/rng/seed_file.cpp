#include "rng/seed_file.h"

#include "frame/file_stream.h"
#include "rng/accumulator.h"
#include "rng/generator.h"
#include "rng/rng.h"
#include "zulcore.h"

namespace zul {

namespace {

class SeedLock {
  public:
    explicit SeedLock(platform::FileHandle file) : file_(file), held_(platform::file_lock(file, kSeedSize)) {}
    SeedLock(const SeedLock&) = delete;
    SeedLock& operator=(const SeedLock&) = delete;
    ~SeedLock() {
        if (held_)
            platform::file_unlock(file_, kSeedSize);
    }
    bool held() const { return held_; }

  private:
    platform::FileHandle file_;
    bool held_;
};

// write_seed returns after the bytes are on the disk. Otherwise a crash could leave the old bytes there, and
// they would be used a second time. Devices and pipes are not committed.
bool write_seed(platform::FileHandle file, const Secret<kSeedSize>& seed) {
    return platform::file_write(file, seed.data(), kSeedSize) &&
           (platform::file_length(file) < 0 || platform::file_commit(file));
}

[[nodiscard]] int renew(RngState& state, platform::FileHandle file) {
    const SeedLock lock(file);
    if (!lock.held())
        return PRNG_ERR_FILE_LOCK;

    Secret<kSeedSize> seed;
    // Reading a pipe could block, and a device gives everybody the same bytes; neither has a length.
    if (platform::file_length(file) < 0 || platform::file_read(file, seed.data(), kSeedSize) != kSeedSize)
        return PRNG_ERR_FILE_READ;

    const uint64_t now = platform::system_time();
    const AdditionalInput time(&now, sizeof now);
    drbg_reseed(state.drbg, {seed.data(), kSeedSize}, time);
    if (const int error = generator_produce(state, seed.data(), kSeedSize, time); error != 0)
        return error;

    if (!platform::file_rewind(file) || !write_seed(file, seed))
        return PRNG_ERR_FILE_WRITE;
    return 0;
}

} // namespace

int seed_file_update(const char* path) {
    const OwnGenerator own;
    RngState& state = *own;
    if (const int error = generator_make_ready(state); error != 0)
        return error;
    File file(path, platform::OpenMode::update);
    if (!file.is_open())
        return PRNG_ERR_FILE_OPEN;
    const int error = renew(state, file.handle());
    const bool closed = file.close();
    return error == 0 && !closed ? PRNG_ERR_FILE_WRITE : error;
}

int seed_file_make(const char* path, const uint8_t* additional, size_t size) {
    Secret<kSeedSize> seed;
    if (const int error = rng_bytes(seed.data(), kSeedSize, additional, size); error != 0)
        return error;
    File file(path, platform::OpenMode::createSecret);
    if (!file.is_open())
        return PRNG_ERR_FILE_CREATE;
    bool written = false;
    {
        const SeedLock lock(file.handle());
        if (!lock.held()) // another process is about to write it
            return PRNG_ERR_FILE_LOCK;
        written = write_seed(file.handle(), seed);
    }
    if (file.close() && written)
        return 0;
    discard_file(path);
    return PRNG_ERR_FILE_WRITE;
}

} // namespace zul
