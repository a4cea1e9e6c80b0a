#include <cstdlib>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "support/temp_dir.h"
#include "zulcore.h"

// The peers are the programs openssl and certtool.

namespace {

using Bytes = std::vector<uint8_t>;

class EncodeInterop : public testing::Test {
  protected:
    void run(const std::string& command) const {
        ASSERT_EQ(std::system(("cd '" + dir.path() + "' && " + command + " >log 2>&1").c_str()), 0)
            << command << "\n"
            << test::read_text(file("log"));
    }
    std::string file(const char* name) const { return dir.file(name); }
    Bytes read(const char* name) const { return test::read_file(file(name)); }
    void to_pem(const char* out, const char* in, const char* label, int lineLen) const {
        EXPECT_EQ(PEM_FileFromBinFile(file(out).c_str(), file(in).c_str(), label, lineLen), 0);
    }
    // from_pem reads a file back and cuts the zeros after the data away.
    Bytes from_pem(const char* in, size_t size) const {
        EXPECT_EQ(PEM_FileToBinFile(file("bin").c_str(), file(in).c_str()), 0);
        Bytes data = read("bin");
        EXPECT_GT(data.size(), size);
        data.resize(size);
        return data;
    }

    test::TempDir dir;
};

Bytes some_bytes(size_t size) {
    Bytes data(size);
    for (size_t i = 0; i < size; i++)
        data[i] = static_cast<uint8_t>(i * 31 + i / 251);
    return data;
}

} // namespace

TEST_F(EncodeInterop, Base64) {
    for (const int size : {1, 2, 3, 47, 48, 49, 3072, 20001}) {
        const Bytes data = some_bytes(static_cast<size_t>(size));
        dir.write("data", data);

        run("openssl base64 -in data -out lines && openssl base64 -A -in data -out line");
        std::string text = test::read_text(file("line"));
        std::string ours(text.size(), '\0');
        EXPECT_EQ(CNV_B64StrFromBytes(ours.data(), static_cast<int>(ours.size()), data.data(), size),
                  static_cast<int>(text.size()));
        EXPECT_EQ(ours, text);
        Bytes back(data.size());
        EXPECT_EQ(CNV_BytesFromB64Str(back.data(), size, test::read_text(file("lines")).c_str()), size);
        EXPECT_EQ(back, data);

        dir.write("ours", ours);
        to_pem("wrapped", "data", nullptr, 76);
        run("openssl enc -base64 -d -A -in ours -out a && openssl base64 -d -in wrapped -out b");
        EXPECT_EQ(read("a"), data) << size;
        EXPECT_EQ(read("b"), data) << size;
    }
}

TEST_F(EncodeInterop, PemCertificates) {
    run("openssl req -x509 -newkey rsa:2048 -nodes -subj '/CN=zulcore test' -days 30 -keyout key -out "
        "cert.pem");
    run("openssl x509 -in cert.pem -outform DER -out der && openssl x509 -in cert.pem -text -out text.pem && "
        "certtool -i --infile cert.pem --outfile gnutls.pem");
    const Bytes der = read("der");
    EXPECT_EQ(from_pem("cert.pem", der.size()), der);
    EXPECT_EQ(from_pem("text.pem", der.size()), der);   // with its fields in words before the armour
    EXPECT_EQ(from_pem("gnutls.pem", der.size()), der); // likewise

    for (const int lineLen : {0, 76}) {
        to_pem("ours.pem", "der", "CERTIFICATE", lineLen);
        run("openssl x509 -in ours.pem -outform DER -out a && certtool -i --infile ours.pem --outder "
            "--outfile b");
        EXPECT_EQ(read("a"), der) << lineLen;
        EXPECT_EQ(read("b"), der) << lineLen;
    }
    run("openssl crl2pkcs7 -nocrl -certfile ours.pem -outform DER -out p7");
    to_pem("p7.pem", "p7", "PKCS7", 64);
    run("openssl pkcs7 -in p7.pem -print_certs -out c");
}
