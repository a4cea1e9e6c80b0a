/// <reference types="node" />
/// <reference lib="esnext.disposable" />

export { ErrorCode } from './lib/raw.js';

/** Text is taken as UTF-8. What is in an array can be wiped afterwards; a string cannot. */
export type Password = string | Uint8Array;
/** The name of a file. */
export type File = string | URL;
/** What is read: the name of a file or PEM text (string), or the object itself, PEM or DER (bytes). */
export type Source = string | URL | Uint8Array;
export type Sources = Source | readonly Source[];

/** A call that failed. */
export class ZulError extends Error {
  protected constructor();
  readonly code: number;
  /** As "DECRYPT_ERROR". */
  readonly codeName: string;
  /** The general text of the code. */
  readonly text: string;
  /** What the call had to say about it, often empty. */
  readonly detail: string;
}

/** Owns secret memory, which is wiped by close(), by "using", or after the object was forgotten. */
interface Owned {
  readonly closed: boolean;
  close(): void;
  [Symbol.dispose](): void;
}

/** A digest of data in pieces. */
export class Hash implements Owned {
  /** "sha256" (the default), "sha3-512", "shake128" ... */
  constructor(algorithm?: string);
  add(data: Uint8Array): this;
  /** The result, and the end of the object. The size is for shake128 and shake256; others are cut to it. */
  finish(size?: number): Buffer;
  /** Another digest that continues from here. */
  copy(): Hash;
  readonly closed: boolean;
  close(): void;
  [Symbol.dispose](): void;
}

/** An HMAC of data in pieces. */
export class Hmac implements Owned {
  constructor(key: Password, algorithm?: string);
  add(data: Uint8Array): this;
  finish(size?: number): Buffer;
  readonly closed: boolean;
  close(): void;
  [Symbol.dispose](): void;
}

export function hash(data: Uint8Array, algorithm?: string): Buffer;
export function hashHex(data: Uint8Array, algorithm?: string): string;
/** The digest of a file of any size and name. */
export function hashFile(file: File, algorithm?: string): Buffer;
export function hashFileHex(file: File, algorithm?: string): string;
export function hmac(key: Password, data: Uint8Array, algorithm?: string): Buffer;

/** Hex in lower case. */
export function hexEncode(data: Uint8Array): string;
/** The bytes of hex digits; other characters are skipped. */
export function hexDecode(text: string): Buffer;
export function base64Encode(data: Uint8Array): string;
/** The bytes of base64 up to the first "="; other characters are skipped. */
export function base64Decode(text: string): Buffer;

export interface AeadOptions {
  /** Data that is authenticated, but not encrypted. */
  aad?: Uint8Array;
  /** Without one a random nonce is put in front of the result. */
  nonce?: Uint8Array | null;
  /** "aes-256-gcm" by default. */
  algorithm?: string;
}
export function encrypt(key: Uint8Array, data: Uint8Array, options?: AeadOptions): Buffer;
/** Throws DECRYPT_ERROR if anything was changed. */
export function decrypt(key: Uint8Array, data: Uint8Array, options?: AeadOptions): Buffer;

export function pbkdf2(password: Password, salt: Uint8Array,
  options?: { size?: number; iterations?: number; hash?: string }): Buffer;
/** A key from a key that cannot be guessed; passwords need one of the other three. */
export function hkdf(key: Uint8Array,
  options?: { size?: number; salt?: Uint8Array; info?: Uint8Array; hash?: string }): Buffer;
export function scrypt(password: Password, salt: Uint8Array,
  options?: { size?: number; n?: number; r?: number; p?: number }): Buffer;
export function argon2id(password: Password, salt: Uint8Array,
  options?: { size?: number; memoryKiB?: number; passes?: number; lanes?: number }): Buffer;

export function randomBytes(size: number): Buffer;
/** A uniform number from lower to upper, both included. */
export function randomNumber(lower: number, upper: number): number;
/** Overwrites bytes with zeros. */
export function wipe(data: Uint8Array): void;
/** Overwrites a file several times and deletes it. */
export function wipeFile(file: File): void;

export interface SignOptions {
  /** An ECDSA signature is r and s, not DER. */
  raw?: boolean;
  deterministic?: boolean;
}
export interface SaveOptions {
  /** Has to be said of a private key without a password. */
  unencrypted?: boolean;
  /** As "kdf=scrypt". */
  parameters?: string;
  der?: boolean;
  /** The structure that the kind of key has of its own. */
  own?: boolean;
}

/** A public or private key. It is neither shown nor serialised: save() writes it to a file. */
export class Key implements Owned {
  private constructor();
  /** A new private key: "rsa" (3072 bits), "rsa-4096", "p-256", "p-384", "p-521", "ed25519" or "x25519". */
  static generate(kind: string): Key;
  /** Reads a key, or the public key of a certificate or request. */
  static read(source: Source, password?: Password | null): Key;
  save(file: File, password?: Password | null, options?: SaveOptions): void;
  publicKey(): Key;
  publicPem(): string;
  /** Answers a query of KEY_Query, numbers too as text. */
  query(word: string): string;
  readonly isPrivate: boolean;
  /** "rsa", "rsa-pss", "ec", "ed25519" or "x25519". */
  readonly algorithm: string;
  readonly bits: number;
  /** Empty for RSA. */
  readonly curve: string;
  /** The SHA-256 digest of the SubjectPublicKeyInfo, in hex. */
  readonly fingerprint: string;
  /** Whether this private key belongs to a public one. */
  matches(publicKey: Key): boolean;
  /** Throws if the values of the key are not valid or do not belong together. */
  check(): void;
  sign(data: Uint8Array, algorithm?: string | null, options?: SignOptions): Buffer;
  signFile(file: File, algorithm?: string | null, options?: SignOptions): Buffer;
  /** Throws SIGNATURE_ERROR if the signature is not one of this data by this key. */
  verify(signature: Uint8Array, data: Uint8Array, algorithm?: string | null, options?: { raw?: boolean }): void;
  verifyFile(signature: Uint8Array, file: File, algorithm?: string | null, options?: { raw?: boolean }): void;
  /** The secret shared with the owner of another key, from which hkdf makes a key. */
  agree(peer: Key): Buffer;
  toString(): string;
  readonly closed: boolean;
  close(): void;
  [Symbol.dispose](): void;
}

/** A private key that opens files, "AGE-SECRET-KEY-1...". */
export class Identity implements Owned {
  constructor(text: Password);
  /** The public key, "age1...". */
  recipient(): string;
  /** Writes the identity to a new file that only its owner may read (on Windows: whoever may read in its folder). */
  save(file: File): void;
  toString(): string;
  readonly closed: boolean;
  close(): void;
  [Symbol.dispose](): void;
}
export function makeIdentity(): Identity;
/** Encrypts a file for recipients ("age1..." texts, and names of files with such lines) or under a password. */
export function sealFile(output: File, input: File,
  options: { recipients?: File | readonly File[]; password?: Password; armour?: boolean }): void;
/** Decrypts a file with identities (objects, or names of files) or a password. */
export function openFile(output: File, input: File,
  options: { identities?: Identity | File | readonly (Identity | File)[]; password?: Password }): void;

export namespace certs {
  type Value = string | number | bigint | Date | Uint8Array;
  /** Text as CERT_ functions take it, or keywords and values: true is a flag, arrays have several values. */
  type Description = string | { readonly [keyword: string]: Value | boolean | null | undefined | readonly Value[] };
  interface Output {
    /** Where the result stays as a file. */
    file?: File;
    der?: boolean;
  }
  // Reports are what the library's description of its JSON says.
  type Report = { objects: { [field: string]: any }[] };

  /** A certificate that cannot be relied on; the report says what was checked. */
  class PathError extends ZulError {
    readonly report: Report | null;
  }
  function describe(description: Description, separator?: string): string;
  /** A certificate that its own key signs. */
  function selfSign(key: Key, description: Description, options?: Output): Buffer;
  /** A certificate that an authority signs, for a key or a request. */
  function issue(issuer: Source, issuerKey: Key, subject: Key | Source, description?: Description,
    options?: Output & { beyondIssuer?: boolean }): Buffer;
  /** A certificate request (PKCS #10). */
  function request(key: Key, description: Description, options?: Output): Buffer;
  /** A CRL. Entries are as { serial: "0a3f", reason: "superseded" }, or { cert: its bytes }. */
  function issueCrl(issuer: Source, issuerKey: Key, revoked?: readonly Exclude<Description, string>[],
    options?: Output & { earlier?: Source; description?: Description }): Buffer;
  /** Answers a query of CERT_Query: "subject", "notAfter", "sha256" ... Several values are joined by line feeds. */
  function query(certificate: Source, word: string): string;
  /** All that certificates, requests, CRLs and OCSP responses hold. */
  function report(source: Source): Report;
  function reportText(source: Source): string;
  /** Throws NO_MATCH_ERROR if a certificate is not for a host, an address or a mailbox. */
  function checkName(certificate: Source, host: string, options?: { subjectName?: boolean }): void;
  /** The report of a path to a trusted certificate; throws a PathError if there is no valid one. */
  function checkPath(certificate: Source, trusted: Sources, options?: { others?: Sources; evidence?: Sources;
    conditions?: Description; web?: boolean; subjectName?: boolean }): Report;
  function p12Pack(file: File, certificates: Sources, key: Key | null, password: Password, options?: { name?: string;
    legacy?: boolean; pbmac1?: boolean; trusted?: boolean; pem?: boolean }): void;
  /** A key (by its number; null: no key) and the certificates, as PEM, that of the key first. */
  function p12Unpack(source: Source, password: Password | null, options: { key: null; certificates?: boolean;
    needMac?: boolean }): { key: null; certificates: Buffer };
  function p12Unpack(source: Source, password: Password | null, options?: { key?: number; certificates?: boolean;
    needMac?: boolean }): { key: Key; certificates: Buffer };
  /** What a PKCS #12 file holds; without a password what is visible, and the MAC is not verified. */
  function p12List(source: Source, password?: Password | null, options?: { needMac?: boolean }): { [field: string]: any };
  /** An OCSP request, DER, to be sent as application/ocsp-request. */
  function ocspRequest(issuer: Source, certificate: Source): Buffer;
  /** The report of an OCSP response, whose signature the issuer's key has to verify if it is given. */
  function ocspResponse(response: Source, issuer?: Source): string;
}

export namespace messages {
  /** Bytes without zeros among them, or a file. */
  type Content = Uint8Array | { file: File };

  /** A signed message, base64 unless DER is asked for. The first certificate is the signer's. */
  function sign(content: Content, certificates: Sources, key: Key, options?: { hash?: string; detached?: boolean;
    attributes?: boolean; signingTime?: boolean; der?: boolean; file?: File }): Buffer;
  /** Throws SIGNATURE_ERROR. Without the signer's certificate one of the message is used, which anybody can have put
   * there: checkPath tells whether it can be relied on. content: of a detached signature. */
  function verify(message: Source, certificate?: Source | null, options?: { content?: Content }): void;
  /** The content of a signed message, whose signature is not verified here. */
  function read(message: Source): Buffer;
  /** Answers a query of CMS_QuerySigData, as "CountOfSigners" or "SigningTime". */
  function query(message: Source, word: string): string | number;
  /** Answers a query of CMS_QueryEnvData, as "CountOfRecipients". */
  function queryEncrypted(message: Source, word: string): string | number;
  /** A message for the holders of certificates with RSA keys. */
  function encrypt(content: Content, certificates: Sources, options?: { cipher?: string; der?: boolean;
    file?: File }): Buffer;
  /** The content of an encrypted message. It is not authenticated: verify what is inside. */
  function decrypt(message: Source, key: Key, certificate?: Source | null): Buffer;
}

/** The full path of the module. */
export function modulePath(): string;
/** The version of the module: major * 100 + minor * 10 + release. */
export function moduleVersion(): number;
