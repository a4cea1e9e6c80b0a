#pragma once
#include "interop/x509_interop.h"

// What the tests of messages against the programs openssl and certtool share.
namespace test {

constexpr size_t kLargestContent = 0x1000000;

class CmsInterop : public X509Interop {
  protected:
    using Query = int (*)(char*, int, const char*, const char*, int);
    explicit CmsInterop(Query ask) : ask_(ask) {}

    // make_identity has openssl make name.key and a certificate of it, name.pem.
    void make_identity(const std::string& name, const std::string& serial, int bits = 1024) const {
        make_pair(name, bits);
        run("openssl req -x509 -key " + name + ".key -subj '/C=AU/O=A, B; C/CN=" + name +
            "' -days 99 -set_serial " + serial + " -out " + name + ".pem");
    }
    void make_data(size_t size) const {
        std::vector<uint8_t> bytes(size);
        for (size_t i = 0; i < size; i++)
            bytes[i] = static_cast<uint8_t>(i ^ (i >> 8) ^ (i >> 16));
        dir.write("data", bytes);
    }
    std::string key(const std::string& name) const { return private_key(name + ".key"); }
    std::string path(const std::string& name) const { return name.empty() ? name : file(name); }
    std::string text(const std::string& message, const std::string& what) const {
        std::string out(200, '\0');
        out.resize(
            static_cast<size_t>(std::max(ask_(out.data(), 200, file(message).c_str(), what.c_str(), 0), 0)));
        return out;
    }
    int number(const std::string& message, const std::string& what) const {
        return ask_(nullptr, 0, file(message).c_str(), what.c_str(), 0);
    }
    // fails checks a code and that no output was left.
    void fails(int result, int code, const std::string& output) const {
        EXPECT_EQ(result, code);
        EXPECT_FALSE(file_exists(file(output))) << output;
    }

  private:
    Query ask_;
};

} // namespace test
