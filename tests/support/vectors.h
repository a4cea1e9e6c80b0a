#pragma once
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

// Test vectors are data files under tests/data: blocks of `Name = value` lines parted by blank lines, `#`
// comment lines, and `[Name = value]` lines whose attribute holds for all blocks after them, until one of the
// same name replaces it (`[Name]` alone ends it).
namespace test {

struct VectorFile; // what the blocks of one file share

class Vector {
  public:
    bool has(const std::string& name) const;

    // The value of an attribute, as bytes, as text or as a number (decimal, 0x hexadecimal, negative). A
    // missing or malformed one fails the test and gives an empty or zero value.
    std::vector<uint8_t> hex(const std::string& name) const;
    std::string text(const std::string& name) const;
    long long number(const std::string& name) const;

    std::string where() const; // "file:line" of the block's first line

  private:
    friend class Vectors;
    const std::string* find(const std::string& name) const;

    VectorFile* file_ = nullptr;
    size_t line_ = 0;
    std::map<std::string, std::string> values_;
};

// Vectors holds the blocks of one file. At its end the test fails for every attribute that the file has and
// nobody asked for, unless the test has failed already.
class Vectors {
  public:
    explicit Vectors(const std::string& name);
    Vectors(Vectors&&) noexcept;
    Vectors& operator=(Vectors&&) = delete;
    ~Vectors();

    auto begin() const { return blocks_.begin(); }
    auto end() const { return blocks_.end(); }
    size_t size() const { return blocks_.size(); }

  private:
    void parse(const std::string& path);

    std::unique_ptr<VectorFile> file_;
    std::vector<Vector> blocks_;
};

// read_vectors reads tests/data/<name>; a file that is missing, malformed or without blocks fails the test.
inline Vectors read_vectors(const std::string& name) {
    return Vectors(name);
}

std::string data_path(const std::string& name); // of a file under tests/data

std::vector<uint8_t> from_hex(const std::string& text); // skips blanks; anything else fails the test
std::string to_hex(const uint8_t* data, size_t size);   // lower case
inline std::string to_hex(const std::vector<uint8_t>& data) {
    return to_hex(data.data(), data.size());
}

} // namespace test
