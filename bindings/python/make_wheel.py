#!/usr/bin/env python3
"""make_wheel.py OUTDIR MODULE...: writes a wheel for each module, libzulcore.so (Linux) or zulcore.dll (Windows), that
carries it. The same input gives the same bytes: times are SOURCE_DATE_EPOCH, or 1980."""
import base64
import hashlib
import os
import pathlib
import re
import subprocess
import sys
import time
import tomllib
import zipfile

HERE = pathlib.Path(__file__).resolve().parent
PACKAGE = HERE / "src" / "zulcore"
# What PEP 600 lets a module for any distribution link to, as far as this one could.
SYSTEM_LIBRARIES = {"libc.so.6", "libm.so.6", "libdl.so.2", "libpthread.so.0", "librt.so.1", "ld-linux-x86-64.so.2"}


def linux_tag(module):
    """manylinux with the oldest C library that has all symbols of the module, or a tag for this system alone."""
    def objdump(option):
        return subprocess.run(["objdump", option, module], check=True, capture_output=True, text=True).stdout

    needed = set(re.findall(r"NEEDED +(\S+)", objdump("-p")))
    minors = [int(minor) for minor in re.findall(r"\(GLIBC_2\.(\d+)", objdump("-T"))]
    if not minors or needed - SYSTEM_LIBRARIES:
        return "linux_x86_64"
    return f"manylinux_2_{max(minors)}_x86_64"


def metadata(project, version):
    lines = ["Metadata-Version: 2.1", f"Name: {project['name']}", f"Version: {version}",
             f"Summary: {project['description']}", f"License: {project['license']['text']}",
             *(f"Classifier: {item}" for item in project["classifiers"]),
             f"Requires-Python: {project['requires-python']}", "Description-Content-Type: text/markdown"]
    return "\n".join(lines) + "\n\n" + (HERE / project["readme"]).read_text()


def write_wheel(folder, project, version, module):
    tag = "py3-none-" + ("win_amd64" if module.suffix == ".dll" else linux_tag(module))
    info = f"zulcore-{version}.dist-info"
    files = {f"zulcore/{path.name}": path.read_bytes() for path in PACKAGE.iterdir() if path.name == "py.typed" or
             path.suffix == ".py"}
    files["zulcore/" + ("zulcore.dll" if module.suffix == ".dll" else "libzulcore.so")] = module.read_bytes()
    files = dict(sorted(files.items()))
    files[f"{info}/LICENSE"] = (HERE.parents[1] / "LICENSE").read_bytes()
    files[f"{info}/METADATA"] = metadata(project, version).encode()
    files[f"{info}/WHEEL"] = f"Wheel-Version: 1.0\nGenerator: zulcore\nRoot-Is-Purelib: false\nTag: {tag}\n".encode()
    record = [f"{name},sha256={base64.urlsafe_b64encode(hashlib.sha256(data).digest()).rstrip(b'=').decode()},{len(data)}"
              for name, data in files.items()]
    files[f"{info}/RECORD"] = ("\n".join(record) + f"\n{info}/RECORD,,\n").encode()

    moment = time.gmtime(max(int(os.environ.get("SOURCE_DATE_EPOCH", 0)), 315532800))[:6]
    path = folder / f"zulcore-{version}-{tag}.whl"
    with zipfile.ZipFile(path, "w") as wheel:
        for name, data in files.items():
            entry = zipfile.ZipInfo(name, moment)
            entry.create_system = 3
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.external_attr = (0o100755 if name.endswith(".so") else 0o100644) << 16
            wheel.writestr(entry, data)
    print(path)


def main():
    folder = pathlib.Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    project = tomllib.loads((HERE / "pyproject.toml").read_text())["project"]
    version = re.search(r'^__version__ = "(.*)"$', (PACKAGE / "__init__.py").read_text(), re.M)[1]
    for module in sys.argv[2:]:
        write_wheel(folder, project, version, pathlib.Path(module))


if __name__ == "__main__":
    main()
