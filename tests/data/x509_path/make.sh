#!/usr/bin/env bash
# Makes the certificates of the path tests with openssl: certs.txt, chain25.p7b and signed.der. Run by hand; the
# keys are thrown away.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

cat >ca.cnf <<'CNF'
[ca]
default_ca = any
[any]
database = index
serial = serial
new_certs_dir = .
default_md = sha256
policy = policy
unique_subject = no
[policy]
commonName = supplied
[req]
distinguished_name = dn
[dn]
[exts]
basicConstraints = critical, CA:TRUE
CNF
: >index
echo 01 >serial

for key in k0 k1 k2; do
    openssl genrsa -out $key.key 1024 2>>log
done

# make NAME SUBJECT KEY ISSUER ISSUERKEY [START [END]]: ISSUER is the name of one made before, or NAME itself.
make() {
    local dates=(-startdate "${6:-20000101000000Z}" -enddate "${7:-20900101000000Z}") issuer=(-cert "$4.pem")
    openssl req -new -config ca.cnf -key "$3.key" -subj "/CN=$2" -out req.pem 2>>log
    [ "$4" != "$1" ] || issuer=(-selfsign)
    openssl ca -config ca.cnf -batch -notext -in req.pem -keyfile "$5.key" "${issuer[@]}" "${dates[@]}" \
        -extensions exts -out "$1.pem" 2>>log
}

make c1 C1 k0 c1 k0
for i in $(seq 2 25); do # each issued by the one before, with the keys in turn
    make c$i C$i k$(((i - 1) % 3)) c$((i - 1)) k$(((i - 2) % 3))
done
make root2 R2 k2 root2 k2
make cross2 C2 k1 root2 k2     # c2's name and key by another root
make rekeyed2 C2 k2 c1 k0      # c2's name with another key
make impostor1 C1 k2 impostor1 k2 # c1's name with another key
make expired2 C2 k1 c1 k0 20000101000000Z 20010101000000Z
make future2 C2 k1 c1 k0 20880101000000Z
make loopA LA k0 c1 k0 # only for its name
make loopB LB k1 loopA k0
make loopA LA k0 loopB k1

for name in $(seq -f c%g 1 25) root2 cross2 rekeyed2 impostor1 expired2 future2 loopA loopB; do
    echo "name $name"
    cat $name.pem
done >"$here/certs.txt"

openssl crl2pkcs7 -nocrl $(seq -f '-certfile c%g.pem' 1 25) -out "$here/chain25.p7b"
# A signed message with its content, in indefinite lengths; the certificates are not in the order of the path.
seq 1 1500 >content
cat c3.pem c1.pem >more.pem
openssl cms -sign -stream -nodetach -binary -in content -signer c2.pem -inkey k1.key -certfile more.pem \
    -outform DER -out "$here/signed.der"
