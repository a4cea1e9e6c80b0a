#include <algorithm>
#include <map>
#include <random>
#include <sstream>

#include "support/der_bytes.h"
#include "support/module_calls.h"

using test::base64;
using test::Bytes, test::element;
using test::last_error;
using test::operator+;

namespace {

std::string data_file(const char* name) {
    return test::data_path(std::string("x509_path/") + name);
}

class X509Path : public testing::Test {
  protected:
    void SetUp() override {
        std::istringstream lines(test::read_text(data_file("certs.txt")));
        std::string name, line;
        while (std::getline(lines, line)) {
            if (line.starts_with("name "))
                name = line.substr(5);
            else
                pem[name] += line + "\n";
        }
        ASSERT_EQ(pem.size(), 33U);
    }

    Bytes der(const std::string& name) const { return test::der_of(pem.at(name)); }

    // The items of a list are names of certificates, each of which is handed over as text.
    std::string item(const std::string& name) const {
        if (name == "damaged2") {
            Bytes bytes = der("c2");
            bytes.back() ^= 1;
            return base64(bytes);
        }
        if (name == "notime") {
            const std::string date = "000101000000Z";
            Bytes bytes = der("c2");
            const auto at = std::search(bytes.begin(), bytes.end(), date.begin(), date.end());
            *at = 'x';
            return base64(bytes);
        }
        const auto found = pem.find(name);
        return found == pem.end() ? name : name.back() == '2' ? base64(der(name)) : found->second;
    }

    std::string list(const std::string& names) const {
        std::string result;
        std::istringstream stream(names);
        for (std::string name; std::getline(stream, name, ';');)
            result += item(name) + ";";
        if (names.back() != ';')
            result.pop_back();
        return result;
    }

    std::map<std::string, std::string> pem;
    test::TempDir dir;
};

std::string chain(int first, int last) {
    std::string names;
    for (int i = first; i <= last; i++)
        names += (names.empty() ? "c" : ";c") + std::to_string(i);
    return names;
}

} // namespace

TEST_F(X509Path, FindsAPathOrSaysWhatIsWrong) {
    const std::string breaks = "breaks the chain";
    const struct {
        std::string list;
        const char* trusted;
        int options, result;
        std::string text;
    } kCases[] = {
        {"c1", "", 0, 0, ""},
        {"c1", "c1", 0, 0, ""},
        {"c2", "c1", 0, 0, ""},
        {"c1;", "", 0, 0, ""},
        {"c2; ;\n;c1;;", "", 0, 0, ""},
        {"c3;c2", "c1", 0, 0, ""},
        {"c3;c2;c1", "c1", 0, 0, ""},
        {"c4;c3", "c2", 0, 0, ""}, // an intermediate one may be trusted
        {"c1;c1;c2", "", 0, 0, ""},
        {"c3;cross2", "root2", 0, 0, ""},
        {"cross2;root2;c3", "", 0, 0, ""},
        {chain(1, 25), "", 0, 0, ""}, // only 20 are read
        {"c3;c2", "", 0, ISSUER_ERROR, "Cannot find a self-signed certificate"},
        {"c2;c3", "root2", 0, NO_MATCH_ERROR, "Trusted certificate does not have a match"},
        {"c1;c2", "root2", 0, NO_MATCH_ERROR, "Trusted certificate does not have a match"},
        {"c2;c3;c4", "c2", 0, NO_MATCH_ERROR, breaks}, // the trusted one itself has no place
        {"c1;c2;c4", "", 0, NO_MATCH_ERROR, breaks},
        {"c1;c2;c2", "", 0, NO_MATCH_ERROR, breaks},
        {"c1;c2;cross2;c3", "", 0, NO_MATCH_ERROR, breaks}, // the first one of a name is taken
        {"c1;rekeyed2;c3", "", 0, SIGNATURE_ERROR, "Signature did not verify"},
        {"cross2;c3", "c1", 0, NO_MATCH_ERROR, "Trusted certificate does not have a match"},
        {"impostor1;c2", "", 0, SIGNATURE_ERROR, "Signature did not verify"},
        {"impostor1;c2", "c1", 0, SIGNATURE_ERROR, "Signature did not verify"},
        {"c1;impostor1;c2", "", 0, SIGNATURE_ERROR, "Signature did not verify"},
        {"c1;damaged2;c3", "", 0, SIGNATURE_ERROR, "Signature did not verify"},
        {"c1;c3;damaged2", "c1", 0, SIGNATURE_ERROR, "Signature did not verify"},
        {"loopA;loopB", "", 0, ISSUER_ERROR, "Cannot find a self-signed certificate"},
        {"loopA;loopB", "loopA", 0, 0, ""}, // in the order B, A
        {"c1;c3;expired2", "", 0, EXPIRED_ERROR, "Certificate [3] has expired"},
        {"c1;c3;expired2", "", 1, 0, ""},
        {"c1;future2", "", 0, EXPIRED_ERROR, "Certificate [2] has expired"},
        {"c3", "expired2", 0, EXPIRED_ERROR, "Trusted certificate has expired"},
        {"c3", "expired2", -1, 0, ""},
        {"expired2;no file", "", 0, EXPIRED_ERROR, "Certificate [1] has expired"},
        {"c1;notime", "", 0, BAD_FORMAT_ERROR, "Missing time field in cert"},
        {"c1;notime", "", 1, SIGNATURE_ERROR, "Signature did not verify"},
        {"c1;no file", "", 0, INVALID_DATA_ERROR, "Certificate [2] is invalid"},
        {";; ;", "", 0, NO_DATA_ERROR, "No certs found"},
        {"no file", "", 0, NO_DATA_ERROR, "Unable to open file 'no file'; No certs found"},
        {data_file("make.sh"), "", 0, NO_DATA_ERROR, "Invalid ASN.1 data; No certs found"},
        {"c1", "no file", 0, OPEN_ERROR, "Trusted certificate is no good"},
        {"", "c1", 0, BAD_PARAM_ERROR, ""},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.list + " / " + c.trusted);
        const std::string all = c.list.empty() ? "" : list(c.list);
        EXPECT_RESULT(X509_ValidatePath(all.c_str(), item(c.trusted).c_str(), c.options), -c.result);
        EXPECT_TRUE(c.result == 0 ? last_error().empty() : last_error().ends_with(c.text)) << last_error();
    }
    EXPECT_EQ(X509_ValidatePath(nullptr, nullptr, 0), -BAD_PARAM_ERROR);
    EXPECT_EQ(X509_ValidatePath((" " + base64(der("c1")) + "\t; " + dir.write("c2", der("c2")) + " ").c_str(),
                                nullptr, 0),
              0);
    char thumb[41] = "";
    X509_CertThumb(item("c1").c_str(), thumb, 40, 0);
    EXPECT_FAILURE(X509_ValidatePath(list("c1;c3").c_str(), nullptr, 0), -NO_MATCH_ERROR,
                   std::string("Certificate [SHA-1=") + thumb + "] breaks the chain");
}

TEST_F(X509Path, OrdersFilesInAnyOrder) {
    std::vector<std::string> files;
    for (int i = 1; i <= 20; i++)
        files.push_back(dir.write("c" + std::to_string(i), der("c" + std::to_string(i))));
    std::mt19937 random(1);
    for (int round = 0; round < 4; round++) {
        std::shuffle(files.begin(), files.end(), random);
        std::string all;
        for (const std::string& file : files)
            all += file + ";";
        EXPECT_RESULT(X509_ValidatePath(all.c_str(), nullptr, 0), 0);
        EXPECT_RESULT(X509_ValidatePath(all.c_str(), pem.at("c1").c_str(), 0), 0);
        EXPECT_EQ(X509_ValidatePath(all.c_str(), pem.at("root2").c_str(), 0), -NO_MATCH_ERROR);
    }
}

TEST_F(X509Path, ReadsBundles) {
    const std::string chain25 = data_file("chain25.p7b"), text25 = test::read_text(chain25);
    for (const std::string& bundle : {chain25, text25}) {
        EXPECT_FAILURE(X509_ValidatePath(bundle.c_str(), nullptr, 0), -OUT_OF_RANGE_ERROR,
                       "Too many certificates (max=20)");
    }
    // A bundle is no item of a list.
    EXPECT_EQ(X509_ValidatePath((chain25 + ";").c_str(), nullptr, 0), -INVALID_DATA_ERROR);

    const Bytes signedData = test::read_file(data_file("signed.der"));
    for (const std::string& bundle : {data_file("signed.der"), base64(signedData)}) {
        EXPECT_RESULT(X509_ValidatePath(bundle.c_str(), nullptr, 0), 0);
        EXPECT_RESULT(X509_ValidatePath(bundle.c_str(), pem.at("c1").c_str(), 0), 0);
        EXPECT_EQ(X509_ValidatePath(bundle.c_str(), pem.at("root2").c_str(), 0), -NO_MATCH_ERROR);
    }
    // Without its ContentInfo it serves as well; cut off anywhere it is no path, whatever is left.
    const Bytes bare(signedData.begin() + 15, signedData.end());
    EXPECT_RESULT(X509_ValidatePath(dir.write("bare", bare).c_str(), nullptr, 0), 0);
    const Bytes c1 = der("c1");
    const auto set = std::search(signedData.begin(), signedData.end(), c1.begin(), c1.end());
    ASSERT_NE(set, signedData.end());
    for (size_t size = 1; size < static_cast<size_t>(set - signedData.begin()) + c1.size(); size += 97) {
        const std::string cut = dir.write("cut", signedData.data(), size);
        EXPECT_LT(X509_ValidatePath(cut.c_str(), nullptr, 0), 0) << size;
    }

    const struct {
        const char* der;
        int result;
    } kSmall[] = {
        // no set; a set with an attribute certificate alone; one with a SEQUENCE that is no certificate
        {"301C06092A864886F70D010702A00F300D0201013100300406022A033100", NO_DATA_ERROR},
        {"302506092A864886F70D010702A01830160201013100300406022A03A007A10530030201013100", NO_DATA_ERROR},
        {"308006092A864886F70D010702A08030800201013100308006022A030000A0803080020101000000003100000000000000",
         INVALID_DATA_ERROR},
        // an element longer than the set; a marker in a set that has a length; another type of content
        {"302306092A864886F70D010702A01630140201013100300406022A03A00530050201013100", NO_DATA_ERROR},
        {"302506092A864886F70D010702A01830160201013100300406022A03A007300302010100003100", NO_DATA_ERROR},
        {"302306092A864886F70D010703A01630140201013100300406022A03A00530030201013100", NO_DATA_ERROR},
    };
    for (const auto& s : kSmall) {
        const std::string path = dir.write("small", test::from_hex(s.der));
        EXPECT_EQ(X509_ValidatePath(path.c_str(), nullptr, 0), -s.result) << s.der;
    }
}

// At most 20 certificates, all together at most 8 MiB: a list of elements takes many times their size in
// memory.
TEST_F(X509Path, LimitsBundles) {
    const auto bundle = [&](const Bytes& certificates) {
        return dir.write("bundle", element(0x30, test::from_hex("0201013100300406022A03") +
                                                     element(0xA0, certificates) + Bytes{0x31, 0}));
    };
    Bytes all;
    for (int i = 1; i <= 21; i++) {
        all = all + der("c" + std::to_string(i));
        EXPECT_EQ(X509_ValidatePath(bundle(all).c_str(), nullptr, 0), i <= 20 ? 0 : -OUT_OF_RANGE_ERROR) << i;
    }
    const Bytes c1 = der("c1");
    for (const bool isAbove : {false, true}) {
        // Each certificate has 4 MiB, with a string behind its signature: it is read, and does not verify.
        const Bytes fields(c1.begin() + 4, c1.end()),
            certificate =
                element(0x30, fields + element(4, Bytes((4U << 20) - fields.size() - 10 + isAbove)));
        ASSERT_EQ(certificate.size(), (4U << 20) + isAbove);
        EXPECT_EQ(X509_ValidatePath(bundle(certificate + certificate).c_str(), nullptr, 1),
                  isAbove ? -INVALID_DATA_ERROR : -BAD_FORMAT_ERROR);
        EXPECT_EQ(last_error().starts_with("Certificate [2] is invalid"), isAbove) << last_error();
    }
}
