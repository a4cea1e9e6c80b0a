#!/usr/bin/env python3
"""msi.py TREE VERSION OUT: makes the Windows installer of an installed tree, by wixl and msibuild. All identifiers
follow from names and contents, and the date is that of SOURCE_DATE_EPOCH, so that the same tree gives the same file."""
import hashlib
import os
import pathlib
import subprocess
import sys
import tempfile
import time
import uuid
import xml.etree.ElementTree as xml

SPACE = uuid.UUID("6d0f7a9e-58c1-4f0b-9a51-0d3c2f6b7e84")  # of this product's identifiers, for ever
AUTHOR = "The zulcore authors"
SUBJECT = "zulcore: cryptographic library and command-line tool"
KEY = r"Software\zulcore"
# What a program needs to run; everything else is for development.
RUNTIME = ("LICENSE.txt", "NOTICES.txt", "bin", "completions")


def guid(name):
    return "{" + str(uuid.uuid5(SPACE, name)).upper() + "}"


def identifier(kind, path):
    return kind + hashlib.sha256(str(path).encode()).hexdigest()[:16]


def component(parent, feature, path):
    """A component of its own, as an installer counts references to each."""
    name = identifier("c", path)
    xml.SubElement(feature, "ComponentRef", Id=name)
    return xml.SubElement(parent, "Component", Id=name, Guid=guid(f"component/{path}"), Win64="yes")


def add_folder(parent, tree, folder, features):
    for path in sorted(folder.iterdir()):
        inside = path.relative_to(tree)
        feature = features[inside.parts[0] in RUNTIME]
        if path.is_dir():
            add_folder(xml.SubElement(parent, "Directory", Id=identifier("d", inside), Name=path.name), tree, path, features)
        else:
            xml.SubElement(component(parent, feature, inside), "File", Id=identifier("f", inside), Name=path.name,
                           Source=str(inside), KeyPath="yes")
    # Which is removed with what it holds.
    inside = folder.relative_to(tree)
    feature = features[not inside.parts or inside.parts[0] in RUNTIME]
    xml.SubElement(component(parent, feature, inside / "folder"), "CreateFolder")


def description(tree, version):
    wix = xml.Element("Wix", xmlns="http://schemas.microsoft.com/wix/2006/wi")
    product = xml.SubElement(wix, "Product", Id=guid(f"product/{version}"), Name="zulcore", Version=version,
                             Manufacturer=AUTHOR, Language="1033", UpgradeCode=guid("upgrade"))
    xml.SubElement(product, "Package", InstallerVersion="200", Compressed="yes", InstallScope="perMachine",
                   Description=SUBJECT)
    xml.SubElement(product, "MajorUpgrade", DowngradeErrorMessage="A later version of zulcore is installed.")
    condition = xml.SubElement(product, "Condition", Message="zulcore needs 64-bit Windows.")
    condition.text = "VersionNT64"
    xml.SubElement(product, "Media", Id="1", Cabinet="zulcore.cab", EmbedCab="yes")
    main = xml.SubElement(product, "Feature", Id="Main", Title="Library and tool", Level="1")
    development = xml.SubElement(product, "Feature", Id="Development", Title="Header, import libraries, documents",
                                 Level="1")
    target = xml.SubElement(product, "Directory", Id="TARGETDIR", Name="SourceDir")
    programs = xml.SubElement(target, "Directory", Id="ProgramFiles64Folder")
    own = xml.SubElement(programs, "Directory", Id="INSTALLDIR", Name="zulcore")
    # The next installer, and on some systems the removal, learns from here where this one went.
    xml.SubElement(component(own, main, "place"), "RegistryValue", Root="HKLM", Key=KEY, Name="InstallDir", Type="string",
                   Value="[INSTALLDIR]", KeyPath="yes")
    place = xml.SubElement(product, "Property", Id="INSTALLDIR")
    xml.SubElement(place, "RegistrySearch", Id="Place", Root="HKLM", Key=KEY, Name="InstallDir", Type="raw", Win64="yes")
    add_folder(own, tree, tree, (development, main))
    return wix


def write_table(folder, name, columns, types, keys, *rows):
    path = folder / f"{name}.idt"
    lines = [columns, types, [name, *keys], *rows]
    path.write_text("".join("\t".join(line) + "\r\n" for line in lines), newline="")
    return path


def main():
    tree, version, out = pathlib.Path(sys.argv[1]), sys.argv[2], pathlib.Path(sys.argv[3])
    when = time.strftime("%Y/%m/%d %H:%M:%S", time.gmtime(int(os.environ["SOURCE_DATE_EPOCH"])))
    with tempfile.TemporaryDirectory() as work:
        work = pathlib.Path(work)
        xml.ElementTree(description(tree, version)).write(work / "zulcore.wxs", "utf-8", xml_declaration=True)
        # wixl takes names of files from the folder in which it runs.
        subprocess.run(["wixl", "--arch", "x64", "--output", out.absolute(), work / "zulcore.wxs"], cwd=tree, check=True)
        # The cabinet and the description tell everything that is in the file.
        content = hashlib.sha256((work / "zulcore.wxs").read_bytes())
        for path in sorted(path for path in tree.rglob("*") if path.is_file()):
            content.update(hashlib.sha256(path.read_bytes()).digest())
        # What wixl cannot say: the search path, and a summary without the present time.
        tables = [
            write_table(work, "_SummaryInformation", ["PropertyId", "Value"], ["i2", "l255"], ["PropertyId"],
                        ["1", "1252"], ["2", "Installation Database"], ["3", SUBJECT], ["4", AUTHOR],
                        ["5", "Installer"], ["6", "MIT licence, see LICENSE.txt"], ["7", "x64;1033"],
                        ["9", guid("package/" + content.hexdigest())], ["12", when], ["13", when], ["14", "200"],
                        ["15", "2"], ["18", "msitools"], ["19", "2"]),
            write_table(work, "Environment", ["Environment", "Name", "Value", "Component_"],
                        ["s72", "l255", "L255", "s72"], ["Environment"],
                        ["SearchPath", "=-*PATH", f"[~];[{identifier('d', 'bin')}]", identifier("c", "bin/zul.exe")])]
        # Windows passes to the part with administrator's rights only the properties that are listed.
        changes = ["UPDATE Property SET Value = 'INSTALLDIR;WIX_DOWNGRADE_DETECTED;WIX_UPGRADE_DETECTED' "
                   "WHERE Property = 'SecureCustomProperties'"]
        changes += [f"INSERT INTO InstallExecuteSequence (Action, Sequence) VALUES ('{action}', {number})"
                    for action, number in (("RemoveEnvironmentStrings", 3300), ("WriteEnvironmentStrings", 5200))]
        subprocess.run(["msibuild", out, *(part for table in tables for part in ("-i", table)),
                        *(part for change in changes for part in ("-q", change))], check=True)


if __name__ == "__main__":
    main()
