"""Signed and encrypted mail of the command-line tool, read and written by openssl and by Python's email too."""
import base64
import email
import email.policy
import os
import random
from email.message import EmailMessage

from cryptography import x509
from cryptography.hazmat.primitives import hashes, serialization
from cryptography.hazmat.primitives.serialization import pkcs7
from tool_harness import CONTENT, TOOL, ToolTest, main, openssl, read, rsa_key, write, zul

HEAD = b"From: Alice <alice@example.com>\r\nTo: bob@example.com\r\nSubject: folded\r\n\t over lines\r\n"
TEXT = b"Content-Type: text/plain; charset=utf-8\r\n"
BINARY = b"From: alice@example.com\r\nContent-Type: application/pkcs7-mime\r\nContent-Transfer-Encoding: binary\r\n\r\n"


def with_parts():
    """A message of text and two attachments, one of them another message."""
    message = EmailMessage(policy=email.policy.SMTP)
    message["From"], message["To"], message["Subject"] = "alice@example.com", "bob@example.com", "Grüße"
    message.set_content("Text with ümlauts, and a long line: " + "word " * 300 + "\n")
    message.add_attachment(CONTENT, maintype="application", subtype="octet-stream", filename="résumé.bin")
    inner = EmailMessage(policy=email.policy.SMTP)
    inner["Subject"] = "inside"
    inner.set_content("inner text\n")
    message.add_attachment(inner)
    return message.as_bytes()


LETTERS = {
    "plain": HEAD + b"\r\nText.\r\n",
    "8bit": HEAD + TEXT + b"Content-Transfer-Encoding: 8bit\r\n\r\nH\xc3\xa4llo\r\n\r\n.\r\n",
    "quoted": HEAD + TEXT + b"Content-Transfer-Encoding: Quoted-Printable\r\n\r\nH=C3=A4llo =\r\nyou=3D\r\n",
    "spaces": HEAD + TEXT + b"\r\ntrailing  \r\n \t \r\nFrom here\r\n\r\n\r\n",
    "boundary-like": HEAD + TEXT + b"\r\n--\r\n--zul-\r\n----\r\nMIME-Version: 1.0\r\n",
    "long": HEAD + TEXT + b"\r\n" + b"x" * 2500 + b" \r\n=" + b"\xc3\xa4 " * 700 + b"\r\n",
    "no end": HEAD + TEXT + b"\r\nno line end",
    "empty": HEAD + TEXT + b"\r\n",
    "mailbox": b"From alice@example.com Sun Nov 22 11:00:00 2026\r\n" + HEAD + TEXT + b"\r\n>From there\r\n",
    "parts": with_parts(),
}


def leaves(message):
    """What a reader sees: types and decoded bodies of all parts."""
    return [(part.get_content_type(), part.get_filename(), part.get_payload(decode=True).replace(b"\r\n", b"\n"))
            for part in email.message_from_bytes(message, policy=email.policy.default).walk() if not part.is_multipart()]


def some(cases):
    """All cases natively; through a launcher, which is slow, every fifth one: text is the same everywhere."""
    return list(cases)[::5 if len(TOOL) > 1 else 1]


def signed_by_openssl(letter, *options, signer="alice"):
    return openssl("cms -sign -signer", signer + ".pem", "-inkey", signer + ".key", *options, stdin=letter)


class Mail(ToolTest):
    by = ["-k", "alice.key", "--cert", "alice.pem"]
    trusted = ["--trusted", "root.pem"]

    def prepare(self):
        for name in ("root", "alice", "bob"):
            write(name + ".key", rsa_key())
        self.done("cert self -k root.key -s C=AU;CN=Root root.pem")
        for name in ("alice", "bob"):
            self.done("cert issue --issuer=root.pem -k root.key --profile=email --public-key", name + ".key", "-s",
                      "CN=" + name, "--email", name + "@example.com", name + ".pem")
        write("letter.eml", LETTERS["plain"])
        self.done("mail sign letter.eml", *self.by, "-o", "signed.eml")

    def verified(self, message, *options):
        """The content that the tool accepts; its report is left in self.report."""
        self.report = self.done("mail verify", write("m.eml", message), *(options or self.trusted), "-o", "content").decode()
        return read("content")

    def verified_by_openssl(self, message):
        contents = [openssl(command + " -verify -CAfile root.pem", stdin=message) for command in ("cms", "smime")]
        self.assertEqual(contents[0], contents[1])
        return contents[0]

    def test_signed_here(self):
        for name, letter in some(LETTERS.items()):
            for line_end, options in ((b"\r\n", []), (b"\n", ["--opaque", "-d", "sha384"])):
                with self.subTest(name, options=options):
                    write("in.eml", letter.replace(b"\r\n", line_end))
                    message = self.done("mail sign in.eml", *self.by, *options)
                    content = self.verified(message)
                    self.assertEqual(self.verified_by_openssl(message), content)
                    self.assertEqual(leaves(content), leaves(letter))
                    self.assertEqual(self.verified(message.replace(b"\r\n", b"\n")), content)
                    self.assertNotIn(b"\n", message.replace(b"\r\n", b""))
                    self.assertLessEqual(max(map(len, message.split(b"\r\n"))), 998)
                    message.decode("ascii")
                    outer = email.message_from_bytes(message, policy=email.policy.default)
                    before = email.message_from_bytes(letter, policy=email.policy.default)
                    self.assertEqual([outer[field] for field in ("From", "To", "Subject", "MIME-Version")],
                                     [before["From"], before["To"], before["Subject"], "1.0"])
                    self.assertEqual(outer.get_content_type(), "application/pkcs7-mime" if options else "multipart/signed")
                    self.assertEqual(outer["Content-Type"].params.get("micalg"), None if options else "sha-256")
        for says in ("signer      CN=alice", "a valid path", "  time  ", "from        alice@example.com"):
            self.assertIn(says, self.report)

    def test_signed_by_openssl(self):
        from_alice = ["-from", "Alice <alice@example.com>"]
        for name, options in some((("plain", ["-nosmimecap"]), ("8bit", ["-md", "sha512"]), ("quoted", [*from_alice, "-crlfeol"]),
                ("spaces", ["-nodetach"]), ("boundary-like", ["-noattr"]), ("long", ["-stream", "-nodetach"]), ("no end", []),
                ("parts", from_alice), ("parts", ["-nodetach", "-crlfeol", *from_alice]))):
            for letter in (LETTERS[name], LETTERS[name].replace(b"\r\n", b"\n")):
                with self.subTest(name, options=options):
                    message = signed_by_openssl(letter, *options)
                    self.assertEqual(self.verified(message), self.verified_by_openssl(message))

    def test_encryption(self):
        for name, letter in some(LETTERS.items()):
            with self.subTest(name):
                write("in.eml", letter.replace(b"\r\n", b"\n"))
                message = self.done("mail encrypt in.eml --to=bob.pem --to=alice.pem")
                self.assertLessEqual(max(map(len, message.split(b"\r\n"))), 90)
                self.assertIn(b"Content-Type: application/pkcs7-mime; smime-type=enveloped-data;\r\n name=\"smime.p7m\"\r\n", message)
                opened = self.done("mail decrypt - -k bob.key", stdin=message)
                entity = openssl("cms -decrypt -recip alice.pem -inkey alice.key", stdin=message)
                self.assertEqual(self.done("mail decrypt - -k alice.key --cert alice.pem --entity", stdin=message), entity)
                self.assertTrue(opened.endswith(entity))
                self.assertEqual(leaves(opened), leaves(letter))
                self.assertEqual(openssl("smime -decrypt -recip bob.pem -inkey bob.key", stdin=message), entity)
                self.assertEqual(email.message_from_bytes(opened)["Subject"], email.message_from_bytes(letter)["Subject"])
                for command in ("cms -encrypt -aes128", "smime -encrypt -aes256"):
                    theirs = openssl(command, "bob.pem", stdin=letter)
                    self.assertEqual(self.done("mail decrypt - -k bob.key", stdin=theirs), letter)
        self.refused(15, "mail decrypt", write("m.eml", message), "-k", "root.key", "-o", "never", says="not that of a recipient")
        self.refused(7, "mail decrypt letter.eml -k bob.key -o never", says="not encrypted")
        self.refused(7, "mail verify m.eml --trusted root.pem -o never", says="'zul mail decrypt' comes first")
        self.assertFalse(os.path.exists("never"))

    def test_encrypted_signatures(self):
        ours = self.done("mail encrypt signed.eml --to=bob.pem")
        opened = self.done("mail decrypt - -k bob.key", stdin=ours)
        self.assertEqual(opened, read("signed.eml"))
        inner = openssl("cms -decrypt -inkey bob.key -recip bob.pem", stdin=ours)
        self.assertEqual(self.verified_by_openssl(inner), self.verified(opened))
        for options in (["-text"], ["-nodetach"]):
            theirs = openssl("cms -encrypt -from alice@example.com bob.pem", stdin=signed_by_openssl(b"\r\nText.\r\n", *options))
            self.verified(self.done("mail decrypt - -k bob.key", stdin=theirs))
            self.assertIn("from        alice@example.com", self.report)
        self.done("mail sign signed.eml", *self.by, "-o", "twice.eml")
        self.verified(read("twice.eml"))
        self.assertIn("is itself signed", self.report)
        # What is signed already stays as it is, also where that is no form for mail.
        for inner in (b"Content-Type: text/plain", LETTERS["8bit"], b"Content-Transfer-Encoding: binary\r\n\r\n\xff\x00"):
            write("in.eml", signed_by_openssl(inner, "-from", "alice@example.com"))
            self.done("mail sign in.eml --opaque", *self.by, "-o", "twice.eml")
            self.verified(self.verified(read("twice.eml")), *self.trusted, "--from-any")
            self.done("mail encrypt in.eml --to bob.pem -o secret.eml")
            self.verified(self.done("mail decrypt secret.eml -k bob.key"))
        self.refused(7, "mail sign in.eml -o never", *self.by, says="--opaque takes it")

    def test_files(self):
        header = ["--from", "Älice <alice@example.com>", "--to=bob@example.com", "--to", '"B, C" <c@example.com>',
                  "--subject", "Grüße an alle, auch an die, für die das eine recht lange Zeile ist"]
        write("bücher.bin", CONTENT)
        write("text", "Zeile\nnoch eine".encode())
        for file, kind, body in (("bücher.bin", [], CONTENT), ("text", [], b"Zeile\r\nnoch eine"),
                                 ("text", ["--as=attachment"], b"Zeile\nnoch eine"), ("letter.eml", ["--as=attachment"], LETTERS["plain"])):
            for options in some(([], ["--opaque"])):
                message = self.done("mail sign", file, *self.by, *kind, *options, *header)
                content = self.verified(message)
                self.done("mail verify m.eml -o body --body", *self.trusted)
                self.assertEqual(read("body"), body)
                self.assertEqual(self.done("mail decrypt - -k bob.key --body", stdin=self.done("mail encrypt --to=bob.pem", file, *kind)), body)
                outer = email.message_from_bytes(message, policy=email.policy.default)
                self.assertEqual([str(outer["From"]), str(outer["To"]), str(outer["Subject"])],
                                 [header[1], 'bob@example.com, "B, C" <c@example.com>', header[-1]])
                self.assertIsNotNone(outer["Date"].datetime)
                self.assertEqual(leaves(content)[0][1], file if body != b"Zeile\r\nnoch eine" else None)
        word = self.done("mail sign letter.eml --subject", "y" * 3000, *self.by)
        self.assertLessEqual(max(map(len, word.split(b"\r\n"))), 998)
        self.assertEqual(email.message_from_bytes(word, policy=email.policy.default)["Subject"], "y" * 3000)
        self.done("mail sign letter.eml --from alice@example.com --subject", "x y " * 60, *self.by, "-o", "long.eml")
        outer = email.message_from_bytes(read("long.eml"), policy=email.policy.default)
        self.assertEqual((outer.get_all("From"), str(outer["Subject"]), str(outer["To"])),
                         (["alice@example.com"], "x y " * 60, "bob@example.com"))

    def test_the_sender(self):
        signed = read("signed.eml")
        start = signed.index(b"To:")

        def sent_by(fields):
            return write("m.eml", fields.encode() + b"\r\n" + signed[start:])

        for fields in ("From: alice@example.com", "From: alice@EXAMPLE.com", 'From: "mallory@evil.test" <alice@example.com>',
                       "From: (mallory@evil.test) alice@example.com (or (so))", "from:\r\n <alice@example.com>"):
            self.verified(read(sent_by(fields)))
        for code, says, fields in some(((21, "not for the address of From, mallory@evil.test", "From: alice@example.com <mallory@evil.test>".replace("alice@", '"alice@"')),
                (21, "mallory@evil.test", "From: mallory@evil.test (alice@example.com)"),
                (21, "mallory@evil.test", "From: alice@example.com, mallory@evil.test"),
                (7, "several fields from", "From: alice@example.com\r\nFrom: mallory@evil.test"),
                (7, "several fields from", "From: alice@example.com\r\nfRoM: mallory@evil.test"),
                (7, "blank before its colon", "From: alice@example.com\r\nfRoM : mallory@evil.test"), (7, "malformed", "From: =?utf-8?q?mallory=40evil.test?=@example.com"),
                (7, "malformed", "From: alice@example.com <mallory@evil.test>"), (7, "malformed", "From: Alice alice@example.com"),
                (7, "malformed", "From: all: alice@example.com;"), (7, "malformed", "From:"), (7, "malformed", "From: <alice@example.com> x"),
                (7, "does not end", "From: alice@example.com (comment"), (7, "a CR that ends no line", "From: alice@example.com\rX: y"),
                (7, "blanks alone", "From: alice@example.com\r\n \r\n <x@y>"), (20, "no field From", "Sender: alice@example.com"),
                (7, "begins with a blank", " From: alice@example.com"), (7, "is no field", "From: alice@example.com\r\nX y: z"),
                (7, "more than 100 addresses", "From: alice@example.com" + ",\r\n a@b" * 100))):
            with self.subTest(fields):
                self.refused(code, "mail verify", sent_by(fields), *self.trusted, "-o", "never", says=says)
        sent_by("From: mallory@evil.test")
        self.assertIn(b"NOT COMPARED", self.done("mail verify m.eml --from-any", *self.trusted))
        for code, says, field in ((21, "mallory@evil.test", b"From: "), (7, "malformed header", b"From : "), (7, "malformed header", b"X: y\rFrom: ")):
            inside = signed_by_openssl(field + b"mallory@evil.test\r\n" + TEXT + b"\r\nText\r\n", "-nodetach", "-from", "alice@example.com")
            self.refused(code, "mail verify", write("m.eml", inside), *self.trusted, "-o", "never", says=says)
        self.done("cert issue --issuer=root.pem -k root.key --public-key alice.key -s CN=a;E=alice@example.com old.pem")
        self.done("mail sign letter.eml -k alice.key --cert=old.pem -o m.eml", warns=b"is not for the address of From")
        self.refused(21, "mail verify m.eml -o never", *self.trusted)
        self.done("mail verify m.eml --subject-name", *self.trusted)
        self.assertFalse(os.path.exists("never"))

    def test_who_signed(self):
        self.done("cert self -k bob.key -s CN=alice --email alice@example.com --profile=email fake.pem")
        self.done("mail sign letter.eml -k bob.key --cert=fake.pem -o fake.eml")
        self.assertIn(b"NOT VALIDATED", self.done("mail verify fake.eml"))
        self.refused(25, "mail verify fake.eml -o never", *self.trusted)
        self.refused(21, "mail verify signed.eml --cert=bob.pem -o never")
        self.refused(21, "mail verify signed.eml --purpose=code -o never", *self.trusted)
        self.refused(16, "mail verify signed.eml --time=2020-01-01 -o never", *self.trusted)
        self.done("cert issue --issuer=root.pem -k root.key --public-key alice.key -s CN=a --profile=server --dns=a.example --email=alice@example.com server.pem")
        self.done("mail sign letter.eml -k alice.key --cert=server.pem -o m.eml")
        self.refused(21, "mail verify m.eml -o never", *self.trusted)
        self.done("mail sign letter.eml --no-certs", *self.by, "-o", "m.eml")
        self.verified(read("m.eml"), "--cert=alice.pem")
        two = pkcs7.PKCS7SignatureBuilder().set_data(LETTERS["8bit"])
        for name, digest in (("alice", hashes.SHA256()), ("bob", hashes.SHA512())):
            two = two.add_signer(x509.load_pem_x509_certificate(read(name + ".pem")),
                                 serialization.load_pem_private_key(read(name + ".key"), None), digest)
        opaque = BINARY + two.sign(serialization.Encoding.DER, [])
        detached = two.sign(serialization.Encoding.SMIME, [pkcs7.PKCS7Options.DetachedSignature])
        for message in (opaque, detached):
            self.verified(message)
            for says in ("CN=alice", "CN=bob", "2 in the message; verified is one for each signer above\n"):
                self.assertIn(says, self.report)
        self.refused(22, "mail verify", write("m.eml", message.replace(b"H\xc3\xa4llo", b"Hello")), *self.trusted, "-o", "never")
        stamp = signed_by_openssl(LETTERS["plain"], "-nodetach", "-econtent_type", "1.2.840.113549.1.9.16.1.4", "-outform", "DER")
        write("m.eml", BINARY + stamp.replace(b"\2\1\3", b"\2\1\1", 1))
        self.refused(8, "mail verify m.eml -o never", *self.trusted, says="contentType must be 'data'")
        openssl("req -x509 -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes -keyout ec.key -subj /CN=ec -out ec.pem")
        self.refused(36, "mail sign letter.eml -k ec.key --cert=ec.pem -o never", says="takes an RSA key")
        self.refused(7, "mail encrypt letter.eml --to=ec.pem -o never")
        self.assertFalse(os.path.exists("never"))

    def test_forms_of_others(self):
        signed = read("signed.eml")
        boundary = signed[signed.index(b"boundary=") + 10:].split(b'"')[0]
        for old, new in some(((b"boundary=\"" + boundary, b"boundary*1*=%" + b"%02X" % boundary[3] + boundary[4:] + b"; boundary*0=\"" + boundary[:3]),
                         (b"boundary=\"" + boundary, b"boundary*=us-ascii'en'" + boundary + b"; x=\""),
                         (b"boundary=\"" + boundary + b'"', b"boundary=" + boundary + b" (comment; boundary=x)"),
                         (b'multipart/signed; protocol="application/pkcs7-signature";',
                          b"(a (b)) Multipart/Signed ; Protocol*=us-ascii''application/x-pkcs7-signature; ;"),
                         (b"micalg=sha-256", b"micalg=md5"), (b"application/pkcs7-signature;\r\n name", b"application/x-pkcs7-signature;\r\n name"),
                         (b"--" + boundary + b"\r\nContent-Type: text", b"--" + boundary + b" \t\r\nContent-Type: text"))):
            self.assertIn(old, signed)
            self.assertIn(b"Text.", self.verified(signed.replace(old, new)), new)
        self.assertIn(b"is not signed", zul("mail verify", write("m.eml", signed + b"Forged words\r\n"), *self.trusted).stderr)

    def test_damaged_messages(self):
        signed = read("signed.eml")
        boundary = b"--" + signed[signed.index(b"boundary=") + 10:].split(b'"')[0]
        content = signed[signed.index(boundary) + len(boundary) + 2:signed.rindex(boundary, 0, signed.rindex(boundary)) - 2]
        signature = signed[signed.rindex(boundary, 0, signed.rindex(boundary)):signed.rindex(boundary) - 2]
        evil = boundary + b"\r\n" + TEXT + b"\r\nForged.\r\n"
        opaque = self.done("mail sign letter.eml --opaque", *self.by)
        other = self.done("mail sign --opaque --from=alice@example.com in.bin", *self.by)
        for code, says, old, new in some((
                (22, "was changed", b"Text.", b"Test."), (22, "was changed", b"Text.", b"Text. "),
                (22, "was changed", b"us-ascii\r\n", b"us-ascii\r\nX-More: 1\r\n"),
                (7, "here are 3", boundary + b"\r\nContent-Type: text", evil + boundary + b"\r\nContent-Type: text"),
                (7, "here are 3", signature, evil + signature), (7, "here are 3", signature, signature + b"\r\n" + evil),
                (7, "here are 3", signature, signature + b"\r\n" + signature), (7, "here are 1", signature, b""),
                (7, "here are 0", signed[signed.index(boundary):], boundary + b"--\r\n"),
                (7, "not a signature", b"Content-Type: application/pkcs7-signature", b"Content-Type: text/plain"),
                (7, "follows the last one", boundary + b"--\r\n", boundary + b"--\r\n" + evil + boundary + b"--\r\n"),
                (7, "readers disagree", b"Text.", boundary + b"x"), (7, "a CR that ends no line", b"This is", b"x\r" + evil.replace(b"\r\n", b"\r")),
                (7, "malformed", b"; boundary=", b"; boundary*1=x; boundary="), (7, "cut off", boundary + b"--", b""),
                (7, "no boundary", b"; boundary=", b"; bound="), (7, "twice", b"; boundary=", b"; boundary*0=x; boundary="),
                (7, "twice", b"; boundary=", b"; boundary=x; boundary="), (7, "malformed", b'boundary="', b'boundary*1="'),
                (7, "does not end", b'"\r\n\r\nThis', b"\r\n\r\nThis"), (7, "wrong percent", b'boundary="', b"boundary*=''%4; x=\""),
                (7, "wrong number", b'boundary="', b'boundary*99999999999999999999="'),
                (7, "several fields content-type", b"MIME-Version", b"Content-Type: text/plain\r\nMIME-Version"),
                (7, "several fields content-transfer", b"Encoding: base64", b"Encoding: base64\r\ncontent-transfer-encoding: 7bit"),
                (19, "another way than S/MIME", b"application/pkcs7-signature\";", b"application/pgp-signature\";"),
                (19, "none of base64", b"Encoding: base64", b"Encoding: uuencode"), (7, "not base64", b"base64\r\n", b"base64\r\n\r\n?"),
                (7, "base64 was cut off", signature, signature.rstrip()[:-3]), (7, "holds a zero byte", b"Subject:", b"Sub\0ject:"),
                (7, "have a transfer encoding", b"MIME-Version", b"Content-Transfer-Encoding: base64\r\nMIME-Version"),
                (22, "was changed", signature[signature.index(b"\r\n\r\n") + 4:], other[other.index(b"\r\n\r\n") + 4:]),
                (7, "not signed as a whole", b"multipart/signed", b"multipart/mixed"),
                (7, "1 MiB", b"Subject:", b"X:" + b" x" * 600000 + b"\r\nSubject:"), (7, "1 MiB", b"Subject:", b"X:\r\n" * 2001 + b"Subject:"))):
            with self.subTest(says, new=new[:60]):
                self.assertIn(old, signed)
                self.refused(code, "mail verify", write("m.eml", signed.replace(old, new, 1)), *self.trusted, "-o", "never", says=says)
        self.refused(20, "mail verify", write("m.eml", opaque[:opaque.index(b"\r\n\r\n")]), *self.trusted)
        self.refused(20, "mail verify", write("m.eml", b""), *self.trusted)
        der = openssl("cms -cmsout -outform DER", stdin=opaque)
        for body, code in ((b"garbage", 8), (der[:-9], 8), (der.replace(b"Text.", b"Test."), 22),
                           (base64.b64decode(signature.partition(b"\r\n\r\n")[2]), 20)):
            self.refused(code, "mail verify", write("m.eml", BINARY + body), *self.trusted, "-o", "never")
        self.assertEqual(self.verified(BINARY + der), content)
        nested = b"--b\r\nContent-Type: multipart/mixed; boundary=b\r\n\r\n" * 40 + b"--b--\r\n"
        many = b"Content-Type: message/rfc822\r\n\r\n" * 60
        for letter in (HEAD + b"Content-Type: multipart/mixed; boundary=b\r\n\r\n" + nested, HEAD + many + b"\r\n",
                       HEAD + b"Content-Type: multipart/mixed\r\n\r\n", HEAD + b"no field\r\n\r\n"):
            self.refused(7, "mail sign", write("m.eml", letter), *self.by, "-o", "never")
            self.refused(7, "mail encrypt m.eml --to=bob.pem -o never")
        self.assertFalse(os.path.exists("never"))

    def test_random_damage(self):
        """Whatever is done to a message, it is refused, or its content is the one that was signed."""
        signed, dice = read("signed.eml"), random.Random(8551)
        content = self.verified(signed)
        start = signed.index(b"Content-Type")
        for _ in some(range(40)):
            at = dice.randrange(start, len(signed))
            length = dice.choice((1, 1, 2, 40, 300))
            damaged = signed[:at] + dice.choice((b"", b"\n", b"--", b";", b"\"", signed[start:start + 50])) + signed[at + length:]
            result = zul("mail verify", write("m.eml", damaged), *self.trusted, "-o", "out")
            self.assertIn(result.returncode, (0, 1), (damaged, result.stderr))
            self.assertEqual(os.path.exists("out"), result.returncode == 0)
            if result.returncode == 0:
                self.assertEqual(read("out"), content, damaged)
                os.remove("out")

    def test_arguments(self):
        before = {name: read(name) for name in os.listdir()}
        for out in ("letter.eml", "alice.key", "alice.pem", "root.pem"):
            self.refused(6, "mail sign letter.eml", *self.by, "--extra-cert=root.pem", "-o", "./" + out, says="would replace")
        self.refused(6, "mail encrypt letter.eml --to=bob.pem -o bob.pem", says="would replace")
        self.refused(6, "mail decrypt letter.eml -k bob.key -o bob.key", says="would replace")
        self.refused(6, "mail verify signed.eml --trusted=root.pem -o root.pem", says="would replace")
        sign = ["sign", "letter.eml", *self.by]
        for says, arguments in (("commands: sign, verify, encrypt, decrypt", []), ("one line", [*sign, "--subject=x\r\nBcc: y@z"]),
                ("one line", [*sign, "--from=a@b\nX: y"]), ("one address", [*sign, "--from=alice"]), ("one address", [*sign, "--to=a@b, c@d"]),
                ("message,text,attachment", [*sign, "--as=mail"]), ("digests: sha1", [*sign, "-d", "sha3"]),
                ("at most 10", ["encrypt", "letter.eml", *["--to=bob.pem"] * 11]), ("go with --trusted", ["verify", "signed.eml", "--time=2026-01-01"]),
                ("goes with --out", ["verify", "signed.eml", "--body"]),
                ("exclude each other", ["verify", "signed.eml", "--json", "-o", "-"]), ("standard input", ["decrypt", "-", "-k", "-"])):
            self.wrong_usage(says, "mail", *arguments)
        self.assertEqual({name: read(name) for name in os.listdir()}, before)
        self.leaves_nothing(["mail", *sign], ["mail", "encrypt", "letter.eml", "--to=bob.pem"], ["mail", "verify", "signed.eml", "-o", "-"])


if __name__ == "__main__":
    main()
