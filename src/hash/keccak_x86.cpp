#include "hash/keccak.h"

#if ZUL_X86_64
namespace zul {

ZUL_TARGET_AVX2 void keccak_absorb_bmi(uint64_t (&lanes)[25], const uint8_t* data, size_t rate,
                                       size_t blocks) {
    keccak_absorb_here(lanes, data, rate, blocks);
}

} // namespace zul
#endif
