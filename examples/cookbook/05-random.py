# Keys, tokens and dice.
from flat import call, ctypes, zul

# [show]
key = ctypes.create_string_buffer(32)
call("RNG_Bytes", key, 32, None, 0)
die = zul.RNG_Number(1, 6)
# [end]
assert key.raw != bytes(32) and 1 <= die <= 6
