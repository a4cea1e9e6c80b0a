# A digest that only the holders of a key can make.
. "$(dirname "$0")/common.sh"
echo "a report" >report.txt
# [show]
zul random 32 secret.key
zul hmac sha256 --key-file secret.key report.txt >report.mac

# The other side has the same key:
test "$(zul hmac sha256 --key-file secret.key report.txt)" = "$(cat report.mac)"
# [end]
key=$(od -An -v -tx1 secret.key | tr -d ' \n')
test "$(cut -d' ' -f1 report.mac)" = \
    "$(openssl dgst -sha256 -mac HMAC -macopt "hexkey:$key" report.txt | sed 's/.*= //')"
