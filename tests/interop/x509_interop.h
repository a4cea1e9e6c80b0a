#pragma once
#include <algorithm>

#include "interop/rsa_interop.h"

// What the tests of certificates against the programs openssl and certtool share.
namespace test {

constexpr char kX509Password[] = "pass";

class X509Interop : public RsaInterop {
  protected:
    // make_pair has openssl make name.key, name.pub and, encrypted, name.enc.
    void make_pair(const std::string& name, int bits = 1024) const {
        run("openssl genpkey -algorithm RSA -pkeyopt rsa_keygen_bits:" + std::to_string(bits) + " -out " +
            name + ".key");
        run("openssl pkey -in " + name + ".key -pubout -out " + name + ".pub");
        run("openssl pkcs8 -topk8 -in " + name + ".key -out " + name +
            ".enc -iter 1 -passout pass:" + kX509Password);
    }
    // said is what a command writes.
    std::string said(const std::string& command) const {
        run("{ " + command + " ; } >said 2>&1");
        return read_text(file("said"));
    }
    // shows checks that a command writes all of these texts and none of those.
    void shows(const std::string& command, const std::vector<std::string>& texts,
               const std::vector<std::string>& others = {}) const {
        const std::string output = said(command);
        for (const std::string& text : texts)
            EXPECT_NE(output.find(text), std::string::npos) << command << ": no " << text << "\n" << output;
        for (const std::string& text : others)
            EXPECT_EQ(output.find(text), std::string::npos) << command << ": " << text << "\n" << output;
    }
    // done checks a status.
    void done(int status) const {
        std::string why(511, '\0');
        ZUL_LastError(why.data(), 511);
        ASSERT_EQ(status, 0) << why.c_str();
    }
};

} // namespace test
