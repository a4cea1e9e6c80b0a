'use strict';
// node_test.js ROOT: the package for Node.js, as it is installed in the working folder.

const assert = require('node:assert');
const { execFileSync } = require('node:child_process');
const fs = require('node:fs');
const { createRequire } = require('node:module');
const path = require('node:path');
const test = require('node:test');
const { pathToFileURL } = require('node:url');
const { inspect } = require('node:util');
const { runInNewContext } = require('node:vm');

const root = process.argv[2];
const here = createRequire(path.join(process.cwd(), 'test.js'));
const zulcore = here('zulcore');
const { Key, ZulError, certs, messages } = zulcore;
const { memoryOf } = require(path.join(process.cwd(), 'node_modules/zulcore/lib/owner.js'));
const bytes = (text) => Buffer.from(text);

fs.rmSync('files', { recursive: true, force: true });
fs.mkdirSync('files');
process.chdir('files');

function refused(codeName, call) {
  let caught;
  assert.throws(call, (error) => {
    caught = error;
    return error instanceof ZulError && error.codeName === codeName;
  }, `${codeName}: ${call}`);
  return caught;
}

function records() {
  const blocks = fs.readFileSync(path.join(root, 'tests/data/bindings/vectors.txt'), 'utf8').split(/\r?\n\r?\n/);
  return blocks.map((block) => Object.fromEntries(block.split(/\r?\n/).filter((line) => !line.startsWith('#'))
    .map((line) => line.split(/ = ?/)))).filter((record) => record.Kind);
}

function computed(record) {
  const data = (name) => Buffer.from(record[name], 'hex');
  const size = record.Result && record.Result.length / 2;
  const hash = record.Hash;
  const isRefused = record.Kind.endsWith('-refused');
  switch (record.Kind.replace('-refused', '')) {
    case 'hash': return zulcore.hash(data('Message'), record.Algorithm);
    case 'hmac': return zulcore.hmac(data('Key'), data('Message'), record.Algorithm);
    case 'verify': return Key.read(data('Key')).verify(data('Signature'), data('Message'), record.Algorithm);
    case 'aead': return zulcore[isRefused ? 'decrypt' : 'encrypt'](data('Key'), data('Message'),
      { aad: data('Aad'), nonce: data('Nonce'), algorithm: record.Algorithm });
    case 'hkdf': return zulcore.hkdf(data('Key'), { size, salt: data('Salt'), info: data('Info'), hash });
    case 'pbkdf2': return zulcore.pbkdf2(data('Password'), data('Salt'), { size, iterations: +record.Iterations, hash });
    case 'scrypt': return zulcore.scrypt(data('Password'), data('Salt'),
      { size, n: +record.N, r: +record.R, p: +record.P });
    default: throw new Error(record.Kind);
  }
}

test('vectors', () => {
  const seen = new Set();
  for (const record of records()) {
    if (record.Error) {
      assert.throws(() => computed(record), { code: Number(record.Error), name: 'ZulError' });
    } else {
      assert.strictEqual(computed(record)?.toString('hex') ?? '', record.Result ?? '', JSON.stringify(record));
    }
    seen.add(record.Kind);
  }
  assert.strictEqual(seen.size, 9);
});

test('version and both ways to load', async () => {
  assert.strictEqual(String(zulcore.moduleVersion()), here('zulcore/package.json').version.replaceAll('.', ''));
  assert.ok(fs.realpathSync(zulcore.modulePath()).includes('prebuilds'));
  const esm = await import(pathToFileURL(here.resolve('zulcore').replace(/js$/, 'mjs')));
  assert.deepStrictEqual(Object.keys(esm).filter((name) => name !== 'default').sort(), Object.keys(zulcore).sort());
});

test('data in pieces', () => {
  const data = Buffer.alloc(1_300_000, 'abc');
  fs.writeFileSync('dätä-鍵', data);
  assert.strictEqual(zulcore.hexEncode(data.subarray(0, 9)), data.toString('hex', 0, 9));
  const digest = new zulcore.Hash('sha512').add(data.subarray(0, 1000));
  const twin = digest.copy();
  assert.deepStrictEqual(digest.add(data.subarray(1000)).finish(), zulcore.hashFile('dätä-鍵', 'sha512'));
  assert.deepStrictEqual(twin.add(data.subarray(1000)).finish(), zulcore.hash(data, 'sha512'));
  assert.strictEqual(new zulcore.Hash('shake128').finish(100).length, 100);
  const mac = new zulcore.Hmac('key').add(data);
  assert.deepStrictEqual(mac.finish(), zulcore.hmac(bytes('key'), data));
  assert.throws(() => mac.add(data), /finished/);
  // Test runners give programs globals of their own.
  assert.strictEqual(zulcore.hashHex(runInNewContext('new Uint8Array(3)')), zulcore.hashHex(Buffer.alloc(3)));
});

test('keys', () => {
  for (const [kind, password, options] of [['rsa-1024', 'pässword', {}],
    ['p-256', bytes('x'), { parameters: 'kdf=scrypt' }], ['p-384', null, { own: true, unencrypted: true }], ['ed25519', null, { der: true, unencrypted: true }]]) {
    const key = Key.generate(kind);
    key.save('schlüssel', password, options);
    key.publicKey().save('public');
    const publicKey = Key.read('public');
    for (const read of [Key.read('schlüssel', password), Key.read(fs.readFileSync('schlüssel'), password)]) {
      assert.strictEqual(read.fingerprint, key.fingerprint);
      assert.ok(read.isPrivate && !publicKey.isPrivate && read.matches(publicKey));
      const signature = read.sign(bytes('text'));
      publicKey.verify(signature, bytes('text'));
      refused('SIGNATURE_ERROR', () => publicKey.verify(signature, bytes('texts')));
      publicKey.verifyFile(read.signFile('public'), 'public');
    }
    assert.strictEqual(Key.read(bytes(key.publicPem())).fingerprint, key.fingerprint);
    key.check();
    assert.ok(!key.matches(Key.generate(kind).publicKey()));
  }
  const [one, two] = [Key.generate('x25519'), Key.generate('x25519')];
  assert.deepStrictEqual(one.agree(two.publicKey()), two.agree(one));
});

test('secrets are wiped and hidden', async () => {
  const owners = [Key.generate('p-256'), zulcore.makeIdentity(), new zulcore.Hash().add(bytes('secret'))];
  const memories = owners.map((owner) => memoryOf(owner));
  assert.match(inspect(owners[0]), /p-256, 256 bits, private/);
  owners.slice(0, 2).forEach((owner, number) => assert.ok(!inspect(owner, { showHidden: true })
    .includes(memories[number].toString('latin1', 0, 60))));
  owners.forEach((owner) => assert.throws(() => JSON.stringify(owner), TypeError));
  assert.ok(memories.every((memory) => memory.some((byte) => byte !== 0)));
  owners[0].close();
  assert.throws(() => owners[0].sign(bytes('')), /closed/);
  owners.length = 0;
  for (let round = 0; round < 100 && memories.some((memory) => memory.some((byte) => byte !== 0)); ++round) {
    global.gc();
    await new Promise((resolve) => setTimeout(resolve, 10));
  }
  assert.ok(memories.every((memory) => memory.every((byte) => byte === 0)));
  const random = zulcore.randomBytes(70_000);
  assert.ok(random.subarray(65_536).some((byte) => byte !== 0));
  zulcore.wipe(random.subarray(1));
  assert.ok(random.subarray(1).every((byte) => byte === 0));
});

/** How often a secret is in the memory of the process. It is given masked, so as not to be found in the arguments. */
function copiesOf(masked) {
  const memory = fs.openSync('/proc/self/mem', 'r');
  const piece = Buffer.alloc(1 << 20);
  let copies = 0;
  for (const line of fs.readFileSync('/proc/self/maps', 'utf8').split('\n').filter((text) => / rw/.test(text))) {
    const [start, end] = line.split(' ')[0].split('-').map((text) => parseInt(text, 16));
    for (let at = start; at < end; at += piece.length - masked.length) {
      let size = 0;
      try {
        size = fs.readSync(memory, piece, 0, Math.min(piece.length, end - at), at);
      } catch {
        break; // given back by another thread meanwhile
      }
      // Nothing is allocated here, so that the collector does not clean up meanwhile.
      for (let i = 0; i < size; ++i) {
        let same = 0;
        while (same < masked.length && piece[i + same] === (masked[same] ^ 0x55)) {
          ++same;
        }
        copies += same === masked.length ? 1 : 0;
      }
      piece.fill(0);
    }
  }
  fs.closeSync(memory);
  return copies;
}

test('no copy of a password stays', { skip: process.platform !== 'linux' }, () => {
  const masked = zulcore.randomBytes(24).map((byte) => byte % 80 + 1);
  const password = zulcore.randomBytes(masked.length);
  password.forEach((_, number) => { password[number] = masked[number] ^ 0x55; });
  assert.strictEqual(copiesOf(masked), 1);
  Key.generate('p-256').save('key', password);
  zulcore.hmac(password, bytes('text'));
  zulcore.wipe(password);
  assert.strictEqual(copiesOf(masked), 0);
});

test('misuse', () => {
  const key = Key.generate('ed25519');
  const none = bytes('');
  for (const [expected, call] of [
    [TypeError, () => zulcore.hash(none, 'sha256\0')],
    [TypeError, () => Key.read('key\0.pem')],
    [TypeError, () => Key.read('key.pem', 'pass\0word')],
    [TypeError, () => Key.read('key.pem', '\ud800')],
    [TypeError, () => key.save('key', bytes('pass\0word'))],
    [TypeError, () => key.save('key')],
    [TypeError, () => key.save('key', 'password', { unencrypted: true })],
    [TypeError, () => zulcore.sealFile('a', 'b', { recipients: ['c;d'] })],
    [TypeError, () => certs.checkPath('a', 'b', { others: ['c;d'] })],
    [TypeError, () => certs.describe({ 'CN=a;O': 'b' })],
    [TypeError, () => certs.describe({ CN: {} })],
    [TypeError, () => messages.sign(bytes('a\0b'), 'M', key)],
    [TypeError, () => messages.sign('text', 'M', key, { detached: true })],
    [TypeError, () => certs.selfSign(new zulcore.Hash(), 'CN=a')],
    [TypeError, () => certs.p12Pack('p12', 'M', undefined, 'password')],
    [TypeError, () => new zulcore.Identity('identity.txt')],
    [TypeError, () => zulcore.hkdf('password')],
    [TypeError, () => zulcore.hash('text')],
    [TypeError, () => new Key()],
    [RangeError, () => zulcore.randomNumber(2, 1)],
    [RangeError, () => zulcore.hkdf(bytes('key'), { size: 2 ** 31 })],
    [RangeError, () => zulcore.hkdf(bytes('key'), { size: -1 })],
    ['NOT_SUPPORTED_ERROR', () => new zulcore.Hash('sha0')],
    ['BAD_KEY_LEN_ERROR', () => zulcore.encrypt(bytes('short'), none)],
    ['BAD_LENGTH_ERROR', () => zulcore.decrypt(Buffer.alloc(32), bytes('short'))],
    ['DECRYPT_ERROR', () => zulcore.decrypt(Buffer.alloc(32), Buffer.alloc(28))],
    ['OPEN_ERROR', () => Key.read('missing.pem')],
    ['INVALID_DATA_ERROR', () => Key.read(Buffer.from([0x30, 0x82]))],
    ['BAD_KEY_ERROR', () => new zulcore.Identity('AGE-SECRET-KEY-1')],
    ['BAD_PARAM_ERROR', () => certs.selfSign(key, { colour: 'red' })],
  ]) {
    typeof expected === 'string' ? refused(expected, call) : assert.throws(call, expected, String(call));
  }
  assert.match(refused('BAD_PARAM_ERROR', () => certs.selfSign(key, { colour: 'red' })).detail, /colour/);
  assert.match(refused('OPEN_ERROR', () => Key.read('schlüssel fehlt')).detail, /schlüssel fehlt/);
  if (process.platform === 'win32') {
    assert.throws(() => key.publicKey().save('鍵'), /code page/);
  }
});

test('seal', () => {
  fs.writeFileSync('plain', Buffer.alloc(200_000, 'text'));
  const [identity, other] = [zulcore.makeIdentity(), zulcore.makeIdentity()];
  identity.save('identity');
  assert.throws(() => other.save('identity'), { code: 'EEXIST' });
  zulcore.sealFile('sealed', 'plain', { recipients: identity.recipient(), armour: true });
  for (const identities of [[other, identity], 'identity']) {
    zulcore.openFile('opened', 'sealed', { identities });
    assert.strictEqual(zulcore.hashFileHex('opened'), zulcore.hashFileHex('plain'));
  }
  refused('NO_MATCH_ERROR', () => zulcore.openFile('opened', 'sealed', { identities: other }));
  zulcore.wipeFile('identity');
  assert.ok(!fs.existsSync('identity'));
});

test('certificates', () => {
  const [rootKey, key] = [Key.generate('p-256'), Key.generate('rsa-2048')];
  const authority = certs.selfSign(rootKey, { subject: 'C=AU;O=Example', profile: 'ca' }, { der: true });
  const name = "a'b\\c;O=Evil";
  const request = certs.request(key, { CN: name, dns: ['www.example.com', 'example.com'] }, { file: 'request.pem' });
  const leaf = certs.issue(authority, rootKey, 'request.pem', { copy: ['subjectAltName'], profile: 'server',
    serial: '0a3f', notAfter: new Date(Date.now() + 1e9) }, { file: 'leaf.pem' });
  for (const subject of [certs.request(key, { CN: name }, { der: true }), key, bytes(key.publicPem())]) {
    const made = certs.issue(authority, rootKey, subject, { CN: 'Made' });
    assert.strictEqual(Key.read(made).fingerprint, key.fingerprint);
  }
  assert.strictEqual(certs.query(request, 'kind'), 'request');
  assert.strictEqual(certs.query(leaf, 'subject'), "CN=a'b\\\\c\\;O=Evil");
  assert.strictEqual(certs.report(leaf).objects[0].serialNumber, '0a3f');
  assert.match(certs.reportText('leaf.pem'), /www\.example\.com/);
  certs.checkName(leaf, 'example.com');
  refused('NO_MATCH_ERROR', () => certs.checkName(leaf, 'example.org'));
  assert.strictEqual(certs.checkPath(leaf, authority, { conditions: { purpose: 'server' } }).objects[0].result, 'valid');
  const crl = certs.issueCrl(authority, rootKey, [{ cert: leaf, reason: 'superseded' }]);
  const error = refused('BAD_KEY_ERROR', () => certs.checkPath('leaf.pem', [authority], { evidence: [crl] }));
  assert.strictEqual(error.report.objects[0].code, error.code);
  refused('DUP_ERROR', () => certs.issueCrl(authority, rootKey, [{ serial: '0a3f' }], { earlier: crl }));

  certs.p12Pack('bundle.p12', [leaf, authority], key, 'pässword', { name: 'Alice' });
  const bundle = certs.p12Unpack(fs.readFileSync('bundle.p12'), 'pässword');
  assert.strictEqual(bundle.key.fingerprint, key.fingerprint);
  assert.strictEqual(bundle.certificates.toString().match(/BEGIN/g).length, 2);
  assert.strictEqual(certs.p12List('bundle.p12', 'pässword').entries[0].name, 'Alice');
  refused('DECRYPT_ERROR', () => certs.p12Unpack('bundle.p12', 'wrong', { key: null }));
});

test('messages', () => {
  const [key, other] = [Key.generate('rsa-2048'), Key.generate('p-256')];
  const [certificate, foreign] = [key, other].map((signer) => certs.selfSign(signer, { CN: 'Alice' }));
  fs.writeFileSync('zeros', '\0text\0');
  let detached;
  for (const [content, plain] of [[bytes('text'), 'text'], [{ file: 'zeros' }, '\0text\0']]) {
    for (const options of [{ hash: 'sha512', attributes: true }, { der: true }]) {
      const message = messages.sign(content, certificate, key, options);
      messages.verify(message, certificate);
      assert.strictEqual(messages.read(message).toString(), plain);
    }
    detached = messages.sign(content, certificate, key, { detached: true, signingTime: true });
    messages.verify(detached, null, { content });
    refused('SIGNATURE_ERROR', () => messages.verify(detached, null, { content: bytes('other') }));
    assert.strictEqual(messages.decrypt(messages.encrypt(content, certificate), key, certificate).toString(), plain);
  }
  assert.strictEqual(messages.query(detached, 'CountOfSigners'), 1);
  refused('BAD_KEY_ERROR', () => messages.encrypt(bytes('text'), [certificate, foreign], { file: 'message' }));
  assert.ok(!fs.existsSync('message'));
});

test('examples', () => {
  fs.writeFileSync('file', 'abc');
  for (const [example, output] of [['hash_file', 'ba7816bf'], ['seal_open', 'opened'], ['certificate', 'good certificate'],
    ['sign_verify', 'The meeting is at ten.'], ['errors', '15 DECRYPT_ERROR']]) {
    const text = execFileSync(process.execPath, [path.join('..', 'examples', `${example}.js`), 'file']).toString();
    assert.ok(text.includes(output), `${example}: ${text}`);
  }
});
