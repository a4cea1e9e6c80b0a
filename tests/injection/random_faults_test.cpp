#ifndef _WIN32
#include <cstdio>
#include <gtest/gtest.h>

#include "frame/thread_record.h"
#include "injection/child.h"
#include "injection/harness.h"
#include "platform/platform.h"
#include "platform/random_hooks.h"
#include "rng/rng.h"

using zul::platform::RandomSource;

namespace injection {

namespace {

constexpr uint32_t kReseedIsDue = 0x40000000;

size_t draws, firstRefused, lastRefused;

bool refuse(RandomSource source) {
    if (source == RandomSource::systemCall)
        draws++;
    return draws >= firstRefused && draws <= lastRefused;
}

enum class Generator { fresh, due }; // which of its draws a call meets

// In a child the generator starts anew.
void run(Trial& trial, Generator generator, size_t first, size_t last) {
    if (generator == Generator::due) {
        uint8_t byte;
        zul::rng_draw(&byte, 1);
        zul::rng_state()->drbg.reseedCounter = kReseedIsDue;
    }
    trial.run([=] {
        draws = 0;
        firstRefused = first;
        lastRefused = last;
        zul::platform::random_set_hooks({refuse, nullptr});
    });
    zul::platform::random_set_hooks({});
}

bool has_drawn(Generator generator) {
    const zul::RngState& state = *zul::rng_state();
    return generator == Generator::due ? state.drbg.reseedCounter < kReseedIsDue
                                       : state.forkGeneration == zul::platform::fork_generation();
}

// Draws of the fuller stir may fail. It is the first thing in a call; what the generator draws itself it
// needs.
void expect_no_weak_numbers(const Trial& trial, Generator generator, size_t first) {
    if (!trial.succeeded()) {
        EXPECT_EQ(trial.code(), PRNG_ERR_CATASTROPHIC) << trial.name();
        trial.expect_failed();
    } else {
        EXPECT_EQ(first, 1u) << trial.name();
        // A seed file is a reseed of its own.
        const bool hasSeed = trial.call().output == Output::inPlace && generator == Generator::due;
        EXPECT_TRUE(lastRefused == first || hasSeed || !has_drawn(generator)) << trial.name();
    }
    trial.expect_nothing_leaked();
}

size_t count_draws(Trial& trial, Generator generator) {
    Child child(Child::Handlers::called);
    if (child.is_me()) {
        run(trial, generator, 1, 0);
        child.finish(static_cast<int>(draws));
    }
    child.wait();
    for (int status = 0; status < 100; status++)
        if (child.ended_with(status))
            return static_cast<size_t>(status);
    ADD_FAILURE() << trial.name() << ": " << child.said();
    return 0;
}

constexpr int kCode = 4; // the status of a child whose call has failed as it should
size_t fatal, codes, successes;

void try_fault(Trial& trial, Generator generator, size_t first, size_t last) {
    Child child(Child::Handlers::called);
    if (child.is_me()) {
        run(trial, generator, first, last);
        expect_no_weak_numbers(trial, generator, first);
        child.finish(trial.succeeded() ? 0 : kCode);
    }
    child.wait();
    if (child.ended_with(0) || child.ended_with(kCode)) {
        (child.ended_with(0) ? successes : codes)++;
        return;
    }
    fatal++;
    EXPECT_TRUE(child.ended_with_report("RNG failed"))
        << trial.name() << ", draw " << first << ": " << child.said();
    EXPECT_FALSE(trial.expect_kept()) << trial.name();
}

} // namespace

TEST(RandomFaults, OfEveryCall) {
    size_t total = 0;
    for (const Call& call : every_call()) {
        Trial trial(call, befores(call).back());
        trial.expect_clean();
        for (const Generator generator : {Generator::fresh, Generator::due}) {
            const size_t count = count_draws(trial, generator);
            total += count;
            for (size_t draw = 1; draw <= count; draw++)
                try_fault(trial, generator, draw, draw);
            if (count > 0)
                try_fault(trial, generator, 1, SIZE_MAX);
        }
    }
    EXPECT_GT(codes, 3u);
    printf("%zu draws of system randomness: refused %zu times with a fatal end, %zu with an error code, %zu "
           "in a stir\n",
           total, fatal, codes, successes);
}

} // namespace injection
#endif
