"""bindings/java/src/zulcore/Zulcore.java: every constant and function for Java, by JNA."""
import html
import textwrap

HEAD = """\
// Made from include/zulcore.h by scripts/make_bindings.py.
package zulcore;

import com.sun.jna.Library;
import com.sun.jna.Pointer;

/**
 * Every function and constant of the library. Texts and bytes are native memory (com.sun.jna.Memory); a text ends with a
 * zero byte. {@link Zul} and {@link Key} make that memory, wipe it, and throw what is refused.
 */
public interface Zulcore extends Library {
"""


def comment(text):
    lines = textwrap.wrap(html.escape(text, quote=False), 112)
    if len(lines) == 1:
        return [f"    /** {lines[0]} */"]
    return ["    /**"] + ["     * " + line for line in lines] + ["     */"]


def constant(each):
    return f"    int {each.name} = {each.written};"


def declaration(function):
    words = [f"{'int' if each.kind == 'int' else 'Pointer'} {each.name}" for each in function.parameters]
    return textwrap.wrap(f"int {function.name}({', '.join(words)});", 116, initial_indent="    ",
                         subsequent_indent="            ")


def files_of(header):
    lines = [HEAD.rstrip()]
    lines += [constant(each) for each in header.errors]
    for heading, constants in header.options:
        lines += [""] + [f"    // {line}" for line in textwrap.wrap(heading, 112)]
        lines += [constant(each) for each in constants]
    for function in header.functions:
        lines += [""] + comment(function.summary) + declaration(function)
    lines += ["", "    /** The name of an error code, as \"DECRYPT_ERROR\". */", "    static String errorName(int code) {",
              "        switch (code) {"]
    for each in header.errors:
        lines += [f"            case {each.name}:", f'                return "{each.name}";']
    lines += ["            default:", '                return "ERROR";', "        }", "    }", "}", ""]
    return {"bindings/java/src/zulcore/Zulcore.java": "\n".join(lines)}
