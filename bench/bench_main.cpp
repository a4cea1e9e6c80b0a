#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <map>
#include <openssl/crypto.h>
#include <sstream>
#include <vector>

#include "bench_pair.h"

// Google Benchmark times each side; its repetitions are interleaved, ours with theirs, and the best of each
// side counts, so that a busy moment of the machine falls on neither.

namespace {

struct Row {
    BenchPair pair;
    bool threads;
};

std::vector<Row>& rows() {
    static std::vector<Row> all;
    return all;
}

std::vector<std::pair<std::string, std::function<std::string()>>>& notes() {
    static std::vector<std::pair<std::string, std::function<std::string()>>> all;
    return all;
}

struct Options {
    int repetitions = 9;
    double seconds = 0.05; // of each repetition
    std::string filter;
};

// Keeps the highest rate (calls per second) of each benchmark.
class BestRate : public benchmark::BenchmarkReporter {
  public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Iteration)
                continue;
            double& best = rates_[run.run_name.function_name];
            best = std::max(best, static_cast<double>(run.counters.at("items_per_second")));
        }
    }
    double rate(const char* side) const { return rates_.at(side); }

  private:
    std::map<std::string, double> rates_;
};

void register_side(const char* side, const std::function<void()>& work, const Options& options, int threads) {
    benchmark::RegisterBenchmark(side,
                                 [&work](benchmark::State& state) {
                                     for (auto _ : state) {
                                         work();
                                         benchmark::ClobberMemory();
                                     }
                                     state.SetItemsProcessed(state.iterations());
                                 })
        ->MinTime(options.seconds)
        ->Repetitions(options.repetitions)
        ->Threads(threads)
        ->UseRealTime();
}

void measure(const Row& row, const Options& options) {
    const BenchPair& pair = row.pair;
    benchmark::ClearRegisteredBenchmarks();
    register_side("ours", pair.ours, options, row.threads ? 2 : 1);
    register_side("theirs", row.threads ? pair.ours : pair.theirs, options, 1);
    BestRate best;
    benchmark::RunSpecifiedBenchmarks(&best, ".*");

    const double ours = best.rate("ours"), theirs = best.rate("theirs");
    const char* unit = "ns/call";
    double shownOurs = 1e9 / ours, shownTheirs = 1e9 / theirs;
    if (row.threads) {
        unit = "Mcalls/s";
        shownOurs = ours / 1e6;
        shownTheirs = theirs / 1e6;
    } else if (pair.bytesPerCall != 0) {
        unit = "MB/s";
        shownOurs = ours * static_cast<double>(pair.bytesPerCall) / 1e6;
        shownTheirs = theirs * static_cast<double>(pair.bytesPerCall) / 1e6;
    }
    std::printf("%-44s %11.1f %11.1f  %-9s %6.2f\n", pair.name.c_str(), shownOurs, shownTheirs, unit,
                ours / theirs);
    std::fflush(stdout);
}

// The model, and of the flags those that kernels here or in libcrypto ask for.
void print_machine() {
    static const char* const wanted[] = {
        "ssse3", "sse4_1", "aes",  "pclmulqdq", "sha_ni",   "avx",      "avx2",       "bmi2",
        "adx",   "vaes",   "gfni", "avx512f",   "avx512bw", "avx512vl", "avx512ifma", "avx512_vbmi"};
    std::ifstream info("/proc/cpuinfo");
    std::string line, model, flags;
    while (std::getline(info, line) && !line.empty()) {
        const size_t colon = line.find(": ");
        if (line.rfind("model name", 0) == 0)
            model = line.substr(colon + 2);
        if (line.rfind("flags", 0) != 0)
            continue;
        std::istringstream words(line.substr(colon + 2));
        for (std::string word; words >> word;)
            if (std::find(std::begin(wanted), std::end(wanted), word) != std::end(wanted))
                flags += (flags.empty() ? "" : " ") + word;
    }
    std::printf("processor  %s\nflags      %s\n", model.c_str(), flags.c_str());
    if (const char* mask = std::getenv("OPENSSL_ia32cap"))
        std::printf("           OPENSSL_ia32cap=%s\n", mask);
    std::printf("compiler   GCC %s, %s build\npeer       %s\n", __VERSION__, ZUL_BUILD_TYPE,
                OpenSSL_version(OPENSSL_VERSION));
#ifndef __OPTIMIZE__
    std::printf("WARNING    built without optimisation: these figures say nothing\n");
#endif
    for (const auto& [subject, note] : notes())
        std::printf("%-10s %s\n", subject.c_str(), note().c_str());
}

bool parse(int argc, char** argv, Options& options) {
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        const size_t equals = argument.find('=');
        const std::string name = argument.substr(0, equals);
        const std::string value = equals == std::string::npos ? "" : argument.substr(equals + 1);
        if (name == "--repetitions")
            options.repetitions = std::atoi(value.c_str());
        else if (name == "--seconds")
            options.seconds = std::atof(value.c_str());
        else if (name == "--filter")
            options.filter = value;
        else
            return false;
    }
    return options.repetitions > 0 && options.seconds > 0;
}

} // namespace

void bench_register(BenchPair pair) {
    rows().push_back({std::move(pair), false});
}

void bench_register_threads(std::string name, std::function<void()> ours) {
    rows().push_back({{std::move(name), 0, std::move(ours), {}}, true});
}

void bench_register_note(std::string subject, std::function<std::string()> note) {
    notes().emplace_back(std::move(subject), std::move(note));
}

int main(int argc, char** argv) {
    Options options;
    if (!parse(argc, argv, options)) {
        std::fprintf(stderr, "usage: %s [--filter=TEXT] [--repetitions=N] [--seconds=S]\n", argv[0]);
        return 2;
    }
    char interleave[] = "--benchmark_enable_random_interleaving=true";
    char* settings[] = {argv[0], interleave, nullptr};
    int count = 2;
    benchmark::Initialize(&count, settings);

    print_machine();
    std::printf("\n%-44s %11s %11s  %-9s %6s\n", "row", "ours", "theirs", "unit", "ratio");
    for (const Row& row : rows())
        if (row.pair.name.find(options.filter) != std::string::npos)
            measure(row, options);
    return 0;
}
