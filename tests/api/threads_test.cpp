#include <atomic>
#include <cstring>
#include <thread>

#include "support/module_calls.h"

namespace {

// Each thread has a name of its own in every error text that it provokes, so that a text that crosses over
// is known by its foreign name.
void mixed_calls(int number, int rounds, std::atomic<int>& wrong) {
    const std::string name = "/nowhere/thread-" + std::to_string(number) + "-end";
    unsigned char data[100], out[100], key[16] = {}, digest[64];
    memset(data, number, sizeof data);
    for (int i = 0; i < rounds; i++) {
        const auto expect = [&](bool claim) { wrong += !claim; };
        switch ((i + number) % 6) {
        case 0: {
            expect(HASH_File(digest, 32, name.c_str(), ZUL_HASH_SHA256) == -OPEN_ERROR);
            expect(ZUL_ErrorCode() == OPEN_ERROR);
            break;
        }
        case 1: {
            expect(PEM_FileToBinFile("", name.c_str()) == -BAD_PARAM_ERROR);
            expect(ZUL_ErrorCode() == BAD_PARAM_ERROR);
            expect(WIPE_File(name.c_str(), 0) == OPEN_ERROR);
            char text[600] = "";
            const int length = ZUL_LastError(text, 599);
            expect(length > 0 && strstr(text, name.c_str()) != nullptr);
            expect(strstr(text, ";") == nullptr);
            expect(ZUL_ErrorCode() == OPEN_ERROR);
            break;
        }
        case 2:
            expect(CIPHER_Bytes(1, out, data, 99, key, key, "aes-128/cbc", 0) == BAD_LENGTH_ERROR);
            expect(ZUL_ErrorCode() == BAD_LENGTH_ERROR);
            expect(CIPHER_Bytes(1, out, data, 96, key, key, "aes-128/cbc", 0) == 0);
            expect(ZUL_ErrorCode() == 0);
            expect(CIPHER_Bytes(0, out, out, 96, key, key, "aes-128/cbc", 0) == 0);
            expect(memcmp(out, data, 96) == 0);
            break;
        case 3:
            expect(RNG_Bytes(out, 64, nullptr, 0) == 0);
            expect(RNG_Bytes(out, 65537, nullptr, 0) == -PRNG_ERR_TOOBIG);
            expect(ZUL_ErrorCode() == 0);
            break;
        case 4:
            expect(HASH_Bytes(digest, 20, data, 100, 9) == -BAD_FLAG_ERROR);
            expect(ZUL_ErrorCode() == BAD_FLAG_ERROR);
            expect(HASH_Bytes(digest, 20, data, 100, ZUL_HASH_SHA1) == 20);
            expect(ZUL_ErrorCode() == 0 && ZUL_LastError(nullptr, 0) == 0);
            break;
        default:
            expect(CNV_Latin1FromUTF8(reinterpret_cast<char*>(out), 50, "\xE2\x82\xAC") ==
                   -OUT_OF_RANGE_ERROR);
            expect(ZUL_ErrorCode() == OUT_OF_RANGE_ERROR);
            expect(CIPHER_KeyUnwrap(out, 100, data, 40, key, 16, ZUL_CIPHER_AES128) == -1);
            expect(ZUL_ErrorCode() == OPEN_ERROR);
            break;
        }
    }
}

} // namespace

TEST(Threads, ErrorsNeverCross) {
    std::atomic<int> wrong{0};
    std::vector<std::thread> threads;
    for (int number = 0; number < 8; number++)
        threads.emplace_back([number, &wrong] { mixed_calls(number, 3000, wrong); });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(wrong, 0);
}

TEST(Threads, ShortLivedOnesComeAndGo) {
    std::atomic<int> wrong{0};
    for (int round = 0; round < 100; round++) {
        std::vector<std::thread> threads;
        for (int number = 0; number < 4; number++)
            threads.emplace_back([number, &wrong] { mixed_calls(number, 6, wrong); });
        for (std::thread& thread : threads)
            thread.join();
    }
    EXPECT_EQ(wrong, 0);
}
