#include <gtest/gtest.h>
#include <thread>

#include "frame/err.h"
#include "frame/memory_hooks.h"
#include "module/power_up_tests.h"
#include "platform/platform.h"
#include "support/death.h"
#include "zulcore.h"

using namespace zul;

namespace {

thread_local int allocationsLeft;
int allocationCount;

bool refuse_later(size_t) {
    return allocationsLeft-- <= 0;
}

void set_refusal(int allocations) {
    allocationsLeft = allocations;
    memory_set_hooks({refuse_later, nullptr});
}

} // namespace

// A program that was never sealed holds no module that may serve; the other tests are run all the same.
TEST(PowerUpTests, UnsealedProgramFailsItsIntegrityAlone) {
    EXPECT_TRUE(known_answers_hold());
    allocationCount = 0;
    memory_set_hooks({[](size_t) { return ++allocationCount == 0; }, nullptr});
    EXPECT_EQ(ZUL_PowerUpTests(0), -TEST_FAILED_ERROR);
    memory_set_hooks({});
    EXPECT_GT(allocationCount, 10);
    err_clear();
    err_record(BAD_FLAG_ERROR);
    EXPECT_EQ(ZUL_PowerUpTests(0), -TEST_FAILED_ERROR);
    EXPECT_EQ(ZUL_ErrorCode(), BAD_FLAG_ERROR);
    err_clear();
}

TEST(PowerUpTestsDeathTest, WithoutMemoryTheProcessEndsWithAReport) {
    for (const int allocations : {0, 1, 5, 20})
        EXPECT_REPORTED_END((set_refusal(allocations), known_answers_hold()), "Failed to .*alloc memory");
}

TEST(ThreadAttach, IsRefusedWithoutMemoryForARecord) {
    std::thread([] {
        set_refusal(0);
        EXPECT_FALSE(module_thread_attach());
        memory_set_hooks({});
        EXPECT_TRUE(module_thread_attach());
        module_thread_detach();
    }).join();
}
