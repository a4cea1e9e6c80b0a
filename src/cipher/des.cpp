// DES, FIPS 46-3, in ECB and CBC mode, for keys and messages that others made with it.
#include "cipher/des.h"

#include "cipher/des_core.h"

namespace zul {

static_assert(sizeof(DesKey::words) == kDesScheduleWords * sizeof(uint64_t));

static DesHalves encrypt(const DesKey& key, DesHalves block) {
    return des_pass<1>(block, key.words);
}

static DesHalves decrypt(const DesKey& key, DesHalves block) {
    return des_pass<-1>(block, key.words + kDesScheduleWords - 1);
}

void des_set_key(DesKey& key, const uint8_t* bytes) {
    des_schedule(key.words, bytes);
}

void des_ecb_encrypt(const DesKey& key, uint8_t* out, const uint8_t* in, size_t blocks) {
    for (size_t at = 0; at < blocks * kDesBlock; at += kDesBlock)
        des_store(out + at, encrypt(key, des_load(in + at)));
}

void des_ecb_decrypt(const DesKey& key, uint8_t* out, const uint8_t* in, size_t blocks) {
    for (size_t at = 0; at < blocks * kDesBlock; at += kDesBlock)
        des_store(out + at, decrypt(key, des_load(in + at)));
}

void des_cbc_encrypt(const DesKey& key, uint8_t* iv, uint8_t* out, const uint8_t* in, size_t blocks) {
    DesHalves chain = des_load(iv);
    for (size_t at = 0; at < blocks * kDesBlock; at += kDesBlock) {
        chain = encrypt(key, chain ^ des_load(in + at));
        des_store(out + at, chain);
    }
    des_store(iv, chain);
}

void des_cbc_decrypt(const DesKey& key, uint8_t* iv, uint8_t* out, const uint8_t* in, size_t blocks) {
    DesHalves chain = des_load(iv);
    for (size_t at = 0; at < blocks * kDesBlock; at += kDesBlock) {
        const DesHalves block = des_load(in + at);
        des_store(out + at, chain ^ decrypt(key, block));
        chain = block;
    }
    des_store(iv, chain);
}

} // namespace zul
