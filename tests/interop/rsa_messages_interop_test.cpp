#include "interop/rsa_interop.h"

// Signatures and encryption. The peer is openssl.

namespace {

using Bytes = std::vector<uint8_t>;

Bytes message_of(size_t size) {
    Bytes message(size);
    for (size_t i = 0; i < size; i++)
        message[i] = static_cast<uint8_t>(i * 29 + 1);
    return message;
}

int int_size(const Bytes& bytes) {
    return static_cast<int>(bytes.size());
}

class RsaMessagesInterop : public test::RsaInterop {
  protected:
    void use_key(int bits, const std::string& exponent) {
        make_key(bits, exponent);
        privateKey = private_key("key.pem");
        publicKey = public_key("pub.pem");
        EXPECT_EQ(RSA_KeyBits(publicKey.c_str()), bits);
        EXPECT_EQ(RSA_KeyMatch(privateKey.c_str(), publicKey.c_str()), 0);
        length = static_cast<size_t>(RSA_KeyBytes(publicKey.c_str()));
    }

    void cross_signatures(int digest, const std::string& name) const {
        SCOPED_TRACE(name);
        const Bytes message = message_of(1000);
        dir.write("message", message);
        Bytes block(length);
        ASSERT_EQ(RSA_EncodeMsg(block.data(), int_size(block), message.data(), int_size(message),
                                ZUL_EMSIG_PKCSV1_5 | digest),
                  0);
        ASSERT_EQ(RSA_RawPrivate(block.data(), int_size(block), privateKey.c_str(), 0), 0);
        dir.write("ours", block);
        run("openssl dgst -" + name +
            " -sign key.pem -out theirs message && cmp ours theirs && openssl dgst -" + name +
            " -verify pub.pem -signature ours message");

        Bytes digestOurs(64), digestFound(64);
        ASSERT_EQ(RSA_RawPublic(block.data(), int_size(block), publicKey.c_str(), 0), 0);
        EXPECT_EQ(
            RSA_DecodeMsg(nullptr, 0, block.data(), int_size(block), ZUL_EMSIG_PKCSV1_5 | ZUL_EMSIG_GETALG),
            digest);
        const int size = HASH_Bytes(digestOurs.data(), 64, message.data(), int_size(message), digest);
        EXPECT_EQ(
            RSA_DecodeMsg(digestFound.data(), 64, block.data(), int_size(block), ZUL_EMSIG_PKCSV1_5 | digest),
            size);
        EXPECT_EQ(digestFound, digestOurs);
    }

    // padding is what openssl has to know about it.
    void cross_encryption(size_t messageLength, int options, const std::string& padding) const {
        SCOPED_TRACE(testing::Message() << padding << " " << messageLength);
        const Bytes message = message_of(messageLength);
        dir.write("message", message);
        Bytes block(length);
        ASSERT_EQ(RSA_EncodeMsg(block.data(), int_size(block), message.data(), int_size(message), options),
                  0);
        ASSERT_EQ(RSA_RawPublic(block.data(), int_size(block), publicKey.c_str(), 0), 0);
        dir.write("ours", block);
        run("openssl pkeyutl -decrypt -inkey key.pem -in ours -out back " + padding +
            " && cmp back message && openssl pkeyutl -encrypt -pubin -inkey pub.pem -in message -out "
            "theirs " +
            padding);
        block = read("theirs");
        ASSERT_EQ(RSA_RawPrivate(block.data(), int_size(block), privateKey.c_str(), 0), 0);
        Bytes back(length);
        const int size = RSA_DecodeMsg(back.data(), int_size(back), block.data(), int_size(block), options);
        ASSERT_EQ(size, int_size(message));
        back.resize(messageLength);
        EXPECT_EQ(back, message);
    }

    std::string privateKey, publicKey;
    size_t length = 0;
};

} // namespace

TEST_F(RsaMessagesInterop, EverySizeAndExponent) {
    const struct {
        int bits;
        const char* exponent;
    } keys[] = {
        {512, "3"},      {1023, "5"},          {1024, "17"}, {1025, "257"},   {1536, "18446744073709551557"},
        {2047, "65537"}, {2048, "4294967297"}, {2049, "3"},  {3072, "65537"}, {8192, "65537"},
    };
    for (const auto& k : keys) {
        SCOPED_TRACE(testing::Message() << k.bits << " " << k.exponent);
        use_key(k.bits, k.exponent);
        cross_signatures(ZUL_HASH_SHA1, "sha1");
        cross_encryption(length - 11, ZUL_EME_PKCSV1_5, "-pkeyopt rsa_padding_mode:pkcs1");
        cross_encryption(10, ZUL_EME_OAEP | ZUL_HASH_SHA1, "-pkeyopt rsa_padding_mode:oaep");
    }
}
