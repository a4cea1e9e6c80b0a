#include "cipher/block_cipher.h"

#include <cstring>

#include "frame/wipe.h"
#include "zulcore.h"

namespace zul {

namespace {

// The functions of the ciphers over their own member of the schedule.
template<auto Member, auto Crypt>
void plain(const CipherSchedule& key, uint8_t*, uint8_t* out, const uint8_t* in, size_t blocks) {
    Crypt(key.*Member, out, in, blocks);
}

template<auto Member, auto Crypt>
void chained(const CipherSchedule& key, uint8_t* chain, uint8_t* out, const uint8_t* in, size_t blocks) {
    Crypt(key.*Member, chain, out, in, blocks);
}

bool set_aes(CipherSchedule& schedule, const CipherKey& key, bool forDecryption) {
    return forDecryption ? aes_set_key(schedule.aes, key.bytes, key.length)
                         : aes_set_encrypt_key(schedule.aes, key.bytes, key.length);
}

bool set_tdes(CipherSchedule& schedule, const CipherKey& key, bool) {
    if (key.length != 24)
        return false;
    tdes_set_key(schedule.tdes, key.bytes);
    return true;
}

// Triple DES with one key three times is DES (SP 800-67, keying option 3).
bool set_des(CipherSchedule& schedule, const CipherKey& key, bool) {
    if (key.length != 8)
        return false;
    Secret<24> bundle;
    for (size_t i = 0; i < 24; i += 8)
        memcpy(bundle.data() + i, key.bytes, 8);
    tdes_set_key(schedule.tdes, bundle.data());
    return true;
}

bool set_rc2(CipherSchedule& schedule, const CipherKey& key, bool) {
    return rc2_set_key(schedule.rc2, key.bytes, key.length, key.rc2Bits);
}

constexpr auto kAes = &CipherSchedule::aes;
constexpr auto kTdes = &CipherSchedule::tdes;
constexpr auto kRc2 = &CipherSchedule::rc2;

constexpr BlockCipher aes(CipherAlgorithm algorithm, int option, const char* cbcName, size_t keyLength) {
    return {algorithm,
            option,
            cbcName,
            keyLength,
            kAesBlock,
            set_aes,
            {{plain<kAes, aes_ecb_encrypt>, plain<kAes, aes_ecb_decrypt>},
             {chained<kAes, aes_cbc_encrypt>, chained<kAes, aes_cbc_decrypt>},
             {chained<kAes, aes_cfb_encrypt>, chained<kAes, aes_cfb_decrypt>},
             {chained<kAes, aes_ofb>, chained<kAes, aes_ofb>},
             {chained<kAes, aes_ctr>, chained<kAes, aes_ctr>}}};
}

// A cipher stands at the place of its number.
constexpr BlockCipher kCiphers[] = {
    {CipherAlgorithm::tdea,
     ZUL_CIPHER_TDEA,
     "des-EDE3-CBC",
     24,
     8,
     set_tdes,
     {{plain<kTdes, tdes_ecb_encrypt>, plain<kTdes, tdes_ecb_decrypt>},
      {chained<kTdes, tdes_cbc_encrypt>, chained<kTdes, tdes_cbc_decrypt>},
      {chained<kTdes, tdes_cfb_encrypt>, chained<kTdes, tdes_cfb_decrypt>},
      {chained<kTdes, tdes_ofb>, chained<kTdes, tdes_ofb>},
      {chained<kTdes, tdes_ctr>, chained<kTdes, tdes_ctr>}}},
    aes(CipherAlgorithm::aes128, ZUL_CIPHER_AES128, "aes128-CBC", 16),
    aes(CipherAlgorithm::aes192, ZUL_CIPHER_AES192, "aes192-CBC", 24),
    aes(CipherAlgorithm::aes256, ZUL_CIPHER_AES256, "aes256-CBC", 32),
    {CipherAlgorithm::des,
     0,
     "desCBC",
     8,
     8,
     set_des,
     {{}, {chained<kTdes, tdes_cbc_encrypt>, chained<kTdes, tdes_cbc_decrypt>}, {}, {}, {}}},
    {CipherAlgorithm::rc2,
     0,
     "rc2CBC",
     0,
     8,
     set_rc2,
     {{}, {chained<kRc2, rc2_cbc_encrypt>, chained<kRc2, rc2_cbc_decrypt>}, {}, {}, {}}},
};

constexpr bool in_order() {
    size_t number = 0;
    for (const BlockCipher& cipher : kCiphers)
        if (static_cast<size_t>(cipher.algorithm) != number++)
            return false;
    return true;
}
static_assert(in_order());

} // namespace

const BlockCipher& block_cipher(CipherAlgorithm algorithm) {
    return kCiphers[static_cast<size_t>(algorithm)];
}

const BlockCipher* block_cipher_option(int options) {
    constexpr int kAlgorithmBits = 0xF0;
    for (const BlockCipher& cipher : kCiphers)
        if (cipher.option != 0 && cipher.option == (options & kAlgorithmBits))
            return &cipher;
    return nullptr;
}

const BlockCipher* block_cipher_named(const char* cbcName) {
    for (const BlockCipher& cipher : kCiphers)
        if (strcmp(cipher.cbcName, cbcName) == 0)
            return &cipher;
    return nullptr;
}

} // namespace zul
