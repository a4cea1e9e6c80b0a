# Bytes as text and back.
. "$(dirname "$0")/common.sh"
head -c 1000 /dev/urandom >picture.png
# [show]
zul encode base64 --line-length 76 picture.png picture.txt
zul decode base64 picture.txt again.png
zul encode hex picture.png -               # to standard output
# [end]
cmp picture.png again.png
test "$(cat picture.txt)" = "$(base64 picture.png)"
