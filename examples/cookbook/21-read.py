# What a certificate says.
from flat import call, ctypes, text_of

ROOM = 90000
key = ctypes.create_string_buffer(ROOM + 1)
call("KEY_Make", key, ROOM, b"ed25519", 0)
call("CERT_SelfSign", b"www.pem", key, b"CN=www.example.com; profile=server; dns=www.example.com, example.com", 0)
# [show]
import json

JSON = 0x10
names = text_of("CERT_Query", b"www.pem", b"dns", 0).decode().split("\n")
report = json.loads(text_of("CERT_Report", b"www.pem", JSON))
# [end]
assert names == ["www.example.com", "example.com"]
assert report["objects"][0]["subject"], report
