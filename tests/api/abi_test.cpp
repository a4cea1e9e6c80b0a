#include <gtest/gtest.h>

extern "C" int abi_c_check(void);

TEST(Abi, WorksFromC) {
    EXPECT_EQ(abi_c_check(), 0) << "the number of the step that failed";
}
