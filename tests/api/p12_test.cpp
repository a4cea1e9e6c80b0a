#include <cstring>
#include <sstream>

#include "support/key_calls.h"

using namespace test;

namespace {

std::string data(const std::string& file) {
    return data_path("p12/" + file);
}

// The certificates of a PEM file, in their order.
std::vector<Bytes> certificates(const std::string& pem) {
    std::vector<Bytes> all;
    for (size_t at = 0; (at = pem.find("-----BEGIN", at)) != std::string::npos; at++)
        all.push_back(der_of(pem.substr(at)));
    return all;
}

std::string listed(const std::string& file, const char* password, int options = 0) {
    return text_of([&](char* out, int room) { return P12_List(out, room, file.c_str(), password, options); });
}

class P12 : public testing::Test {
  protected:
    int pack(const std::string& certs, const std::string& key, const char* password = "secret",
             const char* name = "", int options = ZUL_P12_LEGACY) const {
        return P12_Pack(made.c_str(), certs.c_str(), key.c_str(), password, name, options);
    }
    // unpack leaves the key string in key_.
    int unpack(const std::string& p12, const char* password, int options = 0, bool wantsKey = true) {
        char key[3000] = "";
        const int status = P12_Unpack(out.c_str(), wantsKey ? key : nullptr, wantsKey ? 2999 : 0, p12.c_str(),
                                      password, options);
        key_ = key;
        return status;
    }

    TempDir dir;
    std::string made = dir.file("made"), out = dir.file("out"), key_;
};

// A key and its certificate, in files.
class P12Made : public P12 {
  protected:
    P12Made() {
        const std::string secret = dir.file("pvt");
        EXPECT_EQ(RSA_MakeKeys(dir.file("pub").c_str(), secret.c_str(), 1024, 4, 5, 1, "p", nullptr, 0, 0),
                  0);
        EXPECT_EQ(X509_MakeCertSelf(cert.c_str(), secret.c_str(), 1, 9, "CN=Owner", "", 0, "p",
                                    ZUL_X509_FORMAT_PEM | ZUL_HASH_SHA256),
                  0);
        key = read_key(secret, "p");
    }
    const std::string cert = dir.file("cert");
    std::string key;
};

} // namespace

TEST_F(P12, ReadsWhatOthersMake) {
    for (const auto& v : read_vectors("p12/cases.txt")) {
        SCOPED_TRACE(v.text("What"));
        const std::string file = dir.write("in", v.hex("P12"));
        std::string text = "simple";
        const bool hasPassword = !v.has("Password") || v.text("Password") != "none";
        if (v.has("Password") && hasPassword) {
            const Bytes bytes = v.hex("Password");
            text.assign(bytes.begin(), bytes.end());
        }
        const char* password = hasPassword ? text.c_str() : nullptr;
        const auto code = static_cast<int>(v.has("Code") ? v.number("Code") : 0);
        std::remove(out.c_str());
        const bool wantsCerts = !v.has("Key");
        char key[3000] = "";
        const bool wantsKey = !v.has("NoKey") || v.number("NoKey") == 0;
        EXPECT_RESULT(P12_Unpack(wantsCerts ? out.c_str() : "", wantsKey ? key : nullptr, 2999, file.c_str(),
                                 password, static_cast<int>(v.has("Options") ? v.number("Options") : 0)),
                      code);
        EXPECT_EQ(last_error().empty(), code == 0) << last_error();
        EXPECT_EQ(file_exists(out), code == 0 && wantsCerts);
        if (v.has("List")) {
            std::string list = v.text("List") + "|";
            std::replace(list.begin(), list.end(), '|', '\n');
            EXPECT_EQ(listed(file, password), list);
        }
        if (code != 0) {
            EXPECT_EQ(*key, '\0');
            continue;
        }
        std::vector<Bytes> expected;
        std::string owner = wantsCerts ? "" : v.text("Key");
        const std::string listedNames = v.has("Certs") ? v.text("Certs") : "leaf";
        for (std::istringstream names(wantsCerts ? listedNames : std::string()); names.good();) {
            std::string name;
            names >> name;
            if (!name.empty())
                expected.push_back(read_file(data(name + ".der")));
            owner = owner.empty() ? name : owner;
        }
        if (wantsCerts) {
            EXPECT_EQ(certificates(read_text(out)), expected);
        }
        if (wantsKey) {
            EXPECT_EQ(KEY_Match(key, read_key(data(owner + ".der")).c_str()), 0);
        }
    }
}

// The files that programs have made for the PFX_ functions.
TEST_F(P12, ReadsFilesOfPrograms) {
    const Bytes certificate = read_file(data_path("pfx/cert.der"));
    for (const char* name : {"openssl_sha256", "openssl_legacy", "openssl_sha384", "openssl_nomac", "gnutls",
                             "gnutls_empty", "java", "ber_outer"}) {
        const std::string file = data_path("pfx/" + std::string(name) + ".p12");
        EXPECT_EQ(unpack(file, strcmp(name, "gnutls_empty") == 0 ? "" : "simple"), 0) << name << last_error();
        EXPECT_EQ(KEY_Match(key_.c_str(), read_key(data_path("pfx/cert.der")).c_str()), 0) << name;
        EXPECT_EQ(certificates(read_text(out)), std::vector<Bytes>{certificate}) << name;
        if (strcmp(name, "openssl_nomac") != 0) {
            EXPECT_RESULT(unpack(file, "other"), DECRYPT_ERROR);
        }
    }
}

// No byte of a file with a MAC can be changed or left out. PBMAC1 has no use for the older fields behind it.
TEST_F(P12, NoticesEveryChange) {
    for (const auto& v : read_vectors("p12/cases.txt")) {
        for (const char* unused : {"Code", "Certs", "Password", "List", "Options", "Key", "NoKey"})
            static_cast<void>(v.has(unused) && !v.text(unused).empty());
        const std::string what = v.text("What");
        Bytes good = v.hex("P12");
        if (what != "MAC with sha256" && what != "PBMAC1 with sha256" && what != "BER")
            continue;
        SCOPED_TRACE(what);
        const auto opens = [](const Bytes& bytes) {
            char key[3000];
            return P12_Unpack(nullptr, key, 2999, pem(bytes).c_str(), "simple", 0) == 0;
        };
        ASSERT_TRUE(opens(good));
        const size_t checked = good.size() - (what[0] == 'P' ? strlen("NOT USED") : 0);
        for (size_t i = 0; i < good.size(); i++) {
            EXPECT_FALSE(opens(Bytes(good.begin(), good.begin() + static_cast<std::ptrdiff_t>(i)))) << i;
            for (const uint8_t change : std::initializer_list<uint8_t>{0x01, 0x20, 0x80, 0xFF}) {
                good[i] ^= change;
                EXPECT_TRUE(!opens(good) || i >= checked) << i;
                good[i] ^= change;
            }
        }
    }
}

TEST_F(P12Made, ComesBack) {
    const std::string keyFile = dir.file("key"),
                      others = data("leaf.der") + " ; " + cert + ";" + data("leaf.der");
    ASSERT_EQ(KEY_Save(keyFile.c_str(), key.c_str(), nullptr, nullptr, 0), 0);
    const std::vector<Bytes> both = {der_of(read_text(cert)), read_file(data("leaf.der"))};
    for (const int options : {ZUL_P12_LEGACY, ZUL_P12_PBMAC1, 0, ZUL_P12_LEGACY | int{ZUL_KEY_FORMAT_PEM}}) {
        for (const std::string& given : {key, keyFile, std::string()}) {
            SCOPED_TRACE(std::to_string(options) + (given.empty() ? " without key" : " with key"));
            ASSERT_RESULT(pack(others, given, "p\u00e4ss", "\u00fcber \U0001F600", options), 0);
            EXPECT_RESULT(unpack(made, "p\u00e4ss", ZUL_P12_NEED_MAC, !given.empty()), 0);
            std::vector<Bytes> expected = both;
            if (given.empty())
                std::swap(expected[0], expected[1]); // as they were given
            else
                EXPECT_EQ(KEY_Match(key_.c_str(), read_key(cert).c_str()), 0);
            EXPECT_EQ(certificates(read_text(out)), expected);
            const std::string list = listed(made, "p\u00e4ss");
            EXPECT_NE(list.find("name=\"\u00fcber \U0001F600\""), std::string::npos) << list;
            EXPECT_EQ(list.find("key=3") != std::string::npos, !given.empty()) << list;
            EXPECT_RESULT(unpack(made, "pass"), DECRYPT_ERROR);
            // pbeWithSHAAnd3-KeyTripleDES-CBC with 8 bytes of salt: old programs take no other.
            if (options == ZUL_P12_LEGACY) {
                EXPECT_NE(to_hex(read_file(made)).find("060a2a864886f70d010c0103300e0408"),
                          std::string::npos);
            }
        }
    }
    ASSERT_RESULT(pack("", key), 0); // the key alone
    EXPECT_RESULT(unpack(made, "secret"), NO_DATA_ERROR);
    ASSERT_RESULT(pack(data("leaf.der"), "", "", "", ZUL_P12_TRUSTED | ZUL_P12_LEGACY), 0);
    EXPECT_NE(listed(made, "", ZUL_P12_JSON).find("\"trusted\":true"), std::string::npos);
}

TEST_F(P12Made, SaysWhatIsWrong) {
    const std::string encrypted = dir.file("pvt"), none = dir.file("none"), leaf = data("leaf.der");
    const struct {
        const char* what;
        std::string certs, key;
        const char* password;
        int options, code;
    } packs[] = {
        {"nothing to pack", "", "", "p", 0, BAD_PARAM_ERROR},
        {"only separators", " ;; ", "", "p", 0, NO_DATA_ERROR},
        {"no password", cert, key, nullptr, 0, BAD_PARAM_ERROR},
        {"empty password", cert, key, "", 0, BAD_PARAM_ERROR},
        {"two kinds of MAC", cert, key, "p", ZUL_P12_LEGACY | ZUL_P12_PBMAC1, BAD_FLAG_ERROR},
        {"unknown option", cert, key, "p", ZUL_P12_JSON, BAD_FLAG_ERROR},
        {"another's certificate", leaf, key, "p", 0, NO_MATCH_ERROR},
        {"encrypted key", cert, encrypted, "p", 0, BAD_PARAM_ERROR},
        {"public key", cert, public_of(key), "p", 0, BAD_FORMAT_ERROR},
        {"missing certificate", none, key, "p", 0, OPEN_ERROR},
        {"missing key", cert, none, "p", 0, OPEN_ERROR},
        {"key as certificate", encrypted, "", "p", 0, BAD_FORMAT_ERROR},
        {"PEM without certificate", "-----BEGIN X-----\nMAA=\n-----END X-----\n", "", "p", 0, NO_DATA_ERROR},
        {"PEM without end", "-----BEGIN CERTIFICATE-----\nMAA=\n", "", "p", 0, BAD_FORMAT_ERROR},
    };
    for (const auto& c : packs) {
        SCOPED_TRACE(c.what);
        EXPECT_RESULT(pack(c.certs, c.key, c.password, "", c.options), c.code);
        EXPECT_FALSE(file_exists(made));
    }
    const std::string before = read_text(cert);
    EXPECT_RESULT(P12_Pack(cert.c_str(), (leaf + "; " + cert).c_str(), "", "p", "", ZUL_P12_LEGACY),
                  CREATE_ERROR);
    EXPECT_EQ(read_text(cert), before);
    ASSERT_EQ(pack(cert, key), 0);
    char text[100] = "old";
    const char* const p12 = made.c_str();
    EXPECT_RESULT(P12_Unpack(out.c_str(), text, 99, p12, "secret", 0), SHORT_BUF_ERROR);
    EXPECT_RESULT(P12_Unpack(out.c_str(), text, -1, p12, "secret", 0), BAD_PARAM_ERROR);
    EXPECT_RESULT(P12_Unpack(nullptr, nullptr, 0, p12, "secret", 0), BAD_PARAM_ERROR);
    EXPECT_RESULT(P12_Unpack(out.c_str(), nullptr, 0, none.c_str(), "secret", 0), OPEN_ERROR);
    EXPECT_RESULT(P12_Unpack(out.c_str(), nullptr, 0, cert.c_str(), "secret", 0), BAD_FORMAT_ERROR);
    EXPECT_RESULT(P12_Unpack(out.c_str(), nullptr, 0, p12, "secret", ZUL_P12_JSON), BAD_FLAG_ERROR);
    EXPECT_STREQ(text, "old");
    EXPECT_FALSE(file_exists(out));
    EXPECT_RESULT(unpack(made, "secret", 1, false), NO_DATA_ERROR);
    EXPECT_RESULT(P12_Unpack(p12, nullptr, 0, p12, "secret", 0), CREATE_ERROR);
    EXPECT_RESULT(P12_List(text, 99, p12, "secret", 0), -SHORT_BUF_ERROR);
    EXPECT_STREQ(text, "");
    EXPECT_RESULT(P12_List(nullptr, 0, "", "secret", 0), -BAD_PARAM_ERROR);
    EXPECT_RESULT(P12_List(nullptr, 0, p12, "secret", ZUL_P12_LEGACY), -BAD_FLAG_ERROR);
    EXPECT_EQ(P12_List(nullptr, 0, p12, "secret", 0), static_cast<int>(listed(made, "secret").size()));
}
