'use strict';
// Authenticated encryption, keys from passwords and other keys, random numbers, wiping.

const raw = require('./raw.js');
const { bytesIn, bytesOut, count, fileIn, room, textIn, withSecret } = require('./buffers.js');
const { length, status } = require('./errors.js');

const RNG_MOST = 65536;
const NONE = Buffer.alloc(0);

function aead(call, key, data, { aad = NONE, nonce = null, algorithm = 'aes-256-gcm' } = {}) {
  bytesIn(key); // no text
  return withSecret(key, (secret) => {
    const tail = [...bytesIn(data), ...secret, ...bytesIn(nonce ?? NONE), ...bytesIn(aad), textIn(algorithm),
      nonce === null ? raw.ZUL_AEAD_RANDOM_NONCE : 0];
    return bytesOut(length(call(null, 0, ...tail)), (out, size) => call(out, size, ...tail));
  });
}

function derived(secret, size, call) {
  return withSecret(secret, (password) => bytesOut(count(size), (out, most) => call(out, most, ...password)));
}

function pbkdf2(password, salt, { size = 32, iterations = 600000, hash = 'sha256' } = {}) {
  const tail = [...bytesIn(salt), count(iterations), textIn(hash)];
  return derived(password, size, (...front) => raw.KDF_Pbkdf2(...front, ...tail));
}

function hkdf(key, { size = 32, salt = NONE, info = NONE, hash = 'sha256' } = {}) {
  bytesIn(key); // no text: a password needs one of the others
  const tail = [...bytesIn(salt), ...bytesIn(info), textIn(hash)];
  return derived(key, size, (...front) => raw.KDF_Hkdf(...front, ...tail));
}

function scrypt(password, salt, { size = 32, n = 1 << 17, r = 8, p = 1 } = {}) {
  const tail = [...bytesIn(salt), count(n), count(r), count(p)];
  return derived(password, size, (...front) => raw.KDF_Scrypt(...front, ...tail));
}

function argon2id(password, salt, { size = 32, memoryKiB = 65536, passes = 3, lanes = 4 } = {}) {
  const tail = [...bytesIn(salt), count(memoryKiB), count(passes), count(lanes)];
  return derived(password, size, (...front) => raw.KDF_Argon2id(...front, ...tail));
}

function randomBytes(size) {
  const result = room(size);
  for (let at = 0; at < size; at += RNG_MOST) {
    const piece = result.subarray(at, at + RNG_MOST);
    status(raw.RNG_Bytes(piece, piece.length, null, 0));
  }
  return result;
}

/** A uniform number from lower to upper, both included. */
function randomNumber(lower, upper) {
  if (![lower, upper].every((limit) => Number.isInteger(limit) && Math.abs(limit + 0.5) < 2 ** 31) || lower > upper ||
      upper - lower >= 2 ** 32 - 1) {
    throw new RangeError('no such range of numbers');
  }
  return raw.RNG_Number(lower, upper);
}

/** Overwrites bytes with zeros. */
function wipe(data) {
  bytesIn(data);
  data.fill(0); // where it lies: a native call would move a small array first
}

module.exports = {
  argon2id,
  decrypt: (key, data, options) => aead(raw.AEAD_Decrypt, key, data, options),
  encrypt: (key, data, options) => aead(raw.AEAD_Encrypt, key, data, options),
  hkdf,
  pbkdf2,
  randomBytes,
  randomNumber,
  scrypt,
  wipe,
  wipeFile: (file) => status(raw.WIPE_File(fileIn(file), 0)),
};
