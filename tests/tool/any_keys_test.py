"""Keys of every kind, their signatures and agreements, and derived keys, of the command-line tool."""
import os
import re
import subprocess

from tool_harness import CONTENT, TOOL, ToolTest, main, openssl, read, rsa_key, write

# type, what openssl calls it, the default algorithm of its signatures and openssl's arguments for that
KINDS = (("p-256", "EC -pkeyopt ec_paramgen_curve:P-256", "-sha256"),
         ("p-384", "EC -pkeyopt ec_paramgen_curve:P-384", "-sha384"),
         ("p-521", "EC -pkeyopt ec_paramgen_curve:P-521", "-sha512"),
         ("ed25519", "ed25519", None), ("x25519", "x25519", None))


class AnyKeys(ToolTest):
    def prepare(self):
        write("pw", b"geheim\n")
        for kind, theirs, _ in KINDS:
            openssl("genpkey -algorithm", *theirs.split(), "-out", kind + ".pem")
            openssl("pkey -pubout -in", kind + ".pem", "-out", kind + ".pub")
        openssl("genpkey -algorithm RSA -pkeyopt rsa_keygen_bits:2048 -out rsa.pem")
        openssl("pkey -pubout -in rsa.pem -out rsa.pub")
        openssl("genpkey -algorithm RSA-PSS -pkeyopt rsa_keygen_bits:2048 -pkeyopt rsa_pss_keygen_md:sha384 -pkeyopt "
                "rsa_pss_keygen_mgf1_md:sha384 -pkeyopt rsa_pss_keygen_saltlen:48 -out pss.pem")

    def test_make(self):
        for kind, _, _ in KINDS:
            self.done("key make --password-file pw --type", kind.upper(), "pub", "pri", "--force")
            self.assertEqual(openssl("pkey -passin file:pw -pubout -in pri"), openssl("pkey -pubin -in pub"))
            self.assertRegex(openssl("asn1parse -in pri"), rb"(?s):0927C0.*hmacWithSHA256.*aes-256-cbc")
            self.assertEqual(self.done("key match --password-file pw pri pub"), b"the keys match\n")
            self.assertEqual(self.done("key check --password-file pw pri").decode(), f"valid private key, {kind}\n")
            fingerprint = openssl("dgst -sha256 -r", stdin=openssl("pkey -pubin -in pub -outform DER"))[:64].decode()
            shown = dict(line.split(None, 1) for line in self.done("key show pub").decode().splitlines())
            self.assertEqual(shown, {"key": "public key (X.509)", "type": "ec" if kind[1] == "-" else kind, "curve": kind,
                                     "bits": re.sub(r"^\w-|.*255.*", "", kind) or "256", "fingerprint": fingerprint})
        make = "key make --password-file pw --force"
        for options, says in ((["--type", "ed25519", "--encrypt=aes-128", "--prf=sha512", "--count=9", "-f", "der"], b"aes-128-cbc"),
                              (["--type", "p-256", "--encrypt", "3des", "--kdf", "scrypt"], b"scrypt"),
                              (["--bits", "2048", "--kdf", "scrypt", "-f", "pem-alt"], b"scrypt")):
            self.done(make, *options, "pub", "pri")
            form = "DER" if "der" in options else "PEM"
            self.assertIn(says, openssl("asn1parse -in pri -inform", form))
            self.assertEqual(openssl("pkey -passin file:pw -pubout -in pri -inform", form), openssl("pkey -pubin -in pub -inform", form))
        self.refused(2, "key make --type=ed25519 --password-file pw pub pri", says="exists already")
        self.refused(2, "key make --type=ed25519 --password-file pw pri new", says="holds a private key")
        for says, *options in (("unknown type", "--type=rsa-2048"), ("unknown type", "--type=p256k1"),
                               ("--bits is for RSA", "--type=p-256", "--bits=256"), ("pem-alt is for RSA", "--type=p-256", "-fpem-alt"),
                               ("md5-des is for RSA", "--type=p-256", "--encrypt=md5-des"), ("own key derivation", "--encrypt=md5-des", "--kdf=scrypt"),
                               ("go with --kdf pbkdf2", "--type=p-256", "--kdf=scrypt", "--count=9")):
            self.wrong_usage(says, make, *options, "pub", "pri")

    def test_convert(self):
        plain = {kind: openssl("pkcs8 -topk8 -nocrypt -outform DER -in", kind + ".pem") for kind, _, _ in KINDS}
        plain |= {kind: openssl("pkcs8 -topk8 -nocrypt -outform DER -in", kind + ".pem") for kind in ("rsa", "pss")}
        for kind, der in plain.items():
            unencrypted = [[], ["-f", "der"], ["--structure", "pkcs8"]]
            unencrypted += [["--structure=sec1"], ["--structure=sec1", "-fder"]] if kind[:2] == "p-" else []
            unencrypted += [["--structure=pkcs1"], ["--structure=pkcs1", "-fder"]] if kind == "rsa" else []
            encrypted = ["--encrypt=aes-128", "--count=9"], ["--encrypt", "aes-256", "--kdf", "scrypt", "-f", "der"]
            for options in [[*each, "--unencrypted"] for each in unencrypted] + [[*each, "--new-password-file=pw"] for each in encrypted]:
                self.done("key convert --force", *options, kind + ".pem", "out")
                form = "DER" if "der" in options or "-fder" in options else "PEM"
                self.assertEqual(openssl("pkey -passin file:pw -outform DER -in out -inform", form),
                                 openssl("pkey -outform DER -in", kind + ".pem"), options)
                self.done("key convert --force --unencrypted --structure pkcs8 -f der --password-file pw out back")
                self.assertEqual(read("back"), der, options)
            self.done("key convert --force --public --structure spki -f der", kind + ".pem", "out")
            self.assertEqual(read("out"), openssl("pkey -pubout -outform DER -in", kind + ".pem"))
        for says, *arguments in (("xml is for RSA", "--public", "-fxml", "p-256.pem"), ("pem-alt is for RSA", "--public", "-fpem-alt", "p-256.pem"),
                                 ("sec1 is for", "--unencrypted", "--structure=sec1", "ed25519.pem"), ("sec1 is for", "--public", "--structure=sec1", "p-256.pem"),
                                 ("pkcs1 is for", "--unencrypted", "--structure=pkcs1", "pss.pem"), ("only pkcs8", "--encrypt=3des", "--structure=sec1", "p-256.pem"),
                                 ("pkcs8 is for private", "--structure=pkcs8", "p-256.pub"), ("unknown structure", "--structure=x", "p-256.pub")):
            self.wrong_usage(says, "key convert", *arguments, "never")
        for legacy, kind in (("ec -aes256 -passout file:pw -in", "p-256"), ("rsa -traditional -des3 -passout file:pw -in", "rsa")):
            openssl(legacy, kind + ".pem", "-out", "legacy.pem")
            self.assertEqual(self.done("key match --password-file pw legacy.pem", kind + ".pub"), b"the keys match\n")
        write("both.pem", openssl("ecparam -genkey -name prime256v1"))  # parameters stand before the key
        self.assertIn(b"private key (SEC 1)", self.done("key show both.pem"))
        for kind, x509 in (("certificate", "-x509"), ("request", "-new")):
            openssl("req -new", x509, "-subj", "/CN=a", "-key", "p-384.pem", "-out", "made")
            self.assertIn(f"public key of a {kind}\n", self.done("key show made").decode())
            self.assertEqual(self.done("key match p-384.pem made"), b"the keys match\n")
        self.refused(21, "key match p-256.pem p-384.pub")
        self.refused(19, "key show", write("448.pem", openssl("genpkey -algorithm ed448")))
        self.refused(36, "cert self --version1 -k ed25519.pem -s CN=a never", says="takes an RSA key")
        self.assertFalse(os.path.exists("never"))

    def test_signatures(self):
        pss = ["-sigopt", "rsa_padding_mode:pss", "-sigopt", "rsa_pss_saltlen:digest"]
        for kind, ours, theirs in [(kind, [], [digest]) for kind, _, digest in KINDS if digest] + \
                [("p-256", ["--alg", "ecdsa-sha3-512"], ["-sha3-512"]), ("rsa", [], ["-sha256"]), ("rsa", ["-a", "rsa-pss-sha512"], ["-sha512", *pss]),
                 ("rsa", ["--alg", "RSA-PSS-sha256;salt=20;mgf=sha1"], ["-sha256", *pss[:-1], "rsa_pss_saltlen:20", "-sigopt", "rsa_mgf1_md:sha1"]),
                 ("pss", [], ["-sha384"])]:
            key = kind + ".pem"
            for source, stdin in (("in.bin", b""), ("-", CONTENT)):
                self.done("sign -k", key, *ours, source, "sig", stdin=stdin)
                self.assertIn(b"OK", openssl("dgst", *theirs, "-prverify", key, "-signature", "sig", "in.bin"))
                write("sig", openssl("dgst", *theirs, "-sign", key, "in.bin"))
                self.assertIn(b"good signature", self.done("verify -k", key, *ours, source, "sig", stdin=stdin))
                self.refused(22, "verify -k", key, *ours, source, write("bad", read("sig")[:-1] + bytes([read("sig")[-1] ^ 1])), stdin=stdin)
        for source, stdin in (("in.bin", b""), ("-", CONTENT)):
            self.done("sign -k ed25519.pem", source, "sig", stdin=stdin)
            self.assertEqual(read("sig"), openssl("pkeyutl -sign -rawin -inkey ed25519.pem -in in.bin"))
            self.done("verify -k ed25519.pub", source, "sig", stdin=stdin)
            self.refused(22, "verify -k ed25519.pub --alg ed25519ph", source, "sig", stdin=stdin)
        for size, alg in ((16 << 20, []), ((16 << 20) + 1, ["--alg", "ed25519ph"])):
            self.done("sign -k ed25519.pem", *alg, "-", "sig", stdin=bytes(size))
            self.done("verify -k ed25519.pub", *alg, write("zeros", bytes(size)), "sig")
        self.refused(11, "sign -k ed25519.pem - never", stdin=bytes(size), says="ed25519ph")
        self.done("sign --raw -k p-521.pem in.bin sig")
        self.assertEqual(len(read("sig")), 132)
        self.done("verify --raw -k p-521.pub - sig", stdin=CONTENT)
        self.refused(22, "verify -k p-521.pub in.bin sig")
        self.refused(36, "sign -k p-256.pem --alg ed25519 in.bin never", says="The key is of type p-256")
        self.refused(36, "sign -k pss.pem --alg rsa-pss-sha256 in.bin never", says="parameters forbid")
        self.refused(36, "sign -k x25519.pem in.bin never")
        self.refused(33, "sign -d sha512 in.bin never -k", write("short", rsa_key(512)), says="too short to sign with sha512")
        pkcs1 = openssl("rsa -traditional -outform DER -in rsa.pem")
        numbers = re.findall(r" (\d+):d=1 .*INTEGER", openssl("asn1parse -inform DER", stdin=pkcs1).decode())
        for index in (3, 6):  # d, and d of the first prime
            at = int(numbers[index]) + 20
            write("damaged", pkcs1[:at] + bytes([pkcs1[at] ^ 1]) + pkcs1[at + 1:])
            self.refused(23, "sign -k damaged in.bin never", says="does not undo its public part")
            self.refused(23, "key check damaged")
        for source in ("in.bin", "-"):
            self.wrong_usage("unknown digest 'sha9'", "sign -k p-256.pem --alg ecdsa-sha9", source, "never")
            self.refused(19, "sign -k p-256.pem --alg dsa", source, "never", says="ecdsa-sha256, ed25519")
        self.wrong_usage("--digest goes with RSA", "sign -k p-256.pem -d sha384 in.bin never")
        self.wrong_usage("--raw goes with ECDSA", "sign -k ed25519.pem --raw in.bin never")
        self.assertFalse(os.path.exists("never"))

    def test_agree(self):
        for kind in ("p-256", "p-384", "p-521", "x25519"):
            self.done("key make --password-file pw --force --type", kind, "peer.pub", "peer.key")
            theirs = openssl("pkeyutl -derive -inkey", kind + ".pem", "-peerkey", "peer.pub")
            self.assertEqual(bytes.fromhex(self.done("agree -k", kind + ".pem", "peer.pub").decode()), theirs)
            self.done("agree --password-file pw -k peer.key", kind + ".pub", "secret")
            self.assertEqual(read("secret"), theirs)
            derived = openssl("kdf -keylen 50 -binary -kdfopt digest:SHA384 -kdfopt hexsalt:0102 -kdfopt", "info:two words",
                              "-kdfopt", "hexkey:" + theirs.hex(), "HKDF")
            self.assertEqual(self.done("agree --kdf hkdf-sha384 --salt 0102 --length 50 --info", "two words", "-k", kind + ".pem", "peer.pub", "-"), derived)
        self.refused(36, "agree -k x25519.pem p-256.pub", says="x25519 and p-256")
        self.refused(36, "agree -k ed25519.pem ed25519.pub")
        self.refused(6, "agree -k x25519.pem x25519.pub ./x25519.pem", says="would replace the key")
        self.wrong_usage("--info goes with --kdf", "agree -k x25519.pem x25519.pub --info x")

    def test_kdf(self):
        salt, secret = "000102030405060708090a0b0c0d0e0f", ["-kdfopt", "hexsalt:000102030405060708090a0b0c0d0e0f", "-kdfopt"]
        for ours, theirs in (("pbkdf2 -d sha3-256 --iterations 3", ["digest:SHA3-256", "-kdfopt", "iter:3", "PBKDF2"]),
                             ("scrypt", ["n:131072", "-kdfopt", "r:8", "-kdfopt", "p:1", "-kdfopt", "maxmem_bytes:200000000", "SCRYPT"])):
            made = self.done("kdf", *ours.split(), "--password-file", "pw", "--salt", salt)
            self.assertEqual(bytes.fromhex(made.decode()), openssl("kdf -keylen 32 -binary", *secret, "pass:geheim", "-kdfopt", *theirs), ours)
        expected = openssl("kdf -keylen 32 -binary", *secret, "hexkey:" + read("pw").hex(), "-kdfopt", "digest:SHA256", "HKDF")
        self.done("kdf hkdf --key-file pw key --salt", salt)
        self.assertEqual(read("key"), expected)
        write("salt", b"as raw bytes")
        for ours, theirs in (("", "-k 65536 -t 3 -p 4"), (" -m 100 -t 2 -p 3 --length 19", "-k 100 -t 2 -p 3 -l 19")):
            expected = subprocess.run(["argon2", "as raw bytes", "-id", "-r", *theirs.split()], input=b"geheim", capture_output=True, check=True).stdout
            made = self.done("kdf argon2id --password-file - --salt-file salt" + ours, stdin=b"geheim\n")
            self.assertEqual(made.lower().strip(), expected.strip())
        self.refused(11, "kdf scrypt --password-file pw --salt 00 -N 3")
        self.refused(19, "kdf pbkdf2 --password-file pw --salt 00 -d md2")
        self.refused(6, "kdf argon2id --password-file pw --salt", salt, "pw", says="would replace the password")
        self.wrong_usage("a salt is needed", "kdf argon2id --password-file pw")
        self.wrong_usage("not both", "kdf hkdf --key-file pw --salt 00 --salt-file salt")


if __name__ == "__main__":
    main()
