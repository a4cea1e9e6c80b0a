# Files that nobody shall find again.
. "$(dirname "$0")/common.sh"
echo "secret" >aes.key
echo "secret too" >plain.txt
# [show]
zul wipe aes.key plain.txt
# [end]
test ! -e aes.key
test ! -e plain.txt
