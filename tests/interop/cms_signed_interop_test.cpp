#include "interop/cms_interop.h"

// Signed messages of ours in openssl's and certtool's hands, and theirs in ours.

namespace {

const struct {
    int option;
    const char* name;
} kDigests[] = {
    {ZUL_HASH_SHA1, "sha1"},     {ZUL_HASH_MD5, "md5"},       {ZUL_HASH_SHA224, "sha224"},
    {ZUL_HASH_SHA256, "sha256"}, {ZUL_HASH_SHA384, "sha384"}, {ZUL_HASH_SHA512, "sha512"},
};

const std::string kOpens = " -verify -noverify -binary -inform DER -out got ", kSame = " && cmp got data",
                  kSigner = " -sign -binary -in data -out sig -signer one.pem -inkey one.key ",
                  kCerttool = "certtool --load-certificate one.pem --load-privkey one.key --infile data "
                              "--outfile sig ";

class CmsSignedInterop : public test::CmsInterop {
  protected:
    CmsSignedInterop() : CmsInterop(CMS_QuerySigData) { make_identity("one", "0x7001"); }

    int sign(int options) const {
        return CMS_MakeSigData(file("sig").c_str(), file("data").c_str(), file("one.pem").c_str(),
                               key("one").c_str(), options);
    }
    int check(const std::string& message, const std::string& cert, const std::string& digest = "") const {
        return CMS_VerifySigData(file(message).c_str(), path(cert).c_str(), digest.c_str(), 0);
    }
    std::string signed_digest(const std::string& message, const std::string& cert) const {
        std::string out(128, '\0');
        out.resize(static_cast<size_t>(std::max(
            CMS_GetSigDataDigest(out.data(), 128, file(message).c_str(), path(cert).c_str(), 0), 0)));
        return out;
    }
    // reads checks the content of a message, which is data.
    void reads(const std::string& message) const {
        EXPECT_EQ(CMS_ReadSigData(file("got").c_str(), file(message).c_str(), 0),
                  static_cast<int>(read("data").size()));
        EXPECT_EQ(read("got"), read("data"));
    }
    std::string digest_of_data(const std::string& digest) const {
        return said("openssl dgst -r -" + digest + " data | cut -d' ' -f1 | tr -d '\\n'");
    }
};

} // namespace

TEST_F(CmsSignedInterop, OursEveryDigestAndForm) {
    make_data(1000);
    const int some = ZUL_CMS_INCLUDE_ATTRS, all = some | ZUL_CMS_ADD_SIGNTIME | ZUL_CMS_ADD_SMIMECAPS;
    const struct {
        int options;
        std::string more;
    } forms[] = {
        {0, ""},
        {some, ""},
        {all | ZUL_CMS_FORMAT_BASE64, ""},
        {ZUL_CMS_EXCLUDE_DATA, "-content data"},
        {all | ZUL_CMS_EXCLUDE_DATA | ZUL_CMS_EXCLUDE_CERTS, "-content data -certfile one.pem"},
        {ZUL_CMS_EXCLUDE_CERTS | ZUL_CMS_FORMAT_BASE64, "-certfile one.pem"},
        {ZUL_CMS_NAMED_SIGALG, ""},
        {all | ZUL_CMS_NAMED_SIGALG, ""},
    };
    const std::string armour = "{ echo -----BEGIN PKCS7-----; cat sig; echo -----END PKCS7-----; }";
    for (const auto& digest : kDigests)
        for (const auto& form : forms) {
            SCOPED_TRACE(testing::Message() << digest.name << std::hex << " " << form.options);
            const bool detached = (form.options & ZUL_CMS_EXCLUDE_DATA) != 0;
            done(sign(digest.option | form.options));
            run(((form.options & ZUL_CMS_FORMAT_BASE64) == 0
                     ? "cp sig der && "
                     : armour + " | openssl pkcs7 -outform DER -out der && ") +
                "openssl cms" + kOpens + "-in der " + form.more + kSame);
            if (digest.option == ZUL_HASH_SHA256) {
                run("openssl smime" + kOpens + "-in der " + form.more + kSame);
                if ((form.options & ZUL_CMS_NAMED_SIGALG) == 0)
                    run(std::string("certtool --p7-verify --inder --load-certificate one.pem --infile der ") +
                        (detached ? "--load-data data" : ""));
            }
            EXPECT_EQ(check("sig", "one.pem", detached ? digest_of_data(digest.name) : ""), 0);
        }
}

TEST_F(CmsSignedInterop, TheirsEveryDigestAndForm) {
    make_identity("two", "0x80");
    make_data(3000); // several segments
    const struct {
        std::string command; // without the digest's name at its end
        int content, attributes, certs, signers;
    } forms[] = {
        {"openssl cms" + kSigner + "-nodetach -outform DER -md ", 1, 1, 1, 1},
        {"openssl cms" + kSigner + "-nodetach -outform PEM -noattr -md ", 1, 0, 1, 1},
        {"openssl cms" + kSigner + "-nodetach -outform DER -stream -nosmimecap -md ", 1, 1, 1, 1},
        {"openssl cms" + kSigner + "-nodetach -outform PEM -indef -noattr -nocerts -md ", 1, 0, 0, 1},
        {"openssl cms" + kSigner + "-outform DER -signer two.pem -inkey two.key -md ", 0, 1, 2, 2},
        {"openssl cms" + kSigner + "-nodetach -outform DER -certfile two.pem -noattr -md ", 1, 0, 2, 1},
        {"openssl smime" + kSigner + "-nodetach -outform DER -md ", 1, 1, 1, 1},
        {"openssl smime" + kSigner + "-outform PEM -nocerts -md ", 0, 1, 0, 1},
        {"openssl smime" + kSigner + "-nodetach -outform PEM -indef -noattr -md ", 1, 0, 1, 1},
        {kCerttool + "--p7-sign --outder --hash ", 1, 0, 1, 1},
        {kCerttool + "--p7-sign --p7-time --no-p7-include-cert --hash ", 1, 1, 0, 1},
        {kCerttool + "--p7-detached-sign --p7-time --hash ", 0, 1, 1, 1},
    };
    for (const auto& digest : kDigests)
        for (const auto& form : forms) {
            SCOPED_TRACE(form.command + digest.name);
            run(form.command + digest.name);
            const std::string hex = digest_of_data(digest.name), given = form.content != 0 ? "" : hex;
            EXPECT_EQ(check("sig", "one.pem", hex), 0);
            EXPECT_EQ(check("sig", "one.pem", (hex[0] == '0' ? "1" : "0") + hex.substr(1)), SIGNATURE_ERROR);
            EXPECT_EQ(check("sig", "", given), form.certs != 0 ? 0 : NO_MATCH_ERROR);
            EXPECT_EQ(check("sig", "two.pem", given), form.signers == 2 ? 0 : NO_MATCH_ERROR);
            EXPECT_EQ(signed_digest("sig", "one.pem"), hex);
            if (form.content != 0)
                reads("sig");
            EXPECT_EQ(number("sig", "HASeContent"), form.content);
            EXPECT_EQ(number("sig", "CountOfCerts"), form.certs);
            EXPECT_EQ(number("sig", "CountOfSigners"), form.signers);
            EXPECT_EQ(number("sig", "HASsignedAttrs"), form.attributes);
            EXPECT_EQ(text("sig", "digestAlgorithm"), digest.name);
            EXPECT_EQ(text("sig", "messageDigest"), form.attributes != 0 ? hex : "");
        }
    run("openssl cms" + kSigner +
        "-nodetach -outform DER && openssl asn1parse -inform DER -in sig -noout "
        "-strparse 19 -out bare"); // without ContentInfo
    EXPECT_EQ(check("bare", ""), 0);
    reads("bare");
}

TEST_F(CmsSignedInterop, Sizes) {
    const std::string theirs = "openssl cms" + kSigner + "-nodetach -outform DER ";
    for (const size_t size : {size_t{0}, size_t{1}, size_t{64}, test::kLargestContent - 1}) {
        SCOPED_TRACE(size);
        make_data(size);
        if (size == 0) {
            fails(sign(0), NO_DATA_ERROR, "sig");
        } else {
            done(sign(ZUL_HASH_SHA256));
            run("openssl cms" + kOpens + "-in sig" + kSame);
        }
        run(theirs);
        EXPECT_EQ(check("sig", ""), 0);
        reads("sig");
    }
    make_data(test::kLargestContent + 1);
    run("rm sig");
    fails(sign(0), MSG_TOO_LONG_ERROR, "sig");
    run(theirs + "&& rm got"); // in one piece
    EXPECT_EQ(check("sig", ""), MSG_TOO_LONG_ERROR);
    fails(CMS_ReadSigData(file("got").c_str(), file("sig").c_str(), 0), -MSG_TOO_LONG_ERROR, "got");
    run(theirs + "-stream"); // in segments
    EXPECT_EQ(check("sig", ""), 0);
    reads("sig");
}
