#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdint>
#include <memory>

#include "commands.h"
#include "failures.h"
#include "hex_text.h"
#include "json_output.h"
#include "operating_system.h"
#include "streams.h"

namespace tool {

namespace {

constexpr size_t kMaxRequest = 65536; // of one call of the generator

struct RandomCommand {
    std::string count, out = "-", report;
    std::vector<int> range;
    bool hex = false, test = false, json = false;

    void print_number() const {
        const int64_t lower = range[0], upper = range[1];
        if (upper < lower)
            throw UsageError("--number takes the lower bound first: LOWER UPPER");
        if (upper - lower >= std::numeric_limits<int>::max())
            throw UsageError("--number takes a range of at most 2147483647 numbers");
        const int number = RNG_Number(range[0], range[1]);
        print_report(json, JsonObject().add("number", number), std::to_string(number) + "\n");
    }

    void run_test() const {
        accept_length(RNG_Test(report.empty() ? nullptr : report.c_str(), 0), "test of the generator");
        print_report(json, JsonObject().add("passed", true),
                     "The generator passed its known-answer test and the statistical tests of FIPS 140-2.\n");
    }

    static SecretBytes draw(uint64_t most) {
        SecretBytes bytes(static_cast<size_t>(std::min<uint64_t>(most, kMaxRequest)));
        accept_status(RNG_Bytes(bytes.data(), int_length(bytes), nullptr, 0), "random");
        return bytes;
    }

    void print_object(uint64_t size) const {
        constexpr uint64_t kMost = 1 << 24;
        if (!hex || !is_standard_stream(out))
            throw UsageError("--json goes with --hex without OUT, --number and --test");
        if (size > kMost)
            throw UsageError("--json takes at most 16777216 bytes");
        SecretBytes all;
        while (all.size() < size) {
            const SecretBytes bytes = draw(size - all.size());
            all.insert(all.end(), bytes.begin(), bytes.end());
        }
        print_json(JsonObject().add_hex("bytes", all.data(), all.size()));
    }

    void write_bytes() const {
        uint64_t left = 0;
        if (count.empty())
            throw UsageError("how many bytes? zul random N, or --number LOWER UPPER, or --test");
        if (count.size() > 18 || count.find_first_not_of("0123456789") != count.npos)
            throw UsageError("N is a number of bytes, such as 32, not " + in_quotes(count));
        left = std::stoull(count);
        if (json)
            return print_object(left);
        if (is_standard_stream(out) && !hex && output_is_terminal())
            throw UsageError(
                "random bytes would disturb the terminal; use --hex, or name a file: zul random " + count +
                " FILE");
        Output output(out);
        while (left > 0) {
            const SecretBytes bytes = draw(left);
            left -= bytes.size();
            if (!hex) {
                output.write(bytes);
                continue;
            }
            SecretBytes line = hex_line(bytes);
            if (left > 0)
                line.pop_back(); // the line ends after the last bytes
            output.write(line);
        }
        output.finish();
    }

    void run() const {
        const int kinds = (test ? 1 : 0) + (range.empty() ? 0 : 1) + (count.empty() ? 0 : 1);
        if (kinds > 1)
            throw UsageError("N, --number and --test exclude each other");
        if (!report.empty() && !test)
            throw UsageError("--report goes with --test");
        if (test)
            run_test();
        else if (!range.empty())
            print_number();
        else
            write_bytes();
    }
};

} // namespace

void add_random_command(CLI::App& app) {
    auto random = std::make_shared<RandomCommand>();
    CLI::App* command = app.add_subcommand("random", "Make random bytes or a random number");
    command->add_option("N", random->count, "How many bytes")->option_text(" ");
    command->add_option("OUT", random->out, "Output file; - or none for standard output")->option_text(" ");
    command->add_flag("--hex", random->hex, "Write hex digits instead of bytes");
    command->add_option("--number", random->range, "Print one number in that range, bounds included")
        ->expected(2)
        ->option_text("LOWER UPPER");
    command->add_flag("--test", random->test, "Test the generator");
    command->add_option("--report", random->report, "With --test: write a report to a file")
        ->type_name("FILE");
    add_json_flag(*command, random->json);
    command->footer("Example:\n  zul random 32 aes.key\n  zul random 16 --hex\n  zul random --number 1 6");
    command->callback([random] { random->run(); });
}

} // namespace tool
