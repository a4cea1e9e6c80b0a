#include <cstdio>
#include <gtest/gtest.h>
#include <optional>
#include <set>
#include <thread>

#include "frame/file_stream.h"
#include "frame/memory_hooks.h"
#include "frame/thread_record.h"
#include "injection/harness.h"

#ifndef _WIN32
#include "injection/child.h"
#endif

namespace injection {

TEST(MemoryFaults, WithoutTheRecordOfTheThread) {
    for (const Call& call : every_call()) {
        Trial trial(call, befores(call).front());
        std::thread([&] {
            zul::memory_set_hooks({[](size_t size) { return size == sizeof(zul::ThreadRecord); }, nullptr});
            trial.expect_clean();
            zul::memory_set_hooks({});
        }).join();
    }
}

#ifndef _WIN32

namespace {

constexpr int kReturned = 77; // the status of a child whose call came back

Trial* trial;
std::set<size_t> chosen; // numbers of allocations
size_t asked, fatal, codes;
std::optional<Child> me; // in a child

bool count(size_t) {
    asked++;
    return false;
}

// A child goes on from here without the memory, while the call itself continues.
bool refuse_in_child(size_t) {
    if (me || !chosen.contains(++asked))
        return false;
    Child child(Child::Handlers::left); // the library's locks may be held
    if (child.is_me()) {
        me = child;
        return true;
    }
    child.wait();
    if (child.ended_with(kReturned)) {
        codes++;
        return false;
    }
    fatal++;
    EXPECT_TRUE(child.ended_with_report("emory") || child.ended_with_report("alloc"))
        << trial->name() << ", allocation " << asked << ": " << child.said();
    // What is longer than a writer's first buffer gets a larger one as it is written, SEAL_ in any case.
    const bool mayLeavePart = trial->call().output == Output::part ||
                              trial->whole_size() > zul::kFirstBuffer || trial->name().starts_with("SEAL_");
    EXPECT_FALSE(trial->expect_kept() && !mayLeavePart) << trial->name() << ", allocation " << asked;
    return false;
}

// expect_code is for what is not fatal.
void expect_code() {
    // The power-up tests fail for want of memory too.
    const bool isTest = trial->call().name == std::string("ZUL_PowerUpTests");
    EXPECT_EQ(trial->code(), isTest ? TEST_FAILED_ERROR : MEMORY_ERROR);
    if (!isTest)
        trial->expect_failed();
    trial->expect_nothing_leaked();
}

void run(bool (*refuse)(size_t)) {
    trial->run([refuse] {
        asked = 0;
        zul::memory_set_hooks({refuse, nullptr});
    });
    zul::memory_set_hooks({});
    if (me) {
        expect_code();
        me->finish(kReturned);
    }
}

} // namespace

// Running out of memory is fatal but for pages of key derivations.
TEST(MemoryFaults, OfEveryCall) {
    size_t total = 0;
    for (const Call& call : every_call()) {
        for (const Before before : befores(call)) {
            if (before == Before::linked) // is written as a new file is
                continue;
            Trial own(call, before);
            trial = &own;
            own.expect_clean();
            run(count);
            total += asked;
            const auto numbers = sample(asked);
            chosen = {numbers.begin(), numbers.end()};
            run(refuse_in_child);
            own.expect_nothing_leaked();
            own.expect_clean();
        }
    }
    EXPECT_GT(codes, 3u);
    printf("%zu allocations, %zu refused with a fatal end, %zu with an error code\n", total, fatal, codes);
}

#endif

} // namespace injection
