#include <gtest/gtest.h>
#include <vector>

#include "encode/utf8.h"
#include "support/vectors.h"

using namespace zul;
using Bytes = std::vector<uint8_t>;

TEST(Utf8, Vectors) {
    for (const auto& v : test::read_vectors("encode/utf8.txt")) {
        const Bytes utf8 = v.hex("Utf8"); // of exact size: a sanitizer sees a read past its end
        EXPECT_EQ(static_cast<int>(utf8_classify(utf8.data(), utf8.size())), v.number("Class")) << v.where();
        Bytes out(utf8.size());
        Conversion result;
        const int error = latin1_from_utf8(out.data(), out.size(), utf8.data(), utf8.size(), &result);
        if (v.has("Error")) {
            EXPECT_EQ(-error, v.number("Error")) << v.where();
            continue;
        }
        ASSERT_EQ(error, 0) << v.where();
        EXPECT_EQ(result.length, result.stored);
        out.resize(result.length);
        EXPECT_EQ(out, v.hex("Latin1")) << v.where();
        Bytes back(utf8.size());
        EXPECT_EQ(utf8_from_latin1(back.data(), back.size(), out.data(), out.size()).stored, back.size());
        EXPECT_EQ(back, utf8) << v.where();
    }
}

TEST(Utf8, StoresWholeCharactersOnly) {
    const Bytes latin1 = {'a', 0xE9, 'z', 0xFC};
    const Bytes utf8 = {'a', 0xC3, 0xA9, 'z', 0xC3, 0xBC};
    const size_t storedUtf8[] = {0, 1, 1, 3, 4, 4, 6, 6};
    for (size_t room = 0; room < std::size(storedUtf8); room++) {
        Bytes out(room);
        const Conversion result = utf8_from_latin1(out.data(), room, latin1.data(), latin1.size());
        EXPECT_EQ(result.length, utf8.size());
        ASSERT_EQ(result.stored, storedUtf8[room]) << room;
        EXPECT_TRUE(std::equal(utf8.begin(), utf8.begin() + static_cast<long>(result.stored), out.begin()));
    }
    for (size_t room = 0; room < 6; room++) {
        Bytes out(room);
        Conversion result;
        ASSERT_EQ(latin1_from_utf8(out.data(), room, utf8.data(), utf8.size(), &result), 0);
        EXPECT_EQ(result.length, latin1.size());
        ASSERT_EQ(result.stored, std::min<size_t>(room, latin1.size()));
        EXPECT_TRUE(std::equal(out.begin(), out.begin() + static_cast<long>(result.stored), latin1.begin()));
    }
}
