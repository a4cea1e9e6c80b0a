#include "fixtures.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

#include "zulcore.h"

namespace endurance {

namespace {

void want(const char* what, bool good) {
    if (good)
        return;
    char text[512] = "";
    ZUL_LastError(text, 511);
    std::fprintf(stderr, "%s: %d %s\n", what, ZUL_ErrorCode(), text);
    std::exit(2);
}

template<class Call>
std::string text_of(const char* what, Call call) {
    std::string text(90001, '\0');
    const int length = call(text.data(), 90000);
    want(what, length >= 0);
    text.resize(static_cast<size_t>(length));
    return text;
}

std::string read_whole(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void write_whole(const std::string& path, const std::string& content) {
    std::ofstream(path, std::ios::binary).write(content.data(), static_cast<std::streamsize>(content.size()));
}

} // namespace

Fixtures make_fixtures() {
    Fixtures made;
    for (const char* kind : {"rsa-1024", "p-256", "p-384", "p-521", "ed25519", "x25519"}) {
        const std::string key =
            text_of(kind, [&](char* out, int room) { return KEY_Make(out, room, kind, 0); });
        const std::string name = std::string("key-") + kind + ".pem";
        want("save", KEY_Save(name.c_str(), key.c_str(), nullptr, nullptr, ZUL_KEY_FORMAT_PEM) == 0);
        made.privateKeys.push_back(key);
        made.publicKeys.push_back(
            text_of(kind, [&](char* out, int room) { return KEY_Public(out, room, key.c_str()); }));
    }
    const char* const rsa = made.privateKeys[0].c_str();
    const char* const p256 = made.privateKeys[1].c_str();
    want("encrypted key", KEY_Save("encrypted.pem", p256, "p", "iterations=1", ZUL_KEY_FORMAT_PEM) == 0);
    want("encrypted RSA key", RSA_SaveEncPrivateKey("encrypted.der", rsa, 1, "p", 0) == 0);
    want("RSA key as DER", RSA_SavePrivateKeyInfo("key-rsa.der", rsa, 0) == 0);
    want("authority",
         CERT_SelfSign("ca.pem", p256, "CN=Authority;profile=ca;crl=http://e.example/c", 0) == 0);
    want("leaf",
         CERT_Issue("leaf.pem", "ca.pem", p256, made.publicKeys[2].c_str(),
                    "CN=Leaf;profile=server;dns=leaf.example,*.leaf.example;ip=10.0.0.1;policy=2.5.29.32.0",
                    0) == 0);
    want("RSA authority",
         X509_MakeCertSelf("rsa-ca.der", rsa, 1, 5, "C=AU;O=Endurance;CN=Root", "",
                           ZUL_KEYUSAGE_KEYCERTSIGN | ZUL_KEYUSAGE_CRLSIGN, "p", ZUL_HASH_SHA256) == 0);
    want("RSA leaf",
         X509_MakeCert("rsa-leaf.pem", "rsa-ca.der", made.publicKeys[0].c_str(), rsa, 2, 1, "CN=Leaf",
                       "rfc822Name=a@leaf.example", 1, "p", ZUL_HASH_SHA256 | ZUL_X509_FORMAT_PEM) == 0);
    want("request", CERT_Request("request.pem", p256, "CN=Request;dns=r.example", 0) == 0);
    want("RSA request", X509_CertRequest("rsa-request.pem", rsa, "CN=Request", "", "p", 0) == 0);
    want("CRL", CERT_IssueCRL("list.pem", "ca.pem", p256, nullptr, "serial=01,reason=keyCompromise;serial=02",
                              nullptr, 0) == 0);
    want("RSA CRL", X509_MakeCRL("rsa-list.der", "rsa-ca.der", rsa, "p", "3,2026-01-01", "", 0) == 0);
    const std::string text = "Words that are signed, encrypted and sealed.\r\n";
    write_whole("plain.txt", text);
    write_whole("empty.txt", "");
    write_whole("seed.bin", std::string(64, 's'));
    want("signed", CMS_MakeSigData("signed.der", "plain.txt", "rsa-leaf.pem;rsa-ca.der", rsa,
                                   ZUL_HASH_SHA256 | ZUL_CMS_INCLUDE_ATTRS | ZUL_CMS_ADD_SIGNTIME) == 0);
    want("certificates", CMS_MakeSigDataFromString("bundle.p7b", "x", "rsa-leaf.pem;rsa-ca.der", rsa,
                                                   ZUL_CMS_CERTS_ONLY) == 0);
    want("enveloped", CMS_MakeEnvData("enveloped.txt", "plain.txt", "rsa-leaf.pem", nullptr, 0,
                                      ZUL_CMS_CIPHER_AES128 | ZUL_CMS_FORMAT_BASE64) == 1);
    want("PFX", PFX_MakeFile("old.pfx", "rsa-leaf.pem", "encrypted.der", "p", "name", 0) == 0);
    want("PKCS #12", P12_Pack("new.p12", "rsa-leaf.pem", rsa, "p", "name", ZUL_P12_LEGACY) == 0);
    made.identity = text_of("identity", [](char* out, int room) { return SEAL_MakeIdentity(out, room, 0); });
    made.recipient = text_of(
        "recipient", [&](char* out, int room) { return SEAL_Recipient(out, room, made.identity.c_str()); });
    want("sealed",
         SEAL_File("sealed.age", "plain.txt", made.recipient.c_str(), nullptr, ZUL_SEAL_ARMOUR) == 0);
    write_whole("key.xml",
                text_of("XML", [&](char* out, int room) { return RSA_ToXMLString(out, room, rsa, 0); }));
    write_whole("ocsp.txt", text_of("OCSP", [](char* out, int room) {
                    return OCSP_MakeRequest(out, room, "rsa-ca.der", "rsa-leaf.pem", "", 0);
                }));
    for (const auto& entry : std::filesystem::directory_iterator(".")) {
        const std::string name = entry.path().filename().string();
        made.files.push_back({name, read_whole(name)});
        if (made.files.back().content.find('\0') == std::string::npos)
            made.texts.push_back(made.files.back().content);
    }
    return made;
}

void restore_folder(const Fixtures& fixtures) {
    std::set<std::string> names;
    for (const Fixtures::Object& object : fixtures.files)
        names.insert(object.name);
    for (const auto& entry : std::filesystem::directory_iterator(".")) {
        std::error_code ignored;
        if (names.count(entry.path().filename().string()) == 0)
            std::filesystem::remove_all(entry.path(), ignored);
    }
    for (const Fixtures::Object& object : fixtures.files)
        write_whole(object.name, object.content);
}

} // namespace endurance
