'use strict';

const raw = require('./lib/raw.js');
const { textOut } = require('./lib/buffers.js');
const { ZulError, decoded } = require('./lib/errors.js');

module.exports = {
  ErrorCode: raw.ErrorCode,
  ZulError,
  Key: require('./lib/keys.js').Key,
  certs: require('./lib/certs.js'),
  messages: require('./lib/messages.js'),
  ...require('./lib/encoding.js'),
  ...require('./lib/hashes.js'),
  ...require('./lib/seal.js'),
  ...require('./lib/secret.js'),
  /** The full path of the module. */
  modulePath: () => decoded(textOut(raw.ZUL_ModuleName, 0)),
  /** The version of the module: major * 100 + minor * 10 + release. */
  moduleVersion: () => raw.ZUL_Version(null, null),
};
