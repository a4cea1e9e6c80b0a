// The pair-wise consistency test of a new key pair (after FIPS 140-2, 4.9.2).
#include "rsa/rsa_pairwise.h"

#include <cstring>

#include "frame/memory.h"
#include "frame/weak_random.h"
#include "rsa/rsa_operation.h"
#include "zulcore.h"

namespace zul {

int rsaPairwiseTest(const RsaKey* key) {
    if (key == nullptr)
        return NULL_ERROR;
    const size_t size = key->bytes();
    if (size < 2)
        return BAD_LENGTH_ERROR;

    SecretBuffer message(size), forth(size), back(size);
    WeakRandom filling;
    for (size_t i = 2; i < size; i++)
        message[i] = filling.byte();
    message[0] = 0; // below n, whose first byte is not zero
    message[1] = 1;
    const auto is_message = [&](const SecretBuffer& other) {
        return memcmp(other.data(), message.data(), size) == 0;
    };

    size_t length = 0;
    if (const int code = rsaPublic(key, forth.data(), &length, message.data(), size))
        return code;
    if (is_message(forth))
        return TEST_FAILED_ERROR; // nothing was encrypted
    if (const int code = rsaPrivate(key, back.data(), &length, forth.data(), size))
        return code;
    if (!is_message(back))
        return TEST_FAILED_ERROR;

    // In the other order the operations only have to succeed; the results are not compared. Both operations
    // permute the numbers below n, so they undo each other in both orders or in neither.
    if (const int code = rsaPrivate(key, forth.data(), &length, message.data(), size))
        return code;
    return rsaPublic(key, back.data(), &length, forth.data(), size);
}

} // namespace zul
