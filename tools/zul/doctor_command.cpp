#include <CLI/CLI.hpp>
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <memory>

#include "commands.h"
#include "contexts.h"
#include "failures.h"
#include "json_output.h"
#include "keys.h"
#include "library.h"
#include "machine.h"
#include "operating_system.h"
#include "streams.h"
#include "terminal_style.h"

namespace tool {

namespace {

struct Finding {
    std::string name, text;
    bool isGood;
};

Finding tests_of_module() {
    const bool isGood = ZUL_PowerUpTests(0) == 0;
    return {"self-tests",
            isGood ? "the module's file is as it was sealed, and its algorithms give known answers"
                   : "the module's file was changed or replaced, or an algorithm gave a wrong answer",
            isGood};
}

Finding tests_of_generator() {
    const int result = RNG_Test(nullptr, 0);
    return {"generator",
            result == 0 ? "a known answer, and statistics of 20,000 fresh bits (FIPS 140-2)"
                        : error_text(result),
            result == 0};
}

Finding random_draws() {
    SecretBytes one(32), other(32);
    const bool isGood = RNG_Bytes(one.data(), int_length(one), nullptr, 0) == 0 &&
                        RNG_Bytes(other.data(), int_length(other), nullptr, 0) == 0 && one != other;
    return {"random bytes", isGood ? "two draws differ" : "none were given, or the same again", isGood};
}

Finding folder_of_temporary_files() {
    try {
        const std::string folder = temporary_folder();
        const std::string file = folder + "zul-doctor-" + std::to_string(RNG_Number(0, 999999999));
        Output out(file, true); // not finished, it is removed
        out.write("zul");
        return {"temporary files", folder, true};
    } catch (const Refused& refused) {
        return {"temporary files", refused.what(), false};
    }
}

Finding options_of_library() {
    std::string text;
    bool isGood = true;
    for (const auto& [name, value] : library_options()) {
        text.append(text.empty() ? "" : ", ").append(name).append("=").append(value);
        std::error_code ignored;
        if (name == "ErrorLogDir" && !std::filesystem::is_directory(path_of(value), ignored)) {
            text += " (no folder)";
            isGood = false;
        }
    }
    return {"options", (text.empty() ? "none set" : text) + " (" + options_place() + ")", isGood};
}

std::vector<Named> file_formats() {
    return {
        {"keys", "PKCS #8, PKCS #1, SEC 1, SubjectPublicKeyInfo, XML; PBES1, PBES2"},
        {"certificates", "X.509 versions 1 to 3 and CRLs (RFC 5280), PKCS #10"},
        {"messages", "CMS (RFC 5652), PKCS #7"},
        {"bundles", "PKCS #12 (RFC 7292, PBMAC1 of RFC 9579)"},
        {"sealed files", "age, version 1"},
        {"OCSP", "version 1 (RFC 6960)"},
    };
}

// per_second repeats some work for a fifth of a second and counts.
template<class Work>
int64_t per_second(int64_t count, Work work) {
    using Clock = std::chrono::steady_clock;
    const Clock::time_point begin = Clock::now(), end = begin + std::chrono::milliseconds(200);
    int64_t done = 0;
    do {
        work();
        done += count;
    } while (Clock::now() < end);
    return done * 1000000 /
           std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - begin).count();
}

struct Rate {
    std::string name, unit;
    int64_t value;
};

std::vector<Rate> measure() {
    SecretBytes data(1 << 18), out(1 << 18), key(32);
    SecretBytes digest = make_context(
        "sha256", [](unsigned char* memory, int size) { return HASH_Begin(memory, size, "sha256", 0); });
    const unsigned char iv[16] = {};
    SecretBytes cipher = make_context("aes-256-ctr", [&](unsigned char* memory, int size) {
        return CIPHER_Begin(memory, size, 1, key.data(), int_length(key), iv, sizeof iv, "aes-256-ctr", 0);
    });
    const Key signer = Key::make("p-256");
    unsigned char signature[256];
    const auto length = static_cast<int64_t>(data.size());
    return {
        {"SHA-256", "bytes/s",
         per_second(
             length,
             [&] { accept_status(HASH_Add(digest.data(), data.data(), int_length(data)), "sha256"); })},
        {"AES-256-CTR", "bytes/s",
         per_second(length,
                    [&] {
                        accept_length(CIPHER_Add(out.data(), int_length(out), cipher.data(), data.data(),
                                                 int_length(data)),
                                      "aes-256-ctr");
                    })},
        {"random bytes", "bytes/s",
         per_second(65536, [&] { accept_status(RNG_Bytes(out.data(), 65536, nullptr, 0), "random bytes"); })},
        {"P-256 signatures", "1/s",
         per_second(1,
                    [&] {
                        accept_length(SIG_Sign(signature, sizeof signature, data.data(), 32, signer.text(),
                                               "ecdsa-sha256", 0),
                                      "ecdsa-sha256");
                    })},
    };
}

JsonArray named_list(const std::vector<Named>& items) {
    JsonArray list;
    for (const auto& [name, text] : items)
        list.add(JsonObject().add("name", name).add("text", text));
    return list;
}

std::string column(const std::string& text, size_t width) {
    return text + std::string(width - std::min(width, text.size()) + 1, ' ');
}

struct DoctorCommand {
    bool json = false, speed = false;

    void run() const {
        const Library library = about_library();
        const std::vector<Finding> findings = {tests_of_module(), tests_of_generator(), random_draws(),
                                               folder_of_temporary_files(), options_of_library()};
        const std::vector<Rate> rates = speed ? measure() : std::vector<Rate>();
        const bool isGood =
            std::all_of(findings.begin(), findings.end(), [](const Finding& each) { return each.isGood; });
        if (json)
            print_json(document(library, findings, rates, isGood));
        else
            Output("-").write(text(library, findings, rates, isGood));
        if (!isGood)
            throw SilentFailure{};
    }

    static JsonObject document(const Library& library, const std::vector<Finding>& findings,
                               const std::vector<Rate>& rates, bool isGood) {
        JsonArray checks, speeds;
        for (const Finding& each : findings)
            checks.add(JsonObject().add("name", each.name).add("passed", each.isGood).add("text", each.text));
        for (const Rate& each : rates)
            speeds.add(JsonObject().add("name", each.name).add("value", each.value).add("unit", each.unit));
        JsonObject result;
        result.add("passed", isGood).add("zulcore", library.version).add("built", library.built);
        result.add_file("module", library.module).add("platform", library.platform).add("checks", checks);
        result.add("kernels", named_list(library_kernels()));
        result.add("options", named_list(library_options()));
        result.add("memory", memory_protection());
        result.add("formats", named_list(file_formats()));
        if (!rates.empty())
            result.add("rates", speeds);
        return result;
    }

    static std::string text(const Library& library, const std::vector<Finding>& findings,
                            const std::vector<Rate>& rates, bool isGood) {
        const auto heading = [](const char* name) {
            return "\n" + styled(Style::heading, name, stdout) + "\n";
        };
        std::string lines = "zulcore " + library.version + ", " + library.platform + ", built " +
                            library.built + "\n" + library.module + "\n" + heading("Checks:");
        for (const Finding& each : findings)
            lines +=
                "  " +
                (each.isGood ? styled(Style::good, "ok    ", stdout) : styled(Style::bad, "FAILED", stdout)) +
                "  " + column(each.name, 16) + each.text + "\n";
        lines += heading("Code for this processor:");
        for (const auto& [name, kernel] : library_kernels())
            lines += "  " + column(name, 24) + kernel + "\n";
        lines += heading("Memory:") + "  " + memory_protection() + "\n" + heading("Formats:");
        for (const auto& [name, about] : file_formats())
            lines += "  " + column(name, 24) + about + "\n";
        if (!rates.empty())
            lines += heading("Rates:");
        for (const Rate& each : rates)
            lines += "  " + column(each.name, 24) +
                     (each.unit == "1/s" ? std::to_string(each.value) + " a second"
                                         : std::to_string(each.value / 1000000) + " MB/s") +
                     "\n";
        return lines + "\n" +
               (isGood ? styled(Style::good, "Everything works.", stdout)
                       : styled(Style::bad, "Something does not work.", stdout)) +
               "\n";
    }
};

} // namespace

void add_doctor_command(CLI::App& app) {
    auto doctor = std::make_shared<DoctorCommand>();
    CLI::App* command = app.add_subcommand("doctor", "Check that the library works on this machine");
    command->add_flag("--speed", doctor->speed, "Measure a few rates too, for a second");
    add_json_flag(*command, doctor->json);
    command->footer(
        "It repeats the tests of the module and its random generator, and shows what the library uses.\n"
        "Exit status 1 if a check failed.\n\n"
        "Example:\n  zul doctor --speed");
    command->callback([doctor] { doctor->run(); });
}

} // namespace tool
