"""RSA keys, signatures and encryption, and the listing of DER, of the command-line tool."""
import base64
import os

from terminal import Terminal
from tool_harness import CONTENT, TOOL, ToolTest, main, openssl, read, rsa_key, write, zul


class Keys(ToolTest):
    def prepare(self):
        write("key.pem", rsa_key())
        write("key.der", openssl("pkcs8 -topk8 -nocrypt -outform DER -in key.pem"))
        write("pub.der", openssl("pkey -pubout -outform DER -in key.pem"))
        write("pw", b"geheim\n")
        write("enc.pem", openssl("pkcs8 -topk8 -v2 aes-128-cbc -passout pass:geheim -in key.pem"))

    def at_terminal(self, typed, *arguments):
        """Runs the tool at a terminal and types an answer after each question: its status and all it showed."""
        shown = b""
        with Terminal([TOOL[0], *arguments], TERM="dumb") as terminal:
            for answer in typed:
                shown += terminal.until(rb".*?: \Z")[0]
                terminal.send(answer)
            status, rest = terminal.finish()
        return status, shown + rest

    def test_make(self):
        for options, says in (([], "aes-256-cbc"), (["--encrypt", "md5-des", "--count=1", "-f", "der"], "pbeWithMD5AndDES"),
                              (["--encrypt", "AES192", "--count=9", "-f", "pem-alt", "--exponent", "3"], "aes-192-cbc"),
                              (["--encrypt", "aes-128", "--prf", "sha512", "--count=9", "--progress"], "aes-128-cbc"),
                              (["--encrypt", "3des", "--count=9", "--progress"], "des-ede3-cbc")):
            result = zul("key make --bits 600 --password-file pw --force", *options, "pub", "pri")
            self.assertEqual((result.returncode, result.stdout), (0, b""), result.stderr)
            self.assertIn(b"warning: a key of fewer than 2048 bits", result.stderr)
            shown = b"Generating new prime:" in result.stderr  # Windows has a console for it
            self.assertEqual(shown, "--progress" in options and len(TOOL) == 1)
            form = "DER" if "der" in options else "PEM"
            self.assertIn(says, openssl("asn1parse -in pri -inform", form).decode())
            openssl("pkey -inform", form, "-in", "pri", "-passin", "file:pw", "-check", "-noout", "-provider",
                    "legacy", "-provider", "default")
            self.assertEqual(self.done("key match --password-file pw pri pub"), b"the keys match\n")
        make = ["key", "make", "--password-file=pw", "--force"]
        self.refused(2, *make, "--bits=512", "pub", "no/such", says="no/such")
        self.refused(2, *make, "--bits=512", "no/such", "pri", says="no/such")
        self.refused(11, *make, "--bits=96", "pub", "pri", says="Invalid size 96")

    def test_no_private_key_is_replaced(self):
        self.done("cert self -k key.pem -s CN=a a.pem")
        self.done("pfx make a.pem enc.pem --password-file=pw -o a.p12")
        self.done("key convert --unencrypted -f xml key.pem key.xml")
        self.done("key convert --unencrypted -f der key.pem", write("new", b""))  # nothing to lose
        write("any", b"a key of some other program")
        before = {name: read(name) for name in os.listdir()}
        make, convert = ["key", "make", "--bits=512", "--password-file=pw"], ["key", "convert", "key.pem"]
        for name in ("key.der", "enc.pem", "key.xml", "a.p12", "new"):
            for command in ([*make, "made", name], [*make, name, "made"], [*convert, "--public", name],
                            ["pfx", "extract", "a.p12", "--key", name], ["pfx", "extract", "a.p12", "--cert", name]):
                if name not in command[2:-1]:
                    self.refused(6 if command[-1] == "a.p12" == command[2] else 2, *command)
        for command in ([*make, "made", "any"], [*convert, "--unencrypted", "any"],
                        ["pfx", "make", "a.pem", "enc.pem", "--password-file=pw", "-o", "any"]):
            self.refused(2, *command, says="exists already; --force replaces it")
        self.assertEqual({name: read(name) for name in os.listdir()}, before)
        self.done(*convert, "--unencrypted", "--force", "-f", "der", "any")
        self.assertEqual(read("any"), read("key.der"))
        self.done(*convert, "--public", write("public", b"anything"))
        self.assertEqual(self.done("key match key.pem public"), b"the keys match\n")

    def test_passwords(self):
        good = b"valid private key of 1024 bits\n"
        write("long", b"geheim\r\nand more")
        self.assertEqual(self.done("key check --password-file long enc.pem"), good)
        self.assertEqual(self.done("key check --password-file - enc.pem", stdin=b"geheim"), good)
        self.assertEqual(self.done("key convert --password-file - --new-password-file - --encrypt p12-3des --count=9 enc.pem new.pem", stdin=b"geheim\nneu\n"), b"")
        self.assertEqual(self.done("key check --password neu new.pem"), good)
        result = self.refused(15, "key check --password-file - new.pem", stdin=b"geheim\n", says="the right one")
        self.assertEqual(result.stderr.count(b"Decryption error"), 1)
        if len(TOOL) > 1:
            return
        self.refused(20, "key check enc.pem", says="no terminal")
        status, shown = self.at_terminal([b"gehh\x7feim\r"], "key", "check", "enc.pem")
        self.assertEqual((status, shown), (0, b"Password for 'enc.pem': \r\n" + good.replace(b"\n", b"\r\n")))
        self.assertEqual(self.at_terminal([b"gehei\x03"], "key", "check", "enc.pem")[0], 1)
        make = ["key", "make", "--bits", "512", "--count=9", "pub", "pri"]
        self.refused(6, "key make --password-file pw ./pri pri", says="the same file")
        status, shown = self.at_terminal([b"one\n", b"other\n"], *make)
        self.assertEqual((status, os.path.exists("pri")), (1, False), shown)
        self.assertEqual(self.at_terminal([b"x\x15one\n", b"one\n"], *make)[0], 0)
        self.done("key match --password-file - pri pub", stdin=b"one")

    def test_show(self):
        xml = self.done("key convert --unencrypted --format=xml key.pem -").decode()
        secret = xml[xml.index("<P>"):xml.index("</P>")]
        expected = self.done("key show key.pem").decode().splitlines()
        self.assertEqual([line.split()[0] for line in expected], ["key", "type", "bits", "exponent", "hash", "fingerprint", "public"])
        self.assertEqual(expected[1:4], ["type       rsa", "bits       1024", "exponent   65537"])
        self.assertNotIn(secret, "".join(expected))
        self.assertIn(secret, self.done("key show --private key.pem").decode())
        for file in ("pub.der", "enc.pem"):
            shown = self.done("key show --password-file pw", file).decode().splitlines()
            self.assertEqual(shown[1:], expected[1:])
        self.assertEqual(self.done("key check pub.der"), b"public key of 1024 bits\n")
        self.refused(21, "key match key.pem", write("other.pem", rsa_key()), says="Keys do not match")
        self.refused(7, "key show", write("bad.der", read("key.der")[:-1]))
        self.refused(7, "key show", write("no.der", b"\x30\x03\x02\x01\x05"), says="no key")

    def test_convert(self):
        private = ["--unencrypted"], ["--unencrypted", "-f", "pem-alt"], ["--unencrypted", "-f", "der"], \
            ["--unencrypted", "-f", "xml"], ["--unencrypted", "-f", "xml", "--hex", "--keyvalue"], \
            ["--encrypt", "aes-128", "--prf", "sha384", "--count=9", "--new-password-file", "pw"], \
            ["--encrypt", "md2-des", "-f", "der", "--count=9", "--new-password-file", "pw"]
        for options in private:
            self.done("key convert --force", *options, "key.pem", "out")
            self.done("key convert --force --unencrypted -f der --password-file pw out back")
            self.assertEqual(read("back"), read("key.der"))
        begins = {"pem": b"-----BEGIN RSA PUBLIC KEY-----", "pem-alt": b"-----BEGIN PUBLIC KEY-----", "der": b"\x30",
                  "xml": b"<RSAKeyValue><Modulus>"}
        for form, begin in begins.items():
            self.done("key convert --force --public -f", form, "key.pem", "out")
            self.assertTrue(read("out").startswith(begin))
            self.done("key convert --force -f pem-alt out back")
            self.assertEqual(openssl("pkey -pubin -in back -outform DER"), read("pub.der"))

    def test_signatures(self):
        for name in "md5 sha1 sha224 sha256 sha384 sha512".split():
            signature = self.done("sign -k key.pem -d", name, "in.bin", "-")
            self.assertEqual(signature, openssl("dgst", "-" + name, "-sign", "key.pem", stdin=CONTENT))
            self.assertEqual(self.done("verify -k pub.der -d", name, "in.bin", write("sig", signature)),
                             b"in.bin: good signature\n")
        self.done("sign -k enc.pem --password-file pw - sig", stdin=CONTENT)
        self.done("verify -k key.pem - sig", stdin=CONTENT)
        for signature, *more in ((b"\0" + read("sig"),), (b"",), (read("sig"), "-d", "sha1")):
            self.assertEqual(self.refused(22, "verify -k pub.der", *more, "in.bin", write("bad", signature)).stdout, b"")
        self.refused(7, "sign -k pub.der in.bin never", says="takes a private key")
        self.refused(6, "sign -k key.pem in.bin ./in.bin", says="would replace the input")
        self.refused(6, "sign -k key.pem in.bin ./key.pem", says="would replace the key")
        self.refused(20, "sign -k", write("empty", b""), "in.bin", "never")
        self.refused(7, "sign -k", write("text", b"no key, no DER"), "in.bin", "never", says="no key")
        self.assertFalse(os.path.exists("never"))

    def test_encryption(self):
        oaep = ["-pkeyopt", "rsa_padding_mode:oaep", "-pkeyopt"]
        write("message", b"a session key")
        for ours, theirs in (([], oaep + ["rsa_oaep_md:sha256"]), (["-d", "sha1"], oaep + ["rsa_oaep_md:sha1"]),
                             (["-p", "v1.5"], [])):
            made = self.done("rsa-encrypt -k pub.der", *ours, "message", "-")
            self.assertEqual(openssl("pkeyutl -decrypt -inkey key.pem", *theirs, stdin=made), read("message"))
            made = openssl("pkeyutl -encrypt -inkey key.pem", *theirs, stdin=read("message"))
            self.done("rsa-decrypt -k key.pem", *ours, write("made", made), "back")
            self.assertEqual(read("back"), read("message"))
            self.refused(15, "rsa-decrypt -k key.pem", *ours, write("bad", made[:-1]), "-", says="was damaged")
        self.refused(30, "rsa-encrypt -k pub.der in.bin never")
        self.assertFalse(os.path.exists("never"))

    def test_der(self):
        listing = ("30 80  #Level=0  (NDEF)\n   30 13  #Level=1 length=0x13/19\n      04 11  #Level=2 length=0x11/17\n"
                   "         " + "61 " * 16 + "\n         61 \n   bf 87 65 00  #Level=1 length=0x0/0\n"
                   "   00 00  #Level=1 length=0x0/0\n04 81 01  #Level=0 length=0x1/1\n   62 \n")
        data = b"\x30\x80\x30\x13\x04\x11" + b"a" * 17 + b"\xbf\x87\x65\x00\0\0\x04\x81\x01b"
        text = base64.encodebytes(data)
        for content in (data, text, b"-----BEGIN X-----\n" + text + b"-----END X-----\n"):
            self.assertEqual(self.done("der", write("some", content)).decode(), listing)
            self.assertEqual(self.done("der -", stdin=content).decode(), listing)
        for damaged, says in ((data[:-1], "At byte 29: a content of 1"), (data[:27], "byte 27: an element of indefinite"),
                              (data[:3], "a header is cut off"), (b"\x04\x80\0\0", "primitive"), (b"\0\0", "without"),
                              (b"\x04\x85\0\0\0\0\1a", "a length of 5 bytes"), (b"\x30\x80" * 201, "levels"),
                              (b"\x30\x03\x04\x02ab", "of which 1"), (b"\x1f\xff", "cut off"),
                              (b"\x04\x84\xff\xff\xff\xffa", "4294967295 bytes")):
            self.refused(7, "der", write("damaged", damaged), says=says)
        self.refused(20, "der -")


if __name__ == "__main__":
    main()
