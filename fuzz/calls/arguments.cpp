#include "arguments.h"

#include <climits>
#include <cstring>

namespace endurance {

Arguments::Arguments(uint64_t seed, const Fixtures& fixtures)
    : state_(seed), fixtures_(fixtures), dictionary_(fixtures) {
    for (std::vector<uint8_t>& context : contexts_)
        context.resize(8192);
}

void Arguments::begin(const char* function) {
    function_ = function;
    used_ = 0;
    texts_.clear();
    wild_ = chance(2);
}

uint64_t Arguments::next() { // splitmix64
    uint64_t z = state_ += 0x9E3779B97F4A7C15;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EB;
    return z ^ (z >> 31);
}

int Arguments::number(const std::string& name) {
    // Some costs have no upper bound, because a caller may want to wait.
    static constexpr int kCosts[] = {INT_MIN, -1, 0, 1, 2, 3, 8, 16, INT_MAX};
    static constexpr int kWaits[] = {INT_MIN, -1, 0, 1, 2, 5, 64, 1000};
    static constexpr int kBits[] = {INT_MIN, -1, 0, 1, 96, 97, 128, 255, 256, 512, 65537, INT_MAX};
    static constexpr int kAny[] = {INT_MIN, -65536, -1, 0, 1, 2, 3, 4, 8, 16, 64, 100, 30000, 65536, INT_MAX};
    static constexpr int kBlocks[] = {8, 16, 8, 16, 8, 16, 0, -8, 7, 255, 256, INT_MIN, INT_MAX};
    if (name == "nCount" || name == "nIterations" || name == "nTests")
        return one_of(kWaits);
    if (name == "nBits")
        return one_of(kBits);
    if (name == "nN" || name == "nR" || name == "nP" || name == "nMemoryKiB" || name == "nPasses" ||
        name == "nLanes")
        return one_of(kCosts);
    if (name == "nBlkLen")
        return one_of(kBlocks);
    if (name != "nOptions")
        return chance(4) ? static_cast<int>(next()) : one_of(kAny);
    static constexpr unsigned kModes[] = {0x000, 0x100, 0x200, 0x300, 0x400};
    switch (wild_ ? draw(8) : 8) {
    case 0:
        return static_cast<int>(next());
    case 1:
        return static_cast<int>(1u << draw(32) | 1u << draw(32));
    case 2:
    case 3:
        return static_cast<int>(draw(9));
    case 4:
        return static_cast<int>((draw(5) << 4) | one_of(kModes));
    case 5:
        return static_cast<int>(draw(9) | (1u << (8 + draw(20))));
    default:
        return chance(3) ? static_cast<int>(draw(9)) : 0;
    }
}

std::string Arguments::garbage(size_t size) {
    std::string text(size, '\0');
    const uint64_t kind = draw(4);
    const std::string alphabet =
        kind == 2 ? "0123456789abcdefABCDEFxyz " : ";=,'#MIIBAAEC-- \n"; // of hex, or of texts with structure
    for (char& c : text) {
        if (kind == 0)
            c = static_cast<char>(1 + draw(255));
        else if (kind == 1)
            c = static_cast<char>(0x20 + draw(95));
        else
            c = one_of(alphabet);
        // No name of a file may lead out of the folder.
        if (c == '/' || c == '\\' || c == ':' || c == '|' || c == '.')
            c = '_';
    }
    return text;
}

std::string Arguments::any_text() {
    static constexpr size_t kSizes[] = {1, 2, 3, 8, 16, 31, 64, 255, 256, 257, 512, 1024, 5000};
    switch (draw(6)) {
    case 0:
        return one_of(fixtures_.files).name;
    case 1:
        return one_of(fixtures_.texts);
    case 2: {
        std::string text = one_of(fixtures_.texts);
        if (!text.empty())
            text[draw(text.size())] = static_cast<char>(1 + draw(45)); // below the slash
        return text;
    }
    case 3:
        return one_of(dictionary_.group(draw(dictionary_.size())));
    case 4:
        return chance(10) ? garbage(50000) : garbage(one_of(kSizes));
    default:
        return garbage(draw(40) + 1);
    }
}

const char* Arguments::text(const std::string& name) {
    std::string value;
    // scrypt of SEAL_File takes a second, so a password comes seldom.
    const bool dear = name == "szPassword" && function_.starts_with("SEAL_") && !chance(50);
    if (dear || absurd(20))
        return nullptr;
    if (absurd(25))
        value = "";
    else
        value = absurd(5) ? any_text() : one_of(dictionary_.words_for(function_, name));
    uint8_t* const placed = place(value.size() + 1);
    memcpy(placed, value.c_str(), value.size() + 1);
    return reinterpret_cast<const char*>(placed);
}

} // namespace endurance
