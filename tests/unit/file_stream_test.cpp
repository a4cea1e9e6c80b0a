#include <filesystem>

#include "frame/file_writer.h"
#include "support/unit_test.h"

using namespace zul;
namespace fs = std::filesystem;

static std::string read_by(const std::string& path, size_t piece, bool text) {
    FileReader reader(path.c_str(), text);
    EXPECT_TRUE(reader.is_open());
    std::string all;
    std::vector<char> part(piece);
    for (size_t got; (got = reader.read(part.data(), piece)) > 0;)
        all.append(part.data(), got);
    EXPECT_FALSE(reader.failed());
    return all;
}

TEST(FileReader, FoldsLineEndsWhereverItsBufferEnds) {
    const test::TempDir dir;
    const size_t buffer = 64 * 1024;
    const struct {
        const char *stored, *folded;
    } ends[] = {{"\r\n", "\n"}, {"\r\r\n", "\r\n"}, {"\n\r", "\n\r"}, {"\r", "\r"}, {"\rx", "\rx"}};
    for (const auto& end : ends) {
        for (size_t before = buffer - 3; before <= buffer + 1; before++) {
            for (const char* after : {"", "rest"}) {
                const std::string path = dir.write("lines", std::string(before, '.') + end.stored + after);
                const std::string wanted = std::string(before, '.') + end.folded + after;
                // Not EXPECT_EQ, which would print 64 KiB.
                EXPECT_TRUE(read_by(path, 1000, true) == wanted) << before << " " << after;
                EXPECT_TRUE(read_by(path, 70000, true) == wanted) << before << " " << after;
                EXPECT_TRUE(read_by(path, 1000, false) == std::string(before, '.') + end.stored + after);
            }
        }
    }
}

#ifdef __linux__
TEST(FileReader, TakesTheTextThatTheSystemGivesToOneReadOnly) {
    for (const char* path : {"/proc/sys/kernel/pid_max", "/proc/sys/kernel/ostype", "/proc/filesystems"})
        for (const bool text : {false, true})
            EXPECT_EQ(read_by(path, 1, text), test::read_text(path)) << path;
}
#endif

// write_by gives what a file holds after a writer that is finished or destroyed before.
static std::string write_by(const std::string& path, const WriteRules& rules, bool finishes) {
    {
        FileWriter writer(path.c_str(), rules);
        EXPECT_TRUE(writer.is_open());
        EXPECT_TRUE(writer.write(std::string(100000, 'c').data(), 100000) && writer.write("new", 3));
        EXPECT_TRUE(!finishes || writer.finish());
    }
    return test::file_exists(path) ? test::read_text(path) : "none";
}

TEST(FileWriter, LeavesAFileAsItsRulesSay) {
    const std::string whole = std::string(100000, 'c') + "new";
    const struct {
        WriteRules rules;
        const char* old; // null: no file was there
        std::string unfinished;
    } rows[] = {{{}, nullptr, "none"},
                {{}, "old", "none"},
                {{.replaces = true}, nullptr, "none"},
                {{.replaces = true}, "old", "old"},
                {{.keepsPart = true}, "old", whole}};
    for (const auto& row : rows) {
        for (const bool finishes : {false, true}) {
            const test::TempDir dir;
            const std::string path = row.old == nullptr ? dir.file("out") : dir.write("out", row.old);
            // Not EXPECT_EQ, which would print it all.
            EXPECT_TRUE(write_by(path, row.rules, finishes) == (finishes ? whole : row.unfinished));
            const auto files = std::distance(fs::directory_iterator(dir.path()), {});
            EXPECT_EQ(files, test::file_exists(path) ? 1 : 0);
        }
    }
}

TEST(FileWriter, ReplacesOnlyPlainFilesThatMayBeWritten) {
    const test::TempDir dir;
    const std::string path = dir.write("out", "old"), link = dir.file("link"), name = dir.file("name");
    EXPECT_FALSE(FileWriter(path.c_str(), {.replaces = true, .input = path.c_str()}).is_open());
    fs::permissions(path, fs::perms(0440));
    EXPECT_FALSE(FileWriter(path.c_str(), {.replaces = true}).is_open());
    EXPECT_EQ(test::read_text(path), "old");
    fs::permissions(path, fs::perms(0640));
    std::error_code noLinks;
    fs::create_hard_link(path, name);
    fs::create_symlink(path, link, noLinks);
    for (const std::string& other : noLinks ? std::vector{name} : std::vector{name, link}) {
        const std::string written = write_by(other, {.replaces = true}, true);
        EXPECT_TRUE(written == test::read_text(path) && written.size() > 3) << other;
        dir.write("out", "old");
    }
#ifndef _WIN32
    EXPECT_TRUE(fs::is_symlink(link));
    fs::remove(name);
    for (const WriteRules& rules : {WriteRules{.replaces = true}, {.secret = true, .replaces = true}}) {
        fs::permissions(path, fs::perms(0640));
        write_by(path, rules, true);
        EXPECT_EQ(fs::status(path).permissions(), fs::perms(rules.secret ? 0600 : 0640));
    }
    {
        FileWriter writer(path.c_str(), {.replaces = true});
        for (const auto& file : fs::directory_iterator(dir.path()))
            if (file.path().extension() == ".tmp")
                fs::remove(file.path());
        EXPECT_FALSE(writer.finish());
    }
    EXPECT_TRUE(test::file_exists(path) && fs::file_size(path) > 3);
    fs::permissions(path, fs::perms(0640));
    write_by(path, {.secret = true}, true);
    EXPECT_EQ(fs::status(path).permissions(), fs::perms(0600));
#endif
}
