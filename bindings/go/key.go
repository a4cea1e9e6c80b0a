package zulcore

import (
	"bytes"
	"fmt"
	"io"
	"strconv"
	"unsafe"

	"zulcore/raw"
)

const longestKey = 90000

// Key is a key of any kind. Close wipes it; it means nothing outside of this process. Goroutines may use it at once, but
// none may close it while another one uses it.
type Key struct {
	text *[]byte
}

// The room is for the longest key at once: a query would derive the key of an encrypted file twice.
func (c *call) newKey(function func(unsafe.Pointer, int32) int32) (*Key, error) {
	long, err := c.fill(longestKey, function)
	if err != nil {
		return nil, err
	}
	text := make([]byte, len(long)+1)
	copy(text, long)
	Wipe(long)
	return &Key{&text}, nil
}

// GenerateKey makes a key: "rsa" (3072 bits), "rsa-4096", "p-256", "p-384", "p-521", "ed25519" or "x25519".
func GenerateKey(kind string) (*Key, error) {
	c := begin()
	defer c.end()
	word := c.text(kind)
	return c.newKey(func(room unsafe.Pointer, size int32) int32 { return raw.KEY_Make(room, size, word, 0) })
}

// ReadKey reads a file or PEM of a key, certificate or request. The password may be nil.
func ReadKey(fileOrText string, password []byte) (*Key, error) {
	c := begin()
	defer c.end()
	source, secret := c.name(fileOrText), c.secret(password)
	return c.newKey(func(room unsafe.Pointer, size int32) int32 { return raw.KEY_Read(room, size, source, secret, 0) })
}

// UnpackP12 reads a key of a PKCS #12 file and writes the certificates to certsOut, unless that is "". Options: those of
// P12_Unpack.
func UnpackP12(file string, password []byte, certsOut string, options int32) (*Key, error) {
	c := begin()
	defer c.end()
	target, source, secret := c.nameOrNil(certsOut), c.name(file), c.secret(password)
	return c.newKey(func(room unsafe.Pointer, size int32) int32 {
		if status := raw.P12_Unpack(target, room, size, source, secret, options); status != 0 {
			return -status
		}
		return int32(bytes.IndexByte(unsafe.Slice((*byte)(room), size+1), 0))
	})
}

// Close wipes the key.
func (k *Key) Close() {
	if k != nil && k.text != nil && *k.text != nil {
		Wipe(*k.text)
		*k.text = nil
	}
}

// Save writes PEM: a public key as it is (password nil), a private key encrypted under a password.
func (k *Key) Save(file string, password []byte) error {
	if isPrivate, err := k.IsPrivate(); err != nil || (isPrivate && password == nil) {
		if err == nil {
			err = refusal(raw.BAD_PARAM_ERROR, "a private key without a password")
		}
		return err
	}
	return k.SaveAs(file, password, "", raw.ZUL_KEY_FORMAT_PEM)
}

// SaveUnencrypted writes PEM of a private key.
func (k *Key) SaveUnencrypted(file string) error {
	return k.SaveAs(file, nil, "", raw.ZUL_KEY_FORMAT_PEM)
}

// SaveAs takes the parameters and options of KEY_Save; with a nil password nothing is encrypted.
func (k *Key) SaveAs(file string, password []byte, parameters string, options int32) error {
	c := begin()
	defer c.end()
	target, key, secret, words := c.name(file), c.key(k), c.secret(password), c.textOrNil(parameters)
	return c.status(func() int32 { return raw.KEY_Save(target, key, secret, words, options) })
}

// Public gives the public key.
func (k *Key) Public() (*Key, error) {
	c := begin()
	defer c.end()
	key := c.key(k)
	return c.newKey(func(room unsafe.Pointer, size int32) int32 { return raw.KEY_Public(room, size, key) })
}

// Query answers "algorithm", "curve", "bits", "isPrivate", "fingerprint" and others; numbers in decimal.
func (k *Key) Query(item string) (string, error) {
	c := begin()
	defer c.end()
	key, word := c.key(k), c.text(item)
	kind, err := c.length(func() int32 { return raw.KEY_Query(nil, 0, key, word, raw.ZUL_QUERY_GETTYPE) })
	if err != nil {
		return "", err
	}
	if kind == 1 {
		number, err := c.length(func() int32 { return raw.KEY_Query(nil, 0, key, word, 0) })
		return strconv.Itoa(number), err
	}
	answer, err := c.output(func(room unsafe.Pointer, size int32) int32 { return raw.KEY_Query(room, size, key, word, 0) })
	return string(answer), err
}

// IsPrivate tells whether there is a private key in it.
func (k *Key) IsPrivate() (bool, error) {
	answer, err := k.Query("isPrivate")
	return answer == "1", err
}

// Matches tells whether a private key belongs to a public one.
func (k *Key) Matches(other *Key) (bool, error) {
	c := begin()
	defer c.end()
	mine, theirs := c.key(k), c.key(other)
	err := c.status(func() int32 { return raw.KEY_Match(mine, theirs) })
	if refused, isRefused := err.(*Error); isRefused && refused.Code == raw.NO_MATCH_ERROR {
		return false, nil
	}
	return err == nil, err
}

// Check is nil if the key's values are valid and belong together.
func (k *Key) Check() error {
	c := begin()
	defer c.end()
	key := c.key(k)
	return c.status(func() int32 { return raw.KEY_Check(key, 0) })
}

// Sign signs data; algorithm "" is that of the kind of key.
func (k *Key) Sign(data []byte, algorithm string) ([]byte, error) {
	c := begin()
	defer c.end()
	input, count, key, alg := c.data(data), c.size(data), c.key(k), c.textOrNil(algorithm)
	return c.output(func(room unsafe.Pointer, size int32) int32 {
		return raw.SIG_Sign(room, size, input, count, key, alg, 0)
	})
}

// SignFile signs the content of a file.
func (k *Key) SignFile(file, algorithm string) ([]byte, error) {
	c := begin()
	defer c.end()
	source, key, alg := c.name(file), c.key(k), c.textOrNil(algorithm)
	return c.output(func(room unsafe.Pointer, size int32) int32 {
		return raw.SIG_SignFile(room, size, source, key, alg, 0)
	})
}

// Verify is nil if the signature verifies.
func (k *Key) Verify(signature, data []byte, algorithm string) error {
	c := begin()
	defer c.end()
	key, alg := c.key(k), c.textOrNil(algorithm)
	mark, markSize, input, inputSize := c.data(signature), c.size(signature), c.data(data), c.size(data)
	return c.status(func() int32 { return raw.SIG_Verify(mark, markSize, input, inputSize, key, alg, 0) })
}

// VerifyFile is nil if the signature of the file's content verifies.
func (k *Key) VerifyFile(signature []byte, file, algorithm string) error {
	c := begin()
	defer c.end()
	key, alg, source := c.key(k), c.textOrNil(algorithm), c.name(file)
	mark, markSize := c.data(signature), c.size(signature)
	return c.status(func() int32 { return raw.SIG_VerifyFile(mark, markSize, source, key, alg, 0) })
}

// Agree computes the secret shared with the owner of another key: derive a key from it with HKDF.
func (k *Key) Agree(other *Key) ([]byte, error) {
	c := begin()
	defer c.end()
	mine, theirs := c.key(k), c.key(other)
	return c.output(func(room unsafe.Pointer, size int32) int32 { return raw.KEY_Agree(room, size, mine, theirs, 0) })
}

// String shows kind and bits, never the key.
func (k Key) String() string {
	algorithm, err := k.Query("algorithm")
	if err != nil {
		return "closed key"
	}
	bits, _ := k.Query("bits")
	kind := "public"
	if isPrivate, _ := k.IsPrivate(); isPrivate {
		kind = "private"
	}
	return kind + " " + algorithm + " key of " + bits + " bits"
}

// Format keeps every verb from showing what is inside, of a key and of a pointer to one.
func (k Key) Format(state fmt.State, verb rune) {
	io.WriteString(state, k.String())
}
