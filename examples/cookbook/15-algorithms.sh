# Signatures that other programs ask for.
. "$(dirname "$0")/common.sh"
echo "a report" >report.txt
echo "correct horse battery staple" >password.txt
# [show]
zul key make --type p-256 --password-file password.txt ec.pub ec.key
zul sign -k ec.key --password-file password.txt report.txt ec.sig            # ECDSA, DER
zul sign -k ec.key --password-file password.txt --raw report.txt ec.raw      # r and s, as in JWS

zul key make --bits 3072 -f pem-alt --password-file password.txt rsa.pub rsa.key
zul sign -k rsa.key --password-file password.txt --alg rsa-pss-sha256 report.txt rsa.sig
zul verify -k rsa.pub --alg rsa-pss-sha256 report.txt rsa.sig
# [end]
openssl dgst -sha256 -verify ec.pub -signature ec.sig report.txt
zul verify -k ec.pub --raw report.txt ec.raw
test "$(stat -c %s ec.raw)" = 64
openssl dgst -sha256 -sigopt rsa_padding_mode:pss -verify rsa.pub -signature rsa.sig report.txt
