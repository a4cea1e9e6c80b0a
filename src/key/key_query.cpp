#include "key/key_query.h"

#include <cstdio>

#include "asn1/asn_encode.h"
#include "encode/hex.h"
#include "frame/err.h"
#include "frame/name_table.h"
#include "frame/text.h"
#include "hash/digest_names.h"
#include "hash/sha256.h"
#include "key/key_der.h"
#include "zulcore.h"

namespace zul {

static constexpr NameRow kWords[] = {
    {"algorithm", static_cast<int>(KeyQuery::algorithm), false},
    {"bits", static_cast<int>(KeyQuery::bits), false},
    {"curve", static_cast<int>(KeyQuery::curve), false},
    {"isprivate", static_cast<int>(KeyQuery::isPrivate), false},
    {"fingerprint", static_cast<int>(KeyQuery::fingerprint), false},
    {"exponent", static_cast<int>(KeyQuery::exponent), false},
    {"hash", static_cast<int>(KeyQuery::hash), false},
    {"mgf", static_cast<int>(KeyQuery::mgf), false},
    {"salt", static_cast<int>(KeyQuery::salt), false},
};

static void write_fingerprint(char (&answer)[kKeyAnswer], const Key& key) {
    const SecretBuffer der = asn_Encode(key_public_info(key));
    uint8_t digest[kSha256Size];
    Sha256Context context;
    sha256_init(context);
    sha256_update(context, der.data(), der.size());
    sha256_final(context, digest);
    hex_encode_lower(answer, sizeof answer, digest, sizeof digest);
}

static void write_exponent(char (&answer)[kKeyAnswer], const Key& key) {
    answer[0] = '\0';
    if (!key.is_rsa())
        return;
    SecretBuffer bytes(mtConvToOctets(key.rsa->e, nullptr, 0));
    mtConvToOctets(key.rsa->e, bytes.data(), bytes.size());
    hex_encode_lower(answer, sizeof answer, bytes.data(), bytes.size());
}

int key_query_find(KeyQuery& query, const char* word) {
    int found = 0;
    if (name_find(kWords, word, &found) != 0) {
        err_set_text("Unknown query (known: algorithm, bits, curve, isPrivate, fingerprint, exponent, hash, "
                     "mgf, salt)");
        return is_missing(word) ? BAD_PARAM_ERROR : BAD_QUERY_ERROR;
    }
    query = static_cast<KeyQuery>(found);
    return 0;
}

bool key_query_is_number(KeyQuery query) {
    return query == KeyQuery::bits || query == KeyQuery::isPrivate || query == KeyQuery::salt;
}

int key_query(char (&answer)[kKeyAnswer], const Key& key, KeyQuery query) {
    const KeyKindInfo& info = key_kind_info(key.kind);
    int number = 0;
    switch (query) {
    case KeyQuery::algorithm:
        str_copy(answer, info.algorithm, sizeof answer);
        return 0;
    case KeyQuery::curve:
        str_copy(answer, info.curve != nullptr ? info.curve : "", sizeof answer);
        return 0;
    case KeyQuery::fingerprint:
        write_fingerprint(answer, key);
        return 0;
    case KeyQuery::exponent:
        write_exponent(answer, key);
        return 0;
    case KeyQuery::hash:
    case KeyQuery::mgf: {
        const int digest = query == KeyQuery::hash ? key.pss.digest : key.pss.mgfDigest;
        str_copy(answer, key.pss.restricts ? digest_choice_name(digest) : "", sizeof answer);
        return 0;
    }
    case KeyQuery::salt:
        number = static_cast<int>(key.pss.leastSalt);
        break;
    case KeyQuery::bits:
        number = key.is_rsa() ? static_cast<int>(key.rsa->bits) : info.bits;
        break;
    case KeyQuery::isPrivate:
        number = key.isPrivate ? 1 : 0;
        break;
    }
    snprintf(answer, sizeof answer, "%d", number);
    return number;
}

} // namespace zul
