#!/usr/bin/env python3
"""run_cookbook.py FOLDER PROGRAMS [TOOL MODULE] [-- LAUNCHER]: runs every example of a folder in an empty folder of its own,
those in C as built in PROGRAMS under the folder's name, perhaps through a launcher; the scripts only if there are TOOL and
MODULE. Each has to exit 0: they have their checks in them."""
import concurrent.futures
import os
import pathlib
import subprocess
import sys
import tempfile

end = sys.argv.index("--") if "--" in sys.argv else len(sys.argv)
folder, programs, *built = (pathlib.Path(name).resolve() for name in sys.argv[1:end])
launcher = sys.argv[end + 1:]


def command_of(path):
    if path.suffix == ".c":
        names = [programs / f"{folder.name}_{path.stem}{suffix}" for suffix in ("", ".exe")]
        return [*launcher, str(next(name for name in names if name.exists()))]
    if path.suffix == ".py":
        return [sys.executable, str(path), str(built[1])]
    return ["bash", str(path)]


def run(path):
    with tempfile.TemporaryDirectory() as scratch:
        environment = {**os.environ, "PYTHONDONTWRITEBYTECODE": "1"}
        if built:
            environment["PATH"] = f"{built[0].parent}{os.pathsep}{environment['PATH']}"
        done = subprocess.run(command_of(path), cwd=scratch, env=environment, stdin=subprocess.DEVNULL, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=120, errors="replace")
    return path.name, done.returncode, done.stdout


paths = sorted(path for path in folder.iterdir() if path.suffix == ".c" or built and path.name[0].isdigit())
with concurrent.futures.ThreadPoolExecutor(1 if launcher else os.cpu_count()) as pool:
    results = list(pool.map(run, paths))
for name, status, output in results:
    if status:
        print(f"{name}: exit status {status}\n{output}")
print(f"{len(results)} files, {sum(status != 0 for _, status, _ in results)} failed")
sys.exit(not results or any(status for _, status, _ in results))
