# A request, and the certificate for it.
. "$(dirname "$0")/common.sh"
echo "password of alice" >alice.txt
echo "password of the authority" >password.txt
zul ca init pki --name "C=AU;O=Example" --password-file password.txt
# [show]
# Alice keeps her key and sends alice.req:
zul key make --type p-256 --password-file alice.txt alice.pub alice.key
zul request make -k alice.key --password-file alice.txt -s "C=AU;CN=Alice" --email alice@example.com alice.req

# The authority looks at it before it issues:
zul request show alice.req
zul ca issue pki --profile email --email alice@example.com --request alice.req --password-file password.txt -o alice
# [end]
zul cert path alice.pem pki/ca.pem --trusted pki/root.pem --email alice@example.com --purpose email
test "$(zul cert query alice.pem email)" = alice@example.com
