"""PKCS #12 files and OCSP messages of the command-line tool."""
import base64
import json
import os
import pathlib

from tool_harness import TOOL, ToolTest, main, openssl, read, rsa_key, write


class PfxFiles(ToolTest):
    make = ["pfx", "make", "alice.pem", "alice.key", "--password-file", "pw"]
    NAME = "M\u00fcller \u0141 \U0001F600"

    def prepare(self):
        write("plain.key", rsa_key())
        write("alice.key", openssl("pkcs8 -topk8 -iter 2 -passout pass:pw -in plain.key"))
        write("pw", b"pw\n")
        write("other", b"x")
        self.done("cert self -k plain.key -s CN=Alice alice.pem")
        for kind, options in (("rsa", "RSA -pkeyopt rsa_keygen_bits:2048"), ("ed", "ed25519"),
                              ("ec", "EC -pkeyopt ec_paramgen_curve:P-256"), ("ec5", "EC -pkeyopt ec_paramgen_curve:P-521")):
            write(kind + ".key", openssl("genpkey -algorithm " + options))
            openssl(f"req -x509 -new -key {kind}.key -subj /CN={kind} -out {kind}.pem")
        openssl("req -x509 -new -key rsa.key -subj /CN=Root -out root.pem")
        openssl("req -new -key ed.key -subj /CN=leaf -out leaf.csr")
        openssl("x509 -req -in leaf.csr -CA root.pem -CAkey rsa.key -set_serial 2 -out leaf.pem")

    def opens(self, file, key, certificates, *options):
        """openssl finds the key and the certificates, the key's first."""
        shown = openssl("pkcs12 -nodes -in", file, "-passin", "pass:pw", *options)
        self.assertEqual(openssl("pkey", stdin=shown), openssl("pkey -in", key))
        blocks = [b"-----BEGIN" + block for block in shown.split(b"-----BEGIN")[1:] if block.startswith(b" CERTIFICATE")]
        self.assertEqual([openssl("x509", stdin=block) for block in blocks], [openssl("x509 -in", each) for each in certificates])

    def test_made_and_read(self):
        forms = (([], "hmacWithSHA256", "PBES2", 600000, []), (["--legacy"], "hmacWithSHA1", "pbeWithSHAAnd3-KeyTripleDES-CBC", 2048, []),
                 (["--pbmac1"], "hmacWithSHA256", "PBES2", 600000, ["-nomacver"]))  # Debian's openssl 3.0 knows no PBMAC1
        for kind, (options, mac, scheme, iterations, reading) in zip(("rsa", "ed", "ec", "ec5"), (*forms, forms[0])):
            file = kind + ".p12"
            self.done("pfx make alice.pem", kind + ".pem", kind + ".key", "-o", file, "--password-file=pw", "--name", self.NAME, *options)
            self.opens(file, kind + ".key", [kind + ".pem", "alice.pem"], *reading)
            if not options:  # of plain bags the name can be seen
                self.assertIn(self.NAME.encode("utf-16-be"), read(file))
            self.assertEqual(self.done("pfx verify --password-file pw", file), file.encode() + b": good MAC, made with this password\n")
            self.refused(22, "pfx verify --password-file other", file, says="wrong password")
            listed = json.loads(self.done("pfx list --json --password-file pw", file))
            self.assertEqual((listed["mac"]["algorithm"], listed["mac"]["iterations"], listed["mac"]["verified"]), (mac, iterations, True))
            self.assertEqual([(entry["kind"], entry.get("name")) for entry in listed["entries"]],
                             [("certificate", self.NAME), ("certificate", None), ("key", self.NAME)])
            self.assertEqual((listed["entries"][2]["encryption"], listed["entries"][2]["iterations"]), (scheme, iterations))
            self.done("pfx extract --password-file pw --need-mac", file, "--cert=c.pem", "--chain=rest.pem", "--all-certs=all.pem",
                      "--key=k.pem", "--force")
            self.assertEqual([openssl("x509 -in", each) for each in ("c.pem", "rest.pem")], [read(kind + ".pem"), openssl("x509 -in alice.pem")])
            self.assertEqual(read("all.pem"), read("c.pem") + read("rest.pem"))
            self.assertIn(b"ENCRYPTED PRIVATE KEY", read("k.pem"))
            self.assertEqual(openssl("pkey -passin pass:pw -in k.pem"), openssl("pkey -in", kind + ".key"))
        if os.name == "posix" and not TOOL[1:]:
            self.assertEqual([os.stat(file).st_mode & 0o777 for file in ("ed.p12", "k.pem")], [0o600, 0o600])

    def test_forms(self):
        write("new", b"fresh\n")
        write("both.pem", read("root.pem") + read("ed.key") + read("leaf.pem"))
        self.done("pfx make both.pem --chain alice.pem -o a.p12 --password-file pw")
        self.opens("a.p12", "ed.key", ["leaf.pem", "root.pem", "alice.pem"])
        der = self.done("pfx extract - --der --password-file pw --encrypt aes-128 --count 5 --new-password-file new --key -", stdin=read("a.p12"))
        self.assertEqual(openssl("pkey -inform DER -passin pass:fresh", stdin=der), read("ed.key"))
        scheme = openssl("asn1parse -inform DER", stdin=der)
        self.assertRegex(scheme, rb"(?s)PBKDF2.*INTEGER +:05\n.*aes-128-cbc")
        self.assertEqual(self.done("pfx extract a.p12 --password-file pw --unencrypted --key=-").split(), read("ed.key").split())
        self.assertEqual(self.done("pfx extract a.p12 --password-file pw --der --cert -"), openssl("x509 -in leaf.pem -outform DER"))

        # an encrypted key, whose password the new file gets, or another one
        self.done(*self.make, "--pem", "-o", "b.p12")
        self.done(*self.make, "--new-password-file", "new", "-o", "c.p12")
        write("b.der", base64.b64decode(b"".join(read("b.p12").splitlines()[1:-1])))
        self.opens("b.der", "plain.key", ["alice.pem"])
        self.refused(15, "pfx list c.p12 --password-file pw", says="wrong password")
        self.done("pfx extract c.p12 --password-file new --key fresh.key")
        self.done("key match fresh.key alice.pem --password-file new")

        pem = self.done("pfx make - --pem --empty-password --truststore", stdin=read("alice.pem"))
        self.done("pfx verify - --empty-password", stdin=pem)
        self.assertIn(b", trusted=yes", self.done("pfx list - --empty-password", stdin=pem))
        self.refused(20, "pfx extract - --empty-password --cert=never --key=never.key", stdin=pem, says="no key number 0")
        self.refused(20, "pfx extract - --empty-password --cert=never --chain=never2", stdin=pem, says="no chain")
        self.assertFalse(os.path.exists("never"))

    def test_foreign(self):
        chained = "-inkey ed.key -in leaf.pem -certfile root.pem"
        for options, warns in (("", b""), ("-nomac", b"has no MAC")):
            write("b.p12", openssl("pkcs12 -export -passout pass:pw", *chained.split(), *options.split()))
            self.done("pfx extract b.p12 --force --password-file pw --all-certs=all.pem --key=k.pem", warns=warns)
            self.assertEqual(read("all.pem").split(), (openssl("x509 -in leaf.pem") + openssl("x509 -in root.pem")).split())
            self.assertEqual(openssl("pkey -passin pass:pw -in k.pem"), read("ed.key"))
            self.refused(15, "pfx extract b.p12 --password-file other --cert=never", says="wrong password")
        self.done("pfx list b.p12 --password-file pw --trust")
        for command in ("list", "extract --cert=never"):
            self.refused(22, f"pfx {command} b.p12 --need-mac --password-file pw", says="no MAC")
        self.refused(20, "pfx verify b.p12 --password-file pw")

        write("b.p12", openssl("pkcs12 -export -nocerts -inkey ed.key -certfile root.pem -passout pass:pw"))
        self.done("pfx extract b.p12 --force --password-file pw --cert=c.pem --key=k.pem", warns=b"no certificate in b.p12 belongs to the key")

        # A byte of the content that changes under a good structure, and a structure that ends too early.
        good = openssl("pkcs12 -export -passout pass:pw", *chained.split())
        at = len(good) // 2
        write("c.p12", good[:at] + bytes([good[at] ^ 1]) + good[at + 1:])
        write("d.p12", good[:at])
        for command in ("list", "extract --cert=never --key=never.key"):
            self.refused(15, f"pfx {command} c.p12 --password-file pw", says="the file was changed")
            self.refused(8, f"pfx {command} d.p12 --password-file pw")
        self.assertFalse(os.path.exists("never"))

    def test_several_keys(self):
        data = pathlib.Path(__file__).parents[1] / "data/p12"
        vector = (data / "cases.txt").read_text().split("What = second of two keys\nP12 = ")[1].split("\n")[0]
        write("two.p12", bytes.fromhex(vector))
        for number, name in (("0", "leaf"), ("1", "root")):
            outputs = ["--cert=" + name + ".crt", "--key", name + ".pvt", "--password-file", write("simple", b"simple")]
            self.done("pfx extract two.p12 --key-number", number, *outputs)
            self.assertEqual(openssl("x509 -outform DER -in", name + ".crt"), (data / (name + ".der")).read_bytes())
            self.done("key match --password-file simple", name + ".pvt", str(data / (name + ".der")))
        self.refused(20, "pfx extract two.p12 --key-number 2 --key=never --password-file simple", says="no key number 2")

    def test_refused(self):
        before = {name: read(name) for name in os.listdir()}
        for code, file, says in ((15, "alice.key", "password is not the right one"), (1, "missing", "missing")):
            self.refused(code, "pfx make alice.pem --password-file other -o never", file, says=says)
        self.refused(21, "pfx make alice.pem --password-file pw -o never ed.key", says="ed.key: error 21")
        self.refused(20, "pfx make plain.key --empty-password -o never", says="without a certificate")
        self.refused(7, "pfx make --empty-password -o never leaf.csr", says="leaf.csr")
        for out in ("alice.pem", "alice.key", "pw"):
            self.refused(6, *self.make, "-o", "./" + out, says="would replace")
        self.refused(2, "pfx make alice.pem --empty-password -o plain.key", says="--force")
        self.refused(6, "pfx extract alice.pem --cert=alice.pem", says="would replace")
        self.refused(7, "pfx extract alice.pem --cert=never --password-file pw", says="Not a PKCS #12 file")
        for says, arguments in (("CERT is required", ["make"]), ("with a password only", [*self.make[1:4], "--empty-password"]),
                                ("both hold a private key", [*self.make[1:], "ed.key"]),
                                ("--legacy and --pbmac1", [*self.make[1:], "--legacy", "--pbmac1"]), ("--cert FILE", ["extract", "x"]),
                                ("exclude each other", ["verify", "x", "--empty-password", "--password-file=pw"]),
                                ("exclude each other", ["extract", "x", "--key=y", "--unencrypted", "--count=9"]),
                                ("need --key", ["extract", "x", "--cert=y", "--unencrypted"]),
                                ("file of its own", ["extract", "x", "--cert=y", "--key=y"]), ("PEM", ["extract", "x", "--chain=y", "--der"]),
                                ("--no-password", ["list", "x", "--no-password", "--empty-password"]),
                                ("standard input", ["make", "-", "-", "--password-file=pw"])):
            self.wrong_usage(says, "pfx", *arguments)
        self.assertEqual({name: read(name) for name in os.listdir()}, before)


class OcspMessages(ToolTest):
    def prepare(self):
        write("ca.key", rsa_key())
        self.done("cert self -k ca.key -s CN=Root --serial=9 ca.pem")
        for name, serial in (("alice", "0x0A3F"), ("bob", "0xF00D")):
            self.done("cert issue --issuer ca.pem -k ca.key --public-key ca.key -s", "CN=" + name, "--serial", serial, name + ".pem")

    def test_request(self):
        for name, serial in (("alice", "2623"), ("bob", "0xF0:0d")):
            for digest in ("sha1", "sha256"):
                openssl("ocsp -no_nonce -issuer ca.pem", "-" + digest, "-cert", name + ".pem", "-reqout", "theirs")
                asked = ["ocsp", "request", "--issuer", "ca.pem", "-d", digest]
                self.done(*asked, name + ".pem", "-o", "ours")
                self.assertEqual(read("ours"), read("theirs"))
                self.assertEqual(self.done(*asked, "-", stdin=read(name + ".pem")), read("theirs"))
                self.assertEqual(self.done(*asked, "--serial", serial), read("theirs"))
                self.assertEqual(self.done(*asked, "--base64", name + ".pem"), base64.b64encode(read("theirs")) + b"\n")
        before = read("alice.pem")
        self.refused(21, "ocsp request --issuer bob.pem alice.pem", says="alice.pem: error 21")
        self.refused(7, "ocsp request --issuer ca.pem ca.key", says="ca.key: error 7")
        for says, arguments in (("CERT or --serial N", []), ("CERT or --serial N", ["alice.pem", "--serial", "1"]),
                                ("hex after 0x", ["--serial", "0A3F"]), ("digests: sha1", ["alice.pem", "-d", "crc"])):
            self.wrong_usage(says, "ocsp", "request", "--issuer", "ca.pem", *arguments)
        self.refused(6, "ocsp request --issuer ca.pem alice.pem -o alice.pem", says="replace")
        self.assertEqual(read("alice.pem"), before)

    def respond(self, out, signer, asked, *options):
        write("index", b"V\t450101000000Z\t\t0A3F\tx\t/CN=a\nR\t450101000000Z\t260102030405Z\tF00D\tx\t/CN=b\n")
        openssl("ocsp -no_nonce -issuer ca.pem -cert", asked, "-reqout", "request")
        openssl("ocsp -index index -CA ca.pem -ndays 1 -reqin request -rkey", signer + ".key", "-rsigner", signer + ".pem", *options, "-respout", out)

    def test_read(self):
        self.respond("response", "ca", "bob.pem")
        shown = self.refused(36, "ocsp read response", says="number f00d is revoked").stdout
        self.assertTrue(shown.startswith(b"OCSPResponse\n  responseStatus              successful\n"))
        for part in (rb"certStatus +revoked\n", rb"revocationTime +2026-01-02T03:04:05Z\n", rb"serialNumber +f00d\n", rb"nextUpdate +20",
                     rb"The signature was not checked: --issuer FILE does\n\Z"):
            self.assertRegex(shown, part)
        text = base64.encodebytes(read("response"))
        shown = self.refused(36, "ocsp read - --issuer ca.pem", stdin=text).stdout
        self.assertIn(b"Good signature, made with the key of ca.pem\n", shown)
        shown = self.refused(36, "ocsp read - --json --issuer ca.pem --cert bob.pem", stdin=text, says="bob.pem").stdout
        self.assertEqual(json.loads(shown)["objects"][0]["responses"][0]["certStatus"], "revoked")
        self.refused(20, "ocsp read response --issuer ca.pem --cert alice.pem")

        write("changed", read("response").replace(b"20260102030405Z", b"20260102030406Z"))
        for options in ([], ["--cert=bob.pem"]):
            self.assertEqual(self.refused(22, "ocsp read changed --issuer ca.pem", *options, says="the key of ca.pem").stdout, b"")
        self.refused(7, "ocsp read response --issuer ca.key", says="ca.key")
        self.refused(8, "ocsp read ca.pem", says="not a valid OCSP response")
        self.refused(1, "ocsp read missing")
        self.assertIn(b"tryLater", self.refused(20, "ocsp read -", stdin=bytes.fromhex("30030a0103")).stdout)
        self.wrong_usage("needs the --issuer", "ocsp", "read", "response", "--cert=bob.pem")

    def test_responders(self):
        """An authority's own responder may answer, its other subjects and other authorities' responders may not."""
        for name, kind in (("p256", "EC -pkeyopt ec_paramgen_curve:P-256"), ("ed", "ED25519")):
            write(name + ".key", openssl("genpkey -algorithm", *kind.split()))
        self.done("cert self -k ca.key -s CN=Root other.pem")
        for issuer, name, profile in (("ca", "p256", "ocsp"), ("ca", "ed", "client"), ("other", "ca", "ocsp")):
            self.done(f"cert issue --issuer {issuer}.pem -k ca.key --public-key {name}.key --profile={profile} -sCN={name} {issuer}-{name}.pem")
            write(f"{issuer}-{name}.key", read(name + ".key"))
        about = ([], ["--cert=alice.pem"])
        self.respond("good", "ca-p256", "alice.pem")
        for options in about:
            shown = self.done("ocsp read good --issuer ca.pem", *options)
            self.assertIn(b"alice.pem: good" if options else b"the responder CN=p256, which ca.pem has authorized\n", shown)
        self.respond("bare", "ca-p256", "alice.pem", "-resp_no_certs")
        self.respond("stranger", "ca-ed", "alice.pem")
        for file in ("bare", "stranger"):
            for options in about:
                self.assertEqual(self.refused(22, "ocsp read", file, "--issuer=ca.pem", *options).stdout, b"")
        self.respond("old", "ca", "alice.pem")
        for options in about:
            self.refused(16, "ocsp read old --issuer ca.pem --time=2045-01-01", *options)

    def test_another_issuer(self):
        write("other.key", rsa_key())
        self.done("cert self -k other.key -s CN=Other other.pem")
        self.respond("response", "other", "alice.pem")
        self.refused(21, "ocsp read response --issuer other.pem", says="another issuer")
        self.refused(22, "ocsp read response --issuer ca.pem")


if __name__ == "__main__":
    main()
