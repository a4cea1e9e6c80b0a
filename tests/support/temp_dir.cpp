#include "support/temp_dir.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <random>

namespace test {

namespace fs = std::filesystem;

TempDir::TempDir() {
    std::random_device random;
    fs::path folder;
    do {
        folder = fs::temp_directory_path() / ("zulcore-test-" + std::to_string(random()));
    } while (!fs::create_directory(folder));
    path_ = folder.string();
}

TempDir::~TempDir() {
    std::error_code ignored;
    // A file that a test made read-only would otherwise stay, on Windows.
    for (const auto& entry : fs::recursive_directory_iterator(path_, ignored))
        fs::permissions(entry.path(), fs::perms::owner_write, fs::perm_options::add, ignored);
    fs::remove_all(path_, ignored);
}

std::string TempDir::file(const std::string& name) const {
    return (fs::path(path_) / name).string();
}

std::string TempDir::write(const std::string& name, const void* data, size_t size) const {
    const std::string target = file(name);
    std::ofstream output(target, std::ios::binary);
    output.write(static_cast<const char*>(data), static_cast<std::streamsize>(size));
    output.close();
    if (!output)
        ADD_FAILURE() << "cannot write " << target;
    return target;
}

bool file_exists(const std::string& path) {
    std::error_code ignored;
    return fs::exists(path, ignored);
}

std::vector<uint8_t> read_file(const std::string& path) {
    const std::string text = read_text(path);
    return {text.begin(), text.end()};
}

std::string read_text(const std::string& path) {
    std::ifstream input(path, std::ios::binary);
    if (!input) {
        ADD_FAILURE() << "cannot read " << path;
        return {};
    }
    return {std::istreambuf_iterator<char>(input), std::istreambuf_iterator<char>()};
}

} // namespace test
