# Trusted certificates for Java.
. "$(dirname "$0")/common.sh"
authority p-256
# [show]
zul pfx make pki/root.pem --truststore --name "Example Root" --password-file password.txt -o trusted.p12
# [end]
zul pfx verify trusted.p12 --password-file password.txt
keytool -list -keystore trusted.p12 -storepass:file password.txt | grep -q trustedCertEntry
