# demo_certificates.sh: the part of demo.sh about certificates, which it sources.

# answers STATUS WORDS ARGUMENT...: the tool ends with that status, and what it prints is in $words and has WORDS.
answers() {
    local wanted=$1 expected=$2 status=0
    shift 2
    words=$("${zul[@]}" "$@" 2>&1) || status=$?
    words=${words//$'\r'/}
    [ "$status" -eq "$wanted" ] && [[ $words == *"$expected"* ]]
}
# item FILE NAME: what a certificate says.
item() { "${zul[@]}" cert query "$1" "$2" | tr -d '\r'; }

make_certificates() {
    local name
    for name in root inter alice bob; do
        "${zul[@]}" key make --password-file password "$name.pub" "$name.key"
    done
    "${zul[@]}" cert self -k root.key --password-file password --years 10 \
        -s "C=AU;O=Example;CN=Example Root" root.pem
    "${zul[@]}" cert issue --issuer root.pem -k root.key --password-file password --public-key inter.pub --ca \
        --years 5 -s "C=AU;O=Example;CN=Example Intermediate" inter.pem
    "${zul[@]}" request make -k alice.key --password-file password -s "C=AU;O='Smith; Jones';CN=Alice" alice.req
    expect request "'openssl req -verify' finds Alice's request good" \
        grep -q "verify OK" <(openssl req -in alice.req -verify -noout 2>&1)
    "${zul[@]}" cert issue --issuer inter.pem -k inter.key --password-file password --request alice.req \
        --usage digitalSignature,keyEncipherment --email alice@example.com alice.pem
    "${zul[@]}" cert issue --issuer inter.pem -k inter.key --password-file password --public-key bob.pub \
        --usage digitalSignature,keyEncipherment -s "C=AU;O=Example;CN=Bob" bob.pem
    for name in root inter alice bob; do
        say "$name.pem" "$(item "$name.pem" subjectName), until $(item "$name.pem" notAfter)"
        say "" "issued by $(item "$name.pem" issuerName), for $(item "$name.pem" keyUsageString)"
    done
}

check_certificates() {
    expect verify "Alice's certificate was signed by the intermediate's key" \
        answers 0 "good signature" cert verify alice.pem --issuer inter.pem
    expect "" "and not by the root's: refused with 22" refused 22 cert verify alice.pem --issuer root.pem
    quote_words
    expect path "from the root, found in shuffled order" answers 0 "valid path" cert path alice.pem root.pem inter.pem
    quote_words
    expect "" "without the intermediate: refused with 21" refused 21 cert path --trusted root.pem alice.pem
    quote_words
    expect openssl "'openssl verify' finds the same path valid" \
        quietly openssl verify -x509_strict -purpose sslclient -CAfile root.pem -untrusted inter.pem alice.pem
}

revoke_certificate() {
    local before day after serial
    before=$(date -u -d "+9 days" +%F)
    day=$(date -u -d "+10 days" +%F)
    after=$(date -u -d "+11 days" +%F)
    serial=0x$(item alice.pem serialNumber)
    "${zul[@]}" crl make --issuer inter.pem -k inter.key --password-file password --revoke "$serial,$day" \
        --next "$(date -u -d "+30 days" +%F)" inter.crl
    say revoke "Alice's certificate, number $serial, as of $day"
    expect "" "the day before:" answers 0 ": not revoked on $before" \
        crl check alice.pem --crl inter.crl --issuer inter.pem --date "$before"
    quote_words
    expect "" "the day after, with exit status 1:" answers 1 ": REVOKED on $after" \
        crl check alice.pem --crl inter.crl --issuer inter.pem --date "$after"
    quote_words
    words=$(openssl verify -crl_check -CAfile root.pem -untrusted inter.pem -CRLfile inter.crl alice.pem 2>&1 || true)
    expect openssl "'openssl verify -crl_check' refuses it too" grep -q "certificate revoked" <<<"$words"
}
