using System;

namespace Zulcore
{
    /// <summary>Authenticated encryption: "aes-128-gcm", "aes-192-gcm", "aes-256-gcm", "chacha20-poly1305" or
    /// "aes-256-gcm-siv".</summary>
    public static class Aead
    {
        /// <summary>Encrypts data and adds a tag, which also covers aad. Without a nonce a random one is put in front of the
        /// output. A nonce of the caller's may serve for one message of a key only.</summary>
        public static byte[] Encrypt(byte[] key, byte[] data, byte[] aad = null, byte[] nonce = null,
                                     string algorithm = "aes-256-gcm")
        {
            return Run(Raw.AEAD_Encrypt, key, data, aad, nonce, algorithm);
        }

        /// <summary>Undoes Encrypt with the same arguments; anything else is DECRYPT_ERROR.</summary>
        public static byte[] Decrypt(byte[] key, byte[] data, byte[] aad = null, byte[] nonce = null,
                                     string algorithm = "aes-256-gcm")
        {
            return Run(Raw.AEAD_Decrypt, key, data, aad, nonce, algorithm);
        }

        private static byte[] Run(Function function, byte[] key, byte[] data, byte[] aad, byte[] nonce, string algorithm)
        {
            int options = nonce == null ? Raw.ZUL_AEAD_RANDOM_NONCE : 0;
            int nonceLength = nonce == null ? 0 : nonce.Length, aadLength = aad == null ? 0 : aad.Length;
            using (var arguments = new Arguments())
            {
                IntPtr secret = arguments.Bytes(key, "key"), input = arguments.Bytes(data, "data");
                IntPtr more = arguments.Optional(aad), once = arguments.Optional(nonce), name = arguments.Text(algorithm);
                return Output.Bytes((room, size) => function(room, size, input, data.Length, secret, key.Length, once,
                                                             nonceLength, more, aadLength, name, options));
            }
        }

        private delegate int Function(IntPtr output, int room, IntPtr input, int inputLength, IntPtr key, int keyLength,
                                      IntPtr nonce, int nonceLength, IntPtr aad, int aadLength, IntPtr algorithm, int options);
    }

    /// <summary>Keys from passwords and from other keys. The caller wipes them (Zul.Wipe).</summary>
    public static class Kdf
    {
        /// <summary>PBKDF2 with HMAC.</summary>
        public static byte[] Pbkdf2(Password password, byte[] salt, int size = 32, int iterations = 600000,
                                    string hash = "sha256")
        {
            using (var arguments = new Arguments())
            using (SecretMemory secret = CopyOf(password))
            {
                IntPtr salted = arguments.Bytes(salt, "salt"), name = arguments.Text(hash);
                return Output.Bytes(size, (room, length) => Raw.KDF_Pbkdf2(room, length, secret.Address, secret.Size, salted,
                                                                           salt.Length, iterations, name));
            }
        }

        /// <summary>HKDF, for keys that cannot be guessed; not for passwords.</summary>
        public static byte[] Hkdf(byte[] key, int size = 32, byte[] salt = null, byte[] info = null, string hash = "sha256")
        {
            int saltLength = salt == null ? 0 : salt.Length, infoLength = info == null ? 0 : info.Length;
            using (var arguments = new Arguments())
            {
                IntPtr secret = arguments.Bytes(key, "key"), salted = arguments.Optional(salt);
                IntPtr about = arguments.Optional(info), name = arguments.Text(hash);
                return Output.Bytes(size, (room, length) => Raw.KDF_Hkdf(room, length, secret, key.Length, salted, saltLength,
                                                                         about, infoLength, name));
            }
        }

        /// <summary>scrypt, which takes 128 n r bytes of memory.</summary>
        public static byte[] Scrypt(Password password, byte[] salt, int size = 32, int n = 131072, int r = 8, int p = 1)
        {
            using (var arguments = new Arguments())
            using (SecretMemory secret = CopyOf(password))
            {
                IntPtr salted = arguments.Bytes(salt, "salt");
                return Output.Bytes(size, (room, length) => Raw.KDF_Scrypt(room, length, secret.Address, secret.Size, salted,
                                                                           salt.Length, n, r, p));
            }
        }

        /// <summary>Argon2id.</summary>
        public static byte[] Argon2id(Password password, byte[] salt, int size = 32, int memoryKiB = 65536, int passes = 3,
                                      int lanes = 4)
        {
            using (var arguments = new Arguments())
            using (SecretMemory secret = CopyOf(password))
            {
                IntPtr salted = arguments.Bytes(salt, "salt");
                return Output.Bytes(size, (room, length) => Raw.KDF_Argon2id(room, length, secret.Address, secret.Size, salted,
                                                                             salt.Length, memoryKiB, passes, lanes));
            }
        }

        // These functions take any bytes, zeros too.
        private static SecretMemory CopyOf(Password password)
        {
            if (password == null)
            {
                throw new ArgumentNullException("password");
            }
            return password.Copy();
        }
    }
}
