#!/usr/bin/env python3
"""Makes the OCSP messages of this folder, with new keys: responses of an openssl responder, described in
responses.txt by what openssl says of them, those that no responder would send, in crafted.txt, and the requests
that openssl makes, in requests.txt.

Tools: OpenSSL 3.0.22; Python 3 alone for the crafted ones.
"""
import base64
import datetime
import pathlib
import re
import subprocess
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
TEMP = tempfile.TemporaryDirectory()
WORK = pathlib.Path(TEMP.name)


def run(command, data=None):
    done = subprocess.run(command, shell=True, cwd=WORK, input=data, capture_output=True)
    if done.returncode != 0:
        raise SystemExit(f'{command}\n{done.stderr.decode()}')
    return done.stdout


# --- the responder ----------------------------------------------------------------------------------------

GOOD, GOOD_20, REVOKED, REVOKED_WHY, UNKNOWN = 0x0A3F, '8F' * 20, 0x1001, 0x1002, 0x7777
serial_texts = {name: f'0x{value:04X}' if isinstance(value, int) else '0x' + value
                for name, value in (('good', GOOD), ('good_20', GOOD_20), ('revoked', REVOKED),
                                    ('reason', REVOKED_WHY), ('unknown', UNKNOWN))}


def make_responders():
    (WORK / 'ext').write_text('extendedKeyUsage=OCSPSigning\n')
    run('openssl req -x509 -newkey rsa:1024 -nodes -keyout ca.key -out ca.pem -days 7000 -subj "/C=AU/O=Example/CN=CA"')
    for name, key in (('responder', 'rsa:1024'), ('ec', 'ec -pkeyopt ec_paramgen_curve:P-256')):
        run(f'openssl req -newkey {key} -nodes -keyout {name}.key -out {name}.csr -subj "/C=AU/CN={name}"')
        run(f'openssl x509 -req -in {name}.csr -CA ca.pem -CAkey ca.key -set_serial 77 -days 7000 '
            f'-extfile ext -out {name}.pem')
    for name in ('ca', 'responder', 'ec'):
        (HERE / f'{name}.pem').write_bytes((WORK / f'{name}.pem').read_bytes())
    lines = [('V', '', f'{GOOD:04X}'), ('V', '', GOOD_20), ('R', '240229235958Z', f'{REVOKED:04X}'),
             ('R', '251231000000Z,keyCompromise', f'{REVOKED_WHY:04X}')]
    (WORK / 'index.txt').write_text(''.join(f'{state}\t450101000000Z\t{date}\t{serial}\tunknown\t/CN={serial}\n'
                                            for state, date, serial in lines))


def report_of(response):
    """The report, made of what openssl says of a response."""
    def time(text):
        moment = datetime.datetime.strptime(text.strip(), '%b %d %H:%M:%S %Y %Z')
        return moment.strftime('%Y-%m-%dT%H:%M:%SZ')
    said = run(f'openssl ocsp -respin "{response}" -resp_text -noverify').decode()
    assert 'OCSP Response Status: successful' in said
    produced = re.search(r'Produced At: (.*)', said).group(1)
    report = ['Successful response:', f' Produced at {time(produced)}']
    for each in said.split('Certificate ID:')[1:]:
        status = re.search(r'Cert Status: (.*)', each).group(1)
        revoked = re.search(r'Revocation Time: (.*)', each)
        serial = re.search(r'Serial Number: (.*)', each).group(1)
        if int(serial[:2], 16) >= 0x80:
            serial = '00' + serial
        report += [f' CertStatus={status}' + (f' at {time(revoked.group(1))}' if revoked else ''),
                   f' SerialNumber={serial}']
    return r'\n'.join(report)


def make_responses():
    cases = [  # file, certificates, signer, options
        ('good', 'good', 'ca', ''), ('revoked', 'revoked', 'ca', ''), ('reason', 'reason', 'ca', '-resp_key_id'),
        ('unknown', 'unknown', 'ca', '-resp_no_certs'), ('several', 'reason good_20 unknown', 'ca', '-rmd sha512'),
        ('delegated', 'good revoked', 'responder', ''), ('delegated_key', 'good', 'responder', '-resp_key_id -rmd sha1'),
        ('ec', 'good', 'ec', '')]
    text = '# Responses of openssl and what it says of them.\n'
    for name, asked, signer, options in cases:
        serials = ' '.join(f'-serial {serial_texts[each]}' for each in asked.split())
        run(f'openssl ocsp -issuer ca.pem {serials} -reqout request.der')
        run(f'openssl ocsp -index index.txt -CA ca.pem -rsigner {signer}.pem -rkey {signer}.key -reqin request.der '
            f'-respout "{HERE}/{name}.der" -ndays 7 {options}')
        text += f'\nFile = {name}.der\nIssuer = {signer}.pem\nReport = {report_of(HERE / f"{name}.der")}\n'
    (HERE / 'responses.txt').write_text(text)


# --- crafted ones -----------------------------------------------------------------------------------------

def tlv(tag, *parts):
    content = b''.join(parts)
    n = len(content)
    octets = b'' if n < 128 else n.to_bytes((n.bit_length() + 7) // 8, 'big')
    return bytes([tag]) + (bytes([0x80 | len(octets)]) + octets if octets else bytes([n])) + content


def seq(*parts):
    return tlv(0x30, *parts)


def open_ended(tag, *parts):
    return bytes([tag, 0x80]) + b''.join(parts) + b'\0\0'


def oid(hexadecimal):
    return tlv(6, bytes.fromhex(hexadecimal))


def time(text='20260131123000Z'):
    return tlv(0x18, text.encode())


def cert_id(serial=b'\x01'):
    return seq(seq(oid('2b0e03021a'), tlv(5)), tlv(4, bytes(20)), tlv(4, bytes(20)),
               b'' if serial is None else tlv(2, serial))


BASIC, OTHER = oid('2b0601050507300101'), oid('2b0601050507300102')
SHA256_RSA = seq(oid('2a864886f70d01010b'), tlv(5))
GOOD_STATUS = b'\x80\0'
BY_KEY = tlv(0xA2, tlv(4, bytes(20)))
SINGLE = seq(cert_id(), GOOD_STATUS, time())
PRODUCED = r'Successful response:\n Produced at 2026-01-31T12:30:00Z'
ONE = PRODUCED + r'\n CertStatus=good\n SerialNumber=01'


def single(status=GOOD_STATUS, serial=b'\x01'):
    return seq(cert_id(serial), status, time())


def data(*singles, produced=time(), version=b'', responder=BY_KEY, after=b''):
    return seq(version, responder, produced, seq(*singles), after)


def basic(response_data):
    return seq(response_data, SHA256_RSA, tlv(3, bytes(129)))


def response(content, kind=BASIC):
    return seq(tlv(10, b'\0'), tlv(0xA0, seq(kind, tlv(4, content))))


def signed(response_data, over=None, certificates=b''):
    (WORK / 'tbs').write_bytes(over or response_data)
    signature = run('openssl dgst -sha256 -sign ca.key tbs')
    return response(seq(response_data, SHA256_RSA, tlv(3, b'\0', signature), certificates))


def make_crafted():
    cases = []

    def says(what, encoding, report, issuer=''):
        cases.append((what, encoding, 0, report, '', issuer))

    def fails(what, encoding, code, text, issuer=''):
        cases.append((what, encoding, code, '', text, issuer))

    def of(*singles, **changes):
        return response(basic(data(*singles, **changes)))

    names = ['malformedRequest', 'internalError', 'tryLater', 'INVALID OCSPResponseStatus', 'sigRequired', 'unauthorized']
    for number, name in enumerate(names, 1):
        says(f'status {number}', seq(tlv(10, bytes([number]))), name + '.')
    says('status in an open SEQUENCE', open_ended(0x30, tlv(10, b'\3')), 'tryLater.')
    says('status with a response', seq(tlv(10, b'\2'), tlv(0xA0, seq(BASIC, tlv(4)))), 'internalError.')
    for what, content in (('7', b'\7'), ('-1', b'\xff'), ('of five octets', b'\0\0\0\0\3'), ('without octets', b'')):
        fails(f'status {what}', seq(tlv(10, content)), 11, 'OCSPResponseStatus out of range')
    for what, content in (('INTEGER', tlv(2, b'\0')), ('deeper', seq(tlv(10, b'\0'))), ('empty', b'')):
        fails(f'no status: {what}', seq(content), 8, 'Not a valid OCSPResponse object')

    needs = 'Require responseType to be ocspBasic'
    fails('no responseBytes', seq(tlv(10, b'\0')), 19, needs)
    fails('another type', response(basic(data(SINGLE)), OTHER), 19, needs)
    fails('no type', seq(tlv(10, b'\0'), tlv(0xA0, seq(tlv(4, basic(data(SINGLE)))))), 19, needs)
    fails('no OCTET STRING', seq(tlv(10, b'\0'), tlv(0xA0, seq(BASIC))), 8, 'Cannot find response data')
    fails('another string', seq(tlv(10, b'\0'), tlv(0xA0, seq(BASIC, tlv(12, basic(data(SINGLE)))))), 8,
          'Cannot find response data')
    for what, content in (('empty', b''), ('cut', basic(data(SINGLE))[:-1]), ('followed', basic(data(SINGLE)) + b'\0'),
                          ('SET', tlv(0x31, data(SINGLE)))):
        fails(f'BasicOCSPResponse: {what}', response(content), 8, 'Not a valid BasicOCSPResponse')

    no_time = 'Cannot find time producedAt'
    for what, produced in (('missing', b''), ('UTCTime', tlv(0x17, b'260131123000Z')), ('letters', time('jan31'))):
        fails(f'producedAt: {what}', of(SINGLE, produced=produced), 7, no_time)
    for zone in '', '+0100':
        says(f'zone "{zone}"', of(SINGLE, produced=time('20260131123000' + zone)), ONE)
    fails('no ResponseData', response(seq(tlv(4))), 7, no_time)
    says('fraction of a second', of(SINGLE, produced=time('20260131123000.999Z')), ONE)
    says('version and extensions', of(SINGLE, version=tlv(0xA0, tlv(2, b'\0')), responder=tlv(0xA1, seq()),
                                      after=tlv(0xA1, seq())), ONE)
    fails('no responses', response(basic(seq(BY_KEY, time()))), 8, 'Cannot find responses')
    says('nobody', of(), PRODUCED)

    bad = 'Invalid SingleResponse'
    for what, content in (('no status', seq(cert_id())), ('BOOLEAN for a status', seq(cert_id(), tlv(1, b'\0'), time())),
                          ('status [APPLICATION 0]', seq(cert_id(), b'\x40\0')), ('no CertID', seq(GOOD_STATUS, time())),
                          ('OCTET STRING', tlv(4))):
        fails(f'SingleResponse: {what}', of(SINGLE, content), 8, bad)
    when = tlv(0x18, b'20251231235959.5Z')
    says('revoked with a reason', of(single(tlv(0xA1, when, tlv(0xA0, tlv(10, b'\1'))))),
         PRODUCED + r'\n CertStatus=revoked at 2025-12-31T23:59:59Z\n SerialNumber=01')
    for what, content in (('without time', b''), ('UTCTime', tlv(0x17, b'251231235959Z')), ('letters', time('dec31'))):
        fails(f'revoked: {what}', of(single(tlv(0xA1, content))), 7, 'Cannot find revocationTime')
    fails('revoked: primitive', of(single(tlv(0x81, when))), 7, 'Cannot find revocationTime')
    for tag in (0x83, 0xBE):
        says(f'status {tag:X}', of(single(bytes([tag, 0]))), PRODUCED + r'\n CertStatus=ERROR!\n SerialNumber=01')
    says('explicit NULL', of(single(tlv(0xA2, tlv(5)))), PRODUCED + r'\n CertStatus=unknown\n SerialNumber=01')
    says('no serial number', of(single(serial=None)), PRODUCED + r'\n CertStatus=good')
    for what, serial in (('negative', b'\x80\1'), ('sign octet', b'\0\xff'), ('zeros', bytes(3)), ('63 bytes', b'\x12' * 63),
                         ('64 bytes', b'\x12' * 63 + b'\x34'), ('300 bytes', b'\x12' * 300)):
        says(f'serial number: {what}', of(single(serial=serial)),
             PRODUCED + r'\n CertStatus=good\n SerialNumber=' + serial[:63].hex().upper())

    many = [single(serial=bytes([1, i])) for i in range(40)]
    whole = PRODUCED + ''.join(rf'\n CertStatus=good\n SerialNumber=01{i:02X}' for i in range(40))
    says('longer than a report', of(*many), whole.replace(r'\n', '\n')[:1023].replace('\n', r'\n'))
    fails('a fault behind a full report', of(*many, seq(cert_id())), 8, bad)

    plain, open_data = data(SINGLE), open_ended(0x30, BY_KEY, open_ended(0x38, tlv(4, b'202601'), tlv(4, b'31123000Z')),
                                                seq(SINGLE))
    says('signed', signed(plain), ONE, 'ca.pem')
    says('certificates behind the signature', signed(plain, certificates=tlv(0xA0, seq())), ONE, 'ca.pem')
    says('BER, signed as it stands', signed(open_data), ONE, 'ca.pem')
    says('BER, its DER signed', signed(open_data, over=plain), ONE, 'ca.pem')
    inner = basic(plain)
    says('segments', open_ended(0x30, tlv(10, b'\0'), open_ended(0xA0, open_ended(
        0x30, BASIC, open_ended(0x24, tlv(4, inner[:9]), tlv(4, inner[9:]))))), ONE)
    invalid = 'Signature is invalid'
    fails('other data signed', signed(plain, over=data()), 22, 'Signature did not verify; ' + invalid, 'ca.pem')
    fails('no signature', response(seq(plain, SHA256_RSA)), 7, invalid, 'ca.pem')
    fails('signature of another algorithm', response(seq(plain, seq(OTHER), tlv(3, bytes(129)))), 19, invalid, 'ca.pem')
    fails('time before signature', of(SINGLE, produced=b''), 7, no_time, 'ca.pem')
    fails('signature before responses', response(basic(seq(BY_KEY, time()))), 22, invalid, 'ca.pem')

    text = '# Responses made by hand. Result: the error code, negated.\n'
    for what, encoding, code, report, error, issuer in cases:
        lines = [f'Case = {what}', f'Response = {encoding.hex()}', f'Result = {-code}']
        lines += [f'Issuer = {issuer}'] if issuer else []
        lines += [f'Text = {error}'] if code else [f'Report = {report}']
        text += '\n' + '\n'.join(lines) + '\n'
    (HERE / 'crafted.txt').write_text(text)


def make_requests():
    text = '# Requests of openssl; Digest is a ZUL_HASH_ number.\n'
    for number, digest in ((0, 'sha1'), (1, 'md5'), (3, 'sha256'), (4, 'sha384'), (5, 'sha512'), (6, 'sha224')):
        for asked, option in (('responder.pem', '-cert responder.pem'), ('#x123', '-serial 0x123'),
                              ('#x00' + GOOD_20, '-serial 0x' + GOOD_20)):
            run(f'openssl ocsp -no_nonce -issuer ca.pem -{digest} {option} -reqout request.der')
            request = base64.b64encode((WORK / 'request.der').read_bytes()).decode()
            text += f'\nDigest = {number}\nCertificate = {asked}\nRequest = {request}\n'
    (HERE / 'requests.txt').write_text(text)


make_responders()
make_responses()
make_crafted()
make_requests()
