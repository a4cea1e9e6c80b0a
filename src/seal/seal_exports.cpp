#include "ec/x25519.h"
#include "frame/call_frame.h"
#include "frame/err.h"
#include "frame/text.h"
#include "rng/rng.h"
#include "seal/age_keys.h"
#include "seal/bech32.h"
#include "seal/seal_file.h"
#include "zulcore.h"

using namespace zul;

namespace {

constexpr int kIdentityLength = bech32_key_length(kIdentityPrefix),
              kRecipientLength = bech32_key_length(kRecipientPrefix);

bool is_query(const char* out, int room) {
    return out == nullptr || room <= 0;
}

int make_identity(char* out, int room, int options) {
    if (options != 0)
        return err_unknown_option();
    if (is_query(out, room))
        return 0;
    if (room < kIdentityLength)
        return SHORT_BUF_ERROR;
    Secret<kX25519Bytes> key;
    if (const int code = rng_bytes(key.data(), key.size()))
        return code;
    bech32_write(out, kIdentityPrefix, key.data(), true);
    return 0;
}

int recipient_of(char* out, int room, const char* identity) {
    if (is_missing(identity))
        return BAD_PARAM_ERROR;
    AgeKeys keys;
    if (const int code = keys.read(identity, AgeKeyKind::identity))
        return code;
    if (is_query(out, room))
        return 0;
    if (room < kRecipientLength)
        return SHORT_BUF_ERROR;
    uint8_t recipient[kX25519Bytes];
    x25519_public(recipient, keys.key(0));
    bech32_write(out, kRecipientPrefix, recipient, false);
    return 0;
}

} // namespace

int SEAL_MakeIdentity(char* szOutput, int nOutChars, int nOptions) {
    CallFrame frame(1);
    return frame.length(make_identity(szOutput, nOutChars, nOptions), kIdentityLength);
}

int SEAL_Recipient(char* szOutput, int nOutChars, const char* szIdentity) {
    CallFrame frame;
    return frame.length(recipient_of(szOutput, nOutChars, szIdentity), kRecipientLength);
}

int SEAL_File(const char* szFileOut, const char* szFileIn, const char* szRecipients, const char* szPassword,
              int nOptions) {
    CallFrame frame(1);
    return frame.status(seal_file({szFileOut, szFileIn, szRecipients, szPassword, nOptions}));
}

int SEAL_OpenFile(const char* szFileOut, const char* szFileIn, const char* szIdentities,
                  const char* szPassword, int nOptions) {
    CallFrame frame;
    return frame.status(seal_open_file({szFileOut, szFileIn, szIdentities, szPassword, nOptions}));
}
