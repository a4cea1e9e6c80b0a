// The search for a prime factor: from a random start upwards in steps of 2, through a sieve by small primes.
#include "rsa/rsa_prime.h"

#include <array>

#include "frame/wipe.h"
#include "platform/platform.h"

namespace zul {

namespace {

constexpr int kAttempts = 10;
constexpr size_t kStepsPerBit = 40;

constexpr size_t kSmallPrimes = 167; // the odd primes up to 997
constexpr auto kSmallPrime = [] {
    std::array<uint16_t, kSmallPrimes> primes{};
    size_t count = 0;
    for (unsigned candidate = 3; count < kSmallPrimes; candidate += 2) {
        bool isPrime = true;
        for (size_t i = 0; i < count && primes[i] * primes[i] <= candidate; i++)
            isPrime = isPrime && candidate % primes[i] != 0;
        if (isPrime)
            primes[count++] = static_cast<uint16_t>(candidate);
    }
    return primes;
}();
static_assert(kSmallPrime.back() == 997);

// Sieve keeps the residues of the candidate. A step costs an addition for each prime instead of a division.
class Sieve {
  public:
    void start(const MtNumber* p) {
        for (size_t i = 0; i < kSmallPrimes; i++)
            residues_[i] = static_cast<uint16_t>(mpShortMod(p->digits, kSmallPrime[i], p->ndigits));
    }
    void step() {
        for (size_t i = 0; i < kSmallPrimes; i++) {
            const auto next = static_cast<uint16_t>(residues_[i] + 2);
            residues_[i] = static_cast<uint16_t>(next >= kSmallPrime[i] ? next - kSmallPrime[i] : next);
        }
    }
    bool divides() const {
        bool any = false;
        for (const uint16_t residue : residues_)
            any |= residue == 0;
        return any;
    }

  private:
    std::array<uint16_t, kSmallPrimes> residues_;
};

class Progress {
  public:
    explicit Progress(bool show) : show_(show) {
        if (!show_)
            return;
        opened_ = platform::console_open("Generating RSA prime...");
        for (const char* c = "Generating new prime:"; *c != '\0'; c++)
            write(*c);
    }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress() {
        write('\n');
        if (opened_)
            platform::console_close();
    }
    void write(char c) const {
        if (show_)
            platform::console_write(c);
    }

  private:
    bool show_;
    bool opened_ = false;
};

// LowPriority keeps the search from slowing down other threads. Afterwards the priority is normal, whatever
// it was before.
class LowPriority {
  public:
    LowPriority() { platform::thread_set_priority(platform::ThreadPriority::lowest); }
    LowPriority(const LowPriority&) = delete;
    LowPriority& operator=(const LowPriority&) = delete;
    ~LowPriority() { platform::thread_set_priority(platform::ThreadPriority::normal); }
};

// search looks for a prime from p upwards and leaves it in p; false if it finds none.
bool search(MT p, size_t steps, DIGIT_T eValue, size_t nTests, const Progress& progress, int* examined) {
    Wiped<Sieve> sieve;
    sieve->start(p);
    for (size_t step = 0; step < steps; step++) {
        if (step > 0) {
            if (mtShortAdd(p, p, 2) != 0)
                return false;
            sieve->step();
        }
        progress.write('.');
        ++*examined;
        if (sieve->divides() || mpShortMod(p->digits, eValue, p->ndigits) == 1)
            continue;
        progress.write('*');
        if (mtRabinMiller(p, nTests) != 0)
            return true;
        platform::thread_yield();
    }
    return false;
}

} // namespace

int rsaGeneratePrime(MT p, size_t nbits, DIGIT_T eValue, size_t nTests, const uint8_t* seed, size_t seedlen,
                     MtFill fill, bool showProgress) {
    if (nbits < 2)
        return -1;
    const LowPriority lowPriority;
    const Progress progress(showProgress);
    int examined = 0;
    for (int attempt = 0; attempt < kAttempts; attempt++) {
        if (mtRandomBits(p, nbits, seed, seedlen, fill) != 0)
            return -1;
        mtSetBit(p, nbits - 1, 1);
        mtSetBit(p, nbits - 2, 1);
        mtSetBit(p, 0, 1);
        if (search(p, kStepsPerBit * nbits, eValue, nTests, progress, &examined))
            return examined;
    }
    return -1;
}

} // namespace zul
