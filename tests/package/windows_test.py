#!/usr/bin/env python3
"""The packages for Windows under Wine, in a prefix of their own: archive, installer, import libraries, signatures."""
import os
import subprocess
import sys
import zipfile

from package_harness import ABC, BUILDS, LINUX, ROOT, TESTS_PROGRAM, VERSION, WINDOWS, PackageTest, main, run

sys.path.insert(0, str(ROOT / "tests" / "tool"))
import tool_harness  # noqa: E402

PREFIX = ROOT / "build" / "wine-package"
WINE = ROOT / "scripts" / "wine.sh"
INSTALLED = PREFIX / "drive_c" / "Program Files" / "zulcore"
ENVIRONMENT = r"HKLM\SYSTEM\CurrentControlSet\Control\Session Manager\Environment"
UNINSTALL = r"HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall"


def path_of(path):
    return "Z:" + str(path).replace("/", "\\")


class WindowsPackages(PackageTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        os.environ.update(ZUL_WINEPREFIX=str(PREFIX), DISPLAY="")
        tool_harness.TOOL[:] = [str(WINE), str(BUILDS[1] / "zul.exe")]
        # A program that waits for its input keeps one session of Wine through all the tests.
        session = subprocess.Popen([*tool_harness.TOOL, "hash", "sha1", path_of(ROOT / "LICENSE"), "-"],
                                   stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        cls.addClassCleanup(session.communicate)
        session.stdout.readline()
        tool_harness.start_desktop()
        cls.tree = cls.unpack("unpacked", cls.packages)
        cls.installer = path_of(cls.packages / f"zulcore-{VERSION}-x64.msi")

    @classmethod
    def unpack(cls, name, packages):
        with zipfile.ZipFile(packages / f"{WINDOWS}.zip") as archive:
            archive.extractall(cls.folder / name)
        return cls.folder / name / WINDOWS

    def digest_by(self, *command):
        return run(WINE, *command, "abc.txt", cwd=self.folder).split()[0]

    def assert_works(self, folder, module):
        lines = run(WINE, folder / "zul.exe", "version").splitlines()
        self.assertIn(f"module    {module}", lines)
        self.assertEqual(self.digest_by(folder / "zul.exe", "hash", "sha256"), ABC)
        run(WINE, BUILDS[1] / "load_module.exe", module, "time")  # runs its tests once more

    @classmethod
    def remove(cls):
        """Removes what is installed, if anything is. The first msiexec of a session of Wine at times waits for ever,
        before it does anything; the next one does not."""
        for attempt in range(4):
            try:
                subprocess.run([WINE, "msiexec", "/x", cls.installer, "/qn"], capture_output=True, timeout=30,
                               stdin=subprocess.DEVNULL)
                return
            except subprocess.TimeoutExpired:
                pass
        raise AssertionError("msiexec does not come to an end")

    def install(self, *properties):
        self.remove()  # what a run that was stopped may have left
        # Wine leaves a separator behind at each removal.
        run(WINE, "reg", "add", ENVIRONMENT, "/v", "PATH", "/t", "REG_EXPAND_SZ", "/d", r"C:\windows\system32;C:\windows", "/f")
        self.addCleanup(self.remove)
        run(WINE, "msiexec", "/i", self.installer, "/qn", *properties)

    def test_archive(self):
        self.assert_works(self.tree / "bin", path_of(self.tree / "bin" / "zulcore.dll"))
        self.assert_tells_no_place(self.tree)

    def test_installer(self):
        self.install()
        self.assertEqual({path.relative_to(INSTALLED) for path in INSTALLED.rglob("*")},
                         {path.relative_to(self.tree) for path in self.tree.rglob("*")})
        self.assert_works(INSTALLED / "bin", r"C:\Program Files\zulcore\bin\zulcore.dll")
        self.assertIn("C:\\Program Files\\zulcore\\bin\\", run(WINE, "reg", "query", ENVIRONMENT, "/v", "PATH"))
        self.assertEqual(self.digest_by("cmd", "/c", "zul", "hash", "sha256"), ABC)
        self.assertRegex(run(WINE, "reg", "query", UNINSTALL, "/s"), rf"DisplayName +REG_SZ +zulcore\s+DisplayVersion +REG_SZ +{VERSION}")

        run(WINE, "msiexec", "/x", self.installer, "/qn")
        self.assertEqual([path for path in (INSTALLED, *INSTALLED.rglob("*")) if path.is_file()], [])
        self.assertNotIn("zulcore", run(WINE, "reg", "query", ENVIRONMENT, "/v", "PATH"))
        self.assertNotIn("zulcore", run(WINE, "reg", "query", UNINSTALL, "/s"))

    def test_installer_in_another_folder(self):
        place = PREFIX / "drive_c" / "some tools"
        self.install("ADDLOCAL=Main", r"INSTALLDIR=C:\some tools")
        self.assertEqual(sorted(path.name for path in place.iterdir()), ["LICENSE.txt", "NOTICES.txt", "bin", "completions"])
        self.assert_works(place / "bin", r"C:\some tools\bin\zulcore.dll")
        run(WINE, "msiexec", "/x", self.installer, "/qn")
        self.assertEqual(list(place.rglob("*")), [])

    def test_import_libraries(self):
        programs = self.folder / "programs"
        programs.mkdir()
        (programs / "zulcore.dll").write_bytes((self.tree / "bin" / "zulcore.dll").read_bytes())
        for library in ("libzulcore.dll.a", "zulcore.lib"):
            program = programs / f"{library}.exe"
            run("x86_64-w64-mingw32-gcc-posix", self.tree / "doc/examples/digest.c", f"-I{self.tree / 'include'}",
                self.tree / "lib" / library, "-o", program)
            self.assertEqual(self.digest_by(program), ABC)
        # For Microsoft's linker, whose ways LLVM's has: a program that starts without a C library.
        (programs / "tests.cpp").write_text(TESTS_PROGRAM.replace("int main", 'extern "C" int start'))
        run("clang++", "--target=x86_64-pc-windows-msvc", "-c", programs / "tests.cpp", f"-I{self.tree / 'include'}",
            "-o", programs / "tests.obj")
        run("lld-link", "/entry:start", "/subsystem:console", "/nodefaultlib", f"/out:{programs / 'tests.exe'}",
            programs / "tests.obj", self.tree / "lib" / "zulcore.lib")
        run(WINE, programs / "tests.exe")

        build = self.build_with_cmake(self.tree, "cmake", "-DCMAKE_SYSTEM_NAME=Windows", *(
            f"-DCMAKE_{language}_COMPILER=x86_64-w64-mingw32-{compiler}-posix" for language, compiler in (("C", "gcc"), ("CXX", "g++"))))
        (build / "zulcore.dll").write_bytes((self.tree / "bin" / "zulcore.dll").read_bytes())
        run(WINE, build / "tests.exe")

    def test_signed(self):
        key, certificate = self.folder / "key.pem", self.folder / "certificate.pem"
        (self.folder / "password").write_text("secret")
        run("openssl", "req", "-x509", "-newkey", "rsa:2048", "-keyout", key, "-passout", "pass:secret", "-out", certificate, "-days", "30",
            "-subj", "/CN=Signer", "-addext", "extendedKeyUsage=codeSigning")
        os.environ["ZUL_SIGN_PASSWORD_FILE"] = str(self.folder / "password")
        self.addCleanup(os.environ.pop, "ZUL_SIGN_PASSWORD_FILE")
        packages = self.package("signed", "--sign", key, certificate)
        tree = self.unpack("signed-tree", packages)
        for file in (tree / "bin/zulcore.dll", tree / "bin/zul.exe", packages / f"zulcore-{VERSION}-x64.msi"):
            run("osslsigncode", "verify", "-CAfile", certificate, "-in", file)
        self.assertNotEqual((tree / "bin/zulcore.dll").read_bytes(), (self.tree / "bin/zulcore.dll").read_bytes())
        self.assert_works(tree / "bin", path_of(tree / "bin" / "zulcore.dll"))
        self.assertEqual((packages / f"{LINUX}.tar.gz").read_bytes(), (self.packages / f"{LINUX}.tar.gz").read_bytes())


if __name__ == "__main__":
    main()
