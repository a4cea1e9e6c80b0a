#pragma once
#include <cstddef>
#include <cstdint>

#include "frame/rng_state.h"
#include "hash/sha1_kernels.h"

namespace zul {

// A kernel makes the output of a request: it sets V = HMAC(K, V) for each 20 bytes. Without provided data
// (10.1.2.2) it also makes the update that ends the request. All this is one long chain of single blocks of
// SHA-1, each of the result of the one before.
using DrbgKernel = void(DrbgState& drbg, uint8_t* out, size_t size, bool update);

DrbgKernel drbg_produce_portable; // with any kernel of SHA-1

#if ZUL_X86_64
DrbgKernel drbg_produce_shani; // where sha1_has_shani
#endif

} // namespace zul
