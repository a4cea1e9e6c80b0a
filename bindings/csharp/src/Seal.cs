using System;
using System.Text;

namespace Zulcore
{
    /// <summary>The private key of files encrypted in the format of age. It is wiped when it is disposed of.</summary>
    public sealed class Identity : IDisposable
    {
        internal readonly SecretMemory Memory;

        private Identity(SecretMemory memory)
        {
            Memory = memory;
        }

        /// <summary>Makes an identity.</summary>
        public static Identity Generate()
        {
            return new Identity(Output.Secret(74, (room, size) => Raw.SEAL_MakeIdentity(room, size, 0)));
        }

        /// <summary>An identity from its text, "AGE-SECRET-KEY-1...", or its UTF-8 bytes.</summary>
        public static Identity Of(Password text)
        {
            if (text == null)
            {
                throw new ArgumentNullException("text");
            }
            SecretMemory memory = text.Copy();
            try
            {
                const string start = "age-secret-key-1"; // anything else would be the name of a file
                string first = Encoding.ASCII.GetString(memory.ToArray(Math.Min(start.Length, memory.Size)));
                if (first.ToLowerInvariant() != start || memory.LengthOfText() != memory.Size)
                {
                    throw new ZulException(Raw.BAD_KEY_ERROR, "not the text of an identity");
                }
                Result.Length(Raw.SEAL_Recipient(IntPtr.Zero, 0, memory.Address));
                return new Identity(memory);
            }
            catch
            {
                memory.Dispose();
                throw;
            }
        }

        /// <summary>The public key, "age1...".</summary>
        public string Recipient
        {
            get
            {
                using (var arguments = new Arguments())
                {
                    IntPtr identity = arguments.Hold(Memory);
                    return Output.Text((room, size) => Raw.SEAL_Recipient(room, size, identity));
                }
            }
        }

        /// <summary>The bytes of its text, to be stored where nobody else can read them. The caller wipes them.</summary>
        public byte[] Reveal()
        {
            using (var arguments = new Arguments())
            {
                arguments.Hold(Memory);
                return Memory.ToArray(Memory.Size);
            }
        }

        /// <summary>Its recipient, never itself.</summary>
        public override string ToString()
        {
            return Memory.IsClosed ? "closed identity" : "identity of " + Recipient;
        }

        /// <summary>Wipes it.</summary>
        public void Dispose()
        {
            Memory.Dispose();
        }
    }

    /// <summary>Files encrypted in the format of age, of any size. Lists of recipients and identities are joined by ";": keys,
    /// or names of files of keys. options: ZUL_SEAL_ARMOUR.</summary>
    public static class Seal
    {
        /// <summary>Encrypts a file for recipients.</summary>
        public static void SealFile(string fileOut, string fileIn, string recipients, int options = 0)
        {
            using (var arguments = new Arguments())
            {
                Result.Status(Raw.SEAL_File(arguments.Name(fileOut), arguments.Name(fileIn), arguments.Name(recipients),
                                           IntPtr.Zero, options));
            }
        }

        /// <summary>Encrypts a file under a password.</summary>
        public static void SealFileWithPassword(string fileOut, string fileIn, Password password, int options = 0)
        {
            using (var arguments = new Arguments())
            {
                Result.Status(Raw.SEAL_File(arguments.Name(fileOut), arguments.Name(fileIn), IntPtr.Zero,
                                           arguments.Secret(password), options));
            }
        }

        /// <summary>Decrypts a file with an identity.</summary>
        public static void OpenFile(string fileOut, string fileIn, Identity identity, int options = 0)
        {
            if (identity == null)
            {
                throw new ArgumentNullException("identity");
            }
            using (var arguments = new Arguments())
            {
                Result.Status(Raw.SEAL_OpenFile(arguments.Name(fileOut), arguments.Name(fileIn),
                                               arguments.Hold(identity.Memory), IntPtr.Zero, options));
            }
        }

        /// <summary>Decrypts a file with the identities of files.</summary>
        public static void OpenFile(string fileOut, string fileIn, string identityFiles, int options = 0)
        {
            using (var arguments = new Arguments())
            {
                Result.Status(Raw.SEAL_OpenFile(arguments.Name(fileOut), arguments.Name(fileIn), arguments.Name(identityFiles),
                                               IntPtr.Zero, options));
            }
        }

        /// <summary>Decrypts a file with a password.</summary>
        public static void OpenFileWithPassword(string fileOut, string fileIn, Password password, int options = 0)
        {
            using (var arguments = new Arguments())
            {
                Result.Status(Raw.SEAL_OpenFile(arguments.Name(fileOut), arguments.Name(fileIn), IntPtr.Zero,
                                               arguments.Secret(password), options));
            }
        }
    }
}
