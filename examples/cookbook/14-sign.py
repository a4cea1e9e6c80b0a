# A signature of a file.
from flat import call, ctypes, zul

with open("report.txt", "wb") as file:
    file.write(b"a report")
# [show]
ROOM = 90000  # no key string is longer
private, public = (ctypes.create_string_buffer(ROOM + 1) for _ in range(2))
call("KEY_Make", private, ROOM, b"ed25519", 0)
call("KEY_Public", public, ROOM, private)

signature = ctypes.create_string_buffer(64)
call("SIG_SignFile", signature, 64, b"report.txt", private, None, 0)
call("SIG_VerifyFile", signature, 64, b"report.txt", public, None, 0)
# [end]
changed = bytes([signature.raw[0] ^ 1]) + signature.raw[1:]
assert zul.SIG_VerifyFile(changed, 64, b"report.txt", public, None, 0) == 22
