# Asking a responder.
. "$(dirname "$0")/common.sh"
authority p-256 alice bob
cp pki/ca.pem ca.pem
openssl pkey -in pki/ca.key -passin file:password.txt -out responder.key
serial() { zul cert query "$1" serialNumber | tr a-f A-F; }
printf 'V\t450101000000Z\t\t%s\tunknown\t/CN=alice\n' "$(serial alice.pem)" >index
printf 'R\t450101000000Z\t260102030405Z\t%s\tunknown\t/CN=bob\n' "$(serial bob.pem)" >>index
# A responder at hand takes the place of the one in the network.
curl() {
    openssl ocsp -index index -CA ca.pem -rsigner ca.pem -rkey responder.key -ndays 1 -reqin alice.req \
        -respout alice.resp
}
# [show]
zul ocsp request --issuer ca.pem alice.pem -o alice.req
curl -sS -H "Content-Type: application/ocsp-request" --data-binary @alice.req http://ocsp.example.com/ -o alice.resp
zul ocsp read alice.resp --issuer ca.pem --cert alice.pem
# [end]
zul ocsp request --issuer ca.pem bob.pem -o alice.req
curl
fails "It is revoked" zul ocsp read alice.resp --issuer ca.pem --cert bob.pem
