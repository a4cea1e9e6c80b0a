"""seal_open.py FILE: seals a file for a recipient and under a password, and opens both."""
import pathlib
import sys

# --8<-- [start:seal]
import zulcore

file = sys.argv[1]
with zulcore.make_identity() as identity:
    zulcore.seal_file("for-a-friend.age", file, [identity.recipient()])
    zulcore.open_file("opened.txt", "for-a-friend.age", identity)

zulcore.seal_file("with-a-password.age", file, password="correct horse", armour=True)
zulcore.open_file("opened-too.txt", "with-a-password.age", password="correct horse")
# --8<-- [end:seal]
for name in ("opened.txt", "opened-too.txt"):
    assert pathlib.Path(name).read_bytes() == pathlib.Path(file).read_bytes()
print("opened")
