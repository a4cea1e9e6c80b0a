#!/usr/bin/env python3
"""Seals a built module: writes the size of its file, the place of the digest and the digest into the seal that the
module carries (src/module/integrity.h). It is the last step of a build. After any other change of the file it has to
run again, except after Authenticode signing of a DLL."""
import argparse
import hashlib
import hmac
import pathlib
import struct
import sys

MARKER = bytes([0x7A, 0x75, 0x6C, 0xB7, 0x1D, 0xE4, 0x52, 0x9A, 0x0F, 0xC8, 0x63, 0x3E, 0xA5, 0x73, 0x6C, 0x01])
KEY, DIGEST = 32, 32


def left_out_by_authenticode(module):
    """The checksum and the certificate table's entry of a PE32+ file, and the place of that entry."""
    optional = struct.unpack_from("<I", module, 0x3C)[0] + 24
    if module[optional - 24 : optional - 20] != b"PE\0\0" or module[optional : optional + 2] != b"\x0b\x02":
        sys.exit("seal_module: not a 64-bit PE file")
    entry = optional + 112 + 4 * 8
    if module[entry : entry + 8] != bytes(8):
        sys.exit("seal_module: the module has been signed; seal it first")
    return [(optional + 64, 4), (entry, 8)]


def write_checksum(module, at):
    """Writes the checksum of the optional header: the sum of the file's 16-bit words with carries, plus its size."""
    module[at : at + 4] = bytes(4)
    total = sum(struct.unpack(f"<{len(module) // 2}H", module))
    while total >> 16:
        total = (total & 0xFFFF) + (total >> 16)
    struct.pack_into("<I", module, at, total + len(module))


def seal(module):
    at = module.find(MARKER)
    if at < 0 or module.find(MARKER, at + 1) >= 0:
        sys.exit("seal_module: the file has no seal, or more than one")
    left_out = []
    if module[:2] == b"MZ":
        left_out = left_out_by_authenticode(module)
        module += bytes(-len(module) % 8)  # which signing would otherwise do
    key_at = at + len(MARKER)
    digest_at = key_at + KEY + 16
    struct.pack_into("<QQ", module, key_at + KEY, len(module), digest_at)
    digest = hmac.new(bytes(module[key_at : key_at + KEY]), digestmod=hashlib.sha256)
    begin = 0
    for place, size in sorted(left_out + [(digest_at, DIGEST)]):
        digest.update(module[begin:place])
        begin = place + size
    digest.update(module[begin:])
    module[digest_at : digest_at + DIGEST] = digest.digest()
    if left_out:
        write_checksum(module, left_out[0][0])
    return module


if __name__ == "__main__":
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("module", type=pathlib.Path)
    path = parser.parse_args().module
    path.write_bytes(seal(bytearray(path.read_bytes())))
