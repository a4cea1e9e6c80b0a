'use strict';

const raw = require('./raw.js');
const { fromAnsi } = require('./ansi.js');
const { isWindows } = require('./load.js');

const names = new Map(Object.entries(raw.ErrorCode).map(([name, code]) => [code, name]));

/** A text of the library: UTF-8, but on Windows names of files are in the code page. */
function decoded(bytes) {
  try {
    return new TextDecoder('utf-8', { fatal: true, ignoreBOM: true }).decode(bytes);
  } catch {
    return isWindows ? fromAnsi(bytes) : bytes.toString();
  }
}

function textOf(buffer) {
  return decoded(buffer.subarray(0, buffer.indexOf(0)));
}

/** A call that failed: its code, the code's name and general text, and what the call had to say. */
class ZulError extends Error {
  constructor(code) {
    const buffer = Buffer.alloc(512);
    raw.ZUL_LastError(buffer, 511);
    const detail = textOf(buffer);
    const number = Math.abs(code);
    const codeName = names.get(number) ?? 'UNKNOWN';
    buffer.fill(0);
    raw.ZUL_ErrorLookup(buffer, 512, number); // this room counts the NUL
    const text = textOf(buffer);
    super(`${text} (${codeName}, ${number})${detail && `: ${detail}`}`);
    Object.assign(this, { code: number, codeName, text, detail });
  }
}
Object.defineProperty(ZulError.prototype, 'name', { value: 'ZulError' });

/** The result of a function that gives a length, or its error as an exception. */
function length(result) {
  if (result < 0) {
    throw new ZulError(result);
  }
  return result;
}

/** Throws the error of a function that gives a status, of either sign. */
function status(result) {
  if (result !== 0) {
    throw new ZulError(result);
  }
}

module.exports = { ZulError, decoded, length, status };
