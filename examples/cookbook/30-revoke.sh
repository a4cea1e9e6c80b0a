# A certificate that is to count no more.
. "$(dirname "$0")/common.sh"
authority p-256 alice bob
# [show]
zul ca revoke pki alice.pem --reason keyCompromise --password-file password.txt   # writes pki/ca.crl

# Whoever relies on certificates, with the published list:
zul cert path bob.pem pki/ca.pem --trusted pki/root.pem --crl pki/ca.crl --crl pki/root.crl
# [end]
fails "It is revoked" zul cert path alice.pem pki/ca.pem --trusted pki/root.pem --crl pki/ca.crl --crl pki/root.crl
fails "REVOKED" zul crl check alice.pem --crl pki/ca.crl
zul crl check bob.pem --crl pki/ca.crl
