"""Certificates, requests and revocation lists of the command-line tool."""
import base64
import hashlib
import json
import os
import subprocess

from tool_harness import ToolTest, main, openssl, read, rsa_key, write, zul


class Certificates(ToolTest):
    issue = ["cert", "issue", "--issuer", "inter.pem", "-k", "inter.key", "--request"]

    def prepare(self):
        for name in ("root", "inter", "alice"):
            write(name + ".key", rsa_key())
        self.done("cert self -k root.key -s C=AU;CN=Root --subject-key-id=0a0b --years=3 root.pem")
        self.done("cert issue --issuer root.pem -k root.key --public-key inter.key --ca -s", "C=AU ;CN=Inter ", "--years=2", "inter.pem")
        self.done("request make -k alice.key -s", "C=AU;O='Smith; Jones';CN=Alice", "alice.req")
        self.done(*self.issue, "alice.req", "--email", "alice@example.com", "alice.pem")

    def subject(self, file):
        return openssl("x509 -in", file, "-noout", "-subject", "-nameopt", "utf8,sep_semi_plus_space").decode().strip().removeprefix("subject=")

    def test_openssl_accepts_them(self):
        self.assertIn(b"verify OK", subprocess.run(["openssl", "req", "-in", "alice.req", "-verify", "-noout"],
                                                   capture_output=True, check=True).stderr)
        openssl("verify -x509_strict -CAfile root.pem -untrusted inter.pem alice.pem")
        self.assertEqual(self.subject("alice.pem"), "C=AU; O=Smith; Jones; CN=Alice")
        key = openssl("rsa -in inter.key -RSAPublicKey_out -outform DER")
        self.assertEqual(self.done("cert query alice.pem authorityKeyIdentifier").decode().strip(),
                         hashlib.sha1(key).hexdigest())
        self.done(*self.issue, "alice.req", "--no-key-ids", "bare.pem")
        self.assertNotIn(b"Key Identifier", openssl("x509 -noout -text", stdin=read("bare.pem")))
        der = self.done(*self.issue, "-", "--der", "-", stdin=read("alice.req"))
        openssl("verify -CAfile root.pem -untrusted inter.pem", write("alice.der", der))

    def test_serials_and_dates(self):
        for options, expected in ((["--serial", "0xAB:cd:e", "--from", "2020/2/9", "--until", "2021-12-31"],
                 "serial=0ABCDE notBefore=Feb  9 00:00:01 2020 GMT notAfter=Dec 31 23:59:59 2021 GMT"),
                (["--serial", "123456789012345678901234567890", "--from", "2024-02-29 1:30", "--years=1", "--version1"],
                 "serial=018EE90FF6C373E0EE4E3F0AD2 notBefore=Feb 29 01:30:00 2024 GMT "
                 "notAfter=Feb 28 01:30:00 2025 GMT"),
                (["--serial=128", "--from=2026-01-01T00:00:00Z", "--until=2060-01-01T00:00"],
                 "serial=80 notBefore=Jan  1 00:00:00 2026 GMT notAfter=Jan  1 00:00:00 2060 GMT")):
            made = self.done("cert self -k root.key -s CN=x", *options, "-")
            shown = openssl("x509 -noout -serial -startdate -enddate", stdin=made).decode()
            self.assertEqual(" ".join(shown.splitlines()), expected)
        serials = {self.done("cert query", file, "serialNumber") for file in ("root.pem", "inter.pem", "alice.pem")}
        self.assertEqual({len(serial) for serial in serials}, {33})
        self.assertEqual(len(serials), 3)

    def test_names_of_requests(self):
        for name, expected in (("/C=AU/O=A;B/CN=\u0141ukasz", "C=AU; O=A;B; CN=\u0141ukasz"),
                               ("/CN=O'Neill \\\\ Sons", r"CN=O'Neill \ Sons"), ("/CN=#x41", "CN=#x41")):
            openssl("req -new -utf8 -key alice.key -subj", name, "-out", "other.req")
            self.done(*self.issue, "other.req", "other.pem")
            self.assertEqual(self.subject("other.pem"), expected)
        openssl("req -new -key alice.key -subj /CN=x/serialNumber=5 -out other.req")
        self.done(*self.issue, "other.req", "other.pem")
        self.assertEqual(self.subject("other.pem"), "CN=x; serialNumber=5")
        self.done(*self.issue, "other.req", "-s", "CN=M\u00fcller", "other.pem")
        self.assertEqual(self.subject("other.pem"), "CN=M\u00fcller")
        openssl("req -new -key alice.key -subj / -addext subjectAltName=DNS:a -out bare.req")
        self.refused(6, *self.issue, "bare.req", "never.pem", says="Neither a subject nor")
        self.done(*self.issue, "bare.req", "--copy=subjectAltName", "other.pem")
        self.assertIn(b"critical\n    DNS:a\n", openssl("x509 -noout -ext subjectAltName -in other.pem"))
        self.assertIn(b"asks for extensions", zul(*self.issue, "bare.req", "-sCN=y", "other.pem").stderr)
        self.assertEqual(self.subject("other.pem"), "CN=y")
        forged = bytearray(base64.b64decode(b"".join(read("alice.req").splitlines()[1:-1])))
        forged[-1] ^= 1
        self.refused(22, *self.issue, write("forged", bytes(forged)), "never.pem", says="Signature is invalid")
        self.assertFalse(os.path.exists("never.pem"))

    def test_any_key_makes_them(self):
        extensions = "subjectAltName,keyUsage,extendedKeyUsage,basicConstraints"
        for kind, digest, algorithm in (("p-256", [], "ecdsa-with-SHA256"), ("p-521", ["-dsha256"], "ecdsa-with-SHA256"),
                                        ("ed25519", [], "ED25519"), ("rsa", ["--alg=rsa-pss-sha384"], "rsassaPss"),
                                        ("rsa", ["--digest=sha1"], "sha1WithRSAEncryption")):
            if kind == "rsa":
                write("any.key", read("root.key"))
            else:
                self.done("key make --password=a --force --type", kind, "any.pub", "any.enc")
                openssl("pkey -passin pass:a -in any.enc -out any.key")
            names = ["--dns=*.example.com", "--dns", "b\u00fccher.example", "--ip=::1", "--email=a@example.com", "--uri=urn:a:b"]
            self.done("cert self -k any.key -sCN=Any", *digest, "any.pem")
            self.assertIn(f"Signature Algorithm: {algorithm}\n", openssl("x509 -noout -text -in any.pem").decode())
            self.done("request make -k any.key", *digest, *names, "--usage=digitalSignature", "--describe=extKeyUsage=serverAuth", "any.req")
            copies = ["--copy=subjectAltName,keyUsage", "--copy", "extKeyUsage"]
            self.done("cert issue --issuer any.pem -k any.key", *digest, "--request=any.req", *copies, "copied.pem")
            self.done("cert issue --issuer any.pem -k any.key", *digest, "--public-key=any.key", *names, "--profile=server",
                      "--describe=keyUsage=digitalSignature", "typed.pem")
            shown = [openssl("x509 -noout -ext", extensions, "-in", file).decode() for file in ("copied.pem", "typed.pem")]
            self.assertEqual(*shown)
            for part in ("DNS:*.example.com, DNS:xn--bcher-kva.example, IP Address:0:0:0:0:0:0:0:1, email:a@example.com, URI:urn:a:b",
                         "CA:FALSE", "Digital Signature\n", "TLS Web Server Authentication\n"):
                self.assertIn(part, shown[0])
            openssl("verify -x509_strict -CAfile any.pem typed.pem")

    def test_no_name_brings_a_right(self):
        for options in (["-s", "CN=a;ca"], ["--dns=a;ca"], ["--dns", "a',ca='b"], ["--usage=digitalSignature;ca"], ["--copy=all;ca", "--request=alice.req"]):
            key = [] if "--request=alice.req" in options else ["--public-key=alice.key", "-sCN=b"][:2 if options[0] != "-s" else 1]
            self.assertNotEqual(zul("cert issue --issuer=inter.pem -k inter.key", *key, *options, "never.pem").returncode, 0)
        self.assertFalse(os.path.exists("never.pem"))

    def test_queries(self):
        every = dict(line.split(":", 1) for line in self.done("cert query alice.pem").decode().splitlines() if line[0] != " ")
        for name, value in (("version", "3"), ("isCA", "0"), ("sigAlgID", "0"), ("keyUsageString", "digitalSignature,keyEncipherment"),
                            ("signatureAlgorithm", "sha256WithRSAEncryption"), ("rfc822Name", "alice@example.com")):
            self.assertEqual(every[name].strip(), value)
            self.assertEqual(self.done("cert query alice.pem", name.upper()).decode(), value + "\n")
        self.assertEqual(self.done("cert query inter.pem isCA authorityKeyIdentifier").split(),
                         [b"isCA:", b"1", b"authorityKeyIdentifier:", b"0a0b"])
        der = openssl("x509 -in alice.pem -outform DER")
        for name, value in (("sha256", hashlib.sha256(der).hexdigest()), ("publicKeyBits", "1024"), ("email", "alice@example.com"),
                            ("subject", "C=AU, O=Smith\\; Jones, CN=Alice"), ("selfSigned", "0"), ("kind", "certificate")):
            self.assertEqual(every[name].strip(), value)
        self.assertEqual(self.done("cert query alice.pem publicKey"), openssl("x509 -in alice.pem -noout -pubkey"))
        self.assertEqual(self.done("cert query alice.req subject version kind").split(None, 1)[1].split(b"\n"),
                         [b"C=AU, O=Smith\\; Jones, CN=Alice", b"version:                   1", b"kind:                      request", b""])
        self.wrong_usage("queries: version", "cert", "query", "alice.pem", "subj")
        for options, digest in (([], "sha256"), (["-a", "sha1"], "sha1"), (["-d", "SHA-512"], "sha512")):
            self.assertEqual(self.done("cert thumb", *options, "-", stdin=der).decode(),
                             hashlib.new(digest, der).hexdigest() + "  -\n")

    def test_show(self):
        for group, file, begins in (("cert", "alice.pem", "Certificate\n  version                     3\n"),
                                    ("request", "alice.req", "CertificationRequest\n  version                     1\n")):
            shown = self.done(group, "show", file).decode()
            self.assertTrue(shown.startswith(begins), shown)
            self.assertEqual(self.done(group, "show", "-", stdin=read(file)).decode(), shown)
            self.done(group, "show", write("a;b", read(file)), "-o", "dump.txt")
            self.assertEqual(read("dump.txt").decode(), shown)
        openssl("req -x509 -new -utf8 -key root.key -out odd.pem -subj", "/CN=\x1b[2J/O=J\u00fcrgen")
        for command, name in ((["query", "odd.pem", "subjectName"], "CN=\\x1b[2J;O=J"), (["show", "odd.pem"], "CN=\\x1b[2J, O=J")):
            self.assertIn(name + "\u00fcrgen", self.done("cert", *command).decode())
            self.assertNotIn(b"\x1b", self.done("cert", *command))
        openssl("crl2pkcs7 -nocrl -certfile alice.pem -certfile root.pem -out two.p7b")
        for arguments in (["two.p7b"], ["-"]):
            shown = json.loads(self.done("cert show --json", *arguments, stdin=read("two.p7b")))["objects"]
            serials = [openssl("x509 -noout -serial -in", file).decode().strip().lower() for file in ("alice.pem", "root.pem")]
            self.assertEqual(["serial=" + each["serialNumber"] for each in shown], serials)
        write("kept", b"kept")
        self.refused(20, "cert show root.key -o kept", says="zul: root.key:")
        self.assertEqual(read("kept"), b"kept")

    def test_names(self):
        openssl("req -x509 -new -key root.key -subj /CN=cn.example -out names.pem -addext "
                "subjectAltName=DNS:*.example.com,IP:10.0.0.1,email:a@example.org")
        openssl("req -x509 -new -key root.key -subj /CN=cn.example -out bare.pem")
        self.assertIn(b"names.pem: is for a@EXAMPLE.org", self.done("cert check-name names.pem a@EXAMPLE.org"))
        self.refused(21, "cert check-name names.pem cn.example", says="*.example.com")
        self.done("cert check-name bare.pem cn.example --subject-name")
        self.done("cert check-name - www.example.com", stdin=read("names.pem"))

    def test_a_closed_pipe_leaves_nothing_behind(self):
        selfmade = ["cert", "self", "-k", "root.key", "-sCN=a"]
        self.leaves_nothing(["cert", "show", "alice.pem"], [*selfmade, "-"], [*selfmade, "--der", "-"])

    def test_verification(self):
        self.done("cert verify alice.pem --issuer inter.pem")
        self.done("cert verify - --issuer root.pem", stdin=read("inter.pem"))
        self.refused(22, "cert verify alice.pem --issuer root.pem", says="not signed with the key of root")
        self.refused(7, "cert verify alice.pem --issuer alice.req")

    def path(self, code, *arguments, stdin=b"", says=""):
        """The report, whose result agrees with the exit status."""
        if code == 0:
            shown = self.done("cert path --json", *arguments, stdin=stdin)
        else:
            shown = self.refused(code, "cert path --json", *arguments, stdin=stdin, says=says).stdout
        report = json.loads(shown)["objects"][0]
        self.assertEqual((report["code"], report["result"]), (code, "refused" if code else "valid"))
        return report

    def test_paths(self):
        write("all.pem", read("alice.pem") + read("root.pem") + b"text; more\n" + read("inter.pem"))
        self.done("cert self -k root.key -sCN=old --from=2020-01-01 --until=2020-12-31 old.pem")
        self.refused(25, "cert issue --issuer=alice.pem -k alice.key --public-key=root.key -sCN=Mallory mallory.pem")
        openssl("req -new -subj /CN=Mallory -key root.key -out mallory.req")
        openssl("x509 -req -in mallory.req -CA alice.pem -CAkey alice.key -out mallory.pem")
        openssl("x509 -in inter.pem -outform DER -out", "odd;name -----BEGIN")
        openssl("crl2pkcs7 -nocrl -certfile all.pem -outform DER -out all.p7b")
        trusted = ["--trusted", "root.pem"]
        for good in (["alice.pem", "inter.pem", "root.pem"], ["all.pem"], ["alice.pem", "all.p7b"], ["root.pem"],
                     ["alice.pem", "odd;name -----BEGIN", "mallory.pem"], ["alice.pem", "inter.pem", "--trusted=old.pem"],
                     ["alice.pem", "inter.pem", "--email=alice@example.com", "--purpose=email"]):
            self.assertEqual(self.path(0, *good, *trusted)["certificates"][0]["role"], "trustAnchor")
        self.path(0, "-", *trusted, stdin=read("all.pem"))
        self.path(0, "all.pem", "--trusted", "-", stdin=read("root.pem"))
        self.path(0, "old.pem", "--trusted=old.pem", "--time=2020-06-01T12:00")
        self.assertIn(b"  result                      valid\n", self.done("cert path all.pem", *trusted))
        for code, bad in ((25, ["alice.pem", *trusted]), (25, ["all.pem", "--trusted=old.pem"]), (16, ["old.pem", "--trusted=old.pem"]),
                          (16, ["all.pem", *trusted, "--time=2020-06-01"]), (25, ["mallory.pem", "all.pem", *trusted]),
                          (25, ["mallory.pem", "--trusted=alice.pem"]), (21, ["all.pem", *trusted, "--purpose=timestamp"]),
                          (21, ["all.pem", *trusted, "--email=bob@example.com"]), (21, ["all.pem", *trusted, "--host=example.com"]),
                          (21, ["all.pem", *trusted, "--explicit-policy", "--policy=1.2.3"])):
            report = self.path(code, *bad)
            self.assertTrue(report["certificates"][-1]["serialNumber"])
        for code, file, bad in ((1, "missing", ["all.pem", "missing", *trusted]), (1, "missing", ["all.pem", "--trusted=missing"]),
                                (1, "missing", ["all.pem", *trusted, "--crl=missing"]), (20, "root.key", ["all.pem", "--trusted=root.key"]),
                                (7, "alice.req", ["alice.req", *trusted]), (6, "all.pem", ["all.pem", *trusted, "--purpose=none"])):
            self.assertEqual(self.refused(code, "cert path", *bad, says=f"zul: {file}:").stdout, b"")
        for says, arguments in (("--trusted is required", ["all.pem"]), ("standard input", ["-", "-", *trusted]),
                                ("';'", ["all.pem", *trusted, "--host=a;revocation=none"]), ("a date", ["all.pem", *trusted, "--time=now"])):
            self.wrong_usage(says, "cert", "path", *arguments)

    def test_public_roots(self):
        bundle = "/etc/ssl/certs/ca-certificates.crt"
        if not os.path.exists(bundle):
            self.skipTest("no bundle of roots")
        write("bundle;.pem", read(bundle) + read("root.pem"))
        for file in ("bundle;.pem", "-"):
            self.path(0, "alice.pem", "inter.pem", "--trusted", file, stdin=read("bundle;.pem"))
        self.path(25, "alice.pem", "inter.pem", "--trusted", bundle)

    def test_rules_of_the_web(self):
        server = ["--profile=server", "--dns=www.example.com"]
        self.done(*self.issue, "alice.req", *server, "web.pem")
        path = ["web.pem", "inter.pem", "--trusted=root.pem", "--host=www.example.com", "--purpose=server"]
        self.path(0, *path)
        self.path(33, *path, "--web", says="2048")

    def test_paths_and_status(self):
        path = ["alice.pem", "inter.pem", "--trusted=root.pem"]
        serial = "0x" + self.done("cert query alice.pem serialNumber").decode().strip()
        for name, options in (("inter", ["--revoke", "7"]), ("alice", ["--revoke", serial + ",2026-01-01"])):
            self.done("crl make --issuer inter.pem -k inter.key --next 2056-07-01", *options, name + ".crl")
        self.done("crl make --issuer root.pem -k root.key --next 2056-07-01 root;.crl")
        self.path(0, *path, "--crl=inter.crl", "--crl=root;.crl")
        self.path(0, *path, "--crl=inter.crl", "--revocation=leaf")
        self.path(20, *path, "--crl=inter.crl", says="CN=Inter")
        report = self.path(36, *path, "--crl=alice.crl", "--crl=root;.crl", says="CN=Alice")
        self.assertIn("revoked", report["certificates"][2]["checks"]["revocation"])
        self.path(0, *path, "--crl=alice.crl", "--revocation=none")

    def test_revocation(self):
        serial = self.done("cert query alice.pem serialNumber").decode().strip()
        self.done("crl make --issuer inter.pem -k inter.key --revoke", f"0x{serial},2026-06-01",
                  "--revoke", "7", "--issued", "2026-06-02", "--next", "2056-07-01", "inter.crl")
        text = openssl("crl -noout -text", stdin=read("inter.crl")).decode()
        for part in (serial.upper(), "Jun  1 00:00:00 2026", "Serial Number: 07", "Update: Jul  1 00:00:00 2056"):
            self.assertIn(part, text)
        check = ["crl", "check", "--crl", "inter.crl"]
        of = "says inter.crl of 2026-06-02T00:00:00Z"
        for option, status, says in ((None, 1, f"REVOKED, {of} (whose signature was not checked"),
                                     ("--issuer=inter.pem", 1, f"REVOKED, {of}\n"),
                                     ("--date=2026-05-31", 0, f"not revoked on 2026-05-31T23:59:59Z, {of}"),
                                     ("--date=2026-06-01", 1, "REVOKED on 2026-06-01T23:59:59Z"),
                                     ("--date=2026-06-01T00:00", 1, "REVOKED on 2026-06-01T00:00:00Z")):
            result = zul(*check, "alice.pem", *filter(None, [option]))
            self.assertEqual((result.returncode, result.stderr), (status, b""))
            self.assertTrue(result.stdout.decode().startswith("alice.pem: " + says), result.stdout)
        self.done(*self.issue, "alice.req", "again.pem")
        self.assertIn(b"again.pem: not revoked, says", self.done(*check, "again.pem", "--issuer=inter.pem"))
        for code, arguments in ((25, ["inter.pem"]), (22, ["alice.pem", "--issuer=root.pem"]), (1, ["missing"])):
            self.assertEqual(self.refused(code, *check, *arguments).stdout, b"")
        self.assertTrue(self.done("crl show inter.crl").startswith(b"CertificateList\n"))
        shown = json.loads(self.done("crl show --json inter.crl"))["objects"][0]
        self.assertEqual([each["userCertificate"] for each in shown["revokedCertificates"]], [serial, "07"])
        der = openssl("crl -outform DER", stdin=read("inter.crl"))
        for file, content in ((write("der.crl", der), b""), ("-", der)):
            result = zul("crl check again.pem --crl", file, "--date=2056-07-01", stdin=content)
            self.assertEqual(result.returncode, 0)
            self.assertIn(b"out of date: the next list was due at 2056-07-01T00:00:00Z", result.stderr)
        self.refused(1, "crl check alice.pem --crl missing", says="zul: missing:")
        self.tells_of_full_output("crl check alice.pem --crl inter.crl", "crl check alice.pem --crl inter.crl --json")

    def test_lists_go_on_from_earlier_ones(self):
        openssl("genpkey -algorithm ed25519 -out ca.key")
        self.done("cert self -k ca.key -sCN=List ca.pem")
        make = ["crl", "make", "--issuer=ca.pem", "-k", "ca.key"]
        self.done(*make, "--revoke=7,2026-01-02,keyCompromise", "--revoke=0x8,CERTIFICATEHOLD", "--describe=number=41", "1.crl")
        self.done(*make, "--earlier=1.crl", "--revoke=8,removeFromCRL", "--revoke", "9", "--days=3", "--der", "2.crl")
        self.done(*make, "--earlier=1.crl", "--revoke=8,removeFromCRL", "--delta", "delta.crl")
        for file, present in (("1.crl", "Number: 08;Certificate Hold;Number: 07;Key Compromise;Jan  2 00:00:00 2026"),
                              ("2.crl", "Number: 07;Number: 09"), ("delta.crl", "Delta CRL Indicator;Number: 08;Remove From CRL")):
            openssl("crl -noout -CAfile ca.pem -in", file)
            text = openssl("crl -noout -text -in", file).decode()
            for part in present.split(";"):
                self.assertIn(part, text)
        self.refused(12, *make, "--earlier=2.crl", "--revoke=7", "never.crl")
        self.refused(21, "crl make --issuer=root.pem -k root.key --earlier=2.crl never.crl")
        self.assertFalse(os.path.exists("never.crl"))

    def test_inputs_are_safe(self):
        before = {name: read(name) for name in os.listdir()}
        for out in ("inter.key", "inter.pem", "alice.req"):
            self.refused(6, *self.issue, "alice.req", "./" + out, says="would replace")
        self.refused(6, "crl make --issuer inter.pem -k inter.key inter.pem")
        self.refused(6, "request make -k alice.key -s CN=a ./alice.key")
        self.refused(6, "cert show alice.pem -o ./alice.pem")
        self.refused(6, "cert self -k root.key -sCN=a --password-file inter.key ./inter.key")
        self.refused(6, "key make --password-file inter.key new.pub ./inter.key")
        self.refused(21, "cert issue --issuer=root.pem -k inter.key --request alice.req alice.pem",
                     says="does not belong to the issuer")
        self.refused(7, "cert self -k alice.pem -s CN=a new.pem", says="takes a private key")
        self.assertEqual({name: read(name) for name in os.listdir()}, before)


if __name__ == "__main__":
    main()
