// Command error catches and prints an error.
package main

import (
	"errors"
	"fmt"

	"zulcore"
	"zulcore/raw"
)

func main() {
	// --8<-- [start:error]
	_, err := zulcore.ReadKey("missing.pem", nil)
	var refused *zulcore.Error
	if errors.Is(err, &zulcore.Error{Code: raw.OPEN_ERROR}) {
		fmt.Println("no such file:", err)
	} else if errors.As(err, &refused) {
		fmt.Println(refused.Name, refused.Code, refused.Text, refused.Detail)
	}
	// --8<-- [end:error]
}
