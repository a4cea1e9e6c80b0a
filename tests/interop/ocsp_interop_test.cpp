#include <fstream>

#include "interop/x509_interop.h"

// openssl reads our requests, and answers as a responder over an index file.

namespace {

class OcspInterop : public test::X509Interop {
  protected:
    // make_certificates has openssl make ca.pem and certificates of several serial numbers, one of them
    // revoked.
    void make_certificates() const {
        for (const std::string name : {"ca", "responder", "leaf"})
            make_pair(name);
        write("ext", "extendedKeyUsage=OCSPSigning\n");
        run("openssl req -x509 -new -key ca.key -utf8 -subj '/C=AU/O=Exämple Ltd/CN=CA' -days 99 -out "
            "ca.pem");
        std::string index;
        for (const std::string& serial : kSerials) {
            const std::string name = "x" + serial;
            run("openssl req -new -key leaf.key -subj /CN=" + name +
                " -out csr && openssl x509 -req -in csr -CA "
                "ca.pem -CAkey ca.key -days 99 -set_serial 0x" +
                serial + " -out " + name + ".pem");
            index += (serial == kRevoked ? "R\t450101000000Z\t260102030405Z,superseded\t"
                                         : "V\t450101000000Z\t\t") +
                     serial + "\tunknown\t/CN=" + name + "\n";
        }
        run("openssl req -new -key responder.key -subj /CN=Responder -out csr && openssl x509 -req -in csr "
            "-CA "
            "ca.pem -CAkey ca.key -days 99 -extfile ext -set_serial 9 -out responder.pem");
        write("index", index);
    }
    void write(const std::string& name, const std::string& text) const {
        std::ofstream(file(name), std::ios::binary) << text;
    }
    // request writes our request about a certificate to a file as DER.
    void request(const std::string& asked, int digest, const std::string& out) const {
        const std::string cert = asked[0] == '#' ? asked : file(asked);
        std::string text(4000, '\0');
        const int length =
            OCSP_MakeRequest(text.data(), 3999, file("ca.pem").c_str(), cert.c_str(), nullptr, digest);
        ASSERT_GT(length, 0) << asked;
        text.resize(static_cast<size_t>(length));
        write("base64", text);
        run("openssl base64 -d -A -in base64 -out " + out);
    }
    std::string report(const std::string& response, const std::string& issuer) const {
        std::string text(1024, '\0');
        const int length =
            OCSP_ReadResponse(nullptr, 0, file(response).c_str(), file(issuer).c_str(), nullptr, 0);
        EXPECT_GT(length, 0);
        OCSP_ReadResponse(text.data(), 1023, file(response).c_str(), file(issuer).c_str(), nullptr, 0);
        return text.c_str();
    }

    const std::vector<std::string> kSerials = {"01", "7F", "80", "0A3F", std::string(40, 'E')};
    const std::string kRevoked = "0A3F";
};

} // namespace

TEST_F(OcspInterop, AnswersToOurRequests) {
    make_certificates();
    for (const std::string signer : {"ca", "responder"}) {
        for (const char* options : {"", "-resp_key_id -rmd sha512", "-resp_no_certs -rmd sha1"}) {
            for (const std::string& serial :
                 {kSerials[0], kSerials[2], kRevoked, kSerials[4], std::string("0BAD")}) {
                SCOPED_TRACE(signer + " " + options + " " + serial);
                const std::string number = (serial[0] > '7' ? "00" : "") + serial;
                request(serial == "0BAD" ? "#x0BAD" : "x" + serial + ".pem", ZUL_HASH_SHA1, "request");
                run("openssl ocsp -index index -CA ca.pem -rsigner " + signer + ".pem -rkey " + signer +
                    ".key -ndays 1 -reqin request -respout response " + options);
                std::string produced =
                    said("openssl ocsp -respin response -resp_text -noverify | grep Produced | "
                         "sed 's/.*At: //' | date -u -f - +%FT%TZ");
                const std::string status = serial == kRevoked ? "revoked at 2026-01-02T03:04:05Z"
                                           : serial == "0BAD" ? "unknown"
                                                              : "good";
                EXPECT_EQ(report("response", signer + ".pem"), "Successful response:\n Produced at " +
                                                                   produced + " CertStatus=" + status +
                                                                   "\n SerialNumber=" + number);
                const std::string another = signer == "ca" ? "responder.pem" : "ca.pem";
                EXPECT_EQ(OCSP_ReadResponse(nullptr, 0, file("response").c_str(), file(another).c_str(),
                                            nullptr, 0),
                          -SIGNATURE_ERROR);
            }
        }
    }
}
