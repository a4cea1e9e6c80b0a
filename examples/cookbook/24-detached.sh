# A signature beside the file, as for software.
. "$(dirname "$0")/common.sh"
authority rsa-2048 alice
head -c 20000000 /dev/urandom >program.exe
# [show]
zul cms sign program.exe --detached -k alice.key --password-file password.txt --cert alice.pem \
    --extra-cert pki/ca.pem -o program.exe.p7s
zul cms verify program.exe.p7s --content program.exe --trusted pki/root.pem
# [end]
openssl cms -verify -binary -inform DER -in program.exe.p7s -content program.exe -CAfile pki/root.pem -out again
cmp program.exe again
echo >>program.exe
fails "error 22" zul cms verify program.exe.p7s --content program.exe --trusted pki/root.pem
