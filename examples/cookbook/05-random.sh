# Keys, tokens and dice.
. "$(dirname "$0")/common.sh"
# [show]
zul random 32 aes.key                      # 256 bits into a file
token=$(zul random 16 --hex)
die=$(zul random --number 1 6)
# [end]
test "$(stat -c %s aes.key)" = 32
[[ $token =~ ^[0-9a-fA-F]{32}$ && $die =~ ^[1-6]$ ]]
