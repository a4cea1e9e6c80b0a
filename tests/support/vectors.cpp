#include "support/vectors.h"

#include <charconv>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>

namespace test {

struct VectorFile {
    std::string name;
    std::map<std::string, size_t> unasked; // attribute, line of its first appearance
};

namespace {

std::string trim(const std::string& text) {
    const size_t first = text.find_first_not_of(" \t\r");
    if (first == std::string::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

// False if a character is neither a hex digit nor a blank, or a digit is left over.
bool decode_hex(const std::string& text, std::vector<uint8_t>& out) {
    bool half = false;
    for (const char& c : text) {
        if (c == ' ' || c == '\t')
            continue;
        uint8_t digit = 0;
        if (std::from_chars(&c, &c + 1, digit, 16).ec != std::errc())
            return false;
        if (half)
            out.back() = static_cast<uint8_t>(out.back() << 4 | digit);
        else
            out.push_back(digit);
        half = !half;
    }
    return !half;
}

} // namespace

bool Vector::has(const std::string& name) const {
    return values_.count(name) != 0;
}

const std::string* Vector::find(const std::string& name) const {
    file_->unasked.erase(name);
    const auto found = values_.find(name);
    if (found != values_.end())
        return &found->second;
    ADD_FAILURE() << where() << ": no attribute " << name;
    return nullptr;
}

std::vector<uint8_t> Vector::hex(const std::string& name) const {
    std::vector<uint8_t> bytes;
    const std::string* value = find(name);
    if (value != nullptr && !decode_hex(*value, bytes))
        ADD_FAILURE() << where() << ": " << name << " is not hexadecimal";
    return bytes;
}

std::string Vector::text(const std::string& name) const {
    const std::string* value = find(name);
    return value == nullptr ? std::string() : *value;
}

long long Vector::number(const std::string& name) const {
    const std::string* value = find(name);
    if (value == nullptr)
        return 0;
    char* end = nullptr;
    const long long result = std::strtoll(value->c_str(), &end, 0);
    if (value->empty() || *end != 0)
        ADD_FAILURE() << where() << ": " << name << " is not a number";
    return result;
}

std::string Vector::where() const {
    return file_->name + ":" + std::to_string(line_);
}

const Vector& VectorIterator::operator*() {
    trace_.reset();
    trace_ = std::make_unique<testing::ScopedTrace>(__FILE__, __LINE__, at_->where());
    return *at_;
}

VectorIterator& VectorIterator::operator++() {
    trace_.reset();
    at_++;
    return *this;
}

Vectors::Vectors(const std::string& name) : file_(std::make_unique<VectorFile>()) {
    file_->name = name;
    parse(data_path(name));
}

Vectors::Vectors(Vectors&&) noexcept = default;

Vectors::~Vectors() {
    if (file_ == nullptr || testing::Test::HasFailure() || testing::Test::IsSkipped())
        return;
    for (const auto& [attribute, line] : file_->unasked)
        ADD_FAILURE() << file_->name << ":" << line << ": attribute " << attribute << " was never asked for";
}

void Vectors::parse(const std::string& path) {
    std::ifstream input(path, std::ios::binary);
    if (!input)
        ADD_FAILURE() << "cannot open " << path;
    std::map<std::string, std::string> section;
    std::string line;
    bool inBlock = false;
    for (size_t number = 1; std::getline(input, line); ++number) {
        line = trim(line);
        if (line.empty())
            inBlock = false;
        if (line.empty() || line[0] == '#')
            continue;
        const bool header = line.front() == '[' && line.back() == ']';
        if (header)
            line = line.substr(1, line.size() - 2);
        const size_t equals = line.find('=');
        const std::string name = trim(line.substr(0, equals));
        const std::string value = equals == std::string::npos ? "" : trim(line.substr(equals + 1));
        if (header && equals == std::string::npos) {
            section.erase(name);
            inBlock = false;
            continue;
        }
        if (name.empty() || equals == std::string::npos) {
            ADD_FAILURE() << file_->name << ":" << number << ": neither an attribute nor a comment";
            continue;
        }
        file_->unasked.emplace(name, number);
        if (header) {
            section[name] = value;
            inBlock = false;
            continue;
        }
        if (!inBlock) {
            Vector& block = blocks_.emplace_back();
            block.file_ = file_.get();
            block.line_ = number;
            block.values_ = section;
            inBlock = true;
        }
        auto& values = blocks_.back().values_;
        if (values.count(name) != 0 && section.count(name) == 0)
            ADD_FAILURE() << file_->name << ":" << number << ": " << name << " appears twice";
        values[name] = value;
    }
    if (blocks_.empty())
        ADD_FAILURE() << path << " holds no vector";
}

std::string data_path(const std::string& name) {
    return std::string(ZUL_TEST_DATA "/") + name;
}

std::vector<uint8_t> from_hex(const std::string& text) {
    std::vector<uint8_t> bytes;
    if (!decode_hex(text, bytes))
        ADD_FAILURE() << "not hexadecimal: " << text;
    return bytes;
}

std::string to_hex(const uint8_t* data, size_t size) {
    static const char digits[] = "0123456789abcdef";
    std::string text;
    for (size_t i = 0; i < size; ++i) {
        text += digits[data[i] >> 4];
        text += digits[data[i] & 15];
    }
    return text;
}

Bytes sequence(size_t size, uint32_t x) {
    Bytes bytes(size);
    for (uint8_t& byte : bytes) {
        x = x * 1103515245 + 12345;
        byte = static_cast<uint8_t>(x >> 24);
    }
    return bytes;
}

Bytes patched(Bytes data, const std::string& pattern, int distance, const std::string& bytes) {
    const Bytes from = from_hex(pattern), to = from_hex(bytes);
    const auto at = std::search(data.begin(), data.end(), from.begin(), from.end());
    EXPECT_NE(at, data.end()) << pattern;
    if (at != data.end())
        std::copy(to.begin(), to.end(), at + distance);
    return data;
}

} // namespace test
