#!/usr/bin/env python3
"""Makes the PFX files of this folder, with a new key, and cases.txt: what is to be found in them, and PFX structures
that no program makes, put together here. Results are error codes, 0 for success.

Tools: OpenSSL 3.0.22, certtool (GnuTLS) 3.7.9, keytool (OpenJDK) 17, Python 3 alone.
"""
import hashlib
import hmac
import pathlib
import subprocess
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
WORK = tempfile.TemporaryDirectory()
PASSWORD = b'pass w\xf6rd'
BAD_DATA, NOT_SUPPORTED, NO_DATA, SIGNATURE, RANGE = 8, 19, 20, 22, 11


def run(command):
    subprocess.run(command, shell=True, cwd=WORK.name, check=True, capture_output=True)


# --- DER and BER ----------------------------------------------------------------------------------------

def tlv(tag, *parts):
    content = b''.join(parts)
    n = len(content)
    octets = b'' if n < 128 else n.to_bytes((n.bit_length() + 7) // 8, 'big')
    return bytes([tag, n if n < 128 else 0x80 | len(octets)]) + octets + content


def seq(*parts):
    return tlv(0x30, *parts)


def explicit(*parts):
    return tlv(0xA0, *parts)


def octets(*parts):
    return tlv(4, *parts)


def integer(n):
    return tlv(2, n.to_bytes(n.bit_length() // 8 + 1, 'big', signed=True))


def oid(dotted):
    first, second, *rest = map(int, dotted.split('.'))
    out = b''
    for arc in [40 * first + second] + rest:
        group = bytes([arc & 127])
        while arc := arc >> 7:
            group = bytes([arc & 127 | 128]) + group
        out += group
    return tlv(6, out)


def elements(der):
    at = 0
    while at < len(der):
        size, start = der[at + 1], at + 2
        if size > 127:
            start += size & 127
            size = int.from_bytes(der[at + 2:start], 'big')
        yield der[at], der[start:start + size]
        at = start + size


def to_ber(der):
    """Every length indefinite, and every OCTET STRING in segments, one of them in segments itself."""
    out = b''
    for tag, content in elements(der):
        if tag & 0x20:
            out += bytes([tag, 0x80]) + to_ber(content) + b'\0\0'
        elif tag == 4:
            third = len(content) // 3
            inner = b'\x24\x80' + octets(content[third:third + 9]) + octets() + b'\0\0'
            out += b'\x24\x80' + octets(content[:third]) + inner + octets(content[third + 9:]) + b'\0\0'
        else:
            out += tlv(tag, content)
    return out


# --- PKCS #12 (RFC 7292) ---------------------------------------------------------------------------------

DIGESTS = {'sha1': '1.3.14.3.2.26', 'md5': '1.2.840.113549.2.5', 'sha256': '2.16.840.1.101.3.4.2.1',
           'sha224': '2.16.840.1.101.3.4.2.4', 'other': '1.2.3.4'}
PKCS7, BAG = '1.2.840.113549.1.7.', '1.2.840.113549.1.12.10.1.'
X509, SDSI = '1.2.840.113549.1.9.22.1', '1.2.840.113549.1.9.22.2'


def mac_key(digest, password, salt, iterations):
    """Appendix B.2, for keys no longer than the digest."""
    block = hashlib.new(digest).block_size

    def filled(text):
        return (text * block)[:-(-len(text) // block) * block]
    key = bytes([3] * block) + filled(salt) + filled(password)
    for _ in range(iterations):
        key = hashlib.new(digest, key).digest()
    return key


def wide(password):
    return password.decode('latin-1').encode('utf-16-be') + b'\0\0'


def mac_data(safe, digest='sha1', salt=b'saltsalt', iterations=3, field=None, password=wide(PASSWORD), cut=None):
    """field: the iteration count that is written, if it is not the one that counts; b'' for none."""
    known = digest if digest != 'other' else 'sha1'
    mac = hmac.new(mac_key(known, password, salt, iterations), safe, known).digest()
    mac = (mac + b'x')[:len(mac) if cut is None else cut]
    return seq(seq(seq(oid(DIGESTS[digest]), tlv(5)), octets(mac)), octets(salt),
               integer(iterations) if field is None else field)


def content_info(content, kind=1):
    return seq(oid(PKCS7 + str(kind)), explicit(content))


def data(*bags):
    return content_info(octets(seq(*bags)))


def bag(kind, value, *attributes):
    return seq(oid(BAG + str(kind)), explicit(value), *attributes)


def cert_bag(certificate, kind=X509):
    return bag(3, seq(oid(kind), explicit(octets(certificate))))


def key_bag(key):
    return bag(2, key)


def pfx(*infos, version=3, mac=mac_data, **options):
    safe = seq(*infos)
    return seq(integer(version), content_info(octets(safe)), mac(safe, **options) if mac else b'')


def ber_pfx(der):
    """A PFX in BER throughout, with a MAC of its own. The certificate stays DER, inside a segmented OCTET STRING."""
    def inside(element):  # the contents of a ContentInfo of data
        (_, content), = elements(list(elements(element))[1][1])
        return content
    (_, outer), = elements(der)
    (_, safe), = elements(inside(list(elements(outer))[1][1]))
    infos = b''.join(to_ber(content_info(octets(to_ber(inside(info))))) for _, info in elements(safe))
    safe = b'\x30\x80' + infos + b'\0\0'
    return to_ber(seq(integer(3), content_info(octets(safe)), mac_data(safe)))


# --- cases -----------------------------------------------------------------------------------------------

lines = ['# PFX files and structures, and what comes of them. Made by make.py.', '']


def case(what, verify, cert, key, password=PASSWORD, **more):
    fields = {'What': what, 'Password': password.hex(), 'Verify': verify, 'Cert': cert, 'Key': key, **more}
    lines.extend([f'{name} = {value}' for name, value in fields.items()] + [''])


def file_case(name, verify, cert, key, **more):
    (HERE / name).write_bytes((pathlib.Path(WORK.name) / name).read_bytes())
    case(name, verify, cert, key, File=name, **more)


def made(what, der, verify, cert, key, **more):
    case(what, verify, cert, key, Pfx=der.hex(), **more)


def files():
    simple = b'simple'
    run('openssl req -x509 -newkey rsa:1024 -nodes -keyout key.pem -subj "/C=AU/CN=P12" -days 9000 -out cert.pem')
    run(f'openssl x509 -in cert.pem -outform DER -out {HERE}/cert.der')
    export = f'openssl pkcs12 -export -inkey key.pem -in cert.pem -passout pass:simple -iter 20'
    for name, options, verify, cert, key in (
            ('openssl_sha256.p12', '-certpbe NONE -name Alice', 0, 0, 0),
            ('openssl_legacy.p12', '-legacy -certpbe NONE -nomaciter', 0, 0, 0),
            ('openssl_sha384.p12', '-certpbe NONE -keypbe NONE -macalg sha384', 0, 0, NO_DATA),
            ('openssl_sha512.p12', '-nocerts -macalg sha512', 0, NO_DATA, 0),
            ('openssl_nomac.p12', '-nomac', NO_DATA, 0, 0)):
        run(f'{export} {options} -out {name}')
        file_case(name, verify, cert, key, password=simple)
    certtool = 'certtool --to-p12 --load-certificate cert.pem --load-privkey key.pem --p12-name Alice --outder --outfile'
    run(f'{certtool} gnutls.p12 --password simple')
    file_case('gnutls.p12', 0, NOT_SUPPORTED, 0, password=simple)
    run(f'{certtool} gnutls_empty.p12 --empty-password')
    file_case('gnutls_empty.p12', 0, NOT_SUPPORTED, 0, password=b'')
    run('keytool -J-Dkeystore.pkcs12.certProtectionAlgorithm=NONE -J-Dkeystore.pkcs12.macIterationCount=20 '
        '-J-Dkeystore.pkcs12.keyPbeIterationCount=20 -importkeystore '
        '-srckeystore openssl_sha256.p12 -srcstorepass simple -destkeystore java.p12 -deststorepass simple')
    file_case('java.p12', 0, 0, 0, password=simple)
    original = (HERE / 'openssl_sha256.p12').read_bytes()
    for name, content, password in (('ber_outer.p12', to_ber(original), simple), ('ber.p12', ber_pfx(original), PASSWORD)):
        (pathlib.Path(WORK.name) / name).write_bytes(content)
        file_case(name, 0, 0, 0, password=password, **({} if password == simple else {'KeyPassword': simple.hex()}))


def structures():
    one, two = seq(integer(1)), seq(integer(2))
    cert, key = data(cert_bag(one)), data(key_bag(two))
    both = {'CertIs': one.hex(), 'KeyIs': two.hex()}
    made('the least', pfx(cert, key), 0, 0, 0, **both)
    made('wrong password', pfx(cert, key), SIGNATURE, 0, 0, **both, password=b'pass word')
    made('changed data', pfx(cert, key).replace(two, seq(integer(3))), SIGNATURE, 0, 0,
         **{**both, 'KeyIs': seq(integer(3)).hex()})
    made('one ContentInfo', pfx(data(key_bag(two), cert_bag(one))), 0, 0, 0, **both)
    made('several', pfx(data(cert_bag(one), cert_bag(two)), data(key_bag(two), key_bag(one))), 0, 0, 0, **both)

    # the MAC
    made('no iteration count', pfx(cert, iterations=1, field=b''), 0, 0, NO_DATA, CertIs=one.hex())
    made('no salt', pfx(cert, salt=b''), 0, 0, NO_DATA, CertIs=one.hex())
    made('long salt', pfx(cert, salt=b'salt' * 100), 0, 0, NO_DATA, CertIs=one.hex())
    made('empty password, two bytes', pfx(cert, password=b'\0\0'), 0, 0, NO_DATA, CertIs=one.hex(), password=b'')
    made('empty password, no bytes', pfx(cert, password=b''), 0, 0, NO_DATA, CertIs=one.hex(), password=b'')
    made('no bytes are not any password', pfx(cert, password=b''), SIGNATURE, 0, NO_DATA, CertIs=one.hex())

    def refused(what, code, text='Invalid MacData', mac=mac_data, **options):
        made(what, pfx(cert, mac=mac, **options), code, 0, NO_DATA, CertIs=one.hex(), VerifyText=text)
    mismatch = 'MAC does not match: wrong password, or the data were changed'
    for cut in (0, 19, 21):
        refused(f'MAC of {cut} bytes', SIGNATURE, mismatch, cut=cut)
    refused('no MAC', NO_DATA, 'No MAC found to verify', mac=None)
    for digest in ('md5', 'sha224'):
        refused(digest, NOT_SUPPORTED, f"MAC algorithm '{digest}' not supported", digest=digest)
    refused('unknown digest', NOT_SUPPORTED, "MAC algorithm '1.2.3.4' not supported", digest='other')
    too_many = 'Iteration count of the MAC is above 10000000'
    for count, code, text in ((0, BAD_DATA, 'Invalid MacData'), (-1, BAD_DATA, 'Invalid MacData'),
                              (10**7 + 1, RANGE, too_many), (2**32 + 3, RANGE, too_many)):
        refused(f'{count} iterations', code, text, field=integer(count))
    refused('iteration count is no INTEGER', BAD_DATA, field=octets(b'3'))
    refused('empty iteration count', BAD_DATA, field=tlv(2))
    refused('MacData without digest', BAD_DATA, mac=lambda safe: seq(octets(b'salt'), integer(3)))

    # the structure around
    unsupported = 'Only PKCS-12 version 3 is supported. This PFX/PKCS-12 file appears to be version '
    for version in (2, 4, 70000):
        made(f'version {version}', pfx(cert, version=version, mac=None), NOT_SUPPORTED, NOT_SUPPORTED, NOT_SUPPORTED,
             VerifyText='Invalid PFX version - expecting version 3', CertText=f'{unsupported}{version}.')
    safe = seq(cert)
    for what, info in (('signed data', content_info(seq(integer(1)), 2)), ('no content', seq(oid(PKCS7 + '1'))),
                       ('no OCTET STRING', content_info(safe)), ('no ContentInfo', octets(safe))):
        text = 'Cannot find ContentInfo data'
        made(what, seq(integer(3), info, mac_data(safe)), NO_DATA if info[0] == 4 else BAD_DATA, BAD_DATA, BAD_DATA,
             CertText=text, KeyText=text, VerifyText='No MAC found to verify' if info[0] == 4 else text)
    for what, other in (('no fields', seq()), ('first no INTEGER', seq(seq(), seq(), tlv(3, b'\0'))),
                        ('huge version', seq(integer(2**40)))):
        text = 'Not a valid PFX file'
        made(what, other, BAD_DATA, BAD_DATA, BAD_DATA, VerifyText=text, CertText=text, KeyText=text)

    # what is passed over, and what is not there
    encrypted = content_info(seq(integer(0)), 6)
    hidden = 'No certificate outside the encrypted data, which cannot be read'
    made('all encrypted', pfx(encrypted), 0, NOT_SUPPORTED, NOT_SUPPORTED, CertText=hidden)
    made('certificate encrypted', pfx(encrypted, key), 0, NOT_SUPPORTED, 0, CertText=hidden, KeyIs=two.hex())
    made('certificate enveloped', pfx(key, content_info(seq(integer(0)), 3)), 0, NOT_SUPPORTED, 0, CertText=hidden,
         KeyIs=two.hex())
    made('another one encrypted', pfx(encrypted, cert, key), 0, 0, 0, **both)
    made('empty', pfx(), 0, NO_DATA, NO_DATA, CertText='No certificate in the PFX',
         KeyText='No encrypted private key in the PFX')
    others = [bag(1, one), bag(4, seq(oid('1.2.3'), explicit(octets(two)))), bag(5, seq()), cert_bag(two, SDSI),
              bag(9, tlv(5)), seq(oid('1.2.3'))]
    made('others first', pfx(content_info(tlv(5), 5), data(*others), data(*others, cert_bag(one), key_bag(two))), 0, 0, 0,
         **both)
    attributes = tlv(0x31, seq(oid(BAG + '3'), tlv(0x31, octets(b'x'))))
    nested = seq(bag(6, seq(), attributes), bag(6, seq(key_bag(two)), attributes))
    for _ in range(7):
        nested = seq(bag(1, one), bag(6, nested, attributes))
    made('nested bags', pfx(content_info(octets(nested)), cert), 0, 0, 0, **both)
    made('nested too deeply', pfx(data(bag(6, nested)), cert), 0, BAD_DATA, BAD_DATA,
         CertText='Bags of the PFX are nested too deeply', KeyText='Bags of the PFX are nested too deeply')
    for what, wrong in (('no SafeContents', content_info(octets(b'\x31\0'))), ('no data', seq(oid(PKCS7 + '1'))),
                        ('cut SafeContents', content_info(octets(b'\x30\3\2\1'))), ('bag without kind', data(seq(one))),
                        ('bags without bags', data(bag(6, octets(b'x'))))):
        text = 'Invalid PFX structure'
        made(what, pfx(wrong, cert, key), 0, BAD_DATA, BAD_DATA, CertText=text, KeyText=text)
    made('no certificate in its bag', pfx(data(cert_bag(b'')), key), 0, BAD_DATA, 0, KeyIs=two.hex())
    made('no key in its bag', pfx(cert, data(key_bag(octets(b'x')))), 0, 0, BAD_DATA, CertIs=one.hex())


files()
structures()
(HERE / 'cases.txt').write_text('\n'.join(lines[:-1]) + '\n')
