# A nightly backup that is encrypted, signed and tried.
. "$(dirname "$0")/common.sh"
mkdir data
echo "a report" >data/report.txt
zul identity backup.identity >backup.recipient
echo "correct horse battery staple" >password.txt
zul key make --type ed25519 --password-file password.txt backup.pub backup.key
# [show]
file=backup-$(date +%F).tar.age
tar -c data | zul seal -R backup.recipient - "$file"
zul sign -k backup.key --password-file password.txt "$file" "$file.sig"

# Where the identity is at hand, not on the machine that makes the backups:
zul verify -k backup.pub "$file" "$file.sig"
zul open -i backup.identity "$file" - | tar -t
# [end]
test "$(zul open -i backup.identity "$file" - | tar -t | tail -1)" = data/report.txt
