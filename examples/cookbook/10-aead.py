# A message under AES-256-GCM, in memory.
from flat import call, ctypes, zul

message, heading = b"Meet me at noon.", b"to Bob"
# [show]
RANDOM_NONCE = 1
key = ctypes.create_string_buffer(32)
call("RNG_Bytes", key, 32, None, 0)

room = len(message) + 28
sealed = ctypes.create_string_buffer(room)
call("AEAD_Encrypt", sealed, room, message, len(message), key, 32, None, 0, heading, len(heading),
     b"chacha20-poly1305", RANDOM_NONCE)

opened = ctypes.create_string_buffer(len(message))
call("AEAD_Decrypt", opened, len(message), sealed, room, key, 32, None, 0, heading, len(heading),
     b"chacha20-poly1305", RANDOM_NONCE)
# [end]
assert opened.raw == message
other = b"to Eve"
assert zul.AEAD_Decrypt(opened, len(message), sealed, room, key, 32, None, 0, other, len(other), b"chacha20-poly1305",
                        RANDOM_NONCE) == -15
