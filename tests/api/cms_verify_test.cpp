#include <map>

#include "support/module_calls.h"

using test::from_base64;
using test::last_error;
using test::pem;

namespace {

std::map<std::string, std::string> certificates() {
    std::map<std::string, std::string> found = {{"", ""}};
    for (const test::Vector& v : test::read_vectors("cms_verify/certificates.txt"))
        found[v.text("Name")] = pem(from_base64(v.text("Certificate")));
    return found;
}

std::string optional(const test::Vector& v, const std::string& attribute) {
    return v.has(attribute) ? v.text(attribute) : "";
}

// message gives one of messages.txt as base64.
std::string message(const std::string& name) {
    std::string found;
    for (const test::Vector& v : test::read_vectors("cms_verify/messages.txt")) {
        for (const char* other : {"Cert", "Given", "Result", "Text", "Digest", "DigestResult"})
            optional(v, other);
        if (v.text("Name") == name)
            found = v.text("Message");
    }
    EXPECT_NE(found, "") << name;
    return found;
}

// What a call with a room for text gives.
struct Answer {
    int result;
    std::string text;
    bool operator==(const Answer&) const = default;
};

Answer signed_digest(const std::string& file, const std::string& cert, int room = 128) {
    std::string text(static_cast<size_t>(room) + 1, '\0');
    const int result = CMS_GetSigDataDigest(text.data(), room, file.c_str(), cert.c_str(), 0);
    return {result, text.c_str()};
}

Answer content(const std::string& file) {
    std::string text(100, '\0');
    const int result = CMS_ReadSigDataToString(text.data(), 99, file.c_str(), 0);
    return {result, text.c_str()};
}

Answer query(const std::string& file, const std::string& words) {
    std::string text(100, '\0');
    const int result = CMS_QuerySigData(text.data(), 99, file.c_str(), words.c_str(), 0);
    return {result, text.c_str()};
}

} // namespace

TEST(CmsVerify, MessagesOfMany) {
    const auto certs = certificates();
    for (const test::Vector& v : test::read_vectors("cms_verify/messages.txt")) {
        SCOPED_TRACE(v.text("Name"));
        const std::string file = pem(from_base64(v.text("Message"))), cert = certs.at(optional(v, "Cert"));
        const std::string text = optional(v, "Text");
        EXPECT_RESULT(CMS_VerifySigData(file.c_str(), cert.c_str(), optional(v, "Given").c_str(), 0),
                      v.number("Result"));
        const bool isOfReader = text == "*";
        EXPECT_TRUE(isOfReader || last_error() == text) << last_error();
        if (v.has("Digest")) {
            const auto size = static_cast<int>(v.text("Digest").size());
            EXPECT_EQ(signed_digest(file, cert), (Answer{size, v.text("Digest")}));
        } else {
            EXPECT_EQ(signed_digest(file, cert), (Answer{static_cast<int>(-v.number("DigestResult")), ""}));
        }
    }
}

TEST(CmsVerify, DamageChangesNothingOrIsSeen) {
    const std::string alice = certificates()["alice"];
    const test::Bytes good = from_base64(message("plain"));
    const Answer digest = signed_digest(pem(good), alice);
    int refused = 0;
    for (const int change : {0x01, 0x20, 0x80})
        for (size_t i = 0; i < good.size(); i++) {
            test::Bytes damaged = good;
            damaged[i] = static_cast<uint8_t>(damaged[i] ^ change);
            const std::string file = pem(damaged);
            const bool withCert = CMS_VerifySigData(file.c_str(), alice.c_str(), nullptr, 0) == 0;
            const bool verified = CMS_VerifySigData(file.c_str(), nullptr, nullptr, 0) == 0;
            EXPECT_FALSE(verified && !withCert) << i; // the key is alice's in any case
            refused += !withCert;
            if (withCert) {
                EXPECT_EQ(content(file), (Answer{3, "abc"})) << i;
                EXPECT_EQ(signed_digest(file, alice), digest) << i;
            }
        }
    EXPECT_GT(refused, 3 * 250); // what is not the certificate
    for (size_t size = 0; size < good.size(); size++) {
        const test::Bytes cut(good.begin(), good.begin() + static_cast<long>(size));
        EXPECT_NE(CMS_VerifySigData(pem(cut).c_str(), alice.c_str(), nullptr, 0), 0) << size;
    }
}

TEST(CmsVerify, Arguments) {
    const test::TempDir dir;
    const std::string alice = certificates()["alice"], plain = message("plain");
    const std::string file = dir.write("m.der", from_base64(plain)), missing = dir.file("missing");
    const std::string digest = "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad";
    const std::string tooLong(130, '0');
    const struct {
        const char *file, *cert, *digest;
        int result;
    } cases[] = {
        {file.c_str(), nullptr, nullptr, 0},
        {plain.c_str(), "", "BA7816BF 8F01CFEA 414140DE 5DAE2223 B00361A3 96177A9C B410FF61 F20015AD", 0},
        {nullptr, nullptr, nullptr, BAD_PARAM_ERROR},
        {"", nullptr, nullptr, BAD_PARAM_ERROR},
        {missing.c_str(), nullptr, nullptr, OPEN_ERROR},
        {file.c_str(), missing.c_str(), nullptr, OPEN_ERROR},
        {file.c_str(), plain.c_str(), nullptr, BAD_FORMAT_ERROR},
        {alice.c_str(), nullptr, nullptr, INVALID_DATA_ERROR},
        {file.c_str(), nullptr, "no hx", INVALID_DATA_ERROR},
        {file.c_str(), nullptr, tooLong.c_str(), INVALID_DATA_ERROR},
    };
    for (const auto& c : cases) {
        EXPECT_RESULT(CMS_VerifySigData(c.file, c.cert, c.digest, -1), c.result) << &c - cases;
        if (c.digest == nullptr) {
            EXPECT_EQ(CMS_GetSigDataDigest(nullptr, 0, c.file, c.cert, -1), c.result == 0 ? 64 : -c.result);
        } else if (c.result != 0) {
            EXPECT_EQ(last_error(), "Invalid user-supplied digest, perhaps invalid hex");
        }
    }
    EXPECT_EQ(signed_digest(file, "", 64), (Answer{64, digest}));
    EXPECT_EQ(signed_digest(file, "", 9), (Answer{8, digest.substr(0, 8)})); // whole pairs
}

TEST(CmsQuerySigData, Answers) {
    const std::string two = "second of two", md5 = "openssl md5", byKey = "openssl key identifier";
    const struct {
        std::string message, query;
        Answer answer;
    } cases[] = {
        {md5, "Version", {1, ""}},
        {byKey, "Version", {3, ""}},
        {md5, "eContentType", {4, "data"}},
        {"other type", "eContentType", {7, "1.2.3.4"}},
        {md5, "HASeContent", {1, ""}},
        {"detached", "HASeContent", {0, ""}},
        {"empty content", "HASeContent", {1, ""}},
        {"certificate last", "CountOfCerts", {2, ""}},
        {md5, "CountOfCertificates", {0, ""}},
        {two, "CountOfSigners", {2, ""}},
        {"no signers", "CountOfSignerInfos", {0, ""}},
        {md5, "signerInfoVersion", {1, ""}},
        {byKey, "signerInfoVersion", {3, ""}},
        {"no signers", "signerInfoVersion", {0, ""}},
        {md5, "HASsignedAttrs", {1, ""}},
        {two, "HASsignedAttributes", {0, ""}},
        {"unknown digest", "digestAlgorithm", {5, "1.2.3"}},
        {md5, "digestAlgorithm", {3, "md5"}},
        {"odd label", "signatureAlgorithm", {20, "md5WithRSAEncryption"}},
        {md5, "signatureAlgorithm", {13, "rsaEncryption"}},
        {md5, "messageDigest", {32, "900150983cd24fb0d6963f7d28e17f72"}},
        {two, "messageDigest", {0, ""}},
        {two, "SigningTime", {0, ""}},
        {md5, "", {-BAD_PARAM_ERROR, ""}},
        {md5, "Versio", {-BAD_QUERY_ERROR, ""}},
        {md5, "Version ", {-BAD_QUERY_ERROR, ""}},
        {md5, "version", {-BAD_QUERY_ERROR, ""}},
        {md5, "digestAlgorithm/1", {-BAD_QUERY_ERROR, ""}},
        {md5, "CountOfRecipients", {-BAD_QUERY_ERROR, ""}},
    };
    std::map<std::string, std::string> messages;
    for (const auto& c : cases) {
        if (messages.count(c.message) == 0)
            messages[c.message] = pem(from_base64(message(c.message)));
        EXPECT_EQ(query(messages[c.message], c.query), c.answer) << c.message << " " << c.query;
        EXPECT_EQ(ZUL_ErrorCode(), c.answer.result < 0 ? -c.answer.result : 0);
    }
    // The time at which the message was made, and the room.
    const std::string file = messages[md5];
    const Answer time = query(file, "SigningTime");
    EXPECT_EQ(time.result, 19);
    EXPECT_EQ(time.text.substr(0, 2) + time.text[4] + time.text[10] + time.text[16], "20- :");
    char few[5];
    EXPECT_EQ(CMS_QuerySigData(few, 4, file.c_str(), "SigningTime", 0), 4);
    EXPECT_EQ(few, time.text.substr(0, 4));
    EXPECT_EQ(CMS_QuerySigData(nullptr, 0, file.c_str(), "messageDigest", 0), 32);
}

TEST(CmsQuerySigData, TypesAndMissingMessages) {
    const auto type = [](const char* words) {
        return CMS_QuerySigData(nullptr, 0, nullptr, words, ZUL_QUERY_GETTYPE);
    };
    EXPECT_EQ(type("CountOfCerts"), 1);
    EXPECT_EQ(type("eContentType"), 2);
    EXPECT_EQ(type("SigningTime"), 2);
    EXPECT_EQ(type("recipientIssuerName"), -BAD_QUERY_ERROR);
    EXPECT_EQ(type("nothing"), -BAD_QUERY_ERROR);
    EXPECT_EQ(CMS_QuerySigData(nullptr, 0, nullptr, "Version", 0), -BAD_PARAM_ERROR);
    EXPECT_EQ(CMS_QuerySigData(nullptr, 0, "", "Version", 0), -BAD_PARAM_ERROR);
    EXPECT_EQ(CMS_QuerySigData(nullptr, 0, "x", nullptr, 0), -BAD_PARAM_ERROR);
    EXPECT_EQ(query(certificates()["alice"], "Version").result, -INVALID_DATA_ERROR);
}
