package zulcore

import (
	"io"
	"os"
	"unsafe"

	"zulcore/raw"
)

// Digest is a digest or MAC of data in pieces, an io.Writer. Finish ends it once; Close wipes it.
type Digest struct {
	context []byte
	isMac   bool
}

func (c *call) newDigest(isMac bool, function func(unsafe.Pointer, int32) int32) (*Digest, error) {
	size, err := c.length(func() int32 { return function(nil, 0) })
	if err != nil {
		return nil, err
	}
	context := make([]byte, size)
	if _, err = c.length(func() int32 { return function(unsafe.Pointer(&context[0]), int32(size)) }); err != nil {
		return nil, err
	}
	return &Digest{context, isMac}, nil
}

// NewHash begins a digest: "sha256", "sha3-512", "shake128" and others.
func NewHash(algorithm string) (*Digest, error) {
	c := begin()
	defer c.end()
	alg := c.text(algorithm)
	return c.newDigest(false, func(room unsafe.Pointer, size int32) int32 { return raw.HASH_Begin(room, size, alg, 0) })
}

// NewHMAC begins a MAC.
func NewHMAC(algorithm string, key []byte) (*Digest, error) {
	c := begin()
	defer c.end()
	alg, secret, count := c.text(algorithm), c.data(key), c.size(key)
	return c.newDigest(true, func(room unsafe.Pointer, size int32) int32 {
		return raw.HMAC_Begin(room, size, secret, count, alg, 0)
	})
}

func (d *Digest) pointer(c *call) unsafe.Pointer {
	if d.context == nil {
		c.refuse(raw.INVALID_DATA_ERROR, "the digest is closed")
		return nil
	}
	return unsafe.Pointer(&d.context[0])
}

func (d *Digest) Write(data []byte) (int, error) {
	c := begin()
	defer c.end()
	context, input, count := d.pointer(c), c.data(data), c.size(data)
	err := c.status(func() int32 {
		if d.isMac {
			return raw.HMAC_Add(context, input, count)
		}
		return raw.HASH_Add(context, input, count)
	})
	if err != nil {
		return 0, err
	}
	return len(data), nil
}

func (d *Digest) finish(context unsafe.Pointer) func(unsafe.Pointer, int32) int32 {
	return func(room unsafe.Pointer, size int32) int32 {
		if d.isMac {
			return raw.HMAC_End(room, size, context)
		}
		return raw.HASH_End(room, size, context)
	}
}

// Finish gives the whole digest.
func (d *Digest) Finish() ([]byte, error) {
	c := begin()
	defer c.end()
	return c.output(d.finish(d.pointer(c)))
}

// FinishSize gives as many bytes as asked for of shake128 and shake256; of others at most those.
func (d *Digest) FinishSize(size int) ([]byte, error) {
	c := begin()
	defer c.end()
	if size < 1 {
		c.refuse(raw.OUT_OF_RANGE_ERROR, "a length below 1")
	}
	return c.fill(size, d.finish(d.pointer(c)))
}

// Close wipes the context.
func (d *Digest) Close() {
	Wipe(d.context)
	d.context = nil
}

func digestOf(digest *Digest, err error, data []byte) ([]byte, error) {
	if err != nil {
		return nil, err
	}
	defer digest.Close()
	if _, err = digest.Write(data); err != nil {
		return nil, err
	}
	return digest.Finish()
}

// Hash computes the digest of data.
func Hash(algorithm string, data []byte) ([]byte, error) {
	digest, err := NewHash(algorithm)
	return digestOf(digest, err, data)
}

// HMAC computes the MAC of data.
func HMAC(algorithm string, key, data []byte) ([]byte, error) {
	digest, err := NewHMAC(algorithm, key)
	return digestOf(digest, err, data)
}

// HashFile computes the digest of a file.
func HashFile(algorithm, file string) ([]byte, error) {
	source, err := os.Open(file)
	if err != nil {
		return nil, err
	}
	defer source.Close()
	digest, err := NewHash(algorithm)
	if err != nil {
		return nil, err
	}
	defer digest.Close()
	if _, err = io.Copy(digest, source); err != nil {
		return nil, err
	}
	return digest.Finish()
}
