"""PKCS #12 files and OCSP messages of the command-line tool."""
import base64
import os

from tool_harness import ToolTest, main, openssl, read, rsa_key, write, zul


class PfxFiles(ToolTest):
    make = ["pfx", "make", "alice.pem", "alice.key", "--password-file", "pw"]

    def prepare(self):
        write("plain.key", rsa_key())
        write("alice.key", openssl("pkcs8 -topk8 -iter 2 -passout pass:pw -in plain.key"))
        write("pw", b"pw\n")
        self.done("cert self -k plain.key -s CN=Alice alice.pem")

    def test_made_and_read(self):
        self.done(*self.make, "-o", "a.p12", "--name", "M\u00fcller")
        shown = openssl("pkcs12 -in a.p12 -nodes -passin pass:pw")
        self.assertIn("friendlyName: M\u00fcller".encode("latin-1"), shown)
        self.assertEqual(openssl("pkey", stdin=shown), openssl("pkey", stdin=read("plain.key")))
        self.assertEqual(self.done("pfx verify a.p12 --password-file pw"),
                         b"a.p12: good MAC, made with this password\n")
        self.assertEqual(self.done("pfx extract a.p12 --cert c.pem --key=k.pem"), b"")
        self.assertEqual(openssl("x509 -in c.pem"), openssl("x509 -in alice.pem"))
        self.assertEqual(read("k.pem").split(), read("alice.key").split())
        der = self.done("pfx extract - --der --key -", stdin=read("a.p12"))
        self.assertEqual(der, base64.b64decode(b"".join(read("alice.key").splitlines()[1:-1])))
        pem = self.done("pfx make - --pem --empty-password", stdin=read("alice.pem"))
        self.done("pfx verify - --empty-password", stdin=pem)
        self.refused(20, "pfx extract - --cert=never --key=never.key", stdin=pem, says="No encrypted private key")
        self.assertFalse(os.path.exists("never"))

    def test_foreign(self):
        for options, code in ((["-certpbe", "NONE"], 0), (["-legacy", "-macalg", "sha512"], 19)):
            write("b.p12", openssl("pkcs12 -export -inkey plain.key -in alice.pem -passout pass:pw", *options))
            self.done("pfx verify b.p12 --password-file pw")
            self.done("pfx extract b.p12 --force --key=k.pem")
            self.done("key check k.pem --password-file pw")
            self.assertEqual(zul("pfx extract b.p12 --cert=c.pem").returncode, min(code, 1))
        self.refused(22, "pfx verify b.p12 --password-file", write("other", b"x"), says="wrong password")

    def test_refused(self):
        self.done("key make --password-file pw --bits=512 --count=9 other.pub other.key", warns=b"2048 bits")
        before = {name: read(name) for name in os.listdir()}
        for code, file, says in ((15, "plain.key", "encrypted key"), (21, "other.key", "not the key of alice.pem"),
                                 (1, "missing", "missing")):
            self.refused(code, *self.make[:3], file, *self.make[4:], "-o", "never", says=says)
        self.refused(7, "pfx make plain.key --empty-password -o never")
        for out in ("alice.pem", "alice.key", "pw"):
            self.refused(6, *self.make, "-o", "./" + out, says="would replace")
        self.refused(6, "pfx extract alice.pem --cert=alice.pem", says="would replace")
        self.refused(8, "pfx extract alice.pem --cert=never", says="Not a valid PFX file")
        for says, arguments in (("CERT is required", ["make"]), ("with a password only", [*self.make[1:4], "--empty-password"]),
                                ("lacks", [*self.make[1:], "--name", "\u0141"]), ("--cert FILE", ["extract", "x"]),
                                ("exclude each other", ["verify", "x", "--empty-password", "--password-file=pw"]),
                                ("two files", ["extract", "x", "--cert=y", "--key=y"]),
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

    def test_read(self):
        write("index", b"V\t450101000000Z\t\t0A3F\tx\t/CN=a\nR\t450101000000Z\t260102030405Z\tF00D\tx\t/CN=b\n")
        self.done("ocsp request --issuer ca.pem bob.pem -o request")
        openssl("ocsp -index index -CA ca.pem -rsigner ca.pem -rkey ca.key -ndays 1 -reqin request -respout response")
        expected = (rb"Successful response:\n Produced at 20\d\d-\d\d-\d\dT\d\d:\d\d:\d\dZ\n"
                    rb" CertStatus=revoked at 2026-01-02T03:04:05Z\n SerialNumber=00F00D\n")
        unchecked = rb"The signature was not checked: --issuer FILE does\n"
        self.assertRegex(self.done("ocsp read response"), rb"\A" + expected + unchecked + rb"\Z")
        text = base64.encodebytes(read("response"))
        self.assertRegex(self.done("ocsp read - --issuer ca.pem", stdin=text),
                         rb"\A" + expected + rb"Good signature, made with the key of ca.pem\n\Z")
        write("changed", read("response").replace(b"20260102030405Z", b"20260102030406Z"))
        self.refused(22, "ocsp read changed --issuer ca.pem", says="the key of ca.pem")
        self.refused(7, "ocsp read response --issuer ca.key", says="ca.key")
        self.refused(8, "ocsp read ca.pem", says="Not a valid OCSPResponse")
        self.refused(1, "ocsp read missing")
        self.assertEqual(self.done("ocsp read -", stdin=bytes.fromhex("30030a0103")), b"tryLater.\n")


if __name__ == "__main__":
    main()
