#pragma once
#include <string>

#include "support/temp_dir.h"
#include "zulcore.h"

namespace calls {

// A text that the exports take as it is.
struct Text : std::string {
    Text() = default;
    Text(std::string text) : std::string(std::move(text)) {}
    operator const char*() const { return c_str(); }
    operator const void*() const { return data(); }
    operator const unsigned char*() const { return reinterpret_cast<const unsigned char*>(data()); }
    int length() const { return static_cast<int>(size()); }
};

// World holds what the calls work on: keys, and files in one folder that no call changes. What calls write is
// in another folder.
struct World {
    World();

    static constexpr int kRoom = 99999;
    char text[kRoom + 1];
    unsigned char bytes[kRoom + 1];
    unsigned char context[4096];

    Text rsa, rsaPublic, ec, ecPublic, ed, edPublic, x, xPublic; // key strings
    Text xml, identity, recipient;
    Text signature, ecSignature, fileSignature, digestSignature,
        block;                        // of "message", of a file, of a digest
    Text wrapped, sealedText, padded; // by CIPHER_KeyWrap, AEAD_Encrypt, PAD_BytesBlock

    // Files.
    Text plain, large, pem, hashed;
    Text publicKey, privateKey, encryptedKey, scryptKey, ecKey, ownKey;
    Text root, leaf, leafText, crl, request, bundle; // of X509_
    Text authority, subject, list, pkcs10;           // of CERT_
    Text signedData, detached, enveloped, pfx, p12, sealed, recipients, identities;
    Text response, responder;

    // Outputs, of which each call makes some anew: target always, second and link where it says so.
    Text target, second, link;

    test::TempDir inputs, outputs;
};

World& world();

} // namespace calls
