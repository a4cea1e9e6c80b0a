#pragma once
#include <algorithm>

#include "interop/rsa_interop.h"

// What the tests of certificates against the programs openssl and certtool share.
namespace test {

constexpr char kX509Password[] = "pass";

class X509Interop : public RsaInterop {
  protected:
    // make_pair has openssl make name.key, name.pub and, encrypted, name.enc.
    void make_pair(const std::string& name, int bits = 1024) const {
        run("openssl genpkey -algorithm RSA -pkeyopt rsa_keygen_bits:" + std::to_string(bits) + " -out " +
            name + ".key");
        run("openssl pkey -in " + name + ".key -pubout -out " + name + ".pub");
        run("openssl pkcs8 -topk8 -in " + name + ".key -out " + name +
            ".enc -iter 1 -passout pass:" + kX509Password);
    }
};

} // namespace test
