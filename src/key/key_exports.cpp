#include <climits>
#include <cstring>

#include "frame/call_frame.h"
#include "frame/err.h"
#include "frame/text.h"
#include "key/key_check.h"
#include "key/key_make.h"
#include "key/key_query.h"
#include "key/key_read.h"
#include "key/key_save.h"
#include "key/key_string.h"
#include "zulcore.h"

using namespace zul;

namespace {

bool is_query(const void* out, int room) {
    return out == nullptr || room <= 0;
}

// give writes a key string: its length or a negated code.
int give(char* out, int room, const Key& key) {
    const SecretBuffer text = key_string_write(key);
    if (text.empty())
        return -err_fail(INVALID_DATA_ERROR, "The key is too long");
    const auto length = static_cast<int>(text.size());
    if (is_query(out, room))
        return length;
    if (room < length)
        return -err_short_room(static_cast<size_t>(length));
    memcpy(out, text.data(), text.size() + 1);
    return length;
}

int make(char* out, int room, const char* algorithm, int options) {
    KeyChoice choice{};
    if (const int error = key_choose(choice, algorithm))
        return -error;
    if ((options & ~ZUL_KEY_SHOW_PROGRESS) != 0)
        return -err_unknown_option();
    const auto most = static_cast<int>(key_string_most(choice.kind, choice.bits));
    if (is_query(out, room))
        return most;
    if (room < most)
        return -err_short_room(static_cast<size_t>(most));
    Key key;
    const int error = key_make(key, choice, options);
    return error != 0 ? -error : give(out, room, key);
}

int query(char* out, int room, const char* text, const char* word, int options) {
    KeyQuery what{};
    if (const int error = key_query_find(what, word))
        return -error;
    if ((options & ~ZUL_QUERY_GETTYPE) != 0)
        return -err_unknown_option();
    if ((options & ZUL_QUERY_GETTYPE) != 0)
        return key_query_is_number(what) ? 1 : 2;
    Key key;
    if (const int error = key_string_read(text, key))
        return -error;
    char answer[kKeyAnswer];
    const int number = key_query(answer, key, what);
    const int length = str_length(answer);
    if (!is_query(out, room)) {
        if (room < length)
            return -err_short_room(static_cast<size_t>(length));
        memcpy(out, answer, static_cast<size_t>(length) + 1);
    }
    return key_query_is_number(what) ? number : length;
}

int agree(unsigned char* out, int room, const char* privateText, const char* publicText, int options) {
    if (options != 0)
        return -err_unknown_option();
    Key privateKey, publicKey;
    if (const int error = key_string_read_private(privateText, privateKey))
        return -error;
    if (const int error = key_string_read(publicText, publicKey))
        return -error;
    size_t size = 0;
    if (const int error = key_agree_size(&size, privateKey, publicKey))
        return -error;
    const auto length = static_cast<int>(size);
    if (is_query(out, room))
        return length;
    if (room < length)
        return -err_short_room(static_cast<size_t>(length));
    const int error = key_agree(out, privateKey, publicKey);
    return error != 0 ? -error : length;
}

} // namespace

int KEY_Make(char* szOutput, int nOutChars, const char* szAlgorithm, int nOptions) {
    CallFrame frame(1);
    return frame.length(make(szOutput, nOutChars, szAlgorithm, nOptions));
}

int KEY_Read(char* szOutput, int nOutChars, const char* szFileOrText, const char* szPassword, int nOptions) {
    CallFrame frame(1);
    if (is_missing(szFileOrText))
        return frame.length(-err_missing_argument());
    if (nOptions != 0)
        return frame.length(-err_unknown_option());
    Key key;
    const int error = key_read(key, szFileOrText, szPassword);
    return frame.length(error != 0 ? -error : give(szOutput, nOutChars, key));
}

int KEY_Save(const char* szFileOut, const char* szKey, const char* szPassword, const char* szParameters,
             int nOptions) {
    CallFrame frame(1);
    if (is_missing(szFileOut))
        return frame.status(err_missing_argument());
    Key key;
    const int error = key_string_read(szKey, key);
    return frame.status(error != 0 ? error : key_save(szFileOut, key, szPassword, szParameters, nOptions));
}

int KEY_Public(char* szOutput, int nOutChars, const char* szPrivateKey) {
    CallFrame frame;
    Key key;
    const int error = key_string_read(szPrivateKey, key);
    key.isPrivate = false;
    return frame.length(error != 0 ? -error : give(szOutput, nOutChars, key));
}

int KEY_Query(char* szOutput, int nOutChars, const char* szKey, const char* szQuery, int nOptions) {
    CallFrame frame;
    return frame.length(query(szOutput, nOutChars, szKey, szQuery, nOptions));
}

int KEY_Match(const char* szPrivateKey, const char* szPublicKey) {
    CallFrame frame;
    Key privateKey, publicKey;
    if (const int error = key_string_read_private(szPrivateKey, privateKey))
        return frame.status(error);
    const int error = key_string_read(szPublicKey, publicKey);
    return frame.status(error != 0 ? error : key_match(privateKey, publicKey));
}

int KEY_Check(const char* szKey, int nOptions) {
    CallFrame frame;
    if (nOptions != 0)
        return frame.status(err_unknown_option());
    Key key;
    const int error = key_string_read(szKey, key);
    return frame.status(error != 0 ? error : key_check(key));
}

int KEY_Agree(unsigned char* lpOutput, int nOutBytes, const char* szPrivateKey, const char* szPublicKey,
              int nOptions) {
    CallFrame frame;
    return frame.length(agree(lpOutput, nOutBytes, szPrivateKey, szPublicKey, nOptions));
}
