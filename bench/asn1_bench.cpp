#include <cstdlib>
#include <openssl/asn1.h>
#include <openssl/x509.h>
#include <vector>

#include "asn1/asn_build.h"
#include "asn1/asn_encode.h"
#include "asn1/asn_parse.h"
#include "asn1/asn_value.h"
#include "bench_certificate.h"
#include "bench_pair.h"
#include "encode/base64.h"

namespace {

using Bytes = std::vector<unsigned char>;

Bytes certificate() {
    Bytes der(zul::b64_decoded_length(kBenchCertificate));
    zul::b64_decode(der.data(), der.size(), kBenchCertificate);
    return der;
}

Bytes encoded(const zul::AsnList& list) {
    const zul::SecretBuffer out = zul::asn_Encode(list);
    return {out.data(), out.data() + out.size()};
}

// A SEQUENCE of INTEGERs of three bytes.
Bytes integers(int count) {
    zul::AsnList all;
    for (int i = 0; i < count; i++)
        all = zul::asn_Link(std::move(all), zul::asn_NewInteger(0x10000));
    return encoded(zul::asn_NewSequence(std::move(all)));
}

// An OCTET STRING of indefinite length in segments.
Bytes segments(size_t size, size_t segment) {
    const Bytes content(segment, 0x5A);
    const Bytes one = encoded(zul::asn_NewOctetString(content.data(), segment));
    Bytes all = {0x24, 0x80};
    for (size_t done = 0; done < size; done += segment)
        all.insert(all.end(), one.begin(), one.end());
    all.insert(all.end(), {0, 0});
    return all;
}

void our_joining(const Bytes& ber) {
    const zul::AsnList list = zul::asn_ParseBytes(ber.data(), ber.size());
    zul::SecretBuffer content;
    if (!zul::asn_GetOctets(list.head(), content) || content.size() < ber.size() / 2)
        std::abort();
}

void our_parse(const Bytes& der) {
    const zul::AsnList list = zul::asn_ParseBytes(der.data(), der.size());
    if (!list)
        std::abort();
}

template<class Item, class Parse, class Free>
void their_parse(const Bytes& der, Parse parse, Free release) {
    const unsigned char* at = der.data();
    Item* item = parse(nullptr, &at, static_cast<long>(der.size()));
    if (item == nullptr)
        std::abort();
    release(item);
}

void free_sequence(ASN1_SEQUENCE_ANY* items) {
    sk_ASN1_TYPE_pop_free(items, ASN1_TYPE_free);
}

} // namespace

BENCH_ROWS {
    static const Bytes cert = certificate();
    bench_register({"parse and free a 2 KiB certificate", 0, [] { our_parse(cert); },
                    [] { their_parse<X509>(cert, d2i_X509, X509_free); }});

    // Two rows of a kind show by one rate that the cost grows with the size alone. Ours wipes what it frees,
    // so theirs has to, but for the row that shows what that costs.
    static const Bytes small = encoded(zul::asn_NewOctetString(Bytes(1 << 20).data(), 1 << 20));
    static const Bytes large = encoded(zul::asn_NewOctetString(Bytes(1 << 24).data(), 1 << 24));
    for (const Bytes* der : {&small, &large})
        bench_register(
            {der == &small ? "parse an OCTET STRING, 1 MiB" : "parse an OCTET STRING, 16 MiB", der->size(),
             [der] { our_parse(*der); },
             [der] { their_parse<ASN1_OCTET_STRING>(*der, d2i_ASN1_OCTET_STRING, ASN1_STRING_clear_free); }});
    bench_register(
        {"the same, theirs does not wipe it", large.size(), [] { our_parse(large); },
         [] { their_parse<ASN1_OCTET_STRING>(large, d2i_ASN1_OCTET_STRING, ASN1_OCTET_STRING_free); }});
    static const Bytes segmented = segments(1 << 24, 4096);
    bench_register(
        {"parse and join an OCTET STRING, 4 KiB segments", segmented.size(), [] { our_joining(segmented); },
         [] { their_parse<ASN1_OCTET_STRING>(segmented, d2i_ASN1_OCTET_STRING, ASN1_STRING_clear_free); }});

    static const Bytes few = integers(1000), many = integers(100'000);
    for (const Bytes* der : {&few, &many})
        bench_register(
            {der == &few ? "parse 1,000 INTEGERs" : "parse 100,000 INTEGERs", der->size(),
             [der] { our_parse(*der); },
             [der] { their_parse<ASN1_SEQUENCE_ANY>(*der, d2i_ASN1_SEQUENCE_ANY, free_sequence); }});
}
