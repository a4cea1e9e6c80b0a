#pragma once
#include "hash/digest.h"
#include "key/key_oids.h"
#include "key/signature_choice.h"

// Object identifiers of signatures with one digest each: RFC 3279 (RSA, ECDSA with SHA-1), RFC 4055 (RSA with
// SHA-2), RFC 5758 (ECDSA with SHA-2), RFC 8017 (RSA with SHA-512/256), RFC 9688 (SHA-3).
namespace zul {

struct SignatureOid {
    SignatureScheme scheme;
    int digest;
    std::string_view oid;
};
constexpr SignatureOid kSignatureOids[] = {
    {SignatureScheme::rsaPkcs1, kDigestMd2, "\x2A\x86\x48\x86\xF7\x0D\x01\x01\x02"sv},
    {SignatureScheme::rsaPkcs1, kDigestMd5, "\x2A\x86\x48\x86\xF7\x0D\x01\x01\x04"sv},
    {SignatureScheme::rsaPkcs1, kDigestSha1, "\x2A\x86\x48\x86\xF7\x0D\x01\x01\x05"sv},
    {SignatureScheme::rsaPkcs1, kDigestSha224, "\x2A\x86\x48\x86\xF7\x0D\x01\x01\x0E"sv},
    {SignatureScheme::rsaPkcs1, kDigestSha256, "\x2A\x86\x48\x86\xF7\x0D\x01\x01\x0B"sv},
    {SignatureScheme::rsaPkcs1, kDigestSha384, "\x2A\x86\x48\x86\xF7\x0D\x01\x01\x0C"sv},
    {SignatureScheme::rsaPkcs1, kDigestSha512, "\x2A\x86\x48\x86\xF7\x0D\x01\x01\x0D"sv},
    {SignatureScheme::rsaPkcs1, kDigestSha512_256, "\x2A\x86\x48\x86\xF7\x0D\x01\x01\x10"sv},
    {SignatureScheme::rsaPkcs1, kDigestSha3_224, "\x60\x86\x48\x01\x65\x03\x04\x03\x0D"sv},
    {SignatureScheme::rsaPkcs1, kDigestSha3_256, "\x60\x86\x48\x01\x65\x03\x04\x03\x0E"sv},
    {SignatureScheme::rsaPkcs1, kDigestSha3_384, "\x60\x86\x48\x01\x65\x03\x04\x03\x0F"sv},
    {SignatureScheme::rsaPkcs1, kDigestSha3_512, "\x60\x86\x48\x01\x65\x03\x04\x03\x10"sv},
    {SignatureScheme::ecdsa, kDigestSha1, "\x2A\x86\x48\xCE\x3D\x04\x01"sv},
    {SignatureScheme::ecdsa, kDigestSha224, "\x2A\x86\x48\xCE\x3D\x04\x03\x01"sv},
    {SignatureScheme::ecdsa, kDigestSha256, "\x2A\x86\x48\xCE\x3D\x04\x03\x02"sv},
    {SignatureScheme::ecdsa, kDigestSha384, "\x2A\x86\x48\xCE\x3D\x04\x03\x03"sv},
    {SignatureScheme::ecdsa, kDigestSha512, "\x2A\x86\x48\xCE\x3D\x04\x03\x04"sv},
    {SignatureScheme::ecdsa, kDigestSha3_224, "\x60\x86\x48\x01\x65\x03\x04\x03\x09"sv},
    {SignatureScheme::ecdsa, kDigestSha3_256, "\x60\x86\x48\x01\x65\x03\x04\x03\x0A"sv},
    {SignatureScheme::ecdsa, kDigestSha3_384, "\x60\x86\x48\x01\x65\x03\x04\x03\x0B"sv},
    {SignatureScheme::ecdsa, kDigestSha3_512, "\x60\x86\x48\x01\x65\x03\x04\x03\x0C"sv},
};

} // namespace zul
