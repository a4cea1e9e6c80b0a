using System;
using System.IO;
using System.Linq;
using System.Runtime.InteropServices;

namespace Zulcore
{
    // Finds the module: beside this assembly or where a package has it, then where ZULCORE_LIBRARY says, then as the system
    // does.
    internal static class Module
    {
        internal static readonly bool IsWindows = Path.DirectorySeparatorChar == '\\';

        private static readonly string FileName = IsWindows ? "zulcore.dll" : "libzulcore.so";

        // The address of the module, loaded by the first call. A load that fails is tried again by the next call.
        private static readonly object Lock = new object();
        private static IntPtr loaded;

        // The function behind a name, kept in the slot.
        internal static T Bind<T>(ref T slot, string name) where T : class
        {
            if (slot != null)
            {
                return slot;
            }
            IntPtr module = Loaded();
            IntPtr address = IsWindows ? GetProcAddress(module, name) : dlsym(module, name);
            if (address == IntPtr.Zero)
            {
                throw new EntryPointNotFoundException(name + " is not in the zulcore module");
            }
            slot = (T)(object)Marshal.GetDelegateForFunctionPointer(address, typeof(T));
            return slot;
        }

        private static IntPtr Loaded()
        {
            lock (Lock)
            {
                if (loaded != IntPtr.Zero)
                {
                    return loaded;
                }
                // A file that is there has to load: another one in its stead would be a surprise.
                string named = Beside() ?? Environment.GetEnvironmentVariable("ZULCORE_LIBRARY");
                if (!string.IsNullOrEmpty(named))
                {
                    loaded = Path.IsPathRooted(named) ? Open(named) : IntPtr.Zero;
                    if (loaded == IntPtr.Zero)
                    {
                        throw new DllNotFoundException("No module that can be loaded, or not a full path: " + named);
                    }
                    return loaded;
                }
                loaded = IsWindows ? IntPtr.Zero : Open("libzulcore.so.3");
                if (loaded == IntPtr.Zero)
                {
                    loaded = Open(FileName);
                }
                if (loaded == IntPtr.Zero)
                {
                    throw new DllNotFoundException("No zulcore module beside " + typeof(Module).Assembly.Location +
                                                   ", in ZULCORE_LIBRARY or where the system looks");
                }
                return loaded;
            }
        }

        // The module of a package or program, or null.
        private static string Beside()
        {
            string native = Path.Combine("runtimes", IsWindows ? "win-x64" : "linux-x64", "native", FileName);
            string assembly = typeof(Module).Assembly.Location;
            string folder = assembly != "" ? Path.GetDirectoryName(assembly) : "";
            // A package that was unpacked has the assembly in lib/net45.
            string[] places = { FileName, native, Path.Combine("..", "..", native) };
            return folder != "" ? places.Select(place => Path.Combine(folder, place)).FirstOrDefault(File.Exists) : null;
        }

        private static IntPtr Open(string path)
        {
            const uint alteredSearchPath = 8;
            const int now = 2;
            return IsWindows ? LoadLibraryEx(path, IntPtr.Zero, Path.IsPathRooted(path) ? alteredSearchPath : 0)
                             : dlopen(path, now);
        }

        [DllImport("kernel32", CharSet = CharSet.Unicode, SetLastError = true)]
        private static extern IntPtr LoadLibraryEx(string name, IntPtr file, uint flags);

        [DllImport("kernel32", CharSet = CharSet.Ansi, ExactSpelling = true, BestFitMapping = false)]
        private static extern IntPtr GetProcAddress(IntPtr module, string name);

        [DllImport("libdl.so.2", CharSet = CharSet.Ansi)]
        private static extern IntPtr dlopen(string name, int flags);

        [DllImport("libdl.so.2", CharSet = CharSet.Ansi)]
        private static extern IntPtr dlsym(IntPtr module, string name);
    }
}
