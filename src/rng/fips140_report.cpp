#include "rng/fips140_report.h"

#include <cstdarg>
#include <cstdio>

#include "frame/file_writer.h"
#include "frame/text.h"
#include "rng/rng.h"
#include "zulcore.h"

namespace zul {

namespace {

// Report writes lines to a file. FileWriter::finish reports a failed write.
class Report {
  public:
    explicit Report(FileWriter& file) : file_(file) {}

    __attribute__((format(printf, 2, 3))) void print(const char* format, ...) {
        char line[128];
        va_list arguments;
        va_start(arguments, format);
        const int length = vsnprintf(line, sizeof line, format, arguments);
        va_end(arguments);
        if (length > 0)
            file_.write(line, length < static_cast<int>(sizeof line) ? static_cast<size_t>(length)
                                                                     : sizeof line - 1);
    }

    void verdict(bool passed) { print("%s\n", passed ? "Passed" : "FAILED!"); }

    // row prints one number for each length of run under a title.
    template<class Value>
    void row(const char* title, Value value) {
        print("%-10s", title);
        for (int i = 0; i < kFips140RunLengths; i++)
            value(i);
        print("\n");
    }

  private:
    FileWriter& file_;
};

// Numbers are printed as integers, since printf takes the decimal point from the application's locale.
struct Hundredths {
    explicit Hundredths(int tenThousandths)
        : whole((tenThousandths + 50) / 10000), part((tenThousandths + 50) / 100 % 100) {}
    int whole, part;
};

void print_runs(Report& report, const Fips140Result& result) {
    report.print("3. Runs test:\n");
    report.print("%-10s%11d%11d%11d%11d%11d%11s\n", "Length:", 1, 2, 3, 4, 5, "6+");
    report.row("Interval:", [&](int i) {
        char interval[32];
        snprintf(interval, sizeof interval, "%d-%d", kFips140Runs[i].low, kFips140Runs[i].high);
        report.print("%11s", interval);
    });
    report.row("Blocks:", [&](int i) { report.print("%11d", result.runs[1][i]); });
    report.row("Gaps:", [&](int i) { report.print("%11d", result.runs[0][i]); });
    report.verdict(result.runs_passed());
}

void print_sample(Report& report, std::span<const uint8_t, kFips140Bytes> sample) {
    constexpr size_t kPerLine = 32;
    report.print("Test sample was:-\n");
    for (size_t i = 0; i < sample.size(); i++)
        report.print("%02x%s", static_cast<unsigned>(sample[i]),
                     (i + 1) % kPerLine == 0 || i + 1 == sample.size() ? "\n" : "");
}

} // namespace

int fips140_write_report(const char* path, const Fips140Result& result,
                         std::span<const uint8_t, kFips140Bytes> sample) {
    FileWriter file(path);
    if (!file.is_open())
        return PRNG_ERR_FILE_CREATE;
    Report report(file);

    report.print("FIPS140-2 test for %d bits (%d bytes)\n", kFips140Bits, static_cast<int>(kFips140Bytes));
    report.print("1. Monobits test n1 = %ld (%d - %d)\n", static_cast<long>(result.ones), kFips140Ones.low,
                 kFips140Ones.high);
    report.verdict(result.monobit_passed());
    const Hundredths x(result.poker), low(kFips140Poker.low), high(kFips140Poker.high);
    report.print("2. Poker test X = %d.%02d (%d.%02d - %d.%02d)\n", x.whole, x.part, low.whole, low.part,
                 high.whole, high.part);
    report.verdict(result.poker_passed());
    print_runs(report, result);
    report.print("4. Long runs test: Gmax = %d Bmax = %d (%d)\n", result.longest[0], result.longest[1],
                 kFips140LongRun);
    report.verdict(result.long_runs_passed());
    print_sample(report, sample);
    return file.finish() ? 0 : PRNG_ERR_FILE_WRITE;
}

int rng_test(const char* path) {
    if (const int result = rng_health_check(); result != 0)
        return result;
    Secret<kFips140Bytes> drawn;
    if (const int result = rng_bytes(drawn.data(), kFips140Bytes); result != 0)
        return result;

    const std::span<const uint8_t, kFips140Bytes> sample(drawn.data(), kFips140Bytes);
    const Fips140Result statistics = fips140_test(sample);
    int reported = 0;
    if (!is_missing(path))
        reported = fips140_write_report(path, statistics, sample);
    return statistics.passed() ? reported : TEST_FAILED_ERROR;
}

} // namespace zul
