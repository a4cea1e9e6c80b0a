#include "encode/utf8.h"
#include "support/unit_test.h"

using namespace zul;

TEST(Utf8, Vectors) {
    for (const auto& v : test::read_vectors("encode/utf8.txt")) {
        const Bytes utf8 = v.hex("Utf8"); // of exact size: a sanitizer sees a read past its end
        EXPECT_EQ(static_cast<int>(utf8_classify(utf8.data(), utf8.size())), v.number("Class"));
        Bytes out(utf8.size());
        Conversion result;
        const int error = latin1_from_utf8(out.data(), out.size(), utf8.data(), utf8.size(), &result);
        if (v.has("Error")) {
            EXPECT_EQ(-error, v.number("Error"));
            continue;
        }
        ASSERT_EQ(error, 0);
        EXPECT_EQ(result.length, result.stored);
        out.resize(result.length);
        EXPECT_EQ(out, v.hex("Latin1"));
        Bytes back(utf8.size());
        EXPECT_EQ(utf8_from_latin1(back.data(), back.size(), out.data(), out.size()).stored, back.size());
        EXPECT_EQ(back, utf8);
    }
}
