#include "injection/harness.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>

#include "frame/memory.h"

#ifndef _WIN32
#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>
#endif

namespace injection {

namespace fs = std::filesystem;

bool triesAll = false;

namespace {

// A seed file has this length.
const std::string kOld = "what stood in the file before: it is neither key nor certificate";

// outputs gives what stands in the folder of the outputs.
std::map<std::string, std::string> outputs() {
    std::map<std::string, std::string> all;
    for (const auto& entry : fs::directory_iterator(fs::path(world().target.c_str()).parent_path())) {
        std::ifstream file(entry.path(), std::ios::binary);
        all[entry.path().filename().string()] = {std::istreambuf_iterator<char>(file),
                                                 std::istreambuf_iterator<char>()};
    }
    return all;
}

// Random serial numbers and signatures of ECDSA differ in length.
bool is_about(size_t size, size_t whole) {
    constexpr size_t kSpread = 12;
    return size + kSpread >= whole && size <= whole + kSpread;
}

// The lowest free descriptor: a file that stays open takes it.
int next_descriptor() {
#ifdef _WIN32
    return 0;
#else
    const int free = dup(STDERR_FILENO);
    close(free);
    return free;
#endif
}

} // namespace

const std::vector<Before>& befores(const Call& call) {
    static const std::vector<Before> none{Before::nothing}, existing{Before::file},
        all{Before::nothing, Before::file, Before::linked};
    return call.output == Output::none ? none : call.output == Output::inPlace ? existing : all;
}

Trial::Trial(const Call& call, Before before) : call_(call), before_(before) {}

std::string Trial::name() const {
    static const char* const words[] = {"", " over a file", " over a linked file"};
    return call_.name + std::string(" #") + std::to_string(&call_ - every_call().data()) +
           words[static_cast<int>(before_)];
}

void Trial::prepare() const {
    const World& w = world();
    if (call_.output == Output::none)
        return;
    for (const auto& [name, content] : outputs())
        fs::remove(w.outputs.file(name));
    if (before_ == Before::nothing)
        return;
    w.outputs.write("target", kOld);
    if (call_.output == Output::pair)
        w.outputs.write("second", kOld);
    if (before_ == Before::linked)
        fs::create_hard_link(w.target.c_str(), w.link.c_str());
}

void Trial::run(const std::function<void()>& arm) {
    do {
        prepare();
        blocks_ = zul::live_blocks();
        descriptor_ = next_descriptor();
        arm();
        result_ = call_.run(world());
        // One in a thousand sets of good random bits fails the statistics.
    } while (call_.name == std::string("RNG_Test") && result_ == -TEST_FAILED_ERROR);
}

void Trial::expect_clean() {
    run();
    EXPECT_TRUE(succeeded()) << name() << ": " << result_;
    wholeSize_ = outputs()["target"].size();
    wholeSecondSize_ = outputs()["second"].size();
    expect_whole();
    expect_nothing_leaked();
}

int Trial::code() const {
    return call_.good == Good::status ? result_ : -result_;
}

void Trial::expect_nothing_leaked() const {
    EXPECT_EQ(zul::live_blocks(), blocks_) << name();
    EXPECT_EQ(next_descriptor(), descriptor_) << name();
}

void Trial::expect_failed(bool looksAtOutputs) const {
    ASSERT_FALSE(succeeded()) << name();
    EXPECT_GT(code(), 0) << name();
    const bool isRecorded = call_.name != std::string("X509_MakeCRL"); // its text is
    EXPECT_EQ(ZUL_ErrorCode(), isRecorded ? code() : 0) << name();
    char text[512];
    EXPECT_GT(ZUL_ErrorLookup(text, sizeof text, code()), 0) << name() << ": no text for " << code();
    if (looksAtOutputs && call_.output != Output::none)
        expect_nothing_half();
}

void Trial::expect_nothing_half() const {
    const auto files = outputs();
    for (const auto& [file, left] : files) {
        const std::string what = name() + ": " + std::to_string(left.size()) + " bytes stay in " + file;
        const bool isOld = before_ != Before::nothing && left == kOld;
        const bool isWhole = call_.output == Output::pair && is_about(left.size(), wholeSize_);
        if (file == "target" && call_.output == Output::inPlace) {
            EXPECT_LE(left.size(), kOld.size()) << what;
        } else if (file == "target") {
            EXPECT_TRUE(isOld || isWhole || call_.output == Output::part) << what;
        } else if (file == "link") {
            EXPECT_TRUE(isOld || isWhole || call_.output == Output::part ||
                        (left.empty() && !files.contains("target")))
                << what;
        } else if (file == "second" && call_.output == Output::pair) {
            EXPECT_TRUE(isOld || left.size() == wholeSecondSize_) << what;
        } else {
            ADD_FAILURE() << what;
        }
    }
    if (replaces()) {
        EXPECT_TRUE(files.contains("target")) << name() << ": the old file is gone";
    }
}

bool Trial::replaces() const {
    return before_ == Before::file && (call_.output == Output::replaces || call_.output == Output::pair);
}

void Trial::expect_whole() const {
    if (call_.output == Output::none || call_.output == Output::inPlace)
        return;
    auto files = outputs();
    const std::string made = files["target"];
    EXPECT_TRUE(is_about(made.size(), wholeSize_) && made != kOld)
        << name() << ": " << made.size() << " bytes";
    if (before_ == Before::linked) {
        EXPECT_EQ(files["link"], made) << name();
    }
    if (call_.output == Output::pair) {
        EXPECT_EQ(files["second"].size(), wholeSecondSize_) << name();
    }
    for (const char* own : {"target", "link", "second"})
        files.erase(own);
    EXPECT_TRUE(files.empty()) << name() << ": " << files.begin()->first << " stays";
}

bool Trial::expect_kept() const {
    bool stays = false;
    if (call_.output == Output::none || call_.output == Output::inPlace)
        return stays;
    for (const auto& [file, left] : outputs()) {
        const bool isOwn = file == "target" || file == "second" || file == "link";
        const bool isGood =
            left == kOld || is_about(left.size(), file == "second" ? wholeSecondSize_ : wholeSize_);
        if (isOwn && replaces()) {
            EXPECT_TRUE(isGood) << name() << ": " << left.size() << " bytes in " << file;
        }
        stays = stays || !isGood || !isOwn;
    }
    return stays;
}

std::vector<size_t> sample(size_t count) {
    const size_t whole = triesAll ? 200 : 25;
    std::vector<size_t> numbers;
    for (size_t i = 1; i <= count; i += i < whole ? 1 : 1 + i / 20)
        numbers.push_back(i);
    return numbers;
}

} // namespace injection

// The prompts are to find nobody, from whatever the program is started.
static void leave_terminal() {
#ifndef _WIN32
    const int terminal = open("/dev/tty", O_RDWR | O_CLOEXEC);
    if (terminal < 0)
        return;
    ioctl(terminal, TIOCNOTTY);
    close(terminal);
#endif
}

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    for (int i = 1; i < argc; i++)
        injection::triesAll = injection::triesAll || argv[i] == std::string("--all");
    leave_terminal();
    calls::world(); // and with it the record of this thread
    return RUN_ALL_TESTS();
}
