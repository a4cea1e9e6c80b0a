"""The JSON of the command-line tool: each command's documents are what its schema in docs/schemas says and hold the values
that other programs find; docs/tool-json.md shows documents of that kind."""
import hashlib
import hmac
import json
import os
import pathlib
import re
import warnings

import jsonschema

from help_test import commands
from tool_harness import CONTENT, TOOL, ToolTest, main, openssl, read, rsa_key, write, zul

DOCS = pathlib.Path(__file__).resolve().parents[2] / "docs"
SCHEMAS = {path.name: json.loads(path.read_text()) for path in (DOCS / "schemas").glob("*.schema.json")}
SHARED = "common.schema.json"
PAGE = (DOCS / "tool-json.md").read_text()
SHA256, SHA1 = hashlib.sha256(CONTENT).hexdigest(), hashlib.sha1(CONTENT).hexdigest()
KDF = "--salt 00 --length 5 --password-file pw --json"
PW = ["--password-file", "pw"]


def validate(command, document):
    schema = SCHEMAS[command.replace(" ", "-") + ".schema.json"]
    with warnings.catch_warnings():
        warnings.simplefilter("ignore")  # newer versions have another way, Debian's has this one
        resolver = jsonschema.RefResolver(schema["$id"], schema, SCHEMAS)
        jsonschema.Draft202012Validator(schema, resolver=resolver).validate(document)


def holds(document, expected):
    """Whether a document has the expected members, in lists the expected items in their order, and so on inside."""
    if isinstance(expected, dict):
        return isinstance(document, dict) and all(name in document and holds(document[name], value) for name, value in expected.items())
    if isinstance(expected, list):
        return isinstance(document, list) and len(document) == len(expected) and all(map(holds, document, expected))
    if isinstance(expected, re.Pattern):
        return isinstance(document, str) and expected.search(document) is not None
    return type(document) is type(expected) and document == expected


def no(code, name, **members):
    return {"valid": False, "error": {"code": code, "name": name}, **members}


class Documents(ToolTest):
    def prepare(self):
        write("pw", b"pw\n")
        for name in ("key", "other"):
            write(name + ".pem", rsa_key())
        self.done("key make --type ed25519 ed.pub ed.pem", *PW)
        self.done("key make --type x25519 x.pub x.pem", *PW)
        self.done("sign -k key.pem in.bin in.sig")
        self.done("identity my.key")
        self.done("cert self -k key.pem -s CN=Root --serial=9 ca.pem")
        self.done("cert issue --issuer ca.pem -k key.pem --public-key other.pem --serial 0x0A3F --email alice@example.com --describe "
                  "dns=www.example.com -s CN=Alice alice.pem")
        self.done("request make -k other.pem -s CN=Alice alice.req")
        self.done("crl make -k key.pem --issuer ca.pem --revoke 0x0A3F,2026-01-02,keyCompromise revoked.crl")
        self.done("crl make -k key.pem --issuer ca.pem empty.crl")
        self.done("cms sign in.bin -k other.pem --cert alice.pem --extra-cert ca.pem --signing-time -o in.p7m")
        self.done("cms encrypt in.bin --to alice.pem -o secret.p7m")
        self.done("mail sign in.bin -k other.pem --cert alice.pem --from alice@example.com -o in.eml")
        write("bob.eml", read("in.eml").replace(b"alice@", b"bob@"))
        self.done("pfx make alice.pem other.pem -o alice.p12 --name", "M\u00fcller", *PW)
        self.done("ca init pki --no-password --name O=Example")
        self.done("ca issue pki --dns a.example --no-password -o a")
        self.done("ca revoke pki a.pem --reason superseded")
        for name, flag in (("good", "V\t450101000000Z\t"), ("bad", "R\t450101000000Z\t260102030405Z")):
            write("index", f"{flag}\t0A3F\tx\t/CN=a\n".encode())
            openssl("ocsp -no_nonce -issuer ca.pem -cert alice.pem -reqout request")
            openssl("ocsp -index index -CA ca.pem -ndays 1 -reqin request -rkey key.pem -rsigner ca.pem -respout", name + ".resp")
        os.remove("index")
        self.done("ca issue pki --dns b.example --no-password -o issued")
        openssl("pkcs12 -export -nomac -in alice.pem -inkey other.pem -out bare.p12 -passout file:pw")

    # command: a list of [its arguments, status, what the document holds]
    RUNS = {
        "hash": [["sha256 in.bin -", 0, {"algorithm": "sha256", "files": [{"file": "in.bin", "digest": SHA256},
                                                                          {"file": "-", "digest": hashlib.sha256().hexdigest()}]}],
                 ["sha1 in.bin missing", 1, {"files": [{"file": "in.bin", "digest": SHA1},
                                                       {"file": "missing", "error": {"code": 1, "name": "OPEN_ERROR", "subject": "missing"}}]}],
                 ["sha1 -r pki/issued", 0, {"files": [{"file": re.compile("^pki/issued/[0-9a-f]+.pem$")}] * 3}],
                 ["--check list", 1, no(21, "NO_MATCH_ERROR", good=1, failed=1, unreadable=1, missing=0, badLines=1, files=[
                     {"file": "in.bin", "status": "good", "algorithm": "sha1"}, {"file": "pw", "status": "failed"},
                     {"file": "gone", "status": "unreadable"}], warnings=["list: 1 of 4 lines hold no digest, or one of another algorithm: line 3"])],
                 ["sha1 --check list --ignore-missing", 1, no(21, "NO_MATCH_ERROR", missing=1)], ["sha1 --check good -q", 0, {"valid": True, "files": []}],
                 ["sha1 --check nowhere", 1, no(1, "OPEN_ERROR")]],
        "hmac": [["md5 --key-file pw in.bin", 0, {"algorithm": "md5", "file": "in.bin", "hmac": hmac.new(b"pw\n", CONTENT, "md5").hexdigest()}]],
        "identity": [["--recipient my.key", 0, {"file": "my.key", "recipient": re.compile("^age1[0-9a-z]{58}$")}],
                     ["new.key", 0, {"file": "new.key", "recipient": re.compile("^age1")}]],
        "wrap": [["-a aes128 --kek 000102030405060708090A0B0C0D0E0F --data 00112233445566778899AABBCCDDEEFF", 0,
                  {"key": "1fa68b0a8112b447aef34bd8fb5a7b829d3e862371d2cfe5"}]],  # RFC 3394, 4.1
        "unwrap": [["-a aes128 --kek 000102030405060708090A0B0C0D0E0F --data 1fa68b0a8112b447aef34bd8fb5a7b829d3e862371d2cfe5", 0,
                    {"key": "00112233445566778899aabbccddeeff"}]],
        "key show": [["key.pem", 0, {"isPrivate": True, "type": "rsa", "bits": 1024, "exponent": 65537, "public": re.compile("^<RSAKeyValue><Modulus>")}],
                     ["--private key.pem", 0, {"private": re.compile("<InverseQ>")}],
                     ["ed.pub", 0, {"isPrivate": False, "type": "ed25519"}]],
        "key match": [["key.pem ca.pem", 0, {"valid": True, "privateKey": "key.pem", "publicKey": "ca.pem"}],
                      ["key.pem alice.pem", 1, no(21, "NO_MATCH_ERROR")], ["ca.pem key.pem", 1, no(7, "BAD_FORMAT_ERROR")]],
        "key check": [["key.pem", 0, {"valid": True, "type": "rsa", "isPrivate": True}], ["in.bin", 1, no(7, "BAD_FORMAT_ERROR")]],
        "verify": [["-k ca.pem in.bin in.sig", 0, {"valid": True, "file": "in.bin", "signature": "in.sig", "key": "ca.pem", "algorithm": "rsa-sha256"}],
                   ["-k alice.pem in.bin in.sig", 1, no(22, "SIGNATURE_ERROR", algorithm="rsa-sha256")],
                   ["-k ca.pem missing in.sig", 1, no(1, "OPEN_ERROR")]],
        "agree": [["-k x.pem --password-file pw x.pub", 0, {"key": re.compile("^[0-9a-f]{64}$")}]],
        "kdf pbkdf2": [[KDF + " --iterations 2", 0, {"key": hashlib.pbkdf2_hmac("sha256", b"pw", b"\0", 2, 5).hex()}]],
        "kdf scrypt": [[KDF + " -N 2 -r 1", 0, {"key": hashlib.scrypt(b"pw", salt=b"\0", n=2, r=1, p=1, dklen=5).hex()}]],
        "kdf argon2id": [[KDF.replace("00", "0001020304050607") + " -m 8 -t 1 -p 1", 0, {"key": re.compile("^[0-9a-f]{10}$")}]],
        "kdf hkdf": [["--key 0b0b --salt 00 --length 5", 0, {"key": re.compile("^[0-9a-f]{10}$")}]],
        "ca init": [["new --no-password --name O=New --years 3", 0, {"folder": "new", "certificate": "new/root.cer", "rootYears": 20, "years": 3}]],
        "ca crl": [["pki --root", 0, {"crl": "pki/root.crl"}]],
        "ca list": [["pki", 0, {"folder": "pki", "certificates": [
            {"status": "valid", "profile": "ca", "issuer": "root"},
            {"status": "revoked", "reason": "superseded", "revokedOn": re.compile(r"^\d{4}-\d\d-\d\d$"), "names": "dNSName:a.example", "subject": "CN=a.example"},
            {"status": "valid", "notAfter": re.compile(r"^\d{4}-\d\d-\d\dT")}]}]],
        "ca issue": [["pki --dns c.example --no-password -o c", 0, {"profile": "server", "certificate": "c.pem", "chain": "c-chain.pem", "key": "c.key"}],
                     ["pki --dns c.example --public-key key.pem -o d", 0, {"certificate": "d.pem"}]],
        "ca revoke": [["pki issued.pem", 0, {"crl": "pki/ca.crl"}]],
        "cert show": [["alice.pem", 0, {"objects": [{"kind": "Certificate", "serialNumber": "0a3f"}]}]],
        "request show": [["alice.req", 0, {"objects": [{"kind": "CertificationRequest"}]}]],
        "crl show": [["revoked.crl", 0, {"objects": [{"kind": "CertificateList"}]}]],
        "cert query": [["alice.pem serialNumber email isCA dns caIssuers", 0, {"file": "alice.pem", "values": {
            "serialNumber": "0a3f", "email": ["alice@example.com"], "isCA": "0", "dns": ["www.example.com"], "caIssuers": []}}],
            ["revoked.crl", 0, {"values": {"kind": "crl", "revokedCount": "1"}}]],
        "cert check-name": [["alice.pem www.example.com", 0, {"valid": True, "file": "alice.pem", "name": "www.example.com"}],
                            ["alice.pem example.com", 1, no(21, "NO_MATCH_ERROR")]],
        "cert verify": [["alice.pem --issuer ca.pem", 0, {"valid": True, "issuer": "ca.pem"}], ["ca.pem --issuer alice.pem", 1, no(22, "SIGNATURE_ERROR")]],
        "cert path": [["alice.pem --trusted ca.pem", 0, {"valid": True, "objects": [{"kind": "CertificationPath", "result": "valid"}]}],
                      ["alice.pem --trusted ca.pem --crl revoked.crl", 1, no(36, "BAD_KEY_ERROR", objects=[{"result": "refused", "code": 36}])],
                      ["alice.pem --trusted missing", 1, no(1, "OPEN_ERROR")]],
        "cert thumb": [["alice.pem -d sha1", 0, {"algorithm": "sha1", "thumbprint": re.compile("^[0-9a-f]{40}$")}]],
        "crl check": [["alice.pem --crl empty.crl --issuer ca.pem", 0, {"valid": True, "isRevoked": False, "isSignatureChecked": True}],
                      ["alice.pem --crl revoked.crl", 1, no(36, "BAD_KEY_ERROR", isRevoked=True, isSignatureChecked=False)],
                      ["alice.pem --crl revoked.crl --issuer alice.pem", 1, no(22, "SIGNATURE_ERROR")]],
        "cms show": [["in.p7m", 0, {"kind": "signed message", "countOfCerts": 2, "hasEContent": 1, "signer": {"digestAlgorithm": "sha256"},
                                    "certificates": [{"subjectName": "CN=Alice"}, {"subjectName": "CN=Root"}]}],
                     ["secret.p7m", 0, {"kind": "enveloped message", "countOfRecipients": 1, "recipient": {"recipientSerialNumber": "0a3f"}}]],
        "cms verify": [["in.p7m --trusted ca.pem -o out.bin", 0, {"valid": True, "trust": "path", "content": "out.bin", "isRevocationChecked": False,
                                                                "signers": [{"subjectName": "CN=Alice", "serialNumber": "0a3f"}]}],
                       ["in.p7m", 0, {"valid": True, "trust": "none", "signingTime": re.compile(r"^\d{4}-")}],
                       ["in.p7m --cert alice.pem", 0, {"trust": "certificate"}], ["in.p7m --cert alice.pem -o alice.pem", 1, no(6, "BAD_PARAM_ERROR")],
                       ["in.p7m --trusted ca.pem --time 2045-01-01", 1, no(16, "EXPIRED_ERROR")], ["secret.p7m", 1, {"valid": False}]],
        "mail verify": [["in.eml --trusted ca.pem -o out.eml", 0, {"valid": True, "trust": "path", "from": ["alice@example.com"], "isFromCompared": True,
                                                                   "isDetached": True, "content": "out.eml", "signers": [{"subjectName": "CN=Alice"}]}],
                        ["in.eml -o in.eml", 1, no(6, "BAD_PARAM_ERROR")], ["bob.eml --from-any", 0, {"valid": True, "trust": "none", "isFromCompared": False}],
                        ["bob.eml --trusted ca.pem", 1, no(21, "NO_MATCH_ERROR", trust="path")], ["in.bin", 1, {"valid": False}]],
        "cms certs list": [["in.p7m", 0, {"certificates": [{"number": 1, "subjectName": "CN=Alice"}, {"number": 2, "subjectName": "CN=Root"}]}]],
        "pfx list": [["alice.p12 --password-file pw", 0, {"mac": {"verified": True}, "entries": [{"kind": "certificate", "name": "M\u00fcller", "key": 2}, {"kind": "key"}]}],
                     ["alice.p12 --no-password", 0, {"mac": {"verified": False}, "entries": [{"kind": "key"}]}],
                     ["bare.p12 --password-file pw", 0, {"warnings": [re.compile("MAC")]}]],
        "pfx verify": [["alice.p12 --password-file pw", 0, {"valid": True, "file": "alice.p12"}], ["alice.p12 --password-file ed.pub", 1, no(22, "SIGNATURE_ERROR", file="alice.p12")]],
        "ocsp request": [["--issuer ca.pem alice.pem", 0, {"digest": "sha1", "file": "alice.pem", "request": re.compile("^MEM")}],
                         ["--issuer ca.pem --serial 0xF00D -d sha256 -o out.req", 0, {"serialNumber": "f00d", "digest": "sha256", "output": "out.req"}]],
        "ocsp read": [["good.resp --issuer ca.pem", 0, {"valid": True, "signer": "ca.pem", "objects": [{"kind": "OCSPResponse"}]}],
                      ["bad.resp --issuer ca.pem --cert alice.pem", 1, no(36, "BAD_KEY_ERROR", objects=[{"responses": [{"certStatus": "revoked"}]}])],
                      ["good.resp --issuer alice.pem", 1, no(22, "SIGNATURE_ERROR")]],
        "der": [["der.bin", 0, {"elements": [
            {"level": 0, "offset": 0, "header": "3080", "isConstructed": True, "length": None},
            {"level": 1, "offset": 2, "header": "0402", "isConstructed": False, "length": 2, "content": "6162"},
            {"level": 1, "offset": 6, "header": "0000", "length": 0, "content": ""}]}]],
        "random": [["--number 7 7", 0, {"number": 7}], ["3 --hex", 0, {"bytes": re.compile("^[0-9a-f]{6}$")}], ["--test", 0, {"passed": True}]],
        "wipe": [["gone pw", 1, {"files": [{"file": "gone", "wiped": False, "error": {"code": 1}}, {"file": "pw", "wiped": True}]}]],
        "error": [["-22", 0, {"errors": [{"code": 22, "name": "SIGNATURE_ERROR", "text": "Signature is invalid or missing"}]}], ["", 0, {}]],
        "doctor": [["", 0, {"passed": True, "zulcore": "3.6.0"}], ["--speed", 0, {"passed": True}]],
        "version": [["", 0, {"zulcore": "3.6.0", "module": re.compile("zulcore")}]], }

    def run_one(self, command, arguments, status, expected):
        result = zul(*command.split(), *arguments.split(), *([] if "--json" in arguments else ["--json"]))
        label = (command, arguments, result.stdout, result.stderr)
        self.assertEqual(result.returncode, status, label)
        self.assertTrue(result.stdout.endswith(b"}\n") and result.stdout.count(b"\n") == 1, label)
        document = json.loads(result.stdout)
        validate(command, document)
        self.assertTrue(holds(document, expected), label)
        for text in document.get("warnings", []):
            self.assertIn(f"zul: warning: {text}\n".encode(), result.stderr.replace(b"\r", b""))
        if "error" in document and not document.get("isRevoked"):
            error = document["error"]
            self.assertIn(f"zul: {error['subject']}: error {error['code']}: {error['text']}\n".encode(), result.stderr.replace(b"\r", b""))

    def test_documents(self):
        write("der.bin", b"\x30\x80\x04\x02ab\0\0")
        write("list", f"SHA1 (in.bin) = {SHA1}\n{SHA1}  pw\nwords\n{SHA1}  gone\n".encode())
        write("good", f"{SHA1}  in.bin\n".encode())
        for command, runs in self.RUNS.items():
            for run in runs:
                with self.subTest(f"{command} {run[0]}"):
                    self.run_one(command, *run)

    def test_every_command_has_a_schema(self):
        """What --help lists with --json, the schemas, the runs above and the page of examples agree."""
        if len(TOOL) > 1:
            self.skipTest("the help is the same on all systems")
        with_json = {" ".join(name) for name in commands(self) if re.search(r"(?m)^  --json ", self.done(*name, "--help").decode())}
        self.assertLessEqual(set(self.RUNS), with_json)
        self.assertEqual({command.replace(" ", "-") + ".schema.json" for command in with_json}, set(SCHEMAS) - {SHARED})
        shown = re.findall(r"(?m)^## zul (.+)$", PAGE)
        self.assertEqual(shown, sorted(shown))
        self.assertEqual(set(shown), with_json)

    def test_schemas(self):
        for name, schema in SCHEMAS.items():
            jsonschema.Draft202012Validator.check_schema(schema)
            self.assertEqual(schema["$id"], name)

    def test_the_page_of_examples(self):
        """A section shows a command in words and its document."""
        for section in PAGE.split("\n## zul ")[1:]:
            command = section.splitlines()[0]
            documents = re.findall(r"(?ms)^```json\n(.*?)^```$", section)
            self.assertTrue(documents, command)
            for document in documents:
                validate(command, json.loads(document))

    def test_names_and_texts(self):
        write("\u0142\u20ac \U0001F600", b"")
        names = ["\u0142\u20ac \U0001F600"]
        if len(TOOL) == 1:
            names += ["\"\\\n\t\x1b\x7f", "\u0085\u2028\u202e", "\ud7ff\ue000\U0010ffff"]
            raw = {b"\xff a": "\ufffd a", b"\xc3": "\ufffd", b"\xe2\x82": "\ufffd\ufffd", b"\xc0\xaf": "\ufffd\ufffd", b"\xed\xa0\x80": "\ufffd" * 3,
                   b"\xf4\x90\x80\x80": "\ufffd" * 4, b"\xf0\x8f\xbf\xbf": "\ufffd" * 4, b"\xe0\x9f\xbf": "\ufffd" * 3}
            for name, shown in raw.items():
                write(os.fsdecode(name), b"")
                self.assertEqual(json.loads(self.done("hash md5 --json", name))["files"][0]["file"], shown)
        for name in names:
            write(name, b"")
            made = self.done("hash md5 --json", name)
            self.assertEqual(json.loads(made)["files"][0]["file"], name)
            self.assertNotRegex(made.decode(), "[\x00-\x09\x0b-\x1f\x7f-\x9f\u2028]")

    def test_wrong_arguments(self):
        for words, says in (("random 16 --json", "goes with --hex"), ("random 16 out --hex --json", "goes with --hex"), ("random 16777217 --hex --json", "at most"),
                            ("kdf pbkdf2 out --salt 00 --password-file pw --json", "leave out OUT"), ("identity --json", "needs FILE"),
                            ("wrap -a aes128 --kek 000102030405060708090A0B0C0D0E0F --data 0011223344556677 -o out --json", "leave out --out"),
                            ("cms verify in.p7m -o - --json", "exclude each other"), ("encode hex in.bin - --json", "unknown option --json")):
            self.wrong_usage(says, *words.split())


if __name__ == "__main__":
    main()
