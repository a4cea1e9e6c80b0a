#!/usr/bin/env python3
"""Shows that the time of a large CRL grows with its entries and the memory does not: the tool looks a certificate
up and dumps the list, beside the openssl command.

usage: large_crl.py ZUL [ENTRIES ...]"""
import pathlib
import subprocess
import sys
import tempfile

from whole_process import peak_of, seconds_of


def der(tag, *parts):
    """One element around the parts."""
    content = b"".join(parts)
    size = len(content)
    if size < 128:
        return bytes([tag, size]) + content
    octets = size.to_bytes((size.bit_length() + 7) // 8, "big")
    return bytes([tag, 0x80 | len(octets)]) + octets + content


def run(*command, **options):
    return subprocess.run([str(word) for word in command], check=True, capture_output=True, **options).stdout


def make_crl(folder, entries):
    """A CRL of version 2 with serial numbers of 16 bytes, signed by the authority in the folder."""
    algorithm = der(0x30, bytes.fromhex("06092a864886f70d01010b0500"))
    certificate = run("openssl", "x509", "-in", folder / "ca.pem", "-outform", "DER")
    # The subject of the self-signed certificate, which is its issuer too, stands in a request of the same name.
    name = der(0x30, der(0x31, der(0x30, bytes.fromhex("0603550403"), der(0x0C, b"Large CRL"))))
    assert certificate.count(name) == 2
    time = der(0x17, b"260101000000Z")
    revoked = b"".join(der(0x30, der(0x02, (2**126 + 7919 * i).to_bytes(16, "big")), time) for i in range(entries))
    to_be_signed = der(0x30, b"\x02\x01\x01", algorithm, name, time, der(0x17, b"490101000000Z"), der(0x30, revoked))
    signature = run("openssl", "dgst", "-sha256", "-sign", folder / "ca.key", input=to_be_signed)
    path = folder / f"{entries}.crl"
    path.write_bytes(der(0x30, to_be_signed, algorithm, der(0x03, b"\0", signature)))
    return path


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    zul = sys.argv[1]
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        ca, dump = folder / "ca.pem", folder / "dump.txt"
        run("openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-keyout", folder / "ca.key", "-out", ca,
            "-subj", "/CN=Large CRL", "-days", "9000", "-set_serial", "0x1234")
        print(f"{'':44} {'ours s':>8} {'theirs s':>8} {'ratio':>6} {'ours KiB':>9} {'theirs KiB':>10}")
        for entries in [int(word) for word in sys.argv[2:]] or [100_000, 1_000_000]:
            crl = make_crl(folder, entries)
            title = f"{entries} entries, {crl.stat().st_size / 2**20:.1f} MiB"
            rows = (("look up, verified", [zul, "crl", "check", ca, "--crl", crl, "--issuer", ca],
                     ["openssl", "verify", "-crl_check", "-CAfile", ca, "-CRLfile", crl, ca]),
                    ("dump", [zul, "crl", "show", crl, "-o", dump],
                     ["openssl", "crl", "-inform", "DER", "-in", crl, "-noout", "-text", "-out", dump]))
            for what, *sides in rows:
                seconds, peaks = [], []
                for command in sides:
                    command = [str(word) for word in command]
                    seconds.append(min(seconds_of(command) for _ in range(3)))
                    peaks.append(peak_of(command))
                print(f"{f'{title}: {what}':44} {seconds[0]:8.3f} {seconds[1]:8.3f} {seconds[1] / seconds[0]:6.2f} "
                      f"{peaks[0]:9} {peaks[1]:10}")


if __name__ == "__main__":
    main()
