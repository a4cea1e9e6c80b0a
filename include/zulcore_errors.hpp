// Made from include/zulcore.h by scripts/make_bindings.py.
#ifndef ZULCORE_ERRORS_HPP
#define ZULCORE_ERRORS_HPP

#include "zulcore.h"

namespace zulcore {

// error_name gives the name of a positive error code, "DECRYPT_ERROR" for 15; "" if there is no such code.
constexpr const char* error_name(int code) noexcept {
    switch (code) {
    case SUCCESS_ERROR:
        return "SUCCESS_ERROR";
    case OPEN_ERROR:
        return "OPEN_ERROR";
    case CREATE_ERROR:
        return "CREATE_ERROR";
    case READ_ERROR:
        return "READ_ERROR";
    case WRITE_ERROR:
        return "WRITE_ERROR";
    case MEMORY_ERROR:
        return "MEMORY_ERROR";
    case BAD_PARAM_ERROR:
        return "BAD_PARAM_ERROR";
    case BAD_FORMAT_ERROR:
        return "BAD_FORMAT_ERROR";
    case INVALID_DATA_ERROR:
        return "INVALID_DATA_ERROR";
    case EOF_ERROR:
        return "EOF_ERROR";
    case OUT_OF_RANGE_ERROR:
        return "OUT_OF_RANGE_ERROR";
    case DUP_ERROR:
        return "DUP_ERROR";
    case IO_ERROR:
        return "IO_ERROR";
    case NULL_ERROR:
        return "NULL_ERROR";
    case DECRYPT_ERROR:
        return "DECRYPT_ERROR";
    case EXPIRED_ERROR:
        return "EXPIRED_ERROR";
    case BAD_FLAG_ERROR:
        return "BAD_FLAG_ERROR";
    case WIPE_ERROR:
        return "WIPE_ERROR";
    case NOT_SUPPORTED_ERROR:
        return "NOT_SUPPORTED_ERROR";
    case NO_DATA_ERROR:
        return "NO_DATA_ERROR";
    case NO_MATCH_ERROR:
        return "NO_MATCH_ERROR";
    case SIGNATURE_ERROR:
        return "SIGNATURE_ERROR";
    case TEST_FAILED_ERROR:
        return "TEST_FAILED_ERROR";
    case KEYGEN_FAILED_ERROR:
        return "KEYGEN_FAILED_ERROR";
    case ISSUER_ERROR:
        return "ISSUER_ERROR";
    case BAD_LENGTH_ERROR:
        return "BAD_LENGTH_ERROR";
    case BAD_XML_ERROR:
        return "BAD_XML_ERROR";
    case MSG_TOO_LONG_ERROR:
        return "MSG_TOO_LONG_ERROR";
    case BAD_QUERY_ERROR:
        return "BAD_QUERY_ERROR";
    case SHORT_BUF_ERROR:
        return "SHORT_BUF_ERROR";
    case BAD_KEY_LEN_ERROR:
        return "BAD_KEY_LEN_ERROR";
    case BAD_BLK_LEN_ERROR:
        return "BAD_BLK_LEN_ERROR";
    case BAD_MODE_ERROR:
        return "BAD_MODE_ERROR";
    case BAD_KEY_ERROR:
        return "BAD_KEY_ERROR";
    case BAD_IV_ERROR:
        return "BAD_IV_ERROR";
    case PRNG_ERR_FILE_OPEN:
        return "PRNG_ERR_FILE_OPEN";
    case PRNG_ERR_FILE_CREATE:
        return "PRNG_ERR_FILE_CREATE";
    case PRNG_ERR_FILE_READ:
        return "PRNG_ERR_FILE_READ";
    case PRNG_ERR_FILE_WRITE:
        return "PRNG_ERR_FILE_WRITE";
    case PRNG_ERR_FILE_LOCK:
        return "PRNG_ERR_FILE_LOCK";
    case PRNG_ERR_UNINST:
        return "PRNG_ERR_UNINST";
    case PRNG_ERR_TOOBIG:
        return "PRNG_ERR_TOOBIG";
    case PRNG_ERR_FAILURE:
        return "PRNG_ERR_FAILURE";
    case PRNG_ERR_BADPARAM:
        return "PRNG_ERR_BADPARAM";
    case PRNG_ERR_NOTAVAIL:
        return "PRNG_ERR_NOTAVAIL";
    case PRNG_ERR_CATASTROPHIC:
        return "PRNG_ERR_CATASTROPHIC";
    case MISC_ERROR:
        return "MISC_ERROR";
    default:
        return "";
    }
}

} // namespace zulcore

#endif
