// The PFX of RFC 7292 with password integrity, each bag in plain SafeContents of its own.
#include "pfx/pfx_make.h"

#include "asn1/asn_build.h"
#include "asn1/asn_element.h"
#include "asn1/asn_encode.h"
#include "asn1/asn_file.h"
#include "asn1/asn_input.h"
#include "asn1/asn_parse.h"
#include "frame/err.h"
#include "frame/text.h"
#include "pbe/pbe.h"
#include "pfx/pfx_mac.h"
#include "pfx/pfx_reader.h"
#include "rsa/rsa_der.h"
#include "x509/input/x509_input.h"
#include "zulcore.h"

namespace zul {
namespace {

constexpr size_t kMaxKeyFile = 1 << 22;      // as where keys are read
constexpr size_t kMaxSafe = kMaxPfxFile / 2; // so that the file can be read again, as PEM too

[[nodiscard]] int read_certificate(const char* fileOrText, AsnList& certificate) {
    AsnList object;
    if (x509_read_certificate(fileOrText, object) == 0)
        certificate = asn_ToDer(std::move(object));
    if (certificate)
        return 0;
    return err_fail(INVALID_DATA_ERROR, "Invalid ASN.1 data in %s", shown_name(fileOrText));
}

// test_key tells whether a password gives an RSA key, as RSA_ReadEncPrivateKey would.
[[nodiscard]] int test_key(const asn_Node* encrypted, const char* password) {
    SecretBuffer plain;
    if (pbe_decrypt(encrypted, password, plain) == 0) {
        RsaKey key;
        const AsnList list = asn_ParseBytes(plain.data(), plain.size());
        if (list && rsa_read_private_key_info(list.head(), key))
            return 0;
        err_add_text("Not valid PrivateKeyInfo data");
    }
    return err_fail(DECRYPT_ERROR, "Could not decrypt key");
}

// The attributes always have this order. The order of DER differs for a friendly name of one or two
// characters; readers accept both.
AsnList bag_attributes(const char* friendlyName) {
    constexpr uint8_t kLocalKeyId[] = {1, 0, 0, 0};
    AsnList keyId = asn_NewAttribute("localKeyID", asn_NewOctetString(kLocalKeyId, sizeof kLocalKeyId));
    return asn_NewSet(
        asn_LinkList(std::move(keyId), asn_NewAttribute("friendlyName", asn_NewBMPString(friendlyName))));
}

AsnList data_content_info(AsnList content) {
    return asn_NewSequence(
        asn_LinkList(asn_NewOid("data"), asn_NewExplicit(0, asn_NewOctetStringOf(std::move(content)))));
}

// The ContentInfo of SafeContents with one bag.
AsnList bag_content_info(const char* bagId, AsnList value, const char* friendlyName) {
    AsnList bag = asn_NewSequence(
        asn_LinkList(asn_NewOid(bagId), asn_NewExplicit(0, std::move(value)), bag_attributes(friendlyName)));
    return data_content_info(asn_NewSequence(std::move(bag)));
}

AsnList cert_bag_value(AsnList certificate) {
    return asn_NewSequence(asn_LinkList(asn_NewOid("x509Certificate"),
                                        asn_NewExplicit(0, asn_NewOctetStringOf(std::move(certificate)))));
}

} // namespace

int pfx_make(const PfxOrder& order) {
    const bool withKey =
        (order.options & ZUL_PFX_NO_PRIVKEY) == 0 && *order.keyFile != '\0' && *order.password != '\0';
    AsnList certificate, key;
    if (!pfx_password_fits(order.password))
        return BAD_LENGTH_ERROR;
    if (const int error = read_certificate(order.certFile, certificate))
        return error;
    // Read once, so that what is carried is what was tested.
    if (withKey) {
        if (const int error = asn_read_input(order.keyFile, key, kMaxKeyFile))
            return error;
        if (const int error = test_key(key.head(), order.password))
            return error;
    }

    AsnList infos =
        bag_content_info("pkcs-12-certBag", cert_bag_value(std::move(certificate)), order.friendlyName);
    if (withKey)
        infos = asn_LinkList(std::move(infos), bag_content_info("pkcs-12-pkcs-8ShroudedKeyBag",
                                                                std::move(key), order.friendlyName));
    AsnList authenticatedSafe = asn_NewSequence(std::move(infos));
    const SecretBuffer safe = asn_Encode(authenticatedSafe);
    if (safe.empty() || safe.size() > kMaxSafe)
        return err_fail(MSG_TOO_LONG_ERROR, "Too long for a PFX file");
    const AsnList pfx = asn_NewSequence(asn_LinkList(asn_NewInteger(kPfxVersion),
                                                     data_content_info(std::move(authenticatedSafe)),
                                                     pfx_mac_data(safe, order.password)));
    // There may be no other copy of the key.
    const int error = asn_write_file(
        order.newFile, pfx.head(), (order.options & ZUL_KEY_FORMAT_PEM) != 0 ? "PKCS12" : nullptr,
        kPemLineLen, {.secret = withKey, .replaces = true, .input = order.keyFile});
    return error == CREATE_ERROR ? err_fail(error, "Cannot create file %s", shown_name(order.newFile))
                                 : error;
}

} // namespace zul
