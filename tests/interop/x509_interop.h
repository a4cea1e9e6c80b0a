#pragma once
#include <algorithm>
#include <cctype>

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
    std::string query(const std::string& cert, const char* name, int options = 0) const {
        const auto call = [&](char* out, int room) {
            return X509_QueryCert(out, room, file(cert).c_str(), name, options);
        };
        std::string text(static_cast<size_t>(std::max(call(nullptr, 0), 0)), '\0');
        EXPECT_EQ(call(text.data(), static_cast<int>(text.size())), static_cast<int>(text.size())) << name;
        return text;
    }
    std::string thumb(const std::string& cert, int digest) const {
        std::string text(128, '\0');
        text.resize(
            static_cast<size_t>(std::max(X509_CertThumb(file(cert).c_str(), text.data(), 128, digest), 0)));
        return text;
    }
    int verify(const std::string& object, const std::string& issuer) const {
        return X509_VerifyCert(file(object).c_str(), file(issuer).c_str());
    }
};

// plain is hexadecimal text in one form: lower case, without colons, blanks and line ends.
inline std::string plain(const std::string& hex) {
    std::string out;
    for (const char c : hex)
        if (std::isxdigit(static_cast<unsigned char>(c)))
            out += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return out;
}

} // namespace test
