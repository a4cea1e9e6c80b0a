#include "cms/signed/content_digest.h"

#include <algorithm>

#include "asn1/asn_header.h"
#include "asn1/asn_parse.h"
#include "cms/content/octet_content.h"
#include "cms/signed/signer_info.h"
#include "frame/err.h"
#include "hash/digest.h"
#include "x509/input/x509_input.h"

namespace zul {

int content_digest(OctetContent& content, int algorithm, uint8_t* digest) {
    constexpr size_t kChunk = size_t{64} * 1024;
    SecretBuffer chunk(std::min(content.size(), kChunk));
    DigestContext context;
    digest_init(context, algorithm);
    bool whole = content.rewind();
    for (size_t left = content.size(); whole && left > 0;) {
        const size_t part = std::min(left, chunk.size());
        whole = content.read(chunk.data(), part) == part;
        digest_update(context, chunk.data(), part);
        left -= part;
    }
    digest_final(context, digest);
    if (whole)
        return 0;
    return err_fail(READ_ERROR, "Cannot read the content");
}

bool is_attribute_set(OctetContent& content) {
    uint8_t first[sizeof asn_Node::hdr];
    if (!content.rewind())
        return false;
    ByteStream beginning(first, content.read(first, sizeof first));
    AsnHeader header;
    bool isSet = asn_read_header(beginning, header) == 1 && header.cls == kAsnConstructed &&
                 header.tag == kAsnSet && content.size() <= kMaxX509Object;
    if (header.ndef == 0)
        isSet = isSet && header.hdrsize + size_t{header.length} == content.size();
    if (!isSet || !content.rewind())
        return false;
    SecretBuffer bytes(content.size());
    ByteStream stream(bytes.data(), content.read(bytes.data(), bytes.size()));
    const AsnList set = asn_Parse(stream, false, true);
    const asn_Node* value;
    return set && stream.at_end() && find_attribute(set.head(), "messageDigest", &value) > 0;
}

} // namespace zul
