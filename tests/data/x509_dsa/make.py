#!/usr/bin/env python3
"""Makes dsa.txt: DSA signatures (FIPS 186-4, 4.6) with parameters of openssl, checked by it, and with parameters
of sizes that it does not make. Run by hand; the keys are thrown away."""
import hashlib
import pathlib
import re
import secrets
import subprocess
import tempfile

HERE = pathlib.Path(__file__).resolve().parent


def is_prime(n):
    return all(pow(a, n - 1, n) == 1 for a in (2, 3, 5, 7, 11, 13))


def own_parameters(p_bits, q_bits):
    q = 4
    while not is_prime(q):
        q = secrets.randbits(q_bits) | 1 | 1 << q_bits - 1
    p = 4
    while p.bit_length() != p_bits or not is_prime(p):
        p = 2 * q * (secrets.randbits(p_bits - q_bits - 1) | 1 << p_bits - q_bits - 1) + 1
    return p, q, pow(2, (p - 1) // q, p)


def openssl_parameters(p_bits, q_bits):
    text = subprocess.run(["openssl", "genpkey", "-genparam", "-algorithm", "DSA", "-text", "-pkeyopt",
                           f"dsa_paramgen_bits:{p_bits}", "-pkeyopt", f"dsa_paramgen_q_bits:{q_bits}"],
                          check=True, capture_output=True, text=True).stdout
    return tuple(int(re.sub(r"[\s:]", "", found), 16)
                 for found in re.findall(r"(?:P|Q|G): *\n((?: +[0-9a-f:]+\n)+)", text))


def der(tag, content):
    size = len(content)
    if size < 128:
        return bytes([tag, size]) + content
    octets = size.to_bytes((size.bit_length() + 7) // 8, "big")
    return bytes([tag, 0x80 | len(octets)]) + octets + content


def integer(n):
    return der(2, n.to_bytes(n.bit_length() // 8 + 1, "big"))


def openssl_agrees(p, q, g, y, digest, r, s):
    key = der(0x30, der(0x30, bytes.fromhex("06072a8648ce380401") + der(0x30, integer(p) + integer(q) + integer(g)))
              + der(3, b"\0" + integer(y)))
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        (folder / "key").write_bytes(key)
        (folder / "digest").write_bytes(digest)
        (folder / "signature").write_bytes(der(0x30, integer(r) + integer(s)))
        return subprocess.run("openssl pkeyutl -verify -pubin -keyform DER -inkey key -in digest -sigfile signature",
                              shell=True, cwd=folder, capture_output=True).returncode == 0


def main():
    records = ["# DSA signatures; made by make.py.\n"]
    cases = ((openssl_parameters, 1024, 160, "sha1"), (openssl_parameters, 1024, 160, "sha256"),
             (openssl_parameters, 2048, 224, "sha1"), (openssl_parameters, 2048, 256, "sha1"),
             (own_parameters, 512, 157, "sha1"), (own_parameters, 521, 131, "sha256"))
    for parameters, p_bits, q_bits, name in cases:
        p, q, g = parameters(p_bits, q_bits)
        x = secrets.randbelow(q - 1) + 1
        y = pow(g, x, p)
        digest = hashlib.new(name, name.encode()).digest()
        z = int.from_bytes(digest, "big") >> max(0, 8 * len(digest) - q_bits)
        k = secrets.randbelow(q - 1) + 1
        r = pow(g, k, p) % q
        s = pow(k, -1, q) * (z + x * r) % q
        assert parameters == own_parameters or openssl_agrees(p, q, g, y, digest, r, s)
        numbers = {"p": p, "q": q, "g": g, "y": y, "r": r, "s": s}
        values = {key: f"{n:0{(n.bit_length() + 7) // 8 * 2}x}" for key, n in numbers.items()}
        records.append("\n".join([f"{key} = {value}" for key, value in values.items()] +
                                 [f"digest = {digest.hex()}"]) + "\n")
    (HERE / "dsa.txt").write_text("\n".join(records))


main()
