using System;

namespace Zulcore
{
    /// <summary>The answer of a certificate that cannot be relied on.</summary>
    public sealed class PathException : ZulException
    {
        internal PathException(ZulException error, string report) : base(error.Code, error.Detail)
        {
            Report = report;
        }

        /// <summary>The report of all that was checked.</summary>
        public string Report { get; private set; }
    }

    /// <summary>Certificates, requests and CRLs, which are texts (PEM) or names of files. Descriptions are keyword=value pairs
    /// joined by ";", as "CN=www.example.com;dns=www.example.com;profile=server". The functions whose names end with File write a
    /// file, PEM unless the option ZUL_CERT_DER is given; the others give PEM.</summary>
    public static class Cert
    {
        /// <summary>Writes a certificate that its own key signs.</summary>
        public static void SelfSignFile(string fileOut, Key key, string description, int options = 0)
        {
            using (var arguments = new Arguments())
            {
                Result.Status(Raw.CERT_SelfSign(arguments.Name(fileOut), arguments.Hold(key, "key"), arguments.Text(description),
                                               options));
            }
        }

        /// <summary>A certificate that its own key signs.</summary>
        public static string SelfSign(Key key, string description)
        {
            return PublicFile.ContentOf(file => SelfSignFile(file, key, description));
        }

        /// <summary>Writes a certificate that an authority signs. subject: a request, or a public key or certificate, as file or
        /// text. options: also ZUL_CERT_BEYOND_ISSUER.</summary>
        public static void IssueFile(string fileOut, string issuer, Key issuerKey, string subject, string description = null,
                                     int options = 0)
        {
            using (var arguments = new Arguments())
            {
                Result.Status(Raw.CERT_Issue(arguments.Name(fileOut), arguments.Name(issuer),
                                            arguments.Hold(issuerKey, "issuerKey"), arguments.Name(subject),
                                            arguments.Text(description), options));
            }
        }

        /// <summary>A certificate that an authority signs, of a request, or of a public key or certificate.</summary>
        public static string Issue(string issuer, Key issuerKey, string subject, string description = null, int options = 0)
        {
            int pem = options & ~Raw.ZUL_CERT_DER;
            return PublicFile.ContentOf(file => IssueFile(file, issuer, issuerKey, subject, description, pem));
        }

        /// <summary>A certificate of a key that an authority signs.</summary>
        public static string Issue(string issuer, Key issuerKey, Key subject, string description, int options = 0)
        {
            if (subject == null)
            {
                throw new ArgumentNullException("subject");
            }
            return Issue(issuer, issuerKey, subject.PublicPem(), description, options);
        }

        /// <summary>Writes a certificate request.</summary>
        public static void RequestFile(string fileOut, Key key, string description, int options = 0)
        {
            using (var arguments = new Arguments())
            {
                Result.Status(Raw.CERT_Request(arguments.Name(fileOut), arguments.Hold(key, "key"), arguments.Text(description),
                                              options));
            }
        }

        /// <summary>A certificate request.</summary>
        public static string Request(Key key, string description)
        {
            return PublicFile.ContentOf(file => RequestFile(file, key, description));
        }

        /// <summary>Writes a CRL. revoked, description and earlier are those of CERT_IssueCRL: "serial=0a1b,reason=superseded",
        /// "days=7".</summary>
        public static void IssueCrlFile(string fileOut, string issuer, Key issuerKey, string revoked, string description = null,
                                        string earlier = null, int options = 0)
        {
            using (var arguments = new Arguments())
            {
                Result.Status(Raw.CERT_IssueCRL(arguments.Name(fileOut), arguments.Name(issuer),
                                               arguments.Hold(issuerKey, "issuerKey"), arguments.Name(earlier),
                                               arguments.Text(revoked), arguments.Text(description), options));
            }
        }

        /// <summary>A CRL.</summary>
        public static string IssueCrl(string issuer, Key issuerKey, string revoked, string description = null,
                                      string earlier = null)
        {
            return PublicFile.ContentOf(file => IssueCrlFile(file, issuer, issuerKey, revoked, description, earlier));
        }

        /// <summary>Answers one question, "subject" or "notAfter"; several values are joined by line feeds.</summary>
        public static string Query(string certificate, string word)
        {
            using (var arguments = new Arguments())
            {
                IntPtr source = arguments.Name(certificate), query = arguments.Text(word);
                return Output.Text((room, size) => Raw.CERT_Query(room, size, source, query, 0));
            }
        }

        /// <summary>Describes all fields, as text or with ZUL_CERT_JSON as JSON.</summary>
        public static string Report(string certificate, int options = 0)
        {
            using (var arguments = new Arguments())
            {
                IntPtr source = arguments.Name(certificate);
                return Output.Text((room, size) => Raw.CERT_Report(room, size, source, options));
            }
        }

        /// <summary>Throws NO_MATCH_ERROR if a certificate is not for a host, address or mailbox.</summary>
        public static void CheckName(string certificate, string hostOrAddress, int options = 0)
        {
            using (var arguments = new Arguments())
            {
                Result.Status(Raw.CERT_CheckName(arguments.Name(certificate), arguments.Text(hostOrAddress), options));
            }
        }

        /// <summary>Gives the report if a certificate is valid, and throws PathException if it is not. trusted, others and
        /// evidence are lists joined by ";". conditions: "host=www.example.com;purpose=server". options: ZUL_CERT_WEB,
        /// ZUL_CERT_SUBJECT_NAME, ZUL_CERT_JSON.</summary>
        public static string CheckPath(string certificate, string trusted, string others = null, string evidence = null,
                                       string conditions = null, int options = 0)
        {
            const int most = 1 << 26;
            using (var arguments = new Arguments())
            {
                IntPtr subject = arguments.Name(certificate), anchors = arguments.Name(trusted);
                IntPtr chain = arguments.Name(others), lists = arguments.Name(evidence), rules = arguments.Text(conditions);
                for (int size = 1 << 20;; size = most)
                {
                    using (var room = new SecretMemory(size + 1))
                    {
                        int result = Raw.CERT_CheckPath(room.Address, size, subject, chain, anchors, lists, rules, options);
                        // A text that fills so much of the room may have been cut.
                        bool isCut = size < most && (result == Raw.SHORT_BUF_ERROR || room.LengthOfText() > size / 2);
                        if (isCut)
                        {
                            continue;
                        }
                        string report = System.Text.Encoding.UTF8.GetString(room.ToArray(room.LengthOfText()));
                        if (result != 0)
                        {
                            throw new PathException(Result.Failure(result), report);
                        }
                        return report;
                    }
                }
            }
        }
    }

    /// <summary>PKCS #12 files, which are names of files or their base64.</summary>
    public static class P12
    {
        /// <summary>Writes a file of a key, which may be null, and certificates, which are joined by ";". options:
        /// ZUL_P12_LEGACY, ZUL_P12_PBMAC1, ZUL_P12_TRUSTED, ZUL_KEY_FORMAT_PEM.</summary>
        public static void Pack(string fileOut, string certificates, Key key, Password password, string name = null,
                                int options = 0)
        {
            using (var arguments = new Arguments())
            {
                IntPtr secret = key == null ? IntPtr.Zero : arguments.Hold(key, "key");
                Result.Status(Raw.P12_Pack(arguments.Name(fileOut), arguments.Name(certificates), secret,
                                          arguments.Secret(password), arguments.Text(name), options));
            }
        }

        /// <summary>A private key. options: its number, from 0, and ZUL_P12_NEED_MAC.</summary>
        public static Key UnpackKey(string p12, Password password, int options = 0)
        {
            using (var arguments = new Arguments())
            {
                return Key.OfPkcs12(arguments.Name(p12), arguments.Secret(password), options);
            }
        }

        /// <summary>The certificates as PEM, that of the key first.</summary>
        public static string UnpackCertificates(string p12, Password password, int options = 0)
        {
            return PublicFile.ContentOf(file =>
            {
                using (var arguments = new Arguments())
                {
                    Result.Status(Raw.P12_Unpack(arguments.Name(file), IntPtr.Zero, 0, arguments.Name(p12),
                                                arguments.Secret(password), options));
                }
            });
        }

        /// <summary>Describes a file. Without a password it shows what is visible without one. options: ZUL_P12_JSON,
        /// ZUL_P12_NEED_MAC.</summary>
        public static string List(string p12, Password password = null, int options = 0)
        {
            using (var arguments = new Arguments())
            {
                IntPtr source = arguments.Name(p12), secret = arguments.Secret(password);
                return Output.Text((room, size) => Raw.P12_List(room, size, source, secret, options));
            }
        }
    }
}
