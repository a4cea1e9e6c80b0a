#include "interop/x509_interop.h"

class X509ReadInterop : public test::X509Interop {};

// Many signatures, because now and then r or s is short.
TEST_F(X509ReadInterop, DsaSignatures) {
    run("openssl genpkey -genparam -algorithm DSA -pkeyopt dsa_paramgen_bits:1024 -pkeyopt "
        "dsa_paramgen_q_bits:160 -out dsa.par");
    run("openssl req -x509 -newkey dsa:dsa.par -nodes -keyout root.key -out root.pem -sha1 -subj /CN=Root");
    run("openssl req -new -newkey rsa:1024 -nodes -keyout leaf.key -subj /CN=Leaf -out leaf.req");
    for (int i = 0; i < 20; i++) {
        run("openssl x509 -req -in leaf.req -CA root.pem -CAkey root.key -set_serial 1 -sha1 -out leaf.pem");
        EXPECT_EQ(X509_VerifyCert(file("leaf.pem").c_str(), file("root.pem").c_str()), 0);
    }
    const std::string path = file("leaf.pem") + ";" + file("root.pem");
    EXPECT_EQ(X509_ValidatePath(path.c_str(), nullptr, 0), 0);
}
