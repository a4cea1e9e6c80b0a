// Command sign signs a message and verifies the signature.
package main

import (
	"fmt"
	"log"

	"zulcore"
)

func sign() error {
	// --8<-- [start:sign]
	message := []byte("Pay Alice 100")
	mine, err := zulcore.GenerateKey("ed25519")
	if err != nil {
		return err
	}
	defer mine.Close()
	signature, err := mine.Sign(message, "")
	if err != nil {
		return err
	}
	theirs, err := mine.Public() // what the receiver has
	if err != nil {
		return err
	}
	defer theirs.Close()
	if err = theirs.Verify(signature, message, ""); err != nil {
		return err // it does not verify
	}
	fmt.Println("good signature by", theirs)
	// --8<-- [end:sign]
	return nil
}

func main() {
	if err := sign(); err != nil {
		log.Fatal(err)
	}
}
