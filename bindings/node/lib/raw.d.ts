// Made from include/zulcore.h by scripts/make_bindings.py.
// Every constant and function of the library as it is. Buffers are Uint8Arrays or null, texts end with a NUL.

export type Input = Uint8Array | null;
export type Output = Uint8Array | null;

/** The codes of failures by their names. */
export const ErrorCode: {
  readonly SUCCESS_ERROR: 0;
  readonly OPEN_ERROR: 1;
  readonly CREATE_ERROR: 2;
  readonly READ_ERROR: 3;
  readonly WRITE_ERROR: 4;
  readonly MEMORY_ERROR: 5;
  readonly BAD_PARAM_ERROR: 6;
  readonly BAD_FORMAT_ERROR: 7;
  readonly INVALID_DATA_ERROR: 8;
  readonly EOF_ERROR: 9;
  readonly OUT_OF_RANGE_ERROR: 11;
  readonly DUP_ERROR: 12;
  readonly IO_ERROR: 13;
  readonly NULL_ERROR: 14;
  readonly DECRYPT_ERROR: 15;
  readonly EXPIRED_ERROR: 16;
  readonly BAD_FLAG_ERROR: 17;
  readonly WIPE_ERROR: 18;
  readonly NOT_SUPPORTED_ERROR: 19;
  readonly NO_DATA_ERROR: 20;
  readonly NO_MATCH_ERROR: 21;
  readonly SIGNATURE_ERROR: 22;
  readonly TEST_FAILED_ERROR: 23;
  readonly KEYGEN_FAILED_ERROR: 24;
  readonly ISSUER_ERROR: 25;
  readonly BAD_LENGTH_ERROR: 26;
  readonly BAD_XML_ERROR: 27;
  readonly MSG_TOO_LONG_ERROR: 28;
  readonly BAD_QUERY_ERROR: 29;
  readonly SHORT_BUF_ERROR: 30;
  readonly BAD_KEY_LEN_ERROR: 33;
  readonly BAD_BLK_LEN_ERROR: 34;
  readonly BAD_MODE_ERROR: 35;
  readonly BAD_KEY_ERROR: 36;
  readonly BAD_IV_ERROR: 37;
  readonly PRNG_ERR_FILE_OPEN: 201;
  readonly PRNG_ERR_FILE_CREATE: 202;
  readonly PRNG_ERR_FILE_READ: 203;
  readonly PRNG_ERR_FILE_WRITE: 204;
  readonly PRNG_ERR_FILE_LOCK: 205;
  readonly PRNG_ERR_UNINST: 210;
  readonly PRNG_ERR_TOOBIG: 211;
  readonly PRNG_ERR_FAILURE: 212;
  readonly PRNG_ERR_BADPARAM: 213;
  readonly PRNG_ERR_NOTAVAIL: 214;
  readonly PRNG_ERR_CATASTROPHIC: 299;
  readonly MISC_ERROR: 9999;
};

// ZUL_ModuleName
export const ZUL_MODULE_PLATFORM: 0x40;

// CNV_ByteEncoding
export const ZUL_CNV_UTF8_FROM_LATIN1: 0x1;
export const ZUL_CNV_LATIN1_FROM_UTF8: 0x2;

// Digest algorithms: bits 0-3 of the options of HASH_ and HMAC_
export const ZUL_HASH_SHA1: 0;
export const ZUL_HASH_MD5: 1;
export const ZUL_HASH_MD2: 2;
export const ZUL_HASH_SHA256: 3;
export const ZUL_HASH_SHA384: 4;
export const ZUL_HASH_SHA512: 5;
export const ZUL_HASH_SHA224: 6;
export const ZUL_HASH_SHA1_RNG: 7;
export const ZUL_HASH_MODE_TEXT: 0x10000;

// Block ciphers (bits 4-7) and modes (bits 8-11) of the options of CIPHER_
export const ZUL_CIPHER_TDEA: 0x10;
export const ZUL_CIPHER_AES128: 0x20;
export const ZUL_CIPHER_AES192: 0x30;
export const ZUL_CIPHER_AES256: 0x40;
export const ZUL_MODE_ECB: 0x000;
export const ZUL_MODE_CBC: 0x100;
export const ZUL_MODE_OFB: 0x200;
export const ZUL_MODE_CFB: 0x300;
export const ZUL_MODE_CTR: 0x400;

// RNG_BytesWithPrompt, RNG_MakeSeedFile
export const ZUL_RNG_MORE_EVENTS: 0x1;

// RSA key files: format, or progress of RSA_MakeKeys
export const ZUL_KEY_SHOW_PROGRESS: 0x10;
export const ZUL_KEY_FORMAT_PEM: 0x10000;
export const ZUL_KEY_FORMAT_PEM_ALT: 0x20000;

// Password-based encryption of private keys. With ZUL_PBE_PBES2 one cipher may be added, and a digest
// (ZUL_HASH_SHA256, SHA384 or SHA512) for the HMAC that derives the key.
export const ZUL_PBE_SHA_3DES: 0;
export const ZUL_PBE_MD5_DES: 1;
export const ZUL_PBE_MD2_DES: 2;
export const ZUL_PBE_SHA1_DES: 3;
export const ZUL_PBE_PBES2_DEFAULT: 4;
export const ZUL_PBE_PBES2: 0x1000;
export const ZUL_PBE_CIPHER_AES128: 0x20;
export const ZUL_PBE_CIPHER_AES192: 0x30;
export const ZUL_PBE_CIPHER_AES256: 0x40;

// RSA_ToXMLString
export const ZUL_XML_RSAKEYVALUE: 0x1;
export const ZUL_XML_PUBLIC_ONLY: 0x10;
export const ZUL_XML_HEXBINARY: 0x100;

// RSA_RawPublic, RSA_RawPrivate: the trailer of the RSA2 forms
export const ZUL_RSA2_TRAILER6: 6;
export const ZUL_RSA2_TRAILERC: 12;

// RSA_EncodeMsg, RSA_DecodeMsg: an encoding, with a digest algorithm where it has one
export const ZUL_EME_PKCSV1_5: 0x00;
export const ZUL_EME_OAEP: 0x10;
export const ZUL_EMSIG_PKCSV1_5: 0x20;
export const ZUL_EMSIG_DIGESTONLY: 0x1000;
export const ZUL_EMSIG_DIGINFO: 0x2000;
export const ZUL_EMSIG_GETALG: 0x8000;
export const ZUL_EMSIG_ISO9796: 0x100000;

// X509_: bits of the options. A digest algorithm (ZUL_HASH_) may be added where one is chosen.
export const ZUL_X509_FORMAT_PEM: 0x10000;
export const ZUL_X509_REQ_DER: 0x20000;
export const ZUL_X509_REQ_NOATTRS: 0x100000;
export const ZUL_QUERY_GETTYPE: 0x100000;
export const ZUL_X509_LATIN1: 0x400000;
export const ZUL_X509_UTF8: 0x800000;
export const ZUL_X509_AUTHKEYID: 0x1000000;
export const ZUL_X509_NO_BASIC: 0x2000000;
export const ZUL_X509_SET_CA: 0x4000000;
export const ZUL_X509_VERSION1: 0x8000000;

// Key usage (RFC 5280, 4.2.1.3): the nKeyUsageFlags of X509_MakeCert, the result of X509_KeyUsageFlags
export const ZUL_KEYUSAGE_DIGITALSIGNATURE: 0x001;
export const ZUL_KEYUSAGE_NONREPUDIATION: 0x002;
export const ZUL_KEYUSAGE_KEYENCIPHERMENT: 0x004;
export const ZUL_KEYUSAGE_DATAENCIPHERMENT: 0x008;
export const ZUL_KEYUSAGE_KEYAGREEMENT: 0x010;
export const ZUL_KEYUSAGE_KEYCERTSIGN: 0x020;
export const ZUL_KEYUSAGE_CRLSIGN: 0x040;
export const ZUL_KEYUSAGE_ENCIPHERONLY: 0x080;
export const ZUL_KEYUSAGE_DECIPHERONLY: 0x100;

// CMS_ signed messages; a ZUL_HASH_ algorithm and, for enveloped ones, a ZUL_CMS_CIPHER_ go with them.
export const ZUL_CMS_EXCLUDE_CERTS: 0x100;
export const ZUL_CMS_EXCLUDE_DATA: 0x200;
export const ZUL_CMS_CERTS_ONLY: 0x400;
export const ZUL_CMS_INCLUDE_ATTRS: 0x800;
export const ZUL_CMS_ADD_SIGNTIME: 0x1000;
export const ZUL_CMS_ADD_SMIMECAPS: 0x2000;
export const ZUL_CMS_FORMAT_BASE64: 0x10000;
export const ZUL_CMS_BARE_SIGNEDDATA: 0x2000000;
export const ZUL_CMS_NAMED_SIGALG: 0x4000000;
export const ZUL_CMS_CIPHER_TDEA: 0x10;
export const ZUL_CMS_CIPHER_AES128: 0x20;
export const ZUL_CMS_CIPHER_AES192: 0x30;
export const ZUL_CMS_CIPHER_AES256: 0x40;

// PFX_
export const ZUL_PFX_NO_PRIVKEY: 0x10;

// CIPHER_Begin
export const ZUL_CIPHER_NO_PADDING: 0x1;

// AEAD_Encrypt, AEAD_Decrypt
export const ZUL_AEAD_RANDOM_NONCE: 0x1;

// KEY_Save: beside ZUL_KEY_FORMAT_PEM, the structure that the kind of key has of its own
export const ZUL_KEY_FORMAT_OWN: 0x40000;

// SIG_
export const ZUL_SIG_RAW: 0x1;
export const ZUL_SIG_DETERMINISTIC: 0x2;

// SEAL_
export const ZUL_SEAL_ARMOUR: 0x1;
export const ZUL_SEAL_STDIN: 0x2;
export const ZUL_SEAL_STDOUT: 0x4;

// CERT_
export const ZUL_CERT_DER: 0x1;
export const ZUL_CERT_BEYOND_ISSUER: 0x2;
export const ZUL_CERT_JSON: 0x10;
export const ZUL_CERT_SUBJECT_NAME: 0x20;
export const ZUL_CERT_WEB: 0x40;

// P12_. P12_Unpack: the number of the key, from 0, in the low byte
export const ZUL_P12_LEGACY: 0x100;
export const ZUL_P12_PBMAC1: 0x200;
export const ZUL_P12_TRUSTED: 0x400;
export const ZUL_P12_NEED_MAC: 0x800;
export const ZUL_P12_JSON: 0x1000;

/** ZUL_ErrorCode returns the error code that the thread's last call recorded, always positive; 0 if none. */
export function ZUL_ErrorCode(): number;
/** ZUL_LastError copies the thread's last error text (at most 511 characters; often empty). */
export function ZUL_LastError(szOutput: Output, nOutChars: number): number;
/** ZUL_ErrorLookup copies the text of an error code of either sign. */
export function ZUL_ErrorLookup(szOutput: Output, nOutChars: number, nErrCode: number): number;
/**
 * ZUL_ModuleName copies the full path of the library's own file (nOptions 0; at most 260 characters) or the word for
 * its platform, "Win64" or "Lin64" (ZUL_MODULE_PLATFORM).
 */
export function ZUL_ModuleName(szOutput: Output, nOutChars: number, nOptions: number): number;
/** ZUL_Version returns major * 100 + minor * 10 + release. */
export function ZUL_Version(pReserved1: Output, pReserved2: Output): number;
/** ZUL_CompileTime copies the date and time of the build, as "Nov  1 2026 09:08:07". */
export function ZUL_CompileTime(szOutput: Output, nOutChars: number): number;
/** ZUL_PowerUpTests repeats the tests that the module ran when it was loaded. */
export function ZUL_PowerUpTests(nOptions: number): number;
/** WIPE_Data overwrites nDataLen bytes with zero. */
export function WIPE_Data(lpData: Output, nDataLen: number): number;
/** WIPE_File overwrites a file seven times, commits each pass to the disk, and deletes the file. */
export function WIPE_File(szFileName: Input, nOptions: number): number;
/** CNV_HexStrFromBytes writes two upper-case hex digits for each byte. */
export function CNV_HexStrFromBytes(szOutput: Output, nOutChars: number, lpInput: Input, nInputLen: number): number;
/**
 * CNV_BytesFromHexStr decodes hex digits of either case, skipping every other character; a single digit left over is
 * dropped.
 */
export function CNV_BytesFromHexStr(lpOutput: Output, nOutBytes: number, szInput: Input): number;
/** CNV_HexFilter copies the hex digits among the first nStrLen characters. */
export function CNV_HexFilter(szOutput: Output, szInput: Input, nStrLen: number): number;
/** CNV_B64StrFromBytes writes base64 (RFC 4648) in one line. */
export function CNV_B64StrFromBytes(szOutput: Output, nOutChars: number, lpInput: Input, nInputLen: number): number;
/** CNV_BytesFromB64Str decodes base64 up to the first "=", skipping characters outside the alphabet. */
export function CNV_BytesFromB64Str(lpOutput: Output, nOutBytes: number, szInput: Input): number;
/** CNV_B64Filter is CNV_HexFilter for the base64 alphabet and "=". */
export function CNV_B64Filter(szOutput: Output, szInput: Input, nStrLen: number): number;
/** CNV_CheckUTF8 classifies a text. */
export function CNV_CheckUTF8(szInput: Input): number;
/** CNV_CheckUTF8Bytes is CNV_CheckUTF8 over nBytes bytes. */
export function CNV_CheckUTF8Bytes(lpInput: Input, nBytes: number): number;
/** CNV_UTF8FromLatin1 converts Latin-1 text to UTF-8 text. */
export function CNV_UTF8FromLatin1(szOutput: Output, nOutChars: number, szInput: Input): number;
/** CNV_Latin1FromUTF8 converts UTF-8 text to Latin-1 text. */
export function CNV_Latin1FromUTF8(szOutput: Output, nOutChars: number, szInput: Input): number;
/** CNV_UTF8BytesFromLatin1 is CNV_UTF8FromLatin1 without the NUL; nOutBytes is the room in bytes. */
export function CNV_UTF8BytesFromLatin1(lpOutput: Output, nOutBytes: number, szInput: Input): number;
/** CNV_Latin1FromUTF8Bytes is CNV_Latin1FromUTF8 over nBytes bytes. */
export function CNV_Latin1FromUTF8Bytes(szOutput: Output, nOutChars: number, lpInput: Input, nBytes: number): number;
/** CNV_ByteEncoding converts bytes. */
export function CNV_ByteEncoding(lpOutput: Output, nOutBytes: number, lpInput: Input, nBytes: number,
  nOptions: number): number;
/**
 * PEM_FileFromBinFile writes a file's content as base64 lines ended by CR LF, between BEGIN and END lines if szHeader
 * (the label) is not null or empty.
 */
export function PEM_FileFromBinFile(szFileOut: Input, szFileIn: Input, szHeader: Input, nLineLen: number): number;
/** PEM_FileToBinFile decodes the first armoured body of a file, whatever its label. */
export function PEM_FileToBinFile(szFileOut: Input, szFileIn: Input): number;
/** HASH_Bytes writes the digest of a message of nMsgLen bytes. */
export function HASH_Bytes(lpDigest: Output, nDigLen: number, lpMessage: Input, nMsgLen: number,
  nOptions: number): number;
/** HASH_File writes the digest of a file of any size. */
export function HASH_File(lpDigest: Output, nDigLen: number, szFileName: Input, nOptions: number): number;
/** HASH_HexFromBytes is HASH_Bytes with lower-case hex as output. */
export function HASH_HexFromBytes(szOutput: Output, nOutChars: number, lpMessage: Input, nMsgLen: number,
  nOptions: number): number;
/** HASH_HexFromFile is HASH_File with lower-case hex as output. */
export function HASH_HexFromFile(szOutput: Output, nOutChars: number, szFileName: Input, nOptions: number): number;
/** HASH_HexFromHex is HASH_HexFromBytes over a message in hex. */
export function HASH_HexFromHex(szOutput: Output, nOutChars: number, szMsgHex: Input, nOptions: number): number;
/** HMAC_Bytes writes the MAC of a message. */
export function HMAC_Bytes(lpDigest: Output, nDigLen: number, lpMessage: Input, nMsgLen: number, lpKey: Input,
  nKeyLen: number, nOptions: number): number;
/** HMAC_HexFromBytes is HMAC_Bytes with lower-case hex as output. */
export function HMAC_HexFromBytes(szOutput: Output, nOutChars: number, lpMessage: Input, nMsgLen: number,
  lpKey: Input, nKeyLen: number, nOptions: number): number;
/** HMAC_HexFromHex is HMAC_HexFromBytes over a message and key in hex. */
export function HMAC_HexFromHex(szOutput: Output, nOutChars: number, szMsgHex: Input, szKeyHex: Input,
  nOptions: number): number;
/** KDF_Pbkdf2 is PBKDF2 of RFC 8018 with HMAC. */
export function KDF_Pbkdf2(lpOutput: Output, nOutBytes: number, lpPassword: Input, nPwdLen: number, lpSalt: Input,
  nSaltLen: number, nIterations: number, szHash: Input): number;
/** KDF_Hkdf is HKDF of RFC 5869, extract and expand. */
export function KDF_Hkdf(lpOutput: Output, nOutBytes: number, lpKey: Input, nKeyLen: number, lpSalt: Input,
  nSaltLen: number, lpInfo: Input, nInfoLen: number, szHash: Input): number;
/** KDF_Scrypt is scrypt of RFC 7914. */
export function KDF_Scrypt(lpOutput: Output, nOutBytes: number, lpPassword: Input, nPwdLen: number, lpSalt: Input,
  nSaltLen: number, nN: number, nR: number, nP: number): number;
/** KDF_Argon2id is Argon2id of RFC 9106, version 0x13, without secret and associated data. */
export function KDF_Argon2id(lpOutput: Output, nOutBytes: number, lpPassword: Input, nPwdLen: number, lpSalt: Input,
  nSaltLen: number, nMemoryKiB: number, nPasses: number, nLanes: number): number;
/** CIPHER_Bytes encrypts or decrypts nBytes bytes; lpOutput has the same length and may be lpInput. */
export function CIPHER_Bytes(fEncrypt: number, lpOutput: Output, lpInput: Input, nBytes: number, lpKey: Input,
  lpIV: Input, szAlgAndMode: Input, nOptions: number): number;
/**
 * CIPHER_Hex is CIPHER_Bytes over hex texts; the output is upper case and nOutChars must cover all of it
 * (SHORT_BUF_ERROR).
 */
export function CIPHER_Hex(fEncrypt: number, szOutput: Output, nOutChars: number, szInputHex: Input, szKeyHex: Input,
  szIVHex: Input, szAlgAndMode: Input, nOptions: number): number;
/** CIPHER_File encrypts or decrypts a file of any size into another. */
export function CIPHER_File(fEncrypt: number, szFileOut: Input, szFileIn: Input, lpKey: Input, lpIV: Input,
  szAlgAndMode: Input, nOptions: number): number;
/**
 * TDEA_BytesMode is CIPHER_Bytes with Triple DES; szMode is "ECB", "CBC", "CFB", "OFB" or "CTR" in any case
 * (BAD_MODE_ERROR otherwise; BAD_PARAM_ERROR if null).
 */
export function TDEA_BytesMode(lpOutput: Output, lpInput: Input, nBytes: number, lpKey: Input, fEncrypt: number,
  szMode: Input, lpIV: Input): number;
/** TDEA_HexMode is TDEA_BytesMode over hex texts. */
export function TDEA_HexMode(szOutput: Output, szInputHex: Input, szKeyHex: Input, fEncrypt: number, szMode: Input,
  szIVHex: Input): number;
/** TDEA_B64Mode is TDEA_HexMode over base64 texts; szOutput holds (bytes + 2) / 3 * 4 characters and a NUL. */
export function TDEA_B64Mode(szOutput: Output, szInputB64: Input, szKeyB64: Input, fEncrypt: number, szMode: Input,
  szIVB64: Input): number;
/** TDEA_File is CIPHER_File with Triple DES and a mode as in TDEA_BytesMode. */
export function TDEA_File(szFileOut: Input, szFileIn: Input, lpKey: Input, fEncrypt: number, szMode: Input,
  lpIV: Input): number;
/** CIPHER_KeyWrap wraps a key of nDataLen bytes under a key-encryption key. */
export function CIPHER_KeyWrap(lpOutput: Output, nOutBytes: number, lpData: Input, nDataLen: number, lpKEK: Input,
  nKekLen: number, nOptions: number): number;
/** CIPHER_KeyUnwrap undoes CIPHER_KeyWrap; errors as there. */
export function CIPHER_KeyUnwrap(lpOutput: Output, nOutBytes: number, lpData: Input, nDataLen: number, lpKEK: Input,
  nKekLen: number, nOptions: number): number;
/** PAD_BytesBlock copies the input and appends 1 to nBlkLen bytes that hold their count. */
export function PAD_BytesBlock(lpOutput: Output, nOutputLen: number, lpInput: Input, nInputLen: number,
  nBlkLen: number, nOptions: number): number;
/** PAD_UnpadBytes copies the input without its padding. */
export function PAD_UnpadBytes(lpOutput: Output, nOutputLen: number, lpInput: Input, nInputLen: number,
  nBlkLen: number, nOptions: number): number;
/** PAD_HexBlock is PAD_BytesBlock over hex text, which is copied unchanged and not validated. */
export function PAD_HexBlock(szOutput: Output, nOutChars: number, szInputHex: Input, nBlkLen: number,
  nOptions: number): number;
/** PAD_UnpadHex is PAD_UnpadBytes over hex text. */
export function PAD_UnpadHex(szOutput: Output, nOutChars: number, szInputHex: Input, nBlkLen: number,
  nOptions: number): number;
/** RNG_Bytes fills nBytes (at most 65,536) random bytes. */
export function RNG_Bytes(lpOutput: Output, nBytes: number, lpSeed: Input, nSeedLen: number): number;
/**
 * RNG_BytesWithPrompt shows a dialog in which the user types at random and moves the mouse until enough has been
 * collected.
 */
export function RNG_BytesWithPrompt(lpOutput: Output, nOutputLen: number, szPrompt: Input, nOptions: number): number;
/**
 * RNG_Number returns a uniform number from nLower to nUpper, both included; nLower if nUpper is not greater, or if
 * the range needs all 32 bits.
 */
export function RNG_Number(nLower: number, nUpper: number): number;
/**
 * RNG_Test runs the generator's known-answer test and the four statistical tests of FIPS 140-2 on 20,000 fresh bits,
 * and writes a report if szFileName is not null or empty.
 */
export function RNG_Test(szFileName: Input, nOptions: number): number;
/**
 * RNG_Initialize instantiates the thread's generator and takes in a seed file of 64 bytes, which it then overwrites
 * with fresh ones.
 */
export function RNG_Initialize(szSeedFile: Input, nOptions: number): number;
/**
 * RNG_MakeSeedFile makes or overwrites a seed file for RNG_Initialize from what the user does in the dialog of
 * RNG_BytesWithPrompt; szPrompt and nOptions as there.
 */
export function RNG_MakeSeedFile(szSeedFile: Input, szPrompt: Input, nOptions: number): number;
/** RNG_UpdateSeedFile takes in a seed file and overwrites it, as RNG_Initialize. */
export function RNG_UpdateSeedFile(szSeedFile: Input, nOptions: number): number;
/**
 * PWD_PromptEx shows a dialog in which the user enters a password, or asks for it in the process's controlling
 * terminal (Linux).
 */
export function PWD_PromptEx(szPassword: Output, nPwdLen: number, szCaption: Input, szPrompt: Input): number;
/** PWD_Prompt is PWD_PromptEx with the dialog's own text, "Enter password:". */
export function PWD_Prompt(szPassword: Output, nPwdLen: number, szCaption: Input): number;
/** RSA_MakeKeys makes a key pair and writes two files. */
export function RSA_MakeKeys(szPubKeyFile: Input, szPriKeyFile: Input, nBits: number, nExpIndex: number,
  nTests: number, nCount: number, szPassword: Input, lpSeed: Input, nSeedLen: number, nOptions: number): number;
/** RSA_ReadPublicKey reads an RSAPublicKey (PKCS #1) or SubjectPublicKeyInfo (X.509) and writes its key string. */
export function RSA_ReadPublicKey(szOutput: Output, nOutChars: number, szFileOrText: Input): number;
/**
 * RSA_ReadPrivateKeyInfo reads an unencrypted PrivateKeyInfo (PKCS #8) or RSAPrivateKey (PKCS #1) of two primes and
 * writes its key string.
 */
export function RSA_ReadPrivateKeyInfo(szOutput: Output, nOutChars: number, szFileOrText: Input): number;
/** RSA_ReadEncPrivateKey reads an EncryptedPrivateKeyInfo (PKCS #8) and writes the private key's key string. */
export function RSA_ReadEncPrivateKey(szOutput: Output, nOutChars: number, szFileOrText: Input, szPassword: Input,
  nOptions: number): number;
/** RSA_GetPublicKeyFromCert reads an X.509 certificate and writes the key string of its subject's public key. */
export function RSA_GetPublicKeyFromCert(szOutput: Output, nOutChars: number, szFileOrText: Input): number;
/** RSA_SavePublicKey writes a public key, or the public part of a private key, to a file. */
export function RSA_SavePublicKey(szFileOut: Input, szKeyString: Input, nOptions: number): number;
/** RSA_SavePrivateKeyInfo writes a private key to a file, unencrypted. */
export function RSA_SavePrivateKeyInfo(szFileOut: Input, szKeyString: Input, nOptions: number): number;
/** RSA_SaveEncPrivateKey writes a private key to a file as EncryptedPrivateKeyInfo. */
export function RSA_SaveEncPrivateKey(szFileOut: Input, szKeyString: Input, nCount: number, szPassword: Input,
  nOptions: number): number;
/** RSA_ToXMLString writes a key as XML. */
export function RSA_ToXMLString(szOutput: Output, nOutChars: number, szKeyString: Input, nOptions: number): number;
/** RSA_FromXMLString reads a key from XML and gives its internal key string. */
export function RSA_FromXMLString(szOutput: Output, nOutChars: number, szXmlString: Input, nOptions: number): number;
/** RSA_KeyBits returns the length in bits of the modulus of a public or private key. */
export function RSA_KeyBits(szKeyString: Input): number;
/** RSA_KeyBytes returns the length in bytes of the modulus, which is that of data and encoded blocks. */
export function RSA_KeyBytes(szKeyString: Input): number;
/** RSA_KeyMatch tells whether a private and a public key form a pair. */
export function RSA_KeyMatch(szPrivateKey: Input, szPublicKey: Input): number;
/**
 * RSA_KeyHashCode returns a hash code, which may be negative, of a public key or of the public part of a private key.
 */
export function RSA_KeyHashCode(szKeyString: Input): number;
/** RSA_CheckKey checks a key. */
export function RSA_CheckKey(szKeyString: Input, nOptions: number): number;
/** RSA_RawPublic transforms data in place with a public key string. */
export function RSA_RawPublic(lpData: Output, nDataLen: number, szPublicKey: Input, nOptions: number): number;
/** RSA_RawPrivate transforms data in place with a private key. */
export function RSA_RawPrivate(lpData: Output, nDataLen: number, szPrivateKey: Input, nOptions: number): number;
/** RSA_EncodeMsg fills the nOutBytes bytes (normally RSA_KeyBytes) of lpOutput with the encoding of a message. */
export function RSA_EncodeMsg(lpOutput: Output, nOutBytes: number, lpInput: Input, nInputLen: number,
  nOptions: number): number;
/** RSA_DecodeMsg recovers the message from an encoded block, of which at most nOutBytes bytes are copied. */
export function RSA_DecodeMsg(lpOutput: Output, nOutBytes: number, lpInput: Input, nInputLen: number,
  nOptions: number): number;
/** X509_QueryCert answers a query about a certificate. */
export function X509_QueryCert(szOutput: Output, nChars: number, szCertFile: Input, szQuery: Input,
  nOptions: number): number;
/**
 * X509_KeyUsageFlags returns the key usage as ZUL_KEYUSAGE_ bits, 0 if the certificate does not say, or a negated
 * code.
 */
export function X509_KeyUsageFlags(szCertFile: Input): number;
/** X509_CertThumb writes the digest (nOptions: ZUL_HASH_...) of a certificate in lower-case hex. */
export function X509_CertThumb(szCertFile: Input, szHash: Output, nChars: number, nOptions: number): number;
/**
 * X509_CertIsValidNow returns 0 if the present time lies within the certificate's validity, -1 if not, or a positive
 * code.
 */
export function X509_CertIsValidNow(szCertFile: Input, nOptions: number): number;
/**
 * X509_CertIssuedOn and X509_CertExpiresOn write the beginning and end of the validity, 20 characters, cut to nChars.
 */
export function X509_CertIssuedOn(szCertFile: Input, szOutput: Output, nChars: number, nOptions: number): number;
/**
 * X509_CertIssuedOn and X509_CertExpiresOn write the beginning and end of the validity, 20 characters, cut to nChars.
 */
export function X509_CertExpiresOn(szCertFile: Input, szOutput: Output, nChars: number, nOptions: number): number;
/** X509_CertSerialNumber writes the serial number's bytes in lower-case hex. */
export function X509_CertSerialNumber(szCertFile: Input, szOutput: Output, nChars: number, nOptions: number): number;
/** X509_CertSubjectName and X509_CertIssuerName write a name as text, cut to nChars. */
export function X509_CertSubjectName(szCertFile: Input, szOutput: Output, nChars: number, szDelim: Input,
  nOptions: number): number;
/** X509_CertSubjectName and X509_CertIssuerName write a name as text, cut to nChars. */
export function X509_CertIssuerName(szCertFile: Input, szOutput: Output, nChars: number, szDelim: Input,
  nOptions: number): number;
/**
 * X509_HashIssuerAndSN writes the digest of the certificate's IssuerAndSerialNumber (RFC 5652), as X509_CertThumb
 * that of the certificate.
 */
export function X509_HashIssuerAndSN(szCertFile: Input, szOutput: Output, nChars: number, nOptions: number): number;
/**
 * X509_ReadStringFromFile writes a certificate as base64 in one line, which serves as szCertFile wherever one is
 * asked for (if it is longer than 256 characters, as that of any certificate with an RSA key is).
 */
export function X509_ReadStringFromFile(szOutput: Output, nChars: number, szCertFile: Input,
  nOptions: number): number;
/** X509_SaveFileFromString writes a certificate given as base64 to a file. */
export function X509_SaveFileFromString(szNewCertFile: Input, szCertString: Input, nOptions: number): number;
/** X509_MakeCert makes a certificate (RFC 5280) signed by an issuer. */
export function X509_MakeCert(szNewCertFile: Input, szIssuerCertFile: Input, szSubjectPubKeyFile: Input,
  szIssuerPriKeyFile: Input, nCertNum: number, nYearsValid: number, szDistName: Input, szExtensions: Input,
  nKeyUsageFlags: number, szPassword: Input, nOptions: number): number;
/**
 * X509_MakeCertSelf makes the self-signed certificate of a certification authority from its encrypted private key.
 */
export function X509_MakeCertSelf(szNewCertFile: Input, szEPKFile: Input, nCertNum: number, nYearsValid: number,
  szDistName: Input, szExtensions: Input, nKeyUsageFlags: number, szPassword: Input, nOptions: number): number;
/** X509_CertRequest makes a certification request (PKCS #10, RFC 2986) from an encrypted private key. */
export function X509_CertRequest(szReqFile: Input, szEPKFile: Input, szDistName: Input, szExtensions: Input,
  szPassword: Input, nOptions: number): number;
/** X509_MakeCRL makes a revocation list of version 1. */
export function X509_MakeCRL(szCrlFile: Input, szIssuerCertFile: Input, szIssuerKeyFile: Input, szPassword: Input,
  szCertList: Input, szExtensions: Input, nOptions: number): number;
/** X509_VerifyCert checks that a certificate, request or CRL was signed with the key of szIssuerCert. */
export function X509_VerifyCert(szCertToVerify: Input, szIssuerCert: Input): number;
/** X509_CheckCertInCRL looks a certificate up in its issuer's CRL. */
export function X509_CheckCertInCRL(szCertFile: Input, szCrlFile: Input, szCRLIssuerCert: Input, szDate: Input,
  nOptions: number): number;
/**
 * X509_ValidatePath orders certificates into a path and checks each one's signature, and its dates unless nOptions is
 * not 0.
 */
export function X509_ValidatePath(szCertList: Input, szTrustedCert: Input, nOptions: number): number;
/** X509_TextDump writes a description of a certificate, request or CRL to a text file. */
export function X509_TextDump(szFileOut: Input, szCertFile: Input, nOptions: number): number;
/**
 * X509_GetCertFromP7Chain takes a certificate out of a signed message or a certs-only one (PKCS #7, "p7c" or "p7b"),
 * a message argument as below.
 */
export function X509_GetCertFromP7Chain(szNewCertFile: Input, szP7cFile: Input, nIndex: number,
  nOptions: number): number;
/**
 * X509_GetCertFromPFX and RSA_GetPrivateKeyFromPFX write the first certificate of a PKCS #12 file, as DER, and its
 * first encrypted private key, as RSA_ReadEncPrivateKey reads it, to a file.
 */
export function X509_GetCertFromPFX(szFileOut: Input, szPfxFile: Input, nOptions: number): number;
/**
 * X509_GetCertFromPFX and RSA_GetPrivateKeyFromPFX write the first certificate of a PKCS #12 file, as DER, and its
 * first encrypted private key, as RSA_ReadEncPrivateKey reads it, to a file.
 */
export function RSA_GetPrivateKeyFromPFX(szFileOut: Input, szPfxFile: Input, nOptions: number): number;
/** CMS_MakeSigData signs a file with RSA (PKCS #1 v1.5). */
export function CMS_MakeSigData(szFileOut: Input, szFileIn: Input, szCertList: Input, szPrivateKey: Input,
  nOptions: number): number;
/** CMS_MakeSigDataFromString signs the bytes of a text, without its NUL, as CMS_MakeSigData a file. */
export function CMS_MakeSigDataFromString(szFileOut: Input, szDataIn: Input, szCertList: Input, szPrivateKey: Input,
  nOptions: number): number;
/** CMS_MakeDetachedSig signs content whose digest is given in hex; the content is not carried. */
export function CMS_MakeDetachedSig(szFileOut: Input, szHexDigest: Input, szCertList: Input, szPrivateKey: Input,
  nOptions: number): number;
/**
 * CMS_MakeSigDataFromSigValue makes a message from nDataLen bytes of content and their finished signature, made by a
 * smart card, for example.
 */
export function CMS_MakeSigDataFromSigValue(szFileOut: Input, lpSigValue: Input, nSigLen: number, lpData: Input,
  nDataLen: number, szCertList: Input, nOptions: number): number;
/**
 * CMS_ReadSigData writes the content of a signed message to a file, CMS_ReadSigDataToString to nDataOutLen bytes of
 * room and a NUL.
 */
export function CMS_ReadSigData(szFileOut: Input, szFileIn: Input, nOptions: number): number;
/**
 * CMS_ReadSigData writes the content of a signed message to a file, CMS_ReadSigDataToString to nDataOutLen bytes of
 * room and a NUL.
 */
export function CMS_ReadSigDataToString(szDataOut: Output, nDataOutLen: number, szFileIn: Input,
  nOptions: number): number;
/**
 * CMS_VerifySigData verifies the signature of a signed message, RSA (PKCS #1 v1.5) with any digest or DSA with SHA-1,
 * and the digest of its content.
 */
export function CMS_VerifySigData(szFileIn: Input, szCertFile: Input, szHexDigest: Input, nOptions: number): number;
/** CMS_GetSigDataDigest writes the digest of the content that was signed, in lower-case hex. */
export function CMS_GetSigDataDigest(szHexDigestOut: Output, nDigestLen: number, szFileIn: Input, szCertFile: Input,
  nOptions: number): number;
/** CMS_QuerySigData answers a query about a signed message of any version, verified or not. */
export function CMS_QuerySigData(szOutput: Output, nOutChars: number, szFileIn: Input, szQuery: Input,
  nOptions: number): number;
/** CMS_MakeEnvData encrypts a file for the RSA keys (PKCS #1 v1.5) of up to 10 certificates. */
export function CMS_MakeEnvData(szFileOut: Input, szFileIn: Input, szCertList: Input, lpSeed: Input, nSeedLen: number,
  nOptions: number): number;
/** CMS_MakeEnvDataFromString encrypts the bytes of a text, without its NUL, as CMS_MakeEnvData a file. */
export function CMS_MakeEnvDataFromString(szFileOut: Input, szDataIn: Input, szCertList: Input, lpSeed: Input,
  nSeedLen: number, nOptions: number): number;
/**
 * CMS_ReadEnvData decrypts an enveloped message (Triple DES, AES or RC2, CBC) into a file, CMS_ReadEnvDataToString
 * into nDataOutLen bytes of room and a NUL.
 */
export function CMS_ReadEnvData(szFileOut: Input, szFileIn: Input, szX509File: Input, szPrivateKey: Input,
  nOptions: number): number;
/**
 * CMS_ReadEnvData decrypts an enveloped message (Triple DES, AES or RC2, CBC) into a file, CMS_ReadEnvDataToString
 * into nDataOutLen bytes of room and a NUL.
 */
export function CMS_ReadEnvDataToString(szDataOut: Output, nDataOutLen: number, szFileIn: Input, szX509File: Input,
  szPrivateKey: Input, nOptions: number): number;
/** CMS_QueryEnvData answers a query about an enveloped message. */
export function CMS_QueryEnvData(szOutput: Output, nOutChars: number, szFileIn: Input, szQuery: Input,
  nOptions: number): number;
/** PFX_MakeFile writes a PFX file. */
export function PFX_MakeFile(szFileOut: Input, szCertFile: Input, szKeyFile: Input, szPassword: Input,
  szFriendlyName: Input, nOptions: number): number;
/** PFX_VerifySig checks the MAC of a PFX file (HMAC with SHA-1, SHA-256, SHA-384 or SHA-512) with a password. */
export function PFX_VerifySig(szPfxFile: Input, szPassword: Input, nOptions: number): number;
/** OCSP_MakeRequest writes an unsigned request about one certificate as base64 in one line. */
export function OCSP_MakeRequest(szOutput: Output, nChars: number, szIssuerCert: Input, szCertFileOrSerialNum: Input,
  szExtensions: Input, nOptions: number): number;
/** OCSP_ReadResponse writes a report of a response, which is a file of DER, PEM or base64, or text. */
export function OCSP_ReadResponse(szOutput: Output, nChars: number, szResponseFile: Input, szIssuerCert: Input,
  szExtensions: Input, nOptions: number): number;
/** HASH_Begin begins a digest. */
export function HASH_Begin(lpContext: Output, nContextLen: number, szAlgorithm: Input, nOptions: number): number;
/** HASH_Add absorbs nDataLen bytes. */
export function HASH_Add(lpContext: Output, lpData: Input, nDataLen: number): number;
/**
 * HASH_End writes the digest, cut to nOutBytes, and wipes the context; of "shake128" and "shake256" it writes
 * nOutBytes bytes.
 */
export function HASH_End(lpOutput: Output, nOutBytes: number, lpContext: Output): number;
/**
 * HMAC_Begin begins a MAC with a key of any length and a digest that has an HMAC (not "md2", "shake128" and
 * "shake256"); the rest as HASH_Begin.
 */
export function HMAC_Begin(lpContext: Output, nContextLen: number, lpKey: Input, nKeyLen: number, szAlgorithm: Input,
  nOptions: number): number;
/** HMAC_Add absorbs nDataLen bytes, as HASH_Add. */
export function HMAC_Add(lpContext: Output, lpData: Input, nDataLen: number): number;
/** HMAC_End writes the MAC, cut to nOutBytes, and wipes the context, as HASH_End. */
export function HMAC_End(lpOutput: Output, nOutBytes: number, lpContext: Output): number;
/** CIPHER_Begin begins to encrypt (fEncrypt not 0) or decrypt. */
export function CIPHER_Begin(lpContext: Output, nContextLen: number, fEncrypt: number, lpKey: Input, nKeyLen: number,
  lpIV: Input, nIVLen: number, szAlgorithm: Input, nOptions: number): number;
/** CIPHER_Add takes the next piece and writes what is ready, which may be a block less or more than the piece. */
export function CIPHER_Add(lpOutput: Output, nOutBytes: number, lpContext: Output, lpInput: Input,
  nInputLen: number): number;
/** CIPHER_End writes the end, at most a block, and wipes the context. */
export function CIPHER_End(lpOutput: Output, nOutBytes: number, lpContext: Output): number;
/** AEAD_Encrypt encrypts data and adds a tag of 16 bytes, which also covers lpAad, data that is not encrypted. */
export function AEAD_Encrypt(lpOutput: Output, nOutBytes: number, lpInput: Input, nInputLen: number, lpKey: Input,
  nKeyLen: number, lpNonce: Input, nNonceLen: number, lpAad: Input, nAadLen: number, szAlgorithm: Input,
  nOptions: number): number;
/** AEAD_Decrypt undoes AEAD_Encrypt. */
export function AEAD_Decrypt(lpOutput: Output, nOutBytes: number, lpInput: Input, nInputLen: number, lpKey: Input,
  nKeyLen: number, lpNonce: Input, nNonceLen: number, lpAad: Input, nAadLen: number, szAlgorithm: Input,
  nOptions: number): number;
/** KEY_Make makes a private key. */
export function KEY_Make(szOutput: Output, nOutChars: number, szAlgorithm: Input, nOptions: number): number;
/** KEY_Read reads a key, private or public, as a key string. */
export function KEY_Read(szOutput: Output, nOutChars: number, szFileOrText: Input, szPassword: Input,
  nOptions: number): number;
/** KEY_Save writes a key to a file, which is replaced in one step. */
export function KEY_Save(szFileOut: Input, szKey: Input, szPassword: Input, szParameters: Input,
  nOptions: number): number;
/** KEY_Public gives the public key of a private one. */
export function KEY_Public(szOutput: Output, nOutChars: number, szPrivateKey: Input): number;
/** KEY_Query answers a query about a key. */
export function KEY_Query(szOutput: Output, nOutChars: number, szKey: Input, szQuery: Input,
  nOptions: number): number;
/** KEY_Match tells whether a private key belongs to a public one. */
export function KEY_Match(szPrivateKey: Input, szPublicKey: Input): number;
/** KEY_Check tells whether a key's values are valid and belong together. */
export function KEY_Check(szKey: Input, nOptions: number): number;
/** KEY_Agree computes the secret that the owners of two key pairs share. */
export function KEY_Agree(lpOutput: Output, nOutBytes: number, szPrivateKey: Input, szPublicKey: Input,
  nOptions: number): number;
/** SIG_Sign signs data. */
export function SIG_Sign(lpOutput: Output, nOutBytes: number, lpData: Input, nDataLen: number, szPrivateKey: Input,
  szAlgorithm: Input, nOptions: number): number;
/** SIG_Verify verifies a signature of data. */
export function SIG_Verify(lpSignature: Input, nSigLen: number, lpData: Input, nDataLen: number, szPublicKey: Input,
  szAlgorithm: Input, nOptions: number): number;
/** SIG_SignFile signs the content of a file of any size. */
export function SIG_SignFile(lpOutput: Output, nOutBytes: number, szFileIn: Input, szPrivateKey: Input,
  szAlgorithm: Input, nOptions: number): number;
/** SIG_VerifyFile verifies a signature of the content of a file of any size. */
export function SIG_VerifyFile(lpSignature: Input, nSigLen: number, szFileIn: Input, szPublicKey: Input,
  szAlgorithm: Input, nOptions: number): number;
/** SIG_SignDigest signs data whose digest is given. */
export function SIG_SignDigest(lpOutput: Output, nOutBytes: number, lpDigest: Input, nDigestLen: number,
  szPrivateKey: Input, szAlgorithm: Input, nOptions: number): number;
/** SIG_VerifyDigest verifies a signature of data whose digest is given. */
export function SIG_VerifyDigest(lpSignature: Input, nSigLen: number, lpDigest: Input, nDigestLen: number,
  szPublicKey: Input, szAlgorithm: Input, nOptions: number): number;
/** SEAL_MakeIdentity makes an identity. */
export function SEAL_MakeIdentity(szOutput: Output, nOutChars: number, nOptions: number): number;
/** SEAL_Recipient gives the recipient of an identity. */
export function SEAL_Recipient(szOutput: Output, nOutChars: number, szIdentity: Input): number;
/** SEAL_File encrypts a file, either for recipients or under a password (scrypt with a work factor of 2^18). */
export function SEAL_File(szFileOut: Input, szFileIn: Input, szRecipients: Input, szPassword: Input,
  nOptions: number): number;
/** SEAL_OpenFile decrypts a file, in armour or not. */
export function SEAL_OpenFile(szFileOut: Input, szFileIn: Input, szIdentities: Input, szPassword: Input,
  nOptions: number): number;
/** P12_Pack writes a PKCS #12 file, which is replaced in one step, of a private key and certificates. */
export function P12_Pack(szFileOut: Input, szCerts: Input, szPrivateKey: Input, szPassword: Input, szName: Input,
  nOptions: number): number;
/** P12_Unpack reads a PKCS #12 file. */
export function P12_Unpack(szCertsOut: Input, szKeyOutput: Output, nKeyChars: number, szP12: Input, szPassword: Input,
  nOptions: number): number;
/** P12_List describes a PKCS #12 file in UTF-8. */
export function P12_List(szOutput: Output, nOutChars: number, szP12: Input, szPassword: Input,
  nOptions: number): number;
/** CERT_SelfSign makes a certificate that its own key signs. */
export function CERT_SelfSign(szCertOut: Input, szPrivateKey: Input, szDescription: Input, nOptions: number): number;
/** CERT_Issue makes a certificate that an authority signs. */
export function CERT_Issue(szCertOut: Input, szIssuerCert: Input, szIssuerKey: Input, szSubjectKeyOrRequest: Input,
  szDescription: Input, nOptions: number): number;
/** CERT_Request makes a certificate request (PKCS #10). */
export function CERT_Request(szRequestOut: Input, szPrivateKey: Input, szDescription: Input,
  nOptions: number): number;
/** CERT_IssueCRL makes a CRL of version 2 (RFC 5280). */
export function CERT_IssueCRL(szCrlOut: Input, szIssuerCert: Input, szIssuerKey: Input, szEarlierCrl: Input,
  szRevoked: Input, szDescription: Input, nOptions: number): number;
/** CERT_Query answers one query about a certificate, request, CRL or OCSP response, the first one in szCert. */
export function CERT_Query(szOutput: Output, nOutChars: number, szCert: Input, szQuery: Input,
  nOptions: number): number;
/** CERT_Report writes all that certificates, requests, CRLs and OCSP responses hold. */
export function CERT_Report(szOutput: Output, nOutChars: number, szFileOrText: Input, nOptions: number): number;
/**
 * CERT_CheckName tells whether a certificate, the first one in szCert, is for a host, an address or a mailbox (RFC
 * 9525).
 */
export function CERT_CheckName(szCert: Input, szHostOrAddress: Input, nOptions: number): number;
/** CERT_CheckPath tells whether a certificate can be relied on. */
export function CERT_CheckPath(szReport: Output, nReportChars: number, szCert: Input, szOthers: Input,
  szTrusted: Input, szEvidence: Input, szConditions: Input, nOptions: number): number;
