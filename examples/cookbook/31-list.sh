# Revocation lists without 'zul ca'.
. "$(dirname "$0")/common.sh"
authority p-256 alice
cp pki/ca.pem ca.pem
cp pki/ca.key ca.key
# [show]
serial=0x$(zul cert query alice.pem serialNumber)
zul crl make --issuer ca.pem -k ca.key --password-file password.txt --revoke "$serial,superseded" first.crl

# The next list goes on from the last one:
zul crl make --issuer ca.pem -k ca.key --password-file password.txt --earlier first.crl --days 7 second.crl
zul crl show second.crl
# [end]
fails "REVOKED" zul crl check alice.pem --crl second.crl
openssl crl -in second.crl -CAfile ca.pem -noout -text | grep -q Superseded
