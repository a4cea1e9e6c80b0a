# A key from a password.
import hashlib

from flat import call, ctypes

password, salt = b"correct horse battery staple", bytes(range(16))
# [show]
key = ctypes.create_string_buffer(32)
call("KDF_Scrypt", key, 32, password, len(password), salt, len(salt), 32768, 8, 1)
# [end]
assert key.raw == hashlib.scrypt(password, salt=salt, n=32768, r=8, p=1, maxmem=2 ** 26, dklen=32)
