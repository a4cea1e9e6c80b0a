# What the files of the cookbook share. Run one in an empty folder, with zul on the PATH: bash 01-digest.sh
set -euo pipefail

# fails TEXT COMMAND...: the command has to fail, and to say why.
fails() {
    local text=$1 words
    shift
    if words=$("$@" 2>&1); then
        echo "does not fail: $*" >&2
        exit 1
    fi
    grep -qF -- "$text" <<<"$words" || { echo "$* says: $words" >&2; exit 1; }
}

# authority TYPE NAME...: an authority in pki, and for each name a key and a certificate for mail.
authority() {
    local type=$1 name
    shift
    echo "correct horse battery staple" >password.txt
    zul ca init pki --name "C=AU;O=Example" --type "$type" --password-file password.txt
    for name in "$@"; do
        zul ca issue pki --profile email --type "$type" -s "C=AU;CN=$name" --email "$name@example.com" \
            --password-file password.txt --new-password-file password.txt -o "$name"
    done
} >/dev/null
