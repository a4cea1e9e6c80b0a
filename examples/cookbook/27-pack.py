# Key and certificate in one file.
from flat import call, ctypes, text_of

ROOM = 90000
key, again = (ctypes.create_string_buffer(ROOM + 1) for _ in range(2))
call("KEY_Make", key, ROOM, b"p-256", 0)
call("CERT_SelfSign", b"alice.pem", key, b"CN=Alice; profile=client", 0)
# [show]
call("P12_Pack", b"alice.p12", b"alice.pem", key, b"correct horse", b"Alice", 0)
print(text_of("P12_List", b"alice.p12", b"correct horse", 0).decode())
call("P12_Unpack", b"opened.pem", again, ROOM, b"alice.p12", b"correct horse", 0)
# [end]
call("KEY_Match", again, key)
