#include "dictionary.h"

#include <cstring>
#include <iterator>
#include <regex>

namespace endurance {

Dictionary::Dictionary(const Fixtures& fixtures) {
    Words files;
    for (const Fixtures::Object& object : fixtures.files)
        files.push_back(object.name);
    Words inputs = files;
    inputs.insert(inputs.end(), {"none.txt", ".", "rsa-leaf.pem;rsa-ca.der", ";;", "ca.pem;leaf.pem"});
    inputs.insert(inputs.end(), fixtures.texts.begin(), fixtures.texts.end());
    inputs.insert(inputs.end(), {fixtures.identity, fixtures.recipient});
    Words keys = fixtures.privateKeys;
    keys.insert(keys.end(), fixtures.publicKeys.begin(), fixtures.publicKeys.end());
    for (const std::string& key : fixtures.privateKeys) {
        keys.push_back(key);
        keys.back()[key.size() / 2] ^= 1;
        keys.push_back(key.substr(0, key.size() - 8));
    }
    keys.push_back("key-p-256.pem");
    groups_ = {
        {"input", inputs},
        {"key", keys},
        {"output", {"out1", "out2", "out3.pem", "missing_folder/out", "."}},
        {"password", {"p", "p", "p", "q", "\xE4\xF6\xFC"}},
        {"rsa", {fixtures.privateKeys[0], fixtures.privateKeys[0], fixtures.publicKeys[0], keys[1]}},
        {"seal", {fixtures.identity, fixtures.recipient, "sealed.age", "plain.txt"}},
        {"certificate",
         {"rsa-leaf.pem", "rsa-ca.der", "rsa-leaf.pem;rsa-ca.der", "ca.pem", "leaf.pem", "ca.pem;leaf.pem",
          "bundle.p7b", "request.pem", "list.pem"}},
        {"list", {"list.pem", "rsa-list.der", "rsa-ca.der"}},
        {"pfx", {"new.p12", "old.pfx", "plain.txt"}},
        {"seed", {"seed.bin", "plain.txt"}},
        {"message", {"signed.der", "enveloped.txt", "sealed.age", "bundle.p7b", "plain.txt"}},
        {"conditions",
         {"iterations=1;hash=sha512", "kdf=scrypt;n=16", "cipher=tdea-cbc;iterations=2",
          "host=leaf.example;purpose=server", "time=2026-12-24;revocation=none", "maxDepth=0",
          "policy=1.2.3;explicitPolicy"}},
        {"SIG algorithm",
         {"", "", "rsa-sha256", "rsa-pss-sha256;salt=max", "ecdsa-sha512", "ed25519", "ed25519ph"}},
        {"HASH algorithm", {"sha256", "sha3-256", "shake128", "md2", "sha1"}},
        {"HMAC algorithm", {"sha256", "sha3-256", "md5", "sha512-256"}},
        {"AEAD algorithm", {"aes-128-gcm", "aes-256-gcm", "aes-256-gcm-siv", "chacha20-poly1305"}},
        {"TDEA algorithm", {"ECB", "CBC", "OFB", "ctr", "CFB"}},
        {"any algorithm",
         {"sha256",
          "SHA-512",
          "sha3-256",
          "shake128",
          "md2",
          "sha1",
          "aes-128-gcm",
          "aes-256-gcm-siv",
          "chacha20-poly1305",
          "aes-256-cbc",
          "tdea-ctr",
          "aes-128-ecb",
          "aes-192/CTR",
          "Tdea-CFB",
          "CBC",
          "ECB",
          "OFB",
          "rsa-1024",
          "p-256",
          "ed25519",
          "x25519",
          "rsa-sha256",
          "rsa-pss-sha256;salt=max",
          "ecdsa-sha512",
          "ed25519ph",
          "rsa-pss-sha1;salt=99999",
          "sha512-256",
          "aes-256-cfb"}},
        {"query",
         {"subject",
          "issuer",
          "serialNumber",
          "dns",
          "sha256",
          "publicKey",
          "extensions",
          "isCA",
          "selfSigned",
          "version",
          "notAfter",
          "keyUsage",
          "subjectName",
          "rfc822Name",
          "signatureValue",
          "CountOfCerts",
          "SigningTime",
          "messageDigest",
          "recipientIssuerName",
          "sizeofEncryptedContent",
          "bits",
          "algorithm",
          "fingerprint",
          "curve",
          "salt"}},
        {"description",
         {"CN=Name;C=AU",
          "CN=Name;profile=ca;pathLength=1",
          "CN=Name;dns=a.example;days=3",
          "C=AUS",
          "CN='a;b'",
          "CN=Name;keyUsage=keyCertSign;signature=ecdsa-sha384",
          "notBefore=2026-01-31;notAfter=2027-01-31",
          "serial=01",
          "serial=01,reason=certificateHold",
          "cert=leaf.pem",
          "host=leaf.example;purpose=server",
          "time=2026-12-24;revocation=none",
          "number=7;delta",
          "1,2026-01-01",
          "thisUpdate=2026-01-01",
          "iterations=1;hash=sha512",
          "kdf=scrypt;n=16",
          "cipher=tdea-cbc",
          "#x4142",
          "CN=#x00",
          "2026-02-30",
          "CN=Name;extension=1.2.3:0500",
          "CN=Name;valid=99999999y",
          "a@leaf.example",
          "10.0.0.1",
          "*.example"}},
        {"data",
         {"48656C6C6F", "0123456789ABCDEF0123456789ABCDEF", "abc", "AAECAwQFBgc=", "MIIB", "=", "<a/>", ",",
          "\xC3\xA4", "\xE4", "000102030405060708090a0b0c0d0e0f1011121314151617",
          "000102030405060708090a0b0c0d0e0f1011121314151617", "AAECAwQFBgcICQoLDA0ODxAREhMUFRYX"}},
    };
}

static std::string group_for(const std::string& family, const std::string& name) {
    struct Rule {
        const char *families, *names, *group;
    };
    static const Rule kRules[] = {
        {".*", ".*Out|szNewCertFile|szPubKeyFile|szPriKeyFile|szReqFile", "output"},
        {".*", "szPassword", "password"},
        {"SEAL", "szRecipients|szIdentit.*", "seal"},
        {"RSA|X509|CMS|PFX", "szKeyString|szPrivateKey|szPublicKey|sz.*KeyFile|szEPKFile", "rsa"},
        {".*", "szKeyString|szPrivateKey|szPublicKey|szKey|szIssuerKey|szKeyFile|szSubjectKeyOrRequest",
         "key"},
        {"SIG|HASH|HMAC|AEAD|TDEA", "szAlgorithm|szMode", "algorithm"},
        {".*", "szAlgorithm|szHash|szMode|szAlgAndMode", "any algorithm"},
        {".*", "szQuery", "query"},
        {".*", "szConditions|szParameters", "conditions"},
        {".*", "szDescription|szExtensions|szDistName|szRevoked|szDate|szHostOrAddress|szName",
         "description"},
        {".*", ".*Hex.*|.*B64.*|szDelim|szHeader|szDataIn|szInput", "data"},
        {".*", ".*Cert.*|szX509File|szOthers|szTrusted", "certificate"},
        {".*", "szCrl.*|.*Crl|szEvidence", "list"},
        {".*", "szP12|szPfxFile", "pfx"},
        {".*", "szSeedFile", "seed"},
        {"CMS|SEAL", ".*", "message"},
        {".*", ".*", "input"},
    };
    for (const Rule& rule : kRules)
        if (std::regex_match(family, std::regex(rule.families)) &&
            std::regex_match(name, std::regex(rule.names)))
            return strcmp(rule.group, "algorithm") == 0 ? family + " algorithm" : rule.group;
    return "input";
}

const Words& Dictionary::words_for(const std::string& function, const std::string& parameter) {
    auto [place, isNew] = chosen_.try_emplace(function + parameter);
    if (isNew)
        place->second = group_for(function.substr(0, function.find('_')), parameter);
    return groups_.at(place->second);
}

const Words& Dictionary::group(size_t number) const {
    return std::next(groups_.begin(), static_cast<long>(number))->second;
}

} // namespace endurance
