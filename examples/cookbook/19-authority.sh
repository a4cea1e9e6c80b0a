# An authority of one's own, and a server's certificate.
. "$(dirname "$0")/common.sh"
echo "correct horse battery staple" >password.txt
# [show]
zul ca init pki --name "C=AU;O=Example" --password-file password.txt
zul ca issue pki --dns www.example.com --dns example.com --no-password --password-file password.txt -o www
zul ca list pki
# [end]
openssl verify -x509_strict -CAfile pki/root.pem -untrusted pki/ca.pem -verify_hostname www.example.com www.pem
test "$(grep -c BEGIN www-chain.pem)" = 2
zul key match www.key www.pem
