// Package zulcore is a thin layer over the zulcore library: errors, keys that are wiped, and buffers of the right length.
// Package raw has every constant and function. Lists of files or PEM are joined by ";".
package zulcore

import (
	"bytes"
	"math"
	"os"
	"path/filepath"
	"strings"
	"unsafe"

	"zulcore/raw"
)

const (
	piece         = 65536
	tag           = 16
	tagAndNonce   = 28
	longestReport = 64 << 20
)

// Version is 100 times the major number, 10 times the minor one and the release.
func Version() int {
	return int(raw.ZUL_Version(nil, nil))
}

// Wipe zeroes data.
func Wipe(data []byte) {
	if len(data) > 0 {
		raw.WIPE_Data(unsafe.Pointer(&data[0]), int32(len(data)))
	}
}

// WipeFile overwrites and deletes a file.
func WipeFile(file string) error {
	c := begin()
	defer c.end()
	name := c.name(file)
	return c.status(func() int32 { return raw.WIPE_File(name, 0) })
}

// RandomBytes gives count random bytes.
func RandomBytes(count int) ([]byte, error) {
	c := begin()
	defer c.end()
	room := c.room(count)
	if c.err != nil {
		return nil, c.err
	}
	result := room[:count]
	for done := 0; done < count; done += piece {
		part := result[done:]
		if len(part) > piece {
			part = part[:piece]
		}
		if err := c.status(func() int32 { return raw.RNG_Bytes(c.data(part), c.size(part), nil, 0) }); err != nil {
			return nil, err
		}
	}
	return result, nil
}

// RandomNumber gives a uniform number from lower to upper, both included.
func RandomNumber(lower, upper int32) (int32, error) {
	if lower > upper || int64(upper)-int64(lower) >= math.MaxUint32 {
		return 0, refusal(raw.OUT_OF_RANGE_ERROR, "no such range of numbers")
	}
	return raw.RNG_Number(lower, upper), nil
}

func nonceOption(nonce []byte) int32 {
	if nonce == nil {
		return raw.ZUL_AEAD_RANDOM_NONCE
	}
	return 0
}

// Encrypt encrypts with "aes-256-gcm" (for "") or another algorithm; a nil nonce is a random one before the result.
func Encrypt(algorithm string, key, data, aad, nonce []byte) ([]byte, error) {
	c := begin()
	defer c.end()
	if algorithm == "" {
		algorithm = "aes-256-gcm"
	}
	alg := c.text(algorithm)
	input, inputSize, secret, secretSize := c.data(data), c.size(data), c.data(key), c.size(key)
	number, numberSize, more, moreSize := c.data(nonce), c.size(nonce), c.data(aad), c.size(aad)
	return c.fill(len(data)+tagAndNonce, func(room unsafe.Pointer, size int32) int32 {
		return raw.AEAD_Encrypt(room, size, input, inputSize, secret, secretSize, number, numberSize, more, moreSize, alg,
			nonceOption(nonce))
	})
}

// Decrypt undoes Encrypt.
func Decrypt(algorithm string, key, data, aad, nonce []byte) ([]byte, error) {
	c := begin()
	defer c.end()
	if algorithm == "" {
		algorithm = "aes-256-gcm"
	}
	alg := c.text(algorithm)
	input, inputSize, secret, secretSize := c.data(data), c.size(data), c.data(key), c.size(key)
	number, numberSize, more, moreSize := c.data(nonce), c.size(nonce), c.data(aad), c.size(aad)
	return c.fill(len(data), func(room unsafe.Pointer, size int32) int32 {
		return raw.AEAD_Decrypt(room, size+1, input, inputSize, secret, secretSize, number, numberSize, more, moreSize, alg,
			nonceOption(nonce))
	})
}

// PBKDF2 derives a key of size bytes from a password with HMAC.
func PBKDF2(size int, password, salt []byte, iterations int32, hash string) ([]byte, error) {
	c := begin()
	defer c.end()
	alg := c.textOrNil(hash)
	secret, secretSize, grain, grainSize := c.data(password), c.size(password), c.data(salt), c.size(salt)
	return c.fill(size, func(room unsafe.Pointer, size int32) int32 {
		return raw.KDF_Pbkdf2(room, size, secret, secretSize, grain, grainSize, iterations, alg)
	})
}

// HKDF derives a key from one that cannot be guessed.
func HKDF(size int, key, salt, info []byte, hash string) ([]byte, error) {
	c := begin()
	defer c.end()
	alg := c.textOrNil(hash)
	secret, secretSize, grain, grainSize := c.data(key), c.size(key), c.data(salt), c.size(salt)
	about, aboutSize := c.data(info), c.size(info)
	return c.fill(size, func(room unsafe.Pointer, size int32) int32 {
		return raw.KDF_Hkdf(room, size, secret, secretSize, grain, grainSize, about, aboutSize, alg)
	})
}

// Scrypt derives a key from a password.
func Scrypt(size int, password, salt []byte, n, r, p int32) ([]byte, error) {
	c := begin()
	defer c.end()
	secret, secretSize, grain, grainSize := c.data(password), c.size(password), c.data(salt), c.size(salt)
	return c.fill(size, func(room unsafe.Pointer, size int32) int32 {
		return raw.KDF_Scrypt(room, size, secret, secretSize, grain, grainSize, n, r, p)
	})
}

// Argon2id derives a key from a password.
func Argon2id(size int, password, salt []byte, memoryKiB, passes, lanes int32) ([]byte, error) {
	c := begin()
	defer c.end()
	secret, secretSize, grain, grainSize := c.data(password), c.size(password), c.data(salt), c.size(salt)
	return c.fill(size, func(room unsafe.Pointer, size int32) int32 {
		return raw.KDF_Argon2id(room, size, secret, secretSize, grain, grainSize, memoryKiB, passes, lanes)
	})
}

// MakeIdentity makes the private key for sealed files, to be wiped.
func MakeIdentity() ([]byte, error) {
	c := begin()
	defer c.end()
	return c.output(func(room unsafe.Pointer, size int32) int32 { return raw.SEAL_MakeIdentity(room, size, 0) })
}

// Recipient gives the public key of an identity.
func Recipient(identity []byte) (string, error) {
	c := begin()
	defer c.end()
	source := c.secret(identity)
	result, err := c.output(func(room unsafe.Pointer, size int32) int32 { return raw.SEAL_Recipient(room, size, source) })
	return string(result), err
}

// SealFile encrypts a file for recipients, or, if that is "", under a password.
func SealFile(fileOut, fileIn, recipients string, password []byte, options int32) error {
	c := begin()
	defer c.end()
	target, source, list, secret := c.name(fileOut), c.name(fileIn), c.nameOrNil(recipients), c.secret(password)
	return c.status(func() int32 { return raw.SEAL_File(target, source, list, secret, options) })
}

// OpenFile decrypts a file with identities (keys or names of files), a password or both; what is nil is not used.
func OpenFile(fileOut, fileIn string, identities, password []byte) error {
	c := begin()
	defer c.end()
	target, source, list, secret := c.name(fileOut), c.name(fileIn), c.secret(identities), c.secret(password)
	return c.status(func() int32 { return raw.SEAL_OpenFile(target, source, list, secret, 0) })
}

// Output calls a function that writes a file, for one in a private folder that is removed, and gives what it wrote:
// Output(func(file string) error { return SelfSign(file, key, description) }). It is not for secrets.
func Output(write func(file string) error) ([]byte, error) {
	folder, err := os.MkdirTemp("", "zulcore")
	if err != nil {
		return nil, err
	}
	defer os.RemoveAll(folder)
	file := filepath.Join(folder, "output")
	if err = write(file); err != nil {
		return nil, err
	}
	return os.ReadFile(file)
}

// SelfSign makes a certificate that is described by keyword=value pairs: "CN=Example Root;profile=ca".
func SelfSign(certOut string, key *Key, description string) error {
	c := begin()
	defer c.end()
	target, signer, words := c.name(certOut), c.key(key), c.text(description)
	return c.status(func() int32 { return raw.CERT_SelfSign(target, signer, words, 0) })
}

// Request makes a certificate request.
func Request(requestOut string, key *Key, description string) error {
	c := begin()
	defer c.end()
	target, signer, words := c.name(requestOut), c.key(key), c.text(description)
	return c.status(func() int32 { return raw.CERT_Request(target, signer, words, 0) })
}

// Issue makes a certificate for the subject of a request.
func Issue(certOut, issuerCert string, issuerKey *Key, request, description string) error {
	c := begin()
	defer c.end()
	target, issuer, signer := c.name(certOut), c.name(issuerCert), c.key(issuerKey)
	asked, words := c.name(request), c.textOrNil(description)
	return c.status(func() int32 { return raw.CERT_Issue(target, issuer, signer, asked, words, 0) })
}

// IssueForKey makes a certificate for the owner of a key.
func IssueForKey(certOut, issuerCert string, issuerKey, subjectKey *Key, description string) error {
	c := begin()
	defer c.end()
	target, issuer, signer := c.name(certOut), c.name(issuerCert), c.key(issuerKey)
	subject, words := c.key(subjectKey), c.text(description)
	return c.status(func() int32 { return raw.CERT_Issue(target, issuer, signer, subject, words, 0) })
}

// IssueCRL makes a revocation list, which goes on from an earlier one; revoked, description and earlierCRL may be "".
func IssueCRL(crlOut, issuerCert string, issuerKey *Key, revoked, description, earlierCRL string) error {
	c := begin()
	defer c.end()
	target, issuer, signer := c.name(crlOut), c.name(issuerCert), c.key(issuerKey)
	entries, words, earlier := c.textOrNil(revoked), c.textOrNil(description), c.nameOrNil(earlierCRL)
	return c.status(func() int32 { return raw.CERT_IssueCRL(target, issuer, signer, earlier, entries, words, 0) })
}

// CertQuery answers one query about a certificate, request, CRL or OCSP response.
func CertQuery(cert, query string) (string, error) {
	c := begin()
	defer c.end()
	source, word := c.name(cert), c.text(query)
	result, err := c.output(func(room unsafe.Pointer, size int32) int32 {
		return raw.CERT_Query(room, size, source, word, 0)
	})
	return string(result), err
}

// CertReport gives a text for reading, or JSON with ZUL_CERT_JSON.
func CertReport(fileOrText string, options int32) (string, error) {
	c := begin()
	defer c.end()
	source := c.name(fileOrText)
	result, err := c.output(func(room unsafe.Pointer, size int32) int32 {
		return raw.CERT_Report(room, size, source, options)
	})
	return string(result), err
}

// CheckName is nil if the certificate is for a host, address or mailbox.
func CheckName(cert, hostOrAddress string) error {
	c := begin()
	defer c.end()
	source, host := c.name(cert), c.text(hostOrAddress)
	return c.status(func() int32 { return raw.CERT_CheckName(source, host, 0) })
}

// CheckPath gives a report, and a nil error if the certificate can be relied on. A path ends at one of trusted and may lead
// through others. Lists are joined by ";", and all but cert and trusted may be "".
func CheckPath(cert, trusted, others, evidence, conditions string, options int32) (string, error) {
	c := begin()
	defer c.end()
	source, anchors, chain := c.name(cert), c.name(trusted), c.nameOrNil(others)
	proof, words := c.nameOrNil(evidence), c.textOrNil(conditions)
	for size := 1 << 20; ; size *= 8 {
		room := c.room(size)
		err := c.status(func() int32 {
			return raw.CERT_CheckPath(unsafe.Pointer(&room[0]), int32(size), source, chain, anchors, proof, words, options)
		})
		report := string(room[:bytes.IndexByte(room, 0)])
		refused, isRefused := err.(*Error)
		isShort := isRefused && refused.Code == raw.SHORT_BUF_ERROR
		// A text that fills so much of the room may have been cut.
		if (isShort || len(report) > size/2) && size < longestReport {
			continue
		}
		return report, err
	}
}

// P12Pack writes a PKCS #12 file, which UnpackP12 reads; key may be nil and name "".
func P12Pack(fileOut, certs string, key *Key, password []byte, name string, options int32) error {
	c := begin()
	defer c.end()
	target, list, secret, label := c.name(fileOut), c.nameOrNil(certs), c.secret(password), c.textOrNil(name)
	var owner unsafe.Pointer
	if key != nil {
		owner = c.key(key)
	}
	return c.status(func() int32 { return raw.P12_Pack(target, list, owner, secret, label, options) })
}

// P12List describes a PKCS #12 file.
func P12List(file string, password []byte, options int32) (string, error) {
	c := begin()
	defer c.end()
	source, secret := c.name(file), c.secret(password)
	result, err := c.output(func(room unsafe.Pointer, size int32) int32 {
		return raw.P12_List(room, size, source, secret, options)
	})
	return string(result), err
}

// CMSSign signs a file with an RSA key; certs: the signer's first.
func CMSSign(fileOut, fileIn, certs string, key *Key) error {
	c := begin()
	defer c.end()
	target, source, list, signer := c.name(fileOut), c.name(fileIn), c.name(certs), c.key(key)
	return c.status(func() int32 { return raw.CMS_MakeSigData(target, source, list, signer, raw.ZUL_HASH_SHA256) })
}

// CMSVerify is nil if the signature verifies; signerCert "": with a certificate in the message.
func CMSVerify(fileIn, signerCert string) error {
	c := begin()
	defer c.end()
	source, signer := c.name(fileIn), c.nameOrNil(signerCert)
	return c.status(func() int32 { return raw.CMS_VerifySigData(source, signer, nil, 0) })
}

// CMSContent writes the content of a signed message to a file.
func CMSContent(fileOut, fileIn string) error {
	c := begin()
	defer c.end()
	target, source := c.name(fileOut), c.name(fileIn)
	_, err := c.length(func() int32 { return raw.CMS_ReadSigData(target, source, 0) })
	return err
}

// CMSEncrypt is refused, and leaves no message, unless the owners of all certificates can read it; there may be ten.
func CMSEncrypt(fileOut, fileIn string, certs ...string) error {
	c := begin()
	defer c.end()
	if len(certs) < 1 || len(certs) > 10 {
		c.refuse(raw.OUT_OF_RANGE_ERROR, "a message has 1 to 10 recipients")
	}
	for _, cert := range certs {
		if cert == "" || strings.Contains(cert, ";") {
			c.refuse(raw.BAD_PARAM_ERROR, "a certificate without a name, or with a ';' in it")
		}
	}
	target, source, list := c.name(fileOut), c.name(fileIn), c.name(strings.Join(certs, ";"))
	served, err := c.length(func() int32 {
		return raw.CMS_MakeEnvData(target, source, list, nil, 0, raw.ZUL_CMS_CIPHER_AES256)
	})
	if err == nil && served != len(certs) {
		err = c.failure(raw.BAD_KEY_ERROR) // the text tells the certificate
		os.Remove(fileOut)
	}
	return err
}

// CMSDecrypt decrypts a message with a key; cert, its certificate, may be "".
func CMSDecrypt(fileOut, fileIn string, key *Key, cert string) error {
	c := begin()
	defer c.end()
	target, source, recipient, owner := c.name(fileOut), c.name(fileIn), c.nameOrNil(cert), c.key(key)
	return c.status(func() int32 { return raw.CMS_ReadEnvData(target, source, recipient, owner, 0) })
}
