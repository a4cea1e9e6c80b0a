"""sign_verify.py: signs a text with a key, and makes a signed message of it."""
# --8<-- [start:sign]
import zulcore
from zulcore import certs, messages

text = b"The meeting is at ten."
with zulcore.Key.generate("ed25519") as key:
    signature = key.sign(text)
    key.public().verify(signature, text)  # raises ZulError if it is not good

with zulcore.Key.generate("rsa-3072") as key:
    certificate = certs.self_sign(key, {"CN": "Alice", "email": "alice@example.com", "profile": "email"})
    message = messages.sign(text, certificate, key, signing_time=True)
messages.verify(message, certificate)
print(messages.read(message).decode(), "signed at", messages.query(message, "SigningTime"))
# --8<-- [end:sign]
