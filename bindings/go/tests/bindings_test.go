// What bindings/go computes, refuses and wipes. ZUL_VECTORS names the file of the vectors.
package tests

import (
	"bytes"
	"encoding/hex"
	"encoding/json"
	"errors"
	"fmt"
	"os"
	"path/filepath"
	"strconv"
	"strings"
	"testing"

	"zulcore"
	"zulcore/raw"
)

func refused(t *testing.T, code int, what string, err error) {
	t.Helper()
	var found *zulcore.Error
	if !errors.As(err, &found) || found.Code != code || found.Text == "" || !strings.HasPrefix(err.Error(), found.Name) {
		t.Errorf("%s: %v", what, err)
	}
}

func must(t *testing.T, err error) {
	t.Helper()
	if err != nil {
		t.Fatal(err)
	}
}

func mustKey(t *testing.T, kind string) *zulcore.Key {
	t.Helper()
	key, err := zulcore.GenerateKey(kind)
	must(t, err)
	t.Cleanup(key.Close)
	return key
}

func number(text string) int {
	value, _ := strconv.Atoi(text)
	return value
}

func verify(key, signature, message []byte, algorithm string) error {
	public, err := zulcore.ReadKey(string(key), nil)
	if err != nil {
		return err
	}
	defer public.Close()
	return public.Verify(signature, message, algorithm)
}

func run(t *testing.T, vector map[string]string) {
	field := func(name string) []byte {
		value, err := hex.DecodeString(vector[name])
		must(t, err)
		return value
	}
	algorithm, wanted := vector["Algorithm"], field("Result")
	var result []byte
	var err error
	switch vector["Kind"] {
	case "hash":
		result, err = zulcore.Hash(algorithm, field("Message"))
	case "hmac":
		result, err = zulcore.HMAC(algorithm, field("Key"), field("Message"))
	case "pbkdf2":
		result, err = zulcore.PBKDF2(len(wanted), field("Password"), field("Salt"), int32(number(vector["Iterations"])),
			vector["Hash"])
	case "hkdf":
		result, err = zulcore.HKDF(len(wanted), field("Key"), field("Salt"), field("Info"), vector["Hash"])
	case "scrypt":
		result, err = zulcore.Scrypt(len(wanted), field("Password"), field("Salt"), int32(number(vector["N"])),
			int32(number(vector["R"])), int32(number(vector["P"])))
	case "aead":
		result, err = zulcore.Encrypt(algorithm, field("Key"), field("Message"), field("Aad"), field("Nonce"))
		plain, failure := zulcore.Decrypt(algorithm, field("Key"), result, field("Aad"), field("Nonce"))
		if failure != nil || !bytes.Equal(plain, field("Message")) {
			t.Error("decryption", vector, failure)
		}
	case "aead-refused":
		_, err = zulcore.Decrypt(algorithm, field("Key"), field("Message"), field("Aad"), field("Nonce"))
		refused(t, number(vector["Error"]), "decryption", err)
		return
	case "verify":
		err = verify(field("Key"), field("Signature"), field("Message"), algorithm)
	case "verify-refused":
		refused(t, number(vector["Error"]), "verification", verify(field("Key"), field("Signature"), field("Message"),
			algorithm))
		return
	default:
		t.Error("a record of an unknown kind:", vector)
	}
	if err != nil || !bytes.Equal(result, wanted) {
		t.Errorf("%v: %x %v", vector, result, err)
	}
}

func TestVectors(t *testing.T) {
	text, err := os.ReadFile(os.Getenv("ZUL_VECTORS"))
	must(t, err)
	count := 0
	for _, record := range strings.Split(string(text), "\n\n") {
		vector := map[string]string{}
		for _, line := range strings.Split(record, "\n") {
			if name, value, isField := strings.Cut(line, " ="); isField && line[0] != '#' {
				vector[name] = strings.TrimSpace(value)
			}
		}
		if vector["Kind"] != "" {
			run(t, vector)
			count++
		}
	}
	if count < 30 {
		t.Error("too few records:", count)
	}
}

func TestDigests(t *testing.T) {
	digest, err := zulcore.NewHash("shake128")
	must(t, err)
	for _, piece := range []string{"ab", "", "c"} {
		_, err = digest.Write([]byte(piece))
		must(t, err)
	}
	_, err = digest.FinishSize(0)
	refused(t, raw.OUT_OF_RANGE_ERROR, "no length", err)
	result, err := digest.FinishSize(8)
	if hex.EncodeToString(result) != "5881092dd818bf5c" {
		t.Error("shake128 in pieces", result, err)
	}
	_, err = digest.Write([]byte("c"))
	refused(t, raw.INVALID_DATA_ERROR, "an ended digest", err)
	digest.Close()
	_, err = digest.Finish()
	refused(t, raw.INVALID_DATA_ERROR, "a closed digest", err)
	_, err = zulcore.NewHash("sha\x00256")
	refused(t, raw.BAD_PARAM_ERROR, "a zero byte", err)
}

func TestEncryption(t *testing.T) {
	data, err := zulcore.RandomBytes(70000)
	must(t, err)
	key := data[:32]
	sealed, err := zulcore.Encrypt("", key, data, nil, nil)
	must(t, err)
	if opened, err := zulcore.Decrypt("", key, sealed, nil, nil); err != nil || !bytes.Equal(opened, data) {
		t.Error("a random nonce", err)
	}
	empty, err := zulcore.Encrypt("", key, nil, []byte("aad"), nil)
	must(t, err)
	if opened, err := zulcore.Decrypt("", key, empty, []byte("aad"), nil); err != nil || len(opened) != 0 {
		t.Error("an empty message", err)
	}
	_, err = zulcore.Decrypt("", key, empty, []byte("add"), nil)
	refused(t, raw.DECRYPT_ERROR, "other data beside it", err)
	_, err = zulcore.Decrypt("", key, nil, nil, nil)
	refused(t, raw.BAD_LENGTH_ERROR, "too short", err)
	_, err = zulcore.RandomNumber(2, 1)
	refused(t, raw.OUT_OF_RANGE_ERROR, "no range", err)
	_, err = zulcore.RandomBytes(-1)
	refused(t, raw.OUT_OF_RANGE_ERROR, "a negative length", err)
	zulcore.Wipe(data)
	if !bytes.Equal(data, make([]byte, len(data))) {
		t.Error("not wiped")
	}
}

func TestKeys(t *testing.T) {
	must(t, os.Chdir(t.TempDir()))
	mine, theirs := mustKey(t, "x25519"), mustKey(t, "X25519")
	password := []byte("p\xc3\xa9")
	must(t, mine.SaveAs("x.pem", password, "iterations=1000", raw.ZUL_KEY_FORMAT_PEM))
	read, err := zulcore.ReadKey("x.pem", password)
	must(t, err)
	public, err := read.Public()
	must(t, err)
	if isMine, err := mine.Matches(public); !isMine || err != nil {
		t.Error("a key saved and read", err)
	}
	if isMine, err := theirs.Matches(public); isMine || err != nil {
		t.Error("another key", err)
	}
	one, _ := mine.Agree(theirs)
	other, err := theirs.Agree(public)
	if err != nil || len(one) != 32 || !bytes.Equal(one, other) {
		t.Error("agreement", err)
	}
	must(t, public.Save("x.pub", nil))
	shown, _ := json.Marshal(mine)
	for _, verb := range []string{"%v", "%+v", "%s", "%d", "%x", "%q"} {
		if found := fmt.Sprintf(verb+verb, mine, *mine); found != strings.Repeat("private x25519 key of 256 bits", 2) {
			t.Error(verb, found)
		}
	}
	if string(shown) != "{}" {
		t.Error("JSON of a key", string(shown))
	}
	refused(t, raw.BAD_PARAM_ERROR, "a private key without a password", mine.Save("open.pem", nil))
	refused(t, raw.BAD_PARAM_ERROR, "a zero byte in a name", mine.SaveUnencrypted("x\x00y"))
	refused(t, raw.BAD_PARAM_ERROR, "a zero byte in a password", mine.SaveAs("open.pem", []byte("a\x00b"), "", 0))
	if _, err = os.Stat("open.pem"); err == nil {
		t.Error("an unencrypted key was written")
	}
	_, err = zulcore.ReadKey("x.pem", []byte("wrong"))
	refused(t, raw.DECRYPT_ERROR, "a wrong password", err)
	mine.Close()
	mine.Close()
	_, err = mine.Public()
	refused(t, raw.INVALID_DATA_ERROR, "a closed key", err)
	refused(t, raw.INVALID_DATA_ERROR, "no key", zulcore.SelfSign("c.pem", nil, "CN=A"))
}

func TestCertificates(t *testing.T) {
	must(t, os.Chdir(t.TempDir()))
	root, leaf := mustKey(t, "rsa-2048"), mustKey(t, "rsa-2048")
	must(t, zulcore.SelfSign("root.pem", root, "CN=Röt;profile=ca"))
	must(t, zulcore.Request("leaf.req", leaf, "CN=leaf;dns=leaf.example"))
	must(t, zulcore.Issue("leaf.pem", "root.pem", root, "leaf.req", "profile=server;copy=subjectAltName;serial=77"))
	for _, row := range [][]string{{"root.pem", "subject", "CN=Röt"}, {"leaf.pem", "serialNumber", "77"},
		{"leaf.pem", "crl", ""}} {
		if answer, err := zulcore.CertQuery(row[0], row[1]); err != nil || answer != row[2] {
			t.Error(row, answer, err)
		}
	}
	must(t, zulcore.CheckName("leaf.pem", "leaf.example"))
	must(t, zulcore.IssueCRL("root.crl", "root.pem", root, "cert=leaf.pem", "", ""))
	must(t, zulcore.IssueCRL("next.crl", "root.pem", root, "", "days=7", "root.crl"))
	var file string
	leafPEM, err := zulcore.Output(func(name string) error {
		file = name
		return zulcore.IssueForKey(name, "root.pem", root, leaf, "CN=bytes")
	})
	must(t, err)
	if answer, err := zulcore.CertQuery(string(leafPEM), "subject"); answer != "CN=bytes" {
		t.Error("a certificate as bytes", err)
	}
	if _, err = os.Stat(filepath.Dir(file)); err == nil {
		t.Error("a folder that stays:", file)
	}
	report, err := zulcore.CheckPath("leaf.pem", "root.pem", "", "", "host=leaf.example", 0)
	if err != nil || report == "" {
		t.Error("a path", err)
	}
	must(t, zulcore.SelfSign("other.pem", leaf, "CN=other;profile=ca"))
	_, err = zulcore.CheckPath("leaf.pem", "other.pem", "root.pem", "", "", 0)
	refused(t, raw.ISSUER_ERROR, "an authority that is not trusted", err)
	report, err = zulcore.CheckPath("leaf.pem", "root.pem", "", "next.crl", "", raw.ZUL_CERT_JSON)
	refused(t, raw.BAD_KEY_ERROR, "a revoked certificate", err)
	if !json.Valid([]byte(report)) {
		t.Error("the report of a refusal", report)
	}
	refused(t, raw.BAD_PARAM_ERROR, "a description", zulcore.SelfSign("c.pem", root, "CN=A;unknown=1"))

	must(t, zulcore.P12Pack("leaf.p12", "leaf.pem;root.pem", leaf, []byte("secret"), "Leaf", 0))
	unpacked, err := zulcore.UnpackP12("leaf.p12", []byte("secret"), "certs.pem", 0)
	must(t, err)
	if isLeaf, err := unpacked.Matches(leaf); !isLeaf {
		t.Error("a key of a PKCS #12 file", err)
	}
	if list, err := zulcore.P12List("leaf.p12", []byte("secret"), 0); !strings.Contains(list, `"Leaf"`) {
		t.Error("a PKCS #12 list", err)
	}

	must(t, os.WriteFile("abc", []byte("abc"), 0o600))
	must(t, zulcore.CMSSign("abc.p7m", "abc", "leaf.pem", leaf))
	must(t, zulcore.CMSVerify("abc.p7m", "leaf.pem"))
	must(t, zulcore.CMSContent("abc.read", "abc.p7m"))
	must(t, zulcore.CMSEncrypt("abc.env", "abc.read", "leaf.pem", "root.pem"))
	elliptic, err := zulcore.GenerateKey("p-256")
	must(t, err)
	must(t, zulcore.SelfSign("ec.pem", elliptic, "CN=ec"))
	refused(t, raw.BAD_KEY_ERROR, "a key that cannot encrypt", zulcore.CMSEncrypt("none.env", "abc", "leaf.pem", "ec.pem"))
	if _, err = os.Stat("none.env"); err == nil {
		t.Error("a message that not all can read")
	}
	must(t, zulcore.CMSDecrypt("abc.plain", "abc.env", leaf, "leaf.pem"))
	if plain, _ := os.ReadFile("abc.plain"); string(plain) != "abc" {
		t.Error("a message", plain)
	}
	signature, err := leaf.SignFile("abc", "")
	must(t, err)
	must(t, leaf.VerifyFile(signature, "abc", ""))
	refused(t, raw.SIGNATURE_ERROR, "another file", leaf.VerifyFile(signature, "abc.p7m", ""))
}

func TestSeals(t *testing.T) {
	must(t, os.Chdir(t.TempDir()))
	must(t, os.WriteFile("abc", []byte("abc"), 0o600))
	identity, err := zulcore.MakeIdentity()
	must(t, err)
	another, err := zulcore.MakeIdentity()
	must(t, err)
	recipient, err := zulcore.Recipient(identity)
	must(t, err)
	must(t, zulcore.SealFile("abc.age", "abc", recipient, nil, raw.ZUL_SEAL_ARMOUR))
	refused(t, raw.NO_MATCH_ERROR, "another identity", zulcore.OpenFile("abc.opened", "abc.age", another, nil))
	must(t, zulcore.OpenFile("abc.opened", "abc.age", identity, nil))
	must(t, zulcore.WipeFile("abc.opened"))
	if _, err = os.Stat("abc.opened"); err == nil {
		t.Error("a wiped file is there")
	}
}
