# A certificate for a server on this machine.
from flat import call, ctypes, zul

# [show]
ROOM = 90000
key = ctypes.create_string_buffer(ROOM + 1)
call("KEY_Make", key, ROOM, b"p-256", 0)
call("CERT_SelfSign", b"test.pem", key, b"CN=localhost; profile=server; dns=localhost; ip=127.0.0.1, ::1", 0)
# [end]
call("CERT_CheckName", b"test.pem", b"localhost", 0)
assert zul.CERT_CheckName(b"test.pem", b"example.com", 0) == 21
