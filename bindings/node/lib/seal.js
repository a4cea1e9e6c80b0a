'use strict';

const fs = require('node:fs');
const { inspect } = require('node:util');
const raw = require('./raw.js');
const { Owner, memoryOf } = require('./owner.js');
const { fileIn, room, withPassword, withText } = require('./buffers.js');
const { length, status } = require('./errors.js');

/** A private key that opens files. */
class Identity extends Owner {
  constructor(text) {
    super(withText([text], '', (given) => {
      const own = room(given.length);
      given.copy(own);
      if (own.toString('latin1', 0, 16).toLowerCase() !== 'age-secret-key-1') {
        throw new TypeError('not the text of an identity'); // the library would take it for the name of a file
      }
      return own;
    }), 'the identity is closed');
    this.recipient();
  }

  recipient() {
    const buffer = room(128);
    return buffer.toString('latin1', 0, length(raw.SEAL_Recipient(buffer, 127, memoryOf(this))));
  }

  /** Writes the identity to a new file that only its owner may read (on Windows: whoever may read in its folder). */
  save(file) {
    const text = memoryOf(this);
    const stream = fs.openSync(file, 'wx', 0o600);
    try {
      for (const piece of [Buffer.from(`# recipient: ${this.recipient()}\n`), text.subarray(0, -1), Buffer.from('\n')]) {
        fs.writeSync(stream, piece);
      }
    } finally {
      fs.closeSync(stream);
    }
  }

  toString() {
    return this.closed ? '<Identity, closed>' : `<Identity of ${this.recipient()}>`;
  }

  [inspect.custom]() {
    return this.toString();
  }
}

function makeIdentity() {
  const buffer = room(length(raw.SEAL_MakeIdentity(null, 0, 0)) + 1);
  try {
    length(raw.SEAL_MakeIdentity(buffer, buffer.length - 1, 0));
    return new Identity(buffer.subarray(0, -1));
  } finally {
    buffer.fill(0);
  }
}

function entry(item) {
  const text = fileIn(item).subarray(0, -1);
  if (text.includes(';')) {
    throw new TypeError('a semicolon in an entry of a list');
  }
  return text;
}

function listOf(items) {
  return Array.isArray(items) ? items : [items];
}

function sealFile(output, input, { recipients = [], password, armour = false } = {}) {
  const entries = listOf(recipients).map(entry);
  withText(entries, ';', (list) => withPassword(password, (secret) => status(raw.SEAL_File(fileIn(output), fileIn(input),
    entries.length > 0 ? list : null, secret, armour ? raw.ZUL_SEAL_ARMOUR : 0))));
}

function openFile(output, input, { identities = [], password } = {}) {
  const entries = listOf(identities).map((item) => (item instanceof Identity ? memoryOf(item).subarray(0, -1) :
    entry(item)));
  withText(entries, ';', (list) => withPassword(password, (secret) => status(raw.SEAL_OpenFile(fileIn(output),
    fileIn(input), entries.length > 0 ? list : null, secret, 0))));
}

module.exports = { Identity, makeIdentity, openFile, sealFile };
