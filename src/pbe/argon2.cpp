// Argon2id, RFC 9106.
#include "pbe/argon2.h"

#include <algorithm>

#include "frame/err.h"
#include "frame/memory.h"
#include "hash/blake2b.h"
#include "hash/digest_words.h"
#include "pbe/argon2_kernels.h"
#include "zulcore.h"

namespace zul {

namespace {

constexpr uint32_t kVersion = 0x13;
constexpr uint32_t kTypeId = 2;
constexpr size_t kBlockSize = sizeof(Argon2Block);
constexpr size_t kWords = 128; // of a block

Argon2Compress* compress_function() {
#if ZUL_X86_64
    if (argon2_has_avx512())
        return argon2_compress_avx512;
    if (argon2_has_avx2())
        return argon2_compress_avx2;
#endif
    return argon2_compress_portable;
}

void add_number(Blake2bContext& context, size_t number) {
    uint8_t bytes[4];
    store_word<std::endian::little>(bytes, static_cast<uint32_t>(number));
    blake2b_update(context, bytes, sizeof bytes);
}

// long_digest is H' of the RFC over an input that context has yet to begin with: the length, then
// add(context).
template<class Add>
void long_digest(uint8_t* out, size_t outLen, Add add) {
    constexpr size_t kStep = kBlake2bSize / 2;
    Wiped<Blake2bContext> context;
    Secret<kBlake2bSize> digest;
    blake2b_init(*context, std::min(outLen, kBlake2bSize));
    add_number(*context, outLen);
    add(*context);
    blake2b_final(*context, digest.data());
    for (; outLen > kBlake2bSize; out += kStep, outLen -= kStep) {
        memcpy(out, digest.data(), kStep);
        blake2b_init(*context, std::min(outLen - kStep, kBlake2bSize));
        blake2b_update(*context, digest.data(), kBlake2bSize);
        blake2b_final(*context, digest.data());
    }
    memcpy(out, digest.data(), outLen);
}

void first_digest(uint8_t* digest, size_t outLen, const Argon2Input& input, const Argon2Cost& cost) {
    Wiped<Blake2bContext> context;
    blake2b_init(*context, kBlake2bSize);
    for (const size_t number : {static_cast<size_t>(cost.lanes), outLen, static_cast<size_t>(cost.memoryKiB),
                                static_cast<size_t>(cost.passes), size_t{kVersion}, size_t{kTypeId}})
        add_number(*context, number);
    for (const Argon2Bytes& bytes : {input.password, input.salt, input.secret, input.associated}) {
        add_number(*context, bytes.size);
        blake2b_update(*context, bytes.data, bytes.size);
    }
    blake2b_final(*context, digest);
}

// The blocks that the filling needs beside the memory.
struct Work {
    Argon2Scratch scratch;
    Argon2Block zero, input, addresses; // of the addresses that do not depend on data
};

class Filler {
  public:
    Filler(Work& work, uint32_t blocks, uint32_t passes) : work_(work), blocks_(blocks), passes_(passes) {}

    void fill(const Argon2Segment& segment) {
        const bool isIndependent = segment.pass == 0 && segment.slice < kArgon2Slices / 2;
        const uint32_t start = segment.pass == 0 && segment.slice == 0 ? 2 : 0;
        if (isIndependent)
            begin_addresses(segment, start);
        Argon2Block* const lane = segment.memory + size_t{segment.lane} * segment.laneLength;
        for (uint32_t i = start; i < segment.segmentLength; i++) {
            const uint32_t at = segment.slice * segment.segmentLength + i;
            const Argon2Block* previous = lane + (at == 0 ? segment.laneLength : at) - 1;
            const bool hasNext = i + 1 < segment.segmentLength;
            const uint64_t random = isIndependent ? work_.addresses.words[i % kWords] : previous->words[0];
            const Argon2Block* reference = segment.reference(i, random);
            if (isIndependent && hasNext) {
                if ((i + 1) % kWords == 0)
                    next_addresses();
                argon2_prefetch(segment.reference(i + 1, work_.addresses.words[(i + 1) % kWords]));
            }
            compress_({lane + at, previous, reference, segment.pass != 0,
                       hasNext && !isIndependent ? &segment : nullptr, i + 1},
                      work_.scratch);
        }
    }

  private:
    void begin_addresses(const Argon2Segment& segment, uint32_t start) {
        const uint64_t position[] = {segment.pass, segment.lane, segment.slice, blocks_, passes_, kTypeId, 0};
        std::copy(std::begin(position), std::end(position), work_.input.words);
        next_addresses();
        argon2_prefetch(segment.reference(start, work_.addresses.words[start]));
    }
    void next_addresses() {
        work_.input.words[6]++;
        compress_({&work_.addresses, &work_.zero, &work_.input, false, nullptr, 0}, work_.scratch);
        compress_({&work_.addresses, &work_.zero, &work_.addresses, false, nullptr, 0}, work_.scratch);
    }

    Work& work_;
    uint32_t blocks_, passes_;
    Argon2Compress* compress_ = compress_function();
};

[[nodiscard]] int check(size_t outLen, const Argon2Input& input, const Argon2Cost& cost) {
    constexpr uint64_t kMostKiB = uint64_t{4} << 20, kMostWorkKiB = uint64_t{64} << 20, kMostLanes = 255;
    if (outLen < 4 || input.salt.size < 8)
        return err_fail(OUT_OF_RANGE_ERROR, "Argon2id: output must be at least 4 bytes, salt 8");
    if (cost.lanes < 1 || cost.lanes > kMostLanes || cost.passes < 1)
        return err_fail(OUT_OF_RANGE_ERROR, "Argon2id: lanes must be 1 to 255, passes at least 1");
    if (cost.memoryKiB < 8 * cost.lanes || cost.memoryKiB > kMostKiB)
        return err_fail(OUT_OF_RANGE_ERROR, "Argon2id: memory must be 8 KiB for each lane to 4 GiB");
    if (cost.passes > kMostWorkKiB / cost.memoryKiB)
        return err_fail(OUT_OF_RANGE_ERROR, "Argon2id: memory times passes must be at most 64 GiB");
    return 0;
}

} // namespace

int argon2id(uint8_t* out, size_t outLen, const Argon2Input& input, const Argon2Cost& cost) {
    if (const int code = check(outLen, input, cost))
        return code;
    const auto lanes = static_cast<uint32_t>(cost.lanes), passes = static_cast<uint32_t>(cost.passes);
    const auto segmentLength = static_cast<uint32_t>(cost.memoryKiB) / (kArgon2Slices * lanes);
    const uint32_t laneLength = kArgon2Slices * segmentLength, blocks = laneLength * lanes;
    SecretPages pages(size_t{blocks} * kBlockSize + sizeof(Work));
    if (pages.data() == nullptr)
        return err_fail(MEMORY_ERROR, "Argon2id: not enough memory");
    auto* const memory = static_cast<Argon2Block*>(pages.data());
    Work& work = *reinterpret_cast<Work*>(memory + blocks); // zeros, as the pages come

    Secret<kBlake2bSize> seed;
    first_digest(seed.data(), outLen, input, cost);
    uint8_t* const bytes = reinterpret_cast<uint8_t*>(work.scratch.sum.words);
    for (uint32_t lane = 0; lane < lanes; lane++) {
        for (uint32_t i = 0; i < 2; i++) {
            long_digest(bytes, kBlockSize, [&](Blake2bContext& context) {
                blake2b_update(context, seed.data(), seed.size());
                add_number(context, i);
                add_number(context, lane);
            });
            for (size_t w = 0; w < kWords; w++)
                memory[size_t{lane} * laneLength + i].words[w] =
                    load_word<uint64_t, std::endian::little>(bytes + 8 * w);
        }
    }

    Filler filler(work, blocks, passes);
    for (uint32_t pass = 0; pass < passes; pass++) {
        for (uint32_t slice = 0; slice < kArgon2Slices; slice++) {
            for (uint32_t lane = 0; lane < lanes; lane++)
                filler.fill({memory, laneLength, segmentLength, lanes, pass, slice, lane});
        }
    }

    Argon2Block& last = memory[laneLength - 1];
    for (uint32_t lane = 1; lane < lanes; lane++) {
        const Argon2Block& each = memory[size_t{lane} * laneLength + laneLength - 1];
        for (size_t w = 0; w < kWords; w++)
            last.words[w] ^= each.words[w];
    }
    for (size_t w = 0; w < kWords; w++)
        store_word<std::endian::little>(bytes + 8 * w, last.words[w]);
    long_digest(out, outLen, [&](Blake2bContext& context) { blake2b_update(context, bytes, kBlockSize); });
    wipe_dead_stack();
    return 0;
}

} // namespace zul
