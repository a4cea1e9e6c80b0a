# Whether a certificate can be relied on.
. "$(dirname "$0")/common.sh"
echo "correct horse battery staple" >password.txt
zul ca init pki --name "C=AU;O=Example" --password-file password.txt
zul ca issue pki --dns www.example.com --no-password --password-file password.txt -o www
# [show]
zul cert path www-chain.pem --trusted pki/root.pem --host www.example.com --purpose server
# [end]
fails "error 21" zul cert path www-chain.pem --trusted pki/root.pem --host www.example.org
fails "error 25" zul cert path www.pem --trusted pki/root.pem --host www.example.com
