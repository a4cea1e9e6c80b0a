// Command seal encrypts a file for a recipient and under a password, and opens both again.
package main

import (
	"bytes"
	"fmt"
	"log"
	"os"

	"zulcore"
	"zulcore/raw"
)

func seal(file string) error {
	// --8<-- [start:seal]
	identity, err := zulcore.MakeIdentity() // the private key: keep it
	if err != nil {
		return err
	}
	defer zulcore.Wipe(identity)
	recipient, err := zulcore.Recipient(identity)
	if err != nil {
		return err
	}
	if err = zulcore.SealFile("sealed.age", file, recipient, nil, 0); err != nil {
		return err
	}
	if err = zulcore.OpenFile("opened_1", "sealed.age", identity, nil); err != nil {
		return err
	}

	password := []byte("correct horse")
	if err = zulcore.SealFile("password.age", file, "", password, raw.ZUL_SEAL_ARMOUR); err != nil {
		return err
	}
	return zulcore.OpenFile("opened_2", "password.age", nil, password)
	// --8<-- [end:seal]
}

func main() {
	if err := seal(os.Args[1]); err != nil {
		log.Fatal(err)
	}
	whole, _ := os.ReadFile(os.Args[1])
	for _, name := range []string{"opened_1", "opened_2"} {
		if opened, err := os.ReadFile(name); err != nil || !bytes.Equal(opened, whole) {
			log.Fatal("not the same file")
		}
	}
	fmt.Println("sealed and opened")
}
