#include "seal/header_open.h"

#include "frame/err.h"
#include "seal/stanza_scrypt.h"
#include "seal/stanza_x25519.h"
#include "zulcore.h"

namespace zul {
namespace {

// Found is what check_stanzas has seen.
struct Found {
    bool hasX25519 = false, hasScrypt = false;
    ScryptStanza scrypt{};
};

// check_stanzas reads every stanza of a known type, whether or not it will be needed.
int check_stanzas(Found& found, const AgeHeader& header) {
    AgeStanza stanza;
    for (size_t at = 0; header.next(stanza, at);) {
        if (stanza.type == X25519Stanza::kType) {
            X25519Stanza own;
            if (!own.read(stanza))
                return err_fail(BAD_FORMAT_ERROR, "Malformed header: an X25519 stanza");
            found.hasX25519 = true;
        } else if (stanza.type == ScryptStanza::kType) {
            // Else whoever knows the password of a part of the recipients could pass for the sender.
            if (header.count() != 1)
                return err_fail(BAD_FORMAT_ERROR, "Malformed header: a scrypt stanza is not the only stanza");
            if (const int code = found.scrypt.read(stanza))
                return code;
            found.hasScrypt = true;
        }
    }
    return 0;
}

int open_for_identity(FileKey& fileKey, const AgeHeader& header, const AgeKeys& identities) {
    for (size_t i = 0; i < identities.count(); i++) {
        const AgeIdentity identity(identities.key(i));
        AgeStanza stanza;
        for (size_t at = 0; header.next(stanza, at);) {
            X25519Stanza own;
            if (stanza.type != X25519Stanza::kType || !own.read(stanza))
                continue;
            bool fits = false;
            const int code = x25519_stanza_open(fileKey, &fits, own, identity);
            if (code != 0 || fits)
                return code;
        }
    }
    return err_fail(NO_MATCH_ERROR, "None of the identities fits");
}

} // namespace

int header_open(FileKey& fileKey, const AgeHeader& header, const AgeKeys& identities,
                std::string_view password) {
    Found found;
    if (const int code = check_stanzas(found, header))
        return code;
    if (!found.hasX25519 && !found.hasScrypt)
        return err_fail(NO_MATCH_ERROR, "The header has no stanza of type X25519 or scrypt");
    if (found.hasScrypt && password.empty())
        return err_fail(NO_MATCH_ERROR, "The file is sealed with a password");
    if (found.hasX25519 && identities.count() == 0)
        return err_fail(NO_MATCH_ERROR, "The file is sealed for recipients: an identity is needed");
    if (const int code = found.hasScrypt ? scrypt_stanza_open(fileKey, found.scrypt, password)
                                         : open_for_identity(fileKey, header, identities))
        return code;
    return header.is_of(fileKey) ? 0 : err_fail(DECRYPT_ERROR, "The header is damaged: its MAC is wrong");
}

} // namespace zul
