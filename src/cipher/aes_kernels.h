#pragma once
#include "cipher/aes.h"
#include "platform/cpu.h"
#include "platform/target.h"

namespace zul {

// One way to compute AES. All kernels read and write the same AesKey. expand is given one of the three key
// lengths, with key.rounds already set. The functions over blocks are those of cipher/aes.h, but ctr promises
// a carry out of the low 64 bits of its counter only where its run ends; it leaves the high half alone.
struct AesKernel {
    using Expand = void(AesKey& key, const uint8_t* bytes, size_t length, bool decryptToo);
    using Plain = void(const AesKey& key, uint8_t* out, const uint8_t* in, size_t blocks);
    using Chained = void(const AesKey& key, uint8_t* iv, uint8_t* out, const uint8_t* in, size_t blocks);

    const char* name;
    Expand* expand;
    Plain *ecbEncrypt, *ecbDecrypt;
    Chained *cbcEncrypt, *cbcDecrypt, *cfbEncrypt, *cfbDecrypt, *ofb, *ctr;
};

extern const AesKernel kAesPortable; // constant time: no table lookup, no branch on key or data

#if ZUL_X86_64
extern const AesKernel kAesNi;
extern const AesKernel kAesVaes256;
extern const AesKernel kAesVaes512;

// What the vector kernels take over from AES-NI: the modes in which every block waits for the one before.
AesKernel::Expand aes_ni_expand;
AesKernel::Chained aes_ni_cbc_encrypt, aes_ni_cfb_encrypt, aes_ni_ofb;

inline bool aes_ni_usable() {
    return cpu_has(kCpuAesni | kCpuSsse3);
}
inline bool aes_vaes256_usable() {
    return cpu_has(kCpuAesni | kCpuSsse3 | kCpuAvx2 | kCpuVaes);
}
inline bool aes_vaes512_usable() {
    return cpu_has(kCpuAesni | kCpuSsse3 | kCpuAvx2 | kCpuVaes | kCpuAvx512);
}
#endif

} // namespace zul
