# A signature of a file.
. "$(dirname "$0")/common.sh"
echo "a report" >report.txt
echo "correct horse battery staple" >password.txt
# [show]
zul key make --type ed25519 --password-file password.txt my.pub my.key
zul sign -k my.key --password-file password.txt report.txt report.sig

# Everybody who has the public key:
zul verify -k my.pub report.txt report.sig
# [end]
openssl pkeyutl -verify -rawin -pubin -inkey my.pub -in report.txt -sigfile report.sig
echo "another report" >report.txt
fails "error 22" zul verify -k my.pub report.txt report.sig
