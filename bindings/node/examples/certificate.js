'use strict';
// certificate.js: makes an authority and a server's certificate, and validates it.
// --8<-- [start:certificate]
const { Key, certs } = require('zulcore');

const rootKey = Key.generate('p-256');
const key = Key.generate('p-256');
key.save('server.key', 'correct horse');
const root = certs.selfSign(rootKey, { C: 'AU', O: 'Example', CN: 'Example Root', profile: 'ca' });
const server = certs.issue(root, rootKey, key, {
  CN: 'www.example.com', dns: ['www.example.com', 'example.com'], profile: 'server', days: 90,
}, { file: 'server.pem' });
rootKey.close();
key.close();

console.log(certs.query(server, 'subject'), 'until', certs.query(server, 'notAfter'));
certs.checkPath(server, root, { conditions: { host: 'www.example.com', purpose: 'server' } });
console.log('good certificate');
// --8<-- [end:certificate]
