#include "cert/make/issuer_certificate.h"

#include <cstring>

#include "asn1/asn_build.h"
#include "cert/make/plan_extensions.h"
#include "frame/err.h"
#include "key/key_der.h"
#include "zulcore.h"

namespace zul {

AsnList elements_of(DerView encoding) {
    constexpr uint32_t kTagBits = 0x1F;
    DerReader reader(encoding);
    DerElement element;
    AsnList list;
    while (reader.take_any(element)) {
        asn_Node* node = asn_make_node(element.identifier & ~kTagBits, element.identifier & kTagBits,
                                       element.content.size);
        if (!element.content.empty())
            memcpy(node->data, element.content.data, element.content.size);
        node->length = static_cast<uint32_t>(element.content.size);
        asn_SetHeader(node);
        list.append(node);
    }
    return reader.at_end() ? std::move(list) : AsnList();
}

int public_key_of(Key& key, DerView publicKeyInfo) {
    AsnList list;
    if (!key_parse(publicKeyInfo.data, publicKeyInfo.size, list))
        return err_fail(BAD_FORMAT_ERROR, "Invalid subjectPublicKeyInfo");
    return key_read_structure(list.head(), key);
}

int IssuerCertificate::open(const char* fileOrText) {
    int error = list_.add_argument(fileOrText, strlen(fileOrText));
    if (error == 0 && list_[0].kind != ObjectKind::certificate)
        error = err_fail(BAD_FORMAT_ERROR, "Not a certificate");
    if (error == 0)
        error = certificate_view_read(list_[0].der, view_);
    if (error == 0)
        error = cert_extensions_read(view_, extensions_);
    if (error == 0)
        error = public_key_of(key_, view_.publicKeyInfo);
    if (error != 0)
        err_add_text("in the issuer's certificate");
    return error;
}

int IssuerCertificate::check_issuer(uint32_t usage) const {
    if (view_.version != 3 || !extensions_.isCa)
        return err_fail(ISSUER_ERROR, "The issuer is no certification authority (basicConstraints)");
    if (!extensions_.allows(usage))
        return err_fail(ISSUER_ERROR, "The issuer's key usage lacks %s",
                        usage == kUsageCrlSign ? "cRLSign" : "keyCertSign");
    DerView names;
    return der_single(view_.subject, kDerSequence, names) && !names.empty()
               ? 0
               : err_fail(ISSUER_ERROR, "The issuer's certificate has no subject");
}

AsnList IssuerCertificate::name() const {
    return elements_of(view_.subject);
}

SecretBuffer IssuerCertificate::key_identifier() const {
    const DerView own = extensions_.subjectKeyIdentifier;
    if (own.empty())
        return zul::key_identifier(view_.publicKeyInfo);
    SecretBuffer identifier;
    identifier.append(own.data, own.size);
    return identifier;
}

} // namespace zul
