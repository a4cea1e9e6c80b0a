# A script that goes on only with a good signature.
. "$(dirname "$0")/common.sh"
echo "a report" >report.txt
echo "correct horse battery staple" >password.txt
zul key make --type ed25519 --password-file password.txt my.pub my.key
zul sign -k my.key --password-file password.txt report.txt report.sig
check() {
    # [show]
    status=0
    zul verify -k my.pub report.txt report.sig || status=$?
    case $status in
    0) echo "install it" ;;
    1) echo "not good, or not readable: keep away" ;;
    *) echo "a mistake in this script" ;;
    esac
    # [end]
}
test "$(check | tail -1)" = "install it"
echo "changed" >report.txt
test "$(check 2>/dev/null | tail -1)" = "not good, or not readable: keep away"
