/* zulcore.h: the exported interface of zulcore, a cryptographic and public-key toolkit.
 *
 * Conventions (docs/conventions.md has them in full):
 *  - Lengths of buffers are in bytes. nOutChars, the room of a text output, is the largest number of
 *    characters wanted, not counting the NUL: the buffer holds nOutChars + 1 bytes.
 *  - "Query": with a null output or a room of 0 or less the function writes nothing and returns the length
 *    that the whole output would have (a text without its NUL).
 *  - A text that is too long for its room is cut at a whole unit and the shorter length is returned, unless
 *    SHORT_BUF_ERROR is named.
 *  - "Length" results are 0 or more, or a negated error code. "Status" results are 0 or an error code.
 *    Every function states its own. The code of a failed call stays available through ZUL_ErrorCode, as a
 *    positive number, until the thread's next call; functions that do not record it say so.
 *  - Texts are single-byte strings that end with NUL; file names are in the system's own encoding.
 *  - Any number of threads may call at once. Inputs and outputs may not overlap unless the function says so.
 */
#ifndef ZULCORE_H
#define ZULCORE_H

#ifndef ZUL_API
#if defined(ZUL_BUILDING_MODULE) && !defined(_WIN32)
#define ZUL_API __attribute__((visibility("default")))
#elif defined(_WIN32) && !defined(ZUL_BUILDING_MODULE)
#define ZUL_API __declspec(dllimport)
#else
#define ZUL_API
#endif
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* Error codes. ZUL_ErrorLookup gives the text of each. */
enum zul_error_code {
    SUCCESS_ERROR = 0,
    OPEN_ERROR = 1,
    CREATE_ERROR = 2,
    READ_ERROR = 3,
    WRITE_ERROR = 4,
    MEMORY_ERROR = 5,
    BAD_PARAM_ERROR = 6,
    BAD_FORMAT_ERROR = 7,
    INVALID_DATA_ERROR = 8,
    EOF_ERROR = 9,
    OUT_OF_RANGE_ERROR = 11,
    DUP_ERROR = 12,
    IO_ERROR = 13,
    NULL_ERROR = 14,
    DECRYPT_ERROR = 15,
    EXPIRED_ERROR = 16,
    BAD_FLAG_ERROR = 17,
    WIPE_ERROR = 18,
    NOT_SUPPORTED_ERROR = 19,
    NO_DATA_ERROR = 20,
    NO_MATCH_ERROR = 21,
    SIGNATURE_ERROR = 22,
    TEST_FAILED_ERROR = 23,
    KEYGEN_FAILED_ERROR = 24,
    ISSUER_ERROR = 25,
    BAD_LENGTH_ERROR = 26,
    BAD_XML_ERROR = 27,
    MSG_TOO_LONG_ERROR = 28,
    BAD_QUERY_ERROR = 29,
    SHORT_BUF_ERROR = 30,
    BAD_KEY_LEN_ERROR = 33,
    BAD_BLK_LEN_ERROR = 34,
    BAD_MODE_ERROR = 35,
    BAD_KEY_ERROR = 36,
    BAD_IV_ERROR = 37,
    PRNG_ERR_FILE_OPEN = 201,
    PRNG_ERR_FILE_CREATE = 202,
    PRNG_ERR_FILE_READ = 203,
    PRNG_ERR_FILE_WRITE = 204,
    PRNG_ERR_FILE_LOCK = 205,
    PRNG_ERR_UNINST = 210,
    PRNG_ERR_TOOBIG = 211,
    PRNG_ERR_FAILURE = 212,
    PRNG_ERR_BADPARAM = 213,
    PRNG_ERR_NOTAVAIL = 214,
    PRNG_ERR_CATASTROPHIC = 299,
    MISC_ERROR = 9999
};

/* ZUL_ModuleName */
#define ZUL_MODULE_PLATFORM 0x40

/* CNV_ByteEncoding */
#define ZUL_CNV_UTF8_FROM_LATIN1 0x1
#define ZUL_CNV_LATIN1_FROM_UTF8 0x2

/* Digest algorithms: bits 0-3 of the options of HASH_ and HMAC_ */
#define ZUL_HASH_SHA1 0
#define ZUL_HASH_MD5 1
#define ZUL_HASH_MD2 2
#define ZUL_HASH_SHA256 3
#define ZUL_HASH_SHA384 4
#define ZUL_HASH_SHA512 5
#define ZUL_HASH_SHA224 6
#define ZUL_HASH_SHA1_RNG 7
#define ZUL_HASH_MODE_TEXT 0x10000

/* Block ciphers (bits 4-7) and modes (bits 8-11) of the options of CIPHER_ */
#define ZUL_CIPHER_TDEA 0x10
#define ZUL_CIPHER_AES128 0x20
#define ZUL_CIPHER_AES192 0x30
#define ZUL_CIPHER_AES256 0x40
#define ZUL_MODE_ECB 0x000
#define ZUL_MODE_CBC 0x100
#define ZUL_MODE_OFB 0x200
#define ZUL_MODE_CFB 0x300
#define ZUL_MODE_CTR 0x400

/* RNG_BytesWithPrompt, RNG_MakeSeedFile */
#define ZUL_RNG_MORE_EVENTS 0x1

/* RSA key files: format, or progress of RSA_MakeKeys */
#define ZUL_KEY_SHOW_PROGRESS 0x10
#define ZUL_KEY_FORMAT_PEM 0x10000
#define ZUL_KEY_FORMAT_PEM_ALT 0x20000

/* Password-based encryption of private keys. With ZUL_PBE_PBES2 one cipher may be added, and a digest
 * (ZUL_HASH_SHA256, SHA384 or SHA512) for the HMAC that derives the key. */
#define ZUL_PBE_SHA_3DES 0
#define ZUL_PBE_MD5_DES 1
#define ZUL_PBE_MD2_DES 2
#define ZUL_PBE_SHA1_DES 3
#define ZUL_PBE_PBES2_DEFAULT 4
#define ZUL_PBE_PBES2 0x1000
#define ZUL_PBE_CIPHER_AES128 0x20
#define ZUL_PBE_CIPHER_AES192 0x30
#define ZUL_PBE_CIPHER_AES256 0x40

/* RSA_ToXMLString */
#define ZUL_XML_RSAKEYVALUE 0x1
#define ZUL_XML_PUBLIC_ONLY 0x10
#define ZUL_XML_HEXBINARY 0x100

/* RSA_RawPublic, RSA_RawPrivate: the trailer of the RSA2 forms */
#define ZUL_RSA2_TRAILER6 6
#define ZUL_RSA2_TRAILERC 12

/* RSA_EncodeMsg, RSA_DecodeMsg: an encoding, with a digest algorithm where it has one */
#define ZUL_EME_PKCSV1_5 0x00
#define ZUL_EME_OAEP 0x10
#define ZUL_EMSIG_PKCSV1_5 0x20
#define ZUL_EMSIG_DIGESTONLY 0x1000
#define ZUL_EMSIG_DIGINFO 0x2000
#define ZUL_EMSIG_GETALG 0x8000
#define ZUL_EMSIG_ISO9796 0x100000

/* X509_: bits of the options. A digest algorithm (ZUL_HASH_) may be added where one is chosen. */
#define ZUL_X509_FORMAT_PEM 0x10000
#define ZUL_X509_REQ_DER 0x20000
#define ZUL_X509_REQ_NOATTRS 0x100000
#define ZUL_QUERY_GETTYPE 0x100000
#define ZUL_X509_LATIN1 0x400000
#define ZUL_X509_UTF8 0x800000
#define ZUL_X509_AUTHKEYID 0x1000000
#define ZUL_X509_NO_BASIC 0x2000000
#define ZUL_X509_SET_CA 0x4000000
#define ZUL_X509_VERSION1 0x8000000

/* Key usage (RFC 5280, 4.2.1.3): the nKeyUsageFlags of X509_MakeCert, the result of X509_KeyUsageFlags */
#define ZUL_KEYUSAGE_DIGITALSIGNATURE 0x001
#define ZUL_KEYUSAGE_NONREPUDIATION 0x002
#define ZUL_KEYUSAGE_KEYENCIPHERMENT 0x004
#define ZUL_KEYUSAGE_DATAENCIPHERMENT 0x008
#define ZUL_KEYUSAGE_KEYAGREEMENT 0x010
#define ZUL_KEYUSAGE_KEYCERTSIGN 0x020
#define ZUL_KEYUSAGE_CRLSIGN 0x040
#define ZUL_KEYUSAGE_ENCIPHERONLY 0x080
#define ZUL_KEYUSAGE_DECIPHERONLY 0x100

/* CMS_ signed messages; a ZUL_HASH_ algorithm and, for enveloped ones, a ZUL_CMS_CIPHER_ go with them. */
#define ZUL_CMS_EXCLUDE_CERTS 0x100
#define ZUL_CMS_EXCLUDE_DATA 0x200
#define ZUL_CMS_CERTS_ONLY 0x400
#define ZUL_CMS_INCLUDE_ATTRS 0x800
#define ZUL_CMS_ADD_SIGNTIME 0x1000
#define ZUL_CMS_ADD_SMIMECAPS 0x2000
#define ZUL_CMS_FORMAT_BASE64 0x10000
#define ZUL_CMS_BARE_SIGNEDDATA 0x2000000
#define ZUL_CMS_NAMED_SIGALG 0x4000000
#define ZUL_CMS_CIPHER_TDEA 0x10
#define ZUL_CMS_CIPHER_AES128 0x20
#define ZUL_CMS_CIPHER_AES192 0x30
#define ZUL_CMS_CIPHER_AES256 0x40

/* PFX_ */
#define ZUL_PFX_NO_PRIVKEY 0x10

/* CIPHER_Begin */
#define ZUL_CIPHER_NO_PADDING 0x1

/* AEAD_Encrypt, AEAD_Decrypt */
#define ZUL_AEAD_RANDOM_NONCE 0x1

/* KEY_Save: beside ZUL_KEY_FORMAT_PEM, the structure that the kind of key has of its own */
#define ZUL_KEY_FORMAT_OWN 0x40000

/* SIG_ */
#define ZUL_SIG_RAW 0x1
#define ZUL_SIG_DETERMINISTIC 0x2

/* SEAL_ */
#define ZUL_SEAL_ARMOUR 0x1
#define ZUL_SEAL_STDIN 0x2
#define ZUL_SEAL_STDOUT 0x4

/* CERT_ */
#define ZUL_CERT_DER 0x1
#define ZUL_CERT_BEYOND_ISSUER 0x2
#define ZUL_CERT_JSON 0x10
#define ZUL_CERT_SUBJECT_NAME 0x20
#define ZUL_CERT_WEB 0x40

/* P12_. P12_Unpack: the number of the key, from 0, in the low byte */
#define ZUL_P12_LEGACY 0x100
#define ZUL_P12_PBMAC1 0x200
#define ZUL_P12_TRUSTED 0x400
#define ZUL_P12_NEED_MAC 0x800
#define ZUL_P12_JSON 0x1000

/* --- ZUL_: errors and the module ----------------------------------------------------------------------
 * These functions leave the thread's error state as it is. */

/* ZUL_ErrorCode returns the error code that the thread's last call recorded, always positive; 0 if none. */
ZUL_API int ZUL_ErrorCode(void);

/* ZUL_LastError copies the thread's last error text (at most 511 characters; often empty).
 * Length. Query. */
ZUL_API int ZUL_LastError(char* szOutput, int nOutChars);

/* ZUL_ErrorLookup copies the text of an error code of either sign.
 * Here alone nOutChars counts the NUL too. Length; 0 if there is no such code. Query, also with room 1. */
ZUL_API int ZUL_ErrorLookup(char* szOutput, int nOutChars, int nErrCode);

/* ZUL_ModuleName copies the full path of the library's own file (nOptions 0; at most 260 characters) or the
 * word for its platform, "Win64" or "Lin64" (ZUL_MODULE_PLATFORM).
 * Length. Query. Another option gives -BAD_FLAG_ERROR, not recorded. */
ZUL_API int ZUL_ModuleName(char* szOutput, int nOutChars, int nOptions);

/* ZUL_Version returns major * 100 + minor * 10 + release: 360. Both arguments are ignored and may be null. */
ZUL_API int ZUL_Version(void* pReserved1, void* pReserved2);

/* ZUL_CompileTime copies the date and time of the build, as "Nov  1 2026 09:08:07".
 * Length, 20. Query. */
ZUL_API int ZUL_CompileTime(char* szOutput, int nOutChars);

/* ZUL_PowerUpTests repeats the tests that the module ran when it was loaded: of its own file, of the algorithms
 * (known answers) and of the random generator. The module continues to work whatever the result. A failed known
 * answer is also reported like a failed load (event log, zulerr.log, message box). nOptions is ignored.
 * 0, or -TEST_FAILED_ERROR: a test failed, or the file cannot be read because it was replaced or moved or no
 * file handle is left. The thread's error state stays as it was. */
ZUL_API int ZUL_PowerUpTests(int nOptions);

/* --- WIPE_ --------------------------------------------------------------------------------------------- */

/* WIPE_Data overwrites nDataLen bytes with zero.
 * Status. BAD_PARAM_ERROR: null pointer, or nDataLen not positive. */
ZUL_API int WIPE_Data(void* lpData, int nDataLen);

/* WIPE_File overwrites a file seven times, commits each pass to the disk, and deletes the file. If the name is
 * a symbolic link, its target is overwritten and the link is deleted. Older copies can survive on media that
 * remap blocks or keep snapshots. nOptions is ignored.
 * Status. NULL_ERROR: no name; OPEN_ERROR: missing, read-only or not a file; WIPE_ERROR: a pass or the
 * deletion failed. */
ZUL_API int WIPE_File(const char* szFileName, int nOptions);

/* --- CNV_: encodings -----------------------------------------------------------------------------------
 * Too small an output is cut at a whole unit: a hex pair, a base64 group of four, one character.
 * A result too large for an int is -OUT_OF_RANGE_ERROR. */

/* CNV_HexStrFromBytes writes two upper-case hex digits for each byte.
 * Length, query 2 * nInputLen. BAD_PARAM_ERROR: null input or negative length. */
ZUL_API int CNV_HexStrFromBytes(char* szOutput, int nOutChars, const unsigned char* lpInput, int nInputLen);

/* CNV_BytesFromHexStr decodes hex digits of either case, skipping every other character; a single digit left
 * over is dropped. Length, query exact. BAD_PARAM_ERROR: null input. */
ZUL_API int CNV_BytesFromHexStr(unsigned char* lpOutput, int nOutBytes, const char* szInput);

/* CNV_HexFilter copies the hex digits among the first nStrLen characters. szOutput holds nStrLen + 1 bytes
 * and may be szInput itself. Length kept. Query (null output). BAD_PARAM_ERROR: null input or negative
 * length. */
ZUL_API int CNV_HexFilter(char* szOutput, const char* szInput, int nStrLen);

/* CNV_B64StrFromBytes writes base64 (RFC 4648) in one line.
 * Length, query (nInputLen + 2) / 3 * 4. BAD_PARAM_ERROR: null input or negative length. */
ZUL_API int CNV_B64StrFromBytes(char* szOutput, int nOutChars, const unsigned char* lpInput, int nInputLen);

/* CNV_BytesFromB64Str decodes base64 up to the first "=", skipping characters outside the alphabet.
 * Length, query exact. BAD_PARAM_ERROR: null input. */
ZUL_API int CNV_BytesFromB64Str(unsigned char* lpOutput, int nOutBytes, const char* szInput);

/* CNV_B64Filter is CNV_HexFilter for the base64 alphabet and "=". */
ZUL_API int CNV_B64Filter(char* szOutput, const char* szInput, int nStrLen);

/* CNV_CheckUTF8 classifies a text:
 *  - 0: not UTF-8;
 *  - 1: all bytes are below 0x80, or the text is empty;
 *  - 2: UTF-8, all characters up to U+00FF;
 *  - 3: UTF-8, some characters above U+00FF.
 * -BAD_PARAM_ERROR: null input. */
ZUL_API int CNV_CheckUTF8(const char* szInput);

/* CNV_CheckUTF8Bytes is CNV_CheckUTF8 over nBytes bytes. -BAD_PARAM_ERROR also for a negative length. */
ZUL_API int CNV_CheckUTF8Bytes(const unsigned char* lpInput, int nBytes);

/* CNV_UTF8FromLatin1 converts Latin-1 text to UTF-8 text.
 * Length. Query. BAD_PARAM_ERROR: null or empty input. */
ZUL_API int CNV_UTF8FromLatin1(char* szOutput, int nOutChars, const char* szInput);

/* CNV_Latin1FromUTF8 converts UTF-8 text to Latin-1 text.
 * Length. Query. BAD_PARAM_ERROR: null or empty input; INVALID_DATA_ERROR: not UTF-8; OUT_OF_RANGE_ERROR: a
 * character above U+00FF. After an error the output is an empty text. */
ZUL_API int CNV_Latin1FromUTF8(char* szOutput, int nOutChars, const char* szInput);

/* CNV_UTF8BytesFromLatin1 is CNV_UTF8FromLatin1 without the NUL; nOutBytes is the room in bytes. */
ZUL_API int CNV_UTF8BytesFromLatin1(unsigned char* lpOutput, int nOutBytes, const char* szInput);

/* CNV_Latin1FromUTF8Bytes is CNV_Latin1FromUTF8 over nBytes bytes. BAD_PARAM_ERROR also for no bytes or a
 * first byte of 0. A successful query leaves the length as the thread's error code. */
ZUL_API int CNV_Latin1FromUTF8Bytes(char* szOutput, int nOutChars, const unsigned char* lpInput, int nBytes);

/* CNV_ByteEncoding converts bytes. nOptions (only the low four bits count):
 *  - ZUL_CNV_UTF8_FROM_LATIN1;
 *  - ZUL_CNV_LATIN1_FROM_UTF8.
 * Length. Query; a successful one leaves the length as the thread's error code. BAD_PARAM_ERROR: null input
 * or negative length; BAD_FLAG_ERROR: no such conversion; INVALID_DATA_ERROR, OUT_OF_RANGE_ERROR: as above.
 */
ZUL_API int CNV_ByteEncoding(unsigned char* lpOutput, int nOutBytes, const unsigned char* lpInput, int nBytes,
                             int nOptions);

/* --- PEM_ ----------------------------------------------------------------------------------------------
 * Both return 0 or a negated error code. The output may be the input file, whose content is then lost if
 * writing fails. */

/* PEM_FileFromBinFile writes a file's content as base64 lines ended by CR LF, between BEGIN and END lines if
 * szHeader (the label) is not null or empty. nLineLen is rounded down to a multiple of four; below 4 it means
 * 64. -BAD_PARAM_ERROR: a name is null or empty; -OPEN_ERROR, -CREATE_ERROR, -WRITE_ERROR. */
ZUL_API int PEM_FileFromBinFile(const char* szFileOut, const char* szFileIn, const char* szHeader,
                                int nLineLen);

/* PEM_FileToBinFile decodes the first armoured body of a file, whatever its label. The output is longer than
 * the data: (body characters + 3) / 4 * 3 + 1 bytes, zeros after the data.
 * -BAD_PARAM_ERROR, -OPEN_ERROR, -CREATE_ERROR, -WRITE_ERROR as above; -BAD_FORMAT_ERROR: no body. */
ZUL_API int PEM_FileToBinFile(const char* szFileOut, const char* szFileIn);

/* --- HASH_: message digests ----------------------------------------------------------------------------
 * nOptions: a ZUL_HASH_ algorithm, and ZUL_HASH_MODE_TEXT where a file is read; other bits are ignored. Too
 * little room cuts the digest. -BAD_PARAM_ERROR (missing message or name, negative length) is not recorded;
 * -BAD_FLAG_ERROR: no such algorithm. */

/* HASH_Bytes writes the digest of a message of nMsgLen bytes. Length in bytes. Query. */
ZUL_API int HASH_Bytes(unsigned char* lpDigest, int nDigLen, const void* lpMessage, int nMsgLen,
                       int nOptions);

/* HASH_File writes the digest of a file of any size. With ZUL_HASH_MODE_TEXT each CR LF counts as LF, and on
 * Windows Ctrl-Z ends the file. A read error in the middle ends the message there: the result is the digest
 * of the bytes before it.
 * Length in bytes. Query, for which the file must exist too. -OPEN_ERROR. */
ZUL_API int HASH_File(unsigned char* lpDigest, int nDigLen, const char* szFileName, int nOptions);

/* HASH_HexFromBytes is HASH_Bytes with lower-case hex as output. Length in characters. Query. */
ZUL_API int HASH_HexFromBytes(char* szOutput, int nOutChars, const void* lpMessage, int nMsgLen,
                              int nOptions);

/* HASH_HexFromFile is HASH_File with lower-case hex as output. Length in characters. Query. */
ZUL_API int HASH_HexFromFile(char* szOutput, int nOutChars, const char* szFileName, int nOptions);

/* HASH_HexFromHex is HASH_HexFromBytes over a message in hex. A message with a character that is not a hex digit
 * counts as the empty message; an odd length is -INVALID_DATA_ERROR. */
ZUL_API int HASH_HexFromHex(char* szOutput, int nOutChars, const char* szMsgHex, int nOptions);

/* --- HMAC_ (RFC 2104) ----------------------------------------------------------------------------------
 * nOptions: a ZUL_HASH_ algorithm except MD2. Room, queries and unrecorded -BAD_PARAM_ERROR are as for HASH_.
 * Keys and messages of length 0 are valid. -BAD_FLAG_ERROR: no such algorithm (in a query the two hex functions
 * return -BAD_BLK_LEN_ERROR instead). */

/* HMAC_Bytes writes the MAC of a message. Length in bytes. Query. */
ZUL_API int HMAC_Bytes(unsigned char* lpDigest, int nDigLen, const void* lpMessage, int nMsgLen,
                       const void* lpKey, int nKeyLen, int nOptions);

/* HMAC_HexFromBytes is HMAC_Bytes with lower-case hex as output. Length in characters. Query. */
ZUL_API int HMAC_HexFromBytes(char* szOutput, int nOutChars, const void* lpMessage, int nMsgLen,
                              const void* lpKey, int nKeyLen, int nOptions);

/* HMAC_HexFromHex is HMAC_HexFromBytes over a message and key in hex. -BAD_KEY_LEN_ERROR: key text shorter
 * than two characters; -BAD_FORMAT_ERROR: key not hex; -INVALID_DATA_ERROR: message of odd length. A message
 * with a character that is not a hex digit counts as the empty message. */
ZUL_API int HMAC_HexFromHex(char* szOutput, int nOutChars, const char* szMsgHex, const char* szKeyHex,
                            int nOptions);

/* --- KDF_: keys from passwords and from other keys -------------------------------------------------------
 * The result is a key of exactly nOutBytes bytes; there is no query. Passwords, salts and infos may be empty,
 * and then also null, unless the function says otherwise. szHash: the name of a digest that has an HMAC, in any
 * case: md5, sha1, sha224, sha256, sha384, sha512, sha512-256, sha3-224, sha3-256, sha3-384 or sha3-512; null
 * or empty for sha256.
 * Length in bytes, which is nOutBytes. Errors leave the output unchanged:
 *  - -BAD_PARAM_ERROR: a null output or input, or a negative length;
 *  - -OUT_OF_RANGE_ERROR: a length or a cost outside its bounds;
 *  - -NOT_SUPPORTED_ERROR: no such digest, or one without an HMAC;
 *  - -MEMORY_ERROR: the system cannot give the memory that the cost needs. */

/* KDF_Pbkdf2 is PBKDF2 of RFC 8018 with HMAC. nIterations: at least 1; 600,000 or more are usual for
 * SHA-256. */
ZUL_API int KDF_Pbkdf2(unsigned char* lpOutput, int nOutBytes, const void* lpPassword, int nPwdLen,
                       const void* lpSalt, int nSaltLen, int nIterations, const char* szHash);

/* KDF_Hkdf is HKDF of RFC 5869, extract and expand. It is for keys that cannot be guessed, not for passwords.
 * nOutBytes: at most 255 digests. The key may be empty. */
ZUL_API int KDF_Hkdf(unsigned char* lpOutput, int nOutBytes, const void* lpKey, int nKeyLen,
                     const void* lpSalt, int nSaltLen, const void* lpInfo, int nInfoLen, const char* szHash);

/* KDF_Scrypt is scrypt of RFC 7914. It takes 128 nN nR bytes of memory.
 *  - nN: the cost, a power of 2, at least 2 and below 2^(16 nR).
 *  - nR: the block size; 8 is usual.
 *  - nP: the parallelization; 1 is usual.
 * Bounds: 128 nN nR at most 4 GiB, 128 nR nP at most 1 GiB, 128 nN nR nP at most 64 GiB. */
ZUL_API int KDF_Scrypt(unsigned char* lpOutput, int nOutBytes, const void* lpPassword, int nPwdLen,
                       const void* lpSalt, int nSaltLen, int nN, int nR, int nP);

/* KDF_Argon2id is Argon2id of RFC 9106, version 0x13, without secret and associated data.
 *  - nOutBytes: at least 4.
 *  - nSaltLen: at least 8; 16 is usual.
 *  - nMemoryKiB: at least 8 for each lane, at most 4 GiB. It is rounded down to a multiple of 4 for each lane.
 *  - nPasses: at least 1. nMemoryKiB times nPasses is at most 64 GiB.
 *  - nLanes: 1 to 255. One thread fills them in turn.
 * RFC 9106 recommends 2 GiB, 1 pass and 4 lanes, or 64 MiB, 3 passes and 4 lanes. */
ZUL_API int KDF_Argon2id(unsigned char* lpOutput, int nOutBytes, const void* lpPassword, int nPwdLen,
                         const void* lpSalt, int nSaltLen, int nMemoryKiB, int nPasses, int nLanes);

/* --- CIPHER_ and TDEA_: block ciphers ------------------------------------------------------------------
 * Lengths in bytes:
 *  - Triple DES: key 24, block and IV 8;
 *  - AES: key 16, 24 or 32, block and IV 16.
 *
 * Modes (every one but ECB needs an IV):
 *  - ECB and CBC take whole blocks; the byte and text forms add no padding;
 *  - CFB (segments of a whole block), OFB and CTR (the block is a big-endian counter) take any length.
 *
 * CIPHER_ functions take the algorithm and mode in one of two ways, never both:
 *  - szAlgAndMode, such as "aes-128/CBC", "Aes256Ctr", "tdea-cbc", "3des" or "des-ede3-cbc" (no mode means
 *    ECB), with no cipher or mode bits in nOptions;
 *  - nOptions: ZUL_CIPHER_... | ZUL_MODE_..., with szAlgAndMode null or empty.
 *
 * fEncrypt: nonzero encrypts, 0 decrypts.
 *
 * All return 0 on success. Nothing is promised about the output after a failure. Failures:
 *  - a bad choice of algorithm is negated in the CIPHER_ functions: -BAD_PARAM_ERROR, -BAD_FLAG_ERROR,
 *    -BAD_MODE_ERROR;
 *  - every other code is positive: NULL_ERROR (null output, input or key), BAD_IV_ERROR, BAD_LENGTH_ERROR (not
 *    whole blocks). */

/* CIPHER_Bytes encrypts or decrypts nBytes bytes; lpOutput has the same length and may be lpInput.
 * BAD_PARAM_ERROR: nBytes negative. */
ZUL_API int CIPHER_Bytes(int fEncrypt, unsigned char* lpOutput, const unsigned char* lpInput, int nBytes,
                         const unsigned char* lpKey, const unsigned char* lpIV, const char* szAlgAndMode,
                         int nOptions);

/* CIPHER_Hex is CIPHER_Bytes over hex texts; the output is upper case and nOutChars must cover all of it
 * (SHORT_BUF_ERROR). BAD_PARAM_ERROR: empty input or key text; BAD_KEY_LEN_ERROR; BAD_IV_ERROR: not one
 * block. */
ZUL_API int CIPHER_Hex(int fEncrypt, char* szOutput, int nOutChars, const char* szInputHex,
                       const char* szKeyHex, const char* szIVHex, const char* szAlgAndMode, int nOptions);

/* CIPHER_File encrypts or decrypts a file of any size into another. With ECB and CBC encryption adds a pad (1
 * byte to a full block; each byte holds their count) and decryption removes it.
 * OPEN_ERROR, CREATE_ERROR, READ_ERROR, WRITE_ERROR; BAD_PARAM_ERROR: the output is the input file;
 * BAD_LENGTH_ERROR: input to decrypt is not whole blocks; DECRYPT_ERROR: bad pad (wrong key, or damaged).
 * After a failure no output file remains. */
ZUL_API int CIPHER_File(int fEncrypt, const char* szFileOut, const char* szFileIn, const unsigned char* lpKey,
                        const unsigned char* lpIV, const char* szAlgAndMode, int nOptions);

/* TDEA_BytesMode is CIPHER_Bytes with Triple DES; szMode is "ECB", "CBC", "CFB", "OFB" or "CTR" in any case
 * (BAD_MODE_ERROR otherwise; BAD_PARAM_ERROR if null). */
ZUL_API int TDEA_BytesMode(unsigned char* lpOutput, const unsigned char* lpInput, int nBytes,
                           const unsigned char* lpKey, int fEncrypt, const char* szMode,
                           const unsigned char* lpIV);

/* TDEA_HexMode is TDEA_BytesMode over hex texts. szOutput holds two characters for each input byte and a
 * NUL. BAD_PARAM_ERROR: empty input or key; BAD_KEY_LEN_ERROR; BAD_IV_ERROR. */
ZUL_API int TDEA_HexMode(char* szOutput, const char* szInputHex, const char* szKeyHex, int fEncrypt,
                         const char* szMode, const char* szIVHex);

/* TDEA_B64Mode is TDEA_HexMode over base64 texts; szOutput holds (bytes + 2) / 3 * 4 characters and a NUL. */
ZUL_API int TDEA_B64Mode(char* szOutput, const char* szInputB64, const char* szKeyB64, int fEncrypt,
                         const char* szMode, const char* szIVB64);

/* TDEA_File is CIPHER_File with Triple DES and a mode as in TDEA_BytesMode. */
ZUL_API int TDEA_File(const char* szFileOut, const char* szFileIn, const unsigned char* lpKey, int fEncrypt,
                      const char* szMode, const unsigned char* lpIV);

/* CIPHER_KeyWrap wraps a key of nDataLen bytes under a key-encryption key. nOptions:
 *  - ZUL_CIPHER_AES128, ZUL_CIPHER_AES192 or ZUL_CIPHER_AES256 (RFC 3394): a key of 16 bytes or more, a
 *    multiple of 8; the output has nDataLen + 8 bytes;
 *  - ZUL_CIPHER_TDEA (RFC 3217): a key of 24 bytes; the output has 40.
 * The parity bits of a Triple DES key are wrapped as they are; set them first for a receiver that checks
 * them.
 * Length. Query. -BAD_PARAM_ERROR: null data or key; -BAD_FLAG_ERROR; -BAD_KEY_LEN_ERROR: nKekLen;
 * -BAD_LENGTH_ERROR: nDataLen; -SHORT_BUF_ERROR; for Triple DES -PRNG_ERR_CATASTROPHIC as RNG_Initialize. */
ZUL_API int CIPHER_KeyWrap(unsigned char* lpOutput, int nOutBytes, const unsigned char* lpData, int nDataLen,
                           const unsigned char* lpKEK, int nKekLen, int nOptions);

/* CIPHER_KeyUnwrap undoes CIPHER_KeyWrap; errors as there. A wrapped key that fails its check (wrong KEK or
 * damaged) gives -1, recorded as 1, and the output is zeroed. */
ZUL_API int CIPHER_KeyUnwrap(unsigned char* lpOutput, int nOutBytes, const unsigned char* lpData,
                             int nDataLen, const unsigned char* lpKEK, int nKekLen, int nOptions);

/* --- PAD_: block padding (PKCS #5 and #7) --------------------------------------------------------------
 * These functions neither clear nor set the thread's error state. nOptions is ignored. nBlkLen is 8 or 16, else
 * -BAD_BLK_LEN_ERROR. The output of the two byte forms may be the input. Nothing is written on an error. */

/* PAD_BytesBlock copies the input and appends 1 to nBlkLen bytes that hold their count.
 * Length. Query. -NULL_ERROR: null input with nInputLen not 0; -BAD_PARAM_ERROR: nInputLen negative;
 * -BAD_LENGTH_ERROR: too long for an int; -SHORT_BUF_ERROR. */
ZUL_API int PAD_BytesBlock(unsigned char* lpOutput, int nOutputLen, const unsigned char* lpInput,
                           int nInputLen, int nBlkLen, int nOptions);

/* PAD_UnpadBytes copies the input without its padding.
 * Length; no query. -NULL_ERROR; -BAD_LENGTH_ERROR: not whole blocks; -DECRYPT_ERROR: bad padding;
 * -SHORT_BUF_ERROR. */
ZUL_API int PAD_UnpadBytes(unsigned char* lpOutput, int nOutputLen, const unsigned char* lpInput,
                           int nInputLen, int nBlkLen, int nOptions);

/* PAD_HexBlock is PAD_BytesBlock over hex text, which is copied unchanged and not validated.
 * Length in characters. Query. -NULL_ERROR; -BAD_FORMAT_ERROR: odd length; -SHORT_BUF_ERROR. */
ZUL_API int PAD_HexBlock(char* szOutput, int nOutChars, const char* szInputHex, int nBlkLen, int nOptions);

/* PAD_UnpadHex is PAD_UnpadBytes over hex text.
 * Length in characters; no query. -BAD_FORMAT_ERROR: empty or odd length; -DECRYPT_ERROR: bad padding, also
 * a pad that is not hex. */
ZUL_API int PAD_UnpadHex(char* szOutput, int nOutChars, const char* szInputHex, int nBlkLen, int nOptions);

/* --- RNG_: random numbers (HMAC_DRBG of SP 800-90A, one generator per thread) --------------------------- */

/* RNG_Bytes fills nBytes (at most 65,536) random bytes. lpSeed, nSeedLen: the caller's additional input, of
 * which 20 bytes count; may be null.
 * 0, or unrecorded -BAD_PARAM_ERROR (null output, negative length) or -PRNG_ERR_TOOBIG. A generator that
 * fails a self-test or its continuous test, or gets no random bytes from the system, ends the process after
 * the fatal report. */
ZUL_API int RNG_Bytes(unsigned char* lpOutput, int nBytes, const void* lpSeed, int nSeedLen);

/* RNG_BytesWithPrompt shows a dialog in which the user types at random and moves the mouse until enough has been
 * collected. Then it fills nOutputLen (at most 65,536) random bytes. On Linux it asks in the process's controlling
 * terminal, only for keys, and then for Return. szPrompt: null, or a text that stands above the dialog's own; what
 * does not fit on the screen is not shown.
 * nOptions: ZUL_RNG_MORE_EVENTS asks for 128 key presses, releases and moves instead of 64.
 * 0, -BAD_PARAM_ERROR (null output, negative length), -PRNG_ERR_TOOBIG, or -PRNG_ERR_NOTAVAIL: there is no
 * terminal or desktop, another prompt is open in this process, or a signal, WM_QUIT or the end of its window
 * ended this one. A generator that fails ends the process, as in RNG_Bytes. */
ZUL_API int RNG_BytesWithPrompt(unsigned char* lpOutput, int nOutputLen, const char* szPrompt, int nOptions);

/* RNG_Number returns a uniform number from nLower to nUpper, both included; nLower if nUpper is not greater,
 * or if the range needs all 32 bits. */
ZUL_API int RNG_Number(int nLower, int nUpper);

/* RNG_Test runs the generator's known-answer test and the four statistical tests of FIPS 140-2 on 20,000
 * fresh bits, and writes a report if szFileName is not null or empty. nOptions is ignored.
 * 0, -TEST_FAILED_ERROR (a statistical test), -PRNG_ERR_CATASTROPHIC (the known answer, or the system
 * gives no random bytes), -PRNG_ERR_FILE_CREATE or -PRNG_ERR_FILE_WRITE. */
ZUL_API int RNG_Test(const char* szFileName, int nOptions);

/* RNG_Initialize instantiates the thread's generator and takes in a seed file of 64 bytes, which it then
 * overwrites with fresh ones. nOptions is ignored.
 * 0, or -PRNG_ERR_BADPARAM (null name), -PRNG_ERR_FILE_OPEN, _READ, _WRITE or _LOCK, or
 * -PRNG_ERR_CATASTROPHIC (a self-test fails, or the system gives no random bytes). */
ZUL_API int RNG_Initialize(const char* szSeedFile, int nOptions);

/* RNG_MakeSeedFile makes or overwrites a seed file for RNG_Initialize from what the user does in the dialog of
 * RNG_BytesWithPrompt; szPrompt and nOptions as there. Only the owner of the file may read it (on Windows it gets
 * the rights of its folder). A file that cannot be written is removed; a locked one may be left empty.
 * 0, or -PRNG_ERR_BADPARAM (null or empty name; no dialog is shown), -PRNG_ERR_NOTAVAIL,
 * -PRNG_ERR_FILE_CREATE, _WRITE or _LOCK, or -PRNG_ERR_CATASTROPHIC as RNG_Initialize. */
ZUL_API int RNG_MakeSeedFile(const char* szSeedFile, const char* szPrompt, int nOptions);

/* RNG_UpdateSeedFile takes in a seed file and overwrites it, as RNG_Initialize.
 * -BAD_PARAM_ERROR (null or empty name) is not recorded; other errors as there. */
ZUL_API int RNG_UpdateSeedFile(const char* szSeedFile, int nOptions);

/* --- PWD_: asking for a password ------------------------------------------------------------------------ */

/* PWD_PromptEx shows a dialog in which the user enters a password, or asks for it in the process's controlling
 * terminal (Linux). The password is not shown.
 *  - nPwdLen: here the size of szPassword in bytes, with the NUL. A longer password is cut; it has at most 511
 *    characters.
 *  - szCaption, szPrompt: null, or texts of which the first 127 characters count.
 * A process can have one prompt open at a time. On Linux, signals that would by default end or stop the process
 * are held back while the prompt is open; after a stop the user is asked again. The thread's error state stays as
 * it is.
 * Results:
 *  - 0 or more: the length of the password;
 *  - -1: the user cancelled, there is no terminal or desktop, a signal or WM_QUIT ended the prompt, its window was
 *    destroyed, or another prompt is open. szPassword is unchanged;
 *  - -BAD_PARAM_ERROR: null output, or nPwdLen below 1. */
ZUL_API int PWD_PromptEx(char* szPassword, int nPwdLen, const char* szCaption, const char* szPrompt);

/* PWD_Prompt is PWD_PromptEx with the dialog's own text, "Enter password:". */
ZUL_API int PWD_Prompt(char* szPassword, int nPwdLen, const char* szCaption);

/* --- RSA_: keys, operations, message encodings ---------------------------------------------------------
 * szKeyString arguments are internal key strings: base64 text that begins with "PUBR" (public) or "PVTR"
 * (private). They are made by the functions that read keys, and only the process that made one can open it:
 * they are handles, not a storage format. A key string with any character altered is refused with
 * INVALID_DATA_ERROR. A plain base64 text of a DER RSAPublicKey or RSAPrivateKey (PKCS #1) is accepted too.
 *
 * szFileOrText arguments hold a key or name a file:
 *  - text with a PEM block, of any label and perhaps with text before it, is that block;
 *  - base64 text that begins with "M" is the key itself, unless a file of that name can be opened;
 *  - anything else names a file of DER, PEM or base64.
 * At most 4 MiB are read: a larger file is OPEN_ERROR, a larger text INVALID_DATA_ERROR. */

/* RSA_MakeKeys makes a key pair and writes two files: the public key, and the private key encrypted under a
 * password.
 *  - nBits: length of the modulus, 97 to 65536.
 *  - nExpIndex: the public exponent, 0 to 4 for 3, 5, 17, 257 and 65537; any other value counts as 4.
 *  - nTests: Miller-Rabin rounds for each prime. 0 accepts every number that no small prime divides, so the key
 *    usually fails its test.
 *  - nCount: iterations of the key derivation, as for RSA_SaveEncPrivateKey.
 *  - lpSeed, nSeedLen: bytes to mix into those of the random generator, or null.
 *  - nOptions: ZUL_KEY_FORMAT_PEM (labels "RSA PUBLIC KEY", "ENCRYPTED PRIVATE KEY") or ZUL_KEY_FORMAT_PEM_ALT
 *    ("PUBLIC KEY", "ENCRYPTED PRIVATE KEY"), else DER (RSAPublicKey, EncryptedPrivateKeyInfo).
 *  - nOptions: a ZUL_PBE_ scheme as for RSA_SaveEncPrivateKey.
 *  - nOptions: ZUL_KEY_SHOW_PROGRESS shows the search in a console (on Linux on standard error). It shares its
 *    bit with the ciphers of ZUL_PBE_PBES2: AES192 always shows progress, and progress turns AES128 into AES192
 *    and Triple DES into AES256. Use it with AES192 only.
 * Status, positive:
 *  - BAD_PARAM_ERROR: a file name or the password null or empty, a negative nTests or seed length;
 *  - OUT_OF_RANGE_ERROR: nBits;
 *  - BAD_LENGTH_ERROR: a seed or password of a gigabyte;
 *  - KEYGEN_FAILED_ERROR: no primes found;
 *  - TEST_FAILED_ERROR: the two halves of the new key do not undo each other. This is also reported like a
 *    fatal failure, though the process goes on;
 *  - MISC_ERROR: the key cannot be encrypted;
 *  - CREATE_ERROR, WRITE_ERROR.
 * If the private key file cannot be created, the public key is written and its status returned, and
 * ZUL_LastError has a text. */
ZUL_API int RSA_MakeKeys(const char* szPubKeyFile, const char* szPriKeyFile, int nBits, int nExpIndex,
                         int nTests, int nCount, const char* szPassword, const void* lpSeed, int nSeedLen,
                         int nOptions);

/* RSA_ReadPublicKey reads an RSAPublicKey (PKCS #1) or SubjectPublicKeyInfo (X.509) and writes its key
 * string. Moduli have at most 65,536 bits; an exponent above 64 bits is accepted with moduli up to 4,096 bits
 * only. An INTEGER without its sign byte is read as an unsigned number.
 * Length in characters. Query, which reads the key too. Errors of this function and the next three:
 *  - -BAD_PARAM_ERROR: null or empty argument;
 *  - -SHORT_BUF_ERROR: too little room; nothing is written;
 *  - -OPEN_ERROR: the file cannot be opened;
 *  - -INVALID_DATA_ERROR: not DER, PEM or base64;
 *  - -NOT_SUPPORTED_ERROR: a PEM block with header lines (DEK-Info);
 *  - -BAD_FORMAT_ERROR: not such a key, or values that cannot be computed with. */
ZUL_API int RSA_ReadPublicKey(char* szOutput, int nOutChars, const char* szFileOrText);

/* RSA_ReadPrivateKeyInfo reads an unencrypted PrivateKeyInfo (PKCS #8) or RSAPrivateKey (PKCS #1) of two
 * primes and writes its key string. Results as RSA_ReadPublicKey. */
ZUL_API int RSA_ReadPrivateKeyInfo(char* szOutput, int nOutChars, const char* szFileOrText);

/* RSA_ReadEncPrivateKey reads an EncryptedPrivateKeyInfo (PKCS #8) and writes the private key's key string.
 * szPassword may be empty. nOptions is ignored: the file names its scheme, one of those that
 * RSA_SaveEncPrivateKey writes or a PKCS #5 or PKCS #12 scheme with RC2. A query decrypts too. A file may ask for
 * at most 10,000,000 iterations. A million take about a tenth of a second with SHA-1 or SHA-256 on a processor
 * that has instructions for them, half a second with SHA-512, about five seconds with MD2.
 * Results as RSA_ReadPublicKey, and -DECRYPT_ERROR: a wrong password, too many iterations, or not an encrypted
 * RSA private key. */
ZUL_API int RSA_ReadEncPrivateKey(char* szOutput, int nOutChars, const char* szFileOrText,
                                  const char* szPassword, int nOptions);

/* RSA_GetPublicKeyFromCert reads an X.509 certificate and writes the key string of its subject's public
 * key. The certificate's signature and dates are not looked at. Results as RSA_ReadPublicKey. */
ZUL_API int RSA_GetPublicKeyFromCert(char* szOutput, int nOutChars, const char* szFileOrText);

/* RSA_SavePublicKey writes a public key, or the public part of a private key, to a file. nOptions:
 *  - ZUL_KEY_FORMAT_PEM: RSAPublicKey as PEM "RSA PUBLIC KEY";
 *  - ZUL_KEY_FORMAT_PEM_ALT: SubjectPublicKeyInfo as PEM "PUBLIC KEY";
 *  - neither: RSAPublicKey as DER. If both are given, the first counts.
 * PEM lines have 60 characters and end with CR LF.
 * Status of this function and the next two. BAD_PARAM_ERROR: null or empty argument; INVALID_DATA_ERROR: not a
 * key string of this process and kind; CREATE_ERROR; WRITE_ERROR. A file that could not be written whole is
 * removed. */
ZUL_API int RSA_SavePublicKey(const char* szFileOut, const char* szKeyString, int nOptions);

/* RSA_SavePrivateKeyInfo writes a private key to a file, unencrypted. nOptions:
 *  - ZUL_KEY_FORMAT_PEM: PrivateKeyInfo as PEM "PRIVATE KEY";
 *  - ZUL_KEY_FORMAT_PEM_ALT: RSAPrivateKey as PEM "RSA PRIVATE KEY";
 *  - neither: PrivateKeyInfo as DER. If both are given, the first counts.
 * Only the owner of the file may read it. Status as RSA_SavePublicKey. */
ZUL_API int RSA_SavePrivateKeyInfo(const char* szFileOut, const char* szKeyString, int nOptions);

/* RSA_SaveEncPrivateKey writes a private key to a file as EncryptedPrivateKeyInfo: PEM "ENCRYPTED PRIVATE
 * KEY" with ZUL_KEY_FORMAT_PEM or _PEM_ALT, else DER. nOptions also names the scheme (ZUL_PBE_...); the default
 * derives a Triple DES key with SHA-1 as PKCS #12 does. nCount: iterations; a value below 1 counts as 1. This
 * library does not read a key with more than 10,000,000 iterations. szPassword may be empty. Only the owner of a
 * new file may read it.
 * Status as RSA_SavePublicKey. BAD_LENGTH_ERROR: a password of a gigabyte. */
ZUL_API int RSA_SaveEncPrivateKey(const char* szFileOut, const char* szKeyString, int nCount,
                                  const char* szPassword, int nOptions);

/* RSA_ToXMLString writes a key as XML: RSAKeyValue for a public key, RSAKeyPair for a private one, with
 * values in base64 and nothing between the elements. nOptions:
 *  - ZUL_XML_RSAKEYVALUE puts a private key under RSAKeyValue too;
 *  - ZUL_XML_PUBLIC_ONLY writes the public part of a private key;
 *  - ZUL_XML_HEXBINARY writes hexadecimal.
 * Length. Query. With too little room nothing is written and the length needed is returned.
 * -BAD_PARAM_ERROR: null key; -INVALID_DATA_ERROR: not an RSA key string. */
ZUL_API int RSA_ToXMLString(char* szOutput, int nOutChars, const char* szKeyString, int nOptions);

/* RSA_FromXMLString reads a key from XML and gives its internal key string. nOptions is ignored.
 *  - The root is RSAKeyValue or RSAKeyPair; prefixes of names are ignored, and other elements too.
 *  - With D, P and Q it is a private key; DP, DQ and InverseQ are computed if they are missing.
 *  - PublicExponent, PrivateExponent and QINV are read for Exponent, D and InverseQ.
 *  - A value is base64, or hexadecimal if its element has EncodingType="hexBinary".
 *  - A document type, entities and elements nested deeper than 32 are refused.
 * Length. Query. Errors:
 *  - -BAD_PARAM_ERROR: null text;
 *  - -BAD_XML_ERROR: not XML; an element is missing, stands twice or is not a number; or the missing values
 *    cannot be computed (see ZUL_LastError);
 *  - -INVALID_DATA_ERROR: the values are not a key;
 *  - -SHORT_BUF_ERROR: too little room. */
ZUL_API int RSA_FromXMLString(char* szOutput, int nOutChars, const char* szXmlString, int nOptions);

/* RSA_KeyBits returns the length in bits of the modulus of a public or private key.
 * Length. -BAD_PARAM_ERROR: null or empty; the code of opening the string, with a text. */
ZUL_API int RSA_KeyBits(const char* szKeyString);

/* RSA_KeyBytes returns the length in bytes of the modulus, which is that of data and encoded blocks.
 * Length. Errors as for RSA_KeyBits. */
ZUL_API int RSA_KeyBytes(const char* szKeyString);

/* RSA_KeyMatch tells whether a private and a public key form a pair. It also tests the private key.
 *  - 0: they form a pair;
 *  - -NO_MATCH_ERROR: they do not;
 *  - -INVALID_DATA_ERROR: the private key does not undo its own public part;
 *  - -BAD_PARAM_ERROR: null;
 *  - the negated code of opening a string.
 * All errors except -BAD_PARAM_ERROR have a text. */
ZUL_API int RSA_KeyMatch(const char* szPrivateKey, const char* szPublicKey);

/* RSA_KeyHashCode returns a hash code, which may be negative, of a public key or of the public part of a private
 * key: the first four bytes, big-endian, of the MD5 digest of its DER RSAPublicKey. A failure returns 0, records
 * its code and has a text. */
ZUL_API int RSA_KeyHashCode(const char* szKeyString);

/* RSA_CheckKey checks a key. nOptions is ignored.
 *  - 0: a private key whose halves undo each other and whose d belongs to e;
 *  - 1: a public key, of which nothing more is checked;
 *  - -TEST_FAILED_ERROR: a private key whose values contradict each other;
 *  - -BAD_PARAM_ERROR: null or empty, or a key that cannot be computed with;
 *  - -BAD_LENGTH_ERROR: a modulus below two bytes;
 *  - the negated code of opening the string, with a text. */
ZUL_API int RSA_CheckKey(const char* szKeyString, int nOptions);

/* RSA_RawPublic transforms data in place with a public key string: data^e mod n, with the data as a
 * big-endian number. nDataLen is RSA_KeyBytes or more; the result stands at the end of the data, after zeros.
 * nOptions & 0xF: ZUL_RSA2_TRAILER6 or ZUL_RSA2_TRAILERC gives r or n - r for the result r, whichever ends with
 * that half-byte; any other value gives r.
 * Status. BAD_PARAM_ERROR: null or empty; OUT_OF_RANGE_ERROR: nDataLen below the key's, or the number is not
 * below n; SIGNATURE_ERROR: neither r nor n - r ends so, and the data are zeroed; or the code of opening the
 * string. */
ZUL_API int RSA_RawPublic(unsigned char* lpData, int nDataLen, const char* szPublicKey, int nOptions);

/* RSA_RawPrivate transforms data in place with a private key: data^d mod n. nDataLen is RSA_KeyBytes.
 * nOptions & 0xF: ZUL_RSA2_TRAILER6 or ZUL_RSA2_TRAILERC gives the smaller of r and n - r for the result r, and
 * accepts only data whose last half-byte is a multiple of that number; any other value gives r. The result is
 * verified with the public exponent before it is given out.
 * Status. After a failure the data are untouched:
 *  - BAD_PARAM_ERROR: null or empty;
 *  - OUT_OF_RANGE_ERROR: another length, or the number is not below n;
 *  - BAD_FORMAT_ERROR: the last half-byte;
 *  - TEST_FAILED_ERROR: the result is wrong, because the key is damaged or the computation was disturbed;
 *  - the code of opening the string. */
ZUL_API int RSA_RawPrivate(unsigned char* lpData, int nDataLen, const char* szPrivateKey, int nOptions);

/* RSA_EncodeMsg fills the nOutBytes bytes (normally RSA_KeyBytes) of lpOutput with the encoding of a message.
 * nOptions is one of:
 *  - ZUL_EME_PKCSV1_5: for encryption, PKCS #1 v1.5; up to nOutBytes - 11 bytes;
 *  - ZUL_EME_OAEP plus a ZUL_HASH_ algorithm (0 to 6): for encryption; up to nOutBytes - 2 - twice the length
 *    of the digest;
 *  - ZUL_EMSIG_PKCSV1_5 plus a ZUL_HASH_ algorithm: for signatures, the DigestInfo of the message's digest.
 *    With ZUL_EMSIG_DIGESTONLY the message is the digest already. nOutBytes is the DigestInfo's + 11 or more;
 *  - ZUL_EMSIG_ISO9796 plus a length in bits: ISO/IEC 9796-1, right-aligned after zeros; 1 byte up to half of
 *    the bytes of that length. The length is 0 for 8 * nOutBytes, or 17 to 65,535 (fewer bits cannot be decoded);
 *    for a key of b bits it is b - 1. Use it with ZUL_RSA2_TRAILER6.
 * lpInput may be null with nInputLen 0: an empty message.
 * 0, or -BAD_PARAM_ERROR: null or negative, or lengths that ISO/IEC 9796-1 does not allow; -SHORT_BUF_ERROR:
 * the message is too long for the block; -BAD_FLAG_ERROR: an unknown encoding or algorithm; -BAD_LENGTH_ERROR:
 * a digest of a wrong length, with a text. */
ZUL_API int RSA_EncodeMsg(unsigned char* lpOutput, int nOutBytes, const unsigned char* lpInput, int nInputLen,
                          int nOptions);

/* RSA_DecodeMsg recovers the message from an encoded block, of which at most nOutBytes bytes are copied.
 * nOptions as for RSA_EncodeMsg, but a signature block names its algorithm itself:
 *  - it gives its digest;
 *  - with ZUL_EMSIG_DIGINFO it gives its whole DigestInfo;
 *  - with ZUL_EMSIG_GETALG the result is the ZUL_HASH_ number, and nothing is copied.
 * Length of the whole message, also if less is copied. Query. The time for a wrong encryption block does not
 * depend on the fault. Errors, after which nothing is copied:
 *  - -BAD_PARAM_ERROR: null block or negative length, or a block shorter than its ISO/IEC 9796-1 length;
 *  - -DECRYPT_ERROR: not such a block;
 *  - -BAD_LENGTH_ERROR: too short for OAEP, or a gigabyte;
 *  - -BAD_FLAG_ERROR: an unknown encoding or algorithm. */
ZUL_API int RSA_DecodeMsg(unsigned char* lpOutput, int nOutBytes, const unsigned char* lpInput, int nInputLen,
                          int nOptions);

/* --- X509_: certificates, requests and revocation lists ------------------------------------------------
 * szCertFile and its like are certificate arguments: text of more than 256 characters that begins with "M"
 * and is base64 of a certificate (white space may stand in it), text with a PEM block of any label, or the
 * name of a file of DER, PEM or base64. Each call reads it again. A file that is read whole has at most 8 MiB.
 * A pipe is read into memory, at most 256 MiB.
 *
 * Distinguished names are texts of keyword=value pairs joined by ";", as "C=AU;O=Example;CN=Alice". Keywords,
 * in any case: CN, C, O, OU, L, S or ST, E, SN (surname), G, T, DC; others are skipped. A value in quotes (')
 * may hold ";", and a backslash there makes the next character literal. "#x" begins a value of bytes in hex,
 * "##x" a value that begins with "#x". Times are written as "yyyy-mm-ddThh:nn:ssZ": the digits of the stored time
 * without a conversion of its zone and without a check of the date. Dates that a caller gives have to exist.
 *
 * Codes of all: BAD_PARAM_ERROR: an argument that may not be null or empty; of certificate arguments also
 * OPEN_ERROR, INVALID_DATA_ERROR (not ASN.1) and BAD_FORMAT_ERROR (of another kind, or a field missing). */

/* X509_QueryCert answers a query about a certificate. szQuery is one of these words, in any case (a longer word
 * finds the name that it begins with):
 *  - numbers, which are the result: "version", "sigAlgID" (1 RSA with SHA-1, MD5 or MD2, 2 DSA with SHA-1, 0
 *    any other), "keyUsageFlags", "isCA" (1 or 0);
 *  - texts, empty if the certificate has no such field: "signatureAlgorithm", "keyUsageString", "notBefore",
 *    "notAfter", "issuerName", "subjectName", "subjectPublicKeyAlgorithm", "rfc822Name", "extKeyUsageString",
 *    "cRLDistributionPointsURI", "authorityInfoAccessURI";
 *  - texts in hex: "serialNumber", "signatureValue", "subjectKeyIdentifier", "authorityKeyIdentifier".
 * nOptions:
 *  - ZUL_QUERY_GETTYPE returns 1 for a number, 2 for a text, and reads no certificate;
 *  - ZUL_X509_LATIN1 as in X509_CertSubjectName.
 * Length (or the number). Query. Times, names and algorithms are cut to nChars; -SHORT_BUF_ERROR: any other
 * text that does not fit; -BAD_QUERY_ERROR: no such query; -INVALID_DATA_ERROR also for a zero byte in an
 * address or URI, and for an invalid time. */
ZUL_API int X509_QueryCert(char* szOutput, int nChars, const char* szCertFile, const char* szQuery,
                           int nOptions);

/* X509_KeyUsageFlags returns the key usage as ZUL_KEYUSAGE_ bits, 0 if the certificate does not say, or a
 * negated code. */
ZUL_API int X509_KeyUsageFlags(const char* szCertFile);

/* X509_CertThumb writes the digest (nOptions: ZUL_HASH_...) of a certificate in lower-case hex. Too little room
 * cuts it at a whole byte. Length in characters. Query. -BAD_FLAG_ERROR: no such digest. */
ZUL_API int X509_CertThumb(const char* szCertFile, char* szHash, int nChars, int nOptions);

/* X509_CertIsValidNow returns 0 if the present time lies within the certificate's validity, -1 if not, or a
 * positive code. -1 records no error. Nothing else is checked. nOptions is ignored. */
ZUL_API int X509_CertIsValidNow(const char* szCertFile, int nOptions);

/* X509_CertIssuedOn and X509_CertExpiresOn write the beginning and end of the validity, 20 characters, cut to
 * nChars. Length. Query. -INVALID_DATA_ERROR also for an invalid time. nOptions is ignored. */
ZUL_API int X509_CertIssuedOn(const char* szCertFile, char* szOutput, int nChars, int nOptions);
ZUL_API int X509_CertExpiresOn(const char* szCertFile, char* szOutput, int nChars, int nOptions);

/* X509_CertSerialNumber writes the serial number's bytes in lower-case hex. Length. Query. -SHORT_BUF_ERROR:
 * it does not fit. nOptions is ignored. */
ZUL_API int X509_CertSerialNumber(const char* szCertFile, char* szOutput, int nChars, int nOptions);

/* X509_CertSubjectName and X509_CertIssuerName write a name as text, cut to nChars. szDelim: null or empty
 * for ";", else its first character stands between the pairs. Values that are not single-byte text, and any
 * that holds a zero byte, are written as hex bytes with blanks between; with ZUL_X509_LATIN1 UTF8String,
 * BMPString and UniversalString are converted to Latin-1 where they can be. An attribute without a keyword
 * has the name that the library knows it by, else its dotted number. Nothing is escaped: a value that holds
 * the delimiter reads as two pairs, so do not decide trust by this text. Length; an empty name has 0.
 * Query. */
ZUL_API int X509_CertSubjectName(const char* szCertFile, char* szOutput, int nChars, const char* szDelim,
                                 int nOptions);
ZUL_API int X509_CertIssuerName(const char* szCertFile, char* szOutput, int nChars, const char* szDelim,
                                int nOptions);

/* X509_HashIssuerAndSN writes the digest of the certificate's IssuerAndSerialNumber (RFC 5652), as
 * X509_CertThumb that of the certificate. -BAD_PARAM_ERROR also for a negative nChars. */
ZUL_API int X509_HashIssuerAndSN(const char* szCertFile, char* szOutput, int nChars, int nOptions);

/* X509_ReadStringFromFile writes a certificate as base64 in one line, which serves as szCertFile wherever
 * one is asked for (if it is longer than 256 characters, as that of any certificate with an RSA key is).
 * Length. Query. -SHORT_BUF_ERROR: it does not fit. nOptions is ignored. */
ZUL_API int X509_ReadStringFromFile(char* szOutput, int nChars, const char* szCertFile, int nOptions);

/* X509_SaveFileFromString writes a certificate given as base64 to a file: DER, or PEM "CERTIFICATE" with
 * ZUL_X509_FORMAT_PEM. 0 or a negated code: -INVALID_DATA_ERROR: no certificate; -CREATE_ERROR;
 * -WRITE_ERROR. */
ZUL_API int X509_SaveFileFromString(const char* szNewCertFile, const char* szCertString, int nOptions);

/* X509_MakeCert makes a certificate (RFC 5280) signed by an issuer.
 *  - szSubjectPubKeyFile: the subject's RSA public key as a file, PEM or base64, or as a key string; if
 *    szDistName is null or empty, a certification request, whose signature is checked and whose name and key
 *    are taken. The name goes through its text form: a value with ";" in it becomes several, quotes and "#x"
 *    mean what they mean in such a text, a value that prints as hex stays hex, and an attribute without a
 *    keyword is left out. Look at the name of the certificate before you hand it out.
 *  - szIssuerPriKeyFile: the issuer's encrypted private key, with szPassword, or a private key string (the
 *    password may still not be empty). Whether it belongs to szIssuerCertFile is not checked.
 *  - nCertNum: the serial number, as an unsigned number.
 *  - nYearsValid: years from "notBefore", or from a minute ago, which is shifted by the zone of a system that
 *    does not run on UTC.
 *  - nKeyUsageFlags: ZUL_KEYUSAGE_ bits, 0 for no such extension.
 *  - szExtensions: null, or pairs joined by ";": "rfc822Name" or "subjectAltNameRfc822Name" (an e-mail
 *    address), "serialNumber" (in hex, instead of nCertNum), "subjectKeyIdentifier" (in hex), "notBefore" and
 *    "notAfter" ("yyyy-mm-dd", optionally with "Thh:nn:ss").
 * nOptions:
 *  - ZUL_HASH_SHA1 (the default) to ZUL_HASH_SHA224 for the signature;
 *  - ZUL_X509_FORMAT_PEM: PEM "CERTIFICATE" instead of DER;
 *  - ZUL_X509_UTF8: UTF8String in the name;
 *  - ZUL_X509_SET_CA: a certificate that may issue others;
 *  - ZUL_X509_AUTHKEYID: repeats the issuer's subjectKeyIdentifier;
 *  - ZUL_X509_NO_BASIC: no basicConstraints;
 *  - ZUL_X509_VERSION1: version 1, which has no extensions.
 * Status, positive. BAD_PARAM_ERROR also for an invalid name (an empty one of a request too), pair, date or
 * number of years; BAD_FLAG_ERROR: no such digest; OPEN_ERROR; BAD_FORMAT_ERROR: no request, or no RSA public
 * key; DECRYPT_ERROR: the private key cannot be read; SIGNATURE_ERROR: it cannot sign, or the request's
 * signature does not verify; NOT_SUPPORTED_ERROR: a request with a key that is not RSA; INVALID_DATA_ERROR
 * also for an invalid issuer's certificate; CREATE_ERROR, also if the new file is the private key's;
 * WRITE_ERROR. */
ZUL_API int X509_MakeCert(const char* szNewCertFile, const char* szIssuerCertFile,
                          const char* szSubjectPubKeyFile, const char* szIssuerPriKeyFile, int nCertNum,
                          int nYearsValid, const char* szDistName, const char* szExtensions,
                          int nKeyUsageFlags, const char* szPassword, int nOptions);

/* X509_MakeCertSelf makes the self-signed certificate of a certification authority from its encrypted
 * private key. It always has cA TRUE, unless basicConstraints is left out. ZUL_X509_AUTHKEYID has no
 * effect. Otherwise as X509_MakeCert. */
ZUL_API int X509_MakeCertSelf(const char* szNewCertFile, const char* szEPKFile, int nCertNum, int nYearsValid,
                              const char* szDistName, const char* szExtensions, int nKeyUsageFlags,
                              const char* szPassword, int nOptions);

/* X509_CertRequest makes a certification request (PKCS #10, RFC 2986) from an encrypted private key.
 * szExtensions is ignored. nOptions:
 *  - a digest and ZUL_X509_UTF8 as in X509_MakeCert;
 *  - ZUL_X509_REQ_DER: DER instead of PEM "NEW CERTIFICATE REQUEST";
 *  - ZUL_X509_REQ_NOATTRS leaves out the empty attributes, which some readers demand.
 * Status as X509_MakeCert; READ_ERROR: the private key cannot be read. */
ZUL_API int X509_CertRequest(const char* szReqFile, const char* szEPKFile, const char* szDistName,
                             const char* szExtensions, const char* szPassword, int nOptions);

/* X509_MakeCRL makes a revocation list of version 1.
 *  - szCertList: null, or serial numbers and revocation dates in turn, separated by ";", "," or "=":
 *    "1,2010-01-01;#x0a3f,2010-02-03T12:00:00" ("#x": in hex).
 *  - szExtensions: null, or pairs of "thisUpdate" (default: now) and "nextUpdate" (default: none).
 *  - nOptions: a digest as in X509_MakeCert; ZUL_X509_FORMAT_PEM for PEM "X509 CRL".
 * Status, positive and not recorded (ZUL_ErrorCode stays 0, the text is there). BAD_PARAM_ERROR also for
 * pairs; BAD_FORMAT_ERROR: szCertList; READ_ERROR: the private key cannot be read; else as X509_MakeCert. */
ZUL_API int X509_MakeCRL(const char* szCrlFile, const char* szIssuerCertFile, const char* szIssuerKeyFile,
                         const char* szPassword, const char* szCertList, const char* szExtensions,
                         int nOptions);

/* X509_VerifyCert checks that a certificate, request or CRL was signed with the key of szIssuerCert: RSA
 * (PKCS #1 v1.5), or DSA with SHA-1. A file of DER may be of any size. Dates and names are not checked.
 *  - 0: it was signed with that key;
 *  - -1: it was not; SIGNATURE_ERROR is recorded;
 *  - NOT_SUPPORTED_ERROR: a DSA key without parameters, a key of another kind than the signature, or an unknown
 *    algorithm;
 *  - INVALID_DATA_ERROR: also a key that cannot be used, or a file without a signed object (BAD_FORMAT_ERROR
 *    for text). */
ZUL_API int X509_VerifyCert(const char* szCertToVerify, const char* szIssuerCert);

/* X509_CheckCertInCRL looks a certificate up in its issuer's CRL. With szCRLIssuerCert (not null or empty) the
 * CRL's signature is checked with that certificate's key, in the same pass over the file. szDate: null, empty,
 * or a date ("yyyy-mm-dd", optionally with "Thh:nn:ss"); a later revocation does not count. A CRL in
 * a file of DER may be of any size, but at most 8 MiB if its signature is of another encoding than the file has.
 * The CRL's own dates are not checked. nOptions is ignored.
 * 1 if revoked, 0 if not, or a negated code: -ISSUER_ERROR: the CRL of another issuer; -SIGNATURE_ERROR: its
 * signature could not be verified with szCRLIssuerCert (the text says why); -INVALID_DATA_ERROR: also a
 * damaged entry before the one looked for. */
ZUL_API int X509_CheckCertInCRL(const char* szCertFile, const char* szCrlFile, const char* szCRLIssuerCert,
                                const char* szDate, int nOptions);

/* X509_ValidatePath orders certificates into a path and checks each one's signature, and its dates unless
 * nOptions is not 0.
 *  - szCertList: certificate arguments joined by ";" in any order, of which the first 20 count, or a PKCS #7
 *    bundle of 1 to 20, or one certificate.
 *  - szTrustedCert: null for a path that begins with a self-signed certificate of the list; else the path
 *    begins with that certificate, if it is self-signed, or with one that it issued.
 * Extensions (basicConstraints, keyUsage) are not checked. All certificates together have at most 8 MiB.
 * 0 or a negated code:
 *  - -INVALID_DATA_ERROR: an item that is not a certificate;
 *  - -EXPIRED_ERROR: a certificate is expired or not yet valid;
 *  - -NO_DATA_ERROR: no certificates, or a text without ";" that is neither a bundle nor a certificate;
 *  - -OUT_OF_RANGE_ERROR: a bundle of more than 20;
 *  - -ISSUER_ERROR: no self-signed certificate;
 *  - -NO_MATCH_ERROR: no certificate was issued by the one before it in the path;
 *  - -SIGNATURE_ERROR: a signature does not verify. */
ZUL_API int X509_ValidatePath(const char* szCertList, const char* szTrustedCert, int nOptions);

/* X509_TextDump writes a description of a certificate, request or CRL to a text file. nOptions is ignored.
 * 0 or a negated code: -CREATE_ERROR, also if szFileOut is the input file itself; -WRITE_ERROR;
 * -BAD_FORMAT_ERROR: none of the three, or a mandatory part missing. After a failure the file holds what
 * comes before the fault. An extension that cannot be shown is left out. */
ZUL_API int X509_TextDump(const char* szFileOut, const char* szCertFile, int nOptions);

/* X509_GetCertFromP7Chain takes a certificate out of a signed message or a certs-only one (PKCS #7, "p7c" or
 * "p7b"), a message argument as below. nIndex below 1 counts the certificates; else the nIndex-th one, from
 * 1, is written to szNewCertFile as DER, unless that is null or empty. nOptions is ignored.
 * Length of the certificate in bytes, or the count; 0: there is no such certificate. -BAD_FORMAT_ERROR: no
 * such message, or one that does not end; -CREATE_ERROR; -WRITE_ERROR. */
ZUL_API int X509_GetCertFromP7Chain(const char* szNewCertFile, const char* szP7cFile, int nIndex,
                                    int nOptions);

/* X509_GetCertFromPFX and RSA_GetPrivateKeyFromPFX write the first certificate of a PKCS #12 file, as DER,
 * and its first encrypted private key, as RSA_ReadEncPrivateKey reads it, to a file. The key stays encrypted
 * as it is, so no password is needed and the MAC is not checked. nOptions is ignored.
 * Status, positive. BAD_PARAM_ERROR, OPEN_ERROR, WRITE_ERROR, and
 *  - INVALID_DATA_ERROR: not a PFX file, a signature instead of a MAC, or bags nested more than 8 deep;
 *  - NOT_SUPPORTED_ERROR: a version other than 3, or the certificate or key is inside an encrypted part of the
 *    file;
 *  - NO_DATA_ERROR: the file has none;
 *  - CREATE_ERROR: also if the new file is the PFX file itself. */
ZUL_API int X509_GetCertFromPFX(const char* szFileOut, const char* szPfxFile, int nOptions);
ZUL_API int RSA_GetPrivateKeyFromPFX(const char* szFileOut, const char* szPfxFile, int nOptions);

/* --- CMS_: signed and enveloped messages (RFC 5652, PKCS #7) ---------------------------------------------
 * A message argument (szFileIn) is the name of a file of DER or BER, PEM or base64, or the message as text,
 * as certificate arguments are. szCertList: certificate arguments joined by ";", of which the first 10 count.
 * Content that a message carries has at most 16 MiB, including the padding if it is encrypted
 * (MSG_TOO_LONG_ERROR). Content that is cut into segments may be longer when it is read. An existing output file is
 * overwritten. A call that fails before it writes leaves the file as it was. A call that fails while it writes
 * leaves what it has written of a signed message or its content, and removes any other file.
 * szPrivateKey: a private key string.
 *
 * Codes of all: BAD_PARAM_ERROR: an argument that may not be null or empty; OPEN_ERROR: a file cannot be
 * opened; READ_ERROR: reading it fails; CREATE_ERROR and WRITE_ERROR: the output; INVALID_DATA_ERROR: a
 * message that is malformed or of another type, a key string that cannot be opened. */

/* CMS_MakeSigData signs a file with RSA (PKCS #1 v1.5). The first certificate of szCertList is the signer's.
 * Whether szPrivateKey is its key is not checked. nOptions: a ZUL_HASH_ algorithm (0 to 6), and any of
 *  - ZUL_CMS_EXCLUDE_CERTS: the certificates are not carried;
 *  - ZUL_CMS_EXCLUDE_DATA: the content is not carried (a detached signature), and may have any length;
 *  - ZUL_CMS_INCLUDE_ATTRS: signed attributes contentType and messageDigest, with ZUL_CMS_ADD_SIGNTIME also
 *    signingTime, with ZUL_CMS_ADD_SMIMECAPS sMIMECapabilities;
 *  - ZUL_CMS_NAMED_SIGALG: the signature algorithm is not called rsaEncryption but sha1WithRSAEncryption for
 *    SHA-1, md5WithRSAEncryption for MD5, SHA-256 and SHA-512, md2WithRSAEncryption for MD2 and SHA-224, and
 *    sha384WithRSAEncryption for SHA-384; the signature is the same, but readers that rely on these names
 *    refuse some of them;
 *  - ZUL_CMS_BARE_SIGNEDDATA: SignedData without ContentInfo;
 *  - ZUL_CMS_FORMAT_BASE64: base64 text in lines of 64 characters instead of DER;
 *  - ZUL_CMS_CERTS_ONLY: a message of certificates alone, in base64 as PEM "PKCS7"; only szFileOut and
 *    szCertList are used.
 * Status, positive. BAD_FLAG_ERROR: an unknown digest; NO_DATA_ERROR: an empty file, or no certificate to carry;
 * OPEN_ERROR: also a certificate that cannot be read (INVALID_DATA_ERROR with ZUL_CMS_EXCLUDE_CERTS, which reads
 * only the first one); SIGNATURE_ERROR: the key cannot sign. */
ZUL_API int CMS_MakeSigData(const char* szFileOut, const char* szFileIn, const char* szCertList,
                            const char* szPrivateKey, int nOptions);

/* CMS_MakeSigDataFromString signs the bytes of a text, without its NUL, as CMS_MakeSigData a file. */
ZUL_API int CMS_MakeSigDataFromString(const char* szFileOut, const char* szDataIn, const char* szCertList,
                                      const char* szPrivateKey, int nOptions);

/* CMS_MakeDetachedSig signs content whose digest is given in hex; the content is not carried.
 * INVALID_DATA_ERROR also for a text without hex; BAD_LENGTH_ERROR: the digest does not have the length of the
 * algorithm. Otherwise as CMS_MakeSigData. */
ZUL_API int CMS_MakeDetachedSig(const char* szFileOut, const char* szHexDigest, const char* szCertList,
                                const char* szPrivateKey, int nOptions);

/* CMS_MakeSigDataFromSigValue makes a message from nDataLen bytes of content and their finished signature,
 * made by a smart card, for example. The signature is verified with the key of the first certificate. Signed
 * attributes are never added, since the signature does not cover them. SIGNATURE_ERROR: the signature does not
 * verify, or that certificate has no RSA key. Otherwise as CMS_MakeSigData. */
ZUL_API int CMS_MakeSigDataFromSigValue(const char* szFileOut, const unsigned char* lpSigValue, int nSigLen,
                                        const unsigned char* lpData, int nDataLen, const char* szCertList,
                                        int nOptions);

/* CMS_ReadSigData writes the content of a signed message to a file, CMS_ReadSigDataToString to nDataOutLen
 * bytes of room and a NUL. The signature is not checked: call CMS_VerifySigData. nOptions is ignored.
 * Length of the content. Query (CMS_ReadSigDataToString). -CREATE_ERROR: also if szFileOut is the input file
 * itself; -NO_DATA_ERROR: the message has no content (a detached signature); -NOT_SUPPORTED_ERROR: SignedData
 * of another version than 1. */
ZUL_API int CMS_ReadSigData(const char* szFileOut, const char* szFileIn, int nOptions);
ZUL_API int CMS_ReadSigDataToString(char* szDataOut, int nDataOutLen, const char* szFileIn, int nOptions);

/* CMS_VerifySigData verifies the signature of a signed message, RSA (PKCS #1 v1.5) with any digest or DSA
 * with SHA-1, and the digest of its content.
 *  - szCertFile: the signer's certificate. Null or empty: the certificates in the message are used, and the first
 *    signer with one of them is verified. Then anybody can have signed: validate that certificate
 *    (X509_ValidatePath).
 *  - szHexDigest: the digest of the content, or null or empty. It is required if the message has no content, and
 *    has to agree with the content otherwise.
 * nOptions is ignored.
 * Status, positive:
 *  - SIGNATURE_ERROR: the signature does not verify, the digests differ, or the content of a message without
 *    signed attributes is itself a set of them;
 *  - NO_MATCH_ERROR: no signer has such a certificate;
 *  - NO_DATA_ERROR: neither content nor digest;
 *  - INVALID_DATA_ERROR: also an invalid szHexDigest, or a messageDigest that is missing or stands twice;
 *  - NOT_SUPPORTED_ERROR: a version other than 1, or an unknown algorithm. */
ZUL_API int CMS_VerifySigData(const char* szFileIn, const char* szCertFile, const char* szHexDigest,
                              int nOptions);

/* CMS_GetSigDataDigest writes the digest of the content that was signed, in lower-case hex. It comes from the
 * signature, or from the signed attributes after their signature has been verified. szCertFile as in
 * CMS_VerifySigData. nOptions is ignored.
 * Length in characters. Query. Codes as CMS_VerifySigData, negated; -NOT_SUPPORTED_ERROR also for DSA without
 * signed attributes. */
ZUL_API int CMS_GetSigDataDigest(char* szHexDigestOut, int nDigestLen, const char* szFileIn,
                                 const char* szCertFile, int nOptions);

/* CMS_QuerySigData answers a query about a signed message of any version, verified or not. szQuery is one
 * of these names, in exactly this form:
 *  - numbers, which are the result: "Version", "HASeContent", "CountOfCerts" ("CountOfCertificates"),
 *    "CountOfSigners" ("CountOfSignerInfos");
 *  - a text: "eContentType";
 *  - numbers about the first signer: "signerInfoVersion", "HASsignedAttrs" ("HASsignedAttributes");
 *  - texts about the first signer: "SigningTime" ("yyyy-mm-dd hh:nn:ss", UTC), "digestAlgorithm",
 *    "signatureAlgorithm", "messageDigest" (hex).
 * A missing part is 0 or an empty text. The first signer need not be the one that CMS_VerifySigData verified:
 * rely on these answers only if "CountOfSigners" is 1. nOptions: ZUL_QUERY_GETTYPE as in X509_QueryCert.
 * Length (or the number). Query. -BAD_QUERY_ERROR: no such query. */
ZUL_API int CMS_QuerySigData(char* szOutput, int nOutChars, const char* szFileIn, const char* szQuery,
                             int nOptions);

/* CMS_MakeEnvData encrypts a file for the RSA keys (PKCS #1 v1.5) of up to 10 certificates. lpSeed, nSeedLen:
 * additional input for the generator that makes the content key (20 bytes are used), or null and 0. nOptions:
 *  - ZUL_CMS_CIPHER_AES128, ZUL_CMS_CIPHER_AES192 or ZUL_CMS_CIPHER_AES256: the cipher, in CBC mode; Triple DES
 *    without one of these;
 *  - ZUL_CMS_NAMED_SIGALG: names Triple DES "des_3CBC_pad" (an OID that few readers know);
 *  - ZUL_CMS_FORMAT_BASE64: as in CMS_MakeSigData, if there is a recipient.
 * The number of recipients, or a negated code. A certificate whose key cannot be used is left out, with a text
 * (ZUL_LastError), so there may be fewer recipients than certificates. With 0 recipients nobody can read the
 * message. */
ZUL_API int CMS_MakeEnvData(const char* szFileOut, const char* szFileIn, const char* szCertList,
                            const unsigned char* lpSeed, int nSeedLen, int nOptions);

/* CMS_MakeEnvDataFromString encrypts the bytes of a text, without its NUL, as CMS_MakeEnvData a file. */
ZUL_API int CMS_MakeEnvDataFromString(const char* szFileOut, const char* szDataIn, const char* szCertList,
                                      const unsigned char* lpSeed, int nSeedLen, int nOptions);

/* CMS_ReadEnvData decrypts an enveloped message (Triple DES, AES or RC2, CBC) into a file,
 * CMS_ReadEnvDataToString into nDataOutLen bytes of room and a NUL. nOptions is ignored.
 *  - szX509File: the recipient's certificate. At most 4 of its entries in the message are tried. If it is null or
 *    empty, every recipient with a key of the right length is tried, at most 100.
 * The content is not authenticated: anybody can change or make it. An attacker who can have many messages opened
 * and sees which calls succeed learns about the key. Do not open messages of strangers automatically; sign before
 * encrypting, and verify after decrypting.
 * 0 (CMS_ReadEnvDataToString: length; Query), or a negated code:
 *  - -DECRYPT_ERROR: no recipient, another key, or damaged data, which cannot be told apart;
 *  - -NOT_SUPPORTED_ERROR: another cipher;
 *  - -MSG_TOO_LONG_ERROR: content above 16 MiB in one piece, or above 256 MiB in all;
 *  - -IO_ERROR: the output cannot be closed. */
ZUL_API int CMS_ReadEnvData(const char* szFileOut, const char* szFileIn, const char* szX509File,
                            const char* szPrivateKey, int nOptions);
ZUL_API int CMS_ReadEnvDataToString(char* szDataOut, int nDataOutLen, const char* szFileIn,
                                    const char* szX509File, const char* szPrivateKey, int nOptions);

/* CMS_QueryEnvData answers a query about an enveloped message. szQuery is one of these names, in exactly this
 * form:
 *  - numbers: "Version", "CountOfRecipients" ("CountOfRecipientInfos"), "sizeofEncryptedContent" (bytes);
 *  - a text: "contentEncryptionAlgorithm";
 *  - numbers about the first recipient: "recipientInfoVersion", "keyEncryptionFlags" (0 for rsaEncryption),
 *    "sizeofEncryptedKey" (bytes);
 *  - texts about the first recipient: "keyEncryptionAlgorithm", "recipientIssuerName" (as X509_CertIssuerName
 *    with ZUL_X509_LATIN1), "recipientSerialNumber" (hex).
 * Otherwise as CMS_QuerySigData. */
ZUL_API int CMS_QueryEnvData(char* szOutput, int nOutChars, const char* szFileIn, const char* szQuery,
                             int nOptions);

/* --- PFX_: PKCS #12 files (RFC 7292) ------------------------------------------------------------------ */

/* PFX_MakeFile writes a PFX file: a certificate, not encrypted, an encrypted private key as it stands in its
 * file, and a MAC (HMAC-SHA-1). The key is left out if szKeyFile or szPassword is null or empty. Whether key
 * and certificate belong together is not checked.
 *  - szPassword: of the key, which is tested, and of the MAC. Other programs expect it in Latin-1.
 *  - szFriendlyName: in Latin-1; null is empty.
 * nOptions:
 *  - ZUL_PFX_NO_PRIVKEY: the key is left out in any case;
 *  - ZUL_KEY_FORMAT_PEM: the file is PEM "PKCS12".
 * Status, positive. BAD_PARAM_ERROR; INVALID_DATA_ERROR: the certificate cannot be read; the codes of
 * RSA_ReadEncPrivateKey for the key (DECRYPT_ERROR: wrong password); CREATE_ERROR, also if the new file is
 * the key's; WRITE_ERROR; MSG_TOO_LONG_ERROR: more than 8 MiB. */
ZUL_API int PFX_MakeFile(const char* szFileOut, const char* szCertFile, const char* szKeyFile,
                         const char* szPassword, const char* szFriendlyName, int nOptions);

/* PFX_VerifySig checks the MAC of a PFX file (HMAC with SHA-1, SHA-256, SHA-384 or SHA-512) with a password. Null
 * or empty means the empty password, encoded as two zero bytes or as none. nOptions is ignored.
 * Status, positive. SIGNATURE_ERROR: a wrong password or changed data; OPEN_ERROR; INVALID_DATA_ERROR: not a
 * PFX file, or a malformed MAC; NOT_SUPPORTED_ERROR: another version than 3, or another MAC; NO_DATA_ERROR: no
 * MAC; OUT_OF_RANGE_ERROR: an iteration count above 10,000,000. */
ZUL_API int PFX_VerifySig(const char* szPfxFile, const char* szPassword, int nOptions);

/* --- OCSP_: asking for the status of a certificate (RFC 6960) ---------------------------------------- */

/* OCSP_MakeRequest writes an unsigned request about one certificate as base64 in one line. To send it, decode
 * it and POST it as application/ocsp-request. szExtensions is ignored.
 *  - szCertFileOrSerialNum: the certificate, or "#x" and its serial number in hex;
 *  - nOptions: the ZUL_HASH_ algorithm for the hashes of the issuer's name and key. Most responders expect SHA-1.
 * Length. Query. Codes negated: -SHORT_BUF_ERROR: the request does not fit; -NO_MATCH_ERROR: the certificate
 * was not issued by szIssuerCert; -BAD_FLAG_ERROR: an unknown digest; -INVALID_DATA_ERROR: also for "#x"
 * without hex. A null or empty certificate is an exception: the result is 6, BAD_PARAM_ERROR not negated. */
ZUL_API int OCSP_MakeRequest(char* szOutput, int nChars, const char* szIssuerCert,
                             const char* szCertFileOrSerialNum, const char* szExtensions, int nOptions);

/* OCSP_ReadResponse writes a report of a response, which is a file of DER, PEM or base64, or text. The report
 * has at most 1,023 characters, in these lines:
 *  - "Successful response:";
 *  - " Produced at " and a time;
 *  - for each certificate " CertStatus=" and good, revoked (with " at " and a time) or unknown;
 *  - for each certificate " SerialNumber=" and hex.
 * The report of an unsuccessful response is its status and a full stop; that is not an error. szIssuerCert: null,
 * or the certificate whose key has to verify the signature: that of the issuer, or of a delegated responder that
 * the caller has validated. The caller has to check the age of the response and that it belongs to the request.
 * szExtensions and nOptions are ignored.
 * Without output or room the result is the report's length; with them the report is cut to nChars and the result
 * is nChars. Errors:
 *  - -OPEN_ERROR: no such file, or a file above 1 MiB;
 *  - -INVALID_DATA_ERROR: not a response;
 *  - -OUT_OF_RANGE_ERROR: an unknown status;
 *  - -NOT_SUPPORTED_ERROR: not of type ocspBasic, or an unsupported signature algorithm;
 *  - -BAD_FORMAT_ERROR: a time is missing or invalid;
 *  - -SIGNATURE_ERROR: the signature does not verify;
 *  - the negated code of an issuer's certificate that cannot be read. */
ZUL_API int OCSP_ReadResponse(char* szOutput, int nChars, const char* szResponseFile,
                              const char* szIssuerCert, const char* szExtensions, int nOptions);

/* --- CONTEXTS for data in pieces: HASH_, HMAC_, CIPHER_ ------------------------------------------------
 * For data of any length: call X_Begin once, X_Add for each piece and X_End once. The context is the caller's
 * memory, at any address; X_Begin with a null lpContext or an nContextLen of 0 returns its size in bytes, and looks at
 * name and options alone. A failed X_Begin leaves no older context in that memory, unless it is too small. A
 * context may be moved, and copied to continue from the same point twice. Two threads may not use it at once. It
 * holds secrets until X_End wipes it. A context that was not begun, was ended or was changed gives
 * INVALID_DATA_ERROR.
 * szAlgorithm of a digest, in any case: "sha256", "sha224", "sha384", "sha512", "sha512-256", "sha3-224",
 * "sha3-256", "sha3-384", "sha3-512", "shake128", "shake256", "sha1", "md5", "md2"; also "sha-1", "sha-256" and so
 * on, "sha-512/256" and "sha512/256". */

/* HASH_Begin begins a digest. nOptions is 0.
 * Length: the bytes of the context. -NOT_SUPPORTED_ERROR: no such digest; -SHORT_BUF_ERROR; -BAD_FLAG_ERROR. */
ZUL_API int HASH_Begin(void* lpContext, int nContextLen, const char* szAlgorithm, int nOptions);
/* HASH_Add absorbs nDataLen bytes. Status. INVALID_DATA_ERROR; BAD_PARAM_ERROR. */
ZUL_API int HASH_Add(void* lpContext, const void* lpData, int nDataLen);
/* HASH_End writes the digest, cut to nOutBytes, and wipes the context; of "shake128" and "shake256" it writes
 * nOutBytes bytes. Length in bytes. Query, which leaves the context as it is and gives 32 for "shake128" and 64 for
 * "shake256". -INVALID_DATA_ERROR. */
ZUL_API int HASH_End(unsigned char* lpOutput, int nOutBytes, void* lpContext);

/* HMAC_Begin begins a MAC with a key of any length and a digest that has an HMAC (not "md2", "shake128" and
 * "shake256"); the rest as HASH_Begin. */
ZUL_API int HMAC_Begin(void* lpContext, int nContextLen, const void* lpKey, int nKeyLen,
                       const char* szAlgorithm, int nOptions);
/* HMAC_Add absorbs nDataLen bytes, as HASH_Add. */
ZUL_API int HMAC_Add(void* lpContext, const void* lpData, int nDataLen);
/* HMAC_End writes the MAC, cut to nOutBytes, and wipes the context, as HASH_End. */
ZUL_API int HMAC_End(unsigned char* lpOutput, int nOutBytes, void* lpContext);

/* CIPHER_Begin begins to encrypt (fEncrypt not 0) or decrypt. szAlgorithm, in any case: "aes-128", "aes-192",
 * "aes-256" or "tdea" (also "3des", "des-ede3"), followed by "-cbc", "-ctr", "-cfb", "-ofb" or "-ecb", as in
 * "aes-256-ctr". The IV is one block (16 bytes, "tdea" 8); ECB has none. Changes of the data are not detected:
 * prefer AEAD_Encrypt. nOptions:
 *  - ZUL_CIPHER_NO_PADDING: CBC and ECB neither add nor expect a pad; the whole data has to be whole blocks.
 * Length: the bytes of the context. -NOT_SUPPORTED_ERROR: no such algorithm; -BAD_KEY_LEN_ERROR;
 * -BAD_IV_ERROR: the length of the IV; -SHORT_BUF_ERROR; -BAD_PARAM_ERROR; -BAD_FLAG_ERROR. */
ZUL_API int CIPHER_Begin(void* lpContext, int nContextLen, int fEncrypt, const unsigned char* lpKey,
                         int nKeyLen, const unsigned char* lpIV, int nIVLen, const char* szAlgorithm,
                         int nOptions);
/* CIPHER_Add takes the next piece and writes what is ready, which may be a block less or more than the piece.
 * lpOutput may be lpInput in CTR, CFB and OFB, and may not overlap it otherwise. Length in bytes. Query only with a
 * null lpOutput (a room of 0 is no query); it takes no data. -SHORT_BUF_ERROR: the context is unchanged;
 * -INVALID_DATA_ERROR; -BAD_PARAM_ERROR; -BAD_LENGTH_ERROR: the output would be too long for a result. */
ZUL_API int CIPHER_Add(unsigned char* lpOutput, int nOutBytes, void* lpContext, const unsigned char* lpInput,
                       int nInputLen);
/* CIPHER_End writes the end, at most a block, and wipes the context.
 * Length in bytes. Query only with a null lpOutput, and only where there is a pad: the most that it may write.
 * Without a pad nothing is written, and lpOutput may be null. -BAD_LENGTH_ERROR: the data was not a whole number of
 * blocks; -DECRYPT_ERROR: a damaged pad, or a wrong key; -SHORT_BUF_ERROR: the context is unchanged;
 * -INVALID_DATA_ERROR. */
ZUL_API int CIPHER_End(unsigned char* lpOutput, int nOutBytes, void* lpContext);

/* --- AEAD_: authenticated encryption (RFC 5116) ------------------------------------------------------- */

/* AEAD_Encrypt encrypts data and adds a tag of 16 bytes, which also covers lpAad, data that is not encrypted.
 * szAlgorithm, in any case:
 *  - "aes-128-gcm", "aes-192-gcm", "aes-256-gcm" (SP 800-38D; a nonce of any length but 0, best 12)
 *  - "chacha20-poly1305" (RFC 8439; key 32, nonce 12)
 *  - "aes-256-gcm-siv" (RFC 8452; key 32, nonce 12; a nonce used twice shows no more than equal messages)
 * Use a nonce for one message of a key only: a second message reveals the content of both. nOptions:
 *  - ZUL_AEAD_RANDOM_NONCE: 12 random bytes in front of the output are the nonce, and nNonceLen is 0. Up to
 *    2^32 messages of one key are safe that way.
 * lpOutput may be lpInput if there is no random nonce. lpAad may be null if nAadLen is 0.
 * Length: nInputLen + 16, or + 28 with a random nonce. Query. -NOT_SUPPORTED_ERROR: no such algorithm;
 * -BAD_KEY_LEN_ERROR; -BAD_IV_ERROR: the length of the nonce; -SHORT_BUF_ERROR; -BAD_PARAM_ERROR;
 * -BAD_FLAG_ERROR: no such option; -BAD_LENGTH_ERROR: too long for a result; -PRNG_ERR_CATASTROPHIC. */
ZUL_API int AEAD_Encrypt(unsigned char* lpOutput, int nOutBytes, const unsigned char* lpInput, int nInputLen,
                         const unsigned char* lpKey, int nKeyLen, const unsigned char* lpNonce, int nNonceLen,
                         const unsigned char* lpAad, int nAadLen, const char* szAlgorithm, int nOptions);

/* AEAD_Decrypt undoes AEAD_Encrypt: nInputLen counts the tag, and the random nonce if there is one. Nothing
 * is written before the tag has been checked ("aes-256-gcm-siv" has to decrypt first, and wipes the output if
 * the tag is wrong). lpOutput may be lpInput if there is no random nonce; a wrong tag then costs the input. An empty
 * message is checked even without output.
 * Length: that of the data. Query, which does not check the tag. -DECRYPT_ERROR: a wrong key, nonce or tag,
 * or changed data; the output is wiped. -BAD_LENGTH_ERROR: shorter than a tag. Others as AEAD_Encrypt. */
ZUL_API int AEAD_Decrypt(unsigned char* lpOutput, int nOutBytes, const unsigned char* lpInput, int nInputLen,
                         const unsigned char* lpKey, int nKeyLen, const unsigned char* lpNonce, int nNonceLen,
                         const unsigned char* lpAad, int nAadLen, const char* szAlgorithm, int nOptions);

/* --- KEY_: keys of any kind ----------------------------------------------------------------------------
 * szKey and its like are key strings, as in RSA_: texts that only the process that made them can open. Key
 * strings of RSA keys serve both KEY_ and RSA_ functions; RSA_ functions refuse those of other kinds. Where a
 * public key is asked for, a private key stands for its public part.
 *
 * Kinds: RSA; RSA-PSS (id-RSASSA-PSS, whose parameters restrict its signatures); EC on P-256, P-384 and
 * P-521; Ed25519; X25519. Their names are taken in any case.
 *
 * Codes of all: BAD_PARAM_ERROR: a missing argument; INVALID_DATA_ERROR: no key string of this process, or a
 * public key where a private one is needed; BAD_KEY_ERROR: an RSA key whose exponent is 1 or even (RSA_ functions
 * read such keys); BAD_FLAG_ERROR: an unknown option; SHORT_BUF_ERROR: the output does not fit, and nothing is
 * written. */

/* KEY_Make makes a private key. szAlgorithm: "rsa" (3072 bits), "rsa-N" for N from 1024 to 16384, "p-256"
 * (also "secp256r1", "prime256v1"), "p-384" ("secp384r1"), "p-521" ("secp521r1"), "ed25519" or "x25519". The
 * exponent of RSA keys is 65537. nOptions: 0 or ZUL_KEY_SHOW_PROGRESS.
 * Length in characters. Query: the most that such a key needs; the room has to be that large.
 * -NOT_SUPPORTED_ERROR: no such algorithm; -OUT_OF_RANGE_ERROR: the bits of an RSA key; -KEYGEN_FAILED_ERROR
 * and -TEST_FAILED_ERROR as RSA_MakeKeys. */
ZUL_API int KEY_Make(char* szOutput, int nOutChars, const char* szAlgorithm, int nOptions);

/* KEY_Read reads a key, private or public, as a key string. szFileOrText: the name of a file of DER, PEM or
 * base64, or such a text. Structures:
 *  - PrivateKeyInfo (PKCS #8; also version 2 with a public key), EncryptedPrivateKeyInfo (the schemes of
 *    RSA_ReadEncPrivateKey, and PBES2 with scrypt or with HMAC over SHA-224 or SHA-512/256), RSAPrivateKey and
 *    RSAPublicKey (PKCS #1), ECPrivateKey (SEC 1), SubjectPublicKeyInfo;
 *  - a certificate or a certificate request, whose public key is read;
 *  - PEM of these, also encrypted with header lines (Proc-Type, DEK-Info: AES, Triple DES or DES in CBC mode).
 *    Of several blocks the first private key is read, or else the first block that does not hold parameters.
 * Public keys have to be DER, in a certificate or a request too (RSA_ReadPublicKey takes more); private ones may
 * be BER. Points may be compressed. Curves have to be named; explicit parameters are not read. A public key that
 * stands beside a private one has to belong to it. szPassword: of an encrypted key, otherwise ignored. An encrypted
 * key may ask for at most 10,000,000 iterations, or scrypt with 1 GiB of memory (128 N r) and 4 GiB of filling
 * (128 N r p): half a minute on one core. nOptions: 0.
 * Length in characters. Query. -OPEN_ERROR; -INVALID_DATA_ERROR: not DER; -BAD_FORMAT_ERROR: no such
 * structure; -NOT_SUPPORTED_ERROR: another algorithm or curve, or scheme of encryption, or an RSA key of more than
 * two primes; -BAD_KEY_ERROR: invalid values (a point off the curve or of small order, a number out of range);
 * -BAD_PARAM_ERROR also: an encrypted key, but no password; -DECRYPT_ERROR: a wrong password or damaged data;
 * -OUT_OF_RANGE_ERROR: a derivation that costs too much; -MEMORY_ERROR: no memory for scrypt. */
ZUL_API int KEY_Read(char* szOutput, int nOutChars, const char* szFileOrText, const char* szPassword,
                     int nOptions);

/* KEY_Save writes a key to a file, which is replaced in one step. Only the owner may read the file of a private
 * key. A public key is written as SubjectPublicKeyInfo, a private key as PrivateKeyInfo. If szPassword is not null
 * it is encrypted with PBES2, with a random salt and IV. szParameters: null, or name=value pairs joined by ";":
 *  - "cipher=aes-128-cbc", "aes-192-cbc", "aes-256-cbc" (the default) or "tdea-cbc";
 *  - "kdf=pbkdf2" (the default) with "iterations=N", 1 to 10,000,000 (600,000), and "hash=sha1", "sha256" (the
 *    default), "sha384" or "sha512";
 *  - "kdf=scrypt" with "n=N" (16384; a power of 2), "r=N" (8) and "p=N" (1), bounded as in KEY_Read.
 * nOptions:
 *  - ZUL_KEY_FORMAT_PEM: PEM instead of DER;
 *  - ZUL_KEY_FORMAT_OWN: the key's own structure (RSAPrivateKey or RSAPublicKey, ECPrivateKey), without a password.
 * Status, positive. CREATE_ERROR, WRITE_ERROR, MEMORY_ERROR, and
 *  - BAD_PARAM_ERROR: also a malformed or unknown parameter, parameters without a password, an empty password, or
 *    a password where nothing is encrypted;
 *  - NOT_SUPPORTED_ERROR: an unknown cipher, hash or derivation, or a kind without a structure of its own;
 *  - OUT_OF_RANGE_ERROR: a cost out of its bounds. */
ZUL_API int KEY_Save(const char* szFileOut, const char* szKey, const char* szPassword,
                     const char* szParameters, int nOptions);

/* KEY_Public gives the public key of a private one.
 * Length in characters. Query. */
ZUL_API int KEY_Public(char* szOutput, int nOutChars, const char* szPrivateKey);

/* KEY_Query answers a query about a key. szQuery, in any case:
 *  - numbers, which are the result, and are also written as decimal text if there is room: "bits" (of the modulus
 *    for RSA; 256, 384 or 521 for EC; 256 for Ed25519 and X25519), "isPrivate" (1 or 0);
 *  - texts: "algorithm" ("rsa", "rsa-pss", "ec", "ed25519" or "x25519"), "curve" ("p-256", "p-384", "p-521",
 *    "ed25519", "x25519", empty for RSA), "fingerprint" (SHA-256, in lower-case hex, of the SubjectPublicKeyInfo as
 *    KEY_Save writes it, which may differ from the one in a file or certificate in its encoding), "exponent" (e of
 *    an RSA key in lower-case hex, "010001" for 65537; else empty);
 *  - what the parameters of an RSA-PSS key demand: "hash" and "mgf" (texts as "sha256"), "salt" (a number: the least
 *    length of the salt); empty, empty and 0 for all other keys.
 * nOptions: ZUL_QUERY_GETTYPE returns 1 for a number, 2 for a text, and opens no key.
 * Length in characters (or the number). Query. -BAD_QUERY_ERROR: no such query. */
ZUL_API int KEY_Query(char* szOutput, int nOutChars, const char* szKey, const char* szQuery, int nOptions);

/* KEY_Match tells whether a private key belongs to a public one. An RSA-PSS key and an RSA key of the same numbers do
 * not match: certificates of RSA-PSS keys often name their key RSA.
 * Status, positive. NO_MATCH_ERROR: another key; TEST_FAILED_ERROR and others as KEY_Check. */
ZUL_API int KEY_Match(const char* szPrivateKey, const char* szPublicKey);

/* KEY_Check tells whether a key's values are valid and belong together. A private number has to be in its range
 * and give the public key. A public key has to be on its curve and not of small order. A private RSA key is tested
 * as in RSA_CheckKey. nOptions: 0.
 * Status, positive: 0 for a valid key, private or public. BAD_KEY_ERROR: an invalid key; TEST_FAILED_ERROR: the
 * halves of an RSA key do not undo each other, or d does not belong to e; other codes of RSA keys as RSA_CheckKey. */
ZUL_API int KEY_Check(const char* szKey, int nOptions);

/* KEY_Agree computes the secret that the owners of two key pairs share: for EC the x coordinate in the curve's
 * length (32, 48 or 66 bytes), for X25519 32 bytes. It is not yet a key: derive one from it (KDF_Hkdf).
 * nOptions: 0.
 * Length in bytes. Query. -BAD_KEY_ERROR: keys of different kinds, keys of a kind without key agreement, or a
 * public key of small order, which gives a secret of zeros. */
ZUL_API int KEY_Agree(unsigned char* lpOutput, int nOutBytes, const char* szPrivateKey,
                      const char* szPublicKey, int nOptions);

/* --- SIG_: signatures ----------------------------------------------------------------------------------
 * szAlgorithm, in any case; HASH is sha256 or any other digest:
 *  - "rsa-HASH" (also "rsa-pkcs1-HASH"): PKCS #1 v1.5;
 *  - "rsa-pss-HASH": RSASSA-PSS with MGF1, perhaps followed by ";salt=N", ";salt=digest" (as long as the digest;
 *    the default) or ";salt=max", and by ";mgf=HASH" (default: the same digest). A signature to verify has to have
 *    exactly that salt length, or any with ";salt=any", which is for verifying alone. An RSA-PSS key with
 *    parameters signs as they demand, with their salt length or more;
 *  - "ecdsa-HASH": ECDSA; the secret numbers are those of RFC 6979 with 32 random bytes added;
 *  - "ed25519", and "ed25519ph", which signs the SHA-512 digest.
 * Null or empty: "rsa-pss-sha256" for an RSA key, or what the parameters of an RSA-PSS key demand; "ecdsa-sha256",
 * "ecdsa-sha384" and "ecdsa-sha512" for P-256, P-384 and P-521; "ed25519". szPrivateKey, szPublicKey: key strings
 * as in KEY_. nOptions, which other algorithms than ECDSA ignore:
 *  - ZUL_SIG_RAW: an ECDSA signature is r and s in the curve's length, not DER;
 *  - ZUL_SIG_DETERMINISTIC: ECDSA adds no random bytes.
 *
 * Codes of all: those of KEY_, and
 *  - NOT_SUPPORTED_ERROR: no such algorithm, or one that cannot start from a digest;
 *  - BAD_PARAM_ERROR: also a malformed parameter of an algorithm;
 *  - BAD_KEY_ERROR: a key of another kind than the algorithm's, or a key whose parameters forbid it;
 *  - BAD_KEY_LEN_ERROR: an RSA key too short for the algorithm. */

/* SIG_Sign signs data. An RSA signature is checked with the public key before it is given out.
 * Length in bytes. Query: the most that a signature needs; the room has to be that large. ECDSA signatures in DER
 * may be shorter. -BAD_KEY_ERROR: also values of an RSA key that contradict each other. */
ZUL_API int SIG_Sign(unsigned char* lpOutput, int nOutBytes, const unsigned char* lpData, int nDataLen,
                     const char* szPrivateKey, const char* szAlgorithm, int nOptions);

/* SIG_Verify verifies a signature of data. ECDSA signatures have to be strict DER; Ed25519 signatures have to have
 * S below the order and canonical points, and to satisfy the equation without the cofactor.
 * Status, positive. SIGNATURE_ERROR: it does not verify. */
ZUL_API int SIG_Verify(const unsigned char* lpSignature, int nSigLen, const unsigned char* lpData,
                       int nDataLen, const char* szPublicKey, const char* szAlgorithm, int nOptions);

/* SIG_SignFile signs the content of a file of any size. Ed25519 reads it twice, so it cannot be a pipe.
 * Length and query as SIG_Sign, and its codes; -OPEN_ERROR; -READ_ERROR: the file cannot be read, or
 * changed during the call. */
ZUL_API int SIG_SignFile(unsigned char* lpOutput, int nOutBytes, const char* szFileIn,
                         const char* szPrivateKey, const char* szAlgorithm, int nOptions);

/* SIG_VerifyFile verifies a signature of the content of a file of any size.
 * Status and codes as SIG_Verify; OPEN_ERROR, READ_ERROR. */
ZUL_API int SIG_VerifyFile(const unsigned char* lpSignature, int nSigLen, const char* szFileIn,
                           const char* szPublicKey, const char* szAlgorithm, int nOptions);

/* SIG_SignDigest signs data whose digest is given: that of the algorithm, or SHA-512 for "ed25519ph".
 * Length and query as SIG_Sign, and its codes; -BAD_LENGTH_ERROR: the digest has another length. */
ZUL_API int SIG_SignDigest(unsigned char* lpOutput, int nOutBytes, const unsigned char* lpDigest,
                           int nDigestLen, const char* szPrivateKey, const char* szAlgorithm, int nOptions);

/* SIG_VerifyDigest verifies a signature of data whose digest is given.
 * Status and codes as SIG_Verify; BAD_LENGTH_ERROR. */
ZUL_API int SIG_VerifyDigest(const unsigned char* lpSignature, int nSigLen, const unsigned char* lpDigest,
                             int nDigestLen, const char* szPublicKey, const char* szAlgorithm, int nOptions);

/* --- SEAL_: encrypted files (age-encryption.org/v1) ------------------------------------------------------
 * Files of any size for recipients or under a password, in the format of age. They are not signed: whoever knows
 * the recipients can make one. Every change, cut or addition is noticed.
 *
 * A recipient is a public key, "age1..." (62 characters); an identity is a private one, "AGE-SECRET-KEY-1..." (74).
 * Lower and upper case are both read, but not mixed. szRecipients and szIdentities are lists joined by ";". An entry
 * that begins with "age1" or "AGE-SECRET-KEY-1" is the key itself, any other entry names a file with a key in each
 * line; empty lines and lines that begin with "#" are skipped, lines may end with CR LF, and the byte order mark of
 * UTF-8 may stand before the first. At most 20,000 keys. Error texts show no passwords and, of what does not open,
 * neither entries of a list nor names with "SECRET-KEY" in them.
 *
 * A password is a string of bytes. Null and empty texts are missing ones.
 *
 * SEAL_File and SEAL_OpenFile take a few megabytes of memory, whatever the size of the file (with a password 256 MiB
 * to seal and at most 4 GiB to open, for scrypt). The output gets the rights of an ordinary new file. An existing
 * one keeps its rights and is replaced in one step when all is well, but for a link or a file of several names,
 * which are written in place; the call does not wait for the disk. A failure leaves the old file, or none; a link or
 * one of several names is removed, and the file itself is left empty. nOptions:
 *  - ZUL_SEAL_STDIN: read standard input, whatever szFileIn is;
 *  - ZUL_SEAL_STDOUT: write to standard output, whatever szFileOut is; what a failing call has written stays.
 * They are read and written as bytes and not closed. */

/* SEAL_MakeIdentity makes an identity. nOptions: 0.
 * Length, 74. Query. -SHORT_BUF_ERROR; -BAD_FLAG_ERROR; -PRNG_ERR_CATASTROPHIC. */
ZUL_API int SEAL_MakeIdentity(char* szOutput, int nOutChars, int nOptions);

/* SEAL_Recipient gives the recipient of an identity. szIdentity: a list as szIdentities, whose first key counts.
 * Length, 62. Query, which reads the identity too. -BAD_PARAM_ERROR: no identity; -SHORT_BUF_ERROR; and, negated,
 * the codes of a list that SEAL_File names. */
ZUL_API int SEAL_Recipient(char* szOutput, int nOutChars, const char* szIdentity);

/* SEAL_File encrypts a file, either for recipients or under a password (scrypt with a work factor of 2^18).
 * nOptions:
 *  - ZUL_SEAL_ARMOUR: text in lines of 64 base64 characters, between BEGIN and END lines;
 *  - ZUL_SEAL_STDIN, ZUL_SEAL_STDOUT.
 * Status, positive:
 *  - BAD_PARAM_ERROR: a missing name; recipients and password both given or both missing; the output is the input
 *    file or a file in the list;
 *  - BAD_KEY_ERROR: a text or line that is no recipient, or a recipient of small order;
 *  - NO_DATA_ERROR: a list or a file in it without a key; OUT_OF_RANGE_ERROR: more than 20,000 keys;
 *  - OPEN_ERROR, READ_ERROR: of the input or a file in the list; CREATE_ERROR, WRITE_ERROR;
 *  - MEMORY_ERROR: no memory for scrypt; BAD_FLAG_ERROR; PRNG_ERR_CATASTROPHIC. */
ZUL_API int SEAL_File(const char* szFileOut, const char* szFileIn, const char* szRecipients,
                      const char* szPassword, int nOptions);

/* SEAL_OpenFile decrypts a file, in armour or not. Identities, a password or both are given; what the file needs is
 * used. Nothing is written of a part of 64 KiB that has not been checked. Headers have at most 2 MiB. nOptions:
 * ZUL_SEAL_STDIN, ZUL_SEAL_STDOUT.
 * Status, positive. The codes of SEAL_File, and
 *  - BAD_FORMAT_ERROR: not such a file: a malformed header or armour, another version, or no payload;
 *  - NO_MATCH_ERROR: none of the identities fits; or the file needs a password and there is none, an identity and
 *    there is none, or another kind of recipient;
 *  - DECRYPT_ERROR: a wrong password; a changed header; a damaged or cut content;
 *  - OUT_OF_RANGE_ERROR: also a work factor of scrypt above 2^22. */
ZUL_API int SEAL_OpenFile(const char* szFileOut, const char* szFileIn, const char* szIdentities,
                          const char* szPassword, int nOptions);

/* --- P12_: PKCS #12 files of several keys and certificates (RFC 7292, RFC 9579) --------------------------
 * szP12: the name of a file of DER, BER, PEM or base64, or such a text. szPassword: UTF-8 (what is not UTF-8 is
 * taken as Latin-1).
 *
 * What is read: the schemes of PKCS #12 with Triple DES and RC2 (not RC4), those of PKCS #5, PBES2 with every
 * derivation and cipher of KEY_Read; a MAC of the PKCS #12 derivation or PBMAC1 with SHA-1 or SHA-2, or none. Both
 * forms of an empty password are tried, and beyond ASCII those that older programs use. Files have 16 MiB and 4096
 * entries at most. A derivation may ask for 10,000,000 iterations, and all those of a file for 100,000,000.
 * scrypt may fill 4 GiB (128 N r p bytes); of a file's 100,000,000, each KiB of that takes 6.
 *
 * Codes of P12_Unpack and P12_List:
 *  - DECRYPT_ERROR: the MAC does not match, or without a MAC the data do not decrypt: a wrong password, or the file was
 *    changed;
 *  - BAD_FORMAT_ERROR: no PKCS #12 file; or damaged although the MAC matches; INVALID_DATA_ERROR: not even ASN.1;
 *  - NOT_SUPPORTED_ERROR: a version other than 3, a file with a signature instead of a MAC, another algorithm;
 *  - SIGNATURE_ERROR: no MAC, with ZUL_P12_NEED_MAC; OUT_OF_RANGE_ERROR: beyond the limits;
 *  - OPEN_ERROR, READ_ERROR; BAD_PARAM_ERROR: a missing argument; BAD_FLAG_ERROR: an unknown option; BAD_LENGTH_ERROR:
 *    the password is too long; SHORT_BUF_ERROR. */

/* P12_Pack writes a PKCS #12 file, which is replaced in one step, of a private key and certificates. szCerts:
 * certificates joined by ";", each the name of a file of DER, base64 or PEM, or such a text; of PEM all certificates
 * count. A certificate that is there already is left out. Null or empty: only a key. szPrivateKey: a key string, or
 * a file or text of a private key that is not encrypted, as in KEY_Read; null or empty: only certificates. szName: the
 * friendlyName of the key and of its certificate, in a file of certificates that of the first; null or empty: none.
 * The key's certificate has the key's localKeyId and comes first.
 *
 * Key and certificates are encrypted with PBES2: AES-256-CBC under a key of PBKDF2 with HMAC-SHA-256; the MAC is
 * HMAC-SHA-256 under a key of the PKCS #12 derivation. Each has 600,000 iterations and a random salt. nOptions:
 *  - ZUL_P12_LEGACY: for old programs, pbeWithSHAAnd3-KeyTripleDES-CBC and a MAC with SHA-1, 2048 iterations;
 *  - ZUL_P12_PBMAC1: the MAC is PBMAC1 with PBKDF2, which programs older than about 2024 cannot verify;
 *  - ZUL_P12_TRUSTED: certificates other than the key's get the attribute by which Java knows trusted certificates;
 *  - ZUL_KEY_FORMAT_PEM: the file is PEM "PKCS12".
 * Status, positive:
 *  - BAD_PARAM_ERROR: no name of the file, no password (an empty one will do for certificates alone), neither a key nor
 *    certificates, or an encrypted key; BAD_FLAG_ERROR: an unknown option, or two that exclude each other;
 *  - NO_MATCH_ERROR: no certificate belongs to the key; NO_DATA_ERROR: a file or text without a certificate;
 *  - BAD_FORMAT_ERROR: no certificate or key where one should be; MSG_TOO_LONG_ERROR: too long for a file;
 *    OUT_OF_RANGE_ERROR: too many certificates; BAD_LENGTH_ERROR: the password is too long;
 *  - CREATE_ERROR: also for a file of szCerts or szPrivateKey as szFileOut; WRITE_ERROR, and the codes of KEY_Read. */
ZUL_API int P12_Pack(const char* szFileOut, const char* szCerts, const char* szPrivateKey,
                     const char* szPassword, const char* szName, int nOptions);

/* P12_Unpack reads a PKCS #12 file. The certificates go to szCertsOut (null or empty: nowhere) as PEM: first that of
 * the key (it has the same public key; where the key cannot be read, the same localKeyId), then those that issued it
 * in turn, then the others. The key goes to szKeyOutput (null: nowhere) as a key string of at most nKeyChars
 * characters. Nothing is written before the MAC has been verified. szPassword: null is the empty one. nOptions: the
 * number of the key, from 0, of a file with several, and
 *  - ZUL_P12_NEED_MAC: a file without a MAC is refused.
 * Status, positive. NO_DATA_ERROR: no such key, or no certificate; NOT_SUPPORTED_ERROR and BAD_KEY_ERROR also of a key,
 * as KEY_Read; SHORT_BUF_ERROR: the key string does not fit, and no file is written; CREATE_ERROR, WRITE_ERROR. */
ZUL_API int P12_Unpack(const char* szCertsOut, char* szKeyOutput, int nKeyChars, const char* szP12,
                       const char* szPassword, int nOptions);

/* P12_List describes a PKCS #12 file in UTF-8: a line for the version, the MAC, each part ("Safe") with its scheme, and
 * each entry: kind (key, certificate, crl, secret or other), friendlyName, localKeyId, key and bits, subject and end of
 * the validity of a certificate, and the number of the entry that belongs to it. Lines end with LF and have the form
 *     Entry 2: kind=certificate, safe=1, name="Alice", algorithm=rsa, bits=2048, subject="C=AU;CN=Alice", ..., key=1
 * Values in quotes are JSON strings in which controls are escaped, so none can begin a line. szPassword: null shows
 * what is visible without one, and does not verify the MAC. nOptions:
 *  - ZUL_P12_JSON: one JSON object of the same fields, {"version":3,"mac":{...},"safes":[...],"entries":[...]};
 *  - ZUL_P12_NEED_MAC: a file without a MAC is refused.
 * Length in characters. Query. -SHORT_BUF_ERROR: it does not fit, and the output is empty. */
ZUL_API int P12_List(char* szOutput, int nOutChars, const char* szP12, const char* szPassword, int nOptions);

/* --- CERT_: certificates, requests and CRLs of any kind of key ------------------------------------------
 * Keys are key strings, or files and texts as in KEY_Read, not encrypted. A description is keyword=value pairs joined
 * by ";". Keywords may be in any case; blanks and line ends around them and around values do not count. A value in
 * single quotes may hold anything, and a backslash there makes the next character literal. A comma parts several values
 * of one keyword where "LIST" stands below, each with or without quotes; elsewhere it belongs to the value. A flag
 * stands alone, or as "=true" or "=false". Keywords with LIST or "again" may be repeated. Nothing is left out: an unknown
 * keyword, an empty or malformed value and a contradiction is BAD_PARAM_ERROR, with a text that names it.
 *
 * Subject, in the order of the text, all in UTF-8:
 *  - CN, C (two letters, made upper case), O, OU, L, ST or S, STREET, POSTALCODE, E, SN (surname), G, INITIALS,
 *    GENERATIONQUALIFIER, T, DC, UID, SERIALNUMBER, DNQUALIFIER, ORGANIZATIONIDENTIFIER, BUSINESSCATEGORY, PSEUDONYM,
 *    and any type as a dotted object identifier ("2.5.4.97=..."); again. Values have the lengths and types of RFC 5280
 *    (UTF8String where there is a choice) and no control characters. "#x4142" gives bytes in hex;
 *  - subject='CN=...;O=...': all of them as one value.
 * Alternative names:
 *  - dns=LIST: host names, perhaps with "*" as first label. Names beyond ASCII become A-labels and must be in small
 *    letters;
 *  - ip=LIST: IPv4 and IPv6 addresses; uri=LIST: absolute URIs; rid=LIST: dotted object identifiers;
 *  - email=LIST: addresses; one that is not ASCII before the @ becomes a SmtpUTF8Mailbox (RFC 9598);
 *  - upn=LIST: user principal names; dirName='CN=...;O=...' again;
 *  - other=OID:utf8:TEXT or other=OID:HEX (DER), again.
 * Purpose:
 *  - profile=server, client, email, code, ca, ocsp or timestamp: sets ca, keyUsage (by the kind of key), extKeyUsage,
 *    and noCheck for ocsp. Explicit keywords go before it. A server needs dns or ip, email needs email. An X25519
 *    key, which does not sign, has no profile but email;
 *  - ca (flag), pathLength=N;
 *  - keyUsage=LIST of digitalSignature, nonRepudiation, keyEncipherment, dataEncipherment, keyAgreement, keyCertSign,
 *    cRLSign, encipherOnly, decipherOnly. Without it and a profile: digitalSignature, for RSA also keyEncipherment,
 *    for X25519 keyAgreement, of an authority keyCertSign and cRLSign;
 *  - extKeyUsage=LIST of serverAuth, clientAuth, codeSigning, emailProtection, timeStamping, OCSPSigning,
 *    anyExtendedKeyUsage, ipsecIKE, documentSigning, msSmartcardLogon, msEncryptedFileSystem, pkInitKDC or dotted ones.
 * Policies and constraints:
 *  - policy=LIST of OID, OID:URI (of the practice statement) or OID:notice:TEXT; anyPolicy is a name;
 *  - of an authority: policyMapping=LIST of OID:OID, requireExplicitPolicy=N, inhibitPolicyMapping=N,
 *    inhibitAnyPolicy=N, permit=LIST and exclude=LIST of dns:DOMAIN, ip:ADDRESS/BITS or ip:ADDRESS/MASK, email:ADDRESS,
 *    email:HOST, email:.DOMAIN, uri:HOST, uri:.DOMAIN, 'dir:CN=...;O=...'. "exclude=dns:" excludes all host names.
 * Sources: crl=LIST, freshestCrl=LIST, ocsp=LIST, caIssuers=LIST of URIs (each a point or access of its own),
 * subjectInfoAccess=LIST of caRepository:URI, timeStamping:URI or OID:URI.
 * Others: tlsFeature=LIST of status_request, status_request_v2 or numbers; mustStaple (flag: status_request); noCheck
 * (flag: ocsp-nocheck); extension=OID:HEX or OID:critical:HEX (DER of one element), again, but for extensions that have
 * keywords.
 * Not in requests:
 *  - notBefore=DATE (default: a minute ago), notAfter=DATE or "never" (99991231235959Z), or a span: days=N, or valid=
 *    with a number and h, d, w, m or y. The last second of a span belongs to it. Default: 90 days, an authority ten
 *    years. A date without a time begins at 00:00:00 or ends at 23:59:59;
 *  - serial=HEX, up to 20 bytes, above 0 (default: 16 random bytes).
 * signature=ALGORITHM as in SIG_ (in quotes if it has a ";"). Default: that of SIG_, but "rsa-sha256" for an RSA key. An
 * X25519 key does not sign.
 * Extensions are critical as RFC 5280 has it. basicConstraints and the identifiers of the keys (SHA-1 digests, RFC 5280,
 * 4.2.1.2; that of the issuer as its certificate has it) are always in a certificate.
 *
 * The output is a file, which is replaced in one step; a file of a key, an issuer's certificate or a request
 * that is an argument is not overwritten (CREATE_ERROR). nOptions of all: ZUL_CERT_DER: DER instead of PEM.
 * Codes of all: BAD_FLAG_ERROR, CREATE_ERROR, WRITE_ERROR, and
 *  - BAD_PARAM_ERROR: also the description; a key that is encrypted;
 *  - OPEN_ERROR, INVALID_DATA_ERROR, BAD_FORMAT_ERROR: an input cannot be read;
 *  - BAD_KEY_ERROR: a public key as signer, or one whose kind or parameters forbid the algorithm; invalid values;
 *  - NOT_SUPPORTED_ERROR: an unknown algorithm, or one without an identifier in certificates (ed25519ph);
 *  - BAD_KEY_LEN_ERROR: an RSA key too short for the algorithm. */

/* CERT_SelfSign makes a certificate that its own key signs. It needs a subject.
 * Status, positive. */
ZUL_API int CERT_SelfSign(const char* szCertOut, const char* szPrivateKey, const char* szDescription,
                          int nOptions);

/* CERT_Issue makes a certificate that an authority signs. szIssuerCert: its certificate, a file or a text.
 * szSubjectKeyOrRequest: a certificate request, whose signature is verified, or a key of any kind (of a private key the
 * public one; of a certificate its key). szDescription may be null with a request. Of the request the key is taken over,
 * its subject if the description gives none, and no extensions but those named: "copy=LIST" of subjectAltName, keyUsage,
 * extKeyUsage, basicConstraints (and with it the rights of an authority), tlsFeature, or dotted identifiers of
 * extensions without keywords. What is copied keeps the rules for typed values; alternative names add to those of the
 * description, and all else is given once. nOptions:
 *  - ZUL_CERT_BEYOND_ISSUER: the validity may exceed the issuer's. Without it that is an error, and the defaults
 *    keep within it.
 * Status, positive. Also:
 *  - NO_MATCH_ERROR: the issuer's key is not that of its certificate;
 *  - ISSUER_ERROR: the issuer is no authority, its key usage lacks keyCertSign, or its path length is 0 and
 *    the subject an authority;
 *  - SIGNATURE_ERROR: the request's signature does not verify;
 *  - BAD_FORMAT_ERROR: also a subject or copied extension of the request that breaks the rules. A copied keyUsage or
 *    basicConstraints that does not go with the description, the key or the issuer is BAD_PARAM_ERROR, as if typed. */
ZUL_API int CERT_Issue(const char* szCertOut, const char* szIssuerCert, const char* szIssuerKey,
                       const char* szSubjectKeyOrRequest, const char* szDescription, int nOptions);

/* CERT_Request makes a certificate request (PKCS #10). Extensions go into the attribute extensionRequest; without a
 * profile they are those that are given.
 * Status, positive. */
ZUL_API int CERT_Request(const char* szRequestOut, const char* szPrivateKey, const char* szDescription,
                         int nOptions);

/* CERT_IssueCRL makes a CRL of version 2 (RFC 5280). szIssuerCert: the certificate of its issuer, who may sign CRLs.
 *
 * szEarlierCrl: a file or text of a CRL of the same issuer, whose signature is verified; null or empty: none. The new
 * list keeps its entries byte for byte with all their extensions (in an indirect list a certificateIssuer is added where
 * an entry loses the one that it had from the entry before) and has its issuingDistributionPoint. A certificate there
 * that is on hold may be revoked now, by default since the date of the hold, or taken off the list with
 * reason=removeFromCRL. The other extensions are described anew.
 *
 * szRevoked: the certificates that are newly revoked; null or empty: none. Entries are joined by ";", each of
 * keyword=value pairs joined by ",", quotes as in descriptions. At most 1,048,576:
 *  - serial=HEX, the serial number, at most 20 bytes; or cert=FILE, the certificate itself, a file or PEM;
 *  - date=DATE (default: thisUpdate), not after thisUpdate;
 *  - reason= unspecified (default, and not written), keyCompromise, cACompromise, affiliationChanged, superseded,
 *    cessationOfOperation, certificateHold, privilegeWithdrawn, aACompromise, or removeFromCRL;
 *  - invalidity=DATE, since when the key may have been known to others, not after thisUpdate;
 *  - issuer='CN=...;O=...' of the certificate, in an indirect list (default: the list's issuer, or that of cert).
 *
 * szDescription, null or empty for the defaults:
 *  - number=N in decimal, or 0xHEX; at most 20 bytes, above that of the earlier list. Default: that number and 1, without
 *    one the time in milliseconds since 1970;
 *  - thisUpdate=DATE (default: now), not before that of the earlier list. nextUpdate=DATE, or days=N, or valid= with a
 *    number and h, d, w, m or y (default: 30 days). Without a time a date is at 00:00:00;
 *  - delta (flag): a delta list. Its base is the earlier list if that is complete: then it has what changed since, and
 *    the same szRevoked makes the next complete list from the same earlier one. An earlier delta list is continued;
 *  - deltaFrom=N: a delta list to the base of this number, without an earlier list. removeFromCRL stands in the entries
 *    of delta lists alone;
 *  - issuingDistributionPoint: idp=LIST of URIs or FORM:NAME with the keywords of alternative names as forms; the flags
 *    onlyUser, onlyCA, onlyAttribute, indirect; onlyReasons=LIST. New entries have to be within it, as far as the text
 *    tells. Beside an earlier list it has to be the same;
 *  - freshestCrl=LIST (not of a delta list), caIssuers=LIST of URIs; expiredCertsOnCRL=DATE: revoked certificates that
 *    have expired since then are in the list;
 *  - dropBefore=DATE leaves out entries of the earlier list with an earlier revocation date: those of certificates that
 *    have all expired, which it cannot see. Not of a delta list;
 *  - extension=OID:HEX or OID:critical:HEX, again; signature=ALGORITHM.
 * cRLNumber and authorityKeyIdentifier are always there. nOptions: ZUL_CERT_DER.
 * Status, positive. Also:
 *  - NO_MATCH_ERROR: the issuer's key is not that of its certificate; the earlier list or a certificate has another
 *    issuer; removeFromCRL of what the earlier list has, but not on hold, or lacks (a delta list may lack it: its base,
 *    which is not at hand, has to have it on hold);
 *  - ISSUER_ERROR: the issuer's key usage lacks cRLSign, or its certificate has no subject;
 *  - DUP_ERROR: a certificate that is given twice, or is in the earlier list and nothing changes;
 *  - SIGNATURE_ERROR: the earlier list's signature does not verify; NOT_SUPPORTED_ERROR: also an unknown critical
 *    extension of it; NO_DATA_ERROR: it has no number, for a delta list; OUT_OF_RANGE_ERROR: it has more than 64 MiB. */
ZUL_API int CERT_IssueCRL(const char* szCrlOut, const char* szIssuerCert, const char* szIssuerKey,
                          const char* szEarlierCrl, const char* szRevoked, const char* szDescription,
                          int nOptions);

/* --- CERT_: what a certificate says ----------------------------------------------------------------------
 * szCert and szFileOrText: PEM, base64 of more than 256 characters, or the name of a file of PEM, base64 or DER; the
 * label of PEM does not matter, keys among its blocks are left out, and a block or file of SignedData (.p7b) counts as
 * the certificates and CRLs in it. All have to be DER; together at most 64 MiB and 262,144 objects. Texts that come out
 * are UTF-8. TeletexString is taken as Latin-1. Hex digits are lower case, times are "2026-01-31T12:30:00Z", object
 * identifiers with a name are shown by the name of their standard ("secp256r1", "sha256WithRSAEncryption"), others
 * dotted. Names stand in the order of their encoding: "C=AU, O=Example, CN=Alice", with "+" between attributes of one
 * RelativeDistinguishedName, and "\" before ,;+"<>, a "#" or blank in front and a blank at the end of a value.
 *
 * What comes out cannot be mistaken for another line or value: control characters, line and paragraph separators, the
 * controls of bidirectional text, tag characters and bytes that encode no character are written as \xNN for each byte,
 * "\" as "\\". In JSON they have its escapes, and such bytes become U+FFFD.
 *
 * Codes of all: BAD_FLAG_ERROR; BAD_PARAM_ERROR: a missing argument; OPEN_ERROR, READ_ERROR; INVALID_DATA_ERROR: neither
 * PEM nor DER; NO_DATA_ERROR: nothing but keys in it; OUT_OF_RANGE_ERROR: too long; BAD_FORMAT_ERROR: another object,
 * or a malformed one. */

/* CERT_Query answers one query about a certificate, request, CRL or OCSP response, the first one in szCert. szQuery, in
 * any case:
 *  - kind: "certificate", "request", "crl" or "ocspResponse"; version; serialNumber (hex); issuer; subject;
 *  - notBefore, notAfter; thisUpdate, nextUpdate, revokedCount of a CRL; producedAt of an OCSP response; daysLeft: whole
 *    days until notAfter or nextUpdate, negative after it;
 *  - publicKeyAlgorithm; publicKeyBits; curve; publicKey: PEM "PUBLIC KEY"; signatureAlgorithm;
 *  - isSelfIssued: "1" if issuer and subject are equal, else "0"; selfSigned: "1" if the object's own key verifies its
 *    signature, else "0"; -NOT_SUPPORTED_ERROR, -BAD_KEY_ERROR if that cannot be told;
 *  - sha1, sha256: digests of the whole DER; spkiSha256: of subjectPublicKeyInfo;
 *  - subjectKeyIdentifier; authorityKeyIdentifier (its keyIdentifier); keyUsage; extKeyUsage; isCA: "1" or "0";
 *    pathLength; crlNumber; tlsFeature; sctCount; extensions: their names;
 *  - dns, ip, email, uri: names of subjectAltName of one form, email with those of RFC 9598; subjectAltName: all, each
 *    as "dNSName:www.example.org"; policies: dotted; nameConstraints: "permitted:dNSName:example.org";
 *  - crl, ocsp, caIssuers: where CRLs, OCSP responders and the issuer's certificate are found.
 * Several values are joined by line feeds, which stand in no value but that of publicKey. What the object does not
 * have gives an empty text. Of a request the extensions are those that it asks for. nOptions: 0.
 * Length. Query. -BAD_QUERY_ERROR: another word; -BAD_FORMAT_ERROR: also an extension asked for that is malformed. */
ZUL_API int CERT_Query(char* szOutput, int nOutChars, const char* szCert, const char* szQuery, int nOptions);

/* CERT_Report writes all that certificates, requests, CRLs and OCSP responses hold: a text for reading, or with
 * ZUL_CERT_JSON the JSON that docs/certificate-json.md describes. Several objects of one argument are numbered. Fields
 * and extensions that are malformed are shown as such, with their bytes in hex, and the report goes on.
 * Length. Query. -SHORT_BUF_ERROR: JSON that does not fit; a text is cut at a whole character. -BAD_FORMAT_ERROR: not one
 * of these objects. */
ZUL_API int CERT_Report(char* szOutput, int nOutChars, const char* szFileOrText, int nOptions);

/* CERT_CheckName tells whether a certificate, the first one in szCert, is for a host, an address or a mailbox
 * (RFC 9525). It looks at names alone, not at signatures, dates and purposes. szHostOrAddress, UTF-8:
 *  - a host's name: a dNSName of subjectAltName has to be equal, without regard to case. "*" as the whole first label of
 *    it stands for one label, if two labels at least follow. A dot at the end of szHostOrAddress does not count.
 *    Labels of other letters than ASCII are turned into A-labels ("xn--...");
 *  - an IPv4 or IPv6 address, perhaps in "[" and "]": an iPAddress has to have its 4 or 16 bytes;
 *  - an e-mail address, known by its "@": an rfc822Name has to be equal, the domain without regard to case; if the part
 *    before the "@" is not all ASCII, an SmtpUTF8Mailbox (RFC 9598).
 * Names with zero bytes, empty labels or other characters than letters, digits and hyphens match no host. nOptions:
 *  - ZUL_CERT_SUBJECT_NAME: the subject's names, which RFC 9525 does not allow to be used, count too: the last
 *    commonName as a dNSName, if subjectAltName has no dNSName, iPAddress or uniformResourceIdentifier; emailAddress as
 *    an rfc822Name, if it has no e-mail address.
 * Status, positive. NO_MATCH_ERROR, with a text that lists the certificate's names; BAD_PARAM_ERROR: also none of the
 * three; BAD_FORMAT_ERROR: also a malformed extension. */
ZUL_API int CERT_CheckName(const char* szCert, const char* szHostOrAddress, int nOptions);

/* CERT_CheckPath tells whether a certificate can be relied on: it looks for a path from it to a trusted certificate and
 * validates it (RFC 5280, 6; RFC 9618), with CRLs (6.3) and OCSP responses (RFC 6960) that are at hand. Nothing is
 * fetched. Arguments but the first two and szConditions are lists joined by ";" of files (PEM with any number of
 * objects, DER, PKCS #7) and texts; those from szOthers on may be null, but szTrusted:
 *  - szCert: the certificate first; what follows it (the chain that a server sends) goes with szOthers;
 *  - szOthers: certificates of which a path may be made, in any order;
 *  - szTrusted: trust anchors. Their dates, basicConstraints, keyUsage, extKeyUsage, path length and name constraints
 *    count (RFC 5937). A certificate that is its own issuer may be its own anchor;
 *  - szEvidence: CRLs and OCSP responses. Certificates of CRL issuers may be among szOthers.
 * What cannot be read among szOthers and szEvidence is left out, and counted in the report; an argument of which nothing
 * can be read is an error.
 *
 * szConditions: keyword=value pairs joined by ";", in any case, or null:
 *  - time=DATE: the time of the check. Default: now;
 *  - host=, email=, ip=: a name that the certificate has to be for, as in CERT_CheckName;
 *  - purpose=any (default), server, client, email, code, timestamp or ocsp: extKeyUsage and keyUsage have to allow it;
 *    extKeyUsage in the certificates above too, but for ocsp. timestamp and ocsp demand extKeyUsage, timestamp
 *    one that is critical and has no other purpose (RFC 3161, 2.3);
 *  - policy=OID,...: the acceptable policies (default: any). explicitPolicy, inhibitMapping, inhibitAnyPolicy: flags of
 *    RFC 5280, 6.1.1;
 *  - maxDepth=N: certificates between the anchor and the certificate, 0 to 100. Default: 20;
 *  - revocation=all: each certificate but the anchor has to be good by evidence; leaf: the certificate itself has to be,
 *    and no other may be revoked; known: none may be revoked; none: evidence is not looked at. Default: all if
 *    szEvidence is given, else none;
 *  - anchor=certificate (default) or key: a name and a key alone, as RFC 5280 has it.
 *
 * Signatures are RSA (PKCS #1 v1.5, PSS), ECDSA with P-256, P-384, P-521, Ed25519, and DSA; MD2 and MD5 are refused, and
 * SHA-1 is mentioned in the report. nOptions:
 *  - ZUL_CERT_WEB: the rules of the public web for servers: a name in subjectAltName, no SHA-1, RSA keys of 2048 bits at
 *    least, positive serial numbers of at most 20 octets, a validity of at most 398 days (from 2026-03-15 on 200, from
 *    2027-03-15 on 100, from 2029-03-15 on 47 days, by notBefore);
 *  - ZUL_CERT_SUBJECT_NAME: as in CERT_CheckName;
 *  - ZUL_CERT_JSON: the report is JSON (docs/certificate-json.md).
 *
 * szReport (may be null) has room for nReportChars characters and a NUL. It gets a text in UTF-8 of the result, of each
 * certificate from the anchor on with what was checked, and of the valid policies (the user-constrained-policy-set);
 * values cannot forge a line. Of several paths it shows the valid one, or the one that got furthest. It is cut behind a
 * whole line; JSON that does not fit is SHORT_BUF_ERROR, whatever the result.
 *
 * Status, positive: 0, the certificate is valid. ZUL_LastError tells the certificate and the reason:
 *  - ISSUER_ERROR: no path to a trusted certificate; an issuer is no authority, may not sign certificates, or has too
 *    many below it; a name is outside of name constraints;
 *  - SIGNATURE_ERROR: a certificate's signature does not verify;
 *  - EXPIRED_ERROR: a certificate is outside its dates, or the evidence for a status that is demanded;
 *  - BAD_KEY_ERROR: a certificate is revoked;
 *  - NO_DATA_ERROR: a status that is demanded is not known; no object in an argument;
 *  - NO_MATCH_ERROR: the certificate is not for the name or the purpose; no acceptable policy is valid;
 *  - NOT_SUPPORTED_ERROR: a critical extension, signature algorithm, kind of key or form of name constraint that is not
 *    known; MD2, MD5; SHA-1 with ZUL_CERT_WEB;
 *  - BAD_FORMAT_ERROR: a malformed certificate, name or extension, a mapping of anyPolicy; not a certificate;
 *  - BAD_KEY_LEN_ERROR, OUT_OF_RANGE_ERROR: a key that is too short, a serial number or validity against the rules of
 *    ZUL_CERT_WEB;
 *  - OUT_OF_RANGE_ERROR: also too much work (1,000 signatures, or about a second), lists above 64 MiB or 262,144 objects;
 *  - BAD_PARAM_ERROR: also szConditions; BAD_FLAG_ERROR; OPEN_ERROR, READ_ERROR, INVALID_DATA_ERROR: an argument. */
ZUL_API int CERT_CheckPath(char* szReport, int nReportChars, const char* szCert, const char* szOthers,
                           const char* szTrusted, const char* szEvidence, const char* szConditions, int nOptions);

#ifdef __cplusplus
}
#endif

#endif
