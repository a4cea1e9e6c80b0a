#include <cstdio>

#include "interop/cms_interop.h"

// Enveloped messages of ours, opened by openssl, and theirs by us.

namespace {

class CmsEnvelopedInterop : public test::CmsInterop {
  protected:
    CmsEnvelopedInterop() : CmsInterop(CMS_QueryEnvData) {
        make_identity("one", "0x7001", 2048);
        make_identity("two", "0x80");
    }
    int envelop(int options, const std::string& certs) const {
        return CMS_MakeEnvData(file("env").c_str(), file("data").c_str(), certs.c_str(), nullptr, 0, options);
    }
    int open_with(const std::string& name, const std::string& cert) const {
        return CMS_ReadEnvData(file("got").c_str(), file("env").c_str(), path(cert).c_str(),
                               key(name).c_str(), 0);
    }
    void opens(const std::string& name, const std::string& cert) const {
        std::remove(file("got").c_str());
        done(open_with(name, cert));
        EXPECT_EQ(read("got"), read("data"));
    }
    // they_open has openssl open der.
    void they_open(const std::string& program, const std::string& arguments) const {
        run("openssl " + program + " -decrypt -binary -inform DER -in der -out got " + arguments +
            " && cmp got data");
    }
};

} // namespace

TEST_F(CmsEnvelopedInterop, OursEveryCipherAndLength) {
    const struct {
        int option;
        const char *name, *shown; // ours and openssl's
    } ciphers[] = {{ZUL_CMS_CIPHER_TDEA, "des-EDE3-CBC", "des-ede3-cbc"},
                   {ZUL_CMS_CIPHER_AES128, "aes128-CBC", "aes-128-cbc"},
                   {ZUL_CMS_CIPHER_AES192, "aes192-CBC", "aes-192-cbc"},
                   {ZUL_CMS_CIPHER_AES256 | ZUL_CMS_FORMAT_BASE64, "aes256-CBC", "aes-256-cbc"}};
    for (const auto& cipher : ciphers)
        for (const size_t size : {0u, 1u, 15u, 16u, 1000u}) {
            SCOPED_TRACE(testing::Message() << cipher.name << " " << size);
            make_data(size);
            ASSERT_EQ(envelop(cipher.option, file("one.pem") + ";" + file("two.pem")), 2);
            run((cipher.option & ZUL_CMS_FORMAT_BASE64) != 0 ? "openssl base64 -d -in env -out der"
                                                             : "cp env der");
            they_open("cms", "-recip one.pem -inkey one.key");
            they_open("smime", "-recip two.pem -inkey two.key");
            opens("two", "two.pem");
            EXPECT_EQ(text("env", "contentEncryptionAlgorithm"), cipher.name);
            shows("openssl cms -cmsout -print -inform DER -in der",
                  {std::string("algorithm: ") + cipher.shown});
        }
}

TEST_F(CmsEnvelopedInterop, OursOneToTenRecipients) {
    make_data(100);
    std::string list;
    for (int n = 1; n <= 11; n++) {
        SCOPED_TRACE(n);
        const std::string name = std::to_string(n), last = std::to_string(std::min(n, 10));
        run("openssl req -x509 -key one.key -subj /CN=R" + name + " -set_serial " + name + " -out " + name);
        list += file(name) + ";";
        ASSERT_EQ(envelop(ZUL_CMS_CIPHER_AES128, list), std::stoi(last));
        EXPECT_EQ(std::to_string(number("env", "CountOfRecipients")), last);
        run("cp env der");
        they_open("cms", "-inkey one.key -recip " + last);
        opens("one", last);
    }
    EXPECT_EQ(open_with("one", "11"), -DECRYPT_ERROR);
    EXPECT_EQ(envelop(0, file("one.key") + ";" + file("two.pem")), 1); // what is no certificate is left out
    run("cp env der");
    they_open("cms", "-inkey two.key -recip two.pem");
}

TEST_F(CmsEnvelopedInterop, Largest) {
    const std::string encrypt = "openssl cms -encrypt -binary -aes256 -in data -outform DER -out env ";
    make_data(test::kLargestContent - 1);
    ASSERT_EQ(envelop(ZUL_CMS_CIPHER_AES256, file("one.pem")), 1);
    run("cp env der");
    they_open("cms", "-inkey one.key");
    run(encrypt + "one.pem");
    opens("one", "");
    make_data(test::kLargestContent);
    run("rm env got");
    fails(envelop(ZUL_CMS_CIPHER_AES256, file("one.pem")), -MSG_TOO_LONG_ERROR, "env");
    run(encrypt + "one.pem"); // in one piece
    fails(open_with("one", ""), -MSG_TOO_LONG_ERROR, "got");
    run(encrypt + "-stream one.pem"); // in segments
    opens("one", "");
}
