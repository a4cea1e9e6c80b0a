package zulcore

import (
	"bytes"
	"fmt"
	"math"
	"runtime"
	"unsafe"

	"zulcore/raw"
)

// Error is what a call of the library refuses.
type Error struct {
	Code   int    // one of the codes of package raw
	Name   string // "DECRYPT_ERROR"
	Text   string // the general text of the code
	Detail string // what this call had to say; often empty
}

func (e *Error) Error() string {
	text := fmt.Sprintf("%s (%d): %s", e.Name, e.Code, e.Text)
	if e.Detail != "" {
		text += ": " + e.Detail
	}
	return text
}

// Is tells whether another error has the same code: errors.Is(err, &zulcore.Error{Code: raw.DECRYPT_ERROR}).
func (e *Error) Is(other error) bool {
	asError, isError := other.(*Error)
	return isError && asError.Code == e.Code
}

func refusal(code int, detail string) *Error {
	room := make([]byte, raw.ZUL_ErrorLookup(nil, 0, int32(code))+1)
	raw.ZUL_ErrorLookup(unsafe.Pointer(&room[0]), int32(len(room)), int32(code))
	return &Error{code, raw.ErrorName(code), string(bytes.TrimRight(room, "\x00")), detail}
}

// A call keeps to one thread of the system, where the library keeps the text of an error, and wipes the copies that it
// made of texts. After a text that is refused the library is not called.
type call struct {
	err    error
	copies [][]byte
}

func begin() *call {
	runtime.LockOSThread()
	return &call{}
}

func (c *call) end() {
	for _, each := range c.copies {
		Wipe(each)
	}
	runtime.UnlockOSThread()
}

func (c *call) refuse(code int, detail string) {
	if c.err == nil {
		c.err = refusal(code, detail)
	}
}

// secret gives a text to the library, which ends at its first zero byte: one with such a byte inside would be cut.
// nil stays nil.
func (c *call) secret(text []byte) unsafe.Pointer {
	if text == nil {
		return nil
	}
	if bytes.IndexByte(text, 0) >= 0 {
		c.refuse(raw.BAD_PARAM_ERROR, "a text with a zero byte")
	}
	ended := make([]byte, len(text)+1)
	copy(ended, text)
	c.copies = append(c.copies, ended)
	return unsafe.Pointer(&ended[0])
}

func (c *call) text(text string) unsafe.Pointer {
	return c.secret([]byte(text))
}

func (c *call) textOrNil(text string) unsafe.Pointer {
	if text == "" {
		return nil
	}
	return c.text(text)
}

// name gives the name of a file. On Windows the library takes the ANSI code page, which Go does not write.
func (c *call) name(file string) unsafe.Pointer {
	if runtime.GOOS == "windows" {
		for _, character := range file {
			if character > 0x7f {
				c.refuse(raw.NOT_SUPPORTED_ERROR, "a name beyond ASCII")
			}
		}
	}
	return c.text(file)
}

func (c *call) nameOrNil(file string) unsafe.Pointer {
	if file == "" {
		return nil
	}
	return c.name(file)
}

func (c *call) key(key *Key) unsafe.Pointer {
	if key == nil || key.text == nil || *key.text == nil {
		c.refuse(raw.INVALID_DATA_ERROR, "no key, or a closed one")
		return nil
	}
	return unsafe.Pointer(&(*key.text)[0])
}

var noByte byte

func (c *call) data(data []byte) unsafe.Pointer {
	if len(data) == 0 {
		return unsafe.Pointer(&noByte)
	}
	return unsafe.Pointer(&data[0])
}

func (c *call) size(data []byte) int32 {
	if len(data) > math.MaxInt32 {
		c.refuse(raw.OUT_OF_RANGE_ERROR, "data above 2 GiB")
		return 0
	}
	return int32(len(data))
}

func (c *call) room(size int) []byte {
	if size < 0 || size >= math.MaxInt32 {
		c.refuse(raw.OUT_OF_RANGE_ERROR, "a length out of range")
		return make([]byte, 1)
	}
	return make([]byte, size+1)
}

func (c *call) failure(result int32) error {
	const longestDetail = 511
	var room [longestDetail + 1]byte
	raw.ZUL_LastError(unsafe.Pointer(&room[0]), longestDetail)
	if result < 0 {
		result = -result
	}
	return refusal(int(result), string(room[:bytes.IndexByte(room[:], 0)]))
}

// status is for functions that return 0 or an error code of either sign.
func (c *call) status(function func() int32) error {
	if c.err != nil {
		return c.err
	}
	if result := function(); result != 0 {
		return c.failure(result)
	}
	return nil
}

// length is for functions that return a length or number, or a negated error code.
func (c *call) length(function func() int32) (int, error) {
	if c.err != nil {
		return 0, c.err
	}
	result := function()
	if result < 0 {
		return 0, c.failure(result)
	}
	return int(result), nil
}

// output asks for a length, makes the room and calls again. Its room holds a zero byte more.
func (c *call) output(function func(unsafe.Pointer, int32) int32) ([]byte, error) {
	size, err := c.length(func() int32 { return function(nil, 0) })
	if err != nil {
		return nil, err
	}
	return c.fill(size, function)
}

// fill is for outputs of a known length.
func (c *call) fill(size int, function func(unsafe.Pointer, int32) int32) ([]byte, error) {
	room := c.room(size)
	size, err := c.length(func() int32 { return function(unsafe.Pointer(&room[0]), int32(len(room)-1)) })
	if err != nil {
		Wipe(room)
		return nil, err
	}
	if size >= len(room) {
		return nil, refusal(raw.SHORT_BUF_ERROR, "the output does not fit")
	}
	return room[:size], nil
}
