#include <memory>
#include <openssl/bio.h>
#include <openssl/cms.h>
#include <openssl/ocsp.h>
#include <openssl/pkcs12.h>

#include "bench_pair.h"
#include "bench_peer.h"
#include "rsa_bench_keys.h"
#include "zulcore.h"

// Both sides write and read files. The peer has its key and certificate decoded before, so that messages
// carry none: decoding it again takes the peer five times as long as verifying.

namespace {

template<auto release>
struct Release {
    void operator()(auto* thing) const { release(thing); }
};
template<class T, auto release>
using Owned = std::unique_ptr<T, Release<release>>;
using Bio = Owned<BIO, BIO_free>;
void release_chain(STACK_OF(X509) * chain) {
    sk_X509_free(chain);
}
using Chain = Owned<STACK_OF(X509), release_chain>;
using Message = Owned<CMS_ContentInfo, CMS_ContentInfo_free>;

Bio file_to(const std::string& name) {
    return Bio(checked(BIO_new_file(name.c_str(), "wb")));
}
Bio file_of(const std::string& name) {
    return Bio(checked(BIO_new_file(name.c_str(), "rb")));
}

// One user with a key of 2048 bits: files and strings for us, objects for the peer.
struct User {
    User() {
        zul::RsaKey rsa;
        bench_fill_key(rsa, kBenchPrimes[1]);
        peer.reset(peer_key(rsa));
        certificate.reset(peer_certificate(peer.get(), "Bench CA", 1));
        chain.reset(sk_X509_new_null());
        sk_X509_push(chain.get(), certificate.get());
        key = bench_key_string(rsa);
        check(i2d_X509_bio(file_to(cert).get(), certificate.get()) == 1);
        check(RSA_SaveEncPrivateKey(keyFile.c_str(), key.c_str(), 1, password, ZUL_PBE_SHA_3DES) == 0);
        check(PFX_MakeFile(pfx.c_str(), cert.c_str(), keyFile.c_str(), password, "bench", 0) == 0);
    }
    static constexpr const char* password = "bench";
    const std::string cert = scratch().file("user.cer"), keyFile = scratch().file("user.key"),
                      pfx = scratch().file("user.pfx"), content = std::string(1024, 'x');
    std::string key;
    Owned<EVP_PKEY, EVP_PKEY_free> peer;
    Owned<X509, X509_free> certificate;
    Chain chain;
};
const User& user() {
    static const User one;
    return one;
}

void our_signing(const std::string& to) {
    check(CMS_MakeSigDataFromString(to.c_str(), user().content.c_str(), user().cert.c_str(),
                                    user().key.c_str(), ZUL_HASH_SHA256 | ZUL_CMS_EXCLUDE_CERTS) == 0);
}
void their_signing(const std::string& to) {
    const Bio content(BIO_new_mem_buf(user().content.data(), static_cast<int>(user().content.size())));
    const Message message(checked(CMS_sign(user().certificate.get(), user().peer.get(), nullptr,
                                           content.get(), CMS_BINARY | CMS_NOATTR | CMS_NOCERTS)));
    check(i2d_CMS_bio(file_to(to).get(), message.get()) == 1);
}
void our_verification(const std::string& from) {
    check(CMS_VerifySigData(from.c_str(), user().cert.c_str(), "", 0) == 0);
}
void their_verification(const std::string& from) {
    const Message message(checked(d2i_CMS_bio(file_of(from).get(), nullptr)));
    check(CMS_verify(message.get(), user().chain.get(), nullptr, nullptr, nullptr,
                     CMS_BINARY | CMS_NO_SIGNER_CERT_VERIFY) == 1);
}
void our_enveloping(const std::string& to) {
    check(CMS_MakeEnvDataFromString(to.c_str(), user().content.c_str(), user().cert.c_str(), nullptr, 0,
                                    ZUL_CMS_CIPHER_AES256) == 1);
}
void their_enveloping(const std::string& to) {
    const Bio content(BIO_new_mem_buf(user().content.data(), static_cast<int>(user().content.size())));
    const Message message(
        checked(CMS_encrypt(user().chain.get(), content.get(), EVP_aes_256_cbc(), CMS_BINARY)));
    check(i2d_CMS_bio(file_to(to).get(), message.get()) == 1);
}
void our_opening(const std::string& from) {
    char out[1025];
    check(CMS_ReadEnvDataToString(out, 1024, from.c_str(), user().cert.c_str(), user().key.c_str(), 0) ==
          1024);
}
void their_opening(const std::string& from) {
    const Message message(checked(d2i_CMS_bio(file_of(from).get(), nullptr)));
    const Bio out(BIO_new(BIO_s_mem()));
    check(CMS_decrypt(message.get(), user().peer.get(), user().certificate.get(), nullptr, out.get(),
                      CMS_BINARY) == 1);
}
void their_mac() {
    const Owned<PKCS12, PKCS12_free> pfx(checked(d2i_PKCS12_bio(file_of(user().pfx).get(), nullptr)));
    check(PKCS12_verify_mac(pfx.get(), User::password, -1) == 1);
}

// A response about one certificate, signed by its issuer.
const std::string& response_file() {
    static const std::string path = [] {
        OCSP_BASICRESP* basic = OCSP_BASICRESP_new();
        OCSP_CERTID* id = OCSP_cert_to_id(EVP_sha1(), user().certificate.get(), user().certificate.get());
        const Owned<ASN1_TIME, ASN1_TIME_free> now(X509_gmtime_adj(nullptr, 0));
        checked(OCSP_basic_add1_status(basic, id, V_OCSP_CERTSTATUS_GOOD, 0, nullptr, now.get(), nullptr));
        check(OCSP_basic_sign(basic, user().certificate.get(), user().peer.get(), EVP_sha256(), nullptr,
                              OCSP_NOCERTS) == 1);
        OCSP_RESPONSE* response = OCSP_response_create(OCSP_RESPONSE_STATUS_SUCCESSFUL, basic);
        const std::string name = scratch().file("response");
        check(i2d_OCSP_RESPONSE_bio(file_to(name).get(), checked(response)) == 1);
        OCSP_RESPONSE_free(response);
        OCSP_BASICRESP_free(basic);
        OCSP_CERTID_free(id);
        return name;
    }();
    return path;
}
void our_response() {
    char report[1024];
    check(OCSP_ReadResponse(report, 1023, response_file().c_str(), user().cert.c_str(), "", 0) > 0);
}
void their_response() {
    const Owned<OCSP_RESPONSE, OCSP_RESPONSE_free> response(
        checked(d2i_OCSP_RESPONSE_bio(file_of(response_file()).get(), nullptr)));
    const Owned<OCSP_BASICRESP, OCSP_BASICRESP_free> basic(checked(OCSP_response_get1_basic(response.get())));
    check(OCSP_basic_verify(basic.get(), user().chain.get(), nullptr, OCSP_NOVERIFY) == 1);
}

// The messages that the rows of reading alone read, made by the peer.
const std::string& message_file(bool isSigned) {
    static const std::string paths[] = {scratch().file("enveloped"), scratch().file("signed")};
    static const bool made = (their_enveloping(paths[0]), their_signing(paths[1]), true);
    (void)made;
    return paths[isSigned];
}
const std::string& made_file() {
    static const std::string path = scratch().file("made");
    return path;
}

} // namespace

BENCH_ROWS {
    bench_register({"CMS, 1 KiB, RSA-2048: sign and verify", 0,
                    [] {
                        our_signing(made_file());
                        our_verification(made_file());
                    },
                    [] {
                        their_signing(made_file());
                        their_verification(made_file());
                    }});
    bench_register({"CMS sign", 0, [] { our_signing(made_file()); }, [] { their_signing(made_file()); }});
    bench_register({"CMS verify", 0, [] { our_verification(message_file(true)); },
                    [] { their_verification(message_file(true)); }});
    bench_register({"CMS encrypt for one, AES-256", 0, [] { our_enveloping(made_file()); },
                    [] { their_enveloping(made_file()); }});
    bench_register({"CMS decrypt", 0, [] { our_opening(message_file(false)); },
                    [] { their_opening(message_file(false)); }});
    bench_register({"PFX: verify the MAC", 0,
                    [] { check(PFX_VerifySig(user().pfx.c_str(), User::password, 0) == 0); }, their_mac});
    bench_register({"OCSP: read and verify a response", 0, our_response, their_response});
}
