#include "support/key_calls.h"

using namespace test;

namespace {

class CertCrl : public testing::Test {
  protected:
    int issue(const std::string& earlier, const std::string& revoked, const std::string& description = "",
              int options = 0) const {
        return CERT_IssueCRL(out_.c_str(), root_.c_str(), rootKey().c_str(), earlier.c_str(), revoked.c_str(),
                             description.c_str(), options);
    }
    std::string made() const { return read_text(out_); }
    std::string list(const std::string& earlier, const std::string& revoked,
                     const std::string& description = "") const {
        EXPECT_RESULT(issue(earlier, revoked, description), 0);
        return made();
    }
    std::string certificate(const std::string& key, const std::string& description) const {
        EXPECT_RESULT(CERT_SelfSign(out_.c_str(), key.c_str(), description.c_str(), 0), 0);
        return made();
    }
    std::string leaf(const std::string& description) const {
        EXPECT_RESULT(CERT_Issue(out_.c_str(), root_.c_str(), rootKey().c_str(), rootKey().c_str(),
                                 description.c_str(), 0),
                      0);
        return made();
    }
    static bool holds(const std::string& crl, const std::string& hex) {
        return to_hex(der_of(crl)).find(hex) != std::string::npos;
    }
    static const std::string& rootKey() { return kept_key("ed25519"); }

    const TempDir dir_;
    const std::string out_ = dir_.file("out.pem");
    const std::string root_ = certificate(rootKey(), "CN=Root;profile=ca");
    const std::string first_ =
        list("", "serial=01,reason=keyCompromise;serial=02,reason=certificateHold,date=2024-05-06;serial=03",
             "number=255;thisUpdate=2025-01-01");
    const std::string delta_ = list(first_, "serial=04;serial=02,reason=removeFromCRL", "delta");
};

} // namespace

TEST_F(CertCrl, RefusesWhatIsWrongByName) {
    const std::string other = "cert='" + certificate(rootKey(), "CN=Other") + "'", none,
                      own = "cert='" + leaf("CN=Leaf") + "'",
                      last = list("", "", "number=0x7F" + std::string(38, 'f')),
                      point = list("", "", "idp=http://a.example/;onlyUser"),
                      unknown = list("", "", "extension=1.2.3:critical:0500");
    std::string damaged = first_;
    damaged[damaged.size() / 2] ^= 1;
    const struct {
        const std::string &earlier, revoked, description;
        int code;
        const char* text; // a part of it
    } rows[] = {
        {none, "", "numbr=1", BAD_PARAM_ERROR, "in 'numbr=1'"},
        {none, "", "number=1F", BAD_PARAM_ERROR, "Not a number"},
        {none, "", "number=-1", BAD_PARAM_ERROR, "Not a number"},
        {none, "", "number=0x80" + std::string(38, '0'), BAD_PARAM_ERROR, "20 octets"},
        {none, "", "number=" + std::string(48, '9'), BAD_PARAM_ERROR, "20 octets"},
        {none, "", "days=1;valid=1d", BAD_PARAM_ERROR, "already"},
        {none, "", "days=1;nextUpdate=2099-01-01", BAD_PARAM_ERROR, "twice"},
        {none, "", "days=0", BAD_PARAM_ERROR, "span"},
        {none, "", "thisUpdate=2024-01-02;nextUpdate=2024-01-02", BAD_PARAM_ERROR, "not after"},
        {none, "", "onlyUser;onlyCA", BAD_PARAM_ERROR, "one at most"},
        {none, "", "onlyReasons=unspecified", BAD_PARAM_ERROR, "this reason"},
        {none, "", "idp=ftp", BAD_PARAM_ERROR, "URI"},
        {none, "", "extension=2.5.29.20:020101", BAD_PARAM_ERROR, "keywords of its own"},
        {none, "", "extension=2.5.29.35:0500", BAD_PARAM_ERROR, "keywords of its own"},
        {none, "", "deltaFrom=7;number=7", BAD_PARAM_ERROR, "base"},
        {none, "", "deltaFrom=7;freshestCrl=http://a.example/", BAD_PARAM_ERROR, "freshestCrl"},
        {none, "", "delta", BAD_PARAM_ERROR, "deltaFrom"},
        {none, "", "dropBefore=2024-01-01", BAD_PARAM_ERROR, "earlier"},
        {first_, "", "deltaFrom=1", BAD_PARAM_ERROR, "without an earlier"},
        {first_, "", "delta;dropBefore=2024-01-01", BAD_PARAM_ERROR, "drops nothing"},
        {first_, "", "number=255", BAD_PARAM_ERROR, "not above"},
        {first_, "", "thisUpdate=2024-12-31", BAD_PARAM_ERROR, "before that of the earlier"},
        {first_, "", "onlyUser", BAD_PARAM_ERROR, "another than that"},
        {point, "", "idp=http://a.example/", BAD_PARAM_ERROR, "another than that"},
        {last, "", "", BAD_PARAM_ERROR, "No number follows"},
        {delta_, "", "", BAD_PARAM_ERROR, "delta list"},
        {root_, "", "", BAD_FORMAT_ERROR, "Not a CRL"},
        {damaged, "", "", SIGNATURE_ERROR, "in the earlier list"},
        {unknown, "", "", NOT_SUPPORTED_ERROR, "critical"},
        // entries
        {none, "serial=1;reason=superseded", "", BAD_PARAM_ERROR, "in entry 2"},
        {none, "serial", "", BAD_PARAM_ERROR, "keyword=value"},
        {none, "serial=1,", "", BAD_PARAM_ERROR, "keyword=value"},
        {none, "serial=", "", BAD_PARAM_ERROR, "empty value"},
        {none, "serial=12x", "", BAD_PARAM_ERROR, "in 'serial=12x'; in entry 1"},
        {none, "serial='1", "", BAD_PARAM_ERROR, "closing quote"},
        {none, "serial='1'2", "", BAD_PARAM_ERROR, "behind the closing quote"},
        {none, "serial=80" + std::string(38, '0'), "", BAD_PARAM_ERROR, "20 bytes"},
        {none, "serial=1,serial=2", "", BAD_PARAM_ERROR, "twice"},
        {none, "serial=1,why=2", "", BAD_PARAM_ERROR, "Unknown keyword"},
        {none, "serial=1,reason=compromise", "", BAD_PARAM_ERROR, "Not a reason"},
        {none, "serial=1,date=2026-02-30", "", BAD_PARAM_ERROR, "Not a date"},
        {none, "serial=1,date=2025-01-02", "thisUpdate=2025-01-01", BAD_PARAM_ERROR, "after"},
        {none, "serial=1,issuer='CN=X'", "", BAD_PARAM_ERROR, "indirect"},
        {none, own + ",serial=1", "", BAD_PARAM_ERROR, "itself"},
        {none, own + ",issuer='CN=X'", "indirect", BAD_PARAM_ERROR, "itself"},
        {none, own, "onlyCA", BAD_PARAM_ERROR, "another kind"},
        {none, own, "onlyAttribute", BAD_PARAM_ERROR, "another kind"},
        {none, "cert='" + root_ + "'", "onlyUser", BAD_PARAM_ERROR, "another kind"},
        {none, other, "", NO_MATCH_ERROR, "another issuer"},
        {none, "serial=1", "onlyReasons=keyCompromise", BAD_PARAM_ERROR, "other reasons"},
        {none, "serial=1,reason=aACompromise", "onlyReasons=cACompromise", BAD_PARAM_ERROR, "other reasons"},
        {none, "serial=10;serial=11;serial=0010", "", DUP_ERROR, "number 10 is given twice"},
        {none, "serial=1;serial=1,issuer='CN=rOOt'", "indirect", DUP_ERROR, "twice"},
        {none, "serial=1,reason=removeFromCRL", "", BAD_PARAM_ERROR, "complete"},
        {first_, "serial=1", "", DUP_ERROR, "number 01 is in the earlier list"},
        {first_, "serial=2,reason=certificateHold", "", DUP_ERROR, "number 02"},
        {first_, "serial=1,reason=removeFromCRL", "", NO_MATCH_ERROR, "not on hold"},
        {first_, "serial=9,reason=removeFromCRL", "", NO_MATCH_ERROR, "not in the earlier list"},
        {first_, "serial=3,reason=superseded", "delta", DUP_ERROR, "number 03"},
        {first_, "serial=3,reason=removeFromCRL", "delta", NO_MATCH_ERROR, "not on hold"},
        {first_, "serial=9,reason=removeFromCRL", "delta", NO_MATCH_ERROR, "not in the earlier list"},
        {delta_, "serial=4,reason=removeFromCRL", "delta", NO_MATCH_ERROR, "not on hold"},
        {delta_, "serial=2,reason=removeFromCRL", "delta", DUP_ERROR, "number 02"},
        {delta_, "serial=9,reason=removeFromCRL", "delta", 0, ""},
    };
    std::string many = "serial=1,issuer='CN=a3'";
    for (int i = 0; i < 100; i++)
        many += ";serial=1,issuer='CN=A" + std::to_string(i) + "'";
    EXPECT_RESULT(issue("", many, "indirect"), DUP_ERROR);
    EXPECT_EQ(issue("", many.substr(many.find(';') + 1), "indirect"), 0) << last_error();
    for (const auto& row : rows)
        EXPECT_FAILURE_WITH(issue(row.earlier, row.revoked, row.description), row.code, row.text)
            << row.revoked << " | " << row.description;
    EXPECT_RESULT(issue("", "", "", 2), BAD_FLAG_ERROR);
}

TEST_F(CertCrl, IssuersThatMayNotSign) {
    const std::string key = make_key("p-256"),
                      noCrls = certificate(rootKey(), "CN=X;ca;keyUsage=keyCertSign"),
                      foreign = certificate(key, "CN=Root;profile=ca");
    const auto by = [&](const std::string& issuer, const std::string& signer) {
        return CERT_IssueCRL(out_.c_str(), issuer.c_str(), signer.c_str(), nullptr, nullptr, nullptr, 0);
    };
    EXPECT_RESULT(by(noCrls, rootKey()), ISSUER_ERROR);
    EXPECT_RESULT(by(foreign, rootKey()), NO_MATCH_ERROR);
    EXPECT_RESULT(by("", rootKey()), BAD_PARAM_ERROR);
    // The earlier list is by another key of that name, or by another name of that key.
    const std::string renamed = certificate(rootKey(), "CN=Other;profile=ca");
    EXPECT_RESULT(CERT_IssueCRL(out_.c_str(), foreign.c_str(), key.c_str(), first_.c_str(), "", "", 0),
                  SIGNATURE_ERROR);
    EXPECT_RESULT(CERT_IssueCRL(out_.c_str(), renamed.c_str(), rootKey().c_str(), first_.c_str(), "", "", 0),
                  NO_MATCH_ERROR);
    // A failure leaves the old file.
    dir_.write("out.pem", "old");
    EXPECT_EQ(issue("", "serial=x"), BAD_PARAM_ERROR);
    EXPECT_EQ(made(), "old");
    dir_.write("out.pem", root_);
    EXPECT_EQ(by(out_, rootKey()), CREATE_ERROR);
    EXPECT_EQ(made(), root_);
}

// The fields are those that RFC 5280 prescribes, in hex.
TEST_F(CertCrl, EncodesWhatIsPrescribed) {
    const std::string hold = "020102170d3234303530363030303030305a", // serial 2, 6 May 2024
        number256 = "0603551d140404"
                    "02020100";
    std::string grown = list(first_, "serial=02,reason=superseded");
    EXPECT_TRUE(holds(grown, "3020" + hold + "300c300a0603551d1504030a0104"));
    EXPECT_TRUE(holds(grown, number256));
    grown = list(first_, "serial=02,reason=removeFromCRL;serial=0", "dropBefore=2000-01-01");
    EXPECT_FALSE(holds(grown, hold));
    EXPECT_TRUE(holds(grown, "020100170d"));
    EXPECT_TRUE(holds(delta_, "0603551d1b0101ff0404020200ff")); // the base is number 255
    EXPECT_TRUE(holds(delta_, "300c300a0603551d1504030a0108"));
    // No empty revokedCertificates, times of 2050 and later as GeneralizedTime
    grown = list("", "", "thisUpdate=2049-12-31;valid=24h");
    EXPECT_TRUE(holds(grown, "170d3439313233313030303030305a180f32303530303130313030303030305aa0"));
    EXPECT_TRUE(holds(list("", "serial=1,date=2050-01-01", "thisUpdate=2050-06-01"),
                      "020101180f32303530303130313030303030305a"));
    // An entry names its issuer once the one before it, which did, is dropped.
    grown =
        list("", "serial=1,issuer='CN=X',date=2024-01-01;serial=2,issuer='CN=X',date=2024-06-01", "indirect");
    EXPECT_FALSE(holds(grown, "020102170d3234303630313030303030305a30"));
    grown = list(grown, "", "dropBefore=2024-03-01;indirect");
    EXPECT_TRUE(holds(grown, "020102170d3234303630313030303030305a301e301c0603551d1d0101ff0412"
                             "3010a40e300c310a300806035504030c0158"));
    EXPECT_TRUE(holds(list("", "", "caIssuers=http://a/"),
                      "06082b0601050507010104193017301506082b060105050730028609687474703a2f2f612f"));
    // ReasonFlags without zero bits at the end
    EXPECT_TRUE(holds(list("", "", "onlyReasons=certificateHold,keyCompromise"), "30048302"
                                                                                 "0142"));
    EXPECT_TRUE(holds(list("", "", "onlyReasons=aACompromise;onlyCA"), "30088201ff8303070080"));
}
