#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <openssl/crypto.h>
#include <sched.h>
#include <sstream>
#include <vector>

#include "bench_pair.h"
#include "platform/cpu.h"

// Google Benchmark times each side. Slices of the two alternate and each pair gives a ratio, so that a busy
// moment of the machine falls on both; the median of the pairs counts, and half of them lie within the spread
// around it.

namespace {

struct Row {
    std::string group;
    BenchPair pair;
    bool threads;
};

std::vector<Row>& rows() {
    static std::vector<Row> all;
    return all;
}

// The group of the rows that are being registered. A function, since rows register before main.
std::string& current_group() {
    static std::string name;
    return name;
}

std::vector<std::pair<std::string, std::function<std::string()>>>& notes() {
    static std::vector<std::pair<std::string, std::function<std::string()>>> all;
    return all;
}

struct Options {
    int slices = 11;
    double seconds = 0.05; // of each slice
    std::vector<std::string> filters;
    std::string json;
    bool portable = false; // our side without the kernels of this processor
};

struct Result {
    double ours, theirs; // as they are shown
    const char* unit;
    double ratio, spread; // the spread as a part of the ratio
};

// Keeps the rate (calls per second) of the last slice.
class LastRate : public benchmark::BenchmarkReporter {
  public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs)
            rate_ = run.counters.at("items_per_second");
    }
    double rate() const { return rate_; }

  private:
    double rate_ = 0;
};

double slice(const std::function<void()>& work, const Options& options, int threads) {
    benchmark::ClearRegisteredBenchmarks();
    benchmark::RegisterBenchmark("slice",
                                 [&work](benchmark::State& state) {
                                     for (auto _ : state) {
                                         work();
                                         benchmark::ClobberMemory();
                                     }
                                     state.SetItemsProcessed(state.iterations());
                                 })
        ->MinTime(options.seconds)
        ->Threads(threads)
        ->UseRealTime();
    LastRate last;
    benchmark::RunSpecifiedBenchmarks(&last, ".*");
    return last.rate();
}

// What lies at a part of the way through the sorted values.
double quantile(std::vector<double> values, double part) {
    std::sort(values.begin(), values.end());
    return values[static_cast<size_t>(part * static_cast<double>(values.size() - 1) + 0.5)];
}

// One processor for a row of one thread, or all of them.
void pin(bool one) {
    static const cpu_set_t allowed = [] {
        cpu_set_t set;
        sched_getaffinity(0, sizeof set, &set);
        return set;
    }();
    cpu_set_t set = allowed;
    if (one) {
        CPU_ZERO(&set);
        size_t last = CPU_SETSIZE - 1;
        while (last > 0 && !CPU_ISSET(last, &allowed))
            --last;
        CPU_SET(last, &set);
    }
    sched_setaffinity(0, sizeof set, &set);
}

Result measure(const Row& row, const Options& options) {
    const BenchPair& pair = row.pair;
    std::vector<double> ours, theirs, ratios;
    pin(!row.threads);
    for (int i = 0; i < options.slices; ++i) {
        ours.push_back(slice(pair.ours, options, row.threads ? 2 : 1));
        theirs.push_back(slice(row.threads ? pair.ours : pair.theirs, options, 1));
        ratios.push_back(ours.back() / theirs.back());
    }
    pin(false);
    Result result = {1e9 / quantile(ours, 0.5), 1e9 / quantile(theirs, 0.5), "ns/call", quantile(ratios, 0.5),
                     0};
    result.spread = (quantile(ratios, 0.75) - quantile(ratios, 0.25)) / (2 * result.ratio);
    if (row.threads || pair.bytesPerCall != 0) {
        result.unit = row.threads ? "Mcalls/s" : "MB/s";
        const double scale = row.threads ? 1e-6 : static_cast<double>(pair.bytesPerCall) / 1e6;
        result.ours = quantile(ours, 0.5) * scale;
        result.theirs = quantile(theirs, 0.5) * scale;
    }
    std::printf("%-52s %11.1f %11.1f  %-9s %6.2f  +-%2.0f %%\n", pair.name.c_str(), result.ours,
                result.theirs, result.unit, result.ratio, 100 * result.spread);
    std::fflush(stdout);
    return result;
}

using Machine = std::vector<std::pair<std::string, std::string>>;

// The model, and of the flags those that kernels here or in libcrypto ask for.
Machine machine() {
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
    Machine all = {{"processor", model}, {"flags", flags}};
    if (const char* mask = std::getenv("OPENSSL_ia32cap"))
        all.emplace_back("mask", std::string("OPENSSL_ia32cap=") + mask);
    all.emplace_back("compiler", std::string("GCC ") + __VERSION__ + ", " + ZUL_BUILD_TYPE + " build");
    all.emplace_back("peer", OpenSSL_version(OPENSSL_VERSION));
    for (const auto& [subject, note] : notes())
        all.emplace_back(subject, note());
#ifndef __OPTIMIZE__
    all.emplace_back("WARNING", "built without optimisation: these figures say nothing");
#endif
    return all;
}

// JSON of names and figures, which hold nothing that needs an escape.
void write_json(const Options& options, const Machine& about,
                const std::vector<std::pair<const Row*, Result>>& results) {
    std::FILE* file = std::fopen(options.json.c_str(), "w");
    if (file == nullptr) {
        std::perror(options.json.c_str());
        std::exit(1);
    }
    std::fprintf(file, "{\"machine\": [");
    for (size_t i = 0; i < about.size(); ++i)
        std::fprintf(file, "%s\n  [\"%s\", \"%s\"]", i == 0 ? "" : ",", about[i].first.c_str(),
                     about[i].second.c_str());
    std::fprintf(file, "],\n \"slices\": %d, \"seconds\": %g,\n \"rows\": [", options.slices,
                 options.seconds);
    for (size_t i = 0; i < results.size(); ++i) {
        const auto& [row, result] = results[i];
        std::fprintf(file,
                     "%s\n  {\"group\": \"%s\", \"name\": \"%s\", \"bytes\": %zu, \"ours\": %.5g, "
                     "\"theirs\": %.5g, \"unit\": \"%s\", \"ratio\": %.3f, \"spread\": %.3f}",
                     i == 0 ? "" : ",", row->group.c_str(), row->pair.name.c_str(), row->pair.bytesPerCall,
                     result.ours, result.theirs, result.unit, result.ratio, result.spread);
    }
    std::fprintf(file, "]}\n");
    if (std::fclose(file) != 0)
        std::exit(1);
}

bool parse(int argc, char** argv, Options& options) {
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        const size_t equals = argument.find('=');
        const std::string name = argument.substr(0, equals);
        const std::string value = equals == std::string::npos ? "" : argument.substr(equals + 1);
        if (name == "--slices")
            options.slices = std::atoi(value.c_str());
        else if (name == "--seconds")
            options.seconds = std::atof(value.c_str());
        else if (name == "--filter")
            options.filters.push_back(value);
        else if (name == "--json")
            options.json = value;
        else if (argument == "--portable")
            options.portable = true;
        else
            return false;
    }
    return options.slices > 0 && options.seconds > 0;
}

} // namespace

BenchRows::BenchRows(const char* file, void (*add)()) {
    const std::string path = file;
    const size_t begin = path.rfind('/') + 1;
    current_group() = path.substr(begin, path.rfind("_bench") - begin);
    add();
}

void bench_register(BenchPair pair) {
    rows().push_back({current_group(), std::move(pair), false});
}

void bench_register_threads(std::string name, std::function<void()> ours) {
    rows().push_back({current_group(), {std::move(name), 0, std::move(ours), {}}, true});
}

void bench_register_note(std::string subject, std::function<std::string()> note) {
    notes().emplace_back(std::move(subject), std::move(note));
}

int main(int argc, char** argv) {
    Options options;
    if (!parse(argc, argv, options)) {
        std::fprintf(stderr,
                     "usage: %s [--filter=TEXT ...] [--slices=N] [--seconds=S] [--json=FILE] [--portable]\n",
                     argv[0]);
        return 2;
    }
    int count = 1;
    benchmark::Initialize(&count, argv);

    if (options.portable)
        zul::cpu_mask_features(~uint32_t{0});
    const Machine about = machine();
    for (const auto& [subject, text] : about)
        std::printf("%-10s %s\n", subject.c_str(), text.c_str());
    std::printf("\n%-52s %11s %11s  %-9s %6s  %s\n", "row", "ours", "theirs", "unit", "ratio", "spread");
    std::vector<std::pair<const Row*, Result>> results;
    for (const Row& row : rows()) {
        bool wanted = options.filters.empty();
        for (const std::string& filter : options.filters)
            wanted |= row.pair.name.find(filter) != std::string::npos;
        if (wanted)
            results.emplace_back(&row, measure(row, options));
    }
    if (!options.json.empty())
        write_json(options, about, results);
    return 0;
}
