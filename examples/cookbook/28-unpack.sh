# What somebody else's PKCS #12 file holds.
. "$(dirname "$0")/common.sh"
authority p-256 alice
cp password.txt same.txt
openssl pkcs12 -export -in alice.pem -inkey alice.key -passin file:password.txt -certfile pki/ca.pem \
    -passout file:same.txt -out alice.p12
# [show]
zul pfx extract alice.p12 --password-file password.txt --cert cert.pem --chain chain.pem --key private.key
zul pfx list --json alice.p12 --password-file password.txt >alice.json
# [end]
zul key match --password-file password.txt private.key cert.pem
python3 -c 'import json; assert len(json.load(open("alice.json"))["entries"]) == 3'
