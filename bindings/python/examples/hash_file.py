"""hash_file.py FILE: prints the SHA-256 of a file."""
import sys

# --8<-- [start:hash]
import zulcore

print(zulcore.hash_file_hex(sys.argv[1]))

digest = zulcore.Hash("sha3-256")  # of data that comes in pieces
digest.add(b"first ").add(b"second")
print(digest.finish().hex())
# --8<-- [end:hash]
