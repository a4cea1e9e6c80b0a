#!/usr/bin/env bash
# Makes the messages of the reading tests with openssl 3.0, all of one content, and the certificates of their
# signers. Run by hand; the keys are thrown away.
set -euo pipefail
cd "$(dirname "$0")"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

certificate() { # name, serial number
    openssl req -x509 -newkey rsa:1024 -nodes -keyout "$work/$1.key" -out "$work/$1.pem" -subj "/C=AU/CN=$1" \
        -days 3650 -set_serial "$2"
    openssl x509 -in "$work/$1.pem" -outform DER -out "$1.der"
}
sign() {
    openssl cms -sign -binary -in "$work/content" -signer "$work/one.pem" -inkey "$work/one.key" -nosmimecap "$@"
}

certificate one 0x00ff01
certificate two 7
printf 'Hello, reader.' >"$work/content"
sign -nodetach -outform DER -out attributes.der
sign -nodetach -noattr -outform PEM -out plain.pem
# Two signers, indefinite lengths, the content a constructed OCTET STRING.
sign -nodetach -stream -signer "$work/two.pem" -inkey "$work/two.key" -outform DER -out stream.der
sign -nodetach -keyid -outform DER -out version3.der
sign -outform PEM -out detached.pem
openssl crl2pkcs7 -nocrl -certfile "$work/one.pem" -certfile "$work/two.pem" -out certs.pem
