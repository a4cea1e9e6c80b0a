// Command certificate makes a key and the certificate of a server, issued by an authority.
package main

import (
	"fmt"
	"log"

	"zulcore"
)

func certificate() error {
	// --8<-- [start:certificate]
	authority, err := zulcore.GenerateKey("p-256")
	if err != nil {
		return err
	}
	defer authority.Close()
	if err = authority.Save("root.key", []byte("correct horse")); err != nil {
		return err
	}
	if err = zulcore.SelfSign("root.pem", authority, "C=AU;O=Example;CN=Example Root;profile=ca"); err != nil {
		return err
	}

	server, err := zulcore.GenerateKey("p-256")
	if err != nil {
		return err
	}
	defer server.Close()
	description := "CN=www.example.com;dns=www.example.com;profile=server"
	if err = zulcore.IssueForKey("server.pem", "root.pem", authority, server, description); err != nil {
		return err
	}

	_, err = zulcore.CheckPath("server.pem", "root.pem", "", "", "host=www.example.com;purpose=server", 0)
	if err != nil {
		return err
	}
	subject, err := zulcore.CertQuery("server.pem", "subject")
	fmt.Println("good certificate of", subject)
	// --8<-- [end:certificate]
	return err
}

func main() {
	if err := certificate(); err != nil {
		log.Fatal(err)
	}
}
