#!/usr/bin/env python3
"""Makes the enveloped messages of this folder with OpenSSL 3.0.22 (and its legacy provider, for RC2), the
certificates they are for, the first one's key, and messages.txt. Run by hand.
"""
import pathlib
import subprocess
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
TEMP = tempfile.TemporaryDirectory()
LISTED = []


def run(command):
    done = subprocess.run(command, shell=True, cwd=TEMP.name, capture_output=True)
    if done.returncode != 0:
        raise SystemExit(f'{command}\n{done.stderr.decode()}')
    return done.stdout


def write_content(size):
    (pathlib.Path(TEMP.name) / 'content').write_bytes(bytes(i * 7 & 0xFF for i in range(size)))


def keep(name, data, size, cipher, count=1):
    (HERE / name).write_bytes(data)
    LISTED.append(f'File = {name}\nLength = {size}\nCipher = {cipher}\nRecipients = {count}\n')


def make(name, cipher, size, options, recipients='me.pem', program='cms -encrypt', count=1):
    write_content(size)
    form = 'PEM' if name.endswith('.pem') else 'DER'
    data = run(f'openssl {program} -provider default -provider legacy -binary -in content -outform {form} '
               f'{options} {recipients}')
    keep(name, data, size, cipher, count)


def tlv(tag, *parts):
    data = b''.join(parts)
    size = len(data).to_bytes(4, 'big').lstrip(b'\0')
    return bytes([tag]) + (bytes([len(data)]) if len(data) < 128 else bytes([0x80 | len(size)]) + size) + data


def elements(data):
    """The elements of definite length in data, whole, and where each one's content begins."""
    while data:
        head = 2 + (data[1] & 0x7F if data[1] & 0x80 else 0)
        size = int.from_bytes(data[2:head], 'big') if data[1] & 0x80 else data[1]
        yield data[:head + size], head
        data = data[head + size:]


def inside(element):
    (whole, head), = elements(element)
    return [part for part, _ in elements(whole[head:])]


for who in 'me', 'other':
    run(f'openssl req -x509 -newkey rsa:1024 -nodes -keyout {who}.key -out {who}.pem -days 36500 '
        f'-subj "/O=Caf\u00e9 Envelopes/CN={who}" -set_serial 0x00c0ffee{len(who):02x} -utf8')
    (HERE / f'{who}.pem').write_bytes(run(f'openssl x509 -in {who}.pem'))
(HERE / 'me.key').write_bytes(run('openssl pkey -in me.key'))

make('tdes.der', 'des-EDE3-CBC', 15, '-des3')
make('aes128.pem', 'aes128-CBC', 33, '-aes128')
make('aes192.der', 'aes192-CBC', 16, '-aes192')
make('aes256_stream.der', 'aes256-CBC', 300, '-aes256 -stream')
make('smime_stream.der', 'des-EDE3-CBC', 9, '-des3 -stream', program='smime -encrypt')
for bits in '40', '64', '128':
    make(f'rc2_{bits}.der', 'rc2CBC', 20, f'-rc2-{bits}')
make('key_identifier.der', 'aes128-CBC', 1, '-aes128 -keyid')
make('several.der', 'aes256-CBC', 0, '-aes256 -pwri_password secret', 'other.pem me.pem', count=3)
write_content(20)
oaep = run('openssl cms -encrypt -binary -in content -outform DER -aes128 -recip me.pem '
           '-keyopt rsa_padding_mode:oaep')
(HERE / 'oaep.der').write_bytes(oaep)

# What openssl does not write: originatorInfo, unprotectedAttrs, no ContentInfo, segments within segments, and
# a key in segments.
plain = run('openssl cms -encrypt -binary -in content -outform DER -aes128 me.pem')
_, explicit = inside(plain)
version, recipients, encrypted = inside(inside(explicit)[0])
infoVersion, name, algorithm, key = inside(inside(recipients)[0])
kind, cipher, octets = inside(encrypted)
raw, = (whole[head:] for whole, head in elements(octets))
key, = (whole[head:] for whole, head in elements(key))
half = len(key) // 2
ends = b'\0\0'
segments = b'\x24\x80' + tlv(4, raw[:5]) + tlv(0x24, tlv(4), tlv(4, raw[5:])) + ends
keep('odd.der',
     b'\x30\x80' + tlv(2, b'\2') + b'\xA0\x80' + ends +
     tlv(0x31, tlv(0x30, infoVersion, name, algorithm, tlv(0x24, tlv(4, key[:half]), tlv(4, key[half:])))) +
     b'\x30\x80' + kind + cipher + b'\xA0\x80' + segments + ends + ends +
     tlv(0xA1, tlv(0x30, tlv(6, b'\x2A\x03'), tlv(0x31, tlv(5)))) + ends, 20, 'aes128-CBC')

(HERE / 'messages.txt').write_text(
    '# Written by make.py. The content is the bytes 0, 7, 14 ...\n\n' + '\n'.join(LISTED), newline='\n')
