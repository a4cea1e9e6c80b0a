# Key and certificates in one file, for a browser or a server.
. "$(dirname "$0")/common.sh"
authority p-256 alice
# [show]
zul pfx make alice.pem alice.key --chain pki/ca.pem --name Alice --password-file password.txt -o alice.p12
zul pfx list alice.p12 --password-file password.txt
# [end]
openssl pkcs12 -in alice.p12 -passin file:password.txt -nodes -out opened.pem
test "$(grep -c "BEGIN CERT" opened.pem)" = 2
grep -q "BEGIN PRIVATE KEY" opened.pem
