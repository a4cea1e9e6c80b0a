#!/usr/bin/env python3
"""Times whole processes that seal and open one large file against age, over the page cache: interleaved, the best of
several, with each side's peak memory. Each side opens what the other has sealed.

usage: whole_seal.py SEAL_PROCESS [MEBIBYTES [ROUNDS]]"""
import filecmp
import os
import pathlib
import statistics
import subprocess
import sys
import tempfile

from whole_process import peak_of, seconds_of


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    program = sys.argv[1]
    size = int(sys.argv[2]) if len(sys.argv) > 2 else 1024
    rounds = int(sys.argv[3]) if len(sys.argv) > 3 else 5
    # A file system in memory where there is one: writing back to a disk would drown the difference.
    base = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None
    with tempfile.TemporaryDirectory(dir=base) as folder:
        data, keys, ours, theirs, plain = (os.path.join(folder, name)
                                           for name in ("data", "keys", "ours", "theirs", "plain"))
        subprocess.run(["age-keygen", "-o", keys], stderr=subprocess.DEVNULL, check=True)
        recipient = subprocess.run(["age-keygen", "-y", keys], capture_output=True, text=True, check=True).stdout.strip()
        with open(data, "wb") as file:
            for _ in range(size):
                file.write(os.urandom(1 << 20))
        rows = [("seal", ours, [program, "seal", ours, data, recipient],
                 theirs, ["age", "-r", recipient, "-o", theirs, data]),
                ("open", plain, [program, "open", plain, theirs, keys],
                 plain, ["age", "-d", "-i", keys, "-o", plain, ours])]
        print(f"{f'whole process, {size} MiB':28} {'ours s':>9} {'theirs s':>9} {'ratio':>6} {'median':>6} "
              f"{'ours KiB':>9} {'theirs KiB':>10}")
        for name, *sides in rows:
            seconds, peaks = [[], []], [0, 0]
            for _ in range(rounds):
                for side in (0, 1):
                    output, command = sides[2 * side], sides[2 * side + 1]
                    pathlib.Path(output).unlink(missing_ok=True)
                    seconds[side].append(seconds_of(command))
                    if name == "open" and not filecmp.cmp(plain, data, shallow=False):
                        sys.exit(f"{command[0]} opened another content")
            for side in (0, 1):
                pathlib.Path(sides[2 * side]).unlink(missing_ok=True)
                peaks[side] = peak_of(sides[2 * side + 1])
            best = [min(side) for side in seconds]
            median = statistics.median(theirs / ours for ours, theirs in zip(*seconds))
            print(f"{name:28} {best[0]:9.3f} {best[1]:9.3f} {best[1] / best[0]:6.2f} {median:6.2f} "
                  f"{peaks[0]:9} {peaks[1]:10}")


if __name__ == "__main__":
    main()
