#include <array>
#include <atomic>
#include <cerrno>
#include <functional>
#include <set>
#include <thread>

#include "frame/call_frame.h"
#include "frame/file_stream.h"
#include "frame/memory_hooks.h"
#include "frame/thread_record.h"
#include "platform/random_hooks.h"
#include "rng/accumulator.h"
#include "rng/generator.h"
#include "rng/rng.h"
#include "rng/seed_file.h"
#include "support/unit_test.h"
#include "zulcore.h"

#ifndef _WIN32
#include <filesystem>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <pthread.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

using namespace zul;

namespace {

using Block = std::array<uint8_t, 16>;

Block draw() {
    Block block{};
    EXPECT_EQ(rng_bytes(block.data(), block.size()), 0);
    return block;
}

// plant_next_block makes the next output of a generator look like a repetition. Additional input of the
// request, if any, must be the same.
void plant_next_block(RngState& state, const AdditionalInput& additional = {}) {
    DrbgState copy = state.drbg;
    drbg_generate(copy, state.continuousBlock, sizeof state.continuousBlock, additional);
}

} // namespace

TEST(Generator, ContinuousTestCatchesARepeatedBlock) {
    RngState state{};
    ASSERT_EQ(generator_make_ready(state), 0);
    uint8_t out[40];
    ASSERT_EQ(generator_produce(state, out, sizeof out, {}), 0);

    const AdditionalInput additional("abc", 3);
    plant_next_block(state, additional);
    EXPECT_EQ(generator_produce(state, out, sizeof out, additional), PRNG_ERR_CATASTROPHIC);
    EXPECT_TRUE(test::is_zero(out, sizeof out));

    plant_next_block(state);
    EXPECT_EQ(generator_produce(state, out, 8, {}), PRNG_ERR_CATASTROPHIC);
    EXPECT_EQ(generator_produce(state, out, 8, {}), 0);

    // A short output is compared with zeros after it.
    plant_next_block(state);
    state.continuousBlock[7] |= 1;
    EXPECT_EQ(generator_produce(state, out, 7, {}), 0);
    plant_next_block(state);
    state.continuousBlock[7] = 0;
    EXPECT_EQ(generator_produce(state, out, 7, {}), PRNG_ERR_CATASTROPHIC);
    rng_release_thread(state);
}

TEST(Generator, CountsAndUpdatesAsDocumented) {
    RngState state{};
    ASSERT_EQ(generator_make_ready(state), 0);
    EXPECT_EQ(state.drbg.reseedCounter, 2u); // the first continuous block has been drawn

    // One request: the output, the next continuous block, an update with the additional input.
    const AdditionalInput additional("0123456789", 10);
    DrbgState expected = state.drbg;
    uint8_t out[21], expectedOut[21], block[8];
    drbg_generate(expected, expectedOut, sizeof expectedOut, additional);
    drbg_generate(expected, block, sizeof block, {});
    drbg_update(expected, additional);
    ASSERT_EQ(generator_produce(state, out, sizeof out, additional), 0);
    EXPECT_EQ(memcmp(out, expectedOut, sizeof out), 0);
    EXPECT_EQ(memcmp(state.continuousBlock, block, sizeof block), 0);
    EXPECT_EQ(memcmp(&state.drbg, &expected, sizeof expected), 0);
    rng_release_thread(state);
    EXPECT_TRUE(test::is_zero(&state, sizeof state));
    EXPECT_EQ(rng_bytes(out, kMaxRandomRequest + 1), PRNG_ERR_TOOBIG);
}

TEST(Generator, NonceDigestsEveryPart) {
    const NonceParts parts{1, 2, 3, "user", "computer", {4}};
    std::vector<NonceParts> variants(7, parts);
    variants[1].time++;
    variants[2].process++;
    variants[3].thread++;
    variants[4].user[0] = 'U';
    variants[5].computer[7] = 'R';
    variants[6].random[kSystemRandom - 1]++;
    std::set<std::array<uint8_t, kSha1Size>> seen;
    for (const NonceParts& variant : variants) {
        std::array<uint8_t, kSha1Size> nonce{};
        generator_nonce(variant, nonce.data());
        EXPECT_TRUE(seen.insert(nonce).second);
    }
    const uint32_t personalisation = next_personalisation();
    EXPECT_EQ(next_personalisation(), personalisation + 1);
}

TEST(SystemRandom, IsPartOfEveryReseed) {
    platform::random_set_hooks({nullptr, [](uint8_t* bytes, size_t size) { memset(bytes, 0x5A, size); }});
    RngState state{};
    ASSERT_EQ(generator_make_ready(state), 0);
    DrbgState expected = state.drbg;
    std::vector<uint8_t> entropy(20, 0x11);
    const AdditionalInput additional("abc", 3);
    ASSERT_EQ(generator_reseed(state, entropy, additional), 0);
    entropy.insert(entropy.end(), 32, 0x5A);
    drbg_reseed(expected, entropy, additional);
    EXPECT_EQ(memcmp(&state.drbg, &expected, sizeof expected), 0);
    platform::random_set_hooks({});
    rng_release_thread(state);
}

TEST(SystemRandom, ComesFromTheDeviceWithoutTheCallAndIsNeededOtherwise) {
    const auto useNone = [](platform::RandomSource) { return true; };
    const auto useDevice = [](platform::RandomSource source) {
        return source == platform::RandomSource::systemCall;
    };
    draw();
    RngState fresh{};
    uint8_t out[16];
    platform::random_set_hooks({useNone, nullptr});
    EXPECT_FALSE(platform::system_random(out, sizeof out));
    EXPECT_EQ(generator_make_ready(fresh), PRNG_ERR_CATASTROPHIC);
    EXPECT_EQ(fresh.drbg.reseedCounter, 0u);
    rng_state()->drbg.reseedCounter = 0x40000000;
    EXPECT_EQ(rng_bytes(out, sizeof out), PRNG_ERR_CATASTROPHIC);

    platform::random_set_hooks({useDevice, nullptr});
    std::set<Block> seen;
#ifndef _WIN32 // has no device
    for (int i = 0; i < 3; i++) {
        Block block{};
        EXPECT_TRUE(platform::system_random(block.data(), block.size()));
        EXPECT_TRUE(seen.insert(block).second);
    }
    EXPECT_EQ(rng_bytes(out, sizeof out), 0);
#endif
    platform::random_set_hooks({});
    draw();
    EXPECT_LT(rng_state()->drbg.reseedCounter, 8u);
}

TEST(Stir, StagesCheaplyAndEntersWhatItStaged) {
    RngState& state = *rng_state();
    rng_stir(1);
    EXPECT_EQ(state.stagedCalls, 0u);
    rng_stir(0);
    rng_stir(2); // no such set of readings
    EXPECT_EQ(state.stagedCalls, 1u);
    EXPECT_NE(state.stagedTime[0], 0u);
    for (uint32_t i = 1; i < RngState::kStagedCalls; i++)
        rng_stir(0);
    EXPECT_EQ(state.stagedCalls, RngState::kStagedCalls);
    rng_stir(0);
    EXPECT_EQ(state.stagedCalls, 1u);

    uint8_t out[EntropyPools::kMaxYield];
    EXPECT_GE(accumulator_gather(state, true, out), kSha1Size);
    EXPECT_EQ(state.stagedCalls, 0u);
    // A request stirs before and behind, unless a reseed in between enters what was staged.
    uint32_t most = 0;
    for (int i = 0; i < 100; i++) {
        rng_stir(1);
        draw();
        most = std::max(most, state.stagedCalls);
    }
    EXPECT_EQ(most, 2u);
}

TEST(Stir, AThreadThatEndsEntersWhatItStaged) {
    RngState ended{}, other{};
    EntropyPools expected;
    uint8_t wanted[EntropyPools::kMaxYield], out[EntropyPools::kMaxYield];
    ended.stagedCalls = 1;
    ended.stagedTime[0] = ended.stagedTicks[0] = ended.stagedMemory[0] = 7;
    expected.reset();
    for (const EntropySource source : {EntropySource::time, EntropySource::ticks, EntropySource::memory})
        expected.add(source, ended.stagedTime, sizeof ended.stagedTime[0]);
    rng_reset_pools();
    rng_release_thread(ended);
    ASSERT_EQ(accumulator_gather(other, true, out), expected.gather(true, 1, wanted));
    EXPECT_EQ(memcmp(out, wanted, kSha1Size), 0);
}

// What is held back shows which stir an export made: the fuller one enters it.
TEST(Stir, IsFullerInExportsThatOpenEncryptedKeysOrSignedData) {
    const struct {
        const char* name;
        int (*call)();
        bool isFuller;
    } cases[] = {
        {"RNG_Bytes", [] { return RNG_Bytes(nullptr, 0, nullptr, 0); }, false},
        {"RNG_Number", [] { return RNG_Number(1, 0); }, false},
        {"RNG_Initialize", [] { return RNG_Initialize(nullptr, 0); }, true},
        {"RNG_UpdateSeedFile", [] { return RNG_UpdateSeedFile(nullptr, 0); }, true},
        {"RNG_MakeSeedFile", [] { return RNG_MakeSeedFile(nullptr, nullptr, 0); }, true},
        {"RNG_BytesWithPrompt", [] { return RNG_BytesWithPrompt(nullptr, 0, nullptr, 0); }, true},
        {"PWD_Prompt", [] { return PWD_Prompt(nullptr, 0, nullptr); }, true},
        {"RSA_ReadPrivateKeyInfo", [] { return RSA_ReadPrivateKeyInfo(nullptr, 0, nullptr); }, false},
        {"RSA_ReadEncPrivateKey", [] { return RSA_ReadEncPrivateKey(nullptr, 0, nullptr, nullptr, 0); },
         true},
        {"X509_CertRequest", [] { return X509_CertRequest(nullptr, nullptr, nullptr, nullptr, nullptr, 0); },
         true},
        {"X509_MakeCRL", [] { return X509_MakeCRL(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, 0); },
         true},
        {"PFX_MakeFile", [] { return PFX_MakeFile(nullptr, nullptr, nullptr, nullptr, nullptr, 0); }, true},
        {"CMS_ReadSigData", [] { return CMS_ReadSigData(nullptr, nullptr, 0); }, true},
        {"CMS_VerifySigData", [] { return CMS_VerifySigData(nullptr, nullptr, nullptr, 0); }, true},
        {"CMS_ReadEnvData", [] { return CMS_ReadEnvData(nullptr, nullptr, nullptr, nullptr, 0); }, false},
    };
    for (const auto& c : cases) {
        rng_stir(1);
        rng_stir(0);
        c.call();
        EXPECT_EQ(rng_state()->stagedCalls, c.isFuller ? 0u : 2u) << c.name;
    }
}

TEST(Threads, NeverDrawTheSameBlock) {
    constexpr size_t kThreads = 8, kBlocks = 400;
    std::vector<std::vector<Block>> drawn(kThreads);
    std::vector<std::thread> threads;
    for (size_t t = 0; t < kThreads; t++)
        threads.emplace_back([&drawn, t] {
            for (size_t i = 0; i < kBlocks; i++) {
                drawn[t].push_back(draw());
                if (i % 100 == 0)
                    rng_stir(1);
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    std::set<Block> different;
    for (const std::vector<Block>& blocks : drawn)
        different.insert(blocks.begin(), blocks.end());
    EXPECT_EQ(different.size(), kThreads * kBlocks);
}

TEST(Threads, WithoutMemoryWaitForTheGeneratorThatTheyShare) {
    memory_set_hooks({[](size_t) { return true; }, nullptr});
    std::atomic<int> drawn{0};
    std::vector<std::thread> threads;
    {
        const platform::LockGuard inUse(platform::Lock::generator);
        for (int t = 0; t < 2; t++)
            threads.emplace_back([&drawn] { draw(), drawn++; });
        platform::thread_sleep(30);
        EXPECT_EQ(drawn, 0);
    }
    for (std::thread& thread : threads)
        thread.join();
    memory_set_hooks({});
}

TEST(SeedFile, ReseedsUnlessSomebodyHoldsItsLock) {
    const test::TempDir dir;
    const std::vector<uint8_t> seed(kSeedSize, 7);
    const std::string path = dir.write("seed", seed);
    {
        const File other(path.c_str(), platform::OpenMode::update);
        ASSERT_TRUE(platform::file_lock(other.handle(), kSeedSize));
        EXPECT_EQ(seed_file_update(path.c_str()), PRNG_ERR_FILE_LOCK);
    }
    EXPECT_EQ(test::read_file(path), seed);
    draw();
    rng_state()->drbg.reseedCounter = 1000;
    EXPECT_EQ(seed_file_update(path.c_str()), 0);
    EXPECT_LT(rng_state()->drbg.reseedCounter, 1000u);
    EXPECT_NE(test::read_file(path), seed);
    // The update has given its lock back.
    const File other(path.c_str(), platform::OpenMode::update);
    EXPECT_TRUE(platform::file_lock(other.handle(), kSeedSize));
}

#ifndef _WIN32

// A handler that is registered before the library's own runs in the middle of its work on a fork.
static std::atomic<bool> drawsInHandlers{false};
static Block drawnInHandler;

static void draw_in_handler() {
    if (drawsInHandlers)
        drawnInHandler = draw();
}

__attribute__((constructor(101))) static void register_handler() {
    pthread_atfork(draw_in_handler, draw_in_handler, draw_in_handler);
}

static void expect_own_stream(pid_t (*split)()) {
    draw();
    int pipes[2];
    ASSERT_EQ(pipe(pipes), 0);
    const pid_t child = split();
    ASSERT_GE(child, 0);
    if (child == 0) {
        Block block{};
        const bool done =
            (drawsInHandlers ? (block = drawnInHandler, 0) : rng_bytes(block.data(), block.size())) == 0 &&
            write(pipes[1], block.data(), block.size()) == ssize_t{block.size()};
        _exit(done ? 0 : 1);
    }
    // Parent and child go on from the same state.
    const Block ours = drawsInHandlers ? drawnInHandler : draw();
    Block theirs{};
    EXPECT_EQ(read(pipes[0], theirs.data(), theirs.size()), ssize_t{theirs.size()});
    int status = -1;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    EXPECT_NE(ours, theirs);
    close(pipes[0]);
    close(pipes[1]);
}

TEST(Fork, ChildNeverRepeatsItsParent) {
    expect_own_stream(fork);
#ifndef __SANITIZE_THREAD__   // which has to know of every child
    expect_own_stream(_Fork); // calls no handlers
#endif
}

TEST(Fork, HandlersOfOthersMayDraw) {
    drawsInHandlers = true;
    expect_own_stream(fork);
    drawsInHandlers = false;
}

#ifndef SYS_open // newer architectures open files by one call
#define SYS_open SYS_openat
#endif

// status_without runs the function in a child whose calls of the given kinds end as the action says.
static int status_without(std::initializer_list<long> calls, uint32_t action,
                          const std::function<bool()>& run) {
    const pid_t child = fork();
    if (child == 0) {
        std::vector<sock_filter> filter{BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr))};
        for (const long call : calls) {
            filter.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<uint32_t>(call), 0, 1));
            filter.push_back(BPF_STMT(BPF_RET | BPF_K, action));
        }
        filter.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
        const sock_fprog program{static_cast<unsigned short>(filter.size()), filter.data()};
        if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 ||
            prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) != 0)
            _exit(2);
        _exit(run() ? 0 : 1);
    }
    int status = -1;
    waitpid(child, &status, 0);
    return status;
}

TEST(Sandbox, FirstDrawOpensAndConnectsNothing) {
    EXPECT_EQ(status_without({SYS_open, SYS_openat, SYS_socket, SYS_connect}, SECCOMP_RET_KILL_PROCESS,
                             [] {
                                 Block block{};
                                 return rng_bytes(block.data(), block.size()) == 0;
                             }),
              0);
}

TEST(SeedFile, IsOnTheDiskAndItsOwnersAlone) {
    const test::TempDir dir;
    const std::string path = dir.write("seed", std::vector<uint8_t>(kSeedSize, 7));
    std::filesystem::permissions(path, std::filesystem::perms(0664));
    ASSERT_EQ(seed_file_make(path.c_str(), nullptr, 0), 0);
    EXPECT_EQ(std::filesystem::status(path).permissions(), std::filesystem::perms(0600));
    const uint32_t failure = SECCOMP_RET_ERRNO | EIO;
    EXPECT_EQ(status_without({SYS_fsync}, failure,
                             [&] {
                                 return seed_file_update(path.c_str()) == PRNG_ERR_FILE_WRITE &&
                                        seed_file_make(path.c_str(), nullptr, 0) == PRNG_ERR_FILE_WRITE;
                             }),
              0);
    EXPECT_FALSE(test::file_exists(path));
}

TEST(GeneratorDeathTest, AFailureInAnExportEndsTheProcess) {
    // A reseed that happens to be due replaces the state for which the block was planted: hence the attempts.
    const auto fail = [](bool number) {
        uint8_t out[16];
        RNG_Bytes(out, sizeof out, nullptr, 0);
        for (int attempt = 0; attempt < 100; attempt++) {
            plant_next_block(*rng_state());
            if (number) {
                // A number takes 4 bytes.
                memset(rng_state()->continuousBlock + 4, 0, 4);
                RNG_Number(1, 6);
            } else {
                RNG_Bytes(out, sizeof out, nullptr, 0);
            }
        }
        _exit(0);
    };
    for (const bool number : {false, true})
        EXPECT_EXIT(fail(number), testing::ExitedWithCode(1), "RNG failed continuous testing");
}

#endif
