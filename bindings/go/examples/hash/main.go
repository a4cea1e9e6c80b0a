// Command hash prints the SHA-256 digest of a file.
package main

import (
	"fmt"
	"log"
	"os"

	"zulcore"
)

func main() {
	file := os.Args[1]
	// --8<-- [start:hash]
	digest, err := zulcore.HashFile("sha256", file)
	if err != nil {
		log.Fatal(err)
	}
	fmt.Printf("%x\n", digest)
	// --8<-- [end:hash]
}
