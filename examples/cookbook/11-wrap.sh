# A key under a master key.
. "$(dirname "$0")/common.sh"
# [show]
zul random 32 master.key
zul random 32 aes.key
zul wrap -a aes-256 --kek-file master.key -o aes.wrapped aes.key
zul unwrap -a aes-256 --kek-file master.key -o again.key aes.wrapped
# [end]
cmp aes.key again.key
