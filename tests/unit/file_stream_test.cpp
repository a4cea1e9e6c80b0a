#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "frame/file_stream.h"
#include "support/temp_dir.h"

using namespace zul;

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

TEST(FileWriter, LeavesAFileOnlyWhenFinished) {
    const test::TempDir dir;
    const std::string path = dir.file("out"), content(100000, 'c');
    {
        FileWriter writer(path.c_str());
        ASSERT_TRUE(writer.is_open());
        EXPECT_TRUE(writer.write(content.data(), content.size()));
    }
    EXPECT_FALSE(test::file_exists(path));
    {
        FileWriter writer(path.c_str());
        EXPECT_TRUE(writer.write(content.data(), content.size()));
        EXPECT_TRUE(writer.finish());
    }
    EXPECT_TRUE(test::read_text(path) == content);
}
