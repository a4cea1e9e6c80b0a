'use strict';
// The ANSI code page of Windows, in which the library takes and shows names of files.

const koffi = require('koffi');

let functions;
function kernel() {
  if (!functions) {
    const library = koffi.load('kernel32.dll');
    const text = ['void *', 'int', 'void *', 'int'];
    functions = {
      isUtf8: library.func('GetACP', 'uint', [])() === 65001,
      fromWide: library.func('WideCharToMultiByte', 'int', ['uint', 'uint', ...text, 'void *', 'void *']),
      toWide: library.func('MultiByteToWideChar', 'int', ['uint', 'uint', ...text]),
    };
  }
  return functions;
}

/** A name in the code page, exactly or not at all. */
function toAnsi(name) {
  const { isUtf8, fromWide } = kernel();
  if (isUtf8) {
    return Buffer.from(name);
  }
  const noBestFit = 0x400;
  const output = Buffer.alloc(name.length * 4 + 1);
  const replaced = Buffer.alloc(4);
  const size = fromWide(0, noBestFit, Buffer.from(name, 'utf16le'), name.length, output, output.length, null, replaced);
  if (size === 0 || replaced.readInt32LE() !== 0) {
    throw new TypeError(`the name of a file cannot be written in the system's code page: ${name}`);
  }
  return output.subarray(0, size);
}

function fromAnsi(bytes) {
  const wide = Buffer.alloc(bytes.length * 2 + 2);
  return wide.toString('utf16le', 0, kernel().toWide(0, 0, bytes, bytes.length, wide, bytes.length) * 2);
}

module.exports = { fromAnsi, toAnsi };
