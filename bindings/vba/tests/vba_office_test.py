#!/usr/bin/env python3
"""vba_office_test.py ROOT: LibreOffice compiles bindings/vba/zulcore.bas and the examples and runs what needs no library
(bindings/vba/tests/Main.bas). Copies with a syntax error have to stop it: else it would not be the compiler that agrees."""
import html
import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import time

ROOT = pathlib.Path(sys.argv[1])
WORK = pathlib.Path.cwd()
XML = '<?xml version="1.0" encoding="UTF-8"?>\n'
MODULE = """<!DOCTYPE script:module PUBLIC "-//OpenOffice.org//DTD OfficeDocument 1.0//EN" "module.dtd">
<script:module xmlns:script="http://openoffice.org/2000/script" script:name="{}" script:language="StarBasic">{}</script:module>
"""
LIBRARY = """<!DOCTYPE library:library PUBLIC "-//OpenOffice.org//DTD OfficeDocument 1.0//EN" "library.dtd">
<library:library xmlns:library="http://openoffice.org/2000/library" library:name="Standard" library:readonly="false"
 library:passwordprotected="false">{}</library:library>
"""


def office(folder, *arguments, limit):
    """The seconds that it took, or None if it did not end: a compiler's message waits for somebody."""
    start = time.monotonic()
    process = subprocess.Popen(
        ["soffice", "--headless", "--norestore", "--nologo", f"-env:UserInstallation=file://{folder}/profile", *arguments],
        start_new_session=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    try:
        process.wait(limit)
    except subprocess.TimeoutExpired:
        os.killpg(process.pid, signal.SIGKILL)
        process.wait()
        return None
    return time.monotonic() - start


def run(name, modules, limit):
    """What Main wrote, and the seconds."""
    folder = WORK / name
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir()
    # The first start makes a profile, with an empty library of its own.
    assert office(folder, "--terminate_after_init", limit=120) is not None
    library = folder / "profile/user/basic/Standard"
    results = folder / "results.txt"
    for module, source in modules.items():
        source = source.replace(f'Attribute VB_Name = "{module}"', "Option VBASupport 1")
        source = source.replace("RESULTS", str(results)).replace("\r\n", "\n")
        # LibreOffice has no functions that return arrays but in a Variant.
        source = source.replace(") As Byte()\n", ")\n")
        (library / f"{module}.xba").write_text(XML + MODULE.format(module, html.escape(source)))
    elements = "".join(f'<library:element library:name="{module}"/>' for module in modules)
    (library / "script.xlb").write_text(XML + LIBRARY.format(elements))
    seconds = office(folder, "macro:///Standard.Main.Main", limit=limit)
    return results.read_text(errors="replace") if results.exists() else "", seconds


def heard(match):
    """A call of a function of the library, as one of Main.Heard with the texts among its arguments."""
    texts = [name for name in re.findall(r"(?:VarPtr|zulTextAt)\((\w+)", match[2]) if name != "room"]
    return f'Heard("{match[1]}"' + "".join(f' & " " & zulTextOf({name}, zulLength({name}) - 1)' for name in texts) + ")"


def main():
    modules = {"Main": (ROOT / "bindings/vba/tests/Main.bas").read_text()}
    for path in [ROOT / "bindings/vba/zulcore.bas", *sorted((ROOT / "bindings/vba/examples").glob("*.bas"))]:
        source = path.read_bytes().decode("ascii")
        modules[re.match(r'Attribute VB_Name = "(\w+)"', source)[1]] = source
    assert len(modules) == 7
    listening, count = re.subn(r"(CERT_CheckPath|CERT_IssueCRL)Ptr(\((?:[^()]|\((?:[^()]|\(0\))*\))*\))", heard, modules["zulcore"])
    assert count == 2
    # LibreOffice knows no code page.
    listening = listening.replace("= zulZeroName(", "= zulZero(")
    results, seconds = run("whole", modules | {"zulcore": listening}, 120)
    print(results)
    if seconds is None or not results.endswith("end\n") or "FAULT" in results:
        sys.exit("FAULT: not compiled, or wrong results")

    for name in ("zulcore", "ExampleHash"):
        whole = modules[name]
        broken = whole.replace("End Sub", "End Sab", 1)
        assert broken != whole
        results, _ = run("broken", modules | {name: broken}, 3 * seconds + 3)
        if results:
            sys.exit(f"FAULT: an error in {name} does not stop the compiler")


main()
