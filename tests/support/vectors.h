#pragma once
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <string>
#include <vector>

// Test vectors are data files under tests/data: blocks of `Name = value` lines parted by blank lines, `#`
// comment lines, and `[Name = value]` lines whose attribute holds for all blocks after them, until one of the
// same name replaces it (`[Name]` alone ends it).
namespace test {

using Bytes = std::vector<uint8_t>;

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

// VectorIterator goes through the blocks; a failure tells the one that it stands at.
class VectorIterator {
  public:
    explicit VectorIterator(const Vector* at) : at_(at) {}
    const Vector& operator*();
    VectorIterator& operator++();
    bool operator==(const VectorIterator& other) const { return at_ == other.at_; }

  private:
    const Vector* at_;
    std::unique_ptr<testing::ScopedTrace> trace_;
};

// Vectors holds the blocks of one file. At its end the test fails for every attribute that the file has and
// nobody asked for, unless the test has failed already.
class Vectors {
  public:
    explicit Vectors(const std::string& name);
    Vectors(Vectors&&) noexcept;
    Vectors& operator=(Vectors&&) = delete;
    ~Vectors();

    VectorIterator begin() const { return VectorIterator(blocks_.data()); }
    VectorIterator end() const { return VectorIterator(blocks_.data() + blocks_.size()); }
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

// The bytes that tests/data/hash/long_openssl.txt describes, or others like them.
Bytes sequence(size_t size, uint32_t x = 1);

// replaced puts one text or one run of bytes in the place of another, which has to be there.
template<class Text>
Text replaced(Text all, const Text& from, const Text& to) {
    const auto at = std::search(all.begin(), all.end(), from.begin(), from.end());
    EXPECT_TRUE(at != all.end() || from.empty());
    Text result(all.begin(), at);
    result.insert(result.end(), to.begin(), to.end());
    if (at != all.end())
        result.insert(result.end(), at + static_cast<std::ptrdiff_t>(from.size()), all.end());
    return result;
}
inline std::string replaced(const std::string& all, const std::string& from, const std::string& to) {
    return replaced<std::string>(all, from, to);
}
// patched writes bytes over others, at a distance from where a pattern begins. Both are in hex.
Bytes patched(Bytes data, const std::string& pattern, int distance, const std::string& bytes);

} // namespace test
