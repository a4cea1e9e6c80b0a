#pragma once
#include <memory>
#include <openssl/evp.h>
#include <vector>

#include "fuzz_support.h"
#include "platform/cpu.h"

// What the targets share that compare the library with OpenSSL's libcrypto.
namespace fuzz {

using Bytes = std::vector<uint8_t>;

template<auto release>
struct Releaser {
    template<class T>
    void operator()(T* object) const {
        release(object);
    }
};
template<class T, auto release>
using Handle = std::unique_ptr<T, Releaser<release>>;

// hide_features lets the input choose the kernels: the library's are compared, not only the fastest ones.
inline void hide_features(uint8_t choice) {
    constexpr uint32_t kHidden[] = {
        0,
        zul::kCpuAvx512 | zul::kCpuAvx512Ifma,
        zul::kCpuAvx512 | zul::kCpuAvx512Ifma | zul::kCpuAvx2 | zul::kCpuVaes,
        zul::kCpuShani | zul::kCpuAdx | zul::kCpuVaes,
        0x7FFFFFFF,
        zul::kCpuAesni,
        zul::kCpuAvx512Ifma,
        zul::kCpuSsse3 | zul::kCpuAdx,
    };
    zul::cpu_mask_features(kHidden[choice % std::size(kHidden)]);
}

} // namespace fuzz
