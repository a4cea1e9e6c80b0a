#include "pfx/p12_list.h"

#include <optional>

#include "asn1/asn_value.h"
#include "frame/err.h"
#include "key/key_der.h"
#include "pfx/p12_file.h"
#include "pfx/p12_name.h"
#include "pfx/p12_report.h"
#include "pfx/p12_text.h"
#include "pfx/pfx_reader.h"
#include "x509/fields/certificate.h"
#include "x509/fields/subject_public_key.h"
#include "zulcore.h"

namespace zul {
namespace {

void put_mac(P12Report& report, const P12File& file) {
    if (!file.has_mac())
        return report.no_record("MAC", "mac");
    const P12Mac& mac = file.mac();
    report.begin("MAC", "mac");
    report.word("algorithm", p12_hmac_name(mac.hashAlg));
    report.word("kdf", mac.isPbmac1 ? "PBKDF2" : "PKCS12");
    if (mac.isPbmac1)
        report.word("prf", p12_hmac_name(mac.prf));
    report.number("iterations", mac.iterations);
    report.flag("verified", file.is_verified());
    report.end();
}

void put_scheme(P12Report& report, const P12Scheme& scheme) {
    report.word("encryption", scheme.name[0] == '\0' ? "unknown" : scheme.name);
    report.word("kdf", scheme.kdf);
    report.word("prf", scheme.prf);
    if (scheme.iterations != 0)
        report.number("iterations", scheme.iterations);
    report.word("cipher", scheme.cipher);
}

void put_safe(P12Report& report, const P12Safe& safe, size_t number) {
    report.begin("Safe", number);
    if (safe.kind == P12Safe::Kind::encrypted)
        put_scheme(report, safe.scheme);
    else if (safe.kind == P12Safe::Kind::plain)
        report.word("encryption", "none");
    else
        report.word("type", safe.type[0] == '\0' ? "unknown" : safe.type);
    if (safe.kind != P12Safe::Kind::other)
        report.number("bytes", safe.bytes);
    if (safe.isRead)
        report.number("entries", safe.entries);
    report.end();
}

void put_key(P12Report& report, const Key& key) {
    const KeyKindInfo& info = key_kind_info(key.kind);
    report.word("algorithm", info.algorithm);
    report.number("bits", key.is_rsa() ? key.rsa->bits : static_cast<size_t>(info.bits));
    if (key.is_ec())
        report.word("curve", info.curve);
}

void put_certificate(P12Report& report, const P12Entry& entry) {
    AsnList list;
    if (!key_parse(entry.content.data(), entry.content.size(), list))
        return;
    const CertificateFields fields = certificate_fields(list.head());
    if (entry.key) {
        put_key(report, *entry.key);
    } else {
        char name[kAlgorithmName];
        report.word("algorithm", public_key_algorithm(fields.subjectPublicKeyInfo, name));
    }
    SecretBuffer subject;
    p12_name_text(subject, fields.subject);
    report.quoted("subject", view_of(subject));
    char time[kAsnTimeText];
    report.word("notAfter", asn_time_text(fields.notAfter, time));
}

const char* kind_name(P12Kind kind) {
    switch (kind) {
    case P12Kind::key:
    case P12Kind::encryptedKey:
        return "key";
    case P12Kind::certificate:
        return "certificate";
    case P12Kind::crl:
        return "crl";
    case P12Kind::secret:
        return "secret";
    case P12Kind::other:
        break;
    }
    return "other";
}

void put_entry(P12Report& report, const P12Entries& entries, const P12Entry& entry) {
    report.begin("Entry", entry.number);
    report.word("kind", kind_name(entry.kind));
    report.word("type", entry.type);
    report.number("safe", entry.safe);
    if (entry.kind == P12Kind::key)
        report.word("encryption", "none");
    else if (entry.kind == P12Kind::encryptedKey)
        put_scheme(report, entry.scheme);
    if (entry.hasName)
        report.quoted("name", view_of(entry.name));
    if (entry.hasKeyId)
        report.hex("localKeyId", entry.keyId);
    if (entry.isTrusted)
        report.flag("trusted", true);
    if (!entry.attributes.empty())
        report.word("attributes", entry.attributes.text());
    const P12Entry* partner = nullptr;
    if (entry.is_key()) {
        if (entry.key)
            put_key(report, *entry.key);
        partner = p12_certificate_of(entries, entry);
    } else if (entry.is_x509()) {
        put_certificate(report, entry);
        partner = p12_key_of(entries, entry);
    }
    if (partner != nullptr)
        report.number(entry.is_key() ? "certificate" : "key", partner->number);
    report.end();
}

// open_keys reads the keys that can be read. One of a kind that is not supported is shown without its kind.
[[nodiscard]] int open_keys(P12File& file, P12Password* password) {
    P12Password none(nullptr);
    for (P12Entry* entry = file.entries().head(); entry != nullptr; entry = entry->next) {
        if (!entry->is_key() || (entry->kind == P12Kind::encryptedKey && password == nullptr))
            continue;
        const int error = file.open_key(*entry, password == nullptr ? none : *password);
        if (error != 0 && error != NOT_SUPPORTED_ERROR)
            return error;
        err_clear();
    }
    return 0;
}

} // namespace

int p12_list(SecretBuffer& text, const char* p12, const char* password, int options) {
    if ((options & ~(ZUL_P12_JSON | ZUL_P12_NEED_MAC)) != 0)
        return err_unknown_option();
    if (!P12Password::fits(password))
        return err_fail(BAD_LENGTH_ERROR, "The password is too long");
    P12File file;
    if (const int error = file.open(p12))
        return error;
    if (!file.has_mac() && (options & ZUL_P12_NEED_MAC) != 0)
        return err_fail(SIGNATURE_ERROR, "The file has no MAC");
    std::optional<P12Password> forms;
    if (password != nullptr) {
        forms.emplace(password);
        if (const int error = file.check(*forms))
            return error;
    }
    P12Password* given = forms ? &*forms : nullptr;
    if (const int error = file.read(given, true))
        return error;
    if (const int error = open_keys(file, given))
        return error;

    P12Report report((options & ZUL_P12_JSON) != 0);
    report.head(kPfxVersion);
    put_mac(report, file);
    report.begin_array("safes");
    size_t number = 0;
    for (const P12Safe* safe = file.safes(); safe != nullptr; safe = safe->next)
        put_safe(report, *safe, ++number);
    report.end_array();
    report.begin_array("entries");
    for (const P12Entry* entry = file.entries().head(); entry != nullptr; entry = entry->next)
        put_entry(report, file.entries(), *entry);
    report.end_array();
    report.finish();
    text.append(report.text().data(), report.text().size());
    return 0;
}

} // namespace zul
