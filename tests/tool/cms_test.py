"""Signed and encrypted messages of the command-line tool."""
import base64
import hashlib
import os

from tool_harness import CONTENT, ToolTest, main, openssl, read, rsa_key, write, zul


class CmsMessages(ToolTest):
    sign = ["cms", "sign", "in.bin", "-k", "alice.key", "--cert", "alice.pem"]

    def prepare(self):
        for name in ("root", "inter", "alice", "bob"):
            write(name + ".key", rsa_key())
        self.done("cert self -k root.key -s C=AU;CN=Root root.pem")
        self.done("cert issue --issuer=root.pem -k root.key --public-key=inter.key --ca -sCN=Inter inter.pem")
        for name in ("alice", "bob"):
            self.done("cert issue --issuer=inter.pem -k inter.key --public-key", name + ".key",
                      "--usage=digitalSignature,keyEncipherment", "-s", "CN=" + name, name + ".pem")
        write("ca.pem", read("root.pem") + read("inter.pem"))

    def openssl_verify(self, message, *options):
        return openssl("cms -verify -inform DER -binary -CAfile ca.pem", *options, stdin=message)

    def test_signed_messages(self):
        carry, trusted = ["--extra-cert", "inter.pem"], ["--trusted", "root.pem"]
        for made, ours, theirs in ((carry, trusted, []), ([*carry, "--signing-time", "-d", "sha512"], trusted, []),
                ([*carry, "--attributes", "--smime-capabilities", "--extra-cert=bob.pem", "-d", "sha384"], trusted, []),
                ([*carry, "--detached"], [*trusted, "--content=in.bin"], ["-content", "in.bin"]),
                (["--no-certs"], ["--cert=alice.pem"], ["-certfile", "alice.pem"]), ([], [*trusted, *carry], [])):
            message = self.done(*self.sign, *made)
            self.assertEqual(self.openssl_verify(message, *theirs), CONTENT)
            says = self.done("cms verify", write("m.p7m", message), *ours).decode()
            self.assertIn("validated: a valid path" if trusted[0] in ours else "the one given with --cert", says)
            self.assertEqual("  time " in says, "--signing-time" in made)
            self.assertNotIn("NOT VALIDATED", says)
        text = self.done(*self.sign, "--base64")
        self.assertEqual(base64.b64decode(text), self.done(*self.sign))
        self.assertIn(b"good signature, but by whom is not", self.done("cms verify -", stdin=text))
        bare = self.done("cms sign -", *self.sign[3:], "--bare", stdin=CONTENT)
        self.assertIn(bare, self.done(*self.sign))
        message = self.done("cms sign alice.pem", *self.sign[3:])  # content that could be taken for the message
        self.done("cms verify", write("m.p7m", message), "--cert=alice.pem", "-o", "out.pem")
        self.assertEqual(read("out.pem"), read("alice.pem"))
        digest = ["--content-digest", hashlib.sha256(CONTENT).hexdigest()]
        self.done("cms verify", write("m.p7m", self.done(*self.sign, "--detached")), "--cert=alice.pem", *digest)

    def test_foreign_messages(self):
        both = ["-signer", "alice.pem", "-inkey", "alice.key", "-signer", "bob.pem", "-inkey", "bob.key"]
        for options, says in ((both[:4], b"CN=alice"), ([*both[:4], "-noattr", "-outform", "PEM"], b"CN=alice"),
                              ([*both[:4], "-stream", "-md", "sha1"], b"CN=alice"), (both, b"CN=bob")):
            write("m.p7m", openssl("cms -sign -binary -nodetach -outform DER -certfile inter.pem",
                                   *options, stdin=CONTENT))
            result = zul("cms verify m.p7m --trusted root.pem -o out.bin")
            self.assertEqual((result.returncode, read("out.bin")), (0, CONTENT), result.stderr)
            self.assertIn(says, result.stdout)
            self.assertEqual(b"signed with sha1" in result.stderr.replace(b"-", b""), "sha1" in options)

    def test_what_is_not_verified_does_not_count(self):
        certificate = openssl("x509 -in alice.pem -outform DER")
        message = openssl("cms -sign -binary -nodetach -outform DER -stream -nocerts -certfile alice.pem -signer alice.pem -inkey alice.key -signer bob.pem -inkey bob.key", stdin=CONTENT)
        before, after = message.split(certificate)
        write("m.p7m", before[:-4] + b"\xa0\x80" + certificate * 2 + b"\0\0" + after)  # in it twice
        says = self.done("cms verify m.p7m --trusted=root.pem --extra-cert=inter.pem")
        self.assertEqual((says.count(b"CN=alice"), says.count(b"2 in the message; ")), (1, 1))
        self.assertIn(b"one for each signer above, and no other", says)

    def test_a_closed_pipe_leaves_no_message_behind(self):
        write("m.p7m", self.done(*self.sign))
        self.leaves_nothing(["cms", "verify", "m.p7m"], ["cms", "show", "m.p7m"])

    def test_a_stranger_is_not_the_signer(self):
        self.done("cert self -k bob.key -sCN=Root fake.pem")
        zul("cert issue --issuer=fake.pem -k bob.key --public-key=bob.key -sCN=alice mallory.pem")
        self.done("cms sign in.bin -k bob.key --cert=mallory.pem --extra-cert=fake.pem --extra-cert=alice.pem --extra-cert=inter.pem -o m.p7m")
        says = self.done("cms verify m.p7m -o out.bin")
        self.assertIn(b"by whom is not validated", says)
        self.assertIn(b"CN=alice\n", says)
        self.assertIn(b"NOT VALIDATED: the message brought this certificate along", says)
        os.remove("out.bin")
        for code, options in ((25, ["--trusted=root.pem"]), (21, ["--cert=alice.pem"]), (21, ["--cert=fake.pem"])):
            self.refused(code, "cms verify m.p7m", *options, "-o", "out.bin")
        warned = zul("cms sign in.bin -k root.key --cert=root.pem -o m.p7m")
        self.assertIn(b"does not say that its key is for signing messages", warned.stderr)
        self.refused(25, "cms verify m.p7m --trusted=root.pem -o out.bin", says="not for signing messages")
        self.assertFalse(os.path.exists("out.bin"))

    def test_the_signers_status(self):
        write("m.p7m", self.done(*self.sign, "--extra-cert=inter.pem"))
        serial = "0x" + self.done("cert query alice.pem serialNumber").decode().strip()
        for name, options in (("good", []), ("bad", ["--revoke", serial])):
            self.done("crl make --issuer inter.pem -k inter.key --next 2056-07-01", *options, name + ".crl")
        write("bundle;.pem", read("bob.pem") + b"text; more\n" + read("root.pem"))
        verify = ["cms", "verify", "m.p7m", "--trusted", "bundle;.pem"]
        self.assertIn(b"validated: a valid path from a trusted certificate (revocation not checked)\n", self.done(*verify))
        self.assertIn(b"a valid path from a trusted certificate\n", self.done(*verify, "--crl=good.crl", "--revocation=leaf"))
        self.done("cms verify m.p7m --trusted -", stdin=read("root.pem"))
        for code, options in ((36, ["--crl=bad.crl", "--revocation=leaf"]), (20, ["--crl=good.crl"]), (16, ["--time=2020-01-01"]),
                              (21, ["--purpose=timestamp"]), (21, ["--email=alice@example.com"])):
            self.refused(code, *verify, *options, "-o", "never.bin", says="The signature is good, but")
        self.assertFalse(os.path.exists("never.bin"))

    def test_damage_is_refused(self):
        good = self.done(*self.sign, "--attributes")
        digest = good.rindex(hashlib.sha256(CONTENT).digest())
        for at in (good.index(CONTENT) + 1000, digest, len(good) - 1):
            damaged = good[:at] + bytes([good[at] ^ 1]) + good[at + 1:]
            result = self.refused(22, "cms verify", write("m.p7m", damaged), "--cert=alice.pem", "-o", "never.bin")
            self.assertEqual(result.stdout, b"")
        write("m.p7m", self.done(*self.sign, "--detached"))
        write("other.bin", CONTENT[:-1])
        verify = ["cms", "verify", "m.p7m"]
        self.refused(22, *verify, "--content=other.bin", says="was changed")
        self.refused(20, *verify, says="--content FILE gives it")
        self.refused(20, *verify, "--content=in.bin", "-o", "never.bin")
        self.refused(21, "cms verify", write("m.p7m", self.done(*self.sign, "--no-certs")), says="--cert FILE gives it")
        self.refused(8, "cms verify in.bin")
        self.refused(1, "cms verify", "missing\x1b[31m", says="zul: missing?[31m:")
        self.assertFalse(os.path.exists("never.bin"))

    def test_encryption(self):
        semicolon = write("a;b.pem", read("alice.pem"))
        for cipher in ("aes-256", "AES128", "aes-192", "3des"):
            message = self.done("cms encrypt in.bin --to", semicolon, "--to=bob.pem", "--cipher", cipher)
            for name in ("alice", "bob"):
                self.assertEqual(self.done("cms decrypt - -k", name + ".key", stdin=message), CONTENT)
                self.assertEqual(openssl("cms -decrypt -inform DER -inkey", name + ".key", "-recip",
                                         name + ".pem", stdin=message), CONTENT)
        for cipher in ("aes-256-cbc", "des3", "aes-128-cbc"):
            theirs = openssl("cms -encrypt -binary -outform DER -stream", "-" + cipher, "bob.pem",
                             "alice.pem", stdin=CONTENT)
            self.done("cms decrypt", write("m.p7m", theirs), "-k", "alice.key", "--cert=alice.pem", "-o", "out.bin")
            self.assertEqual(read("out.bin"), CONTENT)
        self.refused(15, "cms decrypt m.p7m -k root.key -o never.bin", says="not that of a recipient")
        self.refused(15, "cms decrypt m.p7m -k alice.key --cert=root.pem -o never.bin")
        for content in (b"", b"\0", b"a\0b"):
            message = self.done("cms encrypt - --to=alice.pem --base64", stdin=content)
            self.assertEqual(self.done("cms decrypt - -k alice.key", stdin=base64.encodebytes(
                base64.b64decode(message))), content)
        self.assertFalse(os.path.exists("never.bin"))

    def test_everybody_is_served_or_nobody(self):
        openssl("req -x509 -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes -keyout ec.key -subj /CN=ec -out ec.pem")
        self.done("key make --bits=300 --count=9 --password-file", write("pw", b"pw"), "small.pub", "small.key",
                  warns=b"2048 bits")
        self.done("cert issue --issuer=root.pem -k root.key --public-key=small.pub -sCN=small small.pem")
        for code, file in ((19, "small.pem"), (7, "ec.pem"), (1, "missing.pem"), (7, "alice.key")):
            result = zul("cms encrypt in.bin --to=alice.pem --to", file, "--to=bob.pem", "-o", "never.p7m")
            self.assertEqual((result.returncode, result.stdout), (1, b""))
            self.assertRegex(result.stderr.decode(), rf"zul: {file}: error {code}")
            self.assertFalse(os.path.exists("never.p7m"))

    def test_show(self):
        serial = self.done("cert query alice.pem serialNumber").decode().strip()
        write("signed", self.done(*self.sign, "--attributes", "--extra-cert=inter.pem"))
        write("bare", self.done(*self.sign, "--bare", "--no-certs", "--detached", "-d", "sha1"))
        write("env", self.done("cms encrypt in.bin --to=alice.pem --to=bob.pem"))
        for file, rows in (("signed", f"""signed message|HASeContent: 1|CountOfCerts: 2|CountOfSigners: 1|signer 1|
                                          digestAlgorithm: sha256|signatureAlgorithm: rsaEncryption|HASsignedAttrs: 1|
                                          messageDigest: {hashlib.sha256(CONTENT).hexdigest()}|certificate 2|
                                          subjectName: CN=Inter|serialNumber: {serial}"""),
                           ("bare", "signed message|HASeContent: 0|CountOfCerts: 0|HASsignedAttrs: 0|messageDigest:"),
                           ("env", f"""enveloped message|Version: 0|CountOfRecipients: 2|recipient 1 of 2|
                                       contentEncryptionAlgorithm: aes256-CBC|keyEncryptionAlgorithm: rsaEncryption|
                                       sizeofEncryptedContent: {len(CONTENT) // 16 * 16 + 16}|sizeofEncryptedKey: 128|
                                       recipientIssuerName: CN=Inter|recipientSerialNumber: {serial}""")):
            shown = [" ".join(line.split()) for line in self.done("cms show", file).decode().splitlines()]
            for row in rows.split("|"):
                self.assertIn(row.strip(), shown)
        self.refused(8, "cms show alice.pem")

    def test_certificates_alone(self):
        self.done("cms certs make alice.pem inter.pem -o der.p7b")
        pem = self.done("cms certs make --pem alice.pem inter.pem -o -")
        self.assertEqual(openssl("pkcs7 -outform DER", stdin=pem), read("der.p7b"))
        self.assertEqual(openssl("pkcs7 -print_certs", stdin=pem).count(b"BEGIN CERT"), 2)
        theirs = openssl("crl2pkcs7 -nocrl -certfile alice.pem -certfile inter.pem")
        for message in (pem, theirs, self.done(*self.sign, "--extra-cert", "der.p7b", "--extra-cert=inter.pem")):
            ders = [self.done("cms certs extract - --der --index", str(i), stdin=message) for i in (1, 2)]
            if b"BEGIN" in message:
                self.assertEqual(ders, [openssl("x509 -in", file, "-outform", "DER")
                                        for file in ("alice.pem", "inter.pem")])
            self.done("cms certs extract - -o all.pem", stdin=message)
            self.done("cert path --trusted=root.pem all.pem")
        self.refused(20, "cms certs extract der.p7b -n 3", says="carries 2 certificates")
        self.refused(21, "cms verify der.p7b")

    def test_arguments(self):
        before = {name: read(name) for name in os.listdir()}
        for out in ("in.bin", "alice.key", "alice.pem", "inter.pem"):
            self.refused(6, *self.sign, "--extra-cert=inter.pem", "-o", "./" + out, says="would replace")
        self.refused(6, "cms encrypt in.bin --to=alice.pem -o alice.pem", says="would replace")
        self.refused(6, "cms decrypt in.bin -k bob.key -o in.bin", says="would replace")
        self.refused(6, "cms certs make alice.pem -o alice.pem", says="would replace")
        self.refused(21, "cms sign in.bin -k bob.key --cert=alice.pem -o new", says="is not that of")
        self.refused(20, "cms sign", write("empty", b""), *self.sign[3:], "-o", "new", says="--detached signs")
        os.remove("empty")
        for says, arguments in (("commands: sign, verify, encrypt, decrypt, show, certs", []),
                ("--key-file is required", ["sign", "in.bin"]),
                ("at most 10 certificates", ["encrypt", "in.bin", *["--to=alice.pem"] * 11]),
                ("ciphers: aes-128", ["encrypt", "in.bin", "--to=alice.pem", "--cipher=rc4"]),
                ("digests: sha1", [*self.sign[1:], "-d", "sha3"]), ("is empty", ["verify", "in.bin", "--cert="]),
                ("exclude each other", ["verify", "in.bin", "--content=in.bin", "--content-digest=00"]),
                ("go with --trusted", ["verify", "in.bin", "--time=2026-01-01"]),
                ("standard input", ["decrypt", "-", "-k", "-"]), ("--index N", ["certs", "extract", "in.bin", "--der"])):
            self.wrong_usage(says, "cms", *arguments)
        self.assertEqual({name: read(name) for name in os.listdir()}, before)


if __name__ == "__main__":
    main()
