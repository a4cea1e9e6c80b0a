# Signed first, then encrypted.
. "$(dirname "$0")/common.sh"
authority rsa-2048 alice bob
echo "a report" >report.txt
# [show]
zul cms sign report.txt -k alice.key --password-file password.txt --cert alice.pem --extra-cert pki/ca.pem |
    zul cms encrypt - --to bob.pem -o report.p7m

zul cms decrypt report.p7m -k bob.key --password-file password.txt |
    zul cms verify - --trusted pki/root.pem --email alice@example.com -o opened.txt
# [end]
cmp report.txt opened.txt
