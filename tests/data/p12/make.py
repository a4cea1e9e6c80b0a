#!/usr/bin/env python3
"""Makes cases.txt, PKCS #12 files put together here and what is to be found in them, and the certificates in them, with
new keys. Results are error codes, 0 for success.

Tools: Python 3 with cryptography 48 (certificates, AES, Triple DES, PBKDF2).
"""
import datetime
import hashlib
import hmac
import pathlib

from cryptography import x509
from cryptography.hazmat.decrepit.ciphers.algorithms import TripleDES
from cryptography.hazmat.primitives import hashes, serialization
from cryptography.hazmat.primitives.asymmetric import dsa, ed25519
from cryptography.hazmat.primitives.ciphers import Cipher, algorithms, modes
from cryptography.x509.oid import NameOID

HERE = pathlib.Path(__file__).resolve().parent
BAD_FORMAT, RANGE, DECRYPT, NOT_SUPPORTED, NO_DATA, SIGNATURE = 7, 11, 15, 19, 20, 22
NEED_MAC = 0x800
PASSWORD = 'simple'


# --- DER --------------------------------------------------------------------------------------------------

def tlv(tag, *parts):
    content = b''.join(parts)
    n = len(content)
    size = b'' if n < 128 else n.to_bytes((n.bit_length() + 7) // 8, 'big')
    return bytes([tag, n if n < 128 else 0x80 | len(size)]) + size + content


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


def ber(tag, *parts):
    return bytes([tag, 0x80]) + b''.join(parts) + b'\0\0'


# --- PKCS #12 (RFC 7292) and PBMAC1 (RFC 9579) ------------------------------------------------------------

DIGESTS = {'sha1': '1.3.14.3.2.26', 'md5': '1.2.840.113549.2.5', 'sha224': '2.16.840.1.101.3.4.2.4',
           'sha256': '2.16.840.1.101.3.4.2.1', 'sha384': '2.16.840.1.101.3.4.2.2', 'sha512': '2.16.840.1.101.3.4.2.3'}
HMACS = {'sha1': '1.2.840.113549.2.7', 'sha224': '1.2.840.113549.2.8', 'sha256': '1.2.840.113549.2.9',
         'sha384': '1.2.840.113549.2.10', 'sha512': '1.2.840.113549.2.11'}
PKCS5, PKCS7, BAG = '1.2.840.113549.1.5.', '1.2.840.113549.1.7.', '1.2.840.113549.1.12.10.1.'
X509, CRL, SDSI = '1.2.840.113549.1.9.22.1', '1.2.840.113549.1.9.23.1', '1.2.840.113549.1.9.22.2'
NAME, KEY_ID, TRUSTED = '1.2.840.113549.1.9.20', '1.2.840.113549.1.9.21', '2.16.840.1.113894.746875.1.1'
NULL = tlv(5)


def derive(digest, purpose, password, salt, iterations, size):
    """Appendix B.2."""
    block = hashlib.new(digest).block_size

    def filled(text):
        return (text * block)[:-(-len(text) // block) * block]
    inside, out = filled(salt) + filled(password), b''
    while len(out) < size:
        key = bytes([purpose] * block) + inside
        for _ in range(iterations):
            key = hashlib.new(digest, key).digest()
        out += key
        addend = int.from_bytes((key * block)[:block], 'big') + 1
        blocks = [int.from_bytes(inside[i:i + block], 'big') + addend for i in range(0, len(inside), block)]
        inside = b''.join((number % 2 ** (8 * block)).to_bytes(block, 'big') for number in blocks)
    return out[:size]


def wide(password):
    return password.encode('utf-16-be') + b'\0\0'


def mac_data(safe, digest='sha256', iterations=3, field=None, password=wide(PASSWORD)):
    """field: the iteration count that is written, if it is not the one that counts; b'' for none."""
    size = hashlib.new(digest).digest_size
    mac = hmac.new(derive(digest, 3, password, b'saltsalt', iterations, size), safe, digest).digest()
    return seq(seq(seq(oid(DIGESTS[digest]), NULL), octets(mac)), octets(b'saltsalt'),
               integer(iterations) if field is None else field)


def pbmac1(safe, digest='sha256', prf='sha256', size=32, written=True, password=PASSWORD.encode(), kdf='12', count=3):
    """prf: None for the default; written: whether the key's length is; count: of iterations that is written."""
    key = hashlib.pbkdf2_hmac(prf or 'sha1', password, b'saltsalt', 3, size)
    fields = seq(octets(b'saltsalt'), integer(count), integer(size) if written else b'',
                 seq(oid(HMACS[prf]), NULL) if prf else b'')
    parameters = seq(seq(oid(PKCS5 + kdf), fields), seq(oid(HMACS[digest]), NULL))
    return seq(seq(seq(oid(PKCS5 + '14'), parameters), octets(hmac.new(key, safe, digest).digest())),
               octets(b'NOT USED'))


def padded(plain, block):
    count = block - len(plain) % block
    return plain + bytes([count] * count)


def cbc(cipher, iv, plain):
    encryptor = Cipher(cipher, modes.CBC(iv)).encryptor()
    return encryptor.update(plain) + encryptor.finalize()


def pbes2(plain, password=PASSWORD.encode(), pad=True):
    key = hashlib.pbkdf2_hmac('sha256', password, b'saltsalt', 3, 32)
    iv = bytes(range(16))
    kdf = seq(oid(PKCS5 + '12'), seq(octets(b'saltsalt'), integer(3), seq(oid(HMACS['sha256']), NULL)))
    algorithm = seq(oid(PKCS5 + '13'), seq(kdf, seq(oid('2.16.840.1.101.3.4.1.42'), octets(iv))))
    return algorithm, cbc(algorithms.AES(key), iv, padded(plain, 16) if pad else plain)


def pbe(plain, password=wide(PASSWORD), keys=3):
    key, iv = derive('sha1', 1, password, b'saltsalt', 3, 8 * keys), derive('sha1', 2, password, b'saltsalt', 3, 8)
    algorithm = seq(oid(f'1.2.840.113549.1.12.1.{keys if keys == 3 else 4}'), seq(octets(b'saltsalt'), integer(3)))
    return algorithm, cbc(TripleDES(key if keys == 3 else key + key[:8]), iv, padded(plain, 8))


def content_info(content, kind=1):
    return seq(oid(PKCS7 + str(kind)), explicit(content))


def data(*bags):
    return content_info(octets(seq(*bags)))


def encrypted(*bags, scheme=pbes2, plain=None, **options):
    algorithm, content = scheme(seq(*bags) if plain is None else plain, **options)
    return content_info(seq(integer(0), seq(oid(PKCS7 + '1'), algorithm, tlv(0x80, content))), 6)


def bag(kind, value, *attributes):
    return seq(oid(BAG + str(kind)), explicit(value), tlv(0x31, *attributes) if attributes else b'')


def attribute(kind, value):
    return seq(oid(kind), tlv(0x31, value))


def named(text):
    return attribute(NAME, tlv(30, text.encode('utf-16-be', 'surrogatepass')))


def cert_bag(name, *attributes, kind=X509):
    return bag(3, seq(oid(kind), explicit(octets(DER[name]))), *attributes)


def key_bag(name, *attributes, scheme=pbes2, **options):
    algorithm, content = scheme(INFO[name], **options)
    return bag(2, seq(algorithm, octets(content)), *attributes)


def plain_key_bag(name, *attributes):
    return bag(1, INFO[name], *attributes)


def pfx(*infos, mac=mac_data, version=3, **options):
    safe = seq(*infos)
    return seq(integer(version), content_info(octets(safe)), mac(safe, **options) if mac else b'')


# --- keys and certificates --------------------------------------------------------------------------------

DER, INFO = {}, {}


def make(name, subject, issuer=None, key=None):
    """name: of the certificate; issuer: the name of another, or none for a self-signed one."""
    key = key or ed25519.Ed25519PrivateKey.generate()
    signer, signer_name, signer_key = KEYS[issuer] if issuer else (key, subject, key)
    KEYS[name] = key, subject, key

    def named_by(text):
        return x509.Name([x509.NameAttribute(NameOID.COMMON_NAME, text)])
    builder = (x509.CertificateBuilder().subject_name(named_by(subject)).issuer_name(named_by(signer_name))
               .public_key(key.public_key()).serial_number(len(KEYS)).not_valid_before(datetime.datetime(2026, 1, 1))
               .not_valid_after(datetime.datetime(2036, 1, 1))
               .add_extension(x509.SubjectKeyIdentifier.from_public_key(key.public_key()), False)
               .add_extension(x509.AuthorityKeyIdentifier.from_issuer_public_key(signer_key.public_key()), False))
    is_dsa = isinstance(signer, dsa.DSAPrivateKey)
    DER[name] = builder.sign(signer, hashes.SHA256() if is_dsa else None).public_bytes(serialization.Encoding.DER)
    (HERE / f'{name}.der').write_bytes(DER[name])
    INFO[name] = key.private_bytes(serialization.Encoding.DER, serialization.PrivateFormat.PKCS8,
                                   serialization.NoEncryption())


KEYS = {}
make('root', 'Root')
make('namesake', 'Root')
make('middle', 'M\u00fcller; "CA"', 'root')
make('leaf', 'Leaf', 'middle')
make('dsa', 'Dsa', key=dsa.generate_private_key(1024))
DER['broken'] = seq(integer(1))


# --- cases ------------------------------------------------------------------------------------------------

lines = ['# PKCS #12 files and what comes of them. Made by make.py.', '']


def case(what, der, code=0, password=PASSWORD.encode(), certs=('leaf',), **more):
    """certs: in the order of the output, the key's first; with Key = name there are none, and with NoKey no key."""
    fields = {'What': what, 'P12': der.hex(), **more}
    if code:
        fields['Code'] = code
    if password != PASSWORD.encode():
        fields['Password'] = 'none' if password is None else password.hex()
    if certs != ('leaf',):
        fields['Certs'] = ' '.join(certs)
    lines.extend([f'{name} = {value}' for name, value in fields.items()] + [''])


BOTH = [encrypted(cert_bag('leaf')), data(key_bag('leaf'))]


def macs():
    for digest in ('sha1', 'sha224', 'sha256', 'sha384', 'sha512'):
        case(f'MAC with {digest}', pfx(*BOTH, digest=digest))
        case(f'PBMAC1 with {digest}', pfx(*BOTH, mac=pbmac1, digest=digest))
    for prf in ('sha1', 'sha512', None):
        case(f'PBMAC1 with PRF {prf}', pfx(*BOTH, mac=pbmac1, prf=prf))
    case('PBMAC1 with a long key', pfx(*BOTH, mac=pbmac1, size=64))
    case('PBMAC1 without the length of the key', pfx(*BOTH, mac=pbmac1, written=False), BAD_FORMAT)
    case('PBMAC1 with a short key', pfx(*BOTH, mac=pbmac1, size=19), BAD_FORMAT)
    case('PBMAC1 with another derivation', pfx(*BOTH, mac=pbmac1, kdf='99'), NOT_SUPPORTED)
    case('PBMAC1 with other iterations', pfx(*BOTH, mac=pbmac1, count=4), DECRYPT)
    case('PBMAC1 with too many iterations', pfx(*BOTH, mac=pbmac1, count=10**7 + 1), RANGE)
    case('PBMAC1 under another password', pfx(*BOTH, mac=pbmac1, password=b'other'), DECRYPT)
    case('no iteration count', pfx(*BOTH, iterations=1, field=b''))
    case('MAC with md5', pfx(*BOTH, digest='md5'), NOT_SUPPORTED)
    case('MAC with too many iterations', pfx(*BOTH, field=integer(10**7 + 1)), RANGE)
    case('MAC with no iterations', pfx(*BOTH, field=integer(0)), BAD_FORMAT)
    case('MAC under another password', pfx(*BOTH, password=wide('other')), DECRYPT)
    case('no MAC', pfx(*BOTH, mac=None))
    case('no MAC, but demanded', pfx(*BOTH, mac=None), SIGNATURE, Options=NEED_MAC)
    case('MAC demanded', pfx(*BOTH), Options=NEED_MAC)
    case('no MAC, another password', pfx(*BOTH, mac=None), DECRYPT, password=b'other')


def passwords():
    def both(scheme, password):
        return [encrypted(cert_bag('leaf'), scheme=scheme, password=password),
                data(key_bag('leaf', scheme=scheme, password=password))]
    for keys in (2, 3):
        bags = [encrypted(cert_bag('leaf'), scheme=pbe, keys=keys), data(key_bag('leaf', scheme=pbe, keys=keys))]
        case(f'Triple DES with {keys} keys', pfx(*bags))
    text = 'p\u00e4ss\u20ac\U0001F600'
    case('beyond ASCII', pfx(*both(pbe, wide(text)), password=wide(text)), password=text.encode())
    case('beyond ASCII, PBES2', pfx(*both(pbes2, text.encode()), password=wide(text)), password=text.encode())
    case('beyond ASCII, PBMAC1', pfx(*both(pbes2, text.encode()), mac=pbmac1, password=text.encode()),
         password=text.encode())
    byte_wise = wide(text.encode().decode('latin-1'))
    case('each byte made wide', pfx(*both(pbe, byte_wise), password=byte_wise), password=text.encode())
    latin = 'p\u00e4ss\u00df'
    case('given in Latin-1', pfx(*both(pbes2, latin.encode()), password=wide(latin)), password=latin.encode('latin-1'))
    case('Latin-1 as it is', pfx(*both(pbes2, latin.encode('latin-1')), password=wide(latin)),
         password=latin.encode('latin-1'))
    for what, empty in (('two bytes', b'\0\0'), ('no bytes', b'')):
        for given in (b'', None):
            case(f'empty password of {what}, {given}', pfx(*both(pbe, empty), password=empty), password=given)
    case('empty password without MAC', pfx(*both(pbe, b''), mac=None), password=b'')
    case('empty password, PBES2', pfx(*both(pbes2, b''), password=b''), password=b'')
    case('no bytes are not any password', pfx(*both(pbe, b''), password=b''), DECRYPT)


def order():
    chain = [encrypted(*map(cert_bag, ('namesake', 'root', 'dsa', 'middle', 'leaf'))), data(key_bag('leaf'))]
    case('chain in reverse', pfx(*chain), certs=['leaf', 'middle', 'root', 'namesake', 'dsa'])
    several = [data(key_bag('leaf'), plain_key_bag('root')), encrypted(*map(cert_bag, ('middle', 'root', 'leaf')))]
    case('first of two keys', pfx(*several), certs=['leaf', 'middle', 'root'])
    case('second of two keys', pfx(*several), Options=1, certs=['root', 'middle', 'leaf'])
    case('third of two keys', pfx(*several), NO_DATA, Options=2)
    by_id = [data(cert_bag('leaf'), cert_bag('dsa', attribute(KEY_ID, octets(b'7'))),
                  key_bag('dsa', attribute(KEY_ID, octets(b'7'))))]
    case('key of another kind', pfx(*by_id), NOT_SUPPORTED)
    case('its certificates', pfx(*by_id), NoKey=1, certs=['dsa', 'leaf'])
    case('no key', pfx(data(cert_bag('leaf'))), NO_DATA)
    case('certificates alone', pfx(data(cert_bag('leaf'))), NoKey=1)
    case('no certificate', pfx(data(key_bag('leaf'))), NO_DATA)
    case('key alone', pfx(data(key_bag('leaf'))), Key='leaf')


def structure():
    others = [bag(4, seq(oid(CRL), explicit(octets(seq())))), bag(5, seq(oid('1.2.3'), explicit(octets(b'x')))),
              bag(9, NULL), cert_bag('broken', kind=SDSI)]
    odd = attribute('1.3.6.1.4.1.311.17.1', tlv(30, b'\0C'))
    content = [cert_bag('leaf', named('a"\n\u202eEntry 9: kind=key\\'), attribute(KEY_ID, octets(b'\x01\xAB')), odd),
               cert_bag('middle', named('\u00fc\U0001F600\ud800'), attribute(TRUSTED, oid('2.5.29.37.0')))]
    keys = [bag(6, seq(plain_key_bag('leaf'), bag(6, seq(key_bag('middle', scheme=pbe)))))]
    shown = [
        'PKCS #12 version 3',
        'MAC: algorithm=hmacWithSHA256, kdf=PKCS12, iterations=3, verified=yes',
        'Safe 1: encryption=none, bytes={}, entries=4',
        'Safe 2: encryption=PBES2, kdf=PBKDF2, prf=hmacWithSHA256, iterations=3, cipher=aes256-CBC, bytes={}, '
        'entries=2',
        'Safe 3: encryption=none, bytes={}, entries=2',
        'Safe 4: type=envelopedData',
        'Entry 1: kind=crl, safe=1',
        'Entry 2: kind=secret, type=1.2.3, safe=1',
        'Entry 3: kind=other, type=1.2.840.113549.1.12.10.1.9, safe=1',
        f'Entry 4: kind=certificate, type={SDSI}, safe=1',
        r'Entry 5: kind=certificate, safe=2, name="a\"\u000a\u202eEntry 9: kind=key\\", localKeyId=01AB, '
        'attributes=microsoftLocalMachineKeyset, algorithm=ed25519, bits=256, subject="CN=Leaf", '
        'notAfter=2036-01-01T00:00:00Z, key=7',
        'Entry 6: kind=certificate, safe=2, name="\u00fc\U0001F600\ufffd", trusted=yes, algorithm=ed25519, bits=256, '
        'subject="CN=\'M\u00fcller; \\"CA\\"\'", notAfter=2036-01-01T00:00:00Z, key=8',
        'Entry 7: kind=key, safe=3, encryption=none, algorithm=ed25519, bits=256, certificate=5',
        'Entry 8: kind=key, safe=3, encryption=pbeWithSHAAnd3-KeyTripleDES-CBC, iterations=3, algorithm=ed25519, '
        'bits=256, certificate=6']
    sizes = [len(seq(*others)), len(padded(seq(*content), 16)), len(seq(*keys))]
    text = '|'.join(shown).format(*sizes)
    all_of_it = [data(*others), encrypted(*content), data(*keys), content_info(seq(integer(0)), 3)]
    case('everything', pfx(*all_of_it), certs=['leaf', 'middle'], List=text)
    visible = [line.replace('verified=yes', 'verified=no') for line in shown[:10]]
    visible[3] = visible[3].replace(', entries=2', '')
    visible += ['Entry 5: kind=key, safe=3, encryption=none, algorithm=ed25519, bits=256',
                'Entry 6: kind=key, safe=3, encryption=pbeWithSHAAnd3-KeyTripleDES-CBC, iterations=3']
    case('what is visible', pfx(*all_of_it), DECRYPT, password=None, List='|'.join(visible).format(*sizes))

    algorithm, content = pbes2(seq(cert_bag('leaf')))
    segments = octets(content[:99]), ber(0x24, octets(content[99:109]), octets()), octets(content[109:])
    hidden = ber(0x30, oid(PKCS7 + '6'), ber(0xA0, ber(0x30, integer(0), ber(
        0x30, oid(PKCS7 + '1'), algorithm, ber(0xA0, *segments)))))
    safe = ber(0x30, hidden, data(key_bag('leaf')))
    inner = ber(0xA0, ber(0x24, octets(safe[:50]), octets(safe[50:])))
    whole = ber(0x30, integer(3), ber(0x30, oid(PKCS7 + '1'), inner), mac_data(safe))
    case('BER', whole)

    garbage = data(seq(oid(BAG + '3'), explicit(seq(oid(X509), explicit(octets(b'x'))))))
    case('damaged before the MAC was made', pfx(garbage), BAD_FORMAT)
    case('damaged encrypted data', pfx(encrypted(plain=b'x' * 32, pad=False)), BAD_FORMAT)
    case('encrypted under another password', pfx(encrypted(cert_bag('leaf'), password=b'other')), BAD_FORMAT)
    case('no whole blocks', pfx(encrypted(scheme=lambda plain: (pbes2(plain)[0], b'x' * 17))), BAD_FORMAT)
    case('encrypted, but not SafeContents', pfx(encrypted(plain=seq(integer(1)))), BAD_FORMAT)
    case('the same without MAC', pfx(encrypted(plain=seq(integer(1))), mac=None), DECRYPT)
    case('unknown scheme', pfx(encrypted(scheme=lambda plain: (seq(oid('1.2.3.4')), plain))), NOT_SUPPORTED, NoKey=1)
    case('broken certificate', pfx(data(cert_bag('broken'))), BAD_FORMAT)
    for kind in (3, 5):
        case(f'bag {kind} that holds no SEQUENCE', pfx(data(bag(kind, tlv(0x31, oid('1.2.3'), explicit(octets(b'x')))))), BAD_FORMAT)
    nested = seq(plain_key_bag('leaf'))
    for _ in range(8):
        nested = seq(bag(6, nested))
    case('nested bags', pfx(content_info(octets(nested))), Key='leaf')
    case('nested too deeply', pfx(data(bag(6, nested))), RANGE)
    case('version 4', pfx(*BOTH, version=4), NOT_SUPPORTED)
    case('signed', seq(integer(3), content_info(seq(integer(1)), 2)), NOT_SUPPORTED)
    case('no PFX', seq(integer(3)), BAD_FORMAT)
    safe = seq(*BOTH)
    case('more after the MAC', seq(integer(3), content_info(octets(safe)), mac_data(safe), NULL), BAD_FORMAT)


macs()
passwords()
order()
structure()
(HERE / 'cases.txt').write_text('\n'.join(lines[:-1]) + '\n')
