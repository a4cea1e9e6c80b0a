"""What include/zulcore.h declares, for the scripts that write other files from it: error codes, options, functions."""
import dataclasses
import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parents[1]
HEADER = ROOT / "include" / "zulcore.h"

# What each C type of a parameter means to a caller. Memory is bytes whose type the function does not care about, or
# the room of a context.
KINDS = {
    "int": "int",
    "const char*": "text",
    "char*": "textOut",
    "const unsigned char*": "bytes",
    "unsigned char*": "bytesOut",
    "const void*": "bytes",
    "void*": "memory",
}


@dataclasses.dataclass(frozen=True)
class Constant:
    name: str
    value: int
    written: str  # as in the header: "0x10"


@dataclasses.dataclass(frozen=True)
class Parameter:
    type: str  # "const char*"
    name: str

    @property
    def kind(self):
        return KINDS[self.type]


@dataclasses.dataclass(frozen=True)
class Function:
    """An export. Every one returns an int."""
    name: str
    parameters: tuple
    comment: tuple  # lines without the marks of the comment; those that share a comment have the same

    @property
    def family(self):
        return self.name.partition("_")[0]

    @property
    def summary(self):
        """The first sentence of the comment, up to its colon at most."""
        text = " ".join(self.comment)
        for end in re.finditer(r"[.:;]?(?<=[\w)\"'][.:])(?= |$)", text):
            sentence = text[:end.end() - 1]
            if sentence.count("(") == sentence.count(")"):
                return sentence + "."
        return text


@dataclasses.dataclass(frozen=True)
class Header:
    errors: tuple  # of Constant
    options: tuple  # of (heading, (Constant, ...)), in the order of the header
    functions: tuple


def comment_lines(comment):
    body = re.sub(r"^/\*|\*/$", "", comment)
    return [re.sub(r"^ ?\*", "", line, count=1) if number else line for number, line in enumerate(body.split("\n"))]


def blocks_of(text):
    """The header as comments and code, in turn: (comment, the code up to the next comment)."""
    parts = re.split(r"(/\*.*?\*/)", text, flags=re.S)
    return list(zip(parts[1::2], parts[2::2]))


def parameters_of(text):
    words = " ".join(text.split())
    if words == "void":
        return ()
    found = []
    for declaration in words.split(", "):
        match = re.fullmatch(r"(.*?[ *])(\w+)", declaration)
        type_ = match[1].strip()
        if type_ not in KINDS:
            raise ValueError(f"a parameter of an unknown type: {declaration}")
        found.append(Parameter(type_, match[2]))
    return tuple(found)


def read_header(path=HEADER):
    errors, options, functions = [], [], []
    for comment, code in blocks_of(path.read_text()):
        lines = tuple(line.strip() for line in comment_lines(comment))
        errors += [Constant(name, int(value), value) for name, value in re.findall(r"^    (\w+) = (\d+),?$", code, re.M)]
        found = re.findall(r"^#define (ZUL_\w+) (0x[0-9A-Fa-f]+|\d+)$", code, re.M)
        if found:
            heading = " ".join(line for line in lines if line)
            options.append((heading, tuple(Constant(name, int(value, 0), value) for name, value in found)))
        for name, parameters in re.findall(r"ZUL_API int (\w+)\(([^;]*)\);", code):
            functions.append(Function(name, parameters_of(parameters), tuple(line for line in lines if line)))
    return Header(tuple(errors), tuple(options), tuple(functions))
