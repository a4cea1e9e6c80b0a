using System;
using System.Collections.Generic;
using System.IO;
using System.Linq;

namespace Zulcore
{
    /// <summary>Messages (CMS) with RSA keys. Messages are names of files or texts. Certificates are files or texts, joined by
    /// ";" where several may stand, the signer's first.</summary>
    public static class Cms
    {
        /// <summary>Options of a signature with the time of signing in it.</summary>
        public const int SignedWithAttributes = Raw.ZUL_HASH_SHA256 | Raw.ZUL_CMS_INCLUDE_ATTRS | Raw.ZUL_CMS_ADD_SIGNTIME;

        /// <summary>Signs a file's content.</summary>
        public static void SignFile(string fileOut, string fileIn, string certificates, Key key,
                                    int options = Raw.ZUL_HASH_SHA256)
        {
            using (var arguments = new Arguments())
            {
                Result.Status(Raw.CMS_MakeSigData(arguments.Name(fileOut), arguments.Name(fileIn), arguments.Name(certificates),
                                                 arguments.Hold(key, "key"), options));
            }
        }

        /// <summary>Signs the UTF-8 of a text.</summary>
        public static void SignText(string fileOut, string text, string certificates, Key key,
                                    int options = Raw.ZUL_HASH_SHA256)
        {
            using (var arguments = new Arguments())
            {
                Result.Status(Raw.CMS_MakeSigDataFromString(arguments.Name(fileOut), arguments.Text(text),
                                                           arguments.Name(certificates), arguments.Hold(key, "key"), options));
            }
        }

        /// <summary>Signs content that stays elsewhere, by its digest. Gives base64.</summary>
        public static string SignDigest(byte[] digest, string certificates, Key key, int options = Raw.ZUL_HASH_SHA256)
        {
            return PublicFile.ContentOf(file =>
            {
                using (var arguments = new Arguments())
                {
                    Result.Status(Raw.CMS_MakeDetachedSig(arguments.Name(file), arguments.Text(Zul.ToHex(digest)),
                                                         arguments.Name(certificates), arguments.Hold(key, "key"),
                                                         options | Raw.ZUL_CMS_FORMAT_BASE64));
                }
            });
        }

        /// <summary>Throws SIGNATURE_ERROR if a message was not signed with that certificate's key. If that is null, anybody in
        /// the message can have signed. digest: of content that the message does not carry.</summary>
        public static void Verify(string message, string certificate, byte[] digest = null)
        {
            using (var arguments = new Arguments())
            {
                IntPtr hex = digest == null ? IntPtr.Zero : arguments.Text(Zul.ToHex(digest));
                Result.Status(Raw.CMS_VerifySigData(arguments.Name(message), arguments.NameOrNone(certificate), hex, 0));
            }
        }

        /// <summary>The content of a signed message, which Verify has to have checked.</summary>
        public static byte[] Read(string message)
        {
            using (var arguments = new Arguments())
            {
                IntPtr source = arguments.Name(message);
                return Output.Bytes((room, size) => Raw.CMS_ReadSigDataToString(room, size - 1, source, 0));
            }
        }

        /// <summary>Encrypts a file for every certificate of the list, or throws and leaves no file. options: the cipher,
        /// ZUL_CMS_FORMAT_BASE64.</summary>
        public static void EncryptFile(string fileOut, string fileIn, IEnumerable<string> certificates,
                                       int options = Raw.ZUL_CMS_CIPHER_AES256)
        {
            List<string> list = certificates.ToList();
            if (list.Any(certificate => string.IsNullOrEmpty(certificate) || certificate.Contains(";")))
            {
                throw new ZulException(Raw.BAD_PARAM_ERROR, "a certificate without a name, or with a ';' in it");
            }
            if (list.Count < 1 || list.Count > 10)
            {
                throw new ZulException(Raw.OUT_OF_RANGE_ERROR, "a message has 1 to 10 recipients");
            }
            using (var arguments = new Arguments())
            {
                int served = Result.Length(Raw.CMS_MakeEnvData(arguments.Name(fileOut), arguments.Name(fileIn),
                                                              arguments.Name(string.Join(";", list)), IntPtr.Zero, 0, options));
                if (served != list.Count)
                {
                    ZulException error = Result.Failure(Raw.BAD_KEY_ERROR); // its detail tells the certificate
                    File.Delete(fileOut);
                    throw error;
                }
            }
        }

        /// <summary>The content of an encrypted message. Whether it was changed cannot be told: verify a signature in it.</summary>
        public static byte[] Decrypt(string message, Key key, string certificate = null)
        {
            using (var arguments = new Arguments())
            {
                IntPtr source = arguments.Name(message), recipient = arguments.Name(certificate);
                IntPtr secret = arguments.Hold(key, "key");
                return Output.Bytes(
                    (room, size) => Raw.CMS_ReadEnvDataToString(room, size - 1, source, recipient, secret, 0));
            }
        }

        /// <summary>Writes the content of an encrypted message to a file.</summary>
        public static void DecryptFile(string fileOut, string message, Key key, string certificate = null)
        {
            using (var arguments = new Arguments())
            {
                Result.Status(Raw.CMS_ReadEnvData(arguments.Name(fileOut), arguments.Name(message), arguments.Name(certificate),
                                                 arguments.Hold(key, "key"), 0));
            }
        }
    }

    /// <summary>Asking an OCSP responder for the status of a certificate.</summary>
    public static class Ocsp
    {
        /// <summary>A request about one certificate, to be sent as application/ocsp-request. Many responders know no other digest
        /// of names than SHA-1.</summary>
        public static byte[] Request(string issuer, string certificate, int options = Raw.ZUL_HASH_SHA1)
        {
            if (string.IsNullOrEmpty(issuer) || string.IsNullOrEmpty(certificate)) // the one code that is not negated
            {
                throw new ZulException(Raw.BAD_PARAM_ERROR, "no issuer or certificate");
            }
            using (var arguments = new Arguments())
            {
                IntPtr authority = arguments.Name(issuer), subject = arguments.Name(certificate);
                return Zul.FromBase64(Output.Text(
                    (room, size) => Raw.OCSP_MakeRequest(room, size, authority, subject, IntPtr.Zero, options)));
            }
        }

        /// <summary>A report of a response. Throws SIGNATURE_ERROR if the issuer's key did not sign it. If the issuer is null,
        /// the signature is not verified.</summary>
        public static string Read(string response, string issuer)
        {
            using (var arguments = new Arguments())
            {
                IntPtr source = arguments.Name(response), authority = arguments.NameOrNone(issuer);
                return Output.Text(
                    (room, size) => Raw.OCSP_ReadResponse(room, size, source, authority, IntPtr.Zero, 0));
            }
        }
    }
}
