#include "key/digest_oid.h"

#include "asn1/asn_children.h"
#include "frame/err.h"
#include "hash/digest.h"
#include "key/key_oids.h"
#include "zulcore.h"

namespace zul {

static constexpr struct {
    int digest;
    std::string_view oid;
} kDigestOids[] = {
    {kDigestSha1, "\x2B\x0E\x03\x02\x1A"sv},
    {kDigestMd5, "\x2A\x86\x48\x86\xF7\x0D\x02\x05"sv},
    {kDigestMd2, "\x2A\x86\x48\x86\xF7\x0D\x02\x02"sv},
    {kDigestSha256, "\x60\x86\x48\x01\x65\x03\x04\x02\x01"sv},
    {kDigestSha384, "\x60\x86\x48\x01\x65\x03\x04\x02\x02"sv},
    {kDigestSha512, "\x60\x86\x48\x01\x65\x03\x04\x02\x03"sv},
    {kDigestSha224, "\x60\x86\x48\x01\x65\x03\x04\x02\x04"sv},
    {kDigestSha512_256, "\x60\x86\x48\x01\x65\x03\x04\x02\x06"sv},
    {kDigestSha3_224, "\x60\x86\x48\x01\x65\x03\x04\x02\x07"sv},
    {kDigestSha3_256, "\x60\x86\x48\x01\x65\x03\x04\x02\x08"sv},
    {kDigestSha3_384, "\x60\x86\x48\x01\x65\x03\x04\x02\x09"sv},
    {kDigestSha3_512, "\x60\x86\x48\x01\x65\x03\x04\x02\x0A"sv},
};

AsnList digest_algorithm_list(int digest) {
    for (const auto& row : kDigestOids)
        if (row.digest == digest)
            return asn_NewSequence(asn_LinkList(oid_node(row.oid), asn_NewNull()));
    return {};
}

int digest_algorithm_read(int* digest, const asn_Node* algorithm) {
    AsnChildren children(algorithm);
    const asn_Node* oid = children.take_oid();
    children.take_if(kAsnUniversal, kAsnNull);
    if (oid == nullptr || !children.at_end())
        return err_fail(BAD_FORMAT_ERROR, "Invalid digest algorithm");
    for (const auto& row : kDigestOids) {
        if (oid_is(oid, row.oid)) {
            *digest = row.digest;
            return 0;
        }
    }
    return err_fail(NOT_SUPPORTED_ERROR, "Digest algorithm not supported");
}

} // namespace zul
