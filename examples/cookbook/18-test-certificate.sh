# A certificate for a server on this machine.
. "$(dirname "$0")/common.sh"
echo "correct horse battery staple" >password.txt
# [show]
zul key make --type p-256 --password-file password.txt test.pub test.key
zul cert self -k test.key --password-file password.txt -s "CN=localhost" --profile server \
    --dns localhost --ip 127.0.0.1 --ip ::1 test.pem
# [end]
openssl verify -CAfile test.pem -verify_hostname localhost test.pem
zul cert check-name test.pem ::1
