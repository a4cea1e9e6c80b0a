#include <algorithm>

#include "frame/call_frame.h"
#include "frame/caller_context.h"
#include "hash/digest_names.h"
#include "hash/hmac.h"

using namespace zul;

namespace {

using HashContext = CallerContext<DigestContext>;
using MacContext = CallerContext<HmacContext>;

bool is_missing_data(const void* data, int length) {
    return length < 0 || (data == nullptr && length > 0);
}

// The output of a digest: cut to the room, or as much as the room is if it is extendable.
int finish_digest(unsigned char* output, int room, DigestContext& context) {
    const DigestDescriptor& digest = *digest_find(context.algorithm);
    if (digest.isExtendable) {
        sha3_squeeze(context.sha3, output, static_cast<size_t>(room));
        return room;
    }
    Secret<kMaxDigestSize> bytes;
    const int length = std::min(room, digest_final(context, bytes.data()));
    memcpy(output, bytes.data(), static_cast<size_t>(length));
    return length;
}

} // namespace

int HASH_Begin(void* lpContext, int nContextLen, const char* szAlgorithm, int nOptions) {
    CallFrame frame;
    if (const int error = HashContext::prepare(lpContext, nContextLen))
        return frame.length(-error);
    int algorithm = 0;
    if (const int error = digest_choose(&algorithm, szAlgorithm))
        return frame.length(-error);
    if (nOptions != 0)
        return frame.length(-err_unknown_option());
    if (HashContext::is_query(lpContext, nContextLen))
        return int{HashContext::kBytes};
    HashContext context(ContextKind::digest);
    digest_init(*context, algorithm);
    context.store(lpContext);
    return int{HashContext::kBytes};
}

int HASH_Add(void* lpContext, const void* lpData, int nDataLen) {
    CallFrame frame;
    HashContext context(ContextKind::digest);
    if (const int error = context.load(lpContext))
        return frame.status(error);
    if (is_missing_data(lpData, nDataLen))
        return frame.status(err_missing_argument());
    digest_update(*context, lpData, static_cast<size_t>(nDataLen));
    context.store(lpContext);
    return 0;
}

int HASH_End(unsigned char* lpOutput, int nOutBytes, void* lpContext) {
    CallFrame frame;
    HashContext context(ContextKind::digest);
    if (const int error = context.load(lpContext))
        return frame.length(-error);
    if (lpOutput == nullptr || nOutBytes <= 0)
        return static_cast<int>(digest_length(context->algorithm));
    const int length = finish_digest(lpOutput, nOutBytes, *context);
    HashContext::wipe(lpContext);
    return length;
}

int HMAC_Begin(void* lpContext, int nContextLen, const void* lpKey, int nKeyLen, const char* szAlgorithm,
               int nOptions) {
    CallFrame frame;
    if (const int error = MacContext::prepare(lpContext, nContextLen))
        return frame.length(-error);
    int algorithm = 0;
    if (const int error = digest_choose_for_hmac(&algorithm, szAlgorithm))
        return frame.length(-error);
    if (nOptions != 0)
        return frame.length(-err_unknown_option());
    if (MacContext::is_query(lpContext, nContextLen))
        return int{MacContext::kBytes};
    if (is_missing_data(lpKey, nKeyLen))
        return frame.length(-err_missing_argument());
    MacContext context(ContextKind::hmac);
    hmac_init(*context, algorithm, lpKey, static_cast<size_t>(nKeyLen));
    context.store(lpContext);
    return int{MacContext::kBytes};
}

int HMAC_Add(void* lpContext, const void* lpData, int nDataLen) {
    CallFrame frame;
    MacContext context(ContextKind::hmac);
    if (const int error = context.load(lpContext))
        return frame.status(error);
    if (is_missing_data(lpData, nDataLen))
        return frame.status(err_missing_argument());
    hmac_update(*context, lpData, static_cast<size_t>(nDataLen));
    context.store(lpContext);
    return 0;
}

int HMAC_End(unsigned char* lpOutput, int nOutBytes, void* lpContext) {
    CallFrame frame;
    MacContext context(ContextKind::hmac);
    if (const int error = context.load(lpContext))
        return frame.length(-error);
    if (lpOutput == nullptr || nOutBytes <= 0)
        return static_cast<int>(digest_length(context->inner.algorithm));
    Secret<kMaxDigestSize> mac;
    const int length = std::min(nOutBytes, hmac_final(*context, mac.data()));
    memcpy(lpOutput, mac.data(), static_cast<size_t>(length));
    MacContext::wipe(lpContext);
    return length;
}
