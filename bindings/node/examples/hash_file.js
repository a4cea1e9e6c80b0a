'use strict';
// hash_file.js FILE: prints the SHA-256 of a file.
// --8<-- [start:hash]
const zulcore = require('zulcore');

console.log(zulcore.hashFileHex(process.argv[2]));

const digest = new zulcore.Hash('sha3-256'); // of data that comes in pieces
digest.add(Buffer.from('first ')).add(Buffer.from('second'));
console.log(digest.finish().toString('hex'));
// --8<-- [end:hash]
