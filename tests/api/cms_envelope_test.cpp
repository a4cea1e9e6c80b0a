#include <algorithm>

#include "support/key_calls.h"

using test::Bytes;
using test::last_error;

namespace {

std::string path_of(const std::string& file) {
    return test::data_path("cms_envelope/" + file);
}

const std::string kNotOpened = "error " + std::to_string(DECRYPT_ERROR);

std::string content_of(size_t size) { // that make.py and the tests encrypt
    std::string content;
    for (size_t i = 0; i < size; i++)
        content += static_cast<char>(i * 7);
    return content;
}

class CmsEnvelope : public testing::Test {
  protected:
    // opened gives a content, or "error ..." after a failure.
    std::string opened(const std::string& message, const char* cert = nullptr) const {
        int code = 0;
        const std::string content = test::text_of(
            [&](char* out, int room) {
                return CMS_ReadEnvDataToString(out, room, message.c_str(), cert, key.c_str(), 0);
            },
            &code);
        return code == 0 ? content : "error " + std::to_string(code);
    }
    int number(const std::string& message, const char* query) const {
        return CMS_QueryEnvData(nullptr, 0, message.c_str(), query, 0);
    }
    std::string text(const std::string& message, const char* query) const {
        return test::text_of(
            [&](char* out, int room) { return CMS_QueryEnvData(out, room, message.c_str(), query, 0); });
    }
    // changed writes a message in which bytes at a distance from a pattern are others.
    std::string changed(const std::string& file, const std::string& pattern, int distance,
                        const std::string& to) const {
        return dir.write("changed" + std::to_string(changes++),
                         test::patched(test::read_file(path_of(file)), pattern, distance, to));
    }

    const test::TempDir dir;
    const std::string me = path_of("me.pem"), other = path_of("other.pem");
    const std::string key = test::read_key(path_of("me.key"));
    mutable int changes = 0;
};

} // namespace

TEST_F(CmsEnvelope, ReadsMessagesOfOthers) {
    const std::string out = dir.file("out");
    for (const test::Vector& vector : test::read_vectors("cms_envelope/messages.txt")) {
        SCOPED_TRACE(vector.text("File"));
        const std::string message = path_of(vector.text("File"));
        const std::string content = content_of(static_cast<size_t>(vector.number("Length")));
        EXPECT_EQ(opened(message), content);
        EXPECT_EQ(opened(message, me.c_str()), content);
        ASSERT_EQ(CMS_ReadEnvData(out.c_str(), message.c_str(), me.c_str(), key.c_str(), 0), 0);
        EXPECT_EQ(test::read_text(out), content);
        EXPECT_EQ(opened(message, other.c_str()), kNotOpened);
        EXPECT_EQ(text(message, "contentEncryptionAlgorithm"), vector.text("Cipher"));
        EXPECT_EQ(number(message, "CountOfRecipients"), vector.number("Recipients"));
    }
}

TEST_F(CmsEnvelope, OpensWhatItMade) {
    const struct {
        int options;
        const char* cipher;
        size_t block;
    } cases[] = {
        {0, "des-EDE3-CBC", 8},
        {0x50, "des-EDE3-CBC", 8},
        {ZUL_CMS_CIPHER_TDEA | ZUL_CMS_NAMED_SIGALG, "des_3CBC_pad", 8},
        {ZUL_CMS_CIPHER_AES128 | ZUL_CMS_NAMED_SIGALG, "aes128-CBC", 16},
        {ZUL_CMS_CIPHER_AES192 | ZUL_CMS_FORMAT_BASE64, "aes192-CBC", 16},
        {ZUL_CMS_CIPHER_AES256, "aes256-CBC", 16},
    };
    const std::string message = dir.file("message"), both = other + ";" + me + ";";
    for (const auto& c : cases) {
        for (const size_t size : {0U, 1U, 7U, 8U, 15U, 16U, 17U, 100000U}) {
            SCOPED_TRACE(std::string(c.cipher) + " " + std::to_string(size));
            const std::string content = content_of(size), file = dir.write("content", content);
            ASSERT_EQ(CMS_MakeEnvData(message.c_str(), file.c_str(), both.c_str(), nullptr, 0, c.options), 2);
            EXPECT_EQ(test::read_text(message)[0], (c.options & ZUL_CMS_FORMAT_BASE64) != 0 ? 'M' : '0');
            EXPECT_EQ(opened(message), content);
            EXPECT_EQ(text(message, "contentEncryptionAlgorithm"), c.cipher);
            EXPECT_EQ(number(message, "sizeofEncryptedContent"), size + c.block - size % c.block);
        }
    }
    const uint8_t seed[] = {1, 2, 3};
    ASSERT_EQ(CMS_MakeEnvDataFromString(message.c_str(), "text", me.c_str(), seed, 3, 0), 1);
    EXPECT_EQ(opened(message), "text");
    // What is read is in memory before it is written over.
    ASSERT_EQ(CMS_ReadEnvData(message.c_str(), message.c_str(), "", key.c_str(), 0), 0);
    EXPECT_EQ(test::read_text(message), "text");
    ASSERT_EQ(CMS_MakeEnvData(message.c_str(), message.c_str(), me.c_str(), nullptr, 0, 0), 1);
    char room[4] = "???";
    EXPECT_EQ(CMS_ReadEnvDataToString(room, 2, message.c_str(), "", key.c_str(), 0), 2);
    EXPECT_STREQ(room, "te");
}

TEST_F(CmsEnvelope, LeavesOutWhoCannotBeServed) {
    const std::string missing = dir.file("missing"), message = dir.file("message");
    ASSERT_EQ(
        CMS_MakeEnvDataFromString(message.c_str(), "x", (missing + ";" + me).c_str(), nullptr, 0, 0x10020),
        1);
    EXPECT_EQ(last_error(),
              "Unable to open file '" + missing + "'; Cannot read public key in '" + missing + "'");
    EXPECT_EQ(opened(message), "x");
    ASSERT_EQ(CMS_MakeEnvDataFromString(message.c_str(), "x", missing.c_str(), nullptr, 0, 0x10020), 0);
    EXPECT_EQ(test::read_text(message)[0], '0'); // no base64
    EXPECT_EQ(number(message, "CountOfRecipientInfos"), 0);
    EXPECT_EQ(opened(message), kNotOpened);
    EXPECT_EQ(last_error(), "No RecipientInfos.");

    const struct {
        int distance; // from the exponent of a certificate's key
        const char *to, *what;
    } keys[] = {
        {2, "000001", "e = 1"}, {2, "000002", "e = 2"}, {4, "00", "even"}, {-1, "00", "even modulus"}};
    for (const auto& k : keys) {
        SCOPED_TRACE(k.what);
        const std::string bad = changed("../pfx/cert.der", "0203010001", k.distance, k.to);
        EXPECT_EQ(CMS_MakeEnvDataFromString(message.c_str(), "x", bad.c_str(), nullptr, 0, 0), 0);
        EXPECT_EQ(last_error(), "Cannot read public key in '" + bad + "'");
    }
    const std::string three = changed("../pfx/cert.der", "0203010001", 2, "000003");
    EXPECT_EQ(CMS_MakeEnvDataFromString(message.c_str(), "x", three.c_str(), nullptr, 0, 0), 1);
}

// A message may not have any number of blocks tried, least of all for one recipient.
TEST_F(CmsEnvelope, TriesSoManyRecipients) {
    const Bytes der = test::read_file(path_of("tdes.der"));
    const auto recipient = der.begin() + 29, content = recipient + 202;
    Bytes bad(recipient, content);
    bad.back() ^= 1;
    const struct {
        const char* cert;
        int before;
        bool opens;
    } cases[] = {{"", 99, true}, {"", 100, false}, {me.c_str(), 3, true}, {me.c_str(), 4, false}};
    for (const auto& c : cases) {
        Bytes message = test::from_hex("3080 06092a864886f70d010703 a080 3080 020100 3180");
        for (int i = 0; i < c.before; i++)
            message.insert(message.end(), bad.begin(), bad.end());
        message.insert(message.end(), recipient, content);
        message.insert(message.end(), 2, 0);
        message.insert(message.end(), content, der.end());
        message.insert(message.end(), 6, 0);
        EXPECT_EQ(opened(dir.write("message", message), c.cert), c.opens ? content_of(15) : kNotOpened)
            << c.before;
    }
}

TEST_F(CmsEnvelope, MakersSayWhatIsWrong) {
    const std::string out = dir.file("out"), missing = dir.file("missing"), nowhere = dir.file("no/where");
    const std::string large = dir.write("large", std::string(0x1000000, 'x')); // with its padding too long
    const struct {
        const char* what;
        std::string out, in, certs;
        int seedLen, result;
        std::string text;
    } cases[] = {
        {"no output", "", me, me, 0, -BAD_PARAM_ERROR, ""},
        {"no input", out, "", me, 0, -BAD_PARAM_ERROR, ""},
        {"no list", out, me, "", 0, -BAD_PARAM_ERROR, ""},
        {"seed", out, me, me, -1, -BAD_PARAM_ERROR, ""},
        {"blank list", out, me, " ", 0, -BAD_PARAM_ERROR, "Error in certificate list"},
        {"missing", out, missing, me, 0, -OPEN_ERROR, "Cannot open file " + missing},
        {"large", out, large, me, 0, -MSG_TOO_LONG_ERROR, "Content is too long (max=16777216 bytes)"},
        {"nowhere", nowhere, me, me, 0, -CREATE_ERROR, "Cannot create file '" + nowhere + "'"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_FAILURE(CMS_MakeEnvData(c.out.c_str(), c.in.c_str(), c.certs.c_str(), nullptr, c.seedLen, 0),
                       c.result, c.text);
        EXPECT_FALSE(test::file_exists(out));
    }
    EXPECT_EQ(CMS_MakeEnvDataFromString(out.c_str(), nullptr, me.c_str(), nullptr, 0, 0), -BAD_PARAM_ERROR);
}

TEST_F(CmsEnvelope, ReadersSayWhatIsWrong) {
    const std::string out = dir.file("out"), missing = dir.file("missing"), message = path_of("tdes.der");
    const std::string noKey = "Could not find a valid Content Encryption Key";
    const struct {
        const char* what;
        std::string in, cert, out;
        int result;
        std::string text;
    } cases[] = {
        {"missing", missing, "", out, -OPEN_ERROR,
         "Unable to open file '" + missing + "'; Unable to read enveloped-data file"},
        {"missing certificate", message, missing, out, -OPEN_ERROR, "Unable to open file '" + missing + "'"},
        {"nowhere", message, "", dir.file("no/where"), -CREATE_ERROR,
         "Cannot create file '" + dir.file("no/where") + "'"},
        {"type", changed("tdes.der", "2a864886f70d010703", 8, "02"), "", out, -INVALID_DATA_ERROR,
         "Invalid Content Type - expected enveloped-data"},
        {"version", changed("tdes.der", "0201003181", 0, "04"), "", out, -INVALID_DATA_ERROR,
         "Invalid Enveloped Data Content"},
        {"recipients", changed("tdes.der", "0201003181", 3, "30"), "", out, -INVALID_DATA_ERROR,
         "Invalid Enveloped Data Content"},
        {"truncated", dir.write("short", test::read_text(path_of("odd.der")).substr(0, 300)), "", out,
         -INVALID_DATA_ERROR, "Invalid Enveloped Data Content"},
        {"OAEP", path_of("oaep.der"), me, out, -DECRYPT_ERROR,
         "Key encryption algorithm '1.2.840.113549.1.1.7' is not supported\n; " + noKey},
        {"content type", changed("tdes.der", "2a864886f70d010701", 8, "06"), "", out, -INVALID_DATA_ERROR,
         "Invalid content type"},
        {"cipher", changed("tdes.der", "2a864886f70d0307", 7, "06"), "", out, -NOT_SUPPORTED_ERROR,
         "Unsupported content encryption algorithm '1.2.840.113549.3.6'"},
        {"no IV", changed("tdes.der", "2a864886f70d0307", 8, "05"), "", out, -INVALID_DATA_ERROR,
         "Invalid IV for Triple DES encryption"},
        {"no IV, AES", changed("aes192.der", "03040116", 4, "05"), "", out, -INVALID_DATA_ERROR,
         "Invalid IV for AES encryption"},
        {"RC2 parameter", changed("rc2_128.der", "02013a", -2, "31"), "", out, -INVALID_DATA_ERROR,
         "Missing R.2-CBC-Parameter"},
        {"RC2 version", changed("rc2_128.der", "02013a", 2, "3b"), "", out, -INVALID_DATA_ERROR,
         "Invalid ParameterVersion (59)"},
        {"no RC2 version", changed("rc2_128.der", "02013a", 0, "04"), "", out, -INVALID_DATA_ERROR,
         "Missing R.2-CBC-Parameter"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_FAILURE(CMS_ReadEnvData(c.out.c_str(), c.in.c_str(), c.cert.c_str(), key.c_str(), 0), c.result,
                       c.text);
        EXPECT_FALSE(test::file_exists(out));
    }
    const char *in = message.c_str(), *to = out.c_str();
    EXPECT_EQ(CMS_ReadEnvData("", in, nullptr, key.c_str(), 0), -BAD_PARAM_ERROR);
    EXPECT_EQ(CMS_ReadEnvData(to, in, nullptr, "", 0), -BAD_PARAM_ERROR);
    EXPECT_FAILURE(CMS_ReadEnvData(to, in, nullptr, "PVTRnone", 0), -INVALID_DATA_ERROR,
                   "Invalid Private Key");
}

// Nobody can ask what is inside a block: all that may be wrong there looks like a damaged content. The
// content is encrypted with the bytes that every one of these blocks ends with, so that only its form refuses
// it.
TEST_F(CmsEnvelope, KeyFailuresAllLookTheSame) {
    const Bytes contentKey(24, 0x33);
    Bytes message = test::read_file(path_of("aes192.der")), content(32, 16);
    const size_t iv = message.size() - 50, encrypted = message.size() - 32;
    ASSERT_EQ(CIPHER_Bytes(1, &message[encrypted], content.data(), 32, contentKey.data(), &message[iv],
                           "aes-192/cbc", 0),
              0);
    const std::string publicKey = test::read_key(me);
    const Bytes header = test::from_hex("048180");
    const size_t encryptedKey = static_cast<size_t>(
        std::search(message.begin(), message.end(), header.begin(), header.end()) - message.begin() + 3);
    const auto open_with = [&](const std::string& begin, size_t zero, size_t damaged = 0) {
        Bytes changed = message, block(128, 0x33);
        const Bytes first = test::from_hex(begin);
        std::copy(first.begin(), first.end(), block.begin());
        block[zero] = 0;
        RSA_RawPublic(block.data(), 128, publicKey.c_str(), 0); // leaves what is not below n
        std::copy(block.begin(), block.end(), &changed[encryptedKey]);
        changed[damaged] ^= damaged == 0 ? 0 : 0x80;
        return opened(dir.write("message", changed));
    };
    EXPECT_EQ(open_with("0002", 103), std::string(16, '\x10'));
    const struct {
        const char* what;
        std::string begin;
        size_t zero, damaged;
    } cases[] = {
        {"type", "0001", 103, 0},
        {"first byte", "0102", 103, 0},
        {"long key", "0002", 102, 0},
        {"short key", "0002", 104, 0},
        {"zero in the padding", "0002333333333333333300", 103, 0},
        {"short padding", "0002333333333333330033", 103, 0},
        {"no zero", "0002", 0, 0},
        {"not below n", std::string(256, 'f'), 103, 0},
        {"content", "0002", 103, message.size() - 17}, // of the block before the last
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(open_with(c.begin, c.zero, c.damaged), kNotOpened);
        EXPECT_EQ(last_error(),
                  "Unable to decrypt CEK (0F)\n; Could not find a valid Content Encryption Key");
    }
}

TEST_F(CmsEnvelope, AnswersQueries) {
    const std::string several = path_of("several.der"), byKey = path_of("key_identifier.der");
    EXPECT_EQ(number(several, "Version"), 3);
    EXPECT_EQ(number(several, "recipientInfoVersion"), 0);
    EXPECT_EQ(number(several, "sizeofEncryptedContent"), 16);
    EXPECT_EQ(text(several, "keyEncryptionAlgorithm"), "rsaEncryption");
    EXPECT_EQ(number(several, "sizeofEncryptedKey"), 128);
    EXPECT_EQ(text(several, "recipientIssuerName"), "O=Caf\xE9 Envelopes;CN=me");
    EXPECT_EQ(text(several, "recipientSerialNumber"), "00c0ffee02");
    EXPECT_EQ(number(several, "keyEncryptionFlags"), 0);
    EXPECT_EQ(number(byKey, "recipientIssuerName"), 0);
    const auto ask = [](const std::string& message, const char* query, int options) {
        return CMS_QueryEnvData(nullptr, 0, message.c_str(), query, options);
    };
    EXPECT_EQ(ask("", "recipientIssuerName", ZUL_QUERY_GETTYPE), 2);
    EXPECT_EQ(ask("", "recipientIssuerName", 0), -BAD_PARAM_ERROR);
    EXPECT_EQ(ask(several, "messageDigest", 0), -BAD_QUERY_ERROR);
    EXPECT_EQ(ask(several, "recipientSerialNumber/1", 0), -BAD_QUERY_ERROR);
    EXPECT_EQ(ask(several, "messageDigest", ZUL_QUERY_GETTYPE), -BAD_QUERY_ERROR);
    EXPECT_EQ(ask(me, "Version", 0), -INVALID_DATA_ERROR);
}
