#pragma once
#include <type_traits>

#include "ec/limbs.h"
#include "platform/cpu.h"

#if ZUL_X86_64
#include <immintrin.h>
#endif

namespace zul {

// table_lookup gives the entry of the 1-based index, or zeros for 0. All of the table is read, so that the
// memory does not show which.
template<size_t Entries, size_t Words>
ZUL_ALWAYS_INLINE void table_lookup_portable(uint64_t* entry, const uint64_t* table, uint32_t index) {
    Limbs<Words> found{};
    for (uint32_t i = 0; i < Entries; i++, table += Words) {
        const uint64_t isIt = ~limb_mask((i + 1) ^ index);
#pragma GCC unroll 32
        for (size_t j = 0; j < Words; j++)
            found[j] |= table[j] & isIt;
    }
    for (size_t j = 0; j < Words; j++)
        entry[j] = found[j];
}

#if ZUL_X86_64
template<size_t Entries, size_t Words>
ZUL_TARGET_AVX2 void table_lookup_avx2(uint64_t* entry, const uint64_t* table, uint32_t index) {
    constexpr size_t kLanes = 4, kVectors = Words / kLanes, kRest = Words % kLanes;
    __m256i found[kVectors + 1];
    for (__m256i& vector : found)
        vector = _mm256_setzero_si256();
    const __m256i wanted = _mm256_set1_epi64x(index), one = _mm256_set1_epi64x(1);
    const __m256i restMask = _mm256_cmpgt_epi64(_mm256_set1_epi64x(kRest), _mm256_setr_epi64x(0, 1, 2, 3));
    __m256i number = one;
    for (size_t i = 0; i < Entries; i++, table += Words) {
        const __m256i isIt = _mm256_cmpeq_epi64(number, wanted);
#pragma GCC unroll 8
        for (size_t j = 0; j < kVectors; j++) {
            const __m256i part = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(table + kLanes * j));
            found[j] = _mm256_or_si256(found[j], _mm256_and_si256(part, isIt));
        }
        if constexpr (kRest != 0) {
            const __m256i part = _mm256_maskload_epi64(
                reinterpret_cast<const long long*>(table + kLanes * kVectors), restMask);
            found[kVectors] = _mm256_or_si256(found[kVectors], _mm256_and_si256(part, isIt));
        }
        number = _mm256_add_epi64(number, one);
    }
#pragma GCC unroll 8
    for (size_t j = 0; j < kVectors; j++)
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(entry + kLanes * j), found[j]);
    if constexpr (kRest != 0)
        _mm256_maskstore_epi64(reinterpret_cast<long long*>(entry + kLanes * kVectors), restMask,
                               found[kVectors]);
    _mm256_zeroupper();
}
#endif

// Entries are structures of words without gaps; those of a table may be of another type of the same layout.
template<class Entry, class Stored, size_t Entries>
ZUL_ALWAYS_INLINE void table_lookup(Entry& entry, const std::array<Stored, Entries>& table, uint32_t index) {
    constexpr size_t kWords = sizeof(Entry) / kLimbBytes;
    static_assert(std::has_unique_object_representations_v<Entry> && sizeof(Entry) == sizeof(Stored));
    auto* const to = reinterpret_cast<uint64_t*>(&entry);
    const auto* const from = reinterpret_cast<const uint64_t*>(&table);
#if ZUL_X86_64
    if (cpu_has(kCpuAvx2)) {
        table_lookup_avx2<Entries, kWords>(to, from, index);
        return;
    }
#endif
    table_lookup_portable<Entries, kWords>(to, from, index);
}

} // namespace zul
