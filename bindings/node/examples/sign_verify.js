'use strict';
// sign_verify.js: signs a text with a key, and makes a signed message of it.
// --8<-- [start:sign]
const { Key, certs, messages } = require('zulcore');

const text = Buffer.from('The meeting is at ten.');
const key = Key.generate('ed25519');
const signature = key.sign(text);
key.publicKey().verify(signature, text); // throws ZulError if it is not good
key.close();

const rsa = Key.generate('rsa-3072');
const certificate = certs.selfSign(rsa, { CN: 'Alice', email: 'alice@example.com', profile: 'email' });
const message = messages.sign(text, certificate, rsa, { signingTime: true });
rsa.close();
messages.verify(message, certificate);
console.log(messages.read(message).toString(), 'signed at', messages.query(message, 'SigningTime'));
// --8<-- [end:sign]
