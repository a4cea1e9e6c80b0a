# A file under a password.
. "$(dirname "$0")/common.sh"
echo "a report" >report.txt
echo "correct horse battery staple" >password.txt
# [show]
zul seal --password-file password.txt report.txt
zul open --password-file password.txt report.txt.age opened.txt
# [end]
cmp report.txt opened.txt
echo "wrong" >wrong.txt
fails "error 15" zul open --password-file wrong.txt report.txt.age never.txt
test ! -e never.txt
