#!/usr/bin/env python3
"""Times whole processes of the tool against the openssl command over one large file in the page cache:
interleaved, the best of several, with each side's peak memory.

usage: whole_process.py ZUL [MEBIBYTES [ROUNDS]]"""
import filecmp
import os
import pathlib
import subprocess
import sys
import tempfile
import time

KEY, IV = "00112233445566778899aabbccddeeff" * 2, "0f1e2d3c4b5a69788796a5b4c3d2e1f0"


def seconds_of(command, **options):
    """Wall-clock seconds of one process that must succeed."""
    start = time.perf_counter()
    subprocess.run(command, stdout=subprocess.DEVNULL, check=True, **options)
    return time.perf_counter() - start


def peak_of(command, **options):
    """Peak resident KiB, looked up while the process runs: its rusage would count this interpreter as well."""
    process = subprocess.Popen(command, stdout=subprocess.DEVNULL, **options)
    peak = 0
    while process.poll() is None:
        status = pathlib.Path(f"/proc/{process.pid}/status").read_text()
        if pathlib.Path(command[0]).name in status.split("\n", 1)[0]:
            peak = max(peak, *(int(line.split()[1]) for line in status.splitlines() if line.startswith("VmHWM")), 0)
        time.sleep(0.001)
    return peak


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    zul = sys.argv[1]
    size = int(sys.argv[2]) if len(sys.argv) > 2 else 256
    rounds = int(sys.argv[3]) if len(sys.argv) > 3 else 7
    # A file system in memory where there is one: writing back to a disk would drown the difference.
    base = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None
    with tempfile.TemporaryDirectory(dir=base) as folder:
        folder = pathlib.Path(folder)
        data, ours, theirs, plain = (str(folder / name) for name in ("data", "ours", "theirs", "plain"))
        with open(data, "wb") as file:
            for _ in range(size):
                file.write(os.urandom(1 << 20))
        cipher = "aes-256-cbc"
        rows = [(f"hash {name}", [zul, "hash", name, data], ["openssl", "dgst", f"-{name}", data])
                for name in ("sha256", "sha1", "sha512", "md5")]
        secrets = ["--key", KEY, "--iv", IV]
        rows.append((f"encrypt {cipher}", [zul, "encrypt", "-a", cipher, *secrets, data, ours],
                     ["openssl", "enc", f"-{cipher}", "-K", KEY, "-iv", IV, "-in", data, "-out", theirs]))
        rows.append((f"decrypt {cipher}", [zul, "decrypt", "-a", cipher, *secrets, theirs, plain],
                     ["openssl", "enc", "-d", f"-{cipher}", "-K", KEY, "-iv", IV, "-in", ours, "-out", plain]))

        print(f"{f'whole process, {size} MiB':28} {'ours s':>9} {'theirs s':>9} {'ratio':>6} "
              f"{'ours KiB':>9} {'theirs KiB':>10}")
        for name, our_command, their_command in rows:
            seconds, peaks = [[], []], [0, 0]
            for _ in range(rounds):
                for side, command in enumerate((our_command, their_command)):
                    if command[-1] != data:
                        pathlib.Path(command[-1]).unlink(missing_ok=True)
                    seconds[side].append(seconds_of(command))
            for side, command in enumerate((our_command, their_command)):
                peaks[side] = peak_of(command)
            best = [min(side) for side in seconds]
            print(f"{name:28} {best[0]:9.3f} {best[1]:9.3f} {best[1] / best[0]:6.2f} "
                  f"{peaks[0]:9} {peaks[1]:10}")
        for one, other in ((ours, theirs), (plain, data)):
            if not filecmp.cmp(one, other, shallow=False):
                sys.exit(f"{one} and {other} differ")


if __name__ == "__main__":
    main()
