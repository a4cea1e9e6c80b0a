// Made from include/zulcore.h by scripts/make_bindings.py.
using System;
using System.Runtime.InteropServices;

namespace Zulcore
{
    /// <summary>Every function and constant of zulcore.h, as it is there. Texts are bytes that end with a zero byte. The forms
    /// with byte[] pin their arrays during the call.</summary>
    public static class Raw
    {
        /// <summary>An error code.</summary>
        public const int SUCCESS_ERROR = 0;
        /// <summary>An error code.</summary>
        public const int OPEN_ERROR = 1;
        /// <summary>An error code.</summary>
        public const int CREATE_ERROR = 2;
        /// <summary>An error code.</summary>
        public const int READ_ERROR = 3;
        /// <summary>An error code.</summary>
        public const int WRITE_ERROR = 4;
        /// <summary>An error code.</summary>
        public const int MEMORY_ERROR = 5;
        /// <summary>An error code.</summary>
        public const int BAD_PARAM_ERROR = 6;
        /// <summary>An error code.</summary>
        public const int BAD_FORMAT_ERROR = 7;
        /// <summary>An error code.</summary>
        public const int INVALID_DATA_ERROR = 8;
        /// <summary>An error code.</summary>
        public const int EOF_ERROR = 9;
        /// <summary>An error code.</summary>
        public const int OUT_OF_RANGE_ERROR = 11;
        /// <summary>An error code.</summary>
        public const int DUP_ERROR = 12;
        /// <summary>An error code.</summary>
        public const int IO_ERROR = 13;
        /// <summary>An error code.</summary>
        public const int NULL_ERROR = 14;
        /// <summary>An error code.</summary>
        public const int DECRYPT_ERROR = 15;
        /// <summary>An error code.</summary>
        public const int EXPIRED_ERROR = 16;
        /// <summary>An error code.</summary>
        public const int BAD_FLAG_ERROR = 17;
        /// <summary>An error code.</summary>
        public const int WIPE_ERROR = 18;
        /// <summary>An error code.</summary>
        public const int NOT_SUPPORTED_ERROR = 19;
        /// <summary>An error code.</summary>
        public const int NO_DATA_ERROR = 20;
        /// <summary>An error code.</summary>
        public const int NO_MATCH_ERROR = 21;
        /// <summary>An error code.</summary>
        public const int SIGNATURE_ERROR = 22;
        /// <summary>An error code.</summary>
        public const int TEST_FAILED_ERROR = 23;
        /// <summary>An error code.</summary>
        public const int KEYGEN_FAILED_ERROR = 24;
        /// <summary>An error code.</summary>
        public const int ISSUER_ERROR = 25;
        /// <summary>An error code.</summary>
        public const int BAD_LENGTH_ERROR = 26;
        /// <summary>An error code.</summary>
        public const int BAD_XML_ERROR = 27;
        /// <summary>An error code.</summary>
        public const int MSG_TOO_LONG_ERROR = 28;
        /// <summary>An error code.</summary>
        public const int BAD_QUERY_ERROR = 29;
        /// <summary>An error code.</summary>
        public const int SHORT_BUF_ERROR = 30;
        /// <summary>An error code.</summary>
        public const int BAD_KEY_LEN_ERROR = 33;
        /// <summary>An error code.</summary>
        public const int BAD_BLK_LEN_ERROR = 34;
        /// <summary>An error code.</summary>
        public const int BAD_MODE_ERROR = 35;
        /// <summary>An error code.</summary>
        public const int BAD_KEY_ERROR = 36;
        /// <summary>An error code.</summary>
        public const int BAD_IV_ERROR = 37;
        /// <summary>An error code.</summary>
        public const int PRNG_ERR_FILE_OPEN = 201;
        /// <summary>An error code.</summary>
        public const int PRNG_ERR_FILE_CREATE = 202;
        /// <summary>An error code.</summary>
        public const int PRNG_ERR_FILE_READ = 203;
        /// <summary>An error code.</summary>
        public const int PRNG_ERR_FILE_WRITE = 204;
        /// <summary>An error code.</summary>
        public const int PRNG_ERR_FILE_LOCK = 205;
        /// <summary>An error code.</summary>
        public const int PRNG_ERR_UNINST = 210;
        /// <summary>An error code.</summary>
        public const int PRNG_ERR_TOOBIG = 211;
        /// <summary>An error code.</summary>
        public const int PRNG_ERR_FAILURE = 212;
        /// <summary>An error code.</summary>
        public const int PRNG_ERR_BADPARAM = 213;
        /// <summary>An error code.</summary>
        public const int PRNG_ERR_NOTAVAIL = 214;
        /// <summary>An error code.</summary>
        public const int PRNG_ERR_CATASTROPHIC = 299;
        /// <summary>An error code.</summary>
        public const int MISC_ERROR = 9999;
        /// <summary>ZUL_ModuleName.</summary>
        public const int ZUL_MODULE_PLATFORM = 0x40;
        /// <summary>CNV_ByteEncoding.</summary>
        public const int ZUL_CNV_UTF8_FROM_LATIN1 = 0x1;
        /// <summary>CNV_ByteEncoding.</summary>
        public const int ZUL_CNV_LATIN1_FROM_UTF8 = 0x2;
        /// <summary>Digest algorithms: bits 0-3 of the options of HASH_ and HMAC_.</summary>
        public const int ZUL_HASH_SHA1 = 0;
        /// <summary>Digest algorithms: bits 0-3 of the options of HASH_ and HMAC_.</summary>
        public const int ZUL_HASH_MD5 = 1;
        /// <summary>Digest algorithms: bits 0-3 of the options of HASH_ and HMAC_.</summary>
        public const int ZUL_HASH_MD2 = 2;
        /// <summary>Digest algorithms: bits 0-3 of the options of HASH_ and HMAC_.</summary>
        public const int ZUL_HASH_SHA256 = 3;
        /// <summary>Digest algorithms: bits 0-3 of the options of HASH_ and HMAC_.</summary>
        public const int ZUL_HASH_SHA384 = 4;
        /// <summary>Digest algorithms: bits 0-3 of the options of HASH_ and HMAC_.</summary>
        public const int ZUL_HASH_SHA512 = 5;
        /// <summary>Digest algorithms: bits 0-3 of the options of HASH_ and HMAC_.</summary>
        public const int ZUL_HASH_SHA224 = 6;
        /// <summary>Digest algorithms: bits 0-3 of the options of HASH_ and HMAC_.</summary>
        public const int ZUL_HASH_SHA1_RNG = 7;
        /// <summary>Digest algorithms: bits 0-3 of the options of HASH_ and HMAC_.</summary>
        public const int ZUL_HASH_MODE_TEXT = 0x10000;
        /// <summary>Block ciphers (bits 4-7) and modes (bits 8-11) of the options of CIPHER_.</summary>
        public const int ZUL_CIPHER_TDEA = 0x10;
        /// <summary>Block ciphers (bits 4-7) and modes (bits 8-11) of the options of CIPHER_.</summary>
        public const int ZUL_CIPHER_AES128 = 0x20;
        /// <summary>Block ciphers (bits 4-7) and modes (bits 8-11) of the options of CIPHER_.</summary>
        public const int ZUL_CIPHER_AES192 = 0x30;
        /// <summary>Block ciphers (bits 4-7) and modes (bits 8-11) of the options of CIPHER_.</summary>
        public const int ZUL_CIPHER_AES256 = 0x40;
        /// <summary>Block ciphers (bits 4-7) and modes (bits 8-11) of the options of CIPHER_.</summary>
        public const int ZUL_MODE_ECB = 0x000;
        /// <summary>Block ciphers (bits 4-7) and modes (bits 8-11) of the options of CIPHER_.</summary>
        public const int ZUL_MODE_CBC = 0x100;
        /// <summary>Block ciphers (bits 4-7) and modes (bits 8-11) of the options of CIPHER_.</summary>
        public const int ZUL_MODE_OFB = 0x200;
        /// <summary>Block ciphers (bits 4-7) and modes (bits 8-11) of the options of CIPHER_.</summary>
        public const int ZUL_MODE_CFB = 0x300;
        /// <summary>Block ciphers (bits 4-7) and modes (bits 8-11) of the options of CIPHER_.</summary>
        public const int ZUL_MODE_CTR = 0x400;
        /// <summary>RNG_BytesWithPrompt, RNG_MakeSeedFile.</summary>
        public const int ZUL_RNG_MORE_EVENTS = 0x1;
        /// <summary>RSA key files: format, or progress of RSA_MakeKeys.</summary>
        public const int ZUL_KEY_SHOW_PROGRESS = 0x10;
        /// <summary>RSA key files: format, or progress of RSA_MakeKeys.</summary>
        public const int ZUL_KEY_FORMAT_PEM = 0x10000;
        /// <summary>RSA key files: format, or progress of RSA_MakeKeys.</summary>
        public const int ZUL_KEY_FORMAT_PEM_ALT = 0x20000;
        /// <summary>Password-based encryption of private keys. With ZUL_PBE_PBES2 one cipher may be added, and a digest (ZUL_HASH_SHA256, SHA384 or SHA512) for the HMAC that derives the key.</summary>
        public const int ZUL_PBE_SHA_3DES = 0;
        /// <summary>Password-based encryption of private keys. With ZUL_PBE_PBES2 one cipher may be added, and a digest (ZUL_HASH_SHA256, SHA384 or SHA512) for the HMAC that derives the key.</summary>
        public const int ZUL_PBE_MD5_DES = 1;
        /// <summary>Password-based encryption of private keys. With ZUL_PBE_PBES2 one cipher may be added, and a digest (ZUL_HASH_SHA256, SHA384 or SHA512) for the HMAC that derives the key.</summary>
        public const int ZUL_PBE_MD2_DES = 2;
        /// <summary>Password-based encryption of private keys. With ZUL_PBE_PBES2 one cipher may be added, and a digest (ZUL_HASH_SHA256, SHA384 or SHA512) for the HMAC that derives the key.</summary>
        public const int ZUL_PBE_SHA1_DES = 3;
        /// <summary>Password-based encryption of private keys. With ZUL_PBE_PBES2 one cipher may be added, and a digest (ZUL_HASH_SHA256, SHA384 or SHA512) for the HMAC that derives the key.</summary>
        public const int ZUL_PBE_PBES2_DEFAULT = 4;
        /// <summary>Password-based encryption of private keys. With ZUL_PBE_PBES2 one cipher may be added, and a digest (ZUL_HASH_SHA256, SHA384 or SHA512) for the HMAC that derives the key.</summary>
        public const int ZUL_PBE_PBES2 = 0x1000;
        /// <summary>Password-based encryption of private keys. With ZUL_PBE_PBES2 one cipher may be added, and a digest (ZUL_HASH_SHA256, SHA384 or SHA512) for the HMAC that derives the key.</summary>
        public const int ZUL_PBE_CIPHER_AES128 = 0x20;
        /// <summary>Password-based encryption of private keys. With ZUL_PBE_PBES2 one cipher may be added, and a digest (ZUL_HASH_SHA256, SHA384 or SHA512) for the HMAC that derives the key.</summary>
        public const int ZUL_PBE_CIPHER_AES192 = 0x30;
        /// <summary>Password-based encryption of private keys. With ZUL_PBE_PBES2 one cipher may be added, and a digest (ZUL_HASH_SHA256, SHA384 or SHA512) for the HMAC that derives the key.</summary>
        public const int ZUL_PBE_CIPHER_AES256 = 0x40;
        /// <summary>RSA_ToXMLString.</summary>
        public const int ZUL_XML_RSAKEYVALUE = 0x1;
        /// <summary>RSA_ToXMLString.</summary>
        public const int ZUL_XML_PUBLIC_ONLY = 0x10;
        /// <summary>RSA_ToXMLString.</summary>
        public const int ZUL_XML_HEXBINARY = 0x100;
        /// <summary>RSA_RawPublic, RSA_RawPrivate: the trailer of the RSA2 forms.</summary>
        public const int ZUL_RSA2_TRAILER6 = 6;
        /// <summary>RSA_RawPublic, RSA_RawPrivate: the trailer of the RSA2 forms.</summary>
        public const int ZUL_RSA2_TRAILERC = 12;
        /// <summary>RSA_EncodeMsg, RSA_DecodeMsg: an encoding, with a digest algorithm where it has one.</summary>
        public const int ZUL_EME_PKCSV1_5 = 0x00;
        /// <summary>RSA_EncodeMsg, RSA_DecodeMsg: an encoding, with a digest algorithm where it has one.</summary>
        public const int ZUL_EME_OAEP = 0x10;
        /// <summary>RSA_EncodeMsg, RSA_DecodeMsg: an encoding, with a digest algorithm where it has one.</summary>
        public const int ZUL_EMSIG_PKCSV1_5 = 0x20;
        /// <summary>RSA_EncodeMsg, RSA_DecodeMsg: an encoding, with a digest algorithm where it has one.</summary>
        public const int ZUL_EMSIG_DIGESTONLY = 0x1000;
        /// <summary>RSA_EncodeMsg, RSA_DecodeMsg: an encoding, with a digest algorithm where it has one.</summary>
        public const int ZUL_EMSIG_DIGINFO = 0x2000;
        /// <summary>RSA_EncodeMsg, RSA_DecodeMsg: an encoding, with a digest algorithm where it has one.</summary>
        public const int ZUL_EMSIG_GETALG = 0x8000;
        /// <summary>RSA_EncodeMsg, RSA_DecodeMsg: an encoding, with a digest algorithm where it has one.</summary>
        public const int ZUL_EMSIG_ISO9796 = 0x100000;
        /// <summary>X509_: bits of the options. A digest algorithm (ZUL_HASH_) may be added where one is chosen.</summary>
        public const int ZUL_X509_FORMAT_PEM = 0x10000;
        /// <summary>X509_: bits of the options. A digest algorithm (ZUL_HASH_) may be added where one is chosen.</summary>
        public const int ZUL_X509_REQ_DER = 0x20000;
        /// <summary>X509_: bits of the options. A digest algorithm (ZUL_HASH_) may be added where one is chosen.</summary>
        public const int ZUL_X509_REQ_NOATTRS = 0x100000;
        /// <summary>X509_: bits of the options. A digest algorithm (ZUL_HASH_) may be added where one is chosen.</summary>
        public const int ZUL_QUERY_GETTYPE = 0x100000;
        /// <summary>X509_: bits of the options. A digest algorithm (ZUL_HASH_) may be added where one is chosen.</summary>
        public const int ZUL_X509_LATIN1 = 0x400000;
        /// <summary>X509_: bits of the options. A digest algorithm (ZUL_HASH_) may be added where one is chosen.</summary>
        public const int ZUL_X509_UTF8 = 0x800000;
        /// <summary>X509_: bits of the options. A digest algorithm (ZUL_HASH_) may be added where one is chosen.</summary>
        public const int ZUL_X509_AUTHKEYID = 0x1000000;
        /// <summary>X509_: bits of the options. A digest algorithm (ZUL_HASH_) may be added where one is chosen.</summary>
        public const int ZUL_X509_NO_BASIC = 0x2000000;
        /// <summary>X509_: bits of the options. A digest algorithm (ZUL_HASH_) may be added where one is chosen.</summary>
        public const int ZUL_X509_SET_CA = 0x4000000;
        /// <summary>X509_: bits of the options. A digest algorithm (ZUL_HASH_) may be added where one is chosen.</summary>
        public const int ZUL_X509_VERSION1 = 0x8000000;
        /// <summary>Key usage (RFC 5280, 4.2.1.3): the nKeyUsageFlags of X509_MakeCert, the result of X509_KeyUsageFlags.</summary>
        public const int ZUL_KEYUSAGE_DIGITALSIGNATURE = 0x001;
        /// <summary>Key usage (RFC 5280, 4.2.1.3): the nKeyUsageFlags of X509_MakeCert, the result of X509_KeyUsageFlags.</summary>
        public const int ZUL_KEYUSAGE_NONREPUDIATION = 0x002;
        /// <summary>Key usage (RFC 5280, 4.2.1.3): the nKeyUsageFlags of X509_MakeCert, the result of X509_KeyUsageFlags.</summary>
        public const int ZUL_KEYUSAGE_KEYENCIPHERMENT = 0x004;
        /// <summary>Key usage (RFC 5280, 4.2.1.3): the nKeyUsageFlags of X509_MakeCert, the result of X509_KeyUsageFlags.</summary>
        public const int ZUL_KEYUSAGE_DATAENCIPHERMENT = 0x008;
        /// <summary>Key usage (RFC 5280, 4.2.1.3): the nKeyUsageFlags of X509_MakeCert, the result of X509_KeyUsageFlags.</summary>
        public const int ZUL_KEYUSAGE_KEYAGREEMENT = 0x010;
        /// <summary>Key usage (RFC 5280, 4.2.1.3): the nKeyUsageFlags of X509_MakeCert, the result of X509_KeyUsageFlags.</summary>
        public const int ZUL_KEYUSAGE_KEYCERTSIGN = 0x020;
        /// <summary>Key usage (RFC 5280, 4.2.1.3): the nKeyUsageFlags of X509_MakeCert, the result of X509_KeyUsageFlags.</summary>
        public const int ZUL_KEYUSAGE_CRLSIGN = 0x040;
        /// <summary>Key usage (RFC 5280, 4.2.1.3): the nKeyUsageFlags of X509_MakeCert, the result of X509_KeyUsageFlags.</summary>
        public const int ZUL_KEYUSAGE_ENCIPHERONLY = 0x080;
        /// <summary>Key usage (RFC 5280, 4.2.1.3): the nKeyUsageFlags of X509_MakeCert, the result of X509_KeyUsageFlags.</summary>
        public const int ZUL_KEYUSAGE_DECIPHERONLY = 0x100;
        /// <summary>CMS_ signed messages; a ZUL_HASH_ algorithm and, for enveloped ones, a ZUL_CMS_CIPHER_ go with them.</summary>
        public const int ZUL_CMS_EXCLUDE_CERTS = 0x100;
        /// <summary>CMS_ signed messages; a ZUL_HASH_ algorithm and, for enveloped ones, a ZUL_CMS_CIPHER_ go with them.</summary>
        public const int ZUL_CMS_EXCLUDE_DATA = 0x200;
        /// <summary>CMS_ signed messages; a ZUL_HASH_ algorithm and, for enveloped ones, a ZUL_CMS_CIPHER_ go with them.</summary>
        public const int ZUL_CMS_CERTS_ONLY = 0x400;
        /// <summary>CMS_ signed messages; a ZUL_HASH_ algorithm and, for enveloped ones, a ZUL_CMS_CIPHER_ go with them.</summary>
        public const int ZUL_CMS_INCLUDE_ATTRS = 0x800;
        /// <summary>CMS_ signed messages; a ZUL_HASH_ algorithm and, for enveloped ones, a ZUL_CMS_CIPHER_ go with them.</summary>
        public const int ZUL_CMS_ADD_SIGNTIME = 0x1000;
        /// <summary>CMS_ signed messages; a ZUL_HASH_ algorithm and, for enveloped ones, a ZUL_CMS_CIPHER_ go with them.</summary>
        public const int ZUL_CMS_ADD_SMIMECAPS = 0x2000;
        /// <summary>CMS_ signed messages; a ZUL_HASH_ algorithm and, for enveloped ones, a ZUL_CMS_CIPHER_ go with them.</summary>
        public const int ZUL_CMS_FORMAT_BASE64 = 0x10000;
        /// <summary>CMS_ signed messages; a ZUL_HASH_ algorithm and, for enveloped ones, a ZUL_CMS_CIPHER_ go with them.</summary>
        public const int ZUL_CMS_BARE_SIGNEDDATA = 0x2000000;
        /// <summary>CMS_ signed messages; a ZUL_HASH_ algorithm and, for enveloped ones, a ZUL_CMS_CIPHER_ go with them.</summary>
        public const int ZUL_CMS_NAMED_SIGALG = 0x4000000;
        /// <summary>CMS_ signed messages; a ZUL_HASH_ algorithm and, for enveloped ones, a ZUL_CMS_CIPHER_ go with them.</summary>
        public const int ZUL_CMS_CIPHER_TDEA = 0x10;
        /// <summary>CMS_ signed messages; a ZUL_HASH_ algorithm and, for enveloped ones, a ZUL_CMS_CIPHER_ go with them.</summary>
        public const int ZUL_CMS_CIPHER_AES128 = 0x20;
        /// <summary>CMS_ signed messages; a ZUL_HASH_ algorithm and, for enveloped ones, a ZUL_CMS_CIPHER_ go with them.</summary>
        public const int ZUL_CMS_CIPHER_AES192 = 0x30;
        /// <summary>CMS_ signed messages; a ZUL_HASH_ algorithm and, for enveloped ones, a ZUL_CMS_CIPHER_ go with them.</summary>
        public const int ZUL_CMS_CIPHER_AES256 = 0x40;
        /// <summary>PFX_.</summary>
        public const int ZUL_PFX_NO_PRIVKEY = 0x10;
        /// <summary>CIPHER_Begin.</summary>
        public const int ZUL_CIPHER_NO_PADDING = 0x1;
        /// <summary>AEAD_Encrypt, AEAD_Decrypt.</summary>
        public const int ZUL_AEAD_RANDOM_NONCE = 0x1;
        /// <summary>KEY_Save: beside ZUL_KEY_FORMAT_PEM, the structure that the kind of key has of its own.</summary>
        public const int ZUL_KEY_FORMAT_OWN = 0x40000;
        /// <summary>SIG_.</summary>
        public const int ZUL_SIG_RAW = 0x1;
        /// <summary>SIG_.</summary>
        public const int ZUL_SIG_DETERMINISTIC = 0x2;
        /// <summary>SEAL_.</summary>
        public const int ZUL_SEAL_ARMOUR = 0x1;
        /// <summary>SEAL_.</summary>
        public const int ZUL_SEAL_STDIN = 0x2;
        /// <summary>SEAL_.</summary>
        public const int ZUL_SEAL_STDOUT = 0x4;
        /// <summary>CERT_.</summary>
        public const int ZUL_CERT_DER = 0x1;
        /// <summary>CERT_.</summary>
        public const int ZUL_CERT_BEYOND_ISSUER = 0x2;
        /// <summary>CERT_.</summary>
        public const int ZUL_CERT_JSON = 0x10;
        /// <summary>CERT_.</summary>
        public const int ZUL_CERT_SUBJECT_NAME = 0x20;
        /// <summary>CERT_.</summary>
        public const int ZUL_CERT_WEB = 0x40;
        /// <summary>P12_. P12_Unpack: the number of the key, from 0, in the low byte.</summary>
        public const int ZUL_P12_LEGACY = 0x100;
        /// <summary>P12_. P12_Unpack: the number of the key, from 0, in the low byte.</summary>
        public const int ZUL_P12_PBMAC1 = 0x200;
        /// <summary>P12_. P12_Unpack: the number of the key, from 0, in the low byte.</summary>
        public const int ZUL_P12_TRUSTED = 0x400;
        /// <summary>P12_. P12_Unpack: the number of the key, from 0, in the low byte.</summary>
        public const int ZUL_P12_NEED_MAC = 0x800;
        /// <summary>P12_. P12_Unpack: the number of the key, from 0, in the low byte.</summary>
        public const int ZUL_P12_JSON = 0x1000;

        /// <summary>The name of a positive error code, "DECRYPT_ERROR" for 15; "" if there is no such code.</summary>
        public static string ErrorName(int code)
        {
            switch (code)
            {
                case SUCCESS_ERROR: return "SUCCESS_ERROR";
                case OPEN_ERROR: return "OPEN_ERROR";
                case CREATE_ERROR: return "CREATE_ERROR";
                case READ_ERROR: return "READ_ERROR";
                case WRITE_ERROR: return "WRITE_ERROR";
                case MEMORY_ERROR: return "MEMORY_ERROR";
                case BAD_PARAM_ERROR: return "BAD_PARAM_ERROR";
                case BAD_FORMAT_ERROR: return "BAD_FORMAT_ERROR";
                case INVALID_DATA_ERROR: return "INVALID_DATA_ERROR";
                case EOF_ERROR: return "EOF_ERROR";
                case OUT_OF_RANGE_ERROR: return "OUT_OF_RANGE_ERROR";
                case DUP_ERROR: return "DUP_ERROR";
                case IO_ERROR: return "IO_ERROR";
                case NULL_ERROR: return "NULL_ERROR";
                case DECRYPT_ERROR: return "DECRYPT_ERROR";
                case EXPIRED_ERROR: return "EXPIRED_ERROR";
                case BAD_FLAG_ERROR: return "BAD_FLAG_ERROR";
                case WIPE_ERROR: return "WIPE_ERROR";
                case NOT_SUPPORTED_ERROR: return "NOT_SUPPORTED_ERROR";
                case NO_DATA_ERROR: return "NO_DATA_ERROR";
                case NO_MATCH_ERROR: return "NO_MATCH_ERROR";
                case SIGNATURE_ERROR: return "SIGNATURE_ERROR";
                case TEST_FAILED_ERROR: return "TEST_FAILED_ERROR";
                case KEYGEN_FAILED_ERROR: return "KEYGEN_FAILED_ERROR";
                case ISSUER_ERROR: return "ISSUER_ERROR";
                case BAD_LENGTH_ERROR: return "BAD_LENGTH_ERROR";
                case BAD_XML_ERROR: return "BAD_XML_ERROR";
                case MSG_TOO_LONG_ERROR: return "MSG_TOO_LONG_ERROR";
                case BAD_QUERY_ERROR: return "BAD_QUERY_ERROR";
                case SHORT_BUF_ERROR: return "SHORT_BUF_ERROR";
                case BAD_KEY_LEN_ERROR: return "BAD_KEY_LEN_ERROR";
                case BAD_BLK_LEN_ERROR: return "BAD_BLK_LEN_ERROR";
                case BAD_MODE_ERROR: return "BAD_MODE_ERROR";
                case BAD_KEY_ERROR: return "BAD_KEY_ERROR";
                case BAD_IV_ERROR: return "BAD_IV_ERROR";
                case PRNG_ERR_FILE_OPEN: return "PRNG_ERR_FILE_OPEN";
                case PRNG_ERR_FILE_CREATE: return "PRNG_ERR_FILE_CREATE";
                case PRNG_ERR_FILE_READ: return "PRNG_ERR_FILE_READ";
                case PRNG_ERR_FILE_WRITE: return "PRNG_ERR_FILE_WRITE";
                case PRNG_ERR_FILE_LOCK: return "PRNG_ERR_FILE_LOCK";
                case PRNG_ERR_UNINST: return "PRNG_ERR_UNINST";
                case PRNG_ERR_TOOBIG: return "PRNG_ERR_TOOBIG";
                case PRNG_ERR_FAILURE: return "PRNG_ERR_FAILURE";
                case PRNG_ERR_BADPARAM: return "PRNG_ERR_BADPARAM";
                case PRNG_ERR_NOTAVAIL: return "PRNG_ERR_NOTAVAIL";
                case PRNG_ERR_CATASTROPHIC: return "PRNG_ERR_CATASTROPHIC";
                case MISC_ERROR: return "MISC_ERROR";
                default: return "";
            }
        }

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int Takes();

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesB(byte[] p0);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesBB(byte[] p0, byte[] p1);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesBBBBBBI(byte[] p0, byte[] p1, byte[] p2, byte[] p3, byte[] p4, byte[] p5, int p6);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesBBBBBI(byte[] p0, byte[] p1, byte[] p2, byte[] p3, byte[] p4, int p5);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesBBBBI(byte[] p0, byte[] p1, byte[] p2, byte[] p3, int p4);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesBBBBII(byte[] p0, byte[] p1, byte[] p2, byte[] p3, int p4, int p5);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesBBBBIIBBIBI(byte[] p0, byte[] p1, byte[] p2, byte[] p3, int p4, int p5, byte[] p6, byte[] p7, int p8, byte[] p9, int p10);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesBBBI(byte[] p0, byte[] p1, byte[] p2, int p3);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesBBBIBB(byte[] p0, byte[] p1, byte[] p2, int p3, byte[] p4, byte[] p5);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesBBI(byte[] p0, byte[] p1, int p2);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesBBIBBI(byte[] p0, byte[] p1, int p2, byte[] p3, byte[] p4, int p5);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesBBIBI(byte[] p0, byte[] p1, int p2, byte[] p3, int p4);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesBBIBIBB(byte[] p0, byte[] p1, int p2, byte[] p3, int p4, byte[] p5, byte[] p6);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesBBIBIBI(byte[] p0, byte[] p1, int p2, byte[] p3, int p4, byte[] p5, int p6);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesBBII(byte[] p0, byte[] p1, int p2, int p3);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesBBIIBBIBI(byte[] p0, byte[] p1, int p2, int p3, byte[] p4, byte[] p5, int p6, byte[] p7, int p8);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesBBIIIIBBII(byte[] p0, byte[] p1, int p2, int p3, int p4, int p5, byte[] p6, byte[] p7, int p8, int p9);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesBI(byte[] p0, int p1);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesBIB(byte[] p0, int p1, byte[] p2);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesBIBB(byte[] p0, int p1, byte[] p2, byte[] p3);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesBIBBBBBI(byte[] p0, int p1, byte[] p2, byte[] p3, byte[] p4, byte[] p5, byte[] p6, int p7);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesBIBBBI(byte[] p0, int p1, byte[] p2, byte[] p3, byte[] p4, int p5);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesBIBBI(byte[] p0, int p1, byte[] p2, byte[] p3, int p4);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesBIBI(byte[] p0, int p1, byte[] p2, int p3);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesBIBIBBI(byte[] p0, int p1, byte[] p2, int p3, byte[] p4, byte[] p5, int p6);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesBIBIBI(byte[] p0, int p1, byte[] p2, int p3, byte[] p4, int p5);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesBIBIBIBIB(byte[] p0, int p1, byte[] p2, int p3, byte[] p4, int p5, byte[] p6, int p7, byte[] p8);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesBIBIBIBIBIBI(byte[] p0, int p1, byte[] p2, int p3, byte[] p4, int p5, byte[] p6, int p7, byte[] p8, int p9, byte[] p10, int p11);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesBIBIBII(byte[] p0, int p1, byte[] p2, int p3, byte[] p4, int p5, int p6);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesBIBIBIIB(byte[] p0, int p1, byte[] p2, int p3, byte[] p4, int p5, int p6, byte[] p7);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesBIBIBIIII(byte[] p0, int p1, byte[] p2, int p3, byte[] p4, int p5, int p6, int p7, int p8);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesBIBII(byte[] p0, int p1, byte[] p2, int p3, int p4);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesBIBIII(byte[] p0, int p1, byte[] p2, int p3, int p4, int p5);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesBII(byte[] p0, int p1, int p2);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesBIIBIBIBI(byte[] p0, int p1, int p2, byte[] p3, int p4, byte[] p5, int p6, byte[] p7, int p8);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesI(int p0);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesIBBBBBI(int p0, byte[] p1, byte[] p2, byte[] p3, byte[] p4, byte[] p5, int p6);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesIBBIBBBI(int p0, byte[] p1, byte[] p2, int p3, byte[] p4, byte[] p5, byte[] p6, int p7);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesIBIBBBBI(int p0, byte[] p1, int p2, byte[] p3, byte[] p4, byte[] p5, byte[] p6, int p7);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesII(int p0, int p1);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesIPIPPPPI(int p0, IntPtr p1, int p2, IntPtr p3, IntPtr p4, IntPtr p5, IntPtr p6, int p7);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesIPPIPPPI(int p0, IntPtr p1, IntPtr p2, int p3, IntPtr p4, IntPtr p5, IntPtr p6, int p7);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesIPPPPPI(int p0, IntPtr p1, IntPtr p2, IntPtr p3, IntPtr p4, IntPtr p5, int p6);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesP(IntPtr p0);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesPI(IntPtr p0, int p1);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesPII(IntPtr p0, int p1, int p2);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesPIIPIPIPI(IntPtr p0, int p1, int p2, IntPtr p3, int p4, IntPtr p5, int p6, IntPtr p7, int p8);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesPIP(IntPtr p0, int p1, IntPtr p2);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesPIPI(IntPtr p0, int p1, IntPtr p2, int p3);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesPIPII(IntPtr p0, int p1, IntPtr p2, int p3, int p4);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesPIPIII(IntPtr p0, int p1, IntPtr p2, int p3, int p4, int p5);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesPIPIPI(IntPtr p0, int p1, IntPtr p2, int p3, IntPtr p4, int p5);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesPIPIPII(IntPtr p0, int p1, IntPtr p2, int p3, IntPtr p4, int p5, int p6);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesPIPIPIIII(IntPtr p0, int p1, IntPtr p2, int p3, IntPtr p4, int p5, int p6, int p7, int p8);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesPIPIPIIP(IntPtr p0, int p1, IntPtr p2, int p3, IntPtr p4, int p5, int p6, IntPtr p7);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesPIPIPIPIP(IntPtr p0, int p1, IntPtr p2, int p3, IntPtr p4, int p5, IntPtr p6, int p7, IntPtr p8);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesPIPIPIPIPIPI(IntPtr p0, int p1, IntPtr p2, int p3, IntPtr p4, int p5, IntPtr p6, int p7, IntPtr p8, int p9, IntPtr p10, int p11);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesPIPIPPI(IntPtr p0, int p1, IntPtr p2, int p3, IntPtr p4, IntPtr p5, int p6);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesPIPP(IntPtr p0, int p1, IntPtr p2, IntPtr p3);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesPIPPI(IntPtr p0, int p1, IntPtr p2, IntPtr p3, int p4);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesPIPPPI(IntPtr p0, int p1, IntPtr p2, IntPtr p3, IntPtr p4, int p5);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesPIPPPPPI(IntPtr p0, int p1, IntPtr p2, IntPtr p3, IntPtr p4, IntPtr p5, IntPtr p6, int p7);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesPP(IntPtr p0, IntPtr p1);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesPPI(IntPtr p0, IntPtr p1, int p2);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesPPII(IntPtr p0, IntPtr p1, int p2, int p3);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesPPIIIIPPII(IntPtr p0, IntPtr p1, int p2, int p3, int p4, int p5, IntPtr p6, IntPtr p7, int p8, int p9);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesPPIIPPIPI(IntPtr p0, IntPtr p1, int p2, int p3, IntPtr p4, IntPtr p5, int p6, IntPtr p7, int p8);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesPPIPI(IntPtr p0, IntPtr p1, int p2, IntPtr p3, int p4);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesPPIPIPI(IntPtr p0, IntPtr p1, int p2, IntPtr p3, int p4, IntPtr p5, int p6);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesPPIPIPP(IntPtr p0, IntPtr p1, int p2, IntPtr p3, int p4, IntPtr p5, IntPtr p6);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesPPIPPI(IntPtr p0, IntPtr p1, int p2, IntPtr p3, IntPtr p4, int p5);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesPPPI(IntPtr p0, IntPtr p1, IntPtr p2, int p3);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesPPPIPP(IntPtr p0, IntPtr p1, IntPtr p2, int p3, IntPtr p4, IntPtr p5);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesPPPPI(IntPtr p0, IntPtr p1, IntPtr p2, IntPtr p3, int p4);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesPPPPII(IntPtr p0, IntPtr p1, IntPtr p2, IntPtr p3, int p4, int p5);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesPPPPIIPPIPI(IntPtr p0, IntPtr p1, IntPtr p2, IntPtr p3, int p4, int p5, IntPtr p6, IntPtr p7, int p8, IntPtr p9, int p10);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesPPPPPI(IntPtr p0, IntPtr p1, IntPtr p2, IntPtr p3, IntPtr p4, int p5);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int TakesPPPPPPI(IntPtr p0, IntPtr p1, IntPtr p2, IntPtr p3, IntPtr p4, IntPtr p5, int p6);

        private static Takes ZUL_ErrorCode_Takes;
        /// <summary>ZUL_ErrorCode returns the error code that the thread's last call recorded, always positive; 0 if none.</summary>
        public static int ZUL_ErrorCode()
        {
            return Module.Bind(ref ZUL_ErrorCode_Takes, "ZUL_ErrorCode")();
        }

        private static TakesBI ZUL_LastError_TakesBI;
        /// <summary>ZUL_LastError copies the thread's last error text (at most 511 characters; often empty).</summary>
        public static int ZUL_LastError(byte[] szOutput, int nOutChars)
        {
            return Module.Bind(ref ZUL_LastError_TakesBI, "ZUL_LastError")(szOutput, nOutChars);
        }

        private static TakesPI ZUL_LastError_TakesPI;
        /// <summary>ZUL_LastError copies the thread's last error text (at most 511 characters; often empty).</summary>
        public static int ZUL_LastError(IntPtr szOutput, int nOutChars)
        {
            return Module.Bind(ref ZUL_LastError_TakesPI, "ZUL_LastError")(szOutput, nOutChars);
        }

        private static TakesBII ZUL_ErrorLookup_TakesBII;
        /// <summary>ZUL_ErrorLookup copies the text of an error code of either sign.</summary>
        public static int ZUL_ErrorLookup(byte[] szOutput, int nOutChars, int nErrCode)
        {
            return Module.Bind(ref ZUL_ErrorLookup_TakesBII, "ZUL_ErrorLookup")(szOutput, nOutChars, nErrCode);
        }

        private static TakesPII ZUL_ErrorLookup_TakesPII;
        /// <summary>ZUL_ErrorLookup copies the text of an error code of either sign.</summary>
        public static int ZUL_ErrorLookup(IntPtr szOutput, int nOutChars, int nErrCode)
        {
            return Module.Bind(ref ZUL_ErrorLookup_TakesPII, "ZUL_ErrorLookup")(szOutput, nOutChars, nErrCode);
        }

        private static TakesBII ZUL_ModuleName_TakesBII;
        /// <summary>ZUL_ModuleName copies the full path of the library's own file (nOptions 0; at most 260 characters) or the word for its platform, "Win64" or "Lin64" (ZUL_MODULE_PLATFORM).</summary>
        public static int ZUL_ModuleName(byte[] szOutput, int nOutChars, int nOptions)
        {
            return Module.Bind(ref ZUL_ModuleName_TakesBII, "ZUL_ModuleName")(szOutput, nOutChars, nOptions);
        }

        private static TakesPII ZUL_ModuleName_TakesPII;
        /// <summary>ZUL_ModuleName copies the full path of the library's own file (nOptions 0; at most 260 characters) or the word for its platform, "Win64" or "Lin64" (ZUL_MODULE_PLATFORM).</summary>
        public static int ZUL_ModuleName(IntPtr szOutput, int nOutChars, int nOptions)
        {
            return Module.Bind(ref ZUL_ModuleName_TakesPII, "ZUL_ModuleName")(szOutput, nOutChars, nOptions);
        }

        private static TakesBB ZUL_Version_TakesBB;
        /// <summary>ZUL_Version returns major * 100 + minor * 10 + release.</summary>
        public static int ZUL_Version(byte[] pReserved1, byte[] pReserved2)
        {
            return Module.Bind(ref ZUL_Version_TakesBB, "ZUL_Version")(pReserved1, pReserved2);
        }

        private static TakesPP ZUL_Version_TakesPP;
        /// <summary>ZUL_Version returns major * 100 + minor * 10 + release.</summary>
        public static int ZUL_Version(IntPtr pReserved1, IntPtr pReserved2)
        {
            return Module.Bind(ref ZUL_Version_TakesPP, "ZUL_Version")(pReserved1, pReserved2);
        }

        private static TakesBI ZUL_CompileTime_TakesBI;
        /// <summary>ZUL_CompileTime copies the date and time of the build, as "Nov  1 2026 09:08:07".</summary>
        public static int ZUL_CompileTime(byte[] szOutput, int nOutChars)
        {
            return Module.Bind(ref ZUL_CompileTime_TakesBI, "ZUL_CompileTime")(szOutput, nOutChars);
        }

        private static TakesPI ZUL_CompileTime_TakesPI;
        /// <summary>ZUL_CompileTime copies the date and time of the build, as "Nov  1 2026 09:08:07".</summary>
        public static int ZUL_CompileTime(IntPtr szOutput, int nOutChars)
        {
            return Module.Bind(ref ZUL_CompileTime_TakesPI, "ZUL_CompileTime")(szOutput, nOutChars);
        }

        private static TakesI ZUL_PowerUpTests_TakesI;
        /// <summary>ZUL_PowerUpTests repeats the tests that the module ran when it was loaded.</summary>
        public static int ZUL_PowerUpTests(int nOptions)
        {
            return Module.Bind(ref ZUL_PowerUpTests_TakesI, "ZUL_PowerUpTests")(nOptions);
        }

        private static TakesBI WIPE_Data_TakesBI;
        /// <summary>WIPE_Data overwrites nDataLen bytes with zero.</summary>
        public static int WIPE_Data(byte[] lpData, int nDataLen)
        {
            return Module.Bind(ref WIPE_Data_TakesBI, "WIPE_Data")(lpData, nDataLen);
        }

        private static TakesPI WIPE_Data_TakesPI;
        /// <summary>WIPE_Data overwrites nDataLen bytes with zero.</summary>
        public static int WIPE_Data(IntPtr lpData, int nDataLen)
        {
            return Module.Bind(ref WIPE_Data_TakesPI, "WIPE_Data")(lpData, nDataLen);
        }

        private static TakesBI WIPE_File_TakesBI;
        /// <summary>WIPE_File overwrites a file seven times, commits each pass to the disk, and deletes the file.</summary>
        public static int WIPE_File(byte[] szFileName, int nOptions)
        {
            return Module.Bind(ref WIPE_File_TakesBI, "WIPE_File")(szFileName, nOptions);
        }

        private static TakesPI WIPE_File_TakesPI;
        /// <summary>WIPE_File overwrites a file seven times, commits each pass to the disk, and deletes the file.</summary>
        public static int WIPE_File(IntPtr szFileName, int nOptions)
        {
            return Module.Bind(ref WIPE_File_TakesPI, "WIPE_File")(szFileName, nOptions);
        }

        private static TakesBIBI CNV_HexStrFromBytes_TakesBIBI;
        /// <summary>CNV_HexStrFromBytes writes two upper-case hex digits for each byte.</summary>
        public static int CNV_HexStrFromBytes(byte[] szOutput, int nOutChars, byte[] lpInput, int nInputLen)
        {
            return Module.Bind(ref CNV_HexStrFromBytes_TakesBIBI, "CNV_HexStrFromBytes")(szOutput, nOutChars, lpInput, nInputLen);
        }

        private static TakesPIPI CNV_HexStrFromBytes_TakesPIPI;
        /// <summary>CNV_HexStrFromBytes writes two upper-case hex digits for each byte.</summary>
        public static int CNV_HexStrFromBytes(IntPtr szOutput, int nOutChars, IntPtr lpInput, int nInputLen)
        {
            return Module.Bind(ref CNV_HexStrFromBytes_TakesPIPI, "CNV_HexStrFromBytes")(szOutput, nOutChars, lpInput, nInputLen);
        }

        private static TakesBIB CNV_BytesFromHexStr_TakesBIB;
        /// <summary>CNV_BytesFromHexStr decodes hex digits of either case, skipping every other character; a single digit left over is dropped.</summary>
        public static int CNV_BytesFromHexStr(byte[] lpOutput, int nOutBytes, byte[] szInput)
        {
            return Module.Bind(ref CNV_BytesFromHexStr_TakesBIB, "CNV_BytesFromHexStr")(lpOutput, nOutBytes, szInput);
        }

        private static TakesPIP CNV_BytesFromHexStr_TakesPIP;
        /// <summary>CNV_BytesFromHexStr decodes hex digits of either case, skipping every other character; a single digit left over is dropped.</summary>
        public static int CNV_BytesFromHexStr(IntPtr lpOutput, int nOutBytes, IntPtr szInput)
        {
            return Module.Bind(ref CNV_BytesFromHexStr_TakesPIP, "CNV_BytesFromHexStr")(lpOutput, nOutBytes, szInput);
        }

        private static TakesBBI CNV_HexFilter_TakesBBI;
        /// <summary>CNV_HexFilter copies the hex digits among the first nStrLen characters.</summary>
        public static int CNV_HexFilter(byte[] szOutput, byte[] szInput, int nStrLen)
        {
            return Module.Bind(ref CNV_HexFilter_TakesBBI, "CNV_HexFilter")(szOutput, szInput, nStrLen);
        }

        private static TakesPPI CNV_HexFilter_TakesPPI;
        /// <summary>CNV_HexFilter copies the hex digits among the first nStrLen characters.</summary>
        public static int CNV_HexFilter(IntPtr szOutput, IntPtr szInput, int nStrLen)
        {
            return Module.Bind(ref CNV_HexFilter_TakesPPI, "CNV_HexFilter")(szOutput, szInput, nStrLen);
        }

        private static TakesBIBI CNV_B64StrFromBytes_TakesBIBI;
        /// <summary>CNV_B64StrFromBytes writes base64 (RFC 4648) in one line.</summary>
        public static int CNV_B64StrFromBytes(byte[] szOutput, int nOutChars, byte[] lpInput, int nInputLen)
        {
            return Module.Bind(ref CNV_B64StrFromBytes_TakesBIBI, "CNV_B64StrFromBytes")(szOutput, nOutChars, lpInput, nInputLen);
        }

        private static TakesPIPI CNV_B64StrFromBytes_TakesPIPI;
        /// <summary>CNV_B64StrFromBytes writes base64 (RFC 4648) in one line.</summary>
        public static int CNV_B64StrFromBytes(IntPtr szOutput, int nOutChars, IntPtr lpInput, int nInputLen)
        {
            return Module.Bind(ref CNV_B64StrFromBytes_TakesPIPI, "CNV_B64StrFromBytes")(szOutput, nOutChars, lpInput, nInputLen);
        }

        private static TakesBIB CNV_BytesFromB64Str_TakesBIB;
        /// <summary>CNV_BytesFromB64Str decodes base64 up to the first "=", skipping characters outside the alphabet.</summary>
        public static int CNV_BytesFromB64Str(byte[] lpOutput, int nOutBytes, byte[] szInput)
        {
            return Module.Bind(ref CNV_BytesFromB64Str_TakesBIB, "CNV_BytesFromB64Str")(lpOutput, nOutBytes, szInput);
        }

        private static TakesPIP CNV_BytesFromB64Str_TakesPIP;
        /// <summary>CNV_BytesFromB64Str decodes base64 up to the first "=", skipping characters outside the alphabet.</summary>
        public static int CNV_BytesFromB64Str(IntPtr lpOutput, int nOutBytes, IntPtr szInput)
        {
            return Module.Bind(ref CNV_BytesFromB64Str_TakesPIP, "CNV_BytesFromB64Str")(lpOutput, nOutBytes, szInput);
        }

        private static TakesBBI CNV_B64Filter_TakesBBI;
        /// <summary>CNV_B64Filter is CNV_HexFilter for the base64 alphabet and "=".</summary>
        public static int CNV_B64Filter(byte[] szOutput, byte[] szInput, int nStrLen)
        {
            return Module.Bind(ref CNV_B64Filter_TakesBBI, "CNV_B64Filter")(szOutput, szInput, nStrLen);
        }

        private static TakesPPI CNV_B64Filter_TakesPPI;
        /// <summary>CNV_B64Filter is CNV_HexFilter for the base64 alphabet and "=".</summary>
        public static int CNV_B64Filter(IntPtr szOutput, IntPtr szInput, int nStrLen)
        {
            return Module.Bind(ref CNV_B64Filter_TakesPPI, "CNV_B64Filter")(szOutput, szInput, nStrLen);
        }

        private static TakesB CNV_CheckUTF8_TakesB;
        /// <summary>CNV_CheckUTF8 classifies a text.</summary>
        public static int CNV_CheckUTF8(byte[] szInput)
        {
            return Module.Bind(ref CNV_CheckUTF8_TakesB, "CNV_CheckUTF8")(szInput);
        }

        private static TakesP CNV_CheckUTF8_TakesP;
        /// <summary>CNV_CheckUTF8 classifies a text.</summary>
        public static int CNV_CheckUTF8(IntPtr szInput)
        {
            return Module.Bind(ref CNV_CheckUTF8_TakesP, "CNV_CheckUTF8")(szInput);
        }

        private static TakesBI CNV_CheckUTF8Bytes_TakesBI;
        /// <summary>CNV_CheckUTF8Bytes is CNV_CheckUTF8 over nBytes bytes.</summary>
        public static int CNV_CheckUTF8Bytes(byte[] lpInput, int nBytes)
        {
            return Module.Bind(ref CNV_CheckUTF8Bytes_TakesBI, "CNV_CheckUTF8Bytes")(lpInput, nBytes);
        }

        private static TakesPI CNV_CheckUTF8Bytes_TakesPI;
        /// <summary>CNV_CheckUTF8Bytes is CNV_CheckUTF8 over nBytes bytes.</summary>
        public static int CNV_CheckUTF8Bytes(IntPtr lpInput, int nBytes)
        {
            return Module.Bind(ref CNV_CheckUTF8Bytes_TakesPI, "CNV_CheckUTF8Bytes")(lpInput, nBytes);
        }

        private static TakesBIB CNV_UTF8FromLatin1_TakesBIB;
        /// <summary>CNV_UTF8FromLatin1 converts Latin-1 text to UTF-8 text.</summary>
        public static int CNV_UTF8FromLatin1(byte[] szOutput, int nOutChars, byte[] szInput)
        {
            return Module.Bind(ref CNV_UTF8FromLatin1_TakesBIB, "CNV_UTF8FromLatin1")(szOutput, nOutChars, szInput);
        }

        private static TakesPIP CNV_UTF8FromLatin1_TakesPIP;
        /// <summary>CNV_UTF8FromLatin1 converts Latin-1 text to UTF-8 text.</summary>
        public static int CNV_UTF8FromLatin1(IntPtr szOutput, int nOutChars, IntPtr szInput)
        {
            return Module.Bind(ref CNV_UTF8FromLatin1_TakesPIP, "CNV_UTF8FromLatin1")(szOutput, nOutChars, szInput);
        }

        private static TakesBIB CNV_Latin1FromUTF8_TakesBIB;
        /// <summary>CNV_Latin1FromUTF8 converts UTF-8 text to Latin-1 text.</summary>
        public static int CNV_Latin1FromUTF8(byte[] szOutput, int nOutChars, byte[] szInput)
        {
            return Module.Bind(ref CNV_Latin1FromUTF8_TakesBIB, "CNV_Latin1FromUTF8")(szOutput, nOutChars, szInput);
        }

        private static TakesPIP CNV_Latin1FromUTF8_TakesPIP;
        /// <summary>CNV_Latin1FromUTF8 converts UTF-8 text to Latin-1 text.</summary>
        public static int CNV_Latin1FromUTF8(IntPtr szOutput, int nOutChars, IntPtr szInput)
        {
            return Module.Bind(ref CNV_Latin1FromUTF8_TakesPIP, "CNV_Latin1FromUTF8")(szOutput, nOutChars, szInput);
        }

        private static TakesBIB CNV_UTF8BytesFromLatin1_TakesBIB;
        /// <summary>CNV_UTF8BytesFromLatin1 is CNV_UTF8FromLatin1 without the NUL; nOutBytes is the room in bytes.</summary>
        public static int CNV_UTF8BytesFromLatin1(byte[] lpOutput, int nOutBytes, byte[] szInput)
        {
            return Module.Bind(ref CNV_UTF8BytesFromLatin1_TakesBIB, "CNV_UTF8BytesFromLatin1")(lpOutput, nOutBytes, szInput);
        }

        private static TakesPIP CNV_UTF8BytesFromLatin1_TakesPIP;
        /// <summary>CNV_UTF8BytesFromLatin1 is CNV_UTF8FromLatin1 without the NUL; nOutBytes is the room in bytes.</summary>
        public static int CNV_UTF8BytesFromLatin1(IntPtr lpOutput, int nOutBytes, IntPtr szInput)
        {
            return Module.Bind(ref CNV_UTF8BytesFromLatin1_TakesPIP, "CNV_UTF8BytesFromLatin1")(lpOutput, nOutBytes, szInput);
        }

        private static TakesBIBI CNV_Latin1FromUTF8Bytes_TakesBIBI;
        /// <summary>CNV_Latin1FromUTF8Bytes is CNV_Latin1FromUTF8 over nBytes bytes.</summary>
        public static int CNV_Latin1FromUTF8Bytes(byte[] szOutput, int nOutChars, byte[] lpInput, int nBytes)
        {
            return Module.Bind(ref CNV_Latin1FromUTF8Bytes_TakesBIBI, "CNV_Latin1FromUTF8Bytes")(szOutput, nOutChars, lpInput, nBytes);
        }

        private static TakesPIPI CNV_Latin1FromUTF8Bytes_TakesPIPI;
        /// <summary>CNV_Latin1FromUTF8Bytes is CNV_Latin1FromUTF8 over nBytes bytes.</summary>
        public static int CNV_Latin1FromUTF8Bytes(IntPtr szOutput, int nOutChars, IntPtr lpInput, int nBytes)
        {
            return Module.Bind(ref CNV_Latin1FromUTF8Bytes_TakesPIPI, "CNV_Latin1FromUTF8Bytes")(szOutput, nOutChars, lpInput, nBytes);
        }

        private static TakesBIBII CNV_ByteEncoding_TakesBIBII;
        /// <summary>CNV_ByteEncoding converts bytes.</summary>
        public static int CNV_ByteEncoding(byte[] lpOutput, int nOutBytes, byte[] lpInput, int nBytes, int nOptions)
        {
            return Module.Bind(ref CNV_ByteEncoding_TakesBIBII, "CNV_ByteEncoding")(lpOutput, nOutBytes, lpInput, nBytes, nOptions);
        }

        private static TakesPIPII CNV_ByteEncoding_TakesPIPII;
        /// <summary>CNV_ByteEncoding converts bytes.</summary>
        public static int CNV_ByteEncoding(IntPtr lpOutput, int nOutBytes, IntPtr lpInput, int nBytes, int nOptions)
        {
            return Module.Bind(ref CNV_ByteEncoding_TakesPIPII, "CNV_ByteEncoding")(lpOutput, nOutBytes, lpInput, nBytes, nOptions);
        }

        private static TakesBBBI PEM_FileFromBinFile_TakesBBBI;
        /// <summary>PEM_FileFromBinFile writes a file's content as base64 lines ended by CR LF, between BEGIN and END lines if szHeader (the label) is not null or empty.</summary>
        public static int PEM_FileFromBinFile(byte[] szFileOut, byte[] szFileIn, byte[] szHeader, int nLineLen)
        {
            return Module.Bind(ref PEM_FileFromBinFile_TakesBBBI, "PEM_FileFromBinFile")(szFileOut, szFileIn, szHeader, nLineLen);
        }

        private static TakesPPPI PEM_FileFromBinFile_TakesPPPI;
        /// <summary>PEM_FileFromBinFile writes a file's content as base64 lines ended by CR LF, between BEGIN and END lines if szHeader (the label) is not null or empty.</summary>
        public static int PEM_FileFromBinFile(IntPtr szFileOut, IntPtr szFileIn, IntPtr szHeader, int nLineLen)
        {
            return Module.Bind(ref PEM_FileFromBinFile_TakesPPPI, "PEM_FileFromBinFile")(szFileOut, szFileIn, szHeader, nLineLen);
        }

        private static TakesBB PEM_FileToBinFile_TakesBB;
        /// <summary>PEM_FileToBinFile decodes the first armoured body of a file, whatever its label.</summary>
        public static int PEM_FileToBinFile(byte[] szFileOut, byte[] szFileIn)
        {
            return Module.Bind(ref PEM_FileToBinFile_TakesBB, "PEM_FileToBinFile")(szFileOut, szFileIn);
        }

        private static TakesPP PEM_FileToBinFile_TakesPP;
        /// <summary>PEM_FileToBinFile decodes the first armoured body of a file, whatever its label.</summary>
        public static int PEM_FileToBinFile(IntPtr szFileOut, IntPtr szFileIn)
        {
            return Module.Bind(ref PEM_FileToBinFile_TakesPP, "PEM_FileToBinFile")(szFileOut, szFileIn);
        }

        private static TakesBIBII HASH_Bytes_TakesBIBII;
        /// <summary>HASH_Bytes writes the digest of a message of nMsgLen bytes.</summary>
        public static int HASH_Bytes(byte[] lpDigest, int nDigLen, byte[] lpMessage, int nMsgLen, int nOptions)
        {
            return Module.Bind(ref HASH_Bytes_TakesBIBII, "HASH_Bytes")(lpDigest, nDigLen, lpMessage, nMsgLen, nOptions);
        }

        private static TakesPIPII HASH_Bytes_TakesPIPII;
        /// <summary>HASH_Bytes writes the digest of a message of nMsgLen bytes.</summary>
        public static int HASH_Bytes(IntPtr lpDigest, int nDigLen, IntPtr lpMessage, int nMsgLen, int nOptions)
        {
            return Module.Bind(ref HASH_Bytes_TakesPIPII, "HASH_Bytes")(lpDigest, nDigLen, lpMessage, nMsgLen, nOptions);
        }

        private static TakesBIBI HASH_File_TakesBIBI;
        /// <summary>HASH_File writes the digest of a file of any size.</summary>
        public static int HASH_File(byte[] lpDigest, int nDigLen, byte[] szFileName, int nOptions)
        {
            return Module.Bind(ref HASH_File_TakesBIBI, "HASH_File")(lpDigest, nDigLen, szFileName, nOptions);
        }

        private static TakesPIPI HASH_File_TakesPIPI;
        /// <summary>HASH_File writes the digest of a file of any size.</summary>
        public static int HASH_File(IntPtr lpDigest, int nDigLen, IntPtr szFileName, int nOptions)
        {
            return Module.Bind(ref HASH_File_TakesPIPI, "HASH_File")(lpDigest, nDigLen, szFileName, nOptions);
        }

        private static TakesBIBII HASH_HexFromBytes_TakesBIBII;
        /// <summary>HASH_HexFromBytes is HASH_Bytes with lower-case hex as output.</summary>
        public static int HASH_HexFromBytes(byte[] szOutput, int nOutChars, byte[] lpMessage, int nMsgLen, int nOptions)
        {
            return Module.Bind(ref HASH_HexFromBytes_TakesBIBII, "HASH_HexFromBytes")(szOutput, nOutChars, lpMessage, nMsgLen, nOptions);
        }

        private static TakesPIPII HASH_HexFromBytes_TakesPIPII;
        /// <summary>HASH_HexFromBytes is HASH_Bytes with lower-case hex as output.</summary>
        public static int HASH_HexFromBytes(IntPtr szOutput, int nOutChars, IntPtr lpMessage, int nMsgLen, int nOptions)
        {
            return Module.Bind(ref HASH_HexFromBytes_TakesPIPII, "HASH_HexFromBytes")(szOutput, nOutChars, lpMessage, nMsgLen, nOptions);
        }

        private static TakesBIBI HASH_HexFromFile_TakesBIBI;
        /// <summary>HASH_HexFromFile is HASH_File with lower-case hex as output.</summary>
        public static int HASH_HexFromFile(byte[] szOutput, int nOutChars, byte[] szFileName, int nOptions)
        {
            return Module.Bind(ref HASH_HexFromFile_TakesBIBI, "HASH_HexFromFile")(szOutput, nOutChars, szFileName, nOptions);
        }

        private static TakesPIPI HASH_HexFromFile_TakesPIPI;
        /// <summary>HASH_HexFromFile is HASH_File with lower-case hex as output.</summary>
        public static int HASH_HexFromFile(IntPtr szOutput, int nOutChars, IntPtr szFileName, int nOptions)
        {
            return Module.Bind(ref HASH_HexFromFile_TakesPIPI, "HASH_HexFromFile")(szOutput, nOutChars, szFileName, nOptions);
        }

        private static TakesBIBI HASH_HexFromHex_TakesBIBI;
        /// <summary>HASH_HexFromHex is HASH_HexFromBytes over a message in hex.</summary>
        public static int HASH_HexFromHex(byte[] szOutput, int nOutChars, byte[] szMsgHex, int nOptions)
        {
            return Module.Bind(ref HASH_HexFromHex_TakesBIBI, "HASH_HexFromHex")(szOutput, nOutChars, szMsgHex, nOptions);
        }

        private static TakesPIPI HASH_HexFromHex_TakesPIPI;
        /// <summary>HASH_HexFromHex is HASH_HexFromBytes over a message in hex.</summary>
        public static int HASH_HexFromHex(IntPtr szOutput, int nOutChars, IntPtr szMsgHex, int nOptions)
        {
            return Module.Bind(ref HASH_HexFromHex_TakesPIPI, "HASH_HexFromHex")(szOutput, nOutChars, szMsgHex, nOptions);
        }

        private static TakesBIBIBII HMAC_Bytes_TakesBIBIBII;
        /// <summary>HMAC_Bytes writes the MAC of a message.</summary>
        public static int HMAC_Bytes(byte[] lpDigest, int nDigLen, byte[] lpMessage, int nMsgLen, byte[] lpKey, int nKeyLen, int nOptions)
        {
            return Module.Bind(ref HMAC_Bytes_TakesBIBIBII, "HMAC_Bytes")(lpDigest, nDigLen, lpMessage, nMsgLen, lpKey, nKeyLen, nOptions);
        }

        private static TakesPIPIPII HMAC_Bytes_TakesPIPIPII;
        /// <summary>HMAC_Bytes writes the MAC of a message.</summary>
        public static int HMAC_Bytes(IntPtr lpDigest, int nDigLen, IntPtr lpMessage, int nMsgLen, IntPtr lpKey, int nKeyLen, int nOptions)
        {
            return Module.Bind(ref HMAC_Bytes_TakesPIPIPII, "HMAC_Bytes")(lpDigest, nDigLen, lpMessage, nMsgLen, lpKey, nKeyLen, nOptions);
        }

        private static TakesBIBIBII HMAC_HexFromBytes_TakesBIBIBII;
        /// <summary>HMAC_HexFromBytes is HMAC_Bytes with lower-case hex as output.</summary>
        public static int HMAC_HexFromBytes(byte[] szOutput, int nOutChars, byte[] lpMessage, int nMsgLen, byte[] lpKey, int nKeyLen, int nOptions)
        {
            return Module.Bind(ref HMAC_HexFromBytes_TakesBIBIBII, "HMAC_HexFromBytes")(szOutput, nOutChars, lpMessage, nMsgLen, lpKey, nKeyLen, nOptions);
        }

        private static TakesPIPIPII HMAC_HexFromBytes_TakesPIPIPII;
        /// <summary>HMAC_HexFromBytes is HMAC_Bytes with lower-case hex as output.</summary>
        public static int HMAC_HexFromBytes(IntPtr szOutput, int nOutChars, IntPtr lpMessage, int nMsgLen, IntPtr lpKey, int nKeyLen, int nOptions)
        {
            return Module.Bind(ref HMAC_HexFromBytes_TakesPIPIPII, "HMAC_HexFromBytes")(szOutput, nOutChars, lpMessage, nMsgLen, lpKey, nKeyLen, nOptions);
        }

        private static TakesBIBBI HMAC_HexFromHex_TakesBIBBI;
        /// <summary>HMAC_HexFromHex is HMAC_HexFromBytes over a message and key in hex.</summary>
        public static int HMAC_HexFromHex(byte[] szOutput, int nOutChars, byte[] szMsgHex, byte[] szKeyHex, int nOptions)
        {
            return Module.Bind(ref HMAC_HexFromHex_TakesBIBBI, "HMAC_HexFromHex")(szOutput, nOutChars, szMsgHex, szKeyHex, nOptions);
        }

        private static TakesPIPPI HMAC_HexFromHex_TakesPIPPI;
        /// <summary>HMAC_HexFromHex is HMAC_HexFromBytes over a message and key in hex.</summary>
        public static int HMAC_HexFromHex(IntPtr szOutput, int nOutChars, IntPtr szMsgHex, IntPtr szKeyHex, int nOptions)
        {
            return Module.Bind(ref HMAC_HexFromHex_TakesPIPPI, "HMAC_HexFromHex")(szOutput, nOutChars, szMsgHex, szKeyHex, nOptions);
        }

        private static TakesBIBIBIIB KDF_Pbkdf2_TakesBIBIBIIB;
        /// <summary>KDF_Pbkdf2 is PBKDF2 of RFC 8018 with HMAC.</summary>
        public static int KDF_Pbkdf2(byte[] lpOutput, int nOutBytes, byte[] lpPassword, int nPwdLen, byte[] lpSalt, int nSaltLen, int nIterations, byte[] szHash)
        {
            return Module.Bind(ref KDF_Pbkdf2_TakesBIBIBIIB, "KDF_Pbkdf2")(lpOutput, nOutBytes, lpPassword, nPwdLen, lpSalt, nSaltLen, nIterations, szHash);
        }

        private static TakesPIPIPIIP KDF_Pbkdf2_TakesPIPIPIIP;
        /// <summary>KDF_Pbkdf2 is PBKDF2 of RFC 8018 with HMAC.</summary>
        public static int KDF_Pbkdf2(IntPtr lpOutput, int nOutBytes, IntPtr lpPassword, int nPwdLen, IntPtr lpSalt, int nSaltLen, int nIterations, IntPtr szHash)
        {
            return Module.Bind(ref KDF_Pbkdf2_TakesPIPIPIIP, "KDF_Pbkdf2")(lpOutput, nOutBytes, lpPassword, nPwdLen, lpSalt, nSaltLen, nIterations, szHash);
        }

        private static TakesBIBIBIBIB KDF_Hkdf_TakesBIBIBIBIB;
        /// <summary>KDF_Hkdf is HKDF of RFC 5869, extract and expand.</summary>
        public static int KDF_Hkdf(byte[] lpOutput, int nOutBytes, byte[] lpKey, int nKeyLen, byte[] lpSalt, int nSaltLen, byte[] lpInfo, int nInfoLen, byte[] szHash)
        {
            return Module.Bind(ref KDF_Hkdf_TakesBIBIBIBIB, "KDF_Hkdf")(lpOutput, nOutBytes, lpKey, nKeyLen, lpSalt, nSaltLen, lpInfo, nInfoLen, szHash);
        }

        private static TakesPIPIPIPIP KDF_Hkdf_TakesPIPIPIPIP;
        /// <summary>KDF_Hkdf is HKDF of RFC 5869, extract and expand.</summary>
        public static int KDF_Hkdf(IntPtr lpOutput, int nOutBytes, IntPtr lpKey, int nKeyLen, IntPtr lpSalt, int nSaltLen, IntPtr lpInfo, int nInfoLen, IntPtr szHash)
        {
            return Module.Bind(ref KDF_Hkdf_TakesPIPIPIPIP, "KDF_Hkdf")(lpOutput, nOutBytes, lpKey, nKeyLen, lpSalt, nSaltLen, lpInfo, nInfoLen, szHash);
        }

        private static TakesBIBIBIIII KDF_Scrypt_TakesBIBIBIIII;
        /// <summary>KDF_Scrypt is scrypt of RFC 7914.</summary>
        public static int KDF_Scrypt(byte[] lpOutput, int nOutBytes, byte[] lpPassword, int nPwdLen, byte[] lpSalt, int nSaltLen, int nN, int nR, int nP)
        {
            return Module.Bind(ref KDF_Scrypt_TakesBIBIBIIII, "KDF_Scrypt")(lpOutput, nOutBytes, lpPassword, nPwdLen, lpSalt, nSaltLen, nN, nR, nP);
        }

        private static TakesPIPIPIIII KDF_Scrypt_TakesPIPIPIIII;
        /// <summary>KDF_Scrypt is scrypt of RFC 7914.</summary>
        public static int KDF_Scrypt(IntPtr lpOutput, int nOutBytes, IntPtr lpPassword, int nPwdLen, IntPtr lpSalt, int nSaltLen, int nN, int nR, int nP)
        {
            return Module.Bind(ref KDF_Scrypt_TakesPIPIPIIII, "KDF_Scrypt")(lpOutput, nOutBytes, lpPassword, nPwdLen, lpSalt, nSaltLen, nN, nR, nP);
        }

        private static TakesBIBIBIIII KDF_Argon2id_TakesBIBIBIIII;
        /// <summary>KDF_Argon2id is Argon2id of RFC 9106, version 0x13, without secret and associated data.</summary>
        public static int KDF_Argon2id(byte[] lpOutput, int nOutBytes, byte[] lpPassword, int nPwdLen, byte[] lpSalt, int nSaltLen, int nMemoryKiB, int nPasses, int nLanes)
        {
            return Module.Bind(ref KDF_Argon2id_TakesBIBIBIIII, "KDF_Argon2id")(lpOutput, nOutBytes, lpPassword, nPwdLen, lpSalt, nSaltLen, nMemoryKiB, nPasses, nLanes);
        }

        private static TakesPIPIPIIII KDF_Argon2id_TakesPIPIPIIII;
        /// <summary>KDF_Argon2id is Argon2id of RFC 9106, version 0x13, without secret and associated data.</summary>
        public static int KDF_Argon2id(IntPtr lpOutput, int nOutBytes, IntPtr lpPassword, int nPwdLen, IntPtr lpSalt, int nSaltLen, int nMemoryKiB, int nPasses, int nLanes)
        {
            return Module.Bind(ref KDF_Argon2id_TakesPIPIPIIII, "KDF_Argon2id")(lpOutput, nOutBytes, lpPassword, nPwdLen, lpSalt, nSaltLen, nMemoryKiB, nPasses, nLanes);
        }

        private static TakesIBBIBBBI CIPHER_Bytes_TakesIBBIBBBI;
        /// <summary>CIPHER_Bytes encrypts or decrypts nBytes bytes; lpOutput has the same length and may be lpInput.</summary>
        public static int CIPHER_Bytes(int fEncrypt, byte[] lpOutput, byte[] lpInput, int nBytes, byte[] lpKey, byte[] lpIV, byte[] szAlgAndMode, int nOptions)
        {
            return Module.Bind(ref CIPHER_Bytes_TakesIBBIBBBI, "CIPHER_Bytes")(fEncrypt, lpOutput, lpInput, nBytes, lpKey, lpIV, szAlgAndMode, nOptions);
        }

        private static TakesIPPIPPPI CIPHER_Bytes_TakesIPPIPPPI;
        /// <summary>CIPHER_Bytes encrypts or decrypts nBytes bytes; lpOutput has the same length and may be lpInput.</summary>
        public static int CIPHER_Bytes(int fEncrypt, IntPtr lpOutput, IntPtr lpInput, int nBytes, IntPtr lpKey, IntPtr lpIV, IntPtr szAlgAndMode, int nOptions)
        {
            return Module.Bind(ref CIPHER_Bytes_TakesIPPIPPPI, "CIPHER_Bytes")(fEncrypt, lpOutput, lpInput, nBytes, lpKey, lpIV, szAlgAndMode, nOptions);
        }

        private static TakesIBIBBBBI CIPHER_Hex_TakesIBIBBBBI;
        /// <summary>CIPHER_Hex is CIPHER_Bytes over hex texts; the output is upper case and nOutChars must cover all of it (SHORT_BUF_ERROR).</summary>
        public static int CIPHER_Hex(int fEncrypt, byte[] szOutput, int nOutChars, byte[] szInputHex, byte[] szKeyHex, byte[] szIVHex, byte[] szAlgAndMode, int nOptions)
        {
            return Module.Bind(ref CIPHER_Hex_TakesIBIBBBBI, "CIPHER_Hex")(fEncrypt, szOutput, nOutChars, szInputHex, szKeyHex, szIVHex, szAlgAndMode, nOptions);
        }

        private static TakesIPIPPPPI CIPHER_Hex_TakesIPIPPPPI;
        /// <summary>CIPHER_Hex is CIPHER_Bytes over hex texts; the output is upper case and nOutChars must cover all of it (SHORT_BUF_ERROR).</summary>
        public static int CIPHER_Hex(int fEncrypt, IntPtr szOutput, int nOutChars, IntPtr szInputHex, IntPtr szKeyHex, IntPtr szIVHex, IntPtr szAlgAndMode, int nOptions)
        {
            return Module.Bind(ref CIPHER_Hex_TakesIPIPPPPI, "CIPHER_Hex")(fEncrypt, szOutput, nOutChars, szInputHex, szKeyHex, szIVHex, szAlgAndMode, nOptions);
        }

        private static TakesIBBBBBI CIPHER_File_TakesIBBBBBI;
        /// <summary>CIPHER_File encrypts or decrypts a file of any size into another.</summary>
        public static int CIPHER_File(int fEncrypt, byte[] szFileOut, byte[] szFileIn, byte[] lpKey, byte[] lpIV, byte[] szAlgAndMode, int nOptions)
        {
            return Module.Bind(ref CIPHER_File_TakesIBBBBBI, "CIPHER_File")(fEncrypt, szFileOut, szFileIn, lpKey, lpIV, szAlgAndMode, nOptions);
        }

        private static TakesIPPPPPI CIPHER_File_TakesIPPPPPI;
        /// <summary>CIPHER_File encrypts or decrypts a file of any size into another.</summary>
        public static int CIPHER_File(int fEncrypt, IntPtr szFileOut, IntPtr szFileIn, IntPtr lpKey, IntPtr lpIV, IntPtr szAlgAndMode, int nOptions)
        {
            return Module.Bind(ref CIPHER_File_TakesIPPPPPI, "CIPHER_File")(fEncrypt, szFileOut, szFileIn, lpKey, lpIV, szAlgAndMode, nOptions);
        }

        private static TakesBBIBIBB TDEA_BytesMode_TakesBBIBIBB;
        /// <summary>TDEA_BytesMode is CIPHER_Bytes with Triple DES; szMode is "ECB", "CBC", "CFB", "OFB" or "CTR" in any case (BAD_MODE_ERROR otherwise; BAD_PARAM_ERROR if null).</summary>
        public static int TDEA_BytesMode(byte[] lpOutput, byte[] lpInput, int nBytes, byte[] lpKey, int fEncrypt, byte[] szMode, byte[] lpIV)
        {
            return Module.Bind(ref TDEA_BytesMode_TakesBBIBIBB, "TDEA_BytesMode")(lpOutput, lpInput, nBytes, lpKey, fEncrypt, szMode, lpIV);
        }

        private static TakesPPIPIPP TDEA_BytesMode_TakesPPIPIPP;
        /// <summary>TDEA_BytesMode is CIPHER_Bytes with Triple DES; szMode is "ECB", "CBC", "CFB", "OFB" or "CTR" in any case (BAD_MODE_ERROR otherwise; BAD_PARAM_ERROR if null).</summary>
        public static int TDEA_BytesMode(IntPtr lpOutput, IntPtr lpInput, int nBytes, IntPtr lpKey, int fEncrypt, IntPtr szMode, IntPtr lpIV)
        {
            return Module.Bind(ref TDEA_BytesMode_TakesPPIPIPP, "TDEA_BytesMode")(lpOutput, lpInput, nBytes, lpKey, fEncrypt, szMode, lpIV);
        }

        private static TakesBBBIBB TDEA_HexMode_TakesBBBIBB;
        /// <summary>TDEA_HexMode is TDEA_BytesMode over hex texts.</summary>
        public static int TDEA_HexMode(byte[] szOutput, byte[] szInputHex, byte[] szKeyHex, int fEncrypt, byte[] szMode, byte[] szIVHex)
        {
            return Module.Bind(ref TDEA_HexMode_TakesBBBIBB, "TDEA_HexMode")(szOutput, szInputHex, szKeyHex, fEncrypt, szMode, szIVHex);
        }

        private static TakesPPPIPP TDEA_HexMode_TakesPPPIPP;
        /// <summary>TDEA_HexMode is TDEA_BytesMode over hex texts.</summary>
        public static int TDEA_HexMode(IntPtr szOutput, IntPtr szInputHex, IntPtr szKeyHex, int fEncrypt, IntPtr szMode, IntPtr szIVHex)
        {
            return Module.Bind(ref TDEA_HexMode_TakesPPPIPP, "TDEA_HexMode")(szOutput, szInputHex, szKeyHex, fEncrypt, szMode, szIVHex);
        }

        private static TakesBBBIBB TDEA_B64Mode_TakesBBBIBB;
        /// <summary>TDEA_B64Mode is TDEA_HexMode over base64 texts; szOutput holds (bytes + 2) / 3 * 4 characters and a NUL.</summary>
        public static int TDEA_B64Mode(byte[] szOutput, byte[] szInputB64, byte[] szKeyB64, int fEncrypt, byte[] szMode, byte[] szIVB64)
        {
            return Module.Bind(ref TDEA_B64Mode_TakesBBBIBB, "TDEA_B64Mode")(szOutput, szInputB64, szKeyB64, fEncrypt, szMode, szIVB64);
        }

        private static TakesPPPIPP TDEA_B64Mode_TakesPPPIPP;
        /// <summary>TDEA_B64Mode is TDEA_HexMode over base64 texts; szOutput holds (bytes + 2) / 3 * 4 characters and a NUL.</summary>
        public static int TDEA_B64Mode(IntPtr szOutput, IntPtr szInputB64, IntPtr szKeyB64, int fEncrypt, IntPtr szMode, IntPtr szIVB64)
        {
            return Module.Bind(ref TDEA_B64Mode_TakesPPPIPP, "TDEA_B64Mode")(szOutput, szInputB64, szKeyB64, fEncrypt, szMode, szIVB64);
        }

        private static TakesBBBIBB TDEA_File_TakesBBBIBB;
        /// <summary>TDEA_File is CIPHER_File with Triple DES and a mode as in TDEA_BytesMode.</summary>
        public static int TDEA_File(byte[] szFileOut, byte[] szFileIn, byte[] lpKey, int fEncrypt, byte[] szMode, byte[] lpIV)
        {
            return Module.Bind(ref TDEA_File_TakesBBBIBB, "TDEA_File")(szFileOut, szFileIn, lpKey, fEncrypt, szMode, lpIV);
        }

        private static TakesPPPIPP TDEA_File_TakesPPPIPP;
        /// <summary>TDEA_File is CIPHER_File with Triple DES and a mode as in TDEA_BytesMode.</summary>
        public static int TDEA_File(IntPtr szFileOut, IntPtr szFileIn, IntPtr lpKey, int fEncrypt, IntPtr szMode, IntPtr lpIV)
        {
            return Module.Bind(ref TDEA_File_TakesPPPIPP, "TDEA_File")(szFileOut, szFileIn, lpKey, fEncrypt, szMode, lpIV);
        }

        private static TakesBIBIBII CIPHER_KeyWrap_TakesBIBIBII;
        /// <summary>CIPHER_KeyWrap wraps a key of nDataLen bytes under a key-encryption key.</summary>
        public static int CIPHER_KeyWrap(byte[] lpOutput, int nOutBytes, byte[] lpData, int nDataLen, byte[] lpKEK, int nKekLen, int nOptions)
        {
            return Module.Bind(ref CIPHER_KeyWrap_TakesBIBIBII, "CIPHER_KeyWrap")(lpOutput, nOutBytes, lpData, nDataLen, lpKEK, nKekLen, nOptions);
        }

        private static TakesPIPIPII CIPHER_KeyWrap_TakesPIPIPII;
        /// <summary>CIPHER_KeyWrap wraps a key of nDataLen bytes under a key-encryption key.</summary>
        public static int CIPHER_KeyWrap(IntPtr lpOutput, int nOutBytes, IntPtr lpData, int nDataLen, IntPtr lpKEK, int nKekLen, int nOptions)
        {
            return Module.Bind(ref CIPHER_KeyWrap_TakesPIPIPII, "CIPHER_KeyWrap")(lpOutput, nOutBytes, lpData, nDataLen, lpKEK, nKekLen, nOptions);
        }

        private static TakesBIBIBII CIPHER_KeyUnwrap_TakesBIBIBII;
        /// <summary>CIPHER_KeyUnwrap undoes CIPHER_KeyWrap; errors as there.</summary>
        public static int CIPHER_KeyUnwrap(byte[] lpOutput, int nOutBytes, byte[] lpData, int nDataLen, byte[] lpKEK, int nKekLen, int nOptions)
        {
            return Module.Bind(ref CIPHER_KeyUnwrap_TakesBIBIBII, "CIPHER_KeyUnwrap")(lpOutput, nOutBytes, lpData, nDataLen, lpKEK, nKekLen, nOptions);
        }

        private static TakesPIPIPII CIPHER_KeyUnwrap_TakesPIPIPII;
        /// <summary>CIPHER_KeyUnwrap undoes CIPHER_KeyWrap; errors as there.</summary>
        public static int CIPHER_KeyUnwrap(IntPtr lpOutput, int nOutBytes, IntPtr lpData, int nDataLen, IntPtr lpKEK, int nKekLen, int nOptions)
        {
            return Module.Bind(ref CIPHER_KeyUnwrap_TakesPIPIPII, "CIPHER_KeyUnwrap")(lpOutput, nOutBytes, lpData, nDataLen, lpKEK, nKekLen, nOptions);
        }

        private static TakesBIBIII PAD_BytesBlock_TakesBIBIII;
        /// <summary>PAD_BytesBlock copies the input and appends 1 to nBlkLen bytes that hold their count.</summary>
        public static int PAD_BytesBlock(byte[] lpOutput, int nOutputLen, byte[] lpInput, int nInputLen, int nBlkLen, int nOptions)
        {
            return Module.Bind(ref PAD_BytesBlock_TakesBIBIII, "PAD_BytesBlock")(lpOutput, nOutputLen, lpInput, nInputLen, nBlkLen, nOptions);
        }

        private static TakesPIPIII PAD_BytesBlock_TakesPIPIII;
        /// <summary>PAD_BytesBlock copies the input and appends 1 to nBlkLen bytes that hold their count.</summary>
        public static int PAD_BytesBlock(IntPtr lpOutput, int nOutputLen, IntPtr lpInput, int nInputLen, int nBlkLen, int nOptions)
        {
            return Module.Bind(ref PAD_BytesBlock_TakesPIPIII, "PAD_BytesBlock")(lpOutput, nOutputLen, lpInput, nInputLen, nBlkLen, nOptions);
        }

        private static TakesBIBIII PAD_UnpadBytes_TakesBIBIII;
        /// <summary>PAD_UnpadBytes copies the input without its padding.</summary>
        public static int PAD_UnpadBytes(byte[] lpOutput, int nOutputLen, byte[] lpInput, int nInputLen, int nBlkLen, int nOptions)
        {
            return Module.Bind(ref PAD_UnpadBytes_TakesBIBIII, "PAD_UnpadBytes")(lpOutput, nOutputLen, lpInput, nInputLen, nBlkLen, nOptions);
        }

        private static TakesPIPIII PAD_UnpadBytes_TakesPIPIII;
        /// <summary>PAD_UnpadBytes copies the input without its padding.</summary>
        public static int PAD_UnpadBytes(IntPtr lpOutput, int nOutputLen, IntPtr lpInput, int nInputLen, int nBlkLen, int nOptions)
        {
            return Module.Bind(ref PAD_UnpadBytes_TakesPIPIII, "PAD_UnpadBytes")(lpOutput, nOutputLen, lpInput, nInputLen, nBlkLen, nOptions);
        }

        private static TakesBIBII PAD_HexBlock_TakesBIBII;
        /// <summary>PAD_HexBlock is PAD_BytesBlock over hex text, which is copied unchanged and not validated.</summary>
        public static int PAD_HexBlock(byte[] szOutput, int nOutChars, byte[] szInputHex, int nBlkLen, int nOptions)
        {
            return Module.Bind(ref PAD_HexBlock_TakesBIBII, "PAD_HexBlock")(szOutput, nOutChars, szInputHex, nBlkLen, nOptions);
        }

        private static TakesPIPII PAD_HexBlock_TakesPIPII;
        /// <summary>PAD_HexBlock is PAD_BytesBlock over hex text, which is copied unchanged and not validated.</summary>
        public static int PAD_HexBlock(IntPtr szOutput, int nOutChars, IntPtr szInputHex, int nBlkLen, int nOptions)
        {
            return Module.Bind(ref PAD_HexBlock_TakesPIPII, "PAD_HexBlock")(szOutput, nOutChars, szInputHex, nBlkLen, nOptions);
        }

        private static TakesBIBII PAD_UnpadHex_TakesBIBII;
        /// <summary>PAD_UnpadHex is PAD_UnpadBytes over hex text.</summary>
        public static int PAD_UnpadHex(byte[] szOutput, int nOutChars, byte[] szInputHex, int nBlkLen, int nOptions)
        {
            return Module.Bind(ref PAD_UnpadHex_TakesBIBII, "PAD_UnpadHex")(szOutput, nOutChars, szInputHex, nBlkLen, nOptions);
        }

        private static TakesPIPII PAD_UnpadHex_TakesPIPII;
        /// <summary>PAD_UnpadHex is PAD_UnpadBytes over hex text.</summary>
        public static int PAD_UnpadHex(IntPtr szOutput, int nOutChars, IntPtr szInputHex, int nBlkLen, int nOptions)
        {
            return Module.Bind(ref PAD_UnpadHex_TakesPIPII, "PAD_UnpadHex")(szOutput, nOutChars, szInputHex, nBlkLen, nOptions);
        }

        private static TakesBIBI RNG_Bytes_TakesBIBI;
        /// <summary>RNG_Bytes fills nBytes (at most 65,536) random bytes.</summary>
        public static int RNG_Bytes(byte[] lpOutput, int nBytes, byte[] lpSeed, int nSeedLen)
        {
            return Module.Bind(ref RNG_Bytes_TakesBIBI, "RNG_Bytes")(lpOutput, nBytes, lpSeed, nSeedLen);
        }

        private static TakesPIPI RNG_Bytes_TakesPIPI;
        /// <summary>RNG_Bytes fills nBytes (at most 65,536) random bytes.</summary>
        public static int RNG_Bytes(IntPtr lpOutput, int nBytes, IntPtr lpSeed, int nSeedLen)
        {
            return Module.Bind(ref RNG_Bytes_TakesPIPI, "RNG_Bytes")(lpOutput, nBytes, lpSeed, nSeedLen);
        }

        private static TakesBIBI RNG_BytesWithPrompt_TakesBIBI;
        /// <summary>RNG_BytesWithPrompt shows a dialog in which the user types at random and moves the mouse until enough has been collected.</summary>
        public static int RNG_BytesWithPrompt(byte[] lpOutput, int nOutputLen, byte[] szPrompt, int nOptions)
        {
            return Module.Bind(ref RNG_BytesWithPrompt_TakesBIBI, "RNG_BytesWithPrompt")(lpOutput, nOutputLen, szPrompt, nOptions);
        }

        private static TakesPIPI RNG_BytesWithPrompt_TakesPIPI;
        /// <summary>RNG_BytesWithPrompt shows a dialog in which the user types at random and moves the mouse until enough has been collected.</summary>
        public static int RNG_BytesWithPrompt(IntPtr lpOutput, int nOutputLen, IntPtr szPrompt, int nOptions)
        {
            return Module.Bind(ref RNG_BytesWithPrompt_TakesPIPI, "RNG_BytesWithPrompt")(lpOutput, nOutputLen, szPrompt, nOptions);
        }

        private static TakesII RNG_Number_TakesII;
        /// <summary>RNG_Number returns a uniform number from nLower to nUpper, both included; nLower if nUpper is not greater, or if the range needs all 32 bits.</summary>
        public static int RNG_Number(int nLower, int nUpper)
        {
            return Module.Bind(ref RNG_Number_TakesII, "RNG_Number")(nLower, nUpper);
        }

        private static TakesBI RNG_Test_TakesBI;
        /// <summary>RNG_Test runs the generator's known-answer test and the four statistical tests of FIPS 140-2 on 20,000 fresh bits, and writes a report if szFileName is not null or empty.</summary>
        public static int RNG_Test(byte[] szFileName, int nOptions)
        {
            return Module.Bind(ref RNG_Test_TakesBI, "RNG_Test")(szFileName, nOptions);
        }

        private static TakesPI RNG_Test_TakesPI;
        /// <summary>RNG_Test runs the generator's known-answer test and the four statistical tests of FIPS 140-2 on 20,000 fresh bits, and writes a report if szFileName is not null or empty.</summary>
        public static int RNG_Test(IntPtr szFileName, int nOptions)
        {
            return Module.Bind(ref RNG_Test_TakesPI, "RNG_Test")(szFileName, nOptions);
        }

        private static TakesBI RNG_Initialize_TakesBI;
        /// <summary>RNG_Initialize instantiates the thread's generator and takes in a seed file of 64 bytes, which it then overwrites with fresh ones.</summary>
        public static int RNG_Initialize(byte[] szSeedFile, int nOptions)
        {
            return Module.Bind(ref RNG_Initialize_TakesBI, "RNG_Initialize")(szSeedFile, nOptions);
        }

        private static TakesPI RNG_Initialize_TakesPI;
        /// <summary>RNG_Initialize instantiates the thread's generator and takes in a seed file of 64 bytes, which it then overwrites with fresh ones.</summary>
        public static int RNG_Initialize(IntPtr szSeedFile, int nOptions)
        {
            return Module.Bind(ref RNG_Initialize_TakesPI, "RNG_Initialize")(szSeedFile, nOptions);
        }

        private static TakesBBI RNG_MakeSeedFile_TakesBBI;
        /// <summary>RNG_MakeSeedFile makes or overwrites a seed file for RNG_Initialize from what the user does in the dialog of RNG_BytesWithPrompt; szPrompt and nOptions as there.</summary>
        public static int RNG_MakeSeedFile(byte[] szSeedFile, byte[] szPrompt, int nOptions)
        {
            return Module.Bind(ref RNG_MakeSeedFile_TakesBBI, "RNG_MakeSeedFile")(szSeedFile, szPrompt, nOptions);
        }

        private static TakesPPI RNG_MakeSeedFile_TakesPPI;
        /// <summary>RNG_MakeSeedFile makes or overwrites a seed file for RNG_Initialize from what the user does in the dialog of RNG_BytesWithPrompt; szPrompt and nOptions as there.</summary>
        public static int RNG_MakeSeedFile(IntPtr szSeedFile, IntPtr szPrompt, int nOptions)
        {
            return Module.Bind(ref RNG_MakeSeedFile_TakesPPI, "RNG_MakeSeedFile")(szSeedFile, szPrompt, nOptions);
        }

        private static TakesBI RNG_UpdateSeedFile_TakesBI;
        /// <summary>RNG_UpdateSeedFile takes in a seed file and overwrites it, as RNG_Initialize.</summary>
        public static int RNG_UpdateSeedFile(byte[] szSeedFile, int nOptions)
        {
            return Module.Bind(ref RNG_UpdateSeedFile_TakesBI, "RNG_UpdateSeedFile")(szSeedFile, nOptions);
        }

        private static TakesPI RNG_UpdateSeedFile_TakesPI;
        /// <summary>RNG_UpdateSeedFile takes in a seed file and overwrites it, as RNG_Initialize.</summary>
        public static int RNG_UpdateSeedFile(IntPtr szSeedFile, int nOptions)
        {
            return Module.Bind(ref RNG_UpdateSeedFile_TakesPI, "RNG_UpdateSeedFile")(szSeedFile, nOptions);
        }

        private static TakesBIBB PWD_PromptEx_TakesBIBB;
        /// <summary>PWD_PromptEx shows a dialog in which the user enters a password, or asks for it in the process's controlling terminal (Linux).</summary>
        public static int PWD_PromptEx(byte[] szPassword, int nPwdLen, byte[] szCaption, byte[] szPrompt)
        {
            return Module.Bind(ref PWD_PromptEx_TakesBIBB, "PWD_PromptEx")(szPassword, nPwdLen, szCaption, szPrompt);
        }

        private static TakesPIPP PWD_PromptEx_TakesPIPP;
        /// <summary>PWD_PromptEx shows a dialog in which the user enters a password, or asks for it in the process's controlling terminal (Linux).</summary>
        public static int PWD_PromptEx(IntPtr szPassword, int nPwdLen, IntPtr szCaption, IntPtr szPrompt)
        {
            return Module.Bind(ref PWD_PromptEx_TakesPIPP, "PWD_PromptEx")(szPassword, nPwdLen, szCaption, szPrompt);
        }

        private static TakesBIB PWD_Prompt_TakesBIB;
        /// <summary>PWD_Prompt is PWD_PromptEx with the dialog's own text, "Enter password:".</summary>
        public static int PWD_Prompt(byte[] szPassword, int nPwdLen, byte[] szCaption)
        {
            return Module.Bind(ref PWD_Prompt_TakesBIB, "PWD_Prompt")(szPassword, nPwdLen, szCaption);
        }

        private static TakesPIP PWD_Prompt_TakesPIP;
        /// <summary>PWD_Prompt is PWD_PromptEx with the dialog's own text, "Enter password:".</summary>
        public static int PWD_Prompt(IntPtr szPassword, int nPwdLen, IntPtr szCaption)
        {
            return Module.Bind(ref PWD_Prompt_TakesPIP, "PWD_Prompt")(szPassword, nPwdLen, szCaption);
        }

        private static TakesBBIIIIBBII RSA_MakeKeys_TakesBBIIIIBBII;
        /// <summary>RSA_MakeKeys makes a key pair and writes two files.</summary>
        public static int RSA_MakeKeys(byte[] szPubKeyFile, byte[] szPriKeyFile, int nBits, int nExpIndex, int nTests, int nCount, byte[] szPassword, byte[] lpSeed, int nSeedLen, int nOptions)
        {
            return Module.Bind(ref RSA_MakeKeys_TakesBBIIIIBBII, "RSA_MakeKeys")(szPubKeyFile, szPriKeyFile, nBits, nExpIndex, nTests, nCount, szPassword, lpSeed, nSeedLen, nOptions);
        }

        private static TakesPPIIIIPPII RSA_MakeKeys_TakesPPIIIIPPII;
        /// <summary>RSA_MakeKeys makes a key pair and writes two files.</summary>
        public static int RSA_MakeKeys(IntPtr szPubKeyFile, IntPtr szPriKeyFile, int nBits, int nExpIndex, int nTests, int nCount, IntPtr szPassword, IntPtr lpSeed, int nSeedLen, int nOptions)
        {
            return Module.Bind(ref RSA_MakeKeys_TakesPPIIIIPPII, "RSA_MakeKeys")(szPubKeyFile, szPriKeyFile, nBits, nExpIndex, nTests, nCount, szPassword, lpSeed, nSeedLen, nOptions);
        }

        private static TakesBIB RSA_ReadPublicKey_TakesBIB;
        /// <summary>RSA_ReadPublicKey reads an RSAPublicKey (PKCS #1) or SubjectPublicKeyInfo (X.509) and writes its key string.</summary>
        public static int RSA_ReadPublicKey(byte[] szOutput, int nOutChars, byte[] szFileOrText)
        {
            return Module.Bind(ref RSA_ReadPublicKey_TakesBIB, "RSA_ReadPublicKey")(szOutput, nOutChars, szFileOrText);
        }

        private static TakesPIP RSA_ReadPublicKey_TakesPIP;
        /// <summary>RSA_ReadPublicKey reads an RSAPublicKey (PKCS #1) or SubjectPublicKeyInfo (X.509) and writes its key string.</summary>
        public static int RSA_ReadPublicKey(IntPtr szOutput, int nOutChars, IntPtr szFileOrText)
        {
            return Module.Bind(ref RSA_ReadPublicKey_TakesPIP, "RSA_ReadPublicKey")(szOutput, nOutChars, szFileOrText);
        }

        private static TakesBIB RSA_ReadPrivateKeyInfo_TakesBIB;
        /// <summary>RSA_ReadPrivateKeyInfo reads an unencrypted PrivateKeyInfo (PKCS #8) or RSAPrivateKey (PKCS #1) of two primes and writes its key string.</summary>
        public static int RSA_ReadPrivateKeyInfo(byte[] szOutput, int nOutChars, byte[] szFileOrText)
        {
            return Module.Bind(ref RSA_ReadPrivateKeyInfo_TakesBIB, "RSA_ReadPrivateKeyInfo")(szOutput, nOutChars, szFileOrText);
        }

        private static TakesPIP RSA_ReadPrivateKeyInfo_TakesPIP;
        /// <summary>RSA_ReadPrivateKeyInfo reads an unencrypted PrivateKeyInfo (PKCS #8) or RSAPrivateKey (PKCS #1) of two primes and writes its key string.</summary>
        public static int RSA_ReadPrivateKeyInfo(IntPtr szOutput, int nOutChars, IntPtr szFileOrText)
        {
            return Module.Bind(ref RSA_ReadPrivateKeyInfo_TakesPIP, "RSA_ReadPrivateKeyInfo")(szOutput, nOutChars, szFileOrText);
        }

        private static TakesBIBBI RSA_ReadEncPrivateKey_TakesBIBBI;
        /// <summary>RSA_ReadEncPrivateKey reads an EncryptedPrivateKeyInfo (PKCS #8) and writes the private key's key string.</summary>
        public static int RSA_ReadEncPrivateKey(byte[] szOutput, int nOutChars, byte[] szFileOrText, byte[] szPassword, int nOptions)
        {
            return Module.Bind(ref RSA_ReadEncPrivateKey_TakesBIBBI, "RSA_ReadEncPrivateKey")(szOutput, nOutChars, szFileOrText, szPassword, nOptions);
        }

        private static TakesPIPPI RSA_ReadEncPrivateKey_TakesPIPPI;
        /// <summary>RSA_ReadEncPrivateKey reads an EncryptedPrivateKeyInfo (PKCS #8) and writes the private key's key string.</summary>
        public static int RSA_ReadEncPrivateKey(IntPtr szOutput, int nOutChars, IntPtr szFileOrText, IntPtr szPassword, int nOptions)
        {
            return Module.Bind(ref RSA_ReadEncPrivateKey_TakesPIPPI, "RSA_ReadEncPrivateKey")(szOutput, nOutChars, szFileOrText, szPassword, nOptions);
        }

        private static TakesBIB RSA_GetPublicKeyFromCert_TakesBIB;
        /// <summary>RSA_GetPublicKeyFromCert reads an X.509 certificate and writes the key string of its subject's public key.</summary>
        public static int RSA_GetPublicKeyFromCert(byte[] szOutput, int nOutChars, byte[] szFileOrText)
        {
            return Module.Bind(ref RSA_GetPublicKeyFromCert_TakesBIB, "RSA_GetPublicKeyFromCert")(szOutput, nOutChars, szFileOrText);
        }

        private static TakesPIP RSA_GetPublicKeyFromCert_TakesPIP;
        /// <summary>RSA_GetPublicKeyFromCert reads an X.509 certificate and writes the key string of its subject's public key.</summary>
        public static int RSA_GetPublicKeyFromCert(IntPtr szOutput, int nOutChars, IntPtr szFileOrText)
        {
            return Module.Bind(ref RSA_GetPublicKeyFromCert_TakesPIP, "RSA_GetPublicKeyFromCert")(szOutput, nOutChars, szFileOrText);
        }

        private static TakesBBI RSA_SavePublicKey_TakesBBI;
        /// <summary>RSA_SavePublicKey writes a public key, or the public part of a private key, to a file.</summary>
        public static int RSA_SavePublicKey(byte[] szFileOut, byte[] szKeyString, int nOptions)
        {
            return Module.Bind(ref RSA_SavePublicKey_TakesBBI, "RSA_SavePublicKey")(szFileOut, szKeyString, nOptions);
        }

        private static TakesPPI RSA_SavePublicKey_TakesPPI;
        /// <summary>RSA_SavePublicKey writes a public key, or the public part of a private key, to a file.</summary>
        public static int RSA_SavePublicKey(IntPtr szFileOut, IntPtr szKeyString, int nOptions)
        {
            return Module.Bind(ref RSA_SavePublicKey_TakesPPI, "RSA_SavePublicKey")(szFileOut, szKeyString, nOptions);
        }

        private static TakesBBI RSA_SavePrivateKeyInfo_TakesBBI;
        /// <summary>RSA_SavePrivateKeyInfo writes a private key to a file, unencrypted.</summary>
        public static int RSA_SavePrivateKeyInfo(byte[] szFileOut, byte[] szKeyString, int nOptions)
        {
            return Module.Bind(ref RSA_SavePrivateKeyInfo_TakesBBI, "RSA_SavePrivateKeyInfo")(szFileOut, szKeyString, nOptions);
        }

        private static TakesPPI RSA_SavePrivateKeyInfo_TakesPPI;
        /// <summary>RSA_SavePrivateKeyInfo writes a private key to a file, unencrypted.</summary>
        public static int RSA_SavePrivateKeyInfo(IntPtr szFileOut, IntPtr szKeyString, int nOptions)
        {
            return Module.Bind(ref RSA_SavePrivateKeyInfo_TakesPPI, "RSA_SavePrivateKeyInfo")(szFileOut, szKeyString, nOptions);
        }

        private static TakesBBIBI RSA_SaveEncPrivateKey_TakesBBIBI;
        /// <summary>RSA_SaveEncPrivateKey writes a private key to a file as EncryptedPrivateKeyInfo.</summary>
        public static int RSA_SaveEncPrivateKey(byte[] szFileOut, byte[] szKeyString, int nCount, byte[] szPassword, int nOptions)
        {
            return Module.Bind(ref RSA_SaveEncPrivateKey_TakesBBIBI, "RSA_SaveEncPrivateKey")(szFileOut, szKeyString, nCount, szPassword, nOptions);
        }

        private static TakesPPIPI RSA_SaveEncPrivateKey_TakesPPIPI;
        /// <summary>RSA_SaveEncPrivateKey writes a private key to a file as EncryptedPrivateKeyInfo.</summary>
        public static int RSA_SaveEncPrivateKey(IntPtr szFileOut, IntPtr szKeyString, int nCount, IntPtr szPassword, int nOptions)
        {
            return Module.Bind(ref RSA_SaveEncPrivateKey_TakesPPIPI, "RSA_SaveEncPrivateKey")(szFileOut, szKeyString, nCount, szPassword, nOptions);
        }

        private static TakesBIBI RSA_ToXMLString_TakesBIBI;
        /// <summary>RSA_ToXMLString writes a key as XML.</summary>
        public static int RSA_ToXMLString(byte[] szOutput, int nOutChars, byte[] szKeyString, int nOptions)
        {
            return Module.Bind(ref RSA_ToXMLString_TakesBIBI, "RSA_ToXMLString")(szOutput, nOutChars, szKeyString, nOptions);
        }

        private static TakesPIPI RSA_ToXMLString_TakesPIPI;
        /// <summary>RSA_ToXMLString writes a key as XML.</summary>
        public static int RSA_ToXMLString(IntPtr szOutput, int nOutChars, IntPtr szKeyString, int nOptions)
        {
            return Module.Bind(ref RSA_ToXMLString_TakesPIPI, "RSA_ToXMLString")(szOutput, nOutChars, szKeyString, nOptions);
        }

        private static TakesBIBI RSA_FromXMLString_TakesBIBI;
        /// <summary>RSA_FromXMLString reads a key from XML and gives its internal key string.</summary>
        public static int RSA_FromXMLString(byte[] szOutput, int nOutChars, byte[] szXmlString, int nOptions)
        {
            return Module.Bind(ref RSA_FromXMLString_TakesBIBI, "RSA_FromXMLString")(szOutput, nOutChars, szXmlString, nOptions);
        }

        private static TakesPIPI RSA_FromXMLString_TakesPIPI;
        /// <summary>RSA_FromXMLString reads a key from XML and gives its internal key string.</summary>
        public static int RSA_FromXMLString(IntPtr szOutput, int nOutChars, IntPtr szXmlString, int nOptions)
        {
            return Module.Bind(ref RSA_FromXMLString_TakesPIPI, "RSA_FromXMLString")(szOutput, nOutChars, szXmlString, nOptions);
        }

        private static TakesB RSA_KeyBits_TakesB;
        /// <summary>RSA_KeyBits returns the length in bits of the modulus of a public or private key.</summary>
        public static int RSA_KeyBits(byte[] szKeyString)
        {
            return Module.Bind(ref RSA_KeyBits_TakesB, "RSA_KeyBits")(szKeyString);
        }

        private static TakesP RSA_KeyBits_TakesP;
        /// <summary>RSA_KeyBits returns the length in bits of the modulus of a public or private key.</summary>
        public static int RSA_KeyBits(IntPtr szKeyString)
        {
            return Module.Bind(ref RSA_KeyBits_TakesP, "RSA_KeyBits")(szKeyString);
        }

        private static TakesB RSA_KeyBytes_TakesB;
        /// <summary>RSA_KeyBytes returns the length in bytes of the modulus, which is that of data and encoded blocks.</summary>
        public static int RSA_KeyBytes(byte[] szKeyString)
        {
            return Module.Bind(ref RSA_KeyBytes_TakesB, "RSA_KeyBytes")(szKeyString);
        }

        private static TakesP RSA_KeyBytes_TakesP;
        /// <summary>RSA_KeyBytes returns the length in bytes of the modulus, which is that of data and encoded blocks.</summary>
        public static int RSA_KeyBytes(IntPtr szKeyString)
        {
            return Module.Bind(ref RSA_KeyBytes_TakesP, "RSA_KeyBytes")(szKeyString);
        }

        private static TakesBB RSA_KeyMatch_TakesBB;
        /// <summary>RSA_KeyMatch tells whether a private and a public key form a pair.</summary>
        public static int RSA_KeyMatch(byte[] szPrivateKey, byte[] szPublicKey)
        {
            return Module.Bind(ref RSA_KeyMatch_TakesBB, "RSA_KeyMatch")(szPrivateKey, szPublicKey);
        }

        private static TakesPP RSA_KeyMatch_TakesPP;
        /// <summary>RSA_KeyMatch tells whether a private and a public key form a pair.</summary>
        public static int RSA_KeyMatch(IntPtr szPrivateKey, IntPtr szPublicKey)
        {
            return Module.Bind(ref RSA_KeyMatch_TakesPP, "RSA_KeyMatch")(szPrivateKey, szPublicKey);
        }

        private static TakesB RSA_KeyHashCode_TakesB;
        /// <summary>RSA_KeyHashCode returns a hash code, which may be negative, of a public key or of the public part of a private key.</summary>
        public static int RSA_KeyHashCode(byte[] szKeyString)
        {
            return Module.Bind(ref RSA_KeyHashCode_TakesB, "RSA_KeyHashCode")(szKeyString);
        }

        private static TakesP RSA_KeyHashCode_TakesP;
        /// <summary>RSA_KeyHashCode returns a hash code, which may be negative, of a public key or of the public part of a private key.</summary>
        public static int RSA_KeyHashCode(IntPtr szKeyString)
        {
            return Module.Bind(ref RSA_KeyHashCode_TakesP, "RSA_KeyHashCode")(szKeyString);
        }

        private static TakesBI RSA_CheckKey_TakesBI;
        /// <summary>RSA_CheckKey checks a key.</summary>
        public static int RSA_CheckKey(byte[] szKeyString, int nOptions)
        {
            return Module.Bind(ref RSA_CheckKey_TakesBI, "RSA_CheckKey")(szKeyString, nOptions);
        }

        private static TakesPI RSA_CheckKey_TakesPI;
        /// <summary>RSA_CheckKey checks a key.</summary>
        public static int RSA_CheckKey(IntPtr szKeyString, int nOptions)
        {
            return Module.Bind(ref RSA_CheckKey_TakesPI, "RSA_CheckKey")(szKeyString, nOptions);
        }

        private static TakesBIBI RSA_RawPublic_TakesBIBI;
        /// <summary>RSA_RawPublic transforms data in place with a public key string.</summary>
        public static int RSA_RawPublic(byte[] lpData, int nDataLen, byte[] szPublicKey, int nOptions)
        {
            return Module.Bind(ref RSA_RawPublic_TakesBIBI, "RSA_RawPublic")(lpData, nDataLen, szPublicKey, nOptions);
        }

        private static TakesPIPI RSA_RawPublic_TakesPIPI;
        /// <summary>RSA_RawPublic transforms data in place with a public key string.</summary>
        public static int RSA_RawPublic(IntPtr lpData, int nDataLen, IntPtr szPublicKey, int nOptions)
        {
            return Module.Bind(ref RSA_RawPublic_TakesPIPI, "RSA_RawPublic")(lpData, nDataLen, szPublicKey, nOptions);
        }

        private static TakesBIBI RSA_RawPrivate_TakesBIBI;
        /// <summary>RSA_RawPrivate transforms data in place with a private key.</summary>
        public static int RSA_RawPrivate(byte[] lpData, int nDataLen, byte[] szPrivateKey, int nOptions)
        {
            return Module.Bind(ref RSA_RawPrivate_TakesBIBI, "RSA_RawPrivate")(lpData, nDataLen, szPrivateKey, nOptions);
        }

        private static TakesPIPI RSA_RawPrivate_TakesPIPI;
        /// <summary>RSA_RawPrivate transforms data in place with a private key.</summary>
        public static int RSA_RawPrivate(IntPtr lpData, int nDataLen, IntPtr szPrivateKey, int nOptions)
        {
            return Module.Bind(ref RSA_RawPrivate_TakesPIPI, "RSA_RawPrivate")(lpData, nDataLen, szPrivateKey, nOptions);
        }

        private static TakesBIBII RSA_EncodeMsg_TakesBIBII;
        /// <summary>RSA_EncodeMsg fills the nOutBytes bytes (normally RSA_KeyBytes) of lpOutput with the encoding of a message.</summary>
        public static int RSA_EncodeMsg(byte[] lpOutput, int nOutBytes, byte[] lpInput, int nInputLen, int nOptions)
        {
            return Module.Bind(ref RSA_EncodeMsg_TakesBIBII, "RSA_EncodeMsg")(lpOutput, nOutBytes, lpInput, nInputLen, nOptions);
        }

        private static TakesPIPII RSA_EncodeMsg_TakesPIPII;
        /// <summary>RSA_EncodeMsg fills the nOutBytes bytes (normally RSA_KeyBytes) of lpOutput with the encoding of a message.</summary>
        public static int RSA_EncodeMsg(IntPtr lpOutput, int nOutBytes, IntPtr lpInput, int nInputLen, int nOptions)
        {
            return Module.Bind(ref RSA_EncodeMsg_TakesPIPII, "RSA_EncodeMsg")(lpOutput, nOutBytes, lpInput, nInputLen, nOptions);
        }

        private static TakesBIBII RSA_DecodeMsg_TakesBIBII;
        /// <summary>RSA_DecodeMsg recovers the message from an encoded block, of which at most nOutBytes bytes are copied.</summary>
        public static int RSA_DecodeMsg(byte[] lpOutput, int nOutBytes, byte[] lpInput, int nInputLen, int nOptions)
        {
            return Module.Bind(ref RSA_DecodeMsg_TakesBIBII, "RSA_DecodeMsg")(lpOutput, nOutBytes, lpInput, nInputLen, nOptions);
        }

        private static TakesPIPII RSA_DecodeMsg_TakesPIPII;
        /// <summary>RSA_DecodeMsg recovers the message from an encoded block, of which at most nOutBytes bytes are copied.</summary>
        public static int RSA_DecodeMsg(IntPtr lpOutput, int nOutBytes, IntPtr lpInput, int nInputLen, int nOptions)
        {
            return Module.Bind(ref RSA_DecodeMsg_TakesPIPII, "RSA_DecodeMsg")(lpOutput, nOutBytes, lpInput, nInputLen, nOptions);
        }

        private static TakesBIBBI X509_QueryCert_TakesBIBBI;
        /// <summary>X509_QueryCert answers a query about a certificate.</summary>
        public static int X509_QueryCert(byte[] szOutput, int nChars, byte[] szCertFile, byte[] szQuery, int nOptions)
        {
            return Module.Bind(ref X509_QueryCert_TakesBIBBI, "X509_QueryCert")(szOutput, nChars, szCertFile, szQuery, nOptions);
        }

        private static TakesPIPPI X509_QueryCert_TakesPIPPI;
        /// <summary>X509_QueryCert answers a query about a certificate.</summary>
        public static int X509_QueryCert(IntPtr szOutput, int nChars, IntPtr szCertFile, IntPtr szQuery, int nOptions)
        {
            return Module.Bind(ref X509_QueryCert_TakesPIPPI, "X509_QueryCert")(szOutput, nChars, szCertFile, szQuery, nOptions);
        }

        private static TakesB X509_KeyUsageFlags_TakesB;
        /// <summary>X509_KeyUsageFlags returns the key usage as ZUL_KEYUSAGE_ bits, 0 if the certificate does not say, or a negated code.</summary>
        public static int X509_KeyUsageFlags(byte[] szCertFile)
        {
            return Module.Bind(ref X509_KeyUsageFlags_TakesB, "X509_KeyUsageFlags")(szCertFile);
        }

        private static TakesP X509_KeyUsageFlags_TakesP;
        /// <summary>X509_KeyUsageFlags returns the key usage as ZUL_KEYUSAGE_ bits, 0 if the certificate does not say, or a negated code.</summary>
        public static int X509_KeyUsageFlags(IntPtr szCertFile)
        {
            return Module.Bind(ref X509_KeyUsageFlags_TakesP, "X509_KeyUsageFlags")(szCertFile);
        }

        private static TakesBBII X509_CertThumb_TakesBBII;
        /// <summary>X509_CertThumb writes the digest (nOptions: ZUL_HASH_...) of a certificate in lower-case hex.</summary>
        public static int X509_CertThumb(byte[] szCertFile, byte[] szHash, int nChars, int nOptions)
        {
            return Module.Bind(ref X509_CertThumb_TakesBBII, "X509_CertThumb")(szCertFile, szHash, nChars, nOptions);
        }

        private static TakesPPII X509_CertThumb_TakesPPII;
        /// <summary>X509_CertThumb writes the digest (nOptions: ZUL_HASH_...) of a certificate in lower-case hex.</summary>
        public static int X509_CertThumb(IntPtr szCertFile, IntPtr szHash, int nChars, int nOptions)
        {
            return Module.Bind(ref X509_CertThumb_TakesPPII, "X509_CertThumb")(szCertFile, szHash, nChars, nOptions);
        }

        private static TakesBI X509_CertIsValidNow_TakesBI;
        /// <summary>X509_CertIsValidNow returns 0 if the present time lies within the certificate's validity, -1 if not, or a positive code.</summary>
        public static int X509_CertIsValidNow(byte[] szCertFile, int nOptions)
        {
            return Module.Bind(ref X509_CertIsValidNow_TakesBI, "X509_CertIsValidNow")(szCertFile, nOptions);
        }

        private static TakesPI X509_CertIsValidNow_TakesPI;
        /// <summary>X509_CertIsValidNow returns 0 if the present time lies within the certificate's validity, -1 if not, or a positive code.</summary>
        public static int X509_CertIsValidNow(IntPtr szCertFile, int nOptions)
        {
            return Module.Bind(ref X509_CertIsValidNow_TakesPI, "X509_CertIsValidNow")(szCertFile, nOptions);
        }

        private static TakesBBII X509_CertIssuedOn_TakesBBII;
        /// <summary>X509_CertIssuedOn and X509_CertExpiresOn write the beginning and end of the validity, 20 characters, cut to nChars.</summary>
        public static int X509_CertIssuedOn(byte[] szCertFile, byte[] szOutput, int nChars, int nOptions)
        {
            return Module.Bind(ref X509_CertIssuedOn_TakesBBII, "X509_CertIssuedOn")(szCertFile, szOutput, nChars, nOptions);
        }

        private static TakesPPII X509_CertIssuedOn_TakesPPII;
        /// <summary>X509_CertIssuedOn and X509_CertExpiresOn write the beginning and end of the validity, 20 characters, cut to nChars.</summary>
        public static int X509_CertIssuedOn(IntPtr szCertFile, IntPtr szOutput, int nChars, int nOptions)
        {
            return Module.Bind(ref X509_CertIssuedOn_TakesPPII, "X509_CertIssuedOn")(szCertFile, szOutput, nChars, nOptions);
        }

        private static TakesBBII X509_CertExpiresOn_TakesBBII;
        /// <summary>X509_CertIssuedOn and X509_CertExpiresOn write the beginning and end of the validity, 20 characters, cut to nChars.</summary>
        public static int X509_CertExpiresOn(byte[] szCertFile, byte[] szOutput, int nChars, int nOptions)
        {
            return Module.Bind(ref X509_CertExpiresOn_TakesBBII, "X509_CertExpiresOn")(szCertFile, szOutput, nChars, nOptions);
        }

        private static TakesPPII X509_CertExpiresOn_TakesPPII;
        /// <summary>X509_CertIssuedOn and X509_CertExpiresOn write the beginning and end of the validity, 20 characters, cut to nChars.</summary>
        public static int X509_CertExpiresOn(IntPtr szCertFile, IntPtr szOutput, int nChars, int nOptions)
        {
            return Module.Bind(ref X509_CertExpiresOn_TakesPPII, "X509_CertExpiresOn")(szCertFile, szOutput, nChars, nOptions);
        }

        private static TakesBBII X509_CertSerialNumber_TakesBBII;
        /// <summary>X509_CertSerialNumber writes the serial number's bytes in lower-case hex.</summary>
        public static int X509_CertSerialNumber(byte[] szCertFile, byte[] szOutput, int nChars, int nOptions)
        {
            return Module.Bind(ref X509_CertSerialNumber_TakesBBII, "X509_CertSerialNumber")(szCertFile, szOutput, nChars, nOptions);
        }

        private static TakesPPII X509_CertSerialNumber_TakesPPII;
        /// <summary>X509_CertSerialNumber writes the serial number's bytes in lower-case hex.</summary>
        public static int X509_CertSerialNumber(IntPtr szCertFile, IntPtr szOutput, int nChars, int nOptions)
        {
            return Module.Bind(ref X509_CertSerialNumber_TakesPPII, "X509_CertSerialNumber")(szCertFile, szOutput, nChars, nOptions);
        }

        private static TakesBBIBI X509_CertSubjectName_TakesBBIBI;
        /// <summary>X509_CertSubjectName and X509_CertIssuerName write a name as text, cut to nChars.</summary>
        public static int X509_CertSubjectName(byte[] szCertFile, byte[] szOutput, int nChars, byte[] szDelim, int nOptions)
        {
            return Module.Bind(ref X509_CertSubjectName_TakesBBIBI, "X509_CertSubjectName")(szCertFile, szOutput, nChars, szDelim, nOptions);
        }

        private static TakesPPIPI X509_CertSubjectName_TakesPPIPI;
        /// <summary>X509_CertSubjectName and X509_CertIssuerName write a name as text, cut to nChars.</summary>
        public static int X509_CertSubjectName(IntPtr szCertFile, IntPtr szOutput, int nChars, IntPtr szDelim, int nOptions)
        {
            return Module.Bind(ref X509_CertSubjectName_TakesPPIPI, "X509_CertSubjectName")(szCertFile, szOutput, nChars, szDelim, nOptions);
        }

        private static TakesBBIBI X509_CertIssuerName_TakesBBIBI;
        /// <summary>X509_CertSubjectName and X509_CertIssuerName write a name as text, cut to nChars.</summary>
        public static int X509_CertIssuerName(byte[] szCertFile, byte[] szOutput, int nChars, byte[] szDelim, int nOptions)
        {
            return Module.Bind(ref X509_CertIssuerName_TakesBBIBI, "X509_CertIssuerName")(szCertFile, szOutput, nChars, szDelim, nOptions);
        }

        private static TakesPPIPI X509_CertIssuerName_TakesPPIPI;
        /// <summary>X509_CertSubjectName and X509_CertIssuerName write a name as text, cut to nChars.</summary>
        public static int X509_CertIssuerName(IntPtr szCertFile, IntPtr szOutput, int nChars, IntPtr szDelim, int nOptions)
        {
            return Module.Bind(ref X509_CertIssuerName_TakesPPIPI, "X509_CertIssuerName")(szCertFile, szOutput, nChars, szDelim, nOptions);
        }

        private static TakesBBII X509_HashIssuerAndSN_TakesBBII;
        /// <summary>X509_HashIssuerAndSN writes the digest of the certificate's IssuerAndSerialNumber (RFC 5652), as X509_CertThumb that of the certificate.</summary>
        public static int X509_HashIssuerAndSN(byte[] szCertFile, byte[] szOutput, int nChars, int nOptions)
        {
            return Module.Bind(ref X509_HashIssuerAndSN_TakesBBII, "X509_HashIssuerAndSN")(szCertFile, szOutput, nChars, nOptions);
        }

        private static TakesPPII X509_HashIssuerAndSN_TakesPPII;
        /// <summary>X509_HashIssuerAndSN writes the digest of the certificate's IssuerAndSerialNumber (RFC 5652), as X509_CertThumb that of the certificate.</summary>
        public static int X509_HashIssuerAndSN(IntPtr szCertFile, IntPtr szOutput, int nChars, int nOptions)
        {
            return Module.Bind(ref X509_HashIssuerAndSN_TakesPPII, "X509_HashIssuerAndSN")(szCertFile, szOutput, nChars, nOptions);
        }

        private static TakesBIBI X509_ReadStringFromFile_TakesBIBI;
        /// <summary>X509_ReadStringFromFile writes a certificate as base64 in one line, which serves as szCertFile wherever one is asked for (if it is longer than 256 characters, as that of any certificate with an RSA key is).</summary>
        public static int X509_ReadStringFromFile(byte[] szOutput, int nChars, byte[] szCertFile, int nOptions)
        {
            return Module.Bind(ref X509_ReadStringFromFile_TakesBIBI, "X509_ReadStringFromFile")(szOutput, nChars, szCertFile, nOptions);
        }

        private static TakesPIPI X509_ReadStringFromFile_TakesPIPI;
        /// <summary>X509_ReadStringFromFile writes a certificate as base64 in one line, which serves as szCertFile wherever one is asked for (if it is longer than 256 characters, as that of any certificate with an RSA key is).</summary>
        public static int X509_ReadStringFromFile(IntPtr szOutput, int nChars, IntPtr szCertFile, int nOptions)
        {
            return Module.Bind(ref X509_ReadStringFromFile_TakesPIPI, "X509_ReadStringFromFile")(szOutput, nChars, szCertFile, nOptions);
        }

        private static TakesBBI X509_SaveFileFromString_TakesBBI;
        /// <summary>X509_SaveFileFromString writes a certificate given as base64 to a file.</summary>
        public static int X509_SaveFileFromString(byte[] szNewCertFile, byte[] szCertString, int nOptions)
        {
            return Module.Bind(ref X509_SaveFileFromString_TakesBBI, "X509_SaveFileFromString")(szNewCertFile, szCertString, nOptions);
        }

        private static TakesPPI X509_SaveFileFromString_TakesPPI;
        /// <summary>X509_SaveFileFromString writes a certificate given as base64 to a file.</summary>
        public static int X509_SaveFileFromString(IntPtr szNewCertFile, IntPtr szCertString, int nOptions)
        {
            return Module.Bind(ref X509_SaveFileFromString_TakesPPI, "X509_SaveFileFromString")(szNewCertFile, szCertString, nOptions);
        }

        private static TakesBBBBIIBBIBI X509_MakeCert_TakesBBBBIIBBIBI;
        /// <summary>X509_MakeCert makes a certificate (RFC 5280) signed by an issuer.</summary>
        public static int X509_MakeCert(byte[] szNewCertFile, byte[] szIssuerCertFile, byte[] szSubjectPubKeyFile, byte[] szIssuerPriKeyFile, int nCertNum, int nYearsValid, byte[] szDistName, byte[] szExtensions, int nKeyUsageFlags, byte[] szPassword, int nOptions)
        {
            return Module.Bind(ref X509_MakeCert_TakesBBBBIIBBIBI, "X509_MakeCert")(szNewCertFile, szIssuerCertFile, szSubjectPubKeyFile, szIssuerPriKeyFile, nCertNum, nYearsValid, szDistName, szExtensions, nKeyUsageFlags, szPassword, nOptions);
        }

        private static TakesPPPPIIPPIPI X509_MakeCert_TakesPPPPIIPPIPI;
        /// <summary>X509_MakeCert makes a certificate (RFC 5280) signed by an issuer.</summary>
        public static int X509_MakeCert(IntPtr szNewCertFile, IntPtr szIssuerCertFile, IntPtr szSubjectPubKeyFile, IntPtr szIssuerPriKeyFile, int nCertNum, int nYearsValid, IntPtr szDistName, IntPtr szExtensions, int nKeyUsageFlags, IntPtr szPassword, int nOptions)
        {
            return Module.Bind(ref X509_MakeCert_TakesPPPPIIPPIPI, "X509_MakeCert")(szNewCertFile, szIssuerCertFile, szSubjectPubKeyFile, szIssuerPriKeyFile, nCertNum, nYearsValid, szDistName, szExtensions, nKeyUsageFlags, szPassword, nOptions);
        }

        private static TakesBBIIBBIBI X509_MakeCertSelf_TakesBBIIBBIBI;
        /// <summary>X509_MakeCertSelf makes the self-signed certificate of a certification authority from its encrypted private key.</summary>
        public static int X509_MakeCertSelf(byte[] szNewCertFile, byte[] szEPKFile, int nCertNum, int nYearsValid, byte[] szDistName, byte[] szExtensions, int nKeyUsageFlags, byte[] szPassword, int nOptions)
        {
            return Module.Bind(ref X509_MakeCertSelf_TakesBBIIBBIBI, "X509_MakeCertSelf")(szNewCertFile, szEPKFile, nCertNum, nYearsValid, szDistName, szExtensions, nKeyUsageFlags, szPassword, nOptions);
        }

        private static TakesPPIIPPIPI X509_MakeCertSelf_TakesPPIIPPIPI;
        /// <summary>X509_MakeCertSelf makes the self-signed certificate of a certification authority from its encrypted private key.</summary>
        public static int X509_MakeCertSelf(IntPtr szNewCertFile, IntPtr szEPKFile, int nCertNum, int nYearsValid, IntPtr szDistName, IntPtr szExtensions, int nKeyUsageFlags, IntPtr szPassword, int nOptions)
        {
            return Module.Bind(ref X509_MakeCertSelf_TakesPPIIPPIPI, "X509_MakeCertSelf")(szNewCertFile, szEPKFile, nCertNum, nYearsValid, szDistName, szExtensions, nKeyUsageFlags, szPassword, nOptions);
        }

        private static TakesBBBBBI X509_CertRequest_TakesBBBBBI;
        /// <summary>X509_CertRequest makes a certification request (PKCS #10, RFC 2986) from an encrypted private key.</summary>
        public static int X509_CertRequest(byte[] szReqFile, byte[] szEPKFile, byte[] szDistName, byte[] szExtensions, byte[] szPassword, int nOptions)
        {
            return Module.Bind(ref X509_CertRequest_TakesBBBBBI, "X509_CertRequest")(szReqFile, szEPKFile, szDistName, szExtensions, szPassword, nOptions);
        }

        private static TakesPPPPPI X509_CertRequest_TakesPPPPPI;
        /// <summary>X509_CertRequest makes a certification request (PKCS #10, RFC 2986) from an encrypted private key.</summary>
        public static int X509_CertRequest(IntPtr szReqFile, IntPtr szEPKFile, IntPtr szDistName, IntPtr szExtensions, IntPtr szPassword, int nOptions)
        {
            return Module.Bind(ref X509_CertRequest_TakesPPPPPI, "X509_CertRequest")(szReqFile, szEPKFile, szDistName, szExtensions, szPassword, nOptions);
        }

        private static TakesBBBBBBI X509_MakeCRL_TakesBBBBBBI;
        /// <summary>X509_MakeCRL makes a revocation list of version 1.</summary>
        public static int X509_MakeCRL(byte[] szCrlFile, byte[] szIssuerCertFile, byte[] szIssuerKeyFile, byte[] szPassword, byte[] szCertList, byte[] szExtensions, int nOptions)
        {
            return Module.Bind(ref X509_MakeCRL_TakesBBBBBBI, "X509_MakeCRL")(szCrlFile, szIssuerCertFile, szIssuerKeyFile, szPassword, szCertList, szExtensions, nOptions);
        }

        private static TakesPPPPPPI X509_MakeCRL_TakesPPPPPPI;
        /// <summary>X509_MakeCRL makes a revocation list of version 1.</summary>
        public static int X509_MakeCRL(IntPtr szCrlFile, IntPtr szIssuerCertFile, IntPtr szIssuerKeyFile, IntPtr szPassword, IntPtr szCertList, IntPtr szExtensions, int nOptions)
        {
            return Module.Bind(ref X509_MakeCRL_TakesPPPPPPI, "X509_MakeCRL")(szCrlFile, szIssuerCertFile, szIssuerKeyFile, szPassword, szCertList, szExtensions, nOptions);
        }

        private static TakesBB X509_VerifyCert_TakesBB;
        /// <summary>X509_VerifyCert checks that a certificate, request or CRL was signed with the key of szIssuerCert.</summary>
        public static int X509_VerifyCert(byte[] szCertToVerify, byte[] szIssuerCert)
        {
            return Module.Bind(ref X509_VerifyCert_TakesBB, "X509_VerifyCert")(szCertToVerify, szIssuerCert);
        }

        private static TakesPP X509_VerifyCert_TakesPP;
        /// <summary>X509_VerifyCert checks that a certificate, request or CRL was signed with the key of szIssuerCert.</summary>
        public static int X509_VerifyCert(IntPtr szCertToVerify, IntPtr szIssuerCert)
        {
            return Module.Bind(ref X509_VerifyCert_TakesPP, "X509_VerifyCert")(szCertToVerify, szIssuerCert);
        }

        private static TakesBBBBI X509_CheckCertInCRL_TakesBBBBI;
        /// <summary>X509_CheckCertInCRL looks a certificate up in its issuer's CRL.</summary>
        public static int X509_CheckCertInCRL(byte[] szCertFile, byte[] szCrlFile, byte[] szCRLIssuerCert, byte[] szDate, int nOptions)
        {
            return Module.Bind(ref X509_CheckCertInCRL_TakesBBBBI, "X509_CheckCertInCRL")(szCertFile, szCrlFile, szCRLIssuerCert, szDate, nOptions);
        }

        private static TakesPPPPI X509_CheckCertInCRL_TakesPPPPI;
        /// <summary>X509_CheckCertInCRL looks a certificate up in its issuer's CRL.</summary>
        public static int X509_CheckCertInCRL(IntPtr szCertFile, IntPtr szCrlFile, IntPtr szCRLIssuerCert, IntPtr szDate, int nOptions)
        {
            return Module.Bind(ref X509_CheckCertInCRL_TakesPPPPI, "X509_CheckCertInCRL")(szCertFile, szCrlFile, szCRLIssuerCert, szDate, nOptions);
        }

        private static TakesBBI X509_ValidatePath_TakesBBI;
        /// <summary>X509_ValidatePath orders certificates into a path and checks each one's signature, and its dates unless nOptions is not 0.</summary>
        public static int X509_ValidatePath(byte[] szCertList, byte[] szTrustedCert, int nOptions)
        {
            return Module.Bind(ref X509_ValidatePath_TakesBBI, "X509_ValidatePath")(szCertList, szTrustedCert, nOptions);
        }

        private static TakesPPI X509_ValidatePath_TakesPPI;
        /// <summary>X509_ValidatePath orders certificates into a path and checks each one's signature, and its dates unless nOptions is not 0.</summary>
        public static int X509_ValidatePath(IntPtr szCertList, IntPtr szTrustedCert, int nOptions)
        {
            return Module.Bind(ref X509_ValidatePath_TakesPPI, "X509_ValidatePath")(szCertList, szTrustedCert, nOptions);
        }

        private static TakesBBI X509_TextDump_TakesBBI;
        /// <summary>X509_TextDump writes a description of a certificate, request or CRL to a text file.</summary>
        public static int X509_TextDump(byte[] szFileOut, byte[] szCertFile, int nOptions)
        {
            return Module.Bind(ref X509_TextDump_TakesBBI, "X509_TextDump")(szFileOut, szCertFile, nOptions);
        }

        private static TakesPPI X509_TextDump_TakesPPI;
        /// <summary>X509_TextDump writes a description of a certificate, request or CRL to a text file.</summary>
        public static int X509_TextDump(IntPtr szFileOut, IntPtr szCertFile, int nOptions)
        {
            return Module.Bind(ref X509_TextDump_TakesPPI, "X509_TextDump")(szFileOut, szCertFile, nOptions);
        }

        private static TakesBBII X509_GetCertFromP7Chain_TakesBBII;
        /// <summary>X509_GetCertFromP7Chain takes a certificate out of a signed message or a certs-only one (PKCS #7, "p7c" or "p7b"), a message argument as below.</summary>
        public static int X509_GetCertFromP7Chain(byte[] szNewCertFile, byte[] szP7cFile, int nIndex, int nOptions)
        {
            return Module.Bind(ref X509_GetCertFromP7Chain_TakesBBII, "X509_GetCertFromP7Chain")(szNewCertFile, szP7cFile, nIndex, nOptions);
        }

        private static TakesPPII X509_GetCertFromP7Chain_TakesPPII;
        /// <summary>X509_GetCertFromP7Chain takes a certificate out of a signed message or a certs-only one (PKCS #7, "p7c" or "p7b"), a message argument as below.</summary>
        public static int X509_GetCertFromP7Chain(IntPtr szNewCertFile, IntPtr szP7cFile, int nIndex, int nOptions)
        {
            return Module.Bind(ref X509_GetCertFromP7Chain_TakesPPII, "X509_GetCertFromP7Chain")(szNewCertFile, szP7cFile, nIndex, nOptions);
        }

        private static TakesBBI X509_GetCertFromPFX_TakesBBI;
        /// <summary>X509_GetCertFromPFX and RSA_GetPrivateKeyFromPFX write the first certificate of a PKCS #12 file, as DER, and its first encrypted private key, as RSA_ReadEncPrivateKey reads it, to a file.</summary>
        public static int X509_GetCertFromPFX(byte[] szFileOut, byte[] szPfxFile, int nOptions)
        {
            return Module.Bind(ref X509_GetCertFromPFX_TakesBBI, "X509_GetCertFromPFX")(szFileOut, szPfxFile, nOptions);
        }

        private static TakesPPI X509_GetCertFromPFX_TakesPPI;
        /// <summary>X509_GetCertFromPFX and RSA_GetPrivateKeyFromPFX write the first certificate of a PKCS #12 file, as DER, and its first encrypted private key, as RSA_ReadEncPrivateKey reads it, to a file.</summary>
        public static int X509_GetCertFromPFX(IntPtr szFileOut, IntPtr szPfxFile, int nOptions)
        {
            return Module.Bind(ref X509_GetCertFromPFX_TakesPPI, "X509_GetCertFromPFX")(szFileOut, szPfxFile, nOptions);
        }

        private static TakesBBI RSA_GetPrivateKeyFromPFX_TakesBBI;
        /// <summary>X509_GetCertFromPFX and RSA_GetPrivateKeyFromPFX write the first certificate of a PKCS #12 file, as DER, and its first encrypted private key, as RSA_ReadEncPrivateKey reads it, to a file.</summary>
        public static int RSA_GetPrivateKeyFromPFX(byte[] szFileOut, byte[] szPfxFile, int nOptions)
        {
            return Module.Bind(ref RSA_GetPrivateKeyFromPFX_TakesBBI, "RSA_GetPrivateKeyFromPFX")(szFileOut, szPfxFile, nOptions);
        }

        private static TakesPPI RSA_GetPrivateKeyFromPFX_TakesPPI;
        /// <summary>X509_GetCertFromPFX and RSA_GetPrivateKeyFromPFX write the first certificate of a PKCS #12 file, as DER, and its first encrypted private key, as RSA_ReadEncPrivateKey reads it, to a file.</summary>
        public static int RSA_GetPrivateKeyFromPFX(IntPtr szFileOut, IntPtr szPfxFile, int nOptions)
        {
            return Module.Bind(ref RSA_GetPrivateKeyFromPFX_TakesPPI, "RSA_GetPrivateKeyFromPFX")(szFileOut, szPfxFile, nOptions);
        }

        private static TakesBBBBI CMS_MakeSigData_TakesBBBBI;
        /// <summary>CMS_MakeSigData signs a file with RSA (PKCS #1 v1.5).</summary>
        public static int CMS_MakeSigData(byte[] szFileOut, byte[] szFileIn, byte[] szCertList, byte[] szPrivateKey, int nOptions)
        {
            return Module.Bind(ref CMS_MakeSigData_TakesBBBBI, "CMS_MakeSigData")(szFileOut, szFileIn, szCertList, szPrivateKey, nOptions);
        }

        private static TakesPPPPI CMS_MakeSigData_TakesPPPPI;
        /// <summary>CMS_MakeSigData signs a file with RSA (PKCS #1 v1.5).</summary>
        public static int CMS_MakeSigData(IntPtr szFileOut, IntPtr szFileIn, IntPtr szCertList, IntPtr szPrivateKey, int nOptions)
        {
            return Module.Bind(ref CMS_MakeSigData_TakesPPPPI, "CMS_MakeSigData")(szFileOut, szFileIn, szCertList, szPrivateKey, nOptions);
        }

        private static TakesBBBBI CMS_MakeSigDataFromString_TakesBBBBI;
        /// <summary>CMS_MakeSigDataFromString signs the bytes of a text, without its NUL, as CMS_MakeSigData a file.</summary>
        public static int CMS_MakeSigDataFromString(byte[] szFileOut, byte[] szDataIn, byte[] szCertList, byte[] szPrivateKey, int nOptions)
        {
            return Module.Bind(ref CMS_MakeSigDataFromString_TakesBBBBI, "CMS_MakeSigDataFromString")(szFileOut, szDataIn, szCertList, szPrivateKey, nOptions);
        }

        private static TakesPPPPI CMS_MakeSigDataFromString_TakesPPPPI;
        /// <summary>CMS_MakeSigDataFromString signs the bytes of a text, without its NUL, as CMS_MakeSigData a file.</summary>
        public static int CMS_MakeSigDataFromString(IntPtr szFileOut, IntPtr szDataIn, IntPtr szCertList, IntPtr szPrivateKey, int nOptions)
        {
            return Module.Bind(ref CMS_MakeSigDataFromString_TakesPPPPI, "CMS_MakeSigDataFromString")(szFileOut, szDataIn, szCertList, szPrivateKey, nOptions);
        }

        private static TakesBBBBI CMS_MakeDetachedSig_TakesBBBBI;
        /// <summary>CMS_MakeDetachedSig signs content whose digest is given in hex; the content is not carried.</summary>
        public static int CMS_MakeDetachedSig(byte[] szFileOut, byte[] szHexDigest, byte[] szCertList, byte[] szPrivateKey, int nOptions)
        {
            return Module.Bind(ref CMS_MakeDetachedSig_TakesBBBBI, "CMS_MakeDetachedSig")(szFileOut, szHexDigest, szCertList, szPrivateKey, nOptions);
        }

        private static TakesPPPPI CMS_MakeDetachedSig_TakesPPPPI;
        /// <summary>CMS_MakeDetachedSig signs content whose digest is given in hex; the content is not carried.</summary>
        public static int CMS_MakeDetachedSig(IntPtr szFileOut, IntPtr szHexDigest, IntPtr szCertList, IntPtr szPrivateKey, int nOptions)
        {
            return Module.Bind(ref CMS_MakeDetachedSig_TakesPPPPI, "CMS_MakeDetachedSig")(szFileOut, szHexDigest, szCertList, szPrivateKey, nOptions);
        }

        private static TakesBBIBIBI CMS_MakeSigDataFromSigValue_TakesBBIBIBI;
        /// <summary>CMS_MakeSigDataFromSigValue makes a message from nDataLen bytes of content and their finished signature, made by a smart card, for example.</summary>
        public static int CMS_MakeSigDataFromSigValue(byte[] szFileOut, byte[] lpSigValue, int nSigLen, byte[] lpData, int nDataLen, byte[] szCertList, int nOptions)
        {
            return Module.Bind(ref CMS_MakeSigDataFromSigValue_TakesBBIBIBI, "CMS_MakeSigDataFromSigValue")(szFileOut, lpSigValue, nSigLen, lpData, nDataLen, szCertList, nOptions);
        }

        private static TakesPPIPIPI CMS_MakeSigDataFromSigValue_TakesPPIPIPI;
        /// <summary>CMS_MakeSigDataFromSigValue makes a message from nDataLen bytes of content and their finished signature, made by a smart card, for example.</summary>
        public static int CMS_MakeSigDataFromSigValue(IntPtr szFileOut, IntPtr lpSigValue, int nSigLen, IntPtr lpData, int nDataLen, IntPtr szCertList, int nOptions)
        {
            return Module.Bind(ref CMS_MakeSigDataFromSigValue_TakesPPIPIPI, "CMS_MakeSigDataFromSigValue")(szFileOut, lpSigValue, nSigLen, lpData, nDataLen, szCertList, nOptions);
        }

        private static TakesBBI CMS_ReadSigData_TakesBBI;
        /// <summary>CMS_ReadSigData writes the content of a signed message to a file, CMS_ReadSigDataToString to nDataOutLen bytes of room and a NUL.</summary>
        public static int CMS_ReadSigData(byte[] szFileOut, byte[] szFileIn, int nOptions)
        {
            return Module.Bind(ref CMS_ReadSigData_TakesBBI, "CMS_ReadSigData")(szFileOut, szFileIn, nOptions);
        }

        private static TakesPPI CMS_ReadSigData_TakesPPI;
        /// <summary>CMS_ReadSigData writes the content of a signed message to a file, CMS_ReadSigDataToString to nDataOutLen bytes of room and a NUL.</summary>
        public static int CMS_ReadSigData(IntPtr szFileOut, IntPtr szFileIn, int nOptions)
        {
            return Module.Bind(ref CMS_ReadSigData_TakesPPI, "CMS_ReadSigData")(szFileOut, szFileIn, nOptions);
        }

        private static TakesBIBI CMS_ReadSigDataToString_TakesBIBI;
        /// <summary>CMS_ReadSigData writes the content of a signed message to a file, CMS_ReadSigDataToString to nDataOutLen bytes of room and a NUL.</summary>
        public static int CMS_ReadSigDataToString(byte[] szDataOut, int nDataOutLen, byte[] szFileIn, int nOptions)
        {
            return Module.Bind(ref CMS_ReadSigDataToString_TakesBIBI, "CMS_ReadSigDataToString")(szDataOut, nDataOutLen, szFileIn, nOptions);
        }

        private static TakesPIPI CMS_ReadSigDataToString_TakesPIPI;
        /// <summary>CMS_ReadSigData writes the content of a signed message to a file, CMS_ReadSigDataToString to nDataOutLen bytes of room and a NUL.</summary>
        public static int CMS_ReadSigDataToString(IntPtr szDataOut, int nDataOutLen, IntPtr szFileIn, int nOptions)
        {
            return Module.Bind(ref CMS_ReadSigDataToString_TakesPIPI, "CMS_ReadSigDataToString")(szDataOut, nDataOutLen, szFileIn, nOptions);
        }

        private static TakesBBBI CMS_VerifySigData_TakesBBBI;
        /// <summary>CMS_VerifySigData verifies the signature of a signed message, RSA (PKCS #1 v1.5) with any digest or DSA with SHA-1, and the digest of its content.</summary>
        public static int CMS_VerifySigData(byte[] szFileIn, byte[] szCertFile, byte[] szHexDigest, int nOptions)
        {
            return Module.Bind(ref CMS_VerifySigData_TakesBBBI, "CMS_VerifySigData")(szFileIn, szCertFile, szHexDigest, nOptions);
        }

        private static TakesPPPI CMS_VerifySigData_TakesPPPI;
        /// <summary>CMS_VerifySigData verifies the signature of a signed message, RSA (PKCS #1 v1.5) with any digest or DSA with SHA-1, and the digest of its content.</summary>
        public static int CMS_VerifySigData(IntPtr szFileIn, IntPtr szCertFile, IntPtr szHexDigest, int nOptions)
        {
            return Module.Bind(ref CMS_VerifySigData_TakesPPPI, "CMS_VerifySigData")(szFileIn, szCertFile, szHexDigest, nOptions);
        }

        private static TakesBIBBI CMS_GetSigDataDigest_TakesBIBBI;
        /// <summary>CMS_GetSigDataDigest writes the digest of the content that was signed, in lower-case hex.</summary>
        public static int CMS_GetSigDataDigest(byte[] szHexDigestOut, int nDigestLen, byte[] szFileIn, byte[] szCertFile, int nOptions)
        {
            return Module.Bind(ref CMS_GetSigDataDigest_TakesBIBBI, "CMS_GetSigDataDigest")(szHexDigestOut, nDigestLen, szFileIn, szCertFile, nOptions);
        }

        private static TakesPIPPI CMS_GetSigDataDigest_TakesPIPPI;
        /// <summary>CMS_GetSigDataDigest writes the digest of the content that was signed, in lower-case hex.</summary>
        public static int CMS_GetSigDataDigest(IntPtr szHexDigestOut, int nDigestLen, IntPtr szFileIn, IntPtr szCertFile, int nOptions)
        {
            return Module.Bind(ref CMS_GetSigDataDigest_TakesPIPPI, "CMS_GetSigDataDigest")(szHexDigestOut, nDigestLen, szFileIn, szCertFile, nOptions);
        }

        private static TakesBIBBI CMS_QuerySigData_TakesBIBBI;
        /// <summary>CMS_QuerySigData answers a query about a signed message of any version, verified or not.</summary>
        public static int CMS_QuerySigData(byte[] szOutput, int nOutChars, byte[] szFileIn, byte[] szQuery, int nOptions)
        {
            return Module.Bind(ref CMS_QuerySigData_TakesBIBBI, "CMS_QuerySigData")(szOutput, nOutChars, szFileIn, szQuery, nOptions);
        }

        private static TakesPIPPI CMS_QuerySigData_TakesPIPPI;
        /// <summary>CMS_QuerySigData answers a query about a signed message of any version, verified or not.</summary>
        public static int CMS_QuerySigData(IntPtr szOutput, int nOutChars, IntPtr szFileIn, IntPtr szQuery, int nOptions)
        {
            return Module.Bind(ref CMS_QuerySigData_TakesPIPPI, "CMS_QuerySigData")(szOutput, nOutChars, szFileIn, szQuery, nOptions);
        }

        private static TakesBBBBII CMS_MakeEnvData_TakesBBBBII;
        /// <summary>CMS_MakeEnvData encrypts a file for the RSA keys (PKCS #1 v1.5) of up to 10 certificates.</summary>
        public static int CMS_MakeEnvData(byte[] szFileOut, byte[] szFileIn, byte[] szCertList, byte[] lpSeed, int nSeedLen, int nOptions)
        {
            return Module.Bind(ref CMS_MakeEnvData_TakesBBBBII, "CMS_MakeEnvData")(szFileOut, szFileIn, szCertList, lpSeed, nSeedLen, nOptions);
        }

        private static TakesPPPPII CMS_MakeEnvData_TakesPPPPII;
        /// <summary>CMS_MakeEnvData encrypts a file for the RSA keys (PKCS #1 v1.5) of up to 10 certificates.</summary>
        public static int CMS_MakeEnvData(IntPtr szFileOut, IntPtr szFileIn, IntPtr szCertList, IntPtr lpSeed, int nSeedLen, int nOptions)
        {
            return Module.Bind(ref CMS_MakeEnvData_TakesPPPPII, "CMS_MakeEnvData")(szFileOut, szFileIn, szCertList, lpSeed, nSeedLen, nOptions);
        }

        private static TakesBBBBII CMS_MakeEnvDataFromString_TakesBBBBII;
        /// <summary>CMS_MakeEnvDataFromString encrypts the bytes of a text, without its NUL, as CMS_MakeEnvData a file.</summary>
        public static int CMS_MakeEnvDataFromString(byte[] szFileOut, byte[] szDataIn, byte[] szCertList, byte[] lpSeed, int nSeedLen, int nOptions)
        {
            return Module.Bind(ref CMS_MakeEnvDataFromString_TakesBBBBII, "CMS_MakeEnvDataFromString")(szFileOut, szDataIn, szCertList, lpSeed, nSeedLen, nOptions);
        }

        private static TakesPPPPII CMS_MakeEnvDataFromString_TakesPPPPII;
        /// <summary>CMS_MakeEnvDataFromString encrypts the bytes of a text, without its NUL, as CMS_MakeEnvData a file.</summary>
        public static int CMS_MakeEnvDataFromString(IntPtr szFileOut, IntPtr szDataIn, IntPtr szCertList, IntPtr lpSeed, int nSeedLen, int nOptions)
        {
            return Module.Bind(ref CMS_MakeEnvDataFromString_TakesPPPPII, "CMS_MakeEnvDataFromString")(szFileOut, szDataIn, szCertList, lpSeed, nSeedLen, nOptions);
        }

        private static TakesBBBBI CMS_ReadEnvData_TakesBBBBI;
        /// <summary>CMS_ReadEnvData decrypts an enveloped message (Triple DES, AES or RC2, CBC) into a file, CMS_ReadEnvDataToString into nDataOutLen bytes of room and a NUL.</summary>
        public static int CMS_ReadEnvData(byte[] szFileOut, byte[] szFileIn, byte[] szX509File, byte[] szPrivateKey, int nOptions)
        {
            return Module.Bind(ref CMS_ReadEnvData_TakesBBBBI, "CMS_ReadEnvData")(szFileOut, szFileIn, szX509File, szPrivateKey, nOptions);
        }

        private static TakesPPPPI CMS_ReadEnvData_TakesPPPPI;
        /// <summary>CMS_ReadEnvData decrypts an enveloped message (Triple DES, AES or RC2, CBC) into a file, CMS_ReadEnvDataToString into nDataOutLen bytes of room and a NUL.</summary>
        public static int CMS_ReadEnvData(IntPtr szFileOut, IntPtr szFileIn, IntPtr szX509File, IntPtr szPrivateKey, int nOptions)
        {
            return Module.Bind(ref CMS_ReadEnvData_TakesPPPPI, "CMS_ReadEnvData")(szFileOut, szFileIn, szX509File, szPrivateKey, nOptions);
        }

        private static TakesBIBBBI CMS_ReadEnvDataToString_TakesBIBBBI;
        /// <summary>CMS_ReadEnvData decrypts an enveloped message (Triple DES, AES or RC2, CBC) into a file, CMS_ReadEnvDataToString into nDataOutLen bytes of room and a NUL.</summary>
        public static int CMS_ReadEnvDataToString(byte[] szDataOut, int nDataOutLen, byte[] szFileIn, byte[] szX509File, byte[] szPrivateKey, int nOptions)
        {
            return Module.Bind(ref CMS_ReadEnvDataToString_TakesBIBBBI, "CMS_ReadEnvDataToString")(szDataOut, nDataOutLen, szFileIn, szX509File, szPrivateKey, nOptions);
        }

        private static TakesPIPPPI CMS_ReadEnvDataToString_TakesPIPPPI;
        /// <summary>CMS_ReadEnvData decrypts an enveloped message (Triple DES, AES or RC2, CBC) into a file, CMS_ReadEnvDataToString into nDataOutLen bytes of room and a NUL.</summary>
        public static int CMS_ReadEnvDataToString(IntPtr szDataOut, int nDataOutLen, IntPtr szFileIn, IntPtr szX509File, IntPtr szPrivateKey, int nOptions)
        {
            return Module.Bind(ref CMS_ReadEnvDataToString_TakesPIPPPI, "CMS_ReadEnvDataToString")(szDataOut, nDataOutLen, szFileIn, szX509File, szPrivateKey, nOptions);
        }

        private static TakesBIBBI CMS_QueryEnvData_TakesBIBBI;
        /// <summary>CMS_QueryEnvData answers a query about an enveloped message.</summary>
        public static int CMS_QueryEnvData(byte[] szOutput, int nOutChars, byte[] szFileIn, byte[] szQuery, int nOptions)
        {
            return Module.Bind(ref CMS_QueryEnvData_TakesBIBBI, "CMS_QueryEnvData")(szOutput, nOutChars, szFileIn, szQuery, nOptions);
        }

        private static TakesPIPPI CMS_QueryEnvData_TakesPIPPI;
        /// <summary>CMS_QueryEnvData answers a query about an enveloped message.</summary>
        public static int CMS_QueryEnvData(IntPtr szOutput, int nOutChars, IntPtr szFileIn, IntPtr szQuery, int nOptions)
        {
            return Module.Bind(ref CMS_QueryEnvData_TakesPIPPI, "CMS_QueryEnvData")(szOutput, nOutChars, szFileIn, szQuery, nOptions);
        }

        private static TakesBBBBBI PFX_MakeFile_TakesBBBBBI;
        /// <summary>PFX_MakeFile writes a PFX file.</summary>
        public static int PFX_MakeFile(byte[] szFileOut, byte[] szCertFile, byte[] szKeyFile, byte[] szPassword, byte[] szFriendlyName, int nOptions)
        {
            return Module.Bind(ref PFX_MakeFile_TakesBBBBBI, "PFX_MakeFile")(szFileOut, szCertFile, szKeyFile, szPassword, szFriendlyName, nOptions);
        }

        private static TakesPPPPPI PFX_MakeFile_TakesPPPPPI;
        /// <summary>PFX_MakeFile writes a PFX file.</summary>
        public static int PFX_MakeFile(IntPtr szFileOut, IntPtr szCertFile, IntPtr szKeyFile, IntPtr szPassword, IntPtr szFriendlyName, int nOptions)
        {
            return Module.Bind(ref PFX_MakeFile_TakesPPPPPI, "PFX_MakeFile")(szFileOut, szCertFile, szKeyFile, szPassword, szFriendlyName, nOptions);
        }

        private static TakesBBI PFX_VerifySig_TakesBBI;
        /// <summary>PFX_VerifySig checks the MAC of a PFX file (HMAC with SHA-1, SHA-256, SHA-384 or SHA-512) with a password.</summary>
        public static int PFX_VerifySig(byte[] szPfxFile, byte[] szPassword, int nOptions)
        {
            return Module.Bind(ref PFX_VerifySig_TakesBBI, "PFX_VerifySig")(szPfxFile, szPassword, nOptions);
        }

        private static TakesPPI PFX_VerifySig_TakesPPI;
        /// <summary>PFX_VerifySig checks the MAC of a PFX file (HMAC with SHA-1, SHA-256, SHA-384 or SHA-512) with a password.</summary>
        public static int PFX_VerifySig(IntPtr szPfxFile, IntPtr szPassword, int nOptions)
        {
            return Module.Bind(ref PFX_VerifySig_TakesPPI, "PFX_VerifySig")(szPfxFile, szPassword, nOptions);
        }

        private static TakesBIBBBI OCSP_MakeRequest_TakesBIBBBI;
        /// <summary>OCSP_MakeRequest writes an unsigned request about one certificate as base64 in one line.</summary>
        public static int OCSP_MakeRequest(byte[] szOutput, int nChars, byte[] szIssuerCert, byte[] szCertFileOrSerialNum, byte[] szExtensions, int nOptions)
        {
            return Module.Bind(ref OCSP_MakeRequest_TakesBIBBBI, "OCSP_MakeRequest")(szOutput, nChars, szIssuerCert, szCertFileOrSerialNum, szExtensions, nOptions);
        }

        private static TakesPIPPPI OCSP_MakeRequest_TakesPIPPPI;
        /// <summary>OCSP_MakeRequest writes an unsigned request about one certificate as base64 in one line.</summary>
        public static int OCSP_MakeRequest(IntPtr szOutput, int nChars, IntPtr szIssuerCert, IntPtr szCertFileOrSerialNum, IntPtr szExtensions, int nOptions)
        {
            return Module.Bind(ref OCSP_MakeRequest_TakesPIPPPI, "OCSP_MakeRequest")(szOutput, nChars, szIssuerCert, szCertFileOrSerialNum, szExtensions, nOptions);
        }

        private static TakesBIBBBI OCSP_ReadResponse_TakesBIBBBI;
        /// <summary>OCSP_ReadResponse writes a report of a response, which is a file of DER, PEM or base64, or text.</summary>
        public static int OCSP_ReadResponse(byte[] szOutput, int nChars, byte[] szResponseFile, byte[] szIssuerCert, byte[] szExtensions, int nOptions)
        {
            return Module.Bind(ref OCSP_ReadResponse_TakesBIBBBI, "OCSP_ReadResponse")(szOutput, nChars, szResponseFile, szIssuerCert, szExtensions, nOptions);
        }

        private static TakesPIPPPI OCSP_ReadResponse_TakesPIPPPI;
        /// <summary>OCSP_ReadResponse writes a report of a response, which is a file of DER, PEM or base64, or text.</summary>
        public static int OCSP_ReadResponse(IntPtr szOutput, int nChars, IntPtr szResponseFile, IntPtr szIssuerCert, IntPtr szExtensions, int nOptions)
        {
            return Module.Bind(ref OCSP_ReadResponse_TakesPIPPPI, "OCSP_ReadResponse")(szOutput, nChars, szResponseFile, szIssuerCert, szExtensions, nOptions);
        }

        private static TakesBIBI HASH_Begin_TakesBIBI;
        /// <summary>HASH_Begin begins a digest.</summary>
        public static int HASH_Begin(byte[] lpContext, int nContextLen, byte[] szAlgorithm, int nOptions)
        {
            return Module.Bind(ref HASH_Begin_TakesBIBI, "HASH_Begin")(lpContext, nContextLen, szAlgorithm, nOptions);
        }

        private static TakesPIPI HASH_Begin_TakesPIPI;
        /// <summary>HASH_Begin begins a digest.</summary>
        public static int HASH_Begin(IntPtr lpContext, int nContextLen, IntPtr szAlgorithm, int nOptions)
        {
            return Module.Bind(ref HASH_Begin_TakesPIPI, "HASH_Begin")(lpContext, nContextLen, szAlgorithm, nOptions);
        }

        private static TakesBBI HASH_Add_TakesBBI;
        /// <summary>HASH_Add absorbs nDataLen bytes.</summary>
        public static int HASH_Add(byte[] lpContext, byte[] lpData, int nDataLen)
        {
            return Module.Bind(ref HASH_Add_TakesBBI, "HASH_Add")(lpContext, lpData, nDataLen);
        }

        private static TakesPPI HASH_Add_TakesPPI;
        /// <summary>HASH_Add absorbs nDataLen bytes.</summary>
        public static int HASH_Add(IntPtr lpContext, IntPtr lpData, int nDataLen)
        {
            return Module.Bind(ref HASH_Add_TakesPPI, "HASH_Add")(lpContext, lpData, nDataLen);
        }

        private static TakesBIB HASH_End_TakesBIB;
        /// <summary>HASH_End writes the digest, cut to nOutBytes, and wipes the context; of "shake128" and "shake256" it writes nOutBytes bytes.</summary>
        public static int HASH_End(byte[] lpOutput, int nOutBytes, byte[] lpContext)
        {
            return Module.Bind(ref HASH_End_TakesBIB, "HASH_End")(lpOutput, nOutBytes, lpContext);
        }

        private static TakesPIP HASH_End_TakesPIP;
        /// <summary>HASH_End writes the digest, cut to nOutBytes, and wipes the context; of "shake128" and "shake256" it writes nOutBytes bytes.</summary>
        public static int HASH_End(IntPtr lpOutput, int nOutBytes, IntPtr lpContext)
        {
            return Module.Bind(ref HASH_End_TakesPIP, "HASH_End")(lpOutput, nOutBytes, lpContext);
        }

        private static TakesBIBIBI HMAC_Begin_TakesBIBIBI;
        /// <summary>HMAC_Begin begins a MAC with a key of any length and a digest that has an HMAC (not "md2", "shake128" and "shake256"); the rest as HASH_Begin.</summary>
        public static int HMAC_Begin(byte[] lpContext, int nContextLen, byte[] lpKey, int nKeyLen, byte[] szAlgorithm, int nOptions)
        {
            return Module.Bind(ref HMAC_Begin_TakesBIBIBI, "HMAC_Begin")(lpContext, nContextLen, lpKey, nKeyLen, szAlgorithm, nOptions);
        }

        private static TakesPIPIPI HMAC_Begin_TakesPIPIPI;
        /// <summary>HMAC_Begin begins a MAC with a key of any length and a digest that has an HMAC (not "md2", "shake128" and "shake256"); the rest as HASH_Begin.</summary>
        public static int HMAC_Begin(IntPtr lpContext, int nContextLen, IntPtr lpKey, int nKeyLen, IntPtr szAlgorithm, int nOptions)
        {
            return Module.Bind(ref HMAC_Begin_TakesPIPIPI, "HMAC_Begin")(lpContext, nContextLen, lpKey, nKeyLen, szAlgorithm, nOptions);
        }

        private static TakesBBI HMAC_Add_TakesBBI;
        /// <summary>HMAC_Add absorbs nDataLen bytes, as HASH_Add.</summary>
        public static int HMAC_Add(byte[] lpContext, byte[] lpData, int nDataLen)
        {
            return Module.Bind(ref HMAC_Add_TakesBBI, "HMAC_Add")(lpContext, lpData, nDataLen);
        }

        private static TakesPPI HMAC_Add_TakesPPI;
        /// <summary>HMAC_Add absorbs nDataLen bytes, as HASH_Add.</summary>
        public static int HMAC_Add(IntPtr lpContext, IntPtr lpData, int nDataLen)
        {
            return Module.Bind(ref HMAC_Add_TakesPPI, "HMAC_Add")(lpContext, lpData, nDataLen);
        }

        private static TakesBIB HMAC_End_TakesBIB;
        /// <summary>HMAC_End writes the MAC, cut to nOutBytes, and wipes the context, as HASH_End.</summary>
        public static int HMAC_End(byte[] lpOutput, int nOutBytes, byte[] lpContext)
        {
            return Module.Bind(ref HMAC_End_TakesBIB, "HMAC_End")(lpOutput, nOutBytes, lpContext);
        }

        private static TakesPIP HMAC_End_TakesPIP;
        /// <summary>HMAC_End writes the MAC, cut to nOutBytes, and wipes the context, as HASH_End.</summary>
        public static int HMAC_End(IntPtr lpOutput, int nOutBytes, IntPtr lpContext)
        {
            return Module.Bind(ref HMAC_End_TakesPIP, "HMAC_End")(lpOutput, nOutBytes, lpContext);
        }

        private static TakesBIIBIBIBI CIPHER_Begin_TakesBIIBIBIBI;
        /// <summary>CIPHER_Begin begins to encrypt (fEncrypt not 0) or decrypt.</summary>
        public static int CIPHER_Begin(byte[] lpContext, int nContextLen, int fEncrypt, byte[] lpKey, int nKeyLen, byte[] lpIV, int nIVLen, byte[] szAlgorithm, int nOptions)
        {
            return Module.Bind(ref CIPHER_Begin_TakesBIIBIBIBI, "CIPHER_Begin")(lpContext, nContextLen, fEncrypt, lpKey, nKeyLen, lpIV, nIVLen, szAlgorithm, nOptions);
        }

        private static TakesPIIPIPIPI CIPHER_Begin_TakesPIIPIPIPI;
        /// <summary>CIPHER_Begin begins to encrypt (fEncrypt not 0) or decrypt.</summary>
        public static int CIPHER_Begin(IntPtr lpContext, int nContextLen, int fEncrypt, IntPtr lpKey, int nKeyLen, IntPtr lpIV, int nIVLen, IntPtr szAlgorithm, int nOptions)
        {
            return Module.Bind(ref CIPHER_Begin_TakesPIIPIPIPI, "CIPHER_Begin")(lpContext, nContextLen, fEncrypt, lpKey, nKeyLen, lpIV, nIVLen, szAlgorithm, nOptions);
        }

        private static TakesBIBBI CIPHER_Add_TakesBIBBI;
        /// <summary>CIPHER_Add takes the next piece and writes what is ready, which may be a block less or more than the piece.</summary>
        public static int CIPHER_Add(byte[] lpOutput, int nOutBytes, byte[] lpContext, byte[] lpInput, int nInputLen)
        {
            return Module.Bind(ref CIPHER_Add_TakesBIBBI, "CIPHER_Add")(lpOutput, nOutBytes, lpContext, lpInput, nInputLen);
        }

        private static TakesPIPPI CIPHER_Add_TakesPIPPI;
        /// <summary>CIPHER_Add takes the next piece and writes what is ready, which may be a block less or more than the piece.</summary>
        public static int CIPHER_Add(IntPtr lpOutput, int nOutBytes, IntPtr lpContext, IntPtr lpInput, int nInputLen)
        {
            return Module.Bind(ref CIPHER_Add_TakesPIPPI, "CIPHER_Add")(lpOutput, nOutBytes, lpContext, lpInput, nInputLen);
        }

        private static TakesBIB CIPHER_End_TakesBIB;
        /// <summary>CIPHER_End writes the end, at most a block, and wipes the context.</summary>
        public static int CIPHER_End(byte[] lpOutput, int nOutBytes, byte[] lpContext)
        {
            return Module.Bind(ref CIPHER_End_TakesBIB, "CIPHER_End")(lpOutput, nOutBytes, lpContext);
        }

        private static TakesPIP CIPHER_End_TakesPIP;
        /// <summary>CIPHER_End writes the end, at most a block, and wipes the context.</summary>
        public static int CIPHER_End(IntPtr lpOutput, int nOutBytes, IntPtr lpContext)
        {
            return Module.Bind(ref CIPHER_End_TakesPIP, "CIPHER_End")(lpOutput, nOutBytes, lpContext);
        }

        private static TakesBIBIBIBIBIBI AEAD_Encrypt_TakesBIBIBIBIBIBI;
        /// <summary>AEAD_Encrypt encrypts data and adds a tag of 16 bytes, which also covers lpAad, data that is not encrypted.</summary>
        public static int AEAD_Encrypt(byte[] lpOutput, int nOutBytes, byte[] lpInput, int nInputLen, byte[] lpKey, int nKeyLen, byte[] lpNonce, int nNonceLen, byte[] lpAad, int nAadLen, byte[] szAlgorithm, int nOptions)
        {
            return Module.Bind(ref AEAD_Encrypt_TakesBIBIBIBIBIBI, "AEAD_Encrypt")(lpOutput, nOutBytes, lpInput, nInputLen, lpKey, nKeyLen, lpNonce, nNonceLen, lpAad, nAadLen, szAlgorithm, nOptions);
        }

        private static TakesPIPIPIPIPIPI AEAD_Encrypt_TakesPIPIPIPIPIPI;
        /// <summary>AEAD_Encrypt encrypts data and adds a tag of 16 bytes, which also covers lpAad, data that is not encrypted.</summary>
        public static int AEAD_Encrypt(IntPtr lpOutput, int nOutBytes, IntPtr lpInput, int nInputLen, IntPtr lpKey, int nKeyLen, IntPtr lpNonce, int nNonceLen, IntPtr lpAad, int nAadLen, IntPtr szAlgorithm, int nOptions)
        {
            return Module.Bind(ref AEAD_Encrypt_TakesPIPIPIPIPIPI, "AEAD_Encrypt")(lpOutput, nOutBytes, lpInput, nInputLen, lpKey, nKeyLen, lpNonce, nNonceLen, lpAad, nAadLen, szAlgorithm, nOptions);
        }

        private static TakesBIBIBIBIBIBI AEAD_Decrypt_TakesBIBIBIBIBIBI;
        /// <summary>AEAD_Decrypt undoes AEAD_Encrypt.</summary>
        public static int AEAD_Decrypt(byte[] lpOutput, int nOutBytes, byte[] lpInput, int nInputLen, byte[] lpKey, int nKeyLen, byte[] lpNonce, int nNonceLen, byte[] lpAad, int nAadLen, byte[] szAlgorithm, int nOptions)
        {
            return Module.Bind(ref AEAD_Decrypt_TakesBIBIBIBIBIBI, "AEAD_Decrypt")(lpOutput, nOutBytes, lpInput, nInputLen, lpKey, nKeyLen, lpNonce, nNonceLen, lpAad, nAadLen, szAlgorithm, nOptions);
        }

        private static TakesPIPIPIPIPIPI AEAD_Decrypt_TakesPIPIPIPIPIPI;
        /// <summary>AEAD_Decrypt undoes AEAD_Encrypt.</summary>
        public static int AEAD_Decrypt(IntPtr lpOutput, int nOutBytes, IntPtr lpInput, int nInputLen, IntPtr lpKey, int nKeyLen, IntPtr lpNonce, int nNonceLen, IntPtr lpAad, int nAadLen, IntPtr szAlgorithm, int nOptions)
        {
            return Module.Bind(ref AEAD_Decrypt_TakesPIPIPIPIPIPI, "AEAD_Decrypt")(lpOutput, nOutBytes, lpInput, nInputLen, lpKey, nKeyLen, lpNonce, nNonceLen, lpAad, nAadLen, szAlgorithm, nOptions);
        }

        private static TakesBIBI KEY_Make_TakesBIBI;
        /// <summary>KEY_Make makes a private key.</summary>
        public static int KEY_Make(byte[] szOutput, int nOutChars, byte[] szAlgorithm, int nOptions)
        {
            return Module.Bind(ref KEY_Make_TakesBIBI, "KEY_Make")(szOutput, nOutChars, szAlgorithm, nOptions);
        }

        private static TakesPIPI KEY_Make_TakesPIPI;
        /// <summary>KEY_Make makes a private key.</summary>
        public static int KEY_Make(IntPtr szOutput, int nOutChars, IntPtr szAlgorithm, int nOptions)
        {
            return Module.Bind(ref KEY_Make_TakesPIPI, "KEY_Make")(szOutput, nOutChars, szAlgorithm, nOptions);
        }

        private static TakesBIBBI KEY_Read_TakesBIBBI;
        /// <summary>KEY_Read reads a key, private or public, as a key string.</summary>
        public static int KEY_Read(byte[] szOutput, int nOutChars, byte[] szFileOrText, byte[] szPassword, int nOptions)
        {
            return Module.Bind(ref KEY_Read_TakesBIBBI, "KEY_Read")(szOutput, nOutChars, szFileOrText, szPassword, nOptions);
        }

        private static TakesPIPPI KEY_Read_TakesPIPPI;
        /// <summary>KEY_Read reads a key, private or public, as a key string.</summary>
        public static int KEY_Read(IntPtr szOutput, int nOutChars, IntPtr szFileOrText, IntPtr szPassword, int nOptions)
        {
            return Module.Bind(ref KEY_Read_TakesPIPPI, "KEY_Read")(szOutput, nOutChars, szFileOrText, szPassword, nOptions);
        }

        private static TakesBBBBI KEY_Save_TakesBBBBI;
        /// <summary>KEY_Save writes a key to a file, which is replaced in one step.</summary>
        public static int KEY_Save(byte[] szFileOut, byte[] szKey, byte[] szPassword, byte[] szParameters, int nOptions)
        {
            return Module.Bind(ref KEY_Save_TakesBBBBI, "KEY_Save")(szFileOut, szKey, szPassword, szParameters, nOptions);
        }

        private static TakesPPPPI KEY_Save_TakesPPPPI;
        /// <summary>KEY_Save writes a key to a file, which is replaced in one step.</summary>
        public static int KEY_Save(IntPtr szFileOut, IntPtr szKey, IntPtr szPassword, IntPtr szParameters, int nOptions)
        {
            return Module.Bind(ref KEY_Save_TakesPPPPI, "KEY_Save")(szFileOut, szKey, szPassword, szParameters, nOptions);
        }

        private static TakesBIB KEY_Public_TakesBIB;
        /// <summary>KEY_Public gives the public key of a private one.</summary>
        public static int KEY_Public(byte[] szOutput, int nOutChars, byte[] szPrivateKey)
        {
            return Module.Bind(ref KEY_Public_TakesBIB, "KEY_Public")(szOutput, nOutChars, szPrivateKey);
        }

        private static TakesPIP KEY_Public_TakesPIP;
        /// <summary>KEY_Public gives the public key of a private one.</summary>
        public static int KEY_Public(IntPtr szOutput, int nOutChars, IntPtr szPrivateKey)
        {
            return Module.Bind(ref KEY_Public_TakesPIP, "KEY_Public")(szOutput, nOutChars, szPrivateKey);
        }

        private static TakesBIBBI KEY_Query_TakesBIBBI;
        /// <summary>KEY_Query answers a query about a key.</summary>
        public static int KEY_Query(byte[] szOutput, int nOutChars, byte[] szKey, byte[] szQuery, int nOptions)
        {
            return Module.Bind(ref KEY_Query_TakesBIBBI, "KEY_Query")(szOutput, nOutChars, szKey, szQuery, nOptions);
        }

        private static TakesPIPPI KEY_Query_TakesPIPPI;
        /// <summary>KEY_Query answers a query about a key.</summary>
        public static int KEY_Query(IntPtr szOutput, int nOutChars, IntPtr szKey, IntPtr szQuery, int nOptions)
        {
            return Module.Bind(ref KEY_Query_TakesPIPPI, "KEY_Query")(szOutput, nOutChars, szKey, szQuery, nOptions);
        }

        private static TakesBB KEY_Match_TakesBB;
        /// <summary>KEY_Match tells whether a private key belongs to a public one.</summary>
        public static int KEY_Match(byte[] szPrivateKey, byte[] szPublicKey)
        {
            return Module.Bind(ref KEY_Match_TakesBB, "KEY_Match")(szPrivateKey, szPublicKey);
        }

        private static TakesPP KEY_Match_TakesPP;
        /// <summary>KEY_Match tells whether a private key belongs to a public one.</summary>
        public static int KEY_Match(IntPtr szPrivateKey, IntPtr szPublicKey)
        {
            return Module.Bind(ref KEY_Match_TakesPP, "KEY_Match")(szPrivateKey, szPublicKey);
        }

        private static TakesBI KEY_Check_TakesBI;
        /// <summary>KEY_Check tells whether a key's values are valid and belong together.</summary>
        public static int KEY_Check(byte[] szKey, int nOptions)
        {
            return Module.Bind(ref KEY_Check_TakesBI, "KEY_Check")(szKey, nOptions);
        }

        private static TakesPI KEY_Check_TakesPI;
        /// <summary>KEY_Check tells whether a key's values are valid and belong together.</summary>
        public static int KEY_Check(IntPtr szKey, int nOptions)
        {
            return Module.Bind(ref KEY_Check_TakesPI, "KEY_Check")(szKey, nOptions);
        }

        private static TakesBIBBI KEY_Agree_TakesBIBBI;
        /// <summary>KEY_Agree computes the secret that the owners of two key pairs share.</summary>
        public static int KEY_Agree(byte[] lpOutput, int nOutBytes, byte[] szPrivateKey, byte[] szPublicKey, int nOptions)
        {
            return Module.Bind(ref KEY_Agree_TakesBIBBI, "KEY_Agree")(lpOutput, nOutBytes, szPrivateKey, szPublicKey, nOptions);
        }

        private static TakesPIPPI KEY_Agree_TakesPIPPI;
        /// <summary>KEY_Agree computes the secret that the owners of two key pairs share.</summary>
        public static int KEY_Agree(IntPtr lpOutput, int nOutBytes, IntPtr szPrivateKey, IntPtr szPublicKey, int nOptions)
        {
            return Module.Bind(ref KEY_Agree_TakesPIPPI, "KEY_Agree")(lpOutput, nOutBytes, szPrivateKey, szPublicKey, nOptions);
        }

        private static TakesBIBIBBI SIG_Sign_TakesBIBIBBI;
        /// <summary>SIG_Sign signs data.</summary>
        public static int SIG_Sign(byte[] lpOutput, int nOutBytes, byte[] lpData, int nDataLen, byte[] szPrivateKey, byte[] szAlgorithm, int nOptions)
        {
            return Module.Bind(ref SIG_Sign_TakesBIBIBBI, "SIG_Sign")(lpOutput, nOutBytes, lpData, nDataLen, szPrivateKey, szAlgorithm, nOptions);
        }

        private static TakesPIPIPPI SIG_Sign_TakesPIPIPPI;
        /// <summary>SIG_Sign signs data.</summary>
        public static int SIG_Sign(IntPtr lpOutput, int nOutBytes, IntPtr lpData, int nDataLen, IntPtr szPrivateKey, IntPtr szAlgorithm, int nOptions)
        {
            return Module.Bind(ref SIG_Sign_TakesPIPIPPI, "SIG_Sign")(lpOutput, nOutBytes, lpData, nDataLen, szPrivateKey, szAlgorithm, nOptions);
        }

        private static TakesBIBIBBI SIG_Verify_TakesBIBIBBI;
        /// <summary>SIG_Verify verifies a signature of data.</summary>
        public static int SIG_Verify(byte[] lpSignature, int nSigLen, byte[] lpData, int nDataLen, byte[] szPublicKey, byte[] szAlgorithm, int nOptions)
        {
            return Module.Bind(ref SIG_Verify_TakesBIBIBBI, "SIG_Verify")(lpSignature, nSigLen, lpData, nDataLen, szPublicKey, szAlgorithm, nOptions);
        }

        private static TakesPIPIPPI SIG_Verify_TakesPIPIPPI;
        /// <summary>SIG_Verify verifies a signature of data.</summary>
        public static int SIG_Verify(IntPtr lpSignature, int nSigLen, IntPtr lpData, int nDataLen, IntPtr szPublicKey, IntPtr szAlgorithm, int nOptions)
        {
            return Module.Bind(ref SIG_Verify_TakesPIPIPPI, "SIG_Verify")(lpSignature, nSigLen, lpData, nDataLen, szPublicKey, szAlgorithm, nOptions);
        }

        private static TakesBIBBBI SIG_SignFile_TakesBIBBBI;
        /// <summary>SIG_SignFile signs the content of a file of any size.</summary>
        public static int SIG_SignFile(byte[] lpOutput, int nOutBytes, byte[] szFileIn, byte[] szPrivateKey, byte[] szAlgorithm, int nOptions)
        {
            return Module.Bind(ref SIG_SignFile_TakesBIBBBI, "SIG_SignFile")(lpOutput, nOutBytes, szFileIn, szPrivateKey, szAlgorithm, nOptions);
        }

        private static TakesPIPPPI SIG_SignFile_TakesPIPPPI;
        /// <summary>SIG_SignFile signs the content of a file of any size.</summary>
        public static int SIG_SignFile(IntPtr lpOutput, int nOutBytes, IntPtr szFileIn, IntPtr szPrivateKey, IntPtr szAlgorithm, int nOptions)
        {
            return Module.Bind(ref SIG_SignFile_TakesPIPPPI, "SIG_SignFile")(lpOutput, nOutBytes, szFileIn, szPrivateKey, szAlgorithm, nOptions);
        }

        private static TakesBIBBBI SIG_VerifyFile_TakesBIBBBI;
        /// <summary>SIG_VerifyFile verifies a signature of the content of a file of any size.</summary>
        public static int SIG_VerifyFile(byte[] lpSignature, int nSigLen, byte[] szFileIn, byte[] szPublicKey, byte[] szAlgorithm, int nOptions)
        {
            return Module.Bind(ref SIG_VerifyFile_TakesBIBBBI, "SIG_VerifyFile")(lpSignature, nSigLen, szFileIn, szPublicKey, szAlgorithm, nOptions);
        }

        private static TakesPIPPPI SIG_VerifyFile_TakesPIPPPI;
        /// <summary>SIG_VerifyFile verifies a signature of the content of a file of any size.</summary>
        public static int SIG_VerifyFile(IntPtr lpSignature, int nSigLen, IntPtr szFileIn, IntPtr szPublicKey, IntPtr szAlgorithm, int nOptions)
        {
            return Module.Bind(ref SIG_VerifyFile_TakesPIPPPI, "SIG_VerifyFile")(lpSignature, nSigLen, szFileIn, szPublicKey, szAlgorithm, nOptions);
        }

        private static TakesBIBIBBI SIG_SignDigest_TakesBIBIBBI;
        /// <summary>SIG_SignDigest signs data whose digest is given.</summary>
        public static int SIG_SignDigest(byte[] lpOutput, int nOutBytes, byte[] lpDigest, int nDigestLen, byte[] szPrivateKey, byte[] szAlgorithm, int nOptions)
        {
            return Module.Bind(ref SIG_SignDigest_TakesBIBIBBI, "SIG_SignDigest")(lpOutput, nOutBytes, lpDigest, nDigestLen, szPrivateKey, szAlgorithm, nOptions);
        }

        private static TakesPIPIPPI SIG_SignDigest_TakesPIPIPPI;
        /// <summary>SIG_SignDigest signs data whose digest is given.</summary>
        public static int SIG_SignDigest(IntPtr lpOutput, int nOutBytes, IntPtr lpDigest, int nDigestLen, IntPtr szPrivateKey, IntPtr szAlgorithm, int nOptions)
        {
            return Module.Bind(ref SIG_SignDigest_TakesPIPIPPI, "SIG_SignDigest")(lpOutput, nOutBytes, lpDigest, nDigestLen, szPrivateKey, szAlgorithm, nOptions);
        }

        private static TakesBIBIBBI SIG_VerifyDigest_TakesBIBIBBI;
        /// <summary>SIG_VerifyDigest verifies a signature of data whose digest is given.</summary>
        public static int SIG_VerifyDigest(byte[] lpSignature, int nSigLen, byte[] lpDigest, int nDigestLen, byte[] szPublicKey, byte[] szAlgorithm, int nOptions)
        {
            return Module.Bind(ref SIG_VerifyDigest_TakesBIBIBBI, "SIG_VerifyDigest")(lpSignature, nSigLen, lpDigest, nDigestLen, szPublicKey, szAlgorithm, nOptions);
        }

        private static TakesPIPIPPI SIG_VerifyDigest_TakesPIPIPPI;
        /// <summary>SIG_VerifyDigest verifies a signature of data whose digest is given.</summary>
        public static int SIG_VerifyDigest(IntPtr lpSignature, int nSigLen, IntPtr lpDigest, int nDigestLen, IntPtr szPublicKey, IntPtr szAlgorithm, int nOptions)
        {
            return Module.Bind(ref SIG_VerifyDigest_TakesPIPIPPI, "SIG_VerifyDigest")(lpSignature, nSigLen, lpDigest, nDigestLen, szPublicKey, szAlgorithm, nOptions);
        }

        private static TakesBII SEAL_MakeIdentity_TakesBII;
        /// <summary>SEAL_MakeIdentity makes an identity.</summary>
        public static int SEAL_MakeIdentity(byte[] szOutput, int nOutChars, int nOptions)
        {
            return Module.Bind(ref SEAL_MakeIdentity_TakesBII, "SEAL_MakeIdentity")(szOutput, nOutChars, nOptions);
        }

        private static TakesPII SEAL_MakeIdentity_TakesPII;
        /// <summary>SEAL_MakeIdentity makes an identity.</summary>
        public static int SEAL_MakeIdentity(IntPtr szOutput, int nOutChars, int nOptions)
        {
            return Module.Bind(ref SEAL_MakeIdentity_TakesPII, "SEAL_MakeIdentity")(szOutput, nOutChars, nOptions);
        }

        private static TakesBIB SEAL_Recipient_TakesBIB;
        /// <summary>SEAL_Recipient gives the recipient of an identity.</summary>
        public static int SEAL_Recipient(byte[] szOutput, int nOutChars, byte[] szIdentity)
        {
            return Module.Bind(ref SEAL_Recipient_TakesBIB, "SEAL_Recipient")(szOutput, nOutChars, szIdentity);
        }

        private static TakesPIP SEAL_Recipient_TakesPIP;
        /// <summary>SEAL_Recipient gives the recipient of an identity.</summary>
        public static int SEAL_Recipient(IntPtr szOutput, int nOutChars, IntPtr szIdentity)
        {
            return Module.Bind(ref SEAL_Recipient_TakesPIP, "SEAL_Recipient")(szOutput, nOutChars, szIdentity);
        }

        private static TakesBBBBI SEAL_File_TakesBBBBI;
        /// <summary>SEAL_File encrypts a file, either for recipients or under a password (scrypt with a work factor of 2^18).</summary>
        public static int SEAL_File(byte[] szFileOut, byte[] szFileIn, byte[] szRecipients, byte[] szPassword, int nOptions)
        {
            return Module.Bind(ref SEAL_File_TakesBBBBI, "SEAL_File")(szFileOut, szFileIn, szRecipients, szPassword, nOptions);
        }

        private static TakesPPPPI SEAL_File_TakesPPPPI;
        /// <summary>SEAL_File encrypts a file, either for recipients or under a password (scrypt with a work factor of 2^18).</summary>
        public static int SEAL_File(IntPtr szFileOut, IntPtr szFileIn, IntPtr szRecipients, IntPtr szPassword, int nOptions)
        {
            return Module.Bind(ref SEAL_File_TakesPPPPI, "SEAL_File")(szFileOut, szFileIn, szRecipients, szPassword, nOptions);
        }

        private static TakesBBBBI SEAL_OpenFile_TakesBBBBI;
        /// <summary>SEAL_OpenFile decrypts a file, in armour or not.</summary>
        public static int SEAL_OpenFile(byte[] szFileOut, byte[] szFileIn, byte[] szIdentities, byte[] szPassword, int nOptions)
        {
            return Module.Bind(ref SEAL_OpenFile_TakesBBBBI, "SEAL_OpenFile")(szFileOut, szFileIn, szIdentities, szPassword, nOptions);
        }

        private static TakesPPPPI SEAL_OpenFile_TakesPPPPI;
        /// <summary>SEAL_OpenFile decrypts a file, in armour or not.</summary>
        public static int SEAL_OpenFile(IntPtr szFileOut, IntPtr szFileIn, IntPtr szIdentities, IntPtr szPassword, int nOptions)
        {
            return Module.Bind(ref SEAL_OpenFile_TakesPPPPI, "SEAL_OpenFile")(szFileOut, szFileIn, szIdentities, szPassword, nOptions);
        }

        private static TakesBBBBBI P12_Pack_TakesBBBBBI;
        /// <summary>P12_Pack writes a PKCS #12 file, which is replaced in one step, of a private key and certificates.</summary>
        public static int P12_Pack(byte[] szFileOut, byte[] szCerts, byte[] szPrivateKey, byte[] szPassword, byte[] szName, int nOptions)
        {
            return Module.Bind(ref P12_Pack_TakesBBBBBI, "P12_Pack")(szFileOut, szCerts, szPrivateKey, szPassword, szName, nOptions);
        }

        private static TakesPPPPPI P12_Pack_TakesPPPPPI;
        /// <summary>P12_Pack writes a PKCS #12 file, which is replaced in one step, of a private key and certificates.</summary>
        public static int P12_Pack(IntPtr szFileOut, IntPtr szCerts, IntPtr szPrivateKey, IntPtr szPassword, IntPtr szName, int nOptions)
        {
            return Module.Bind(ref P12_Pack_TakesPPPPPI, "P12_Pack")(szFileOut, szCerts, szPrivateKey, szPassword, szName, nOptions);
        }

        private static TakesBBIBBI P12_Unpack_TakesBBIBBI;
        /// <summary>P12_Unpack reads a PKCS #12 file.</summary>
        public static int P12_Unpack(byte[] szCertsOut, byte[] szKeyOutput, int nKeyChars, byte[] szP12, byte[] szPassword, int nOptions)
        {
            return Module.Bind(ref P12_Unpack_TakesBBIBBI, "P12_Unpack")(szCertsOut, szKeyOutput, nKeyChars, szP12, szPassword, nOptions);
        }

        private static TakesPPIPPI P12_Unpack_TakesPPIPPI;
        /// <summary>P12_Unpack reads a PKCS #12 file.</summary>
        public static int P12_Unpack(IntPtr szCertsOut, IntPtr szKeyOutput, int nKeyChars, IntPtr szP12, IntPtr szPassword, int nOptions)
        {
            return Module.Bind(ref P12_Unpack_TakesPPIPPI, "P12_Unpack")(szCertsOut, szKeyOutput, nKeyChars, szP12, szPassword, nOptions);
        }

        private static TakesBIBBI P12_List_TakesBIBBI;
        /// <summary>P12_List describes a PKCS #12 file in UTF-8.</summary>
        public static int P12_List(byte[] szOutput, int nOutChars, byte[] szP12, byte[] szPassword, int nOptions)
        {
            return Module.Bind(ref P12_List_TakesBIBBI, "P12_List")(szOutput, nOutChars, szP12, szPassword, nOptions);
        }

        private static TakesPIPPI P12_List_TakesPIPPI;
        /// <summary>P12_List describes a PKCS #12 file in UTF-8.</summary>
        public static int P12_List(IntPtr szOutput, int nOutChars, IntPtr szP12, IntPtr szPassword, int nOptions)
        {
            return Module.Bind(ref P12_List_TakesPIPPI, "P12_List")(szOutput, nOutChars, szP12, szPassword, nOptions);
        }

        private static TakesBBBI CERT_SelfSign_TakesBBBI;
        /// <summary>CERT_SelfSign makes a certificate that its own key signs.</summary>
        public static int CERT_SelfSign(byte[] szCertOut, byte[] szPrivateKey, byte[] szDescription, int nOptions)
        {
            return Module.Bind(ref CERT_SelfSign_TakesBBBI, "CERT_SelfSign")(szCertOut, szPrivateKey, szDescription, nOptions);
        }

        private static TakesPPPI CERT_SelfSign_TakesPPPI;
        /// <summary>CERT_SelfSign makes a certificate that its own key signs.</summary>
        public static int CERT_SelfSign(IntPtr szCertOut, IntPtr szPrivateKey, IntPtr szDescription, int nOptions)
        {
            return Module.Bind(ref CERT_SelfSign_TakesPPPI, "CERT_SelfSign")(szCertOut, szPrivateKey, szDescription, nOptions);
        }

        private static TakesBBBBBI CERT_Issue_TakesBBBBBI;
        /// <summary>CERT_Issue makes a certificate that an authority signs.</summary>
        public static int CERT_Issue(byte[] szCertOut, byte[] szIssuerCert, byte[] szIssuerKey, byte[] szSubjectKeyOrRequest, byte[] szDescription, int nOptions)
        {
            return Module.Bind(ref CERT_Issue_TakesBBBBBI, "CERT_Issue")(szCertOut, szIssuerCert, szIssuerKey, szSubjectKeyOrRequest, szDescription, nOptions);
        }

        private static TakesPPPPPI CERT_Issue_TakesPPPPPI;
        /// <summary>CERT_Issue makes a certificate that an authority signs.</summary>
        public static int CERT_Issue(IntPtr szCertOut, IntPtr szIssuerCert, IntPtr szIssuerKey, IntPtr szSubjectKeyOrRequest, IntPtr szDescription, int nOptions)
        {
            return Module.Bind(ref CERT_Issue_TakesPPPPPI, "CERT_Issue")(szCertOut, szIssuerCert, szIssuerKey, szSubjectKeyOrRequest, szDescription, nOptions);
        }

        private static TakesBBBI CERT_Request_TakesBBBI;
        /// <summary>CERT_Request makes a certificate request (PKCS #10).</summary>
        public static int CERT_Request(byte[] szRequestOut, byte[] szPrivateKey, byte[] szDescription, int nOptions)
        {
            return Module.Bind(ref CERT_Request_TakesBBBI, "CERT_Request")(szRequestOut, szPrivateKey, szDescription, nOptions);
        }

        private static TakesPPPI CERT_Request_TakesPPPI;
        /// <summary>CERT_Request makes a certificate request (PKCS #10).</summary>
        public static int CERT_Request(IntPtr szRequestOut, IntPtr szPrivateKey, IntPtr szDescription, int nOptions)
        {
            return Module.Bind(ref CERT_Request_TakesPPPI, "CERT_Request")(szRequestOut, szPrivateKey, szDescription, nOptions);
        }

        private static TakesBBBBBBI CERT_IssueCRL_TakesBBBBBBI;
        /// <summary>CERT_IssueCRL makes a CRL of version 2 (RFC 5280).</summary>
        public static int CERT_IssueCRL(byte[] szCrlOut, byte[] szIssuerCert, byte[] szIssuerKey, byte[] szEarlierCrl, byte[] szRevoked, byte[] szDescription, int nOptions)
        {
            return Module.Bind(ref CERT_IssueCRL_TakesBBBBBBI, "CERT_IssueCRL")(szCrlOut, szIssuerCert, szIssuerKey, szEarlierCrl, szRevoked, szDescription, nOptions);
        }

        private static TakesPPPPPPI CERT_IssueCRL_TakesPPPPPPI;
        /// <summary>CERT_IssueCRL makes a CRL of version 2 (RFC 5280).</summary>
        public static int CERT_IssueCRL(IntPtr szCrlOut, IntPtr szIssuerCert, IntPtr szIssuerKey, IntPtr szEarlierCrl, IntPtr szRevoked, IntPtr szDescription, int nOptions)
        {
            return Module.Bind(ref CERT_IssueCRL_TakesPPPPPPI, "CERT_IssueCRL")(szCrlOut, szIssuerCert, szIssuerKey, szEarlierCrl, szRevoked, szDescription, nOptions);
        }

        private static TakesBIBBI CERT_Query_TakesBIBBI;
        /// <summary>CERT_Query answers one query about a certificate, request, CRL or OCSP response, the first one in szCert.</summary>
        public static int CERT_Query(byte[] szOutput, int nOutChars, byte[] szCert, byte[] szQuery, int nOptions)
        {
            return Module.Bind(ref CERT_Query_TakesBIBBI, "CERT_Query")(szOutput, nOutChars, szCert, szQuery, nOptions);
        }

        private static TakesPIPPI CERT_Query_TakesPIPPI;
        /// <summary>CERT_Query answers one query about a certificate, request, CRL or OCSP response, the first one in szCert.</summary>
        public static int CERT_Query(IntPtr szOutput, int nOutChars, IntPtr szCert, IntPtr szQuery, int nOptions)
        {
            return Module.Bind(ref CERT_Query_TakesPIPPI, "CERT_Query")(szOutput, nOutChars, szCert, szQuery, nOptions);
        }

        private static TakesBIBI CERT_Report_TakesBIBI;
        /// <summary>CERT_Report writes all that certificates, requests, CRLs and OCSP responses hold.</summary>
        public static int CERT_Report(byte[] szOutput, int nOutChars, byte[] szFileOrText, int nOptions)
        {
            return Module.Bind(ref CERT_Report_TakesBIBI, "CERT_Report")(szOutput, nOutChars, szFileOrText, nOptions);
        }

        private static TakesPIPI CERT_Report_TakesPIPI;
        /// <summary>CERT_Report writes all that certificates, requests, CRLs and OCSP responses hold.</summary>
        public static int CERT_Report(IntPtr szOutput, int nOutChars, IntPtr szFileOrText, int nOptions)
        {
            return Module.Bind(ref CERT_Report_TakesPIPI, "CERT_Report")(szOutput, nOutChars, szFileOrText, nOptions);
        }

        private static TakesBBI CERT_CheckName_TakesBBI;
        /// <summary>CERT_CheckName tells whether a certificate, the first one in szCert, is for a host, an address or a mailbox (RFC 9525).</summary>
        public static int CERT_CheckName(byte[] szCert, byte[] szHostOrAddress, int nOptions)
        {
            return Module.Bind(ref CERT_CheckName_TakesBBI, "CERT_CheckName")(szCert, szHostOrAddress, nOptions);
        }

        private static TakesPPI CERT_CheckName_TakesPPI;
        /// <summary>CERT_CheckName tells whether a certificate, the first one in szCert, is for a host, an address or a mailbox (RFC 9525).</summary>
        public static int CERT_CheckName(IntPtr szCert, IntPtr szHostOrAddress, int nOptions)
        {
            return Module.Bind(ref CERT_CheckName_TakesPPI, "CERT_CheckName")(szCert, szHostOrAddress, nOptions);
        }

        private static TakesBIBBBBBI CERT_CheckPath_TakesBIBBBBBI;
        /// <summary>CERT_CheckPath tells whether a certificate can be relied on.</summary>
        public static int CERT_CheckPath(byte[] szReport, int nReportChars, byte[] szCert, byte[] szOthers, byte[] szTrusted, byte[] szEvidence, byte[] szConditions, int nOptions)
        {
            return Module.Bind(ref CERT_CheckPath_TakesBIBBBBBI, "CERT_CheckPath")(szReport, nReportChars, szCert, szOthers, szTrusted, szEvidence, szConditions, nOptions);
        }

        private static TakesPIPPPPPI CERT_CheckPath_TakesPIPPPPPI;
        /// <summary>CERT_CheckPath tells whether a certificate can be relied on.</summary>
        public static int CERT_CheckPath(IntPtr szReport, int nReportChars, IntPtr szCert, IntPtr szOthers, IntPtr szTrusted, IntPtr szEvidence, IntPtr szConditions, int nOptions)
        {
            return Module.Bind(ref CERT_CheckPath_TakesPIPPPPPI, "CERT_CheckPath")(szReport, nReportChars, szCert, szOthers, szTrusted, szEvidence, szConditions, nOptions);
        }
    }
}
