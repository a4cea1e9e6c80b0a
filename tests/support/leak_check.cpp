#include <gtest/gtest.h>

#include "frame/err.h"
#include "frame/memory.h"

// Fails the program if the library's memory is not back to where it was before the first test.

namespace {

class LeakCheck : public testing::Environment {
  public:
    void SetUp() override {
        zul::err_clear(); // makes this thread's record, which stays
        before_ = zul::live_blocks();
    }
    void TearDown() override {
        EXPECT_EQ(zul::live_blocks(), before_) << "the tests left blocks of the library's memory allocated";
    }

  private:
    long before_ = 0;
};

const testing::Environment* const registered = testing::AddGlobalTestEnvironment(new LeakCheck);

} // namespace
