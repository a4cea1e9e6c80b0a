# A key pair.
. "$(dirname "$0")/common.sh"
echo "correct horse battery staple" >password.txt
# [show]
zul key make --type ed25519 --password-file password.txt my.pub my.key
zul key show my.pub
zul key check --password-file password.txt my.key
# [end]
test "$(openssl pkey -in my.key -passin file:password.txt -pubout)" = "$(tr -d '\r' <my.pub)"
