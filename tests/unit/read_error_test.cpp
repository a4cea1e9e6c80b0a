#ifndef _WIN32
#include <cerrno>
#include <functional>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "support/unit_test.h"
#include "zulcore.h"

namespace {
ino_t badFile;  // 0: none
off_t badPlace; // where its reads fail
} // namespace

// A disk that fails in the middle of a file.
extern "C" ssize_t read(int fd, void* buffer, size_t size) {
    struct stat info {};
    if (badFile != 0 && fstat(fd, &info) == 0 && info.st_ino == badFile) {
        const off_t at = lseek(fd, 0, SEEK_CUR);
        if (at >= badPlace) {
            errno = EIO;
            return -1;
        }
        size = std::min(size, static_cast<size_t>(badPlace - at));
    }
    return syscall(SYS_read, fd, buffer, size);
}

namespace zul {
namespace {

TEST(ReadError, IsNoInvalidCertificate) {
    const test::TempDir dir;
    const std::string issuer = test::read_text(test::data_path("x509_make/issuer.pem")),
                      out = dir.file("out"), certificate = dir.file("cert"), list = dir.file("crl"),
                      bundle = dir.file("bundle");
    std::string revoked;
    for (int i = 1000; i < 2000; i++)
        revoked += std::to_string(i) + ",2020-01-01;";
    ASSERT_GT(X509_SaveFileFromString(certificate.c_str(), issuer.c_str(), 0), -1);
    ASSERT_EQ(X509_MakeCRL(list.c_str(), issuer.c_str(), test::data_path("rsa/enc_aes256.pem").c_str(),
                           "password", revoked.c_str(), "", 0),
              0);
    char identity[75], recipient[63];
    ASSERT_EQ(SEAL_MakeIdentity(identity, 74, 0), 74);
    ASSERT_EQ(SEAL_Recipient(recipient, 62, identity), 62);
    const std::string sealed = dir.file("sealed"),
                      keys = dir.write("keys", std::string(5000, '#') + '\n' + recipient);
    ASSERT_EQ(SEAL_File(sealed.c_str(), list.c_str(), recipient, nullptr, ZUL_SEAL_ARMOUR), 0);
    ASSERT_EQ(PEM_FileToBinFile(bundle.c_str(), test::data_path("x509_path/chain25.p7b").c_str()), 0);
    const struct {
        const std::string& file;
        int expected;
        std::function<int(const char*)> run;
    } cases[] = {
        {certificate, READ_ERROR, [&](const char* f) { return X509_VerifyCert(f, issuer.c_str()); }},
        {list, READ_ERROR, [&](const char* f) { return X509_VerifyCert(f, issuer.c_str()); }},
        {certificate, -READ_ERROR, [&](const char* f) { return X509_CertThumb(f, nullptr, 0, 0); }},
        {certificate, -READ_ERROR, [&](const char* f) { return X509_TextDump(out.c_str(), f, 0); }},
        {list, -READ_ERROR, [&](const char* f) { return X509_TextDump(out.c_str(), f, 0); }},
        {list, -READ_ERROR,
         [&](const char* f) { return X509_CheckCertInCRL(issuer.c_str(), f, nullptr, nullptr, 0); }},
        {list, -SIGNATURE_ERROR,
         [&](const char* f) { return X509_CheckCertInCRL(issuer.c_str(), f, issuer.c_str(), nullptr, 0); }},
        {certificate, -READ_ERROR, [](const char* f) { return X509_ValidatePath(f, nullptr, 1); }},
        {bundle, -READ_ERROR, [](const char* f) { return X509_ValidatePath(f, nullptr, 1); }},
        {bundle, -READ_ERROR, [&](const char* f) { return X509_GetCertFromP7Chain(out.c_str(), f, 25, 0); }},
        {list, READ_ERROR, [&](const char* f) { return SEAL_File(out.c_str(), f, recipient, nullptr, 0); }},
        {keys, READ_ERROR,
         [&](const char* f) { return SEAL_File(out.c_str(), list.c_str(), f, nullptr, 0); }},
        {sealed, READ_ERROR,
         [&](const char* f) { return SEAL_OpenFile(out.c_str(), f, identity, nullptr, 0); }},
    };
    for (const auto& c : cases) {
        struct stat info {};
        ASSERT_EQ(stat(c.file.c_str(), &info), 0);
        for (const off_t place : {off_t{100}, info.st_size / 2}) {
            badFile = 0;
            EXPECT_NE(c.run(c.file.c_str()), c.expected) << &c - cases;
            badFile = info.st_ino;
            badPlace = place;
            EXPECT_EQ(c.run(c.file.c_str()), c.expected) << &c - cases << " at " << place;
        }
    }
    badFile = 0;
}

} // namespace
} // namespace zul

#endif
