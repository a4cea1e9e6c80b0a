// Makers of whole elements (X.690; times as RFC 5280, 4.1.2.5 asks for).
#include <cstdio>
#include <cstring>

#include "asn1/asn_build.h"
#include "asn1/asn_encode.h"
#include "asn1/oid.h"
#include "encode/utf8.h"
#include "frame/err.h"
#include "hash/digest.h"

namespace zul {

namespace {

// make gives an element. Its content is the first octet, if one is given, and a copy of bytes.
AsnList make(uint32_t cls, uint32_t tag, const void* bytes, size_t n, int firstOctet = -1) {
    const size_t before = firstOctet >= 0;
    if (n > kAsnMaxMade - before)
        return AsnList::failure();
    AsnList list;
    asn_Node* node = asn_make_node(cls, tag, before + n);
    list.append(node);
    node->length = static_cast<uint32_t>(before + n);
    if (before != 0)
        node->data[0] = static_cast<uint8_t>(firstOctet);
    if (n != 0)
        memcpy(node->data + before, bytes, n);
    return asn_SetHeader(node) == 0 ? AsnList::failure() : std::move(list);
}

AsnList make_text(uint32_t tag, const char* text) {
    return make(kAsnUniversal, tag, text, text == nullptr ? 0 : strlen(text));
}

// make_of gives an element that holds the encoding of content.
AsnList make_of(uint32_t tag, AsnList content, int firstOctet = -1) {
    if (content.failed())
        return content;
    if (!content)
        return make(kAsnUniversal, tag, nullptr, 0, firstOctet);
    const SecretBuffer encoding = asn_Encode(content);
    if (encoding.empty()) {
        err_set_text("asn_Join: sub-length not set\n");
        return AsnList::failure();
    }
    return make(kAsnUniversal, tag, encoding.data(), encoding.size(), firstOctet);
}

} // namespace

AsnList asn_NewSequence(AsnList content) {
    return asn_Join(asn_New(kAsnConstructed, kAsnSequence), std::move(content));
}

AsnList asn_NewSet(AsnList content) {
    return asn_Join(asn_New(kAsnConstructed, kAsnSet), std::move(content));
}

AsnList asn_NewAttribute(const char* type, AsnList value) {
    return asn_NewSequence(asn_LinkList(asn_NewOid(type), asn_NewSet(std::move(value))));
}

AsnList asn_NewExplicit(uint32_t n, AsnList content) {
    return asn_Join(asn_New(kAsnExplicit, n), std::move(content));
}

AsnList asn_NewOctetStringOf(AsnList content) {
    return make_of(kAsnOctetString, std::move(content));
}

AsnList asn_NewOctetString(const void* bytes, size_t n) {
    return make(kAsnUniversal, kAsnOctetString, bytes, n);
}

AsnList asn_NewString(uint32_t tag, const void* bytes, size_t n) {
    return make(kAsnUniversal, tag, bytes, n);
}

AsnList asn_NewContextPrim(uint32_t n, const void* bytes, size_t len) {
    return make(kAsnContext, n, bytes, len);
}

AsnList asn_NewInteger(uint32_t value) {
    const uint8_t bytes[4] = {static_cast<uint8_t>(value >> 24), static_cast<uint8_t>(value >> 16),
                              static_cast<uint8_t>(value >> 8), static_cast<uint8_t>(value)};
    return asn_NewIntegerBytes(bytes, sizeof bytes);
}

AsnList asn_NewIntegerBytes(const uint8_t* bytes, size_t n) {
    while (n > 0 && *bytes == 0) {
        bytes++;
        n--;
    }
    const bool needsZero = n == 0 || (*bytes & 0x80) != 0;
    return make(kAsnUniversal, kAsnInteger, bytes, n, needsZero ? 0 : -1);
}

AsnList asn_NewBoolean(int flag) {
    const uint8_t content = flag != 0 ? 0xFF : 0;
    return make(kAsnUniversal, kAsnBoolean, &content, 1);
}

AsnList asn_NewNull() {
    return make(kAsnUniversal, kAsnNull, nullptr, 0);
}

AsnList asn_NewOid(const char* name) {
    OidInfo oid;
    oid_FromName(&oid, name);
    return make(kAsnUniversal, kAsnOid, oid.bytes, static_cast<size_t>(oid.length));
}

AsnList asn_NewBitString(unsigned unused, const void* bytes, size_t n) {
    return make(kAsnUniversal, kAsnBitString, bytes, n, static_cast<int>(unused & 0xFF));
}

AsnList asn_NewBitStringOf(unsigned unused, AsnList content) {
    return make_of(kAsnBitString, std::move(content), static_cast<int>(unused & 0xFF));
}

AsnList asn_NewUTF8String(const char* text) {
    const auto* bytes = reinterpret_cast<const uint8_t*>(text);
    const size_t n = text == nullptr ? 0 : strlen(text);
    if (utf8_classify(bytes, n) != Utf8Class::invalid)
        return make(kAsnUniversal, kAsnUtf8String, bytes, n);
    SecretBuffer converted(2 * n);
    const size_t length = utf8_from_latin1(converted.data(), 2 * n, bytes, n).stored;
    return make(kAsnUniversal, kAsnUtf8String, converted.data(), length);
}

AsnList asn_NewBMPString(const char* text) {
    const size_t n = text == nullptr ? 0 : strlen(text);
    if (n > kAsnMaxMade / 2)
        return AsnList::failure();
    SecretBuffer wide(2 * n);
    for (size_t i = 0; i < n; i++)
        wide[2 * i + 1] = static_cast<uint8_t>(text[i]);
    return make(kAsnUniversal, kAsnBmpString, wide.data(), wide.size());
}

static bool is_utc_year(const tm& time) {
    return time.tm_year >= 50 && time.tm_year <= 149; // 1950 to 2049
}

AsnList asn_NewTime(const tm& time) {
    return is_utc_year(time) ? asn_NewUTCTime(time) : asn_NewGeneralizedTime(time);
}

AsnList asn_NewUTCTime(const tm& time) {
    if (!is_utc_year(time)) {
        err_set_text("asn_NewUTCTime: Year out of range\n");
        return AsnList::failure();
    }
    char text[80];
    snprintf(text, sizeof text, "%02d%02d%02d%02d%02d%02dZ", time.tm_year % 100, time.tm_mon + 1,
             time.tm_mday, time.tm_hour, time.tm_min, time.tm_sec);
    return make_text(kAsnUtcTime, text);
}

AsnList asn_NewGeneralizedTime(const tm& time) {
    if (time.tm_year < -1900 || time.tm_year > 9999 - 1900)
        return AsnList::failure();
    char text[80];
    snprintf(text, sizeof text, "%04d%02d%02d%02d%02d%02dZ", time.tm_year + 1900, time.tm_mon + 1,
             time.tm_mday, time.tm_hour, time.tm_min, time.tm_sec);
    return make_text(kAsnGeneralizedTime, text);
}

AsnList asn_NewHashAlgId(int hashAlg) {
    const DigestDescriptor* digest = digest_find(hashAlg & kDigestAlgorithmMask);
    const char* name = digest == nullptr || digest->name == nullptr ? "sha1" : digest->name;
    return asn_NewSequence(asn_LinkList(asn_NewOid(name), asn_NewNull()));
}

} // namespace zul
