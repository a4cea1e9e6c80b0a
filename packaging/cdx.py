#!/usr/bin/env python3
"""Prints the bill of materials of the packages, as CycloneDX JSON: what zulcore is, the files of both systems and the
packages for other languages with their digests, and the parts of others that are linked into the files, by the versions of
the Debian packages they come from."""
import argparse
import datetime
import hashlib
import json
import os
import pathlib
import subprocess
import uuid
from urllib.parse import quote

GCC = "GPL-3.0-or-later WITH GCC-exception-3.1"
# Name, licence, Debian package (what it is found by: a package, or one of a pattern), and the systems where it is linked.
PARTS = (
    ("CLI11", "BSD-3-Clause", "libcli11-dev", ("linux", "windows")),
    ("libstdc++", GCC, "libstdc++-[0-9]*-dev", ("linux",)),
    ("libgcc", GCC, "libgcc-[0-9]*-dev", ("linux",)),
    ("libstdc++", GCC, "g++-mingw-w64-x86-64-posix", ("windows",)),
    ("libgcc", GCC, "gcc-mingw-w64-x86-64-posix-runtime", ("windows",)),
    ("mingw-w64", "ZPL-2.1", "mingw-w64-x86-64-dev", ("windows",)),
)


def installed(pattern):
    """Package and version, the newest of those that fit."""
    lines = subprocess.run(["dpkg-query", "-W", "-f", "${db:Status-Abbrev} ${Package} ${Version}\\n", pattern],
                           check=True, capture_output=True, text=True).stdout.splitlines()
    found = [line.split()[1:] for line in lines if line.startswith("ii ")]
    return max(found, key=lambda pair: [int(part) for part in pair[0].split("-") if part.isdigit()])


def licence(text):
    return [{"expression": text} if " " in text else {"license": {"id": text}}]


def part(name, text, pattern, systems):
    package, version = installed(pattern)
    return {"type": "library", "bom-ref": f"{package}@{version}", "name": name, "version": version,
            "licenses": licence(text), "purl": f"pkg:deb/debian/{quote(package)}@{quote(version)}",
            "properties": [{"name": "zulcore:system", "value": system} for system in systems]}


def files(system, tree):
    for path in sorted(tree.rglob("*")):
        if path.is_file() and not path.is_symlink():
            yield {"type": "file", "bom-ref": f"{system}/{path.relative_to(tree)}", "name": f"{system}/{path.relative_to(tree)}",
                   "hashes": [{"alg": "SHA-256", "content": hashlib.sha256(path.read_bytes()).hexdigest()}]}


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--version", required=True)
    parser.add_argument("--linux", type=pathlib.Path, required=True)
    parser.add_argument("--windows", type=pathlib.Path, required=True)
    parser.add_argument("--languages", type=pathlib.Path, required=True, help="a folder of packages for other languages")
    options = parser.parse_args()
    when = datetime.datetime.fromtimestamp(int(os.environ["SOURCE_DATE_EPOCH"]), datetime.timezone.utc)
    parts = [part(*row) for row in PARTS]
    own = f"zulcore@{options.version}"
    content = {
        "bomFormat": "CycloneDX", "specVersion": "1.4", "version": 1,
        "metadata": {"timestamp": when.strftime("%Y-%m-%dT%H:%M:%SZ"),
                     "component": {"type": "library", "bom-ref": own, "name": "zulcore", "version": options.version,
                                   "description": "Cryptographic and public-key toolkit", "licenses": licence("MIT"),
                                   "purl": f"pkg:generic/{own}"}},
        "components": [*parts, *files("linux", options.linux), *files("windows", options.windows),
                       *files("languages", options.languages)],
        "dependencies": [{"ref": own, "dependsOn": [row["bom-ref"] for row in parts]}],
    }
    content["serialNumber"] = uuid.uuid5(uuid.NAMESPACE_URL, json.dumps(content)).urn
    print(json.dumps(content, indent=2, ensure_ascii=False))


if __name__ == "__main__":
    main()
