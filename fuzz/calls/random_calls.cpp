// random_calls SEED SECONDS|CALLSc: calls every export with arguments drawn at random, sensible and absurd
// ones: null pointers, odd addresses, lengths below zero, unknown options, garbage for texts. What a caller
// owes is kept: a buffer is as long as it is said to be, and ends where the process may not go on. A call
// must come back, leave a text that ends inside its room, and hold neither memory nor handles. The working
// folder is the program's own.
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <set>
#include <span>
#include <string>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

#include "call_table.h"
#include "endurance/process_size.h"
#include "fixtures.h"
#include "zulcore.h"

#ifdef ZUL_ENDURANCE_EMBEDDED
#include "frame/memory.h"
#endif

namespace endurance {
namespace {

const char* currentFunction = "";
unsigned long currentCall = 0;
FILE* report = stderr;

void on_signal(int signal) {
    std::fprintf(report, "signal %d in call %lu, %s\n", signal, currentCall, currentFunction);
    std::fflush(report);
    std::_Exit(1);
}

bool failed(const char* what, const char* function) {
    std::fprintf(report, "call %lu, %s: %s\n", currentCall, function, what);
    std::fflush(report);
    return false;
}

std::set<std::string> succeeded; // functions that had a call without an error

bool call_once(Arguments& a, const Call& call) {
    currentFunction = call.name;
    a.begin(call.name);
    const int result = call.make(a);
    const int code = ZUL_ErrorCode();
    if (result > 0 && code == 0 && !a.rooms_hold_texts(result))
        return failed("a text does not end inside its room", call.name);
    if (result >= 0 && code == 0)
        succeeded.insert(call.name);
    char text[512];
    if (strncmp(call.name, "CNV_", 4) != 0 && (code < 0 || code > MISC_ERROR))
        return failed("no error code", call.name);
    const int length = ZUL_LastError(text, 511);
    if (length < 0 || length > 511 || strlen(text) != static_cast<size_t>(length))
        return failed("an error text with another length", call.name);
    return true;
}

int run(uint64_t seed, double seconds, unsigned long limit) {
    const Fixtures fixtures = make_fixtures();
    Arguments arguments(seed, fixtures);
    // Calls may write to the standard streams; the report goes where the errors went.
    std::setvbuf(stdout, nullptr, _IONBF, 0);
    report = fdopen(dup(2), "w");
#ifdef _WIN32
    const char* const nothing = "NUL";
#else
    const char* const nothing = "/dev/null";
#endif
    if (!std::freopen(nothing, "r", stdin) || !std::freopen(nothing, "w", stdout) ||
        !std::freopen(nothing, "w", stderr))
        return 2;
    for (const int signal : {SIGSEGV, SIGILL, SIGFPE, SIGABRT})
        std::signal(signal, on_signal);
#ifdef SIGBUS
    std::signal(SIGBUS, on_signal);
#endif

    const auto start = std::chrono::steady_clock::now();
    const auto passed = [&] {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    };
    ProcessSize early;
    [[maybe_unused]] long blocks = 0;
    double slowest = 0;
    const char* slowestFunction = "";
    const std::span<const Call> table = calls();
    for (currentCall = 0; limit != 0 ? currentCall < limit : passed() < seconds; currentCall++) {
        if (currentCall % 2000 == 0)
            restore_folder(fixtures);
        const bool warm = limit != 0 ? currentCall == limit / 4 : early.memory == 0 && passed() > seconds / 4;
        if (warm) {
            early = process_size();
#ifdef ZUL_ENDURANCE_EMBEDDED
            blocks = zul::live_blocks();
#endif
        }
        const Call& call = table[arguments.draw(table.size())];
        // Random bytes with a prompt wait half a second for keys to be let go.
        if ((strncmp(call.name, "RNG_BytesWith", 13) == 0 || strcmp(call.name, "RNG_MakeSeedFile") == 0) &&
            !arguments.chance(100))
            continue;
        const double before = passed();
        if (!call_once(arguments, call))
            return 1;
        if (passed() - before > slowest) {
            slowest = passed() - before;
            slowestFunction = call.name;
        }
    }
    const ProcessSize end = process_size();
    std::fprintf(
        report,
        "%lu calls of %zu functions (%zu succeeded) in %.0f s; memory %ld -> %ld KiB, handles %ld -> %ld; "
        "longest %.2f s (%s)\n",
        currentCall, table.size(), succeeded.size(), passed(), early.memory, end.memory, early.handles,
        end.handles, slowest, slowestFunction);
    if (std::getenv("ZUL_ENDURANCE_NAMES"))
        for (const Call& call : table)
            if (succeeded.count(call.name) == 0)
                std::fprintf(report, "%s never succeeded\n", call.name);
    bool good = end.handles <= early.handles && end.memory < early.memory + 16 * 1024;
#ifdef ZUL_ENDURANCE_EMBEDDED
    std::fprintf(report, "blocks %ld -> %ld\n", blocks, zul::live_blocks());
    good = good && zul::live_blocks() == blocks;
#endif
    std::fflush(report);
    return good ? 0 : 1;
}

} // namespace
} // namespace endurance

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: random_calls SEED SECONDS|CALLSc\n");
        return 2;
    }
#ifndef _WIN32
    setsid(); // without a terminal nobody is asked anything
#endif
    const std::filesystem::path folder = std::filesystem::current_path() / "random_calls";
    std::filesystem::remove_all(folder);
    std::filesystem::create_directory(folder);
    std::filesystem::current_path(folder);
    const std::string many = argv[2];
    const bool counted = many.back() == 'c';
    return endurance::run(std::strtoull(argv[1], nullptr, 0), counted ? 0 : std::atof(argv[2]),
                          counted ? std::strtoul(argv[2], nullptr, 10) : 0);
}
