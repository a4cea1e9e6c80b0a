using System;
using System.Collections.Generic;
using System.IO;
using System.Runtime.InteropServices;

namespace Zulcore
{
    // Finds the module: beside this assembly or where a package has it, then where ZULCORE_LIBRARY says, then as the system
    // does.
    internal static class Module
    {
        internal static readonly bool IsWindows = Path.DirectorySeparatorChar == '\\';

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
                foreach (string path in Candidates())
                {
                    loaded = Open(path);
                    if (loaded != IntPtr.Zero)
                    {
                        return loaded;
                    }
                }
            }
            throw new DllNotFoundException("No zulcore module beside " + typeof(Module).Assembly.Location +
                                           ", in ZULCORE_LIBRARY or where the system looks");
        }

        private static IEnumerable<string> Candidates()
        {
            string file = IsWindows ? "zulcore.dll" : "libzulcore.so";
            string native = Path.Combine("runtimes", IsWindows ? "win-x64" : "linux-x64", "native", file);
            string assembly = typeof(Module).Assembly.Location;
            if (assembly != "")
            {
                string folder = Path.GetDirectoryName(assembly);
                // A package that was unpacked has the assembly in lib/net45.
                string[] places = { file, native, Path.Combine("..", "..", native) };
                foreach (string place in places)
                {
                    string path = Path.Combine(folder, place);
                    if (File.Exists(path))
                    {
                        yield return path;
                    }
                }
            }
            string named = Environment.GetEnvironmentVariable("ZULCORE_LIBRARY");
            if (!string.IsNullOrEmpty(named))
            {
                yield return named;
            }
            if (!IsWindows)
            {
                yield return "libzulcore.so.3";
            }
            yield return file;
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
