'use strict';
// Arguments and results as the library takes them: lengths checked, texts encoded, secrets wiped.

const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const url = require('node:url');
const { isUint8Array } = require('node:util/types');
const raw = require('./raw.js');
const { toAnsi } = require('./ansi.js');
const { isWindows } = require('./load.js');
const { ZulError, length } = require('./errors.js');

const INT_MAX = 0x7fffffff;
// An empty array may have no address, and a null one would be a missing argument.
const NOTHING = Buffer.alloc(1);

function count(size) {
  if (!Number.isInteger(size) || size < 0 || size > INT_MAX) {
    throw new RangeError('a number outside 0 to 2,147,483,647');
  }
  return size;
}

/** Bytes as an argument and its length. */
function bytesIn(data) {
  if (!isUint8Array(data)) {
    throw new TypeError('a Uint8Array or Buffer is needed');
  }
  count(data.length);
  return [data.length > 0 ? data : NOTHING, data.length];
}

/** Memory without secrets of its own, which the caller wipes where it gets some. Small arrays lie in the collected heap
 * until a native call moves them out of it, and what they held stays behind; an ArrayBuffer never does. */
function room(size) {
  return Buffer.from(new ArrayBuffer(count(size)));
}

/** Calls with pieces as one text that ends with a NUL and is wiped at the end. */
function withText(pieces, separator, call) {
  const parts = pieces.map((piece) => (typeof piece === 'string' ? encoded(piece) : piece));
  const separators = Math.max(0, parts.length - 1) * separator.length;
  const text = room(parts.reduce((sum, part) => sum + part.length, separators) + 1);
  try {
    let at = 0;
    parts.forEach((part, number) => {
      if (!isUint8Array(part)) {
        throw new TypeError('a text or its bytes are needed');
      }
      if (part.includes(0)) {
        throw new TypeError('a NUL inside a text');
      }
      at += number > 0 ? text.write(separator, at) : 0;
      text.set(part, at);
      at += part.length;
    });
    return call(text);
  } finally {
    text.fill(0);
    parts.forEach((part, number) => typeof pieces[number] === 'string' && part.fill(0));
  }
}

function withPassword(password, call) {
  return password === undefined || password === null ? call(null) : withText([password], '', call);
}

/** Calls with the bytes of a password or key and their number. */
function withSecret(secret, call) {
  if (typeof secret === 'string') {
    return withText([secret], '', (text) => call([text, text.length - 1]));
  }
  const [bytes, size] = bytesIn(secret);
  const own = room(bytes.length);
  try {
    own.set(bytes);
    return call([own, size]);
  } finally {
    own.fill(0);
  }
}

function encoded(text) {
  if (typeof text !== 'string') {
    throw new TypeError('a text is needed');
  }
  if (text.includes('\0')) {
    throw new TypeError('a NUL inside a text');
  }
  if (/[\ud800-\udfff]/u.test(text)) {
    throw new TypeError('a text with half a character');
  }
  const bytes = room(Buffer.byteLength(text));
  bytes.write(text);
  return bytes;
}

function terminated(bytes) {
  return Buffer.concat([bytes, NOTHING]);
}

/** A text in UTF-8; one with a NUL is refused, because the library would see the part before it. */
function textIn(text) {
  return terminated(encoded(text));
}

function plainName(name) {
  const text = name instanceof URL ? url.fileURLToPath(name) : name;
  const bytes = encoded(text);
  if (bytes.length === 0) {
    throw new TypeError('an empty name of a file');
  }
  return { text, bytes };
}

/** The name of a file in the encoding that the library expects: UTF-8, or on Windows the ANSI code page. */
function fileIn(name) {
  const { text, bytes } = plainName(name);
  return terminated(isWindows && !/^[\x00-\x7f]*$/.test(text) ? toAnsi(text) : bytes);
}

/** An object that is text already, PEM or base64, as PEM; null if it is DER or BER. */
function armoured(data, label) {
  const bytes = Buffer.from(data.buffer, data.byteOffset, data.length);
  const looksBinary = bytes[0] === 0x30 && bytes[1] >= 0x80;
  if (!looksBinary && bytes.includes('-----BEGIN ')) {
    return bytes;
  }
  return bytes[0] === 0x4d && /^[A-Za-z0-9+/=\s]*$/.test(bytes.toString('latin1')) ? wrapped(bytes, label) : null;
}

function wrapped(base64, label) {
  return Buffer.concat([Buffer.from(`-----BEGIN ${label}-----\n`), base64, Buffer.from(`\n-----END ${label}-----\n`)]);
}

/** A file's name, PEM text or object as an argument of the library. The label rarely matters. */
function sourceIn(source, label = 'CERTIFICATE') {
  if (!isUint8Array(source)) {
    return fileIn(source);
  }
  if (source.length === 0) {
    throw new TypeError('an empty object');
  }
  // A short text without a label would be taken for a file's name.
  const text = armoured(source, label) ?? wrapped(textOut(raw.CNV_B64StrFromBytes, ...bytesIn(source)), label);
  if (text.includes(0)) {
    throw new TypeError('a NUL inside a text');
  }
  return terminated(text);
}

/** Sources joined by semicolons, and their number. */
function listIn(sources) {
  const items = Array.isArray(sources) ? sources : [sources];
  const parts = items.map((item) => sourceIn(item).subarray(0, -1));
  if (parts.some((part) => part.includes(';'))) {
    throw new TypeError('a semicolon in the name of a file of a list: read the file and give its bytes');
  }
  const joined = parts.flatMap((part, number) => (number > 0 ? [Buffer.from(';'), part] : [part]));
  return [terminated(Buffer.concat(joined)), parts.length];
}

/** The text of a function with a room for it in front, as its bytes. */
function textOut(call, ...rest) {
  const size = length(call(null, 0, ...rest));
  const buffer = room(size + 1);
  return buffer.subarray(0, size > 0 ? length(call(buffer, size, ...rest)) : 0);
}

/** The bytes that a call writes into a room of a size. */
function bytesOut(size, call) {
  const buffer = room(Math.max(size, 1));
  const written = length(call(buffer, size));
  buffer.fill(0, written);
  return buffer.subarray(0, written);
}

function withFolder(call) {
  const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'zulcore-'));
  try {
    return call(folder);
  } finally {
    fs.rmSync(folder, { recursive: true, force: true });
  }
}

/** What a function writes to a file: the named one, or one in a private folder that is removed. */
function fileOut(write, file) {
  if (file === undefined || file === null) {
    return withFolder((folder) => fileOut(write, path.join(folder, 'out')));
  }
  const result = write(fileIn(file));
  if (result !== 0) {
    throw new ZulError(result);
  }
  return fs.readFileSync(file);
}

module.exports = {
  armoured, bytesIn, bytesOut, count, fileIn, fileOut, listIn, room, sourceIn, textIn, textOut, withFolder, withPassword,
  withSecret, withText,
};
