#include "pfx/p12_unpack.h"

#include <cstring>

#include "asn1/asn_file.h"
#include "encode/output_file.h"
#include "encode/pem.h"
#include "frame/err.h"
#include "frame/text.h"
#include "key/key_string.h"
#include "pfx/p12_file.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr int kKeyIndex = 0xFF; // of the options
constexpr size_t kLongestChain = 64;

P12Entry* nth_key(const P12Entries& entries, int n) {
    for (P12Entry* entry = entries.head(); entry != nullptr; entry = entry->next)
        if (entry->is_key() && n-- == 0)
            return entry;
    return nullptr;
}

bool same(const uint8_t (&a)[kSha256Size], const uint8_t (&b)[kSha256Size]) {
    return memcmp(a, b, sizeof a) == 0;
}

// issuer_of finds the certificate whose subject is the issuer of another. Of several with one name the key
// identifier tells the right one.
P12Entry* issuer_of(const P12Entries& entries, const P12Entry& certificate) {
    P12Entry* found = nullptr;
    if (same(certificate.subject, certificate.issuer))
        return nullptr;
    for (P12Entry* entry = entries.head(); entry != nullptr; entry = entry->next) {
        if (!entry->is_x509() || entry->isPlaced || !same(entry->subject, certificate.issuer))
            continue;
        const SecretBuffer &wanted = certificate.authorityKeyId, &own = entry->subjectKeyId;
        if (wanted.empty() || own.empty())
            found = found == nullptr ? entry : found;
        else if (wanted.size() == own.size() && memcmp(wanted.data(), own.data(), own.size()) == 0)
            return entry;
    }
    return found;
}

class CertificateFile {
  public:
    CertificateFile(const char* path, const char* input)
        : path_(path), out_(path, {.replaces = true, .commits = false, .input = input}) {}
    bool is_open() const { return out_.is_open(); }
    void add(P12Entry& entry) {
        entry.isPlaced = true;
        pem_write(out_, entry.content.data(), entry.content.size(), "CERTIFICATE", kPemLineLen);
    }
    [[nodiscard]] int finish() { return output_finish(out_, path_); }

  private:
    const char* path_;
    FileWriter out_;
};

// write_certificates writes the certificate of a key, if there is one, those that issued it in turn, and then
// the others as they come.
[[nodiscard]] int write_certificates(const P12UnpackOrder& order, const P12Entries& entries,
                                     const P12Entry* key) {
    bool hasAny = false;
    for (const P12Entry* entry = entries.head(); entry != nullptr; entry = entry->next)
        hasAny |= entry->is_x509();
    if (!hasAny)
        return err_fail(NO_DATA_ERROR, "The file has no certificate");
    CertificateFile file(order.certsOut, order.p12);
    if (!file.is_open())
        return err_fail(CREATE_ERROR, "Cannot create file '%s'", shown_name(order.certsOut));
    P12Entry* next = key == nullptr ? nullptr : p12_certificate_of(entries, *key);
    for (size_t length = 0; next != nullptr && length < kLongestChain; length++) {
        file.add(*next);
        next = issuer_of(entries, *next);
    }
    for (P12Entry* entry = entries.head(); entry != nullptr; entry = entry->next)
        if (entry->is_x509() && !entry->isPlaced)
            file.add(*entry);
    return file.finish();
}

// open_key reads the chosen key. Where only certificates are asked for, a key of an unknown kind still has a
// localKeyId.
[[nodiscard]] int open_key(P12File& file, const P12UnpackOrder& order, P12Password& password,
                           P12Entry*& key) {
    const int n = order.options & kKeyIndex;
    key = nth_key(file.entries(), n);
    if (key == nullptr)
        return order.wantsKey || n != 0 ? err_fail(NO_DATA_ERROR, "The file has no key number %d", n) : 0;
    const int error = file.open_key(*key, password);
    if (error != NOT_SUPPORTED_ERROR || order.wantsKey)
        return error;
    err_clear();
    return 0;
}

} // namespace

int p12_unpack(SecretBuffer& keyString, const P12UnpackOrder& order) {
    if ((order.options & ~(kKeyIndex | ZUL_P12_NEED_MAC)) != 0)
        return err_unknown_option();
    if (!P12Password::fits(order.password))
        return err_fail(BAD_LENGTH_ERROR, "The password is too long");
    P12File file;
    if (const int error = file.open(order.p12))
        return error;
    if (!file.has_mac() && (order.options & ZUL_P12_NEED_MAC) != 0)
        return err_fail(SIGNATURE_ERROR, "The file has no MAC");
    P12Password password(order.password);
    if (const int error = file.check(password))
        return error;
    if (const int error = file.read(&password, false))
        return error;
    P12Entry* key = nullptr;
    if (const int error = open_key(file, order, password, key))
        return error;
    if (order.wantsKey) {
        keyString = key_string_write(*key->key);
        if (keyString.empty())
            return err_fail(INVALID_DATA_ERROR, "The key is too long");
        if (keyString.size() > order.keyRoom)
            return err_short_room(keyString.size());
    }
    return is_missing(order.certsOut) ? 0 : write_certificates(order, file.entries(), key);
}

} // namespace zul
