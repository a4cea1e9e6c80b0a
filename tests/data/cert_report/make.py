#!/usr/bin/env python3
"""Writes reports.txt: objects encoded here by hand, as their standards have them, and lines that their reports hold.
Signatures are arbitrary bytes. Blanks in a line stand for one blank or more."""
import base64
import pathlib


def tlv(tag, *parts):
    content = b"".join(parts)
    size = len(content)
    octets = b"" if size < 128 else size.to_bytes((size.bit_length() + 7) // 8, "big")
    return bytes([tag, 0x80 | len(octets) if octets else size]) + octets + content


def oid(dotted):
    first, second, *rest = map(int, dotted.split("."))
    out = b""
    for arc in [40 * first + second, *rest]:
        groups = [arc & 0x7F]
        while arc := arc >> 7:
            groups.append(arc & 0x7F | 0x80)
        out += bytes(reversed(groups))
    return tlv(6, out)


def seq(*parts):
    return tlv(0x30, *parts)


def integer(number):
    return tlv(2, number.to_bytes(number.bit_length() // 8 + 1, "big", signed=True))


def bits(data, unused=0):
    return tlv(3, bytes([unused]), data)


def octets(data):
    return tlv(4, data)


def utf8(text):
    return tlv(12, text.encode())


def ia5(text):
    return tlv(22, text.encode())


def printable(text):
    return tlv(19, text.encode())


def utc(text):
    return tlv(23, text.encode())


def gtime(text):
    return tlv(24, text.encode())


def name(*values, type="2.5.4.3"):
    return seq(*(tlv(0x31, seq(oid(type), value)) for value in values))


NULL, TRUE = b"\5\0", b"\1\1\xff"
SHA256_RSA = seq(oid("1.2.840.113549.1.1.11"), NULL)
SIGNATURE = bits(bytes.fromhex("cafe"))
CA = name(printable("CA"))
ED25519 = seq(seq(oid("1.3.101.112")), bits(b"\x58" + b"\x66" * 31))
VALIDITY = seq(utc("500101000000Z"), gtime("20500101000000Z"))


def extension(type, value, critical=False):
    return seq(oid(type), TRUE if critical else b"", octets(value))


def certificate(extensions=(), serial=integer(1), subject=CA, key=ED25519, signature=SHA256_RSA, version=b"\2\1\2",
                validity=VALIDITY, more=b""):
    tbs = [tlv(0xA0, version), serial, signature, CA, validity, subject, key, more]
    if extensions:
        tbs.append(tlv(0xA3, seq(*extensions)))
    return seq(seq(*tbs), signature, SIGNATURE)


def crl(entries, extensions):
    return seq(seq(integer(1), SHA256_RSA, CA, utc("260101000000Z"), utc("260201000000Z"), seq(*entries),
                   tlv(0xA0, seq(*extensions))), SHA256_RSA, SIGNATURE)


def dns(text):
    return tlv(0x82, text.encode())


def uri(text):
    return tlv(0x86, text.encode())


def other(type, value):
    return tlv(0xA0, oid(type), tlv(0xA0, value))


def sct(log, milliseconds, extensions, signature):
    data = b"\0" + bytes([log]) * 32 + milliseconds.to_bytes(8, "big") + len(extensions).to_bytes(2, "big") + extensions
    data += b"\4\3" + len(signature).to_bytes(2, "big") + signature
    return len(data).to_bytes(2, "big") + data


def key(algorithm, *parameters, bits_of=b"\x04\x01"):
    return seq(seq(oid(algorithm), *parameters), bits(bits_of))


def single(serial, status, *more):
    return seq(seq(seq(oid("1.3.14.3.2.26"), NULL), octets(b"\1"), octets(b"\2"), integer(serial)), status,
               gtime("20260103000000Z"), *more)


def pss(*parameters):
    return seq(oid("1.2.840.113549.1.1.10"), seq(*parameters))


MGF = seq(oid("1.2.840.113549.1.1.8"), seq(oid("2.16.840.1.101.3.4.2.2"), NULL))
SCTS = sct(0xAB, 1800000000123, b"", b"\x30\x00") + sct(0xCD, 0, b"\1\2", b"\x31")
PRIME = 0xFFFFFFFFFFFFFFC5
QC = "0.4.0.1862.1."

# name: (encoding, lines of the report)
OBJECTS = {
    "standard extensions": (certificate([
        extension("2.5.29.19", seq(TRUE, integer(3)), True),
        extension("2.5.29.15", bits(b"\x06", 1), True),
        extension("2.5.29.37", seq(oid("1.3.6.1.5.5.7.3.1"), oid("1.3.6.1.4.1.311.20.2.2"), oid("1.2.3.4"))),
        extension("2.5.29.14", octets(b"\x01\x02")),
        extension("2.5.29.35", seq(tlv(0x80, b"\x03"), tlv(0xA1, tlv(0xA4, CA)), tlv(0x82, b"\x00\xff"))),
        extension("2.5.29.16", seq(tlv(0x80, b"20260101000000Z"), tlv(0x81, b"20270101000000Z"))),
        extension("2.5.29.30", seq(tlv(0xA0, seq(dns("example.com")), seq(tlv(0x87, bytes([10, 0, 0, 0, 255, 0, 0, 0])))),
                                   tlv(0xA1, seq(tlv(0x81, b".example.org"), tlv(0x80, b"\1"), tlv(0x81, b"\5"))))),
        extension("2.5.29.32", seq(
            seq(oid("1.2.3"), seq(seq(oid("1.3.6.1.5.5.7.2.1"), ia5("https://cps.example/")),
                                  seq(oid("1.3.6.1.5.5.7.2.2"),
                                      seq(seq(utf8("Org"), seq(integer(1), integer(2))), utf8("Notice\n"))))),
            seq(oid("2.23.140.1.2.1")))),
        extension("2.5.29.33", seq(seq(oid("1.2.3"), oid("1.2.4")))),
        extension("2.5.29.36", seq(tlv(0x80, b"\1"), tlv(0x81, b"\0"))),
        extension("2.5.29.54", integer(2 ** 60)),
        extension("2.5.29.31", seq(seq(tlv(0xA0, tlv(0xA0, uri("http://c/"))), tlv(0x81, b"\1\x42"),
                                       tlv(0xA2, tlv(0xA4, CA))),
                                   seq(tlv(0xA0, tlv(0xA1, seq(oid("2.5.4.3"), utf8("Point"))))))),
        extension("1.3.6.1.5.5.7.1.1", seq(seq(oid("1.3.6.1.5.5.7.48.1"), uri("http://o/")))),
        extension("2.5.29.9", seq(seq(oid("1.3.6.1.5.5.7.9.1"), tlv(0x31, gtime("19700101120000Z"))),
                                  seq(oid("1.3.6.1.5.5.7.9.4"), tlv(0x31, printable("AU"), b"\5\0")))),
    ]), ["version 3", "signature sha256WithRSAEncryption", "notBefore 1950-01-01T00:00:00Z",
         "notAfter 2050-01-01T00:00:00Z", "issuer CN=CA", "algorithm id-Ed25519", "bits 256",
         "basicConstraints (critical)", "cA TRUE", "pathLenConstraint 3", "keyUsage (critical) keyCertSign, cRLSign",
         "extKeyUsage serverAuth, msSmartcardLogon, 1.2.3.4", "subjectKeyIdentifier 0102", "keyIdentifier 03",
         "authorityCertSerialNumber ff", "notBefore 2026-01-01T00:00:00Z", "- dNSName example.com",
         "- iPAddress 10.0.0.0/8", "- rfc822Name .example.org", "minimum 1", "maximum 5", "- policyIdentifier 1.2.3",
         "- cPSuri https://cps.example/", "- userNotice", "organization Org", "noticeNumbers 1, 2",
         "explicitText Notice\\x0a", "- policyIdentifier domain-validated", "- issuerDomainPolicy 1.2.3",
         "subjectDomainPolicy 1.2.4", "requireExplicitPolicy 1", "inhibitPolicyMapping 0",
         "inhibitAnyPolicy 0x1000000000000000", "- fullName", "uniformResourceIdentifier http://c/",
         "reasons keyCompromise, certificateHold", "directoryName CN=CA", "- nameRelativeToCRLIssuer CN=Point",
         "- accessMethod ocsp", "uniformResourceIdentifier http://o/", "- type dateOfBirth", "1970-01-01T12:00:00Z",
         "AU", "0500", "signatureValue cafe"]),
    "names": (certificate([extension("2.5.29.17", seq(
        dns("a\nb"), tlv(0x81, b"\xff"), tlv(0x87, bytes(15) + b"\1"), tlv(0x87, b"\1\2\3"), tlv(0x88, oid("1.2.3")[2:]),
        tlv(0xA4, name(utf8("A, O=B"))), other("1.3.6.1.4.1.311.20.2.3", utf8("joe@example.com")),
        other("1.3.6.1.5.5.7.8.9", utf8("jö@example.com")), other("1.3.6.1.5.5.7.8.5", utf8("im@example.com")),
        other("1.2.3", integer(5)), tlv(0xA5, tlv(0xA1, utf8("party")))))],
        subject=name(tlv(0x14, b"M\xfcller"), tlv(0x1E, "Ωß".encode("utf-16-be")), tlv(0x1C, "😀\U000E0001".encode("utf-32-be")))),
        ["subject CN=Müller, CN=Ωß, CN=😀\\xf3\\xa0\\x80\\x81", "dNSName a\\x0ab", "malformed 8101ff", "iPAddress ::1",
         "iPAddress malformed 010203", "registeredID 1.2.3", "directoryName CN=A\\, O=B", "typeId userPrincipalName",
         "value joe@example.com", "typeId smtpUTF8Mailbox", "value jö@example.com", "typeId xmppAddr",
         "value im@example.com", "value #020105", "ediPartyName a509a1070c057061727479"]),
    "extensions of others": (certificate([
        extension("1.3.6.1.4.1.11129.2.4.2", octets(len(SCTS).to_bytes(2, "big") + SCTS)),
        extension("1.3.6.1.4.1.11129.2.4.3", NULL, True),
        extension("1.3.6.1.5.5.7.48.1.5", NULL),
        extension("1.3.6.1.5.5.7.1.24", seq(integer(5), integer(17), integer(99))),
        extension("1.3.6.1.4.1.311.21.7", seq(oid("1.3.6.1.4.1.311.21.8.1"), integer(100), integer(7))),
        extension("1.3.6.1.4.1.311.20.2", tlv(0x1E, "User".encode("utf-16-be"))),
        extension("1.3.6.1.4.1.311.21.1", integer(0x20003)),
        extension("1.3.6.1.4.1.311.21.10", seq(seq(oid("1.3.6.1.5.5.7.3.2")))),
        extension("2.16.840.1.113730.1.1", bits(b"\xa0", 5)),
        extension("2.16.840.1.113730.1.13", ia5("Comment")),
        extension("1.3.6.1.5.5.7.1.3", seq(
            seq(oid(QC + "1")), seq(oid(QC + "2"), seq(printable("EUR"), integer(5), integer(3))),
            seq(oid(QC + "2"), seq(printable("EUR"), integer(5))),
            seq(oid("1.3.6.1.5.5.7.11.2"), seq(oid("1.2.3.7"), seq(dns("names.example")))),
            seq(oid(QC + "3"), integer(15)), seq(oid(QC + "5"), seq(seq(ia5("https://pds/"), printable("en")))),
            seq(oid(QC + "6"), seq(oid(QC + "6.1"))), seq(oid(QC + "7"), seq(printable("DE"))),
            seq(oid("0.4.0.19495.2"), seq(seq(seq(oid("0.4.0.19495.1.3"), utf8("PSP_AI"))), utf8("BaFin"), utf8("DE-BAFIN"))))),
        extension("2.23.140.3.1", seq(printable("VAT"), printable("DE"), utf8("123"))),
        extension("1.3.6.1.5.5.7.1.12", b"\xaa\xbb"),
        extension("1.2.3.4.5", b"\xcc", True),
    ]), ["- version 1", "logID " + "ab" * 32, "timestamp 2027-01-15T08:00:00.123Z", "hashAlgorithm sha256",
         "signatureAlgorithm ecdsa", "signature 3000", "timestamp 1970-01-01T00:00:00.000Z", "extensions 0102",
         "ctPoison (critical) NULL", "ocspNoCheck NULL", "tlsFeature status_request, status_request_v2, 99",
         "templateID 1.3.6.1.4.1.311.21.8.1", "templateMajorVersion 100", "templateMinorVersion 7",
         "enrollCerttypeExtension User", "certificateIndex 3", "keyIndex 2", "- policyIdentifier clientAuth",
         "netscapeCertType sslClient, smime", "netscapeComment Comment", "- statementId qcs-QcCompliance",
         "currency EUR", "amount 5", "exponent 3", "statementInfo malformed 30081303455552020105",
         "semanticsIdentifier 1.2.3.7", "dNSName names.example", "statementInfo 15", "- url https://pds/", "language en",
         "statementInfo qct-esign", "DE", "- roleOfPspOid PSP_AI", "nCAName BaFin", "nCAId DE-BAFIN",
         "registrationSchemeIdentifier VAT", "registrationReference 123", "logotype aabb", "1.2.3.4.5 (critical) cc"]),
    "extensions of responders": (certificate([
        extension("1.3.6.1.5.5.7.48.1.3", seq(tlv(0xA0, ia5("http://c/")), tlv(0xA1, integer(7)),
                                              tlv(0xA2, gtime("20260102030405Z")))),
        extension("1.3.6.1.5.5.7.48.1.7", seq(CA, octets(b"\x1a"))),
        extension("1.2.840.113549.1.9.15", seq(seq(oid("2.16.840.1.101.3.4.1.42")),
                                               seq(oid("1.2.840.113549.3.2"), integer(128)))),
        extension("1.2.840.113533.7.65.0", seq(tlv(27, b"V8"), bits(b"\1"))),
        extension("2.23.140.3.1", seq(printable("VAT"), printable("US"), tlv(0x80, b"CA"), utf8("4"))),
        extension("1.3.6.1.5.5.7.1.3", seq(
            seq(oid(QC + "2"), seq(integer(978), integer(5), integer(3))), seq(oid("1.3.6.1.5.5.7.11.2"), seq()))),
        extension("2.5.29.30", seq(tlv(0xA0, seq(tlv(0x87, b"\1\2\3"))))),
    ]), ["crlUrl http://c/", "crlNum 7", "crlTime 2026-01-02T03:04:05Z", "issuer CN=CA", "locator 04011a",
         "- capabilityID aes256-CBC", "- capabilityID rc2CBC", "parameters 02020080", "entrustVers V8",
         "entrustInfoFlags 03020001", "registrationStateOrProvince CA", "currency 978", "- statementId qcs-pkixQCSyntax-v2",
         "- iPAddress malformed 010203"]),
    # Nothing of an object hides what follows it.
    "malformed fields": (certificate(
        [extension("2.5.29.19", b"\x30\x05\1\1\xff"), extension("2.5.29.15", octets(b"")), seq(oid("2.5.29.14")),
         extension("2.5.29.14", octets(b"\7"))],
        serial=tlv(2, b"\xff\x01"), version=b"\2\1\x09", validity=seq(utc("261301000000Z"), utc("2601010000Z")),
        subject=seq(tlv(0x31)), key=seq(NULL), more=tlv(0x81, b"\0\xee")),
        ["version 10", "serialNumber -ff", "notBefore malformed 170d3236313330313030303030305a",
         "notAfter malformed 170b323630313031303030305a", "subject #30023100", "subjectPublicKeyInfo malformed 30020500",
         "issuerUniqueID ee", "basicConstraints malformed 30050101ff", "keyUsage malformed 0400",
         "malformed 30050603551d0e", "subjectKeyIdentifier 07", "signatureValue cafe"]),
    "malformed extensions": (certificate(more=tlv(0xA3, NULL)), ["extensions malformed a3020500", "signatureValue cafe"]),
    "missing fields": (seq(seq(tlv(0xA0, b"\2\1\2"), integer(128), SHA256_RSA), SHA256_RSA, SIGNATURE),
                       ["serialNumber 80", "issuer malformed", "signatureValue cafe"]),
    "pss": (certificate(signature=pss(tlv(0xA0, seq(oid("2.16.840.1.101.3.4.2.2"), NULL)), tlv(0xA1, MGF),
                                      tlv(0xA2, integer(48))),
                        key=key("1.2.840.113549.1.1.10", seq(), bits_of=seq(integer(2 ** 1023 + 1), integer(65537)))),
            ["signatureAlgorithm id-RSASSA-PSS", "hashAlgorithm sha384", "maskGenHashAlgorithm sha384", "saltLength 48",
             "algorithm id-RSASSA-PSS", "hashAlgorithm sha1", "saltLength 20", "trailerField 1", "bits 1024",
             "publicExponent 65537"]),
    "brainpool": (certificate(key=key("1.2.840.10045.2.1", oid("1.3.36.3.3.2.8.1.1.11"))),
                  ["namedCurve brainpoolP384r1", "bits 384", "publicKey 0401"]),
    "unknown curve": (certificate(key=key("1.2.840.10045.2.1", oid("1.2.3"))), ["namedCurve 1.2.3"]),
    "explicit curve": (certificate(key=key("1.2.840.10045.2.1", seq(
        integer(1), seq(oid("1.2.840.10045.1.1"), integer(PRIME)), seq(octets(b"\1"), octets(b"\2"), bits(b"\3")),
        octets(b"\4\5\6"), integer(7), integer(1)))),
        ["specifiedCurve", "fieldType prime-field", "prime ffffffffffffffc5", "a 01", "b 02", "base 040506", "order 07",
         "cofactor 01", "bits 64"]),
    "dsa": (certificate(key=key("1.2.840.10040.4.1", seq(integer(PRIME), integer(11), integer(2)), bits_of=integer(9))),
            ["p ffffffffffffffc5", "q 0b", "g 02", "bits 64", "publicKey 09"]),
    "inherited dsa": (certificate(key=key("1.2.840.10040.4.1", bits_of=integer(9))), ["algorithm id-dsa", "publicKey 09"]),
    "dh": (certificate(key=key("1.2.840.10046.2.1", seq(integer(PRIME), integer(5), integer(11)), bits_of=integer(9))),
           ["algorithm dhpublicnumber", "g 05", "q 0b", "publicKey 09"]),
    "dh with seed": (certificate(key=key("1.2.840.10046.2.1", seq(integer(PRIME), integer(5), integer(11), integer(3), seq(
        bits(b"\6"), integer(8))), bits_of=integer(9))), ["j 03", "otherParameters 300703020006020108"]),
    "dh of pkcs3": (certificate(key=key("1.2.840.113549.1.3.1", seq(integer(PRIME), integer(5), integer(160)),
                                        bits_of=integer(9))),
                    ["algorithm dhKeyAgreement", "base 05", "privateValueLength a0", "bits 64", "publicKey 09"]),
    "binary curve": (certificate(key=key("1.2.840.10045.2.1", seq(
        integer(1), seq(oid("1.2.840.10045.1.2"), seq(integer(163), oid("1.2.840.10045.1.2.3.2"), integer(7))),
        seq(octets(b"\1"), octets(b"\2")), octets(b"\4"), integer(7)))),
        ["fieldType characteristic-two-field", "base 04", "order 07", "bits 163"]),
    "implicit curve": (certificate(key=key("1.2.840.10045.2.1", NULL)), ["implicitCurve NULL", "publicKey 0401"]),
    "ml-dsa": (certificate(key=key("2.16.840.1.101.3.4.3.18")), ["algorithm id-ml-dsa-65", "publicKey 0401"]),
    "x448": (certificate(key=key("1.3.101.111")), ["algorithm id-X448", "bits 448"]),
    "unknown key": (certificate(key=key("1.2.3", integer(1))), ["algorithm 1.2.3", "parameters 020101", "publicKey 0401"]),
    "broken rsa key": (certificate(key=key("1.2.840.113549.1.1.1", NULL)), ["publicKey malformed 0401"]),
    "good request": (seq(seq(integer(0), CA, ED25519, tlv(0xA0, seq(oid("1.2.840.113549.1.9.14"), tlv(0x31, seq(
        extension("2.5.29.17", seq(dns("r.example")))))))), SHA256_RSA, SIGNATURE), ["dNSName r.example"]),
    "request": (seq(seq(integer(0), CA, ED25519, tlv(0xA0, seq(oid("1.2.840.113549.1.9.7"), tlv(0x31, utf8("p\tw"))),
                                                     seq(oid("1.2.840.113549.1.9.14"), tlv(0x31, seq(
                                                         extension("2.5.29.17", seq(dns("r.example")))))),
                                                     NULL)), SHA256_RSA, SIGNATURE),
                ["version 1", "subject CN=CA", "- type challengePassword", "p\\x09w", "- type extensionRequest",
                 "dNSName r.example", "malformed 0500", "signature cafe"]),
    "crl": (crl([seq(integer(1), utc("260102000000Z"), seq(extension("2.5.29.21", tlv(10, b"\1")),
                                                           extension("2.5.29.24", gtime("20251231000000Z")),
                                                           extension("2.5.29.29", seq(tlv(0xA4, CA)), True))),
                 seq(integer(2)), seq(integer(3), gtime("20260103000000Z")),
                 seq(integer(4), utc("260104000000Z"), seq(extension("2.5.29.21", tlv(10, b"\0"))))],
                [extension("2.5.29.20", integer(2 ** 70)), extension("2.5.29.27", integer(9), True),
                 extension("2.5.29.28", seq(tlv(0xA0, tlv(0xA0, uri("http://idp/"))), tlv(0x81, b"\xff"),
                                            tlv(0x83, b"\6\x40"), tlv(0x84, b"\xff")), True)]),
            ["version 2", "thisUpdate 2026-01-01T00:00:00Z", "nextUpdate 2026-02-01T00:00:00Z", "- userCertificate 01",
             "revocationDate 2026-01-02T00:00:00Z", "cRLReason keyCompromise", "invalidityDate 2025-12-31T00:00:00Z",
             "certificateIssuer (critical)", "malformed 3003020102", "- userCertificate 03", "cRLReason unspecified",
             "cRLNumber 0x400000000000000000", "deltaCRLIndicator (critical) 9", "uniformResourceIdentifier http://idp/",
             "onlyContainsUserCerts TRUE", "onlySomeReasons keyCompromise", "indirectCRL TRUE"]),
    "response": (seq(tlv(10, b"\0"), tlv(0xA0, seq(oid("1.3.6.1.5.5.7.48.1.1"), octets(seq(seq(
        tlv(0xA0, integer(0)), tlv(0xA2, octets(b"\xaa")), gtime("20260102000000Z"), seq(
            single(16, tlv(0xA1, gtime("20260101000000Z"), tlv(0xA0, tlv(10, b"\1"))), tlv(0xA0, gtime("20260104000000Z"))),
            single(17, tlv(0xA1, gtime("20260101010101Z")), tlv(0xA1, seq(
                extension("1.3.6.1.5.5.7.48.1.6", gtime("20250101000000Z"))))),
            single(18, tlv(0x82)), tlv(0xA1, gtime("20260101000000Z"))),
        tlv(0xA1, seq(extension("1.3.6.1.5.5.7.48.1.2", octets(b"\xbb"))))), SHA256_RSA, SIGNATURE))))),
        ["responseStatus successful", "byKey aa", "producedAt 2026-01-02T00:00:00Z", "hashAlgorithm sha1",
         "serialNumber 10", "certStatus revoked", "revocationTime 2026-01-01T00:00:00Z", "revocationReason keyCompromise",
         "nextUpdate 2026-01-04T00:00:00Z", "serialNumber 11", "revocationTime 2026-01-01T01:01:01Z",
         "ocspArchiveCutoff 2025-01-01T00:00:00Z", "serialNumber 12", "certStatus unknown",
         "malformed a111180f32303236303130313030303030305a", "ocspNonce bb",
         "signature cafe"]),
    "unsuccessful response": (seq(tlv(10, b"\3")), ["responseStatus tryLater"]),
    "broken response": (seq(tlv(10, b"\0")), ["response malformed 30030a0100"]),
}

lines = ["# Written by make.py"]
for title, (encoding, expected) in OBJECTS.items():
    lines += ["", f"Name = {title}", f"Object = {base64.b64encode(encoding).decode()}", f"Lines = {' | '.join(expected)}"]
(pathlib.Path(__file__).parent / "reports.txt").write_text("\n".join(lines) + "\n")
