#!/bin/sh
# Makes issuers that CERT_SelfSign does not: one of version 1, one whose key the library does not read. Each has a leaf.
# Tools: OpenSSL 3.0.19.
set -eu
cd "$(dirname "$0")"
keys=$(mktemp -d)
issue() { # NAME KEY-TYPE ISSUER OPTIONS...
    name=$1 type=$2 issuer=$3
    shift 3
    openssl genpkey -algorithm "$type" -out "$keys/$name"
    openssl req -new -key "$keys/$name" -subj "/CN=$name" |
        openssl x509 -req -days 36500 -CA "$issuer.pem" -CAkey "$keys/$issuer" -set_serial 2 "$@" -out "$name.pem"
}
openssl genpkey -algorithm ed25519 -out "$keys/root"
openssl req -x509 -new -key "$keys/root" -subj /CN=root -days 36500 -addext keyUsage=keyCertSign -out root.pem
echo 'basicConstraints=critical,CA:TRUE' >"$keys/ca"
issue version1 ed25519 root
issue version1_leaf ed25519 version1
issue ed448 ed448 root -extfile "$keys/ca"
issue ed448_leaf ed25519 ed448
rm -r "$keys"
