# A secret that two share.
from flat import call, ctypes

ROOM = 90000
alice, bob, for_alice, for_bob = (ctypes.create_string_buffer(ROOM + 1) for _ in range(4))
for private in (alice, bob):
    call("KEY_Make", private, ROOM, b"x25519", 0)
call("KEY_Public", for_bob, ROOM, alice)
call("KEY_Public", for_alice, ROOM, bob)
keys = []
for private, other in ((alice, for_alice), (bob, for_bob)):
    # [show]
    secret, key = (ctypes.create_string_buffer(32) for _ in range(2))
    call("KEY_Agree", secret, 32, private, other, 0)
    call("KDF_Hkdf", key, 32, secret, 32, None, 0, b"backup 2026", 11, b"sha256")
    # [end]
    keys.append(key.raw)
assert keys[0] == keys[1] != bytes(32)
