#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "encode/base64.h"
#include "x509/crl/crl_reader.h"

// Every entry that a list shows can be looked up. What follows the entries reads the same whether or not they
// were read.

using namespace zul;

static void require(bool claim) {
    if (!claim)
        std::abort();
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string text(b64_encoded_length(size) + 1, '\0');
    text.resize(b64_encode(text.data(), text.size(), data, size));
    text = "-----BEGIN X509 CRL-----\n" + text + "\n-----END X509 CRL-----\n";

    DerSource source;
    CrlReader reader;
    if (source.open(text.c_str()) != 0 || reader.open(source) != 0)
        return 0;
    require(reader.version() >= 1 && reader.issuer() != nullptr && *reader.thisUpdate() != '\0');
    std::vector<std::vector<uint8_t>> shown; // serial numbers
    CrlEntry entry;
    int error;
    bool found = false;
    while ((error = reader.next(entry, found)) == 0 && found) {
        require(entry.serialLength > 0 && strlen(entry.revocationDate) < kAsnTimeText);
        shown.emplace_back(entry.serialNumber, entry.serialNumber + entry.serialLength);
    }
    if (error != 0)
        require(reader.next(entry, found) == error);
    const int finished = reader.finish();
    require(finished != 0 || reader.signatureValue() != nullptr);
    if (error == 0) {
        CrlReader skipping;
        require(skipping.open(source) == 0 && skipping.finish() == finished);
    }
    constexpr size_t kMaxLookUps = 50;
    for (size_t i = 0; i < shown.size() && i < kMaxLookUps; i++) {
        CrlReader finding;
        require(finding.open(source) == 0 &&
                finding.find(shown[i].data(), shown[i].size(), entry, found) == 0 && found);
    }
    return 0;
}
