"""The authority in a folder of the command-line tool: what it makes is tried by openssl and curl, in handshakes too."""
import contextlib
import os
import re
import subprocess

import tool_harness
from tool_harness import ToolTest, main, openssl, read, write, zul

PASSWORD = ["--password-file", "pw"]
NAMES = ["--dns=localhost", "--ip=127.0.0.1", "--ip=::1"]


def snapshot(folder="."):
    return {os.path.join(at, name): read(os.path.join(at, name)) for at, _, names in os.walk(folder) for name in names}


@contextlib.contextmanager
def tls_server(stem, *options):
    """A server of openssl with a certificate; the value is its port."""
    server = subprocess.Popen(["openssl", "s_server", "-accept", "127.0.0.1:0", "-cert", stem + ".pem", "-cert_chain", stem + "-chain.pem",
                               "-key", stem + ".key", "-www", *options], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    try:
        for line in server.stdout:
            if found := re.match(rb"ACCEPT .*:(\d+)", line):
                yield int(found[1])
                break
    finally:
        server.kill()
        server.communicate()


class Authorities(ToolTest):
    def prepare(self):
        write("pw", b"a secret\n")
        self.done("ca init pki --url=http://pki.example --ocsp-url=http://ocsp.example/ --name", "C=AU;O='Smith; Jones'", *PASSWORD)
        self.issue("www", *NAMES)

    def issue(self, out, *options, folder="pki"):
        key = [] if "--request" in options or "--public-key" in options else ["--no-password"]
        return self.done("ca issue", folder, *PASSWORD, *key, "-o", out, *options).decode().split()[1]

    def states(self):
        return {line.split("\t")[0]: line.split("\t")[1] for line in self.done("ca list pki").decode().splitlines()}

    def test_handshakes(self):
        for kind in ("rsa-2048", "p-256", "ed25519"):
            self.done("ca init --name=O=Test --type", kind, "--no-password", kind)
            self.done("ca issue", kind, *NAMES, "--type", kind, "--no-password", "--force", "-o", "server.pem")
            for what, signer in (("server.pem", "ca"), (f"{kind}/ca.crl", "ca"), (f"{kind}/ca.pem", "root")):
                self.done("cert verify", what, "--issuer", f"{kind}/{signer}.pem")
                self.refused(22, "cert verify", what, "--issuer", f"{kind}/{'root' if signer == 'ca' else 'ca'}.pem")
            self.assertIn(b"not revoked", self.done("crl check server.pem --crl", f"{kind}/ca.crl", "--issuer", f"{kind}/ca.pem"))
            self.refused(22, "crl check server.pem --crl", f"{kind}/ca.crl", "--issuer", f"{kind}/root.pem")
            # The server sends leaf and issuing authority; the client knows the root alone.
            with tls_server("server") as port:
                curl = ["curl", "-sS", "--noproxy", "*", "--cacert", kind + "/root.pem"]
                for host in ("localhost", "127.0.0.1"):
                    page = subprocess.run([*curl, "--resolve", f"localhost:{port}:127.0.0.1", f"https://{host}:{port}/"],
                                          capture_output=True)
                    self.assertEqual((page.returncode, page.stderr), (0, b""))
                    self.assertIn(b"Protocol  : TLSv1.3", page.stdout)
                wrong = subprocess.run([*curl, "--resolve", f"other:{port}:127.0.0.1", f"https://other:{port}/"], capture_output=True)
                self.assertEqual(wrong.returncode, 60, wrong.stderr)
                for check, status in ((["-verify_hostname", "localhost"], 0), (["-verify_ip", "::1"], 0), (["-verify_hostname", "other"], 1)):
                    client = subprocess.run(["openssl", "s_client", "-connect", f"127.0.0.1:{port}", "-x509_strict", "-CAfile",
                                             kind + "/root.pem", "-verify_return_error", *check], input=b"", capture_output=True)
                    self.assertEqual(client.returncode, status, client.stderr)
        self.refused(22, "cert verify rsa-2048/ca.pem --issuer p-256/ca.pem", says="not signed with the key of p-256")

    def test_certificates_are_what_was_asked(self):
        openssl("verify -x509_strict -purpose sslserver -verify_ip ::1 -CAfile pki/root.pem -untrusted www-chain.pem www.pem")
        text = openssl("x509 -noout -text -in www.pem").decode()
        for part in ("URI:http://pki.example/ca.crl", "OCSP - URI:http://ocsp.example/", "CA Issuers - URI:http://pki.example/ca.cer",
                     "CN = localhost", 'O = "Smith; Jones", CN = "Smith; Jones Issuing CA"'):
            self.assertIn(part, text)
        text = openssl("x509 -noout -text -in pki/ca.pem").decode()
        for part in ("CA:TRUE, pathlen:0", "URI:http://pki.example/root.crl", 'CN = "Smith; Jones Root CA"'):
            self.assertIn(part, text)
        for name in ("root", "ca"):
            self.assertEqual(read(f"pki/{name}.cer"), openssl("x509 -outform DER", stdin=read(f"pki/{name}.pem")))
            openssl("pkey -noout -passin file:pw -in", f"pki/{name}.key")
        for profile, options, purpose in (("client", ["-sCN=Bob"], "sslclient"), ("email", ["--email=a@b.example"], "smimesign"),
                                          ("ca", ["-sCN=Second", "--days=30"], "crlsign")):
            self.issue("made", *options, "--profile", profile, "--type=p-384")
            openssl("verify -x509_strict -CAfile pki/root.pem -untrusted made-chain.pem -purpose", purpose, "made.pem")
            os.remove("made.key")
        self.issue("alice", "--profile=email", "--email=a@b.example")
        self.assertIn(b"rsaEncryption", openssl("x509 -noout -text -in alice.pem"))  # which mail needs
        if not tool_harness.TOOL[1:]:
            self.assertEqual([os.stat(file).st_mode & 0o77 for file in ("www.key", "pki", "pki/ca.key", "pki/root.key")], [0, 0, 0, 0])

    def test_requests_and_given_keys(self):
        openssl("req -new -newkey ed25519 -nodes -keyout r.key -subj /CN=R -addext subjectAltName=DNS:r.example,DNS:s.example -out r.req")
        self.done("ca issue pki -o plain --request=r.req --dns=t.example", *PASSWORD, warns=b"asks for extensions")
        self.assertEqual(openssl("x509 -noout -ext subjectAltName -in plain.pem").split(b"\n")[1].strip(), b"DNS:t.example")
        self.issue("copied", "--request", "r.req", "--copy=subjectAltName")
        self.assertIn(b"DNS:r.example, DNS:s.example", openssl("x509 -noout -ext subjectAltName -in copied.pem"))
        self.assertIn("\tCN=R\tdNSName:r.example,dNSName:s.example\n", self.done("ca list pki").decode())
        self.issue("again", "--public-key", "r.key", "--dns=u.example", "--days=3", "--describe", "keyUsage=digitalSignature;mustStaple")
        shown = openssl("x509 -noout -text -checkend 172800 -in again.pem")
        self.assertIn(b"TLS Feature", shown)
        self.assertIn(b"will not expire", shown)
        self.assertFalse(os.path.exists("again.key"))
        self.done("ca issue pki -o secret --dns=v.example --new-password-file=pw", "--password-file=pw")
        openssl("pkey -noout -passin file:pw -in secret.key")

    def test_revocation(self):
        held, lost = self.issue("held", "--dns=held.example"), self.issue("lost", "--dns=lost.example")
        check = ["verify", "-crl_check_all", "-CAfile", "pki/root.pem", "-untrusted", "pki/ca.pem", "-CRLfile", "pki/root.crl", "-CRLfile", "pki/ca.crl"]

        def is_good(file):
            found = subprocess.run(["openssl", *check, file], capture_output=True)
            self.assertEqual(b"certificate revoked" in found.stderr, found.returncode != 0, found.stderr)
            return found.returncode == 0
        self.assertTrue(is_good("held.pem") and is_good("lost.pem"))
        self.done("ca revoke pki held.pem --reason=certificateHold", *PASSWORD)
        self.done("ca revoke pki --reason=KeyCompromise --invalidity=2026-01-02", ":".join(re.findall("..", lost.upper())), *PASSWORD)
        self.assertEqual([is_good("held.pem"), is_good("lost.pem"), is_good("www.pem")], [False, False, True])
        self.assertRegex(self.states()[lost], r"^revoked 20\d\d-\d\d-\d\d keyCompromise$")
        self.assertRegex(self.states()[held], "certificateHold$")
        before = snapshot("pki")
        for code, words in ((12, ["lost.pem"]), (21, ["0a0b"]), (21, ["0x", "--reason=superseded"]), (1, ["no-file"]),
                            (6, ["www.pem", "--reason=boredom"]), (6, ["www.pem", "--reason", "superseded,serial=00"])):
            self.refused(code, "ca revoke pki", *words, *PASSWORD)
        self.assertEqual(snapshot("pki"), before)
        self.done("ca revoke pki held.pem --reason=superseded", *PASSWORD)
        self.assertRegex(self.states()[held], "superseded$")
        self.done("ca revoke pki pki/ca.pem --reason=cACompromise", *PASSWORD)
        self.assertFalse(is_good("www.pem"))
        self.done("ca crl pki --days=2", *PASSWORD)
        text = openssl("crl -noout -text -in pki/ca.crl").decode()
        self.assertEqual((text.count("Serial Number"), re.search(r"CRL Number: \n +(\d+)", text)[1]), (2, "5"))
        openssl("crl -noout -CAfile pki/ca.pem -in pki/ca.crl")
        os.remove("pki/ca.crl")
        self.refused(1, "ca crl pki", *PASSWORD, says="continue")

    def test_several_at_once(self):
        command = [*tool_harness.TOOL, "ca", "issue", "pki", *PASSWORD, "--no-password"]
        running = [subprocess.Popen([*command, f"--dns=host{i}.example", "-o", f"host{i}"], stdout=subprocess.PIPE) for i in range(6)]
        serials = [process.communicate()[0].decode().split()[1] for process in running]
        self.assertEqual(len(set(serials)), 6)
        self.assertLess(set(serials), set(self.states()))
        self.assertEqual(sorted(os.listdir("pki/issued")), sorted(serial + ".pem" for serial in self.states()))
        for i, serial in enumerate(serials):
            self.assertEqual(read(f"host{i}.pem"), read(f"pki/issued/{serial}.pem"))
            openssl("x509 -noout -checkhost", f"host{i}.example", "-in", f"host{i}.pem")

    def test_a_failing_run_leaves_all_as_it_was(self):
        write("wrong", b"guess\n")
        write("file", b"x")
        self.done("ca crl pki", *PASSWORD)  # now the lock is there
        before = snapshot()
        issue = ["ca", "issue", "pki", "--no-password", "-o"]
        for code, words in ((15, ["new", "--dns=a.example", "--password-file=wrong"]), (6, ["new", "--dns=a b", *PASSWORD]),
                            (6, ["new", "--dns=a.example;ca", *PASSWORD]), (6, ["new", "--email=a@b.example", *PASSWORD]),
                            (6, ["new", "--dns=a.example", "--describe=days=9999", *PASSWORD]), (2, ["missing/new", "--dns=a.example", *PASSWORD]),
                            (2, ["file/new", "--dns=a.example", *PASSWORD]), (2, ["www", "--dns=a.example", *PASSWORD]),
                            (6, ["pki/ca", "--dns=a.example", *PASSWORD])):
            self.refused(code, *issue, *words)
        self.refused(15, "ca revoke pki www.pem --password-file=wrong")
        self.refused(2, "ca init pki --name=O=a", *PASSWORD)
        self.refused(6, "ca init new --no-password --name", "O=" + "a" * 65)
        self.refused(1, "ca list missing")
        self.assertEqual(snapshot(), before)
        self.assertEqual(sorted(os.listdir()), sorted({name.split(os.sep)[1] for name in before}))

    def test_the_index(self):
        write("pki/index.txt", read("pki/index.txt") + b"0a0b\t2026-01")  # of a run that was killed
        for name in ("new.pem", "ca.crl.0123.tmp"):
            write("pki/" + name, b"")
        states = self.states()
        self.assertEqual(len(states), 2)
        serial = self.issue("more", "-sCN=a\\b;OU=J\u00fcrgen", "--dns=more.example")
        self.assertEqual(list(self.states()), [*states, serial])
        self.assertEqual([name for name in os.listdir("pki") if name.startswith("new") or name.endswith("tmp")], [])
        last = read("pki/index.txt").decode().splitlines()[-1].split("\t")
        self.assertEqual((len(last), last[0], last[3:5]), (7, serial, ["ca", "server"]))
        self.assertIn("OU=J\u00fcrgen", last[5])
        for damaged, says in ((b"0a0b\t2026\n", "Line 5"), (b"../../x\t\t\tca\t\t\t\n", "Line 5")):
            write("bad", read("pki/index.txt") + damaged)
            os.replace("pki/index.txt", "kept")
            os.replace("bad", "pki/index.txt")
            self.refused(7, "ca list pki", says=says)
            os.replace("kept", "pki/index.txt")
        write("pki/settings.txt", read("pki/settings.txt") + b"dayz=4\n")
        self.refused(7, "ca issue pki --dns=a --no-password -o x", *PASSWORD, says="is no setting")

    def test_wrong_arguments(self):
        for words, says in (("init new --name=O=a --no-password --password-file=pw", "exclude"), ("init new --name=O=a --type=x25519", "types: p-256"),
                            ("init new --name=O=a --no-password --years=20", "less than"), ("issue pki -o x", "for whom"),
                            ("issue pki -o x --dns=a --request=b --public-key=c", "exclude"), ("issue pki -o x --dns=a --copy=keyUsage", "request"),
                            ("issue pki -o x --dns=a --public-key=b --type=rsa", "--type is for a new key"), ("issue pki -o - --dns=a", "names of files"),
                            ("revoke pki", "CERT is required"), ("init new --name=Example --no-password", "no keyword")):
            self.wrong_usage(says, "ca", *words.split())


if __name__ == "__main__":
    main()
