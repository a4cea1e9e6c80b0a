#include <algorithm>
#include <climits>

#include "support/module_calls.h"

using test::Bytes;
using test::last_error;

namespace {

using RawFunction = int (*)(unsigned char*, int, const char*, int);

int length_of(const Bytes& bytes) {
    return static_cast<int>(bytes.size());
}

// What the function makes of the data, or its code and text.
std::string raw(RawFunction function, const Bytes& input, const std::string& key, int options = 0) {
    Bytes data = input;
    const int code = function(data.data(), length_of(data), key.c_str(), options);
    EXPECT_EQ(ZUL_ErrorCode(), code);
    if (code == 0)
        return test::to_hex(data);
    EXPECT_EQ(data, code == SIGNATURE_ERROR ? Bytes(input.size()) : input);
    return std::to_string(code) + " " + last_error();
}

Bytes behind(size_t zeros, const Bytes& bytes) {
    Bytes longer(zeros);
    longer.insert(longer.end(), bytes.begin(), bytes.end());
    return longer;
}

void expect_raw(const test::Vector& v) {
    const std::string priv = v.text("Private"), pub = v.text("Public");
    const Bytes n = v.hex("N"), m = v.hex("M"), c = v.hex("C");
    const std::string k = std::to_string(n.size()), mText = test::to_hex(m), cText = test::to_hex(c);
    for (const int options : {0, 5, 0x70}) { // no trailer
        EXPECT_EQ(raw(RSA_RawPublic, m, pub, options), cText);
        EXPECT_EQ(raw(RSA_RawPrivate, c, priv, options), mText);
    }
    EXPECT_EQ(raw(RSA_RawPublic, behind(1, m), pub), "00" + cText);
    EXPECT_EQ(raw(RSA_RawPublic, n, pub), "11 RSA operation failed");
    EXPECT_EQ(raw(RSA_RawPrivate, n, priv), "11 RSA operation failed");
    EXPECT_EQ(raw(RSA_RawPublic, Bytes(n.size() - 1), pub), "11 Data length shorter than key");
    for (const size_t size : {n.size() - 1, n.size() + 1})
        EXPECT_EQ(raw(RSA_RawPrivate, Bytes(size), priv),
                  "11 Data length (" + std::to_string(size) + ") does not match key (" + k + ") bytes");
    EXPECT_NE(raw(RSA_RawPublic, m, priv).find("Invalid Public Key"), std::string::npos);
    EXPECT_NE(raw(RSA_RawPrivate, m, pub).find("Invalid Private Key"), std::string::npos);
    EXPECT_EQ(raw(RSA_RawPublic, m, ""), "6 ");
    EXPECT_EQ(raw(RSA_RawPrivate, Bytes(), priv), "6 ");

    // The smaller one of s and n - s, and both ways back.
    for (const char* name : {"6a", "6b", "Ca", "Cb"}) {
        SCOPED_TRACE(name);
        const int options = name[0] == '6' ? ZUL_RSA2_TRAILER6 : ZUL_RSA2_TRAILERC;
        const Bytes message = v.hex(std::string("M") + name), s = v.hex(std::string("S") + name);
        EXPECT_EQ(raw(RSA_RawPrivate, message, priv, options | 0x170), test::to_hex(s));
        EXPECT_EQ(raw(RSA_RawPublic, behind(2, s), pub, options), "0000" + test::to_hex(message));
        EXPECT_EQ(raw(RSA_RawPublic, m, pub, options), "22 ");
        for (int digit = 0; digit < 16; digit++) {
            Bytes other = message;
            other.back() = static_cast<unsigned char>((other.back() & 0xF0) | digit);
            EXPECT_EQ(raw(RSA_RawPrivate, other, priv, options) == "7 ", digit % options != 0) << digit;
        }
    }
}

void expect_checks(const test::Vector& v) {
    const std::string priv = v.text("Private"), pub = v.text("Public");
    const auto bits = static_cast<int>(v.number("Bits"));
    for (const std::string& key : {priv, pub}) {
        EXPECT_EQ(RSA_KeyBits(key.c_str()), bits);
        EXPECT_EQ(RSA_KeyBytes(key.c_str()), (bits + 7) / 8);
        EXPECT_EQ(RSA_KeyHashCode(key.c_str()), v.number("HashCode"));
    }
    EXPECT_EQ(RSA_CheckKey(priv.c_str(), -1), 0);
    EXPECT_EQ(RSA_CheckKey(pub.c_str(), 0), 1);
    EXPECT_EQ(last_error(), "");
    EXPECT_EQ(RSA_KeyMatch(priv.c_str(), pub.c_str()), 0);
    EXPECT_FAILURE(RSA_KeyMatch(priv.c_str(), v.text("OtherPublic").c_str()), -NO_MATCH_ERROR,
                   "Keys do not match");
    const std::string faulty = v.text("FaultyPrivate");
    EXPECT_EQ(RSA_CheckKey(faulty.c_str(), 0), -TEST_FAILED_ERROR);
    EXPECT_EQ(raw(RSA_RawPrivate, v.hex("C"), faulty), "23 RSA operation failed");
    EXPECT_EQ(RSA_CheckKey(v.text("WrongD").c_str(), 0), -TEST_FAILED_ERROR);
    EXPECT_FAILURE(RSA_KeyMatch(faulty.c_str(), pub.c_str()), -INVALID_DATA_ERROR, "Not a valid private key");
    EXPECT_LT(RSA_KeyMatch(pub.c_str(), pub.c_str()), 0);
    EXPECT_NE(last_error().find("Could not extract private key from string"), std::string::npos);
    EXPECT_LT(RSA_KeyMatch(priv.c_str(), priv.c_str()), 0);
    EXPECT_NE(last_error().find("Could not extract public key from string"), std::string::npos);
}

} // namespace

TEST(RsaKeys, ServeTheRawOperationsAndAreChecked) {
    std::string other;
    for (const auto& v : test::read_vectors("rsa_ops/keys.txt")) {
        expect_raw(v);
        expect_checks(v);
        if (!other.empty()) {
            EXPECT_FAILURE(RSA_KeyMatch(v.text("Private").c_str(), other.c_str()), -NO_MATCH_ERROR,
                           "Key lengths are different");
        }
        other = v.text("Public");
    }
    for (const char* bad : {"", "junk", "PUBRAAAA"}) {
        EXPECT_LT(RSA_KeyMatch(bad, bad), 0);
        EXPECT_EQ(last_error(), "Could not extract private key from string");
        EXPECT_EQ(RSA_KeyHashCode(bad), 0);
        EXPECT_NE(last_error().find("Could not extract key from string"), std::string::npos);
        EXPECT_NE(ZUL_ErrorCode(), 0);
        EXPECT_LT(RSA_KeyBits(bad), 0);
        EXPECT_NE(ZUL_ErrorCode(), 0);
        EXPECT_LT(RSA_CheckKey(bad, 0), 0);
    }
    EXPECT_FAILURE(RSA_CheckKey("", 0), -BAD_PARAM_ERROR, "");
    EXPECT_EQ(RSA_CheckKey(nullptr, 0), -BAD_PARAM_ERROR);
    EXPECT_EQ(RSA_KeyBytes(nullptr), -BAD_PARAM_ERROR);
    EXPECT_EQ(RSA_KeyMatch(nullptr, "PUBR"), -BAD_PARAM_ERROR);
}

TEST(RsaMessages, MakeAndTakeTheBlocksOfOthers) {
    const auto decodes = [](const Bytes& block, int options, const Bytes& message) {
        const int length = length_of(message);
        for (const int room : {0, 9})
            EXPECT_EQ(RSA_DecodeMsg(nullptr, room, block.data(), length_of(block), options), length);
        for (const int room : {-1, 0, 1, length - 1, length, length + 1, INT_MAX}) {
            Bytes out(message.size() + 1, 0x5A);
            EXPECT_EQ(RSA_DecodeMsg(out.data(), room, block.data(), length_of(block), options), length);
            const int copied = std::max(0, std::min(room, length));
            EXPECT_TRUE(std::equal(message.begin(), message.begin() + copied, out.begin())) << room;
            EXPECT_EQ(out[static_cast<size_t>(copied)], 0x5A) << room;
        }
    };
    const auto encodes = [](const Bytes& message, int options, const Bytes& block) {
        Bytes out(block.size(), 0x5A);
        EXPECT_EQ(RSA_EncodeMsg(out.data(), length_of(out), message.data(), length_of(message), options), 0);
        EXPECT_EQ(out, block);
    };
    for (const auto& v : test::read_vectors("rsa_ops/encryption.txt")) {
        decodes(v.hex("Block"), static_cast<int>(v.number("Options")), v.hex("Message"));
    }
    for (const auto& v : test::read_vectors("rsa_ops/signature.txt")) {
        const Bytes block = v.hex("Block"), digest = v.hex("Digest");
        const int algorithm = static_cast<int>(v.number("Algorithm")), sign = ZUL_EMSIG_PKCSV1_5;
        encodes(v.hex("Message"), sign | algorithm, block);
        encodes(digest, sign | algorithm | ZUL_EMSIG_DIGESTONLY, block);
        decodes(block, sign, digest);
        decodes(block, sign | ZUL_EMSIG_DIGINFO, v.hex("DigestInfo"));
        Bytes out(block.size());
        EXPECT_EQ(RSA_DecodeMsg(out.data(), length_of(out), block.data(), length_of(block),
                                sign | ZUL_EMSIG_GETALG | ZUL_EMSIG_DIGINFO),
                  algorithm);
        EXPECT_EQ(out, Bytes(block.size()));
    }
    for (const auto& v : test::read_vectors("rsa_ops/iso9796.txt")) {
        const auto bits = static_cast<int>(v.number("Bits"));
        const int options = ZUL_EMSIG_ISO9796 | (bits % 8 == 0 ? 0 : bits);
        encodes(v.hex("Message"), options, v.hex("Block"));
        decodes(v.hex("Block"), options, v.hex("Message"));
    }
}

TEST(RsaMessages, RefuseMisuse) {
    constexpr int kIso = ZUL_EMSIG_ISO9796, kSign = ZUL_EMSIG_PKCSV1_5, kOaep = ZUL_EME_OAEP;
    const struct {
        int room, length, options, expected;
    } encodings[] =
        {
            // clang-format off
        {128, 118, 0, -30}, {10, 0, 0, -30}, {0, 0, 0, -30}, {128, 87, kOaep, -30}, {45, 1, kSign, -30}, {61, 1, kSign | 3, -30},
        {128, 1, kOaep | 7, -17}, {128, 1, kOaep | 15, -17}, {128, 1, kSign | 7, -17}, {128, 1, 0x30, -17},
        {128, 1, 0x80, -17}, {128, 1, INT_MIN | 0xF0, -17}, {10, 21, kSign | ZUL_EMSIG_DIGESTONLY, -26},
        {128, 0, kIso, -6}, {128, 65, kIso, -6}, {128, 1, kIso | 1025, -6}, {128, 1, kIso | 1, -6},
        {-1, 1, 0, -6}, {128, -1, 0, -6}, {128, 19, kSign | ZUL_EMSIG_DIGESTONLY, -26},
    }, decodings[] = {
        {128, 128, 0, -15}, {128, 0, 0, -15}, {128, 128, kOaep, -15}, {128, 42, kOaep, -15}, {128, 41, kOaep, -26},
        {128, 128, kOaep | 8, -17}, {128, 128, kSign, -15}, {128, 128, kSign | ZUL_EMSIG_GETALG, -15},
        {128, 128, 0x40, -17}, {128, 128, kIso, -15}, {128, 128, kIso | 1025, -6}, {128, 128, kIso | 1, -6},
        {128, 0, kIso, -6}, {128, -1, 0, -6},
          // clang-format on
      };
    const Bytes in(128, 0xFF);
    Bytes out(128, 0x5A);
    for (const auto& c : decodings)
        EXPECT_TRUE(RSA_DecodeMsg(out.data(), c.room, in.data(), c.length, c.options) == c.expected &&
                    ZUL_ErrorCode() == -c.expected)
            << c.length << " " << c.options;
    for (const auto& c : encodings)
        EXPECT_EQ(RSA_EncodeMsg(out.data(), c.room, in.data(), c.length, c.options), c.expected)
            << c.length << " " << c.options;
    EXPECT_EQ(last_error(), "Digest provided is not the correct length"); // of the last one
    EXPECT_EQ(ZUL_ErrorCode(), 26);
    EXPECT_EQ(RSA_EncodeMsg(nullptr, 128, in.data(), 1, 0), -6);
    EXPECT_EQ(RSA_EncodeMsg(out.data(), 128, nullptr, 1, kOaep), -6);
    EXPECT_EQ(RSA_DecodeMsg(out.data(), 128, nullptr, 128, 0), -6);
    EXPECT_EQ(out, Bytes(128, 0x5A));
    for (const int options : {0, kOaep, kSign})
        EXPECT_EQ(RSA_EncodeMsg(out.data(), 128, nullptr, 0, options), 0);
}
