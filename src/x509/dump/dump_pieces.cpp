#include "frame/err.h"
#include "x509/dump/dump_layouts.h"
#include "x509/fields/subject_public_key.h"
#include "x509/names/distinguished_name.h"
#include "zulcore.h"

namespace zul {
namespace {

void put_integer(DumpOutput& out, const char* label, const BigInt& number) {
    SecretBuffer bytes(mtConvToOctets(number, nullptr, 0));
    mtConvToOctets(number, bytes.data(), bytes.size());
    out.put("  ", label, ":\n");
    out.put_hex_block("    ", bytes.data(), bytes.size());
}

void put_key_length(DumpOutput& out, const char* type, size_t bits) {
    out.put("  ", type, " key length: ");
    out.put_number(static_cast<long>(bits));
    out.put(" bits\n");
}

[[nodiscard]] int dump_rsa_key(DumpOutput& out, const asn_Node* info) {
    RsaKey key;
    if (!rsa_public_key_of(info, key))
        return err_fail(BAD_FORMAT_ERROR, "Unable to convert public key");
    put_key_length(out, "RSA", key.bits);
    put_integer(out, "Modulus", key.n);
    put_integer(out, "Exponent", key.e);
    return 0;
}

[[nodiscard]] int dump_dsa_key(DumpOutput& out, const asn_Node* info) {
    DsaPublicKey key;
    const DsaKeyState state = dsa_public_key_of(info, key);
    if (state == DsaKeyState::noParameters)
        return err_fail(BAD_FORMAT_ERROR, "No public key parameters: inherited DSS-Params not supported");
    if (state != DsaKeyState::good)
        return err_fail(BAD_FORMAT_ERROR, "Unable to convert public key");
    put_key_length(out, "DSA", key.bits);
    put_integer(out, "P", key.p);
    put_integer(out, "Q", key.q);
    put_integer(out, "G", key.g);
    put_integer(out, "Y", key.y);
    return 0;
}

} // namespace

int dump_name(DumpOutput& out, const char* label, const asn_Node* name, const char* ifMissing) {
    if (name == nullptr)
        return err_fail(BAD_FORMAT_ERROR, "%s", ifMissing);
    SecretBuffer text;
    if (const int error = name_text(name, nullptr, ZUL_X509_LATIN1, text))
        return error;
    out.put(label, ":\n  ", text, "\n");
    return 0;
}

int dump_public_key(DumpOutput& out, const asn_Node* subjectPublicKeyInfo) {
    char algorithm[kAlgorithmName];
    out.put("Subject Public Key Algorithm: ", public_key_algorithm(subjectPublicKeyInfo, algorithm), "\n");
    switch (public_key_type(subjectPublicKeyInfo)) {
    case PublicKeyType::rsa:
        return dump_rsa_key(out, subjectPublicKeyInfo);
    case PublicKeyType::dsa:
        return dump_dsa_key(out, subjectPublicKeyInfo);
    case PublicKeyType::other:
        break;
    }
    return err_fail(BAD_FORMAT_ERROR, "Invalid public key type");
}

int dump_signature(DumpOutput& out, const asn_Node* algorithm, const asn_Node* value, const char* ifMissing) {
    char name[kAlgorithmName];
    out.put("Signature Algorithm: ", algorithm_name(algorithm, name), "\n");
    SecretBuffer bytes;
    if (!asn_GetBitString(value, bytes))
        return err_fail(BAD_FORMAT_ERROR, "%s", ifMissing);
    out.put_hex_block("  ", bytes.data(), bytes.size());
    return 0;
}

} // namespace zul
