#include "pfx/p12_entry.h"

#include <cstring>
#include <new>

#include "asn1/asn_element.h"
#include "asn1/asn_encode.h"
#include "frame/err.h"
#include "key/key_der.h"
#include "x509/fields/certificate.h"
#include "x509/fields/certificate_extensions.h"
#include "zulcore.h"

namespace zul {
namespace {

void digest(uint8_t (&out)[kSha256Size], const SecretBuffer& bytes) {
    Sha256Context context;
    sha256_init(context);
    sha256_update(context, bytes.data(), bytes.size());
    sha256_final(context, out);
}

// A public key is digested in this library's own encoding, since there are several of each key.
void take_print(P12Entry& entry) {
    digest(entry.keyPrint, asn_Encode(key_public_info(*entry.key)));
}

bool same_bytes(const SecretBuffer& a, const SecretBuffer& b) {
    return a.size() == b.size() && (a.empty() || memcmp(a.data(), b.data(), a.size()) == 0);
}

template<class Test>
P12Entry* find(const P12Entries& entries, Test test) {
    for (P12Entry* entry = entries.head(); entry != nullptr; entry = entry->next)
        if (test(*entry))
            return entry;
    return nullptr;
}

} // namespace

P12Entries::~P12Entries() {
    while (P12Entry* entry = head_) {
        head_ = entry->next;
        entry->~P12Entry();
        efree(entry);
    }
}

P12Entry& P12Entries::add() {
    auto* entry = new (emalloc(sizeof(P12Entry))) P12Entry;
    entry->number = ++count_;
    (tail_ == nullptr ? head_ : tail_->next) = entry;
    tail_ = entry;
    return *entry;
}

int p12_open_certificate(P12Entry& entry) {
    AsnList list;
    if (!key_parse(entry.content.data(), entry.content.size(), list) || !x509_is_certificate(list.head()))
        return err_fail(BAD_FORMAT_ERROR, "Entry %u is not a valid certificate",
                        static_cast<unsigned>(entry.number));
    const CertificateFields fields = certificate_fields(list.head());
    digest(entry.subject, asn_EncodeElement(fields.subject));
    digest(entry.issuer, asn_EncodeElement(fields.issuer));
    entry.subjectKeyId = subject_key_identifier(fields);
    entry.authorityKeyId = authority_key_identifier(fields);
    if (key_read_structure(list.head(), entry.key.emplace()) == 0)
        take_print(entry);
    else
        entry.key.reset();
    err_clear(); // a key of another kind does not matter here
    return 0;
}

int p12_take_key(P12Entry& entry, const asn_Node* privateKeyInfo) {
    const KeyShape shape = key_shape(privateKeyInfo);
    int error = key_read_structure(privateKeyInfo, entry.key.emplace());
    if (error == 0 && (shape != KeyShape::privateInfo || !entry.key->isPrivate))
        error = err_fail(BAD_FORMAT_ERROR, "Entry %u is not a PrivateKeyInfo",
                         static_cast<unsigned>(entry.number));
    if (error != 0)
        entry.key.reset();
    else
        take_print(entry);
    return error;
}

bool p12_belong(const P12Entry& key, const P12Entry& certificate) {
    if (key.key && certificate.key)
        return memcmp(key.keyPrint, certificate.keyPrint, sizeof key.keyPrint) == 0;
    return key.hasKeyId && certificate.hasKeyId && same_bytes(key.keyId, certificate.keyId);
}

P12Entry* p12_certificate_of(const P12Entries& entries, const P12Entry& key) {
    return find(entries, [&](const P12Entry& entry) { return entry.is_x509() && p12_belong(key, entry); });
}

P12Entry* p12_key_of(const P12Entries& entries, const P12Entry& certificate) {
    return find(entries,
                [&](const P12Entry& entry) { return entry.is_key() && p12_belong(entry, certificate); });
}

} // namespace zul
