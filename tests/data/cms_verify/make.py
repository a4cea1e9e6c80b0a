#!/usr/bin/env python3
"""Makes certificates.txt and messages.txt: signed messages of openssl 3.0.22 ("openssl ..."), and messages put
together here that it would not make, with what is to be found out about each. The keys are thrown away."""
import base64
import hashlib
import pathlib
import subprocess
import tempfile
import types

HERE = pathlib.Path(__file__).resolve().parent
TEMP = tempfile.TemporaryDirectory()
FORMAT, DATA, UNSUPPORTED, EMPTY, NO_MATCH, SIGNATURE = 7, 8, 19, 20, 21, 22


def run(command, data=b""):
    return subprocess.run(command, shell=True, cwd=TEMP.name, input=data, check=True, capture_output=True).stdout


# --- DER ---

def tlv(tag, *parts):
    content = b"".join(parts)
    size = len(content)
    octets = size.to_bytes((size.bit_length() + 7) // 8, "big")
    return bytes([tag]) + (bytes([size]) if size < 128 else bytes([0x80 | len(octets)]) + octets) + content


def ber(tag, *parts):
    return bytes([tag, 0x80]) + b"".join(parts) + b"\0\0"


def seq(*parts):
    return tlv(0x30, *parts)


def octets(content):
    return tlv(4, content)


def oid(dotted):
    first, second, *arcs = map(int, dotted.split("."))
    out = b""
    for arc in [40 * first + second] + arcs:
        part = [arc & 0x7F]
        while arc := arc >> 7:
            part.insert(0, 0x80 | arc & 0x7F)
        out += bytes(part)
    return tlv(6, out)


def parts(encoding):
    """The elements that follow each other, each as (tag, whole, content)."""
    found = []
    while encoding:
        head, size = 2, encoding[1]
        if size & 0x80:
            head += size & 0x7F
            size = int.from_bytes(encoding[2:head], "big")
        found.append((encoding[0], encoding[:head + size], encoding[head:head + size]))
        encoding = encoding[head + size:]
    return found


NULL = b"\5\0"
DIGESTS = {"md2": "1.2.840.113549.2.2", "md5": "1.2.840.113549.2.5", "sha1": "1.3.14.3.2.26",
           "sha224": "2.16.840.1.101.3.4.2.4", "sha256": "2.16.840.1.101.3.4.2.1",
           "sha384": "2.16.840.1.101.3.4.2.2", "sha512": "2.16.840.1.101.3.4.2.3"}
PKCS1, PKCS7, PKCS9 = "1.2.840.113549.1.1.", "1.2.840.113549.1.7.", "1.2.840.113549.1.9."
DATA_TYPE = oid(PKCS7 + "1")


def algorithm(dotted, parameters=NULL):
    return seq(oid(dotted), parameters)


def digest_of(data, name="sha256"):
    if name == "md2":
        assert data == b"abc"  # of RFC 1319, A.5
        return bytes.fromhex("da853b0d3f88d99b30283a69e6ded6bb")
    return hashlib.new(name, data).digest()


# --- signers ---

class Identity:
    def __init__(self, name, kind="rsa:1024", serial=1, subject=None):
        self.name = name
        run(f"openssl req -x509 -newkey {kind} -nodes -config req.cnf -keyout {name}.key -subj /CN={subject or name} "
            f"-set_serial {serial} -days 3650 -sha256 -out {name}.pem")
        self.certificate = run(f"openssl x509 -in {name}.pem -outform DER")
        tbs = parts(parts(parts(self.certificate)[0][2])[0][2])
        self.id = seq(tbs[3][1], tbs[1][1])  # issuer and serial number
        if kind.startswith("rsa"):
            key = [int.from_bytes(v, "big") for _, _, v in
                   parts(parts(run(f"openssl rsa -in {name}.key -traditional -outform DER"))[0][2])]
            self.n, self.d = key[1], key[3]

    def sign_block(self, block):
        assert len(block) == 128
        return pow(int.from_bytes(block, "big"), self.d, self.n).to_bytes(128, "big")

    def sign(self, data, name="sha256"):
        return self.sign_block(block_of(digest_info(digest_of(data, name), name)))


def digest_info(digest, name="sha256", parameters=NULL):
    return seq(algorithm(DIGESTS[name], parameters), octets(digest))


def block_of(info, tail=b"", kind=b"\1"):
    return b"\0" + kind + b"\xff" * (125 - len(info) - len(tail)) + b"\0" + info + tail


def attribute(kind, *values):
    return seq(oid(PKCS9 + kind), tlv(0x31, *values))


TYPE = attribute("3", DATA_TYPE)


def message_digest(data=b"abc", name="sha256"):
    return attribute("4", octets(digest_of(data, name)))


def signer(identity, attributes=None, signed=None, name="sha256", signature=None, who=None, kind=PKCS1 + "1",
           digest=None, tag=0xA0, tail=b"", make=tlv):
    """attributes: as they are written; signed: what is signed instead of them as SET or instead of the content."""
    if signed is None:
        signed = tlv(0x31, *attributes) if attributes is not None else b"abc"
    return seq(b"\2\1\1", who or identity.id, digest or algorithm(DIGESTS[name]),
               make(tag, *attributes) if attributes is not None else b"",
               algorithm(kind), octets(signature if signature is not None else identity.sign(signed, name)), tail)


def message(*signers, content=octets(b"abc"), certificates=(), version=1, kind=DATA_TYPE, more=b"", make=tlv):
    encapsulated = make(0x30, kind, make(0xA0, content) if content is not None else b"", more)
    bag = make(0xA0, *[c.certificate for c in certificates]) if certificates else b""
    return make(0x30, oid(PKCS7 + "2"), make(0xA0, make(
        0x30, tlv(2, bytes([version])), tlv(0x31, algorithm(DIGESTS["sha256"])), encapsulated, bag,
        make(0x31, *signers))))


# --- cases ---

RECORDS = []
ABC = digest_of(b"abc")


def case(name, encoding, cert=None, result=0, text=None, given=None, digest=ABC, digest_result=None):
    """digest: what is recovered, or None if that gives digest_result or, without one, the result, too."""
    lines = [f"Name = {name}", f"Message = {base64.b64encode(encoding).decode()}"]
    lines += [f"Cert = {cert.name}"] if cert else []
    lines += [f"Given = {given.hex()}"] if given is not None else []
    lines += [f"Result = {result}"]
    lines += [f"Text = {text}"] if text else []
    lines += [f"Digest = {digest.hex()}"] if digest is not None else [f"DigestResult = {digest_result or result}"]
    RECORDS.append("\n".join(lines) + "\n")


def made_by_openssl(arguments, who, content=b"abc"):
    return run(f"openssl cms -sign -binary -outform DER -signer {who.name}.pem -inkey {who.name}.key {arguments}",
               content)


NO_MATCH_TEXT = "No match found between certificate and signer"
GIVEN_TEXT = "WARNING: cert does not match signerInfo; " + NO_MATCH_TEXT
NOT_VERIFIED, DIFFERENT = "Signature did not verify", "Message digests do not match"
CONTENT_TYPE = "contentType attribute differs from eContentType"


def openssl_cases(alice, dsa):
    for name in ("md5", "sha1", "sha224", "sha256", "sha384", "sha512"):
        case(f"openssl {name}", made_by_openssl(f"-md {name} -nodetach -nocerts -nosmimecap", alice), alice,
             digest=digest_of(b"abc", name))
    case("openssl without attributes", made_by_openssl("-md sha512 -noattr -nodetach", alice),
         digest=digest_of(b"abc", "sha512"))
    case("openssl segments", made_by_openssl("-nodetach -stream -nocerts", alice), alice)
    case("openssl key identifier", made_by_openssl("-keyid -nodetach -nocerts", alice), alice, UNSUPPORTED,
         "SignedData version is 3: only 1 is supported", digest=None)
    case("openssl PSS", made_by_openssl("-nodetach -nocerts -keyopt rsa_padding_mode:pss", alice), alice, UNSUPPORTED,
         "Unsupported signature algorithm 1.2.840.113549.1.1.10", digest=None)
    case("openssl DSA", made_by_openssl("-md sha1 -nodetach -nocerts -nosmimecap", dsa), dsa,
         digest=digest_of(b"abc", "sha1"))
    case("openssl DSA without attributes", made_by_openssl("-md sha1 -noattr -nodetach -nocerts", dsa), dsa,
         digest=None, digest_result=UNSUPPORTED)
    case("openssl DSA, other content", made_by_openssl("-md sha1 -noattr -nocerts", dsa), dsa, SIGNATURE, DIFFERENT,
         given=digest_of(b"abd", "sha1"), digest=None, digest_result=UNSUPPORTED)
    case("openssl DSA, longer digest", made_by_openssl("-md sha1 -noattr -nocerts", dsa), dsa, SIGNATURE, DIFFERENT,
         given=bytes(8) + digest_of(b"abc", "sha1"), digest=None, digest_result=UNSUPPORTED)
    case("openssl DSA with SHA-256", made_by_openssl("-md sha256 -nodetach -nocerts -nosmimecap", dsa), dsa,
         UNSUPPORTED, "Unsupported signature algorithm 2.16.840.1.101.3.4.3.2", digest=None)


def content_cases(alice):
    attributes = [TYPE, message_digest()]
    case("plain", message(signer(alice, attributes), certificates=[alice]))
    case("MD2", message(signer(alice, name="md2")), alice, digest=digest_of(b"abc", "md2"))
    case("detached, no digest", message(signer(alice), content=None), alice, EMPTY,
         "No content found in SignedData object")
    case("detached", message(signer(alice, attributes), content=None), alice, given=ABC)
    case("detached, other digest", message(signer(alice, attributes), content=None), alice, SIGNATURE, DIFFERENT,
         given=digest_of(b"abd"))
    case("detached, digest of another length", message(signer(alice), content=None), alice, SIGNATURE, DIFFERENT,
         given=ABC[:31])
    case("content and digest", message(signer(alice)), alice, given=ABC)
    case("content and other digest", message(signer(alice)), alice, SIGNATURE, DIFFERENT, given=digest_of(b"abd"))
    case("digest and other content", message(signer(alice), content=octets(b"abd")), alice, SIGNATURE, DIFFERENT,
         given=ABC)
    case("other content", message(signer(alice), content=octets(b"abd")), alice, SIGNATURE, DIFFERENT)
    case("other content, attributes", message(signer(alice, attributes), content=octets(b"abd")), alice, SIGNATURE,
         DIFFERENT)
    case("empty content", message(signer(alice, signed=b""), content=octets(b"")), alice, digest=digest_of(b""))
    case("empty content, digest of another", message(signer(alice), content=octets(b"")), alice, SIGNATURE, DIFFERENT,
         given=ABC)
    case("all indefinite", message(signer(alice, attributes), certificates=[alice], make=ber,
                                   content=ber(0x24, octets(b"a"), ber(0x24, octets(b"b")), octets(b"c"))))
    case("attributes as content", message(signer(alice, signed=tlv(0x31, *attributes)),
                                          content=octets(tlv(0x31, *attributes))), alice, SIGNATURE,
         "The content is a set of signed attributes", digest=digest_of(tlv(0x31, *attributes)))
    case("set as content", message(signer(alice, signed=tlv(0x31, TYPE)), content=octets(tlv(0x31, TYPE))), alice,
         digest=digest_of(tlv(0x31, TYPE)))
    case("two contents", message(signer(alice), more=tlv(0xA0, octets(b"abd"))), alice, DATA, "*", digest=None)
    case("two strings", message(signer(alice), content=octets(b"abc") + octets(b"abd")), alice, DATA, "*", digest=None)
    case("other type", message(signer(alice), kind=oid("1.2.3.4")), alice, DATA,
         "Invalid SignedData: contentType must be 'data'", digest=None)


def attribute_cases(alice):
    missing = "No messageDigest in the signed attributes"
    invalid = "Invalid messageDigest in the signed attributes"
    digest = message_digest()
    for name, attributes, result, text, found in (
            ("no contentType", [digest], 0, None, ABC),
            ("no messageDigest", [TYPE], DATA, missing, None),
            ("no attributes at all", [], DATA, missing, None),
            ("no digest in messageDigest", [TYPE, attribute("4")], DATA, missing, None),
            ("messageDigest twice", [TYPE, message_digest(b"abd"), digest], DATA, invalid, None),
            ("messageDigest twice, once empty", [TYPE, digest, attribute("4")], DATA, invalid, None),
            ("two digests", [TYPE, attribute("4", octets(ABC), octets(ABC))], DATA, invalid, None),
            ("messageDigest is no string", [TYPE, attribute("4", tlv(12, ABC))], DATA, invalid, None),
            ("short messageDigest", [TYPE, attribute("4", octets(ABC[:31]))], SIGNATURE, DIFFERENT, None),
            ("empty messageDigest", [TYPE, attribute("4", octets(b""))], SIGNATURE, DIFFERENT, None),
            ("long messageDigest", [TYPE, attribute("4", octets(ABC + b"\0"))], SIGNATURE, DIFFERENT, None),
            ("other contentType", [attribute("3", oid(PKCS7 + "2")), digest], SIGNATURE, CONTENT_TYPE, None),
            ("contentType is no OID", [attribute("3", octets(b"*")), digest], SIGNATURE, CONTENT_TYPE, None),
            ("contentType twice", [TYPE, TYPE, digest], DATA, "Invalid contentType in the signed attributes", None),
    ):
        case(name, message(signer(alice, attributes)), alice, result, text, digest=found)
    backwards = [digest, TYPE]
    case("out of order", message(signer(alice, backwards)), alice)
    case("put out of order", message(signer(alice, backwards, signed=tlv(0x31, TYPE, digest))), alice)
    case("indefinite attributes", message(signer(alice, [TYPE, digest], make=ber)), alice)
    long_form = b"\x30\x81" + bytes([len(TYPE) - 2]) + TYPE[2:]
    case("long lengths in attributes", message(signer(alice, [long_form, digest], signed=tlv(0x31, TYPE, digest))),
         alice)
    case("content signed in spite of attributes", message(signer(alice, [TYPE, digest], signed=b"abc")), alice,
         SIGNATURE, NOT_VERIFIED, digest=None)
    case("attributes signed with their tag", message(signer(alice, [TYPE, digest], signed=tlv(0xA0, TYPE, digest))),
         alice, SIGNATURE, NOT_VERIFIED, digest=None)
    hidden = b"\x31" + TYPE[1:]  # from readers of sequences, who would not find it
    case("attribute as a set", message(signer(alice, [hidden, digest], signed=tlv(0x31, TYPE, digest))), alice,
         SIGNATURE, NOT_VERIFIED, digest=None)
    with_long_tag = lambda _, *parts: b"\xbf\0" + tlv(0, *parts)[1:]  # as SET it would begin with 31 00
    case("attributes with a long tag", message(signer(alice, [TYPE, digest], signed=b"\x31" + with_long_tag(
        0, TYPE, digest)[1:], make=with_long_tag)), alice, SIGNATURE, NOT_VERIFIED, digest=None)
    case("attributes not signed", message(signer(alice, tail=tlv(0xA1, TYPE, message_digest(b"abd")))), alice)
    case("attributes not signed bind nothing", message(signer(alice, tail=tlv(0xA1, TYPE, message_digest(b"abd"))),
                                                       content=octets(b"abd")), alice, SIGNATURE, DIFFERENT)


def signature_cases(alice, dsa):
    info = digest_info(ABC)
    good = alice.sign(b"abc")
    for name, signature in (
            ("too short", good[:-1]), ("leading zero", b"\0" + good), ("trailing zero", good + b"\0"), ("empty", b""),
            ("modulus", alice.n.to_bytes(128, "big")), ("all ones", b"\xff" * 128), ("zero", bytes(128)),
            ("garbage behind", alice.sign_block(b"\0\1" + b"\xff" * 8 + b"\0" + info + b"\xaa" * (117 - len(info)))),
            ("one octet behind", alice.sign_block(block_of(info, b"\0"))),
            ("garbage in parameters", alice.sign_block(block_of(digest_info(ABC, parameters=octets(b"x" * 40))))),
            ("no NULL", alice.sign_block(block_of(digest_info(ABC, parameters=b"")))),
            ("other digest's name", alice.sign_block(block_of(digest_info(ABC, "sha384")))),
            ("short digest", alice.sign_block(block_of(digest_info(ABC[:31])))),
            ("bare digest", alice.sign_block(block_of(ABC))),
            ("block type 2", alice.sign_block(block_of(info, kind=b"\2"))),
            ("first octet 1", alice.sign_block(b"\1" + block_of(info)[1:])),
            ("padding with a hole", alice.sign_block(block_of(info).replace(b"\xff\xff", b"\xff\xfe", 1)))):
        case(f"signature: {name}", message(signer(alice, signature=signature)), alice, SIGNATURE, NOT_VERIFIED,
             digest=None)
    sha1 = digest_of(b"abc", "sha1")
    case("DigestInfo of another digest", message(signer(alice, signature=alice.sign(b"abc", "sha1"))), alice,
         SIGNATURE, NOT_VERIFIED, digest=None)
    case("odd label", message(signer(alice, kind=PKCS1 + "4")), alice)
    case("old label", message(signer(alice, kind="1.3.14.3.2.29", name="sha1")), alice, digest=sha1)
    case("unknown digest", message(signer(alice, digest=algorithm("1.2.3"))), alice, UNSUPPORTED,
         "Invalid or unsupported digestAlgorithm", digest=None)
    case("unknown signature algorithm", message(signer(alice, kind="1.2.3")), alice, UNSUPPORTED,
         "Unsupported signature algorithm 1.2.3", digest=None)
    case("DSA with an RSA key", message(signer(alice, kind="1.2.840.10040.4.3", name="sha1")), alice, UNSUPPORTED,
         "Unexpected key algorithm rsaEncryption: require `dsa'", digest=None)
    case("DSA label with SHA-256", message(signer(alice, who=dsa.id, kind="1.2.840.10040.4.3")), dsa, UNSUPPORTED,
         "Unsupported signature algorithm dsaWithSha1", digest=None)
    case("RSA with a DSA key", message(signer(alice, who=dsa.id)), dsa, UNSUPPORTED,
         "Unsupported key algorithm 'dsa': require `rsaEncryption'", digest=None)
    for name, signature in (("zeros", seq(b"\2\1\0\2\1\0")), ("three numbers", seq(b"\2\1\1\2\1\1\2\1\1")),
                            ("nothing", b""), ("garbage behind", seq(b"\2\1\1\2\1\1") + b"\0")):
        case(f"DSA signature: {name}", message(signer(dsa, kind="1.2.840.10040.4.3", name="sha1",
                                                      signature=signature)), dsa, SIGNATURE, NOT_VERIFIED,
             digest=None)


def signer_cases(alice, bob, twin, other):
    by_key = tlv(0x80, bytes.fromhex("0102030405"))
    both = [signer(bob, signed=b"abd"), signer(alice)]
    case("no signers", message(certificates=[alice]), None, NO_MATCH, NO_MATCH_TEXT, digest=None)
    case("no signers, certificate", message(certificates=[alice]), alice, NO_MATCH, GIVEN_TEXT, digest=None)
    case("no certificates", message(signer(alice)), None, NO_MATCH, NO_MATCH_TEXT, digest=None)
    case("nobody's certificate", message(signer(alice), certificates=[alice]), bob, NO_MATCH, GIVEN_TEXT, digest=None)
    case("same name and number", message(signer(alice), certificates=[alice]), twin, SIGNATURE, NOT_VERIFIED,
         digest=None)
    case("forged certificate", message(signer(twin), certificates=[twin]), alice, SIGNATURE, NOT_VERIFIED, digest=None)
    case("key identifier", message(signer(alice, who=by_key)), alice)
    case("key identifier, version 3", message(signer(alice, who=by_key), version=3), alice, UNSUPPORTED,
         "SignedData version is 3: only 1 is supported", digest=None)
    case("certificate last", message(signer(alice), certificates=[bob, alice]))
    too_deep = types.SimpleNamespace(certificate=seq(b"\x30\x80" * 250 + b"\0\0" * 250))
    case("unreadable certificate", message(signer(alice, signature=bytes(128)), certificates=[too_deep, alice]), None,
         SIGNATURE, NOT_VERIFIED, digest=None)
    case("second signer's certificate", message(*both, certificates=[alice, twin, other]))
    case("first of two", message(*both, certificates=[alice, bob]), None, SIGNATURE, DIFFERENT,
         digest=digest_of(b"abd"))
    case("second of two", message(*both, certificates=[bob]), alice)


def main():
    (pathlib.Path(TEMP.name) / "req.cnf").write_text("[req]\ndistinguished_name = dn\nx509_extensions = v3\n[dn]\n"
                                                     "[v3]\nsubjectKeyIdentifier = 0102030405\n")
    run("openssl dsaparam -out dsa.par 1024")
    alice, bob = Identity("alice"), Identity("bob", serial=2)
    twin, dsa = Identity("twin", subject="alice"), Identity("dsa", "dsa:dsa.par")
    openssl_cases(alice, dsa)
    content_cases(alice)
    attribute_cases(alice)
    signature_cases(alice, dsa)
    signer_cases(alice, bob, twin, dsa)
    (HERE / "messages.txt").write_text("# Signed messages; made by make.py.\n\n" + "\n".join(RECORDS))
    (HERE / "certificates.txt").write_text("# Certificates of their signers; made by make.py.\n\n" + "\n".join(
        f"Name = {who.name}\nCertificate = {base64.b64encode(who.certificate).decode()}\n"
        for who in (alice, bob, twin, dsa)))


main()
