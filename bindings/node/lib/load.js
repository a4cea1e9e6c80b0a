'use strict';
// Finds the module: in prebuilds/, by ZULCORE_LIBRARY (a full path), or by the system's search.

const fs = require('node:fs');
const path = require('node:path');
const koffi = require('koffi');

const isWindows = process.platform === 'win32';

function loadLibrary() {
  const beside = path.join(__dirname, '..', 'prebuilds', `${process.platform}-${process.arch}`,
    isWindows ? 'zulcore.dll' : 'libzulcore.so');
  if (fs.existsSync(beside)) {
    return koffi.load(beside);
  }
  const named = process.env.ZULCORE_LIBRARY;
  if (named) {
    if (!path.isAbsolute(named)) {
      throw new Error(`ZULCORE_LIBRARY has to be a full path: ${named}`);
    }
    return koffi.load(named);
  }
  // On Linux the name under which a system has the library without its files for developers.
  const searched = isWindows ? 'zulcore.dll' : 'libzulcore.so.3';
  try {
    return koffi.load(searched);
  } catch (error) {
    throw new Error(`${beside} is not there, ZULCORE_LIBRARY is not set, and the system's search gives: ${error.message}`);
  }
}

module.exports = { isWindows, loadLibrary };
