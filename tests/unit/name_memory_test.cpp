// What long distinguished names cost in memory.
#include <algorithm>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <malloc.h>
#include <string>
#include <vector>

#include "frame/memory_hooks.h"
#include "support/key_calls.h"
#include "support/temp_dir.h"

#ifdef _WIN32
#define malloc_usable_size _msize
#endif

namespace {

// The peak of the library's memory in blocks of some size: of smaller ones it holds few at a time.
constexpr size_t kLarge = 1 << 16;
size_t present, most;

size_t peak_of(const std::function<void()>& call) {
    present = most = 0;
    zul::memory_set_hooks({[](size_t size) {
                               present += size >= kLarge ? size : 0;
                               most = std::max(most, present);
                               return false;
                           },
                           [](void* block) {
                               const size_t size = malloc_usable_size(block);
                               present -= size >= kLarge ? std::min(size, present) : 0;
                           }});
    call();
    zul::memory_set_hooks({});
    return most;
}

} // namespace

TEST(NameMemory, StaysBelowEightTimesTheText) {
    const test::TempDir dir;
    const std::string self = dir.file("self.der"), pem = dir.file("self.pem"), request = dir.file("r.pem"),
                      issued = dir.file("issued.der"), crl = dir.file("crl.der"), dump = dir.file("dump.txt"),
                      plain = dir.file("plain.txt"), message = dir.file("message.der");
    const std::string key = test::make_key("rsa-1024");
    std::string name;
    while (name.size() < 1 << 20)
        name += "O=ab;";
    std::vector<char> text(2 * name.size());
    const auto room = static_cast<int>(text.size() - 1);
    std::ofstream(plain) << "x";
    const char* const n = name.c_str();
    const char* const k = key.c_str();

    const struct {
        const char* what;
        std::function<int()> call;
    } calls[] = {
        {"self", [&] { return X509_MakeCertSelf(self.c_str(), k, 1, 1, n, "", 0, "p", 0); }},
        {"self as PEM",
         [&] { return X509_MakeCertSelf(pem.c_str(), k, 1, 1, n, "", 0, "p", ZUL_X509_FORMAT_PEM); }},
        {"request", [&] { return X509_CertRequest(request.c_str(), k, n, "", "p", ZUL_X509_REQ_DER); }},
        {"issue",
         [&] {
             return X509_MakeCert(issued.c_str(), test::data_path("x509_make/issuer.pem").c_str(),
                                  request.c_str(), k, 1, 1, "", "", 0, "p", 0);
         }},
        {"CRL", [&] { return X509_MakeCRL(crl.c_str(), self.c_str(), k, "p", "", "", 0); }},
        {"subject",
         [&] {
             return -X509_CertSubjectName(self.c_str(), text.data(), room, "", 0) + int(name.size()) - 1;
         }},
        {"issuer",
         [&] {
             return -X509_QueryCert(text.data(), room, self.c_str(), "issuerName", 0) + int(name.size()) - 1;
         }},
        {"dump", [&] { return X509_TextDump(dump.c_str(), self.c_str(), 0); }},
        {"encrypt",
         [&] { return CMS_MakeEnvData(message.c_str(), plain.c_str(), self.c_str(), nullptr, 0, 0) - 1; }},
        {"recipient",
         [&] {
             return -CMS_QueryEnvData(text.data(), room, message.c_str(), "recipientIssuerName", 0) +
                    int(name.size()) - 1;
         }},
    };
    for (const auto& c : calls) {
        int result = -1;
        const size_t peak = peak_of([&] { result = c.call(); });
        EXPECT_EQ(result, 0) << c.what << ": " << test::last_error();
        EXPECT_LT(peak, 8 * name.size()) << c.what;
    }
}
