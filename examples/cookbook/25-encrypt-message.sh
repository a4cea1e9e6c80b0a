# A message for the holders of certificates.
. "$(dirname "$0")/common.sh"
authority rsa-2048 alice bob eve
echo "a report" >report.txt
# [show]
zul cms encrypt report.txt --to alice.pem --to bob.pem -o report.p7m

# Each of the two, with the own key:
zul cms decrypt report.p7m -k bob.key --password-file password.txt -o opened.txt
# [end]
cmp report.txt opened.txt
openssl cms -decrypt -binary -inform DER -in report.p7m -recip alice.pem -inkey alice.key -passin file:password.txt |
    cmp report.txt
fails "error 15" zul cms decrypt report.p7m -k eve.key --password-file password.txt -o never.txt
