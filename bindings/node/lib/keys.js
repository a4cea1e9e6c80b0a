'use strict';

const { inspect } = require('node:util');
const { isUint8Array } = require('node:util/types');
const raw = require('./raw.js');
const { Owner, memoryOf } = require('./owner.js');
const { armoured, bytesIn, bytesOut, fileIn, fileOut, room, textIn, withPassword, withText } = require('./buffers.js');
const { length, status } = require('./errors.js');

// No key string is longer. Asking for the length first would derive the key of an encrypted file twice.
const MOST = 90000;
const MAKING = Symbol('making');

/** A key of what a call writes; the call gives a length, or 0 where it has none to give. */
function made(write) {
  const large = room(MOST + 1);
  try {
    length(write(large, MOST));
    const text = room(large.indexOf(0) + 1);
    large.copy(text, 0, 0, text.length);
    return new Key(MAKING, text);
  } finally {
    large.fill(0);
  }
}

function optional(text) {
  return text === undefined || text === null ? null : textIn(text);
}

class Key extends Owner {
  #isPrivate;

  constructor(making, text) {
    if (making !== MAKING) {
      throw new TypeError('keys come from Key.generate, Key.read and publicKey()');
    }
    super(text, 'the key is closed');
    this.#isPrivate = raw.KEY_Query(null, 0, text, textIn('isPrivate'), 0) === 1;
  }

  static generate(kind) {
    const name = textIn(kind);
    return made((out, size) => raw.KEY_Make(out, size, name, 0));
  }

  static read(source, password) {
    return withPassword(password, (secret) => {
      const read = (text) => made((out, size) => raw.KEY_Read(out, size, text, secret, 0));
      if (!isUint8Array(source)) {
        return read(fileIn(source));
      }
      const pem = armoured(source, 'KEY');
      if (pem) {
        return withText([pem], '', read);
      }
      const data = bytesIn(source);
      const base64 = room(length(raw.CNV_B64StrFromBytes(null, 0, ...data)) + 1);
      try {
        length(raw.CNV_B64StrFromBytes(base64, base64.length - 1, ...data));
        return read(base64);
      } finally {
        base64.fill(0);
      }
    });
  }

  save(file, password, { unencrypted = false, parameters, der = false, own = false } = {}) {
    const text = memoryOf(this);
    const hasPassword = password !== undefined && password !== null;
    if (this.#isPrivate && hasPassword === unencrypted) {
      throw new TypeError('a private key needs either a password or { unencrypted: true }');
    }
    const options = (der ? 0 : raw.ZUL_KEY_FORMAT_PEM) | (own ? raw.ZUL_KEY_FORMAT_OWN : 0);
    withPassword(password, (secret) => status(raw.KEY_Save(fileIn(file), text, secret, optional(parameters), options)));
  }

  publicKey() {
    const text = memoryOf(this);
    return made((out, size) => raw.KEY_Public(out, size, text));
  }

  publicPem() {
    const key = this.publicKey();
    try {
      return fileOut((name) => raw.KEY_Save(name, memoryOf(key), null, null, raw.ZUL_KEY_FORMAT_PEM)).toString();
    } finally {
      key.close();
    }
  }

  query(word) {
    const buffer = room(4096 * 4 + 1);
    length(raw.KEY_Query(buffer, buffer.length - 1, memoryOf(this), textIn(word), 0));
    return buffer.toString('utf8', 0, buffer.indexOf(0));
  }

  get isPrivate() {
    return this.#isPrivate;
  }

  get algorithm() {
    return this.query('algorithm');
  }

  get bits() {
    return Number(this.query('bits'));
  }

  get curve() {
    return this.query('curve');
  }

  get fingerprint() {
    return this.query('fingerprint');
  }

  matches(publicKey) {
    const result = raw.KEY_Match(memoryOf(this), memoryOf(publicKey, Key));
    if (result !== raw.ErrorCode.NO_MATCH_ERROR) {
      status(result);
    }
    return result === 0;
  }

  check() {
    status(raw.KEY_Check(memoryOf(this), 0));
  }

  sign(data, algorithm, options) {
    return this.#sign(raw.SIG_Sign, bytesIn(data), algorithm, options);
  }

  signFile(file, algorithm, options) {
    return this.#sign(raw.SIG_SignFile, [fileIn(file)], algorithm, options);
  }

  verify(signature, data, algorithm, options) {
    this.#verify(raw.SIG_Verify, signature, bytesIn(data), algorithm, options);
  }

  verifyFile(signature, file, algorithm, options) {
    this.#verify(raw.SIG_VerifyFile, signature, [fileIn(file)], algorithm, options);
  }

  #sign(call, data, algorithm, { raw: plain = false, deterministic = false } = {}) {
    const options = (plain ? raw.ZUL_SIG_RAW : 0) | (deterministic ? raw.ZUL_SIG_DETERMINISTIC : 0);
    const tail = [...data, memoryOf(this), optional(algorithm), options];
    return bytesOut(length(call(null, 0, ...tail)), (out, size) => call(out, size, ...tail));
  }

  #verify(call, signature, data, algorithm, { raw: plain = false } = {}) {
    status(call(...bytesIn(signature), ...data, memoryOf(this), optional(algorithm), plain ? raw.ZUL_SIG_RAW : 0));
  }

  agree(peer) {
    const keys = [memoryOf(this), memoryOf(peer, Key), 0];
    return bytesOut(length(raw.KEY_Agree(null, 0, ...keys)), (out, size) => raw.KEY_Agree(out, size, ...keys));
  }

  toString() {
    return this.closed ? '<Key, closed>' :
      `<Key ${this.curve || this.algorithm}, ${this.bits} bits, ${this.#isPrivate ? 'private' : 'public'}>`;
  }

  [inspect.custom]() {
    return this.toString();
  }
}

module.exports = { Key, made };
