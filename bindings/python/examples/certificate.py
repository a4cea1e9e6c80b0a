"""certificate.py: makes an authority and a server's certificate, and validates it."""
# --8<-- [start:certificate]
import zulcore
from zulcore import certs

with zulcore.Key.generate("p-256") as root_key, zulcore.Key.generate("p-256") as key:
    key.save("server.key", "correct horse")
    root = certs.self_sign(root_key, {"C": "AU", "O": "Example", "CN": "Example Root", "profile": "ca"})
    server = certs.issue(root, root_key, key, {"CN": "www.example.com", "dns": ["www.example.com", "example.com"],
                                               "profile": "server", "days": 90}, file="server.pem")

print(certs.query(server, "subject"), "until", certs.query(server, "notAfter"))
certs.check_path(server, root, conditions={"host": "www.example.com", "purpose": "server"})
print("good certificate")
# --8<-- [end:certificate]
