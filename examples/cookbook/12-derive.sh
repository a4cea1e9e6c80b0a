# A key from a password, or from another key.
. "$(dirname "$0")/common.sh"
echo "correct horse battery staple" >password.txt
# [show]
zul random 16 salt.bin                     # a new one for each password
zul kdf argon2id --password-file password.txt --salt-file salt.bin master.key

# Several keys of one: each has a purpose of its own.
zul kdf hkdf --key-file master.key --info "backup" backup.key
zul kdf hkdf --key-file master.key --info "log" log.key
# [end]
test "$(stat -c %s backup.key)" = 32
if cmp -s backup.key log.key; then exit 1; fi
zul kdf argon2id --password-file password.txt --salt-file salt.bin again.key
cmp master.key again.key
