#include <ctime>
#include <set>

#include "support/der_bytes.h"
#include "support/key_calls.h"

using test::element;
constexpr auto hex = test::text_from_hex;
using test::last_error;

// What is made, byte for byte, against an encoding of the same put together here.

namespace {

const unsigned char* bytes(const std::string& text) {
    return reinterpret_cast<const unsigned char*>(text.data());
}

std::string digest_of(const std::string& content, int options) {
    return test::text_of([&](char* out, int room) {
        return HASH_HexFromBytes(out, room, content.data(), static_cast<int>(content.size()), options & 0xF);
    });
}

const std::string kNull = hex("0500"), kPkcs = "06092a864886f70d01", kData = hex(kPkcs + "0701");

struct Digest {
    const char *oid, *label; // of the algorithm, and of the signature with ZUL_CMS_NAMED_SIGALG
} const kDigests[] = {
    {"06052b0e03021a", "0105"},         {"06082a864886f70d0205", "0104"},
    {"06082a864886f70d0202", "0102"},   {"0609608648016503040201", "0104"},
    {"0609608648016503040202", "010c"}, {"0609608648016503040203", "0104"},
    {"0609608648016503040204", "0102"},
};

class CmsMake : public testing::Test {
  protected:
    CmsMake() {
        EXPECT_RESULT(X509_MakeCertSelf(cert_.c_str(), key_.c_str(), 5, 1, "CN=A", "", 0, "p", 0), 0);
    }

    // make calls the maker of a file, a text, a digest in hex, or a signature value of the text "x".
    int make(char maker, const std::string& in, const std::string& list, const std::string& key,
             int options) const {
        const std::string value = maker == 'v' ? signature("x", options) : "";
        const char *const o = out_.c_str(), *const i = in.c_str(), *const l = list.c_str(),
                          *const k = key.c_str();
        switch (maker) {
        case 'f':
            return CMS_MakeSigData(o, i, l, k, options);
        case 't':
            return CMS_MakeSigDataFromString(o, i, l, k, options);
        case 'd':
            return CMS_MakeDetachedSig(o, i, l, k, options);
        default:
            return CMS_MakeSigDataFromSigValue(o, bytes(value), static_cast<int>(value.size()), bytes(in),
                                               static_cast<int>(in.size()), l, options);
        }
    }
    std::string made() const { return test::read_text(out_); }

    std::string signature(const std::string& content, int options) const {
        const int size = RSA_KeyBytes(key_.c_str());
        std::string value(static_cast<size_t>(size), '\0');
        auto* out = reinterpret_cast<unsigned char*>(value.data());
        EXPECT_EQ(RSA_EncodeMsg(out, size, bytes(content), static_cast<int>(content.size()),
                                ZUL_EMSIG_PKCSV1_5 | (options & 0xF)),
                  0);
        EXPECT_EQ(RSA_RawPrivate(out, size, key_.c_str(), 0), 0);
        return value;
    }

    // small_key has no room for any digest.
    std::string small_key() const {
        const std::string file = dir_.file("small"), other = dir_.file("public");
        RSA_MakeKeys(other.c_str(), file.c_str(), 128, 4, 5, 1, "p", nullptr, 0, 0);
        return test::read_key(file, "p");
    }

    // expected puts together what a message has to be; certificates are joined.
    std::string expected(const std::string& content, const std::string& certificates, int options,
                         const std::string& time = "") const {
        const Digest& digest = kDigests[options & 0xF];
        std::string attributes, signedContent = content, carried,
                                algorithm = element(0x30, hex(digest.oid) + kNull);
        if ((options & ZUL_CMS_INCLUDE_ATTRS) != 0) {
            const std::string value = hex(digest_of(content, options));
            const auto attribute = [](const char* oid, const std::string& set) {
                return element(0x30, hex(kPkcs + "09" + oid) + element(0x31, set));
            };
            std::set<std::string> sorted = {attribute("03", kData), attribute("04", element(4, value))};
            if ((options & ZUL_CMS_ADD_SIGNTIME) != 0)
                sorted.insert(attribute("05", element(0x17, time)));
            if ((options & ZUL_CMS_ADD_SMIMECAPS) != 0)
                sorted.insert(
                    attribute("0f", hex("303c300a06082a864886f70d0307300b" + kPkcs +
                                        "0105300706052b0e03021d300b" + kPkcs + "0104300b" + kPkcs + "0101")));
            for (const std::string& one : sorted)
                attributes += one;
            signedContent = element(0x31, attributes);
            attributes = element(0xa0, attributes);
        }
        if ((options & ZUL_CMS_EXCLUDE_DATA) == 0)
            carried = element(0xa0, element(4, content));
        const bool isNamed = (options & ZUL_CMS_NAMED_SIGALG) != 0;
        const std::string signer = hex("020101"
                                       "3011300c310a30080603550403130141020105") +
                                   algorithm + attributes +
                                   element(0x30, hex(kPkcs + (isNamed ? digest.label : "0101")) + kNull) +
                                   element(4, signature(signedContent, options));
        return wrapped(element(0x31, algorithm) + element(0x30, kData + carried) +
                           (certificates.empty() ? "" : element(0xa0, certificates)) +
                           element(0x31, element(0x30, signer)),
                       options);
    }
    static std::string wrapped(const std::string& parts, int options) {
        const std::string signedData = element(0x30, hex("020101") + parts);
        return (options & ZUL_CMS_BARE_SIGNEDDATA) != 0
                   ? signedData
                   : element(0x30, hex(kPkcs + "0702") + element(0xa0, signedData));
    }

    test::TempDir dir_;
    const std::string key_ = test::read_key(test::data_path("rsa/private_pkcs8.pem"));
    std::string cert_ = dir_.file("cert"), out_ = dir_.file("out");
};

} // namespace

TEST_F(CmsMake, EveryDigestAndFormByteForByte) {
    const std::string der = test::read_text(cert_);
    for (const int form : {0, ZUL_CMS_NAMED_SIGALG | ZUL_CMS_EXCLUDE_DATA, int{ZUL_CMS_BARE_SIGNEDDATA},
                           ZUL_CMS_ADD_SIGNTIME | ZUL_CMS_ADD_SMIMECAPS, // nothing without attributes
                           int{ZUL_CMS_INCLUDE_ATTRS}, ZUL_CMS_INCLUDE_ATTRS | ZUL_CMS_ADD_SMIMECAPS})
        for (int digest = 0; digest <= ZUL_HASH_SHA224; digest++) {
            const int options = form | digest;
            SCOPED_TRACE(testing::Message() << std::hex << options);
            ASSERT_EQ(make('t', "x", cert_ + ";", key_, options), 0) << last_error();
            EXPECT_EQ(made(), expected("x", der, options));
            ASSERT_RESULT(make('v', "x", cert_, "", options | ZUL_CMS_INCLUDE_ATTRS), 0);
            EXPECT_EQ(made(), expected("x", der, options & ~ZUL_CMS_INCLUDE_ATTRS));
            ASSERT_RESULT(make('d', digest_of("x", digest), cert_, key_, options | ZUL_CMS_EXCLUDE_CERTS), 0);
            EXPECT_EQ(made(), expected("x", "", options | ZUL_CMS_EXCLUDE_DATA));
        }
}

TEST_F(CmsMake, TimeOfSigning) {
    const int options = ZUL_CMS_INCLUDE_ATTRS | ZUL_CMS_ADD_SIGNTIME | ZUL_CMS_ADD_SMIMECAPS;
    const auto now = [] {
        const time_t seconds = time(nullptr);
        std::string text(15, '\0');
        strftime(text.data(), text.size() + 1, "%Y%m%d%H%M%SZ", gmtime(&seconds));
        return text.substr(2);
    };
    const std::string before = now();
    ASSERT_EQ(make('t', "x", cert_, key_, options), 0);
    const std::string message = made(),
                      time = message.substr(message.find(hex(kPkcs + "0905310f170d")) + 15, 13);
    EXPECT_TRUE(before <= time && time <= now()) << time;
    EXPECT_EQ(message, expected("x", test::read_text(cert_), options, time));
}

TEST_F(CmsMake, ListsAndFiles) {
    // A BER certificate is carried as DER; it is a SEQUENCE of indefinite length around DER.
    const std::string berFile = test::data_path("x509/ber_outer.der"), ber = test::read_text(berFile);
    const std::string der = test::read_text(cert_), other = element(0x30, ber.substr(2, ber.size() - 4));
    std::string list = cert_, all = der;
    for (int i = 1; i < 10; i++) {
        list += "; " + (i == 4 ? "" : i % 2 != 0 ? berFile : cert_);
        all += i == 4 ? "" : i % 2 != 0 ? other : der;
    }
    ASSERT_EQ(make('t', "x", list + ";no-such-file", key_, 0), 0) << last_error();
    EXPECT_EQ(made(), expected("x", all, 0));
    ASSERT_EQ(make('t', "x", cert_ + ";no-such-file", key_, ZUL_CMS_EXCLUDE_CERTS), 0) << last_error();
    EXPECT_EQ(made(), expected("x", "", 0));

    // The output may be what was read. A content of zero bytes is content, and one that is not carried may be
    // of any length.
    const std::string zeros(0x1000000, '\0'), more = zeros + "x", file = dir_.write("file", zeros);
    for (const std::string& content : {zeros, more}) {
        const int options = content == more ? ZUL_CMS_EXCLUDE_DATA : 0;
        dir_.write("file", content);
        ASSERT_EQ(CMS_MakeSigData(file.c_str(), file.c_str(), cert_.c_str(), key_.c_str(), options), 0);
        EXPECT_TRUE(test::read_text(file) == expected(content, der, options));
    }
    ASSERT_EQ(CMS_MakeSigDataFromString(cert_.c_str(), "x", cert_.c_str(), key_.c_str(), 0), 0);
    EXPECT_EQ(test::read_text(cert_), expected("x", der, 0));
}

TEST_F(CmsMake, CertificatesOnlyAndBase64) {
    const std::string der = test::read_text(cert_), list = " ;" + cert_ + ";;" + cert_,
                      plain = dir_.file("plain");
    const std::string parts = hex("3100300b") + kData + element(0xa0, der + der) + hex("3100");
    const auto as_pem = [&](const std::string& message, const char* label) {
        dir_.write("plain", message);
        PEM_FileFromBinFile(plain.c_str(), plain.c_str(), label, 64);
        return test::read_text(plain);
    };
    for (const char maker : {'f', 't', 'd', 'v'})
        for (const int form : {0, int{ZUL_CMS_BARE_SIGNEDDATA}, int{ZUL_CMS_FORMAT_BASE64}}) {
            ASSERT_RESULT(make(maker, "", list, "", ZUL_CMS_CERTS_ONLY | form), 0);
            const std::string message = wrapped(parts, form);
            EXPECT_EQ(made(), form == ZUL_CMS_FORMAT_BASE64 ? as_pem(message, "PKCS7") : message);
        }
    // Longer than what is encoded at a time, and no whole lines.
    const std::string content(50000, 'c');
    ASSERT_EQ(make('t', content, cert_, key_, ZUL_CMS_FORMAT_BASE64), 0);
    EXPECT_EQ(made(), as_pem(expected(content, der, 0), ""));
}

TEST_F(CmsMake, SaysWhatIsWrong) {
    const std::string none = dir_.file("none"), empty = dir_.write("empty", ""), no = dir_.write("no", "no"),
                      tooBig(0x1000001, 'b'), big = dir_.write("big", tooBig), sha1(40, 'a'),
                      small = small_key(), ca = test::data_path("x509/ca.pem"),
                      ec = test::data_path("x509/ec.pem");
    const std::string noCert = "Cannot read certificate '",
                      tooLong = "Content is too long (max=16777216 bytes)", noOpen = "Cannot open file ",
                      noHex = "Invalid message digest, perhaps invalid hex", noData = "No data to sign",
                      isEmpty = "OuterContentInfo would be empty",
                      noMatch = "Verification of supplied signature value failed";
    const int detached = ZUL_CMS_EXCLUDE_DATA, only = ZUL_CMS_CERTS_ONLY, without = ZUL_CMS_EXCLUDE_CERTS;
    const struct {
        char maker;
        std::string in, list, key;
        int options, code;
        std::string text; // the end of it
    } cases[] = {
        {'f', "", cert_, key_, 0, BAD_PARAM_ERROR, ""},
        {'f', cert_, "", key_, 0, BAD_PARAM_ERROR, ""},
        {'f', cert_, cert_, "", 0, BAD_PARAM_ERROR, ""},
        {'t', "", cert_, key_, 0, BAD_PARAM_ERROR, ""},
        {'d', "", cert_, key_, 0, BAD_PARAM_ERROR, ""},
        {'v', "", cert_, "", 0, BAD_PARAM_ERROR, ""},
        {'t', "x", "", key_, only, BAD_PARAM_ERROR, ""},
        {'t', "x", " ", key_, 0, BAD_PARAM_ERROR, "Error parsing certificate list"},
        {'f', none, cert_, key_, 7, OPEN_ERROR, noOpen + none},
        {'f', dir_.path(), cert_, key_, detached, OPEN_ERROR, noOpen + dir_.path()},
        {'f', empty, cert_, key_, 7, NO_DATA_ERROR, noData},
        {'f', empty, cert_, key_, detached, NO_DATA_ERROR, noData},
        {'f', cert_, cert_, key_, 7, BAD_FLAG_ERROR, ""},
        {'d', sha1, cert_, key_, 15, BAD_FLAG_ERROR, ""},
        {'f', big, cert_, key_, 0, MSG_TOO_LONG_ERROR, tooLong},
        {'t', tooBig, cert_, key_, 0, MSG_TOO_LONG_ERROR, tooLong},
        {'d', "xyz", cert_, key_, 0, INVALID_DATA_ERROR, noHex},
        {'d', std::string(130, 'a'), cert_, key_, 5, INVALID_DATA_ERROR, noHex},
        {'d', sha1, cert_, key_, 3, BAD_LENGTH_ERROR, "Message digest is not the correct length"},
        {'f', cert_, cert_, "key", 0, INVALID_DATA_ERROR, "Invalid Private Key"},
        {'f', cert_, cert_, small, 0, SIGNATURE_ERROR, "RSA encryption failed"},
        {'t', "x", none, key_, 0, OPEN_ERROR, noCert + none + "'"},
        {'t', "x", cert_ + ";" + no, key_, 0, OPEN_ERROR, noCert + no + "'"},
        {'t', "x", ";" + cert_, key_, 0, OPEN_ERROR, noCert + "'"}, // nobody signs
        {'t', "x", none, key_, without, INVALID_DATA_ERROR, noCert + none + "'"},
        {'v', "y", cert_, "", 0, SIGNATURE_ERROR, noMatch},
        {'v', "x", ca, "", 0, SIGNATURE_ERROR, noMatch},
        {'v', "x", ec, "", 0, SIGNATURE_ERROR, "Cannot read RSA public key of first certificate"},
        {'t', "", cert_ + ";" + none, "", only, OPEN_ERROR, noCert + none + "'"},
        {'t', "", ";;", "", only, NO_DATA_ERROR, isEmpty},
        {'t', "", cert_, "", only | without, NO_DATA_ERROR, isEmpty},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.maker << " " << c.code << " " << c.text);
        EXPECT_RESULT(make(c.maker, c.in, c.list, c.key, c.options), c.code);
        EXPECT_TRUE(c.text.empty() ? last_error().empty() : last_error().ends_with(c.text)) << last_error();
        EXPECT_FALSE(test::file_exists(out_));
    }
    EXPECT_FAILURE(CMS_MakeSigDataFromString(dir_.path().c_str(), "x", cert_.c_str(), key_.c_str(), 0),
                   CREATE_ERROR, "Cannot create file " + dir_.path());
}
