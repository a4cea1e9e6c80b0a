# A secret that two share.
. "$(dirname "$0")/common.sh"
for name in alice bob; do
    echo "password of $name" >$name.txt
    zul key make --type x25519 --password-file $name.txt $name.pub $name.key
done
# [show]
# Alice                                    Bob does the same the other way round:
zul agree -k alice.key --password-file alice.txt bob.pub --kdf hkdf-sha256 --info "backup 2026" shared.key
zul agree -k bob.key --password-file bob.txt alice.pub --kdf hkdf-sha256 --info "backup 2026" same.key
# [end]
cmp shared.key same.key
test "$(stat -c %s same.key)" = 32
