#include "hash/sha512_kernels.h"

#if ZUL_X86_64
#include "hash/sha2_lanes_x86.h"

namespace zul {

// Fewer blocks than this are not worth the vectors.
static constexpr size_t kLeastBlocks = 6;

ZUL_TARGET_AVX2 void sha512_compress_avx2(uint64_t state[8], const uint8_t* data, size_t blocks) {
    using Schedule = Sha2Schedule<Sha512Family, Sha512Vectors>;
    if (blocks < kLeastBlocks)
        return sha2_compress_scalar<Sha512Family>(state, data, blocks);
    compress_lanes<Schedule, Sha2Rounds<Sha512Family, Schedule>>(state, data, blocks);
}

} // namespace zul
#endif
