'use strict';
// Certificates, requests, CRLs, their reports and paths; PKCS #12 files; OCSP.

const fs = require('node:fs');
const path = require('node:path');
const { isUint8Array } = require('node:util/types');
const raw = require('./raw.js');
const { memoryOf } = require('./owner.js');
const { fileIn, fileOut, listIn, room, sourceIn, textIn, textOut, withFolder, withPassword } = require('./buffers.js');
const { base64Decode } = require('./encoding.js');
const { ZulError, status } = require('./errors.js');
const { Key, made } = require('./keys.js');

/** A certificate that cannot be relied on; the report says what was checked. */
class PathError extends ZulError {
  report = null;
}

function quoted(value) {
  if (isUint8Array(value)) {
    return quoted(sourceIn(value).subarray(0, -1).toString());
  }
  if (!(value instanceof Date) && !['string', 'number', 'bigint'].includes(typeof value)) {
    throw new TypeError('a value of a description is a text, a number, a Date, bytes or a list of them');
  }
  const text = value instanceof Date ? `${value.toISOString().slice(0, 19)}Z` : String(value);
  return `'${text.replace(/[\\']/g, '\\$&')}'`;
}

/** An object as the text of a description: true is a flag, false and null are left out, arrays have several values. */
function describe(description, separator = ';') {
  if (typeof description === 'string') {
    return description;
  }
  return Object.entries(description).flatMap(([keyword, value]) => {
    if (!/^[A-Za-z0-9]+(\.[0-9]+)*$/.test(keyword)) {
      throw new TypeError(`no such keyword: ${keyword}`);
    }
    if (value === true) {
      return [keyword];
    }
    if (value === false || value === null || value === undefined) {
      return [];
    }
    return [`${keyword}=${(Array.isArray(value) ? value : [value]).map(quoted).join(',')}`];
  }).join(separator);
}

const text = (description) => textIn(describe(description));
const formOf = (der) => (der ? raw.ZUL_CERT_DER : 0);
const json = (bytes) => JSON.parse(bytes.toString());
const orNull = (source) => (source === undefined || source === null ? null : sourceIn(source));

function selfSign(key, description, { file, der } = {}) {
  return fileOut((name) => raw.CERT_SelfSign(name, memoryOf(key, Key), text(description), formOf(der)), file);
}

function issue(issuer, issuerKey, subject, description = '', { file, der, beyondIssuer } = {}) {
  const of = subject instanceof Key ? memoryOf(subject, Key) : sourceIn(subject, 'DATA');
  const options = formOf(der) | (beyondIssuer ? raw.ZUL_CERT_BEYOND_ISSUER : 0);
  return fileOut((name) => raw.CERT_Issue(name, sourceIn(issuer), memoryOf(issuerKey, Key), of, text(description), options),
    file);
}

function request(key, description, { file, der } = {}) {
  return fileOut((name) => raw.CERT_Request(name, memoryOf(key, Key), text(description), formOf(der)), file);
}

function issueCrl(issuer, issuerKey, revoked = [], { earlier, description = '', file, der } = {}) {
  const entries = textIn(revoked.map((entry) => describe(entry, ',')).join(';'));
  return fileOut((name) => raw.CERT_IssueCRL(name, sourceIn(issuer), memoryOf(issuerKey, Key), orNull(earlier), entries,
    text(description), formOf(der)), file);
}

const query = (certificate, word) => textOut(raw.CERT_Query, sourceIn(certificate), textIn(word), 0).toString();
const report = (source) => json(textOut(raw.CERT_Report, sourceIn(source), raw.ZUL_CERT_JSON));
const reportText = (source) => textOut(raw.CERT_Report, sourceIn(source), 0).toString();

function checkName(certificate, host, { subjectName } = {}) {
  status(raw.CERT_CheckName(sourceIn(certificate), textIn(host), subjectName ? raw.ZUL_CERT_SUBJECT_NAME : 0));
}

function checkPath(certificate, trusted, { others = [], evidence = [], conditions = '', web, subjectName } = {}) {
  const options = raw.ZUL_CERT_JSON | (web ? raw.ZUL_CERT_WEB : 0) | (subjectName ? raw.ZUL_CERT_SUBJECT_NAME : 0);
  const tail = [sourceIn(certificate), listIn(others)[0], listIn(trusted)[0], listIn(evidence)[0], text(conditions),
    options];
  let buffer;
  let result = raw.ErrorCode.SHORT_BUF_ERROR;
  for (let size = 1 << 18; result === raw.ErrorCode.SHORT_BUF_ERROR && size <= 1 << 28; size *= 4) {
    buffer = room(size + 1);
    result = raw.CERT_CheckPath(buffer, size, ...tail);
  }
  const written = buffer.subarray(0, buffer.indexOf(0));
  if (result === 0) {
    return json(written);
  }
  const error = new PathError(result);
  error.report = written.length > 0 ? json(written) : null;
  throw error;
}

function p12Pack(file, certificates, key, password, { name, legacy, pbmac1, trusted, pem } = {}) {
  const options = (legacy ? raw.ZUL_P12_LEGACY : 0) | (pbmac1 ? raw.ZUL_P12_PBMAC1 : 0) |
    (trusted ? raw.ZUL_P12_TRUSTED : 0) | (pem ? raw.ZUL_KEY_FORMAT_PEM : 0);
  const label = name === undefined || name === null ? null : textIn(name);
  withPassword(password, (secret) => status(raw.P12_Pack(fileIn(file), listIn(certificates)[0],
    key === null ? null : memoryOf(key, Key), secret, label, options)));
}

function p12Unpack(source, password, { key = 0, certificates = true, needMac } = {}) {
  if (key !== null && !(Number.isInteger(key) && key >= 0 && key <= 255)) {
    throw new RangeError('keys have numbers from 0 to 255');
  }
  const data = sourceIn(source, 'PKCS12');
  const options = (key ?? 0) | (needMac ? raw.ZUL_P12_NEED_MAC : 0);
  return withFolder((folder) => withPassword(password, (secret) => {
    const file = path.join(folder, 'certificates.pem');
    const unpack = (out, size) => raw.P12_Unpack(certificates ? fileIn(file) : null, out, size, data, secret, options);
    let found = null;
    if (key === null) {
      status(unpack(null, 0));
    } else {
      found = made((out, size) => -unpack(out, size));
    }
    return { key: found, certificates: certificates ? fs.readFileSync(file) : Buffer.alloc(0) };
  }));
}

function p12List(source, password, { needMac } = {}) {
  return withPassword(password, (secret) => json(textOut(raw.P12_List, sourceIn(source, 'PKCS12'), secret,
    raw.ZUL_P12_JSON | (needMac ? raw.ZUL_P12_NEED_MAC : 0))));
}

function ocspRequest(issuer, certificate) {
  return base64Decode(textOut(raw.OCSP_MakeRequest, sourceIn(issuer), sourceIn(certificate), null, raw.ZUL_HASH_SHA1)
    .toString());
}

function ocspResponse(response, issuer) {
  return textOut(raw.OCSP_ReadResponse, sourceIn(response), orNull(issuer), null, 0).toString('latin1');
}

module.exports = {
  PathError, checkName, checkPath, describe, issue, issueCrl, ocspRequest, ocspResponse, p12List, p12Pack, p12Unpack,
  query, report, reportText, request, selfSign,
};
