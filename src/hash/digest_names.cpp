#include "hash/digest_names.h"

#include "frame/err.h"
#include "frame/name_table.h"
#include "frame/text.h"
#include "hash/hmac.h"

namespace zul {

static constexpr NameRow kDigestNames[] = {
    {"sha224", kDigestSha224, false},
    {"sha256", kDigestSha256, false},
    {"sha384", kDigestSha384, false},
    {"sha512", kDigestSha512, false},
    {"sha512-256", kDigestSha512_256, false},
    {"sha3-224", kDigestSha3_224, false},
    {"sha3-256", kDigestSha3_256, false},
    {"sha3-384", kDigestSha3_384, false},
    {"sha3-512", kDigestSha3_512, false},
    {"shake128", kDigestShake128, false},
    {"shake256", kDigestShake256, false},
    {"sha1", kDigestSha1, false},
    {"md5", kDigestMd5, false},
    {"md2", kDigestMd2, false},
    {"sha-1", kDigestSha1, true},
    {"sha-224", kDigestSha224, true},
    {"sha-256", kDigestSha256, true},
    {"sha-384", kDigestSha384, true},
    {"sha-512", kDigestSha512, true},
    {"sha-512/256", kDigestSha512_256, true},
    {"sha512/256", kDigestSha512_256, true},
};

int digest_choose(int* algorithm, const char* name) {
    return name_find(kDigestNames, name, algorithm);
}

const char* digest_choice_name(int algorithm) {
    for (const NameRow& row : kDigestNames)
        if (row.value == algorithm)
            return row.name;
    return "";
}

int digest_choose_for_hmac(int* algorithm, const char* name) {
    if (const int code = digest_choose(algorithm, is_missing(name) ? "sha256" : name))
        return code;
    if (hmac_length(*algorithm) == 0)
        return err_fail(NOT_SUPPORTED_ERROR, "There is no HMAC with '%s'", shown_name(name));
    return 0;
}

} // namespace zul
