'use strict';
// errors.js: a message that was changed is refused.
// --8<-- [start:error]
const zulcore = require('zulcore');

const key = zulcore.randomBytes(32);
const box = zulcore.encrypt(key, Buffer.from('a secret'), { aad: Buffer.from('header') });
box[box.length - 1] ^= 1;
try {
  zulcore.decrypt(key, box, { aad: Buffer.from('header') });
} catch (error) {
  console.log(error.code, error.codeName, error.detail); // 15 DECRYPT_ERROR
}
// --8<-- [end:error]
zulcore.wipe(key);
