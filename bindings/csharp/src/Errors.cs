using System;
using System.Runtime.InteropServices;
using System.Text;

namespace Zulcore
{
    /// <summary>What a call of the library refuses. Message has all of it.</summary>
    public class ZulException : Exception
    {
        /// <summary>An exception with a code of the library, positive, and what there is to say about it.</summary>
        public ZulException(int code, string detail) : base(Describe(code, detail))
        {
            Code = code;
            Detail = detail;
        }

        /// <summary>The error code, as Raw.DECRYPT_ERROR.</summary>
        public int Code { get; private set; }

        /// <summary>The name of the code, "DECRYPT_ERROR".</summary>
        public string Name
        {
            get { return Raw.ErrorName(Code); }
        }

        /// <summary>The general text of the code.</summary>
        public string Text
        {
            get { return TextOf(Code); }
        }

        /// <summary>What this call had to say; often empty.</summary>
        public string Detail { get; private set; }

        private static string TextOf(int code)
        {
            byte[] text = new byte[256];
            Raw.ZUL_ErrorLookup(text, text.Length, code);
            return Encoding.UTF8.GetString(text, 0, Array.IndexOf<byte>(text, 0));
        }

        private static string Describe(int code, string detail)
        {
            string name = Raw.ErrorName(code);
            string all = (name != "" ? name : "error " + code) + ": " + TextOf(code);
            return detail != "" ? all + " (" + detail + ")" : all;
        }
    }

    // The conventions of results.
    internal static class Result
    {
        // 0 or more, or a negated code.
        internal static int Length(int result)
        {
            if (result < 0)
            {
                throw Failure(-result);
            }
            return result;
        }

        // 0, or a code of either sign.
        internal static void Status(int result)
        {
            if (result != 0)
            {
                throw Failure(Math.Abs(result));
            }
        }

        // The exception of the call that has just failed in this thread.
        internal static ZulException Failure(int code)
        {
            byte[] text = new byte[512];
            Raw.ZUL_LastError(text, text.Length - 1);
            return new ZulException(code, Decode(text, Array.IndexOf<byte>(text, 0)));
        }

        // Details may quote names of files, which are not UTF-8 on Windows.
        private static string Decode(byte[] text, int size)
        {
            try
            {
                return new UTF8Encoding(false, true).GetString(text, 0, size);
            }
            catch (DecoderFallbackException)
            {
                GCHandle pin = GCHandle.Alloc(text, GCHandleType.Pinned);
                try
                {
                    return Marshal.PtrToStringAnsi(pin.AddrOfPinnedObject(), size);
                }
                finally
                {
                    pin.Free();
                }
            }
        }
    }
}
