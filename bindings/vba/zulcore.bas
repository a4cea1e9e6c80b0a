Attribute VB_Name = "zulcore"
' Made from include/zulcore.h and zulcore.hand.bas by scripts/make_bindings.py.
'
' For 64-bit Office 2010 or later. VB6 and 32-bit Office cannot load a 64-bit library, so there are no declarations
' without PtrSafe.
'
' Declarations take a String where the library takes or gives text: VBA converts it to the code page of Windows and back,
' which is right for names of files and wrong for text in UTF-8 beyond ASCII. A room for text has to be made before the
' call, String(length + 1, vbNullChar). vbNullString is a null. The declarations whose names end with Ptr are of the
' same functions, but take addresses: VarPtr(bytes(0)) of a text that ends with a zero byte, or 0 for a null.
Option Explicit

' Error codes
Public Const SUCCESS_ERROR As Long = 0
Public Const OPEN_ERROR As Long = 1
Public Const CREATE_ERROR As Long = 2
Public Const READ_ERROR As Long = 3
Public Const WRITE_ERROR As Long = 4
Public Const MEMORY_ERROR As Long = 5
Public Const BAD_PARAM_ERROR As Long = 6
Public Const BAD_FORMAT_ERROR As Long = 7
Public Const INVALID_DATA_ERROR As Long = 8
Public Const EOF_ERROR As Long = 9
Public Const OUT_OF_RANGE_ERROR As Long = 11
Public Const DUP_ERROR As Long = 12
Public Const IO_ERROR As Long = 13
Public Const NULL_ERROR As Long = 14
Public Const DECRYPT_ERROR As Long = 15
Public Const EXPIRED_ERROR As Long = 16
Public Const BAD_FLAG_ERROR As Long = 17
Public Const WIPE_ERROR As Long = 18
Public Const NOT_SUPPORTED_ERROR As Long = 19
Public Const NO_DATA_ERROR As Long = 20
Public Const NO_MATCH_ERROR As Long = 21
Public Const SIGNATURE_ERROR As Long = 22
Public Const TEST_FAILED_ERROR As Long = 23
Public Const KEYGEN_FAILED_ERROR As Long = 24
Public Const ISSUER_ERROR As Long = 25
Public Const BAD_LENGTH_ERROR As Long = 26
Public Const BAD_XML_ERROR As Long = 27
Public Const MSG_TOO_LONG_ERROR As Long = 28
Public Const BAD_QUERY_ERROR As Long = 29
Public Const SHORT_BUF_ERROR As Long = 30
Public Const BAD_KEY_LEN_ERROR As Long = 33
Public Const BAD_BLK_LEN_ERROR As Long = 34
Public Const BAD_MODE_ERROR As Long = 35
Public Const BAD_KEY_ERROR As Long = 36
Public Const BAD_IV_ERROR As Long = 37
Public Const PRNG_ERR_FILE_OPEN As Long = 201
Public Const PRNG_ERR_FILE_CREATE As Long = 202
Public Const PRNG_ERR_FILE_READ As Long = 203
Public Const PRNG_ERR_FILE_WRITE As Long = 204
Public Const PRNG_ERR_FILE_LOCK As Long = 205
Public Const PRNG_ERR_UNINST As Long = 210
Public Const PRNG_ERR_TOOBIG As Long = 211
Public Const PRNG_ERR_FAILURE As Long = 212
Public Const PRNG_ERR_BADPARAM As Long = 213
Public Const PRNG_ERR_NOTAVAIL As Long = 214
Public Const PRNG_ERR_CATASTROPHIC As Long = 299
Public Const MISC_ERROR As Long = 9999

' ZUL_ModuleName
Public Const ZUL_MODULE_PLATFORM As Long = &H40&

' CNV_ByteEncoding
Public Const ZUL_CNV_UTF8_FROM_LATIN1 As Long = &H1&
Public Const ZUL_CNV_LATIN1_FROM_UTF8 As Long = &H2&

' Digest algorithms: bits 0-3 of the options of HASH_ and HMAC_
Public Const ZUL_HASH_SHA1 As Long = 0
Public Const ZUL_HASH_MD5 As Long = 1
Public Const ZUL_HASH_MD2 As Long = 2
Public Const ZUL_HASH_SHA256 As Long = 3
Public Const ZUL_HASH_SHA384 As Long = 4
Public Const ZUL_HASH_SHA512 As Long = 5
Public Const ZUL_HASH_SHA224 As Long = 6
Public Const ZUL_HASH_SHA1_RNG As Long = 7
Public Const ZUL_HASH_MODE_TEXT As Long = &H10000&

' Block ciphers (bits 4-7) and modes (bits 8-11) of the options of CIPHER_
Public Const ZUL_CIPHER_TDEA As Long = &H10&
Public Const ZUL_CIPHER_AES128 As Long = &H20&
Public Const ZUL_CIPHER_AES192 As Long = &H30&
Public Const ZUL_CIPHER_AES256 As Long = &H40&
Public Const ZUL_MODE_ECB As Long = &H0&
Public Const ZUL_MODE_CBC As Long = &H100&
Public Const ZUL_MODE_OFB As Long = &H200&
Public Const ZUL_MODE_CFB As Long = &H300&
Public Const ZUL_MODE_CTR As Long = &H400&

' RNG_BytesWithPrompt, RNG_MakeSeedFile
Public Const ZUL_RNG_MORE_EVENTS As Long = &H1&

' RSA key files: format, or progress of RSA_MakeKeys
Public Const ZUL_KEY_SHOW_PROGRESS As Long = &H10&
Public Const ZUL_KEY_FORMAT_PEM As Long = &H10000&
Public Const ZUL_KEY_FORMAT_PEM_ALT As Long = &H20000&

' Password-based encryption of private keys. With ZUL_PBE_PBES2 one cipher may be added, and a digest (ZUL_HASH_SHA256, SHA384 or SHA512) for the HMAC that derives the key.
Public Const ZUL_PBE_SHA_3DES As Long = 0
Public Const ZUL_PBE_MD5_DES As Long = 1
Public Const ZUL_PBE_MD2_DES As Long = 2
Public Const ZUL_PBE_SHA1_DES As Long = 3
Public Const ZUL_PBE_PBES2_DEFAULT As Long = 4
Public Const ZUL_PBE_PBES2 As Long = &H1000&
Public Const ZUL_PBE_CIPHER_AES128 As Long = &H20&
Public Const ZUL_PBE_CIPHER_AES192 As Long = &H30&
Public Const ZUL_PBE_CIPHER_AES256 As Long = &H40&

' RSA_ToXMLString
Public Const ZUL_XML_RSAKEYVALUE As Long = &H1&
Public Const ZUL_XML_PUBLIC_ONLY As Long = &H10&
Public Const ZUL_XML_HEXBINARY As Long = &H100&

' RSA_RawPublic, RSA_RawPrivate: the trailer of the RSA2 forms
Public Const ZUL_RSA2_TRAILER6 As Long = 6
Public Const ZUL_RSA2_TRAILERC As Long = 12

' RSA_EncodeMsg, RSA_DecodeMsg: an encoding, with a digest algorithm where it has one
Public Const ZUL_EME_PKCSV1_5 As Long = &H0&
Public Const ZUL_EME_OAEP As Long = &H10&
Public Const ZUL_EMSIG_PKCSV1_5 As Long = &H20&
Public Const ZUL_EMSIG_DIGESTONLY As Long = &H1000&
Public Const ZUL_EMSIG_DIGINFO As Long = &H2000&
Public Const ZUL_EMSIG_GETALG As Long = &H8000&
Public Const ZUL_EMSIG_ISO9796 As Long = &H100000&

' X509_: bits of the options. A digest algorithm (ZUL_HASH_) may be added where one is chosen.
Public Const ZUL_X509_FORMAT_PEM As Long = &H10000&
Public Const ZUL_X509_REQ_DER As Long = &H20000&
Public Const ZUL_X509_REQ_NOATTRS As Long = &H100000&
Public Const ZUL_QUERY_GETTYPE As Long = &H100000&
Public Const ZUL_X509_LATIN1 As Long = &H400000&
Public Const ZUL_X509_UTF8 As Long = &H800000&
Public Const ZUL_X509_AUTHKEYID As Long = &H1000000&
Public Const ZUL_X509_NO_BASIC As Long = &H2000000&
Public Const ZUL_X509_SET_CA As Long = &H4000000&
Public Const ZUL_X509_VERSION1 As Long = &H8000000&

' Key usage (RFC 5280, 4.2.1.3): the nKeyUsageFlags of X509_MakeCert, the result of X509_KeyUsageFlags
Public Const ZUL_KEYUSAGE_DIGITALSIGNATURE As Long = &H1&
Public Const ZUL_KEYUSAGE_NONREPUDIATION As Long = &H2&
Public Const ZUL_KEYUSAGE_KEYENCIPHERMENT As Long = &H4&
Public Const ZUL_KEYUSAGE_DATAENCIPHERMENT As Long = &H8&
Public Const ZUL_KEYUSAGE_KEYAGREEMENT As Long = &H10&
Public Const ZUL_KEYUSAGE_KEYCERTSIGN As Long = &H20&
Public Const ZUL_KEYUSAGE_CRLSIGN As Long = &H40&
Public Const ZUL_KEYUSAGE_ENCIPHERONLY As Long = &H80&
Public Const ZUL_KEYUSAGE_DECIPHERONLY As Long = &H100&

' CMS_ signed messages; a ZUL_HASH_ algorithm and, for enveloped ones, a ZUL_CMS_CIPHER_ go with them.
Public Const ZUL_CMS_EXCLUDE_CERTS As Long = &H100&
Public Const ZUL_CMS_EXCLUDE_DATA As Long = &H200&
Public Const ZUL_CMS_CERTS_ONLY As Long = &H400&
Public Const ZUL_CMS_INCLUDE_ATTRS As Long = &H800&
Public Const ZUL_CMS_ADD_SIGNTIME As Long = &H1000&
Public Const ZUL_CMS_ADD_SMIMECAPS As Long = &H2000&
Public Const ZUL_CMS_FORMAT_BASE64 As Long = &H10000&
Public Const ZUL_CMS_BARE_SIGNEDDATA As Long = &H2000000&
Public Const ZUL_CMS_NAMED_SIGALG As Long = &H4000000&
Public Const ZUL_CMS_CIPHER_TDEA As Long = &H10&
Public Const ZUL_CMS_CIPHER_AES128 As Long = &H20&
Public Const ZUL_CMS_CIPHER_AES192 As Long = &H30&
Public Const ZUL_CMS_CIPHER_AES256 As Long = &H40&

' PFX_
Public Const ZUL_PFX_NO_PRIVKEY As Long = &H10&

' CIPHER_Begin
Public Const ZUL_CIPHER_NO_PADDING As Long = &H1&

' AEAD_Encrypt, AEAD_Decrypt
Public Const ZUL_AEAD_RANDOM_NONCE As Long = &H1&

' KEY_Save: beside ZUL_KEY_FORMAT_PEM, the structure that the kind of key has of its own
Public Const ZUL_KEY_FORMAT_OWN As Long = &H40000&

' SIG_
Public Const ZUL_SIG_RAW As Long = &H1&
Public Const ZUL_SIG_DETERMINISTIC As Long = &H2&

' SEAL_
Public Const ZUL_SEAL_ARMOUR As Long = &H1&
Public Const ZUL_SEAL_STDIN As Long = &H2&
Public Const ZUL_SEAL_STDOUT As Long = &H4&

' CERT_
Public Const ZUL_CERT_DER As Long = &H1&
Public Const ZUL_CERT_BEYOND_ISSUER As Long = &H2&
Public Const ZUL_CERT_JSON As Long = &H10&
Public Const ZUL_CERT_SUBJECT_NAME As Long = &H20&
Public Const ZUL_CERT_WEB As Long = &H40&

' P12_. P12_Unpack: the number of the key, from 0, in the low byte
Public Const ZUL_P12_LEGACY As Long = &H100&
Public Const ZUL_P12_PBMAC1 As Long = &H200&
Public Const ZUL_P12_TRUSTED As Long = &H400&
Public Const ZUL_P12_NEED_MAC As Long = &H800&
Public Const ZUL_P12_JSON As Long = &H1000&

' ZUL_ErrorCode returns the error code that the thread's last call recorded, always positive; 0 if none.
Public Declare PtrSafe Function ZUL_ErrorCode Lib "zulcore.dll" () As Long

' ZUL_LastError copies the thread's last error text (at most 511 characters; often empty).
Public Declare PtrSafe Function ZUL_LastError Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal nOutChars As Long) As Long
Public Declare PtrSafe Function ZUL_LastErrorPtr Lib "zulcore.dll" Alias "ZUL_LastError" ( _
    ByVal szOutput As LongPtr, ByVal nOutChars As Long) As Long

' ZUL_ErrorLookup copies the text of an error code of either sign.
Public Declare PtrSafe Function ZUL_ErrorLookup Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal nOutChars As Long, ByVal nErrCode As Long) As Long
Public Declare PtrSafe Function ZUL_ErrorLookupPtr Lib "zulcore.dll" Alias "ZUL_ErrorLookup" ( _
    ByVal szOutput As LongPtr, ByVal nOutChars As Long, ByVal nErrCode As Long) As Long

' ZUL_ModuleName copies the full path of the library's own file (nOptions 0; at most 260 characters) or the word for its platform, "Win64" or "Lin64" (ZUL_MODULE_PLATFORM).
Public Declare PtrSafe Function ZUL_ModuleName Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal nOutChars As Long, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function ZUL_ModuleNamePtr Lib "zulcore.dll" Alias "ZUL_ModuleName" ( _
    ByVal szOutput As LongPtr, ByVal nOutChars As Long, ByVal nOptions As Long) As Long

' ZUL_Version returns major * 100 + minor * 10 + release.
Public Declare PtrSafe Function ZUL_Version Lib "zulcore.dll" (ByRef pReserved1 As Any, _
    ByRef pReserved2 As Any) As Long
Public Declare PtrSafe Function ZUL_VersionPtr Lib "zulcore.dll" Alias "ZUL_Version" ( _
    ByVal pReserved1 As LongPtr, ByVal pReserved2 As LongPtr) As Long

' ZUL_CompileTime copies the date and time of the build, as "Nov  1 2026 09:08:07".
Public Declare PtrSafe Function ZUL_CompileTime Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal nOutChars As Long) As Long
Public Declare PtrSafe Function ZUL_CompileTimePtr Lib "zulcore.dll" Alias "ZUL_CompileTime" ( _
    ByVal szOutput As LongPtr, ByVal nOutChars As Long) As Long

' ZUL_PowerUpTests repeats the tests that the module ran when it was loaded.
Public Declare PtrSafe Function ZUL_PowerUpTests Lib "zulcore.dll" (ByVal nOptions As Long) As Long

' WIPE_Data overwrites nDataLen bytes with zero.
Public Declare PtrSafe Function WIPE_Data Lib "zulcore.dll" (ByRef lpData As Any, _
    ByVal nDataLen As Long) As Long
Public Declare PtrSafe Function WIPE_DataPtr Lib "zulcore.dll" Alias "WIPE_Data" ( _
    ByVal lpData As LongPtr, ByVal nDataLen As Long) As Long

' WIPE_File overwrites a file seven times, commits each pass to the disk, and deletes the file.
Public Declare PtrSafe Function WIPE_File Lib "zulcore.dll" (ByVal szFileName As String, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function WIPE_FilePtr Lib "zulcore.dll" Alias "WIPE_File" ( _
    ByVal szFileName As LongPtr, ByVal nOptions As Long) As Long

' CNV_HexStrFromBytes writes two upper-case hex digits for each byte.
Public Declare PtrSafe Function CNV_HexStrFromBytes Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal nOutChars As Long, ByRef lpInput As Byte, ByVal nInputLen As Long) As Long
Public Declare PtrSafe Function CNV_HexStrFromBytesPtr Lib "zulcore.dll" Alias "CNV_HexStrFromBytes" ( _
    ByVal szOutput As LongPtr, ByVal nOutChars As Long, ByVal lpInput As LongPtr, _
    ByVal nInputLen As Long) As Long

' CNV_BytesFromHexStr decodes hex digits of either case, skipping every other character; a single digit left over is dropped.
Public Declare PtrSafe Function CNV_BytesFromHexStr Lib "zulcore.dll" (ByRef lpOutput As Byte, _
    ByVal nOutBytes As Long, ByVal szInput As String) As Long
Public Declare PtrSafe Function CNV_BytesFromHexStrPtr Lib "zulcore.dll" Alias "CNV_BytesFromHexStr" ( _
    ByVal lpOutput As LongPtr, ByVal nOutBytes As Long, ByVal szInput As LongPtr) As Long

' CNV_HexFilter copies the hex digits among the first nStrLen characters.
Public Declare PtrSafe Function CNV_HexFilter Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal szInput As String, ByVal nStrLen As Long) As Long
Public Declare PtrSafe Function CNV_HexFilterPtr Lib "zulcore.dll" Alias "CNV_HexFilter" ( _
    ByVal szOutput As LongPtr, ByVal szInput As LongPtr, ByVal nStrLen As Long) As Long

' CNV_B64StrFromBytes writes base64 (RFC 4648) in one line.
Public Declare PtrSafe Function CNV_B64StrFromBytes Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal nOutChars As Long, ByRef lpInput As Byte, ByVal nInputLen As Long) As Long
Public Declare PtrSafe Function CNV_B64StrFromBytesPtr Lib "zulcore.dll" Alias "CNV_B64StrFromBytes" ( _
    ByVal szOutput As LongPtr, ByVal nOutChars As Long, ByVal lpInput As LongPtr, _
    ByVal nInputLen As Long) As Long

' CNV_BytesFromB64Str decodes base64 up to the first "=", skipping characters outside the alphabet.
Public Declare PtrSafe Function CNV_BytesFromB64Str Lib "zulcore.dll" (ByRef lpOutput As Byte, _
    ByVal nOutBytes As Long, ByVal szInput As String) As Long
Public Declare PtrSafe Function CNV_BytesFromB64StrPtr Lib "zulcore.dll" Alias "CNV_BytesFromB64Str" ( _
    ByVal lpOutput As LongPtr, ByVal nOutBytes As Long, ByVal szInput As LongPtr) As Long

' CNV_B64Filter is CNV_HexFilter for the base64 alphabet and "=".
Public Declare PtrSafe Function CNV_B64Filter Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal szInput As String, ByVal nStrLen As Long) As Long
Public Declare PtrSafe Function CNV_B64FilterPtr Lib "zulcore.dll" Alias "CNV_B64Filter" ( _
    ByVal szOutput As LongPtr, ByVal szInput As LongPtr, ByVal nStrLen As Long) As Long

' CNV_CheckUTF8 classifies a text.
Public Declare PtrSafe Function CNV_CheckUTF8 Lib "zulcore.dll" (ByVal szInput As String) As Long
Public Declare PtrSafe Function CNV_CheckUTF8Ptr Lib "zulcore.dll" Alias "CNV_CheckUTF8" ( _
    ByVal szInput As LongPtr) As Long

' CNV_CheckUTF8Bytes is CNV_CheckUTF8 over nBytes bytes.
Public Declare PtrSafe Function CNV_CheckUTF8Bytes Lib "zulcore.dll" (ByRef lpInput As Byte, _
    ByVal nBytes As Long) As Long
Public Declare PtrSafe Function CNV_CheckUTF8BytesPtr Lib "zulcore.dll" Alias "CNV_CheckUTF8Bytes" ( _
    ByVal lpInput As LongPtr, ByVal nBytes As Long) As Long

' CNV_UTF8FromLatin1 converts Latin-1 text to UTF-8 text.
Public Declare PtrSafe Function CNV_UTF8FromLatin1 Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal nOutChars As Long, ByVal szInput As String) As Long
Public Declare PtrSafe Function CNV_UTF8FromLatin1Ptr Lib "zulcore.dll" Alias "CNV_UTF8FromLatin1" ( _
    ByVal szOutput As LongPtr, ByVal nOutChars As Long, ByVal szInput As LongPtr) As Long

' CNV_Latin1FromUTF8 converts UTF-8 text to Latin-1 text.
Public Declare PtrSafe Function CNV_Latin1FromUTF8 Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal nOutChars As Long, ByVal szInput As String) As Long
Public Declare PtrSafe Function CNV_Latin1FromUTF8Ptr Lib "zulcore.dll" Alias "CNV_Latin1FromUTF8" ( _
    ByVal szOutput As LongPtr, ByVal nOutChars As Long, ByVal szInput As LongPtr) As Long

' CNV_UTF8BytesFromLatin1 is CNV_UTF8FromLatin1 without the NUL; nOutBytes is the room in bytes.
Public Declare PtrSafe Function CNV_UTF8BytesFromLatin1 Lib "zulcore.dll" (ByRef lpOutput As Byte, _
    ByVal nOutBytes As Long, ByVal szInput As String) As Long
Public Declare PtrSafe Function CNV_UTF8BytesFromLatin1Ptr Lib "zulcore.dll" Alias "CNV_UTF8BytesFromLatin1" ( _
    ByVal lpOutput As LongPtr, ByVal nOutBytes As Long, ByVal szInput As LongPtr) As Long

' CNV_Latin1FromUTF8Bytes is CNV_Latin1FromUTF8 over nBytes bytes.
Public Declare PtrSafe Function CNV_Latin1FromUTF8Bytes Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal nOutChars As Long, ByRef lpInput As Byte, ByVal nBytes As Long) As Long
Public Declare PtrSafe Function CNV_Latin1FromUTF8BytesPtr Lib "zulcore.dll" Alias "CNV_Latin1FromUTF8Bytes" ( _
    ByVal szOutput As LongPtr, ByVal nOutChars As Long, ByVal lpInput As LongPtr, _
    ByVal nBytes As Long) As Long

' CNV_ByteEncoding converts bytes.
Public Declare PtrSafe Function CNV_ByteEncoding Lib "zulcore.dll" (ByRef lpOutput As Byte, _
    ByVal nOutBytes As Long, ByRef lpInput As Byte, ByVal nBytes As Long, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function CNV_ByteEncodingPtr Lib "zulcore.dll" Alias "CNV_ByteEncoding" ( _
    ByVal lpOutput As LongPtr, ByVal nOutBytes As Long, ByVal lpInput As LongPtr, _
    ByVal nBytes As Long, ByVal nOptions As Long) As Long

' PEM_FileFromBinFile writes a file's content as base64 lines ended by CR LF, between BEGIN and END lines if szHeader (the label) is not null or empty.
Public Declare PtrSafe Function PEM_FileFromBinFile Lib "zulcore.dll" (ByVal szFileOut As String, _
    ByVal szFileIn As String, ByVal szHeader As String, ByVal nLineLen As Long) As Long
Public Declare PtrSafe Function PEM_FileFromBinFilePtr Lib "zulcore.dll" Alias "PEM_FileFromBinFile" ( _
    ByVal szFileOut As LongPtr, ByVal szFileIn As LongPtr, ByVal szHeader As LongPtr, _
    ByVal nLineLen As Long) As Long

' PEM_FileToBinFile decodes the first armoured body of a file, whatever its label.
Public Declare PtrSafe Function PEM_FileToBinFile Lib "zulcore.dll" (ByVal szFileOut As String, _
    ByVal szFileIn As String) As Long
Public Declare PtrSafe Function PEM_FileToBinFilePtr Lib "zulcore.dll" Alias "PEM_FileToBinFile" ( _
    ByVal szFileOut As LongPtr, ByVal szFileIn As LongPtr) As Long

' HASH_Bytes writes the digest of a message of nMsgLen bytes.
Public Declare PtrSafe Function HASH_Bytes Lib "zulcore.dll" (ByRef lpDigest As Byte, _
    ByVal nDigLen As Long, ByRef lpMessage As Any, ByVal nMsgLen As Long, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function HASH_BytesPtr Lib "zulcore.dll" Alias "HASH_Bytes" ( _
    ByVal lpDigest As LongPtr, ByVal nDigLen As Long, ByVal lpMessage As LongPtr, _
    ByVal nMsgLen As Long, ByVal nOptions As Long) As Long

' HASH_File writes the digest of a file of any size.
Public Declare PtrSafe Function HASH_File Lib "zulcore.dll" (ByRef lpDigest As Byte, _
    ByVal nDigLen As Long, ByVal szFileName As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function HASH_FilePtr Lib "zulcore.dll" Alias "HASH_File" ( _
    ByVal lpDigest As LongPtr, ByVal nDigLen As Long, ByVal szFileName As LongPtr, _
    ByVal nOptions As Long) As Long

' HASH_HexFromBytes is HASH_Bytes with lower-case hex as output.
Public Declare PtrSafe Function HASH_HexFromBytes Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal nOutChars As Long, ByRef lpMessage As Any, ByVal nMsgLen As Long, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function HASH_HexFromBytesPtr Lib "zulcore.dll" Alias "HASH_HexFromBytes" ( _
    ByVal szOutput As LongPtr, ByVal nOutChars As Long, ByVal lpMessage As LongPtr, _
    ByVal nMsgLen As Long, ByVal nOptions As Long) As Long

' HASH_HexFromFile is HASH_File with lower-case hex as output.
Public Declare PtrSafe Function HASH_HexFromFile Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal nOutChars As Long, ByVal szFileName As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function HASH_HexFromFilePtr Lib "zulcore.dll" Alias "HASH_HexFromFile" ( _
    ByVal szOutput As LongPtr, ByVal nOutChars As Long, ByVal szFileName As LongPtr, _
    ByVal nOptions As Long) As Long

' HASH_HexFromHex is HASH_HexFromBytes over a message in hex.
Public Declare PtrSafe Function HASH_HexFromHex Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal nOutChars As Long, ByVal szMsgHex As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function HASH_HexFromHexPtr Lib "zulcore.dll" Alias "HASH_HexFromHex" ( _
    ByVal szOutput As LongPtr, ByVal nOutChars As Long, ByVal szMsgHex As LongPtr, _
    ByVal nOptions As Long) As Long

' HMAC_Bytes writes the MAC of a message.
Public Declare PtrSafe Function HMAC_Bytes Lib "zulcore.dll" (ByRef lpDigest As Byte, _
    ByVal nDigLen As Long, ByRef lpMessage As Any, ByVal nMsgLen As Long, ByRef lpKey As Any, _
    ByVal nKeyLen As Long, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function HMAC_BytesPtr Lib "zulcore.dll" Alias "HMAC_Bytes" ( _
    ByVal lpDigest As LongPtr, ByVal nDigLen As Long, ByVal lpMessage As LongPtr, _
    ByVal nMsgLen As Long, ByVal lpKey As LongPtr, ByVal nKeyLen As Long, _
    ByVal nOptions As Long) As Long

' HMAC_HexFromBytes is HMAC_Bytes with lower-case hex as output.
Public Declare PtrSafe Function HMAC_HexFromBytes Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal nOutChars As Long, ByRef lpMessage As Any, ByVal nMsgLen As Long, ByRef lpKey As Any, _
    ByVal nKeyLen As Long, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function HMAC_HexFromBytesPtr Lib "zulcore.dll" Alias "HMAC_HexFromBytes" ( _
    ByVal szOutput As LongPtr, ByVal nOutChars As Long, ByVal lpMessage As LongPtr, _
    ByVal nMsgLen As Long, ByVal lpKey As LongPtr, ByVal nKeyLen As Long, _
    ByVal nOptions As Long) As Long

' HMAC_HexFromHex is HMAC_HexFromBytes over a message and key in hex.
Public Declare PtrSafe Function HMAC_HexFromHex Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal nOutChars As Long, ByVal szMsgHex As String, ByVal szKeyHex As String, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function HMAC_HexFromHexPtr Lib "zulcore.dll" Alias "HMAC_HexFromHex" ( _
    ByVal szOutput As LongPtr, ByVal nOutChars As Long, ByVal szMsgHex As LongPtr, _
    ByVal szKeyHex As LongPtr, ByVal nOptions As Long) As Long

' KDF_Pbkdf2 is PBKDF2 of RFC 8018 with HMAC.
Public Declare PtrSafe Function KDF_Pbkdf2 Lib "zulcore.dll" (ByRef lpOutput As Byte, _
    ByVal nOutBytes As Long, ByRef lpPassword As Any, ByVal nPwdLen As Long, ByRef lpSalt As Any, _
    ByVal nSaltLen As Long, ByVal nIterations As Long, ByVal szHash As String) As Long
Public Declare PtrSafe Function KDF_Pbkdf2Ptr Lib "zulcore.dll" Alias "KDF_Pbkdf2" ( _
    ByVal lpOutput As LongPtr, ByVal nOutBytes As Long, ByVal lpPassword As LongPtr, _
    ByVal nPwdLen As Long, ByVal lpSalt As LongPtr, ByVal nSaltLen As Long, _
    ByVal nIterations As Long, ByVal szHash As LongPtr) As Long

' KDF_Hkdf is HKDF of RFC 5869, extract and expand.
Public Declare PtrSafe Function KDF_Hkdf Lib "zulcore.dll" (ByRef lpOutput As Byte, _
    ByVal nOutBytes As Long, ByRef lpKey As Any, ByVal nKeyLen As Long, ByRef lpSalt As Any, _
    ByVal nSaltLen As Long, ByRef lpInfo As Any, ByVal nInfoLen As Long, _
    ByVal szHash As String) As Long
Public Declare PtrSafe Function KDF_HkdfPtr Lib "zulcore.dll" Alias "KDF_Hkdf" ( _
    ByVal lpOutput As LongPtr, ByVal nOutBytes As Long, ByVal lpKey As LongPtr, _
    ByVal nKeyLen As Long, ByVal lpSalt As LongPtr, ByVal nSaltLen As Long, ByVal lpInfo As LongPtr, _
    ByVal nInfoLen As Long, ByVal szHash As LongPtr) As Long

' KDF_Scrypt is scrypt of RFC 7914.
Public Declare PtrSafe Function KDF_Scrypt Lib "zulcore.dll" (ByRef lpOutput As Byte, _
    ByVal nOutBytes As Long, ByRef lpPassword As Any, ByVal nPwdLen As Long, ByRef lpSalt As Any, _
    ByVal nSaltLen As Long, ByVal nN As Long, ByVal nR As Long, ByVal nP As Long) As Long
Public Declare PtrSafe Function KDF_ScryptPtr Lib "zulcore.dll" Alias "KDF_Scrypt" ( _
    ByVal lpOutput As LongPtr, ByVal nOutBytes As Long, ByVal lpPassword As LongPtr, _
    ByVal nPwdLen As Long, ByVal lpSalt As LongPtr, ByVal nSaltLen As Long, ByVal nN As Long, _
    ByVal nR As Long, ByVal nP As Long) As Long

' KDF_Argon2id is Argon2id of RFC 9106, version 0x13, without secret and associated data.
Public Declare PtrSafe Function KDF_Argon2id Lib "zulcore.dll" (ByRef lpOutput As Byte, _
    ByVal nOutBytes As Long, ByRef lpPassword As Any, ByVal nPwdLen As Long, ByRef lpSalt As Any, _
    ByVal nSaltLen As Long, ByVal nMemoryKiB As Long, ByVal nPasses As Long, _
    ByVal nLanes As Long) As Long
Public Declare PtrSafe Function KDF_Argon2idPtr Lib "zulcore.dll" Alias "KDF_Argon2id" ( _
    ByVal lpOutput As LongPtr, ByVal nOutBytes As Long, ByVal lpPassword As LongPtr, _
    ByVal nPwdLen As Long, ByVal lpSalt As LongPtr, ByVal nSaltLen As Long, _
    ByVal nMemoryKiB As Long, ByVal nPasses As Long, ByVal nLanes As Long) As Long

' CIPHER_Bytes encrypts or decrypts nBytes bytes; lpOutput has the same length and may be lpInput.
Public Declare PtrSafe Function CIPHER_Bytes Lib "zulcore.dll" (ByVal fEncrypt As Long, _
    ByRef lpOutput As Byte, ByRef lpInput As Byte, ByVal nBytes As Long, ByRef lpKey As Byte, _
    ByRef lpIV As Byte, ByVal szAlgAndMode As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function CIPHER_BytesPtr Lib "zulcore.dll" Alias "CIPHER_Bytes" ( _
    ByVal fEncrypt As Long, ByVal lpOutput As LongPtr, ByVal lpInput As LongPtr, _
    ByVal nBytes As Long, ByVal lpKey As LongPtr, ByVal lpIV As LongPtr, _
    ByVal szAlgAndMode As LongPtr, ByVal nOptions As Long) As Long

' CIPHER_Hex is CIPHER_Bytes over hex texts; the output is upper case and nOutChars must cover all of it (SHORT_BUF_ERROR).
Public Declare PtrSafe Function CIPHER_Hex Lib "zulcore.dll" (ByVal fEncrypt As Long, _
    ByVal szOutput As String, ByVal nOutChars As Long, ByVal szInputHex As String, _
    ByVal szKeyHex As String, ByVal szIVHex As String, ByVal szAlgAndMode As String, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function CIPHER_HexPtr Lib "zulcore.dll" Alias "CIPHER_Hex" ( _
    ByVal fEncrypt As Long, ByVal szOutput As LongPtr, ByVal nOutChars As Long, _
    ByVal szInputHex As LongPtr, ByVal szKeyHex As LongPtr, ByVal szIVHex As LongPtr, _
    ByVal szAlgAndMode As LongPtr, ByVal nOptions As Long) As Long

' CIPHER_File encrypts or decrypts a file of any size into another.
Public Declare PtrSafe Function CIPHER_File Lib "zulcore.dll" (ByVal fEncrypt As Long, _
    ByVal szFileOut As String, ByVal szFileIn As String, ByRef lpKey As Byte, ByRef lpIV As Byte, _
    ByVal szAlgAndMode As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function CIPHER_FilePtr Lib "zulcore.dll" Alias "CIPHER_File" ( _
    ByVal fEncrypt As Long, ByVal szFileOut As LongPtr, ByVal szFileIn As LongPtr, _
    ByVal lpKey As LongPtr, ByVal lpIV As LongPtr, ByVal szAlgAndMode As LongPtr, _
    ByVal nOptions As Long) As Long

' TDEA_BytesMode is CIPHER_Bytes with Triple DES; szMode is "ECB", "CBC", "CFB", "OFB" or "CTR" in any case (BAD_MODE_ERROR otherwise; BAD_PARAM_ERROR if null).
Public Declare PtrSafe Function TDEA_BytesMode Lib "zulcore.dll" (ByRef lpOutput As Byte, _
    ByRef lpInput As Byte, ByVal nBytes As Long, ByRef lpKey As Byte, ByVal fEncrypt As Long, _
    ByVal szMode As String, ByRef lpIV As Byte) As Long
Public Declare PtrSafe Function TDEA_BytesModePtr Lib "zulcore.dll" Alias "TDEA_BytesMode" ( _
    ByVal lpOutput As LongPtr, ByVal lpInput As LongPtr, ByVal nBytes As Long, _
    ByVal lpKey As LongPtr, ByVal fEncrypt As Long, ByVal szMode As LongPtr, _
    ByVal lpIV As LongPtr) As Long

' TDEA_HexMode is TDEA_BytesMode over hex texts.
Public Declare PtrSafe Function TDEA_HexMode Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal szInputHex As String, ByVal szKeyHex As String, ByVal fEncrypt As Long, _
    ByVal szMode As String, ByVal szIVHex As String) As Long
Public Declare PtrSafe Function TDEA_HexModePtr Lib "zulcore.dll" Alias "TDEA_HexMode" ( _
    ByVal szOutput As LongPtr, ByVal szInputHex As LongPtr, ByVal szKeyHex As LongPtr, _
    ByVal fEncrypt As Long, ByVal szMode As LongPtr, ByVal szIVHex As LongPtr) As Long

' TDEA_B64Mode is TDEA_HexMode over base64 texts; szOutput holds (bytes + 2) / 3 * 4 characters and a NUL.
Public Declare PtrSafe Function TDEA_B64Mode Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal szInputB64 As String, ByVal szKeyB64 As String, ByVal fEncrypt As Long, _
    ByVal szMode As String, ByVal szIVB64 As String) As Long
Public Declare PtrSafe Function TDEA_B64ModePtr Lib "zulcore.dll" Alias "TDEA_B64Mode" ( _
    ByVal szOutput As LongPtr, ByVal szInputB64 As LongPtr, ByVal szKeyB64 As LongPtr, _
    ByVal fEncrypt As Long, ByVal szMode As LongPtr, ByVal szIVB64 As LongPtr) As Long

' TDEA_File is CIPHER_File with Triple DES and a mode as in TDEA_BytesMode.
Public Declare PtrSafe Function TDEA_File Lib "zulcore.dll" (ByVal szFileOut As String, _
    ByVal szFileIn As String, ByRef lpKey As Byte, ByVal fEncrypt As Long, ByVal szMode As String, _
    ByRef lpIV As Byte) As Long
Public Declare PtrSafe Function TDEA_FilePtr Lib "zulcore.dll" Alias "TDEA_File" ( _
    ByVal szFileOut As LongPtr, ByVal szFileIn As LongPtr, ByVal lpKey As LongPtr, _
    ByVal fEncrypt As Long, ByVal szMode As LongPtr, ByVal lpIV As LongPtr) As Long

' CIPHER_KeyWrap wraps a key of nDataLen bytes under a key-encryption key.
Public Declare PtrSafe Function CIPHER_KeyWrap Lib "zulcore.dll" (ByRef lpOutput As Byte, _
    ByVal nOutBytes As Long, ByRef lpData As Byte, ByVal nDataLen As Long, ByRef lpKEK As Byte, _
    ByVal nKekLen As Long, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function CIPHER_KeyWrapPtr Lib "zulcore.dll" Alias "CIPHER_KeyWrap" ( _
    ByVal lpOutput As LongPtr, ByVal nOutBytes As Long, ByVal lpData As LongPtr, _
    ByVal nDataLen As Long, ByVal lpKEK As LongPtr, ByVal nKekLen As Long, _
    ByVal nOptions As Long) As Long

' CIPHER_KeyUnwrap undoes CIPHER_KeyWrap; errors as there.
Public Declare PtrSafe Function CIPHER_KeyUnwrap Lib "zulcore.dll" (ByRef lpOutput As Byte, _
    ByVal nOutBytes As Long, ByRef lpData As Byte, ByVal nDataLen As Long, ByRef lpKEK As Byte, _
    ByVal nKekLen As Long, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function CIPHER_KeyUnwrapPtr Lib "zulcore.dll" Alias "CIPHER_KeyUnwrap" ( _
    ByVal lpOutput As LongPtr, ByVal nOutBytes As Long, ByVal lpData As LongPtr, _
    ByVal nDataLen As Long, ByVal lpKEK As LongPtr, ByVal nKekLen As Long, _
    ByVal nOptions As Long) As Long

' PAD_BytesBlock copies the input and appends 1 to nBlkLen bytes that hold their count.
Public Declare PtrSafe Function PAD_BytesBlock Lib "zulcore.dll" (ByRef lpOutput As Byte, _
    ByVal nOutputLen As Long, ByRef lpInput As Byte, ByVal nInputLen As Long, ByVal nBlkLen As Long, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function PAD_BytesBlockPtr Lib "zulcore.dll" Alias "PAD_BytesBlock" ( _
    ByVal lpOutput As LongPtr, ByVal nOutputLen As Long, ByVal lpInput As LongPtr, _
    ByVal nInputLen As Long, ByVal nBlkLen As Long, ByVal nOptions As Long) As Long

' PAD_UnpadBytes copies the input without its padding.
Public Declare PtrSafe Function PAD_UnpadBytes Lib "zulcore.dll" (ByRef lpOutput As Byte, _
    ByVal nOutputLen As Long, ByRef lpInput As Byte, ByVal nInputLen As Long, ByVal nBlkLen As Long, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function PAD_UnpadBytesPtr Lib "zulcore.dll" Alias "PAD_UnpadBytes" ( _
    ByVal lpOutput As LongPtr, ByVal nOutputLen As Long, ByVal lpInput As LongPtr, _
    ByVal nInputLen As Long, ByVal nBlkLen As Long, ByVal nOptions As Long) As Long

' PAD_HexBlock is PAD_BytesBlock over hex text, which is copied unchanged and not validated.
Public Declare PtrSafe Function PAD_HexBlock Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal nOutChars As Long, ByVal szInputHex As String, ByVal nBlkLen As Long, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function PAD_HexBlockPtr Lib "zulcore.dll" Alias "PAD_HexBlock" ( _
    ByVal szOutput As LongPtr, ByVal nOutChars As Long, ByVal szInputHex As LongPtr, _
    ByVal nBlkLen As Long, ByVal nOptions As Long) As Long

' PAD_UnpadHex is PAD_UnpadBytes over hex text.
Public Declare PtrSafe Function PAD_UnpadHex Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal nOutChars As Long, ByVal szInputHex As String, ByVal nBlkLen As Long, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function PAD_UnpadHexPtr Lib "zulcore.dll" Alias "PAD_UnpadHex" ( _
    ByVal szOutput As LongPtr, ByVal nOutChars As Long, ByVal szInputHex As LongPtr, _
    ByVal nBlkLen As Long, ByVal nOptions As Long) As Long

' RNG_Bytes fills nBytes (at most 65,536) random bytes.
Public Declare PtrSafe Function RNG_Bytes Lib "zulcore.dll" (ByRef lpOutput As Byte, _
    ByVal nBytes As Long, ByRef lpSeed As Any, ByVal nSeedLen As Long) As Long
Public Declare PtrSafe Function RNG_BytesPtr Lib "zulcore.dll" Alias "RNG_Bytes" ( _
    ByVal lpOutput As LongPtr, ByVal nBytes As Long, ByVal lpSeed As LongPtr, _
    ByVal nSeedLen As Long) As Long

' RNG_BytesWithPrompt shows a dialog in which the user types at random and moves the mouse until enough has been collected.
Public Declare PtrSafe Function RNG_BytesWithPrompt Lib "zulcore.dll" (ByRef lpOutput As Byte, _
    ByVal nOutputLen As Long, ByVal szPrompt As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function RNG_BytesWithPromptPtr Lib "zulcore.dll" Alias "RNG_BytesWithPrompt" ( _
    ByVal lpOutput As LongPtr, ByVal nOutputLen As Long, ByVal szPrompt As LongPtr, _
    ByVal nOptions As Long) As Long

' RNG_Number returns a uniform number from nLower to nUpper, both included; nLower if nUpper is not greater, or if the range needs all 32 bits.
Public Declare PtrSafe Function RNG_Number Lib "zulcore.dll" (ByVal nLower As Long, _
    ByVal nUpper As Long) As Long

' RNG_Test runs the generator's known-answer test and the four statistical tests of FIPS 140-2 on 20,000 fresh bits, and writes a report if szFileName is not null or empty.
Public Declare PtrSafe Function RNG_Test Lib "zulcore.dll" (ByVal szFileName As String, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function RNG_TestPtr Lib "zulcore.dll" Alias "RNG_Test" ( _
    ByVal szFileName As LongPtr, ByVal nOptions As Long) As Long

' RNG_Initialize instantiates the thread's generator and takes in a seed file of 64 bytes, which it then overwrites with fresh ones.
Public Declare PtrSafe Function RNG_Initialize Lib "zulcore.dll" (ByVal szSeedFile As String, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function RNG_InitializePtr Lib "zulcore.dll" Alias "RNG_Initialize" ( _
    ByVal szSeedFile As LongPtr, ByVal nOptions As Long) As Long

' RNG_MakeSeedFile makes or overwrites a seed file for RNG_Initialize from what the user does in the dialog of RNG_BytesWithPrompt; szPrompt and nOptions as there.
Public Declare PtrSafe Function RNG_MakeSeedFile Lib "zulcore.dll" (ByVal szSeedFile As String, _
    ByVal szPrompt As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function RNG_MakeSeedFilePtr Lib "zulcore.dll" Alias "RNG_MakeSeedFile" ( _
    ByVal szSeedFile As LongPtr, ByVal szPrompt As LongPtr, ByVal nOptions As Long) As Long

' RNG_UpdateSeedFile takes in a seed file and overwrites it, as RNG_Initialize.
Public Declare PtrSafe Function RNG_UpdateSeedFile Lib "zulcore.dll" (ByVal szSeedFile As String, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function RNG_UpdateSeedFilePtr Lib "zulcore.dll" Alias "RNG_UpdateSeedFile" ( _
    ByVal szSeedFile As LongPtr, ByVal nOptions As Long) As Long

' PWD_PromptEx shows a dialog in which the user enters a password, or asks for it in the process's controlling terminal (Linux).
Public Declare PtrSafe Function PWD_PromptEx Lib "zulcore.dll" (ByVal szPassword As String, _
    ByVal nPwdLen As Long, ByVal szCaption As String, ByVal szPrompt As String) As Long
Public Declare PtrSafe Function PWD_PromptExPtr Lib "zulcore.dll" Alias "PWD_PromptEx" ( _
    ByVal szPassword As LongPtr, ByVal nPwdLen As Long, ByVal szCaption As LongPtr, _
    ByVal szPrompt As LongPtr) As Long

' PWD_Prompt is PWD_PromptEx with the dialog's own text, "Enter password:".
Public Declare PtrSafe Function PWD_Prompt Lib "zulcore.dll" (ByVal szPassword As String, _
    ByVal nPwdLen As Long, ByVal szCaption As String) As Long
Public Declare PtrSafe Function PWD_PromptPtr Lib "zulcore.dll" Alias "PWD_Prompt" ( _
    ByVal szPassword As LongPtr, ByVal nPwdLen As Long, ByVal szCaption As LongPtr) As Long

' RSA_MakeKeys makes a key pair and writes two files.
Public Declare PtrSafe Function RSA_MakeKeys Lib "zulcore.dll" (ByVal szPubKeyFile As String, _
    ByVal szPriKeyFile As String, ByVal nBits As Long, ByVal nExpIndex As Long, _
    ByVal nTests As Long, ByVal nCount As Long, ByVal szPassword As String, ByRef lpSeed As Any, _
    ByVal nSeedLen As Long, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function RSA_MakeKeysPtr Lib "zulcore.dll" Alias "RSA_MakeKeys" ( _
    ByVal szPubKeyFile As LongPtr, ByVal szPriKeyFile As LongPtr, ByVal nBits As Long, _
    ByVal nExpIndex As Long, ByVal nTests As Long, ByVal nCount As Long, _
    ByVal szPassword As LongPtr, ByVal lpSeed As LongPtr, ByVal nSeedLen As Long, _
    ByVal nOptions As Long) As Long

' RSA_ReadPublicKey reads an RSAPublicKey (PKCS #1) or SubjectPublicKeyInfo (X.509) and writes its key string.
Public Declare PtrSafe Function RSA_ReadPublicKey Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal nOutChars As Long, ByVal szFileOrText As String) As Long
Public Declare PtrSafe Function RSA_ReadPublicKeyPtr Lib "zulcore.dll" Alias "RSA_ReadPublicKey" ( _
    ByVal szOutput As LongPtr, ByVal nOutChars As Long, ByVal szFileOrText As LongPtr) As Long

' RSA_ReadPrivateKeyInfo reads an unencrypted PrivateKeyInfo (PKCS #8) or RSAPrivateKey (PKCS #1) of two primes and writes its key string.
Public Declare PtrSafe Function RSA_ReadPrivateKeyInfo Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal nOutChars As Long, ByVal szFileOrText As String) As Long
Public Declare PtrSafe Function RSA_ReadPrivateKeyInfoPtr Lib "zulcore.dll" Alias "RSA_ReadPrivateKeyInfo" ( _
    ByVal szOutput As LongPtr, ByVal nOutChars As Long, ByVal szFileOrText As LongPtr) As Long

' RSA_ReadEncPrivateKey reads an EncryptedPrivateKeyInfo (PKCS #8) and writes the private key's key string.
Public Declare PtrSafe Function RSA_ReadEncPrivateKey Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal nOutChars As Long, ByVal szFileOrText As String, ByVal szPassword As String, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function RSA_ReadEncPrivateKeyPtr Lib "zulcore.dll" Alias "RSA_ReadEncPrivateKey" ( _
    ByVal szOutput As LongPtr, ByVal nOutChars As Long, ByVal szFileOrText As LongPtr, _
    ByVal szPassword As LongPtr, ByVal nOptions As Long) As Long

' RSA_GetPublicKeyFromCert reads an X.509 certificate and writes the key string of its subject's public key.
Public Declare PtrSafe Function RSA_GetPublicKeyFromCert Lib "zulcore.dll" ( _
    ByVal szOutput As String, ByVal nOutChars As Long, ByVal szFileOrText As String) As Long
Public Declare PtrSafe Function RSA_GetPublicKeyFromCertPtr Lib "zulcore.dll" Alias "RSA_GetPublicKeyFromCert" ( _
    ByVal szOutput As LongPtr, ByVal nOutChars As Long, ByVal szFileOrText As LongPtr) As Long

' RSA_SavePublicKey writes a public key, or the public part of a private key, to a file.
Public Declare PtrSafe Function RSA_SavePublicKey Lib "zulcore.dll" (ByVal szFileOut As String, _
    ByVal szKeyString As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function RSA_SavePublicKeyPtr Lib "zulcore.dll" Alias "RSA_SavePublicKey" ( _
    ByVal szFileOut As LongPtr, ByVal szKeyString As LongPtr, ByVal nOptions As Long) As Long

' RSA_SavePrivateKeyInfo writes a private key to a file, unencrypted.
Public Declare PtrSafe Function RSA_SavePrivateKeyInfo Lib "zulcore.dll" (ByVal szFileOut As String, _
    ByVal szKeyString As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function RSA_SavePrivateKeyInfoPtr Lib "zulcore.dll" Alias "RSA_SavePrivateKeyInfo" ( _
    ByVal szFileOut As LongPtr, ByVal szKeyString As LongPtr, ByVal nOptions As Long) As Long

' RSA_SaveEncPrivateKey writes a private key to a file as EncryptedPrivateKeyInfo.
Public Declare PtrSafe Function RSA_SaveEncPrivateKey Lib "zulcore.dll" (ByVal szFileOut As String, _
    ByVal szKeyString As String, ByVal nCount As Long, ByVal szPassword As String, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function RSA_SaveEncPrivateKeyPtr Lib "zulcore.dll" Alias "RSA_SaveEncPrivateKey" ( _
    ByVal szFileOut As LongPtr, ByVal szKeyString As LongPtr, ByVal nCount As Long, _
    ByVal szPassword As LongPtr, ByVal nOptions As Long) As Long

' RSA_ToXMLString writes a key as XML.
Public Declare PtrSafe Function RSA_ToXMLString Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal nOutChars As Long, ByVal szKeyString As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function RSA_ToXMLStringPtr Lib "zulcore.dll" Alias "RSA_ToXMLString" ( _
    ByVal szOutput As LongPtr, ByVal nOutChars As Long, ByVal szKeyString As LongPtr, _
    ByVal nOptions As Long) As Long

' RSA_FromXMLString reads a key from XML and gives its internal key string.
Public Declare PtrSafe Function RSA_FromXMLString Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal nOutChars As Long, ByVal szXmlString As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function RSA_FromXMLStringPtr Lib "zulcore.dll" Alias "RSA_FromXMLString" ( _
    ByVal szOutput As LongPtr, ByVal nOutChars As Long, ByVal szXmlString As LongPtr, _
    ByVal nOptions As Long) As Long

' RSA_KeyBits returns the length in bits of the modulus of a public or private key.
Public Declare PtrSafe Function RSA_KeyBits Lib "zulcore.dll" (ByVal szKeyString As String) As Long
Public Declare PtrSafe Function RSA_KeyBitsPtr Lib "zulcore.dll" Alias "RSA_KeyBits" ( _
    ByVal szKeyString As LongPtr) As Long

' RSA_KeyBytes returns the length in bytes of the modulus, which is that of data and encoded blocks.
Public Declare PtrSafe Function RSA_KeyBytes Lib "zulcore.dll" (ByVal szKeyString As String) As Long
Public Declare PtrSafe Function RSA_KeyBytesPtr Lib "zulcore.dll" Alias "RSA_KeyBytes" ( _
    ByVal szKeyString As LongPtr) As Long

' RSA_KeyMatch tells whether a private and a public key form a pair.
Public Declare PtrSafe Function RSA_KeyMatch Lib "zulcore.dll" (ByVal szPrivateKey As String, _
    ByVal szPublicKey As String) As Long
Public Declare PtrSafe Function RSA_KeyMatchPtr Lib "zulcore.dll" Alias "RSA_KeyMatch" ( _
    ByVal szPrivateKey As LongPtr, ByVal szPublicKey As LongPtr) As Long

' RSA_KeyHashCode returns a hash code, which may be negative, of a public key or of the public part of a private key.
Public Declare PtrSafe Function RSA_KeyHashCode Lib "zulcore.dll" ( _
    ByVal szKeyString As String) As Long
Public Declare PtrSafe Function RSA_KeyHashCodePtr Lib "zulcore.dll" Alias "RSA_KeyHashCode" ( _
    ByVal szKeyString As LongPtr) As Long

' RSA_CheckKey checks a key.
Public Declare PtrSafe Function RSA_CheckKey Lib "zulcore.dll" (ByVal szKeyString As String, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function RSA_CheckKeyPtr Lib "zulcore.dll" Alias "RSA_CheckKey" ( _
    ByVal szKeyString As LongPtr, ByVal nOptions As Long) As Long

' RSA_RawPublic transforms data in place with a public key string.
Public Declare PtrSafe Function RSA_RawPublic Lib "zulcore.dll" (ByRef lpData As Byte, _
    ByVal nDataLen As Long, ByVal szPublicKey As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function RSA_RawPublicPtr Lib "zulcore.dll" Alias "RSA_RawPublic" ( _
    ByVal lpData As LongPtr, ByVal nDataLen As Long, ByVal szPublicKey As LongPtr, _
    ByVal nOptions As Long) As Long

' RSA_RawPrivate transforms data in place with a private key.
Public Declare PtrSafe Function RSA_RawPrivate Lib "zulcore.dll" (ByRef lpData As Byte, _
    ByVal nDataLen As Long, ByVal szPrivateKey As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function RSA_RawPrivatePtr Lib "zulcore.dll" Alias "RSA_RawPrivate" ( _
    ByVal lpData As LongPtr, ByVal nDataLen As Long, ByVal szPrivateKey As LongPtr, _
    ByVal nOptions As Long) As Long

' RSA_EncodeMsg fills the nOutBytes bytes (normally RSA_KeyBytes) of lpOutput with the encoding of a message.
Public Declare PtrSafe Function RSA_EncodeMsg Lib "zulcore.dll" (ByRef lpOutput As Byte, _
    ByVal nOutBytes As Long, ByRef lpInput As Byte, ByVal nInputLen As Long, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function RSA_EncodeMsgPtr Lib "zulcore.dll" Alias "RSA_EncodeMsg" ( _
    ByVal lpOutput As LongPtr, ByVal nOutBytes As Long, ByVal lpInput As LongPtr, _
    ByVal nInputLen As Long, ByVal nOptions As Long) As Long

' RSA_DecodeMsg recovers the message from an encoded block, of which at most nOutBytes bytes are copied.
Public Declare PtrSafe Function RSA_DecodeMsg Lib "zulcore.dll" (ByRef lpOutput As Byte, _
    ByVal nOutBytes As Long, ByRef lpInput As Byte, ByVal nInputLen As Long, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function RSA_DecodeMsgPtr Lib "zulcore.dll" Alias "RSA_DecodeMsg" ( _
    ByVal lpOutput As LongPtr, ByVal nOutBytes As Long, ByVal lpInput As LongPtr, _
    ByVal nInputLen As Long, ByVal nOptions As Long) As Long

' X509_QueryCert answers a query about a certificate.
Public Declare PtrSafe Function X509_QueryCert Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal nChars As Long, ByVal szCertFile As String, ByVal szQuery As String, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function X509_QueryCertPtr Lib "zulcore.dll" Alias "X509_QueryCert" ( _
    ByVal szOutput As LongPtr, ByVal nChars As Long, ByVal szCertFile As LongPtr, _
    ByVal szQuery As LongPtr, ByVal nOptions As Long) As Long

' X509_KeyUsageFlags returns the key usage as ZUL_KEYUSAGE_ bits, 0 if the certificate does not say, or a negated code.
Public Declare PtrSafe Function X509_KeyUsageFlags Lib "zulcore.dll" ( _
    ByVal szCertFile As String) As Long
Public Declare PtrSafe Function X509_KeyUsageFlagsPtr Lib "zulcore.dll" Alias "X509_KeyUsageFlags" ( _
    ByVal szCertFile As LongPtr) As Long

' X509_CertThumb writes the digest (nOptions: ZUL_HASH_...) of a certificate in lower-case hex.
Public Declare PtrSafe Function X509_CertThumb Lib "zulcore.dll" (ByVal szCertFile As String, _
    ByVal szHash As String, ByVal nChars As Long, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function X509_CertThumbPtr Lib "zulcore.dll" Alias "X509_CertThumb" ( _
    ByVal szCertFile As LongPtr, ByVal szHash As LongPtr, ByVal nChars As Long, _
    ByVal nOptions As Long) As Long

' X509_CertIsValidNow returns 0 if the present time lies within the certificate's validity, -1 if not, or a positive code.
Public Declare PtrSafe Function X509_CertIsValidNow Lib "zulcore.dll" (ByVal szCertFile As String, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function X509_CertIsValidNowPtr Lib "zulcore.dll" Alias "X509_CertIsValidNow" ( _
    ByVal szCertFile As LongPtr, ByVal nOptions As Long) As Long

' X509_CertIssuedOn and X509_CertExpiresOn write the beginning and end of the validity, 20 characters, cut to nChars.
Public Declare PtrSafe Function X509_CertIssuedOn Lib "zulcore.dll" (ByVal szCertFile As String, _
    ByVal szOutput As String, ByVal nChars As Long, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function X509_CertIssuedOnPtr Lib "zulcore.dll" Alias "X509_CertIssuedOn" ( _
    ByVal szCertFile As LongPtr, ByVal szOutput As LongPtr, ByVal nChars As Long, _
    ByVal nOptions As Long) As Long

' X509_CertIssuedOn and X509_CertExpiresOn write the beginning and end of the validity, 20 characters, cut to nChars.
Public Declare PtrSafe Function X509_CertExpiresOn Lib "zulcore.dll" (ByVal szCertFile As String, _
    ByVal szOutput As String, ByVal nChars As Long, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function X509_CertExpiresOnPtr Lib "zulcore.dll" Alias "X509_CertExpiresOn" ( _
    ByVal szCertFile As LongPtr, ByVal szOutput As LongPtr, ByVal nChars As Long, _
    ByVal nOptions As Long) As Long

' X509_CertSerialNumber writes the serial number's bytes in lower-case hex.
Public Declare PtrSafe Function X509_CertSerialNumber Lib "zulcore.dll" (ByVal szCertFile As String, _
    ByVal szOutput As String, ByVal nChars As Long, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function X509_CertSerialNumberPtr Lib "zulcore.dll" Alias "X509_CertSerialNumber" ( _
    ByVal szCertFile As LongPtr, ByVal szOutput As LongPtr, ByVal nChars As Long, _
    ByVal nOptions As Long) As Long

' X509_CertSubjectName and X509_CertIssuerName write a name as text, cut to nChars.
Public Declare PtrSafe Function X509_CertSubjectName Lib "zulcore.dll" (ByVal szCertFile As String, _
    ByVal szOutput As String, ByVal nChars As Long, ByVal szDelim As String, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function X509_CertSubjectNamePtr Lib "zulcore.dll" Alias "X509_CertSubjectName" ( _
    ByVal szCertFile As LongPtr, ByVal szOutput As LongPtr, ByVal nChars As Long, _
    ByVal szDelim As LongPtr, ByVal nOptions As Long) As Long

' X509_CertSubjectName and X509_CertIssuerName write a name as text, cut to nChars.
Public Declare PtrSafe Function X509_CertIssuerName Lib "zulcore.dll" (ByVal szCertFile As String, _
    ByVal szOutput As String, ByVal nChars As Long, ByVal szDelim As String, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function X509_CertIssuerNamePtr Lib "zulcore.dll" Alias "X509_CertIssuerName" ( _
    ByVal szCertFile As LongPtr, ByVal szOutput As LongPtr, ByVal nChars As Long, _
    ByVal szDelim As LongPtr, ByVal nOptions As Long) As Long

' X509_HashIssuerAndSN writes the digest of the certificate's IssuerAndSerialNumber (RFC 5652), as X509_CertThumb that of the certificate.
Public Declare PtrSafe Function X509_HashIssuerAndSN Lib "zulcore.dll" (ByVal szCertFile As String, _
    ByVal szOutput As String, ByVal nChars As Long, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function X509_HashIssuerAndSNPtr Lib "zulcore.dll" Alias "X509_HashIssuerAndSN" ( _
    ByVal szCertFile As LongPtr, ByVal szOutput As LongPtr, ByVal nChars As Long, _
    ByVal nOptions As Long) As Long

' X509_ReadStringFromFile writes a certificate as base64 in one line, which serves as szCertFile wherever one is asked for (if it is longer than 256 characters, as that of any certificate with an RSA key is).
Public Declare PtrSafe Function X509_ReadStringFromFile Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal nChars As Long, ByVal szCertFile As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function X509_ReadStringFromFilePtr Lib "zulcore.dll" Alias "X509_ReadStringFromFile" ( _
    ByVal szOutput As LongPtr, ByVal nChars As Long, ByVal szCertFile As LongPtr, _
    ByVal nOptions As Long) As Long

' X509_SaveFileFromString writes a certificate given as base64 to a file.
Public Declare PtrSafe Function X509_SaveFileFromString Lib "zulcore.dll" ( _
    ByVal szNewCertFile As String, ByVal szCertString As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function X509_SaveFileFromStringPtr Lib "zulcore.dll" Alias "X509_SaveFileFromString" ( _
    ByVal szNewCertFile As LongPtr, ByVal szCertString As LongPtr, ByVal nOptions As Long) As Long

' X509_MakeCert makes a certificate (RFC 5280) signed by an issuer.
Public Declare PtrSafe Function X509_MakeCert Lib "zulcore.dll" (ByVal szNewCertFile As String, _
    ByVal szIssuerCertFile As String, ByVal szSubjectPubKeyFile As String, _
    ByVal szIssuerPriKeyFile As String, ByVal nCertNum As Long, ByVal nYearsValid As Long, _
    ByVal szDistName As String, ByVal szExtensions As String, ByVal nKeyUsageFlags As Long, _
    ByVal szPassword As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function X509_MakeCertPtr Lib "zulcore.dll" Alias "X509_MakeCert" ( _
    ByVal szNewCertFile As LongPtr, ByVal szIssuerCertFile As LongPtr, _
    ByVal szSubjectPubKeyFile As LongPtr, ByVal szIssuerPriKeyFile As LongPtr, _
    ByVal nCertNum As Long, ByVal nYearsValid As Long, ByVal szDistName As LongPtr, _
    ByVal szExtensions As LongPtr, ByVal nKeyUsageFlags As Long, ByVal szPassword As LongPtr, _
    ByVal nOptions As Long) As Long

' X509_MakeCertSelf makes the self-signed certificate of a certification authority from its encrypted private key.
Public Declare PtrSafe Function X509_MakeCertSelf Lib "zulcore.dll" (ByVal szNewCertFile As String, _
    ByVal szEPKFile As String, ByVal nCertNum As Long, ByVal nYearsValid As Long, _
    ByVal szDistName As String, ByVal szExtensions As String, ByVal nKeyUsageFlags As Long, _
    ByVal szPassword As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function X509_MakeCertSelfPtr Lib "zulcore.dll" Alias "X509_MakeCertSelf" ( _
    ByVal szNewCertFile As LongPtr, ByVal szEPKFile As LongPtr, ByVal nCertNum As Long, _
    ByVal nYearsValid As Long, ByVal szDistName As LongPtr, ByVal szExtensions As LongPtr, _
    ByVal nKeyUsageFlags As Long, ByVal szPassword As LongPtr, ByVal nOptions As Long) As Long

' X509_CertRequest makes a certification request (PKCS #10, RFC 2986) from an encrypted private key.
Public Declare PtrSafe Function X509_CertRequest Lib "zulcore.dll" (ByVal szReqFile As String, _
    ByVal szEPKFile As String, ByVal szDistName As String, ByVal szExtensions As String, _
    ByVal szPassword As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function X509_CertRequestPtr Lib "zulcore.dll" Alias "X509_CertRequest" ( _
    ByVal szReqFile As LongPtr, ByVal szEPKFile As LongPtr, ByVal szDistName As LongPtr, _
    ByVal szExtensions As LongPtr, ByVal szPassword As LongPtr, ByVal nOptions As Long) As Long

' X509_MakeCRL makes a revocation list of version 1.
Public Declare PtrSafe Function X509_MakeCRL Lib "zulcore.dll" (ByVal szCrlFile As String, _
    ByVal szIssuerCertFile As String, ByVal szIssuerKeyFile As String, ByVal szPassword As String, _
    ByVal szCertList As String, ByVal szExtensions As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function X509_MakeCRLPtr Lib "zulcore.dll" Alias "X509_MakeCRL" ( _
    ByVal szCrlFile As LongPtr, ByVal szIssuerCertFile As LongPtr, ByVal szIssuerKeyFile As LongPtr, _
    ByVal szPassword As LongPtr, ByVal szCertList As LongPtr, ByVal szExtensions As LongPtr, _
    ByVal nOptions As Long) As Long

' X509_VerifyCert checks that a certificate, request or CRL was signed with the key of szIssuerCert.
Public Declare PtrSafe Function X509_VerifyCert Lib "zulcore.dll" (ByVal szCertToVerify As String, _
    ByVal szIssuerCert As String) As Long
Public Declare PtrSafe Function X509_VerifyCertPtr Lib "zulcore.dll" Alias "X509_VerifyCert" ( _
    ByVal szCertToVerify As LongPtr, ByVal szIssuerCert As LongPtr) As Long

' X509_CheckCertInCRL looks a certificate up in its issuer's CRL.
Public Declare PtrSafe Function X509_CheckCertInCRL Lib "zulcore.dll" (ByVal szCertFile As String, _
    ByVal szCrlFile As String, ByVal szCRLIssuerCert As String, ByVal szDate As String, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function X509_CheckCertInCRLPtr Lib "zulcore.dll" Alias "X509_CheckCertInCRL" ( _
    ByVal szCertFile As LongPtr, ByVal szCrlFile As LongPtr, ByVal szCRLIssuerCert As LongPtr, _
    ByVal szDate As LongPtr, ByVal nOptions As Long) As Long

' X509_ValidatePath orders certificates into a path and checks each one's signature, and its dates unless nOptions is not 0.
Public Declare PtrSafe Function X509_ValidatePath Lib "zulcore.dll" (ByVal szCertList As String, _
    ByVal szTrustedCert As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function X509_ValidatePathPtr Lib "zulcore.dll" Alias "X509_ValidatePath" ( _
    ByVal szCertList As LongPtr, ByVal szTrustedCert As LongPtr, ByVal nOptions As Long) As Long

' X509_TextDump writes a description of a certificate, request or CRL to a text file.
Public Declare PtrSafe Function X509_TextDump Lib "zulcore.dll" (ByVal szFileOut As String, _
    ByVal szCertFile As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function X509_TextDumpPtr Lib "zulcore.dll" Alias "X509_TextDump" ( _
    ByVal szFileOut As LongPtr, ByVal szCertFile As LongPtr, ByVal nOptions As Long) As Long

' X509_GetCertFromP7Chain takes a certificate out of a signed message or a certs-only one (PKCS #7, "p7c" or "p7b"), a message argument as below.
Public Declare PtrSafe Function X509_GetCertFromP7Chain Lib "zulcore.dll" ( _
    ByVal szNewCertFile As String, ByVal szP7cFile As String, ByVal nIndex As Long, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function X509_GetCertFromP7ChainPtr Lib "zulcore.dll" Alias "X509_GetCertFromP7Chain" ( _
    ByVal szNewCertFile As LongPtr, ByVal szP7cFile As LongPtr, ByVal nIndex As Long, _
    ByVal nOptions As Long) As Long

' X509_GetCertFromPFX and RSA_GetPrivateKeyFromPFX write the first certificate of a PKCS #12 file, as DER, and its first encrypted private key, as RSA_ReadEncPrivateKey reads it, to a file.
Public Declare PtrSafe Function X509_GetCertFromPFX Lib "zulcore.dll" (ByVal szFileOut As String, _
    ByVal szPfxFile As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function X509_GetCertFromPFXPtr Lib "zulcore.dll" Alias "X509_GetCertFromPFX" ( _
    ByVal szFileOut As LongPtr, ByVal szPfxFile As LongPtr, ByVal nOptions As Long) As Long

' X509_GetCertFromPFX and RSA_GetPrivateKeyFromPFX write the first certificate of a PKCS #12 file, as DER, and its first encrypted private key, as RSA_ReadEncPrivateKey reads it, to a file.
Public Declare PtrSafe Function RSA_GetPrivateKeyFromPFX Lib "zulcore.dll" ( _
    ByVal szFileOut As String, ByVal szPfxFile As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function RSA_GetPrivateKeyFromPFXPtr Lib "zulcore.dll" Alias "RSA_GetPrivateKeyFromPFX" ( _
    ByVal szFileOut As LongPtr, ByVal szPfxFile As LongPtr, ByVal nOptions As Long) As Long

' CMS_MakeSigData signs a file with RSA (PKCS #1 v1.5).
Public Declare PtrSafe Function CMS_MakeSigData Lib "zulcore.dll" (ByVal szFileOut As String, _
    ByVal szFileIn As String, ByVal szCertList As String, ByVal szPrivateKey As String, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function CMS_MakeSigDataPtr Lib "zulcore.dll" Alias "CMS_MakeSigData" ( _
    ByVal szFileOut As LongPtr, ByVal szFileIn As LongPtr, ByVal szCertList As LongPtr, _
    ByVal szPrivateKey As LongPtr, ByVal nOptions As Long) As Long

' CMS_MakeSigDataFromString signs the bytes of a text, without its NUL, as CMS_MakeSigData a file.
Public Declare PtrSafe Function CMS_MakeSigDataFromString Lib "zulcore.dll" ( _
    ByVal szFileOut As String, ByVal szDataIn As String, ByVal szCertList As String, _
    ByVal szPrivateKey As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function CMS_MakeSigDataFromStringPtr Lib "zulcore.dll" Alias "CMS_MakeSigDataFromString" ( _
    ByVal szFileOut As LongPtr, ByVal szDataIn As LongPtr, ByVal szCertList As LongPtr, _
    ByVal szPrivateKey As LongPtr, ByVal nOptions As Long) As Long

' CMS_MakeDetachedSig signs content whose digest is given in hex; the content is not carried.
Public Declare PtrSafe Function CMS_MakeDetachedSig Lib "zulcore.dll" (ByVal szFileOut As String, _
    ByVal szHexDigest As String, ByVal szCertList As String, ByVal szPrivateKey As String, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function CMS_MakeDetachedSigPtr Lib "zulcore.dll" Alias "CMS_MakeDetachedSig" ( _
    ByVal szFileOut As LongPtr, ByVal szHexDigest As LongPtr, ByVal szCertList As LongPtr, _
    ByVal szPrivateKey As LongPtr, ByVal nOptions As Long) As Long

' CMS_MakeSigDataFromSigValue makes a message from nDataLen bytes of content and their finished signature, made by a smart card, for example.
Public Declare PtrSafe Function CMS_MakeSigDataFromSigValue Lib "zulcore.dll" ( _
    ByVal szFileOut As String, ByRef lpSigValue As Byte, ByVal nSigLen As Long, _
    ByRef lpData As Byte, ByVal nDataLen As Long, ByVal szCertList As String, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function CMS_MakeSigDataFromSigValuePtr Lib "zulcore.dll" Alias "CMS_MakeSigDataFromSigValue" ( _
    ByVal szFileOut As LongPtr, ByVal lpSigValue As LongPtr, ByVal nSigLen As Long, _
    ByVal lpData As LongPtr, ByVal nDataLen As Long, ByVal szCertList As LongPtr, _
    ByVal nOptions As Long) As Long

' CMS_ReadSigData writes the content of a signed message to a file, CMS_ReadSigDataToString to nDataOutLen bytes of room and a NUL.
Public Declare PtrSafe Function CMS_ReadSigData Lib "zulcore.dll" (ByVal szFileOut As String, _
    ByVal szFileIn As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function CMS_ReadSigDataPtr Lib "zulcore.dll" Alias "CMS_ReadSigData" ( _
    ByVal szFileOut As LongPtr, ByVal szFileIn As LongPtr, ByVal nOptions As Long) As Long

' CMS_ReadSigData writes the content of a signed message to a file, CMS_ReadSigDataToString to nDataOutLen bytes of room and a NUL.
Public Declare PtrSafe Function CMS_ReadSigDataToString Lib "zulcore.dll" ( _
    ByVal szDataOut As String, ByVal nDataOutLen As Long, ByVal szFileIn As String, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function CMS_ReadSigDataToStringPtr Lib "zulcore.dll" Alias "CMS_ReadSigDataToString" ( _
    ByVal szDataOut As LongPtr, ByVal nDataOutLen As Long, ByVal szFileIn As LongPtr, _
    ByVal nOptions As Long) As Long

' CMS_VerifySigData verifies the signature of a signed message, RSA (PKCS #1 v1.5) with any digest or DSA with SHA-1, and the digest of its content.
Public Declare PtrSafe Function CMS_VerifySigData Lib "zulcore.dll" (ByVal szFileIn As String, _
    ByVal szCertFile As String, ByVal szHexDigest As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function CMS_VerifySigDataPtr Lib "zulcore.dll" Alias "CMS_VerifySigData" ( _
    ByVal szFileIn As LongPtr, ByVal szCertFile As LongPtr, ByVal szHexDigest As LongPtr, _
    ByVal nOptions As Long) As Long

' CMS_GetSigDataDigest writes the digest of the content that was signed, in lower-case hex.
Public Declare PtrSafe Function CMS_GetSigDataDigest Lib "zulcore.dll" ( _
    ByVal szHexDigestOut As String, ByVal nDigestLen As Long, ByVal szFileIn As String, _
    ByVal szCertFile As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function CMS_GetSigDataDigestPtr Lib "zulcore.dll" Alias "CMS_GetSigDataDigest" ( _
    ByVal szHexDigestOut As LongPtr, ByVal nDigestLen As Long, ByVal szFileIn As LongPtr, _
    ByVal szCertFile As LongPtr, ByVal nOptions As Long) As Long

' CMS_QuerySigData answers a query about a signed message of any version, verified or not.
Public Declare PtrSafe Function CMS_QuerySigData Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal nOutChars As Long, ByVal szFileIn As String, ByVal szQuery As String, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function CMS_QuerySigDataPtr Lib "zulcore.dll" Alias "CMS_QuerySigData" ( _
    ByVal szOutput As LongPtr, ByVal nOutChars As Long, ByVal szFileIn As LongPtr, _
    ByVal szQuery As LongPtr, ByVal nOptions As Long) As Long

' CMS_MakeEnvData encrypts a file for the RSA keys (PKCS #1 v1.5) of up to 10 certificates.
Public Declare PtrSafe Function CMS_MakeEnvData Lib "zulcore.dll" (ByVal szFileOut As String, _
    ByVal szFileIn As String, ByVal szCertList As String, ByRef lpSeed As Byte, _
    ByVal nSeedLen As Long, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function CMS_MakeEnvDataPtr Lib "zulcore.dll" Alias "CMS_MakeEnvData" ( _
    ByVal szFileOut As LongPtr, ByVal szFileIn As LongPtr, ByVal szCertList As LongPtr, _
    ByVal lpSeed As LongPtr, ByVal nSeedLen As Long, ByVal nOptions As Long) As Long

' CMS_MakeEnvDataFromString encrypts the bytes of a text, without its NUL, as CMS_MakeEnvData a file.
Public Declare PtrSafe Function CMS_MakeEnvDataFromString Lib "zulcore.dll" ( _
    ByVal szFileOut As String, ByVal szDataIn As String, ByVal szCertList As String, _
    ByRef lpSeed As Byte, ByVal nSeedLen As Long, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function CMS_MakeEnvDataFromStringPtr Lib "zulcore.dll" Alias "CMS_MakeEnvDataFromString" ( _
    ByVal szFileOut As LongPtr, ByVal szDataIn As LongPtr, ByVal szCertList As LongPtr, _
    ByVal lpSeed As LongPtr, ByVal nSeedLen As Long, ByVal nOptions As Long) As Long

' CMS_ReadEnvData decrypts an enveloped message (Triple DES, AES or RC2, CBC) into a file, CMS_ReadEnvDataToString into nDataOutLen bytes of room and a NUL.
Public Declare PtrSafe Function CMS_ReadEnvData Lib "zulcore.dll" (ByVal szFileOut As String, _
    ByVal szFileIn As String, ByVal szX509File As String, ByVal szPrivateKey As String, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function CMS_ReadEnvDataPtr Lib "zulcore.dll" Alias "CMS_ReadEnvData" ( _
    ByVal szFileOut As LongPtr, ByVal szFileIn As LongPtr, ByVal szX509File As LongPtr, _
    ByVal szPrivateKey As LongPtr, ByVal nOptions As Long) As Long

' CMS_ReadEnvData decrypts an enveloped message (Triple DES, AES or RC2, CBC) into a file, CMS_ReadEnvDataToString into nDataOutLen bytes of room and a NUL.
Public Declare PtrSafe Function CMS_ReadEnvDataToString Lib "zulcore.dll" ( _
    ByVal szDataOut As String, ByVal nDataOutLen As Long, ByVal szFileIn As String, _
    ByVal szX509File As String, ByVal szPrivateKey As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function CMS_ReadEnvDataToStringPtr Lib "zulcore.dll" Alias "CMS_ReadEnvDataToString" ( _
    ByVal szDataOut As LongPtr, ByVal nDataOutLen As Long, ByVal szFileIn As LongPtr, _
    ByVal szX509File As LongPtr, ByVal szPrivateKey As LongPtr, ByVal nOptions As Long) As Long

' CMS_QueryEnvData answers a query about an enveloped message.
Public Declare PtrSafe Function CMS_QueryEnvData Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal nOutChars As Long, ByVal szFileIn As String, ByVal szQuery As String, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function CMS_QueryEnvDataPtr Lib "zulcore.dll" Alias "CMS_QueryEnvData" ( _
    ByVal szOutput As LongPtr, ByVal nOutChars As Long, ByVal szFileIn As LongPtr, _
    ByVal szQuery As LongPtr, ByVal nOptions As Long) As Long

' PFX_MakeFile writes a PFX file.
Public Declare PtrSafe Function PFX_MakeFile Lib "zulcore.dll" (ByVal szFileOut As String, _
    ByVal szCertFile As String, ByVal szKeyFile As String, ByVal szPassword As String, _
    ByVal szFriendlyName As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function PFX_MakeFilePtr Lib "zulcore.dll" Alias "PFX_MakeFile" ( _
    ByVal szFileOut As LongPtr, ByVal szCertFile As LongPtr, ByVal szKeyFile As LongPtr, _
    ByVal szPassword As LongPtr, ByVal szFriendlyName As LongPtr, ByVal nOptions As Long) As Long

' PFX_VerifySig checks the MAC of a PFX file (HMAC with SHA-1, SHA-256, SHA-384 or SHA-512) with a password.
Public Declare PtrSafe Function PFX_VerifySig Lib "zulcore.dll" (ByVal szPfxFile As String, _
    ByVal szPassword As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function PFX_VerifySigPtr Lib "zulcore.dll" Alias "PFX_VerifySig" ( _
    ByVal szPfxFile As LongPtr, ByVal szPassword As LongPtr, ByVal nOptions As Long) As Long

' OCSP_MakeRequest writes an unsigned request about one certificate as base64 in one line.
Public Declare PtrSafe Function OCSP_MakeRequest Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal nChars As Long, ByVal szIssuerCert As String, ByVal szCertFileOrSerialNum As String, _
    ByVal szExtensions As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function OCSP_MakeRequestPtr Lib "zulcore.dll" Alias "OCSP_MakeRequest" ( _
    ByVal szOutput As LongPtr, ByVal nChars As Long, ByVal szIssuerCert As LongPtr, _
    ByVal szCertFileOrSerialNum As LongPtr, ByVal szExtensions As LongPtr, _
    ByVal nOptions As Long) As Long

' OCSP_ReadResponse writes a report of a response, which is a file of DER, PEM or base64, or text.
Public Declare PtrSafe Function OCSP_ReadResponse Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal nChars As Long, ByVal szResponseFile As String, ByVal szIssuerCert As String, _
    ByVal szExtensions As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function OCSP_ReadResponsePtr Lib "zulcore.dll" Alias "OCSP_ReadResponse" ( _
    ByVal szOutput As LongPtr, ByVal nChars As Long, ByVal szResponseFile As LongPtr, _
    ByVal szIssuerCert As LongPtr, ByVal szExtensions As LongPtr, ByVal nOptions As Long) As Long

' HASH_Begin begins a digest.
Public Declare PtrSafe Function HASH_Begin Lib "zulcore.dll" (ByRef lpContext As Any, _
    ByVal nContextLen As Long, ByVal szAlgorithm As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function HASH_BeginPtr Lib "zulcore.dll" Alias "HASH_Begin" ( _
    ByVal lpContext As LongPtr, ByVal nContextLen As Long, ByVal szAlgorithm As LongPtr, _
    ByVal nOptions As Long) As Long

' HASH_Add absorbs nDataLen bytes.
Public Declare PtrSafe Function HASH_Add Lib "zulcore.dll" (ByRef lpContext As Any, _
    ByRef lpData As Any, ByVal nDataLen As Long) As Long
Public Declare PtrSafe Function HASH_AddPtr Lib "zulcore.dll" Alias "HASH_Add" ( _
    ByVal lpContext As LongPtr, ByVal lpData As LongPtr, ByVal nDataLen As Long) As Long

' HASH_End writes the digest, cut to nOutBytes, and wipes the context; of "shake128" and "shake256" it writes nOutBytes bytes.
Public Declare PtrSafe Function HASH_End Lib "zulcore.dll" (ByRef lpOutput As Byte, _
    ByVal nOutBytes As Long, ByRef lpContext As Any) As Long
Public Declare PtrSafe Function HASH_EndPtr Lib "zulcore.dll" Alias "HASH_End" ( _
    ByVal lpOutput As LongPtr, ByVal nOutBytes As Long, ByVal lpContext As LongPtr) As Long

' HMAC_Begin begins a MAC with a key of any length and a digest that has an HMAC (not "md2", "shake128" and "shake256"); the rest as HASH_Begin.
Public Declare PtrSafe Function HMAC_Begin Lib "zulcore.dll" (ByRef lpContext As Any, _
    ByVal nContextLen As Long, ByRef lpKey As Any, ByVal nKeyLen As Long, _
    ByVal szAlgorithm As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function HMAC_BeginPtr Lib "zulcore.dll" Alias "HMAC_Begin" ( _
    ByVal lpContext As LongPtr, ByVal nContextLen As Long, ByVal lpKey As LongPtr, _
    ByVal nKeyLen As Long, ByVal szAlgorithm As LongPtr, ByVal nOptions As Long) As Long

' HMAC_Add absorbs nDataLen bytes, as HASH_Add.
Public Declare PtrSafe Function HMAC_Add Lib "zulcore.dll" (ByRef lpContext As Any, _
    ByRef lpData As Any, ByVal nDataLen As Long) As Long
Public Declare PtrSafe Function HMAC_AddPtr Lib "zulcore.dll" Alias "HMAC_Add" ( _
    ByVal lpContext As LongPtr, ByVal lpData As LongPtr, ByVal nDataLen As Long) As Long

' HMAC_End writes the MAC, cut to nOutBytes, and wipes the context, as HASH_End.
Public Declare PtrSafe Function HMAC_End Lib "zulcore.dll" (ByRef lpOutput As Byte, _
    ByVal nOutBytes As Long, ByRef lpContext As Any) As Long
Public Declare PtrSafe Function HMAC_EndPtr Lib "zulcore.dll" Alias "HMAC_End" ( _
    ByVal lpOutput As LongPtr, ByVal nOutBytes As Long, ByVal lpContext As LongPtr) As Long

' CIPHER_Begin begins to encrypt (fEncrypt not 0) or decrypt.
Public Declare PtrSafe Function CIPHER_Begin Lib "zulcore.dll" (ByRef lpContext As Any, _
    ByVal nContextLen As Long, ByVal fEncrypt As Long, ByRef lpKey As Byte, ByVal nKeyLen As Long, _
    ByRef lpIV As Byte, ByVal nIVLen As Long, ByVal szAlgorithm As String, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function CIPHER_BeginPtr Lib "zulcore.dll" Alias "CIPHER_Begin" ( _
    ByVal lpContext As LongPtr, ByVal nContextLen As Long, ByVal fEncrypt As Long, _
    ByVal lpKey As LongPtr, ByVal nKeyLen As Long, ByVal lpIV As LongPtr, ByVal nIVLen As Long, _
    ByVal szAlgorithm As LongPtr, ByVal nOptions As Long) As Long

' CIPHER_Add takes the next piece and writes what is ready, which may be a block less or more than the piece.
Public Declare PtrSafe Function CIPHER_Add Lib "zulcore.dll" (ByRef lpOutput As Byte, _
    ByVal nOutBytes As Long, ByRef lpContext As Any, ByRef lpInput As Byte, _
    ByVal nInputLen As Long) As Long
Public Declare PtrSafe Function CIPHER_AddPtr Lib "zulcore.dll" Alias "CIPHER_Add" ( _
    ByVal lpOutput As LongPtr, ByVal nOutBytes As Long, ByVal lpContext As LongPtr, _
    ByVal lpInput As LongPtr, ByVal nInputLen As Long) As Long

' CIPHER_End writes the end, at most a block, and wipes the context.
Public Declare PtrSafe Function CIPHER_End Lib "zulcore.dll" (ByRef lpOutput As Byte, _
    ByVal nOutBytes As Long, ByRef lpContext As Any) As Long
Public Declare PtrSafe Function CIPHER_EndPtr Lib "zulcore.dll" Alias "CIPHER_End" ( _
    ByVal lpOutput As LongPtr, ByVal nOutBytes As Long, ByVal lpContext As LongPtr) As Long

' AEAD_Encrypt encrypts data and adds a tag of 16 bytes, which also covers lpAad, data that is not encrypted.
Public Declare PtrSafe Function AEAD_Encrypt Lib "zulcore.dll" (ByRef lpOutput As Byte, _
    ByVal nOutBytes As Long, ByRef lpInput As Byte, ByVal nInputLen As Long, ByRef lpKey As Byte, _
    ByVal nKeyLen As Long, ByRef lpNonce As Byte, ByVal nNonceLen As Long, ByRef lpAad As Byte, _
    ByVal nAadLen As Long, ByVal szAlgorithm As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function AEAD_EncryptPtr Lib "zulcore.dll" Alias "AEAD_Encrypt" ( _
    ByVal lpOutput As LongPtr, ByVal nOutBytes As Long, ByVal lpInput As LongPtr, _
    ByVal nInputLen As Long, ByVal lpKey As LongPtr, ByVal nKeyLen As Long, _
    ByVal lpNonce As LongPtr, ByVal nNonceLen As Long, ByVal lpAad As LongPtr, _
    ByVal nAadLen As Long, ByVal szAlgorithm As LongPtr, ByVal nOptions As Long) As Long

' AEAD_Decrypt undoes AEAD_Encrypt.
Public Declare PtrSafe Function AEAD_Decrypt Lib "zulcore.dll" (ByRef lpOutput As Byte, _
    ByVal nOutBytes As Long, ByRef lpInput As Byte, ByVal nInputLen As Long, ByRef lpKey As Byte, _
    ByVal nKeyLen As Long, ByRef lpNonce As Byte, ByVal nNonceLen As Long, ByRef lpAad As Byte, _
    ByVal nAadLen As Long, ByVal szAlgorithm As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function AEAD_DecryptPtr Lib "zulcore.dll" Alias "AEAD_Decrypt" ( _
    ByVal lpOutput As LongPtr, ByVal nOutBytes As Long, ByVal lpInput As LongPtr, _
    ByVal nInputLen As Long, ByVal lpKey As LongPtr, ByVal nKeyLen As Long, _
    ByVal lpNonce As LongPtr, ByVal nNonceLen As Long, ByVal lpAad As LongPtr, _
    ByVal nAadLen As Long, ByVal szAlgorithm As LongPtr, ByVal nOptions As Long) As Long

' KEY_Make makes a private key.
Public Declare PtrSafe Function KEY_Make Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal nOutChars As Long, ByVal szAlgorithm As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function KEY_MakePtr Lib "zulcore.dll" Alias "KEY_Make" ( _
    ByVal szOutput As LongPtr, ByVal nOutChars As Long, ByVal szAlgorithm As LongPtr, _
    ByVal nOptions As Long) As Long

' KEY_Read reads a key, private or public, as a key string.
Public Declare PtrSafe Function KEY_Read Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal nOutChars As Long, ByVal szFileOrText As String, ByVal szPassword As String, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function KEY_ReadPtr Lib "zulcore.dll" Alias "KEY_Read" ( _
    ByVal szOutput As LongPtr, ByVal nOutChars As Long, ByVal szFileOrText As LongPtr, _
    ByVal szPassword As LongPtr, ByVal nOptions As Long) As Long

' KEY_Save writes a key to a file, which is replaced in one step.
Public Declare PtrSafe Function KEY_Save Lib "zulcore.dll" (ByVal szFileOut As String, _
    ByVal szKey As String, ByVal szPassword As String, ByVal szParameters As String, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function KEY_SavePtr Lib "zulcore.dll" Alias "KEY_Save" ( _
    ByVal szFileOut As LongPtr, ByVal szKey As LongPtr, ByVal szPassword As LongPtr, _
    ByVal szParameters As LongPtr, ByVal nOptions As Long) As Long

' KEY_Public gives the public key of a private one.
Public Declare PtrSafe Function KEY_Public Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal nOutChars As Long, ByVal szPrivateKey As String) As Long
Public Declare PtrSafe Function KEY_PublicPtr Lib "zulcore.dll" Alias "KEY_Public" ( _
    ByVal szOutput As LongPtr, ByVal nOutChars As Long, ByVal szPrivateKey As LongPtr) As Long

' KEY_Query answers a query about a key.
Public Declare PtrSafe Function KEY_Query Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal nOutChars As Long, ByVal szKey As String, ByVal szQuery As String, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function KEY_QueryPtr Lib "zulcore.dll" Alias "KEY_Query" ( _
    ByVal szOutput As LongPtr, ByVal nOutChars As Long, ByVal szKey As LongPtr, _
    ByVal szQuery As LongPtr, ByVal nOptions As Long) As Long

' KEY_Match tells whether a private key belongs to a public one.
Public Declare PtrSafe Function KEY_Match Lib "zulcore.dll" (ByVal szPrivateKey As String, _
    ByVal szPublicKey As String) As Long
Public Declare PtrSafe Function KEY_MatchPtr Lib "zulcore.dll" Alias "KEY_Match" ( _
    ByVal szPrivateKey As LongPtr, ByVal szPublicKey As LongPtr) As Long

' KEY_Check tells whether a key's values are valid and belong together.
Public Declare PtrSafe Function KEY_Check Lib "zulcore.dll" (ByVal szKey As String, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function KEY_CheckPtr Lib "zulcore.dll" Alias "KEY_Check" ( _
    ByVal szKey As LongPtr, ByVal nOptions As Long) As Long

' KEY_Agree computes the secret that the owners of two key pairs share.
Public Declare PtrSafe Function KEY_Agree Lib "zulcore.dll" (ByRef lpOutput As Byte, _
    ByVal nOutBytes As Long, ByVal szPrivateKey As String, ByVal szPublicKey As String, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function KEY_AgreePtr Lib "zulcore.dll" Alias "KEY_Agree" ( _
    ByVal lpOutput As LongPtr, ByVal nOutBytes As Long, ByVal szPrivateKey As LongPtr, _
    ByVal szPublicKey As LongPtr, ByVal nOptions As Long) As Long

' SIG_Sign signs data.
Public Declare PtrSafe Function SIG_Sign Lib "zulcore.dll" (ByRef lpOutput As Byte, _
    ByVal nOutBytes As Long, ByRef lpData As Byte, ByVal nDataLen As Long, _
    ByVal szPrivateKey As String, ByVal szAlgorithm As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function SIG_SignPtr Lib "zulcore.dll" Alias "SIG_Sign" ( _
    ByVal lpOutput As LongPtr, ByVal nOutBytes As Long, ByVal lpData As LongPtr, _
    ByVal nDataLen As Long, ByVal szPrivateKey As LongPtr, ByVal szAlgorithm As LongPtr, _
    ByVal nOptions As Long) As Long

' SIG_Verify verifies a signature of data.
Public Declare PtrSafe Function SIG_Verify Lib "zulcore.dll" (ByRef lpSignature As Byte, _
    ByVal nSigLen As Long, ByRef lpData As Byte, ByVal nDataLen As Long, _
    ByVal szPublicKey As String, ByVal szAlgorithm As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function SIG_VerifyPtr Lib "zulcore.dll" Alias "SIG_Verify" ( _
    ByVal lpSignature As LongPtr, ByVal nSigLen As Long, ByVal lpData As LongPtr, _
    ByVal nDataLen As Long, ByVal szPublicKey As LongPtr, ByVal szAlgorithm As LongPtr, _
    ByVal nOptions As Long) As Long

' SIG_SignFile signs the content of a file of any size.
Public Declare PtrSafe Function SIG_SignFile Lib "zulcore.dll" (ByRef lpOutput As Byte, _
    ByVal nOutBytes As Long, ByVal szFileIn As String, ByVal szPrivateKey As String, _
    ByVal szAlgorithm As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function SIG_SignFilePtr Lib "zulcore.dll" Alias "SIG_SignFile" ( _
    ByVal lpOutput As LongPtr, ByVal nOutBytes As Long, ByVal szFileIn As LongPtr, _
    ByVal szPrivateKey As LongPtr, ByVal szAlgorithm As LongPtr, ByVal nOptions As Long) As Long

' SIG_VerifyFile verifies a signature of the content of a file of any size.
Public Declare PtrSafe Function SIG_VerifyFile Lib "zulcore.dll" (ByRef lpSignature As Byte, _
    ByVal nSigLen As Long, ByVal szFileIn As String, ByVal szPublicKey As String, _
    ByVal szAlgorithm As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function SIG_VerifyFilePtr Lib "zulcore.dll" Alias "SIG_VerifyFile" ( _
    ByVal lpSignature As LongPtr, ByVal nSigLen As Long, ByVal szFileIn As LongPtr, _
    ByVal szPublicKey As LongPtr, ByVal szAlgorithm As LongPtr, ByVal nOptions As Long) As Long

' SIG_SignDigest signs data whose digest is given.
Public Declare PtrSafe Function SIG_SignDigest Lib "zulcore.dll" (ByRef lpOutput As Byte, _
    ByVal nOutBytes As Long, ByRef lpDigest As Byte, ByVal nDigestLen As Long, _
    ByVal szPrivateKey As String, ByVal szAlgorithm As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function SIG_SignDigestPtr Lib "zulcore.dll" Alias "SIG_SignDigest" ( _
    ByVal lpOutput As LongPtr, ByVal nOutBytes As Long, ByVal lpDigest As LongPtr, _
    ByVal nDigestLen As Long, ByVal szPrivateKey As LongPtr, ByVal szAlgorithm As LongPtr, _
    ByVal nOptions As Long) As Long

' SIG_VerifyDigest verifies a signature of data whose digest is given.
Public Declare PtrSafe Function SIG_VerifyDigest Lib "zulcore.dll" (ByRef lpSignature As Byte, _
    ByVal nSigLen As Long, ByRef lpDigest As Byte, ByVal nDigestLen As Long, _
    ByVal szPublicKey As String, ByVal szAlgorithm As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function SIG_VerifyDigestPtr Lib "zulcore.dll" Alias "SIG_VerifyDigest" ( _
    ByVal lpSignature As LongPtr, ByVal nSigLen As Long, ByVal lpDigest As LongPtr, _
    ByVal nDigestLen As Long, ByVal szPublicKey As LongPtr, ByVal szAlgorithm As LongPtr, _
    ByVal nOptions As Long) As Long

' SEAL_MakeIdentity makes an identity.
Public Declare PtrSafe Function SEAL_MakeIdentity Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal nOutChars As Long, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function SEAL_MakeIdentityPtr Lib "zulcore.dll" Alias "SEAL_MakeIdentity" ( _
    ByVal szOutput As LongPtr, ByVal nOutChars As Long, ByVal nOptions As Long) As Long

' SEAL_Recipient gives the recipient of an identity.
Public Declare PtrSafe Function SEAL_Recipient Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal nOutChars As Long, ByVal szIdentity As String) As Long
Public Declare PtrSafe Function SEAL_RecipientPtr Lib "zulcore.dll" Alias "SEAL_Recipient" ( _
    ByVal szOutput As LongPtr, ByVal nOutChars As Long, ByVal szIdentity As LongPtr) As Long

' SEAL_File encrypts a file, either for recipients or under a password (scrypt with a work factor of 2^18).
Public Declare PtrSafe Function SEAL_File Lib "zulcore.dll" (ByVal szFileOut As String, _
    ByVal szFileIn As String, ByVal szRecipients As String, ByVal szPassword As String, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function SEAL_FilePtr Lib "zulcore.dll" Alias "SEAL_File" ( _
    ByVal szFileOut As LongPtr, ByVal szFileIn As LongPtr, ByVal szRecipients As LongPtr, _
    ByVal szPassword As LongPtr, ByVal nOptions As Long) As Long

' SEAL_OpenFile decrypts a file, in armour or not.
Public Declare PtrSafe Function SEAL_OpenFile Lib "zulcore.dll" (ByVal szFileOut As String, _
    ByVal szFileIn As String, ByVal szIdentities As String, ByVal szPassword As String, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function SEAL_OpenFilePtr Lib "zulcore.dll" Alias "SEAL_OpenFile" ( _
    ByVal szFileOut As LongPtr, ByVal szFileIn As LongPtr, ByVal szIdentities As LongPtr, _
    ByVal szPassword As LongPtr, ByVal nOptions As Long) As Long

' P12_Pack writes a PKCS #12 file, which is replaced in one step, of a private key and certificates.
Public Declare PtrSafe Function P12_Pack Lib "zulcore.dll" (ByVal szFileOut As String, _
    ByVal szCerts As String, ByVal szPrivateKey As String, ByVal szPassword As String, _
    ByVal szName As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function P12_PackPtr Lib "zulcore.dll" Alias "P12_Pack" ( _
    ByVal szFileOut As LongPtr, ByVal szCerts As LongPtr, ByVal szPrivateKey As LongPtr, _
    ByVal szPassword As LongPtr, ByVal szName As LongPtr, ByVal nOptions As Long) As Long

' P12_Unpack reads a PKCS #12 file.
Public Declare PtrSafe Function P12_Unpack Lib "zulcore.dll" (ByVal szCertsOut As String, _
    ByVal szKeyOutput As String, ByVal nKeyChars As Long, ByVal szP12 As String, _
    ByVal szPassword As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function P12_UnpackPtr Lib "zulcore.dll" Alias "P12_Unpack" ( _
    ByVal szCertsOut As LongPtr, ByVal szKeyOutput As LongPtr, ByVal nKeyChars As Long, _
    ByVal szP12 As LongPtr, ByVal szPassword As LongPtr, ByVal nOptions As Long) As Long

' P12_List describes a PKCS #12 file in UTF-8.
Public Declare PtrSafe Function P12_List Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal nOutChars As Long, ByVal szP12 As String, ByVal szPassword As String, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function P12_ListPtr Lib "zulcore.dll" Alias "P12_List" ( _
    ByVal szOutput As LongPtr, ByVal nOutChars As Long, ByVal szP12 As LongPtr, _
    ByVal szPassword As LongPtr, ByVal nOptions As Long) As Long

' CERT_SelfSign makes a certificate that its own key signs.
Public Declare PtrSafe Function CERT_SelfSign Lib "zulcore.dll" (ByVal szCertOut As String, _
    ByVal szPrivateKey As String, ByVal szDescription As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function CERT_SelfSignPtr Lib "zulcore.dll" Alias "CERT_SelfSign" ( _
    ByVal szCertOut As LongPtr, ByVal szPrivateKey As LongPtr, ByVal szDescription As LongPtr, _
    ByVal nOptions As Long) As Long

' CERT_Issue makes a certificate that an authority signs.
Public Declare PtrSafe Function CERT_Issue Lib "zulcore.dll" (ByVal szCertOut As String, _
    ByVal szIssuerCert As String, ByVal szIssuerKey As String, _
    ByVal szSubjectKeyOrRequest As String, ByVal szDescription As String, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function CERT_IssuePtr Lib "zulcore.dll" Alias "CERT_Issue" ( _
    ByVal szCertOut As LongPtr, ByVal szIssuerCert As LongPtr, ByVal szIssuerKey As LongPtr, _
    ByVal szSubjectKeyOrRequest As LongPtr, ByVal szDescription As LongPtr, _
    ByVal nOptions As Long) As Long

' CERT_Request makes a certificate request (PKCS #10).
Public Declare PtrSafe Function CERT_Request Lib "zulcore.dll" (ByVal szRequestOut As String, _
    ByVal szPrivateKey As String, ByVal szDescription As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function CERT_RequestPtr Lib "zulcore.dll" Alias "CERT_Request" ( _
    ByVal szRequestOut As LongPtr, ByVal szPrivateKey As LongPtr, ByVal szDescription As LongPtr, _
    ByVal nOptions As Long) As Long

' CERT_IssueCRL makes a CRL of version 2 (RFC 5280).
Public Declare PtrSafe Function CERT_IssueCRL Lib "zulcore.dll" (ByVal szCrlOut As String, _
    ByVal szIssuerCert As String, ByVal szIssuerKey As String, ByVal szEarlierCrl As String, _
    ByVal szRevoked As String, ByVal szDescription As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function CERT_IssueCRLPtr Lib "zulcore.dll" Alias "CERT_IssueCRL" ( _
    ByVal szCrlOut As LongPtr, ByVal szIssuerCert As LongPtr, ByVal szIssuerKey As LongPtr, _
    ByVal szEarlierCrl As LongPtr, ByVal szRevoked As LongPtr, ByVal szDescription As LongPtr, _
    ByVal nOptions As Long) As Long

' CERT_Query answers one query about a certificate, request, CRL or OCSP response, the first one in szCert.
Public Declare PtrSafe Function CERT_Query Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal nOutChars As Long, ByVal szCert As String, ByVal szQuery As String, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function CERT_QueryPtr Lib "zulcore.dll" Alias "CERT_Query" ( _
    ByVal szOutput As LongPtr, ByVal nOutChars As Long, ByVal szCert As LongPtr, _
    ByVal szQuery As LongPtr, ByVal nOptions As Long) As Long

' CERT_Report writes all that certificates, requests, CRLs and OCSP responses hold.
Public Declare PtrSafe Function CERT_Report Lib "zulcore.dll" (ByVal szOutput As String, _
    ByVal nOutChars As Long, ByVal szFileOrText As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function CERT_ReportPtr Lib "zulcore.dll" Alias "CERT_Report" ( _
    ByVal szOutput As LongPtr, ByVal nOutChars As Long, ByVal szFileOrText As LongPtr, _
    ByVal nOptions As Long) As Long

' CERT_CheckName tells whether a certificate, the first one in szCert, is for a host, an address or a mailbox (RFC 9525).
Public Declare PtrSafe Function CERT_CheckName Lib "zulcore.dll" (ByVal szCert As String, _
    ByVal szHostOrAddress As String, ByVal nOptions As Long) As Long
Public Declare PtrSafe Function CERT_CheckNamePtr Lib "zulcore.dll" Alias "CERT_CheckName" ( _
    ByVal szCert As LongPtr, ByVal szHostOrAddress As LongPtr, ByVal nOptions As Long) As Long

' CERT_CheckPath tells whether a certificate can be relied on.
Public Declare PtrSafe Function CERT_CheckPath Lib "zulcore.dll" (ByVal szReport As String, _
    ByVal nReportChars As Long, ByVal szCert As String, ByVal szOthers As String, _
    ByVal szTrusted As String, ByVal szEvidence As String, ByVal szConditions As String, _
    ByVal nOptions As Long) As Long
Public Declare PtrSafe Function CERT_CheckPathPtr Lib "zulcore.dll" Alias "CERT_CheckPath" ( _
    ByVal szReport As LongPtr, ByVal nReportChars As Long, ByVal szCert As LongPtr, _
    ByVal szOthers As LongPtr, ByVal szTrusted As LongPtr, ByVal szEvidence As LongPtr, _
    ByVal szConditions As LongPtr, ByVal nOptions As Long) As Long

' --- Helpers: lengths asked for, texts in UTF-8, errors raised ---------------------------------------------
' A call that the library refuses raises vbObjectError + the code; Err.Description has its name and text.
' Keys are byte arrays that mean nothing outside of this process. They and other secrets come through arguments, so that
' no copies stay behind: wipe them with zulWipe when done, which also empties Err. Names of files are in the code page of
' Windows; a name that it cannot write is refused, and so is a text with a zero character.

Private Declare PtrSafe Function LoadLibraryW Lib "kernel32" (ByVal lpFileName As LongPtr) As LongPtr

Private Const kErrorBase As Long = -2147221504 ' vbObjectError
Private Const kLongestKey As Long = 90000
Private Const kLongestReport As Long = 67108864
Private Const kLongestDetail As Long = 511
Private Const kPiece As Long = 65536
Private Const kTagAndNonce As Long = 28

Private noByte As Byte

' Loads zulcore.dll from a place where Windows does not look for it, before anything else is called: from fileName, else
' from the variable ZULCORE_LIBRARY. A workbook calls zulLoad ThisWorkbook.Path & "\zulcore.dll".
Public Sub zulLoad(Optional ByVal fileName As String = "")
    If Len(fileName) = 0 Then fileName = Environ$("ZULCORE_LIBRARY")
    If Len(fileName) = 0 Then Exit Sub
    If LoadLibraryW(StrPtr(fileName)) = 0 Then zulRefuse OPEN_ERROR, "cannot load " & fileName
End Sub

' --- Errors ---

' Raises for a negative result and gives any other one back: for functions that return a length.
Public Function zulCheck(ByVal result As Long) As Long
    If result < 0 Then zulFail -result
    zulCheck = result
End Function

' Raises for any result but 0: for functions that return a status.
Public Sub zulCheckStatus(ByVal result As Long)
    If result <> 0 Then zulFail Abs(result)
End Sub

Private Sub zulFail(ByVal code As Long)
    Dim room(0 To kLongestDetail) As Byte, detail As String
    detail = zulTextOf(room, ZUL_LastErrorPtr(VarPtr(room(0)), kLongestDetail))
    ' The name of a file in it is in the code page.
    If InStr(1, detail, zulUnit(&HFFFD&), vbBinaryCompare) > 0 Then detail = Split(StrConv(room, vbUnicode), ChrW$(0))(0)
    If Len(detail) > 0 Then detail = ": " & detail
    zulRefuse code, zulErrorText(code) & detail
End Sub

Private Sub zulRefuse(ByVal code As Long, ByVal detail As String)
    Err.Raise kErrorBase + code, "zulcore", zulErrorName(code) & " (" & CStr(code) & "): " & detail
End Sub

' The general text of an error code.
Public Function zulErrorText(ByVal code As Long) As String
    Dim room() As Byte, count As Long
    count = ZUL_ErrorLookupPtr(0, 0, code)
    ReDim room(0 To count)
    zulErrorText = zulTextOf(room, ZUL_ErrorLookupPtr(VarPtr(room(0)), count + 1, code))
End Function

' --- Bytes and texts ---

' The number of bytes in an array, which may be one that was never given a size.
Public Function zulLength(ByRef data() As Byte) As Long
    On Error Resume Next
    zulLength = UBound(data) - LBound(data) + 1
End Function

Private Function zulDataAt(ByRef data() As Byte) As LongPtr
    If zulLength(data) = 0 Then
        zulDataAt = VarPtr(noByte)
    Else
        zulDataAt = VarPtr(data(LBound(data)))
    End If
End Function

' 0 for an empty text.
Private Function zulTextAt(ByRef zeroEnded() As Byte) As LongPtr
    If zulLength(zeroEnded) > 1 Then zulTextAt = VarPtr(zeroEnded(0))
End Function

' The bytes of a text in UTF-8. An empty text gives an array without a size.
Public Function zulUtf8(ByVal source As String) As Byte()
    Dim bytes() As Byte, count As Long, i As Long
    bytes = zulZero(source)
    count = zulLength(bytes) - 1
    If count > 0 Then
        Dim result() As Byte
        ReDim result(0 To count - 1)
        For i = 0 To count - 1
            result(i) = bytes(i)
            bytes(i) = 0
        Next
        zulUtf8 = result
    End If
End Function

' A text in UTF-8 with a zero byte behind it.
Private Function zulZero(ByVal source As String) As Byte()
    Dim wide() As Byte, bytes() As Byte, used As Long, i As Long, code As Long, low As Long
    ReDim wide(0 To Len(source) * 3)
    i = 1
    Do While i <= Len(source)
        code = AscW(Mid$(source, i, 1)) And &HFFFF&
        If code = 0 Then zulRefuse BAD_PARAM_ERROR, "a text with a zero character"
        If code >= &HD800& And code <= &HDFFF& Then
            low = 0
            If i < Len(source) Then low = AscW(Mid$(source, i + 1, 1)) And &HFFFF&
            If code >= &HDC00& Or low < &HDC00& Or low > &HDFFF& Then
                zulRefuse INVALID_DATA_ERROR, "a text with half of a character"
            End If
            code = &H10000 + (code - &HD800&) * &H400& + (low - &HDC00&)
            i = i + 1
        End If
        If code < &H80& Then
            wide(used) = code
            used = used + 1
        ElseIf code < &H800& Then
            wide(used) = &HC0& Or (code \ &H40&)
            wide(used + 1) = &H80& Or (code And &H3F&)
            used = used + 2
        ElseIf code < &H10000 Then
            wide(used) = &HE0& Or (code \ &H1000&)
            wide(used + 1) = &H80& Or ((code \ &H40&) And &H3F&)
            wide(used + 2) = &H80& Or (code And &H3F&)
            used = used + 3
        Else
            wide(used) = &HF0& Or (code \ &H40000)
            wide(used + 1) = &H80& Or ((code \ &H1000&) And &H3F&)
            wide(used + 2) = &H80& Or ((code \ &H40&) And &H3F&)
            wide(used + 3) = &H80& Or (code And &H3F&)
            used = used + 4
        End If
        i = i + 1
    Loop
    ReDim bytes(0 To used)
    For i = 0 To used - 1
        bytes(i) = wide(i)
        wide(i) = 0
    Next
    zulZero = bytes
End Function

' A name in the code page of Windows with a zero byte behind it.
Private Function zulZeroName(ByVal fileName As String) As Byte()
    Dim bytes() As Byte
    If InStr(1, fileName, ChrW$(0), vbBinaryCompare) > 0 Then zulRefuse BAD_PARAM_ERROR, "a name with a zero character"
    bytes = StrConv(fileName & ChrW$(0), vbFromUnicode)
    If StrConv(bytes, vbUnicode) <> fileName & ChrW$(0) Then
        zulRefuse BAD_PARAM_ERROR, "a name that the code page of Windows cannot write"
    End If
    zulZeroName = bytes
End Function

' The text that count bytes of UTF-8 are. What is not UTF-8 becomes U+FFFD.
Public Function zulTextOf(ByRef bytes() As Byte, ByVal count As Long) As String
    Dim result As String, used As Long, i As Long, more As Long, k As Long, code As Long, good As Boolean
    result = Space$(count)
    i = LBound(bytes)
    count = count + i
    Do While i < count
        code = bytes(i)
        more = 0
        If code >= &HF0& And code < &HF5& Then
            more = 3
            code = code And &H7&
        ElseIf code >= &HE0& And code < &HF0& Then
            more = 2
            code = code And &HF&
        ElseIf code >= &HC2& And code < &HE0& Then
            more = 1
            code = code And &H1F&
        End If
        good = (more > 0 Or code < &H80&) And i + more < count
        If good Then
            For k = 1 To more
                If (bytes(i + k) And &HC0&) <> &H80& Then good = False
                code = (code * &H40&) Or (bytes(i + k) And &H3F&)
            Next
            If more = 2 And code < &H800& Then good = False
            If more = 3 And (code < &H10000 Or code > &H10FFFF) Then good = False
            If code >= &HD800& And code <= &HDFFF& Then good = False
        End If
        If Not good Then
            code = &HFFFD&
            more = 0
        End If
        If code >= &H10000 Then
            Mid$(result, used + 1, 1) = zulUnit(&HD800& + (code - &H10000) \ &H400&)
            Mid$(result, used + 2, 1) = zulUnit(&HDC00& + ((code - &H10000) And &H3FF&))
            used = used + 2
        Else
            Mid$(result, used + 1, 1) = zulUnit(code)
            used = used + 1
        End If
        i = i + more + 1
    Loop
    zulTextOf = Left$(result, used)
End Function

' ChrW takes what an Integer holds.
Private Function zulUnit(ByVal code As Long) As String
    If code > &H7FFF& Then code = code - &H10000
    zulUnit = ChrW$(code)
End Function

Public Function zulHex(ByRef data() As Byte) As String
    Dim result As String, i As Long, used As Long
    result = Space$(zulLength(data) * 2)
    For i = 1 To zulLength(data)
        Mid$(result, used + 1, 2) = LCase$(Right$("0" & Hex$(data(LBound(data) + i - 1)), 2))
        used = used + 2
    Next
    zulHex = result
End Function

Public Function zulUnhex(ByVal digits As String) As Byte()
    Dim result() As Byte, i As Long, high As Long, low As Long
    If Len(digits) = 0 Then Exit Function
    If Len(digits) Mod 2 <> 0 Then zulRefuse INVALID_DATA_ERROR, "an odd number of hex digits"
    ReDim result(0 To Len(digits) \ 2 - 1)
    For i = 0 To UBound(result)
        high = InStr(1, "0123456789abcdef", LCase$(Mid$(digits, 2 * i + 1, 1)), vbBinaryCompare) - 1
        low = InStr(1, "0123456789abcdef", LCase$(Mid$(digits, 2 * i + 2, 1)), vbBinaryCompare) - 1
        If high < 0 Or low < 0 Then zulRefuse INVALID_DATA_ERROR, "not a hex digit"
        result(i) = high * 16 + low
    Next
    zulUnhex = result
End Function

Public Function zulBase64(ByRef data() As Byte) As String
    Dim room() As Byte, count As Long
    count = zulCheck(CNV_B64StrFromBytesPtr(0, 0, zulDataAt(data), zulLength(data)))
    ReDim room(0 To count)
    count = zulCheck(CNV_B64StrFromBytesPtr(VarPtr(room(0)), count, zulDataAt(data), zulLength(data)))
    zulBase64 = zulTextOf(room, count)
End Function

Public Function zulUnbase64(ByVal source As String) As Byte()
    Dim bytes() As Byte, result() As Byte, count As Long
    bytes = zulZero(source)
    count = zulCheck(CNV_BytesFromB64StrPtr(0, 0, VarPtr(bytes(0))))
    If count = 0 Then Exit Function
    ReDim result(0 To count - 1)
    zulCheck CNV_BytesFromB64StrPtr(VarPtr(result(0)), count, VarPtr(bytes(0)))
    zulUnbase64 = result
End Function

' --- Wiping and random numbers ---

' Zeroes an array and takes its size away. A call of the library would empty what it has to say about the call before.
Public Sub zulWipe(ByRef data() As Byte)
    Dim i As Long
    If zulLength(data) > 0 Then
        For i = LBound(data) To UBound(data)
            data(i) = 0
        Next
    End If
    Erase data
End Sub

Public Sub zulWipeFile(ByVal fileName As String)
    Dim bytes() As Byte
    bytes = zulZeroName(fileName)
    zulCheckStatus WIPE_FilePtr(VarPtr(bytes(0)), 0)
End Sub

Public Sub zulRandomBytes(ByRef data() As Byte, ByVal count As Long)
    Dim done As Long, piece As Long
    If count < 1 Then zulRefuse OUT_OF_RANGE_ERROR, "a count below 1"
    ReDim data(0 To count - 1)
    Do While done < count
        piece = count - done
        If piece > kPiece Then piece = kPiece
        zulCheckStatus RNG_BytesPtr(VarPtr(data(done)), piece, 0, 0)
        done = done + piece
    Loop
End Sub

' A uniform number from lower to upper, both included.
Public Function zulRandomNumber(ByVal lower As Long, ByVal upper As Long) As Long
    If lower > upper Or CDbl(upper) - CDbl(lower) >= 4294967295# Then
        zulRefuse OUT_OF_RANGE_ERROR, "no such range of numbers"
    End If
    zulRandomNumber = RNG_Number(lower, upper)
End Function

' --- Digests and MACs ---

' context is for zulHashAdd and zulHashEnd, which ends it.
Public Sub zulHashBegin(ByRef context() As Byte, Optional ByVal algorithm As String = "sha256")
    Dim alg() As Byte
    alg = zulZero(algorithm)
    ReDim context(0 To zulCheck(HASH_BeginPtr(0, 0, VarPtr(alg(0)), 0)) - 1)
    zulCheck HASH_BeginPtr(VarPtr(context(0)), UBound(context) + 1, VarPtr(alg(0)), 0)
End Sub

Public Sub zulHashAdd(ByRef context() As Byte, ByRef data() As Byte)
    zulCheckStatus HASH_AddPtr(VarPtr(context(0)), zulDataAt(data), zulLength(data))
End Sub

Public Function zulHashEnd(ByRef context() As Byte) As Byte()
    Dim result() As Byte
    ReDim result(0 To zulCheck(HASH_EndPtr(0, 0, VarPtr(context(0)))) - 1)
    zulCheck HASH_EndPtr(VarPtr(result(0)), UBound(result) + 1, VarPtr(context(0)))
    zulHashEnd = result
End Function

Public Function zulHash(ByRef data() As Byte, Optional ByVal algorithm As String = "sha256") As Byte()
    Dim context() As Byte
    zulHashBegin context, algorithm
    zulHashAdd context, data
    zulHash = zulHashEnd(context)
End Function

Public Function zulHashHex(ByRef data() As Byte, Optional ByVal algorithm As String = "sha256") As String
    Dim digest() As Byte
    digest = zulHash(data, algorithm)
    zulHashHex = zulHex(digest)
End Function

' The digest of a text in UTF-8.
Public Function zulHashTextHex(ByVal source As String, Optional ByVal algorithm As String = "sha256") As String
    Dim bytes() As Byte
    bytes = zulUtf8(source)
    zulHashTextHex = zulHashHex(bytes, algorithm)
End Function

' Of a file: sha1, sha224, sha256, sha384, sha512, md5 or md2.
Public Function zulHashFileHex(ByVal fileName As String, Optional ByVal algorithm As String = "sha256") As String
    Dim bytes() As Byte, room() As Byte, count As Long, number As Long
    Select Case LCase$(algorithm)
        Case "sha1": number = ZUL_HASH_SHA1
        Case "sha224": number = ZUL_HASH_SHA224
        Case "sha256": number = ZUL_HASH_SHA256
        Case "sha384": number = ZUL_HASH_SHA384
        Case "sha512": number = ZUL_HASH_SHA512
        Case "md5": number = ZUL_HASH_MD5
        Case "md2": number = ZUL_HASH_MD2
        Case Else: zulRefuse NOT_SUPPORTED_ERROR, "no such digest of files: " & algorithm
    End Select
    bytes = zulZeroName(fileName)
    count = zulCheck(HASH_HexFromFilePtr(0, 0, VarPtr(bytes(0)), number))
    ReDim room(0 To count)
    count = zulCheck(HASH_HexFromFilePtr(VarPtr(room(0)), count, VarPtr(bytes(0)), number))
    zulHashFileHex = zulTextOf(room, count)
End Function

Public Function zulHmac(ByRef key() As Byte, ByRef data() As Byte, Optional ByVal algorithm As String = "sha256") As Byte()
    Dim alg() As Byte, context() As Byte, result() As Byte
    alg = zulZero(algorithm)
    ReDim context(0 To zulCheck(HMAC_BeginPtr(0, 0, zulDataAt(key), zulLength(key), VarPtr(alg(0)), 0)) - 1)
    zulCheck HMAC_BeginPtr(VarPtr(context(0)), UBound(context) + 1, zulDataAt(key), zulLength(key), VarPtr(alg(0)), 0)
    zulCheckStatus HMAC_AddPtr(VarPtr(context(0)), zulDataAt(data), zulLength(data))
    ReDim result(0 To zulCheck(HMAC_EndPtr(0, 0, VarPtr(context(0)))) - 1)
    zulCheck HMAC_EndPtr(VarPtr(result(0)), UBound(result) + 1, VarPtr(context(0)))
    zulHmac = result
End Function

' --- Encryption with a key, keys from passwords ---

' A random nonce stands before the result, from where zulDecrypt takes it.
Public Function zulEncrypt(ByRef key() As Byte, ByRef data() As Byte, ByRef aad() As Byte, _
    Optional ByVal algorithm As String = "aes-256-gcm") As Byte()
    Dim alg() As Byte, result() As Byte
    alg = zulZero(algorithm)
    ReDim result(0 To zulLength(data) + kTagAndNonce - 1)
    zulCheck AEAD_EncryptPtr(VarPtr(result(0)), UBound(result) + 1, zulDataAt(data), zulLength(data), zulDataAt(key), _
        zulLength(key), 0, 0, zulDataAt(aad), zulLength(aad), VarPtr(alg(0)), ZUL_AEAD_RANDOM_NONCE)
    zulEncrypt = result
End Function

' plain has no size if the message is empty.
Public Sub zulDecrypt(ByRef plain() As Byte, ByRef key() As Byte, ByRef data() As Byte, ByRef aad() As Byte, _
    Optional ByVal algorithm As String = "aes-256-gcm")
    Dim alg() As Byte, count As Long
    alg = zulZero(algorithm)
    count = zulLength(data) - kTagAndNonce
    Erase plain
    If count > 0 Then ReDim plain(0 To count - 1)
    zulCheck AEAD_DecryptPtr(zulDataAt(plain), zulLength(plain), zulDataAt(data), zulLength(data), zulDataAt(key), _
        zulLength(key), 0, 0, zulDataAt(aad), zulLength(aad), VarPtr(alg(0)), ZUL_AEAD_RANDOM_NONCE)
End Sub

Public Sub zulPbkdf2(ByRef key() As Byte, ByVal size As Long, ByVal password As String, ByRef salt() As Byte, _
    Optional ByVal iterations As Long = 600000, Optional ByVal hash As String = "sha256")
    Dim secret() As Byte, digest() As Byte, result As Long
    If size < 1 Then zulRefuse OUT_OF_RANGE_ERROR, "a size below 1"
    digest = zulZero(hash)
    secret = zulZero(password)
    ReDim key(0 To size - 1)
    result = KDF_Pbkdf2Ptr(VarPtr(key(0)), size, VarPtr(secret(0)), UBound(secret), zulDataAt(salt), zulLength(salt), _
        iterations, VarPtr(digest(0)))
    zulWipe secret
    zulCheck result
End Sub

Public Sub zulArgon2id(ByRef key() As Byte, ByVal size As Long, ByVal password As String, ByRef salt() As Byte, _
    Optional ByVal memoryKiB As Long = 65536, Optional ByVal passes As Long = 3, Optional ByVal lanes As Long = 4)
    Dim secret() As Byte, result As Long
    If size < 1 Then zulRefuse OUT_OF_RANGE_ERROR, "a size below 1"
    secret = zulZero(password)
    ReDim key(0 To size - 1)
    result = KDF_Argon2idPtr(VarPtr(key(0)), size, VarPtr(secret(0)), UBound(secret), zulDataAt(salt), zulLength(salt), _
        memoryKiB, passes, lanes)
    zulWipe secret
    zulCheck result
End Sub

' --- Keys ---

' A key string of the library is text: without the zero byte at its end the library would read beyond the array.
Private Function zulKeyAt(ByRef key() As Byte) As LongPtr
    If zulLength(key) < 2 Then zulRefuse INVALID_DATA_ERROR, "not a key, or one that was wiped"
    If key(UBound(key)) <> 0 Then zulRefuse INVALID_DATA_ERROR, "not a key"
    zulKeyAt = VarPtr(key(LBound(key)))
End Function

Private Sub zulKeepKey(ByRef key() As Byte, ByRef room() As Byte, ByVal count As Long)
    Dim i As Long
    zulWipe key
    If count >= 0 Then
        ReDim key(0 To count)
        For i = 0 To count - 1
            key(i) = room(i)
        Next
    End If
End Sub

' "rsa" (3072 bits), "rsa-4096", "p-256", "p-384", "p-521", "ed25519" or "x25519".
Public Sub zulKeyMake(ByRef key() As Byte, ByVal kind As String)
    Dim word() As Byte, room() As Byte, count As Long
    word = zulZero(kind)
    ReDim room(0 To kLongestKey)
    count = KEY_MakePtr(VarPtr(room(0)), kLongestKey, VarPtr(word(0)), 0)
    zulKeepKey key, room, count
    zulWipe room
    zulCheck count
End Sub

' From a file or text of a key, certificate or request.
Public Sub zulKeyRead(ByRef key() As Byte, ByVal fileOrText As String, Optional ByVal password As String = "")
    Dim source() As Byte, secret() As Byte, room() As Byte, count As Long
    source = zulZeroName(fileOrText)
    secret = zulZero(password)
    ReDim room(0 To kLongestKey)
    count = KEY_ReadPtr(VarPtr(room(0)), kLongestKey, VarPtr(source(0)), VarPtr(secret(0)), 0)
    zulKeepKey key, room, count
    zulWipe secret
    zulWipe room
    zulCheck count
End Sub

Public Sub zulKeyPublic(ByRef publicKey() As Byte, ByRef key() As Byte)
    Dim room() As Byte, count As Long
    ReDim room(0 To kLongestKey)
    count = KEY_PublicPtr(VarPtr(room(0)), kLongestKey, zulKeyAt(key))
    zulKeepKey publicKey, room, count
    zulWipe room
    zulCheck count
End Sub

' Writes PEM: a public key as it is, a private key encrypted under a password.
Public Sub zulKeySave(ByRef key() As Byte, ByVal fileName As String, Optional ByVal password As String = "", _
    Optional ByVal parameters As String = "")
    Dim bytes() As Byte, secret() As Byte, more() As Byte, asPrivate As Boolean, status As Long
    asPrivate = zulKeyIsPrivate(key)
    bytes = zulZeroName(fileName)
    more = zulZero(parameters)
    secret = zulZero(password)
    If asPrivate Then
        ' The library refuses the empty password, so that no private key is written unencrypted by mistake.
        status = KEY_SavePtr(VarPtr(bytes(0)), zulKeyAt(key), VarPtr(secret(0)), zulTextAt(more), ZUL_KEY_FORMAT_PEM)
    Else
        status = KEY_SavePtr(VarPtr(bytes(0)), zulKeyAt(key), zulTextAt(secret), zulTextAt(more), ZUL_KEY_FORMAT_PEM)
    End If
    zulWipe secret
    zulCheckStatus status
End Sub

Public Sub zulKeySaveUnencrypted(ByRef key() As Byte, ByVal fileName As String, _
    Optional ByVal options As Long = ZUL_KEY_FORMAT_PEM)
    Dim bytes() As Byte
    bytes = zulZeroName(fileName)
    zulCheckStatus KEY_SavePtr(VarPtr(bytes(0)), zulKeyAt(key), 0, 0, options)
End Sub

' "algorithm", "curve", "bits", "isPrivate", "fingerprint" and others.
Public Function zulKeyQuery(ByRef key() As Byte, ByVal item As String) As String
    Dim word() As Byte, room() As Byte, count As Long, kind As Long
    word = zulZero(item)
    kind = zulCheck(KEY_QueryPtr(0, 0, zulKeyAt(key), VarPtr(word(0)), ZUL_QUERY_GETTYPE))
    count = zulCheck(KEY_QueryPtr(0, 0, zulKeyAt(key), VarPtr(word(0)), 0))
    If kind = 1 Then
        zulKeyQuery = CStr(count)
    Else
        ReDim room(0 To count)
        count = zulCheck(KEY_QueryPtr(VarPtr(room(0)), count, zulKeyAt(key), VarPtr(word(0)), 0))
        zulKeyQuery = zulTextOf(room, count)
    End If
End Function

Public Function zulKeyIsPrivate(ByRef key() As Byte) As Boolean
    zulKeyIsPrivate = (zulKeyQuery(key, "isPrivate") = "1")
End Function

Public Function zulKeyMatches(ByRef privateKey() As Byte, ByRef publicKey() As Byte) As Boolean
    Dim status As Long
    status = KEY_MatchPtr(zulKeyAt(privateKey), zulKeyAt(publicKey))
    zulKeyMatches = (status = 0)
    If status <> NO_MATCH_ERROR Then zulCheckStatus status
End Function

' Raises unless the key's values are valid and belong together.
Public Sub zulKeyCheck(ByRef key() As Byte)
    zulCheckStatus KEY_CheckPtr(zulKeyAt(key), 0)
End Sub

' The secret shared with the owner of another key: derive a key from it with KDF_HkdfPtr.
Public Sub zulKeyAgree(ByRef secret() As Byte, ByRef privateKey() As Byte, ByRef publicKey() As Byte)
    Dim count As Long
    count = zulCheck(KEY_AgreePtr(0, 0, zulKeyAt(privateKey), zulKeyAt(publicKey), 0))
    ReDim secret(0 To count - 1)
    zulCheck KEY_AgreePtr(VarPtr(secret(0)), count, zulKeyAt(privateKey), zulKeyAt(publicKey), 0)
End Sub

' --- Signatures ---

Public Function zulSign(ByRef key() As Byte, ByRef data() As Byte, Optional ByVal algorithm As String = "", _
    Optional ByVal options As Long = 0) As Byte()
    Dim alg() As Byte, room() As Byte, count As Long
    alg = zulZero(algorithm)
    count = zulCheck(SIG_SignPtr(0, 0, zulDataAt(data), zulLength(data), zulKeyAt(key), VarPtr(alg(0)), options))
    ReDim room(0 To count - 1)
    count = zulCheck(SIG_SignPtr(VarPtr(room(0)), count, zulDataAt(data), zulLength(data), zulKeyAt(key), _
        VarPtr(alg(0)), options))
    ReDim Preserve room(0 To count - 1)
    zulSign = room
End Function

Public Function zulSignFile(ByRef key() As Byte, ByVal fileName As String, Optional ByVal algorithm As String = "", _
    Optional ByVal options As Long = 0) As Byte()
    Dim alg() As Byte, bytes() As Byte, room() As Byte, count As Long
    alg = zulZero(algorithm)
    bytes = zulZeroName(fileName)
    count = zulCheck(SIG_SignFilePtr(0, 0, VarPtr(bytes(0)), zulKeyAt(key), VarPtr(alg(0)), options))
    ReDim room(0 To count - 1)
    count = zulCheck(SIG_SignFilePtr(VarPtr(room(0)), count, VarPtr(bytes(0)), zulKeyAt(key), VarPtr(alg(0)), options))
    ReDim Preserve room(0 To count - 1)
    zulSignFile = room
End Function

' Raises unless the signature verifies.
Public Sub zulVerify(ByRef key() As Byte, ByRef signature() As Byte, ByRef data() As Byte, _
    Optional ByVal algorithm As String = "", Optional ByVal options As Long = 0)
    Dim alg() As Byte
    alg = zulZero(algorithm)
    zulCheckStatus SIG_VerifyPtr(zulDataAt(signature), zulLength(signature), zulDataAt(data), zulLength(data), _
        zulKeyAt(key), VarPtr(alg(0)), options)
End Sub

' Raises unless the signature verifies.
Public Sub zulVerifyFile(ByRef key() As Byte, ByRef signature() As Byte, ByVal fileName As String, _
    Optional ByVal algorithm As String = "", Optional ByVal options As Long = 0)
    Dim alg() As Byte, bytes() As Byte
    alg = zulZero(algorithm)
    bytes = zulZeroName(fileName)
    zulCheckStatus SIG_VerifyFilePtr(zulDataAt(signature), zulLength(signature), VarPtr(bytes(0)), zulKeyAt(key), _
        VarPtr(alg(0)), options)
End Sub

' --- Sealed files ---

' Lists are joined by ";": keys "age1..." and "AGE-SECRET-KEY-1..." or names of files of them. identity is a byte array
' that zulOpenFileWithIdentity takes, to be wiped.
Public Sub zulMakeIdentity(ByRef identity() As Byte)
    Dim count As Long
    count = zulCheck(SEAL_MakeIdentityPtr(0, 0, 0))
    ReDim identity(0 To count)
    zulCheck SEAL_MakeIdentityPtr(VarPtr(identity(0)), count, 0)
End Sub

Public Function zulRecipient(ByRef identity() As Byte) As String
    Dim room() As Byte, count As Long
    count = zulCheck(SEAL_RecipientPtr(0, 0, zulKeyAt(identity)))
    ReDim room(0 To count)
    count = zulCheck(SEAL_RecipientPtr(VarPtr(room(0)), count, zulKeyAt(identity)))
    zulRecipient = zulTextOf(room, count)
End Function

Public Sub zulSealFile(ByVal fileOut As String, ByVal fileIn As String, ByVal recipients As String, _
    Optional ByVal options As Long = 0)
    Dim target() As Byte, source() As Byte, list() As Byte
    target = zulZeroName(fileOut)
    source = zulZeroName(fileIn)
    list = zulZeroName(recipients)
    zulCheckStatus SEAL_FilePtr(VarPtr(target(0)), VarPtr(source(0)), VarPtr(list(0)), 0, options)
End Sub

Public Sub zulSealFileWithPassword(ByVal fileOut As String, ByVal fileIn As String, ByVal password As String, _
    Optional ByVal options As Long = 0)
    Dim target() As Byte, source() As Byte, secret() As Byte, status As Long
    target = zulZeroName(fileOut)
    source = zulZeroName(fileIn)
    secret = zulZero(password)
    status = SEAL_FilePtr(VarPtr(target(0)), VarPtr(source(0)), 0, VarPtr(secret(0)), options)
    zulWipe secret
    zulCheckStatus status
End Sub

Public Sub zulOpenFile(ByVal fileOut As String, ByVal fileIn As String, ByVal identityFiles As String, _
    Optional ByVal options As Long = 0)
    Dim target() As Byte, source() As Byte, list() As Byte, status As Long
    target = zulZeroName(fileOut)
    source = zulZeroName(fileIn)
    list = zulZeroName(identityFiles)
    status = SEAL_OpenFilePtr(VarPtr(target(0)), VarPtr(source(0)), VarPtr(list(0)), 0, options)
    zulWipe list
    zulCheckStatus status
End Sub

Public Sub zulOpenFileWithIdentity(ByVal fileOut As String, ByVal fileIn As String, ByRef identity() As Byte, _
    Optional ByVal options As Long = 0)
    Dim target() As Byte, source() As Byte
    target = zulZeroName(fileOut)
    source = zulZeroName(fileIn)
    zulCheckStatus SEAL_OpenFilePtr(VarPtr(target(0)), VarPtr(source(0)), zulKeyAt(identity), 0, options)
End Sub

Public Sub zulOpenFileWithPassword(ByVal fileOut As String, ByVal fileIn As String, ByVal password As String, _
    Optional ByVal options As Long = 0)
    Dim target() As Byte, source() As Byte, secret() As Byte, status As Long
    target = zulZeroName(fileOut)
    source = zulZeroName(fileIn)
    secret = zulZero(password)
    status = SEAL_OpenFilePtr(VarPtr(target(0)), VarPtr(source(0)), 0, VarPtr(secret(0)), options)
    zulWipe secret
    zulCheckStatus status
End Sub

' --- Certificates ---

' Certificates, requests and CRLs are described by keyword=value pairs, "CN=Alice;profile=client".
Public Sub zulSelfSign(ByVal certOut As String, ByRef key() As Byte, ByVal description As String, _
    Optional ByVal options As Long = 0)
    Dim target() As Byte, words() As Byte
    target = zulZeroName(certOut)
    words = zulZero(description)
    zulCheckStatus CERT_SelfSignPtr(VarPtr(target(0)), zulKeyAt(key), VarPtr(words(0)), options)
End Sub

Public Sub zulRequest(ByVal requestOut As String, ByRef key() As Byte, ByVal description As String, _
    Optional ByVal options As Long = 0)
    Dim target() As Byte, words() As Byte
    target = zulZeroName(requestOut)
    words = zulZero(description)
    zulCheckStatus CERT_RequestPtr(VarPtr(target(0)), zulKeyAt(key), VarPtr(words(0)), options)
End Sub

' For the subject of a request.
Public Sub zulIssue(ByVal certOut As String, ByVal issuerCert As String, ByRef issuerKey() As Byte, _
    ByVal request As String, Optional ByVal description As String = "", Optional ByVal options As Long = 0)
    Dim target() As Byte, issuer() As Byte, asked() As Byte, words() As Byte
    target = zulZeroName(certOut)
    issuer = zulZeroName(issuerCert)
    asked = zulZeroName(request)
    words = zulZero(description)
    zulCheckStatus CERT_IssuePtr(VarPtr(target(0)), VarPtr(issuer(0)), zulKeyAt(issuerKey), VarPtr(asked(0)), _
        zulTextAt(words), options)
End Sub

' For the owner of a key.
Public Sub zulIssueForKey(ByVal certOut As String, ByVal issuerCert As String, ByRef issuerKey() As Byte, _
    ByRef subjectKey() As Byte, ByVal description As String, Optional ByVal options As Long = 0)
    Dim target() As Byte, issuer() As Byte, words() As Byte
    target = zulZeroName(certOut)
    issuer = zulZeroName(issuerCert)
    words = zulZero(description)
    zulCheckStatus CERT_IssuePtr(VarPtr(target(0)), VarPtr(issuer(0)), zulKeyAt(issuerKey), zulKeyAt(subjectKey), _
        VarPtr(words(0)), options)
End Sub

' A list goes on from earlierCrl.
Public Sub zulIssueCrl(ByVal crlOut As String, ByVal issuerCert As String, ByRef issuerKey() As Byte, _
    ByVal revoked As String, Optional ByVal description As String = "", Optional ByVal earlierCrl As String = "", _
    Optional ByVal options As Long = 0)
    Dim target() As Byte, issuer() As Byte, earlier() As Byte, entries() As Byte, words() As Byte
    target = zulZeroName(crlOut)
    issuer = zulZeroName(issuerCert)
    earlier = zulZeroName(earlierCrl)
    entries = zulZero(revoked)
    words = zulZero(description)
    zulCheckStatus CERT_IssueCRLPtr(VarPtr(target(0)), VarPtr(issuer(0)), zulKeyAt(issuerKey), zulTextAt(earlier), _
        zulTextAt(entries), zulTextAt(words), options)
End Sub

Public Function zulCertQuery(ByVal cert As String, ByVal item As String) As String
    Dim source() As Byte, word() As Byte, room() As Byte, count As Long
    source = zulZeroName(cert)
    word = zulZero(item)
    count = zulCheck(CERT_QueryPtr(0, 0, VarPtr(source(0)), VarPtr(word(0)), 0))
    ReDim room(0 To count)
    count = zulCheck(CERT_QueryPtr(VarPtr(room(0)), count, VarPtr(source(0)), VarPtr(word(0)), 0))
    zulCertQuery = zulTextOf(room, count)
End Function

' A text for reading, or JSON with ZUL_CERT_JSON.
Public Function zulCertReport(ByVal fileOrText As String, Optional ByVal options As Long = 0) As String
    Dim source() As Byte, room() As Byte, count As Long
    source = zulZeroName(fileOrText)
    count = zulCheck(CERT_ReportPtr(0, 0, VarPtr(source(0)), options))
    ReDim room(0 To count)
    count = zulCheck(CERT_ReportPtr(VarPtr(room(0)), count, VarPtr(source(0)), options))
    zulCertReport = zulTextOf(room, count)
End Function

' Raises unless the certificate is for a host, address or mailbox.
Public Sub zulCheckName(ByVal cert As String, ByVal hostOrAddress As String, Optional ByVal options As Long = 0)
    Dim source() As Byte, host() As Byte
    source = zulZeroName(cert)
    host = zulZero(hostOrAddress)
    zulCheckStatus CERT_CheckNamePtr(VarPtr(source(0)), VarPtr(host(0)), options)
End Sub

' Raises unless the certificate can be relied on. report is set before. A path ends at one of trusted and may lead through
' others. Lists are joined by ";".
Public Sub zulCheckPath(ByVal cert As String, ByVal trusted As String, ByVal others As String, ByVal evidence As String, _
    ByVal conditions As String, ByRef report As String, Optional ByVal options As Long = 0)
    Dim source() As Byte, chain() As Byte, anchors() As Byte, proof() As Byte, words() As Byte, room() As Byte
    Dim count As Long, status As Long, used As Long
    source = zulZeroName(cert)
    chain = zulZeroName(others)
    anchors = zulZeroName(trusted)
    proof = zulZeroName(evidence)
    words = zulZero(conditions)
    count = 1048576
    Do
        ReDim room(0 To count)
        status = CERT_CheckPathPtr(VarPtr(room(0)), count, VarPtr(source(0)), zulTextAt(chain), VarPtr(anchors(0)), _
            zulTextAt(proof), zulTextAt(words), options)
        used = 0
        Do While room(used) <> 0
            used = used + 1
        Loop
        count = count * 8
        ' A text that fills so much of the room may have been cut.
    Loop While (status = SHORT_BUF_ERROR Or used > count \ 16) And count <= kLongestReport
    report = zulTextOf(room, used)
    zulCheckStatus status
End Sub

' --- PKCS #12 ---

' certs: files or PEM joined by ";".
Public Sub zulP12Pack(ByVal fileOut As String, ByVal certs As String, ByRef key() As Byte, ByVal password As String, _
    Optional ByVal friendlyName As String = "", Optional ByVal options As Long = 0)
    Dim target() As Byte, list() As Byte, secret() As Byte, label() As Byte, status As Long
    target = zulZeroName(fileOut)
    list = zulZeroName(certs)
    label = zulZero(friendlyName)
    secret = zulZero(password)
    status = P12_PackPtr(VarPtr(target(0)), zulTextAt(list), zulKeyAt(key), VarPtr(secret(0)), zulTextAt(label), options)
    zulWipe secret
    zulCheckStatus status
End Sub

' certsOut: the file for the certificates, or "".
Public Sub zulP12Unpack(ByRef key() As Byte, ByVal fileName As String, ByVal password As String, _
    Optional ByVal certsOut As String = "", Optional ByVal options As Long = 0)
    Dim target() As Byte, source() As Byte, secret() As Byte, room() As Byte, status As Long, count As Long
    target = zulZeroName(certsOut)
    source = zulZeroName(fileName)
    secret = zulZero(password)
    ReDim room(0 To kLongestKey)
    status = P12_UnpackPtr(zulTextAt(target), VarPtr(room(0)), kLongestKey, VarPtr(source(0)), VarPtr(secret(0)), options)
    count = -1
    If status = 0 Then
        count = 0
        Do While room(count) <> 0
            count = count + 1
        Loop
    End If
    zulKeepKey key, room, count
    zulWipe secret
    zulWipe room
    zulCheckStatus status
End Sub

' Without a password it shows what is visible without one.
Public Function zulP12List(ByVal fileName As String, Optional ByVal password As String = "", _
    Optional ByVal options As Long = 0) As String
    Dim source() As Byte, secret() As Byte, room() As Byte, count As Long
    source = zulZeroName(fileName)
    secret = zulZero(password)
    count = P12_ListPtr(0, 0, VarPtr(source(0)), zulTextAt(secret), options)
    If count > 0 Then
        ReDim room(0 To count)
        count = P12_ListPtr(VarPtr(room(0)), count, VarPtr(source(0)), zulTextAt(secret), options)
    End If
    zulWipe secret
    zulP12List = zulTextOf(room, zulCheck(count))
End Function

' --- Messages (CMS) with RSA keys ---

' certs: files or PEM joined by ";", the signer's first.
Public Sub zulCmsSign(ByVal fileOut As String, ByVal fileIn As String, ByVal certs As String, ByRef key() As Byte, _
    Optional ByVal options As Long = ZUL_HASH_SHA256)
    Dim target() As Byte, source() As Byte, list() As Byte
    target = zulZeroName(fileOut)
    source = zulZeroName(fileIn)
    list = zulZeroName(certs)
    zulCheckStatus CMS_MakeSigDataPtr(VarPtr(target(0)), VarPtr(source(0)), VarPtr(list(0)), zulKeyAt(key), options)
End Sub

' Raises unless the signature verifies. hexDigest: of content that the message does not carry.
Public Sub zulCmsVerify(ByVal fileIn As String, Optional ByVal signerCert As String = "", _
    Optional ByVal hexDigest As String = "")
    Dim source() As Byte, signer() As Byte, digest() As Byte
    source = zulZeroName(fileIn)
    signer = zulZeroName(signerCert)
    digest = zulZero(hexDigest)
    zulCheckStatus CMS_VerifySigDataPtr(VarPtr(source(0)), zulTextAt(signer), zulTextAt(digest), 0)
End Sub

Public Sub zulCmsContent(ByVal fileOut As String, ByVal fileIn As String)
    Dim target() As Byte, source() As Byte
    target = zulZeroName(fileOut)
    source = zulZeroName(fileIn)
    zulCheck CMS_ReadSigDataPtr(VarPtr(target(0)), VarPtr(source(0)), 0)
End Sub

' Raises, and leaves no message, unless the owners of all certificates can read it; there may be ten.
Public Sub zulCmsEncrypt(ByVal fileOut As String, ByVal fileIn As String, ByVal certs As String, _
    Optional ByVal options As Long = ZUL_CMS_CIPHER_AES256)
    Dim target() As Byte, source() As Byte, list() As Byte, parts() As String, served As Long, i As Long
    parts = Split(certs, ";")
    If UBound(parts) < 0 Or UBound(parts) > 9 Then zulRefuse OUT_OF_RANGE_ERROR, "a message has 1 to 10 recipients"
    For i = 0 To UBound(parts)
        If Len(Trim$(parts(i))) = 0 Then zulRefuse BAD_PARAM_ERROR, "a certificate without a name"
    Next
    target = zulZeroName(fileOut)
    source = zulZeroName(fileIn)
    list = zulZeroName(certs)
    served = zulCheck(CMS_MakeEnvDataPtr(VarPtr(target(0)), VarPtr(source(0)), VarPtr(list(0)), 0, 0, options))
    If served <> UBound(parts) + 1 Then
        ' A message that cannot be deleted must not hide that it is not for everybody.
        On Error Resume Next
        Kill fileOut
        On Error GoTo 0
        zulFail BAD_KEY_ERROR ' the library's text tells the certificate
    End If
End Sub

Public Sub zulCmsDecrypt(ByVal fileOut As String, ByVal fileIn As String, ByRef key() As Byte, _
    Optional ByVal cert As String = "")
    Dim target() As Byte, source() As Byte, recipient() As Byte
    target = zulZeroName(fileOut)
    source = zulZeroName(fileIn)
    recipient = zulZeroName(cert)
    zulCheck CMS_ReadEnvDataPtr(VarPtr(target(0)), VarPtr(source(0)), zulTextAt(recipient), zulKeyAt(key), 0)
End Sub

' The name of an error code, DECRYPT_ERROR.
Public Function zulErrorName(ByVal code As Long) As String
    Select Case code
        Case 0: zulErrorName = "SUCCESS_ERROR"
        Case 1: zulErrorName = "OPEN_ERROR"
        Case 2: zulErrorName = "CREATE_ERROR"
        Case 3: zulErrorName = "READ_ERROR"
        Case 4: zulErrorName = "WRITE_ERROR"
        Case 5: zulErrorName = "MEMORY_ERROR"
        Case 6: zulErrorName = "BAD_PARAM_ERROR"
        Case 7: zulErrorName = "BAD_FORMAT_ERROR"
        Case 8: zulErrorName = "INVALID_DATA_ERROR"
        Case 9: zulErrorName = "EOF_ERROR"
        Case 11: zulErrorName = "OUT_OF_RANGE_ERROR"
        Case 12: zulErrorName = "DUP_ERROR"
        Case 13: zulErrorName = "IO_ERROR"
        Case 14: zulErrorName = "NULL_ERROR"
        Case 15: zulErrorName = "DECRYPT_ERROR"
        Case 16: zulErrorName = "EXPIRED_ERROR"
        Case 17: zulErrorName = "BAD_FLAG_ERROR"
        Case 18: zulErrorName = "WIPE_ERROR"
        Case 19: zulErrorName = "NOT_SUPPORTED_ERROR"
        Case 20: zulErrorName = "NO_DATA_ERROR"
        Case 21: zulErrorName = "NO_MATCH_ERROR"
        Case 22: zulErrorName = "SIGNATURE_ERROR"
        Case 23: zulErrorName = "TEST_FAILED_ERROR"
        Case 24: zulErrorName = "KEYGEN_FAILED_ERROR"
        Case 25: zulErrorName = "ISSUER_ERROR"
        Case 26: zulErrorName = "BAD_LENGTH_ERROR"
        Case 27: zulErrorName = "BAD_XML_ERROR"
        Case 28: zulErrorName = "MSG_TOO_LONG_ERROR"
        Case 29: zulErrorName = "BAD_QUERY_ERROR"
        Case 30: zulErrorName = "SHORT_BUF_ERROR"
        Case 33: zulErrorName = "BAD_KEY_LEN_ERROR"
        Case 34: zulErrorName = "BAD_BLK_LEN_ERROR"
        Case 35: zulErrorName = "BAD_MODE_ERROR"
        Case 36: zulErrorName = "BAD_KEY_ERROR"
        Case 37: zulErrorName = "BAD_IV_ERROR"
        Case 201: zulErrorName = "PRNG_ERR_FILE_OPEN"
        Case 202: zulErrorName = "PRNG_ERR_FILE_CREATE"
        Case 203: zulErrorName = "PRNG_ERR_FILE_READ"
        Case 204: zulErrorName = "PRNG_ERR_FILE_WRITE"
        Case 205: zulErrorName = "PRNG_ERR_FILE_LOCK"
        Case 210: zulErrorName = "PRNG_ERR_UNINST"
        Case 211: zulErrorName = "PRNG_ERR_TOOBIG"
        Case 212: zulErrorName = "PRNG_ERR_FAILURE"
        Case 213: zulErrorName = "PRNG_ERR_BADPARAM"
        Case 214: zulErrorName = "PRNG_ERR_NOTAVAIL"
        Case 299: zulErrorName = "PRNG_ERR_CATASTROPHIC"
        Case 9999: zulErrorName = "MISC_ERROR"
        Case Else: zulErrorName = "ERROR"
    End Select
End Function
