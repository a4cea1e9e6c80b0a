# A signed message that carries its content.
. "$(dirname "$0")/common.sh"
authority rsa-2048 alice bob
echo "a report" >report.txt
# [show]
zul cms sign report.txt -k alice.key --password-file password.txt --cert alice.pem --extra-cert pki/ca.pem \
    --signing-time -o report.p7m

# Who signed? Without --trusted it could be anybody.
zul cms verify report.p7m --trusted pki/root.pem --email alice@example.com -o opened.txt
# [end]
cmp report.txt opened.txt
openssl cms -verify -binary -inform DER -in report.p7m -CAfile pki/root.pem | cmp report.txt
fails "error 21" zul cms verify report.p7m --trusted pki/root.pem --email bob@example.com
