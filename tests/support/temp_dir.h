#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace test {

// TempDir makes a folder of its own under the system's temporary folder and removes it with all that is in
// it at its end.
class TempDir {
  public:
    TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;
    ~TempDir();

    const std::string& path() const { return path_; }
    std::string file(const std::string& name) const; // the path of a file in it, which need not exist
    // write makes a file with this content and gives its path.
    std::string write(const std::string& name, const void* data, size_t size) const;
    std::string write(const std::string& name, const std::string& content) const {
        return write(name, content.data(), content.size());
    }
    std::string write(const std::string& name, const std::vector<uint8_t>& content) const {
        return write(name, content.data(), content.size());
    }

  private:
    std::string path_;
};

bool file_exists(const std::string& path);
// read_file fails the test and gives nothing if the file cannot be read.
std::vector<uint8_t> read_file(const std::string& path);
std::string read_text(const std::string& path); // the bytes as they are

} // namespace test
