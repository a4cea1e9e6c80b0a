// Queries about the fields, the key and the signature of an object.
#include <iterator>

#include "cert/fields/oid_names.h"
#include "cert/names/name_print.h"
#include "cert/path/cert_signature.h"
#include "cert/query/query_object.h"
#include "cert/report/public_key_fields.h"
#include "cert/report/report_fields.h"
#include "encode/base64.h"
#include "frame/err.h"
#include "frame/text_buffer.h"
#include "hash/sha1.h"
#include "hash/sha256.h"
#include "platform/platform.h"
#include "zulcore.h"

namespace zul {

namespace {

using Object = QueryObject;

int write_kind(TextBuffer& out, const Object& object) {
    constexpr std::string_view kKinds[] = {"certificate", "request", "crl", "ocspResponse"};
    out.put(kKinds[static_cast<size_t>(object.kind)]);
    return 0;
}

int write_version(TextBuffer& out, const Object& object) {
    if (object.kind == ObjectKind::certificate)
        out.put_number(object.certificate.version);
    else if (object.kind == ObjectKind::crl)
        out.put_number(object.crl.version);
    else if (object.kind == ObjectKind::request)
        out.put('1');
    return 0;
}

int write_serial(TextBuffer& out, const Object& object) {
    if (object.kind == ObjectKind::certificate)
        put_hex_integer(out, object.certificate.serialNumber);
    return 0;
}

int write_name(TextBuffer& out, DerView name) {
    if (name.empty() || put_name(out, name))
        return 0;
    return err_fail(BAD_FORMAT_ERROR, "A malformed name");
}
int write_issuer(TextBuffer& out, const Object& object) {
    return write_name(out, object.issuer);
}
int write_subject(TextBuffer& out, const Object& object) {
    return write_name(out, object.subject);
}

int write_time(TextBuffer& out, const DerElement& time) {
    if (!time.content.empty())
        put_time(out, time);
    return 0;
}
int write_not_before(TextBuffer& out, const Object& object) {
    return write_time(out, object.certificate.notBeforeTime);
}
int write_not_after(TextBuffer& out, const Object& object) {
    return write_time(out, object.certificate.notAfterTime);
}
int write_this_update(TextBuffer& out, const Object& object) {
    return write_time(out, object.crl.thisUpdateTime);
}
int write_next_update(TextBuffer& out, const Object& object) {
    return write_time(out, object.crl.hasNextUpdate ? object.crl.nextUpdateTime : DerElement());
}
int write_produced_at(TextBuffer& out, const Object& object) {
    return write_time(out, object.response.producedAtTime);
}

// write_days_left rounds down: the last day has 0, the first day after it -1.
int write_days_left(TextBuffer& out, const Object& object) {
    constexpr uint64_t kTicks = 10000000;
    constexpr int64_t kFrom1601To1970 = 11644473600, kDay = 86400;
    const bool isCrl = object.kind == ObjectKind::crl && object.crl.hasNextUpdate;
    if (!isCrl && object.kind != ObjectKind::certificate)
        return 0;
    const int64_t end = isCrl ? object.crl.nextUpdate : object.certificate.notAfter;
    const int64_t left = end - (static_cast<int64_t>(platform::system_time() / kTicks) - kFrom1601To1970);
    out.put_number((left >= 0 ? left : left - kDay + 1) / kDay);
    return 0;
}

[[nodiscard]] int read_key(PublicKeyView& key, const Object& object) {
    return object.publicKeyInfo.empty() || public_key_view_read(object.publicKeyInfo, key)
               ? 0
               : err_fail(BAD_FORMAT_ERROR, "Invalid subjectPublicKeyInfo");
}

int write_key_algorithm(TextBuffer& out, const Object& object) {
    PublicKeyView key;
    if (const int error = read_key(key, object))
        return error;
    if (!key.algorithm.oid.empty())
        put_oid(out, key.algorithm.oid);
    return 0;
}

int write_key_bits(TextBuffer& out, const Object& object) {
    PublicKeyView key;
    if (const int error = read_key(key, object))
        return error;
    if (const int bits = public_key_bits(key))
        out.put_number(bits);
    return 0;
}

int write_curve(TextBuffer& out, const Object& object) {
    PublicKeyView key;
    if (const int error = read_key(key, object))
        return error;
    if (const DerView curve = public_key_curve(key); !curve.empty())
        put_oid(out, curve);
    return 0;
}

int write_public_key(TextBuffer& out, const Object& object) {
    constexpr size_t kLine = 64;
    if (object.publicKeyInfo.empty())
        return 0;
    const SecretBuffer base64 = b64_text(object.publicKeyInfo.data, object.publicKeyInfo.size);
    std::string_view rest(base64.text(), base64.size());
    out.put("-----BEGIN PUBLIC KEY-----\n");
    while (!rest.empty()) {
        out.put(rest.substr(0, kLine));
        out.put('\n');
        rest.remove_prefix(rest.size() < kLine ? rest.size() : kLine);
    }
    out.put("-----END PUBLIC KEY-----\n");
    return 0;
}

int write_signature_algorithm(TextBuffer& out, const Object& object) {
    if (!object.signatureAlgorithm.oid.empty())
        put_oid(out, object.signatureAlgorithm.oid);
    return 0;
}

int write_self_issued(TextBuffer& out, const Object& object) {
    if (object.kind == ObjectKind::certificate)
        out.put(object.certificate.is_self_issued() ? '1' : '0');
    return 0;
}

// write_self_signed tells whether the signature is one by the object's own key.
int write_self_signed(TextBuffer& out, const Object& object) {
    const bool isCertificate = object.kind == ObjectKind::certificate;
    if (!isCertificate && object.kind != ObjectKind::request)
        return 0;
    const SignedView& whole = isCertificate ? static_cast<const SignedView&>(object.certificate)
                                            : static_cast<const SignedView&>(object.request);
    const bool mayBe = !isCertificate || object.certificate.is_self_issued();
    SignerKey key;
    PathBudget budget;
    int error = mayBe ? key.read(object.publicKeyInfo, nullptr) : SIGNATURE_ERROR;
    if (error == 0)
        error = isCertificate
                    ? key.check_object(whole, object.certificate.innerAlgorithm, budget)
                    : key.check(whole.toBeSigned, whole.signatureAlgorithm, whole.signature, budget);
    if (error != 0 && error != SIGNATURE_ERROR)
        return error;
    err_clear(); // the text of a signature that does not verify
    out.put(error == 0 ? '1' : '0');
    return 0;
}

void put_sha256(TextBuffer& out, DerView bytes) {
    uint8_t digest[kSha256Size];
    Sha256Context context;
    sha256_init(context);
    sha256_update(context, bytes.data, bytes.size);
    sha256_final(context, digest);
    out.put_hex(digest, sizeof digest);
}
int write_sha1(TextBuffer& out, const Object& object) {
    uint8_t digest[kSha1Size];
    Sha1Context context;
    sha1_init(context);
    sha1_update(context, object.encoding.data, object.encoding.size);
    sha1_final(context, digest);
    out.put_hex(digest, sizeof digest);
    return 0;
}
int write_sha256(TextBuffer& out, const Object& object) {
    put_sha256(out, object.encoding);
    return 0;
}
int write_key_sha256(TextBuffer& out, const Object& object) {
    if (!object.publicKeyInfo.empty())
        put_sha256(out, object.publicKeyInfo);
    return 0;
}

int write_revoked_count(TextBuffer& out, const Object& object) {
    if (object.kind != ObjectKind::crl)
        return 0;
    CrlEntryReader reader(object.crl.revoked);
    CrlEntryView entry;
    int64_t count = 0;
    while (reader.next(entry))
        count++;
    if (!reader.at_end())
        return err_fail(BAD_FORMAT_ERROR, "Invalid CRL: revokedCertificates");
    out.put_number(count);
    return 0;
}

constexpr QueryRow kRows[] = {
    {"kind", write_kind},
    {"version", write_version},
    {"serialNumber", write_serial},
    {"issuer", write_issuer},
    {"subject", write_subject},
    {"notBefore", write_not_before},
    {"notAfter", write_not_after},
    {"daysLeft", write_days_left},
    {"thisUpdate", write_this_update},
    {"nextUpdate", write_next_update},
    {"producedAt", write_produced_at},
    {"revokedCount", write_revoked_count},
    {"publicKeyAlgorithm", write_key_algorithm},
    {"publicKeyBits", write_key_bits},
    {"curve", write_curve},
    {"publicKey", write_public_key},
    {"signatureAlgorithm", write_signature_algorithm},
    {"isSelfIssued", write_self_issued},
    {"selfSigned", write_self_signed},
    {"sha1", write_sha1},
    {"sha256", write_sha256},
    {"spkiSha256", write_key_sha256},
};

} // namespace

QueryRows field_queries() {
    return {kRows, std::size(kRows)};
}

} // namespace zul
