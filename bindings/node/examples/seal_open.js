'use strict';
// seal_open.js FILE: seals a file for a recipient and under a password, and opens both.
const assert = require('node:assert');
// --8<-- [start:seal]
const zulcore = require('zulcore');

const file = process.argv[2];
const identity = zulcore.makeIdentity();
zulcore.sealFile('for-a-friend.age', file, { recipients: [identity.recipient()] });
zulcore.openFile('opened.txt', 'for-a-friend.age', { identities: identity });
identity.close();

zulcore.sealFile('with-a-password.age', file, { password: 'correct horse', armour: true });
zulcore.openFile('opened-too.txt', 'with-a-password.age', { password: 'correct horse' });
// --8<-- [end:seal]
for (const name of ['opened.txt', 'opened-too.txt']) {
  assert.strictEqual(zulcore.hashFileHex(name), zulcore.hashFileHex(file));
}
console.log('opened');
