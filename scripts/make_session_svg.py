#!/usr/bin/env python3
"""make_session_svg.py [TOOL]: runs a few commands of the tool (build/native/zul) in a terminal and draws what it shows, in
its colours, as docs/images/session.svg. Keys and numbers that are new each time are shortened."""
import html
import os
import pathlib
import pty
import re
import select
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[1]
TOOL = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else ROOT / "build/native/zul").resolve()
PASSWORD = b"correct horse battery staple\n"
COLUMNS = 92
COMMANDS = [
    ("zul hash sha256 report.pdf", None),
    ("zul identity my.key", None),
    ("zul seal -r $(zul identity --recipient my.key) report.pdf", "zul seal -r age1… report.pdf"),
    ("zul open -i my.key report.pdf.age copy.pdf", None),
    ("zul key make --type ed25519 my.pub my.pem", None),
    ("zul sign -k my.pem report.pdf report.sig", None),
    ("zul verify -k my.pub report.pdf report.sig", None),
    ('zul ca init pki --name "C=AU;O=Example"', None),
    ("zul ca issue pki --dns www.example.com --no-password -o www", None),
    ("zul cert check-name www.pem www.example.org", None),
]
REFUSED = "www.example.org"
SHORTENED = [(r"age1[02-9ac-hj-np-z]{58}", "age1…"), (r"\b[0-9a-f]{32}\b", lambda match: match[0][:4] + "…")]
COLOURS = {30: "#555", 31: "#ff6b6b", 32: "#7bd88f", 33: "#f4bf75", 34: "#6ca8ff", 35: "#c792ea", 36: "#5fd7d7", 37: "#ddd",
           **{90 + n: colour for n, colour in enumerate(("#888", "#ff8787", "#9be9a8", "#ffd58a", "#8fc0ff", "#ddb3ff",
                                                         "#8fe8e8", "#fff"))}}


def output_of(command, folder):
    """What a terminal would get; each question is answered with the password."""
    process, terminal = pty.fork()
    if process == 0:
        os.chdir(folder)
        environment = {**os.environ, "PATH": f"{TOOL.parent}{os.pathsep}{os.environ['PATH']}", "TERM": "xterm-256color",
                       "COLUMNS": str(COLUMNS), "LC_ALL": "C.UTF-8"}
        os.execvpe("bash", ["bash", "-c", command], environment)
    text = b""
    while True:
        ready, _, _ = select.select([terminal], [], [], 60)
        try:
            piece = os.read(terminal, 4096) if ready else b""
        except OSError:  # the other end is closed
            piece = b""
        if not piece:
            break
        text += piece
        if re.search(rb"(assword[^\n]*|Once more): ?$", text):
            os.write(terminal, PASSWORD)
    os.close(terminal)
    status = os.waitstatus_to_exitcode(os.waitpid(process, 0)[1])
    if status != command.endswith(REFUSED):
        sys.exit(f"{command}: exit status {status}\n{text.decode()}")
    return text.decode().replace("\r\n", "\n")


def spans_of(line):
    """The parts of a line with their colours, from the terminal's codes for them; other codes are dropped."""
    colour, isBold, spans = None, False, []
    for part in re.split(r"(\x1b\[[0-9;?]*[A-Za-z])", line):
        if code := re.fullmatch(r"\x1b\[([0-9;]*)m", part):
            for number in map(int, filter(None, (code[1] or "0").split(";"))):
                isBold = number == 1 or (isBold and number not in (0, 22))
                colour = None if number in (0, 39) else COLOURS.get(number, colour)
        elif part and not part.startswith("\x1b"):
            spans.append((part, colour, isBold))
    return spans


def wrapped(line):
    """A line cut where the terminal's width ends; codes take no room."""
    lines, room = [""], COLUMNS
    for part in re.findall(r"\x1b\[[0-9;?]*[A-Za-z]|.", line):
        if len(part) == 1 and room == 0:
            lines.append("")
            room = COLUMNS
        lines[-1] += part
        room -= len(part) == 1
    return lines


def main():
    lines = []
    with tempfile.TemporaryDirectory() as folder:
        pathlib.Path(folder, "report.pdf").write_text("a report\n")
        for command, shown in COMMANDS:
            lines.append(f"\x1b[36m$\x1b[0m \x1b[1;97m{shown or command}\x1b[0m")
            text = output_of(command, folder)
            for pattern, replacement in SHORTENED:
                text = re.sub(pattern, replacement, text)
            # A line that is written again from its beginning shows its last state.
            lines += [part for line in text.splitlines() for part in wrapped(line.rstrip("\r").split("\r")[-1])]
    width, height, step = COLUMNS * 8.43 + 40, len(lines) * 19 + 62, 19
    svg = [f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width:.0f} {height}" width="{width:.0f}" height="{height}" '
           f'role="img" aria-label="A session with zul">',
           f'<rect width="{width:.0f}" height="{height}" rx="9" fill="#1b2229"/>']
    svg += [f'<circle cx="{22 + 20 * number}" cy="20" r="6" fill="{colour}"/>'
            for number, colour in enumerate(("#ff5f57", "#febc2e", "#28c840"))]
    svg.append('<g font-family="ui-monospace, SFMono-Regular, Menlo, Consolas, \'DejaVu Sans Mono\', monospace" font-size="14" '
               'fill="#b9c3cc" style="white-space:pre">')
    for number, line in enumerate(lines):
        spans = ""
        for text, colour, isBold in spans_of(line):
            style = (f' fill="{colour}"' if colour else "") + (' font-weight="600"' if isBold else "")
            spans += f"<tspan{style}>{html.escape(text, quote=False).replace('  ', chr(0xa0) * 2)}</tspan>"
        svg.append(f'<text x="20" y="{54 + number * step}">{spans}</text>')
    target = ROOT / "docs/images/session.svg"
    target.parent.mkdir(exist_ok=True)
    target.write_text("\n".join(svg + ["</g>", "</svg>"]) + "\n")


if __name__ == "__main__":
    main()
