// Compiled, not run: what a caller may write, and what the types refuse.
import zulcore, { certs, Hash, Key, messages, ZulError } from 'zulcore';
import * as raw from 'zulcore/raw';

using key: Key = Key.generate('p-256');
const signature: Buffer = key.sign(new Uint8Array(3), null, { raw: true });
key.verify(signature, new Uint8Array(3));
const digest: string = new Hash('sha256').add(signature).finish().toString('hex');
const leaf: Buffer = certs.selfSign(key, { CN: digest, dns: ['a.example'], ca: true, days: 90 }, { file: 'leaf.pem' });
const bundle: { key: Key } = certs.p12Unpack('bundle.p12', 'password');
const none: null = certs.p12Unpack('bundle.p12', null, { key: null }).key;
messages.sign({ file: 'text' }, [leaf], bundle.key, { detached: true });
const code: number = raw.HASH_Bytes(null, 0, signature, signature.length, raw.ZUL_HASH_SHA256);
try {
  zulcore.openFile('out', 'in', { identities: [zulcore.makeIdentity(), 'file'] });
} catch (error) {
  if (error instanceof certs.PathError) {
    console.log(error.report?.objects[0], none, code === zulcore.ErrorCode.OPEN_ERROR);
  } else if (error instanceof ZulError) {
    console.log(error.code + 1, error.codeName.length, error.text, error.detail);
  }
}
// @ts-expect-error: a text has no encoding of its own here
zulcore.hash('text');
// @ts-expect-error: keys are not made of texts
new Key('text');
