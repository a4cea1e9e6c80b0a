#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <new>
#include <span>
#include <sstream>

#include "support/temp_dir.h"
#include "support/vectors.h"
#include "zulcore.hpp"

namespace {

// Memory that is watched: whether it was all zeros when it was given back.
const void* watched = nullptr;
size_t watchedSize = 0;
bool wasWiped = false;

void give_back(void* memory) noexcept {
    if (memory != nullptr && memory == watched) {
        const auto* bytes = static_cast<const unsigned char*>(memory);
        wasWiped = std::all_of(bytes, bytes + watchedSize, [](unsigned char byte) { return byte == 0; });
        watched = nullptr;
    }
    std::free(memory);
}

// wiped_by tells whether a call gives back this memory, and wiped.
bool wiped_by(const void* memory, size_t size, const std::function<void()>& call) {
    watched = memory;
    watchedSize = size;
    wasWiped = false;
    call();
    return wasWiped && watched == nullptr;
}

// code_of gives the code that a call fails with; 0 if it does not.
int code_of(const std::function<void()>& call) {
    try {
        call();
        return 0;
    } catch (const zulcore::Error& error) {
        return error.code();
    }
}

using namespace std::string_literals;
using zulcore::Key;

} // namespace

void* operator new(size_t size) {
    void* memory = std::malloc(size);
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}
void operator delete(void* memory) noexcept {
    give_back(memory);
}
void operator delete(void* memory, size_t) noexcept {
    give_back(memory);
}

TEST(Cpp, Vectors) {
    for (const test::Vector& vector : test::read_vectors("bindings/vectors.txt")) {
        SCOPED_TRACE(vector.where());
        const std::string kind = vector.text("Kind");
        const auto result = [&] { return vector.hex("Result"); };
        const auto number = [&](const char* name) { return static_cast<int>(vector.number(name)); };
        if (kind == "hash" || kind == "hmac") {
            const std::string algorithm = vector.text("Algorithm");
            const auto message = vector.hex("Message");
            const zulcore::ByteView first(message.data(), message.size() / 2),
                rest(message.data() + first.size(), message.size() - first.size());
            if (kind == "hash") {
                EXPECT_EQ(zulcore::hash_hex(message, algorithm), test::to_hex(result()));
                zulcore::Hash whole(algorithm);
                zulcore::Hash copy = whole.add(first);
                EXPECT_EQ(copy.add(rest).end(), result());
                EXPECT_EQ(whole.add(rest).end(), result());
                EXPECT_EQ(code_of([&] { whole.add(rest); }), INVALID_DATA_ERROR);
            } else {
                const auto key = vector.hex("Key");
                EXPECT_EQ(zulcore::hmac(key, message, algorithm), result());
                EXPECT_EQ(zulcore::Hmac(key, algorithm).add(first).add(rest).end(), result());
            }
        } else if (kind == "pbkdf2" || kind == "hkdf" || kind == "scrypt") {
            const size_t size = result().size();
            const auto salt = vector.hex("Salt");
            zulcore::SecretBytes key;
            if (kind == "pbkdf2")
                key = zulcore::pbkdf2(size, vector.hex("Password"), salt, number("Iterations"),
                                      vector.text("Hash"));
            else if (kind == "hkdf")
                key = zulcore::hkdf(size, vector.hex("Key"), salt, vector.hex("Info"), vector.text("Hash"));
            else
                key = zulcore::scrypt(size, vector.hex("Password"), salt, number("N"), number("R"),
                                      number("P"));
            EXPECT_EQ(zulcore::to_hex(key), test::to_hex(result()));
        } else if (kind == "aead" || kind == "aead-refused") {
            const auto key = vector.hex("Key"), nonce = vector.hex("Nonce"), aad = vector.hex("Aad"),
                       message = vector.hex("Message");
            const std::string algorithm = vector.text("Algorithm");
            if (kind == "aead") {
                EXPECT_EQ(zulcore::aead_encrypt_with_nonce(key, nonce, message, aad, algorithm), result());
                EXPECT_EQ(
                    zulcore::to_hex(zulcore::aead_decrypt_with_nonce(key, nonce, result(), aad, algorithm)),
                    test::to_hex(message));
            } else {
                EXPECT_EQ(code_of([&] {
                              static_cast<void>(
                                  zulcore::aead_decrypt_with_nonce(key, nonce, message, aad, algorithm));
                          }),
                          number("Error"));
            }
        } else if (kind == "verify" || kind == "verify-refused") {
            const auto pem = vector.hex("Key"), message = vector.hex("Message"),
                       signature = vector.hex("Signature");
            const Key key = Key::read(std::string(pem.begin(), pem.end()));
            EXPECT_EQ(code_of([&] { key.verify(signature, message, vector.text("Algorithm")); }),
                      kind == "verify" ? 0 : number("Error"));
        } else {
            FAIL() << kind;
        }
    }
}

TEST(Cpp, Views) {
    static_assert(std::is_convertible_v<zulcore::ByteView, std::span<const unsigned char>>);
    const unsigned char array[] = {'a', 'b', 'c', 0};
    const std::array<std::byte, 1> bytes{std::byte{7}};
    EXPECT_EQ(zulcore::ByteView("abc").size(), 3u);
    EXPECT_EQ(zulcore::ByteView(array).size(), 4u);
    EXPECT_EQ(zulcore::ByteView("a\0b"s).size(), 3u);
    EXPECT_EQ(zulcore::ByteView(std::string_view("ab")).size(), 2u);
    EXPECT_EQ(zulcore::ByteView(bytes)[0], 7);
    EXPECT_EQ(zulcore::ByteView(std::span(array).first(2)).size(), 2u);
    EXPECT_TRUE(zulcore::ByteView(static_cast<const char*>(nullptr)).empty());
}

TEST(Cpp, TextsAndNumbers) {
    EXPECT_EQ(zulcore::to_hex(zulcore::from_hex("00ffA5")), "00ffa5");
    EXPECT_EQ(zulcore::to_base64("any carnal pleas"), "YW55IGNhcm5hbCBwbGVhcw==");
    EXPECT_EQ(zulcore::to_hex(zulcore::from_base64("AP+l")), "00ffa5");
    EXPECT_EQ(zulcore::to_hex({}) + zulcore::to_base64({}), "");
    EXPECT_TRUE(zulcore::from_hex("").empty());
    EXPECT_NE(zulcore::random_bytes(70000), zulcore::random_bytes(70000));
    EXPECT_EQ(zulcore::random_number(-3, -3), -3);
    EXPECT_EQ(code_of([] { static_cast<void>(zulcore::random_number(2, 1)); }), OUT_OF_RANGE_ERROR);
    EXPECT_EQ(code_of([] { static_cast<void>(zulcore::random_number(INT_MIN, INT_MAX)); }),
              OUT_OF_RANGE_ERROR);
    EXPECT_EQ(zulcore::Hash("shake128").add("").end(50).size(), 50u);
    zulcore::self_test();
    EXPECT_NE(zulcore::module_path().find("zulcore"), std::string::npos);
}

TEST(Cpp, AeadWithRandomNonce) {
    const auto key = zulcore::random_bytes(32);
    for (const std::string& message : {""s, "secret"s}) {
        auto sealed = zulcore::aead_encrypt(key, message, "header");
        EXPECT_EQ(sealed.size(), message.size() + 28);
        const auto opened = zulcore::aead_decrypt(key, sealed, "header");
        EXPECT_EQ(std::string(opened.begin(), opened.end()), message);
        sealed.back() ^= 1;
        EXPECT_EQ(code_of([&] { static_cast<void>(zulcore::aead_decrypt(key, sealed, "header")); }),
                  DECRYPT_ERROR);
    }
}

TEST(Cpp, ErrorsTellAll) {
    try {
        static_cast<void>(zulcore::Hash("sha257"));
        FAIL();
    } catch (const std::runtime_error& caught) {
        const auto& error = dynamic_cast<const zulcore::Error&>(caught);
        EXPECT_EQ(error.code(), NOT_SUPPORTED_ERROR);
        EXPECT_STREQ(error.name(), "NOT_SUPPORTED_ERROR");
        EXPECT_FALSE(error.text().empty());
        EXPECT_EQ(std::string(error.what()).find("NOT_SUPPORTED_ERROR: " + error.text()), 0u);
    }
    try {
        zulcore::cert::self_sign_file("unused", Key::generate("p-256"), "CN=a;colour=red");
        FAIL();
    } catch (const zulcore::Error& error) {
        EXPECT_NE(std::string(error.detail()).find("colour"), std::string::npos);
        EXPECT_NE(std::string(error.what()).find(error.detail()), std::string::npos);
    }
}

TEST(Cpp, RefusesWhatTheCallWouldCut) {
    const test::TempDir dir;
    const std::string unused = dir.file("unused");
    const unsigned char byte = 0;
    const zulcore::ByteView tooLong(&byte, static_cast<size_t>(INT_MAX) + 1);
    const std::string cut("sha256\0x", 8);
    const Key key = Key::generate("ed25519");
    const std::pair<std::function<void()>, int> calls[] = {
        {[&] { static_cast<void>(zulcore::hash(tooLong)); }, OUT_OF_RANGE_ERROR},
        {[&] { static_cast<void>(zulcore::to_hex(tooLong)); }, OUT_OF_RANGE_ERROR},
        {[&] { static_cast<void>(key.sign(tooLong)); }, OUT_OF_RANGE_ERROR},
        {[&] { static_cast<void>(zulcore::pbkdf2(16, tooLong, "salt", 1)); }, OUT_OF_RANGE_ERROR},
        {[&] { static_cast<void>(zulcore::Hash(cut)); }, BAD_PARAM_ERROR},
        {[&] { static_cast<void>(zulcore::hash_file(cut)); }, BAD_PARAM_ERROR},
        {[&] { key.save(unused, cut); }, BAD_PARAM_ERROR},
        {[&] { key.save(unused, ""); }, BAD_PARAM_ERROR}, // neither writes an unencrypted file
        {[&] { key.save(unused); }, BAD_PARAM_ERROR},
        {[&] { zulcore::seal::seal_file_with_password(unused, unused, ""); }, BAD_PARAM_ERROR},
        {[&] { static_cast<void>(zulcore::hash_file("no such file")); }, OPEN_ERROR},
        {[&] { static_cast<void>(Key::generate("p-257")); }, NOT_SUPPORTED_ERROR},
    };
    for (const auto& [call, code] : calls)
        EXPECT_EQ(code_of(call), code) << &call - &calls[0].first;
    EXPECT_FALSE(test::file_exists(unused));
}

TEST(Cpp, SecretsAreWiped) {
    Key key = Key::generate("ed25519");
    const char* string = key.c_str();
    const size_t size = std::char_traits<char>::length(string);
    Key moved = std::move(key);
    EXPECT_EQ(moved.c_str(), string);
    EXPECT_EQ(code_of([&] { key.check(); }), BAD_PARAM_ERROR);
    EXPECT_TRUE(wiped_by(string, size, [&] { moved.close(); }));
    EXPECT_EQ(code_of([&] { static_cast<void>(moved.sign("data")); }), BAD_PARAM_ERROR);
    EXPECT_EQ(moved.describe(), "no key");

    auto other = std::make_unique<Key>(Key::generate("x25519"));
    EXPECT_TRUE(wiped_by(other->c_str(), size, [&] { other.reset(); }));
    auto bytes = std::make_unique<zulcore::SecretBytes>(zulcore::random_bytes(100));
    EXPECT_TRUE(wiped_by(bytes->data(), 100, [&] { bytes->resize(1000); }));
    EXPECT_TRUE(wiped_by(bytes->data(), 1000, [&] { bytes.reset(); }));
}

TEST(Cpp, Keys) {
    const test::TempDir dir;
    const std::tuple<const char*, const char*, const char*, int> kinds[] = {
        {"p-256", "ec", "private p-256 key, 256 bits", 256},
        {"ed25519", "ed25519", "private ed25519 key, 256 bits", 256},
        {"rsa-1024", "rsa", "private rsa key, 1024 bits", 1024},
    };
    for (const auto& [kind, algorithm, description, bits] : kinds) {
        SCOPED_TRACE(kind);
        const Key key = Key::generate(kind);
        EXPECT_EQ(key.algorithm(), algorithm);
        EXPECT_EQ(key.bits(), bits);
        std::ostringstream shown;
        shown << key;
        EXPECT_EQ(shown.str(), description);
        key.check();

        const std::string file = dir.file("key"), data = dir.write("data", "data"s);
        key.save(file, "secret", "kdf=scrypt;n=2");
        EXPECT_EQ(code_of([&] { static_cast<void>(Key::read(file)); }), BAD_PARAM_ERROR);
        EXPECT_EQ(code_of([&] { static_cast<void>(Key::read(file, "wrong")); }), DECRYPT_ERROR);
        const std::string plain = dir.file("plain"), publicFile = dir.file("public");
        key.save_unencrypted(plain, 0);
        key.public_key().save(publicFile);
        EXPECT_TRUE(Key::read(plain).matches(Key::read(publicFile)));
        const Key again = Key::read(file, "secret"), known = Key::read(again.public_pem());
        EXPECT_TRUE(again.isPrivate() && !known.isPrivate() && again.matches(known));
        EXPECT_FALSE(again.matches(Key::generate("ed25519")));
        EXPECT_EQ(known.fingerprint(), key.fingerprint());

        known.verify(key.sign("data"), "data");
        known.verify_file(key.sign_file(data), data);
        EXPECT_EQ(code_of([&] { known.verify_file(key.sign("else"), data); }), SIGNATURE_ERROR);
        EXPECT_EQ(code_of([&] { static_cast<void>(known.sign("data")); }), INVALID_DATA_ERROR);
    }
    const Key alice = Key::generate("x25519"), bob = Key::generate("x25519");
    EXPECT_EQ(alice.agree(bob.public_key()), bob.agree(alice.public_key()));
}

TEST(Cpp, Seal) {
    const test::TempDir dir;
    const std::string in = dir.write("in", "content"s), sealed = dir.file("sealed"), out = dir.file("out");
    const auto identity = zulcore::seal::make_identity();
    zulcore::seal::seal_file(sealed, in, zulcore::seal::recipient(identity), ZUL_SEAL_ARMOUR);
    zulcore::seal::open_file(out, sealed, identity);
    EXPECT_EQ(test::read_text(out), "content");
    EXPECT_EQ(code_of([&] { zulcore::seal::open_file(out, sealed, zulcore::seal::make_identity()); }),
              NO_MATCH_ERROR);
    zulcore::wipe_file(out);
    EXPECT_FALSE(test::file_exists(out));
}

TEST(Cpp, Certificates) {
    namespace cert = zulcore::cert;
    const test::TempDir dir;
    const Key rootKey = Key::generate("p-256"), key = Key::generate("ed25519");
    const std::string root = cert::self_sign(rootKey, "CN=Root;profile=ca"),
                      request = cert::request(key, "CN=www.example.com;dns=www.example.com"),
                      leaf = cert::issue(root, rootKey, request, "copy=subjectAltName;profile=server"),
                      direct = cert::issue(root, rootKey, key, "CN=Code;profile=code;serial=77");
    EXPECT_EQ(cert::query(leaf, "subject"), "CN=www.example.com");
    EXPECT_EQ(cert::query(leaf, "tlsFeature"), "");
    EXPECT_TRUE(key.matches(Key::read(leaf)));
    EXPECT_NE(cert::report(leaf, ZUL_CERT_JSON).find("www.example.com"), std::string::npos);
    cert::check_name(leaf, "www.example.com");
    EXPECT_EQ(code_of([&] { cert::check_name(leaf, "example.org"); }), NO_MATCH_ERROR);

    EXPECT_NE(cert::check_path({leaf, {}, root, {}, "host=www.example.com", 0}).find("CN=Root"),
              std::string::npos);
    const std::string crl = cert::issue_crl(root, rootKey, "serial=77", "days=7");
    EXPECT_FALSE(cert::check_path({leaf, {}, root, crl, {}, 0}).empty());
    try {
        cert::check_path({direct, {}, root, crl, {}, ZUL_CERT_JSON});
        FAIL();
    } catch (const cert::PathError& error) {
        EXPECT_EQ(error.code(), BAD_KEY_ERROR);
        EXPECT_EQ(error.report().find('{'), 0u);
        EXPECT_STRNE(error.detail(), "");
    }

    const std::string file = dir.file("all.p12");
    zulcore::p12::pack(file, leaf + ';' + root, key, "secret", "server", ZUL_P12_LEGACY);
    EXPECT_TRUE(zulcore::p12::unpack_key(file, "secret").matches(key));
    EXPECT_EQ(cert::query(zulcore::p12::unpack_certificates(file, "secret"), "sha256"),
              cert::query(leaf, "sha256"));
    EXPECT_NE(zulcore::p12::list(file, "secret").find("kind=key"), std::string::npos);
    EXPECT_EQ(code_of([&] { static_cast<void>(zulcore::p12::unpack_key(file, "wrong")); }), DECRYPT_ERROR);
    EXPECT_FALSE(zulcore::ocsp::request(root, leaf).empty());
    EXPECT_EQ(code_of([&] { static_cast<void>(zulcore::ocsp::request("", leaf)); }), BAD_PARAM_ERROR);
}

TEST(Cpp, Messages) {
    namespace cms = zulcore::cms;
    const test::TempDir dir;
    const std::string in = dir.write("in", "Meet me at noon."s), signedFile = dir.file("signed"),
                      sealed = dir.file("sealed");
    const Key key = Key::generate("rsa-2048");
    const std::string certificate = zulcore::cert::self_sign(key, "CN=Alice"),
                      other = zulcore::cert::self_sign(Key::generate("ed25519"), "CN=Bob");
    cms::sign_text(signedFile, "Meet me at noon.", certificate, key);
    cms::verify(signedFile, certificate);
    EXPECT_EQ(code_of([&] { cms::verify(signedFile, other); }), NO_MATCH_ERROR);
    EXPECT_EQ(code_of([&] { cms::verify(signedFile, ""); }), BAD_PARAM_ERROR);
    const auto content = cms::read(signedFile);
    EXPECT_EQ(std::string(content.begin(), content.end()), "Meet me at noon.");
    const std::string detached = cms::sign_digest(zulcore::hash_file(in), certificate, key);
    cms::verify(detached, certificate, zulcore::hash_file(in));
    EXPECT_EQ(code_of([&] { cms::verify(detached, certificate, zulcore::hash("else")); }), SIGNATURE_ERROR);

    cms::encrypt_file(sealed, in, {certificate});
    const auto opened = cms::decrypt(sealed, key);
    EXPECT_EQ(std::string(opened.begin(), opened.end()), "Meet me at noon.");
    try {
        cms::encrypt_file(sealed, in, {certificate, other});
        ADD_FAILURE() << "a key that cannot encrypt";
    } catch (const zulcore::Error& error) {
        EXPECT_EQ(error.code(), BAD_KEY_ERROR);
        EXPECT_STRNE(error.detail(), "");
    }
    EXPECT_FALSE(test::file_exists(sealed));
}
