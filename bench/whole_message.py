#!/usr/bin/env python3
"""Times whole processes of the tool against the openssl command over one message of nearly the greatest size:
interleaved, the best of several, with each side's peak memory as a multiple of the content too.

usage: whole_message.py ZUL [MEBIBYTES [ROUNDS]]"""
import filecmp
import os
import pathlib
import subprocess
import sys
import tempfile

from whole_process import peak_of, seconds_of


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    zul = sys.argv[1]
    mebibytes = int(sys.argv[2]) if len(sys.argv) > 2 else 16
    rounds = int(sys.argv[3]) if len(sys.argv) > 3 else 7
    base = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None
    with tempfile.TemporaryDirectory(dir=base) as folder:
        def path(name):
            return str(pathlib.Path(folder) / name)

        data, key, cert = path("data"), path("key.pem"), path("cert.pem")
        pathlib.Path(data).write_bytes(os.urandom((mebibytes << 20) - 1))  # the padding fills the last block
        subprocess.run(["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-keyout", key, "-out", cert,
                        "-subj", "/CN=Message", "-days", "9"], check=True, capture_output=True)

        def ours(command, source, out, *more):
            return [zul, "cms", command, path(source), *more, "-o", path(out)]

        def theirs(command, source, out, *more):
            return ["openssl", "cms", f"-{command}", "-binary", *more, "-in", path(source), "-out", path(out)]

        # Each side reads what the other made.
        der, keyed = ("-inform", "DER"), ("-k", key)
        rows = (
            ("sign SHA-256, RSA-2048", ours("sign", "data", "our.sig", *keyed, "--cert", cert),
             theirs("sign", "data", "their.sig", "-nodetach", "-noattr", "-outform", "DER", "-signer", cert, "-inkey", key)),
            ("verify", ours("verify", "their.sig", "our.content", "--cert", cert),
             theirs("verify", "our.sig", "their.content", *der, "-CAfile", cert, "-purpose", "any")),
            ("encrypt AES-256", ours("encrypt", "data", "our.env", "--to", cert),
             theirs("encrypt", "data", "their.env", "-aes-256-cbc", "-outform", "DER", "-recip", cert)),
            ("decrypt", ours("decrypt", "their.env", "our.plain", *keyed, "--cert", cert),
             theirs("decrypt", "our.env", "their.plain", *der, "-recip", cert, "-inkey", key)),
        )
        quiet = {"stderr": subprocess.DEVNULL}  # openssl says there that all is well
        print(f"{f'message of {mebibytes} MiB':28} {'ours s':>9} {'theirs s':>9} {'ratio':>6} "
              f"{'ours KiB':>9} {'theirs KiB':>10} {'ours/content':>12}")
        for name, *sides in rows:
            seconds = [[], []]
            for _ in range(rounds):
                for side, command in enumerate(sides):
                    seconds[side].append(seconds_of(command, **quiet))
            peaks = [peak_of(command, **quiet) for command in sides]
            best = [min(side) for side in seconds]
            print(f"{name:28} {best[0]:9.3f} {best[1]:9.3f} {best[1] / best[0]:6.2f} "
                  f"{peaks[0]:9} {peaks[1]:10} {peaks[0] / (mebibytes << 10):12.1f}")
        for name in ("our.content", "their.content", "our.plain", "their.plain"):
            if not filecmp.cmp(path(name), data, shallow=False):
                sys.exit(f"{name} is not the content")


if __name__ == "__main__":
    main()
