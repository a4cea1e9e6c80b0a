"""errors.py: a message that was changed is refused."""
# --8<-- [start:error]
import zulcore

key = zulcore.random_bytes(32)
box = bytearray(zulcore.encrypt(key, b"a secret", aad=b"header"))
box[-1] ^= 1
try:
    zulcore.decrypt(key, box, aad=b"header")
except zulcore.ZulError as error:
    print(error.code, error.name, error.detail)  # 15 DECRYPT_ERROR
# --8<-- [end:error]
zulcore.wipe(key)
