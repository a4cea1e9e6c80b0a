#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

// Runs a fuzz target over every file of a folder, and over damaged copies of each: cut off at every length,
// and every byte changed in three ways. Of a long file, cuts and changes are taken at even distances. A file
// that has a digest for a name comes of a search and is damage by itself: it runs as it is.

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace {

constexpr size_t kPlacesPerFile = 4096;

size_t runs = 0;

void run(const std::vector<uint8_t>& input) {
    // A heap block of exactly this size, so that a sanitizer sees one byte too far.
    const std::vector<uint8_t> copy(input);
    LLVMFuzzerTestOneInput(copy.data(), copy.size());
    ++runs;
}

void run_damaged(const std::vector<uint8_t>& input) {
    const size_t step = std::max<size_t>(1, input.size() / kPlacesPerFile);
    for (size_t place = 0; place < input.size(); place += step) {
        run({input.begin(), input.begin() + static_cast<std::ptrdiff_t>(place)});
        for (const uint8_t change : {uint8_t{0xFF}, uint8_t{0x01}, uint8_t{0x80}}) {
            std::vector<uint8_t> damaged(input);
            damaged[place] ^= change;
            run(damaged);
        }
    }
}

bool is_of_search(const std::string& name) {
    constexpr size_t kDigits = 40;
    return name.size() == kDigits && name.find_first_not_of("0123456789abcdef") == std::string::npos;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s CORPUS-FOLDER\n", argv[0]);
        return 2;
    }
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(argv[1]))
        if (entry.is_regular_file())
            files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    if (files.empty()) {
        std::fprintf(stderr, "%s holds no seed\n", argv[1]);
        return 1;
    }
    run({});
    for (const auto& path : files) {
        std::ifstream stream(path, std::ios::binary);
        const std::vector<uint8_t> seed{std::istreambuf_iterator<char>(stream), {}};
        // Printed before the run, so that a crash shows its seed.
        std::printf("%s (%zu bytes)\n", path.filename().string().c_str(), seed.size());
        std::fflush(stdout);
        run(seed);
        if (!is_of_search(path.filename().string()))
            run_damaged(seed);
    }
    std::printf("%zu files, %zu runs\n", files.size(), runs);
    return 0;
}
