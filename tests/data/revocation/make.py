#!/usr/bin/env python3
"""Makes cases.txt: certificates, CRLs and OCSP responses, with new keys, and the status that RFC 5280, 6.3 and
RFC 6960 give the last certificate of each path. What no program writes is written here byte for byte.

Tools: python3-cryptography 48.0.0 for keys, signatures and the responses of its OCSPResponseBuilder.
"""
import base64
import datetime
import hashlib
import pathlib

from cryptography import x509
from cryptography.hazmat.primitives import hashes
from cryptography.hazmat.primitives.asymmetric import ec, ed25519
from cryptography.hazmat.primitives.serialization import Encoding, PublicFormat
from cryptography.x509 import ocsp as lib

HERE = pathlib.Path(__file__).resolve().parent
NOW = datetime.datetime.now(datetime.timezone.utc)  # which the library writes as producedAt
COMPROMISE, HOLD, REMOVE = 1, 6, 8
ED25519 = "1.3.101.112"


def tlv(tag, *parts):
    body = b"".join(parts)
    size = len(body)
    octets = (size.bit_length() + 7) // 8
    return bytes([tag]) + (bytes([size]) if size < 128 else bytes([128 + octets]) + size.to_bytes(octets, "big")) + body


def seq(*parts):
    return tlv(0x30, *parts)


def oid(text):
    first, second, *rest = map(int, text.split("."))
    out = bytearray()
    for number in [40 * first + second, *rest]:
        septets = [number & 127]
        while number := number >> 7:
            septets.append(number & 127 | 128)
        out += bytes(reversed(septets))
    return tlv(6, bytes(out))


def integer(number):
    return tlv(2, number.to_bytes(number.bit_length() // 8 + 1, "big", signed=True))


def bits(*numbers):
    flags = sum(1 << 15 - n for n in numbers)
    return tlv(3, bytes([0]) + flags.to_bytes(2, "big"))[2:]


def utc(day):
    return tlv(0x17, day.replace("-", "").encode()[2:] + b"000000Z")


def generalized(day):
    return tlv(0x18, day.replace("-", "").encode() + b"000000Z")


def rdn(text):
    return tlv(0x31, seq(oid("2.5.4.3"), tlv(0x13, text.encode())))


def name(*texts):
    return seq(*map(rdn, texts))


def directory(*texts):
    return tlv(0xA4, name(*texts))


def uri(text):
    return tlv(0x86, text.encode())


def extension(kind, value, critical=False):
    return seq(oid(kind), tlv(1, b"\xff") if critical else b"", tlv(4, value))


UNKNOWN = extension("1.2.3.4", tlv(5), critical=True)
KEYS = {}


def key(who):
    return KEYS.setdefault(who, ed25519.Ed25519PrivateKey.generate())


def spki(who):
    return key(who).public_key().public_bytes(Encoding.DER, PublicFormat.SubjectPublicKeyInfo)


def key_id(who):
    return hashlib.sha1(spki(who)[12:]).digest()


def signed(body, who):
    return seq(body, seq(oid(ED25519)), tlv(3, b"\0", key(who).sign(body)))


def cert(subject, issuer="CA", serial=5, by=None, keys=None, to="2030-01-01", extensions=()):
    """A certificate of the key `keys`, signed with the key `by`: by default those of subject and issuer."""
    exts = tlv(0xA3, seq(*extensions)) if extensions else b""
    return signed(seq(tlv(0xA0, integer(2)), integer(serial), seq(oid(ED25519)), name(issuer),
                      seq(utc("2020-01-01"), utc(to)), name(subject), spki(keys or subject), exts), by or issuer)


def usage(*numbers):
    return extension("2.5.29.15", tlv(3, bits(*numbers)))


def purpose(kind):
    return extension("2.5.29.37", seq(oid(kind)))


def point_name(full=(), relative=None):
    return tlv(0xA0, tlv(0xA1, rdn(relative)[2:]) if relative else tlv(0xA0, *full)) if full or relative else b""


def point(full=(), relative=None, reasons=None, issuer=()):
    return seq(point_name(full, relative), tlv(0x81, bits(*reasons)) if reasons else b"",
               tlv(0xA2, *issuer) if issuer else b"")


def leaf(*points, extensions=(), **more):
    points = [extension("2.5.29.31", seq(*points))] if points else []
    return cert("leaf", extensions=[*points, *extensions], **more)


def idp(full=(), relative=None, reasons=None, indirect=False):
    return extension("2.5.29.28", seq(point_name(full, relative), tlv(0x83, bits(*reasons)) if reasons else b"",
                                      tlv(0x84, b"\xff") if indirect else b""), critical=True)


def aki(who):
    return extension("2.5.29.35", seq(tlv(0x80, key_id(who))))


def entry(serial=5, reason=None, day="2026-04-01", extra=()):
    extensions = [*([extension("2.5.29.21", tlv(10, bytes([reason])))] if reason is not None else []), *extra]
    return seq(integer(serial), utc(day), seq(*extensions) if extensions else b"")


def crl(*entries, issuer="CA", by=None, this="2026-05-01", to="2026-07-01", number=None, base=None, extensions=(),
        version=2, inner=ED25519):
    exts = [*([extension("2.5.29.20", integer(number))] if number else []),
            *([extension("2.5.29.27", integer(base), critical=True)] if base else []), *extensions]
    return signed(seq(integer(1) if version == 2 else b"", seq(oid(inner)), name(issuer), utc(this),
                      utc(to) if to else b"", seq(*entries) if entries else b"",
                      tlv(0xA0, seq(*exts)) if exts else b""), by or issuer)


GOOD, UNKNOWN_STATUS = tlv(0x80), tlv(0x82)


def revoked(reason=None, day="2026-04-01"):
    return tlv(0xA1, generalized(day), tlv(0xA0, tlv(10, bytes([reason]))) if reason is not None else b"")


HASHES = {"sha1": "1.3.14.3.2.26", "sha256": "2.16.840.1.101.3.4.2.1", "md5": "1.2.840.113549.2.5"}


def single(status=GOOD, serial=5, issuer="CA", keys="CA", kind="sha1", this="2026-05-01", to="2026-07-01", extra=()):
    digest = lambda data: tlv(4, hashlib.new(kind, data).digest())
    return seq(seq(seq(oid(HASHES[kind])), digest(name(issuer)), digest(spki(keys)[12:]), integer(serial)), status,
               generalized(this), tlv(0xA0, generalized(to)) if to else b"", tlv(0xA1, seq(*extra)) if extra else b"")


def response(*singles, by="CA", responder=None, certs=(), produced="2026-05-01", extra=()):
    body = seq(tlv(0xA1, name(responder or by)), generalized(produced), seq(*singles),
               tlv(0xA1, seq(*extra)) if extra else b"")
    basic = seq(body, seq(oid(ED25519)), tlv(3, b"\0", key(by).sign(body)),
                tlv(0xA0, seq(*certs)) if certs else b"")
    return seq(tlv(10, b"\0"), tlv(0xA0, seq(oid("1.3.6.1.5.5.7.48.1.1"), tlv(4, basic))))


def library_certificates():
    """An anchor and a leaf of the library's own, with P-256: (keys, certificates, first and last day)."""
    keys = [ec.generate_private_key(ec.SECP256R1()) for _ in range(2)]
    names = [x509.Name([x509.NameAttribute(x509.NameOID.COMMON_NAME, text)]) for text in ("EC CA", "EC leaf")]
    when = [datetime.datetime(NOW.year + years, 1, 1) for years in (0, 1)]
    certs = [x509.CertificateBuilder().subject_name(names[n]).issuer_name(names[0]).serial_number(n + 1)
             .public_key(keys[n].public_key()).not_valid_before(when[0]).not_valid_after(when[1])
             .add_extension(x509.CRLDistributionPoints([LIBRARY_POINT]), False)
             .sign(keys[0], hashes.SHA256()) for n in range(2)]
    return keys[0], certs, when


LIBRARY_POINT = x509.DistributionPoint([x509.UniformResourceIdentifier("http://a.example")], None, None, None)


def library_response(algorithm, by_hash):
    key, certs, when = library_certificates()
    encoding = lib.OCSPResponderEncoding.HASH if by_hash else lib.OCSPResponderEncoding.NAME
    made = lib.OCSPResponseBuilder().add_response(certs[1], certs[0], algorithm, lib.OCSPCertStatus.GOOD, *when, None,
                                                  None).responder_id(encoding, certs[0])
    return certs, [made.sign(key, hashes.SHA256())]


def library_crls(*lists):
    """lists: (is the leaf listed, extensions)."""
    key, certs, when = library_certificates()
    crls = []
    for is_listed, *extensions in lists:
        builder = x509.CertificateRevocationListBuilder().issuer_name(certs[0].subject)
        builder = builder.last_update(when[0]).next_update(when[1])
        for each in extensions:
            builder = builder.add_extension(each, not isinstance(each, x509.CRLNumber))
        entry = x509.RevokedCertificateBuilder().serial_number(2).revocation_date(when[0])
        entry = entry.add_extension(x509.CRLReason(x509.ReasonFlags.key_compromise), False)
        issuer = x509.CertificateIssuer([x509.DirectoryName(certs[0].subject)])
        builder = builder.add_revoked_certificate(entry.add_extension(issuer, True).build()) if is_listed else builder
        crls.append(builder.sign(key, hashes.SHA256()))
    return certs, crls


def library_idp(*reasons, indirect=False, full=LIBRARY_POINT.full_name):
    return x509.IssuingDistributionPoint(full, None, False, False, frozenset(reasons) or None, indirect, False)


CA = cert("CA")
LEAF = leaf()
OCSP_SIGNING = purpose("1.3.6.1.5.5.7.3.9")
NO_CHECK = extension("1.3.6.1.5.5.7.48.1.5", tlv(5))
NONCE = extension("1.3.6.1.5.5.7.48.1.2", tlv(4, b"x" * 8), critical=True)
HTTP, LDAP = uri("http://a.example/1.crl"), uri("ldap://a.example/1")
AT_HTTP = extension("2.5.29.31", seq(point([HTTP])))
SIGNER = cert("S", serial=9)
BY_S = leaf(point(issuer=[directory("S")]))
LIST_OF_S = dict(issuer="S", extensions=[idp(indirect=True)])
OF_CA = [extension("2.5.29.29", seq(directory("CA")), critical=True)]


def delegate(*extensions, **more):
    return cert("R", extensions=extensions or [OCSP_SIGNING], **more)


def delegated(certificate):
    return response(single(), by="R", certs=[certificate])


NO_DATA, FORMAT, EXPIRED, NOT_SUPPORTED, SIGNATURE, ISSUER = 20, 7, 16, 19, 22, 25
# title, target, status ("revoked REASON", or the error code of an unknown one), evidence, other certificates, time
CASES = [
    # CRLs
    ("omitted", LEAF, "good", [crl()]),
    ("version 1", LEAF, "good", [crl(entry(6), version=1)]),
    ("listed in version 1", LEAF, "revoked -1", [crl(entry(6), entry(5), version=1)]),
    ("another serial number of the same digits", LEAF, "good", [crl(entry(5 << 8))]),
    ("hold, later revoked, in one list", LEAF, "revoked 1", [crl(entry(5, HOLD), entry(5, COMPROMISE))]),
    ("revoked, later hold, in one list", LEAF, "revoked 1", [crl(entry(5, COMPROMISE), entry(5, HOLD))]),
    ("removed, later hold, in one list", LEAF, "revoked 6", [crl(entry(5, REMOVE), entry(5, HOLD))]),
    ("removed, in a complete list", LEAF, "good", [crl(entry(5, REMOVE))]),
    ("no nextUpdate", LEAF, EXPIRED, [crl(to=None)]),
    ("listed without nextUpdate", LEAF, "revoked -1", [crl(entry(), to=None)]),
    ("AlgorithmIdentifiers differ", LEAF, SIGNATURE, [crl(inner="1.3.101.113")]),
    ("signed with another key", LEAF, SIGNATURE, [crl(by="S")]),
    ("listed, signed with another key", LEAF, "good", [crl(entry(), by="S"), crl()]),
    ("critical extension of an entry of another", LEAF, NOT_SUPPORTED, [crl(entry(6, extra=[UNKNOWN]))]),
    ("critical extension of its entry", LEAF, "revoked 1", [crl(entry(5, COMPROMISE, extra=[UNKNOWN]))]),
    ("critical extension of the list", LEAF, NOT_SUPPORTED, [crl(entry(), extensions=[UNKNOWN])]),
    ("malformed entry", LEAF, FORMAT, [crl(entry(6), seq(integer(7)))]),
    ("cannot be read", LEAF, FORMAT, [seq(seq(seq(oid("1.2")), name("CA"), utc("2026-05-01"), tlv(5)),
                                          seq(oid("1.2")), tlv(3, b"\0"))]),
    # Dates
    ("expired", LEAF, EXPIRED, [crl(to="2026-05-31")]),
    ("of a later time", LEAF, EXPIRED, [crl(this="2026-06-02")]),
    ("listed, expired", LEAF, "revoked 1", [crl(entry(5, COMPROMISE), to="2026-05-31")]),
    ("listed in an expired one, omitted later", LEAF, "revoked 1",
     [crl(entry(5, COMPROMISE), this="2026-04-01", to="2026-05-31"), crl()]),
    ("on hold, expired", LEAF, "revoked 6", [crl(entry(5, HOLD), to="2026-05-31")]),
    ("on hold once", LEAF, "good", [crl(entry(5, HOLD), this="2026-04-01", to="2026-05-31"), crl()]),
    ("on hold in the older of two", LEAF, "good", [crl(entry(5, HOLD), this="2026-04-01"), crl()]),
    ("on hold in the newer of two, which is expired", LEAF, "revoked 6",
     [crl(this="2026-04-01"), crl(entry(5, HOLD), to="2026-05-31")]),
    ("on hold in the older of two, by number", LEAF, "good", [crl(entry(5, HOLD), number=1), crl(number=2)]),
    ("on hold in the newer of two", LEAF, "revoked 6", [crl(this="2026-04-01"), crl(entry(5, HOLD))]),
    ("revoked after the time of the check", LEAF, "good", [crl(), crl(entry(day="2026-06-02"), this="2026-06-03")]),
    ("revoked before, told later", LEAF, "revoked -1", [crl(), crl(entry(day="2026-05-31"), this="2026-06-03")]),
    # Distribution points
    ("relative name in the list", leaf(point([directory("CA", "1")])), "good", [crl(extensions=[idp(relative="1")])]),
    ("relative name in the point", leaf(point(relative="1")), "good", [crl(extensions=[idp([directory("CA", "1")])])]),
    ("relative name to another issuer", leaf(point([directory("S", "1")])), NO_DATA, [crl(extensions=[idp(relative="1")])]),
    ("relative name to cRLIssuer", leaf(point(relative="1", issuer=[directory("S")])), "good",
     [crl(issuer="S", by="CA", extensions=[idp([directory("S", "1")], indirect=True)])], [cert("S", serial=9, keys="CA", extensions=[
         extension("2.5.29.31", seq(point(relative="1", issuer=[directory("S")])))])]),
    ("one of several URIs", leaf(point([LDAP, HTTP])), "good", [crl(extensions=[idp([uri("http://b.example"), HTTP])])]),
    ("another URI", leaf(point([LDAP])), NO_DATA, [crl(extensions=[idp([HTTP])])]),
    ("second point", leaf(point([LDAP]), point([HTTP])), "good", [crl(extensions=[idp([HTTP])])]),
    ("no point, named list", LEAF, NO_DATA, [crl(extensions=[idp([HTTP])])]),
    ("issuerAltName", leaf(extensions=[extension("2.5.29.18", seq(HTTP))]), "good", [crl(extensions=[idp([HTTP])])]),
    ("points for some reasons", leaf(point([LDAP], reasons=[1, 2]), point([HTTP], reasons=[3, 4, 5, 6, 7, 8])), "good",
     [crl(extensions=[idp([LDAP])]), crl(extensions=[idp([HTTP])])]),
    ("a point for some reasons", leaf(point([LDAP], reasons=[1, 2])), NO_DATA, [crl(extensions=[idp([LDAP])])]),
    ("a point for some reasons, a list without point", leaf(point([LDAP], reasons=[1, 2])), NO_DATA, [crl()]),
    ("a list for some reasons", leaf(point([LDAP])), NO_DATA, [crl(extensions=[idp([LDAP], reasons=[1])])]),
    ("a list of attribute certificates", LEAF, NO_DATA, [crl(extensions=[extension("2.5.29.28", seq(tlv(0x85, b"\xff")))])]),
    ("listed for some reasons", leaf(point([LDAP])), "revoked 1",
     [crl(entry(5, COMPROMISE), extensions=[idp([LDAP], reasons=[1])])]),
    ("malformed point", leaf(tlv(4)), FORMAT, [crl()]),
    ("malformed point, listed", leaf(tlv(4)), "revoked -1", [crl(entry())]),
    # Signers of their own
    ("cRLIssuer, list not indirect", BY_S, NO_DATA, [crl(issuer="S")], [SIGNER]),
    ("cRLIssuer, its status unknown", BY_S, ISSUER, [crl(**LIST_OF_S)], [SIGNER]),
    ("listed, status of cRLIssuer unknown", BY_S, "revoked -1", [crl(entry(extra=[extension(
        "2.5.29.29", seq(directory("CA")), critical=True)]), **LIST_OF_S)], [SIGNER]),
    ("serial number of another issuer", BY_S, ISSUER, [crl(entry(), **LIST_OF_S)], [SIGNER]),
    ("cRLIssuer revoked", BY_S, ISSUER, [crl(entry(extra=OF_CA), **LIST_OF_S), crl(entry(9), extensions=[idp(
        [HTTP])])], [cert("S", serial=9, extensions=[AT_HTTP])]),
    ("cRLIssuer looked up in its own list", BY_S, "good", [crl(**LIST_OF_S)], [cert("S", serial=9, extensions=[
        extension("2.5.29.31", seq(point(issuer=[directory("S")])))])]),
    ("cRLIssuer listed in its own list", BY_S, ISSUER, [crl(entry(9, extra=OF_CA), **LIST_OF_S)], [cert(
        "S", serial=9, extensions=[extension("2.5.29.31", seq(point(issuer=[directory("S")])))])]),
    ("keyUsage without cRLSign", LEAF, SIGNATURE, [crl(by="S")], [cert(
        "CA", keys="S", serial=9, extensions=[usage(5)])]),
    # Deltas
    ("delta adds", LEAF, "revoked 1", [crl(number=1), crl(entry(5, COMPROMISE), number=2, base=1)]),
    ("newest delta ends a hold", LEAF, "good", [crl(entry(5, HOLD), number=1), crl(entry(5, HOLD), number=2, base=1),
                                                crl(entry(5, REMOVE), number=3, base=1, this="2026-05-02")]),
    ("delta older than its base", LEAF, "revoked 6", [crl(entry(5, HOLD), number=3), crl(entry(5, REMOVE), number=2, base=1)]),
    ("delta of a later base", LEAF, "revoked 6", [crl(entry(5, HOLD), number=1), crl(entry(5, REMOVE), number=3, base=2)]),
    ("delta of a longer number", LEAF, "good", [crl(entry(5, HOLD), number=9), crl(entry(5, REMOVE), number=300, base=9)]),
    ("delta of a base of a longer number", LEAF, "good", [crl(entry(5, HOLD), number=300), crl(
        entry(5, REMOVE), number=301, base=9)]),
    ("delta without number", LEAF, "revoked 6", [crl(entry(5, HOLD), number=1), crl(entry(5, REMOVE), base=1)]),
    ("delta of a base without number", LEAF, "revoked 6", [crl(entry(5, HOLD)), crl(entry(5, REMOVE), number=2, base=1)]),
    ("delta with a malformed entry", LEAF, "revoked 6", [crl(entry(5, HOLD), number=1), crl(
        entry(5, REMOVE), seq(integer(7)), number=2, base=1)]),
    ("delta with a critical extension of an entry", LEAF, "revoked 6", [crl(entry(5, HOLD), number=1), crl(
        entry(5, REMOVE), entry(6, extra=[UNKNOWN]), number=2, base=1)]),
    ("delta of another scope", LEAF, "revoked 6", [crl(entry(5, HOLD), number=1), crl(
        entry(5, REMOVE), number=2, base=1, extensions=[idp([directory("CA")])])]),
    ("delta of another key identifier", LEAF, "revoked 6", [crl(entry(5, HOLD), number=1), crl(
        entry(5, REMOVE), number=2, base=1, extensions=[aki("CA")])]),
    ("delta by another key", LEAF, "revoked 6", [crl(entry(5, HOLD), number=1), crl(
        entry(5, REMOVE), number=2, base=1, by="S")]),
    ("expired base, current delta", LEAF, "good", [crl(number=1, to="2026-05-15"), crl(number=2, base=1)]),
    ("both expired", LEAF, EXPIRED, [crl(number=1, to="2026-05-15"), crl(number=2, base=1, to="2026-05-16")]),
    ("delta of a later time", LEAF, "revoked 6", [crl(entry(5, HOLD), number=1), crl(
        entry(5, REMOVE), number=2, base=1, this="2026-06-02")]),
    ("a delta alone", LEAF, NO_DATA, [crl(number=2, base=1)]),
    ("listed in a delta alone", LEAF, "revoked 1", [crl(entry(5, COMPROMISE), number=2, base=1)]),
    # OCSP
    ("OCSP good", LEAF, "good", [response(single())]),
    ("OCSP good, SHA-256", LEAF, "good", [response(single(kind="sha256"))]),
    ("OCSP with MD5", LEAF, NO_DATA, [response(single(kind="md5"))]),
    ("OCSP revoked", LEAF, "revoked 1", [response(single(revoked(COMPROMISE)))]),
    ("OCSP unknown", LEAF, NO_DATA, [response(single(UNKNOWN_STATUS))]),
    ("OCSP of another certificate", LEAF, NO_DATA, [response(single(serial=6))]),
    ("OCSP of another issuer's name", LEAF, NO_DATA, [response(single(issuer="S"))]),
    ("OCSP of another issuer's key", LEAF, NO_DATA, [response(single(keys="S"))]),
    ("OCSP of several", LEAF, "revoked -1", [response(single(serial=6), single(), single(revoked(), kind="sha256"))]),
    ("OCSP with a bad signature", LEAF, SIGNATURE, [response(single(), by="S", responder="CA")]),
    ("OCSP expired", LEAF, EXPIRED, [response(single(to="2026-05-31"))]),
    ("OCSP of a later time", LEAF, EXPIRED, [response(single(this="2026-06-02"))]),
    ("OCSP made later", LEAF, EXPIRED, [response(single(), produced="2026-06-02")]),
    ("OCSP without nextUpdate, of that day", LEAF, "good", [response(single(this="2026-06-01", to=None))]),
    ("OCSP without nextUpdate, old", LEAF, EXPIRED, [response(single(this="2026-05-30", to=None))]),
    ("OCSP revoked after the check", LEAF, "good",
     [response(single()), response(single(revoked(day="2026-06-02"), this="2026-06-03"))]),
    ("OCSP revoked, expired", LEAF, "revoked -1", [response(single(revoked(), to="2026-05-31"))]),
    ("OCSP hold ended", LEAF, "good", [response(single(revoked(HOLD), this="2026-04-01")), response(single())]),
    ("OCSP critical extension", LEAF, NOT_SUPPORTED, [response(single(), extra=[UNKNOWN])]),
    ("OCSP critical extension of one", LEAF, NOT_SUPPORTED, [response(single(extra=[UNKNOWN]))]),
    ("OCSP extension that is not critical", LEAF, "good", [response(single(extra=[NO_CHECK]), extra=[NO_CHECK])]),
    ("OCSP nonce", LEAF, "good", [response(single(), extra=[NONCE])]),
    ("OCSP delegate", LEAF, "good", [delegated(delegate())]),
    ("OCSP delegate without the purpose", LEAF, ISSUER, [delegated(delegate(purpose("2.5.29.37.0")))]),
    ("OCSP delegate of another key", LEAF, ISSUER, [delegated(delegate(by="S"))]),
    ("OCSP delegate of another issuer", LEAF, ISSUER, [delegated(delegate(issuer="S", by="CA"))]),
    ("OCSP delegate expired", LEAF, ISSUER, [delegated(delegate(to="2026-05-31"))]),
    ("OCSP delegate, keyUsage", LEAF, ISSUER, [delegated(delegate(OCSP_SIGNING, usage(2)))]),
    ("OCSP delegate, critical extension", LEAF, ISSUER, [delegated(delegate(OCSP_SIGNING, UNKNOWN))]),
    ("OCSP delegate with another name", LEAF, ISSUER, [response(single(), by="R", responder="Q", certs=[delegate()])]),
    ("OCSP delegate revoked", LEAF, ISSUER, [delegated(delegate(OCSP_SIGNING, AT_HTTP, serial=9)), crl(
        entry(9), extensions=[idp([HTTP])])]),
    ("OCSP delegate without check", LEAF, "good", [delegated(
        delegate(OCSP_SIGNING, AT_HTTP, NO_CHECK, serial=9)), crl(entry(9), extensions=[idp([HTTP])])]),
    ("OCSP good, listed", LEAF, "revoked -1", [response(single()), crl(entry())]),
    ("OCSP good, once on hold", LEAF, "good", [response(single()), crl(entry(5, HOLD), this="2026-04-01")]),
    ("OCSP good, on hold later", LEAF, "revoked 6", [response(single()), crl(entry(5, HOLD), this="2026-05-02")]),
    ("OCSP on hold once, CRL good", LEAF, "good",
     [response(single(revoked(HOLD), this="2026-04-01", to="2026-04-08")), crl()]),
    ("OCSP on hold twice", LEAF, "revoked 6",
     [response(single(revoked(HOLD), this="2026-04-01")), response(single(revoked(HOLD)))]),
    ("OCSP on hold, CRL good before", LEAF, "revoked 6", [response(single(revoked(HOLD))), crl(this="2026-04-01")]),
    ("OCSP on hold and good before, CRL good between", LEAF, "revoked 6",
     [response(single(this="2026-03-01")), response(single(revoked(HOLD))), crl(this="2026-04-01")]),
    ("OCSP on hold, expired, CRL good before", LEAF, "revoked 6",
     [response(single(revoked(HOLD), this="2026-04-01", to="2026-04-08")), crl(this="2026-03-01")]),
    ("OCSP on hold, expired, good before", LEAF, "revoked 6",
     [response(single(this="2026-04-01")), response(single(revoked(HOLD), to="2026-05-31"))]),
    ("OCSP revoked, omitted", LEAF, "revoked -1", [response(single(revoked())), crl()]),
    ("OCSP unknown, omitted", LEAF, "good", [response(single(UNKNOWN_STATUS)), crl()]),
]


def main():
    names, blocks = {}, []

    def reference(der):
        if der not in names:
            names[der] = f"{len(names) + 1}"
            blocks.append(f"Object = {names[der]}\nBase64 = {base64.b64encode(der).decode()}\n")
        return names[der]

    cases, usual = [], int(datetime.datetime(2026, 6, 1, tzinfo=datetime.timezone.utc).timestamp())
    library = [(f"OCSP of a library, {kind.name}, {'key' if by_hash else 'name'}", "good", library_response(kind, by_hash))
               for kind in (hashes.SHA1(), hashes.SHA256(), hashes.SHA384(), hashes.SHA512()) for by_hash in (0, 1)]
    first, *others = set(x509.ReasonFlags) - {x509.ReasonFlags.unspecified, x509.ReasonFlags.remove_from_crl}
    number, delta = x509.CRLNumber, x509.DeltaCRLIndicator
    library += [("CRL of a library, indirect", "revoked 1", library_crls((True, library_idp(indirect=True)))),
                ("CRLs of a library by reason", "good", library_crls((False, library_idp(first)), (False, library_idp(*others)))),
                ("CRL of a library, another point", f"unknown {NO_DATA}", library_crls(
                    (False, library_idp(full=[x509.UniformResourceIdentifier("http://b.example")])))),
                ("delta of a library", "revoked 1", library_crls((False, number(1)), (True, number(2), delta(1))))]
    library = [(title, certs[1].public_bytes(Encoding.DER), status, [each.public_bytes(Encoding.DER) for each in evidence], [],
                certs[0].public_bytes(Encoding.DER), int(NOW.timestamp()) + 3600) for title, status, (certs, evidence) in library]
    for title, target, status, evidence, *more in CASES + library:
        signers, anchor, time = (*more, *[[], CA, usual][len(more):])
        status = status if isinstance(status, str) else f"unknown {status}"
        cases.append(f"Case = {title}\nAnchor = {reference(anchor)}\nTarget = {reference(target)}\n"
                     f"Signers ={''.join(' ' + reference(each) for each in signers)}\n"
                     f"Evidence = {' '.join(map(reference, evidence))}\nTime = {time}\nStatus = {status}\n")
    HERE.joinpath("cases.txt").write_text(
        "# Evidence and the status that it gives at a time: unknown with an error code, revoked with a reason.\n\n"
        + "\n".join(blocks + cases))


main()
