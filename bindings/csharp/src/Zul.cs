using System;
using System.IO;
using System.Runtime.InteropServices;
using System.Text;

namespace Zulcore
{
    /// <summary>The module itself, random numbers, wiping, hex and base64.</summary>
    public static class Zul
    {
        /// <summary>The module's version: major * 100 + minor * 10 + release.</summary>
        public static int Version
        {
            get { return Raw.ZUL_Version(IntPtr.Zero, IntPtr.Zero); }
        }

        /// <summary>The full path of the module that was loaded.</summary>
        public static string ModulePath
        {
            get { return Output.Text((room, size) => Raw.ZUL_ModuleName(room, size, 0)); }
        }

        /// <summary>Repeats the tests that the module ran when it was loaded.</summary>
        public static void SelfTest()
        {
            Result.Status(Raw.ZUL_PowerUpTests(0));
        }

        /// <summary>Random bytes for any purpose, keys too.</summary>
        public static byte[] RandomBytes(int count)
        {
            if (count < 0)
            {
                throw new ArgumentOutOfRangeException("count");
            }
            const int most = 65536;
            byte[] bytes = new byte[count];
            using (var arguments = new Arguments())
            {
                long address = arguments.Optional(bytes).ToInt64();
                for (int done = 0; done < count; done += most)
                {
                    Result.Status(Raw.RNG_Bytes(new IntPtr(address + done), Math.Min(most, count - done), IntPtr.Zero, 0));
                }
            }
            return bytes;
        }

        /// <summary>A uniform number from lowest to highest, both included.</summary>
        public static int RandomNumber(int lowest, int highest)
        {
            if (highest < lowest || (long)highest - lowest >= uint.MaxValue)
            {
                throw new ZulException(Raw.OUT_OF_RANGE_ERROR, "no such range of random numbers");
            }
            return Raw.RNG_Number(lowest, highest);
        }

        /// <summary>Overwrites bytes with zeros. Copies that the collector has made of a moved array stay.</summary>
        public static void Wipe(byte[] bytes)
        {
            if (bytes != null && bytes.Length > 0)
            {
                Result.Status(Raw.WIPE_Data(bytes, bytes.Length));
            }
        }

        /// <summary>Overwrites a file and deletes it.</summary>
        public static void WipeFile(string file)
        {
            using (var arguments = new Arguments())
            {
                Result.Status(Raw.WIPE_File(arguments.Name(file), 0));
            }
        }

        /// <summary>Bytes in hex, in small letters.</summary>
        public static string ToHex(byte[] bytes)
        {
            using (var arguments = new Arguments())
            {
                IntPtr input = arguments.Bytes(bytes, "bytes");
                return Output.Text((room, size) => Raw.CNV_HexStrFromBytes(room, size, input, bytes.Length)).ToLowerInvariant();
            }
        }

        /// <summary>The bytes of hex digits. Other characters are skipped.</summary>
        public static byte[] FromHex(string hex)
        {
            return Decode(hex, Raw.CNV_BytesFromHexStr);
        }

        /// <summary>Bytes in base64, in one line.</summary>
        public static string ToBase64(byte[] bytes)
        {
            using (var arguments = new Arguments())
            {
                IntPtr input = arguments.Bytes(bytes, "bytes");
                return Output.Text((room, size) => Raw.CNV_B64StrFromBytes(room, size, input, bytes.Length));
            }
        }

        /// <summary>The bytes of base64. Other characters are skipped.</summary>
        public static byte[] FromBase64(string base64)
        {
            return Decode(base64, Raw.CNV_BytesFromB64Str);
        }

        private static byte[] Decode(string text, Func<IntPtr, int, IntPtr, int> function)
        {
            using (var arguments = new Arguments())
            {
                IntPtr input = arguments.Text(text);
                return Output.Bytes((room, size) => function(room, size, input));
            }
        }
    }

    // A file in a folder that nobody else can enter, for what is written to files alone and is not secret. Both are removed
    // at the end.
    internal sealed class PublicFile : IDisposable
    {
        private readonly string folder;

        internal PublicFile()
        {
            folder = Path.Combine(Path.GetTempPath(), "zulcore-" + Zul.ToHex(Zul.RandomBytes(12)));
            if (Module.IsWindows)
            {
                Directory.CreateDirectory(folder);
            }
            else if (mkdir(Encoding.UTF8.GetBytes(folder + "\0"), 0x1C0) != 0) // rwx------
            {
                throw new ZulException(Raw.CREATE_ERROR, "no temporary folder");
            }
            Name = Path.Combine(folder, "file");
        }

        internal string Name { get; private set; }

        // What call(name) writes to such a file.
        internal static string ContentOf(Action<string> call)
        {
            using (var file = new PublicFile())
            {
                call(file.Name);
                return File.ReadAllText(file.Name, Encoding.UTF8);
            }
        }

        public void Dispose()
        {
            Directory.Delete(folder, true);
        }

        [DllImport("libc.so.6")]
        private static extern int mkdir(byte[] path, uint mode);
    }
}
