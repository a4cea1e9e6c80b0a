// Made from include/zulcore.h by scripts/make_bindings.py.
unit zulcore_raw;
{$IFDEF FPC}{$MODE DELPHI}{$ENDIF}

interface

const
  ZUL_MODULE = {$IFDEF MSWINDOWS}'zulcore.dll'{$ELSE}{$IFDEF FPC}'zulcore'{$ELSE}'libzulcore.so'{$ENDIF}{$ENDIF};

  // Error codes
  SUCCESS_ERROR = 0;
  OPEN_ERROR = 1;
  CREATE_ERROR = 2;
  READ_ERROR = 3;
  WRITE_ERROR = 4;
  MEMORY_ERROR = 5;
  BAD_PARAM_ERROR = 6;
  BAD_FORMAT_ERROR = 7;
  INVALID_DATA_ERROR = 8;
  EOF_ERROR = 9;
  OUT_OF_RANGE_ERROR = 11;
  DUP_ERROR = 12;
  IO_ERROR = 13;
  NULL_ERROR = 14;
  DECRYPT_ERROR = 15;
  EXPIRED_ERROR = 16;
  BAD_FLAG_ERROR = 17;
  WIPE_ERROR = 18;
  NOT_SUPPORTED_ERROR = 19;
  NO_DATA_ERROR = 20;
  NO_MATCH_ERROR = 21;
  SIGNATURE_ERROR = 22;
  TEST_FAILED_ERROR = 23;
  KEYGEN_FAILED_ERROR = 24;
  ISSUER_ERROR = 25;
  BAD_LENGTH_ERROR = 26;
  BAD_XML_ERROR = 27;
  MSG_TOO_LONG_ERROR = 28;
  BAD_QUERY_ERROR = 29;
  SHORT_BUF_ERROR = 30;
  BAD_KEY_LEN_ERROR = 33;
  BAD_BLK_LEN_ERROR = 34;
  BAD_MODE_ERROR = 35;
  BAD_KEY_ERROR = 36;
  BAD_IV_ERROR = 37;
  PRNG_ERR_FILE_OPEN = 201;
  PRNG_ERR_FILE_CREATE = 202;
  PRNG_ERR_FILE_READ = 203;
  PRNG_ERR_FILE_WRITE = 204;
  PRNG_ERR_FILE_LOCK = 205;
  PRNG_ERR_UNINST = 210;
  PRNG_ERR_TOOBIG = 211;
  PRNG_ERR_FAILURE = 212;
  PRNG_ERR_BADPARAM = 213;
  PRNG_ERR_NOTAVAIL = 214;
  PRNG_ERR_CATASTROPHIC = 299;
  MISC_ERROR = 9999;

  // ZUL_ModuleName
  ZUL_MODULE_PLATFORM = $40;

  // CNV_ByteEncoding
  ZUL_CNV_UTF8_FROM_LATIN1 = $1;
  ZUL_CNV_LATIN1_FROM_UTF8 = $2;

  // Digest algorithms: bits 0-3 of the options of HASH_ and HMAC_
  ZUL_HASH_SHA1 = 0;
  ZUL_HASH_MD5 = 1;
  ZUL_HASH_MD2 = 2;
  ZUL_HASH_SHA256 = 3;
  ZUL_HASH_SHA384 = 4;
  ZUL_HASH_SHA512 = 5;
  ZUL_HASH_SHA224 = 6;
  ZUL_HASH_SHA1_RNG = 7;
  ZUL_HASH_MODE_TEXT = $10000;

  // Block ciphers (bits 4-7) and modes (bits 8-11) of the options of CIPHER_
  ZUL_CIPHER_TDEA = $10;
  ZUL_CIPHER_AES128 = $20;
  ZUL_CIPHER_AES192 = $30;
  ZUL_CIPHER_AES256 = $40;
  ZUL_MODE_ECB = $000;
  ZUL_MODE_CBC = $100;
  ZUL_MODE_OFB = $200;
  ZUL_MODE_CFB = $300;
  ZUL_MODE_CTR = $400;

  // RNG_BytesWithPrompt, RNG_MakeSeedFile
  ZUL_RNG_MORE_EVENTS = $1;

  // RSA key files: format, or progress of RSA_MakeKeys
  ZUL_KEY_SHOW_PROGRESS = $10;
  ZUL_KEY_FORMAT_PEM = $10000;
  ZUL_KEY_FORMAT_PEM_ALT = $20000;

  // Password-based encryption of private keys. With ZUL_PBE_PBES2 one cipher may be added, and a digest (ZUL_HASH_SHA256, SHA384 or SHA512) for the HMAC that derives the key.
  ZUL_PBE_SHA_3DES = 0;
  ZUL_PBE_MD5_DES = 1;
  ZUL_PBE_MD2_DES = 2;
  ZUL_PBE_SHA1_DES = 3;
  ZUL_PBE_PBES2_DEFAULT = 4;
  ZUL_PBE_PBES2 = $1000;
  ZUL_PBE_CIPHER_AES128 = $20;
  ZUL_PBE_CIPHER_AES192 = $30;
  ZUL_PBE_CIPHER_AES256 = $40;

  // RSA_ToXMLString
  ZUL_XML_RSAKEYVALUE = $1;
  ZUL_XML_PUBLIC_ONLY = $10;
  ZUL_XML_HEXBINARY = $100;

  // RSA_RawPublic, RSA_RawPrivate: the trailer of the RSA2 forms
  ZUL_RSA2_TRAILER6 = 6;
  ZUL_RSA2_TRAILERC = 12;

  // RSA_EncodeMsg, RSA_DecodeMsg: an encoding, with a digest algorithm where it has one
  ZUL_EME_PKCSV1_5 = $00;
  ZUL_EME_OAEP = $10;
  ZUL_EMSIG_PKCSV1_5 = $20;
  ZUL_EMSIG_DIGESTONLY = $1000;
  ZUL_EMSIG_DIGINFO = $2000;
  ZUL_EMSIG_GETALG = $8000;
  ZUL_EMSIG_ISO9796 = $100000;

  // X509_: bits of the options. A digest algorithm (ZUL_HASH_) may be added where one is chosen.
  ZUL_X509_FORMAT_PEM = $10000;
  ZUL_X509_REQ_DER = $20000;
  ZUL_X509_REQ_NOATTRS = $100000;
  ZUL_QUERY_GETTYPE = $100000;
  ZUL_X509_LATIN1 = $400000;
  ZUL_X509_UTF8 = $800000;
  ZUL_X509_AUTHKEYID = $1000000;
  ZUL_X509_NO_BASIC = $2000000;
  ZUL_X509_SET_CA = $4000000;
  ZUL_X509_VERSION1 = $8000000;

  // Key usage (RFC 5280, 4.2.1.3): the nKeyUsageFlags of X509_MakeCert, the result of X509_KeyUsageFlags
  ZUL_KEYUSAGE_DIGITALSIGNATURE = $001;
  ZUL_KEYUSAGE_NONREPUDIATION = $002;
  ZUL_KEYUSAGE_KEYENCIPHERMENT = $004;
  ZUL_KEYUSAGE_DATAENCIPHERMENT = $008;
  ZUL_KEYUSAGE_KEYAGREEMENT = $010;
  ZUL_KEYUSAGE_KEYCERTSIGN = $020;
  ZUL_KEYUSAGE_CRLSIGN = $040;
  ZUL_KEYUSAGE_ENCIPHERONLY = $080;
  ZUL_KEYUSAGE_DECIPHERONLY = $100;

  // CMS_ signed messages; a ZUL_HASH_ algorithm and, for enveloped ones, a ZUL_CMS_CIPHER_ go with them.
  ZUL_CMS_EXCLUDE_CERTS = $100;
  ZUL_CMS_EXCLUDE_DATA = $200;
  ZUL_CMS_CERTS_ONLY = $400;
  ZUL_CMS_INCLUDE_ATTRS = $800;
  ZUL_CMS_ADD_SIGNTIME = $1000;
  ZUL_CMS_ADD_SMIMECAPS = $2000;
  ZUL_CMS_FORMAT_BASE64 = $10000;
  ZUL_CMS_BARE_SIGNEDDATA = $2000000;
  ZUL_CMS_NAMED_SIGALG = $4000000;
  ZUL_CMS_CIPHER_TDEA = $10;
  ZUL_CMS_CIPHER_AES128 = $20;
  ZUL_CMS_CIPHER_AES192 = $30;
  ZUL_CMS_CIPHER_AES256 = $40;

  // PFX_
  ZUL_PFX_NO_PRIVKEY = $10;

  // CIPHER_Begin
  ZUL_CIPHER_NO_PADDING = $1;

  // AEAD_Encrypt, AEAD_Decrypt
  ZUL_AEAD_RANDOM_NONCE = $1;

  // KEY_Save: beside ZUL_KEY_FORMAT_PEM, the structure that the kind of key has of its own
  ZUL_KEY_FORMAT_OWN = $40000;

  // SIG_
  ZUL_SIG_RAW = $1;
  ZUL_SIG_DETERMINISTIC = $2;

  // SEAL_
  ZUL_SEAL_ARMOUR = $1;
  ZUL_SEAL_STDIN = $2;
  ZUL_SEAL_STDOUT = $4;

  // CERT_
  ZUL_CERT_DER = $1;
  ZUL_CERT_BEYOND_ISSUER = $2;
  ZUL_CERT_JSON = $10;
  ZUL_CERT_SUBJECT_NAME = $20;
  ZUL_CERT_WEB = $40;

  // P12_. P12_Unpack: the number of the key, from 0, in the low byte
  ZUL_P12_LEGACY = $100;
  ZUL_P12_PBMAC1 = $200;
  ZUL_P12_TRUSTED = $400;
  ZUL_P12_NEED_MAC = $800;
  ZUL_P12_JSON = $1000;

type
  TZulErrorName = record
    Code: Integer;
    Name: string;
  end;

const
  ZUL_ERROR_NAMES: array[0..46] of TZulErrorName = (
    (Code: 0; Name: 'SUCCESS_ERROR'),
    (Code: 1; Name: 'OPEN_ERROR'),
    (Code: 2; Name: 'CREATE_ERROR'),
    (Code: 3; Name: 'READ_ERROR'),
    (Code: 4; Name: 'WRITE_ERROR'),
    (Code: 5; Name: 'MEMORY_ERROR'),
    (Code: 6; Name: 'BAD_PARAM_ERROR'),
    (Code: 7; Name: 'BAD_FORMAT_ERROR'),
    (Code: 8; Name: 'INVALID_DATA_ERROR'),
    (Code: 9; Name: 'EOF_ERROR'),
    (Code: 11; Name: 'OUT_OF_RANGE_ERROR'),
    (Code: 12; Name: 'DUP_ERROR'),
    (Code: 13; Name: 'IO_ERROR'),
    (Code: 14; Name: 'NULL_ERROR'),
    (Code: 15; Name: 'DECRYPT_ERROR'),
    (Code: 16; Name: 'EXPIRED_ERROR'),
    (Code: 17; Name: 'BAD_FLAG_ERROR'),
    (Code: 18; Name: 'WIPE_ERROR'),
    (Code: 19; Name: 'NOT_SUPPORTED_ERROR'),
    (Code: 20; Name: 'NO_DATA_ERROR'),
    (Code: 21; Name: 'NO_MATCH_ERROR'),
    (Code: 22; Name: 'SIGNATURE_ERROR'),
    (Code: 23; Name: 'TEST_FAILED_ERROR'),
    (Code: 24; Name: 'KEYGEN_FAILED_ERROR'),
    (Code: 25; Name: 'ISSUER_ERROR'),
    (Code: 26; Name: 'BAD_LENGTH_ERROR'),
    (Code: 27; Name: 'BAD_XML_ERROR'),
    (Code: 28; Name: 'MSG_TOO_LONG_ERROR'),
    (Code: 29; Name: 'BAD_QUERY_ERROR'),
    (Code: 30; Name: 'SHORT_BUF_ERROR'),
    (Code: 33; Name: 'BAD_KEY_LEN_ERROR'),
    (Code: 34; Name: 'BAD_BLK_LEN_ERROR'),
    (Code: 35; Name: 'BAD_MODE_ERROR'),
    (Code: 36; Name: 'BAD_KEY_ERROR'),
    (Code: 37; Name: 'BAD_IV_ERROR'),
    (Code: 201; Name: 'PRNG_ERR_FILE_OPEN'),
    (Code: 202; Name: 'PRNG_ERR_FILE_CREATE'),
    (Code: 203; Name: 'PRNG_ERR_FILE_READ'),
    (Code: 204; Name: 'PRNG_ERR_FILE_WRITE'),
    (Code: 205; Name: 'PRNG_ERR_FILE_LOCK'),
    (Code: 210; Name: 'PRNG_ERR_UNINST'),
    (Code: 211; Name: 'PRNG_ERR_TOOBIG'),
    (Code: 212; Name: 'PRNG_ERR_FAILURE'),
    (Code: 213; Name: 'PRNG_ERR_BADPARAM'),
    (Code: 214; Name: 'PRNG_ERR_NOTAVAIL'),
    (Code: 299; Name: 'PRNG_ERR_CATASTROPHIC'),
    (Code: 9999; Name: 'MISC_ERROR'));

/// ZUL_ErrorCode returns the error code that the thread's last call recorded, always positive; 0 if none.
function ZUL_ErrorCode: Integer;
  cdecl; external ZUL_MODULE;

/// ZUL_LastError copies the thread's last error text (at most 511 characters; often empty).
function ZUL_LastError(szOutput: PAnsiChar; nOutChars: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// ZUL_ErrorLookup copies the text of an error code of either sign.
function ZUL_ErrorLookup(szOutput: PAnsiChar; nOutChars: Integer; nErrCode: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// ZUL_ModuleName copies the full path of the library's own file (nOptions 0; at most 260 characters) or the word for its platform, "Win64" or "Lin64" (ZUL_MODULE_PLATFORM).
function ZUL_ModuleName(szOutput: PAnsiChar; nOutChars: Integer; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// ZUL_Version returns major * 100 + minor * 10 + release.
function ZUL_Version(pReserved1: Pointer; pReserved2: Pointer): Integer;
  cdecl; external ZUL_MODULE;

/// ZUL_CompileTime copies the date and time of the build, as "Nov  1 2026 09:08:07".
function ZUL_CompileTime(szOutput: PAnsiChar; nOutChars: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// ZUL_PowerUpTests repeats the tests that the module ran when it was loaded.
function ZUL_PowerUpTests(nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// WIPE_Data overwrites nDataLen bytes with zero.
function WIPE_Data(lpData: Pointer; nDataLen: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// WIPE_File overwrites a file seven times, commits each pass to the disk, and deletes the file.
function WIPE_File(szFileName: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// CNV_HexStrFromBytes writes two upper-case hex digits for each byte.
function CNV_HexStrFromBytes(szOutput: PAnsiChar; nOutChars: Integer; lpInput: Pointer; nInputLen: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// CNV_BytesFromHexStr decodes hex digits of either case, skipping every other character; a single digit left over is dropped.
function CNV_BytesFromHexStr(lpOutput: Pointer; nOutBytes: Integer; szInput: PAnsiChar): Integer;
  cdecl; external ZUL_MODULE;

/// CNV_HexFilter copies the hex digits among the first nStrLen characters.
function CNV_HexFilter(szOutput: PAnsiChar; szInput: PAnsiChar; nStrLen: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// CNV_B64StrFromBytes writes base64 (RFC 4648) in one line.
function CNV_B64StrFromBytes(szOutput: PAnsiChar; nOutChars: Integer; lpInput: Pointer; nInputLen: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// CNV_BytesFromB64Str decodes base64 up to the first "=", skipping characters outside the alphabet.
function CNV_BytesFromB64Str(lpOutput: Pointer; nOutBytes: Integer; szInput: PAnsiChar): Integer;
  cdecl; external ZUL_MODULE;

/// CNV_B64Filter is CNV_HexFilter for the base64 alphabet and "=".
function CNV_B64Filter(szOutput: PAnsiChar; szInput: PAnsiChar; nStrLen: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// CNV_CheckUTF8 classifies a text.
function CNV_CheckUTF8(szInput: PAnsiChar): Integer;
  cdecl; external ZUL_MODULE;

/// CNV_CheckUTF8Bytes is CNV_CheckUTF8 over nBytes bytes.
function CNV_CheckUTF8Bytes(lpInput: Pointer; nBytes: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// CNV_UTF8FromLatin1 converts Latin-1 text to UTF-8 text.
function CNV_UTF8FromLatin1(szOutput: PAnsiChar; nOutChars: Integer; szInput: PAnsiChar): Integer;
  cdecl; external ZUL_MODULE;

/// CNV_Latin1FromUTF8 converts UTF-8 text to Latin-1 text.
function CNV_Latin1FromUTF8(szOutput: PAnsiChar; nOutChars: Integer; szInput: PAnsiChar): Integer;
  cdecl; external ZUL_MODULE;

/// CNV_UTF8BytesFromLatin1 is CNV_UTF8FromLatin1 without the NUL; nOutBytes is the room in bytes.
function CNV_UTF8BytesFromLatin1(lpOutput: Pointer; nOutBytes: Integer; szInput: PAnsiChar): Integer;
  cdecl; external ZUL_MODULE;

/// CNV_Latin1FromUTF8Bytes is CNV_Latin1FromUTF8 over nBytes bytes.
function CNV_Latin1FromUTF8Bytes(szOutput: PAnsiChar; nOutChars: Integer; lpInput: Pointer; nBytes: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// CNV_ByteEncoding converts bytes.
function CNV_ByteEncoding(lpOutput: Pointer; nOutBytes: Integer; lpInput: Pointer; nBytes: Integer; nOptions:
    Integer): Integer;
  cdecl; external ZUL_MODULE;

/// PEM_FileFromBinFile writes a file's content as base64 lines ended by CR LF, between BEGIN and END lines if szHeader (the label) is not null or empty.
function PEM_FileFromBinFile(szFileOut: PAnsiChar; szFileIn: PAnsiChar; szHeader: PAnsiChar; nLineLen: Integer):
    Integer;
  cdecl; external ZUL_MODULE;

/// PEM_FileToBinFile decodes the first armoured body of a file, whatever its label.
function PEM_FileToBinFile(szFileOut: PAnsiChar; szFileIn: PAnsiChar): Integer;
  cdecl; external ZUL_MODULE;

/// HASH_Bytes writes the digest of a message of nMsgLen bytes.
function HASH_Bytes(lpDigest: Pointer; nDigLen: Integer; lpMessage: Pointer; nMsgLen: Integer; nOptions: Integer):
    Integer;
  cdecl; external ZUL_MODULE;

/// HASH_File writes the digest of a file of any size.
function HASH_File(lpDigest: Pointer; nDigLen: Integer; szFileName: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// HASH_HexFromBytes is HASH_Bytes with lower-case hex as output.
function HASH_HexFromBytes(szOutput: PAnsiChar; nOutChars: Integer; lpMessage: Pointer; nMsgLen: Integer; nOptions:
    Integer): Integer;
  cdecl; external ZUL_MODULE;

/// HASH_HexFromFile is HASH_File with lower-case hex as output.
function HASH_HexFromFile(szOutput: PAnsiChar; nOutChars: Integer; szFileName: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// HASH_HexFromHex is HASH_HexFromBytes over a message in hex.
function HASH_HexFromHex(szOutput: PAnsiChar; nOutChars: Integer; szMsgHex: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// HMAC_Bytes writes the MAC of a message.
function HMAC_Bytes(lpDigest: Pointer; nDigLen: Integer; lpMessage: Pointer; nMsgLen: Integer; lpKey: Pointer;
    nKeyLen: Integer; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// HMAC_HexFromBytes is HMAC_Bytes with lower-case hex as output.
function HMAC_HexFromBytes(szOutput: PAnsiChar; nOutChars: Integer; lpMessage: Pointer; nMsgLen: Integer; lpKey:
    Pointer; nKeyLen: Integer; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// HMAC_HexFromHex is HMAC_HexFromBytes over a message and key in hex.
function HMAC_HexFromHex(szOutput: PAnsiChar; nOutChars: Integer; szMsgHex: PAnsiChar; szKeyHex: PAnsiChar; nOptions:
    Integer): Integer;
  cdecl; external ZUL_MODULE;

/// KDF_Pbkdf2 is PBKDF2 of RFC 8018 with HMAC.
function KDF_Pbkdf2(lpOutput: Pointer; nOutBytes: Integer; lpPassword: Pointer; nPwdLen: Integer; lpSalt: Pointer;
    nSaltLen: Integer; nIterations: Integer; szHash: PAnsiChar): Integer;
  cdecl; external ZUL_MODULE;

/// KDF_Hkdf is HKDF of RFC 5869, extract and expand.
function KDF_Hkdf(lpOutput: Pointer; nOutBytes: Integer; lpKey: Pointer; nKeyLen: Integer; lpSalt: Pointer; nSaltLen:
    Integer; lpInfo: Pointer; nInfoLen: Integer; szHash: PAnsiChar): Integer;
  cdecl; external ZUL_MODULE;

/// KDF_Scrypt is scrypt of RFC 7914.
function KDF_Scrypt(lpOutput: Pointer; nOutBytes: Integer; lpPassword: Pointer; nPwdLen: Integer; lpSalt: Pointer;
    nSaltLen: Integer; nN: Integer; nR: Integer; nP: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// KDF_Argon2id is Argon2id of RFC 9106, version 0x13, without secret and associated data.
function KDF_Argon2id(lpOutput: Pointer; nOutBytes: Integer; lpPassword: Pointer; nPwdLen: Integer; lpSalt: Pointer;
    nSaltLen: Integer; nMemoryKiB: Integer; nPasses: Integer; nLanes: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// CIPHER_Bytes encrypts or decrypts nBytes bytes; lpOutput has the same length and may be lpInput.
function CIPHER_Bytes(fEncrypt: Integer; lpOutput: Pointer; lpInput: Pointer; nBytes: Integer; lpKey: Pointer; lpIV:
    Pointer; szAlgAndMode: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// CIPHER_Hex is CIPHER_Bytes over hex texts; the output is upper case and nOutChars must cover all of it (SHORT_BUF_ERROR).
function CIPHER_Hex(fEncrypt: Integer; szOutput: PAnsiChar; nOutChars: Integer; szInputHex: PAnsiChar; szKeyHex:
    PAnsiChar; szIVHex: PAnsiChar; szAlgAndMode: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// CIPHER_File encrypts or decrypts a file of any size into another.
function CIPHER_File(fEncrypt: Integer; szFileOut: PAnsiChar; szFileIn: PAnsiChar; lpKey: Pointer; lpIV: Pointer;
    szAlgAndMode: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// TDEA_BytesMode is CIPHER_Bytes with Triple DES; szMode is "ECB", "CBC", "CFB", "OFB" or "CTR" in any case (BAD_MODE_ERROR otherwise; BAD_PARAM_ERROR if null).
function TDEA_BytesMode(lpOutput: Pointer; lpInput: Pointer; nBytes: Integer; lpKey: Pointer; fEncrypt: Integer;
    szMode: PAnsiChar; lpIV: Pointer): Integer;
  cdecl; external ZUL_MODULE;

/// TDEA_HexMode is TDEA_BytesMode over hex texts.
function TDEA_HexMode(szOutput: PAnsiChar; szInputHex: PAnsiChar; szKeyHex: PAnsiChar; fEncrypt: Integer; szMode:
    PAnsiChar; szIVHex: PAnsiChar): Integer;
  cdecl; external ZUL_MODULE;

/// TDEA_B64Mode is TDEA_HexMode over base64 texts; szOutput holds (bytes + 2) / 3 * 4 characters and a NUL.
function TDEA_B64Mode(szOutput: PAnsiChar; szInputB64: PAnsiChar; szKeyB64: PAnsiChar; fEncrypt: Integer; szMode:
    PAnsiChar; szIVB64: PAnsiChar): Integer;
  cdecl; external ZUL_MODULE;

/// TDEA_File is CIPHER_File with Triple DES and a mode as in TDEA_BytesMode.
function TDEA_File(szFileOut: PAnsiChar; szFileIn: PAnsiChar; lpKey: Pointer; fEncrypt: Integer; szMode: PAnsiChar;
    lpIV: Pointer): Integer;
  cdecl; external ZUL_MODULE;

/// CIPHER_KeyWrap wraps a key of nDataLen bytes under a key-encryption key.
function CIPHER_KeyWrap(lpOutput: Pointer; nOutBytes: Integer; lpData: Pointer; nDataLen: Integer; lpKEK: Pointer;
    nKekLen: Integer; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// CIPHER_KeyUnwrap undoes CIPHER_KeyWrap; errors as there.
function CIPHER_KeyUnwrap(lpOutput: Pointer; nOutBytes: Integer; lpData: Pointer; nDataLen: Integer; lpKEK: Pointer;
    nKekLen: Integer; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// PAD_BytesBlock copies the input and appends 1 to nBlkLen bytes that hold their count.
function PAD_BytesBlock(lpOutput: Pointer; nOutputLen: Integer; lpInput: Pointer; nInputLen: Integer; nBlkLen:
    Integer; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// PAD_UnpadBytes copies the input without its padding.
function PAD_UnpadBytes(lpOutput: Pointer; nOutputLen: Integer; lpInput: Pointer; nInputLen: Integer; nBlkLen:
    Integer; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// PAD_HexBlock is PAD_BytesBlock over hex text, which is copied unchanged and not validated.
function PAD_HexBlock(szOutput: PAnsiChar; nOutChars: Integer; szInputHex: PAnsiChar; nBlkLen: Integer; nOptions:
    Integer): Integer;
  cdecl; external ZUL_MODULE;

/// PAD_UnpadHex is PAD_UnpadBytes over hex text.
function PAD_UnpadHex(szOutput: PAnsiChar; nOutChars: Integer; szInputHex: PAnsiChar; nBlkLen: Integer; nOptions:
    Integer): Integer;
  cdecl; external ZUL_MODULE;

/// RNG_Bytes fills nBytes (at most 65,536) random bytes.
function RNG_Bytes(lpOutput: Pointer; nBytes: Integer; lpSeed: Pointer; nSeedLen: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// RNG_BytesWithPrompt shows a dialog in which the user types at random and moves the mouse until enough has been collected.
function RNG_BytesWithPrompt(lpOutput: Pointer; nOutputLen: Integer; szPrompt: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// RNG_Number returns a uniform number from nLower to nUpper, both included; nLower if nUpper is not greater, or if the range needs all 32 bits.
function RNG_Number(nLower: Integer; nUpper: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// RNG_Test runs the generator's known-answer test and the four statistical tests of FIPS 140-2 on 20,000 fresh bits, and writes a report if szFileName is not null or empty.
function RNG_Test(szFileName: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// RNG_Initialize instantiates the thread's generator and takes in a seed file of 64 bytes, which it then overwrites with fresh ones.
function RNG_Initialize(szSeedFile: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// RNG_MakeSeedFile makes or overwrites a seed file for RNG_Initialize from what the user does in the dialog of RNG_BytesWithPrompt; szPrompt and nOptions as there.
function RNG_MakeSeedFile(szSeedFile: PAnsiChar; szPrompt: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// RNG_UpdateSeedFile takes in a seed file and overwrites it, as RNG_Initialize.
function RNG_UpdateSeedFile(szSeedFile: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// PWD_PromptEx shows a dialog in which the user enters a password, or asks for it in the process's controlling terminal (Linux).
function PWD_PromptEx(szPassword: PAnsiChar; nPwdLen: Integer; szCaption: PAnsiChar; szPrompt: PAnsiChar): Integer;
  cdecl; external ZUL_MODULE;

/// PWD_Prompt is PWD_PromptEx with the dialog's own text, "Enter password:".
function PWD_Prompt(szPassword: PAnsiChar; nPwdLen: Integer; szCaption: PAnsiChar): Integer;
  cdecl; external ZUL_MODULE;

/// RSA_MakeKeys makes a key pair and writes two files.
function RSA_MakeKeys(szPubKeyFile: PAnsiChar; szPriKeyFile: PAnsiChar; nBits: Integer; nExpIndex: Integer; nTests:
    Integer; nCount: Integer; szPassword: PAnsiChar; lpSeed: Pointer; nSeedLen: Integer; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// RSA_ReadPublicKey reads an RSAPublicKey (PKCS #1) or SubjectPublicKeyInfo (X.509) and writes its key string.
function RSA_ReadPublicKey(szOutput: PAnsiChar; nOutChars: Integer; szFileOrText: PAnsiChar): Integer;
  cdecl; external ZUL_MODULE;

/// RSA_ReadPrivateKeyInfo reads an unencrypted PrivateKeyInfo (PKCS #8) or RSAPrivateKey (PKCS #1) of two primes and writes its key string.
function RSA_ReadPrivateKeyInfo(szOutput: PAnsiChar; nOutChars: Integer; szFileOrText: PAnsiChar): Integer;
  cdecl; external ZUL_MODULE;

/// RSA_ReadEncPrivateKey reads an EncryptedPrivateKeyInfo (PKCS #8) and writes the private key's key string.
function RSA_ReadEncPrivateKey(szOutput: PAnsiChar; nOutChars: Integer; szFileOrText: PAnsiChar; szPassword:
    PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// RSA_GetPublicKeyFromCert reads an X.509 certificate and writes the key string of its subject's public key.
function RSA_GetPublicKeyFromCert(szOutput: PAnsiChar; nOutChars: Integer; szFileOrText: PAnsiChar): Integer;
  cdecl; external ZUL_MODULE;

/// RSA_SavePublicKey writes a public key, or the public part of a private key, to a file.
function RSA_SavePublicKey(szFileOut: PAnsiChar; szKeyString: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// RSA_SavePrivateKeyInfo writes a private key to a file, unencrypted.
function RSA_SavePrivateKeyInfo(szFileOut: PAnsiChar; szKeyString: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// RSA_SaveEncPrivateKey writes a private key to a file as EncryptedPrivateKeyInfo.
function RSA_SaveEncPrivateKey(szFileOut: PAnsiChar; szKeyString: PAnsiChar; nCount: Integer; szPassword: PAnsiChar;
    nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// RSA_ToXMLString writes a key as XML.
function RSA_ToXMLString(szOutput: PAnsiChar; nOutChars: Integer; szKeyString: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// RSA_FromXMLString reads a key from XML and gives its internal key string.
function RSA_FromXMLString(szOutput: PAnsiChar; nOutChars: Integer; szXmlString: PAnsiChar; nOptions: Integer):
    Integer;
  cdecl; external ZUL_MODULE;

/// RSA_KeyBits returns the length in bits of the modulus of a public or private key.
function RSA_KeyBits(szKeyString: PAnsiChar): Integer;
  cdecl; external ZUL_MODULE;

/// RSA_KeyBytes returns the length in bytes of the modulus, which is that of data and encoded blocks.
function RSA_KeyBytes(szKeyString: PAnsiChar): Integer;
  cdecl; external ZUL_MODULE;

/// RSA_KeyMatch tells whether a private and a public key form a pair.
function RSA_KeyMatch(szPrivateKey: PAnsiChar; szPublicKey: PAnsiChar): Integer;
  cdecl; external ZUL_MODULE;

/// RSA_KeyHashCode returns a hash code, which may be negative, of a public key or of the public part of a private key.
function RSA_KeyHashCode(szKeyString: PAnsiChar): Integer;
  cdecl; external ZUL_MODULE;

/// RSA_CheckKey checks a key.
function RSA_CheckKey(szKeyString: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// RSA_RawPublic transforms data in place with a public key string.
function RSA_RawPublic(lpData: Pointer; nDataLen: Integer; szPublicKey: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// RSA_RawPrivate transforms data in place with a private key.
function RSA_RawPrivate(lpData: Pointer; nDataLen: Integer; szPrivateKey: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// RSA_EncodeMsg fills the nOutBytes bytes (normally RSA_KeyBytes) of lpOutput with the encoding of a message.
function RSA_EncodeMsg(lpOutput: Pointer; nOutBytes: Integer; lpInput: Pointer; nInputLen: Integer; nOptions:
    Integer): Integer;
  cdecl; external ZUL_MODULE;

/// RSA_DecodeMsg recovers the message from an encoded block, of which at most nOutBytes bytes are copied.
function RSA_DecodeMsg(lpOutput: Pointer; nOutBytes: Integer; lpInput: Pointer; nInputLen: Integer; nOptions:
    Integer): Integer;
  cdecl; external ZUL_MODULE;

/// X509_QueryCert answers a query about a certificate.
function X509_QueryCert(szOutput: PAnsiChar; nChars: Integer; szCertFile: PAnsiChar; szQuery: PAnsiChar; nOptions:
    Integer): Integer;
  cdecl; external ZUL_MODULE;

/// X509_KeyUsageFlags returns the key usage as ZUL_KEYUSAGE_ bits, 0 if the certificate does not say, or a negated code.
function X509_KeyUsageFlags(szCertFile: PAnsiChar): Integer;
  cdecl; external ZUL_MODULE;

/// X509_CertThumb writes the digest (nOptions: ZUL_HASH_...) of a certificate in lower-case hex.
function X509_CertThumb(szCertFile: PAnsiChar; szHash: PAnsiChar; nChars: Integer; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// X509_CertIsValidNow returns 0 if the present time lies within the certificate's validity, -1 if not, or a positive code.
function X509_CertIsValidNow(szCertFile: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// X509_CertIssuedOn and X509_CertExpiresOn write the beginning and end of the validity, 20 characters, cut to nChars.
function X509_CertIssuedOn(szCertFile: PAnsiChar; szOutput: PAnsiChar; nChars: Integer; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// X509_CertIssuedOn and X509_CertExpiresOn write the beginning and end of the validity, 20 characters, cut to nChars.
function X509_CertExpiresOn(szCertFile: PAnsiChar; szOutput: PAnsiChar; nChars: Integer; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// X509_CertSerialNumber writes the serial number's bytes in lower-case hex.
function X509_CertSerialNumber(szCertFile: PAnsiChar; szOutput: PAnsiChar; nChars: Integer; nOptions: Integer):
    Integer;
  cdecl; external ZUL_MODULE;

/// X509_CertSubjectName and X509_CertIssuerName write a name as text, cut to nChars.
function X509_CertSubjectName(szCertFile: PAnsiChar; szOutput: PAnsiChar; nChars: Integer; szDelim: PAnsiChar;
    nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// X509_CertSubjectName and X509_CertIssuerName write a name as text, cut to nChars.
function X509_CertIssuerName(szCertFile: PAnsiChar; szOutput: PAnsiChar; nChars: Integer; szDelim: PAnsiChar;
    nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// X509_HashIssuerAndSN writes the digest of the certificate's IssuerAndSerialNumber (RFC 5652), as X509_CertThumb that of the certificate.
function X509_HashIssuerAndSN(szCertFile: PAnsiChar; szOutput: PAnsiChar; nChars: Integer; nOptions: Integer):
    Integer;
  cdecl; external ZUL_MODULE;

/// X509_ReadStringFromFile writes a certificate as base64 in one line, which serves as szCertFile wherever one is asked for (if it is longer than 256 characters, as that of any certificate with an RSA key is).
function X509_ReadStringFromFile(szOutput: PAnsiChar; nChars: Integer; szCertFile: PAnsiChar; nOptions: Integer):
    Integer;
  cdecl; external ZUL_MODULE;

/// X509_SaveFileFromString writes a certificate given as base64 to a file.
function X509_SaveFileFromString(szNewCertFile: PAnsiChar; szCertString: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// X509_MakeCert makes a certificate (RFC 5280) signed by an issuer.
function X509_MakeCert(szNewCertFile: PAnsiChar; szIssuerCertFile: PAnsiChar; szSubjectPubKeyFile: PAnsiChar;
    szIssuerPriKeyFile: PAnsiChar; nCertNum: Integer; nYearsValid: Integer; szDistName: PAnsiChar; szExtensions:
    PAnsiChar; nKeyUsageFlags: Integer; szPassword: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// X509_MakeCertSelf makes the self-signed certificate of a certification authority from its encrypted private key.
function X509_MakeCertSelf(szNewCertFile: PAnsiChar; szEPKFile: PAnsiChar; nCertNum: Integer; nYearsValid: Integer;
    szDistName: PAnsiChar; szExtensions: PAnsiChar; nKeyUsageFlags: Integer; szPassword: PAnsiChar; nOptions:
    Integer): Integer;
  cdecl; external ZUL_MODULE;

/// X509_CertRequest makes a certification request (PKCS #10, RFC 2986) from an encrypted private key.
function X509_CertRequest(szReqFile: PAnsiChar; szEPKFile: PAnsiChar; szDistName: PAnsiChar; szExtensions: PAnsiChar;
    szPassword: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// X509_MakeCRL makes a revocation list of version 1.
function X509_MakeCRL(szCrlFile: PAnsiChar; szIssuerCertFile: PAnsiChar; szIssuerKeyFile: PAnsiChar; szPassword:
    PAnsiChar; szCertList: PAnsiChar; szExtensions: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// X509_VerifyCert checks that a certificate, request or CRL was signed with the key of szIssuerCert.
function X509_VerifyCert(szCertToVerify: PAnsiChar; szIssuerCert: PAnsiChar): Integer;
  cdecl; external ZUL_MODULE;

/// X509_CheckCertInCRL looks a certificate up in its issuer's CRL.
function X509_CheckCertInCRL(szCertFile: PAnsiChar; szCrlFile: PAnsiChar; szCRLIssuerCert: PAnsiChar; szDate:
    PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// X509_ValidatePath orders certificates into a path and checks each one's signature, and its dates unless nOptions is not 0.
function X509_ValidatePath(szCertList: PAnsiChar; szTrustedCert: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// X509_TextDump writes a description of a certificate, request or CRL to a text file.
function X509_TextDump(szFileOut: PAnsiChar; szCertFile: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// X509_GetCertFromP7Chain takes a certificate out of a signed message or a certs-only one (PKCS #7, "p7c" or "p7b"), a message argument as below.
function X509_GetCertFromP7Chain(szNewCertFile: PAnsiChar; szP7cFile: PAnsiChar; nIndex: Integer; nOptions: Integer):
    Integer;
  cdecl; external ZUL_MODULE;

/// X509_GetCertFromPFX and RSA_GetPrivateKeyFromPFX write the first certificate of a PKCS #12 file, as DER, and its first encrypted private key, as RSA_ReadEncPrivateKey reads it, to a file.
function X509_GetCertFromPFX(szFileOut: PAnsiChar; szPfxFile: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// X509_GetCertFromPFX and RSA_GetPrivateKeyFromPFX write the first certificate of a PKCS #12 file, as DER, and its first encrypted private key, as RSA_ReadEncPrivateKey reads it, to a file.
function RSA_GetPrivateKeyFromPFX(szFileOut: PAnsiChar; szPfxFile: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// CMS_MakeSigData signs a file with RSA (PKCS #1 v1.5).
function CMS_MakeSigData(szFileOut: PAnsiChar; szFileIn: PAnsiChar; szCertList: PAnsiChar; szPrivateKey: PAnsiChar;
    nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// CMS_MakeSigDataFromString signs the bytes of a text, without its NUL, as CMS_MakeSigData a file.
function CMS_MakeSigDataFromString(szFileOut: PAnsiChar; szDataIn: PAnsiChar; szCertList: PAnsiChar; szPrivateKey:
    PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// CMS_MakeDetachedSig signs content whose digest is given in hex; the content is not carried.
function CMS_MakeDetachedSig(szFileOut: PAnsiChar; szHexDigest: PAnsiChar; szCertList: PAnsiChar; szPrivateKey:
    PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// CMS_MakeSigDataFromSigValue makes a message from nDataLen bytes of content and their finished signature, made by a smart card, for example.
function CMS_MakeSigDataFromSigValue(szFileOut: PAnsiChar; lpSigValue: Pointer; nSigLen: Integer; lpData: Pointer;
    nDataLen: Integer; szCertList: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// CMS_ReadSigData writes the content of a signed message to a file, CMS_ReadSigDataToString to nDataOutLen bytes of room and a NUL.
function CMS_ReadSigData(szFileOut: PAnsiChar; szFileIn: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// CMS_ReadSigData writes the content of a signed message to a file, CMS_ReadSigDataToString to nDataOutLen bytes of room and a NUL.
function CMS_ReadSigDataToString(szDataOut: PAnsiChar; nDataOutLen: Integer; szFileIn: PAnsiChar; nOptions: Integer):
    Integer;
  cdecl; external ZUL_MODULE;

/// CMS_VerifySigData verifies the signature of a signed message, RSA (PKCS #1 v1.5) with any digest or DSA with SHA-1, and the digest of its content.
function CMS_VerifySigData(szFileIn: PAnsiChar; szCertFile: PAnsiChar; szHexDigest: PAnsiChar; nOptions: Integer):
    Integer;
  cdecl; external ZUL_MODULE;

/// CMS_GetSigDataDigest writes the digest of the content that was signed, in lower-case hex.
function CMS_GetSigDataDigest(szHexDigestOut: PAnsiChar; nDigestLen: Integer; szFileIn: PAnsiChar; szCertFile:
    PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// CMS_QuerySigData answers a query about a signed message of any version, verified or not.
function CMS_QuerySigData(szOutput: PAnsiChar; nOutChars: Integer; szFileIn: PAnsiChar; szQuery: PAnsiChar; nOptions:
    Integer): Integer;
  cdecl; external ZUL_MODULE;

/// CMS_MakeEnvData encrypts a file for the RSA keys (PKCS #1 v1.5) of up to 10 certificates.
function CMS_MakeEnvData(szFileOut: PAnsiChar; szFileIn: PAnsiChar; szCertList: PAnsiChar; lpSeed: Pointer; nSeedLen:
    Integer; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// CMS_MakeEnvDataFromString encrypts the bytes of a text, without its NUL, as CMS_MakeEnvData a file.
function CMS_MakeEnvDataFromString(szFileOut: PAnsiChar; szDataIn: PAnsiChar; szCertList: PAnsiChar; lpSeed: Pointer;
    nSeedLen: Integer; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// CMS_ReadEnvData decrypts an enveloped message (Triple DES, AES or RC2, CBC) into a file, CMS_ReadEnvDataToString into nDataOutLen bytes of room and a NUL.
function CMS_ReadEnvData(szFileOut: PAnsiChar; szFileIn: PAnsiChar; szX509File: PAnsiChar; szPrivateKey: PAnsiChar;
    nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// CMS_ReadEnvData decrypts an enveloped message (Triple DES, AES or RC2, CBC) into a file, CMS_ReadEnvDataToString into nDataOutLen bytes of room and a NUL.
function CMS_ReadEnvDataToString(szDataOut: PAnsiChar; nDataOutLen: Integer; szFileIn: PAnsiChar; szX509File:
    PAnsiChar; szPrivateKey: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// CMS_QueryEnvData answers a query about an enveloped message.
function CMS_QueryEnvData(szOutput: PAnsiChar; nOutChars: Integer; szFileIn: PAnsiChar; szQuery: PAnsiChar; nOptions:
    Integer): Integer;
  cdecl; external ZUL_MODULE;

/// PFX_MakeFile writes a PFX file.
function PFX_MakeFile(szFileOut: PAnsiChar; szCertFile: PAnsiChar; szKeyFile: PAnsiChar; szPassword: PAnsiChar;
    szFriendlyName: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// PFX_VerifySig checks the MAC of a PFX file (HMAC with SHA-1, SHA-256, SHA-384 or SHA-512) with a password.
function PFX_VerifySig(szPfxFile: PAnsiChar; szPassword: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// OCSP_MakeRequest writes an unsigned request about one certificate as base64 in one line.
function OCSP_MakeRequest(szOutput: PAnsiChar; nChars: Integer; szIssuerCert: PAnsiChar; szCertFileOrSerialNum:
    PAnsiChar; szExtensions: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// OCSP_ReadResponse writes a report of a response, which is a file of DER, PEM or base64, or text.
function OCSP_ReadResponse(szOutput: PAnsiChar; nChars: Integer; szResponseFile: PAnsiChar; szIssuerCert: PAnsiChar;
    szExtensions: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// HASH_Begin begins a digest.
function HASH_Begin(lpContext: Pointer; nContextLen: Integer; szAlgorithm: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// HASH_Add absorbs nDataLen bytes.
function HASH_Add(lpContext: Pointer; lpData: Pointer; nDataLen: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// HASH_End writes the digest, cut to nOutBytes, and wipes the context; of "shake128" and "shake256" it writes nOutBytes bytes.
function HASH_End(lpOutput: Pointer; nOutBytes: Integer; lpContext: Pointer): Integer;
  cdecl; external ZUL_MODULE;

/// HMAC_Begin begins a MAC with a key of any length and a digest that has an HMAC (not "md2", "shake128" and "shake256"); the rest as HASH_Begin.
function HMAC_Begin(lpContext: Pointer; nContextLen: Integer; lpKey: Pointer; nKeyLen: Integer; szAlgorithm:
    PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// HMAC_Add absorbs nDataLen bytes, as HASH_Add.
function HMAC_Add(lpContext: Pointer; lpData: Pointer; nDataLen: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// HMAC_End writes the MAC, cut to nOutBytes, and wipes the context, as HASH_End.
function HMAC_End(lpOutput: Pointer; nOutBytes: Integer; lpContext: Pointer): Integer;
  cdecl; external ZUL_MODULE;

/// CIPHER_Begin begins to encrypt (fEncrypt not 0) or decrypt.
function CIPHER_Begin(lpContext: Pointer; nContextLen: Integer; fEncrypt: Integer; lpKey: Pointer; nKeyLen: Integer;
    lpIV: Pointer; nIVLen: Integer; szAlgorithm: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// CIPHER_Add takes the next piece and writes what is ready, which may be a block less or more than the piece.
function CIPHER_Add(lpOutput: Pointer; nOutBytes: Integer; lpContext: Pointer; lpInput: Pointer; nInputLen: Integer):
    Integer;
  cdecl; external ZUL_MODULE;

/// CIPHER_End writes the end, at most a block, and wipes the context.
function CIPHER_End(lpOutput: Pointer; nOutBytes: Integer; lpContext: Pointer): Integer;
  cdecl; external ZUL_MODULE;

/// AEAD_Encrypt encrypts data and adds a tag of 16 bytes, which also covers lpAad, data that is not encrypted.
function AEAD_Encrypt(lpOutput: Pointer; nOutBytes: Integer; lpInput: Pointer; nInputLen: Integer; lpKey: Pointer;
    nKeyLen: Integer; lpNonce: Pointer; nNonceLen: Integer; lpAad: Pointer; nAadLen: Integer; szAlgorithm: PAnsiChar;
    nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// AEAD_Decrypt undoes AEAD_Encrypt.
function AEAD_Decrypt(lpOutput: Pointer; nOutBytes: Integer; lpInput: Pointer; nInputLen: Integer; lpKey: Pointer;
    nKeyLen: Integer; lpNonce: Pointer; nNonceLen: Integer; lpAad: Pointer; nAadLen: Integer; szAlgorithm: PAnsiChar;
    nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// KEY_Make makes a private key.
function KEY_Make(szOutput: PAnsiChar; nOutChars: Integer; szAlgorithm: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// KEY_Read reads a key, private or public, as a key string.
function KEY_Read(szOutput: PAnsiChar; nOutChars: Integer; szFileOrText: PAnsiChar; szPassword: PAnsiChar; nOptions:
    Integer): Integer;
  cdecl; external ZUL_MODULE;

/// KEY_Save writes a key to a file, which is replaced in one step.
function KEY_Save(szFileOut: PAnsiChar; szKey: PAnsiChar; szPassword: PAnsiChar; szParameters: PAnsiChar; nOptions:
    Integer): Integer;
  cdecl; external ZUL_MODULE;

/// KEY_Public gives the public key of a private one.
function KEY_Public(szOutput: PAnsiChar; nOutChars: Integer; szPrivateKey: PAnsiChar): Integer;
  cdecl; external ZUL_MODULE;

/// KEY_Query answers a query about a key.
function KEY_Query(szOutput: PAnsiChar; nOutChars: Integer; szKey: PAnsiChar; szQuery: PAnsiChar; nOptions: Integer):
    Integer;
  cdecl; external ZUL_MODULE;

/// KEY_Match tells whether a private key belongs to a public one.
function KEY_Match(szPrivateKey: PAnsiChar; szPublicKey: PAnsiChar): Integer;
  cdecl; external ZUL_MODULE;

/// KEY_Check tells whether a key's values are valid and belong together.
function KEY_Check(szKey: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// KEY_Agree computes the secret that the owners of two key pairs share.
function KEY_Agree(lpOutput: Pointer; nOutBytes: Integer; szPrivateKey: PAnsiChar; szPublicKey: PAnsiChar; nOptions:
    Integer): Integer;
  cdecl; external ZUL_MODULE;

/// SIG_Sign signs data.
function SIG_Sign(lpOutput: Pointer; nOutBytes: Integer; lpData: Pointer; nDataLen: Integer; szPrivateKey: PAnsiChar;
    szAlgorithm: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// SIG_Verify verifies a signature of data.
function SIG_Verify(lpSignature: Pointer; nSigLen: Integer; lpData: Pointer; nDataLen: Integer; szPublicKey:
    PAnsiChar; szAlgorithm: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// SIG_SignFile signs the content of a file of any size.
function SIG_SignFile(lpOutput: Pointer; nOutBytes: Integer; szFileIn: PAnsiChar; szPrivateKey: PAnsiChar;
    szAlgorithm: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// SIG_VerifyFile verifies a signature of the content of a file of any size.
function SIG_VerifyFile(lpSignature: Pointer; nSigLen: Integer; szFileIn: PAnsiChar; szPublicKey: PAnsiChar;
    szAlgorithm: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// SIG_SignDigest signs data whose digest is given.
function SIG_SignDigest(lpOutput: Pointer; nOutBytes: Integer; lpDigest: Pointer; nDigestLen: Integer; szPrivateKey:
    PAnsiChar; szAlgorithm: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// SIG_VerifyDigest verifies a signature of data whose digest is given.
function SIG_VerifyDigest(lpSignature: Pointer; nSigLen: Integer; lpDigest: Pointer; nDigestLen: Integer; szPublicKey:
    PAnsiChar; szAlgorithm: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// SEAL_MakeIdentity makes an identity.
function SEAL_MakeIdentity(szOutput: PAnsiChar; nOutChars: Integer; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// SEAL_Recipient gives the recipient of an identity.
function SEAL_Recipient(szOutput: PAnsiChar; nOutChars: Integer; szIdentity: PAnsiChar): Integer;
  cdecl; external ZUL_MODULE;

/// SEAL_File encrypts a file, either for recipients or under a password (scrypt with a work factor of 2^18).
function SEAL_File(szFileOut: PAnsiChar; szFileIn: PAnsiChar; szRecipients: PAnsiChar; szPassword: PAnsiChar;
    nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// SEAL_OpenFile decrypts a file, in armour or not.
function SEAL_OpenFile(szFileOut: PAnsiChar; szFileIn: PAnsiChar; szIdentities: PAnsiChar; szPassword: PAnsiChar;
    nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// P12_Pack writes a PKCS #12 file, which is replaced in one step, of a private key and certificates.
function P12_Pack(szFileOut: PAnsiChar; szCerts: PAnsiChar; szPrivateKey: PAnsiChar; szPassword: PAnsiChar; szName:
    PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// P12_Unpack reads a PKCS #12 file.
function P12_Unpack(szCertsOut: PAnsiChar; szKeyOutput: PAnsiChar; nKeyChars: Integer; szP12: PAnsiChar; szPassword:
    PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// P12_List describes a PKCS #12 file in UTF-8.
function P12_List(szOutput: PAnsiChar; nOutChars: Integer; szP12: PAnsiChar; szPassword: PAnsiChar; nOptions:
    Integer): Integer;
  cdecl; external ZUL_MODULE;

/// CERT_SelfSign makes a certificate that its own key signs.
function CERT_SelfSign(szCertOut: PAnsiChar; szPrivateKey: PAnsiChar; szDescription: PAnsiChar; nOptions: Integer):
    Integer;
  cdecl; external ZUL_MODULE;

/// CERT_Issue makes a certificate that an authority signs.
function CERT_Issue(szCertOut: PAnsiChar; szIssuerCert: PAnsiChar; szIssuerKey: PAnsiChar; szSubjectKeyOrRequest:
    PAnsiChar; szDescription: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// CERT_Request makes a certificate request (PKCS #10).
function CERT_Request(szRequestOut: PAnsiChar; szPrivateKey: PAnsiChar; szDescription: PAnsiChar; nOptions: Integer):
    Integer;
  cdecl; external ZUL_MODULE;

/// CERT_IssueCRL makes a CRL of version 2 (RFC 5280).
function CERT_IssueCRL(szCrlOut: PAnsiChar; szIssuerCert: PAnsiChar; szIssuerKey: PAnsiChar; szEarlierCrl: PAnsiChar;
    szRevoked: PAnsiChar; szDescription: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// CERT_Query answers one query about a certificate, request, CRL or OCSP response, the first one in szCert.
function CERT_Query(szOutput: PAnsiChar; nOutChars: Integer; szCert: PAnsiChar; szQuery: PAnsiChar; nOptions:
    Integer): Integer;
  cdecl; external ZUL_MODULE;

/// CERT_Report writes all that certificates, requests, CRLs and OCSP responses hold.
function CERT_Report(szOutput: PAnsiChar; nOutChars: Integer; szFileOrText: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// CERT_CheckName tells whether a certificate, the first one in szCert, is for a host, an address or a mailbox (RFC 9525).
function CERT_CheckName(szCert: PAnsiChar; szHostOrAddress: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

/// CERT_CheckPath tells whether a certificate can be relied on.
function CERT_CheckPath(szReport: PAnsiChar; nReportChars: Integer; szCert: PAnsiChar; szOthers: PAnsiChar; szTrusted:
    PAnsiChar; szEvidence: PAnsiChar; szConditions: PAnsiChar; nOptions: Integer): Integer;
  cdecl; external ZUL_MODULE;

implementation

end.
