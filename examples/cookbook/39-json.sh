# Reports for programs.
. "$(dirname "$0")/common.sh"
authority p-256
zul ca issue pki --dns www.example.com --no-password --password-file password.txt -o www
zul ca issue pki --dns old.example.com --no-password --password-file password.txt -o old
zul ca revoke pki old.pem --password-file password.txt
exec >words
# [show]
# The names of all certificates that are valid:
zul ca list --json pki | python3 -c '
import json, sys
for certificate in json.load(sys.stdin)["certificates"]:
    if certificate["status"] == "valid":
        print(certificate["subject"])'

# Why a certificate is refused; the exit status is the same as without --json:
zul cert check-name --json www.pem www.example.org >answer.json ||
    python3 -c 'import json; print(json.load(open("answer.json"))["error"]["name"])'
# [end]
test "$(tail -2 words)" = "CN=www.example.com
NO_MATCH_ERROR"
