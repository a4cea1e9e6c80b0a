# What went wrong, in words and as a number.
. "$(dirname "$0")/common.sh"
check() {
    # [show]
    zul hash sha256 no-such-file || echo "status $?"
    zul error 15
    # [end]
}
check >out 2>words
grep -q "^status 1" out
grep -q "error 1: " words
