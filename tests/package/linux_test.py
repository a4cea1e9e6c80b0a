#!/usr/bin/env python3
"""The packages for Linux, and what is common to all: sums, the bill of materials, the same bytes every time."""
import hashlib
import json
import os
import re
import subprocess
import tarfile
import zipfile

from package_harness import ABC, BUILDS, LINUX, TESTS_PROGRAM, VERSION, WINDOWS, PackageTest, main, run

AS_ROOT = [] if os.geteuid() == 0 else ["fakeroot"]
MACHINE = "lib/x86_64-linux-gnu"


class LinuxPackages(PackageTest):
    def dpkg(self, root, *arguments):
        return run(*AS_ROOT, "dpkg", f"--root={root}", "--force-not-root", "--force-bad-path", "--force-depends",
                   f"--log={root}/var/log/dpkg.log", *arguments)

    def install(self, name, *packages):
        """The root of a system that has nothing else."""
        root = self.folder / name
        for folder in ("var/lib/dpkg/updates", "var/lib/dpkg/info", "var/log"):
            (root / folder).mkdir(parents=True)
        (root / "var/lib/dpkg/status").touch()
        self.dpkg(root, "--install", *(self.packages / f"{package}_{VERSION}_amd64.deb" for package in packages))
        return root

    def unpack(self, name):
        folder = self.folder / name
        folder.mkdir()
        with tarfile.open(self.packages / f"{LINUX}.tar.gz") as archive:
            archive.extractall(folder)
        return folder / LINUX

    def assert_works(self, tool, module):
        lines = run(tool, "version").splitlines()
        self.assertIn(f"module    {module}", lines)
        self.assertEqual(run(tool, "hash", "sha256", self.folder / "abc.txt").split()[0], ABC)
        run(BUILDS[0] / "load_module", module, "time")  # runs its tests once more
        self.assertEqual(module.read_bytes(), (BUILDS[0] / "libzulcore.so").read_bytes())

    def test_same_bytes_every_time(self):
        again = self.package("again")
        self.assertEqual(sorted(os.listdir(again)), sorted(os.listdir(self.packages)))
        for path in again.iterdir():
            self.assertEqual(path.read_bytes(), (self.packages / path.name).read_bytes(), path.name)

    def test_sums_are_of_every_package(self):
        listed = {line.split("  ")[1] for line in (self.packages / "SHA256SUMS").read_text().splitlines()}
        self.assertEqual(listed | {"SHA256SUMS"}, set(os.listdir(self.packages)))
        run("sha256sum", "--check", "--strict", "SHA256SUMS", cwd=self.packages)

    def test_bill_of_materials(self):
        bill = json.loads((self.packages / f"zulcore-{VERSION}.cdx.json").read_text())
        components = {component["bom-ref"]: component for component in bill["components"]}
        self.assertEqual(len(components), len(bill["components"]))
        self.assertLessEqual({"CLI11", "libstdc++", "libgcc", "mingw-w64"}, {part["name"] for part in components.values()})
        self.assertLessEqual(set(bill["dependencies"][0]["dependsOn"]), set(components))
        contents = {}
        with zipfile.ZipFile(self.packages / f"{WINDOWS}.zip") as archive:
            contents.update({"windows/" + name.partition("/")[2]: archive.read(name) for name in archive.namelist()})
        with tarfile.open(self.packages / f"{LINUX}.tar.gz") as archive:
            contents.update({"linux/" + member.name.partition("/")[2]: archive.extractfile(member).read()
                             for member in archive if member.isfile()})
        self.assertEqual([name for name in contents if "/tests/" in name], [])
        self.assertEqual({name: hashlib.sha256(content).hexdigest() for name, content in contents.items()},
                         {name: part["hashes"][0]["content"] for name, part in components.items() if part["type"] == "file"})

    def test_packages_for_other_languages(self):
        folder = self.package("languages", hasBindings=True)
        bill = json.loads((folder / f"zulcore-{VERSION}.cdx.json").read_text())
        listed = {part["name"].partition("/")[2]: part["hashes"][0]["content"] for part in bill["components"]
                  if part["name"].startswith("languages/")}
        self.assertEqual(set(listed), set(os.listdir(folder)) - set(os.listdir(self.packages)))
        for name, digest in listed.items():
            self.assertEqual(hashlib.sha256((folder / name).read_bytes()).hexdigest(), digest, name)
        for language in ("go", "java", "pascal", "vba"):
            with tarfile.open(folder / f"zulcore-{language}-{VERSION}.tar.gz") as archive:
                names = [member.name.split("/") for member in archive]
            self.assertEqual({name[0] for name in names}, {f"zulcore-{language}-{VERSION}"})
            self.assertEqual([name for name in names if "tests" in name], [])

    def test_lintian_finds_no_errors(self):
        done = subprocess.run(["lintian", "--fail-on", "error", *self.packages.glob("*.deb")], capture_output=True, text=True)
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)

    def test_debian_packages(self):
        root = self.install("debian", "zulcore", "zulcore-dev")
        self.assert_works(root / "usr/bin/zul", root / "usr" / MACHINE / f"libzulcore.so.{VERSION}")
        self.assert_tells_no_place(root / "usr")
        self.assertEqual(self.dpkg(root, "--verify"), "")

        build = self.build_with_cmake(root / "usr", "found-by-cmake")
        self.assertEqual(run(build / "digest", self.folder / "abc.txt").split()[0], ABC)
        run(build / "tests")

        flags = run("pkg-config", "--cflags", "--libs", "zulcore",
                    env={"PKG_CONFIG_LIBDIR": str(root / "usr" / MACHINE / "pkgconfig")}).split()
        (self.folder / "tests.cpp").write_text(TESTS_PROGRAM)
        for compiler, source in (("gcc", next(root.rglob("digest.c"))), ("g++", self.folder / "tests.cpp")):
            program = self.folder / f"by-{compiler}"
            run(compiler, source, "-o", program, *flags)
            run(program, self.folder / "abc.txt", env={"LD_LIBRARY_PATH": str(root / "usr" / MACHINE)})

        self.dpkg(root, "--purge", "zulcore-dev", "zulcore")
        self.assertEqual([path for path in root.rglob("*") if "zul" in path.name], [])

    def test_library_without_development(self):
        root = self.install("runtime", "zulcore")
        self.assert_works(root / "usr/bin/zul", root / "usr" / MACHINE / f"libzulcore.so.{VERSION}")

    def test_glibc_that_the_documents_promise(self):
        tree = self.unpack("promised")
        for file, promised in (("bin/zul", (2, 35)), (f"lib/libzulcore.so.{VERSION}", (2, 34))):
            found = re.findall(r"GLIBC_(\d+)\.(\d+)", run("objdump", "-T", tree / file))
            self.assertEqual(max((int(major), int(minor)) for major, minor in found), promised, file)

    def test_archive_works_where_it_is_unpacked(self):
        tree = self.unpack("a folder")
        self.assert_works(tree / "bin/zul", tree / f"lib/libzulcore.so.{VERSION}")
        self.assert_tells_no_place(tree)
        build = self.build_with_cmake(tree, "archive")
        self.assertEqual(run(build / "digest", self.folder / "abc.txt").split()[0], ABC)
        with tarfile.open(self.packages / f"{LINUX}.tar.gz") as archive:
            for member in archive:
                self.assertEqual((member.uid, member.gid, member.mode & 0o7022 if not member.issym() else 0), (0, 0, 0), member.name)


if __name__ == "__main__":
    main()
