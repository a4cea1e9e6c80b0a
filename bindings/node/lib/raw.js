// Made from include/zulcore.h by scripts/make_bindings.py.
// Every constant and function of the library as it is. Buffers are Uint8Arrays or null, texts end with a NUL.
'use strict';

const library = require('./load.js').loadLibrary();

const bind = (name, ...types) => library.func(name, 'int', types);

const int = 'int';
const pointer = 'void *';

/** The codes of failures by their names. */
exports.ErrorCode = Object.freeze({
  SUCCESS_ERROR: 0,
  OPEN_ERROR: 1,
  CREATE_ERROR: 2,
  READ_ERROR: 3,
  WRITE_ERROR: 4,
  MEMORY_ERROR: 5,
  BAD_PARAM_ERROR: 6,
  BAD_FORMAT_ERROR: 7,
  INVALID_DATA_ERROR: 8,
  EOF_ERROR: 9,
  OUT_OF_RANGE_ERROR: 11,
  DUP_ERROR: 12,
  IO_ERROR: 13,
  NULL_ERROR: 14,
  DECRYPT_ERROR: 15,
  EXPIRED_ERROR: 16,
  BAD_FLAG_ERROR: 17,
  WIPE_ERROR: 18,
  NOT_SUPPORTED_ERROR: 19,
  NO_DATA_ERROR: 20,
  NO_MATCH_ERROR: 21,
  SIGNATURE_ERROR: 22,
  TEST_FAILED_ERROR: 23,
  KEYGEN_FAILED_ERROR: 24,
  ISSUER_ERROR: 25,
  BAD_LENGTH_ERROR: 26,
  BAD_XML_ERROR: 27,
  MSG_TOO_LONG_ERROR: 28,
  BAD_QUERY_ERROR: 29,
  SHORT_BUF_ERROR: 30,
  BAD_KEY_LEN_ERROR: 33,
  BAD_BLK_LEN_ERROR: 34,
  BAD_MODE_ERROR: 35,
  BAD_KEY_ERROR: 36,
  BAD_IV_ERROR: 37,
  PRNG_ERR_FILE_OPEN: 201,
  PRNG_ERR_FILE_CREATE: 202,
  PRNG_ERR_FILE_READ: 203,
  PRNG_ERR_FILE_WRITE: 204,
  PRNG_ERR_FILE_LOCK: 205,
  PRNG_ERR_UNINST: 210,
  PRNG_ERR_TOOBIG: 211,
  PRNG_ERR_FAILURE: 212,
  PRNG_ERR_BADPARAM: 213,
  PRNG_ERR_NOTAVAIL: 214,
  PRNG_ERR_CATASTROPHIC: 299,
  MISC_ERROR: 9999,
});

// ZUL_ModuleName
exports.ZUL_MODULE_PLATFORM = 0x40;

// CNV_ByteEncoding
exports.ZUL_CNV_UTF8_FROM_LATIN1 = 0x1;
exports.ZUL_CNV_LATIN1_FROM_UTF8 = 0x2;

// Digest algorithms: bits 0-3 of the options of HASH_ and HMAC_
exports.ZUL_HASH_SHA1 = 0;
exports.ZUL_HASH_MD5 = 1;
exports.ZUL_HASH_MD2 = 2;
exports.ZUL_HASH_SHA256 = 3;
exports.ZUL_HASH_SHA384 = 4;
exports.ZUL_HASH_SHA512 = 5;
exports.ZUL_HASH_SHA224 = 6;
exports.ZUL_HASH_SHA1_RNG = 7;
exports.ZUL_HASH_MODE_TEXT = 0x10000;

// Block ciphers (bits 4-7) and modes (bits 8-11) of the options of CIPHER_
exports.ZUL_CIPHER_TDEA = 0x10;
exports.ZUL_CIPHER_AES128 = 0x20;
exports.ZUL_CIPHER_AES192 = 0x30;
exports.ZUL_CIPHER_AES256 = 0x40;
exports.ZUL_MODE_ECB = 0x000;
exports.ZUL_MODE_CBC = 0x100;
exports.ZUL_MODE_OFB = 0x200;
exports.ZUL_MODE_CFB = 0x300;
exports.ZUL_MODE_CTR = 0x400;

// RNG_BytesWithPrompt, RNG_MakeSeedFile
exports.ZUL_RNG_MORE_EVENTS = 0x1;

// RSA key files: format, or progress of RSA_MakeKeys
exports.ZUL_KEY_SHOW_PROGRESS = 0x10;
exports.ZUL_KEY_FORMAT_PEM = 0x10000;
exports.ZUL_KEY_FORMAT_PEM_ALT = 0x20000;

// Password-based encryption of private keys. With ZUL_PBE_PBES2 one cipher may be added, and a digest
// (ZUL_HASH_SHA256, SHA384 or SHA512) for the HMAC that derives the key.
exports.ZUL_PBE_SHA_3DES = 0;
exports.ZUL_PBE_MD5_DES = 1;
exports.ZUL_PBE_MD2_DES = 2;
exports.ZUL_PBE_SHA1_DES = 3;
exports.ZUL_PBE_PBES2_DEFAULT = 4;
exports.ZUL_PBE_PBES2 = 0x1000;
exports.ZUL_PBE_CIPHER_AES128 = 0x20;
exports.ZUL_PBE_CIPHER_AES192 = 0x30;
exports.ZUL_PBE_CIPHER_AES256 = 0x40;

// RSA_ToXMLString
exports.ZUL_XML_RSAKEYVALUE = 0x1;
exports.ZUL_XML_PUBLIC_ONLY = 0x10;
exports.ZUL_XML_HEXBINARY = 0x100;

// RSA_RawPublic, RSA_RawPrivate: the trailer of the RSA2 forms
exports.ZUL_RSA2_TRAILER6 = 6;
exports.ZUL_RSA2_TRAILERC = 12;

// RSA_EncodeMsg, RSA_DecodeMsg: an encoding, with a digest algorithm where it has one
exports.ZUL_EME_PKCSV1_5 = 0x00;
exports.ZUL_EME_OAEP = 0x10;
exports.ZUL_EMSIG_PKCSV1_5 = 0x20;
exports.ZUL_EMSIG_DIGESTONLY = 0x1000;
exports.ZUL_EMSIG_DIGINFO = 0x2000;
exports.ZUL_EMSIG_GETALG = 0x8000;
exports.ZUL_EMSIG_ISO9796 = 0x100000;

// X509_: bits of the options. A digest algorithm (ZUL_HASH_) may be added where one is chosen.
exports.ZUL_X509_FORMAT_PEM = 0x10000;
exports.ZUL_X509_REQ_DER = 0x20000;
exports.ZUL_X509_REQ_NOATTRS = 0x100000;
exports.ZUL_QUERY_GETTYPE = 0x100000;
exports.ZUL_X509_LATIN1 = 0x400000;
exports.ZUL_X509_UTF8 = 0x800000;
exports.ZUL_X509_AUTHKEYID = 0x1000000;
exports.ZUL_X509_NO_BASIC = 0x2000000;
exports.ZUL_X509_SET_CA = 0x4000000;
exports.ZUL_X509_VERSION1 = 0x8000000;

// Key usage (RFC 5280, 4.2.1.3): the nKeyUsageFlags of X509_MakeCert, the result of X509_KeyUsageFlags
exports.ZUL_KEYUSAGE_DIGITALSIGNATURE = 0x001;
exports.ZUL_KEYUSAGE_NONREPUDIATION = 0x002;
exports.ZUL_KEYUSAGE_KEYENCIPHERMENT = 0x004;
exports.ZUL_KEYUSAGE_DATAENCIPHERMENT = 0x008;
exports.ZUL_KEYUSAGE_KEYAGREEMENT = 0x010;
exports.ZUL_KEYUSAGE_KEYCERTSIGN = 0x020;
exports.ZUL_KEYUSAGE_CRLSIGN = 0x040;
exports.ZUL_KEYUSAGE_ENCIPHERONLY = 0x080;
exports.ZUL_KEYUSAGE_DECIPHERONLY = 0x100;

// CMS_ signed messages; a ZUL_HASH_ algorithm and, for enveloped ones, a ZUL_CMS_CIPHER_ go with them.
exports.ZUL_CMS_EXCLUDE_CERTS = 0x100;
exports.ZUL_CMS_EXCLUDE_DATA = 0x200;
exports.ZUL_CMS_CERTS_ONLY = 0x400;
exports.ZUL_CMS_INCLUDE_ATTRS = 0x800;
exports.ZUL_CMS_ADD_SIGNTIME = 0x1000;
exports.ZUL_CMS_ADD_SMIMECAPS = 0x2000;
exports.ZUL_CMS_FORMAT_BASE64 = 0x10000;
exports.ZUL_CMS_BARE_SIGNEDDATA = 0x2000000;
exports.ZUL_CMS_NAMED_SIGALG = 0x4000000;
exports.ZUL_CMS_CIPHER_TDEA = 0x10;
exports.ZUL_CMS_CIPHER_AES128 = 0x20;
exports.ZUL_CMS_CIPHER_AES192 = 0x30;
exports.ZUL_CMS_CIPHER_AES256 = 0x40;

// PFX_
exports.ZUL_PFX_NO_PRIVKEY = 0x10;

// CIPHER_Begin
exports.ZUL_CIPHER_NO_PADDING = 0x1;

// AEAD_Encrypt, AEAD_Decrypt
exports.ZUL_AEAD_RANDOM_NONCE = 0x1;

// KEY_Save: beside ZUL_KEY_FORMAT_PEM, the structure that the kind of key has of its own
exports.ZUL_KEY_FORMAT_OWN = 0x40000;

// SIG_
exports.ZUL_SIG_RAW = 0x1;
exports.ZUL_SIG_DETERMINISTIC = 0x2;

// SEAL_
exports.ZUL_SEAL_ARMOUR = 0x1;
exports.ZUL_SEAL_STDIN = 0x2;
exports.ZUL_SEAL_STDOUT = 0x4;

// CERT_
exports.ZUL_CERT_DER = 0x1;
exports.ZUL_CERT_BEYOND_ISSUER = 0x2;
exports.ZUL_CERT_JSON = 0x10;
exports.ZUL_CERT_SUBJECT_NAME = 0x20;
exports.ZUL_CERT_WEB = 0x40;

// P12_. P12_Unpack: the number of the key, from 0, in the low byte
exports.ZUL_P12_LEGACY = 0x100;
exports.ZUL_P12_PBMAC1 = 0x200;
exports.ZUL_P12_TRUSTED = 0x400;
exports.ZUL_P12_NEED_MAC = 0x800;
exports.ZUL_P12_JSON = 0x1000;

/** ZUL_ErrorCode returns the error code that the thread's last call recorded, always positive; 0 if none. */
exports.ZUL_ErrorCode = bind('ZUL_ErrorCode');
/** ZUL_LastError copies the thread's last error text (at most 511 characters; often empty). */
exports.ZUL_LastError = bind('ZUL_LastError', pointer, int);
/** ZUL_ErrorLookup copies the text of an error code of either sign. */
exports.ZUL_ErrorLookup = bind('ZUL_ErrorLookup', pointer, int, int);
/**
 * ZUL_ModuleName copies the full path of the library's own file (nOptions 0; at most 260 characters) or the word for
 * its platform, "Win64" or "Lin64" (ZUL_MODULE_PLATFORM).
 */
exports.ZUL_ModuleName = bind('ZUL_ModuleName', pointer, int, int);
/** ZUL_Version returns major * 100 + minor * 10 + release. */
exports.ZUL_Version = bind('ZUL_Version', pointer, pointer);
/** ZUL_CompileTime copies the date and time of the build, as "Nov  1 2026 09:08:07". */
exports.ZUL_CompileTime = bind('ZUL_CompileTime', pointer, int);
/** ZUL_PowerUpTests repeats the tests that the module ran when it was loaded. */
exports.ZUL_PowerUpTests = bind('ZUL_PowerUpTests', int);
/** WIPE_Data overwrites nDataLen bytes with zero. */
exports.WIPE_Data = bind('WIPE_Data', pointer, int);
/** WIPE_File overwrites a file seven times, commits each pass to the disk, and deletes the file. */
exports.WIPE_File = bind('WIPE_File', pointer, int);
/** CNV_HexStrFromBytes writes two upper-case hex digits for each byte. */
exports.CNV_HexStrFromBytes = bind('CNV_HexStrFromBytes', pointer, int, pointer, int);
/**
 * CNV_BytesFromHexStr decodes hex digits of either case, skipping every other character; a single digit left over is
 * dropped.
 */
exports.CNV_BytesFromHexStr = bind('CNV_BytesFromHexStr', pointer, int, pointer);
/** CNV_HexFilter copies the hex digits among the first nStrLen characters. */
exports.CNV_HexFilter = bind('CNV_HexFilter', pointer, pointer, int);
/** CNV_B64StrFromBytes writes base64 (RFC 4648) in one line. */
exports.CNV_B64StrFromBytes = bind('CNV_B64StrFromBytes', pointer, int, pointer, int);
/** CNV_BytesFromB64Str decodes base64 up to the first "=", skipping characters outside the alphabet. */
exports.CNV_BytesFromB64Str = bind('CNV_BytesFromB64Str', pointer, int, pointer);
/** CNV_B64Filter is CNV_HexFilter for the base64 alphabet and "=". */
exports.CNV_B64Filter = bind('CNV_B64Filter', pointer, pointer, int);
/** CNV_CheckUTF8 classifies a text. */
exports.CNV_CheckUTF8 = bind('CNV_CheckUTF8', pointer);
/** CNV_CheckUTF8Bytes is CNV_CheckUTF8 over nBytes bytes. */
exports.CNV_CheckUTF8Bytes = bind('CNV_CheckUTF8Bytes', pointer, int);
/** CNV_UTF8FromLatin1 converts Latin-1 text to UTF-8 text. */
exports.CNV_UTF8FromLatin1 = bind('CNV_UTF8FromLatin1', pointer, int, pointer);
/** CNV_Latin1FromUTF8 converts UTF-8 text to Latin-1 text. */
exports.CNV_Latin1FromUTF8 = bind('CNV_Latin1FromUTF8', pointer, int, pointer);
/** CNV_UTF8BytesFromLatin1 is CNV_UTF8FromLatin1 without the NUL; nOutBytes is the room in bytes. */
exports.CNV_UTF8BytesFromLatin1 = bind('CNV_UTF8BytesFromLatin1', pointer, int, pointer);
/** CNV_Latin1FromUTF8Bytes is CNV_Latin1FromUTF8 over nBytes bytes. */
exports.CNV_Latin1FromUTF8Bytes = bind('CNV_Latin1FromUTF8Bytes', pointer, int, pointer, int);
/** CNV_ByteEncoding converts bytes. */
exports.CNV_ByteEncoding = bind('CNV_ByteEncoding', pointer, int, pointer, int, int);
/**
 * PEM_FileFromBinFile writes a file's content as base64 lines ended by CR LF, between BEGIN and END lines if szHeader
 * (the label) is not null or empty.
 */
exports.PEM_FileFromBinFile = bind('PEM_FileFromBinFile', pointer, pointer, pointer, int);
/** PEM_FileToBinFile decodes the first armoured body of a file, whatever its label. */
exports.PEM_FileToBinFile = bind('PEM_FileToBinFile', pointer, pointer);
/** HASH_Bytes writes the digest of a message of nMsgLen bytes. */
exports.HASH_Bytes = bind('HASH_Bytes', pointer, int, pointer, int, int);
/** HASH_File writes the digest of a file of any size. */
exports.HASH_File = bind('HASH_File', pointer, int, pointer, int);
/** HASH_HexFromBytes is HASH_Bytes with lower-case hex as output. */
exports.HASH_HexFromBytes = bind('HASH_HexFromBytes', pointer, int, pointer, int, int);
/** HASH_HexFromFile is HASH_File with lower-case hex as output. */
exports.HASH_HexFromFile = bind('HASH_HexFromFile', pointer, int, pointer, int);
/** HASH_HexFromHex is HASH_HexFromBytes over a message in hex. */
exports.HASH_HexFromHex = bind('HASH_HexFromHex', pointer, int, pointer, int);
/** HMAC_Bytes writes the MAC of a message. */
exports.HMAC_Bytes = bind('HMAC_Bytes', pointer, int, pointer, int, pointer, int, int);
/** HMAC_HexFromBytes is HMAC_Bytes with lower-case hex as output. */
exports.HMAC_HexFromBytes = bind('HMAC_HexFromBytes', pointer, int, pointer, int, pointer, int, int);
/** HMAC_HexFromHex is HMAC_HexFromBytes over a message and key in hex. */
exports.HMAC_HexFromHex = bind('HMAC_HexFromHex', pointer, int, pointer, pointer, int);
/** KDF_Pbkdf2 is PBKDF2 of RFC 8018 with HMAC. */
exports.KDF_Pbkdf2 = bind('KDF_Pbkdf2', pointer, int, pointer, int, pointer, int, int, pointer);
/** KDF_Hkdf is HKDF of RFC 5869, extract and expand. */
exports.KDF_Hkdf = bind('KDF_Hkdf', pointer, int, pointer, int, pointer, int, pointer, int, pointer);
/** KDF_Scrypt is scrypt of RFC 7914. */
exports.KDF_Scrypt = bind('KDF_Scrypt', pointer, int, pointer, int, pointer, int, int, int, int);
/** KDF_Argon2id is Argon2id of RFC 9106, version 0x13, without secret and associated data. */
exports.KDF_Argon2id = bind('KDF_Argon2id', pointer, int, pointer, int, pointer, int, int, int, int);
/** CIPHER_Bytes encrypts or decrypts nBytes bytes; lpOutput has the same length and may be lpInput. */
exports.CIPHER_Bytes = bind('CIPHER_Bytes', int, pointer, pointer, int, pointer, pointer, pointer, int);
/**
 * CIPHER_Hex is CIPHER_Bytes over hex texts; the output is upper case and nOutChars must cover all of it
 * (SHORT_BUF_ERROR).
 */
exports.CIPHER_Hex = bind('CIPHER_Hex', int, pointer, int, pointer, pointer, pointer, pointer, int);
/** CIPHER_File encrypts or decrypts a file of any size into another. */
exports.CIPHER_File = bind('CIPHER_File', int, pointer, pointer, pointer, pointer, pointer, int);
/**
 * TDEA_BytesMode is CIPHER_Bytes with Triple DES; szMode is "ECB", "CBC", "CFB", "OFB" or "CTR" in any case
 * (BAD_MODE_ERROR otherwise; BAD_PARAM_ERROR if null).
 */
exports.TDEA_BytesMode = bind('TDEA_BytesMode', pointer, pointer, int, pointer, int, pointer, pointer);
/** TDEA_HexMode is TDEA_BytesMode over hex texts. */
exports.TDEA_HexMode = bind('TDEA_HexMode', pointer, pointer, pointer, int, pointer, pointer);
/** TDEA_B64Mode is TDEA_HexMode over base64 texts; szOutput holds (bytes + 2) / 3 * 4 characters and a NUL. */
exports.TDEA_B64Mode = bind('TDEA_B64Mode', pointer, pointer, pointer, int, pointer, pointer);
/** TDEA_File is CIPHER_File with Triple DES and a mode as in TDEA_BytesMode. */
exports.TDEA_File = bind('TDEA_File', pointer, pointer, pointer, int, pointer, pointer);
/** CIPHER_KeyWrap wraps a key of nDataLen bytes under a key-encryption key. */
exports.CIPHER_KeyWrap = bind('CIPHER_KeyWrap', pointer, int, pointer, int, pointer, int, int);
/** CIPHER_KeyUnwrap undoes CIPHER_KeyWrap; errors as there. */
exports.CIPHER_KeyUnwrap = bind('CIPHER_KeyUnwrap', pointer, int, pointer, int, pointer, int, int);
/** PAD_BytesBlock copies the input and appends 1 to nBlkLen bytes that hold their count. */
exports.PAD_BytesBlock = bind('PAD_BytesBlock', pointer, int, pointer, int, int, int);
/** PAD_UnpadBytes copies the input without its padding. */
exports.PAD_UnpadBytes = bind('PAD_UnpadBytes', pointer, int, pointer, int, int, int);
/** PAD_HexBlock is PAD_BytesBlock over hex text, which is copied unchanged and not validated. */
exports.PAD_HexBlock = bind('PAD_HexBlock', pointer, int, pointer, int, int);
/** PAD_UnpadHex is PAD_UnpadBytes over hex text. */
exports.PAD_UnpadHex = bind('PAD_UnpadHex', pointer, int, pointer, int, int);
/** RNG_Bytes fills nBytes (at most 65,536) random bytes. */
exports.RNG_Bytes = bind('RNG_Bytes', pointer, int, pointer, int);
/**
 * RNG_BytesWithPrompt shows a dialog in which the user types at random and moves the mouse until enough has been
 * collected.
 */
exports.RNG_BytesWithPrompt = bind('RNG_BytesWithPrompt', pointer, int, pointer, int);
/**
 * RNG_Number returns a uniform number from nLower to nUpper, both included; nLower if nUpper is not greater, or if
 * the range needs all 32 bits.
 */
exports.RNG_Number = bind('RNG_Number', int, int);
/**
 * RNG_Test runs the generator's known-answer test and the four statistical tests of FIPS 140-2 on 20,000 fresh bits,
 * and writes a report if szFileName is not null or empty.
 */
exports.RNG_Test = bind('RNG_Test', pointer, int);
/**
 * RNG_Initialize instantiates the thread's generator and takes in a seed file of 64 bytes, which it then overwrites
 * with fresh ones.
 */
exports.RNG_Initialize = bind('RNG_Initialize', pointer, int);
/**
 * RNG_MakeSeedFile makes or overwrites a seed file for RNG_Initialize from what the user does in the dialog of
 * RNG_BytesWithPrompt; szPrompt and nOptions as there.
 */
exports.RNG_MakeSeedFile = bind('RNG_MakeSeedFile', pointer, pointer, int);
/** RNG_UpdateSeedFile takes in a seed file and overwrites it, as RNG_Initialize. */
exports.RNG_UpdateSeedFile = bind('RNG_UpdateSeedFile', pointer, int);
/**
 * PWD_PromptEx shows a dialog in which the user enters a password, or asks for it in the process's controlling
 * terminal (Linux).
 */
exports.PWD_PromptEx = bind('PWD_PromptEx', pointer, int, pointer, pointer);
/** PWD_Prompt is PWD_PromptEx with the dialog's own text, "Enter password:". */
exports.PWD_Prompt = bind('PWD_Prompt', pointer, int, pointer);
/** RSA_MakeKeys makes a key pair and writes two files. */
exports.RSA_MakeKeys = bind('RSA_MakeKeys', pointer, pointer, int, int, int, int, pointer, pointer, int, int);
/** RSA_ReadPublicKey reads an RSAPublicKey (PKCS #1) or SubjectPublicKeyInfo (X.509) and writes its key string. */
exports.RSA_ReadPublicKey = bind('RSA_ReadPublicKey', pointer, int, pointer);
/**
 * RSA_ReadPrivateKeyInfo reads an unencrypted PrivateKeyInfo (PKCS #8) or RSAPrivateKey (PKCS #1) of two primes and
 * writes its key string.
 */
exports.RSA_ReadPrivateKeyInfo = bind('RSA_ReadPrivateKeyInfo', pointer, int, pointer);
/** RSA_ReadEncPrivateKey reads an EncryptedPrivateKeyInfo (PKCS #8) and writes the private key's key string. */
exports.RSA_ReadEncPrivateKey = bind('RSA_ReadEncPrivateKey', pointer, int, pointer, pointer, int);
/** RSA_GetPublicKeyFromCert reads an X.509 certificate and writes the key string of its subject's public key. */
exports.RSA_GetPublicKeyFromCert = bind('RSA_GetPublicKeyFromCert', pointer, int, pointer);
/** RSA_SavePublicKey writes a public key, or the public part of a private key, to a file. */
exports.RSA_SavePublicKey = bind('RSA_SavePublicKey', pointer, pointer, int);
/** RSA_SavePrivateKeyInfo writes a private key to a file, unencrypted. */
exports.RSA_SavePrivateKeyInfo = bind('RSA_SavePrivateKeyInfo', pointer, pointer, int);
/** RSA_SaveEncPrivateKey writes a private key to a file as EncryptedPrivateKeyInfo. */
exports.RSA_SaveEncPrivateKey = bind('RSA_SaveEncPrivateKey', pointer, pointer, int, pointer, int);
/** RSA_ToXMLString writes a key as XML. */
exports.RSA_ToXMLString = bind('RSA_ToXMLString', pointer, int, pointer, int);
/** RSA_FromXMLString reads a key from XML and gives its internal key string. */
exports.RSA_FromXMLString = bind('RSA_FromXMLString', pointer, int, pointer, int);
/** RSA_KeyBits returns the length in bits of the modulus of a public or private key. */
exports.RSA_KeyBits = bind('RSA_KeyBits', pointer);
/** RSA_KeyBytes returns the length in bytes of the modulus, which is that of data and encoded blocks. */
exports.RSA_KeyBytes = bind('RSA_KeyBytes', pointer);
/** RSA_KeyMatch tells whether a private and a public key form a pair. */
exports.RSA_KeyMatch = bind('RSA_KeyMatch', pointer, pointer);
/**
 * RSA_KeyHashCode returns a hash code, which may be negative, of a public key or of the public part of a private key.
 */
exports.RSA_KeyHashCode = bind('RSA_KeyHashCode', pointer);
/** RSA_CheckKey checks a key. */
exports.RSA_CheckKey = bind('RSA_CheckKey', pointer, int);
/** RSA_RawPublic transforms data in place with a public key string. */
exports.RSA_RawPublic = bind('RSA_RawPublic', pointer, int, pointer, int);
/** RSA_RawPrivate transforms data in place with a private key. */
exports.RSA_RawPrivate = bind('RSA_RawPrivate', pointer, int, pointer, int);
/** RSA_EncodeMsg fills the nOutBytes bytes (normally RSA_KeyBytes) of lpOutput with the encoding of a message. */
exports.RSA_EncodeMsg = bind('RSA_EncodeMsg', pointer, int, pointer, int, int);
/** RSA_DecodeMsg recovers the message from an encoded block, of which at most nOutBytes bytes are copied. */
exports.RSA_DecodeMsg = bind('RSA_DecodeMsg', pointer, int, pointer, int, int);
/** X509_QueryCert answers a query about a certificate. */
exports.X509_QueryCert = bind('X509_QueryCert', pointer, int, pointer, pointer, int);
/**
 * X509_KeyUsageFlags returns the key usage as ZUL_KEYUSAGE_ bits, 0 if the certificate does not say, or a negated
 * code.
 */
exports.X509_KeyUsageFlags = bind('X509_KeyUsageFlags', pointer);
/** X509_CertThumb writes the digest (nOptions: ZUL_HASH_...) of a certificate in lower-case hex. */
exports.X509_CertThumb = bind('X509_CertThumb', pointer, pointer, int, int);
/**
 * X509_CertIsValidNow returns 0 if the present time lies within the certificate's validity, -1 if not, or a positive
 * code.
 */
exports.X509_CertIsValidNow = bind('X509_CertIsValidNow', pointer, int);
/**
 * X509_CertIssuedOn and X509_CertExpiresOn write the beginning and end of the validity, 20 characters, cut to nChars.
 */
exports.X509_CertIssuedOn = bind('X509_CertIssuedOn', pointer, pointer, int, int);
/**
 * X509_CertIssuedOn and X509_CertExpiresOn write the beginning and end of the validity, 20 characters, cut to nChars.
 */
exports.X509_CertExpiresOn = bind('X509_CertExpiresOn', pointer, pointer, int, int);
/** X509_CertSerialNumber writes the serial number's bytes in lower-case hex. */
exports.X509_CertSerialNumber = bind('X509_CertSerialNumber', pointer, pointer, int, int);
/** X509_CertSubjectName and X509_CertIssuerName write a name as text, cut to nChars. */
exports.X509_CertSubjectName = bind('X509_CertSubjectName', pointer, pointer, int, pointer, int);
/** X509_CertSubjectName and X509_CertIssuerName write a name as text, cut to nChars. */
exports.X509_CertIssuerName = bind('X509_CertIssuerName', pointer, pointer, int, pointer, int);
/**
 * X509_HashIssuerAndSN writes the digest of the certificate's IssuerAndSerialNumber (RFC 5652), as X509_CertThumb
 * that of the certificate.
 */
exports.X509_HashIssuerAndSN = bind('X509_HashIssuerAndSN', pointer, pointer, int, int);
/**
 * X509_ReadStringFromFile writes a certificate as base64 in one line, which serves as szCertFile wherever one is
 * asked for (if it is longer than 256 characters, as that of any certificate with an RSA key is).
 */
exports.X509_ReadStringFromFile = bind('X509_ReadStringFromFile', pointer, int, pointer, int);
/** X509_SaveFileFromString writes a certificate given as base64 to a file. */
exports.X509_SaveFileFromString = bind('X509_SaveFileFromString', pointer, pointer, int);
/** X509_MakeCert makes a certificate (RFC 5280) signed by an issuer. */
exports.X509_MakeCert = bind('X509_MakeCert', pointer, pointer, pointer, pointer, int, int, pointer, pointer, int,
  pointer, int);
/**
 * X509_MakeCertSelf makes the self-signed certificate of a certification authority from its encrypted private key.
 */
exports.X509_MakeCertSelf = bind('X509_MakeCertSelf', pointer, pointer, int, int, pointer, pointer, int, pointer,
  int);
/** X509_CertRequest makes a certification request (PKCS #10, RFC 2986) from an encrypted private key. */
exports.X509_CertRequest = bind('X509_CertRequest', pointer, pointer, pointer, pointer, pointer, int);
/** X509_MakeCRL makes a revocation list of version 1. */
exports.X509_MakeCRL = bind('X509_MakeCRL', pointer, pointer, pointer, pointer, pointer, pointer, int);
/** X509_VerifyCert checks that a certificate, request or CRL was signed with the key of szIssuerCert. */
exports.X509_VerifyCert = bind('X509_VerifyCert', pointer, pointer);
/** X509_CheckCertInCRL looks a certificate up in its issuer's CRL. */
exports.X509_CheckCertInCRL = bind('X509_CheckCertInCRL', pointer, pointer, pointer, pointer, int);
/**
 * X509_ValidatePath orders certificates into a path and checks each one's signature, and its dates unless nOptions is
 * not 0.
 */
exports.X509_ValidatePath = bind('X509_ValidatePath', pointer, pointer, int);
/** X509_TextDump writes a description of a certificate, request or CRL to a text file. */
exports.X509_TextDump = bind('X509_TextDump', pointer, pointer, int);
/**
 * X509_GetCertFromP7Chain takes a certificate out of a signed message or a certs-only one (PKCS #7, "p7c" or "p7b"),
 * a message argument as below.
 */
exports.X509_GetCertFromP7Chain = bind('X509_GetCertFromP7Chain', pointer, pointer, int, int);
/**
 * X509_GetCertFromPFX and RSA_GetPrivateKeyFromPFX write the first certificate of a PKCS #12 file, as DER, and its
 * first encrypted private key, as RSA_ReadEncPrivateKey reads it, to a file.
 */
exports.X509_GetCertFromPFX = bind('X509_GetCertFromPFX', pointer, pointer, int);
/**
 * X509_GetCertFromPFX and RSA_GetPrivateKeyFromPFX write the first certificate of a PKCS #12 file, as DER, and its
 * first encrypted private key, as RSA_ReadEncPrivateKey reads it, to a file.
 */
exports.RSA_GetPrivateKeyFromPFX = bind('RSA_GetPrivateKeyFromPFX', pointer, pointer, int);
/** CMS_MakeSigData signs a file with RSA (PKCS #1 v1.5). */
exports.CMS_MakeSigData = bind('CMS_MakeSigData', pointer, pointer, pointer, pointer, int);
/** CMS_MakeSigDataFromString signs the bytes of a text, without its NUL, as CMS_MakeSigData a file. */
exports.CMS_MakeSigDataFromString = bind('CMS_MakeSigDataFromString', pointer, pointer, pointer, pointer, int);
/** CMS_MakeDetachedSig signs content whose digest is given in hex; the content is not carried. */
exports.CMS_MakeDetachedSig = bind('CMS_MakeDetachedSig', pointer, pointer, pointer, pointer, int);
/**
 * CMS_MakeSigDataFromSigValue makes a message from nDataLen bytes of content and their finished signature, made by a
 * smart card, for example.
 */
exports.CMS_MakeSigDataFromSigValue = bind('CMS_MakeSigDataFromSigValue', pointer, pointer, int, pointer, int,
  pointer, int);
/**
 * CMS_ReadSigData writes the content of a signed message to a file, CMS_ReadSigDataToString to nDataOutLen bytes of
 * room and a NUL.
 */
exports.CMS_ReadSigData = bind('CMS_ReadSigData', pointer, pointer, int);
/**
 * CMS_ReadSigData writes the content of a signed message to a file, CMS_ReadSigDataToString to nDataOutLen bytes of
 * room and a NUL.
 */
exports.CMS_ReadSigDataToString = bind('CMS_ReadSigDataToString', pointer, int, pointer, int);
/**
 * CMS_VerifySigData verifies the signature of a signed message, RSA (PKCS #1 v1.5) with any digest or DSA with SHA-1,
 * and the digest of its content.
 */
exports.CMS_VerifySigData = bind('CMS_VerifySigData', pointer, pointer, pointer, int);
/** CMS_GetSigDataDigest writes the digest of the content that was signed, in lower-case hex. */
exports.CMS_GetSigDataDigest = bind('CMS_GetSigDataDigest', pointer, int, pointer, pointer, int);
/** CMS_QuerySigData answers a query about a signed message of any version, verified or not. */
exports.CMS_QuerySigData = bind('CMS_QuerySigData', pointer, int, pointer, pointer, int);
/** CMS_MakeEnvData encrypts a file for the RSA keys (PKCS #1 v1.5) of up to 10 certificates. */
exports.CMS_MakeEnvData = bind('CMS_MakeEnvData', pointer, pointer, pointer, pointer, int, int);
/** CMS_MakeEnvDataFromString encrypts the bytes of a text, without its NUL, as CMS_MakeEnvData a file. */
exports.CMS_MakeEnvDataFromString = bind('CMS_MakeEnvDataFromString', pointer, pointer, pointer, pointer, int, int);
/**
 * CMS_ReadEnvData decrypts an enveloped message (Triple DES, AES or RC2, CBC) into a file, CMS_ReadEnvDataToString
 * into nDataOutLen bytes of room and a NUL.
 */
exports.CMS_ReadEnvData = bind('CMS_ReadEnvData', pointer, pointer, pointer, pointer, int);
/**
 * CMS_ReadEnvData decrypts an enveloped message (Triple DES, AES or RC2, CBC) into a file, CMS_ReadEnvDataToString
 * into nDataOutLen bytes of room and a NUL.
 */
exports.CMS_ReadEnvDataToString = bind('CMS_ReadEnvDataToString', pointer, int, pointer, pointer, pointer, int);
/** CMS_QueryEnvData answers a query about an enveloped message. */
exports.CMS_QueryEnvData = bind('CMS_QueryEnvData', pointer, int, pointer, pointer, int);
/** PFX_MakeFile writes a PFX file. */
exports.PFX_MakeFile = bind('PFX_MakeFile', pointer, pointer, pointer, pointer, pointer, int);
/** PFX_VerifySig checks the MAC of a PFX file (HMAC with SHA-1, SHA-256, SHA-384 or SHA-512) with a password. */
exports.PFX_VerifySig = bind('PFX_VerifySig', pointer, pointer, int);
/** OCSP_MakeRequest writes an unsigned request about one certificate as base64 in one line. */
exports.OCSP_MakeRequest = bind('OCSP_MakeRequest', pointer, int, pointer, pointer, pointer, int);
/** OCSP_ReadResponse writes a report of a response, which is a file of DER, PEM or base64, or text. */
exports.OCSP_ReadResponse = bind('OCSP_ReadResponse', pointer, int, pointer, pointer, pointer, int);
/** HASH_Begin begins a digest. */
exports.HASH_Begin = bind('HASH_Begin', pointer, int, pointer, int);
/** HASH_Add absorbs nDataLen bytes. */
exports.HASH_Add = bind('HASH_Add', pointer, pointer, int);
/**
 * HASH_End writes the digest, cut to nOutBytes, and wipes the context; of "shake128" and "shake256" it writes
 * nOutBytes bytes.
 */
exports.HASH_End = bind('HASH_End', pointer, int, pointer);
/**
 * HMAC_Begin begins a MAC with a key of any length and a digest that has an HMAC (not "md2", "shake128" and
 * "shake256"); the rest as HASH_Begin.
 */
exports.HMAC_Begin = bind('HMAC_Begin', pointer, int, pointer, int, pointer, int);
/** HMAC_Add absorbs nDataLen bytes, as HASH_Add. */
exports.HMAC_Add = bind('HMAC_Add', pointer, pointer, int);
/** HMAC_End writes the MAC, cut to nOutBytes, and wipes the context, as HASH_End. */
exports.HMAC_End = bind('HMAC_End', pointer, int, pointer);
/** CIPHER_Begin begins to encrypt (fEncrypt not 0) or decrypt. */
exports.CIPHER_Begin = bind('CIPHER_Begin', pointer, int, int, pointer, int, pointer, int, pointer, int);
/** CIPHER_Add takes the next piece and writes what is ready, which may be a block less or more than the piece. */
exports.CIPHER_Add = bind('CIPHER_Add', pointer, int, pointer, pointer, int);
/** CIPHER_End writes the end, at most a block, and wipes the context. */
exports.CIPHER_End = bind('CIPHER_End', pointer, int, pointer);
/** AEAD_Encrypt encrypts data and adds a tag of 16 bytes, which also covers lpAad, data that is not encrypted. */
exports.AEAD_Encrypt = bind('AEAD_Encrypt', pointer, int, pointer, int, pointer, int, pointer, int, pointer, int,
  pointer, int);
/** AEAD_Decrypt undoes AEAD_Encrypt. */
exports.AEAD_Decrypt = bind('AEAD_Decrypt', pointer, int, pointer, int, pointer, int, pointer, int, pointer, int,
  pointer, int);
/** KEY_Make makes a private key. */
exports.KEY_Make = bind('KEY_Make', pointer, int, pointer, int);
/** KEY_Read reads a key, private or public, as a key string. */
exports.KEY_Read = bind('KEY_Read', pointer, int, pointer, pointer, int);
/** KEY_Save writes a key to a file, which is replaced in one step. */
exports.KEY_Save = bind('KEY_Save', pointer, pointer, pointer, pointer, int);
/** KEY_Public gives the public key of a private one. */
exports.KEY_Public = bind('KEY_Public', pointer, int, pointer);
/** KEY_Query answers a query about a key. */
exports.KEY_Query = bind('KEY_Query', pointer, int, pointer, pointer, int);
/** KEY_Match tells whether a private key belongs to a public one. */
exports.KEY_Match = bind('KEY_Match', pointer, pointer);
/** KEY_Check tells whether a key's values are valid and belong together. */
exports.KEY_Check = bind('KEY_Check', pointer, int);
/** KEY_Agree computes the secret that the owners of two key pairs share. */
exports.KEY_Agree = bind('KEY_Agree', pointer, int, pointer, pointer, int);
/** SIG_Sign signs data. */
exports.SIG_Sign = bind('SIG_Sign', pointer, int, pointer, int, pointer, pointer, int);
/** SIG_Verify verifies a signature of data. */
exports.SIG_Verify = bind('SIG_Verify', pointer, int, pointer, int, pointer, pointer, int);
/** SIG_SignFile signs the content of a file of any size. */
exports.SIG_SignFile = bind('SIG_SignFile', pointer, int, pointer, pointer, pointer, int);
/** SIG_VerifyFile verifies a signature of the content of a file of any size. */
exports.SIG_VerifyFile = bind('SIG_VerifyFile', pointer, int, pointer, pointer, pointer, int);
/** SIG_SignDigest signs data whose digest is given. */
exports.SIG_SignDigest = bind('SIG_SignDigest', pointer, int, pointer, int, pointer, pointer, int);
/** SIG_VerifyDigest verifies a signature of data whose digest is given. */
exports.SIG_VerifyDigest = bind('SIG_VerifyDigest', pointer, int, pointer, int, pointer, pointer, int);
/** SEAL_MakeIdentity makes an identity. */
exports.SEAL_MakeIdentity = bind('SEAL_MakeIdentity', pointer, int, int);
/** SEAL_Recipient gives the recipient of an identity. */
exports.SEAL_Recipient = bind('SEAL_Recipient', pointer, int, pointer);
/** SEAL_File encrypts a file, either for recipients or under a password (scrypt with a work factor of 2^18). */
exports.SEAL_File = bind('SEAL_File', pointer, pointer, pointer, pointer, int);
/** SEAL_OpenFile decrypts a file, in armour or not. */
exports.SEAL_OpenFile = bind('SEAL_OpenFile', pointer, pointer, pointer, pointer, int);
/** P12_Pack writes a PKCS #12 file, which is replaced in one step, of a private key and certificates. */
exports.P12_Pack = bind('P12_Pack', pointer, pointer, pointer, pointer, pointer, int);
/** P12_Unpack reads a PKCS #12 file. */
exports.P12_Unpack = bind('P12_Unpack', pointer, pointer, int, pointer, pointer, int);
/** P12_List describes a PKCS #12 file in UTF-8. */
exports.P12_List = bind('P12_List', pointer, int, pointer, pointer, int);
/** CERT_SelfSign makes a certificate that its own key signs. */
exports.CERT_SelfSign = bind('CERT_SelfSign', pointer, pointer, pointer, int);
/** CERT_Issue makes a certificate that an authority signs. */
exports.CERT_Issue = bind('CERT_Issue', pointer, pointer, pointer, pointer, pointer, int);
/** CERT_Request makes a certificate request (PKCS #10). */
exports.CERT_Request = bind('CERT_Request', pointer, pointer, pointer, int);
/** CERT_IssueCRL makes a CRL of version 2 (RFC 5280). */
exports.CERT_IssueCRL = bind('CERT_IssueCRL', pointer, pointer, pointer, pointer, pointer, pointer, int);
/** CERT_Query answers one query about a certificate, request, CRL or OCSP response, the first one in szCert. */
exports.CERT_Query = bind('CERT_Query', pointer, int, pointer, pointer, int);
/** CERT_Report writes all that certificates, requests, CRLs and OCSP responses hold. */
exports.CERT_Report = bind('CERT_Report', pointer, int, pointer, int);
/**
 * CERT_CheckName tells whether a certificate, the first one in szCert, is for a host, an address or a mailbox (RFC
 * 9525).
 */
exports.CERT_CheckName = bind('CERT_CheckName', pointer, pointer, int);
/** CERT_CheckPath tells whether a certificate can be relied on. */
exports.CERT_CheckPath = bind('CERT_CheckPath', pointer, int, pointer, pointer, pointer, pointer, pointer, int);
