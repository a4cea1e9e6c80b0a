// mixed_calls CALLS [THREADS]: so many valid calls of all exports on several threads at once, and some that
// have to fail. A call that gave the same when it was made alone has to give that always. At the end the
// process must hold what it held when it was warm: as many blocks of the library, and no more memory.
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <list>
#include <optional>
#include <thread>
#include <unistd.h>

#include "endurance/process_size.h"
#include "frame/memory.h"
#include "support/calls/calls.h"

// Nobody is asked, so nobody has to let go of the keys first.
extern "C" int nanosleep(const timespec*, timespec*) {
    return 0;
}

namespace endurance {
namespace {

using calls::Call;
using calls::Output;
using calls::Text;
using calls::World;

const unsigned char kBytes[32] = {1};

const struct {
    int code;
    int (*run)(World& w);
} kFailures[] = {
    {OPEN_ERROR, [](World& w) { return HASH_HexFromFile(w.text, 64, "nothing", 0); }},
    {NOT_SUPPORTED_ERROR, [](World& w) { return HASH_Begin(w.context, 4000, "crc", 0); }},
    {OUT_OF_RANGE_ERROR, [](World& w) { return KDF_Scrypt(w.bytes, 32, "p", 1, "s", 1, 15, 1, 1); }},
    {INVALID_DATA_ERROR, [](World& w) { return CNV_Latin1FromUTF8(w.text, 15, "\xC3"); }},
    {BAD_PARAM_ERROR, [](World&) { return WIPE_Data(nullptr, 1); }},
    {DECRYPT_ERROR,
     [](World& w) {
         return AEAD_Decrypt(w.bytes, 64, w.sealedText, w.sealedText.length(), kBytes, 32, nullptr, 0,
                             nullptr, 0, "aes-256-gcm", ZUL_AEAD_RANDOM_NONCE);
     }},
    {SIGNATURE_ERROR,
     [](World& w) {
         return SIG_Verify(w.ecSignature, w.ecSignature.length(), kBytes, 7, w.ecPublic, nullptr, 0);
     }},
    {NO_MATCH_ERROR, [](World& w) { return KEY_Match(w.ec, w.edPublic); }},
    {DECRYPT_ERROR, [](World& w) { return KEY_Read(w.text, 9999, w.scryptKey, "q", 0); }},
    {NO_MATCH_ERROR, [](World& w) { return CERT_CheckName(w.subject, "x.example", 0); }},
    {ISSUER_ERROR,
     [](World& w) { return CERT_CheckPath(nullptr, 0, w.subject, nullptr, w.root, nullptr, nullptr, 0); }},
    {SIGNATURE_ERROR, [](World& w) { return PFX_VerifySig(w.pfx, "q", 0); }},
};

// What a call gives: its result, and what it writes to memory and file.
struct Answer {
    int result;
    std::string text, bytes, file;
    bool operator==(const Answer&) const = default;
};

class Worker {
  public:
    // Each call is made alone first.
    Worker() {
        for (const Call& call : calls::every_call())
            known_.emplace_back(make(call));
    }
    // forget_changing forgets what calls gave that give something else now, also because another one failed.
    void forget_changing() {
        fail();
        for (size_t i = 0; i < known_.size(); i++)
            if (make(calls::every_call()[i]) != known_[i])
                known_[i].reset();
    }

    // work makes so many calls. What writes a file, and making keys of RSA, take long and come seldom.
    void work(unsigned long count, std::atomic<bool>& broken) {
        for (unsigned long made = 0, round = 1; made < count && !broken; round++) {
            for (size_t i = 0; i < known_.size(); i++) {
                const Call& call = calls::every_call()[i];
                const bool isLong = call.output != Output::none || strcmp(call.name, "KEY_Make") == 0;
                if (isLong && round % 20 != 0)
                    continue;
                const Answer answer = make(call);
                if (!is_right(call, known_[i], answer))
                    broken = report(call.name, answer.result);
                made++;
            }
            broken = broken || !fail();
            made += std::size(kFailures);
        }
    }

  private:
    bool fail() {
        for (const auto& failure : kFailures) {
            const int result = failure.run(world_);
            if (std::abs(result) != failure.code || ZUL_ErrorCode() != failure.code)
                return !report("a call that has to fail", result);
        }
        return true;
    }
    static bool is_right(const Call& call, const std::optional<Answer>& known, const Answer& answer) {
        // One in a thousand sets of good random bits fails the statistics.
        if (strcmp(call.name, "RNG_Test") == 0 && answer.result == -TEST_FAILED_ERROR)
            return true;
        return calls::is_good(call, answer.result) && (!known || *known == answer);
    }
    static bool report(const char* what, int result) {
        char text[512] = "";
        const int code = ZUL_ErrorCode();
        ZUL_LastError(text, 511);
        std::fprintf(stderr, "%s gave %d (%d, %s)\n", what, result, code, text);
        return true;
    }
    Answer make(const Call& call) {
        constexpr size_t kLooked = 300; // of the bytes
        memset(world_.bytes, 0, kLooked);
        world_.text[0] = '\0';
        if (call.output != Output::none)
            world_.outputs.write("target", std::string(64, 's')); // as long as a seed file
        Answer answer;
        answer.result = call.run(world_);
        answer.text = world_.text;
        answer.bytes.assign(reinterpret_cast<const char*>(world_.bytes), kLooked);
        const bool tellsMinute = strncmp(call.name, "X509_Make", 9) == 0;
        if (call.output != Output::none && !tellsMinute && test::file_exists(world_.target))
            answer.file = test::read_text(world_.target);
        return answer;
    }

    World world_;
    std::vector<std::optional<Answer>> known_;
};

std::atomic<bool> broken{false};

void round_of(std::list<Worker>& workers, unsigned long count) {
    std::vector<std::thread> threads;
    for (Worker& worker : workers)
        threads.emplace_back([&worker, part = count / workers.size()] { worker.work(part, broken); });
    for (std::thread& thread : threads)
        thread.join();
}

int run(unsigned long count, size_t threads) {
    std::list<Worker> workers(threads);
    usleep(1'100'000); // some calls tell the time, in seconds
    for (Worker& worker : workers)
        worker.forget_changing();
    round_of(workers, count / 10);
    const ProcessSize early = process_size();
    const long blocks = zul::live_blocks();
    round_of(workers, count - count / 10);
    const ProcessSize end = process_size();
    std::printf("%lu calls on %zu threads; memory %ld -> %ld KiB, handles %ld -> %ld, blocks %ld -> %ld\n",
                count, threads, early.memory, end.memory, early.handles, end.handles, blocks,
                zul::live_blocks());
    const bool flat =
        end.memory < early.memory + 8 * 1024 && end.handles == early.handles && zul::live_blocks() == blocks;
    return flat && !broken ? 0 : 1;
}

} // namespace
} // namespace endurance

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: mixed_calls CALLS [THREADS]\n");
        return 2;
    }
    setsid(); // without a terminal nobody is asked anything
    return endurance::run(std::strtoul(argv[1], nullptr, 10),
                          argc > 2 ? std::strtoul(argv[2], nullptr, 10) : 4);
}
