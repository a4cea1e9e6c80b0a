using System;
using System.Collections.Generic;
using System.Runtime.InteropServices;
using System.Text;

namespace Zulcore
{
    /// <summary>A password: a string, which is passed on as UTF-8, or bytes, which can be wiped afterwards.</summary>
    public sealed class Password
    {
        private readonly string text;
        private readonly byte[] bytes;

        private Password(string text, byte[] bytes)
        {
            this.text = text;
            this.bytes = bytes;
        }

        /// <summary>A password of a string's characters. No string is no password.</summary>
        public static implicit operator Password(string text)
        {
            return text == null ? null : new Password(text, null);
        }

        /// <summary>A password of bytes, which stay the caller's. No array is no password.</summary>
        public static implicit operator Password(byte[] bytes)
        {
            return bytes == null ? null : new Password(null, bytes);
        }

        /// <summary>Shows nothing of it.</summary>
        public override string ToString()
        {
            return "a password";
        }

        // A copy with a zero byte at its end.
        internal SecretMemory Copy()
        {
            return bytes != null ? new SecretMemory(bytes) : SecretMemory.OfText(text);
        }
    }

    // Memory outside of the collected heap, which is moved and copied by nobody, wiped when it is released.
    internal sealed class SecretMemory : SafeHandle
    {
        private static readonly byte[] Zeros = new byte[4096];

        private readonly int allocated;

        internal SecretMemory(int room) : this(room, room)
        {
        }

        // A copy of bytes with a zero byte behind it.
        internal SecretMemory(byte[] bytes) : this(checked(bytes.Length + 1), bytes.Length)
        {
            Marshal.Copy(bytes, 0, handle, bytes.Length);
            Marshal.WriteByte(handle, bytes.Length, 0);
        }

        private SecretMemory(int room, int size) : base(IntPtr.Zero, true)
        {
            allocated = room;
            Size = size;
            SetHandle(Marshal.AllocHGlobal(Math.Max(room, 1)));
            Clear();
        }

        // Without the zero byte of a text.
        internal int Size { get; private set; }

        internal IntPtr Address
        {
            get { return handle; }
        }

        public override bool IsInvalid
        {
            get { return handle == IntPtr.Zero; }
        }

        internal static SecretMemory OfText(string text)
        {
            byte[] bytes = new UTF8Encoding(false, true).GetBytes(text); // refuses half characters
            try
            {
                return new SecretMemory(bytes);
            }
            finally
            {
                Array.Clear(bytes, 0, bytes.Length);
            }
        }

        // The first bytes, in memory of just that size with a zero byte behind it.
        internal SecretMemory Cut(int size)
        {
            var cut = new SecretMemory(size + 1, size);
            for (int i = 0; i < size; i++)
            {
                Marshal.WriteByte(cut.handle, i, Marshal.ReadByte(handle, i));
            }
            Marshal.WriteByte(cut.handle, size, 0);
            return cut;
        }

        internal byte[] ToArray(int size)
        {
            if (size > allocated)
            {
                throw new InvalidOperationException("more than there is room for");
            }
            byte[] bytes = new byte[size];
            Marshal.Copy(handle, bytes, 0, size);
            return bytes;
        }

        internal int LengthOfText()
        {
            int length = 0;
            while (Marshal.ReadByte(handle, length) != 0)
            {
                length++;
            }
            return length;
        }

        protected override bool ReleaseHandle()
        {
            Clear();
            Marshal.FreeHGlobal(handle);
            return true;
        }

        private void Clear()
        {
            for (int done = 0; done < allocated; done += Zeros.Length)
            {
                Marshal.Copy(Zeros, 0, new IntPtr(handle.ToInt64() + done), Math.Min(Zeros.Length, allocated - done));
            }
        }
    }

    // What one call gets. All of it stays where it is until the end, and copies are wiped then.
    internal sealed class Arguments : IDisposable
    {
        private readonly List<SecretMemory> copies = new List<SecretMemory>();
        private readonly List<GCHandle> pins = new List<GCHandle>();
        private readonly List<SafeHandle> held = new List<SafeHandle>();

        // A text in UTF-8; null stays null.
        internal IntPtr Text(string text)
        {
            return text == null ? IntPtr.Zero : Own(SecretMemory.OfText(text));
        }

        // A file's name, or a text in its place, in the system's encoding.
        internal IntPtr Name(string name)
        {
            if (!Module.IsWindows || name == null)
            {
                return Text(name);
            }
            IntPtr copy = Marshal.StringToHGlobalAnsi(name);
            try
            {
                if (Marshal.PtrToStringAnsi(copy) != name)
                {
                    throw new ZulException(Raw.BAD_PARAM_ERROR, "a name that the system's code page cannot write");
                }
                int length = 0;
                while (Marshal.ReadByte(copy, length) != 0)
                {
                    length++;
                }
                byte[] bytes = new byte[length];
                Marshal.Copy(copy, bytes, 0, length);
                try
                {
                    return Own(new SecretMemory(bytes));
                }
                finally
                {
                    Array.Clear(bytes, 0, length);
                }
            }
            finally
            {
                Marshal.ZeroFreeGlobalAllocAnsi(copy); // the text may be a private key
            }
        }

        // Whoever wants no certificate has to say null; an empty text is a mistake.
        internal IntPtr NameOrNone(string certificate)
        {
            if (certificate == "")
            {
                throw new ZulException(Raw.BAD_PARAM_ERROR, "an empty text for a certificate");
            }
            return Name(certificate);
        }

        internal IntPtr Secret(Password password)
        {
            return password == null ? IntPtr.Zero : Own(password.Copy());
        }

        // Bytes, which have to be there; of none an address all the same.
        internal IntPtr Bytes(byte[] bytes, string name)
        {
            if (bytes == null)
            {
                throw new ArgumentNullException(name);
            }
            return Optional(bytes.Length > 0 ? bytes : new byte[1]);
        }

        internal IntPtr Optional(byte[] bytes)
        {
            if (bytes == null || bytes.Length == 0)
            {
                return IntPtr.Zero;
            }
            GCHandle pin = GCHandle.Alloc(bytes, GCHandleType.Pinned);
            pins.Add(pin);
            return pin.AddrOfPinnedObject();
        }

        // Memory of somebody else, which cannot be released meanwhile. It has to be open still.
        internal IntPtr Hold(SecretMemory memory)
        {
            bool isHeld = false;
            memory.DangerousAddRef(ref isHeld);
            held.Add(memory);
            return memory.Address;
        }

        internal IntPtr Hold(Key key, string name)
        {
            if (key == null)
            {
                throw new ArgumentNullException(name);
            }
            return Hold(key.Memory);
        }

        public void Dispose()
        {
            copies.ForEach(copy => copy.Dispose());
            pins.ForEach(pin => pin.Free());
            held.ForEach(memory => memory.DangerousRelease());
            copies.Clear();
            pins.Clear();
            held.Clear();
        }

        private IntPtr Own(SecretMemory copy)
        {
            copies.Add(copy);
            if (copy.LengthOfText() != copy.Size)
            {
                throw new ZulException(Raw.BAD_PARAM_ERROR, "a text with a zero byte in it");
            }
            return copy.Address;
        }
    }

    // Outputs of call(room, size): asked for their length first, then for themselves.
    internal static class Output
    {
        internal static string Text(Func<IntPtr, int, int> call)
        {
            int most = Result.Length(call(IntPtr.Zero, 0));
            using (var room = new SecretMemory(checked(most + 1)))
            {
                byte[] text = room.ToArray(Result.Length(call(room.Address, most)));
                return Encoding.UTF8.GetString(text);
            }
        }

        // The room is a byte larger, since one of 0 bytes would be a query again.
        internal static byte[] Bytes(Func<IntPtr, int, int> call)
        {
            int most = checked(Result.Length(call(IntPtr.Zero, 0)) + 1);
            using (var room = new SecretMemory(most))
            {
                return room.ToArray(Result.Length(call(room.Address, most)));
            }
        }

        // Exactly so many bytes.
        internal static byte[] Bytes(int size, Func<IntPtr, int, int> call)
        {
            if (size < 0)
            {
                throw new ArgumentOutOfRangeException("size");
            }
            using (var room = new SecretMemory(size))
            {
                return room.ToArray(Result.Length(call(room.Address, size)));
            }
        }

        internal static SecretMemory Secret(int most, Func<IntPtr, int, int> call)
        {
            using (var room = new SecretMemory(checked(most + 1)))
            {
                return room.Cut(Result.Length(call(room.Address, most)));
            }
        }
    }
}
