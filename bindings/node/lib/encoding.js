'use strict';

const raw = require('./raw.js');
const { bytesIn, bytesOut, textIn, textOut } = require('./buffers.js');
const { length } = require('./errors.js');

function decoded(call, text) {
  const argument = textIn(text);
  return bytesOut(length(call(null, 0, argument)), (out, size) => (size > 0 ? call(out, size, argument) : 0));
}

module.exports = {
  base64Decode: (text) => decoded(raw.CNV_BytesFromB64Str, text),
  base64Encode: (data) => textOut(raw.CNV_B64StrFromBytes, ...bytesIn(data)).toString(),
  hexDecode: (text) => decoded(raw.CNV_BytesFromHexStr, text),
  hexEncode: (data) => textOut(raw.CNV_HexStrFromBytes, ...bytesIn(data)).toString().toLowerCase(),
};
