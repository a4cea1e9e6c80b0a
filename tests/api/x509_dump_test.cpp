#include <algorithm>
#include <sstream>

#include "support/module_calls.h"

using test::Bytes;
using test::der_of;
using test::last_error;

namespace {

struct Object {
    std::string name, pem, dump;
};

class X509Dump : public testing::Test {
  protected:
    void SetUp() override {
        std::istringstream lines(test::read_text(test::data_path("x509_dump/dumps.txt")));
        bool isDump = false;
        for (std::string line; std::getline(lines, line);) {
            if (line.starts_with("===") && line != "=== dump")
                objects.push_back({line.substr(4), "", ""});
            if (line.starts_with("===")) {
                isDump = line == "=== dump";
                continue;
            }
            (isDump ? objects.back().dump : objects.back().pem) += line + '\n';
        }
        ASSERT_EQ(objects.size(), 9U);
    }

    const Object& object(const std::string& name) const {
        return *std::find_if(objects.begin(), objects.end(), [&](const Object& o) { return o.name == name; });
    }

    Bytes changed(const char* name, const char* fromHex, const char* toHex) const {
        return test::patched(der_of(object(name).pem), fromHex, 0, toHex);
    }

    // dump gives what an argument's dump holds, with the line ends of this platform as "\n".
    std::string dump(const std::string& fileOrText, int result = 0) const {
        const std::string path = dir.write("dump", std::string("what was there before"));
        EXPECT_RESULT(X509_TextDump(path.c_str(), fileOrText.c_str(), 0), -result);
        std::string text = test::read_text(path);
#ifdef _WIN32
        const auto lines = std::count(text.begin(), text.end(), '\n');
        EXPECT_EQ(std::erase(text, '\r'), static_cast<size_t>(lines));
#endif
        return text;
    }

    std::vector<Object> objects;
    test::TempDir dir;
};

// upto gives the beginning of a text up to a word, the word's line left out.
std::string upto(const std::string& text, const char* word) {
    return text.substr(0, text.find(word));
}

} // namespace

TEST_F(X509Dump, WritesEveryLayout) {
    for (const Object& o : objects) {
        SCOPED_TRACE(o.name);
        const int result = o.name == "ec" ? BAD_FORMAT_ERROR : 0;
        EXPECT_EQ(dump(o.pem, result), o.dump);
        EXPECT_EQ(dump(dir.write("object", der_of(o.pem)), result), o.dump);
        EXPECT_EQ(last_error(), result != 0 ? "Invalid public key type" : "");
    }
}

TEST_F(X509Dump, StopsAtWhatIsMissing) {
    const struct {
        const char *object, *from, *to;
        int result;
        const char *stopsAt, *text;
    } kCases[] = {
        // no time; an attribute without an OID; an exponent of 0; letters for a time; no BIT STRING
        {"full", "180F 32303930", "040F 32303930", BAD_FORMAT_ERROR, "  NotAfter",
         "Missing time field in cert"},
        {"full", "06035504061302", "04035504061302", BAD_FORMAT_ERROR, "Issuer", ""},
        {"request", "0203010001", "0203000000", BAD_FORMAT_ERROR, "  RSA key length",
         "Unable to convert public key"},
        {"crl", "170D 3230 3032 3239", "170D 5830 3032 3239", BAD_FORMAT_ERROR, "  Revocation Date: 2020",
         ""},
        {"crlempty", "03818100", "04818100", BAD_FORMAT_ERROR, "Signature", "Invalid Signature"},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.from);
        EXPECT_EQ(dump(dir.write("object", changed(c.object, c.from, c.to)), c.result),
                  upto(object(c.object).dump, c.stopsAt));
        EXPECT_NE(last_error().find(c.text), std::string::npos) << last_error();
    }
    EXPECT_EQ(dump(dir.write("object", test::from_hex("3003020101")), BAD_FORMAT_ERROR), "");
    EXPECT_EQ(dump(dir.write("object", std::string("nothing of the kind")), INVALID_DATA_ERROR), "");
    EXPECT_EQ(dump(dir.file("no file"), OPEN_ERROR), "");
}

TEST_F(X509Dump, LeavesOutWhatCannotBeShown) {
    // Zero bytes in an address and a URI, an empty purpose, flags in a segmented string.
    const struct {
        const char *from, *to, *item;
    } kCases[] = {
        {"810E6361406578616D706C652E6F7267", "810E6361006578616D706C652E6F7267",
         "  Subject Alternative Name:\n"},
        {"06082B06010505070301", "04082B06010505070301", "  Extended Key Usage:\n"},
        {"2F63612E63726C", "2F00612E63726C", "  CRL Distribution Points:\n"},
        {"040403020186", "040423020500", "  Key Usage:\n"},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.item);
        std::string expected = upto(object("full").dump, "SHA-1 Thumbprint");
        const size_t at = expected.find(c.item), second = expected.find('\n', at) + 1;
        ASSERT_NE(at, std::string::npos);
        expected.erase(at, expected.find('\n', second) + 1 - at);
        EXPECT_EQ(upto(dump(dir.write("object", changed("full", c.from, c.to))), "SHA-1 Thumbprint"),
                  expected);
        EXPECT_EQ(last_error(), "");
    }
}

TEST_F(X509Dump, ChecksItsFiles) {
    const std::string in = dir.write("object", der_of(objects[0].pem)), out = dir.file("out");
    EXPECT_EQ(X509_TextDump("", in.c_str(), 0), -BAD_PARAM_ERROR);
    EXPECT_EQ(X509_TextDump(nullptr, in.c_str(), 0), -BAD_PARAM_ERROR);
    EXPECT_EQ(X509_TextDump(out.c_str(), "", 0), -BAD_PARAM_ERROR);
    EXPECT_EQ(X509_TextDump(out.c_str(), nullptr, 0), -BAD_PARAM_ERROR);
    EXPECT_FALSE(test::file_exists(out));
    const std::string none = dir.file("no folder/out");
    EXPECT_FAILURE(X509_TextDump(none.c_str(), dir.file("no file").c_str(), 0), -CREATE_ERROR,
                   "Cannot create file '" + none + "'");
    // A certificate is not lost to its own dump.
    EXPECT_EQ(X509_TextDump(in.c_str(), in.c_str(), 0), -CREATE_ERROR);
    EXPECT_EQ(test::read_file(in), der_of(objects[0].pem));
}
