#!/usr/bin/env python3
"""make_nupkg.py OUTDIR ASSEMBLY DESCRIPTIONS LIBZULCORE.SO ZULCORE.DLL: writes the package, an archive of the Open Packaging
Conventions with a nuspec."""
import hashlib
import os
import pathlib
import re
import sys
import time
import zipfile

ROOT = pathlib.Path(__file__).resolve().parents[2]

NUSPEC = """\
<?xml version="1.0" encoding="utf-8"?>
<package xmlns="http://schemas.microsoft.com/packaging/2013/05/nuspec.xsd">
  <metadata>
    <id>zulcore</id>
    <version>{version}</version>
    <authors>zulcore</authors>
    <license type="expression">MIT</license>
    <requireLicenseAcceptance>false</requireLicenseAcceptance>
    <readme>README.md</readme>
    <description>zulcore, a cryptographic toolkit: digests, encryption, keys, signatures, certificates, encrypted files.</description>
    <tags>cryptography x509 certificates age</tags>
    <dependencies>
      <group targetFramework=".NETFramework4.5" />
    </dependencies>
  </metadata>
</package>
"""
RELATIONS = """\
<?xml version="1.0" encoding="utf-8"?>
<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">
  <Relationship Type="http://schemas.microsoft.com/packaging/2010/07/manifest" Target="/zulcore.nuspec" Id="R0" />
  <Relationship Type="http://schemas.openxmlformats.org/package/2006/relationships/metadata/core-properties" \
Target="/{core}" Id="R1" />
</Relationships>
"""
TYPES = """\
<?xml version="1.0" encoding="utf-8"?>
<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">
  <Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml" />
  <Default Extension="psmdcp" ContentType="application/vnd.openxmlformats-package.core-properties+xml" />
{others}</Types>
"""
CORE = """\
<?xml version="1.0" encoding="utf-8"?>
<coreProperties xmlns="http://schemas.openxmlformats.org/package/2006/metadata/core-properties" \
xmlns:dc="http://purl.org/dc/elements/1.1/">
  <dc:creator>zulcore</dc:creator>
  <dc:identifier>zulcore</dc:identifier>
  <version>{version}</version>
</coreProperties>
"""


def main():
    folder = pathlib.Path(sys.argv[1])
    assembly, descriptions, linux, windows = (pathlib.Path(name) for name in sys.argv[2:])
    version = re.search(r"project\(zulcore VERSION ([\d.]+)", (ROOT / "CMakeLists.txt").read_text())[1]
    files = {
        "lib/net45/Zulcore.dll": assembly.read_bytes(),
        "lib/net45/Zulcore.xml": descriptions.read_bytes(),
        "runtimes/linux-x64/native/libzulcore.so": linux.read_bytes(),
        "runtimes/win-x64/native/zulcore.dll": windows.read_bytes(),
        # Copies the modules beside the assembly where programs for the .NET Framework are built.
        "build/net45/zulcore.targets": (pathlib.Path(__file__).parent / "zulcore.targets").read_bytes(),
        "README.md": (pathlib.Path(__file__).parent / "README.md").read_bytes(),
        "LICENSE": (ROOT / "LICENSE").read_bytes(),
    }
    core = f"package/services/metadata/core-properties/{hashlib.sha256(version.encode()).hexdigest()[:32]}.psmdcp"
    endings = sorted({pathlib.PurePath(name).suffix[1:] for name in files} - {""} | {"nuspec"})
    others = "".join(f'  <Default Extension="{ending}" ContentType="application/octet" />\n' for ending in endings)
    others += '  <Override PartName="/LICENSE" ContentType="application/octet" />\n'
    parts = {
        "_rels/.rels": RELATIONS.format(core=core).encode(),
        "[Content_Types].xml": TYPES.format(others=others).encode(),
        "zulcore.nuspec": NUSPEC.format(version=version).encode(),
        core: CORE.format(version=version).encode(),
        **dict(sorted(files.items())),
    }
    moment = time.gmtime(max(int(os.environ.get("SOURCE_DATE_EPOCH", 0)), 315532800))[:6]
    path = folder / f"zulcore.{version}.nupkg"
    with zipfile.ZipFile(path, "w") as package:
        for name, data in parts.items():
            entry = zipfile.ZipInfo(name, moment)
            entry.create_system = 3
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.external_attr = 0o100644 << 16
            package.writestr(entry, data)
    print(path)


main()
