// The PFX of RFC 7292 with privacy and integrity under one password: the certificates in an encrypted part,
// the key in a pkcs8ShroudedKeyBag of another one.
#include "pfx/p12_pack.h"

#include <cstring>
#include <optional>

#include "asn1/asn_build.h"
#include "asn1/asn_encode.h"
#include "asn1/asn_file.h"
#include "asn1/asn_input.h"
#include "frame/err.h"
#include "frame/text.h"
#include "hash/sha1.h"
#include "key/key_check.h"
#include "key/key_der.h"
#include "key/key_read.h"
#include "key/key_string.h"
#include "pfx/p12_certificates.h"
#include "pfx/p12_mac.h"
#include "pfx/p12_oids.h"
#include "pfx/p12_text.h"
#include "pfx/pfx_reader.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr int kKnownOptions = ZUL_P12_LEGACY | ZUL_P12_PBMAC1 | ZUL_P12_TRUSTED | ZUL_KEY_FORMAT_PEM;
constexpr size_t kMaxSafe = kMaxPfxFile / 2; // so that the file can be read again, as PEM too

// What every bag of a file may carry.
struct BagNames {
    SecretBuffer name; // UTF-16, of the key and its certificate
    uint8_t keyId[kSha1Size];
    bool hasKeyId = false;
};

bool is_key_string(const char* text) {
    return strncmp(text, "PVT", 3) == 0 || strncmp(text, "PUB", 3) == 0;
}

[[nodiscard]] int read_key(std::optional<Key>& key, const char* text) {
    if (!is_key_string(text) || key_string_read(text, key.emplace()) != 0) {
        err_clear(); // a file's name may begin like a key string
        if (const int error = key_read(key.emplace(), text, nullptr))
            return error;
    }
    return key->isPrivate ? 0 : err_fail(BAD_FORMAT_ERROR, "The key is not a private key");
}

// find_own finds the certificate of a key. Without any certificates there is none to be found.
[[nodiscard]] int find_own(P12Entry*& own, const P12Entries& certificates, const Key& key) {
    for (own = certificates.head(); own != nullptr; own = own->next)
        if (own->key && key_same_public(key, *own->key))
            return key_match(key, *own->key);
    return certificates.count() == 0 ? key_check(key)
                                     : err_fail(NO_MATCH_ERROR, "No certificate belongs to the private key");
}

void take_name(BagNames& names, const char* text) {
    if (utf16_from_utf8(names.name, text))
        return;
    SecretBuffer converted;
    append_latin1(converted, text);
    static_cast<void>(utf16_from_utf8(names.name, view_of(converted)));
}

AsnList attribute(AsnList type, AsnList value) {
    return asn_NewSequence(asn_LinkList(std::move(type), asn_NewSet(std::move(value))));
}

AsnList name_attribute(const SecretBuffer& name) {
    return attribute(asn_NewOid("friendlyName"), asn_NewString(kAsnBmpString, name.data(), name.size()));
}

// bag_attributes gives the SET, or nothing where there are no attributes.
AsnList bag_attributes(const BagNames& names, bool isNamed, bool isKeys, bool isTrusted) {
    AsnList lists[3];
    size_t count = 0;
    if (isNamed && !names.name.empty())
        lists[count++] = name_attribute(names.name);
    if (isKeys && names.hasKeyId)
        lists[count++] = attribute(asn_NewOid("localKeyID"), asn_NewOctetString(names.keyId, kSha1Size));
    if (isTrusted)
        lists[count++] = attribute(oid_node(kOidTrustedKeyUsage), oid_node(kOidAnyKeyUsage));
    if (count == 0)
        return {};
    asn_SortSet(lists, count);
    AsnList all;
    for (size_t i = 0; i < count; i++)
        all = asn_Link(std::move(all), std::move(lists[i]));
    return asn_NewSet(std::move(all));
}

AsnList bag(std::string_view id, AsnList value, AsnList attributes) {
    return asn_NewSequence(
        asn_LinkList(oid_node(id), asn_NewExplicit(0, std::move(value)), std::move(attributes)));
}

AsnList certificate_bag(const P12Entry& certificate, AsnList attributes) {
    AsnList value = asn_NewSequence(asn_LinkList(
        oid_node(kOidX509Certificate),
        asn_NewExplicit(0, asn_NewOctetString(certificate.content.data(), certificate.content.size()))));
    return bag(kOidCertBag, std::move(value), std::move(attributes));
}

[[nodiscard]] int too_long() {
    return err_fail(MSG_TOO_LONG_ERROR, "Too long for a PKCS #12 file");
}

AsnList data_content_info(const SecretBuffer& content) {
    return asn_NewSequence(asn_LinkList(
        asn_NewOid("data"), asn_NewExplicit(0, asn_NewOctetString(content.data(), content.size()))));
}

// encrypted_content_info encrypts SafeContents (RFC 5652, 8).
[[nodiscard]] int encrypted_content_info(AsnList& info, const AsnList& safeContents,
                                         const P12Password& password, P12Strength strength) {
    const SecretBuffer plain = asn_Encode(safeContents);
    if (plain.empty() || plain.size() > kMaxSafe)
        return too_long();
    AsnList algorithm;
    SecretBuffer data;
    if (const int error = p12_encrypt(algorithm, data, plain, password, strength))
        return error;
    AsnList content = asn_NewSequence(asn_LinkList(asn_NewOid("data"), std::move(algorithm),
                                                   asn_NewContextPrim(0, data.data(), data.size())));
    AsnList encrypted = asn_NewSequence(asn_LinkList(asn_NewInteger(0), std::move(content)));
    info =
        asn_NewSequence(asn_LinkList(asn_NewOid("encryptedData"), asn_NewExplicit(0, std::move(encrypted))));
    return 0;
}

// The key's certificate goes first: some readers take the first one for it.
AsnList certificate_bags(const P12Entries& certificates, const P12Entry* own, const BagNames& names,
                         bool hasKey, bool isTrusted) {
    AsnList bags;
    if (own != nullptr)
        bags = certificate_bag(*own, bag_attributes(names, true, true, false));
    for (const P12Entry* entry = certificates.head(); entry != nullptr; entry = entry->next) {
        if (entry == own)
            continue;
        const bool isNamed = !hasKey && entry == certificates.head();
        bags = asn_Link(std::move(bags),
                        certificate_bag(*entry, bag_attributes(names, isNamed, false, isTrusted)));
    }
    return asn_NewSequence(std::move(bags));
}

[[nodiscard]] int key_bag(AsnList& info, const Key& key, const BagNames& names, const P12Password& password,
                          P12Strength strength) {
    AsnList algorithm;
    SecretBuffer data;
    if (const int error = p12_encrypt(algorithm, data, asn_Encode(key_private_info(key)), password, strength))
        return error;
    AsnList value =
        asn_NewSequence(asn_LinkList(std::move(algorithm), asn_NewOctetString(data.data(), data.size())));
    info = data_content_info(asn_Encode(asn_NewSequence(
        bag(kOidShroudedKeyBag, std::move(value), bag_attributes(names, true, true, false)))));
    return 0;
}

[[nodiscard]] int check_order(const P12PackOrder& order) {
    constexpr int kBoth = ZUL_P12_LEGACY | ZUL_P12_PBMAC1;
    if ((order.options & ~kKnownOptions) != 0 || (order.options & kBoth) == kBoth)
        return err_unknown_option();
    if (*order.certs == '\0' && *order.privateKey == '\0')
        return err_fail(BAD_PARAM_ERROR, "Neither certificates nor a private key");
    if (*order.privateKey != '\0' && *order.password == '\0')
        return err_fail(BAD_PARAM_ERROR, "A private key needs a password that is not empty");
    return P12Password::fits(order.password) ? 0 : err_fail(BAD_LENGTH_ERROR, "The password is too long");
}

} // namespace

int p12_pack(const P12PackOrder& order) {
    if (const int error = check_order(order))
        return error;
    const bool hasKey = *order.privateKey != '\0';
    P12Entries certificates;
    if (const int error = p12_read_certificates(certificates, order.certs))
        return error;
    std::optional<Key> key;
    P12Entry* own = nullptr;
    if (hasKey) {
        if (const int error = read_key(key, order.privateKey))
            return error;
        if (const int error = find_own(own, certificates, *key))
            return error;
    } else if (certificates.count() == 0) {
        return err_fail(NO_DATA_ERROR, "No certificate in the list");
    }

    BagNames names;
    take_name(names, order.name);
    if (own != nullptr) {
        Sha1Context context;
        sha1_init(context);
        sha1_update(context, own->content.data(), own->content.size());
        sha1_final(context, names.keyId);
        names.hasKeyId = true;
    }
    const bool isLegacy = (order.options & ZUL_P12_LEGACY) != 0;
    const P12Strength strength = isLegacy ? P12Strength::legacy : P12Strength::modern;
    const P12Password password(order.password);
    AsnList certificateInfo, keyInfo;
    if (certificates.count() != 0) {
        const AsnList bags =
            certificate_bags(certificates, own, names, hasKey, (order.options & ZUL_P12_TRUSTED) != 0);
        if (const int error = encrypted_content_info(certificateInfo, bags, password, strength))
            return error;
    }
    if (hasKey)
        if (const int error = key_bag(keyInfo, *key, names, password, strength))
            return error;
    const SecretBuffer safe =
        asn_Encode(asn_NewSequence(asn_LinkList(std::move(certificateInfo), std::move(keyInfo))));
    if (safe.empty() || safe.size() > kMaxSafe)
        return too_long();
    const P12MacKind mac = isLegacy                                ? P12MacKind::legacy
                           : (order.options & ZUL_P12_PBMAC1) != 0 ? P12MacKind::pbmac1
                                                                   : P12MacKind::modern;
    const AsnList pfx = asn_NewSequence(
        asn_LinkList(asn_NewInteger(kPfxVersion), data_content_info(safe), p12_new_mac(safe, password, mac)));
    // There may be no other copy of the key.
    int error = CREATE_ERROR;
    if (!p12_lists_file(order.certs, order.newFile))
        error = asn_write_file(order.newFile, pfx.head(),
                               (order.options & ZUL_KEY_FORMAT_PEM) != 0 ? "PKCS12" : nullptr, kPemLineLen,
                               {.secret = hasKey, .replaces = true, .input = order.privateKey});
    return error == CREATE_ERROR ? err_fail(error, "Cannot create file '%s'", shown_name(order.newFile))
                                 : error;
}

} // namespace zul
