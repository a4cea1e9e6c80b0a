#include "frame/error_table.h"

#include "zulcore.h"

namespace zul {

#define ROW(name, message)                                                                                   \
    { name, #name, message }

const ErrorRow kErrorTable[kErrorRows] = {
    ROW(SUCCESS_ERROR, "OK, success, no error"),
    ROW(OPEN_ERROR, "Cannot open input file"),
    ROW(CREATE_ERROR, "Cannot create output file"),
    ROW(READ_ERROR, "File read error"),
    ROW(WRITE_ERROR, "File write error"),
    ROW(MEMORY_ERROR, "Not enough memory"),
    ROW(BAD_PARAM_ERROR, "Parameter is wrong or missing"),
    ROW(BAD_FORMAT_ERROR, "Data in wrong format"),
    ROW(INVALID_DATA_ERROR, "Invalid data"),
    ROW(EOF_ERROR, "Unexpected end of file found"),
    ROW(OUT_OF_RANGE_ERROR, "Value out of range"),
    ROW(DUP_ERROR, "Duplicate data"),
    ROW(IO_ERROR, "Misc file IO error"),
    ROW(NULL_ERROR, "Unexpected NULL value"),
    ROW(DECRYPT_ERROR, "Decryption error"),
    ROW(EXPIRED_ERROR, "Item has expired or is not yet valid"),
    ROW(BAD_FLAG_ERROR, "Invalid option"),
    ROW(WIPE_ERROR, "Failed to wipe data"),
    ROW(NOT_SUPPORTED_ERROR, "This algorithm or version not supported"),
    ROW(NO_DATA_ERROR, "No data found to process"),
    ROW(NO_MATCH_ERROR, "No match found"),
    ROW(SIGNATURE_ERROR, "Signature is invalid or missing"),
    ROW(TEST_FAILED_ERROR, "Failed a test e.g. known answer test"),
    ROW(KEYGEN_FAILED_ERROR, "Key generation failed"),
    ROW(ISSUER_ERROR, "Certificate issuer error"),
    ROW(BAD_LENGTH_ERROR, "Data not a valid length"),
    ROW(BAD_XML_ERROR, "Invalid XML format"),
    ROW(MSG_TOO_LONG_ERROR, "Message too long"),
    ROW(BAD_QUERY_ERROR, "Not a valid query"),
    ROW(SHORT_BUF_ERROR, "Not enough room in output buffer"),
    ROW(BAD_KEY_LEN_ERROR, "Invalid key length"),
    ROW(BAD_BLK_LEN_ERROR, "Invalid block length"),
    ROW(BAD_MODE_ERROR, "Invalid mode"),
    ROW(BAD_KEY_ERROR, "Invalid key"),
    ROW(BAD_IV_ERROR, "Invalid initialization vector"),
    ROW(PRNG_ERR_FILE_OPEN, "PRNG: Cannot open input file"),
    ROW(PRNG_ERR_FILE_CREATE, "PRNG: Cannot create output file"),
    ROW(PRNG_ERR_FILE_READ, "PRNG: File read error"),
    ROW(PRNG_ERR_FILE_WRITE, "PRNG: File write error"),
    ROW(PRNG_ERR_FILE_LOCK, "PRNG: File locking error"),
    ROW(PRNG_ERR_UNINST, "PRNG: Uninstantiation failed"),
    ROW(PRNG_ERR_TOOBIG, "PRNG: Requested length is too large"),
    ROW(PRNG_ERR_FAILURE, "PRNG: Function failed"),
    ROW(PRNG_ERR_BADPARAM, "PRNG: Invalid input parameter"),
    ROW(PRNG_ERR_NOTAVAIL, "PRNG: Function is not available"),
    ROW(PRNG_ERR_CATASTROPHIC, "PRNG: Catastrophic failure"),
    ROW(MISC_ERROR, "Miscellaneous error"),
};

#undef ROW

const ErrorRow* error_lookup(int code) {
    for (const ErrorRow& row : kErrorTable)
        if (row.code == code)
            return &row;
    return nullptr;
}

} // namespace zul
