# Passwords for programs.
. "$(dirname "$0")/common.sh"
# [show]
zul random 24 - | zul encode base64 - password.txt     # a password nobody has to remember
chmod 600 password.txt
zul key make --type ed25519 --password-file password.txt my.pub my.key

# From a variable or a password manager, through a pipe:
PASSWORD=$(cat password.txt)
printf '%s\n' "$PASSWORD" | zul key check --password-file - my.key
# [end]
echo "wrong" >wrong.txt
fails "error 15" zul key check --password-file wrong.txt my.key
