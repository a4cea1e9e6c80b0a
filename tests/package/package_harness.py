"""What the tests of the packages share: SUBJECT_test.py NATIVE WINDOWS packages these two builds by scripts/package.sh."""
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
VERSION = "3.6.0"
LINUX = f"zulcore-{VERSION}-linux-x86_64"
WINDOWS = f"zulcore-{VERSION}-windows-x86_64"
ABC = "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"  # SHA-256 of "abc", FIPS 180-4
BUILDS = []


def run(*command, **options):
    """A command's output; what it said, if it fails."""
    environment = {name: value for name, value in os.environ.items() if name != "LD_LIBRARY_PATH"}
    environment.update(options.pop("env", {}))
    done = subprocess.run([str(part) for part in command], env=environment, capture_output=True, text=True,
                          stdin=subprocess.DEVNULL, timeout=300, **options)
    if done.returncode != 0:
        raise AssertionError(f"{command} gave {done.returncode}: {done.stdout[-2000:]}{done.stderr[-2000:]}")
    return done.stdout


class PackageTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory(dir=".")
        cls.addClassCleanup(folder.cleanup)
        cls.folder = pathlib.Path(folder.name).resolve()
        (cls.folder / "abc.txt").write_text("abc")
        cls.packages = cls.package("packages")

    @classmethod
    def package(cls, name, *options, hasBindings=False):
        if not hasBindings:
            options += ("--no-bindings",)
        run(ROOT / "scripts" / "package.sh", "--from", *BUILDS, "--to", cls.folder / name, *options)
        return cls.folder / name

    def assert_tells_no_place(self, tree):
        """Nothing in the tree names the folder that it was built in."""
        for path in tree.rglob("*"):
            if path.is_file():
                self.assertNotIn(str(ROOT).encode(), path.read_bytes(), path)

    def build_with_cmake(self, prefix, name, *arguments):
        """Programs in C and C++ that find the package by CMake."""
        source = self.folder / f"{name}-source"
        source.mkdir()
        (source / "digest.c").write_bytes(next(prefix.rglob("digest.c")).read_bytes())
        (source / "tests.cpp").write_text(TESTS_PROGRAM)
        (source / "CMakeLists.txt").write_text(PROJECT)
        run("cmake", "-G", "Ninja", "-S", source, "-B", source / "build", f"-DCMAKE_PREFIX_PATH={prefix}", *arguments)
        run("cmake", "--build", source / "build")
        return source / "build"


TESTS_PROGRAM = '#include <zulcore.h>\nint main() { return ZUL_Version(nullptr, nullptr) == 360 ? ZUL_PowerUpTests(0) : 1; }\n'
PROJECT = """cmake_minimum_required(VERSION 3.16)
project(consumer LANGUAGES C CXX)
find_package(zulcore 4.0 CONFIG QUIET)
if(zulcore_FOUND)
    message(FATAL_ERROR "3.6 passes for 4.0")
endif()
find_package(zulcore 3.5 CONFIG REQUIRED)
find_package(zulcore 3.5 CONFIG REQUIRED) # as two parts of a project might
add_executable(digest digest.c)
add_executable(tests tests.cpp)
target_link_libraries(digest zulcore::zulcore)
target_link_libraries(tests zulcore::zulcore)
"""


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    BUILDS[:] = [pathlib.Path(name).resolve() for name in sys.argv[1:]]
    for module in (BUILDS[0] / "libzulcore.so", BUILDS[1] / "zulcore.dll"):
        if not module.exists():
            sys.exit(f"{module} has not been built: packages need the builds of both presets, native and windows")
    unittest.main(argv=sys.argv[:1])
