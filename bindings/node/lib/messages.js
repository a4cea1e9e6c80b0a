'use strict';
// Signed and encrypted messages (CMS) with RSA keys.

const fs = require('node:fs');
const { isUint8Array } = require('node:util/types');
const raw = require('./raw.js');
const { memoryOf } = require('./owner.js');
const { bytesOut, fileIn, fileOut, listIn, sourceIn, textIn, textOut, withText } = require('./buffers.js');
const { ZulError, length, status } = require('./errors.js');
const { Key } = require('./keys.js');
const { hash: digestOf, hashFile } = require('./hashes.js');

const HASHES = new Map(Object.entries({ sha1: raw.ZUL_HASH_SHA1, sha224: raw.ZUL_HASH_SHA224, sha256: raw.ZUL_HASH_SHA256,
  sha384: raw.ZUL_HASH_SHA384, sha512: raw.ZUL_HASH_SHA512, md5: raw.ZUL_HASH_MD5 }));
const CIPHERS = new Map(Object.entries({ 'aes-128': raw.ZUL_CMS_CIPHER_AES128, 'aes-192': raw.ZUL_CMS_CIPHER_AES192,
  'aes-256': raw.ZUL_CMS_CIPHER_AES256, '3des': raw.ZUL_CMS_CIPHER_TDEA }));

function optionOf(table, name) {
  if (!table.has(name)) {
    throw new TypeError(`${name} is none of ${[...table.keys()].join(', ')}`);
  }
  return table.get(name);
}

/** Calls with the function for content that is bytes, or { file: name }, and its argument, which is wiped. */
function withContent(content, fromText, fromFile, call) {
  if (!isUint8Array(content)) {
    return call(fromFile, fileIn(fileOf(content)));
  }
  if (content.includes(0)) {
    throw new TypeError('content with zero bytes has to come from a file');
  }
  return withText([content], '', (text) => call(fromText, text));
}

function fileOf(content) {
  if (!content?.file) {
    throw new TypeError('content is bytes, or { file: name }');
  }
  return content.file;
}

function hexDigest(content, hash) {
  return textIn((isUint8Array(content) ? digestOf(content, hash) : hashFile(fileOf(content), hash)).toString('hex'));
}

function certificatesIn(certificates) {
  const [joined, number] = listIn(certificates);
  if (number > 10) {
    throw new RangeError('a message takes ten certificates');
  }
  return [joined, number];
}

const orNull = (source) => (source === undefined || source === null ? null : sourceIn(source));

function sign(content, certificates, key, { hash = 'sha256', detached, attributes, signingTime, der, file } = {}) {
  const options = optionOf(HASHES, hash) | (der ? 0 : raw.ZUL_CMS_FORMAT_BASE64) |
    (attributes || signingTime ? raw.ZUL_CMS_INCLUDE_ATTRS : 0) | (signingTime ? raw.ZUL_CMS_ADD_SIGNTIME : 0);
  const signed = (call, argument) => fileOut((name) => call(name, argument, certificatesIn(certificates)[0],
    memoryOf(key, Key), options), file);
  return detached ? signed(raw.CMS_MakeDetachedSig, hexDigest(content, hash)) :
    withContent(content, raw.CMS_MakeSigDataFromString, raw.CMS_MakeSigData, signed);
}

function verify(message, certificate, { content } = {}) {
  const digest = content !== undefined && content !== null ? hexDigest(content, query(message, 'digestAlgorithm').toLowerCase().replace('-', '')) : null;
  status(raw.CMS_VerifySigData(sourceIn(message), orNull(certificate), digest, 0));
}

const read = (message) => textOut(raw.CMS_ReadSigDataToString, sourceIn(message), 0);

function answer(call, message, word) {
  const tail = [sourceIn(message), textIn(word)];
  return length(call(null, 0, ...tail, raw.ZUL_QUERY_GETTYPE)) === 1 ? length(call(null, 0, ...tail, 0)) :
    textOut(call, ...tail, 0).toString('latin1');
}

const query = (message, word) => answer(raw.CMS_QuerySigData, message, word);
const queryEncrypted = (message, word) => answer(raw.CMS_QueryEnvData, message, word);

function encrypt(content, certificates, { cipher = 'aes-256', der, file } = {}) {
  const [joined, number] = certificatesIn(certificates);
  const options = optionOf(CIPHERS, cipher) | (der ? 0 : raw.ZUL_CMS_FORMAT_BASE64);
  return withContent(content, raw.CMS_MakeEnvDataFromString, raw.CMS_MakeEnvData, (call, argument) => fileOut((name) => {
    if (length(call(name, argument, joined, null, 0, options)) !== number) {
      const error = new ZulError(raw.ErrorCode.BAD_KEY_ERROR);
      if (file) {
        fs.unlinkSync(file);
      }
      throw error;
    }
    return 0;
  }, file));
}

function decrypt(message, key, certificate) {
  const tail = [sourceIn(message), orNull(certificate), memoryOf(key, Key), 0];
  const size = length(raw.CMS_ReadEnvDataToString(null, 0, ...tail));
  return bytesOut(size + 1, (out) => raw.CMS_ReadEnvDataToString(out, size, ...tail));
}

module.exports = { decrypt, encrypt, query, queryEncrypted, read, sign, verify };
