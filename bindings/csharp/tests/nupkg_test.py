#!/usr/bin/env python3
"""nupkg_test.py PACKAGE FOLDER: whether every part of a package is there and declared; unpacks it."""
import sys
import xml.etree.ElementTree as ElementTree
import zipfile

TYPES = "{http://schemas.openxmlformats.org/package/2006/content-types}"
RELATION = "{http://schemas.openxmlformats.org/package/2006/relationships}Relationship"

with zipfile.ZipFile(sys.argv[1]) as package:
    names = package.namelist()
    assert package.testzip() is None and len(names) == len(set(names))
    types = ElementTree.fromstring(package.read("[Content_Types].xml"))
    endings = {item.get("Extension") for item in types.iter(TYPES + "Default")}
    overrides = {item.get("PartName") for item in types.iter(TYPES + "Override")}
    for name in names:
        assert name == "[Content_Types].xml" or "/" + name in overrides or name.rpartition(".")[2] in endings, name
    targets = [item.get("Target") for item in ElementTree.fromstring(package.read("_rels/.rels")).iter(RELATION)]
    assert len(targets) == 2 and all(target[1:] in names for target in targets), targets

    space = "{http://schemas.microsoft.com/packaging/2013/05/nuspec.xsd}"
    metadata = ElementTree.fromstring(package.read("zulcore.nuspec")).find(space + "metadata")
    for name in ("id", "version", "authors", "description"):
        assert metadata.find(space + name).text, name
    assert metadata.find(space + "readme").text in names
    assert sys.argv[1].endswith("/zulcore." + metadata.find(space + "version").text + ".nupkg")
    ElementTree.fromstring(package.read("build/net45/zulcore.targets"))

    # Every public member has a description, or the compiler would have refused; they belong to this assembly.
    descriptions = ElementTree.fromstring(package.read("lib/net45/Zulcore.xml"))
    assert descriptions.find("assembly/name").text == "Zulcore"
    assert {"M:Zulcore.Key.Generate(System.String)", "T:Zulcore.Raw"} <= {item.get("name") for item in descriptions.iter("member")}
    assert package.read("lib/net45/Zulcore.dll")[:2] == b"MZ"
    assert {"runtimes/linux-x64/native/libzulcore.so", "runtimes/win-x64/native/zulcore.dll"} <= set(names)
    package.extractall(sys.argv[2])
