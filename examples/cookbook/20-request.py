# A request, and the certificate for it.
from flat import call, ctypes

ROOM = 90000
root, alice = (ctypes.create_string_buffer(ROOM + 1) for _ in range(2))
for key in (root, alice):
    call("KEY_Make", key, ROOM, b"p-256", 0)
# [show]
call("CERT_SelfSign", b"root.pem", root, b"C=AU; O=Example; CN=Example Root; profile=ca", 0)

call("CERT_Request", b"alice.req", alice, b"C=AU; CN=Alice; email=alice@example.com", 0)
# The subject and the key come from the request; of its extensions only those named here.
call("CERT_Issue", b"alice.pem", b"root.pem", root, b"alice.req", b"profile=email; copy=subjectAltName; days=365", 0)
# [end]
call("CERT_CheckPath", None, 0, b"alice.pem", None, b"root.pem", None, b"email=alice@example.com; purpose=email", 0)
