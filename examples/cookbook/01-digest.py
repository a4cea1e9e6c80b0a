# The digest of a file.
import hashlib

from flat import call, text_of

with open("report.txt", "wb") as file:
    file.write(b"abc")
# [show]
SHA256 = 3
digest = text_of("HASH_HexFromFile", b"report.txt", SHA256).decode()
print(digest)
# [end]
assert digest == hashlib.sha256(b"abc").hexdigest()
