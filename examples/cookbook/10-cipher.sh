# AES-CBC that other programs read.
. "$(dirname "$0")/common.sh"
head -c 5000 /dev/urandom >plain.bin
# [show]
zul random 32 aes.key
iv=$(zul random 16 --hex)                  # a new one for each message; it is no secret
zul encrypt -a aes-256-cbc --key-file aes.key --iv "$iv" plain.bin secret.bin
zul decrypt -a aes-256-cbc --key-file aes.key --iv "$iv" secret.bin again.bin
# [end]
cmp plain.bin again.bin
key=$(od -An -v -tx1 aes.key | tr -d ' \n')
openssl enc -d -aes-256-cbc -K "$key" -iv "$iv" -in secret.bin | cmp plain.bin
