#pragma once
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "encode/base64.h"

// What several targets need.
namespace fuzz {

inline void require(bool claim) {
    if (!claim)
        std::abort();
}

// as_pem puts bytes into a PEM block, the form in which any object is taken as text.
inline std::string as_pem(const uint8_t* data, size_t size) {
    std::string text(zul::b64_encoded_length(size) + 1, '\0');
    text.resize(zul::b64_encode(text.data(), text.size(), data, size));
    return "-----BEGIN DATA-----\n" + text + "\n-----END DATA-----\n";
}

// The files of a run lie in a folder that goes with the process.
class Folder {
  public:
    Folder() { require(mkdtemp(name_.data()) != nullptr); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder() { std::filesystem::remove_all(name_); }

    std::string file(const char* name) const { return name_ + "/" + name; }

  private:
    // In memory where the system has such a folder: outputs are brought to the disk, which takes its time.
    static std::string parent() {
        const char* const inMemory = "/dev/shm";
        return std::filesystem::is_directory(inMemory) ? inMemory
                                                       : std::filesystem::temp_directory_path().string();
    }
    std::string name_ = parent() + "/zul_fuzz_XXXXXX";
};

inline void write_file(const std::string& path, const void* data, size_t size) {
    std::ofstream stream(path, std::ios::binary | std::ios::trunc);
    stream.write(static_cast<const char*>(data), static_cast<std::streamsize>(size));
}

inline std::string content_of(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

// FirstByte cuts the byte off that chooses what an input is for.
struct FirstByte {
    unsigned choice = 0;
    const uint8_t* rest = nullptr;
    size_t size = 0;

    FirstByte(const uint8_t* data, size_t all)
        : choice(all == 0 ? 0 : data[0]), rest(all == 0 ? data : data + 1), size(all == 0 ? 0 : all - 1) {}
    std::string text() const { return {reinterpret_cast<const char*>(rest), size}; }
};

} // namespace fuzz
