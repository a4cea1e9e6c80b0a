#!/usr/bin/env python3
"""Makes dumps.txt: objects made by openssl, each with its dump put together from what openssl says about it.
Run by hand; the keys are thrown away."""
import base64
import os
import re
import subprocess
import tempfile
from datetime import datetime

HERE = os.path.dirname(os.path.abspath(__file__))
CONFIG = """
[ca]
default_ca = any
[any]
database = index
serial = serial
crlnumber = crlnumber
new_certs_dir = .
default_md = sha256
default_crl_days = 20000
policy = policy
unique_subject = no
[policy]
commonName = supplied
countryName = optional
organizationName = optional
emailAddress = optional
[req]
distinguished_name = dn
string_mask = utf8only
[dn]
[full]
basicConstraints = critical, CA:TRUE
subjectAltName = DNS:example.org, email:ca@example.org, email:second@example.org
subjectKeyIdentifier = hash
authorityKeyIdentifier = keyid:always
keyUsage = critical, digitalSignature, keyCertSign, cRLSign
extendedKeyUsage = serverAuth, emailProtection, 1.2.3.4.5
crlDistributionPoints = URI:http://example.org/ca.crl
authorityInfoAccess = OCSP;URI:http://ocsp.example.org/
[plain]
basicConstraints = CA:FALSE
[crl_extensions]
authorityKeyIdentifier = keyid
"""
CA = [("C", "AU"), ("O", "Caf\u00e9 = Co"), ("CN", "Dump CA"), ("emailAddress", "ca@example.org")]
LEAF = [("CN", "Leaf")]


def openssl(*args):
    done = subprocess.run(["openssl", *args], capture_output=True)
    if done.returncode != 0:
        raise SystemExit(f"openssl {args}: {done.stderr.decode()}")
    return done.stdout.decode()


def subject(name):
    return "".join(f"/{key}={value}" for key, value in name)


def printed(name):
    return ";".join(f"{'E' if key == 'emailAddress' else key}={value}" for key, value in name)


def hex_bytes(digits):
    return "".join(digits[i:i + 2].upper() + " " for i in range(0, len(digits), 2))


def block(indent, digits):
    return "".join(indent + hex_bytes(digits[i:i + 32]) + "\n" for i in range(0, len(digits), 32))


def number(text, label):
    """The digits under a label of openssl's text, without a leading zero byte."""
    digits = re.search(rf"^ *{label}: *\n((?: +(?:[0-9a-f]{{2}}:?)+\n)+)", text, re.M).group(1)
    digits = re.sub("[^0-9a-f]", "", digits)
    return digits[2:] if digits.startswith("00") else digits


def time(text):
    return datetime.strptime(text, "%b %d %H:%M:%S %Y GMT").strftime("%Y-%m-%dT%H:%M:%SZ")


def key(text, algorithm):
    bits = re.search(r"Public-Key: \((\d+) bit", text).group(1)
    out = f"Subject Public Key Algorithm: {algorithm}\n"
    if algorithm == "rsaEncryption":
        exponent = int(re.search(r"Exponent: (\d+)", text).group(1))
        numbers = [("Modulus", number(text, "Modulus")), ("Exponent", "%06x" % exponent)]
        out += f"  RSA key length: {bits} bits\n"
    else:
        numbers = [(name.upper(), number(text, name)) for name in ("P", "Q", "G")] + [("Y", number(text, "pub"))]
        out += f"  DSA key length: {bits} bits\n"
    return out + "".join(f"  {label}:\n{block('    ', digits)}" for label, digits in numbers)


def element(tag, content):
    size = len(content)
    octets = size.to_bytes((size.bit_length() + 7) // 8 or 1, "big")
    return bytes([tag]) + (octets if size < 128 else bytes([0x80 + len(octets)]) + octets) + content


def elements(data):
    found = []
    while data:
        size, start = data[1], 2
        if size > 127:
            start += size - 128
            size = int.from_bytes(data[2:start], "big")
        found.append((data[0], data[start:start + size]))
        data = data[start + size:]
    return found


def fields_of(path):
    body = re.sub("-----.*?-----", "", open(path).read())
    return elements(elements(base64.b64decode(body))[0][1])


def signature(path, text):
    name = re.findall(r"Signature Algorithm: (\S+)", text)[-1].replace("dsa_with_", "dsaWith").replace("SHA1", "Sha1")
    return f"Signature Algorithm: {name}\n{block('  ', fields_of(path)[2][1][1:].hex())}"


def certificate(path, issuer, name, algorithm, extensions=None):
    text = openssl("x509", "-in", path, "-noout", "-text")
    ask = lambda *args: openssl("x509", "-in", path, "-noout", *args).strip().split("=", 1)[1]
    serial = ask("-serial")
    if int(serial[0], 16) > 7:
        serial = "00" + serial
    out = "X.509 CERTIFICATE\nVersion: " + re.search(r"Version: (\d)", text).group(1) + "\n"
    out += "Serial Number:\n  " + hex_bytes(serial) + "\n"
    out += f"Issuer:\n  {printed(issuer)}\nSubject:\n  {printed(name)}\nValidity:\n"
    out += "  NotBefore: " + time(ask("-startdate")) + "\n"
    out += "  NotAfter:  " + time(ask("-enddate")) + "\n"
    if algorithm == "none":
        return out + "Subject Public Key Algorithm: 1.2.840.10045.2.1\n"
    out += key(text, algorithm)
    if extensions:
        out += "X509v3 Extensions:\n"
        for label, value in extensions(text):
            out += f"  {label}:\n    {value}\n" if label else f"  Subject Type: {value}\n"
    out += signature(path, text)
    for digest in "SHA-1", "MD5":
        fingerprint = ask("-fingerprint", "-" + digest.replace("-", "").lower())
        out += f"{digest} Thumbprint:\n  {fingerprint.replace(':', '').lower()}\n"
    return out


def identifiers(text):
    found = []
    for label in "Subject Key Identifier", "Authority Key Identifier":
        value = re.search(label + r": *\n +(?:keyid:)?(\S+)", text)
        if value:
            found.append((label, value.group(1).replace(":", "").lower()))
    return found


def full_extensions(text):
    found = identifiers(text)
    assert len(found) == 2
    return [("", "CA"), ("Subject Alternative Name", "RFC822 Name: ca@example.org"), *found,
            ("Key Usage", "digitalSignature,keyCertSign,cRLSign"),
            ("Extended Key Usage", "serverAuth,emailProtection,1.2.3.4.5"),
            ("CRL Distribution Points", "URI: http://example.org/ca.crl"),
            ("Authority Information Access", "URI: http://ocsp.example.org/")]


def plain_extensions(text):
    return [("", "End Entity"), *identifiers(text)]


def crl(path):
    text = openssl("crl", "-in", path, "-noout", "-text")
    out = "X509 CERTIFICATE REVOCATION LIST (CRL)\nVersion: " + re.search(r"Version (\d)", text).group(1) + "\n"
    out += f"Issuer:\n  {printed(CA)}\n"
    out += "This Update: " + time(re.search("Last Update: (.*)", text).group(1)) + "\n"
    update = re.search("Next Update: (.*)", text).group(1)
    out += "" if update == "NONE" else f"Next Update: {time(update)}\n"
    out += "Revoked Certificates:\n"
    entries = re.findall(r"Serial Number: (\w+)\n +Revocation Date: (.*)", text)
    for serial, date in entries:
        serial = ("00" if int(serial[0], 16) > 7 else "") + serial
        out += "  Serial Number: " + block("", serial) + f"  Revocation Date: {time(date)}\n"
    return out + ("" if entries else "  (none)\n") + signature(path, text)


def without_next_update(path, out):
    tbs, *rest = fields_of(path)
    fields = elements(tbs[1])
    times = [i for i, field in enumerate(fields) if field[0] in (0x17, 0x18)]
    del fields[times[1]]
    tbs = (tbs[0], b"".join(element(*f) for f in fields))
    der = element(0x30, b"".join(element(*f) for f in [tbs, *rest]))
    open(out, "w").write("-----BEGIN X509 CRL-----\n" + base64.encodebytes(der).decode() + "-----END X509 CRL-----\n")


def write(path, text):
    with open(path, "w") as file:
        file.write(text)


def make():
    write("ca.cnf", CONFIG)
    for bits, name in (1024, "ca"), (1027, "leaf"):
        openssl("genrsa", "-out", name + ".key", str(bits))
    openssl("dsaparam", "-genkey", "-out", "dsa.key", "1024")
    openssl("ecparam", "-name", "prime256v1", "-genkey", "-noout", "-out", "ec.key")

    def issue(name, keyname, subjectname, serial, *args):
        write("index", "")
        write("serial", serial + "\n")
        openssl("req", "-new", "-config", "ca.cnf", "-utf8", "-key", keyname, "-subj", subject(subjectname), "-out",
                name + ".req")
        openssl("ca", "-config", "ca.cnf", "-batch", "-notext", "-preserveDN", "-in", name + ".req", "-startdate",
                "20000229123456Z", "-enddate", "20900101000000Z", "-out", name, *args)

    issue("full", "ca.key", CA, "8F00112233445566", "-keyfile", "ca.key", "-selfsign", "-extensions", "full")
    signer = "-keyfile", "ca.key", "-cert", "full"
    issue("dsa", "dsa.key", LEAF, "02", *signer, "-extensions", "plain")
    issue("dsasigned", "leaf.key", LEAF, "0102030405060708090A0B0C0D0E0F1011121314", "-keyfile", "dsa.key", "-cert",
          "dsa", "-md", "sha1", "-extensions", "plain")
    issue("ec", "ec.key", LEAF, "03", *signer)
    openssl("req", "-new", "-config", "ca.cnf", "-key", "leaf.key", "-subj", subject(LEAF), "-sha512", "-out", "request")
    openssl("x509", "-req", "-in", "request", "-CA", "full", "-CAkey", "ca.key", "-set_serial", "1", "-days", "20000",
            "-md5", "-out", "v1")

    revoked = [("01", "010203040506Z"), ("0102030405060708090A0B0C0D0E0F1011121314", "200229000000Z"),
               ("8000", "491231235959Z")]
    write("index", "".join(f"R\t20900101000000Z\t{date}\t{serial}\tunknown\t/CN=X\n" for serial, date in revoked))
    write("crlnumber", "01\n")
    openssl("ca", "-config", "ca.cnf", *signer, "-gencrl", "-crlexts", "crl_extensions", "-out", "crl")
    write("index", "")
    os.remove("crlnumber")
    write("ca.cnf", CONFIG.replace("crlnumber = crlnumber\n", ""))
    openssl("ca", "-config", "ca.cnf", *signer, "-gencrl", "-md", "sha1", "-out", "crlempty")
    without_next_update("crlempty", "crlonce")

    return [("full", certificate("full", CA, CA, "rsaEncryption", full_extensions)),
            ("v1", certificate("v1", CA, LEAF, "rsaEncryption")),
            ("dsa", certificate("dsa", CA, LEAF, "dsa", plain_extensions)),
            ("dsasigned", certificate("dsasigned", LEAF, LEAF, "rsaEncryption", plain_extensions)),
            ("ec", certificate("ec", CA, LEAF, "none")),
            ("request", request("request")),
            ("crl", crl("crl")), ("crlempty", crl("crlempty")), ("crlonce", crl("crlonce"))]


def request(path):
    text = openssl("req", "-in", path, "-noout", "-text")
    version = re.search(r"Version: \d \(0x(\d)\)", text).group(1)
    return (f"NEW CERTIFICATE REQUEST\nVersion: {version}\nSubject:\n  {printed(LEAF)}\n" + key(text, "rsaEncryption") +
            signature(path, text))


with tempfile.TemporaryDirectory() as folder:
    os.chdir(folder)
    dumps = make()
    with open(os.path.join(HERE, "dumps.txt"), "w", encoding="latin-1", newline="\n") as file:
        for name, dump in dumps:
            file.write(f"=== {name}\n{open(name).read().strip()}\n=== dump\n{dump}")
    os.chdir("/")
