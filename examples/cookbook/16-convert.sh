# A key in another form.
. "$(dirname "$0")/common.sh"
echo "correct horse battery staple" >password.txt
echo "another password" >new.txt
zul key make --type p-256 --password-file password.txt my.pub my.key
# [show]
# Another password:
zul key convert --encrypt aes-256 --password-file password.txt --new-password-file new.txt my.key new.key

# The public key of a private one, as DER:
zul key convert --public -f der --password-file password.txt my.key my.der

# Without a password, for a server that wants it so:
zul key convert --unencrypted --structure sec1 --password-file password.txt my.key server.key
# [end]
zul key match --password-file new.txt new.key my.pub
openssl pkey -pubin -inform DER -in my.der -noout
grep -q "BEGIN EC PRIVATE KEY" server.key
test "$(stat -c %a server.key)" = 600
