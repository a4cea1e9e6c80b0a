#pragma once
#include "interop/shell_test.h"

// What the tests of RSA against the programs openssl and certtool share.
namespace test {

constexpr int kKeyRoom = 90000; // more than the longest key string

// key_string calls a function that writes a key string; a failure gives an empty one.
template<class Call>
std::string key_string(Call call) {
    std::string text(kKeyRoom, '\0');
    const int length = call(text.data(), kKeyRoom - 1);
    std::string why(511, '\0');
    if (length < 0)
        ZUL_LastError(why.data(), 511);
    EXPECT_GT(length, 0) << why.c_str();
    text.resize(length > 0 ? static_cast<size_t>(length) : 0);
    return text;
}

class RsaInterop : public ShellTest {
  protected:
    std::string public_key(const std::string& name) const {
        return key_string(
            [&](char* out, int room) { return RSA_ReadPublicKey(out, room, file(name).c_str()); });
    }
    std::string private_key(const std::string& name) const {
        return key_string(
            [&](char* out, int room) { return RSA_ReadPrivateKeyInfo(out, room, file(name).c_str()); });
    }
    std::string encrypted_key(const std::string& name, const std::string& password) const {
        return key_string([&](char* out, int room) {
            return RSA_ReadEncPrivateKey(out, room, file(name).c_str(), password.c_str(), 0);
        });
    }
    // make_key has openssl make key.pem (or takes the one of 8192 bits, which would take it long) and
    // pub.pem.
    void make_key(int bits, const std::string& exponent) const {
        const std::string number = std::to_string(bits);
        run(bits == 8192 ? "cp '" + data_path("rsa_interop/key8192.pem") + "' key.pem"
                         : "openssl genpkey -algorithm RSA -pkeyopt rsa_keygen_bits:" + number +
                               " -pkeyopt rsa_keygen_pubexp:" + exponent + " -out key.pem");
        run("openssl pkey -in key.pem -pubout -out pub.pem");
    }
};

} // namespace test
