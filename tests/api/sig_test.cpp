#include <cstring>
#include <gtest/gtest.h>

#include "support/key_calls.h"
#include "support/temp_dir.h"

using namespace test;

namespace {

const Bytes kData = {'d', 'a', 't', 'a'};

Bytes joined(std::initializer_list<Bytes> parts) {
    Bytes all;
    for (const Bytes& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

std::string key_of(const Vector& v) {
    return read_der(joined({v.hex("Prefix"), v.hex("Key"), v.hex("Suffix")}));
}

} // namespace

TEST(Signature, IsThatOfTheStandards) {
    const TempDir dir;
    for (const Vector& v : read_vectors("key/signatures.txt")) {
        const std::string key = key_of(v), publicKey = public_of(key), algorithm = v.text("Algorithm");
        const Bytes message = v.hex("Message"), signature = v.hex("Signature");
        const int options = ZUL_SIG_RAW | ZUL_SIG_DETERMINISTIC;
        EXPECT_EQ(sign_data(message, key, algorithm, options), signature);
        EXPECT_EQ(verify_data(signature, message, publicKey, algorithm, ZUL_SIG_RAW), 0);
        for (size_t i = 0; i < signature.size(); i += 7) {
            Bytes bad = signature;
            bad[i] ^= 0x10;
            EXPECT_EQ(verify_data(bad, message, publicKey, algorithm, ZUL_SIG_RAW), SIGNATURE_ERROR) << i;
        }
        Bytes bad = signature;
        bad.push_back(0);
        EXPECT_EQ(verify_data(bad, message, publicKey, algorithm, ZUL_SIG_RAW), SIGNATURE_ERROR);
        const std::string file = dir.write("message", message);
        Bytes again(signature.size());
        EXPECT_EQ(SIG_SignFile(again.data(), static_cast<int>(again.size()), file.c_str(), key.c_str(),
                               algorithm.c_str(), options),
                  static_cast<int>(again.size()));
        EXPECT_EQ(last_error(), "");
        EXPECT_EQ(again, signature);
        EXPECT_EQ(SIG_VerifyFile(again.data(), static_cast<int>(again.size()), file.c_str(),
                                 publicKey.c_str(), algorithm.c_str(), ZUL_SIG_RAW),
                  0);
    }
}

#ifdef __linux__
// Ed25519 reads what it signs twice. This file has another text each time.
TEST(Signature, RefusesAFileThatChanges) {
    const std::string key = make_key("ed25519");
    uint8_t signature[64];
    EXPECT_RESULT(SIG_SignFile(signature, 64, "/proc/sys/kernel/random/uuid", key.c_str(), "", 0),
                  -READ_ERROR);
    EXPECT_EQ(last_error(), "File '/proc/sys/kernel/random/uuid' has changed while it was read");
}
#endif

TEST(Signature, OfPssHasTheVeryEncoding) {
    // 1025 bits: the encoded message is a byte shorter than the modulus.
    for (const char* kind : {"rsa-1024", "rsa-1025"}) {
        SCOPED_TRACE(kind);
        const std::string key = make_key(kind);
        const char* const names[] = {"rsa-pss-sha256",
                                     "rsa-pss-sha256;salt=20",
                                     "rsa-pss-sha256;salt=max",
                                     "rsa-pss-sha256;salt=0",
                                     "rsa-pss-sha256;mgf=sha1",
                                     "rsa-pss-sha384",
                                     "RSA-PSS-SHA3-256",
                                     "rsa-sha256",
                                     "rsa-sha3-256",
                                     "rsa-md5"};
        for (const char* made : names) {
            const Bytes signature = sign_data(kData, key, made);
            for (const char* checked : names)
                EXPECT_EQ(verify_data(signature, kData, key, checked), made == checked ? 0 : SIGNATURE_ERROR)
                    << made << " as " << checked;
            const bool isOfAny =
                std::string_view(made).starts_with("rsa-pss-sha256") && strstr(made, "mgf") == nullptr;
            EXPECT_EQ(verify_data(signature, kData, key, "rsa-pss-sha256;salt=any"),
                      isOfAny ? 0 : SIGNATURE_ERROR)
                << made;
        }
        EXPECT_EQ(verify_data(sign_data(kData, key, ""), kData, key, "rsa-pss-sha-256;salt=32"), 0);

        // Each damage is signed, so the block arrives as it was damaged.
        Bytes block = sign_data(kData, key, "rsa-pss-sha256");
        const auto size = static_cast<int>(block.size());
        ASSERT_EQ(RSA_RawPublic(block.data(), size, public_of(key).c_str(), 0), 0);
        const size_t front = kind[7] == '5' ? 1 : 0, separator = block.size() - 32 - 1 - 33;
        const struct {
            size_t at;
            uint8_t change;
            const char* what;
        } damages[] = {{block.size() - 1, 0xBC ^ 0xCC, "trailer"},
                       {front, 0x40, "first byte of the padding"},
                       {separator - 3, 1, "padding"},
                       {separator, 3, "separator"},
                       {separator + 1, 1, "salt"},
                       {block.size() - 2, 1, "hash"}};
        for (const auto& damage : damages) {
            Bytes bad = block;
            bad[damage.at] ^= damage.change;
            ASSERT_EQ(RSA_RawPrivate(bad.data(), size, key.c_str(), 0), 0);
            for (const char* name : {"rsa-pss-sha256", "rsa-pss-sha256;salt=any"})
                EXPECT_EQ(verify_data(bad, kData, key, name), SIGNATURE_ERROR) << damage.what;
        }
        ASSERT_EQ(RSA_RawPrivate(block.data(), size, key.c_str(), 0), 0);
        EXPECT_EQ(verify_data(block, kData, key, "rsa-pss-sha256"), 0);
        block.insert(block.begin(), 0);
        EXPECT_EQ(verify_data(block, kData, key, "rsa-pss-sha256"), SIGNATURE_ERROR);
    }
}

// A key whose parameters are SHA-256, MGF1 with SHA-384 and a salt of 24 bytes at least.
TEST(Signature, OfPssKeepsTheRulesOfTheKey) {
    const TempDir dir;
    const std::string key = make_key("rsa-1024"), file = dir.file("key");
    ASSERT_EQ(KEY_Save(file.c_str(), public_of(key).c_str(), nullptr, nullptr, ZUL_KEY_FORMAT_OWN), 0);
    const Bytes own = read_file(file);
    ASSERT_EQ(own.size(), 0x8cU);
    const std::string ruled =
        read_der(joined({from_hex("3081d1 303f 06092a864886f70d01010a 3032 a00d300b0609608648016503040201"
                                  "a11c301a06092a864886f70d010108 300d0609608648016503040202 0500 a203020118"
                                  "03818d00"),
                         own}));
    // No digest algorithm; something else than NULL as its parameters.
    for (const char* bad : {"3081c6 3034 06092a864886f70d01010a 3027 a0023000"
                            "a11c301a06092a864886f70d010108 300d0609608648016503040202 0500 a203020118",
                            "3081d1 303f 06092a864886f70d01010a 3032 a00d300b0609608648016503040201"
                            "a11c301a06092a864886f70d010108 300d0609608648016503040202 0400 a203020118"}) {
        int code = 0;
        read_der(joined({from_hex(bad), from_hex("03818d00"), own}), &code);
        EXPECT_EQ(code, BAD_FORMAT_ERROR) << bad << last_error();
    }
    EXPECT_EQ(ask_key(ruled, "hash") + ask_key(ruled, "MGF") + ask_key(ruled, "salt"), "sha256sha38424");
    EXPECT_EQ(ask_key(key, "hash") + ask_key(key, "mgf") + ask_key(key, "salt"), "0");
    EXPECT_EQ(ask_key(ruled, "exponent"), "010001");
    EXPECT_EQ(ask_key(make_key("p-256"), "exponent"), "");
    const std::string name = "rsa-pss-sha256;mgf=sha384;salt=";
    const struct {
        const char *made, *checked;
        int code;
    } rows[] = {{"40", "40", 0},  {"40", "24", SIGNATURE_ERROR},  {"40", "any", 0},
                {"24", "any", 0}, {"23", "any", SIGNATURE_ERROR}, {"23", "23", BAD_KEY_ERROR}};
    for (const auto& row : rows)
        EXPECT_EQ(verify_data(sign_data(kData, key, name + row.made), kData, ruled, name + row.checked),
                  row.code)
            << row.made << " as " << row.checked;
}

TEST(Signature, AlgorithmsAndKeysHaveToFit) {
    const std::string rsa = make_key("rsa-1024"), ec = make_key("p-256"), ed = make_key("ed25519"),
                      x = make_key("x25519");
    const struct {
        const std::string& key;
        const char* algorithm;
        int options, code;
    } rows[] = {{rsa, "ecdsa-sha256", 0, BAD_KEY_ERROR},
                {rsa, "rsa-pss-sha512", 0, BAD_KEY_LEN_ERROR},
                {rsa, "rsa-pss-sha256;salt=95", 0, BAD_KEY_LEN_ERROR},
                {rsa, "rsa-pss-sha256;salt=", 0, BAD_PARAM_ERROR},
                {rsa, "rsa-pss-sha256;salt=any", 0, BAD_PARAM_ERROR},
                {rsa, "rsa-pss-sha256;salt=1;salt=1", 0, BAD_PARAM_ERROR},
                {rsa, "rsa-pss-sha256;", 0, BAD_PARAM_ERROR},
                {rsa, "rsa-pss-sha256;mgf=crc", 0, NOT_SUPPORTED_ERROR},
                {rsa, "rsa-sha256;salt=1", 0, NOT_SUPPORTED_ERROR},
                {rsa, "rsa-", 0, NOT_SUPPORTED_ERROR},
                {rsa, "rsa-pss-shake128", 0, NOT_SUPPORTED_ERROR},
                {ec, "rsa-sha256", 0, BAD_KEY_ERROR},
                {ec, "ed25519", 0, BAD_KEY_ERROR},
                {ec, "ecdsa-md2", 0, NOT_SUPPORTED_ERROR},
                {ec, "ecdsa", 0, NOT_SUPPORTED_ERROR},
                {ec, "", 4, BAD_FLAG_ERROR},
                {ed, "ecdsa-sha512", 0, BAD_KEY_ERROR},
                {x, "", 0, BAD_KEY_ERROR},
                {x, "ed25519", 0, BAD_KEY_ERROR}};
    for (const auto& row : rows) {
        int code = 0;
        sign_data(kData, row.key, row.algorithm, row.options, &code);
        EXPECT_EQ(code, row.code) << row.algorithm << " " << last_error();
    }
    int code = 0;
    sign_data(kData, public_of(ec), "", 0, &code);
    EXPECT_EQ(code, INVALID_DATA_ERROR);
    EXPECT_EQ(SIG_Sign(nullptr, 0, nullptr, 1, ec.c_str(), "", 0), -BAD_PARAM_ERROR);
    Bytes room(71);
    EXPECT_EQ(SIG_Sign(nullptr, 0, nullptr, 0, ec.c_str(), "", 0), 72);
    const std::string small =
        read_der(from_hex("301d02010002020ca102011102020ac102013d020135020135020131020126"));
    EXPECT_EQ(SIG_Sign(nullptr, 0, nullptr, 0, small.c_str(), "rsa-sha256", 0), -BAD_KEY_LEN_ERROR);
    EXPECT_EQ(SIG_Sign(room.data(), 71, nullptr, 0, ec.c_str(), "", 0), -SHORT_BUF_ERROR);
    EXPECT_NE(sign_data(kData, ec, ""), sign_data(kData, ec, "")); // 32 random bytes
    EXPECT_EQ(sign_data(kData, ec, "", ZUL_SIG_DETERMINISTIC),
              sign_data(kData, ec, "", ZUL_SIG_DETERMINISTIC));
}

TEST(Signature, OfADigestIsThatOfTheData) {
    Bytes digest(64), signature(200);
    HASH_Bytes(digest.data(), 64, kData.data(), 4, ZUL_HASH_SHA512);
    for (const char* kind : {"rsa-1024", "p-521", "ed25519"}) {
        const std::string key = make_key(kind);
        const char* const name = *kind == 'r' ? "rsa-sha512" : *kind == 'p' ? "ecdsa-sha512" : "ed25519ph";
        const int length =
            SIG_SignDigest(signature.data(), 200, digest.data(), 64, key.c_str(), name, ZUL_SIG_RAW);
        ASSERT_GT(length, 0) << last_error();
        EXPECT_EQ(SIG_Verify(signature.data(), length, kData.data(), 4, key.c_str(), name, ZUL_SIG_RAW), 0);
        EXPECT_EQ(
            SIG_VerifyDigest(signature.data(), length, digest.data(), 64, key.c_str(), name, ZUL_SIG_RAW), 0);
        EXPECT_EQ(
            SIG_VerifyDigest(signature.data(), length, digest.data(), 63, key.c_str(), name, ZUL_SIG_RAW),
            BAD_LENGTH_ERROR);
    }
    EXPECT_EQ(SIG_SignDigest(signature.data(), 200, digest.data(), 64, make_key("ed25519").c_str(), "", 0),
              -NOT_SUPPORTED_ERROR);
    const TempDir dir;
    for (const char* kind : {"p-256", "ed25519"})
        EXPECT_EQ(
            SIG_SignFile(signature.data(), 200, dir.file("none").c_str(), make_key(kind).c_str(), "", 0),
            -OPEN_ERROR);
}
