// mixed_calls CALLS [THREADS]: so many calls of all families on several threads at once, with answers that
// are known, and failures that have to fail. At the end the process must hold what it held when it was warm:
// as many blocks of the library, and no more memory.
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "fixtures.h"
#include "frame/memory.h"
#include "process_size.h"
#include "zulcore.h"

namespace endurance {
namespace {

std::atomic<bool> broken{false};

struct Worker {
    const Fixtures& fixtures;
    std::string own; // a prefix for files of this thread

    std::string file(const char* name) const { return own + name; }
    const char* rsa() const { return fixtures.privateKeys[0].c_str(); }
    const char* p256() const { return fixtures.privateKeys[1].c_str(); }
    const char* ed25519() const { return fixtures.privateKeys[4].c_str(); }
};

bool text_is(const char* text, const char* wanted) {
    return strcmp(text, wanted) == 0;
}

template<class Call>
bool starts_with(const char* wanted, Call call) {
    char text[8000];
    return call(text, 7999) > 0 && strncmp(text, wanted, strlen(wanted)) == 0;
}

bool fails(int result, int code) {
    return std::abs(result) == code && ZUL_ErrorCode() == code;
}

bool seal_and_open(const Worker& w) {
    const std::string sealed = w.file("sealed"), opened = w.file("opened");
    char digest[2][65];
    return SEAL_File(sealed.c_str(), "plain.txt", w.fixtures.recipient.c_str(), nullptr, 0) == 0 &&
           SEAL_OpenFile(opened.c_str(), sealed.c_str(), w.fixtures.identity.c_str(), nullptr, 0) == 0 &&
           HASH_HexFromFile(digest[0], 64, opened.c_str(), ZUL_HASH_SHA256) == 64 &&
           HASH_HexFromFile(digest[1], 64, "plain.txt", ZUL_HASH_SHA256) == 64 &&
           text_is(digest[0], digest[1]);
}

bool sign_and_verify(const char* key, const char* other) {
    unsigned char signature[256];
    const auto* const data = reinterpret_cast<const unsigned char*>("message");
    const int length = SIG_Sign(signature, sizeof signature, data, 7, key, nullptr, 0);
    return length > 0 && SIG_Verify(signature, length, data, 7, key, nullptr, 0) == 0 &&
           fails(SIG_Verify(signature, length, data, 6, key, nullptr, 0), SIGNATURE_ERROR) &&
           SIG_Verify(signature, length, data, 7, other, nullptr, 0) != 0;
}

bool stream(const Worker&) {
    unsigned char context[4096], digest[32];
    char hex[65];
    return HASH_Begin(context, sizeof context, "sha3-256", 0) > 0 && HASH_Add(context, "abc", 3) == 0 &&
           HASH_End(digest, 32, context) == 32 && CNV_HexStrFromBytes(hex, 64, digest, 32) == 64 &&
           text_is(hex, "3A985DA74FE225B2045C172D6BD390BD855F086E3E9D525B46BFE24511431532") &&
           fails(HASH_Add(context, "abc", 3), INVALID_DATA_ERROR);
}

bool authenticated(const Worker&) {
    unsigned char key[32] = {1}, sealed[64], opened[64];
    const int length =
        AEAD_Encrypt(sealed, sizeof sealed, reinterpret_cast<const unsigned char*>("text"), 4, key, 32,
                     nullptr, 0, nullptr, 0, "chacha20-poly1305", ZUL_AEAD_RANDOM_NONCE);
    const bool good = length == 32 &&
                      AEAD_Decrypt(opened, sizeof opened, sealed, length, key, 32, nullptr, 0, nullptr, 0,
                                   "chacha20-poly1305", ZUL_AEAD_RANDOM_NONCE) == 4 &&
                      memcmp(opened, "text", 4) == 0;
    sealed[20] ^= 1;
    return good && fails(AEAD_Decrypt(opened, sizeof opened, sealed, length, key, 32, nullptr, 0, nullptr, 0,
                                      "chacha20-poly1305", ZUL_AEAD_RANDOM_NONCE),
                         DECRYPT_ERROR);
}

bool raw_rsa(const Worker& w) {
    unsigned char block[128], message[128];
    return RSA_EncodeMsg(block, 128, reinterpret_cast<const unsigned char*>("abc"), 3,
                         ZUL_EME_OAEP | ZUL_HASH_SHA256) == 0 &&
           RSA_RawPublic(block, 128, w.fixtures.publicKeys[0].c_str(), 0) == 0 &&
           RSA_RawPrivate(block, 128, w.rsa(), 0) == 0 &&
           RSA_DecodeMsg(message, 128, block, 128, ZUL_EME_OAEP | ZUL_HASH_SHA256) == 3 &&
           memcmp(message, "abc", 3) == 0;
}

// Each counts as one call and makes one or a few. What takes longer comes more seldom: one in so many.
struct Step {
    const char* name;
    unsigned every;
    bool (*run)(const Worker&);
};

const Step kSteps[] = {
    {"HASH", 1,
     [](const Worker&) {
         char hex[65];
         return HASH_HexFromBytes(hex, 64, "abc", 3, ZUL_HASH_SHA256) == 64 &&
                text_is(hex, "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
     }},
    {"HASH streams", 1, stream},
    {"HASH of no file", 1,
     [](const Worker&) {
         char hex[65];
         return fails(HASH_HexFromFile(hex, 64, "nothing.txt", 0), OPEN_ERROR);
     }},
    {"HMAC", 1,
     [](const Worker&) {
         return starts_with("5bdcc146bf60754e", [](char* out, int room) {
             return HMAC_HexFromBytes(out, room, "what do ya want for nothing?", 28, "Jefe", 4,
                                      ZUL_HASH_SHA256);
         });
     }},
    {"CIPHER", 1,
     [](const Worker&) {
         return starts_with("69C4E0D86A7B0430", [](char* out, int room) {
             return CIPHER_Hex(1, out, room, "00112233445566778899AABBCCDDEEFF",
                               "000102030405060708090A0B0C0D0E0F", nullptr, "aes-128-ecb", 0) == 0
                        ? 32
                        : 0;
         });
     }},
    {"CIPHER with a bad mode", 1,
     [](const Worker&) {
         char out[64];
         return CIPHER_Hex(1, out, 63, "00", "00", nullptr, "aes-128/XYZ", 0) != 0 && ZUL_ErrorCode() != 0;
     }},
    {"AEAD", 1, authenticated},
    {"KDF", 20,
     [](const Worker&) {
         unsigned char key[32];
         return KDF_Pbkdf2(key, 32, "passwd", 6, "salt", 4, 1, "sha256") == 32 && key[0] == 0x55 &&
                key[1] == 0xAC && KDF_Scrypt(key, 32, "p", 1, "s", 1, 16, 1, 1) == 32 &&
                KDF_Argon2id(key, 32, "p", 1, "saltsalt", 8, 32, 1, 1) == 32 &&
                fails(KDF_Scrypt(key, 32, "p", 1, "s", 1, 15, 1, 1), OUT_OF_RANGE_ERROR);
     }},
    {"CNV", 1,
     [](const Worker&) {
         char out[16];
         return CNV_Latin1FromUTF8(out, 15, "\xC3\xA4") == 1 &&
                fails(CNV_Latin1FromUTF8(out, 15, "\xC3"), INVALID_DATA_ERROR);
     }},
    {"PAD and WIPE", 1,
     [](const Worker&) {
         unsigned char block[16] = {7};
         return PAD_BytesBlock(block, 16, block, 5, 8, 0) == 8 &&
                PAD_UnpadBytes(block, 16, block, 8, 8, 0) == 5 && WIPE_Data(block, 16) == 0 &&
                block[0] == 0 && fails(WIPE_Data(nullptr, 1), BAD_PARAM_ERROR);
     }},
    {"RNG", 1,
     [](const Worker&) {
         unsigned char bytes[32] = {};
         const int number = RNG_Number(1, 6);
         return RNG_Bytes(bytes, 32, nullptr, 0) == 0 && number >= 1 && number <= 6;
     }},
    {"Ed25519", 4, [](const Worker& w) { return sign_and_verify(w.ed25519(), w.p256()); }},
    {"ECDSA", 8, [](const Worker& w) { return sign_and_verify(w.p256(), w.ed25519()); }},
    {"RSA-PSS", 30, [](const Worker& w) { return sign_and_verify(w.rsa(), w.ed25519()); }},
    {"RSA", 30, raw_rsa},
    {"KEY", 8,
     [](const Worker& w) {
         return starts_with("p-256", [&](char* out,
                                         int room) { return KEY_Query(out, room, w.p256(), "curve", 0); }) &&
                KEY_Match(w.p256(), w.fixtures.publicKeys[1].c_str()) == 0 &&
                fails(KEY_Match(w.p256(), w.ed25519()), NO_MATCH_ERROR) &&
                fails(KEY_Check("PVTKnokey", 0), INVALID_DATA_ERROR);
     }},
    {"KEY files", 200,
     [](const Worker& w) {
         const std::string file = w.file("key.pem");
         char key[8000];
         return KEY_Save(file.c_str(), w.p256(), "p", "iterations=10", ZUL_KEY_FORMAT_PEM) == 0 &&
                KEY_Read(key, 7999, file.c_str(), "p", 0) > 0 && KEY_Match(key, w.p256()) == 0 &&
                fails(KEY_Read(key, 7999, file.c_str(), "q", 0), DECRYPT_ERROR);
     }},
    {"X509 queries", 2,
     [](const Worker&) {
         return starts_with("CN=Leaf", [](char* out, int room) {
             return X509_QueryCert(out, room, "rsa-leaf.pem", "subjectName", 0);
         });
     }},
    {"X509 paths", 10,
     [](const Worker&) {
         return X509_ValidatePath("rsa-leaf.pem;rsa-ca.der", nullptr, 0) == 0 &&
                X509_VerifyCert("rsa-ca.der", "rsa-leaf.pem") == 0 &&
                fails(X509_VerifyCert("plain.txt", "rsa-ca.der"), INVALID_DATA_ERROR);
     }},
    {"CERT queries", 2,
     [](const Worker&) {
         return starts_with("leaf.example",
                            [](char* out, int room) { return CERT_Query(out, room, "leaf.pem", "dns", 0); });
     }},
    {"CERT reports", 10,
     [](const Worker&) {
         char text[8000];
         return CERT_Report(text, 7999, "leaf.pem", 0) > 100 && strstr(text, "leaf.example") != nullptr &&
                CERT_Report(text, 7999, "list.pem", ZUL_CERT_JSON) > 100;
     }},
    {"CERT paths", 10,
     [](const Worker&) {
         return CERT_CheckPath(nullptr, 0, "leaf.pem", nullptr, "ca.pem", nullptr, "host=leaf.example", 0) ==
                    0 &&
                fails(CERT_CheckPath(nullptr, 0, "leaf.pem", nullptr, "ca.pem", nullptr, "host=x.example", 0),
                      NO_MATCH_ERROR) &&
                fails(CERT_CheckPath(nullptr, 0, "leaf.pem", nullptr, "rsa-ca.der", nullptr, nullptr, 0),
                      ISSUER_ERROR);
     }},
    {"CERT making", 200,
     [](const Worker& w) {
         const std::string file = w.file("made.pem");
         return CERT_Issue(file.c_str(), "ca.pem", w.p256(), w.ed25519(), "CN=Made;dns=made.example", 0) ==
                    0 &&
                CERT_CheckName(file.c_str(), "made.example", 0) == 0 &&
                fails(CERT_Issue(file.c_str(), "ca.pem", w.ed25519(), w.ed25519(), "CN=Made", 0),
                      NO_MATCH_ERROR);
     }},
    {"CMS signed", 30,
     [](const Worker& w) {
         const std::string file = w.file("signed.der");
         return CMS_MakeSigDataFromString(file.c_str(), "content", "rsa-leaf.pem", w.rsa(),
                                          ZUL_HASH_SHA256) == 0 &&
                CMS_VerifySigData(file.c_str(), "", "", 0) == 0 &&
                starts_with("content", [&](char* out, int room) {
                    return CMS_ReadSigDataToString(out, room, file.c_str(), 0);
                });
     }},
    {"CMS enveloped", 30,
     [](const Worker& w) {
         char text[200];
         return CMS_ReadEnvDataToString(text, 199, "enveloped.txt", "", w.rsa(), 0) > 0 &&
                strncmp(text, "Words", 5) == 0 &&
                CMS_ReadEnvDataToString(text, 199, "plain.txt", "", w.rsa(), 0) < 0;
     }},
    {"PFX and P12", 100,
     [](const Worker&) {
         char text[4000];
         return PFX_VerifySig("old.pfx", "p", 0) == 0 &&
                fails(PFX_VerifySig("old.pfx", "q", 0), SIGNATURE_ERROR) &&
                P12_List(text, 3999, "new.p12", "p", 0) > 0 && strstr(text, "kind=key") != nullptr;
     }},
    {"OCSP", 20,
     [](const Worker&) {
         char text[1000];
         return OCSP_MakeRequest(text, 999, "rsa-ca.der", "rsa-leaf.pem", "", 0) > 0;
     }},
    {"SEAL", 200, seal_and_open},
    {"PEM", 100,
     [](const Worker& w) {
         const std::string file = w.file("pem");
         return PEM_FileFromBinFile(file.c_str(), "rsa-ca.der", "CERTIFICATE", 64) == 0 &&
                fails(PEM_FileToBinFile(file.c_str(), "missing.pem"), OPEN_ERROR);
     }},
};

void work(const Fixtures& fixtures, const std::string& own, unsigned long calls, unsigned long first) {
    const Worker worker{fixtures, own};
    const size_t many = sizeof kSteps / sizeof kSteps[0];
    unsigned long made = 0;
    for (unsigned long i = first; made < calls && !broken; i++) {
        const Step& step = kSteps[i % many];
        if ((i / many) % step.every != 0)
            continue;
        made++;
        if (!step.run(worker)) {
            char text[512] = "";
            const int code = ZUL_ErrorCode();
            ZUL_LastError(text, 511);
            std::fprintf(stderr, "%s failed (%d, %s)\n", step.name, code, text);
            broken = true;
        }
    }
}

void round_of(const Fixtures& fixtures, unsigned threads, unsigned long calls) {
    std::vector<std::thread> workers;
    for (unsigned i = 0; i < threads; i++)
        workers.emplace_back(work, std::cref(fixtures), std::to_string(i) + "-", calls / threads, 7 * i);
    for (std::thread& worker : workers)
        worker.join();
}

int run(unsigned long calls, unsigned threads) {
    const Fixtures fixtures = make_fixtures();
    round_of(fixtures, threads, calls / 10);
    const ProcessSize early = process_size();
    const long blocks = zul::live_blocks();
    round_of(fixtures, threads, calls - calls / 10);
    const ProcessSize end = process_size();
    std::printf("%lu calls on %u threads; memory %ld -> %ld KiB, handles %ld -> %ld, blocks %ld -> %ld\n",
                calls, threads, early.memory, end.memory, early.handles, end.handles, blocks,
                zul::live_blocks());
    const bool flat =
        end.memory < early.memory + 8 * 1024 && end.handles == early.handles && zul::live_blocks() == blocks;
    return flat && !broken ? 0 : 1;
}

} // namespace
} // namespace endurance

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: mixed_calls CALLS [THREADS]\n");
        return 2;
    }
    const std::filesystem::path folder = std::filesystem::current_path() / "mixed_calls";
    std::filesystem::remove_all(folder);
    std::filesystem::create_directory(folder);
    std::filesystem::current_path(folder);
    return endurance::run(std::strtoul(argv[1], nullptr, 10),
                          argc > 2 ? static_cast<unsigned>(std::atoi(argv[2])) : 4);
}
