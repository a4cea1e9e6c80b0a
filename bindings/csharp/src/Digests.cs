using System;
using System.IO;

namespace Zulcore
{
    /// <summary>A digest or MAC of data in pieces.</summary>
    public abstract class PieceByPiece : IDisposable
    {
        internal SecretMemory Context;

        internal abstract int AddPiece(IntPtr context, IntPtr data, int size);

        internal abstract int EndPiece(IntPtr output, int size, IntPtr context);

        internal void Begin(Func<IntPtr, int, int> begin)
        {
            Context = new SecretMemory(Result.Length(begin(IntPtr.Zero, 0)));
            Result.Length(begin(Context.Address, Context.Size));
        }

        /// <summary>Adds bytes.</summary>
        public void Add(byte[] data)
        {
            if (data == null)
            {
                throw new ArgumentNullException("data");
            }
            Add(data, 0, data.Length);
        }

        /// <summary>Adds a part of an array.</summary>
        public void Add(byte[] data, int offset, int count)
        {
            if (data == null)
            {
                throw new ArgumentNullException("data");
            }
            if (offset < 0 || count < 0 || count > data.Length - offset)
            {
                throw new ArgumentOutOfRangeException("count");
            }
            using (var arguments = new Arguments())
            {
                var start = new IntPtr(arguments.Bytes(data, "data").ToInt64() + offset);
                Result.Status(AddPiece(arguments.Hold(Context), start, count));
            }
        }

        /// <summary>Adds all that is left in a stream.</summary>
        public void Add(Stream stream)
        {
            if (stream == null)
            {
                throw new ArgumentNullException("stream");
            }
            byte[] piece = new byte[65536];
            for (int count; (count = stream.Read(piece, 0, piece.Length)) > 0;)
            {
                Add(piece, 0, count);
            }
        }

        /// <summary>Gives the result, after which nothing can be added. size: of the output of "shake128" and "shake256", or to
        /// cut another one; 0 for the usual one.</summary>
        public byte[] End(int size = 0)
        {
            using (var arguments = new Arguments())
            {
                IntPtr context = arguments.Hold(Context);
                int most = size != 0 ? size : Result.Length(EndPiece(IntPtr.Zero, 0, context));
                return Output.Bytes(most, (room, length) => EndPiece(room, length, context));
            }
        }

        /// <summary>Wipes what is left of the data.</summary>
        public void Dispose()
        {
            Context.Dispose();
        }

        internal byte[] EndOfFile(string file)
        {
            FileStream stream;
            try
            {
                stream = new FileStream(file, FileMode.Open, FileAccess.Read);
            }
            catch (Exception error) when (error is IOException || error is UnauthorizedAccessException)
            {
                throw new ZulException(Raw.OPEN_ERROR, error.Message);
            }
            using (stream)
            {
                Add(stream);
            }
            return End();
        }
    }

    /// <summary>A digest: "sha256", "sha224", "sha384", "sha512", "sha512-256", "sha3-224" to "sha3-512", "shake128",
    /// "shake256", "sha1", "md5" or "md2".</summary>
    public sealed class Hash : PieceByPiece
    {
        /// <summary>Begins a digest.</summary>
        public Hash(string algorithm = "sha256")
        {
            using (var arguments = new Arguments())
            {
                IntPtr name = arguments.Text(algorithm);
                Begin((room, size) => Raw.HASH_Begin(room, size, name, 0));
            }
        }

        private Hash(SecretMemory context)
        {
            Context = context;
        }

        /// <summary>A digest that continues from the same point.</summary>
        public Hash Copy()
        {
            using (var arguments = new Arguments())
            {
                arguments.Hold(Context);
                return new Hash(Context.Cut(Context.Size));
            }
        }

        /// <summary>The digest of bytes.</summary>
        public static byte[] Compute(byte[] data, string algorithm = "sha256")
        {
            using (var hash = new Hash(algorithm))
            {
                hash.Add(data);
                return hash.End();
            }
        }

        /// <summary>The digest of a file.</summary>
        public static byte[] ComputeFile(string file, string algorithm = "sha256")
        {
            using (var hash = new Hash(algorithm))
            {
                return hash.EndOfFile(file);
            }
        }

        /// <summary>The digest of bytes in hex.</summary>
        public static string ComputeHex(byte[] data, string algorithm = "sha256")
        {
            return Zul.ToHex(Compute(data, algorithm));
        }

        /// <summary>The digest of a file in hex.</summary>
        public static string ComputeFileHex(string file, string algorithm = "sha256")
        {
            return Zul.ToHex(ComputeFile(file, algorithm));
        }

        internal override int AddPiece(IntPtr context, IntPtr data, int size)
        {
            return Raw.HASH_Add(context, data, size);
        }

        internal override int EndPiece(IntPtr output, int size, IntPtr context)
        {
            return Raw.HASH_End(output, size, context);
        }
    }

    /// <summary>A MAC (HMAC) with a key and the digest of a name.</summary>
    public sealed class Hmac : PieceByPiece
    {
        /// <summary>Begins a MAC.</summary>
        public Hmac(byte[] key, string algorithm = "sha256")
        {
            using (var arguments = new Arguments())
            {
                IntPtr name = arguments.Text(algorithm), secret = arguments.Bytes(key, "key");
                Begin((room, size) => Raw.HMAC_Begin(room, size, secret, key.Length, name, 0));
            }
        }

        /// <summary>The MAC of bytes.</summary>
        public static byte[] Compute(byte[] key, byte[] data, string algorithm = "sha256")
        {
            using (var hmac = new Hmac(key, algorithm))
            {
                hmac.Add(data);
                return hmac.End();
            }
        }

        internal override int AddPiece(IntPtr context, IntPtr data, int size)
        {
            return Raw.HMAC_Add(context, data, size);
        }

        internal override int EndPiece(IntPtr output, int size, IntPtr context)
        {
            return Raw.HMAC_End(output, size, context);
        }
    }
}
