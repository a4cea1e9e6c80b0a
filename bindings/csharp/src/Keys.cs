using System;

namespace Zulcore
{
    /// <summary>A private or public key of any kind. It is wiped when it is disposed of, and means nothing outside of this
    /// process.</summary>
    public sealed class Key : IDisposable
    {
        // The longest key string.
        private const int Longest = 90000;

        internal readonly SecretMemory Memory;

        private Key(SecretMemory memory)
        {
            Memory = memory;
        }

        /// <summary>Makes a private key: "rsa" (3072 bits), "rsa-N", "p-256", "p-384", "p-521", "ed25519" or "x25519".</summary>
        public static Key Generate(string kind)
        {
            using (var arguments = new Arguments())
            {
                IntPtr name = arguments.Text(kind);
                int most = Result.Length(Raw.KEY_Make(IntPtr.Zero, 0, name, 0));
                return new Key(Output.Secret(most, (room, size) => Raw.KEY_Make(room, size, name, 0)));
            }
        }

        /// <summary>Reads a key: the name of a file of DER, PEM or base64, or such a text. Of a certificate or request it is the
        /// public key.</summary>
        public static Key Read(string fileOrText, Password password = null)
        {
            using (var arguments = new Arguments())
            {
                IntPtr source = arguments.Name(fileOrText), secret = arguments.Secret(password);
                // A query would derive the key from the password a second time.
                return new Key(Output.Secret(Longest, (room, size) => Raw.KEY_Read(room, size, source, secret, 0)));
            }
        }

        internal static Key OfPkcs12(IntPtr p12, IntPtr password, int options)
        {
            using (var room = new SecretMemory(Longest + 1))
            {
                Result.Status(Raw.P12_Unpack(IntPtr.Zero, room.Address, Longest, p12, password, options));
                return new Key(room.Cut(room.LengthOfText()));
            }
        }

        /// <summary>Writes PEM: a private key encrypted under a password, a public key without one. parameters: as in KEY_Save,
        /// "kdf=scrypt". options: ZUL_KEY_FORMAT_PEM, or 0 for DER.</summary>
        public void Save(string file, Password password = null, string parameters = null,
                         int options = Raw.ZUL_KEY_FORMAT_PEM)
        {
            if (password == null && IsPrivate)
            {
                throw new ZulException(Raw.BAD_PARAM_ERROR,
                                       "a private key without a password: SaveUnencrypted writes such files");
            }
            using (var arguments = new Arguments())
            {
                Result.Status(Raw.KEY_Save(arguments.Name(file), arguments.Hold(Memory), arguments.Secret(password),
                                          arguments.Text(parameters), options));
            }
        }

        /// <summary>Writes a private key as it is. options: also ZUL_KEY_FORMAT_OWN.</summary>
        public void SaveUnencrypted(string file, int options = Raw.ZUL_KEY_FORMAT_PEM)
        {
            using (var arguments = new Arguments())
            {
                Result.Status(Raw.KEY_Save(arguments.Name(file), arguments.Hold(Memory), IntPtr.Zero, IntPtr.Zero, options));
            }
        }

        /// <summary>The public key of a private one.</summary>
        public Key PublicKey()
        {
            using (var arguments = new Arguments())
            {
                IntPtr key = arguments.Hold(Memory);
                int most = Result.Length(Raw.KEY_Public(IntPtr.Zero, 0, key));
                return new Key(Output.Secret(most, (room, size) => Raw.KEY_Public(room, size, key)));
            }
        }

        /// <summary>The public key as PEM "PUBLIC KEY".</summary>
        public string PublicPem()
        {
            using (Key key = PublicKey())
            {
                return PublicFile.ContentOf(file => key.Save(file));
            }
        }

        /// <summary>"rsa", "rsa-pss", "ec", "ed25519" or "x25519".</summary>
        public string Algorithm
        {
            get { return Query("algorithm"); }
        }

        /// <summary>"p-256" and the like; empty for RSA.</summary>
        public string Curve
        {
            get { return Query("curve"); }
        }

        /// <summary>The SHA-256 digest of the public key, in hex.</summary>
        public string Fingerprint
        {
            get { return Query("fingerprint"); }
        }

        /// <summary>The bits of the modulus or of the curve.</summary>
        public int Bits
        {
            get { return Number("bits"); }
        }

        /// <summary>Whether it is a private key.</summary>
        public bool IsPrivate
        {
            get { return Number("isPrivate") != 0; }
        }

        /// <summary>Whether this private key belongs to that key, of which the public part counts.</summary>
        public bool Matches(Key other)
        {
            using (var arguments = new Arguments())
            {
                int result = Raw.KEY_Match(arguments.Hold(Memory), arguments.Hold(other, "other"));
                if (result != Raw.NO_MATCH_ERROR)
                {
                    Result.Status(result);
                }
                return result == 0;
            }
        }

        /// <summary>Throws if the key's values are not valid or do not belong together.</summary>
        public void Check()
        {
            using (var arguments = new Arguments())
            {
                Result.Status(Raw.KEY_Check(arguments.Hold(Memory), 0));
            }
        }

        /// <summary>Signs data. The default algorithm is that of the kind of key. options: ZUL_SIG_RAW,
        /// ZUL_SIG_DETERMINISTIC.</summary>
        public byte[] Sign(byte[] data, string algorithm = null, int options = 0)
        {
            using (var arguments = new Arguments())
            {
                IntPtr input = arguments.Bytes(data, "data"), key = arguments.Hold(Memory), name = arguments.Text(algorithm);
                return Output.Bytes((room, size) => Raw.SIG_Sign(room, size, input, data.Length, key, name, options));
            }
        }

        /// <summary>Signs the content of a file.</summary>
        public byte[] SignFile(string file, string algorithm = null, int options = 0)
        {
            using (var arguments = new Arguments())
            {
                IntPtr source = arguments.Name(file), key = arguments.Hold(Memory), name = arguments.Text(algorithm);
                return Output.Bytes((room, size) => Raw.SIG_SignFile(room, size, source, key, name, options));
            }
        }

        /// <summary>Throws SIGNATURE_ERROR if the signature is not that of the data.</summary>
        public void Verify(byte[] signature, byte[] data, string algorithm = null, int options = 0)
        {
            using (var arguments = new Arguments())
            {
                IntPtr signed = arguments.Bytes(signature, "signature"), input = arguments.Bytes(data, "data");
                Result.Status(Raw.SIG_Verify(signed, signature.Length, input, data.Length, arguments.Hold(Memory),
                                            arguments.Text(algorithm), options));
            }
        }

        /// <summary>Throws SIGNATURE_ERROR if the signature is not that of the file's content.</summary>
        public void VerifyFile(byte[] signature, string file, string algorithm = null, int options = 0)
        {
            using (var arguments = new Arguments())
            {
                IntPtr signed = arguments.Bytes(signature, "signature");
                Result.Status(Raw.SIG_VerifyFile(signed, signature.Length, arguments.Name(file), arguments.Hold(Memory),
                                                arguments.Text(algorithm), options));
            }
        }

        /// <summary>The secret shared with the owner of another key; derive keys from it (Kdf.Hkdf).</summary>
        public byte[] Agree(Key other)
        {
            using (var arguments = new Arguments())
            {
                IntPtr key = arguments.Hold(Memory), peer = arguments.Hold(other, "other");
                return Output.Bytes((room, size) => Raw.KEY_Agree(room, size, key, peer, 0));
            }
        }

        /// <summary>Calls a function of Raw with the key string, whose address holds during the call.</summary>
        public int Use(Func<IntPtr, int> call)
        {
            if (call == null)
            {
                throw new ArgumentNullException("call");
            }
            using (var arguments = new Arguments())
            {
                return call(arguments.Hold(Memory));
            }
        }

        /// <summary>Kind and bits, never the key: "private p-256 key, 256 bits".</summary>
        public override string ToString()
        {
            if (Memory.IsClosed)
            {
                return "closed key";
            }
            string curve = Curve;
            return (IsPrivate ? "private " : "public ") + (curve != "" ? curve : Algorithm) + " key, " + Bits + " bits";
        }

        /// <summary>Wipes the key; later calls are ObjectDisposedException.</summary>
        public void Dispose()
        {
            Memory.Dispose();
        }

        private string Query(string word)
        {
            using (var arguments = new Arguments())
            {
                IntPtr key = arguments.Hold(Memory), query = arguments.Text(word);
                return Output.Text((room, size) => Raw.KEY_Query(room, size, key, query, 0));
            }
        }

        private int Number(string word)
        {
            using (var arguments = new Arguments())
            {
                return Result.Length(Raw.KEY_Query(IntPtr.Zero, 0, arguments.Hold(Memory), arguments.Text(word), 0));
            }
        }
    }
}
