#include "x509/make/extension_build.h"

#include "asn1/asn_build.h"
#include "asn1/asn_value.h"

namespace zul {
namespace {

constexpr uint32_t kExtensionsField = 3;
constexpr uint32_t kKeyIdentifier = 0, kRfc822Name = 1; // context tags

AsnList extension(const char* name, bool critical, AsnList value) {
    return asn_NewSequence(asn_LinkList(asn_NewOid(name), critical ? asn_NewBoolean(1) : AsnList(),
                                        asn_NewOctetStringOf(std::move(value))));
}

AsnList basic_constraints(bool isCa) {
    // cA FALSE is the default, which DER leaves out.
    return extension("basicConstraints", true, asn_NewSequence(isCa ? asn_NewBoolean(1) : AsnList()));
}

AsnList key_usage(uint32_t flags) {
    uint8_t bytes[4];
    unsigned unused = 0;
    const size_t size = asn_BitFlagsToBytes(flags, bytes, &unused);
    return extension("keyUsage", true, asn_NewBitString(unused, bytes, size));
}

AsnList sequence_of(uint32_t tag, const SecretBuffer& content) {
    return asn_NewSequence(asn_NewContextPrim(tag, content.data(), content.size()));
}

} // namespace

AsnList build_extensions(const ExtensionChoice& choice) {
    AsnList list;
    const auto add = [&list](AsnList item) { list = asn_Link(std::move(list), std::move(item)); };
    if (choice.basicConstraints)
        add(basic_constraints(choice.isCa));
    if (choice.keyUsageFlags != 0)
        add(key_usage(choice.keyUsageFlags));
    if (!choice.authorityKeyIdentifier.empty())
        add(extension("authorityKeyIdentifier", false,
                      sequence_of(kKeyIdentifier, choice.authorityKeyIdentifier)));
    if (const SecretBuffer& id = choice.subjectKeyIdentifier; !id.empty())
        add(extension("subjectKeyIdentifier", false, asn_NewOctetString(id.data(), id.size())));
    if (!choice.emailAddress.empty())
        add(extension("subjectAltName", false, sequence_of(kRfc822Name, choice.emailAddress)));
    return list.failed() || list ? asn_NewExplicit(kExtensionsField, asn_NewSequence(std::move(list)))
                                 : AsnList();
}

} // namespace zul
