'use strict';

const fs = require('node:fs');
const raw = require('./raw.js');
const { bytesIn, bytesOut, room, textIn, withSecret } = require('./buffers.js');
const { Owner, memoryOf } = require('./owner.js');
const { length, status } = require('./errors.js');

const PIECE = 1 << 20;

/** What Hash and Hmac share: a context of the library that is wiped. */
class Pieces extends Owner {
  #add;
  #end;

  constructor(context, add, end) {
    super(context, 'finished or closed already');
    this.#add = add;
    this.#end = end;
  }

  add(data) {
    status(this.#add(memoryOf(this), ...bytesIn(data)));
    return this;
  }

  /** The result, and the end of the object. The size is for shake128 and shake256; others are cut to it. */
  finish(size) {
    const context = memoryOf(this);
    const most = size ?? length(this.#end(null, 0, context));
    if (!(most >= 1)) {
      throw new RangeError('no room for a result');
    }
    const result = bytesOut(most, (out, space) => this.#end(out, space, context));
    this.close();
    return result;
  }
}

class Hash extends Pieces {
  constructor(algorithm = 'sha256') {
    super(algorithm instanceof Copied ? algorithm.context : begun(algorithm), raw.HASH_Add, raw.HASH_End);
  }

  /** Another digest that continues from here. */
  copy() {
    const context = memoryOf(this);
    const twin = room(context.length);
    twin.set(context);
    return new Hash(new Copied(twin));
  }
}

class Copied {
  constructor(context) {
    this.context = context;
  }
}

function begun(algorithm) {
  const name = textIn(algorithm);
  const context = room(length(raw.HASH_Begin(null, 0, name, 0)));
  length(raw.HASH_Begin(context, context.length, name, 0));
  return context;
}

class Hmac extends Pieces {
  constructor(key, algorithm = 'sha256') {
    const name = textIn(algorithm);
    super(withSecret(key, (secret) => {
      const context = room(length(raw.HMAC_Begin(null, 0, ...secret, name, 0)));
      length(raw.HMAC_Begin(context, context.length, ...secret, name, 0));
      return context;
    }), raw.HMAC_Add, raw.HMAC_End);
  }
}

function hash(data, algorithm) {
  return new Hash(algorithm).add(data).finish();
}

/** The digest of a file of any size and name. */
function hashFile(file, algorithm) {
  const digest = new Hash(algorithm);
  const stream = fs.openSync(file, 'r');
  try {
    const piece = Buffer.alloc(PIECE);
    for (let size = fs.readSync(stream, piece); size > 0; size = fs.readSync(stream, piece)) {
      digest.add(piece.subarray(0, size));
    }
    return digest.finish();
  } finally {
    fs.closeSync(stream);
    digest.close();
  }
}

module.exports = {
  Hash,
  Hmac,
  hash,
  hashFile,
  hashHex: (data, algorithm) => hash(data, algorithm).toString('hex'),
  hashFileHex: (file, algorithm) => hashFile(file, algorithm).toString('hex'),
  hmac: (key, data, algorithm) => new Hmac(key, algorithm).add(data).finish(),
};
