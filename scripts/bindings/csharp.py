"""C#: bindings/csharp/src/Raw.cs. Functions are delegates that Module binds at their first call, since no attribute names the
module's file on every system. Functions with pointers come in two forms, with byte[] and with IntPtr."""
import xml.sax.saxutils

ARRAY = {"int": "int"}  # any other kind is a byte[]
ADDRESS = {"int": "int"}  # any other kind is an IntPtr

HEAD = """\
// Made from include/zulcore.h by scripts/make_bindings.py.
using System;
using System.Runtime.InteropServices;

namespace Zulcore
{
    /// <summary>Every function and constant of zulcore.h, as it is there. Texts are bytes that end with a zero byte. The forms
    /// with byte[] pin their arrays during the call.</summary>
    public static class Raw
    {
"""
TAIL = """\
    }
}
"""


def summary(text):
    return f"        /// <summary>{xml.sax.saxutils.escape(text)}</summary>\n"


def constants(header):
    lines = []
    for error in header.errors:
        lines.append(summary("An error code.") + f"        public const int {error.name} = {error.written};\n")
    for heading, group in header.options:
        text = heading.rstrip(".") + "."
        lines += [summary(text) + f"        public const int {constant.name} = {constant.written};\n" for constant in group]
    return "".join(lines)


def error_names(header):
    cases = "".join(f'                case {error.name}: return "{error.name}";\n' for error in header.errors)
    return ("\n" + summary('The name of a positive error code, "DECRYPT_ERROR" for 15; "" if there is no such code.') +
            "        public static string ErrorName(int code)\n        {\n            switch (code)\n            {\n" + cases +
            '                default: return "";\n            }\n        }\n')


def form_of(function, types, pointer):
    return [(types.get(parameter.kind, pointer), parameter.name) for parameter in function.parameters]


def delegate_of(form):
    """The name of the delegate type with these parameters: a letter for each."""
    return "Takes" + "".join({"int": "I", "byte[]": "B", "IntPtr": "P"}[type_] for type_, name in form)


def method(function, form):
    slot = f"{function.name}_{delegate_of(form)}"
    declared = ", ".join(f"{type_} {name}" for type_, name in form)
    given = ", ".join(name for type_, name in form)
    return (f"\n        private static {delegate_of(form)} {slot};\n" + summary(function.summary) +
            f"        public static int {function.name}({declared})\n        {{\n"
            f'            return Module.Bind(ref {slot}, "{function.name}")({given});\n        }}\n')


def files_of(header):
    delegates, methods = {}, []
    for function in header.functions:
        forms = [form_of(function, ARRAY, "byte[]"), form_of(function, ADDRESS, "IntPtr")]
        for form in forms[:1] if forms[0] == forms[1] else forms:
            parameters = ", ".join(f"{type_} p{number}" for number, (type_, name) in enumerate(form))
            delegates[delegate_of(form)] = (
                "\n        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]\n"
                f"        private delegate int {delegate_of(form)}({parameters});\n")
            methods.append(method(function, form))
    content = HEAD + constants(header) + error_names(header)
    content += "".join(delegates[name] for name in sorted(delegates)) + "".join(methods) + TAIL
    return {"bindings/csharp/src/Raw.cs": content}
