# Made from include/zulcore.h by scripts/make_bindings.py.
"""Every constant and function of the library as it is: results are ints, and nothing is checked. Buffers for output, and
for input that changes or is wiped, are arrays of ctypes.c_char; constant input may be bytes."""
from __future__ import annotations

import ctypes
import enum
from typing import Any, Callable, Optional, Union

from ._load import load_library

Output = Optional["ctypes.Array[ctypes.c_char]"]
Input = Optional[Union[bytes, "ctypes.Array[ctypes.c_char]"]]

library = load_library()


def _bind(name: str, *types: Any) -> Callable[..., int]:
    function = getattr(library, name)
    function.argtypes = types
    function.restype = ctypes.c_int
    bound: Callable[..., int] = function
    return bound


class ErrorCode(enum.IntEnum):
    """The codes of failures."""
    SUCCESS_ERROR = 0
    OPEN_ERROR = 1
    CREATE_ERROR = 2
    READ_ERROR = 3
    WRITE_ERROR = 4
    MEMORY_ERROR = 5
    BAD_PARAM_ERROR = 6
    BAD_FORMAT_ERROR = 7
    INVALID_DATA_ERROR = 8
    EOF_ERROR = 9
    OUT_OF_RANGE_ERROR = 11
    DUP_ERROR = 12
    IO_ERROR = 13
    NULL_ERROR = 14
    DECRYPT_ERROR = 15
    EXPIRED_ERROR = 16
    BAD_FLAG_ERROR = 17
    WIPE_ERROR = 18
    NOT_SUPPORTED_ERROR = 19
    NO_DATA_ERROR = 20
    NO_MATCH_ERROR = 21
    SIGNATURE_ERROR = 22
    TEST_FAILED_ERROR = 23
    KEYGEN_FAILED_ERROR = 24
    ISSUER_ERROR = 25
    BAD_LENGTH_ERROR = 26
    BAD_XML_ERROR = 27
    MSG_TOO_LONG_ERROR = 28
    BAD_QUERY_ERROR = 29
    SHORT_BUF_ERROR = 30
    BAD_KEY_LEN_ERROR = 33
    BAD_BLK_LEN_ERROR = 34
    BAD_MODE_ERROR = 35
    BAD_KEY_ERROR = 36
    BAD_IV_ERROR = 37
    PRNG_ERR_FILE_OPEN = 201
    PRNG_ERR_FILE_CREATE = 202
    PRNG_ERR_FILE_READ = 203
    PRNG_ERR_FILE_WRITE = 204
    PRNG_ERR_FILE_LOCK = 205
    PRNG_ERR_UNINST = 210
    PRNG_ERR_TOOBIG = 211
    PRNG_ERR_FAILURE = 212
    PRNG_ERR_BADPARAM = 213
    PRNG_ERR_NOTAVAIL = 214
    PRNG_ERR_CATASTROPHIC = 299
    MISC_ERROR = 9999


# ZUL_ModuleName
ZUL_MODULE_PLATFORM = 0x40

# CNV_ByteEncoding
ZUL_CNV_UTF8_FROM_LATIN1 = 0x1
ZUL_CNV_LATIN1_FROM_UTF8 = 0x2

# Digest algorithms: bits 0-3 of the options of HASH_ and HMAC_
ZUL_HASH_SHA1 = 0
ZUL_HASH_MD5 = 1
ZUL_HASH_MD2 = 2
ZUL_HASH_SHA256 = 3
ZUL_HASH_SHA384 = 4
ZUL_HASH_SHA512 = 5
ZUL_HASH_SHA224 = 6
ZUL_HASH_SHA1_RNG = 7
ZUL_HASH_MODE_TEXT = 0x10000

# Block ciphers (bits 4-7) and modes (bits 8-11) of the options of CIPHER_
ZUL_CIPHER_TDEA = 0x10
ZUL_CIPHER_AES128 = 0x20
ZUL_CIPHER_AES192 = 0x30
ZUL_CIPHER_AES256 = 0x40
ZUL_MODE_ECB = 0x000
ZUL_MODE_CBC = 0x100
ZUL_MODE_OFB = 0x200
ZUL_MODE_CFB = 0x300
ZUL_MODE_CTR = 0x400

# RNG_BytesWithPrompt, RNG_MakeSeedFile
ZUL_RNG_MORE_EVENTS = 0x1

# RSA key files: format, or progress of RSA_MakeKeys
ZUL_KEY_SHOW_PROGRESS = 0x10
ZUL_KEY_FORMAT_PEM = 0x10000
ZUL_KEY_FORMAT_PEM_ALT = 0x20000

# Password-based encryption of private keys. With ZUL_PBE_PBES2 one cipher may be added, and a digest
# (ZUL_HASH_SHA256, SHA384 or SHA512) for the HMAC that derives the key.
ZUL_PBE_SHA_3DES = 0
ZUL_PBE_MD5_DES = 1
ZUL_PBE_MD2_DES = 2
ZUL_PBE_SHA1_DES = 3
ZUL_PBE_PBES2_DEFAULT = 4
ZUL_PBE_PBES2 = 0x1000
ZUL_PBE_CIPHER_AES128 = 0x20
ZUL_PBE_CIPHER_AES192 = 0x30
ZUL_PBE_CIPHER_AES256 = 0x40

# RSA_ToXMLString
ZUL_XML_RSAKEYVALUE = 0x1
ZUL_XML_PUBLIC_ONLY = 0x10
ZUL_XML_HEXBINARY = 0x100

# RSA_RawPublic, RSA_RawPrivate: the trailer of the RSA2 forms
ZUL_RSA2_TRAILER6 = 6
ZUL_RSA2_TRAILERC = 12

# RSA_EncodeMsg, RSA_DecodeMsg: an encoding, with a digest algorithm where it has one
ZUL_EME_PKCSV1_5 = 0x00
ZUL_EME_OAEP = 0x10
ZUL_EMSIG_PKCSV1_5 = 0x20
ZUL_EMSIG_DIGESTONLY = 0x1000
ZUL_EMSIG_DIGINFO = 0x2000
ZUL_EMSIG_GETALG = 0x8000
ZUL_EMSIG_ISO9796 = 0x100000

# X509_: bits of the options. A digest algorithm (ZUL_HASH_) may be added where one is chosen.
ZUL_X509_FORMAT_PEM = 0x10000
ZUL_X509_REQ_DER = 0x20000
ZUL_X509_REQ_NOATTRS = 0x100000
ZUL_QUERY_GETTYPE = 0x100000
ZUL_X509_LATIN1 = 0x400000
ZUL_X509_UTF8 = 0x800000
ZUL_X509_AUTHKEYID = 0x1000000
ZUL_X509_NO_BASIC = 0x2000000
ZUL_X509_SET_CA = 0x4000000
ZUL_X509_VERSION1 = 0x8000000

# Key usage (RFC 5280, 4.2.1.3): the nKeyUsageFlags of X509_MakeCert, the result of X509_KeyUsageFlags
ZUL_KEYUSAGE_DIGITALSIGNATURE = 0x001
ZUL_KEYUSAGE_NONREPUDIATION = 0x002
ZUL_KEYUSAGE_KEYENCIPHERMENT = 0x004
ZUL_KEYUSAGE_DATAENCIPHERMENT = 0x008
ZUL_KEYUSAGE_KEYAGREEMENT = 0x010
ZUL_KEYUSAGE_KEYCERTSIGN = 0x020
ZUL_KEYUSAGE_CRLSIGN = 0x040
ZUL_KEYUSAGE_ENCIPHERONLY = 0x080
ZUL_KEYUSAGE_DECIPHERONLY = 0x100

# CMS_ signed messages; a ZUL_HASH_ algorithm and, for enveloped ones, a ZUL_CMS_CIPHER_ go with them.
ZUL_CMS_EXCLUDE_CERTS = 0x100
ZUL_CMS_EXCLUDE_DATA = 0x200
ZUL_CMS_CERTS_ONLY = 0x400
ZUL_CMS_INCLUDE_ATTRS = 0x800
ZUL_CMS_ADD_SIGNTIME = 0x1000
ZUL_CMS_ADD_SMIMECAPS = 0x2000
ZUL_CMS_FORMAT_BASE64 = 0x10000
ZUL_CMS_BARE_SIGNEDDATA = 0x2000000
ZUL_CMS_NAMED_SIGALG = 0x4000000
ZUL_CMS_CIPHER_TDEA = 0x10
ZUL_CMS_CIPHER_AES128 = 0x20
ZUL_CMS_CIPHER_AES192 = 0x30
ZUL_CMS_CIPHER_AES256 = 0x40

# PFX_
ZUL_PFX_NO_PRIVKEY = 0x10

# CIPHER_Begin
ZUL_CIPHER_NO_PADDING = 0x1

# AEAD_Encrypt, AEAD_Decrypt
ZUL_AEAD_RANDOM_NONCE = 0x1

# KEY_Save: beside ZUL_KEY_FORMAT_PEM, the structure that the kind of key has of its own
ZUL_KEY_FORMAT_OWN = 0x40000

# SIG_
ZUL_SIG_RAW = 0x1
ZUL_SIG_DETERMINISTIC = 0x2

# SEAL_
ZUL_SEAL_ARMOUR = 0x1
ZUL_SEAL_STDIN = 0x2
ZUL_SEAL_STDOUT = 0x4

# CERT_
ZUL_CERT_DER = 0x1
ZUL_CERT_BEYOND_ISSUER = 0x2
ZUL_CERT_JSON = 0x10
ZUL_CERT_SUBJECT_NAME = 0x20
ZUL_CERT_WEB = 0x40

# P12_. P12_Unpack: the number of the key, from 0, in the low byte
ZUL_P12_LEGACY = 0x100
ZUL_P12_PBMAC1 = 0x200
ZUL_P12_TRUSTED = 0x400
ZUL_P12_NEED_MAC = 0x800
ZUL_P12_JSON = 0x1000


_ZUL_ErrorCode = _bind("ZUL_ErrorCode")


def ZUL_ErrorCode() -> int:
    """ZUL_ErrorCode returns the error code that the thread's last call recorded, always positive; 0 if
    none."""
    return _ZUL_ErrorCode()


_ZUL_LastError = _bind("ZUL_LastError", ctypes.c_char_p, ctypes.c_int)


def ZUL_LastError(szOutput: Output, nOutChars: int) -> int:
    """ZUL_LastError copies the thread's last error text (at most 511 characters; often empty)."""
    return _ZUL_LastError(szOutput, nOutChars)


_ZUL_ErrorLookup = _bind("ZUL_ErrorLookup", ctypes.c_char_p, ctypes.c_int, ctypes.c_int)


def ZUL_ErrorLookup(szOutput: Output, nOutChars: int, nErrCode: int) -> int:
    """ZUL_ErrorLookup copies the text of an error code of either sign."""
    return _ZUL_ErrorLookup(szOutput, nOutChars, nErrCode)


_ZUL_ModuleName = _bind("ZUL_ModuleName", ctypes.c_char_p, ctypes.c_int, ctypes.c_int)


def ZUL_ModuleName(szOutput: Output, nOutChars: int, nOptions: int) -> int:
    """ZUL_ModuleName copies the full path of the library's own file (nOptions 0; at most 260 characters) or
    the word for its platform, "Win64" or "Lin64" (ZUL_MODULE_PLATFORM)."""
    return _ZUL_ModuleName(szOutput, nOutChars, nOptions)


_ZUL_Version = _bind("ZUL_Version", ctypes.c_void_p, ctypes.c_void_p)


def ZUL_Version(pReserved1: Output, pReserved2: Output) -> int:
    """ZUL_Version returns major * 100 + minor * 10 + release."""
    return _ZUL_Version(pReserved1, pReserved2)


_ZUL_CompileTime = _bind("ZUL_CompileTime", ctypes.c_char_p, ctypes.c_int)


def ZUL_CompileTime(szOutput: Output, nOutChars: int) -> int:
    """ZUL_CompileTime copies the date and time of the build, as "Nov  1 2026 09:08:07"."""
    return _ZUL_CompileTime(szOutput, nOutChars)


_ZUL_PowerUpTests = _bind("ZUL_PowerUpTests", ctypes.c_int)


def ZUL_PowerUpTests(nOptions: int) -> int:
    """ZUL_PowerUpTests repeats the tests that the module ran when it was loaded."""
    return _ZUL_PowerUpTests(nOptions)


_WIPE_Data = _bind("WIPE_Data", ctypes.c_void_p, ctypes.c_int)


def WIPE_Data(lpData: Output, nDataLen: int) -> int:
    """WIPE_Data overwrites nDataLen bytes with zero."""
    return _WIPE_Data(lpData, nDataLen)


_WIPE_File = _bind("WIPE_File", ctypes.c_char_p, ctypes.c_int)


def WIPE_File(szFileName: Input, nOptions: int) -> int:
    """WIPE_File overwrites a file seven times, commits each pass to the disk, and deletes the file."""
    return _WIPE_File(szFileName, nOptions)


_CNV_HexStrFromBytes = _bind("CNV_HexStrFromBytes", ctypes.c_char_p, ctypes.c_int, ctypes.c_void_p,
        ctypes.c_int)


def CNV_HexStrFromBytes(szOutput: Output, nOutChars: int, lpInput: Input, nInputLen: int) -> int:
    """CNV_HexStrFromBytes writes two upper-case hex digits for each byte."""
    return _CNV_HexStrFromBytes(szOutput, nOutChars, lpInput, nInputLen)


_CNV_BytesFromHexStr = _bind("CNV_BytesFromHexStr", ctypes.c_void_p, ctypes.c_int, ctypes.c_char_p)


def CNV_BytesFromHexStr(lpOutput: Output, nOutBytes: int, szInput: Input) -> int:
    """CNV_BytesFromHexStr decodes hex digits of either case, skipping every other character; a single digit
    left over is dropped."""
    return _CNV_BytesFromHexStr(lpOutput, nOutBytes, szInput)


_CNV_HexFilter = _bind("CNV_HexFilter", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int)


def CNV_HexFilter(szOutput: Output, szInput: Input, nStrLen: int) -> int:
    """CNV_HexFilter copies the hex digits among the first nStrLen characters."""
    return _CNV_HexFilter(szOutput, szInput, nStrLen)


_CNV_B64StrFromBytes = _bind("CNV_B64StrFromBytes", ctypes.c_char_p, ctypes.c_int, ctypes.c_void_p,
        ctypes.c_int)


def CNV_B64StrFromBytes(szOutput: Output, nOutChars: int, lpInput: Input, nInputLen: int) -> int:
    """CNV_B64StrFromBytes writes base64 (RFC 4648) in one line."""
    return _CNV_B64StrFromBytes(szOutput, nOutChars, lpInput, nInputLen)


_CNV_BytesFromB64Str = _bind("CNV_BytesFromB64Str", ctypes.c_void_p, ctypes.c_int, ctypes.c_char_p)


def CNV_BytesFromB64Str(lpOutput: Output, nOutBytes: int, szInput: Input) -> int:
    """CNV_BytesFromB64Str decodes base64 up to the first "=", skipping characters outside the alphabet."""
    return _CNV_BytesFromB64Str(lpOutput, nOutBytes, szInput)


_CNV_B64Filter = _bind("CNV_B64Filter", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int)


def CNV_B64Filter(szOutput: Output, szInput: Input, nStrLen: int) -> int:
    """CNV_B64Filter is CNV_HexFilter for the base64 alphabet and "="."""
    return _CNV_B64Filter(szOutput, szInput, nStrLen)


_CNV_CheckUTF8 = _bind("CNV_CheckUTF8", ctypes.c_char_p)


def CNV_CheckUTF8(szInput: Input) -> int:
    """CNV_CheckUTF8 classifies a text."""
    return _CNV_CheckUTF8(szInput)


_CNV_CheckUTF8Bytes = _bind("CNV_CheckUTF8Bytes", ctypes.c_void_p, ctypes.c_int)


def CNV_CheckUTF8Bytes(lpInput: Input, nBytes: int) -> int:
    """CNV_CheckUTF8Bytes is CNV_CheckUTF8 over nBytes bytes."""
    return _CNV_CheckUTF8Bytes(lpInput, nBytes)


_CNV_UTF8FromLatin1 = _bind("CNV_UTF8FromLatin1", ctypes.c_char_p, ctypes.c_int, ctypes.c_char_p)


def CNV_UTF8FromLatin1(szOutput: Output, nOutChars: int, szInput: Input) -> int:
    """CNV_UTF8FromLatin1 converts Latin-1 text to UTF-8 text."""
    return _CNV_UTF8FromLatin1(szOutput, nOutChars, szInput)


_CNV_Latin1FromUTF8 = _bind("CNV_Latin1FromUTF8", ctypes.c_char_p, ctypes.c_int, ctypes.c_char_p)


def CNV_Latin1FromUTF8(szOutput: Output, nOutChars: int, szInput: Input) -> int:
    """CNV_Latin1FromUTF8 converts UTF-8 text to Latin-1 text."""
    return _CNV_Latin1FromUTF8(szOutput, nOutChars, szInput)


_CNV_UTF8BytesFromLatin1 = _bind("CNV_UTF8BytesFromLatin1", ctypes.c_void_p, ctypes.c_int, ctypes.c_char_p)


def CNV_UTF8BytesFromLatin1(lpOutput: Output, nOutBytes: int, szInput: Input) -> int:
    """CNV_UTF8BytesFromLatin1 is CNV_UTF8FromLatin1 without the NUL; nOutBytes is the room in bytes."""
    return _CNV_UTF8BytesFromLatin1(lpOutput, nOutBytes, szInput)


_CNV_Latin1FromUTF8Bytes = _bind("CNV_Latin1FromUTF8Bytes", ctypes.c_char_p, ctypes.c_int, ctypes.c_void_p,
        ctypes.c_int)


def CNV_Latin1FromUTF8Bytes(szOutput: Output, nOutChars: int, lpInput: Input, nBytes: int) -> int:
    """CNV_Latin1FromUTF8Bytes is CNV_Latin1FromUTF8 over nBytes bytes."""
    return _CNV_Latin1FromUTF8Bytes(szOutput, nOutChars, lpInput, nBytes)


_CNV_ByteEncoding = _bind("CNV_ByteEncoding", ctypes.c_void_p, ctypes.c_int, ctypes.c_void_p, ctypes.c_int,
        ctypes.c_int)


def CNV_ByteEncoding(lpOutput: Output, nOutBytes: int, lpInput: Input, nBytes: int, nOptions: int) -> int:
    """CNV_ByteEncoding converts bytes."""
    return _CNV_ByteEncoding(lpOutput, nOutBytes, lpInput, nBytes, nOptions)


_PEM_FileFromBinFile = _bind("PEM_FileFromBinFile", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_char_p,
        ctypes.c_int)


def PEM_FileFromBinFile(szFileOut: Input, szFileIn: Input, szHeader: Input, nLineLen: int) -> int:
    """PEM_FileFromBinFile writes a file's content as base64 lines ended by CR LF, between BEGIN and END lines
    if szHeader (the label) is not null or empty."""
    return _PEM_FileFromBinFile(szFileOut, szFileIn, szHeader, nLineLen)


_PEM_FileToBinFile = _bind("PEM_FileToBinFile", ctypes.c_char_p, ctypes.c_char_p)


def PEM_FileToBinFile(szFileOut: Input, szFileIn: Input) -> int:
    """PEM_FileToBinFile decodes the first armoured body of a file, whatever its label."""
    return _PEM_FileToBinFile(szFileOut, szFileIn)


_HASH_Bytes = _bind("HASH_Bytes", ctypes.c_void_p, ctypes.c_int, ctypes.c_void_p, ctypes.c_int, ctypes.c_int)


def HASH_Bytes(lpDigest: Output, nDigLen: int, lpMessage: Input, nMsgLen: int, nOptions: int) -> int:
    """HASH_Bytes writes the digest of a message of nMsgLen bytes."""
    return _HASH_Bytes(lpDigest, nDigLen, lpMessage, nMsgLen, nOptions)


_HASH_File = _bind("HASH_File", ctypes.c_void_p, ctypes.c_int, ctypes.c_char_p, ctypes.c_int)


def HASH_File(lpDigest: Output, nDigLen: int, szFileName: Input, nOptions: int) -> int:
    """HASH_File writes the digest of a file of any size."""
    return _HASH_File(lpDigest, nDigLen, szFileName, nOptions)


_HASH_HexFromBytes = _bind("HASH_HexFromBytes", ctypes.c_char_p, ctypes.c_int, ctypes.c_void_p, ctypes.c_int,
        ctypes.c_int)


def HASH_HexFromBytes(szOutput: Output, nOutChars: int, lpMessage: Input, nMsgLen: int, nOptions: int) -> int:
    """HASH_HexFromBytes is HASH_Bytes with lower-case hex as output."""
    return _HASH_HexFromBytes(szOutput, nOutChars, lpMessage, nMsgLen, nOptions)


_HASH_HexFromFile = _bind("HASH_HexFromFile", ctypes.c_char_p, ctypes.c_int, ctypes.c_char_p, ctypes.c_int)


def HASH_HexFromFile(szOutput: Output, nOutChars: int, szFileName: Input, nOptions: int) -> int:
    """HASH_HexFromFile is HASH_File with lower-case hex as output."""
    return _HASH_HexFromFile(szOutput, nOutChars, szFileName, nOptions)


_HASH_HexFromHex = _bind("HASH_HexFromHex", ctypes.c_char_p, ctypes.c_int, ctypes.c_char_p, ctypes.c_int)


def HASH_HexFromHex(szOutput: Output, nOutChars: int, szMsgHex: Input, nOptions: int) -> int:
    """HASH_HexFromHex is HASH_HexFromBytes over a message in hex."""
    return _HASH_HexFromHex(szOutput, nOutChars, szMsgHex, nOptions)


_HMAC_Bytes = _bind("HMAC_Bytes", ctypes.c_void_p, ctypes.c_int, ctypes.c_void_p, ctypes.c_int,
        ctypes.c_void_p, ctypes.c_int, ctypes.c_int)


def HMAC_Bytes(lpDigest: Output, nDigLen: int, lpMessage: Input, nMsgLen: int, lpKey: Input, nKeyLen: int,
        nOptions: int) -> int:
    """HMAC_Bytes writes the MAC of a message."""
    return _HMAC_Bytes(lpDigest, nDigLen, lpMessage, nMsgLen, lpKey, nKeyLen, nOptions)


_HMAC_HexFromBytes = _bind("HMAC_HexFromBytes", ctypes.c_char_p, ctypes.c_int, ctypes.c_void_p, ctypes.c_int,
        ctypes.c_void_p, ctypes.c_int, ctypes.c_int)


def HMAC_HexFromBytes(szOutput: Output, nOutChars: int, lpMessage: Input, nMsgLen: int, lpKey: Input,
        nKeyLen: int, nOptions: int) -> int:
    """HMAC_HexFromBytes is HMAC_Bytes with lower-case hex as output."""
    return _HMAC_HexFromBytes(szOutput, nOutChars, lpMessage, nMsgLen, lpKey, nKeyLen, nOptions)


_HMAC_HexFromHex = _bind("HMAC_HexFromHex", ctypes.c_char_p, ctypes.c_int, ctypes.c_char_p, ctypes.c_char_p,
        ctypes.c_int)


def HMAC_HexFromHex(szOutput: Output, nOutChars: int, szMsgHex: Input, szKeyHex: Input, nOptions: int) -> int:
    """HMAC_HexFromHex is HMAC_HexFromBytes over a message and key in hex."""
    return _HMAC_HexFromHex(szOutput, nOutChars, szMsgHex, szKeyHex, nOptions)


_KDF_Pbkdf2 = _bind("KDF_Pbkdf2", ctypes.c_void_p, ctypes.c_int, ctypes.c_void_p, ctypes.c_int,
        ctypes.c_void_p, ctypes.c_int, ctypes.c_int, ctypes.c_char_p)


def KDF_Pbkdf2(lpOutput: Output, nOutBytes: int, lpPassword: Input, nPwdLen: int, lpSalt: Input,
        nSaltLen: int, nIterations: int, szHash: Input) -> int:
    """KDF_Pbkdf2 is PBKDF2 of RFC 8018 with HMAC."""
    return _KDF_Pbkdf2(lpOutput, nOutBytes, lpPassword, nPwdLen, lpSalt, nSaltLen, nIterations, szHash)


_KDF_Hkdf = _bind("KDF_Hkdf", ctypes.c_void_p, ctypes.c_int, ctypes.c_void_p, ctypes.c_int, ctypes.c_void_p,
        ctypes.c_int, ctypes.c_void_p, ctypes.c_int, ctypes.c_char_p)


def KDF_Hkdf(lpOutput: Output, nOutBytes: int, lpKey: Input, nKeyLen: int, lpSalt: Input, nSaltLen: int,
        lpInfo: Input, nInfoLen: int, szHash: Input) -> int:
    """KDF_Hkdf is HKDF of RFC 5869, extract and expand."""
    return _KDF_Hkdf(lpOutput, nOutBytes, lpKey, nKeyLen, lpSalt, nSaltLen, lpInfo, nInfoLen, szHash)


_KDF_Scrypt = _bind("KDF_Scrypt", ctypes.c_void_p, ctypes.c_int, ctypes.c_void_p, ctypes.c_int,
        ctypes.c_void_p, ctypes.c_int, ctypes.c_int, ctypes.c_int, ctypes.c_int)


def KDF_Scrypt(lpOutput: Output, nOutBytes: int, lpPassword: Input, nPwdLen: int, lpSalt: Input,
        nSaltLen: int, nN: int, nR: int, nP: int) -> int:
    """KDF_Scrypt is scrypt of RFC 7914."""
    return _KDF_Scrypt(lpOutput, nOutBytes, lpPassword, nPwdLen, lpSalt, nSaltLen, nN, nR, nP)


_KDF_Argon2id = _bind("KDF_Argon2id", ctypes.c_void_p, ctypes.c_int, ctypes.c_void_p, ctypes.c_int,
        ctypes.c_void_p, ctypes.c_int, ctypes.c_int, ctypes.c_int, ctypes.c_int)


def KDF_Argon2id(lpOutput: Output, nOutBytes: int, lpPassword: Input, nPwdLen: int, lpSalt: Input,
        nSaltLen: int, nMemoryKiB: int, nPasses: int, nLanes: int) -> int:
    """KDF_Argon2id is Argon2id of RFC 9106, version 0x13, without secret and associated data."""
    return _KDF_Argon2id(lpOutput, nOutBytes, lpPassword, nPwdLen, lpSalt, nSaltLen, nMemoryKiB, nPasses,
        nLanes)


_CIPHER_Bytes = _bind("CIPHER_Bytes", ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p, ctypes.c_int,
        ctypes.c_void_p, ctypes.c_void_p, ctypes.c_char_p, ctypes.c_int)


def CIPHER_Bytes(fEncrypt: int, lpOutput: Output, lpInput: Input, nBytes: int, lpKey: Input, lpIV: Input,
        szAlgAndMode: Input, nOptions: int) -> int:
    """CIPHER_Bytes encrypts or decrypts nBytes bytes; lpOutput has the same length and may be lpInput."""
    return _CIPHER_Bytes(fEncrypt, lpOutput, lpInput, nBytes, lpKey, lpIV, szAlgAndMode, nOptions)


_CIPHER_Hex = _bind("CIPHER_Hex", ctypes.c_int, ctypes.c_char_p, ctypes.c_int, ctypes.c_char_p,
        ctypes.c_char_p, ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int)


def CIPHER_Hex(fEncrypt: int, szOutput: Output, nOutChars: int, szInputHex: Input, szKeyHex: Input,
        szIVHex: Input, szAlgAndMode: Input, nOptions: int) -> int:
    """CIPHER_Hex is CIPHER_Bytes over hex texts; the output is upper case and nOutChars must cover all of it
    (SHORT_BUF_ERROR)."""
    return _CIPHER_Hex(fEncrypt, szOutput, nOutChars, szInputHex, szKeyHex, szIVHex, szAlgAndMode, nOptions)


_CIPHER_File = _bind("CIPHER_File", ctypes.c_int, ctypes.c_char_p, ctypes.c_char_p, ctypes.c_void_p,
        ctypes.c_void_p, ctypes.c_char_p, ctypes.c_int)


def CIPHER_File(fEncrypt: int, szFileOut: Input, szFileIn: Input, lpKey: Input, lpIV: Input,
        szAlgAndMode: Input, nOptions: int) -> int:
    """CIPHER_File encrypts or decrypts a file of any size into another."""
    return _CIPHER_File(fEncrypt, szFileOut, szFileIn, lpKey, lpIV, szAlgAndMode, nOptions)


_TDEA_BytesMode = _bind("TDEA_BytesMode", ctypes.c_void_p, ctypes.c_void_p, ctypes.c_int, ctypes.c_void_p,
        ctypes.c_int, ctypes.c_char_p, ctypes.c_void_p)


def TDEA_BytesMode(lpOutput: Output, lpInput: Input, nBytes: int, lpKey: Input, fEncrypt: int, szMode: Input,
        lpIV: Input) -> int:
    """TDEA_BytesMode is CIPHER_Bytes with Triple DES; szMode is "ECB", "CBC", "CFB", "OFB" or "CTR" in any
    case (BAD_MODE_ERROR otherwise; BAD_PARAM_ERROR if null)."""
    return _TDEA_BytesMode(lpOutput, lpInput, nBytes, lpKey, fEncrypt, szMode, lpIV)


_TDEA_HexMode = _bind("TDEA_HexMode", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int,
        ctypes.c_char_p, ctypes.c_char_p)


def TDEA_HexMode(szOutput: Output, szInputHex: Input, szKeyHex: Input, fEncrypt: int, szMode: Input,
        szIVHex: Input) -> int:
    """TDEA_HexMode is TDEA_BytesMode over hex texts."""
    return _TDEA_HexMode(szOutput, szInputHex, szKeyHex, fEncrypt, szMode, szIVHex)


_TDEA_B64Mode = _bind("TDEA_B64Mode", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int,
        ctypes.c_char_p, ctypes.c_char_p)


def TDEA_B64Mode(szOutput: Output, szInputB64: Input, szKeyB64: Input, fEncrypt: int, szMode: Input,
        szIVB64: Input) -> int:
    """TDEA_B64Mode is TDEA_HexMode over base64 texts; szOutput holds (bytes + 2) / 3 * 4 characters and a
    NUL."""
    return _TDEA_B64Mode(szOutput, szInputB64, szKeyB64, fEncrypt, szMode, szIVB64)


_TDEA_File = _bind("TDEA_File", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_void_p, ctypes.c_int,
        ctypes.c_char_p, ctypes.c_void_p)


def TDEA_File(szFileOut: Input, szFileIn: Input, lpKey: Input, fEncrypt: int, szMode: Input,
        lpIV: Input) -> int:
    """TDEA_File is CIPHER_File with Triple DES and a mode as in TDEA_BytesMode."""
    return _TDEA_File(szFileOut, szFileIn, lpKey, fEncrypt, szMode, lpIV)


_CIPHER_KeyWrap = _bind("CIPHER_KeyWrap", ctypes.c_void_p, ctypes.c_int, ctypes.c_void_p, ctypes.c_int,
        ctypes.c_void_p, ctypes.c_int, ctypes.c_int)


def CIPHER_KeyWrap(lpOutput: Output, nOutBytes: int, lpData: Input, nDataLen: int, lpKEK: Input, nKekLen: int,
        nOptions: int) -> int:
    """CIPHER_KeyWrap wraps a key of nDataLen bytes under a key-encryption key."""
    return _CIPHER_KeyWrap(lpOutput, nOutBytes, lpData, nDataLen, lpKEK, nKekLen, nOptions)


_CIPHER_KeyUnwrap = _bind("CIPHER_KeyUnwrap", ctypes.c_void_p, ctypes.c_int, ctypes.c_void_p, ctypes.c_int,
        ctypes.c_void_p, ctypes.c_int, ctypes.c_int)


def CIPHER_KeyUnwrap(lpOutput: Output, nOutBytes: int, lpData: Input, nDataLen: int, lpKEK: Input,
        nKekLen: int, nOptions: int) -> int:
    """CIPHER_KeyUnwrap undoes CIPHER_KeyWrap; errors as there."""
    return _CIPHER_KeyUnwrap(lpOutput, nOutBytes, lpData, nDataLen, lpKEK, nKekLen, nOptions)


_PAD_BytesBlock = _bind("PAD_BytesBlock", ctypes.c_void_p, ctypes.c_int, ctypes.c_void_p, ctypes.c_int,
        ctypes.c_int, ctypes.c_int)


def PAD_BytesBlock(lpOutput: Output, nOutputLen: int, lpInput: Input, nInputLen: int, nBlkLen: int,
        nOptions: int) -> int:
    """PAD_BytesBlock copies the input and appends 1 to nBlkLen bytes that hold their count."""
    return _PAD_BytesBlock(lpOutput, nOutputLen, lpInput, nInputLen, nBlkLen, nOptions)


_PAD_UnpadBytes = _bind("PAD_UnpadBytes", ctypes.c_void_p, ctypes.c_int, ctypes.c_void_p, ctypes.c_int,
        ctypes.c_int, ctypes.c_int)


def PAD_UnpadBytes(lpOutput: Output, nOutputLen: int, lpInput: Input, nInputLen: int, nBlkLen: int,
        nOptions: int) -> int:
    """PAD_UnpadBytes copies the input without its padding."""
    return _PAD_UnpadBytes(lpOutput, nOutputLen, lpInput, nInputLen, nBlkLen, nOptions)


_PAD_HexBlock = _bind("PAD_HexBlock", ctypes.c_char_p, ctypes.c_int, ctypes.c_char_p, ctypes.c_int,
        ctypes.c_int)


def PAD_HexBlock(szOutput: Output, nOutChars: int, szInputHex: Input, nBlkLen: int, nOptions: int) -> int:
    """PAD_HexBlock is PAD_BytesBlock over hex text, which is copied unchanged and not validated."""
    return _PAD_HexBlock(szOutput, nOutChars, szInputHex, nBlkLen, nOptions)


_PAD_UnpadHex = _bind("PAD_UnpadHex", ctypes.c_char_p, ctypes.c_int, ctypes.c_char_p, ctypes.c_int,
        ctypes.c_int)


def PAD_UnpadHex(szOutput: Output, nOutChars: int, szInputHex: Input, nBlkLen: int, nOptions: int) -> int:
    """PAD_UnpadHex is PAD_UnpadBytes over hex text."""
    return _PAD_UnpadHex(szOutput, nOutChars, szInputHex, nBlkLen, nOptions)


_RNG_Bytes = _bind("RNG_Bytes", ctypes.c_void_p, ctypes.c_int, ctypes.c_void_p, ctypes.c_int)


def RNG_Bytes(lpOutput: Output, nBytes: int, lpSeed: Input, nSeedLen: int) -> int:
    """RNG_Bytes fills nBytes (at most 65,536) random bytes."""
    return _RNG_Bytes(lpOutput, nBytes, lpSeed, nSeedLen)


_RNG_BytesWithPrompt = _bind("RNG_BytesWithPrompt", ctypes.c_void_p, ctypes.c_int, ctypes.c_char_p,
        ctypes.c_int)


def RNG_BytesWithPrompt(lpOutput: Output, nOutputLen: int, szPrompt: Input, nOptions: int) -> int:
    """RNG_BytesWithPrompt shows a dialog in which the user types at random and moves the mouse until enough
    has been collected."""
    return _RNG_BytesWithPrompt(lpOutput, nOutputLen, szPrompt, nOptions)


_RNG_Number = _bind("RNG_Number", ctypes.c_int, ctypes.c_int)


def RNG_Number(nLower: int, nUpper: int) -> int:
    """RNG_Number returns a uniform number from nLower to nUpper, both included; nLower if nUpper is not
    greater, or if the range needs all 32 bits."""
    return _RNG_Number(nLower, nUpper)


_RNG_Test = _bind("RNG_Test", ctypes.c_char_p, ctypes.c_int)


def RNG_Test(szFileName: Input, nOptions: int) -> int:
    """RNG_Test runs the generator's known-answer test and the four statistical tests of FIPS 140-2 on 20,000
    fresh bits, and writes a report if szFileName is not null or empty."""
    return _RNG_Test(szFileName, nOptions)


_RNG_Initialize = _bind("RNG_Initialize", ctypes.c_char_p, ctypes.c_int)


def RNG_Initialize(szSeedFile: Input, nOptions: int) -> int:
    """RNG_Initialize instantiates the thread's generator and takes in a seed file of 64 bytes, which it then
    overwrites with fresh ones."""
    return _RNG_Initialize(szSeedFile, nOptions)


_RNG_MakeSeedFile = _bind("RNG_MakeSeedFile", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int)


def RNG_MakeSeedFile(szSeedFile: Input, szPrompt: Input, nOptions: int) -> int:
    """RNG_MakeSeedFile makes or overwrites a seed file for RNG_Initialize from what the user does in the
    dialog of RNG_BytesWithPrompt; szPrompt and nOptions as there."""
    return _RNG_MakeSeedFile(szSeedFile, szPrompt, nOptions)


_RNG_UpdateSeedFile = _bind("RNG_UpdateSeedFile", ctypes.c_char_p, ctypes.c_int)


def RNG_UpdateSeedFile(szSeedFile: Input, nOptions: int) -> int:
    """RNG_UpdateSeedFile takes in a seed file and overwrites it, as RNG_Initialize."""
    return _RNG_UpdateSeedFile(szSeedFile, nOptions)


_PWD_PromptEx = _bind("PWD_PromptEx", ctypes.c_char_p, ctypes.c_int, ctypes.c_char_p, ctypes.c_char_p)


def PWD_PromptEx(szPassword: Output, nPwdLen: int, szCaption: Input, szPrompt: Input) -> int:
    """PWD_PromptEx shows a dialog in which the user enters a password, or asks for it in the process's
    controlling terminal (Linux)."""
    return _PWD_PromptEx(szPassword, nPwdLen, szCaption, szPrompt)


_PWD_Prompt = _bind("PWD_Prompt", ctypes.c_char_p, ctypes.c_int, ctypes.c_char_p)


def PWD_Prompt(szPassword: Output, nPwdLen: int, szCaption: Input) -> int:
    """PWD_Prompt is PWD_PromptEx with the dialog's own text, "Enter password:"."""
    return _PWD_Prompt(szPassword, nPwdLen, szCaption)


_RSA_MakeKeys = _bind("RSA_MakeKeys", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int, ctypes.c_int,
        ctypes.c_int, ctypes.c_int, ctypes.c_char_p, ctypes.c_void_p, ctypes.c_int, ctypes.c_int)


def RSA_MakeKeys(szPubKeyFile: Input, szPriKeyFile: Input, nBits: int, nExpIndex: int, nTests: int,
        nCount: int, szPassword: Input, lpSeed: Input, nSeedLen: int, nOptions: int) -> int:
    """RSA_MakeKeys makes a key pair and writes two files."""
    return _RSA_MakeKeys(szPubKeyFile, szPriKeyFile, nBits, nExpIndex, nTests, nCount, szPassword, lpSeed,
        nSeedLen, nOptions)


_RSA_ReadPublicKey = _bind("RSA_ReadPublicKey", ctypes.c_char_p, ctypes.c_int, ctypes.c_char_p)


def RSA_ReadPublicKey(szOutput: Output, nOutChars: int, szFileOrText: Input) -> int:
    """RSA_ReadPublicKey reads an RSAPublicKey (PKCS #1) or SubjectPublicKeyInfo (X.509) and writes its key
    string."""
    return _RSA_ReadPublicKey(szOutput, nOutChars, szFileOrText)


_RSA_ReadPrivateKeyInfo = _bind("RSA_ReadPrivateKeyInfo", ctypes.c_char_p, ctypes.c_int, ctypes.c_char_p)


def RSA_ReadPrivateKeyInfo(szOutput: Output, nOutChars: int, szFileOrText: Input) -> int:
    """RSA_ReadPrivateKeyInfo reads an unencrypted PrivateKeyInfo (PKCS #8) or RSAPrivateKey (PKCS #1) of two
    primes and writes its key string."""
    return _RSA_ReadPrivateKeyInfo(szOutput, nOutChars, szFileOrText)


_RSA_ReadEncPrivateKey = _bind("RSA_ReadEncPrivateKey", ctypes.c_char_p, ctypes.c_int, ctypes.c_char_p,
        ctypes.c_char_p, ctypes.c_int)


def RSA_ReadEncPrivateKey(szOutput: Output, nOutChars: int, szFileOrText: Input, szPassword: Input,
        nOptions: int) -> int:
    """RSA_ReadEncPrivateKey reads an EncryptedPrivateKeyInfo (PKCS #8) and writes the private key's key
    string."""
    return _RSA_ReadEncPrivateKey(szOutput, nOutChars, szFileOrText, szPassword, nOptions)


_RSA_GetPublicKeyFromCert = _bind("RSA_GetPublicKeyFromCert", ctypes.c_char_p, ctypes.c_int, ctypes.c_char_p)


def RSA_GetPublicKeyFromCert(szOutput: Output, nOutChars: int, szFileOrText: Input) -> int:
    """RSA_GetPublicKeyFromCert reads an X.509 certificate and writes the key string of its subject's public
    key."""
    return _RSA_GetPublicKeyFromCert(szOutput, nOutChars, szFileOrText)


_RSA_SavePublicKey = _bind("RSA_SavePublicKey", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int)


def RSA_SavePublicKey(szFileOut: Input, szKeyString: Input, nOptions: int) -> int:
    """RSA_SavePublicKey writes a public key, or the public part of a private key, to a file."""
    return _RSA_SavePublicKey(szFileOut, szKeyString, nOptions)


_RSA_SavePrivateKeyInfo = _bind("RSA_SavePrivateKeyInfo", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int)


def RSA_SavePrivateKeyInfo(szFileOut: Input, szKeyString: Input, nOptions: int) -> int:
    """RSA_SavePrivateKeyInfo writes a private key to a file, unencrypted."""
    return _RSA_SavePrivateKeyInfo(szFileOut, szKeyString, nOptions)


_RSA_SaveEncPrivateKey = _bind("RSA_SaveEncPrivateKey", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int,
        ctypes.c_char_p, ctypes.c_int)


def RSA_SaveEncPrivateKey(szFileOut: Input, szKeyString: Input, nCount: int, szPassword: Input,
        nOptions: int) -> int:
    """RSA_SaveEncPrivateKey writes a private key to a file as EncryptedPrivateKeyInfo."""
    return _RSA_SaveEncPrivateKey(szFileOut, szKeyString, nCount, szPassword, nOptions)


_RSA_ToXMLString = _bind("RSA_ToXMLString", ctypes.c_char_p, ctypes.c_int, ctypes.c_char_p, ctypes.c_int)


def RSA_ToXMLString(szOutput: Output, nOutChars: int, szKeyString: Input, nOptions: int) -> int:
    """RSA_ToXMLString writes a key as XML."""
    return _RSA_ToXMLString(szOutput, nOutChars, szKeyString, nOptions)


_RSA_FromXMLString = _bind("RSA_FromXMLString", ctypes.c_char_p, ctypes.c_int, ctypes.c_char_p, ctypes.c_int)


def RSA_FromXMLString(szOutput: Output, nOutChars: int, szXmlString: Input, nOptions: int) -> int:
    """RSA_FromXMLString reads a key from XML and gives its internal key string."""
    return _RSA_FromXMLString(szOutput, nOutChars, szXmlString, nOptions)


_RSA_KeyBits = _bind("RSA_KeyBits", ctypes.c_char_p)


def RSA_KeyBits(szKeyString: Input) -> int:
    """RSA_KeyBits returns the length in bits of the modulus of a public or private key."""
    return _RSA_KeyBits(szKeyString)


_RSA_KeyBytes = _bind("RSA_KeyBytes", ctypes.c_char_p)


def RSA_KeyBytes(szKeyString: Input) -> int:
    """RSA_KeyBytes returns the length in bytes of the modulus, which is that of data and encoded blocks."""
    return _RSA_KeyBytes(szKeyString)


_RSA_KeyMatch = _bind("RSA_KeyMatch", ctypes.c_char_p, ctypes.c_char_p)


def RSA_KeyMatch(szPrivateKey: Input, szPublicKey: Input) -> int:
    """RSA_KeyMatch tells whether a private and a public key form a pair."""
    return _RSA_KeyMatch(szPrivateKey, szPublicKey)


_RSA_KeyHashCode = _bind("RSA_KeyHashCode", ctypes.c_char_p)


def RSA_KeyHashCode(szKeyString: Input) -> int:
    """RSA_KeyHashCode returns a hash code, which may be negative, of a public key or of the public part of a
    private key."""
    return _RSA_KeyHashCode(szKeyString)


_RSA_CheckKey = _bind("RSA_CheckKey", ctypes.c_char_p, ctypes.c_int)


def RSA_CheckKey(szKeyString: Input, nOptions: int) -> int:
    """RSA_CheckKey checks a key."""
    return _RSA_CheckKey(szKeyString, nOptions)


_RSA_RawPublic = _bind("RSA_RawPublic", ctypes.c_void_p, ctypes.c_int, ctypes.c_char_p, ctypes.c_int)


def RSA_RawPublic(lpData: Output, nDataLen: int, szPublicKey: Input, nOptions: int) -> int:
    """RSA_RawPublic transforms data in place with a public key string."""
    return _RSA_RawPublic(lpData, nDataLen, szPublicKey, nOptions)


_RSA_RawPrivate = _bind("RSA_RawPrivate", ctypes.c_void_p, ctypes.c_int, ctypes.c_char_p, ctypes.c_int)


def RSA_RawPrivate(lpData: Output, nDataLen: int, szPrivateKey: Input, nOptions: int) -> int:
    """RSA_RawPrivate transforms data in place with a private key."""
    return _RSA_RawPrivate(lpData, nDataLen, szPrivateKey, nOptions)


_RSA_EncodeMsg = _bind("RSA_EncodeMsg", ctypes.c_void_p, ctypes.c_int, ctypes.c_void_p, ctypes.c_int,
        ctypes.c_int)


def RSA_EncodeMsg(lpOutput: Output, nOutBytes: int, lpInput: Input, nInputLen: int, nOptions: int) -> int:
    """RSA_EncodeMsg fills the nOutBytes bytes (normally RSA_KeyBytes) of lpOutput with the encoding of a
    message."""
    return _RSA_EncodeMsg(lpOutput, nOutBytes, lpInput, nInputLen, nOptions)


_RSA_DecodeMsg = _bind("RSA_DecodeMsg", ctypes.c_void_p, ctypes.c_int, ctypes.c_void_p, ctypes.c_int,
        ctypes.c_int)


def RSA_DecodeMsg(lpOutput: Output, nOutBytes: int, lpInput: Input, nInputLen: int, nOptions: int) -> int:
    """RSA_DecodeMsg recovers the message from an encoded block, of which at most nOutBytes bytes are
    copied."""
    return _RSA_DecodeMsg(lpOutput, nOutBytes, lpInput, nInputLen, nOptions)


_X509_QueryCert = _bind("X509_QueryCert", ctypes.c_char_p, ctypes.c_int, ctypes.c_char_p, ctypes.c_char_p,
        ctypes.c_int)


def X509_QueryCert(szOutput: Output, nChars: int, szCertFile: Input, szQuery: Input, nOptions: int) -> int:
    """X509_QueryCert answers a query about a certificate."""
    return _X509_QueryCert(szOutput, nChars, szCertFile, szQuery, nOptions)


_X509_KeyUsageFlags = _bind("X509_KeyUsageFlags", ctypes.c_char_p)


def X509_KeyUsageFlags(szCertFile: Input) -> int:
    """X509_KeyUsageFlags returns the key usage as ZUL_KEYUSAGE_ bits, 0 if the certificate does not say, or a
    negated code."""
    return _X509_KeyUsageFlags(szCertFile)


_X509_CertThumb = _bind("X509_CertThumb", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int, ctypes.c_int)


def X509_CertThumb(szCertFile: Input, szHash: Output, nChars: int, nOptions: int) -> int:
    """X509_CertThumb writes the digest (nOptions: ZUL_HASH_...) of a certificate in lower-case hex."""
    return _X509_CertThumb(szCertFile, szHash, nChars, nOptions)


_X509_CertIsValidNow = _bind("X509_CertIsValidNow", ctypes.c_char_p, ctypes.c_int)


def X509_CertIsValidNow(szCertFile: Input, nOptions: int) -> int:
    """X509_CertIsValidNow returns 0 if the present time lies within the certificate's validity, -1 if not, or
    a positive code."""
    return _X509_CertIsValidNow(szCertFile, nOptions)


_X509_CertIssuedOn = _bind("X509_CertIssuedOn", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int, ctypes.c_int)


def X509_CertIssuedOn(szCertFile: Input, szOutput: Output, nChars: int, nOptions: int) -> int:
    """X509_CertIssuedOn and X509_CertExpiresOn write the beginning and end of the validity, 20 characters,
    cut to nChars."""
    return _X509_CertIssuedOn(szCertFile, szOutput, nChars, nOptions)


_X509_CertExpiresOn = _bind("X509_CertExpiresOn", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int,
        ctypes.c_int)


def X509_CertExpiresOn(szCertFile: Input, szOutput: Output, nChars: int, nOptions: int) -> int:
    """X509_CertIssuedOn and X509_CertExpiresOn write the beginning and end of the validity, 20 characters,
    cut to nChars."""
    return _X509_CertExpiresOn(szCertFile, szOutput, nChars, nOptions)


_X509_CertSerialNumber = _bind("X509_CertSerialNumber", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int,
        ctypes.c_int)


def X509_CertSerialNumber(szCertFile: Input, szOutput: Output, nChars: int, nOptions: int) -> int:
    """X509_CertSerialNumber writes the serial number's bytes in lower-case hex."""
    return _X509_CertSerialNumber(szCertFile, szOutput, nChars, nOptions)


_X509_CertSubjectName = _bind("X509_CertSubjectName", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int,
        ctypes.c_char_p, ctypes.c_int)


def X509_CertSubjectName(szCertFile: Input, szOutput: Output, nChars: int, szDelim: Input,
        nOptions: int) -> int:
    """X509_CertSubjectName and X509_CertIssuerName write a name as text, cut to nChars."""
    return _X509_CertSubjectName(szCertFile, szOutput, nChars, szDelim, nOptions)


_X509_CertIssuerName = _bind("X509_CertIssuerName", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int,
        ctypes.c_char_p, ctypes.c_int)


def X509_CertIssuerName(szCertFile: Input, szOutput: Output, nChars: int, szDelim: Input,
        nOptions: int) -> int:
    """X509_CertSubjectName and X509_CertIssuerName write a name as text, cut to nChars."""
    return _X509_CertIssuerName(szCertFile, szOutput, nChars, szDelim, nOptions)


_X509_HashIssuerAndSN = _bind("X509_HashIssuerAndSN", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int,
        ctypes.c_int)


def X509_HashIssuerAndSN(szCertFile: Input, szOutput: Output, nChars: int, nOptions: int) -> int:
    """X509_HashIssuerAndSN writes the digest of the certificate's IssuerAndSerialNumber (RFC 5652), as
    X509_CertThumb that of the certificate."""
    return _X509_HashIssuerAndSN(szCertFile, szOutput, nChars, nOptions)


_X509_ReadStringFromFile = _bind("X509_ReadStringFromFile", ctypes.c_char_p, ctypes.c_int, ctypes.c_char_p,
        ctypes.c_int)


def X509_ReadStringFromFile(szOutput: Output, nChars: int, szCertFile: Input, nOptions: int) -> int:
    """X509_ReadStringFromFile writes a certificate as base64 in one line, which serves as szCertFile wherever
    one is asked for (if it is longer than 256 characters, as that of any certificate with an RSA key is)."""
    return _X509_ReadStringFromFile(szOutput, nChars, szCertFile, nOptions)


_X509_SaveFileFromString = _bind("X509_SaveFileFromString", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int)


def X509_SaveFileFromString(szNewCertFile: Input, szCertString: Input, nOptions: int) -> int:
    """X509_SaveFileFromString writes a certificate given as base64 to a file."""
    return _X509_SaveFileFromString(szNewCertFile, szCertString, nOptions)


_X509_MakeCert = _bind("X509_MakeCert", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_char_p, ctypes.c_char_p,
        ctypes.c_int, ctypes.c_int, ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int, ctypes.c_char_p,
        ctypes.c_int)


def X509_MakeCert(szNewCertFile: Input, szIssuerCertFile: Input, szSubjectPubKeyFile: Input,
        szIssuerPriKeyFile: Input, nCertNum: int, nYearsValid: int, szDistName: Input, szExtensions: Input,
        nKeyUsageFlags: int, szPassword: Input, nOptions: int) -> int:
    """X509_MakeCert makes a certificate (RFC 5280) signed by an issuer."""
    return _X509_MakeCert(szNewCertFile, szIssuerCertFile, szSubjectPubKeyFile, szIssuerPriKeyFile, nCertNum,
        nYearsValid, szDistName, szExtensions, nKeyUsageFlags, szPassword, nOptions)


_X509_MakeCertSelf = _bind("X509_MakeCertSelf", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int, ctypes.c_int,
        ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int, ctypes.c_char_p, ctypes.c_int)


def X509_MakeCertSelf(szNewCertFile: Input, szEPKFile: Input, nCertNum: int, nYearsValid: int,
        szDistName: Input, szExtensions: Input, nKeyUsageFlags: int, szPassword: Input, nOptions: int) -> int:
    """X509_MakeCertSelf makes the self-signed certificate of a certification authority from its encrypted
    private key."""
    return _X509_MakeCertSelf(szNewCertFile, szEPKFile, nCertNum, nYearsValid, szDistName, szExtensions,
        nKeyUsageFlags, szPassword, nOptions)


_X509_CertRequest = _bind("X509_CertRequest", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_char_p,
        ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int)


def X509_CertRequest(szReqFile: Input, szEPKFile: Input, szDistName: Input, szExtensions: Input,
        szPassword: Input, nOptions: int) -> int:
    """X509_CertRequest makes a certification request (PKCS #10, RFC 2986) from an encrypted private key."""
    return _X509_CertRequest(szReqFile, szEPKFile, szDistName, szExtensions, szPassword, nOptions)


_X509_MakeCRL = _bind("X509_MakeCRL", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_char_p, ctypes.c_char_p,
        ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int)


def X509_MakeCRL(szCrlFile: Input, szIssuerCertFile: Input, szIssuerKeyFile: Input, szPassword: Input,
        szCertList: Input, szExtensions: Input, nOptions: int) -> int:
    """X509_MakeCRL makes a revocation list of version 1."""
    return _X509_MakeCRL(szCrlFile, szIssuerCertFile, szIssuerKeyFile, szPassword, szCertList, szExtensions,
        nOptions)


_X509_VerifyCert = _bind("X509_VerifyCert", ctypes.c_char_p, ctypes.c_char_p)


def X509_VerifyCert(szCertToVerify: Input, szIssuerCert: Input) -> int:
    """X509_VerifyCert checks that a certificate, request or CRL was signed with the key of szIssuerCert."""
    return _X509_VerifyCert(szCertToVerify, szIssuerCert)


_X509_CheckCertInCRL = _bind("X509_CheckCertInCRL", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_char_p,
        ctypes.c_char_p, ctypes.c_int)


def X509_CheckCertInCRL(szCertFile: Input, szCrlFile: Input, szCRLIssuerCert: Input, szDate: Input,
        nOptions: int) -> int:
    """X509_CheckCertInCRL looks a certificate up in its issuer's CRL."""
    return _X509_CheckCertInCRL(szCertFile, szCrlFile, szCRLIssuerCert, szDate, nOptions)


_X509_ValidatePath = _bind("X509_ValidatePath", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int)


def X509_ValidatePath(szCertList: Input, szTrustedCert: Input, nOptions: int) -> int:
    """X509_ValidatePath orders certificates into a path and checks each one's signature, and its dates unless
    nOptions is not 0."""
    return _X509_ValidatePath(szCertList, szTrustedCert, nOptions)


_X509_TextDump = _bind("X509_TextDump", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int)


def X509_TextDump(szFileOut: Input, szCertFile: Input, nOptions: int) -> int:
    """X509_TextDump writes a description of a certificate, request or CRL to a text file."""
    return _X509_TextDump(szFileOut, szCertFile, nOptions)


_X509_GetCertFromP7Chain = _bind("X509_GetCertFromP7Chain", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int,
        ctypes.c_int)


def X509_GetCertFromP7Chain(szNewCertFile: Input, szP7cFile: Input, nIndex: int, nOptions: int) -> int:
    """X509_GetCertFromP7Chain takes a certificate out of a signed message or a certs-only one (PKCS #7, "p7c"
    or "p7b"), a message argument as below."""
    return _X509_GetCertFromP7Chain(szNewCertFile, szP7cFile, nIndex, nOptions)


_X509_GetCertFromPFX = _bind("X509_GetCertFromPFX", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int)


def X509_GetCertFromPFX(szFileOut: Input, szPfxFile: Input, nOptions: int) -> int:
    """X509_GetCertFromPFX and RSA_GetPrivateKeyFromPFX write the first certificate of a PKCS #12 file, as
    DER, and its first encrypted private key, as RSA_ReadEncPrivateKey reads it, to a file."""
    return _X509_GetCertFromPFX(szFileOut, szPfxFile, nOptions)


_RSA_GetPrivateKeyFromPFX = _bind("RSA_GetPrivateKeyFromPFX", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int)


def RSA_GetPrivateKeyFromPFX(szFileOut: Input, szPfxFile: Input, nOptions: int) -> int:
    """X509_GetCertFromPFX and RSA_GetPrivateKeyFromPFX write the first certificate of a PKCS #12 file, as
    DER, and its first encrypted private key, as RSA_ReadEncPrivateKey reads it, to a file."""
    return _RSA_GetPrivateKeyFromPFX(szFileOut, szPfxFile, nOptions)


_CMS_MakeSigData = _bind("CMS_MakeSigData", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_char_p,
        ctypes.c_char_p, ctypes.c_int)


def CMS_MakeSigData(szFileOut: Input, szFileIn: Input, szCertList: Input, szPrivateKey: Input,
        nOptions: int) -> int:
    """CMS_MakeSigData signs a file with RSA (PKCS #1 v1.5)."""
    return _CMS_MakeSigData(szFileOut, szFileIn, szCertList, szPrivateKey, nOptions)


_CMS_MakeSigDataFromString = _bind("CMS_MakeSigDataFromString", ctypes.c_char_p, ctypes.c_char_p,
        ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int)


def CMS_MakeSigDataFromString(szFileOut: Input, szDataIn: Input, szCertList: Input, szPrivateKey: Input,
        nOptions: int) -> int:
    """CMS_MakeSigDataFromString signs the bytes of a text, without its NUL, as CMS_MakeSigData a file."""
    return _CMS_MakeSigDataFromString(szFileOut, szDataIn, szCertList, szPrivateKey, nOptions)


_CMS_MakeDetachedSig = _bind("CMS_MakeDetachedSig", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_char_p,
        ctypes.c_char_p, ctypes.c_int)


def CMS_MakeDetachedSig(szFileOut: Input, szHexDigest: Input, szCertList: Input, szPrivateKey: Input,
        nOptions: int) -> int:
    """CMS_MakeDetachedSig signs content whose digest is given in hex; the content is not carried."""
    return _CMS_MakeDetachedSig(szFileOut, szHexDigest, szCertList, szPrivateKey, nOptions)


_CMS_MakeSigDataFromSigValue = _bind("CMS_MakeSigDataFromSigValue", ctypes.c_char_p, ctypes.c_void_p,
        ctypes.c_int, ctypes.c_void_p, ctypes.c_int, ctypes.c_char_p, ctypes.c_int)


def CMS_MakeSigDataFromSigValue(szFileOut: Input, lpSigValue: Input, nSigLen: int, lpData: Input,
        nDataLen: int, szCertList: Input, nOptions: int) -> int:
    """CMS_MakeSigDataFromSigValue makes a message from nDataLen bytes of content and their finished
    signature, made by a smart card, for example."""
    return _CMS_MakeSigDataFromSigValue(szFileOut, lpSigValue, nSigLen, lpData, nDataLen, szCertList,
        nOptions)


_CMS_ReadSigData = _bind("CMS_ReadSigData", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int)


def CMS_ReadSigData(szFileOut: Input, szFileIn: Input, nOptions: int) -> int:
    """CMS_ReadSigData writes the content of a signed message to a file, CMS_ReadSigDataToString to
    nDataOutLen bytes of room and a NUL."""
    return _CMS_ReadSigData(szFileOut, szFileIn, nOptions)


_CMS_ReadSigDataToString = _bind("CMS_ReadSigDataToString", ctypes.c_char_p, ctypes.c_int, ctypes.c_char_p,
        ctypes.c_int)


def CMS_ReadSigDataToString(szDataOut: Output, nDataOutLen: int, szFileIn: Input, nOptions: int) -> int:
    """CMS_ReadSigData writes the content of a signed message to a file, CMS_ReadSigDataToString to
    nDataOutLen bytes of room and a NUL."""
    return _CMS_ReadSigDataToString(szDataOut, nDataOutLen, szFileIn, nOptions)


_CMS_VerifySigData = _bind("CMS_VerifySigData", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_char_p,
        ctypes.c_int)


def CMS_VerifySigData(szFileIn: Input, szCertFile: Input, szHexDigest: Input, nOptions: int) -> int:
    """CMS_VerifySigData verifies the signature of a signed message, RSA (PKCS #1 v1.5) with any digest or DSA
    with SHA-1, and the digest of its content."""
    return _CMS_VerifySigData(szFileIn, szCertFile, szHexDigest, nOptions)


_CMS_GetSigDataDigest = _bind("CMS_GetSigDataDigest", ctypes.c_char_p, ctypes.c_int, ctypes.c_char_p,
        ctypes.c_char_p, ctypes.c_int)


def CMS_GetSigDataDigest(szHexDigestOut: Output, nDigestLen: int, szFileIn: Input, szCertFile: Input,
        nOptions: int) -> int:
    """CMS_GetSigDataDigest writes the digest of the content that was signed, in lower-case hex."""
    return _CMS_GetSigDataDigest(szHexDigestOut, nDigestLen, szFileIn, szCertFile, nOptions)


_CMS_QuerySigData = _bind("CMS_QuerySigData", ctypes.c_char_p, ctypes.c_int, ctypes.c_char_p, ctypes.c_char_p,
        ctypes.c_int)


def CMS_QuerySigData(szOutput: Output, nOutChars: int, szFileIn: Input, szQuery: Input, nOptions: int) -> int:
    """CMS_QuerySigData answers a query about a signed message of any version, verified or not."""
    return _CMS_QuerySigData(szOutput, nOutChars, szFileIn, szQuery, nOptions)


_CMS_MakeEnvData = _bind("CMS_MakeEnvData", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_char_p,
        ctypes.c_void_p, ctypes.c_int, ctypes.c_int)


def CMS_MakeEnvData(szFileOut: Input, szFileIn: Input, szCertList: Input, lpSeed: Input, nSeedLen: int,
        nOptions: int) -> int:
    """CMS_MakeEnvData encrypts a file for the RSA keys (PKCS #1 v1.5) of up to 10 certificates."""
    return _CMS_MakeEnvData(szFileOut, szFileIn, szCertList, lpSeed, nSeedLen, nOptions)


_CMS_MakeEnvDataFromString = _bind("CMS_MakeEnvDataFromString", ctypes.c_char_p, ctypes.c_char_p,
        ctypes.c_char_p, ctypes.c_void_p, ctypes.c_int, ctypes.c_int)


def CMS_MakeEnvDataFromString(szFileOut: Input, szDataIn: Input, szCertList: Input, lpSeed: Input,
        nSeedLen: int, nOptions: int) -> int:
    """CMS_MakeEnvDataFromString encrypts the bytes of a text, without its NUL, as CMS_MakeEnvData a file."""
    return _CMS_MakeEnvDataFromString(szFileOut, szDataIn, szCertList, lpSeed, nSeedLen, nOptions)


_CMS_ReadEnvData = _bind("CMS_ReadEnvData", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_char_p,
        ctypes.c_char_p, ctypes.c_int)


def CMS_ReadEnvData(szFileOut: Input, szFileIn: Input, szX509File: Input, szPrivateKey: Input,
        nOptions: int) -> int:
    """CMS_ReadEnvData decrypts an enveloped message (Triple DES, AES or RC2, CBC) into a file,
    CMS_ReadEnvDataToString into nDataOutLen bytes of room and a NUL."""
    return _CMS_ReadEnvData(szFileOut, szFileIn, szX509File, szPrivateKey, nOptions)


_CMS_ReadEnvDataToString = _bind("CMS_ReadEnvDataToString", ctypes.c_char_p, ctypes.c_int, ctypes.c_char_p,
        ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int)


def CMS_ReadEnvDataToString(szDataOut: Output, nDataOutLen: int, szFileIn: Input, szX509File: Input,
        szPrivateKey: Input, nOptions: int) -> int:
    """CMS_ReadEnvData decrypts an enveloped message (Triple DES, AES or RC2, CBC) into a file,
    CMS_ReadEnvDataToString into nDataOutLen bytes of room and a NUL."""
    return _CMS_ReadEnvDataToString(szDataOut, nDataOutLen, szFileIn, szX509File, szPrivateKey, nOptions)


_CMS_QueryEnvData = _bind("CMS_QueryEnvData", ctypes.c_char_p, ctypes.c_int, ctypes.c_char_p, ctypes.c_char_p,
        ctypes.c_int)


def CMS_QueryEnvData(szOutput: Output, nOutChars: int, szFileIn: Input, szQuery: Input, nOptions: int) -> int:
    """CMS_QueryEnvData answers a query about an enveloped message."""
    return _CMS_QueryEnvData(szOutput, nOutChars, szFileIn, szQuery, nOptions)


_PFX_MakeFile = _bind("PFX_MakeFile", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_char_p, ctypes.c_char_p,
        ctypes.c_char_p, ctypes.c_int)


def PFX_MakeFile(szFileOut: Input, szCertFile: Input, szKeyFile: Input, szPassword: Input,
        szFriendlyName: Input, nOptions: int) -> int:
    """PFX_MakeFile writes a PFX file."""
    return _PFX_MakeFile(szFileOut, szCertFile, szKeyFile, szPassword, szFriendlyName, nOptions)


_PFX_VerifySig = _bind("PFX_VerifySig", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int)


def PFX_VerifySig(szPfxFile: Input, szPassword: Input, nOptions: int) -> int:
    """PFX_VerifySig checks the MAC of a PFX file (HMAC with SHA-1, SHA-256, SHA-384 or SHA-512) with a
    password."""
    return _PFX_VerifySig(szPfxFile, szPassword, nOptions)


_OCSP_MakeRequest = _bind("OCSP_MakeRequest", ctypes.c_char_p, ctypes.c_int, ctypes.c_char_p, ctypes.c_char_p,
        ctypes.c_char_p, ctypes.c_int)


def OCSP_MakeRequest(szOutput: Output, nChars: int, szIssuerCert: Input, szCertFileOrSerialNum: Input,
        szExtensions: Input, nOptions: int) -> int:
    """OCSP_MakeRequest writes an unsigned request about one certificate as base64 in one line."""
    return _OCSP_MakeRequest(szOutput, nChars, szIssuerCert, szCertFileOrSerialNum, szExtensions, nOptions)


_OCSP_ReadResponse = _bind("OCSP_ReadResponse", ctypes.c_char_p, ctypes.c_int, ctypes.c_char_p,
        ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int)


def OCSP_ReadResponse(szOutput: Output, nChars: int, szResponseFile: Input, szIssuerCert: Input,
        szExtensions: Input, nOptions: int) -> int:
    """OCSP_ReadResponse writes a report of a response, which is a file of DER, PEM or base64, or text."""
    return _OCSP_ReadResponse(szOutput, nChars, szResponseFile, szIssuerCert, szExtensions, nOptions)


_HASH_Begin = _bind("HASH_Begin", ctypes.c_void_p, ctypes.c_int, ctypes.c_char_p, ctypes.c_int)


def HASH_Begin(lpContext: Output, nContextLen: int, szAlgorithm: Input, nOptions: int) -> int:
    """HASH_Begin begins a digest."""
    return _HASH_Begin(lpContext, nContextLen, szAlgorithm, nOptions)


_HASH_Add = _bind("HASH_Add", ctypes.c_void_p, ctypes.c_void_p, ctypes.c_int)


def HASH_Add(lpContext: Output, lpData: Input, nDataLen: int) -> int:
    """HASH_Add absorbs nDataLen bytes."""
    return _HASH_Add(lpContext, lpData, nDataLen)


_HASH_End = _bind("HASH_End", ctypes.c_void_p, ctypes.c_int, ctypes.c_void_p)


def HASH_End(lpOutput: Output, nOutBytes: int, lpContext: Output) -> int:
    """HASH_End writes the digest, cut to nOutBytes, and wipes the context; of "shake128" and "shake256" it
    writes nOutBytes bytes."""
    return _HASH_End(lpOutput, nOutBytes, lpContext)


_HMAC_Begin = _bind("HMAC_Begin", ctypes.c_void_p, ctypes.c_int, ctypes.c_void_p, ctypes.c_int,
        ctypes.c_char_p, ctypes.c_int)


def HMAC_Begin(lpContext: Output, nContextLen: int, lpKey: Input, nKeyLen: int, szAlgorithm: Input,
        nOptions: int) -> int:
    """HMAC_Begin begins a MAC with a key of any length and a digest that has an HMAC (not "md2", "shake128"
    and "shake256"); the rest as HASH_Begin."""
    return _HMAC_Begin(lpContext, nContextLen, lpKey, nKeyLen, szAlgorithm, nOptions)


_HMAC_Add = _bind("HMAC_Add", ctypes.c_void_p, ctypes.c_void_p, ctypes.c_int)


def HMAC_Add(lpContext: Output, lpData: Input, nDataLen: int) -> int:
    """HMAC_Add absorbs nDataLen bytes, as HASH_Add."""
    return _HMAC_Add(lpContext, lpData, nDataLen)


_HMAC_End = _bind("HMAC_End", ctypes.c_void_p, ctypes.c_int, ctypes.c_void_p)


def HMAC_End(lpOutput: Output, nOutBytes: int, lpContext: Output) -> int:
    """HMAC_End writes the MAC, cut to nOutBytes, and wipes the context, as HASH_End."""
    return _HMAC_End(lpOutput, nOutBytes, lpContext)


_CIPHER_Begin = _bind("CIPHER_Begin", ctypes.c_void_p, ctypes.c_int, ctypes.c_int, ctypes.c_void_p,
        ctypes.c_int, ctypes.c_void_p, ctypes.c_int, ctypes.c_char_p, ctypes.c_int)


def CIPHER_Begin(lpContext: Output, nContextLen: int, fEncrypt: int, lpKey: Input, nKeyLen: int, lpIV: Input,
        nIVLen: int, szAlgorithm: Input, nOptions: int) -> int:
    """CIPHER_Begin begins to encrypt (fEncrypt not 0) or decrypt."""
    return _CIPHER_Begin(lpContext, nContextLen, fEncrypt, lpKey, nKeyLen, lpIV, nIVLen, szAlgorithm,
        nOptions)


_CIPHER_Add = _bind("CIPHER_Add", ctypes.c_void_p, ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p,
        ctypes.c_int)


def CIPHER_Add(lpOutput: Output, nOutBytes: int, lpContext: Output, lpInput: Input, nInputLen: int) -> int:
    """CIPHER_Add takes the next piece and writes what is ready, which may be a block less or more than the
    piece."""
    return _CIPHER_Add(lpOutput, nOutBytes, lpContext, lpInput, nInputLen)


_CIPHER_End = _bind("CIPHER_End", ctypes.c_void_p, ctypes.c_int, ctypes.c_void_p)


def CIPHER_End(lpOutput: Output, nOutBytes: int, lpContext: Output) -> int:
    """CIPHER_End writes the end, at most a block, and wipes the context."""
    return _CIPHER_End(lpOutput, nOutBytes, lpContext)


_AEAD_Encrypt = _bind("AEAD_Encrypt", ctypes.c_void_p, ctypes.c_int, ctypes.c_void_p, ctypes.c_int,
        ctypes.c_void_p, ctypes.c_int, ctypes.c_void_p, ctypes.c_int, ctypes.c_void_p, ctypes.c_int,
        ctypes.c_char_p, ctypes.c_int)


def AEAD_Encrypt(lpOutput: Output, nOutBytes: int, lpInput: Input, nInputLen: int, lpKey: Input, nKeyLen: int,
        lpNonce: Input, nNonceLen: int, lpAad: Input, nAadLen: int, szAlgorithm: Input, nOptions: int) -> int:
    """AEAD_Encrypt encrypts data and adds a tag of 16 bytes, which also covers lpAad, data that is not
    encrypted."""
    return _AEAD_Encrypt(lpOutput, nOutBytes, lpInput, nInputLen, lpKey, nKeyLen, lpNonce, nNonceLen, lpAad,
        nAadLen, szAlgorithm, nOptions)


_AEAD_Decrypt = _bind("AEAD_Decrypt", ctypes.c_void_p, ctypes.c_int, ctypes.c_void_p, ctypes.c_int,
        ctypes.c_void_p, ctypes.c_int, ctypes.c_void_p, ctypes.c_int, ctypes.c_void_p, ctypes.c_int,
        ctypes.c_char_p, ctypes.c_int)


def AEAD_Decrypt(lpOutput: Output, nOutBytes: int, lpInput: Input, nInputLen: int, lpKey: Input, nKeyLen: int,
        lpNonce: Input, nNonceLen: int, lpAad: Input, nAadLen: int, szAlgorithm: Input, nOptions: int) -> int:
    """AEAD_Decrypt undoes AEAD_Encrypt."""
    return _AEAD_Decrypt(lpOutput, nOutBytes, lpInput, nInputLen, lpKey, nKeyLen, lpNonce, nNonceLen, lpAad,
        nAadLen, szAlgorithm, nOptions)


_KEY_Make = _bind("KEY_Make", ctypes.c_char_p, ctypes.c_int, ctypes.c_char_p, ctypes.c_int)


def KEY_Make(szOutput: Output, nOutChars: int, szAlgorithm: Input, nOptions: int) -> int:
    """KEY_Make makes a private key."""
    return _KEY_Make(szOutput, nOutChars, szAlgorithm, nOptions)


_KEY_Read = _bind("KEY_Read", ctypes.c_char_p, ctypes.c_int, ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int)


def KEY_Read(szOutput: Output, nOutChars: int, szFileOrText: Input, szPassword: Input, nOptions: int) -> int:
    """KEY_Read reads a key, private or public, as a key string."""
    return _KEY_Read(szOutput, nOutChars, szFileOrText, szPassword, nOptions)


_KEY_Save = _bind("KEY_Save", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_char_p, ctypes.c_char_p,
        ctypes.c_int)


def KEY_Save(szFileOut: Input, szKey: Input, szPassword: Input, szParameters: Input, nOptions: int) -> int:
    """KEY_Save writes a key to a file, which is replaced in one step."""
    return _KEY_Save(szFileOut, szKey, szPassword, szParameters, nOptions)


_KEY_Public = _bind("KEY_Public", ctypes.c_char_p, ctypes.c_int, ctypes.c_char_p)


def KEY_Public(szOutput: Output, nOutChars: int, szPrivateKey: Input) -> int:
    """KEY_Public gives the public key of a private one."""
    return _KEY_Public(szOutput, nOutChars, szPrivateKey)


_KEY_Query = _bind("KEY_Query", ctypes.c_char_p, ctypes.c_int, ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int)


def KEY_Query(szOutput: Output, nOutChars: int, szKey: Input, szQuery: Input, nOptions: int) -> int:
    """KEY_Query answers a query about a key."""
    return _KEY_Query(szOutput, nOutChars, szKey, szQuery, nOptions)


_KEY_Match = _bind("KEY_Match", ctypes.c_char_p, ctypes.c_char_p)


def KEY_Match(szPrivateKey: Input, szPublicKey: Input) -> int:
    """KEY_Match tells whether a private key belongs to a public one."""
    return _KEY_Match(szPrivateKey, szPublicKey)


_KEY_Check = _bind("KEY_Check", ctypes.c_char_p, ctypes.c_int)


def KEY_Check(szKey: Input, nOptions: int) -> int:
    """KEY_Check tells whether a key's values are valid and belong together."""
    return _KEY_Check(szKey, nOptions)


_KEY_Agree = _bind("KEY_Agree", ctypes.c_void_p, ctypes.c_int, ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int)


def KEY_Agree(lpOutput: Output, nOutBytes: int, szPrivateKey: Input, szPublicKey: Input,
        nOptions: int) -> int:
    """KEY_Agree computes the secret that the owners of two key pairs share."""
    return _KEY_Agree(lpOutput, nOutBytes, szPrivateKey, szPublicKey, nOptions)


_SIG_Sign = _bind("SIG_Sign", ctypes.c_void_p, ctypes.c_int, ctypes.c_void_p, ctypes.c_int, ctypes.c_char_p,
        ctypes.c_char_p, ctypes.c_int)


def SIG_Sign(lpOutput: Output, nOutBytes: int, lpData: Input, nDataLen: int, szPrivateKey: Input,
        szAlgorithm: Input, nOptions: int) -> int:
    """SIG_Sign signs data."""
    return _SIG_Sign(lpOutput, nOutBytes, lpData, nDataLen, szPrivateKey, szAlgorithm, nOptions)


_SIG_Verify = _bind("SIG_Verify", ctypes.c_void_p, ctypes.c_int, ctypes.c_void_p, ctypes.c_int,
        ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int)


def SIG_Verify(lpSignature: Input, nSigLen: int, lpData: Input, nDataLen: int, szPublicKey: Input,
        szAlgorithm: Input, nOptions: int) -> int:
    """SIG_Verify verifies a signature of data."""
    return _SIG_Verify(lpSignature, nSigLen, lpData, nDataLen, szPublicKey, szAlgorithm, nOptions)


_SIG_SignFile = _bind("SIG_SignFile", ctypes.c_void_p, ctypes.c_int, ctypes.c_char_p, ctypes.c_char_p,
        ctypes.c_char_p, ctypes.c_int)


def SIG_SignFile(lpOutput: Output, nOutBytes: int, szFileIn: Input, szPrivateKey: Input, szAlgorithm: Input,
        nOptions: int) -> int:
    """SIG_SignFile signs the content of a file of any size."""
    return _SIG_SignFile(lpOutput, nOutBytes, szFileIn, szPrivateKey, szAlgorithm, nOptions)


_SIG_VerifyFile = _bind("SIG_VerifyFile", ctypes.c_void_p, ctypes.c_int, ctypes.c_char_p, ctypes.c_char_p,
        ctypes.c_char_p, ctypes.c_int)


def SIG_VerifyFile(lpSignature: Input, nSigLen: int, szFileIn: Input, szPublicKey: Input, szAlgorithm: Input,
        nOptions: int) -> int:
    """SIG_VerifyFile verifies a signature of the content of a file of any size."""
    return _SIG_VerifyFile(lpSignature, nSigLen, szFileIn, szPublicKey, szAlgorithm, nOptions)


_SIG_SignDigest = _bind("SIG_SignDigest", ctypes.c_void_p, ctypes.c_int, ctypes.c_void_p, ctypes.c_int,
        ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int)


def SIG_SignDigest(lpOutput: Output, nOutBytes: int, lpDigest: Input, nDigestLen: int, szPrivateKey: Input,
        szAlgorithm: Input, nOptions: int) -> int:
    """SIG_SignDigest signs data whose digest is given."""
    return _SIG_SignDigest(lpOutput, nOutBytes, lpDigest, nDigestLen, szPrivateKey, szAlgorithm, nOptions)


_SIG_VerifyDigest = _bind("SIG_VerifyDigest", ctypes.c_void_p, ctypes.c_int, ctypes.c_void_p, ctypes.c_int,
        ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int)


def SIG_VerifyDigest(lpSignature: Input, nSigLen: int, lpDigest: Input, nDigestLen: int, szPublicKey: Input,
        szAlgorithm: Input, nOptions: int) -> int:
    """SIG_VerifyDigest verifies a signature of data whose digest is given."""
    return _SIG_VerifyDigest(lpSignature, nSigLen, lpDigest, nDigestLen, szPublicKey, szAlgorithm, nOptions)


_SEAL_MakeIdentity = _bind("SEAL_MakeIdentity", ctypes.c_char_p, ctypes.c_int, ctypes.c_int)


def SEAL_MakeIdentity(szOutput: Output, nOutChars: int, nOptions: int) -> int:
    """SEAL_MakeIdentity makes an identity."""
    return _SEAL_MakeIdentity(szOutput, nOutChars, nOptions)


_SEAL_Recipient = _bind("SEAL_Recipient", ctypes.c_char_p, ctypes.c_int, ctypes.c_char_p)


def SEAL_Recipient(szOutput: Output, nOutChars: int, szIdentity: Input) -> int:
    """SEAL_Recipient gives the recipient of an identity."""
    return _SEAL_Recipient(szOutput, nOutChars, szIdentity)


_SEAL_File = _bind("SEAL_File", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_char_p, ctypes.c_char_p,
        ctypes.c_int)


def SEAL_File(szFileOut: Input, szFileIn: Input, szRecipients: Input, szPassword: Input,
        nOptions: int) -> int:
    """SEAL_File encrypts a file, either for recipients or under a password (scrypt with a work factor of
    2^18)."""
    return _SEAL_File(szFileOut, szFileIn, szRecipients, szPassword, nOptions)


_SEAL_OpenFile = _bind("SEAL_OpenFile", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_char_p, ctypes.c_char_p,
        ctypes.c_int)


def SEAL_OpenFile(szFileOut: Input, szFileIn: Input, szIdentities: Input, szPassword: Input,
        nOptions: int) -> int:
    """SEAL_OpenFile decrypts a file, in armour or not."""
    return _SEAL_OpenFile(szFileOut, szFileIn, szIdentities, szPassword, nOptions)


_P12_Pack = _bind("P12_Pack", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_char_p, ctypes.c_char_p,
        ctypes.c_char_p, ctypes.c_int)


def P12_Pack(szFileOut: Input, szCerts: Input, szPrivateKey: Input, szPassword: Input, szName: Input,
        nOptions: int) -> int:
    """P12_Pack writes a PKCS #12 file, which is replaced in one step, of a private key and certificates."""
    return _P12_Pack(szFileOut, szCerts, szPrivateKey, szPassword, szName, nOptions)


_P12_Unpack = _bind("P12_Unpack", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int, ctypes.c_char_p,
        ctypes.c_char_p, ctypes.c_int)


def P12_Unpack(szCertsOut: Input, szKeyOutput: Output, nKeyChars: int, szP12: Input, szPassword: Input,
        nOptions: int) -> int:
    """P12_Unpack reads a PKCS #12 file."""
    return _P12_Unpack(szCertsOut, szKeyOutput, nKeyChars, szP12, szPassword, nOptions)


_P12_List = _bind("P12_List", ctypes.c_char_p, ctypes.c_int, ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int)


def P12_List(szOutput: Output, nOutChars: int, szP12: Input, szPassword: Input, nOptions: int) -> int:
    """P12_List describes a PKCS #12 file in UTF-8."""
    return _P12_List(szOutput, nOutChars, szP12, szPassword, nOptions)


_CERT_SelfSign = _bind("CERT_SelfSign", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int)


def CERT_SelfSign(szCertOut: Input, szPrivateKey: Input, szDescription: Input, nOptions: int) -> int:
    """CERT_SelfSign makes a certificate that its own key signs."""
    return _CERT_SelfSign(szCertOut, szPrivateKey, szDescription, nOptions)


_CERT_Issue = _bind("CERT_Issue", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_char_p, ctypes.c_char_p,
        ctypes.c_char_p, ctypes.c_int)


def CERT_Issue(szCertOut: Input, szIssuerCert: Input, szIssuerKey: Input, szSubjectKeyOrRequest: Input,
        szDescription: Input, nOptions: int) -> int:
    """CERT_Issue makes a certificate that an authority signs."""
    return _CERT_Issue(szCertOut, szIssuerCert, szIssuerKey, szSubjectKeyOrRequest, szDescription, nOptions)


_CERT_Request = _bind("CERT_Request", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int)


def CERT_Request(szRequestOut: Input, szPrivateKey: Input, szDescription: Input, nOptions: int) -> int:
    """CERT_Request makes a certificate request (PKCS #10)."""
    return _CERT_Request(szRequestOut, szPrivateKey, szDescription, nOptions)


_CERT_IssueCRL = _bind("CERT_IssueCRL", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_char_p, ctypes.c_char_p,
        ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int)


def CERT_IssueCRL(szCrlOut: Input, szIssuerCert: Input, szIssuerKey: Input, szEarlierCrl: Input,
        szRevoked: Input, szDescription: Input, nOptions: int) -> int:
    """CERT_IssueCRL makes a CRL of version 2 (RFC 5280)."""
    return _CERT_IssueCRL(szCrlOut, szIssuerCert, szIssuerKey, szEarlierCrl, szRevoked, szDescription,
        nOptions)


_CERT_Query = _bind("CERT_Query", ctypes.c_char_p, ctypes.c_int, ctypes.c_char_p, ctypes.c_char_p,
        ctypes.c_int)


def CERT_Query(szOutput: Output, nOutChars: int, szCert: Input, szQuery: Input, nOptions: int) -> int:
    """CERT_Query answers one query about a certificate, request, CRL or OCSP response, the first one in
    szCert."""
    return _CERT_Query(szOutput, nOutChars, szCert, szQuery, nOptions)


_CERT_Report = _bind("CERT_Report", ctypes.c_char_p, ctypes.c_int, ctypes.c_char_p, ctypes.c_int)


def CERT_Report(szOutput: Output, nOutChars: int, szFileOrText: Input, nOptions: int) -> int:
    """CERT_Report writes all that certificates, requests, CRLs and OCSP responses hold."""
    return _CERT_Report(szOutput, nOutChars, szFileOrText, nOptions)


_CERT_CheckName = _bind("CERT_CheckName", ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int)


def CERT_CheckName(szCert: Input, szHostOrAddress: Input, nOptions: int) -> int:
    """CERT_CheckName tells whether a certificate, the first one in szCert, is for a host, an address or a
    mailbox (RFC 9525)."""
    return _CERT_CheckName(szCert, szHostOrAddress, nOptions)


_CERT_CheckPath = _bind("CERT_CheckPath", ctypes.c_char_p, ctypes.c_int, ctypes.c_char_p, ctypes.c_char_p,
        ctypes.c_char_p, ctypes.c_char_p, ctypes.c_char_p, ctypes.c_int)


def CERT_CheckPath(szReport: Output, nReportChars: int, szCert: Input, szOthers: Input, szTrusted: Input,
        szEvidence: Input, szConditions: Input, nOptions: int) -> int:
    """CERT_CheckPath tells whether a certificate can be relied on."""
    return _CERT_CheckPath(szReport, nReportChars, szCert, szOthers, szTrusted, szEvidence, szConditions,
        nOptions)
