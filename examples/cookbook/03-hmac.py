# A digest that only the holders of a key can make.
import hashlib
import hmac

from flat import call, ctypes

key, message = bytes(range(32)), b"a report"
# [show]
SHA256 = 3
mac = ctypes.create_string_buffer(32)
call("HMAC_Bytes", mac, 32, message, len(message), key, len(key), SHA256)
# [end]
assert mac.raw == hmac.new(key, message, hashlib.sha256).digest()
