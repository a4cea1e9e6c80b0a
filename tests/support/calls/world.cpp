#include "support/calls/world.h"

#include <cstdio>
#include <cstdlib>

#include "support/vectors.h"

namespace calls {

namespace {

// must ends the program where the world cannot be made: there would be nothing to test.
void must(bool good, const char* what) {
    if (good)
        return;
    char text[512] = "";
    const int code = ZUL_ErrorCode();
    ZUL_LastError(text, sizeof text - 1);
    fprintf(stderr, "%s: %d %s\n", what, code, text);
    abort();
}
#define MUST(expression) must((expression), #expression)

template<class Call>
Text text_of(World& w, const char* what, Call call) {
    const int length = call(w.text);
    must(length > 0, what);
    return std::string(w.text, static_cast<size_t>(length));
}
#define TEXT_OF(expression) text_of(*this, #expression, [&](char* out) { return expression; })

template<class Call>
Text bytes_of(World& w, const char* what, Call call) {
    const int length = call(w.bytes);
    must(length > 0, what);
    return std::string(reinterpret_cast<const char*>(w.bytes), static_cast<size_t>(length));
}
#define BYTES_OF(expression) bytes_of(*this, #expression, [&](unsigned char* out) { return expression; })

std::string sequence(size_t size) {
    std::string bytes(size, '\0');
    for (size_t i = 0; i < size; i++)
        bytes[i] = static_cast<char>(i * i % 251);
    return bytes;
}

const unsigned char kKey[] = "0123456789abcdef0123456789abcdef";
constexpr char kDigest[] = "0123456789abcdef0123456789abcdef"; // as long as one of SHA-256

} // namespace

World::World() {
    const auto path = [this](const char* name) { return Text(inputs.file(name)); };
    target = outputs.file("target");
    second = outputs.file("second");
    link = outputs.file("link");
    plain = inputs.write("plain", sequence(300));
    large = inputs.write("large", sequence(150000));
    hashed = test::to_hex(reinterpret_cast<const uint8_t*>(kDigest), 32);

    rsa = TEXT_OF(KEY_Make(out, kRoom, "rsa-1024", 0));
    ec = TEXT_OF(KEY_Make(out, kRoom, "p-256", 0));
    ed = TEXT_OF(KEY_Make(out, kRoom, "ed25519", 0));
    x = TEXT_OF(KEY_Make(out, kRoom, "x25519", 0));
    rsaPublic = TEXT_OF(KEY_Public(out, kRoom, rsa));
    ecPublic = TEXT_OF(KEY_Public(out, kRoom, ec));
    edPublic = TEXT_OF(KEY_Public(out, kRoom, ed));
    xPublic = TEXT_OF(KEY_Public(out, kRoom, x));
    xml = TEXT_OF(RSA_ToXMLString(out, kRoom, rsa, 0));
    identity = TEXT_OF(SEAL_MakeIdentity(out, kRoom, 0));
    recipient = TEXT_OF(SEAL_Recipient(out, kRoom, identity));

    signature = BYTES_OF(SIG_Sign(out, kRoom, Text("message"), 7, rsa, "rsa-sha256", 0));
    ecSignature = BYTES_OF(SIG_Sign(out, kRoom, Text("message"), 7, ec, nullptr, 0));
    fileSignature = BYTES_OF(SIG_SignFile(out, kRoom, large, ed, nullptr, 0));
    digestSignature = BYTES_OF(SIG_SignDigest(out, kRoom, Text(kDigest), 32, ec, nullptr, 0));
    block.resize(128);
    MUST(RSA_EncodeMsg(bytes, 128, Text("message"), 7, ZUL_EME_OAEP) == 0);
    block.assign(reinterpret_cast<const char*>(bytes), 128);
    wrapped = BYTES_OF(CIPHER_KeyWrap(out, kRoom, kKey, 32, kKey, 16, ZUL_CIPHER_AES128));
    sealedText = BYTES_OF(AEAD_Encrypt(out, kRoom, Text("message"), 7, kKey, 32, nullptr, 0, nullptr, 0,
                                       "aes-256-gcm", ZUL_AEAD_RANDOM_NONCE));
    padded = BYTES_OF(PAD_BytesBlock(out, kRoom, Text("message"), 7, 16, 0));

    publicKey = path("public.pem");
    privateKey = path("private.pem");
    encryptedKey = path("encrypted.pem");
    scryptKey = path("scrypt.pem");
    ecKey = path("ec.pem");
    ownKey = path("own.der");
    MUST(RSA_SavePublicKey(publicKey, rsa, ZUL_KEY_FORMAT_PEM) == 0);
    MUST(RSA_SavePrivateKeyInfo(privateKey, rsa, ZUL_KEY_FORMAT_PEM) == 0);
    MUST(RSA_SaveEncPrivateKey(encryptedKey, rsa, 1, "password", ZUL_KEY_FORMAT_PEM) == 0);
    MUST(KEY_Save(scryptKey, ec, "password", "kdf=scrypt;n=16;r=1;p=1", ZUL_KEY_FORMAT_PEM) == 0);
    MUST(KEY_Save(ecKey, ecPublic, nullptr, nullptr, ZUL_KEY_FORMAT_PEM) == 0);
    MUST(KEY_Save(ownKey, ec, nullptr, nullptr, ZUL_KEY_FORMAT_OWN) == 0);
    pem = path("pem");
    MUST(PEM_FileFromBinFile(pem, plain, "DATA", 64) == 0);

    root = path("root.cer");
    leaf = path("leaf.pem");
    crl = path("crl.crl");
    request = path("request.pem");
    bundle = path("bundle.p7c");
    MUST(X509_MakeCertSelf(root, encryptedKey, 1, 60, "C=AU;CN=Root", "notBefore=2020-01-01", 0x60,
                           "password", ZUL_HASH_SHA256) == 0);
    MUST(X509_MakeCert(leaf, root, publicKey, encryptedKey, 2, 1, "CN=Leaf",
                       "notBefore=2026-01-01;notAfter=2090-01-01", 0x80, "password",
                       ZUL_X509_FORMAT_PEM | ZUL_HASH_SHA256) == 0);
    leafText = TEXT_OF(X509_ReadStringFromFile(out, kRoom, leaf, 0));
    MUST(X509_MakeCRL(crl, root, encryptedKey, "password", "7,2020-01-01;8,2020-01-02", "", 0) == 0);
    MUST(X509_CertRequest(request, encryptedKey, "CN=Request", "", "password", 0) == 0);
    MUST(CMS_MakeSigData(bundle, "", Text(leaf + ";" + root), "", ZUL_CMS_CERTS_ONLY) == 0);

    authority = path("authority.pem");
    subject = path("subject.pem");
    list = path("list.pem");
    pkcs10 = path("pkcs10.pem");
    MUST(CERT_SelfSign(authority, ed, "CN=Authority;profile=ca", 0) == 0);
    MUST(CERT_Issue(subject, authority, ed, ecPublic, "CN=Subject;profile=server;dns=a.example", 0) == 0);
    MUST(CERT_IssueCRL(list, authority, ed, nullptr, "serial=01,reason=keyCompromise", nullptr, 0) == 0);
    MUST(CERT_Request(pkcs10, ec, "CN=Request;dns=b.example", 0) == 0);

    signedData = path("signed.p7m");
    detached = path("detached.p7s");
    enveloped = path("enveloped.p7m");
    MUST(CMS_MakeSigData(signedData, plain, Text(leaf + ";" + root), rsa, ZUL_CMS_INCLUDE_ATTRS) == 0);
    MUST(CMS_MakeEnvData(enveloped, plain, leaf, nullptr, 0, ZUL_CMS_CIPHER_AES128) == 1);
    pfx = path("pfx.p12");
    p12 = path("p12.p12");
    MUST(PFX_MakeFile(pfx, root, encryptedKey, "password", "name", 0) == 0);
    MUST(P12_Pack(p12, Text(leaf + ";" + root), rsa, "password", "name", ZUL_P12_LEGACY) == 0);

    recipients = inputs.write("recipients", recipient + "\n");
    identities = inputs.write("identities", "# an identity\n" + identity + "\n");
    sealed = path("sealed");
    MUST(SEAL_File(sealed, large, recipients, nullptr, 0) == 0);
    response = test::data_path("ocsp/good.der");
    responder = test::data_path("ocsp/ca.pem");
}

World& world() {
    static World made;
    return made;
}

} // namespace calls
