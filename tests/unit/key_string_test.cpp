#include <thread>

#include "rsa/process_key.h"
#include "rsa/rsa_key_string.h"
#include "support/unit_test.h"
#include "zulcore.h"

using namespace zul;

namespace {

constexpr KeyStringType kTypes[] = {KeyStringType::plain, KeyStringType::rsaPublic, KeyStringType::rsaPrivate,
                                    KeyStringType::otherPublic, KeyStringType::otherPrivate};

// Bytes that begin as DER does, so that a plain string is not taken for a protected one.
Bytes some_der(size_t size) {
    Bytes der(size);
    for (size_t i = 0; i < size; i++)
        der[i] = static_cast<uint8_t>(0x30 + i * 7);
    return der;
}

std::string make(const Bytes& der, KeyStringType type) {
    const SecretBuffer text = key_string_make(der.data(), der.size(), type);
    return text.empty() ? std::string() : std::string(text.text());
}

int open(const std::string& text, Bytes* der = nullptr, KeyStringType* type = nullptr) {
    SecretBuffer content;
    KeyStringType found{};
    const int error = key_string_open(text.c_str(), content, type != nullptr ? type : &found);
    if (der != nullptr)
        der->assign(content.data(), content.data() + content.size());
    return error;
}

// The first two characters tell a protected text from plain base64, which has no check.
bool is_refused(const std::string& altered, size_t where) {
    KeyStringType type{};
    const int error = open(altered, nullptr, &type);
    return error == INVALID_DATA_ERROR || (error == 0 && where < 2 && type == KeyStringType::plain);
}

} // namespace

TEST(KeyString, GivesBackWhatItWasMadeOf) {
    constexpr std::string_view markers[] = {"M", "PUBR", "PVTR", "PUBD", "PVTD"};
    for (const KeyStringType type : kTypes) {
        for (const size_t size : {1u, 2u, 5u, 6u, 7u, 13u, 14u, 140u, 1200u, 65534u}) {
            const Bytes der = some_der(size);
            const std::string text = make(der, type);
            const size_t padding = 8 - (size + 2) % 8;
            const size_t bytes = type == KeyStringType::plain ? size : 3 + size + padding + 18;
            EXPECT_EQ(text.size(), (bytes + 2) / 3 * 4);
            EXPECT_TRUE(text.starts_with(markers[static_cast<int>(type)])) << text;
            Bytes back;
            KeyStringType found{};
            EXPECT_EQ(open(text, &back, &found), 0) << size;
            EXPECT_EQ(back, der);
            EXPECT_EQ(found, type);
            EXPECT_EQ(make(der, type) == text, type == KeyStringType::plain);
        }
        EXPECT_EQ(make(some_der(65535), type), "");
    }
    EXPECT_EQ(make(some_der(30), KeyStringType{5}), make(some_der(30), KeyStringType::plain));
}

TEST(KeyString, AnyAlteredCharacterIsRefused) {
    constexpr std::string_view others =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/= \t\r\n-_.\x80";
    for (const size_t size : {1u, 9u, 17u}) { // texts with no, one and two closing "="
        const std::string text = make(some_der(size), KeyStringType::rsaPublic);
        for (size_t i = 0; i < text.size(); i++) {
            for (const char other : others) {
                std::string altered = text;
                altered[i] = other;
                EXPECT_TRUE(other == text[i] || is_refused(altered, i)) << i << " " << altered;
            }
            EXPECT_EQ(open(text.substr(0, i)), INVALID_DATA_ERROR) << i;
            EXPECT_TRUE(is_refused(text.substr(0, i) + text.substr(i + 1), i)) << i;
            EXPECT_EQ(open(text.substr(0, i) + ' ' + text.substr(i)), INVALID_DATA_ERROR) << i;
        }
        for (const char* more : {"A", "=", "\n", "AAAA", "===="})
            EXPECT_EQ(open(text + more), INVALID_DATA_ERROR) << more;
        for (const char* marker : {"PVTR", "PUBD", "PVTD", "PUBA", "PQAA"})
            EXPECT_EQ(open(marker + text.substr(4)), INVALID_DATA_ERROR) << marker;
    }
    for (const char* text : {"", "=", "P", "PU", "PQ==", "PUBR", "PUBRAAAAAAAAAAAA"})
        EXPECT_EQ(open(text), INVALID_DATA_ERROR) << text;
}

TEST(KeyString, OpensOnlyAsTheKeyOfItsType) {
    const Bytes publicKey = {0x30, 6, 2, 1, 33, 2, 1, 3};
    for (const KeyStringType type : kTypes) {
        const bool fits = type == KeyStringType::rsaPublic || type == KeyStringType::plain;
        const std::string text = make(publicKey, type);
        RsaKey key;
        bool isPrivate = true;
        EXPECT_EQ(rsa_open_public(text.c_str(), key), fits ? 0 : INVALID_DATA_ERROR);
        EXPECT_EQ(rsa_open_any(text.c_str(), key, &isPrivate), fits ? 0 : INVALID_DATA_ERROR);
        EXPECT_EQ(isPrivate, !fits);
        EXPECT_EQ(rsa_open_private(text.c_str(), key), INVALID_DATA_ERROR);
        EXPECT_EQ(key.flags, 0u);
    }
    RsaKey key;
    EXPECT_EQ(rsa_open_any(nullptr, key, nullptr), INVALID_DATA_ERROR);
}

TEST(KeyString, BelongsToOneProcessKeyHoweverManyThreadsAreFirst) {
    const std::string old = make(some_der(50), KeyStringType::rsaPrivate);
    EXPECT_EQ(open(old), 0);
    for (int round = 0; round < 20; round++) {
        process_key_forget();
        std::vector<std::string> made(4);
        std::vector<std::thread> threads;
        for (std::string& text : made)
            threads.emplace_back([&text] { text = make(some_der(50), KeyStringType::rsaPrivate); });
        for (std::thread& thread : threads)
            thread.join();
        for (const std::string& text : made)
            EXPECT_EQ(open(text), 0);
        EXPECT_EQ(open(old), INVALID_DATA_ERROR);
    }
}
