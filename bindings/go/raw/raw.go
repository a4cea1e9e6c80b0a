// Code generated from include/zulcore.h by scripts/make_bindings.py. DO NOT EDIT.

// Package raw has every constant and function of the library. A text ends with a zero byte; pointers may be nil where
// the library allows a null. Package zulcore makes texts and buffers, and turns what is refused into errors.
package raw

// #cgo CFLAGS: -I${SRCDIR}/.. -I${SRCDIR}/../../../include
// #cgo LDFLAGS: -L${SRCDIR}/.. -lzulcore
// #include "zulcore.h"
import "C"

import "unsafe"

const SUCCESS_ERROR = 0
const OPEN_ERROR = 1
const CREATE_ERROR = 2
const READ_ERROR = 3
const WRITE_ERROR = 4
const MEMORY_ERROR = 5
const BAD_PARAM_ERROR = 6
const BAD_FORMAT_ERROR = 7
const INVALID_DATA_ERROR = 8
const EOF_ERROR = 9
const OUT_OF_RANGE_ERROR = 11
const DUP_ERROR = 12
const IO_ERROR = 13
const NULL_ERROR = 14
const DECRYPT_ERROR = 15
const EXPIRED_ERROR = 16
const BAD_FLAG_ERROR = 17
const WIPE_ERROR = 18
const NOT_SUPPORTED_ERROR = 19
const NO_DATA_ERROR = 20
const NO_MATCH_ERROR = 21
const SIGNATURE_ERROR = 22
const TEST_FAILED_ERROR = 23
const KEYGEN_FAILED_ERROR = 24
const ISSUER_ERROR = 25
const BAD_LENGTH_ERROR = 26
const BAD_XML_ERROR = 27
const MSG_TOO_LONG_ERROR = 28
const BAD_QUERY_ERROR = 29
const SHORT_BUF_ERROR = 30
const BAD_KEY_LEN_ERROR = 33
const BAD_BLK_LEN_ERROR = 34
const BAD_MODE_ERROR = 35
const BAD_KEY_ERROR = 36
const BAD_IV_ERROR = 37
const PRNG_ERR_FILE_OPEN = 201
const PRNG_ERR_FILE_CREATE = 202
const PRNG_ERR_FILE_READ = 203
const PRNG_ERR_FILE_WRITE = 204
const PRNG_ERR_FILE_LOCK = 205
const PRNG_ERR_UNINST = 210
const PRNG_ERR_TOOBIG = 211
const PRNG_ERR_FAILURE = 212
const PRNG_ERR_BADPARAM = 213
const PRNG_ERR_NOTAVAIL = 214
const PRNG_ERR_CATASTROPHIC = 299
const MISC_ERROR = 9999

// ZUL_ModuleName
const ZUL_MODULE_PLATFORM = 0x40

// CNV_ByteEncoding
const ZUL_CNV_UTF8_FROM_LATIN1 = 0x1
const ZUL_CNV_LATIN1_FROM_UTF8 = 0x2

// Digest algorithms: bits 0-3 of the options of HASH_ and HMAC_
const ZUL_HASH_SHA1 = 0
const ZUL_HASH_MD5 = 1
const ZUL_HASH_MD2 = 2
const ZUL_HASH_SHA256 = 3
const ZUL_HASH_SHA384 = 4
const ZUL_HASH_SHA512 = 5
const ZUL_HASH_SHA224 = 6
const ZUL_HASH_SHA1_RNG = 7
const ZUL_HASH_MODE_TEXT = 0x10000

// Block ciphers (bits 4-7) and modes (bits 8-11) of the options of CIPHER_
const ZUL_CIPHER_TDEA = 0x10
const ZUL_CIPHER_AES128 = 0x20
const ZUL_CIPHER_AES192 = 0x30
const ZUL_CIPHER_AES256 = 0x40
const ZUL_MODE_ECB = 0x000
const ZUL_MODE_CBC = 0x100
const ZUL_MODE_OFB = 0x200
const ZUL_MODE_CFB = 0x300
const ZUL_MODE_CTR = 0x400

// RNG_BytesWithPrompt, RNG_MakeSeedFile
const ZUL_RNG_MORE_EVENTS = 0x1

// RSA key files: format, or progress of RSA_MakeKeys
const ZUL_KEY_SHOW_PROGRESS = 0x10
const ZUL_KEY_FORMAT_PEM = 0x10000
const ZUL_KEY_FORMAT_PEM_ALT = 0x20000

// Password-based encryption of private keys. With ZUL_PBE_PBES2 one cipher may be added, and a digest (ZUL_HASH_SHA256, SHA384 or SHA512) for the HMAC that derives the key.
const ZUL_PBE_SHA_3DES = 0
const ZUL_PBE_MD5_DES = 1
const ZUL_PBE_MD2_DES = 2
const ZUL_PBE_SHA1_DES = 3
const ZUL_PBE_PBES2_DEFAULT = 4
const ZUL_PBE_PBES2 = 0x1000
const ZUL_PBE_CIPHER_AES128 = 0x20
const ZUL_PBE_CIPHER_AES192 = 0x30
const ZUL_PBE_CIPHER_AES256 = 0x40

// RSA_ToXMLString
const ZUL_XML_RSAKEYVALUE = 0x1
const ZUL_XML_PUBLIC_ONLY = 0x10
const ZUL_XML_HEXBINARY = 0x100

// RSA_RawPublic, RSA_RawPrivate: the trailer of the RSA2 forms
const ZUL_RSA2_TRAILER6 = 6
const ZUL_RSA2_TRAILERC = 12

// RSA_EncodeMsg, RSA_DecodeMsg: an encoding, with a digest algorithm where it has one
const ZUL_EME_PKCSV1_5 = 0x00
const ZUL_EME_OAEP = 0x10
const ZUL_EMSIG_PKCSV1_5 = 0x20
const ZUL_EMSIG_DIGESTONLY = 0x1000
const ZUL_EMSIG_DIGINFO = 0x2000
const ZUL_EMSIG_GETALG = 0x8000
const ZUL_EMSIG_ISO9796 = 0x100000

// X509_: bits of the options. A digest algorithm (ZUL_HASH_) may be added where one is chosen.
const ZUL_X509_FORMAT_PEM = 0x10000
const ZUL_X509_REQ_DER = 0x20000
const ZUL_X509_REQ_NOATTRS = 0x100000
const ZUL_QUERY_GETTYPE = 0x100000
const ZUL_X509_LATIN1 = 0x400000
const ZUL_X509_UTF8 = 0x800000
const ZUL_X509_AUTHKEYID = 0x1000000
const ZUL_X509_NO_BASIC = 0x2000000
const ZUL_X509_SET_CA = 0x4000000
const ZUL_X509_VERSION1 = 0x8000000

// Key usage (RFC 5280, 4.2.1.3): the nKeyUsageFlags of X509_MakeCert, the result of X509_KeyUsageFlags
const ZUL_KEYUSAGE_DIGITALSIGNATURE = 0x001
const ZUL_KEYUSAGE_NONREPUDIATION = 0x002
const ZUL_KEYUSAGE_KEYENCIPHERMENT = 0x004
const ZUL_KEYUSAGE_DATAENCIPHERMENT = 0x008
const ZUL_KEYUSAGE_KEYAGREEMENT = 0x010
const ZUL_KEYUSAGE_KEYCERTSIGN = 0x020
const ZUL_KEYUSAGE_CRLSIGN = 0x040
const ZUL_KEYUSAGE_ENCIPHERONLY = 0x080
const ZUL_KEYUSAGE_DECIPHERONLY = 0x100

// CMS_ signed messages; a ZUL_HASH_ algorithm and, for enveloped ones, a ZUL_CMS_CIPHER_ go with them.
const ZUL_CMS_EXCLUDE_CERTS = 0x100
const ZUL_CMS_EXCLUDE_DATA = 0x200
const ZUL_CMS_CERTS_ONLY = 0x400
const ZUL_CMS_INCLUDE_ATTRS = 0x800
const ZUL_CMS_ADD_SIGNTIME = 0x1000
const ZUL_CMS_ADD_SMIMECAPS = 0x2000
const ZUL_CMS_FORMAT_BASE64 = 0x10000
const ZUL_CMS_BARE_SIGNEDDATA = 0x2000000
const ZUL_CMS_NAMED_SIGALG = 0x4000000
const ZUL_CMS_CIPHER_TDEA = 0x10
const ZUL_CMS_CIPHER_AES128 = 0x20
const ZUL_CMS_CIPHER_AES192 = 0x30
const ZUL_CMS_CIPHER_AES256 = 0x40

// PFX_
const ZUL_PFX_NO_PRIVKEY = 0x10

// CIPHER_Begin
const ZUL_CIPHER_NO_PADDING = 0x1

// AEAD_Encrypt, AEAD_Decrypt
const ZUL_AEAD_RANDOM_NONCE = 0x1

// KEY_Save: beside ZUL_KEY_FORMAT_PEM, the structure that the kind of key has of its own
const ZUL_KEY_FORMAT_OWN = 0x40000

// SIG_
const ZUL_SIG_RAW = 0x1
const ZUL_SIG_DETERMINISTIC = 0x2

// SEAL_
const ZUL_SEAL_ARMOUR = 0x1
const ZUL_SEAL_STDIN = 0x2
const ZUL_SEAL_STDOUT = 0x4

// CERT_
const ZUL_CERT_DER = 0x1
const ZUL_CERT_BEYOND_ISSUER = 0x2
const ZUL_CERT_JSON = 0x10
const ZUL_CERT_SUBJECT_NAME = 0x20
const ZUL_CERT_WEB = 0x40

// P12_. P12_Unpack: the number of the key, from 0, in the low byte
const ZUL_P12_LEGACY = 0x100
const ZUL_P12_PBMAC1 = 0x200
const ZUL_P12_TRUSTED = 0x400
const ZUL_P12_NEED_MAC = 0x800
const ZUL_P12_JSON = 0x1000

// ErrorName gives the name of an error code, as DECRYPT_ERROR.
func ErrorName(code int) string {
	switch code {
	case SUCCESS_ERROR:
		return "SUCCESS_ERROR"
	case OPEN_ERROR:
		return "OPEN_ERROR"
	case CREATE_ERROR:
		return "CREATE_ERROR"
	case READ_ERROR:
		return "READ_ERROR"
	case WRITE_ERROR:
		return "WRITE_ERROR"
	case MEMORY_ERROR:
		return "MEMORY_ERROR"
	case BAD_PARAM_ERROR:
		return "BAD_PARAM_ERROR"
	case BAD_FORMAT_ERROR:
		return "BAD_FORMAT_ERROR"
	case INVALID_DATA_ERROR:
		return "INVALID_DATA_ERROR"
	case EOF_ERROR:
		return "EOF_ERROR"
	case OUT_OF_RANGE_ERROR:
		return "OUT_OF_RANGE_ERROR"
	case DUP_ERROR:
		return "DUP_ERROR"
	case IO_ERROR:
		return "IO_ERROR"
	case NULL_ERROR:
		return "NULL_ERROR"
	case DECRYPT_ERROR:
		return "DECRYPT_ERROR"
	case EXPIRED_ERROR:
		return "EXPIRED_ERROR"
	case BAD_FLAG_ERROR:
		return "BAD_FLAG_ERROR"
	case WIPE_ERROR:
		return "WIPE_ERROR"
	case NOT_SUPPORTED_ERROR:
		return "NOT_SUPPORTED_ERROR"
	case NO_DATA_ERROR:
		return "NO_DATA_ERROR"
	case NO_MATCH_ERROR:
		return "NO_MATCH_ERROR"
	case SIGNATURE_ERROR:
		return "SIGNATURE_ERROR"
	case TEST_FAILED_ERROR:
		return "TEST_FAILED_ERROR"
	case KEYGEN_FAILED_ERROR:
		return "KEYGEN_FAILED_ERROR"
	case ISSUER_ERROR:
		return "ISSUER_ERROR"
	case BAD_LENGTH_ERROR:
		return "BAD_LENGTH_ERROR"
	case BAD_XML_ERROR:
		return "BAD_XML_ERROR"
	case MSG_TOO_LONG_ERROR:
		return "MSG_TOO_LONG_ERROR"
	case BAD_QUERY_ERROR:
		return "BAD_QUERY_ERROR"
	case SHORT_BUF_ERROR:
		return "SHORT_BUF_ERROR"
	case BAD_KEY_LEN_ERROR:
		return "BAD_KEY_LEN_ERROR"
	case BAD_BLK_LEN_ERROR:
		return "BAD_BLK_LEN_ERROR"
	case BAD_MODE_ERROR:
		return "BAD_MODE_ERROR"
	case BAD_KEY_ERROR:
		return "BAD_KEY_ERROR"
	case BAD_IV_ERROR:
		return "BAD_IV_ERROR"
	case PRNG_ERR_FILE_OPEN:
		return "PRNG_ERR_FILE_OPEN"
	case PRNG_ERR_FILE_CREATE:
		return "PRNG_ERR_FILE_CREATE"
	case PRNG_ERR_FILE_READ:
		return "PRNG_ERR_FILE_READ"
	case PRNG_ERR_FILE_WRITE:
		return "PRNG_ERR_FILE_WRITE"
	case PRNG_ERR_FILE_LOCK:
		return "PRNG_ERR_FILE_LOCK"
	case PRNG_ERR_UNINST:
		return "PRNG_ERR_UNINST"
	case PRNG_ERR_TOOBIG:
		return "PRNG_ERR_TOOBIG"
	case PRNG_ERR_FAILURE:
		return "PRNG_ERR_FAILURE"
	case PRNG_ERR_BADPARAM:
		return "PRNG_ERR_BADPARAM"
	case PRNG_ERR_NOTAVAIL:
		return "PRNG_ERR_NOTAVAIL"
	case PRNG_ERR_CATASTROPHIC:
		return "PRNG_ERR_CATASTROPHIC"
	case MISC_ERROR:
		return "MISC_ERROR"
	}
	return "ERROR"
}

// ZUL_ErrorCode returns the error code that the thread's last call recorded, always positive; 0 if none.
func ZUL_ErrorCode() int32 {
	return int32(C.ZUL_ErrorCode())
}

// ZUL_LastError copies the thread's last error text (at most 511 characters; often empty).
func ZUL_LastError(szOutput unsafe.Pointer, nOutChars int32) int32 {
	return int32(C.ZUL_LastError((*C.char)(szOutput), C.int(nOutChars)))
}

// ZUL_ErrorLookup copies the text of an error code of either sign.
func ZUL_ErrorLookup(szOutput unsafe.Pointer, nOutChars int32, nErrCode int32) int32 {
	return int32(C.ZUL_ErrorLookup((*C.char)(szOutput), C.int(nOutChars), C.int(nErrCode)))
}

// ZUL_ModuleName copies the full path of the library's own file (nOptions 0; at most 260 characters) or the word for its platform, "Win64" or "Lin64" (ZUL_MODULE_PLATFORM).
func ZUL_ModuleName(szOutput unsafe.Pointer, nOutChars int32, nOptions int32) int32 {
	return int32(C.ZUL_ModuleName((*C.char)(szOutput), C.int(nOutChars), C.int(nOptions)))
}

// ZUL_Version returns major * 100 + minor * 10 + release.
func ZUL_Version(pReserved1 unsafe.Pointer, pReserved2 unsafe.Pointer) int32 {
	return int32(C.ZUL_Version(pReserved1, pReserved2))
}

// ZUL_CompileTime copies the date and time of the build, as "Nov  1 2026 09:08:07".
func ZUL_CompileTime(szOutput unsafe.Pointer, nOutChars int32) int32 {
	return int32(C.ZUL_CompileTime((*C.char)(szOutput), C.int(nOutChars)))
}

// ZUL_PowerUpTests repeats the tests that the module ran when it was loaded.
func ZUL_PowerUpTests(nOptions int32) int32 {
	return int32(C.ZUL_PowerUpTests(C.int(nOptions)))
}

// WIPE_Data overwrites nDataLen bytes with zero.
func WIPE_Data(lpData unsafe.Pointer, nDataLen int32) int32 {
	return int32(C.WIPE_Data(lpData, C.int(nDataLen)))
}

// WIPE_File overwrites a file seven times, commits each pass to the disk, and deletes the file.
func WIPE_File(szFileName unsafe.Pointer, nOptions int32) int32 {
	return int32(C.WIPE_File((*C.char)(szFileName), C.int(nOptions)))
}

// CNV_HexStrFromBytes writes two upper-case hex digits for each byte.
func CNV_HexStrFromBytes(szOutput unsafe.Pointer, nOutChars int32, lpInput unsafe.Pointer, nInputLen int32) int32 {
	return int32(C.CNV_HexStrFromBytes((*C.char)(szOutput), C.int(nOutChars), (*C.uchar)(lpInput), C.int(nInputLen)))
}

// CNV_BytesFromHexStr decodes hex digits of either case, skipping every other character; a single digit left over is dropped.
func CNV_BytesFromHexStr(lpOutput unsafe.Pointer, nOutBytes int32, szInput unsafe.Pointer) int32 {
	return int32(C.CNV_BytesFromHexStr((*C.uchar)(lpOutput), C.int(nOutBytes), (*C.char)(szInput)))
}

// CNV_HexFilter copies the hex digits among the first nStrLen characters.
func CNV_HexFilter(szOutput unsafe.Pointer, szInput unsafe.Pointer, nStrLen int32) int32 {
	return int32(C.CNV_HexFilter((*C.char)(szOutput), (*C.char)(szInput), C.int(nStrLen)))
}

// CNV_B64StrFromBytes writes base64 (RFC 4648) in one line.
func CNV_B64StrFromBytes(szOutput unsafe.Pointer, nOutChars int32, lpInput unsafe.Pointer, nInputLen int32) int32 {
	return int32(C.CNV_B64StrFromBytes((*C.char)(szOutput), C.int(nOutChars), (*C.uchar)(lpInput), C.int(nInputLen)))
}

// CNV_BytesFromB64Str decodes base64 up to the first "=", skipping characters outside the alphabet.
func CNV_BytesFromB64Str(lpOutput unsafe.Pointer, nOutBytes int32, szInput unsafe.Pointer) int32 {
	return int32(C.CNV_BytesFromB64Str((*C.uchar)(lpOutput), C.int(nOutBytes), (*C.char)(szInput)))
}

// CNV_B64Filter is CNV_HexFilter for the base64 alphabet and "=".
func CNV_B64Filter(szOutput unsafe.Pointer, szInput unsafe.Pointer, nStrLen int32) int32 {
	return int32(C.CNV_B64Filter((*C.char)(szOutput), (*C.char)(szInput), C.int(nStrLen)))
}

// CNV_CheckUTF8 classifies a text.
func CNV_CheckUTF8(szInput unsafe.Pointer) int32 {
	return int32(C.CNV_CheckUTF8((*C.char)(szInput)))
}

// CNV_CheckUTF8Bytes is CNV_CheckUTF8 over nBytes bytes.
func CNV_CheckUTF8Bytes(lpInput unsafe.Pointer, nBytes int32) int32 {
	return int32(C.CNV_CheckUTF8Bytes((*C.uchar)(lpInput), C.int(nBytes)))
}

// CNV_UTF8FromLatin1 converts Latin-1 text to UTF-8 text.
func CNV_UTF8FromLatin1(szOutput unsafe.Pointer, nOutChars int32, szInput unsafe.Pointer) int32 {
	return int32(C.CNV_UTF8FromLatin1((*C.char)(szOutput), C.int(nOutChars), (*C.char)(szInput)))
}

// CNV_Latin1FromUTF8 converts UTF-8 text to Latin-1 text.
func CNV_Latin1FromUTF8(szOutput unsafe.Pointer, nOutChars int32, szInput unsafe.Pointer) int32 {
	return int32(C.CNV_Latin1FromUTF8((*C.char)(szOutput), C.int(nOutChars), (*C.char)(szInput)))
}

// CNV_UTF8BytesFromLatin1 is CNV_UTF8FromLatin1 without the NUL; nOutBytes is the room in bytes.
func CNV_UTF8BytesFromLatin1(lpOutput unsafe.Pointer, nOutBytes int32, szInput unsafe.Pointer) int32 {
	return int32(C.CNV_UTF8BytesFromLatin1((*C.uchar)(lpOutput), C.int(nOutBytes), (*C.char)(szInput)))
}

// CNV_Latin1FromUTF8Bytes is CNV_Latin1FromUTF8 over nBytes bytes.
func CNV_Latin1FromUTF8Bytes(szOutput unsafe.Pointer, nOutChars int32, lpInput unsafe.Pointer, nBytes int32) int32 {
	return int32(C.CNV_Latin1FromUTF8Bytes((*C.char)(szOutput), C.int(nOutChars), (*C.uchar)(lpInput), C.int(nBytes)))
}

// CNV_ByteEncoding converts bytes.
func CNV_ByteEncoding(lpOutput unsafe.Pointer, nOutBytes int32, lpInput unsafe.Pointer, nBytes int32, nOptions int32) int32 {
	return int32(C.CNV_ByteEncoding((*C.uchar)(lpOutput), C.int(nOutBytes), (*C.uchar)(lpInput), C.int(nBytes), C.int(nOptions)))
}

// PEM_FileFromBinFile writes a file's content as base64 lines ended by CR LF, between BEGIN and END lines if szHeader (the label) is not null or empty.
func PEM_FileFromBinFile(szFileOut unsafe.Pointer, szFileIn unsafe.Pointer, szHeader unsafe.Pointer, nLineLen int32) int32 {
	return int32(C.PEM_FileFromBinFile((*C.char)(szFileOut), (*C.char)(szFileIn), (*C.char)(szHeader), C.int(nLineLen)))
}

// PEM_FileToBinFile decodes the first armoured body of a file, whatever its label.
func PEM_FileToBinFile(szFileOut unsafe.Pointer, szFileIn unsafe.Pointer) int32 {
	return int32(C.PEM_FileToBinFile((*C.char)(szFileOut), (*C.char)(szFileIn)))
}

// HASH_Bytes writes the digest of a message of nMsgLen bytes.
func HASH_Bytes(lpDigest unsafe.Pointer, nDigLen int32, lpMessage unsafe.Pointer, nMsgLen int32, nOptions int32) int32 {
	return int32(C.HASH_Bytes((*C.uchar)(lpDigest), C.int(nDigLen), lpMessage, C.int(nMsgLen), C.int(nOptions)))
}

// HASH_File writes the digest of a file of any size.
func HASH_File(lpDigest unsafe.Pointer, nDigLen int32, szFileName unsafe.Pointer, nOptions int32) int32 {
	return int32(C.HASH_File((*C.uchar)(lpDigest), C.int(nDigLen), (*C.char)(szFileName), C.int(nOptions)))
}

// HASH_HexFromBytes is HASH_Bytes with lower-case hex as output.
func HASH_HexFromBytes(szOutput unsafe.Pointer, nOutChars int32, lpMessage unsafe.Pointer, nMsgLen int32, nOptions int32) int32 {
	return int32(C.HASH_HexFromBytes((*C.char)(szOutput), C.int(nOutChars), lpMessage, C.int(nMsgLen), C.int(nOptions)))
}

// HASH_HexFromFile is HASH_File with lower-case hex as output.
func HASH_HexFromFile(szOutput unsafe.Pointer, nOutChars int32, szFileName unsafe.Pointer, nOptions int32) int32 {
	return int32(C.HASH_HexFromFile((*C.char)(szOutput), C.int(nOutChars), (*C.char)(szFileName), C.int(nOptions)))
}

// HASH_HexFromHex is HASH_HexFromBytes over a message in hex.
func HASH_HexFromHex(szOutput unsafe.Pointer, nOutChars int32, szMsgHex unsafe.Pointer, nOptions int32) int32 {
	return int32(C.HASH_HexFromHex((*C.char)(szOutput), C.int(nOutChars), (*C.char)(szMsgHex), C.int(nOptions)))
}

// HMAC_Bytes writes the MAC of a message.
func HMAC_Bytes(lpDigest unsafe.Pointer, nDigLen int32, lpMessage unsafe.Pointer, nMsgLen int32, lpKey unsafe.Pointer, nKeyLen int32, nOptions int32) int32 {
	return int32(C.HMAC_Bytes((*C.uchar)(lpDigest), C.int(nDigLen), lpMessage, C.int(nMsgLen), lpKey, C.int(nKeyLen), C.int(nOptions)))
}

// HMAC_HexFromBytes is HMAC_Bytes with lower-case hex as output.
func HMAC_HexFromBytes(szOutput unsafe.Pointer, nOutChars int32, lpMessage unsafe.Pointer, nMsgLen int32, lpKey unsafe.Pointer, nKeyLen int32, nOptions int32) int32 {
	return int32(C.HMAC_HexFromBytes((*C.char)(szOutput), C.int(nOutChars), lpMessage, C.int(nMsgLen), lpKey, C.int(nKeyLen), C.int(nOptions)))
}

// HMAC_HexFromHex is HMAC_HexFromBytes over a message and key in hex.
func HMAC_HexFromHex(szOutput unsafe.Pointer, nOutChars int32, szMsgHex unsafe.Pointer, szKeyHex unsafe.Pointer, nOptions int32) int32 {
	return int32(C.HMAC_HexFromHex((*C.char)(szOutput), C.int(nOutChars), (*C.char)(szMsgHex), (*C.char)(szKeyHex), C.int(nOptions)))
}

// KDF_Pbkdf2 is PBKDF2 of RFC 8018 with HMAC.
func KDF_Pbkdf2(lpOutput unsafe.Pointer, nOutBytes int32, lpPassword unsafe.Pointer, nPwdLen int32, lpSalt unsafe.Pointer, nSaltLen int32, nIterations int32, szHash unsafe.Pointer) int32 {
	return int32(C.KDF_Pbkdf2((*C.uchar)(lpOutput), C.int(nOutBytes), lpPassword, C.int(nPwdLen), lpSalt, C.int(nSaltLen), C.int(nIterations), (*C.char)(szHash)))
}

// KDF_Hkdf is HKDF of RFC 5869, extract and expand.
func KDF_Hkdf(lpOutput unsafe.Pointer, nOutBytes int32, lpKey unsafe.Pointer, nKeyLen int32, lpSalt unsafe.Pointer, nSaltLen int32, lpInfo unsafe.Pointer, nInfoLen int32, szHash unsafe.Pointer) int32 {
	return int32(C.KDF_Hkdf((*C.uchar)(lpOutput), C.int(nOutBytes), lpKey, C.int(nKeyLen), lpSalt, C.int(nSaltLen), lpInfo, C.int(nInfoLen), (*C.char)(szHash)))
}

// KDF_Scrypt is scrypt of RFC 7914.
func KDF_Scrypt(lpOutput unsafe.Pointer, nOutBytes int32, lpPassword unsafe.Pointer, nPwdLen int32, lpSalt unsafe.Pointer, nSaltLen int32, nN int32, nR int32, nP int32) int32 {
	return int32(C.KDF_Scrypt((*C.uchar)(lpOutput), C.int(nOutBytes), lpPassword, C.int(nPwdLen), lpSalt, C.int(nSaltLen), C.int(nN), C.int(nR), C.int(nP)))
}

// KDF_Argon2id is Argon2id of RFC 9106, version 0x13, without secret and associated data.
func KDF_Argon2id(lpOutput unsafe.Pointer, nOutBytes int32, lpPassword unsafe.Pointer, nPwdLen int32, lpSalt unsafe.Pointer, nSaltLen int32, nMemoryKiB int32, nPasses int32, nLanes int32) int32 {
	return int32(C.KDF_Argon2id((*C.uchar)(lpOutput), C.int(nOutBytes), lpPassword, C.int(nPwdLen), lpSalt, C.int(nSaltLen), C.int(nMemoryKiB), C.int(nPasses), C.int(nLanes)))
}

// CIPHER_Bytes encrypts or decrypts nBytes bytes; lpOutput has the same length and may be lpInput.
func CIPHER_Bytes(fEncrypt int32, lpOutput unsafe.Pointer, lpInput unsafe.Pointer, nBytes int32, lpKey unsafe.Pointer, lpIV unsafe.Pointer, szAlgAndMode unsafe.Pointer, nOptions int32) int32 {
	return int32(C.CIPHER_Bytes(C.int(fEncrypt), (*C.uchar)(lpOutput), (*C.uchar)(lpInput), C.int(nBytes), (*C.uchar)(lpKey), (*C.uchar)(lpIV), (*C.char)(szAlgAndMode), C.int(nOptions)))
}

// CIPHER_Hex is CIPHER_Bytes over hex texts; the output is upper case and nOutChars must cover all of it (SHORT_BUF_ERROR).
func CIPHER_Hex(fEncrypt int32, szOutput unsafe.Pointer, nOutChars int32, szInputHex unsafe.Pointer, szKeyHex unsafe.Pointer, szIVHex unsafe.Pointer, szAlgAndMode unsafe.Pointer, nOptions int32) int32 {
	return int32(C.CIPHER_Hex(C.int(fEncrypt), (*C.char)(szOutput), C.int(nOutChars), (*C.char)(szInputHex), (*C.char)(szKeyHex), (*C.char)(szIVHex), (*C.char)(szAlgAndMode), C.int(nOptions)))
}

// CIPHER_File encrypts or decrypts a file of any size into another.
func CIPHER_File(fEncrypt int32, szFileOut unsafe.Pointer, szFileIn unsafe.Pointer, lpKey unsafe.Pointer, lpIV unsafe.Pointer, szAlgAndMode unsafe.Pointer, nOptions int32) int32 {
	return int32(C.CIPHER_File(C.int(fEncrypt), (*C.char)(szFileOut), (*C.char)(szFileIn), (*C.uchar)(lpKey), (*C.uchar)(lpIV), (*C.char)(szAlgAndMode), C.int(nOptions)))
}

// TDEA_BytesMode is CIPHER_Bytes with Triple DES; szMode is "ECB", "CBC", "CFB", "OFB" or "CTR" in any case (BAD_MODE_ERROR otherwise; BAD_PARAM_ERROR if null).
func TDEA_BytesMode(lpOutput unsafe.Pointer, lpInput unsafe.Pointer, nBytes int32, lpKey unsafe.Pointer, fEncrypt int32, szMode unsafe.Pointer, lpIV unsafe.Pointer) int32 {
	return int32(C.TDEA_BytesMode((*C.uchar)(lpOutput), (*C.uchar)(lpInput), C.int(nBytes), (*C.uchar)(lpKey), C.int(fEncrypt), (*C.char)(szMode), (*C.uchar)(lpIV)))
}

// TDEA_HexMode is TDEA_BytesMode over hex texts.
func TDEA_HexMode(szOutput unsafe.Pointer, szInputHex unsafe.Pointer, szKeyHex unsafe.Pointer, fEncrypt int32, szMode unsafe.Pointer, szIVHex unsafe.Pointer) int32 {
	return int32(C.TDEA_HexMode((*C.char)(szOutput), (*C.char)(szInputHex), (*C.char)(szKeyHex), C.int(fEncrypt), (*C.char)(szMode), (*C.char)(szIVHex)))
}

// TDEA_B64Mode is TDEA_HexMode over base64 texts; szOutput holds (bytes + 2) / 3 * 4 characters and a NUL.
func TDEA_B64Mode(szOutput unsafe.Pointer, szInputB64 unsafe.Pointer, szKeyB64 unsafe.Pointer, fEncrypt int32, szMode unsafe.Pointer, szIVB64 unsafe.Pointer) int32 {
	return int32(C.TDEA_B64Mode((*C.char)(szOutput), (*C.char)(szInputB64), (*C.char)(szKeyB64), C.int(fEncrypt), (*C.char)(szMode), (*C.char)(szIVB64)))
}

// TDEA_File is CIPHER_File with Triple DES and a mode as in TDEA_BytesMode.
func TDEA_File(szFileOut unsafe.Pointer, szFileIn unsafe.Pointer, lpKey unsafe.Pointer, fEncrypt int32, szMode unsafe.Pointer, lpIV unsafe.Pointer) int32 {
	return int32(C.TDEA_File((*C.char)(szFileOut), (*C.char)(szFileIn), (*C.uchar)(lpKey), C.int(fEncrypt), (*C.char)(szMode), (*C.uchar)(lpIV)))
}

// CIPHER_KeyWrap wraps a key of nDataLen bytes under a key-encryption key.
func CIPHER_KeyWrap(lpOutput unsafe.Pointer, nOutBytes int32, lpData unsafe.Pointer, nDataLen int32, lpKEK unsafe.Pointer, nKekLen int32, nOptions int32) int32 {
	return int32(C.CIPHER_KeyWrap((*C.uchar)(lpOutput), C.int(nOutBytes), (*C.uchar)(lpData), C.int(nDataLen), (*C.uchar)(lpKEK), C.int(nKekLen), C.int(nOptions)))
}

// CIPHER_KeyUnwrap undoes CIPHER_KeyWrap; errors as there.
func CIPHER_KeyUnwrap(lpOutput unsafe.Pointer, nOutBytes int32, lpData unsafe.Pointer, nDataLen int32, lpKEK unsafe.Pointer, nKekLen int32, nOptions int32) int32 {
	return int32(C.CIPHER_KeyUnwrap((*C.uchar)(lpOutput), C.int(nOutBytes), (*C.uchar)(lpData), C.int(nDataLen), (*C.uchar)(lpKEK), C.int(nKekLen), C.int(nOptions)))
}

// PAD_BytesBlock copies the input and appends 1 to nBlkLen bytes that hold their count.
func PAD_BytesBlock(lpOutput unsafe.Pointer, nOutputLen int32, lpInput unsafe.Pointer, nInputLen int32, nBlkLen int32, nOptions int32) int32 {
	return int32(C.PAD_BytesBlock((*C.uchar)(lpOutput), C.int(nOutputLen), (*C.uchar)(lpInput), C.int(nInputLen), C.int(nBlkLen), C.int(nOptions)))
}

// PAD_UnpadBytes copies the input without its padding.
func PAD_UnpadBytes(lpOutput unsafe.Pointer, nOutputLen int32, lpInput unsafe.Pointer, nInputLen int32, nBlkLen int32, nOptions int32) int32 {
	return int32(C.PAD_UnpadBytes((*C.uchar)(lpOutput), C.int(nOutputLen), (*C.uchar)(lpInput), C.int(nInputLen), C.int(nBlkLen), C.int(nOptions)))
}

// PAD_HexBlock is PAD_BytesBlock over hex text, which is copied unchanged and not validated.
func PAD_HexBlock(szOutput unsafe.Pointer, nOutChars int32, szInputHex unsafe.Pointer, nBlkLen int32, nOptions int32) int32 {
	return int32(C.PAD_HexBlock((*C.char)(szOutput), C.int(nOutChars), (*C.char)(szInputHex), C.int(nBlkLen), C.int(nOptions)))
}

// PAD_UnpadHex is PAD_UnpadBytes over hex text.
func PAD_UnpadHex(szOutput unsafe.Pointer, nOutChars int32, szInputHex unsafe.Pointer, nBlkLen int32, nOptions int32) int32 {
	return int32(C.PAD_UnpadHex((*C.char)(szOutput), C.int(nOutChars), (*C.char)(szInputHex), C.int(nBlkLen), C.int(nOptions)))
}

// RNG_Bytes fills nBytes (at most 65,536) random bytes.
func RNG_Bytes(lpOutput unsafe.Pointer, nBytes int32, lpSeed unsafe.Pointer, nSeedLen int32) int32 {
	return int32(C.RNG_Bytes((*C.uchar)(lpOutput), C.int(nBytes), lpSeed, C.int(nSeedLen)))
}

// RNG_BytesWithPrompt shows a dialog in which the user types at random and moves the mouse until enough has been collected.
func RNG_BytesWithPrompt(lpOutput unsafe.Pointer, nOutputLen int32, szPrompt unsafe.Pointer, nOptions int32) int32 {
	return int32(C.RNG_BytesWithPrompt((*C.uchar)(lpOutput), C.int(nOutputLen), (*C.char)(szPrompt), C.int(nOptions)))
}

// RNG_Number returns a uniform number from nLower to nUpper, both included; nLower if nUpper is not greater, or if the range needs all 32 bits.
func RNG_Number(nLower int32, nUpper int32) int32 {
	return int32(C.RNG_Number(C.int(nLower), C.int(nUpper)))
}

// RNG_Test runs the generator's known-answer test and the four statistical tests of FIPS 140-2 on 20,000 fresh bits, and writes a report if szFileName is not null or empty.
func RNG_Test(szFileName unsafe.Pointer, nOptions int32) int32 {
	return int32(C.RNG_Test((*C.char)(szFileName), C.int(nOptions)))
}

// RNG_Initialize instantiates the thread's generator and takes in a seed file of 64 bytes, which it then overwrites with fresh ones.
func RNG_Initialize(szSeedFile unsafe.Pointer, nOptions int32) int32 {
	return int32(C.RNG_Initialize((*C.char)(szSeedFile), C.int(nOptions)))
}

// RNG_MakeSeedFile makes or overwrites a seed file for RNG_Initialize from what the user does in the dialog of RNG_BytesWithPrompt; szPrompt and nOptions as there.
func RNG_MakeSeedFile(szSeedFile unsafe.Pointer, szPrompt unsafe.Pointer, nOptions int32) int32 {
	return int32(C.RNG_MakeSeedFile((*C.char)(szSeedFile), (*C.char)(szPrompt), C.int(nOptions)))
}

// RNG_UpdateSeedFile takes in a seed file and overwrites it, as RNG_Initialize.
func RNG_UpdateSeedFile(szSeedFile unsafe.Pointer, nOptions int32) int32 {
	return int32(C.RNG_UpdateSeedFile((*C.char)(szSeedFile), C.int(nOptions)))
}

// PWD_PromptEx shows a dialog in which the user enters a password, or asks for it in the process's controlling terminal (Linux).
func PWD_PromptEx(szPassword unsafe.Pointer, nPwdLen int32, szCaption unsafe.Pointer, szPrompt unsafe.Pointer) int32 {
	return int32(C.PWD_PromptEx((*C.char)(szPassword), C.int(nPwdLen), (*C.char)(szCaption), (*C.char)(szPrompt)))
}

// PWD_Prompt is PWD_PromptEx with the dialog's own text, "Enter password:".
func PWD_Prompt(szPassword unsafe.Pointer, nPwdLen int32, szCaption unsafe.Pointer) int32 {
	return int32(C.PWD_Prompt((*C.char)(szPassword), C.int(nPwdLen), (*C.char)(szCaption)))
}

// RSA_MakeKeys makes a key pair and writes two files.
func RSA_MakeKeys(szPubKeyFile unsafe.Pointer, szPriKeyFile unsafe.Pointer, nBits int32, nExpIndex int32, nTests int32, nCount int32, szPassword unsafe.Pointer, lpSeed unsafe.Pointer, nSeedLen int32, nOptions int32) int32 {
	return int32(C.RSA_MakeKeys((*C.char)(szPubKeyFile), (*C.char)(szPriKeyFile), C.int(nBits), C.int(nExpIndex), C.int(nTests), C.int(nCount), (*C.char)(szPassword), lpSeed, C.int(nSeedLen), C.int(nOptions)))
}

// RSA_ReadPublicKey reads an RSAPublicKey (PKCS #1) or SubjectPublicKeyInfo (X.509) and writes its key string.
func RSA_ReadPublicKey(szOutput unsafe.Pointer, nOutChars int32, szFileOrText unsafe.Pointer) int32 {
	return int32(C.RSA_ReadPublicKey((*C.char)(szOutput), C.int(nOutChars), (*C.char)(szFileOrText)))
}

// RSA_ReadPrivateKeyInfo reads an unencrypted PrivateKeyInfo (PKCS #8) or RSAPrivateKey (PKCS #1) of two primes and writes its key string.
func RSA_ReadPrivateKeyInfo(szOutput unsafe.Pointer, nOutChars int32, szFileOrText unsafe.Pointer) int32 {
	return int32(C.RSA_ReadPrivateKeyInfo((*C.char)(szOutput), C.int(nOutChars), (*C.char)(szFileOrText)))
}

// RSA_ReadEncPrivateKey reads an EncryptedPrivateKeyInfo (PKCS #8) and writes the private key's key string.
func RSA_ReadEncPrivateKey(szOutput unsafe.Pointer, nOutChars int32, szFileOrText unsafe.Pointer, szPassword unsafe.Pointer, nOptions int32) int32 {
	return int32(C.RSA_ReadEncPrivateKey((*C.char)(szOutput), C.int(nOutChars), (*C.char)(szFileOrText), (*C.char)(szPassword), C.int(nOptions)))
}

// RSA_GetPublicKeyFromCert reads an X.509 certificate and writes the key string of its subject's public key.
func RSA_GetPublicKeyFromCert(szOutput unsafe.Pointer, nOutChars int32, szFileOrText unsafe.Pointer) int32 {
	return int32(C.RSA_GetPublicKeyFromCert((*C.char)(szOutput), C.int(nOutChars), (*C.char)(szFileOrText)))
}

// RSA_SavePublicKey writes a public key, or the public part of a private key, to a file.
func RSA_SavePublicKey(szFileOut unsafe.Pointer, szKeyString unsafe.Pointer, nOptions int32) int32 {
	return int32(C.RSA_SavePublicKey((*C.char)(szFileOut), (*C.char)(szKeyString), C.int(nOptions)))
}

// RSA_SavePrivateKeyInfo writes a private key to a file, unencrypted.
func RSA_SavePrivateKeyInfo(szFileOut unsafe.Pointer, szKeyString unsafe.Pointer, nOptions int32) int32 {
	return int32(C.RSA_SavePrivateKeyInfo((*C.char)(szFileOut), (*C.char)(szKeyString), C.int(nOptions)))
}

// RSA_SaveEncPrivateKey writes a private key to a file as EncryptedPrivateKeyInfo.
func RSA_SaveEncPrivateKey(szFileOut unsafe.Pointer, szKeyString unsafe.Pointer, nCount int32, szPassword unsafe.Pointer, nOptions int32) int32 {
	return int32(C.RSA_SaveEncPrivateKey((*C.char)(szFileOut), (*C.char)(szKeyString), C.int(nCount), (*C.char)(szPassword), C.int(nOptions)))
}

// RSA_ToXMLString writes a key as XML.
func RSA_ToXMLString(szOutput unsafe.Pointer, nOutChars int32, szKeyString unsafe.Pointer, nOptions int32) int32 {
	return int32(C.RSA_ToXMLString((*C.char)(szOutput), C.int(nOutChars), (*C.char)(szKeyString), C.int(nOptions)))
}

// RSA_FromXMLString reads a key from XML and gives its internal key string.
func RSA_FromXMLString(szOutput unsafe.Pointer, nOutChars int32, szXmlString unsafe.Pointer, nOptions int32) int32 {
	return int32(C.RSA_FromXMLString((*C.char)(szOutput), C.int(nOutChars), (*C.char)(szXmlString), C.int(nOptions)))
}

// RSA_KeyBits returns the length in bits of the modulus of a public or private key.
func RSA_KeyBits(szKeyString unsafe.Pointer) int32 {
	return int32(C.RSA_KeyBits((*C.char)(szKeyString)))
}

// RSA_KeyBytes returns the length in bytes of the modulus, which is that of data and encoded blocks.
func RSA_KeyBytes(szKeyString unsafe.Pointer) int32 {
	return int32(C.RSA_KeyBytes((*C.char)(szKeyString)))
}

// RSA_KeyMatch tells whether a private and a public key form a pair.
func RSA_KeyMatch(szPrivateKey unsafe.Pointer, szPublicKey unsafe.Pointer) int32 {
	return int32(C.RSA_KeyMatch((*C.char)(szPrivateKey), (*C.char)(szPublicKey)))
}

// RSA_KeyHashCode returns a hash code, which may be negative, of a public key or of the public part of a private key.
func RSA_KeyHashCode(szKeyString unsafe.Pointer) int32 {
	return int32(C.RSA_KeyHashCode((*C.char)(szKeyString)))
}

// RSA_CheckKey checks a key.
func RSA_CheckKey(szKeyString unsafe.Pointer, nOptions int32) int32 {
	return int32(C.RSA_CheckKey((*C.char)(szKeyString), C.int(nOptions)))
}

// RSA_RawPublic transforms data in place with a public key string.
func RSA_RawPublic(lpData unsafe.Pointer, nDataLen int32, szPublicKey unsafe.Pointer, nOptions int32) int32 {
	return int32(C.RSA_RawPublic((*C.uchar)(lpData), C.int(nDataLen), (*C.char)(szPublicKey), C.int(nOptions)))
}

// RSA_RawPrivate transforms data in place with a private key.
func RSA_RawPrivate(lpData unsafe.Pointer, nDataLen int32, szPrivateKey unsafe.Pointer, nOptions int32) int32 {
	return int32(C.RSA_RawPrivate((*C.uchar)(lpData), C.int(nDataLen), (*C.char)(szPrivateKey), C.int(nOptions)))
}

// RSA_EncodeMsg fills the nOutBytes bytes (normally RSA_KeyBytes) of lpOutput with the encoding of a message.
func RSA_EncodeMsg(lpOutput unsafe.Pointer, nOutBytes int32, lpInput unsafe.Pointer, nInputLen int32, nOptions int32) int32 {
	return int32(C.RSA_EncodeMsg((*C.uchar)(lpOutput), C.int(nOutBytes), (*C.uchar)(lpInput), C.int(nInputLen), C.int(nOptions)))
}

// RSA_DecodeMsg recovers the message from an encoded block, of which at most nOutBytes bytes are copied.
func RSA_DecodeMsg(lpOutput unsafe.Pointer, nOutBytes int32, lpInput unsafe.Pointer, nInputLen int32, nOptions int32) int32 {
	return int32(C.RSA_DecodeMsg((*C.uchar)(lpOutput), C.int(nOutBytes), (*C.uchar)(lpInput), C.int(nInputLen), C.int(nOptions)))
}

// X509_QueryCert answers a query about a certificate.
func X509_QueryCert(szOutput unsafe.Pointer, nChars int32, szCertFile unsafe.Pointer, szQuery unsafe.Pointer, nOptions int32) int32 {
	return int32(C.X509_QueryCert((*C.char)(szOutput), C.int(nChars), (*C.char)(szCertFile), (*C.char)(szQuery), C.int(nOptions)))
}

// X509_KeyUsageFlags returns the key usage as ZUL_KEYUSAGE_ bits, 0 if the certificate does not say, or a negated code.
func X509_KeyUsageFlags(szCertFile unsafe.Pointer) int32 {
	return int32(C.X509_KeyUsageFlags((*C.char)(szCertFile)))
}

// X509_CertThumb writes the digest (nOptions: ZUL_HASH_...) of a certificate in lower-case hex.
func X509_CertThumb(szCertFile unsafe.Pointer, szHash unsafe.Pointer, nChars int32, nOptions int32) int32 {
	return int32(C.X509_CertThumb((*C.char)(szCertFile), (*C.char)(szHash), C.int(nChars), C.int(nOptions)))
}

// X509_CertIsValidNow returns 0 if the present time lies within the certificate's validity, -1 if not, or a positive code.
func X509_CertIsValidNow(szCertFile unsafe.Pointer, nOptions int32) int32 {
	return int32(C.X509_CertIsValidNow((*C.char)(szCertFile), C.int(nOptions)))
}

// X509_CertIssuedOn and X509_CertExpiresOn write the beginning and end of the validity, 20 characters, cut to nChars.
func X509_CertIssuedOn(szCertFile unsafe.Pointer, szOutput unsafe.Pointer, nChars int32, nOptions int32) int32 {
	return int32(C.X509_CertIssuedOn((*C.char)(szCertFile), (*C.char)(szOutput), C.int(nChars), C.int(nOptions)))
}

// X509_CertIssuedOn and X509_CertExpiresOn write the beginning and end of the validity, 20 characters, cut to nChars.
func X509_CertExpiresOn(szCertFile unsafe.Pointer, szOutput unsafe.Pointer, nChars int32, nOptions int32) int32 {
	return int32(C.X509_CertExpiresOn((*C.char)(szCertFile), (*C.char)(szOutput), C.int(nChars), C.int(nOptions)))
}

// X509_CertSerialNumber writes the serial number's bytes in lower-case hex.
func X509_CertSerialNumber(szCertFile unsafe.Pointer, szOutput unsafe.Pointer, nChars int32, nOptions int32) int32 {
	return int32(C.X509_CertSerialNumber((*C.char)(szCertFile), (*C.char)(szOutput), C.int(nChars), C.int(nOptions)))
}

// X509_CertSubjectName and X509_CertIssuerName write a name as text, cut to nChars.
func X509_CertSubjectName(szCertFile unsafe.Pointer, szOutput unsafe.Pointer, nChars int32, szDelim unsafe.Pointer, nOptions int32) int32 {
	return int32(C.X509_CertSubjectName((*C.char)(szCertFile), (*C.char)(szOutput), C.int(nChars), (*C.char)(szDelim), C.int(nOptions)))
}

// X509_CertSubjectName and X509_CertIssuerName write a name as text, cut to nChars.
func X509_CertIssuerName(szCertFile unsafe.Pointer, szOutput unsafe.Pointer, nChars int32, szDelim unsafe.Pointer, nOptions int32) int32 {
	return int32(C.X509_CertIssuerName((*C.char)(szCertFile), (*C.char)(szOutput), C.int(nChars), (*C.char)(szDelim), C.int(nOptions)))
}

// X509_HashIssuerAndSN writes the digest of the certificate's IssuerAndSerialNumber (RFC 5652), as X509_CertThumb that of the certificate.
func X509_HashIssuerAndSN(szCertFile unsafe.Pointer, szOutput unsafe.Pointer, nChars int32, nOptions int32) int32 {
	return int32(C.X509_HashIssuerAndSN((*C.char)(szCertFile), (*C.char)(szOutput), C.int(nChars), C.int(nOptions)))
}

// X509_ReadStringFromFile writes a certificate as base64 in one line, which serves as szCertFile wherever one is asked for (if it is longer than 256 characters, as that of any certificate with an RSA key is).
func X509_ReadStringFromFile(szOutput unsafe.Pointer, nChars int32, szCertFile unsafe.Pointer, nOptions int32) int32 {
	return int32(C.X509_ReadStringFromFile((*C.char)(szOutput), C.int(nChars), (*C.char)(szCertFile), C.int(nOptions)))
}

// X509_SaveFileFromString writes a certificate given as base64 to a file.
func X509_SaveFileFromString(szNewCertFile unsafe.Pointer, szCertString unsafe.Pointer, nOptions int32) int32 {
	return int32(C.X509_SaveFileFromString((*C.char)(szNewCertFile), (*C.char)(szCertString), C.int(nOptions)))
}

// X509_MakeCert makes a certificate (RFC 5280) signed by an issuer.
func X509_MakeCert(szNewCertFile unsafe.Pointer, szIssuerCertFile unsafe.Pointer, szSubjectPubKeyFile unsafe.Pointer, szIssuerPriKeyFile unsafe.Pointer, nCertNum int32, nYearsValid int32, szDistName unsafe.Pointer, szExtensions unsafe.Pointer, nKeyUsageFlags int32, szPassword unsafe.Pointer, nOptions int32) int32 {
	return int32(C.X509_MakeCert((*C.char)(szNewCertFile), (*C.char)(szIssuerCertFile), (*C.char)(szSubjectPubKeyFile), (*C.char)(szIssuerPriKeyFile), C.int(nCertNum), C.int(nYearsValid), (*C.char)(szDistName), (*C.char)(szExtensions), C.int(nKeyUsageFlags), (*C.char)(szPassword), C.int(nOptions)))
}

// X509_MakeCertSelf makes the self-signed certificate of a certification authority from its encrypted private key.
func X509_MakeCertSelf(szNewCertFile unsafe.Pointer, szEPKFile unsafe.Pointer, nCertNum int32, nYearsValid int32, szDistName unsafe.Pointer, szExtensions unsafe.Pointer, nKeyUsageFlags int32, szPassword unsafe.Pointer, nOptions int32) int32 {
	return int32(C.X509_MakeCertSelf((*C.char)(szNewCertFile), (*C.char)(szEPKFile), C.int(nCertNum), C.int(nYearsValid), (*C.char)(szDistName), (*C.char)(szExtensions), C.int(nKeyUsageFlags), (*C.char)(szPassword), C.int(nOptions)))
}

// X509_CertRequest makes a certification request (PKCS #10, RFC 2986) from an encrypted private key.
func X509_CertRequest(szReqFile unsafe.Pointer, szEPKFile unsafe.Pointer, szDistName unsafe.Pointer, szExtensions unsafe.Pointer, szPassword unsafe.Pointer, nOptions int32) int32 {
	return int32(C.X509_CertRequest((*C.char)(szReqFile), (*C.char)(szEPKFile), (*C.char)(szDistName), (*C.char)(szExtensions), (*C.char)(szPassword), C.int(nOptions)))
}

// X509_MakeCRL makes a revocation list of version 1.
func X509_MakeCRL(szCrlFile unsafe.Pointer, szIssuerCertFile unsafe.Pointer, szIssuerKeyFile unsafe.Pointer, szPassword unsafe.Pointer, szCertList unsafe.Pointer, szExtensions unsafe.Pointer, nOptions int32) int32 {
	return int32(C.X509_MakeCRL((*C.char)(szCrlFile), (*C.char)(szIssuerCertFile), (*C.char)(szIssuerKeyFile), (*C.char)(szPassword), (*C.char)(szCertList), (*C.char)(szExtensions), C.int(nOptions)))
}

// X509_VerifyCert checks that a certificate, request or CRL was signed with the key of szIssuerCert.
func X509_VerifyCert(szCertToVerify unsafe.Pointer, szIssuerCert unsafe.Pointer) int32 {
	return int32(C.X509_VerifyCert((*C.char)(szCertToVerify), (*C.char)(szIssuerCert)))
}

// X509_CheckCertInCRL looks a certificate up in its issuer's CRL.
func X509_CheckCertInCRL(szCertFile unsafe.Pointer, szCrlFile unsafe.Pointer, szCRLIssuerCert unsafe.Pointer, szDate unsafe.Pointer, nOptions int32) int32 {
	return int32(C.X509_CheckCertInCRL((*C.char)(szCertFile), (*C.char)(szCrlFile), (*C.char)(szCRLIssuerCert), (*C.char)(szDate), C.int(nOptions)))
}

// X509_ValidatePath orders certificates into a path and checks each one's signature, and its dates unless nOptions is not 0.
func X509_ValidatePath(szCertList unsafe.Pointer, szTrustedCert unsafe.Pointer, nOptions int32) int32 {
	return int32(C.X509_ValidatePath((*C.char)(szCertList), (*C.char)(szTrustedCert), C.int(nOptions)))
}

// X509_TextDump writes a description of a certificate, request or CRL to a text file.
func X509_TextDump(szFileOut unsafe.Pointer, szCertFile unsafe.Pointer, nOptions int32) int32 {
	return int32(C.X509_TextDump((*C.char)(szFileOut), (*C.char)(szCertFile), C.int(nOptions)))
}

// X509_GetCertFromP7Chain takes a certificate out of a signed message or a certs-only one (PKCS #7, "p7c" or "p7b"), a message argument as below.
func X509_GetCertFromP7Chain(szNewCertFile unsafe.Pointer, szP7cFile unsafe.Pointer, nIndex int32, nOptions int32) int32 {
	return int32(C.X509_GetCertFromP7Chain((*C.char)(szNewCertFile), (*C.char)(szP7cFile), C.int(nIndex), C.int(nOptions)))
}

// X509_GetCertFromPFX and RSA_GetPrivateKeyFromPFX write the first certificate of a PKCS #12 file, as DER, and its first encrypted private key, as RSA_ReadEncPrivateKey reads it, to a file.
func X509_GetCertFromPFX(szFileOut unsafe.Pointer, szPfxFile unsafe.Pointer, nOptions int32) int32 {
	return int32(C.X509_GetCertFromPFX((*C.char)(szFileOut), (*C.char)(szPfxFile), C.int(nOptions)))
}

// X509_GetCertFromPFX and RSA_GetPrivateKeyFromPFX write the first certificate of a PKCS #12 file, as DER, and its first encrypted private key, as RSA_ReadEncPrivateKey reads it, to a file.
func RSA_GetPrivateKeyFromPFX(szFileOut unsafe.Pointer, szPfxFile unsafe.Pointer, nOptions int32) int32 {
	return int32(C.RSA_GetPrivateKeyFromPFX((*C.char)(szFileOut), (*C.char)(szPfxFile), C.int(nOptions)))
}

// CMS_MakeSigData signs a file with RSA (PKCS #1 v1.5).
func CMS_MakeSigData(szFileOut unsafe.Pointer, szFileIn unsafe.Pointer, szCertList unsafe.Pointer, szPrivateKey unsafe.Pointer, nOptions int32) int32 {
	return int32(C.CMS_MakeSigData((*C.char)(szFileOut), (*C.char)(szFileIn), (*C.char)(szCertList), (*C.char)(szPrivateKey), C.int(nOptions)))
}

// CMS_MakeSigDataFromString signs the bytes of a text, without its NUL, as CMS_MakeSigData a file.
func CMS_MakeSigDataFromString(szFileOut unsafe.Pointer, szDataIn unsafe.Pointer, szCertList unsafe.Pointer, szPrivateKey unsafe.Pointer, nOptions int32) int32 {
	return int32(C.CMS_MakeSigDataFromString((*C.char)(szFileOut), (*C.char)(szDataIn), (*C.char)(szCertList), (*C.char)(szPrivateKey), C.int(nOptions)))
}

// CMS_MakeDetachedSig signs content whose digest is given in hex; the content is not carried.
func CMS_MakeDetachedSig(szFileOut unsafe.Pointer, szHexDigest unsafe.Pointer, szCertList unsafe.Pointer, szPrivateKey unsafe.Pointer, nOptions int32) int32 {
	return int32(C.CMS_MakeDetachedSig((*C.char)(szFileOut), (*C.char)(szHexDigest), (*C.char)(szCertList), (*C.char)(szPrivateKey), C.int(nOptions)))
}

// CMS_MakeSigDataFromSigValue makes a message from nDataLen bytes of content and their finished signature, made by a smart card, for example.
func CMS_MakeSigDataFromSigValue(szFileOut unsafe.Pointer, lpSigValue unsafe.Pointer, nSigLen int32, lpData unsafe.Pointer, nDataLen int32, szCertList unsafe.Pointer, nOptions int32) int32 {
	return int32(C.CMS_MakeSigDataFromSigValue((*C.char)(szFileOut), (*C.uchar)(lpSigValue), C.int(nSigLen), (*C.uchar)(lpData), C.int(nDataLen), (*C.char)(szCertList), C.int(nOptions)))
}

// CMS_ReadSigData writes the content of a signed message to a file, CMS_ReadSigDataToString to nDataOutLen bytes of room and a NUL.
func CMS_ReadSigData(szFileOut unsafe.Pointer, szFileIn unsafe.Pointer, nOptions int32) int32 {
	return int32(C.CMS_ReadSigData((*C.char)(szFileOut), (*C.char)(szFileIn), C.int(nOptions)))
}

// CMS_ReadSigData writes the content of a signed message to a file, CMS_ReadSigDataToString to nDataOutLen bytes of room and a NUL.
func CMS_ReadSigDataToString(szDataOut unsafe.Pointer, nDataOutLen int32, szFileIn unsafe.Pointer, nOptions int32) int32 {
	return int32(C.CMS_ReadSigDataToString((*C.char)(szDataOut), C.int(nDataOutLen), (*C.char)(szFileIn), C.int(nOptions)))
}

// CMS_VerifySigData verifies the signature of a signed message, RSA (PKCS #1 v1.5) with any digest or DSA with SHA-1, and the digest of its content.
func CMS_VerifySigData(szFileIn unsafe.Pointer, szCertFile unsafe.Pointer, szHexDigest unsafe.Pointer, nOptions int32) int32 {
	return int32(C.CMS_VerifySigData((*C.char)(szFileIn), (*C.char)(szCertFile), (*C.char)(szHexDigest), C.int(nOptions)))
}

// CMS_GetSigDataDigest writes the digest of the content that was signed, in lower-case hex.
func CMS_GetSigDataDigest(szHexDigestOut unsafe.Pointer, nDigestLen int32, szFileIn unsafe.Pointer, szCertFile unsafe.Pointer, nOptions int32) int32 {
	return int32(C.CMS_GetSigDataDigest((*C.char)(szHexDigestOut), C.int(nDigestLen), (*C.char)(szFileIn), (*C.char)(szCertFile), C.int(nOptions)))
}

// CMS_QuerySigData answers a query about a signed message of any version, verified or not.
func CMS_QuerySigData(szOutput unsafe.Pointer, nOutChars int32, szFileIn unsafe.Pointer, szQuery unsafe.Pointer, nOptions int32) int32 {
	return int32(C.CMS_QuerySigData((*C.char)(szOutput), C.int(nOutChars), (*C.char)(szFileIn), (*C.char)(szQuery), C.int(nOptions)))
}

// CMS_MakeEnvData encrypts a file for the RSA keys (PKCS #1 v1.5) of up to 10 certificates.
func CMS_MakeEnvData(szFileOut unsafe.Pointer, szFileIn unsafe.Pointer, szCertList unsafe.Pointer, lpSeed unsafe.Pointer, nSeedLen int32, nOptions int32) int32 {
	return int32(C.CMS_MakeEnvData((*C.char)(szFileOut), (*C.char)(szFileIn), (*C.char)(szCertList), (*C.uchar)(lpSeed), C.int(nSeedLen), C.int(nOptions)))
}

// CMS_MakeEnvDataFromString encrypts the bytes of a text, without its NUL, as CMS_MakeEnvData a file.
func CMS_MakeEnvDataFromString(szFileOut unsafe.Pointer, szDataIn unsafe.Pointer, szCertList unsafe.Pointer, lpSeed unsafe.Pointer, nSeedLen int32, nOptions int32) int32 {
	return int32(C.CMS_MakeEnvDataFromString((*C.char)(szFileOut), (*C.char)(szDataIn), (*C.char)(szCertList), (*C.uchar)(lpSeed), C.int(nSeedLen), C.int(nOptions)))
}

// CMS_ReadEnvData decrypts an enveloped message (Triple DES, AES or RC2, CBC) into a file, CMS_ReadEnvDataToString into nDataOutLen bytes of room and a NUL.
func CMS_ReadEnvData(szFileOut unsafe.Pointer, szFileIn unsafe.Pointer, szX509File unsafe.Pointer, szPrivateKey unsafe.Pointer, nOptions int32) int32 {
	return int32(C.CMS_ReadEnvData((*C.char)(szFileOut), (*C.char)(szFileIn), (*C.char)(szX509File), (*C.char)(szPrivateKey), C.int(nOptions)))
}

// CMS_ReadEnvData decrypts an enveloped message (Triple DES, AES or RC2, CBC) into a file, CMS_ReadEnvDataToString into nDataOutLen bytes of room and a NUL.
func CMS_ReadEnvDataToString(szDataOut unsafe.Pointer, nDataOutLen int32, szFileIn unsafe.Pointer, szX509File unsafe.Pointer, szPrivateKey unsafe.Pointer, nOptions int32) int32 {
	return int32(C.CMS_ReadEnvDataToString((*C.char)(szDataOut), C.int(nDataOutLen), (*C.char)(szFileIn), (*C.char)(szX509File), (*C.char)(szPrivateKey), C.int(nOptions)))
}

// CMS_QueryEnvData answers a query about an enveloped message.
func CMS_QueryEnvData(szOutput unsafe.Pointer, nOutChars int32, szFileIn unsafe.Pointer, szQuery unsafe.Pointer, nOptions int32) int32 {
	return int32(C.CMS_QueryEnvData((*C.char)(szOutput), C.int(nOutChars), (*C.char)(szFileIn), (*C.char)(szQuery), C.int(nOptions)))
}

// PFX_MakeFile writes a PFX file.
func PFX_MakeFile(szFileOut unsafe.Pointer, szCertFile unsafe.Pointer, szKeyFile unsafe.Pointer, szPassword unsafe.Pointer, szFriendlyName unsafe.Pointer, nOptions int32) int32 {
	return int32(C.PFX_MakeFile((*C.char)(szFileOut), (*C.char)(szCertFile), (*C.char)(szKeyFile), (*C.char)(szPassword), (*C.char)(szFriendlyName), C.int(nOptions)))
}

// PFX_VerifySig checks the MAC of a PFX file (HMAC with SHA-1, SHA-256, SHA-384 or SHA-512) with a password.
func PFX_VerifySig(szPfxFile unsafe.Pointer, szPassword unsafe.Pointer, nOptions int32) int32 {
	return int32(C.PFX_VerifySig((*C.char)(szPfxFile), (*C.char)(szPassword), C.int(nOptions)))
}

// OCSP_MakeRequest writes an unsigned request about one certificate as base64 in one line.
func OCSP_MakeRequest(szOutput unsafe.Pointer, nChars int32, szIssuerCert unsafe.Pointer, szCertFileOrSerialNum unsafe.Pointer, szExtensions unsafe.Pointer, nOptions int32) int32 {
	return int32(C.OCSP_MakeRequest((*C.char)(szOutput), C.int(nChars), (*C.char)(szIssuerCert), (*C.char)(szCertFileOrSerialNum), (*C.char)(szExtensions), C.int(nOptions)))
}

// OCSP_ReadResponse writes a report of a response, which is a file of DER, PEM or base64, or text.
func OCSP_ReadResponse(szOutput unsafe.Pointer, nChars int32, szResponseFile unsafe.Pointer, szIssuerCert unsafe.Pointer, szExtensions unsafe.Pointer, nOptions int32) int32 {
	return int32(C.OCSP_ReadResponse((*C.char)(szOutput), C.int(nChars), (*C.char)(szResponseFile), (*C.char)(szIssuerCert), (*C.char)(szExtensions), C.int(nOptions)))
}

// HASH_Begin begins a digest.
func HASH_Begin(lpContext unsafe.Pointer, nContextLen int32, szAlgorithm unsafe.Pointer, nOptions int32) int32 {
	return int32(C.HASH_Begin(lpContext, C.int(nContextLen), (*C.char)(szAlgorithm), C.int(nOptions)))
}

// HASH_Add absorbs nDataLen bytes.
func HASH_Add(lpContext unsafe.Pointer, lpData unsafe.Pointer, nDataLen int32) int32 {
	return int32(C.HASH_Add(lpContext, lpData, C.int(nDataLen)))
}

// HASH_End writes the digest, cut to nOutBytes, and wipes the context; of "shake128" and "shake256" it writes nOutBytes bytes.
func HASH_End(lpOutput unsafe.Pointer, nOutBytes int32, lpContext unsafe.Pointer) int32 {
	return int32(C.HASH_End((*C.uchar)(lpOutput), C.int(nOutBytes), lpContext))
}

// HMAC_Begin begins a MAC with a key of any length and a digest that has an HMAC (not "md2", "shake128" and "shake256"); the rest as HASH_Begin.
func HMAC_Begin(lpContext unsafe.Pointer, nContextLen int32, lpKey unsafe.Pointer, nKeyLen int32, szAlgorithm unsafe.Pointer, nOptions int32) int32 {
	return int32(C.HMAC_Begin(lpContext, C.int(nContextLen), lpKey, C.int(nKeyLen), (*C.char)(szAlgorithm), C.int(nOptions)))
}

// HMAC_Add absorbs nDataLen bytes, as HASH_Add.
func HMAC_Add(lpContext unsafe.Pointer, lpData unsafe.Pointer, nDataLen int32) int32 {
	return int32(C.HMAC_Add(lpContext, lpData, C.int(nDataLen)))
}

// HMAC_End writes the MAC, cut to nOutBytes, and wipes the context, as HASH_End.
func HMAC_End(lpOutput unsafe.Pointer, nOutBytes int32, lpContext unsafe.Pointer) int32 {
	return int32(C.HMAC_End((*C.uchar)(lpOutput), C.int(nOutBytes), lpContext))
}

// CIPHER_Begin begins to encrypt (fEncrypt not 0) or decrypt.
func CIPHER_Begin(lpContext unsafe.Pointer, nContextLen int32, fEncrypt int32, lpKey unsafe.Pointer, nKeyLen int32, lpIV unsafe.Pointer, nIVLen int32, szAlgorithm unsafe.Pointer, nOptions int32) int32 {
	return int32(C.CIPHER_Begin(lpContext, C.int(nContextLen), C.int(fEncrypt), (*C.uchar)(lpKey), C.int(nKeyLen), (*C.uchar)(lpIV), C.int(nIVLen), (*C.char)(szAlgorithm), C.int(nOptions)))
}

// CIPHER_Add takes the next piece and writes what is ready, which may be a block less or more than the piece.
func CIPHER_Add(lpOutput unsafe.Pointer, nOutBytes int32, lpContext unsafe.Pointer, lpInput unsafe.Pointer, nInputLen int32) int32 {
	return int32(C.CIPHER_Add((*C.uchar)(lpOutput), C.int(nOutBytes), lpContext, (*C.uchar)(lpInput), C.int(nInputLen)))
}

// CIPHER_End writes the end, at most a block, and wipes the context.
func CIPHER_End(lpOutput unsafe.Pointer, nOutBytes int32, lpContext unsafe.Pointer) int32 {
	return int32(C.CIPHER_End((*C.uchar)(lpOutput), C.int(nOutBytes), lpContext))
}

// AEAD_Encrypt encrypts data and adds a tag of 16 bytes, which also covers lpAad, data that is not encrypted.
func AEAD_Encrypt(lpOutput unsafe.Pointer, nOutBytes int32, lpInput unsafe.Pointer, nInputLen int32, lpKey unsafe.Pointer, nKeyLen int32, lpNonce unsafe.Pointer, nNonceLen int32, lpAad unsafe.Pointer, nAadLen int32, szAlgorithm unsafe.Pointer, nOptions int32) int32 {
	return int32(C.AEAD_Encrypt((*C.uchar)(lpOutput), C.int(nOutBytes), (*C.uchar)(lpInput), C.int(nInputLen), (*C.uchar)(lpKey), C.int(nKeyLen), (*C.uchar)(lpNonce), C.int(nNonceLen), (*C.uchar)(lpAad), C.int(nAadLen), (*C.char)(szAlgorithm), C.int(nOptions)))
}

// AEAD_Decrypt undoes AEAD_Encrypt.
func AEAD_Decrypt(lpOutput unsafe.Pointer, nOutBytes int32, lpInput unsafe.Pointer, nInputLen int32, lpKey unsafe.Pointer, nKeyLen int32, lpNonce unsafe.Pointer, nNonceLen int32, lpAad unsafe.Pointer, nAadLen int32, szAlgorithm unsafe.Pointer, nOptions int32) int32 {
	return int32(C.AEAD_Decrypt((*C.uchar)(lpOutput), C.int(nOutBytes), (*C.uchar)(lpInput), C.int(nInputLen), (*C.uchar)(lpKey), C.int(nKeyLen), (*C.uchar)(lpNonce), C.int(nNonceLen), (*C.uchar)(lpAad), C.int(nAadLen), (*C.char)(szAlgorithm), C.int(nOptions)))
}

// KEY_Make makes a private key.
func KEY_Make(szOutput unsafe.Pointer, nOutChars int32, szAlgorithm unsafe.Pointer, nOptions int32) int32 {
	return int32(C.KEY_Make((*C.char)(szOutput), C.int(nOutChars), (*C.char)(szAlgorithm), C.int(nOptions)))
}

// KEY_Read reads a key, private or public, as a key string.
func KEY_Read(szOutput unsafe.Pointer, nOutChars int32, szFileOrText unsafe.Pointer, szPassword unsafe.Pointer, nOptions int32) int32 {
	return int32(C.KEY_Read((*C.char)(szOutput), C.int(nOutChars), (*C.char)(szFileOrText), (*C.char)(szPassword), C.int(nOptions)))
}

// KEY_Save writes a key to a file, which is replaced in one step.
func KEY_Save(szFileOut unsafe.Pointer, szKey unsafe.Pointer, szPassword unsafe.Pointer, szParameters unsafe.Pointer, nOptions int32) int32 {
	return int32(C.KEY_Save((*C.char)(szFileOut), (*C.char)(szKey), (*C.char)(szPassword), (*C.char)(szParameters), C.int(nOptions)))
}

// KEY_Public gives the public key of a private one.
func KEY_Public(szOutput unsafe.Pointer, nOutChars int32, szPrivateKey unsafe.Pointer) int32 {
	return int32(C.KEY_Public((*C.char)(szOutput), C.int(nOutChars), (*C.char)(szPrivateKey)))
}

// KEY_Query answers a query about a key.
func KEY_Query(szOutput unsafe.Pointer, nOutChars int32, szKey unsafe.Pointer, szQuery unsafe.Pointer, nOptions int32) int32 {
	return int32(C.KEY_Query((*C.char)(szOutput), C.int(nOutChars), (*C.char)(szKey), (*C.char)(szQuery), C.int(nOptions)))
}

// KEY_Match tells whether a private key belongs to a public one.
func KEY_Match(szPrivateKey unsafe.Pointer, szPublicKey unsafe.Pointer) int32 {
	return int32(C.KEY_Match((*C.char)(szPrivateKey), (*C.char)(szPublicKey)))
}

// KEY_Check tells whether a key's values are valid and belong together.
func KEY_Check(szKey unsafe.Pointer, nOptions int32) int32 {
	return int32(C.KEY_Check((*C.char)(szKey), C.int(nOptions)))
}

// KEY_Agree computes the secret that the owners of two key pairs share.
func KEY_Agree(lpOutput unsafe.Pointer, nOutBytes int32, szPrivateKey unsafe.Pointer, szPublicKey unsafe.Pointer, nOptions int32) int32 {
	return int32(C.KEY_Agree((*C.uchar)(lpOutput), C.int(nOutBytes), (*C.char)(szPrivateKey), (*C.char)(szPublicKey), C.int(nOptions)))
}

// SIG_Sign signs data.
func SIG_Sign(lpOutput unsafe.Pointer, nOutBytes int32, lpData unsafe.Pointer, nDataLen int32, szPrivateKey unsafe.Pointer, szAlgorithm unsafe.Pointer, nOptions int32) int32 {
	return int32(C.SIG_Sign((*C.uchar)(lpOutput), C.int(nOutBytes), (*C.uchar)(lpData), C.int(nDataLen), (*C.char)(szPrivateKey), (*C.char)(szAlgorithm), C.int(nOptions)))
}

// SIG_Verify verifies a signature of data.
func SIG_Verify(lpSignature unsafe.Pointer, nSigLen int32, lpData unsafe.Pointer, nDataLen int32, szPublicKey unsafe.Pointer, szAlgorithm unsafe.Pointer, nOptions int32) int32 {
	return int32(C.SIG_Verify((*C.uchar)(lpSignature), C.int(nSigLen), (*C.uchar)(lpData), C.int(nDataLen), (*C.char)(szPublicKey), (*C.char)(szAlgorithm), C.int(nOptions)))
}

// SIG_SignFile signs the content of a file of any size.
func SIG_SignFile(lpOutput unsafe.Pointer, nOutBytes int32, szFileIn unsafe.Pointer, szPrivateKey unsafe.Pointer, szAlgorithm unsafe.Pointer, nOptions int32) int32 {
	return int32(C.SIG_SignFile((*C.uchar)(lpOutput), C.int(nOutBytes), (*C.char)(szFileIn), (*C.char)(szPrivateKey), (*C.char)(szAlgorithm), C.int(nOptions)))
}

// SIG_VerifyFile verifies a signature of the content of a file of any size.
func SIG_VerifyFile(lpSignature unsafe.Pointer, nSigLen int32, szFileIn unsafe.Pointer, szPublicKey unsafe.Pointer, szAlgorithm unsafe.Pointer, nOptions int32) int32 {
	return int32(C.SIG_VerifyFile((*C.uchar)(lpSignature), C.int(nSigLen), (*C.char)(szFileIn), (*C.char)(szPublicKey), (*C.char)(szAlgorithm), C.int(nOptions)))
}

// SIG_SignDigest signs data whose digest is given.
func SIG_SignDigest(lpOutput unsafe.Pointer, nOutBytes int32, lpDigest unsafe.Pointer, nDigestLen int32, szPrivateKey unsafe.Pointer, szAlgorithm unsafe.Pointer, nOptions int32) int32 {
	return int32(C.SIG_SignDigest((*C.uchar)(lpOutput), C.int(nOutBytes), (*C.uchar)(lpDigest), C.int(nDigestLen), (*C.char)(szPrivateKey), (*C.char)(szAlgorithm), C.int(nOptions)))
}

// SIG_VerifyDigest verifies a signature of data whose digest is given.
func SIG_VerifyDigest(lpSignature unsafe.Pointer, nSigLen int32, lpDigest unsafe.Pointer, nDigestLen int32, szPublicKey unsafe.Pointer, szAlgorithm unsafe.Pointer, nOptions int32) int32 {
	return int32(C.SIG_VerifyDigest((*C.uchar)(lpSignature), C.int(nSigLen), (*C.uchar)(lpDigest), C.int(nDigestLen), (*C.char)(szPublicKey), (*C.char)(szAlgorithm), C.int(nOptions)))
}

// SEAL_MakeIdentity makes an identity.
func SEAL_MakeIdentity(szOutput unsafe.Pointer, nOutChars int32, nOptions int32) int32 {
	return int32(C.SEAL_MakeIdentity((*C.char)(szOutput), C.int(nOutChars), C.int(nOptions)))
}

// SEAL_Recipient gives the recipient of an identity.
func SEAL_Recipient(szOutput unsafe.Pointer, nOutChars int32, szIdentity unsafe.Pointer) int32 {
	return int32(C.SEAL_Recipient((*C.char)(szOutput), C.int(nOutChars), (*C.char)(szIdentity)))
}

// SEAL_File encrypts a file, either for recipients or under a password (scrypt with a work factor of 2^18).
func SEAL_File(szFileOut unsafe.Pointer, szFileIn unsafe.Pointer, szRecipients unsafe.Pointer, szPassword unsafe.Pointer, nOptions int32) int32 {
	return int32(C.SEAL_File((*C.char)(szFileOut), (*C.char)(szFileIn), (*C.char)(szRecipients), (*C.char)(szPassword), C.int(nOptions)))
}

// SEAL_OpenFile decrypts a file, in armour or not.
func SEAL_OpenFile(szFileOut unsafe.Pointer, szFileIn unsafe.Pointer, szIdentities unsafe.Pointer, szPassword unsafe.Pointer, nOptions int32) int32 {
	return int32(C.SEAL_OpenFile((*C.char)(szFileOut), (*C.char)(szFileIn), (*C.char)(szIdentities), (*C.char)(szPassword), C.int(nOptions)))
}

// P12_Pack writes a PKCS #12 file, which is replaced in one step, of a private key and certificates.
func P12_Pack(szFileOut unsafe.Pointer, szCerts unsafe.Pointer, szPrivateKey unsafe.Pointer, szPassword unsafe.Pointer, szName unsafe.Pointer, nOptions int32) int32 {
	return int32(C.P12_Pack((*C.char)(szFileOut), (*C.char)(szCerts), (*C.char)(szPrivateKey), (*C.char)(szPassword), (*C.char)(szName), C.int(nOptions)))
}

// P12_Unpack reads a PKCS #12 file.
func P12_Unpack(szCertsOut unsafe.Pointer, szKeyOutput unsafe.Pointer, nKeyChars int32, szP12 unsafe.Pointer, szPassword unsafe.Pointer, nOptions int32) int32 {
	return int32(C.P12_Unpack((*C.char)(szCertsOut), (*C.char)(szKeyOutput), C.int(nKeyChars), (*C.char)(szP12), (*C.char)(szPassword), C.int(nOptions)))
}

// P12_List describes a PKCS #12 file in UTF-8.
func P12_List(szOutput unsafe.Pointer, nOutChars int32, szP12 unsafe.Pointer, szPassword unsafe.Pointer, nOptions int32) int32 {
	return int32(C.P12_List((*C.char)(szOutput), C.int(nOutChars), (*C.char)(szP12), (*C.char)(szPassword), C.int(nOptions)))
}

// CERT_SelfSign makes a certificate that its own key signs.
func CERT_SelfSign(szCertOut unsafe.Pointer, szPrivateKey unsafe.Pointer, szDescription unsafe.Pointer, nOptions int32) int32 {
	return int32(C.CERT_SelfSign((*C.char)(szCertOut), (*C.char)(szPrivateKey), (*C.char)(szDescription), C.int(nOptions)))
}

// CERT_Issue makes a certificate that an authority signs.
func CERT_Issue(szCertOut unsafe.Pointer, szIssuerCert unsafe.Pointer, szIssuerKey unsafe.Pointer, szSubjectKeyOrRequest unsafe.Pointer, szDescription unsafe.Pointer, nOptions int32) int32 {
	return int32(C.CERT_Issue((*C.char)(szCertOut), (*C.char)(szIssuerCert), (*C.char)(szIssuerKey), (*C.char)(szSubjectKeyOrRequest), (*C.char)(szDescription), C.int(nOptions)))
}

// CERT_Request makes a certificate request (PKCS #10).
func CERT_Request(szRequestOut unsafe.Pointer, szPrivateKey unsafe.Pointer, szDescription unsafe.Pointer, nOptions int32) int32 {
	return int32(C.CERT_Request((*C.char)(szRequestOut), (*C.char)(szPrivateKey), (*C.char)(szDescription), C.int(nOptions)))
}

// CERT_IssueCRL makes a CRL of version 2 (RFC 5280).
func CERT_IssueCRL(szCrlOut unsafe.Pointer, szIssuerCert unsafe.Pointer, szIssuerKey unsafe.Pointer, szEarlierCrl unsafe.Pointer, szRevoked unsafe.Pointer, szDescription unsafe.Pointer, nOptions int32) int32 {
	return int32(C.CERT_IssueCRL((*C.char)(szCrlOut), (*C.char)(szIssuerCert), (*C.char)(szIssuerKey), (*C.char)(szEarlierCrl), (*C.char)(szRevoked), (*C.char)(szDescription), C.int(nOptions)))
}

// CERT_Query answers one query about a certificate, request, CRL or OCSP response, the first one in szCert.
func CERT_Query(szOutput unsafe.Pointer, nOutChars int32, szCert unsafe.Pointer, szQuery unsafe.Pointer, nOptions int32) int32 {
	return int32(C.CERT_Query((*C.char)(szOutput), C.int(nOutChars), (*C.char)(szCert), (*C.char)(szQuery), C.int(nOptions)))
}

// CERT_Report writes all that certificates, requests, CRLs and OCSP responses hold.
func CERT_Report(szOutput unsafe.Pointer, nOutChars int32, szFileOrText unsafe.Pointer, nOptions int32) int32 {
	return int32(C.CERT_Report((*C.char)(szOutput), C.int(nOutChars), (*C.char)(szFileOrText), C.int(nOptions)))
}

// CERT_CheckName tells whether a certificate, the first one in szCert, is for a host, an address or a mailbox (RFC 9525).
func CERT_CheckName(szCert unsafe.Pointer, szHostOrAddress unsafe.Pointer, nOptions int32) int32 {
	return int32(C.CERT_CheckName((*C.char)(szCert), (*C.char)(szHostOrAddress), C.int(nOptions)))
}

// CERT_CheckPath tells whether a certificate can be relied on.
func CERT_CheckPath(szReport unsafe.Pointer, nReportChars int32, szCert unsafe.Pointer, szOthers unsafe.Pointer, szTrusted unsafe.Pointer, szEvidence unsafe.Pointer, szConditions unsafe.Pointer, nOptions int32) int32 {
	return int32(C.CERT_CheckPath((*C.char)(szReport), C.int(nReportChars), (*C.char)(szCert), (*C.char)(szOthers), (*C.char)(szTrusted), (*C.char)(szEvidence), (*C.char)(szConditions), C.int(nOptions)))
}
