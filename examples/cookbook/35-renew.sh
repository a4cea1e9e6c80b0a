# New certificates before the old ones end.
. "$(dirname "$0")/common.sh"
authority p-256
mkdir servers
for name in www mail; do
    zul ca issue pki --dns $name.example.com --days 20 --no-password --password-file password.txt -o servers/$name
done
zul ca issue pki --dns ftp.example.com --days 80 --no-password --password-file password.txt -o servers/ftp
before=$(zul cert query servers/ftp.pem serialNumber)
# [show]
for key in servers/*.key; do
    name=${key%.key}
    if [ "$(zul cert query "$name.pem" daysLeft)" -lt 30 ]; then
        zul ca issue pki --public-key "$key" --dns "$(zul cert query "$name.pem" dns)" --force \
            --password-file password.txt -o "$name"
    fi
done
# [end]
for name in www mail; do
    zul key match servers/$name.key servers/$name.pem
    test "$(zul cert query servers/$name.pem daysLeft)" -gt 80
done
test "$(zul cert query servers/ftp.pem serialNumber)" = "$before"
