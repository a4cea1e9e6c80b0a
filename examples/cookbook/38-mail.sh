# Mail that is signed and encrypted.
. "$(dirname "$0")/common.sh"
authority rsa-2048 alice bob
printf 'From: alice@example.com\nTo: bob@example.com\nSubject: Noon\n\nMeet me at noon.\n' >letter.eml
# [show]
zul mail sign letter.eml -k alice.key --password-file password.txt --cert alice.pem --extra-cert pki/ca.pem -o signed.eml
zul mail encrypt signed.eml --to bob.pem -o secret.eml

# Bob:
zul mail decrypt secret.eml -k bob.key --password-file password.txt -o opened.eml
zul mail verify opened.eml --trusted pki/root.pem --body -o text.txt
# [end]
grep -q "Meet me at noon." text.txt
if grep -q "Meet me" secret.eml; then exit 1; fi
openssl cms -verify -in opened.eml -CAfile pki/root.pem | grep -q "Meet me at noon."
sed 's/at noon/at nine/' signed.eml >changed.eml
fails "error 22" zul mail verify changed.eml --trusted pki/root.pem
