#!/usr/bin/env python3
"""Makes the certificates, requests and revocation lists of this folder, with new keys, and the files of
expected values, certificates.txt and signed.txt, from what other programs say of them.

Tools: OpenSSL 3.0.22, certtool (GnuTLS) 3.7.9, botan 2.19.3, keytool (OpenJDK) 17, Python 3 alone. What these
programs cannot make is put together here and signed by openssl.

Usage: make.py [folder of keys that are kept for the next run]
"""
import base64
import datetime
import hashlib
import pathlib
import re
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
TEMP = tempfile.TemporaryDirectory()
WORK = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else TEMP.name)


def run(command, data=None):
    done = subprocess.run(command, shell=True, cwd=WORK, input=data, capture_output=True)
    if done.returncode != 0:
        sys.exit(f'{command}\n{done.stdout.decode("latin-1")}\n{done.stderr.decode("latin-1")}')
    return done.stdout


# --- DER ------------------------------------------------------------------------------------------------

def length(n):
    if n < 128:
        return bytes([n])
    octets = n.to_bytes((n.bit_length() + 7) // 8, 'big')
    return bytes([0x80 | len(octets)]) + octets


def tlv(tag, *parts):
    content = b''.join(parts)
    return bytes([tag]) + length(len(content)) + content


def seq(*parts):
    return tlv(0x30, *parts)


def integer(n):
    return tlv(2, n.to_bytes(max(1, ((n if n >= 0 else ~n).bit_length() + 8) // 8), 'big', signed=True))


def oid(dotted):
    arcs = [int(a) for a in dotted.split('.')]
    out = b''
    for arc in [arcs[0] * 40 + arcs[1]] + arcs[2:]:
        group = bytes([arc & 127])
        while arc := arc >> 7:
            group = bytes([arc & 127 | 128]) + group
        out += group
    return tlv(6, out)


def walk(der, at=0, end=None):
    """The elements of a level: (tag, content's start, content's end, start)."""
    end = len(der) if end is None else end
    out = []
    while at < end:
        start, tag, n = at, der[at], der[at + 1]
        at += 2
        if n & 128:
            n, at = int.from_bytes(der[at:at + (n & 127)], 'big'), at + (n & 127)
        out.append((tag, at, at + n, start))
        at += n
    return out


def dotted(content):
    arcs, value = [], 0
    for octet in content:
        value = value << 7 | octet & 127
        if not octet & 128:
            arcs.append(value)
            value = 0
    first = min(arcs[0] // 40, 2)
    return '.'.join(map(str, [first, arcs[0] - 40 * first] + arcs[1:]))


class Certificate:
    def __init__(self, der):
        self.der = der
        outer = walk(der)[0]
        self.tbs, self.algorithm, self.signature = walk(der, outer[1], outer[2])
        fields = walk(der, self.tbs[1], self.tbs[2])
        self.version = 1
        if fields[0][0] == 0xA0:
            self.version = der[fields.pop(0)[2] - 1] + 1
        self.serial, _, self.issuer, self.validity, self.subject, self.key = fields[:6]
        self.extensions = {}
        for tag, at, end, _ in fields[6:]:
            if tag == 0xA3:
                for entry in walk(der, *walk(der, at, end)[0][1:3]):
                    parts = walk(der, entry[1], entry[2])
                    self.extensions.setdefault(dotted(der[parts[0][1]:parts[0][2]]),
                                               der[parts[-1][1]:parts[-1][2]])

    def slice(self, element):
        return self.der[element[3]:element[2]]

    def oid_of(self, element):
        return dotted(self.der[slice(*walk(self.der, element[1], element[2])[0][1:3])])


# --- keys -----------------------------------------------------------------------------------------------

def key(name, *options):
    if not (WORK / f'{name}.key').exists():
        run(f'openssl genpkey {" ".join(options)} -out {name}.key')
    return name


def rsa_key(name, bits):
    return key(name, f'-algorithm RSA -pkeyopt rsa_keygen_bits:{bits}')


def dsa_key(name, p, q):
    if not (WORK / f'{name}.par').exists():
        run(f'openssl genpkey -genparam -algorithm DSA -pkeyopt dsa_paramgen_bits:{p} '
            f'-pkeyopt dsa_paramgen_q_bits:{q} -out {name}.par')
    return key(name, f'-paramfile {name}.par')


def spki(name):
    return run(f'openssl pkey -in {name}.key -pubout -outform DER')


# --- objects put together here --------------------------------------------------------------------------

ALGORITHM = {  # name: OID, parameters, openssl's digest
    'md5': ('1.2.840.113549.1.1.4', True), 'sha1': ('1.2.840.113549.1.1.5', True),
    'sha256': ('1.2.840.113549.1.1.11', True), 'sha1-oiw': ('1.3.14.3.2.29', True),
    'dsa-sha1': ('1.2.840.10040.4.3', False), 'dsa-sha256': ('2.16.840.1.101.3.4.3.2', False),
}


def identifier(name):
    number, parameters = ALGORITHM[name]
    return seq(oid(number), tlv(5) if parameters else b'')


def sign(tbs, signer, algorithm, outer=None):
    digest = re.search('md5|sha1|sha256', algorithm).group()
    signature = run(f'openssl dgst -{digest} -sign {signer}.key', tbs)
    return seq(tbs, identifier(outer or algorithm), tlv(3, b'\0', signature))


UTF8, NUMERIC, PRINTABLE, T61, IA5, UTC, GENERAL, VISIBLE, UNIVERSAL, BMP = (
    0x0C, 0x12, 0x13, 0x14, 0x16, 0x17, 0x18, 0x1A, 0x1C, 0x1E)


def name(*rdns):
    """Each RDN is one (type, tag, value) or a list of them."""
    out = b''
    for rdn in rdns:
        pairs = rdn if isinstance(rdn, list) else [rdn]
        out += tlv(0x31, *[seq(oid(kind), tlv(tag, value)) for kind, tag, value in pairs])
    return seq(out)


CN, SERIAL, COUNTRY, STATE, ORG, UNIT, DC, EMAIL, SN, GIVEN, TITLE, LOCALITY = (
    '2.5.4.3', '2.5.4.5', '2.5.4.6', '2.5.4.8', '2.5.4.10', '2.5.4.11', '0.9.2342.19200300.100.1.25',
    '1.2.840.113549.1.9.1', '2.5.4.4', '2.5.4.42', '2.5.4.12', '2.5.4.7')


def common(text):
    return name((CN, PRINTABLE, text.encode()))


def extension(number, value, critical=False):
    return seq(oid(number), tlv(1, b'\xff') if critical else b'', tlv(4, value))


PLAIN_TIMES = tlv(UTC, b'200101000000Z'), tlv(UTC, b'391231235959Z')


def certificate(subject, key_info, issuer, signer, algorithm='sha1', serial=1, times=PLAIN_TIMES,
                extensions=(), version=3, inner=None):
    tbs = seq(tlv(0xA0, integer(version - 1)) if version > 1 else b'',
              serial if isinstance(serial, bytes) else integer(serial), identifier(inner or algorithm),
              issuer, seq(*times), subject, key_info,
              tlv(0xA3, seq(*extensions)) if extensions else b'')
    return sign(tbs, signer, algorithm)


def indefinite(der, depth):
    """The outer levels of a DER object with lengths of the indefinite form."""
    tag, at, end, start = walk(der)[0]
    if depth == 0 or not tag & 0x20:
        return der
    return bytes([tag, 0x80]) + b''.join(indefinite(der[e[3]:e[2]], depth - 1)
                                         for e in walk(der, at, end)) + b'\0\0'


def long_lengths(der, depth):
    tag, at, end, start = walk(der)[0]
    content = der[at:end]
    if depth > 0 and tag & 0x20:
        content = b''.join(long_lengths(der[e[3]:e[2]], depth - 1) for e in walk(der, at, end))
    return bytes([tag, 0x84]) + len(content).to_bytes(4, 'big') + content


# --- expected values ------------------------------------------------------------------------------------

SIGNATURE = {'1.2.840.113549.1.1.2': 'md2WithRSAEncryption', '1.2.840.113549.1.1.4': 'md5WithRSAEncryption',
             '1.2.840.113549.1.1.5': 'sha1WithRSAEncryption', '1.3.14.3.2.29': 'sha1WithRSAEncryption',
             '1.2.840.113549.1.1.11': 'sha256WithRSAEncryption',
             '1.2.840.113549.1.1.12': 'sha384WithRSAEncryption',
             '1.2.840.113549.1.1.13': 'sha512WithRSAEncryption',
             '1.2.840.113549.1.1.14': 'sha224WithRSAEncryption', '1.2.840.10040.4.3': 'dsaWithSha1'}
PUBLIC_KEY = {'1.2.840.113549.1.1.1': 'rsaEncryption', '1.2.840.10040.4.1': 'dsa'}
PURPOSE = {f'1.3.6.1.5.5.7.3.{n}': text for n, text in {
    1: 'serverAuth', 2: 'clientAuth', 3: 'codeSigning', 4: 'emailProtection', 8: 'timeStamping',
    9: 'OCSPSigning'}.items()}
ATTRIBUTE = {CN: 'CN', COUNTRY: 'C', ORG: 'O', UNIT: 'OU', LOCALITY: 'L', STATE: 'ST', EMAIL: 'E', SN: 'SN',
             GIVEN: 'G', TITLE: 'T', DC: 'DC', '1.2.840.113549.1.9.3': 'contentType'}
USAGE = [('Digital Signature', 'digitalSignature'), ('Non Repudiation', 'nonRepudiation'),
         ('Key Encipherment', 'keyEncipherment'), ('Data Encipherment', 'dataEncipherment'),
         ('Key Agreement', 'keyAgreement'), ('Certificate Sign', 'keyCertSign'), ('CRL Sign', 'cRLSign'),
         ('Encipher Only', 'encipherOnly'), ('Decipher Only', 'decipherOnly')]


def escaped(text):
    out = ''.join(chr(b) if 0x20 <= b < 0x7F and b != 0x5C else f'\\x{b:02x}' for b in text)
    return out[:-1] + '\\x20' if out.endswith(' ') else out


def value_text(tag, value, latin1):
    converted = None
    try:
        if tag in (NUMERIC, PRINTABLE, T61, IA5, UTC, GENERAL, VISIBLE):
            converted = value
        elif latin1 and tag in (UTF8, BMP, UNIVERSAL):
            codec = {UTF8: 'utf-8', BMP: 'utf-16-be', UNIVERSAL: 'utf-32-be'}[tag]
            converted = value.decode(codec).encode('latin-1')
    except UnicodeError:
        pass
    if converted is None or b'\0' in converted:
        return ' '.join(f'{b:02X}' for b in value).encode()
    return converted


def name_texts(line):
    """Both texts of a name, from a line of openssl with every value dumped as DER."""
    texts = []
    for latin1 in False, True:
        items = []
        for item in re.split(r',|\+', line) if line else []:
            kind, value = item.split('=#')
            der = bytes.fromhex(value)
            tag, at, end, _ = walk(der)[0]
            items.append(ATTRIBUTE.get(kind, kind).encode() + b'=' + value_text(tag, der[at:end], latin1))
        texts.append(escaped(b';'.join(items)))
    return texts


def first_of_tag(der, at, end, wanted):
    for tag, start, stop, _ in walk(der, at, end):
        if tag == wanted:
            return der[start:stop]
        if tag & 0x20 and (found := first_of_tag(der, start, stop, wanted)) is not None:
            return found
    return None


def expected(der):
    """What openssl and the bytes say of a certificate that is DER."""
    c = Certificate(der)
    (WORK / 'now.der').write_bytes(der)
    show = 'openssl x509 -inform DER -in now.der -noout '
    said = run(show + '-serial -startdate -enddate -dateopt iso_8601 -issuer -subject '
               '-nameopt sep_comma_plus,oid,dump_all,dump_der').decode()
    said = dict(line.split('=', 1) for line in said.splitlines())
    text = run(show + '-text').decode('latin-1')

    def block(title):
        found = re.search(re.escape(title) + r': (?:critical)?\s*\n\s+(.*)', text)
        return found.group(1).strip() if found else ''

    v = {'version': c.version}
    assert int(re.search(r'Version: (\d)', text).group(1)) == c.version
    serial = integer(int(said['serial'], 16))
    assert serial == c.slice(c.serial), said['serial']
    v['serialNumber'] = serial[2:].hex()
    number = c.oid_of(c.algorithm)
    v['signatureAlgorithm'] = SIGNATURE.get(number, number)
    v['signatureValue'] = der[c.signature[1] + 1:c.signature[2]].hex()
    if 'WithRSA' in v['signatureAlgorithm']:
        shown = text[text.rindex('Signature Value:') + 16:]
        assert re.sub(r'[\s:]', '', shown) == v['signatureValue']
    v['sigAlgID'] = {'sha1WithRSAEncryption': 1, 'md5WithRSAEncryption': 1, 'md2WithRSAEncryption': 1,
                     'dsaWithSha1': 2}.get(v['signatureAlgorithm'], 0)
    usage = block('X509v3 Key Usage').split(', ')
    bits = [n for n, (shown, _) in enumerate(USAGE) if shown in usage]
    v['keyUsageString'] = ','.join(USAGE[n][1] for n in bits)
    v['keyUsageFlags'] = sum(1 << n for n in bits)
    for when in 'notBefore', 'notAfter':
        v[when] = re.sub(r'\.\d+', '', said[when].replace(' ', 'T'))
    v['issuerName'], v['issuerLatin1'] = name_texts(said['issuer'])
    v['subjectName'], v['subjectLatin1'] = name_texts(said['subject'])
    number = c.oid_of(walk(der, c.key[1], c.key[2])[0])
    v['subjectPublicKeyAlgorithm'] = PUBLIC_KEY.get(number, number)
    v['subjectKeyIdentifier'] = block('X509v3 Subject Key Identifier').replace(':', '').lower()
    authority = block('X509v3 Authority Key Identifier').removeprefix('keyid:')
    v['authorityKeyIdentifier'] = (authority.replace(':', '').lower()
                                   if re.fullmatch('[0-9A-F:]*', authority) else '')

    def found(number, tag, label):
        value = c.extensions.get(number)
        value = None if value is None else first_of_tag(value, 0, len(value), tag)
        assert value is None or b'\0' in value or label + value.decode() in text
        return '' if value is None else '!8' if b'\0' in value else escaped(value)
    v['rfc822Name'] = found('2.5.29.17', 0x81, 'email:')
    v['isCA'] = int('CA:TRUE' in block('X509v3 Basic Constraints'))
    purposes = c.extensions.get('2.5.29.37')
    purposes = [] if purposes is None else [dotted(purposes[e[1]:e[2]])
                                            for e in walk(purposes, *walk(purposes)[0][1:3])]
    assert len(purposes) == len([p for p in block('X509v3 Extended Key Usage').split(', ') if p])
    v['extKeyUsageString'] = ','.join(PURPOSE.get(p, p) for p in purposes)
    v['cRLDistributionPointsURI'] = found('2.5.29.31', 0x86, 'URI:')
    v['authorityInfoAccessURI'] = found('1.3.6.1.5.5.7.1.1', 0x86, 'URI:')
    for digest in 'sha1', 'md5', 'sha256':
        v[digest] = run(show + f'-fingerprint -{digest}').decode().split('=')[1].strip().replace(':', '').lower()
    v['issuerAndSN'] = hashlib.sha1(seq(c.slice(c.issuer), c.slice(c.serial))).hexdigest()
    if v['subjectPublicKeyAlgorithm'] == 'rsaEncryption':
        public = run('openssl x509 -inform DER -in now.der -noout -pubkey | '
                     'openssl rsa -pubin -RSAPublicKey_out -outform DER')
        v['publicKey'] = hashlib.sha1(public).hexdigest()
    return v


def verifies(der, issuer):
    """openssl's word on a signature, which looks at nothing else; issuer is a certificate as DER."""
    c = Certificate(der)
    (WORK / 'issuer.pub').write_bytes(
        run('openssl x509 -inform DER -noout -pubkey', issuer))
    (WORK / 'now.sig').write_bytes(der[c.signature[1] + 1:c.signature[2]])
    number = dotted(der[slice(*walk(der, c.algorithm[1], c.algorithm[2])[0][1:3])])
    digest = {'1.2.840.113549.1.1.4': 'md5', '1.2.840.113549.1.1.5': 'sha1', '1.3.14.3.2.29': 'sha1',
              '1.2.840.113549.1.1.11': 'sha256', '1.2.840.113549.1.1.12': 'sha384',
              '1.2.840.113549.1.1.13': 'sha512', '1.2.840.113549.1.1.14': 'sha224',
              '1.2.840.10040.4.3': 'sha1'}[number]
    (WORK / 'now.tbs').write_bytes(c.slice(c.tbs))
    return subprocess.run(f'openssl dgst -{digest} -verify issuer.pub -signature now.sig now.tbs', shell=True,
                          cwd=WORK, capture_output=True).returncode == 0


# --- the set --------------------------------------------------------------------------------------------

RECORDS, MADE = [], {}


def add(file, der, issuer=None, verify=None, shown=None, note=None, only=None, **instead):
    """Writes a certificate and its record. issuer: a file, default itself; verify: what to expect where
    openssl is not asked; shown: the DER of one that is not DER; only: the whole record."""
    MADE[file] = shown or der
    armour = (b'-----BEGIN CERTIFICATE-----\n' +
              b'\n'.join(re.findall(b'.{1,64}', base64.b64encode(der))) + b'\n-----END CERTIFICATE-----\n')
    (HERE / file).write_bytes(armour if file.endswith('.pem') else der)
    issuer = issuer or file
    if verify is None:
        verify = 'yes' if verifies(MADE[file], MADE[issuer]) else 'no'
        assert verify == 'yes', file
    values = only or expected(MADE[file])
    values.update(instead)
    record = ([f'# {note}'] if note else []) + [f'file = {file}', f'issuer = {issuer}', f'verify = {verify}']
    RECORDS.append('\n'.join(record + [f'{k} = {v}' for k, v in values.items() if v not in ('', 0)]))


def der_of(file):
    text = (WORK / file).read_bytes()
    return run(f'openssl x509 -in {file} -outform DER') if b'-----' in text else text


def main():
    rsa_key('ca', 2048), rsa_key('small', 1024), rsa_key('large', 4096), rsa_key('other', 1024)
    dsa_key('dsa', 1024, 160), dsa_key('dsa2', 2048, 256)
    key('ec', '-algorithm EC -pkeyopt ec_paramgen_curve:P-256'), key('ed', '-algorithm ed25519')

    # openssl
    (WORK / 'req.cnf').write_text('''
oid_section = oids
[oids]
privateKind = 1.3.6.1.4.1.55555.1.2
[req]
distinguished_name = dn
string_mask = utf8only
utf8 = yes
[dn]
[reqs]
distinguished_name = dn
attributes = attributes
req_extensions = some
prompt = no
[attributes]
challengePassword = secret
unstructuredName = a name
[bmp]
distinguished_name = dn
string_mask = MASK:0x800
utf8 = yes
[t61]
distinguished_name = dn
string_mask = MASK:0x4
utf8 = yes
[ca]
basicConstraints = critical,CA:TRUE,pathlen:3
keyUsage = critical,keyCertSign,cRLSign
subjectKeyIdentifier = hash
authorityKeyIdentifier = keyid:always,issuer:always
[all]
basicConstraints = CA:FALSE
keyUsage = digitalSignature,nonRepudiation,keyEncipherment,dataEncipherment,keyAgreement,keyCertSign,cRLSign,encipherOnly,decipherOnly
extendedKeyUsage = serverAuth,clientAuth,1.2.3.4,codeSigning,emailProtection,timeStamping,OCSPSigning,2.39.4294967295.1
subjectKeyIdentifier = 00112233445566778899
authorityKeyIdentifier = keyid:always,issuer:always
subjectAltName = DNS:www.example.com,IP:192.0.2.1,URI:http://example.com/,dirName:dir,otherName:1.2.3;UTF8:other,email:alice@example.com,email:bob@example.com
crlDistributionPoints = point1,URI:http://example.com/2.crl
authorityInfoAccess = caIssuers;DNS:example.com,OCSP;URI:http://ocsp.example.com/,caIssuers;URI:http://example.com/ca.cer
certificatePolicies = 1.2.3.4
1.3.6.1.4.1.55555.2 = critical,ASN1:UTF8String:unknown
[point1]
fullname = dirName:dir,URI:http://example.com/1.crl
CRLissuer = dirName:dir
reasons = keyCompromise
[dir]
C = AU
[some]
keyUsage = critical,digitalSignature,decipherOnly
basicConstraints = critical,CA:FALSE
''')

    def self_signed(signer, digest, subject, extensions, more=''):
        return run(f"openssl req -x509 -config req.cnf -new -key {signer}.key -{digest} -subj '{subject}' "
                   f'-extensions {extensions} {more} -outform DER')

    def issued(ca_file, ca_key, subject_key, digest, subject, extensions, more='', section='req'):
        (WORK / 'ca.crt').write_bytes(MADE[ca_file])
        run(f"openssl req -new -config req.cnf -section {section} -key {subject_key}.key -subj '{subject}' "
            '-out now.req')
        use = f'-extfile req.cnf -extensions {extensions}' if extensions else ''
        return run(f'openssl x509 -req -in now.req -CA ca.crt -CAform DER -CAkey {ca_key}.key -{digest} {use} '
                   f'{more} -outform DER')

    add('ca.pem', self_signed('ca', 'sha256', '/C=AU/O=Example Org/CN=Test CA', 'ca', '-days 9000'))
    add('v1_md5.der', issued('ca.pem', 'ca', 'small', 'md5', '/C=AU/CN=Version 1', '',
                             '-set_serial 1 -days 365'), 'ca.pem')
    add('all_sha1.pem', issued('ca.pem', 'ca', 'small', 'sha1',
                               '/C=AU/ST=Québec/L=Zürich/O=Ω/CN=Zoë/serialNumber=12345/privateKind=p'
                               '/emailAddress=a@example.com', 'all', '-set_serial 0x80 -days 8000'), 'ca.pem',
        note='Every extension; UTF8String that Latin-1 has and has not')
    add('bmp_sha224.der', issued('ca.pem', 'ca', 'other', 'sha224', '/C=AU/O=Müller/OU=Ωmega/CN=Bmp', 'some',
                                 '-set_serial -5 -days 8000', 'bmp'), 'ca.pem',
        note='BMPString; a negative serial number')
    add('t61_sha384.pem', issued('ca.pem', 'ca', 'small', 'sha384', '/C=AU/O=Müller;Söhne/CN=T61', 'some',
                                 '-set_serial 0x00f1f2f3f4f5f6f7f8f9fafbfcfdfeff01020304 -days 8000', 't61'),
        'ca.pem', note='T61String; a serial number of 20 octets, the first of them zero')
    add('rsa4096_sha512.der', self_signed('large', 'sha512', '/CN=Large', 'some', '-days 40000'))
    add('multi.der', issued('ca.pem', 'ca', 'small', 'sha256', '/C=AU+O=One+OU=Two/CN=Multi+serialNumber=7',
                            'some', '-set_serial 7'),
        'ca.pem', note='RDNs of several attributes')
    add('pss.pem', issued('ca.pem', 'ca', 'small', 'sha256', '/CN=Pss', '',
                          '-set_serial 8 -sigopt rsa_padding_mode:pss'), 'ca.pem', 'refused')
    add('ec.pem', self_signed('ec', 'sha256', '/CN=Ec', 'ca'), verify='refused')
    add('ed25519.der', self_signed('ed', 'sha256', '/CN=Ed', 'ca'), verify='refused')
    add('dsa_ca.pem', self_signed('dsa', 'sha1', '/CN=DSA CA', 'ca', '-days 9000'))
    add('dsa_rsa.der', issued('dsa_ca.pem', 'dsa', 'small', 'sha1', '/CN=RSA by DSA', 'some', '-set_serial 9'),
        'dsa_ca.pem')
    add('dsa2048_sha1.der', self_signed('dsa2', 'sha1', '/CN=DSA 2048', 'some'))
    add('dsa_sha256.pem', self_signed('dsa', 'sha256', '/CN=DSA CA', 'some'), verify='refused')

    # certtool
    (WORK / 'gca.tmpl').write_text('cn = "GnuTLS CA"\norganization = "Example"\ncountry = AU\nserial = 11\n'
                                   'expiration_days = 9000\nca\ncert_signing_key\ncrl_signing_key\n')
    run('certtool -s --load-privkey ca.key --template gca.tmpl --outder --outfile now.crt')
    add('gnutls_ca.der', der_of('now.crt'))
    (WORK / 'leaf.tmpl').write_text(
        'dn = "cn=Größe\\, Höhe,ou=a;b,dc=example,dc=com,title=Dr,surname=Smith,givenName=Ann,C=AU"\n'
        'serial = 0x0a3f\nactivation_date = "2020-02-29 12:34:56 UTC"\nexpiration_date = "2050-01-01 00:00:00 UTC"\n'
        'dns_name = "a.example.com"\nip_address = "2001:db8::1"\nemail = "ann@example.com"\n'
        'uri = "http://a.example.com/"\nsigning_key\nencryption_key\nnon_repudiation\ntls_www_server\n'
        'key_purpose_oid = "1.2.3.4.5.6.7"\nocsp_signing_key\ncrl_dist_points = "http://example.com/a.crl"\n'
        'crl_dist_points = "http://example.com/b.crl"\nocsp_uri = "http://ocsp.example.com/"\n'
        'ca_issuers_uri = "http://example.com/ca.crt"\n')
    (WORK / 'gca.pem').write_bytes(run('openssl x509 -inform DER', MADE['gnutls_ca.der']))
    run('certtool -c --load-privkey small.key --load-ca-certificate gca.pem --load-ca-privkey ca.key '
        '--template leaf.tmpl --hash SHA1 --outfile now.crt')
    add('gnutls_leaf.pem', der_of('now.crt'), 'gnutls_ca.der')

    # botan
    run('botan gen_self_signed --ca --country=AU --organization=Example --email=ca@example.com '
        '--dns=ca.example.com --days=9000 --hash=SHA-384 ca.key "Botan CA" > now.crt')
    add('botan_ca.pem', der_of('now.crt'))
    (WORK / 'botan_ca.crt').write_bytes((WORK / 'now.crt').read_bytes())
    run('botan gen_pkcs10 --country=AU --organization=Grün --email=b@example.com '
        'ca.key "Botan leaf" > botan.req')
    run('botan sign_cert --duration=3000 --hash=SHA-512 botan_ca.crt ca.key botan.req > now.crt')
    add('botan_leaf.der', der_of('now.crt'), 'botan_ca.pem')

    # keytool
    def keytool(alias, algorithm, bits, digest, dname, more):
        (WORK / 'store').unlink(missing_ok=True)
        run(f'keytool -genkeypair -alias {alias} -keyalg {algorithm} -keysize {bits} -sigalg {digest} '
            f"-dname '{dname}' -storetype PKCS12 -keystore store -storepass secret -validity 3000 {more}")
        return run(f'keytool -exportcert -alias {alias} -keystore store -storepass secret')
    add('java_rsa.der', keytool('a', 'RSA', 1024, 'SHA224withRSA',
                                'EMAILADDRESS=j@example.com, CN="Java; semicolon", OU=Größe, O=J, C=AU',
                                '-ext san=ip:192.0.2.9,email:j2@example.com -ext bc:critical=ca:true '
                                '-ext ku=digitalSignature,encipherOnly -ext eku=codeSigning,1.2.3.4'))
    add('java_dsa.der', keytool('b', 'DSA', 1024, 'SHA1withDSA', 'CN=Java DSA', ''))

    # what no tool makes
    ca_name = Certificate(MADE['ca.pem']).slice(Certificate(MADE['ca.pem']).subject)
    small, dsa = spki('small'), spki('dsa')

    def ours(file, subject, note=None, verify=None, shown=None, change=None, key_info=small, only=None,
             instead=None, **more):
        der = certificate(subject, key_info, ca_name, 'ca', **more)
        add(file, change(der) if change else der, 'ca.pem', verify, der if change else None, note, only, **(instead or {}))

    ours('names.der', name(
        (COUNTRY, PRINTABLE, b'AU'), (ORG, T61, b'a;b=c\\'), (UNIT, NUMERIC, b'12 34'), (EMAIL, IA5, b'x@y.z'),
        (TITLE, PRINTABLE, b' blanks '), (GIVEN, UNIVERSAL, 'Zoë'.encode('utf-32-be')),
        (SN, UNIVERSAL, 'Ωx'.encode('utf-32-be')), (LOCALITY, T61, b'\xe9'), (DC, UTF8, '\U0001F600'.encode()),
        (CN, PRINTABLE, b''), (CN, UTF8, b''), (CN, UTF8, b'plain'), (CN, PRINTABLE, b'#x41'), (CN, PRINTABLE, b"it's"),
        ('2.5.4.45', 3, b'\0\xff'), ('1.2.840.113549.1.9.3', PRINTABLE, b'an OID of the table'),
        ('2.39.4294967295.1', PRINTABLE, b'private')), 'String types of names')
    odd = [(TITLE, VISIBLE, b'visible'), (LOCALITY, UTC, b'991231235959Z'), (STATE, GENERAL, b'20500101000000Z'),
           (ORG, 4, b'octets'), (ORG, 6, b'\x55\x04\x03'), (ORG, 2, b'\x41'), (UNIT, BMP, b'\0a\0'), (UNIT, BMP, '\U0001F600'.encode('utf-16-be')),
           (UNIT, UTF8, b'\xc3'), (UNIT, UTF8, b'\xed\xa0\x80'), (UNIT, UTF8, b'\xc1\xa1'), (UNIT, UNIVERSAL, b'\0\0\0'),
           (UNIT, UNIVERSAL, b'\0\0\1a'), (UNIT, UNIVERSAL, b'\xff\0\0a'), (UNIT, 0x80, b'context'), (CN, UTF8, '\x85ÿ'.encode()),
           (SN, 5, b'')]
    names = name_texts(','.join(f'{kind}=#{tlv(tag, value).hex()}' for kind, tag, value in odd))
    ours('names_odd.der', name(*odd), 'Types and octets that openssl refuses to read in names', 'yes',
         only={'partial': 1, 'subjectName': names[0], 'subjectLatin1': names[1]})
    ours('zero.der', name((CN, PRINTABLE, b'www.example.com\0.evil.com'), (CN, UTF8, b'a\0b'), (CN, BMP, b'\0a\0\0\0b'),
                          (CN, T61, b'\0'), (ORG, PRINTABLE, b'end\0')), 'Zero bytes, in names and addresses',
         extensions=[extension('2.5.29.17', seq(tlv(0x81, b'a@example.com\0.evil.com'))),
                     extension('2.5.29.31', seq(seq(tlv(0xA0, tlv(0xA0, tlv(0x86, b'http://a\0b')))))),
                     extension('1.3.6.1.5.5.7.1.1', seq(seq(oid('1.3.6.1.5.5.7.48.1'), tlv(0x86, b'\0http://a'))))])
    ours('empty_subject.pem', name(), extensions=[
        extension('2.5.29.17', seq(tlv(0x82, b'dns'), tlv(0x81, b'first@x'), tlv(0x81, b'second@x')), True),
        extension('2.5.29.17', seq(tlv(0x81, b'twice@x'))), extension('2.5.29.19', seq(tlv(1, b'\0'))),
        extension('2.5.29.15', tlv(3, b'\7\0\0'))], note='Extensions twice, cA FALSE in full, no key usage at all')
    ours('times.der', common('Short times'), 'Seconds missing, a fraction',
         times=(tlv(UTC, b'4912312359Z'), tlv(GENERAL, b'20500101000000.25Z')))
    ours('times_1950.der', common('Old'), times=(tlv(UTC, b'500101000000Z'), tlv(GENERAL, b'99991231235959Z')))
    ours('times_bad.der', common('No times'), 'Times with an offset and without a zone',
         times=(tlv(UTC, b'200101000000+0100'), tlv(GENERAL, b'20500101000000')),
         instead={'notBefore': '2020-01-01T00:00:00Z', 'notAfter': '2050-01-01T00:00:00Z'})
    ours('oiw.der', common('Old OID'), algorithm='sha1-oiw')
    ours('sha1_inner.der', common('Two algorithms'), algorithm='sha256', inner='sha1',
         note='The inner algorithm is not the outer one, which counts')
    whole = common('Not DER')
    exts = [extension('2.5.29.14', tlv(4, b'\x12\x34')), extension('2.5.29.19', seq(tlv(1, b'\xff')), True),
            extension('2.5.29.17', seq(tlv(0x81, b'ber@x')))]
    ours('ber_outer.der', whole, extensions=exts, change=lambda d: indefinite(d, 1))
    ours('ber_deep.pem', whole, extensions=exts, change=lambda d: indefinite(d, 9))
    ours('ber_lengths.der', whole, extensions=exts, change=lambda d: long_lengths(d, 9))

    def unused_bits(der):
        c = Certificate(der)
        return der[:c.signature[1]] + b'\1' + der[c.signature[1] + 1:]
    der = certificate(common('Unused bits'), small, ca_name, 'ca')
    add('unused_bits.der', unused_bits(der), 'ca.pem', 'no', note='The signature has an unused bit')
    der = certificate(common('Wrong issuer'), small, ca_name, 'other')
    add('wrong_issuer.der', der, 'ca.pem', 'no')
    dsa_name = Certificate(MADE['dsa_ca.pem']).slice(Certificate(MADE['dsa_ca.pem']).subject)
    fields = walk(dsa, *walk(dsa)[0][1:3])
    bare = seq(seq(oid('1.2.840.10040.4.1')), dsa[fields[1][3]:fields[1][2]])
    add('dsa_inherited.der', certificate(common('Inherited'), bare, dsa_name, 'dsa', 'dsa-sha1'), 'dsa_ca.pem',
        'yes', note='A DSA key without parameters, and one signed by it')
    add('dsa_by_inherited.der', certificate(common('Under it'), small, common('Inherited'), 'dsa', 'dsa-sha1'),
        'dsa_inherited.der', 'refused')

    requests()
    lists()
    head = ('# Made by make.py from what openssl and certtool say; see there. A value "!8" is the error code 8.\n'
            '# A query that is missing gives nothing, unless the record is partial. verify: yes, no, or refused '
            'for what is\n# not supported.\n\n')
    (HERE / 'certificates.txt').write_text(head + '\n\n'.join(RECORDS) + '\n')
    (HERE / 'signed.txt').write_text('# Requests, and what lists say of certificates. Made by make.py.\n\n' +
                                     '\n\n'.join(SIGNED) + '\n')


SIGNED = []  # requests, and what lists say of certificates


def requests():
    """All of the key of ca.pem, so that it verifies them."""
    run("openssl req -new -config req.cnf -section reqs -key ca.key -subj '/C=AU/CN=Attributes' -sha512 "
        '-outform DER -out now.req')
    (HERE / 'request_openssl.der').write_bytes((WORK / 'now.req').read_bytes())
    (WORK / 'req.tmpl').write_text('cn = Template\nchallenge_password = secret\nemail = "r@example.com"\n')
    run('certtool -q --load-privkey ca.key --template req.tmpl --outfile now.req')
    (HERE / 'request_gnutls.pem').write_bytes(run('openssl req -in now.req'))
    (HERE / 'request_botan.pem').write_bytes((WORK / 'botan.req').read_bytes())
    for file, form in ('request_openssl.der', 'DER'), ('request_gnutls.pem', 'PEM'), ('request_botan.pem', 'PEM'):
        run(f'openssl req -in {HERE}/{file} -inform {form} -noout -verify')
        SIGNED.append(f'signed = {file}\nissuer = ca.pem')


def lists():
    """Lists of the certificates in all_sha1.pem (80), bmp_sha224.der (-5), t61_sha384.pem and gnutls_leaf.pem."""
    serials = {file: Certificate(MADE[file]) for file in MADE}
    serials = {file: integer_value(c.slice(c.serial)) for file, c in serials.items()}

    def index(*entries):
        lines = [f'R\t391231235959Z\t{date}\t{serials.get(file, file):02X}\tunknown\t/CN={n}'
                 for n, (file, date) in enumerate(entries)]
        (WORK / 'index.txt').write_text(''.join(line + '\n' for line in lines))
        (WORK / 'index.txt.attr').write_text('unique_subject = no\n')
        (WORK / 'crlnumber').write_text('1F\n')

    def openssl_list(file, more, form):
        (WORK / 'ca.crt').write_bytes(MADE['ca.pem'])
        run(f'openssl ca -gencrl -config ca.cnf -name db -keyfile ca.key -cert ca.crt {more} -out now.crl')
        run(f'openssl crl -in now.crl -outform {form} -out {HERE}/{file}')

    (WORK / 'ca.cnf').write_text('[db]\ndatabase = index.txt\ndefault_md = sha1\n[two]\ndatabase = index.txt\n'
                                 'crlnumber = crlnumber\n[ext]\nauthorityKeyIdentifier = keyid\n')
    times = '-crl_lastupdate 20200601000000Z -crl_nextupdate 20600601000000Z'
    index()
    openssl_list('crl_empty.der', times, 'DER')
    index((5, '200101010101Z'), ('t61_sha384.pem', '200203040506Z'), (0x7F, '200101010101Z'),
          (0x8000, '200101010101Z'))
    openssl_list('crl_v1.pem', times + ' -md sha256', 'PEM')
    index((3, '200101010101Z,keyCompromise'), ('all_sha1.pem', '200505010203Z,keyTime,20200101000000Z'),
          ('names.der', '200606010203Z,superseded'), (9, '200101010203Z,holdInstruction,holdInstructionReject'))
    openssl_list('crl_v2.der', times + ' -crlexts ext', 'DER')
    (WORK / 'leaf.pem').write_bytes(run('openssl x509 -inform DER', MADE['gnutls_leaf.pem']))
    (WORK / 'crl.tmpl').write_text('crl_this_update_date = "2020-06-01 00:00:00 UTC"\ncrl_number = 5\n'
                                   'crl_next_update_date = "2060-06-01 00:00:00 UTC"\n'
                                   'crl_revocation_date = "2050-05-05 01:02:03 UTC"\n')
    run('certtool --generate-crl --load-ca-privkey ca.key --load-ca-certificate gca.pem --template crl.tmpl '
        '--load-certificate leaf.pem --outder --outfile now.crl')
    (HERE / 'crl_gnutls.der').write_bytes((WORK / 'now.crl').read_bytes())

    for file, issuer, listed in (('crl_empty.der', 'ca.pem', 'all_sha1.pem'), ('crl_v1.pem', 'ca.pem', 't61_sha384.pem'),
                                 ('crl_v1.pem', 'ca.pem', 'all_sha1.pem'), ('crl_v1.pem', 'ca.pem', 'bmp_sha224.der'),
                                 ('crl_v2.der', 'ca.pem', 'all_sha1.pem'), ('crl_v2.der', 'ca.pem', 'names.der'),
                                 ('crl_v2.der', 'ca.pem', 'ber_deep.pem'), ('crl_v2.der', 'ca.pem', 'multi.der'),
                                 ('crl_gnutls.der', 'gnutls_ca.der', 'gnutls_leaf.pem')):
        (WORK / 'ca.crt').write_bytes(run('openssl x509 -inform DER', MADE[issuer]))
        form = 'PEM' if file.endswith('pem') else 'DER'
        shown = run(f'openssl crl -in {HERE}/{file} -inform {form} -noout -text -CAfile ca.crt')
        dates = re.findall(r'Serial Number: (-?[0-9A-F]+)\s+Revocation Date: (.*) GMT', shown.decode())
        dates = [datetime.datetime.strptime(date, '%b %d %H:%M:%S %Y').isoformat() + 'Z'
                 for number, date in dates if int(number, 16) == serials[listed]]
        SIGNED.append(f'signed = {file}\nissuer = {issuer}\ncertificate = {listed}\n'
                      f'revoked = {dates[0] if dates else "no"}')


def integer_value(der):
    return int.from_bytes(der[2:], 'big', signed=True)


if __name__ == '__main__':
    main()
