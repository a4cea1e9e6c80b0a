#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <utility>

#include "algorithms.h"
#include "commands.h"
#include "digest_list.h"
#include "file_digest.h"
#include "folder_files.h"
#include "json_output.h"
#include "operating_system.h"
#include "streams.h"
#include "terminal_style.h"

namespace tool {

namespace {

constexpr int kMaxShake = 1 << 16;

// ListCheck compares files with lists of their digests.
struct ListCheck {
    std::vector<std::string> lists;
    bool ignoresMissing = false, isQuiet = false, foldsLineEnds = false, json = false;

    struct Counts {
        size_t good = 0, failed = 0, unreadable = 0, missing = 0, badLines = 0;
    };

    void run(const Digest* digest) const {
        report_verdict(json, [&](JsonObject& about) {
            check_all(digest, about);
            return "";
        });
    }

    // All lists are read first: wrong arguments show before anything was checked.
    void check_all(const Digest* digest, JsonObject& about) const {
        Counts counts;
        std::vector<ListedDigest> listed;
        for (const std::string& list : lists) {
            const DigestList content(Input(list).read_all(), digest);
            warn_of_lines(list, content);
            counts.badLines += content.badLines.size();
            listed.insert(listed.end(), content.digests.begin(), content.digests.end());
        }
        JsonArray results;
        for (const ListedDigest& each : listed)
            check(each, counts, results);
        about.add("files", results).add("good", counts.good).add("failed", counts.failed);
        about.add("unreadable", counts.unreadable).add("missing", counts.missing);
        about.add("badLines", counts.badLines);
        const std::string problem = problem_of(counts);
        if (!problem.empty())
            throw Refused::by_system(counts.good + counts.failed + counts.unreadable == 0 ? NO_DATA_ERROR
                                                                                          : NO_MATCH_ERROR,
                                     lists.front(), problem);
    }

    static std::string problem_of(const Counts& counts) {
        if (counts.good + counts.failed + counts.unreadable + counts.missing == 0)
            return "It holds no digest of a file.";
        if (counts.good + counts.failed + counts.unreadable == 0)
            return "None of its files is there.";
        std::string text;
        if (counts.failed > 0)
            text = std::to_string(counts.failed) + " of " + std::to_string(counts.good + counts.failed) +
                   " files differ from their digests.";
        if (counts.unreadable > 0)
            text += (text.empty() ? "" : " ") + std::to_string(counts.unreadable) +
                    (counts.unreadable == 1 ? " file" : " files") + " could not be read.";
        return text;
    }

    static void warn_of_lines(const std::string& list, const DigestList& content) {
        constexpr size_t kMostShown = 10;
        const size_t count = content.badLines.size();
        if (count == 0)
            return;
        std::string numbers;
        for (size_t i = 0; i < std::min(count, kMostShown); ++i)
            numbers += (i == 0 ? "" : ", ") + std::to_string(content.badLines[i]);
        warn(shown_name(list) + ": " + std::to_string(count) + " of " +
             std::to_string(count + content.digests.size()) +
             " lines hold no digest, or one of another algorithm: line " + numbers +
             (count > kMostShown ? " ..." : ""));
    }

    void check(const ListedDigest& each, Counts& counts, JsonArray& results) const {
        std::string status;
        try {
            if (is_standard_stream(each.file) && std::count(lists.begin(), lists.end(), "-") > 0)
                throw Refused::by_system(NO_DATA_ERROR, each.file, "The list itself came from there.");
            DigestForm form{foldsLineEnds, 0};
            if (each.digest->isExtendable)
                form.bytes = static_cast<int>(each.hex.size() / 2);
            const bool isGood = file_digest(each.file, *each.digest, form) == each.hex;
            status = isGood ? "good" : "failed";
            ++(isGood ? counts.good : counts.failed);
        } catch (const Refused& refused) {
            std::error_code ignored;
            const bool isThere =
                is_standard_stream(each.file) || std::filesystem::exists(path_of(each.file), ignored);
            if (ignoresMissing && !isThere) {
                ++counts.missing;
                return;
            }
            print_error(refused.what());
            status = "unreadable";
            ++counts.unreadable;
        }
        if (isQuiet && status == "good")
            return;
        JsonObject one;
        one.add_file("file", each.file).add("algorithm", each.digest->name).add("status", status);
        if (json)
            results.add(one);
        else
            print_line(each.file, status);
    }

    // The words are those of sha256sum.
    static void print_line(const std::string& file, const std::string& status) {
        const std::string name = escaped_name(file);
        const std::string shown = is_standard_stream(file) ? name : shown_name(name);
        Output("-").write((name.size() > file.size() ? "\\" : "") + shown + ": " +
                          (status == "good"     ? styled(Style::good, "OK", stdout)
                           : status == "failed" ? styled(Style::bad, "FAILED", stdout)
                                                : styled(Style::bad, "FAILED open or read", stdout)) +
                          "\n");
    }
};

struct HashCommand {
    std::string algorithm;
    std::vector<std::string> files;
    bool isRecursive = false;
    DigestForm form;
    ListCheck lists;

    void run() {
        lists.foldsLineEnds = form.foldsLineEnds;
        if (lists.lists.empty() && (lists.ignoresMissing || lists.isQuiet))
            throw UsageError("--ignore-missing and --quiet go with --check");
        if (isRecursive && lists.lists.empty() && is_folder(algorithm) && !is_digest(algorithm))
            files.insert(files.begin(), std::exchange(algorithm, "sha256"));
        if (lists.lists.empty() && algorithm.empty())
            throw UsageError("ALG is required");
        const Digest* digest = algorithm.empty() ? nullptr : &find_digest(algorithm, DigestUse::hash);
        if (!lists.lists.empty()) {
            if (!files.empty() || isRecursive || form.bytes != 0)
                throw UsageError("--check takes a list alone, no other FILE, -r and --length");
            if (std::count(lists.lists.begin(), lists.lists.end(), "-") > 1)
                throw UsageError("only one thing can come from standard input");
            return lists.run(digest);
        }
        if (form.bytes != 0 && !digest->isExtendable)
            throw UsageError("--length is for shake128 and shake256");
        if (isRecursive && files.empty())
            throw UsageError("-r needs a folder");
        print_digests(*digest);
    }

    void print_digests(const Digest& digest) const {
        bool isWhole = true;
        Output out("-");
        JsonArray results;
        const auto fail = [&](const std::string& file, const Refused& refused) {
            print_error(refused.what());
            isWhole = false;
            if (lists.json)
                results.add(JsonObject().add_file("file", file).add("error", error_object(refused)));
        };
        const auto add = [&](const std::string& file) {
            try {
                const std::string hex = file_digest(file, digest, form);
                if (lists.json)
                    results.add(JsonObject().add_file("file", file).add("digest", hex));
                else
                    out.write(digest_line(hex, file));
            } catch (const Refused& refused) { // the other files are still processed
                fail(file, refused);
            }
        };
        for (const std::string& file : files.empty() ? std::vector<std::string>{"-"} : files)
            if (isRecursive && is_folder(file))
                for (const std::string& each : files_below(file, fail))
                    add(each);
            else
                add(file);
        if (lists.json)
            print_json(JsonObject().add("algorithm", digest.name).add("files", results));
        if (!isWhole)
            throw SilentFailure{};
    }

    static bool is_digest(const std::string& name) {
        try {
            find_digest(name, DigestUse::hash);
            return true;
        } catch (const UsageError&) {
            return false;
        }
    }

    static bool is_folder(const std::string& file) {
        std::error_code ignored;
        return !is_standard_stream(file) && std::filesystem::is_directory(path_of(file), ignored);
    }
};

} // namespace

void add_hash_command(CLI::App& app) {
    auto hash = std::make_shared<HashCommand>();
    CLI::App* command = app.add_subcommand("hash", "Print or check the digests of files");
    command
        ->add_option(
            "ALG", hash->algorithm,
            "sha1, sha224, sha256, sha384, sha512, sha512-256, sha3-224 ... sha3-512, shake128/256, md5, md2")
        ->option_text(" ");
    command->add_option("FILE", hash->files, "Files; - or none for standard input")->option_text(" ");
    command->add_flag("-r,--recursive", hash->isRecursive,
                      "Of folders all files below them, sorted by their names");
    command
        ->add_option("-c,--check", hash->lists.lists,
                     "Check the files in a list that zul hash, sha256sum or the like wrote")
        ->allow_extra_args(false)
        ->option_text("FILE");
    command->add_flag("--ignore-missing", hash->lists.ignoresMissing,
                      "With --check: leave out files that are not there");
    command->add_flag("-q,--quiet", hash->lists.isQuiet, "With --check: print no line for a good file");
    command->add_flag("--text", hash->form.foldsLineEnds, "Count each CR LF as LF");
    command->add_option("--length", hash->form.bytes, "Bytes that shake128 (32) or shake256 (64) gives")
        ->check(CLI::Range(1, kMaxShake))
        ->option_text("BYTES");
    add_json_flag(*command, hash->lists.json);
    command->footer(
        "A line begins with a backslash if the file's name is escaped in it, as with sha256sum: a\n"
        "backslash is \\\\, a line feed is \\n, a carriage return is \\r.\n\n"
        "-r follows no link to a folder, and without ALG means sha256. --check without ALG goes by lines\n"
        "such as \"SHA256 (file) = ...\", or else by the length: md5, sha1 and sha224 to sha512. Exit "
        "status\n"
        "1 if a file differs or cannot be read, or if none was checked.\n\n"
        "Example:\n  zul hash sha256 report.pdf notes.txt\n  zul hash -r photos > list\n"
        "  zul hash --check list");
    command->callback([hash] { hash->run(); });
}

} // namespace tool
