// Made from include/zulcore.h by scripts/make_bindings.py.
package zulcore;

import com.sun.jna.Library;
import com.sun.jna.Pointer;

/**
 * Every function and constant of the library. Texts and bytes are native memory (com.sun.jna.Memory); a text ends with a
 * zero byte. {@link Zul} and {@link Key} make that memory, wipe it, and throw what is refused.
 */
public interface Zulcore extends Library {
    int SUCCESS_ERROR = 0;
    int OPEN_ERROR = 1;
    int CREATE_ERROR = 2;
    int READ_ERROR = 3;
    int WRITE_ERROR = 4;
    int MEMORY_ERROR = 5;
    int BAD_PARAM_ERROR = 6;
    int BAD_FORMAT_ERROR = 7;
    int INVALID_DATA_ERROR = 8;
    int EOF_ERROR = 9;
    int OUT_OF_RANGE_ERROR = 11;
    int DUP_ERROR = 12;
    int IO_ERROR = 13;
    int NULL_ERROR = 14;
    int DECRYPT_ERROR = 15;
    int EXPIRED_ERROR = 16;
    int BAD_FLAG_ERROR = 17;
    int WIPE_ERROR = 18;
    int NOT_SUPPORTED_ERROR = 19;
    int NO_DATA_ERROR = 20;
    int NO_MATCH_ERROR = 21;
    int SIGNATURE_ERROR = 22;
    int TEST_FAILED_ERROR = 23;
    int KEYGEN_FAILED_ERROR = 24;
    int ISSUER_ERROR = 25;
    int BAD_LENGTH_ERROR = 26;
    int BAD_XML_ERROR = 27;
    int MSG_TOO_LONG_ERROR = 28;
    int BAD_QUERY_ERROR = 29;
    int SHORT_BUF_ERROR = 30;
    int BAD_KEY_LEN_ERROR = 33;
    int BAD_BLK_LEN_ERROR = 34;
    int BAD_MODE_ERROR = 35;
    int BAD_KEY_ERROR = 36;
    int BAD_IV_ERROR = 37;
    int PRNG_ERR_FILE_OPEN = 201;
    int PRNG_ERR_FILE_CREATE = 202;
    int PRNG_ERR_FILE_READ = 203;
    int PRNG_ERR_FILE_WRITE = 204;
    int PRNG_ERR_FILE_LOCK = 205;
    int PRNG_ERR_UNINST = 210;
    int PRNG_ERR_TOOBIG = 211;
    int PRNG_ERR_FAILURE = 212;
    int PRNG_ERR_BADPARAM = 213;
    int PRNG_ERR_NOTAVAIL = 214;
    int PRNG_ERR_CATASTROPHIC = 299;
    int MISC_ERROR = 9999;

    // ZUL_ModuleName
    int ZUL_MODULE_PLATFORM = 0x40;

    // CNV_ByteEncoding
    int ZUL_CNV_UTF8_FROM_LATIN1 = 0x1;
    int ZUL_CNV_LATIN1_FROM_UTF8 = 0x2;

    // Digest algorithms: bits 0-3 of the options of HASH_ and HMAC_
    int ZUL_HASH_SHA1 = 0;
    int ZUL_HASH_MD5 = 1;
    int ZUL_HASH_MD2 = 2;
    int ZUL_HASH_SHA256 = 3;
    int ZUL_HASH_SHA384 = 4;
    int ZUL_HASH_SHA512 = 5;
    int ZUL_HASH_SHA224 = 6;
    int ZUL_HASH_SHA1_RNG = 7;
    int ZUL_HASH_MODE_TEXT = 0x10000;

    // Block ciphers (bits 4-7) and modes (bits 8-11) of the options of CIPHER_
    int ZUL_CIPHER_TDEA = 0x10;
    int ZUL_CIPHER_AES128 = 0x20;
    int ZUL_CIPHER_AES192 = 0x30;
    int ZUL_CIPHER_AES256 = 0x40;
    int ZUL_MODE_ECB = 0x000;
    int ZUL_MODE_CBC = 0x100;
    int ZUL_MODE_OFB = 0x200;
    int ZUL_MODE_CFB = 0x300;
    int ZUL_MODE_CTR = 0x400;

    // RNG_BytesWithPrompt, RNG_MakeSeedFile
    int ZUL_RNG_MORE_EVENTS = 0x1;

    // RSA key files: format, or progress of RSA_MakeKeys
    int ZUL_KEY_SHOW_PROGRESS = 0x10;
    int ZUL_KEY_FORMAT_PEM = 0x10000;
    int ZUL_KEY_FORMAT_PEM_ALT = 0x20000;

    // Password-based encryption of private keys. With ZUL_PBE_PBES2 one cipher may be added, and a digest
    // (ZUL_HASH_SHA256, SHA384 or SHA512) for the HMAC that derives the key.
    int ZUL_PBE_SHA_3DES = 0;
    int ZUL_PBE_MD5_DES = 1;
    int ZUL_PBE_MD2_DES = 2;
    int ZUL_PBE_SHA1_DES = 3;
    int ZUL_PBE_PBES2_DEFAULT = 4;
    int ZUL_PBE_PBES2 = 0x1000;
    int ZUL_PBE_CIPHER_AES128 = 0x20;
    int ZUL_PBE_CIPHER_AES192 = 0x30;
    int ZUL_PBE_CIPHER_AES256 = 0x40;

    // RSA_ToXMLString
    int ZUL_XML_RSAKEYVALUE = 0x1;
    int ZUL_XML_PUBLIC_ONLY = 0x10;
    int ZUL_XML_HEXBINARY = 0x100;

    // RSA_RawPublic, RSA_RawPrivate: the trailer of the RSA2 forms
    int ZUL_RSA2_TRAILER6 = 6;
    int ZUL_RSA2_TRAILERC = 12;

    // RSA_EncodeMsg, RSA_DecodeMsg: an encoding, with a digest algorithm where it has one
    int ZUL_EME_PKCSV1_5 = 0x00;
    int ZUL_EME_OAEP = 0x10;
    int ZUL_EMSIG_PKCSV1_5 = 0x20;
    int ZUL_EMSIG_DIGESTONLY = 0x1000;
    int ZUL_EMSIG_DIGINFO = 0x2000;
    int ZUL_EMSIG_GETALG = 0x8000;
    int ZUL_EMSIG_ISO9796 = 0x100000;

    // X509_: bits of the options. A digest algorithm (ZUL_HASH_) may be added where one is chosen.
    int ZUL_X509_FORMAT_PEM = 0x10000;
    int ZUL_X509_REQ_DER = 0x20000;
    int ZUL_X509_REQ_NOATTRS = 0x100000;
    int ZUL_QUERY_GETTYPE = 0x100000;
    int ZUL_X509_LATIN1 = 0x400000;
    int ZUL_X509_UTF8 = 0x800000;
    int ZUL_X509_AUTHKEYID = 0x1000000;
    int ZUL_X509_NO_BASIC = 0x2000000;
    int ZUL_X509_SET_CA = 0x4000000;
    int ZUL_X509_VERSION1 = 0x8000000;

    // Key usage (RFC 5280, 4.2.1.3): the nKeyUsageFlags of X509_MakeCert, the result of X509_KeyUsageFlags
    int ZUL_KEYUSAGE_DIGITALSIGNATURE = 0x001;
    int ZUL_KEYUSAGE_NONREPUDIATION = 0x002;
    int ZUL_KEYUSAGE_KEYENCIPHERMENT = 0x004;
    int ZUL_KEYUSAGE_DATAENCIPHERMENT = 0x008;
    int ZUL_KEYUSAGE_KEYAGREEMENT = 0x010;
    int ZUL_KEYUSAGE_KEYCERTSIGN = 0x020;
    int ZUL_KEYUSAGE_CRLSIGN = 0x040;
    int ZUL_KEYUSAGE_ENCIPHERONLY = 0x080;
    int ZUL_KEYUSAGE_DECIPHERONLY = 0x100;

    // CMS_ signed messages; a ZUL_HASH_ algorithm and, for enveloped ones, a ZUL_CMS_CIPHER_ go with them.
    int ZUL_CMS_EXCLUDE_CERTS = 0x100;
    int ZUL_CMS_EXCLUDE_DATA = 0x200;
    int ZUL_CMS_CERTS_ONLY = 0x400;
    int ZUL_CMS_INCLUDE_ATTRS = 0x800;
    int ZUL_CMS_ADD_SIGNTIME = 0x1000;
    int ZUL_CMS_ADD_SMIMECAPS = 0x2000;
    int ZUL_CMS_FORMAT_BASE64 = 0x10000;
    int ZUL_CMS_BARE_SIGNEDDATA = 0x2000000;
    int ZUL_CMS_NAMED_SIGALG = 0x4000000;
    int ZUL_CMS_CIPHER_TDEA = 0x10;
    int ZUL_CMS_CIPHER_AES128 = 0x20;
    int ZUL_CMS_CIPHER_AES192 = 0x30;
    int ZUL_CMS_CIPHER_AES256 = 0x40;

    // PFX_
    int ZUL_PFX_NO_PRIVKEY = 0x10;

    // CIPHER_Begin
    int ZUL_CIPHER_NO_PADDING = 0x1;

    // AEAD_Encrypt, AEAD_Decrypt
    int ZUL_AEAD_RANDOM_NONCE = 0x1;

    // KEY_Save: beside ZUL_KEY_FORMAT_PEM, the structure that the kind of key has of its own
    int ZUL_KEY_FORMAT_OWN = 0x40000;

    // SIG_
    int ZUL_SIG_RAW = 0x1;
    int ZUL_SIG_DETERMINISTIC = 0x2;

    // SEAL_
    int ZUL_SEAL_ARMOUR = 0x1;
    int ZUL_SEAL_STDIN = 0x2;
    int ZUL_SEAL_STDOUT = 0x4;

    // CERT_
    int ZUL_CERT_DER = 0x1;
    int ZUL_CERT_BEYOND_ISSUER = 0x2;
    int ZUL_CERT_JSON = 0x10;
    int ZUL_CERT_SUBJECT_NAME = 0x20;
    int ZUL_CERT_WEB = 0x40;

    // P12_. P12_Unpack: the number of the key, from 0, in the low byte
    int ZUL_P12_LEGACY = 0x100;
    int ZUL_P12_PBMAC1 = 0x200;
    int ZUL_P12_TRUSTED = 0x400;
    int ZUL_P12_NEED_MAC = 0x800;
    int ZUL_P12_JSON = 0x1000;

    /** ZUL_ErrorCode returns the error code that the thread's last call recorded, always positive; 0 if none. */
    int ZUL_ErrorCode();

    /** ZUL_LastError copies the thread's last error text (at most 511 characters; often empty). */
    int ZUL_LastError(Pointer szOutput, int nOutChars);

    /** ZUL_ErrorLookup copies the text of an error code of either sign. */
    int ZUL_ErrorLookup(Pointer szOutput, int nOutChars, int nErrCode);

    /**
     * ZUL_ModuleName copies the full path of the library's own file (nOptions 0; at most 260 characters) or the word
     * for its platform, "Win64" or "Lin64" (ZUL_MODULE_PLATFORM).
     */
    int ZUL_ModuleName(Pointer szOutput, int nOutChars, int nOptions);

    /** ZUL_Version returns major * 100 + minor * 10 + release. */
    int ZUL_Version(Pointer pReserved1, Pointer pReserved2);

    /** ZUL_CompileTime copies the date and time of the build, as "Nov  1 2026 09:08:07". */
    int ZUL_CompileTime(Pointer szOutput, int nOutChars);

    /** ZUL_PowerUpTests repeats the tests that the module ran when it was loaded. */
    int ZUL_PowerUpTests(int nOptions);

    /** WIPE_Data overwrites nDataLen bytes with zero. */
    int WIPE_Data(Pointer lpData, int nDataLen);

    /** WIPE_File overwrites a file seven times, commits each pass to the disk, and deletes the file. */
    int WIPE_File(Pointer szFileName, int nOptions);

    /** CNV_HexStrFromBytes writes two upper-case hex digits for each byte. */
    int CNV_HexStrFromBytes(Pointer szOutput, int nOutChars, Pointer lpInput, int nInputLen);

    /**
     * CNV_BytesFromHexStr decodes hex digits of either case, skipping every other character; a single digit left over
     * is dropped.
     */
    int CNV_BytesFromHexStr(Pointer lpOutput, int nOutBytes, Pointer szInput);

    /** CNV_HexFilter copies the hex digits among the first nStrLen characters. */
    int CNV_HexFilter(Pointer szOutput, Pointer szInput, int nStrLen);

    /** CNV_B64StrFromBytes writes base64 (RFC 4648) in one line. */
    int CNV_B64StrFromBytes(Pointer szOutput, int nOutChars, Pointer lpInput, int nInputLen);

    /** CNV_BytesFromB64Str decodes base64 up to the first "=", skipping characters outside the alphabet. */
    int CNV_BytesFromB64Str(Pointer lpOutput, int nOutBytes, Pointer szInput);

    /** CNV_B64Filter is CNV_HexFilter for the base64 alphabet and "=". */
    int CNV_B64Filter(Pointer szOutput, Pointer szInput, int nStrLen);

    /** CNV_CheckUTF8 classifies a text. */
    int CNV_CheckUTF8(Pointer szInput);

    /** CNV_CheckUTF8Bytes is CNV_CheckUTF8 over nBytes bytes. */
    int CNV_CheckUTF8Bytes(Pointer lpInput, int nBytes);

    /** CNV_UTF8FromLatin1 converts Latin-1 text to UTF-8 text. */
    int CNV_UTF8FromLatin1(Pointer szOutput, int nOutChars, Pointer szInput);

    /** CNV_Latin1FromUTF8 converts UTF-8 text to Latin-1 text. */
    int CNV_Latin1FromUTF8(Pointer szOutput, int nOutChars, Pointer szInput);

    /** CNV_UTF8BytesFromLatin1 is CNV_UTF8FromLatin1 without the NUL; nOutBytes is the room in bytes. */
    int CNV_UTF8BytesFromLatin1(Pointer lpOutput, int nOutBytes, Pointer szInput);

    /** CNV_Latin1FromUTF8Bytes is CNV_Latin1FromUTF8 over nBytes bytes. */
    int CNV_Latin1FromUTF8Bytes(Pointer szOutput, int nOutChars, Pointer lpInput, int nBytes);

    /** CNV_ByteEncoding converts bytes. */
    int CNV_ByteEncoding(Pointer lpOutput, int nOutBytes, Pointer lpInput, int nBytes, int nOptions);

    /**
     * PEM_FileFromBinFile writes a file's content as base64 lines ended by CR LF, between BEGIN and END lines if
     * szHeader (the label) is not null or empty.
     */
    int PEM_FileFromBinFile(Pointer szFileOut, Pointer szFileIn, Pointer szHeader, int nLineLen);

    /** PEM_FileToBinFile decodes the first armoured body of a file, whatever its label. */
    int PEM_FileToBinFile(Pointer szFileOut, Pointer szFileIn);

    /** HASH_Bytes writes the digest of a message of nMsgLen bytes. */
    int HASH_Bytes(Pointer lpDigest, int nDigLen, Pointer lpMessage, int nMsgLen, int nOptions);

    /** HASH_File writes the digest of a file of any size. */
    int HASH_File(Pointer lpDigest, int nDigLen, Pointer szFileName, int nOptions);

    /** HASH_HexFromBytes is HASH_Bytes with lower-case hex as output. */
    int HASH_HexFromBytes(Pointer szOutput, int nOutChars, Pointer lpMessage, int nMsgLen, int nOptions);

    /** HASH_HexFromFile is HASH_File with lower-case hex as output. */
    int HASH_HexFromFile(Pointer szOutput, int nOutChars, Pointer szFileName, int nOptions);

    /** HASH_HexFromHex is HASH_HexFromBytes over a message in hex. */
    int HASH_HexFromHex(Pointer szOutput, int nOutChars, Pointer szMsgHex, int nOptions);

    /** HMAC_Bytes writes the MAC of a message. */
    int HMAC_Bytes(Pointer lpDigest, int nDigLen, Pointer lpMessage, int nMsgLen, Pointer lpKey, int nKeyLen, int
            nOptions);

    /** HMAC_HexFromBytes is HMAC_Bytes with lower-case hex as output. */
    int HMAC_HexFromBytes(Pointer szOutput, int nOutChars, Pointer lpMessage, int nMsgLen, Pointer lpKey, int
            nKeyLen, int nOptions);

    /** HMAC_HexFromHex is HMAC_HexFromBytes over a message and key in hex. */
    int HMAC_HexFromHex(Pointer szOutput, int nOutChars, Pointer szMsgHex, Pointer szKeyHex, int nOptions);

    /** KDF_Pbkdf2 is PBKDF2 of RFC 8018 with HMAC. */
    int KDF_Pbkdf2(Pointer lpOutput, int nOutBytes, Pointer lpPassword, int nPwdLen, Pointer lpSalt, int nSaltLen,
            int nIterations, Pointer szHash);

    /** KDF_Hkdf is HKDF of RFC 5869, extract and expand. */
    int KDF_Hkdf(Pointer lpOutput, int nOutBytes, Pointer lpKey, int nKeyLen, Pointer lpSalt, int nSaltLen, Pointer
            lpInfo, int nInfoLen, Pointer szHash);

    /** KDF_Scrypt is scrypt of RFC 7914. */
    int KDF_Scrypt(Pointer lpOutput, int nOutBytes, Pointer lpPassword, int nPwdLen, Pointer lpSalt, int nSaltLen,
            int nN, int nR, int nP);

    /** KDF_Argon2id is Argon2id of RFC 9106, version 0x13, without secret and associated data. */
    int KDF_Argon2id(Pointer lpOutput, int nOutBytes, Pointer lpPassword, int nPwdLen, Pointer lpSalt, int nSaltLen,
            int nMemoryKiB, int nPasses, int nLanes);

    /** CIPHER_Bytes encrypts or decrypts nBytes bytes; lpOutput has the same length and may be lpInput. */
    int CIPHER_Bytes(int fEncrypt, Pointer lpOutput, Pointer lpInput, int nBytes, Pointer lpKey, Pointer lpIV,
            Pointer szAlgAndMode, int nOptions);

    /**
     * CIPHER_Hex is CIPHER_Bytes over hex texts; the output is upper case and nOutChars must cover all of it
     * (SHORT_BUF_ERROR).
     */
    int CIPHER_Hex(int fEncrypt, Pointer szOutput, int nOutChars, Pointer szInputHex, Pointer szKeyHex, Pointer
            szIVHex, Pointer szAlgAndMode, int nOptions);

    /** CIPHER_File encrypts or decrypts a file of any size into another. */
    int CIPHER_File(int fEncrypt, Pointer szFileOut, Pointer szFileIn, Pointer lpKey, Pointer lpIV, Pointer
            szAlgAndMode, int nOptions);

    /**
     * TDEA_BytesMode is CIPHER_Bytes with Triple DES; szMode is "ECB", "CBC", "CFB", "OFB" or "CTR" in any case
     * (BAD_MODE_ERROR otherwise; BAD_PARAM_ERROR if null).
     */
    int TDEA_BytesMode(Pointer lpOutput, Pointer lpInput, int nBytes, Pointer lpKey, int fEncrypt, Pointer szMode,
            Pointer lpIV);

    /** TDEA_HexMode is TDEA_BytesMode over hex texts. */
    int TDEA_HexMode(Pointer szOutput, Pointer szInputHex, Pointer szKeyHex, int fEncrypt, Pointer szMode, Pointer
            szIVHex);

    /** TDEA_B64Mode is TDEA_HexMode over base64 texts; szOutput holds (bytes + 2) / 3 * 4 characters and a NUL. */
    int TDEA_B64Mode(Pointer szOutput, Pointer szInputB64, Pointer szKeyB64, int fEncrypt, Pointer szMode, Pointer
            szIVB64);

    /** TDEA_File is CIPHER_File with Triple DES and a mode as in TDEA_BytesMode. */
    int TDEA_File(Pointer szFileOut, Pointer szFileIn, Pointer lpKey, int fEncrypt, Pointer szMode, Pointer lpIV);

    /** CIPHER_KeyWrap wraps a key of nDataLen bytes under a key-encryption key. */
    int CIPHER_KeyWrap(Pointer lpOutput, int nOutBytes, Pointer lpData, int nDataLen, Pointer lpKEK, int nKekLen,
            int nOptions);

    /** CIPHER_KeyUnwrap undoes CIPHER_KeyWrap; errors as there. */
    int CIPHER_KeyUnwrap(Pointer lpOutput, int nOutBytes, Pointer lpData, int nDataLen, Pointer lpKEK, int nKekLen,
            int nOptions);

    /** PAD_BytesBlock copies the input and appends 1 to nBlkLen bytes that hold their count. */
    int PAD_BytesBlock(Pointer lpOutput, int nOutputLen, Pointer lpInput, int nInputLen, int nBlkLen, int nOptions);

    /** PAD_UnpadBytes copies the input without its padding. */
    int PAD_UnpadBytes(Pointer lpOutput, int nOutputLen, Pointer lpInput, int nInputLen, int nBlkLen, int nOptions);

    /** PAD_HexBlock is PAD_BytesBlock over hex text, which is copied unchanged and not validated. */
    int PAD_HexBlock(Pointer szOutput, int nOutChars, Pointer szInputHex, int nBlkLen, int nOptions);

    /** PAD_UnpadHex is PAD_UnpadBytes over hex text. */
    int PAD_UnpadHex(Pointer szOutput, int nOutChars, Pointer szInputHex, int nBlkLen, int nOptions);

    /** RNG_Bytes fills nBytes (at most 65,536) random bytes. */
    int RNG_Bytes(Pointer lpOutput, int nBytes, Pointer lpSeed, int nSeedLen);

    /**
     * RNG_BytesWithPrompt shows a dialog in which the user types at random and moves the mouse until enough has been
     * collected.
     */
    int RNG_BytesWithPrompt(Pointer lpOutput, int nOutputLen, Pointer szPrompt, int nOptions);

    /**
     * RNG_Number returns a uniform number from nLower to nUpper, both included; nLower if nUpper is not greater, or if
     * the range needs all 32 bits.
     */
    int RNG_Number(int nLower, int nUpper);

    /**
     * RNG_Test runs the generator's known-answer test and the four statistical tests of FIPS 140-2 on 20,000 fresh
     * bits, and writes a report if szFileName is not null or empty.
     */
    int RNG_Test(Pointer szFileName, int nOptions);

    /**
     * RNG_Initialize instantiates the thread's generator and takes in a seed file of 64 bytes, which it then
     * overwrites with fresh ones.
     */
    int RNG_Initialize(Pointer szSeedFile, int nOptions);

    /**
     * RNG_MakeSeedFile makes or overwrites a seed file for RNG_Initialize from what the user does in the dialog of
     * RNG_BytesWithPrompt; szPrompt and nOptions as there.
     */
    int RNG_MakeSeedFile(Pointer szSeedFile, Pointer szPrompt, int nOptions);

    /** RNG_UpdateSeedFile takes in a seed file and overwrites it, as RNG_Initialize. */
    int RNG_UpdateSeedFile(Pointer szSeedFile, int nOptions);

    /**
     * PWD_PromptEx shows a dialog in which the user enters a password, or asks for it in the process's controlling
     * terminal (Linux).
     */
    int PWD_PromptEx(Pointer szPassword, int nPwdLen, Pointer szCaption, Pointer szPrompt);

    /** PWD_Prompt is PWD_PromptEx with the dialog's own text, "Enter password:". */
    int PWD_Prompt(Pointer szPassword, int nPwdLen, Pointer szCaption);

    /** RSA_MakeKeys makes a key pair and writes two files. */
    int RSA_MakeKeys(Pointer szPubKeyFile, Pointer szPriKeyFile, int nBits, int nExpIndex, int nTests, int nCount,
            Pointer szPassword, Pointer lpSeed, int nSeedLen, int nOptions);

    /** RSA_ReadPublicKey reads an RSAPublicKey (PKCS #1) or SubjectPublicKeyInfo (X.509) and writes its key string. */
    int RSA_ReadPublicKey(Pointer szOutput, int nOutChars, Pointer szFileOrText);

    /**
     * RSA_ReadPrivateKeyInfo reads an unencrypted PrivateKeyInfo (PKCS #8) or RSAPrivateKey (PKCS #1) of two primes
     * and writes its key string.
     */
    int RSA_ReadPrivateKeyInfo(Pointer szOutput, int nOutChars, Pointer szFileOrText);

    /** RSA_ReadEncPrivateKey reads an EncryptedPrivateKeyInfo (PKCS #8) and writes the private key's key string. */
    int RSA_ReadEncPrivateKey(Pointer szOutput, int nOutChars, Pointer szFileOrText, Pointer szPassword, int
            nOptions);

    /** RSA_GetPublicKeyFromCert reads an X.509 certificate and writes the key string of its subject's public key. */
    int RSA_GetPublicKeyFromCert(Pointer szOutput, int nOutChars, Pointer szFileOrText);

    /** RSA_SavePublicKey writes a public key, or the public part of a private key, to a file. */
    int RSA_SavePublicKey(Pointer szFileOut, Pointer szKeyString, int nOptions);

    /** RSA_SavePrivateKeyInfo writes a private key to a file, unencrypted. */
    int RSA_SavePrivateKeyInfo(Pointer szFileOut, Pointer szKeyString, int nOptions);

    /** RSA_SaveEncPrivateKey writes a private key to a file as EncryptedPrivateKeyInfo. */
    int RSA_SaveEncPrivateKey(Pointer szFileOut, Pointer szKeyString, int nCount, Pointer szPassword, int nOptions);

    /** RSA_ToXMLString writes a key as XML. */
    int RSA_ToXMLString(Pointer szOutput, int nOutChars, Pointer szKeyString, int nOptions);

    /** RSA_FromXMLString reads a key from XML and gives its internal key string. */
    int RSA_FromXMLString(Pointer szOutput, int nOutChars, Pointer szXmlString, int nOptions);

    /** RSA_KeyBits returns the length in bits of the modulus of a public or private key. */
    int RSA_KeyBits(Pointer szKeyString);

    /** RSA_KeyBytes returns the length in bytes of the modulus, which is that of data and encoded blocks. */
    int RSA_KeyBytes(Pointer szKeyString);

    /** RSA_KeyMatch tells whether a private and a public key form a pair. */
    int RSA_KeyMatch(Pointer szPrivateKey, Pointer szPublicKey);

    /**
     * RSA_KeyHashCode returns a hash code, which may be negative, of a public key or of the public part of a private
     * key.
     */
    int RSA_KeyHashCode(Pointer szKeyString);

    /** RSA_CheckKey checks a key. */
    int RSA_CheckKey(Pointer szKeyString, int nOptions);

    /** RSA_RawPublic transforms data in place with a public key string. */
    int RSA_RawPublic(Pointer lpData, int nDataLen, Pointer szPublicKey, int nOptions);

    /** RSA_RawPrivate transforms data in place with a private key. */
    int RSA_RawPrivate(Pointer lpData, int nDataLen, Pointer szPrivateKey, int nOptions);

    /** RSA_EncodeMsg fills the nOutBytes bytes (normally RSA_KeyBytes) of lpOutput with the encoding of a message. */
    int RSA_EncodeMsg(Pointer lpOutput, int nOutBytes, Pointer lpInput, int nInputLen, int nOptions);

    /** RSA_DecodeMsg recovers the message from an encoded block, of which at most nOutBytes bytes are copied. */
    int RSA_DecodeMsg(Pointer lpOutput, int nOutBytes, Pointer lpInput, int nInputLen, int nOptions);

    /** X509_QueryCert answers a query about a certificate. */
    int X509_QueryCert(Pointer szOutput, int nChars, Pointer szCertFile, Pointer szQuery, int nOptions);

    /**
     * X509_KeyUsageFlags returns the key usage as ZUL_KEYUSAGE_ bits, 0 if the certificate does not say, or a negated
     * code.
     */
    int X509_KeyUsageFlags(Pointer szCertFile);

    /** X509_CertThumb writes the digest (nOptions: ZUL_HASH_...) of a certificate in lower-case hex. */
    int X509_CertThumb(Pointer szCertFile, Pointer szHash, int nChars, int nOptions);

    /**
     * X509_CertIsValidNow returns 0 if the present time lies within the certificate's validity, -1 if not, or a
     * positive code.
     */
    int X509_CertIsValidNow(Pointer szCertFile, int nOptions);

    /**
     * X509_CertIssuedOn and X509_CertExpiresOn write the beginning and end of the validity, 20 characters, cut to
     * nChars.
     */
    int X509_CertIssuedOn(Pointer szCertFile, Pointer szOutput, int nChars, int nOptions);

    /**
     * X509_CertIssuedOn and X509_CertExpiresOn write the beginning and end of the validity, 20 characters, cut to
     * nChars.
     */
    int X509_CertExpiresOn(Pointer szCertFile, Pointer szOutput, int nChars, int nOptions);

    /** X509_CertSerialNumber writes the serial number's bytes in lower-case hex. */
    int X509_CertSerialNumber(Pointer szCertFile, Pointer szOutput, int nChars, int nOptions);

    /** X509_CertSubjectName and X509_CertIssuerName write a name as text, cut to nChars. */
    int X509_CertSubjectName(Pointer szCertFile, Pointer szOutput, int nChars, Pointer szDelim, int nOptions);

    /** X509_CertSubjectName and X509_CertIssuerName write a name as text, cut to nChars. */
    int X509_CertIssuerName(Pointer szCertFile, Pointer szOutput, int nChars, Pointer szDelim, int nOptions);

    /**
     * X509_HashIssuerAndSN writes the digest of the certificate's IssuerAndSerialNumber (RFC 5652), as X509_CertThumb
     * that of the certificate.
     */
    int X509_HashIssuerAndSN(Pointer szCertFile, Pointer szOutput, int nChars, int nOptions);

    /**
     * X509_ReadStringFromFile writes a certificate as base64 in one line, which serves as szCertFile wherever one is
     * asked for (if it is longer than 256 characters, as that of any certificate with an RSA key is).
     */
    int X509_ReadStringFromFile(Pointer szOutput, int nChars, Pointer szCertFile, int nOptions);

    /** X509_SaveFileFromString writes a certificate given as base64 to a file. */
    int X509_SaveFileFromString(Pointer szNewCertFile, Pointer szCertString, int nOptions);

    /** X509_MakeCert makes a certificate (RFC 5280) signed by an issuer. */
    int X509_MakeCert(Pointer szNewCertFile, Pointer szIssuerCertFile, Pointer szSubjectPubKeyFile, Pointer
            szIssuerPriKeyFile, int nCertNum, int nYearsValid, Pointer szDistName, Pointer szExtensions, int
            nKeyUsageFlags, Pointer szPassword, int nOptions);

    /** X509_MakeCertSelf makes the self-signed certificate of a certification authority from its encrypted private key. */
    int X509_MakeCertSelf(Pointer szNewCertFile, Pointer szEPKFile, int nCertNum, int nYearsValid, Pointer
            szDistName, Pointer szExtensions, int nKeyUsageFlags, Pointer szPassword, int nOptions);

    /** X509_CertRequest makes a certification request (PKCS #10, RFC 2986) from an encrypted private key. */
    int X509_CertRequest(Pointer szReqFile, Pointer szEPKFile, Pointer szDistName, Pointer szExtensions, Pointer
            szPassword, int nOptions);

    /** X509_MakeCRL makes a revocation list of version 1. */
    int X509_MakeCRL(Pointer szCrlFile, Pointer szIssuerCertFile, Pointer szIssuerKeyFile, Pointer szPassword,
            Pointer szCertList, Pointer szExtensions, int nOptions);

    /** X509_VerifyCert checks that a certificate, request or CRL was signed with the key of szIssuerCert. */
    int X509_VerifyCert(Pointer szCertToVerify, Pointer szIssuerCert);

    /** X509_CheckCertInCRL looks a certificate up in its issuer's CRL. */
    int X509_CheckCertInCRL(Pointer szCertFile, Pointer szCrlFile, Pointer szCRLIssuerCert, Pointer szDate, int
            nOptions);

    /**
     * X509_ValidatePath orders certificates into a path and checks each one's signature, and its dates unless nOptions
     * is not 0.
     */
    int X509_ValidatePath(Pointer szCertList, Pointer szTrustedCert, int nOptions);

    /** X509_TextDump writes a description of a certificate, request or CRL to a text file. */
    int X509_TextDump(Pointer szFileOut, Pointer szCertFile, int nOptions);

    /**
     * X509_GetCertFromP7Chain takes a certificate out of a signed message or a certs-only one (PKCS #7, "p7c" or
     * "p7b"), a message argument as below.
     */
    int X509_GetCertFromP7Chain(Pointer szNewCertFile, Pointer szP7cFile, int nIndex, int nOptions);

    /**
     * X509_GetCertFromPFX and RSA_GetPrivateKeyFromPFX write the first certificate of a PKCS #12 file, as DER, and its
     * first encrypted private key, as RSA_ReadEncPrivateKey reads it, to a file.
     */
    int X509_GetCertFromPFX(Pointer szFileOut, Pointer szPfxFile, int nOptions);

    /**
     * X509_GetCertFromPFX and RSA_GetPrivateKeyFromPFX write the first certificate of a PKCS #12 file, as DER, and its
     * first encrypted private key, as RSA_ReadEncPrivateKey reads it, to a file.
     */
    int RSA_GetPrivateKeyFromPFX(Pointer szFileOut, Pointer szPfxFile, int nOptions);

    /** CMS_MakeSigData signs a file with RSA (PKCS #1 v1.5). */
    int CMS_MakeSigData(Pointer szFileOut, Pointer szFileIn, Pointer szCertList, Pointer szPrivateKey, int
            nOptions);

    /** CMS_MakeSigDataFromString signs the bytes of a text, without its NUL, as CMS_MakeSigData a file. */
    int CMS_MakeSigDataFromString(Pointer szFileOut, Pointer szDataIn, Pointer szCertList, Pointer szPrivateKey, int
            nOptions);

    /** CMS_MakeDetachedSig signs content whose digest is given in hex; the content is not carried. */
    int CMS_MakeDetachedSig(Pointer szFileOut, Pointer szHexDigest, Pointer szCertList, Pointer szPrivateKey, int
            nOptions);

    /**
     * CMS_MakeSigDataFromSigValue makes a message from nDataLen bytes of content and their finished signature, made by
     * a smart card, for example.
     */
    int CMS_MakeSigDataFromSigValue(Pointer szFileOut, Pointer lpSigValue, int nSigLen, Pointer lpData, int
            nDataLen, Pointer szCertList, int nOptions);

    /**
     * CMS_ReadSigData writes the content of a signed message to a file, CMS_ReadSigDataToString to nDataOutLen bytes
     * of room and a NUL.
     */
    int CMS_ReadSigData(Pointer szFileOut, Pointer szFileIn, int nOptions);

    /**
     * CMS_ReadSigData writes the content of a signed message to a file, CMS_ReadSigDataToString to nDataOutLen bytes
     * of room and a NUL.
     */
    int CMS_ReadSigDataToString(Pointer szDataOut, int nDataOutLen, Pointer szFileIn, int nOptions);

    /**
     * CMS_VerifySigData verifies the signature of a signed message, RSA (PKCS #1 v1.5) with any digest or DSA with
     * SHA-1, and the digest of its content.
     */
    int CMS_VerifySigData(Pointer szFileIn, Pointer szCertFile, Pointer szHexDigest, int nOptions);

    /** CMS_GetSigDataDigest writes the digest of the content that was signed, in lower-case hex. */
    int CMS_GetSigDataDigest(Pointer szHexDigestOut, int nDigestLen, Pointer szFileIn, Pointer szCertFile, int
            nOptions);

    /** CMS_QuerySigData answers a query about a signed message of any version, verified or not. */
    int CMS_QuerySigData(Pointer szOutput, int nOutChars, Pointer szFileIn, Pointer szQuery, int nOptions);

    /** CMS_MakeEnvData encrypts a file for the RSA keys (PKCS #1 v1.5) of up to 10 certificates. */
    int CMS_MakeEnvData(Pointer szFileOut, Pointer szFileIn, Pointer szCertList, Pointer lpSeed, int nSeedLen, int
            nOptions);

    /** CMS_MakeEnvDataFromString encrypts the bytes of a text, without its NUL, as CMS_MakeEnvData a file. */
    int CMS_MakeEnvDataFromString(Pointer szFileOut, Pointer szDataIn, Pointer szCertList, Pointer lpSeed, int
            nSeedLen, int nOptions);

    /**
     * CMS_ReadEnvData decrypts an enveloped message (Triple DES, AES or RC2, CBC) into a file, CMS_ReadEnvDataToString
     * into nDataOutLen bytes of room and a NUL.
     */
    int CMS_ReadEnvData(Pointer szFileOut, Pointer szFileIn, Pointer szX509File, Pointer szPrivateKey, int
            nOptions);

    /**
     * CMS_ReadEnvData decrypts an enveloped message (Triple DES, AES or RC2, CBC) into a file, CMS_ReadEnvDataToString
     * into nDataOutLen bytes of room and a NUL.
     */
    int CMS_ReadEnvDataToString(Pointer szDataOut, int nDataOutLen, Pointer szFileIn, Pointer szX509File, Pointer
            szPrivateKey, int nOptions);

    /** CMS_QueryEnvData answers a query about an enveloped message. */
    int CMS_QueryEnvData(Pointer szOutput, int nOutChars, Pointer szFileIn, Pointer szQuery, int nOptions);

    /** PFX_MakeFile writes a PFX file. */
    int PFX_MakeFile(Pointer szFileOut, Pointer szCertFile, Pointer szKeyFile, Pointer szPassword, Pointer
            szFriendlyName, int nOptions);

    /** PFX_VerifySig checks the MAC of a PFX file (HMAC with SHA-1, SHA-256, SHA-384 or SHA-512) with a password. */
    int PFX_VerifySig(Pointer szPfxFile, Pointer szPassword, int nOptions);

    /** OCSP_MakeRequest writes an unsigned request about one certificate as base64 in one line. */
    int OCSP_MakeRequest(Pointer szOutput, int nChars, Pointer szIssuerCert, Pointer szCertFileOrSerialNum, Pointer
            szExtensions, int nOptions);

    /** OCSP_ReadResponse writes a report of a response, which is a file of DER, PEM or base64, or text. */
    int OCSP_ReadResponse(Pointer szOutput, int nChars, Pointer szResponseFile, Pointer szIssuerCert, Pointer
            szExtensions, int nOptions);

    /** HASH_Begin begins a digest. */
    int HASH_Begin(Pointer lpContext, int nContextLen, Pointer szAlgorithm, int nOptions);

    /** HASH_Add absorbs nDataLen bytes. */
    int HASH_Add(Pointer lpContext, Pointer lpData, int nDataLen);

    /**
     * HASH_End writes the digest, cut to nOutBytes, and wipes the context; of "shake128" and "shake256" it writes
     * nOutBytes bytes.
     */
    int HASH_End(Pointer lpOutput, int nOutBytes, Pointer lpContext);

    /**
     * HMAC_Begin begins a MAC with a key of any length and a digest that has an HMAC (not "md2", "shake128" and
     * "shake256"); the rest as HASH_Begin.
     */
    int HMAC_Begin(Pointer lpContext, int nContextLen, Pointer lpKey, int nKeyLen, Pointer szAlgorithm, int
            nOptions);

    /** HMAC_Add absorbs nDataLen bytes, as HASH_Add. */
    int HMAC_Add(Pointer lpContext, Pointer lpData, int nDataLen);

    /** HMAC_End writes the MAC, cut to nOutBytes, and wipes the context, as HASH_End. */
    int HMAC_End(Pointer lpOutput, int nOutBytes, Pointer lpContext);

    /** CIPHER_Begin begins to encrypt (fEncrypt not 0) or decrypt. */
    int CIPHER_Begin(Pointer lpContext, int nContextLen, int fEncrypt, Pointer lpKey, int nKeyLen, Pointer lpIV, int
            nIVLen, Pointer szAlgorithm, int nOptions);

    /** CIPHER_Add takes the next piece and writes what is ready, which may be a block less or more than the piece. */
    int CIPHER_Add(Pointer lpOutput, int nOutBytes, Pointer lpContext, Pointer lpInput, int nInputLen);

    /** CIPHER_End writes the end, at most a block, and wipes the context. */
    int CIPHER_End(Pointer lpOutput, int nOutBytes, Pointer lpContext);

    /** AEAD_Encrypt encrypts data and adds a tag of 16 bytes, which also covers lpAad, data that is not encrypted. */
    int AEAD_Encrypt(Pointer lpOutput, int nOutBytes, Pointer lpInput, int nInputLen, Pointer lpKey, int nKeyLen,
            Pointer lpNonce, int nNonceLen, Pointer lpAad, int nAadLen, Pointer szAlgorithm, int nOptions);

    /** AEAD_Decrypt undoes AEAD_Encrypt. */
    int AEAD_Decrypt(Pointer lpOutput, int nOutBytes, Pointer lpInput, int nInputLen, Pointer lpKey, int nKeyLen,
            Pointer lpNonce, int nNonceLen, Pointer lpAad, int nAadLen, Pointer szAlgorithm, int nOptions);

    /** KEY_Make makes a private key. */
    int KEY_Make(Pointer szOutput, int nOutChars, Pointer szAlgorithm, int nOptions);

    /** KEY_Read reads a key, private or public, as a key string. */
    int KEY_Read(Pointer szOutput, int nOutChars, Pointer szFileOrText, Pointer szPassword, int nOptions);

    /** KEY_Save writes a key to a file, which is replaced in one step. */
    int KEY_Save(Pointer szFileOut, Pointer szKey, Pointer szPassword, Pointer szParameters, int nOptions);

    /** KEY_Public gives the public key of a private one. */
    int KEY_Public(Pointer szOutput, int nOutChars, Pointer szPrivateKey);

    /** KEY_Query answers a query about a key. */
    int KEY_Query(Pointer szOutput, int nOutChars, Pointer szKey, Pointer szQuery, int nOptions);

    /** KEY_Match tells whether a private key belongs to a public one. */
    int KEY_Match(Pointer szPrivateKey, Pointer szPublicKey);

    /** KEY_Check tells whether a key's values are valid and belong together. */
    int KEY_Check(Pointer szKey, int nOptions);

    /** KEY_Agree computes the secret that the owners of two key pairs share. */
    int KEY_Agree(Pointer lpOutput, int nOutBytes, Pointer szPrivateKey, Pointer szPublicKey, int nOptions);

    /** SIG_Sign signs data. */
    int SIG_Sign(Pointer lpOutput, int nOutBytes, Pointer lpData, int nDataLen, Pointer szPrivateKey, Pointer
            szAlgorithm, int nOptions);

    /** SIG_Verify verifies a signature of data. */
    int SIG_Verify(Pointer lpSignature, int nSigLen, Pointer lpData, int nDataLen, Pointer szPublicKey, Pointer
            szAlgorithm, int nOptions);

    /** SIG_SignFile signs the content of a file of any size. */
    int SIG_SignFile(Pointer lpOutput, int nOutBytes, Pointer szFileIn, Pointer szPrivateKey, Pointer szAlgorithm,
            int nOptions);

    /** SIG_VerifyFile verifies a signature of the content of a file of any size. */
    int SIG_VerifyFile(Pointer lpSignature, int nSigLen, Pointer szFileIn, Pointer szPublicKey, Pointer szAlgorithm,
            int nOptions);

    /** SIG_SignDigest signs data whose digest is given. */
    int SIG_SignDigest(Pointer lpOutput, int nOutBytes, Pointer lpDigest, int nDigestLen, Pointer szPrivateKey,
            Pointer szAlgorithm, int nOptions);

    /** SIG_VerifyDigest verifies a signature of data whose digest is given. */
    int SIG_VerifyDigest(Pointer lpSignature, int nSigLen, Pointer lpDigest, int nDigestLen, Pointer szPublicKey,
            Pointer szAlgorithm, int nOptions);

    /** SEAL_MakeIdentity makes an identity. */
    int SEAL_MakeIdentity(Pointer szOutput, int nOutChars, int nOptions);

    /** SEAL_Recipient gives the recipient of an identity. */
    int SEAL_Recipient(Pointer szOutput, int nOutChars, Pointer szIdentity);

    /** SEAL_File encrypts a file, either for recipients or under a password (scrypt with a work factor of 2^18). */
    int SEAL_File(Pointer szFileOut, Pointer szFileIn, Pointer szRecipients, Pointer szPassword, int nOptions);

    /** SEAL_OpenFile decrypts a file, in armour or not. */
    int SEAL_OpenFile(Pointer szFileOut, Pointer szFileIn, Pointer szIdentities, Pointer szPassword, int nOptions);

    /** P12_Pack writes a PKCS #12 file, which is replaced in one step, of a private key and certificates. */
    int P12_Pack(Pointer szFileOut, Pointer szCerts, Pointer szPrivateKey, Pointer szPassword, Pointer szName, int
            nOptions);

    /** P12_Unpack reads a PKCS #12 file. */
    int P12_Unpack(Pointer szCertsOut, Pointer szKeyOutput, int nKeyChars, Pointer szP12, Pointer szPassword, int
            nOptions);

    /** P12_List describes a PKCS #12 file in UTF-8. */
    int P12_List(Pointer szOutput, int nOutChars, Pointer szP12, Pointer szPassword, int nOptions);

    /** CERT_SelfSign makes a certificate that its own key signs. */
    int CERT_SelfSign(Pointer szCertOut, Pointer szPrivateKey, Pointer szDescription, int nOptions);

    /** CERT_Issue makes a certificate that an authority signs. */
    int CERT_Issue(Pointer szCertOut, Pointer szIssuerCert, Pointer szIssuerKey, Pointer szSubjectKeyOrRequest,
            Pointer szDescription, int nOptions);

    /** CERT_Request makes a certificate request (PKCS #10). */
    int CERT_Request(Pointer szRequestOut, Pointer szPrivateKey, Pointer szDescription, int nOptions);

    /** CERT_IssueCRL makes a CRL of version 2 (RFC 5280). */
    int CERT_IssueCRL(Pointer szCrlOut, Pointer szIssuerCert, Pointer szIssuerKey, Pointer szEarlierCrl, Pointer
            szRevoked, Pointer szDescription, int nOptions);

    /** CERT_Query answers one query about a certificate, request, CRL or OCSP response, the first one in szCert. */
    int CERT_Query(Pointer szOutput, int nOutChars, Pointer szCert, Pointer szQuery, int nOptions);

    /** CERT_Report writes all that certificates, requests, CRLs and OCSP responses hold. */
    int CERT_Report(Pointer szOutput, int nOutChars, Pointer szFileOrText, int nOptions);

    /**
     * CERT_CheckName tells whether a certificate, the first one in szCert, is for a host, an address or a mailbox (RFC
     * 9525).
     */
    int CERT_CheckName(Pointer szCert, Pointer szHostOrAddress, int nOptions);

    /** CERT_CheckPath tells whether a certificate can be relied on. */
    int CERT_CheckPath(Pointer szReport, int nReportChars, Pointer szCert, Pointer szOthers, Pointer szTrusted,
            Pointer szEvidence, Pointer szConditions, int nOptions);

    /** The name of an error code, as "DECRYPT_ERROR". */
    static String errorName(int code) {
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
                return "ERROR";
        }
    }
}
