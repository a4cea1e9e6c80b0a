import zulcore from './index.js';

export const {
  ErrorCode, Hash, Hmac, Identity, Key, ZulError, argon2id, base64Decode, base64Encode, certs, decrypt, encrypt, hash,
  hashFile, hashFileHex, hashHex, hexDecode, hexEncode, hkdf, hmac, makeIdentity, messages, modulePath, moduleVersion,
  openFile, pbkdf2, randomBytes, randomNumber, scrypt, sealFile, wipe, wipeFile,
} = zulcore;
export default zulcore;
