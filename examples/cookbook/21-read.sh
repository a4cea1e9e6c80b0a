# What a certificate says.
. "$(dirname "$0")/common.sh"
echo "correct horse battery staple" >password.txt
zul ca init pki --name "C=AU;O=Example" --password-file password.txt
zul ca issue pki --dns www.example.com --no-password --password-file password.txt -o www
# [show]
zul cert show www.pem                      # everything, as text
zul cert show --json www.pem >www.json     # everything, for programs
zul cert query www.pem dns                 # one value, alone
days=$(zul cert query www.pem daysLeft)
zul cert thumb www.pem
# [end]
python3 -m json.tool www.json
test "$days" = 89 || test "$days" = 90
test "$(zul cert query www.pem dns)" = www.example.com
