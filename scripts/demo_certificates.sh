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
    expect path "by the intermediate, to the root, for her mailbox" \
        answers 0 "subjectName           good" cert path alice.pem inter.pem --trusted root.pem --email alice@example.com
    quote_words
    expect "" "without the intermediate: refused with 25" refused 25 cert path --trusted root.pem alice.pem
    quote_words
    expect openssl "'openssl verify' finds the same path valid" \
        quietly openssl verify -x509_strict -purpose sslclient -CAfile root.pem -untrusted inter.pem alice.pem
}

revoke_certificate() {
    local before day after serial
    before=$(date -u -d "-1 day" +%F)
    day=$(date -u +%F)
    after=$(date -u -d "+1 day" +%F)
    serial=0x$(item alice.pem serialNumber)
    "${zul[@]}" crl make --issuer inter.pem -k inter.key --password-file password --revoke "$serial,$day,keyCompromise" \
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

# The server that runs in the background, whatever it serves; at most one at a time.
server=""
stop_server() {
    [ -z "$server" ] || kill "$server" 2>/dev/null || true
    server=""
}
# port_of LOG: the port that the system chose for a server of openssl, from what the server says of it.
port_of() {
    local found
    for _ in {1..100}; do
        found=$(sed -n 's/^ACCEPT .*:\([0-9]*\)\( PID.*\)\{0,1\}$/\1/p' "$1")
        [ -z "$found" ] || break
        sleep 0.1
    done
    printf '%s' "$found"
}

# connects OPTION...: a client of openssl that trusts the root alone accepts the server. Its words are in $words.
connects() {
    words=$(openssl s_client -connect "127.0.0.1:$port" -CAfile pki/root.pem -x509_strict -verify_return_error "$@" \
        2>&1 </dev/null)
}
# fetches HOST: so does curl.
fetches() {
    words=$(curl -sS --noproxy '*' --cacert pki/root.pem --resolve "$1:$port:127.0.0.1" "https://$1:$port/" 2>&1)
}
# refuses WORDS COMMAND...: a client refuses, and says why.
refuses() {
    local why=$1
    shift
    ! "$@" && [[ $words == *"$why"* ]]
}

# Three commands from nothing to a server that clients accept, and one to take it back.
serve_tls() {
    local type
    for type in rsa-2048 p-256; do
        "${zul[@]}" ca init pki --name "C=AU;O=Example" --type "$type" --password-file password >made
        say authority "$(head -1 made | tr -d '\r')"
        "${zul[@]}" ca issue pki --password-file password --type "$type" --no-password \
            --dns localhost --ip 127.0.0.1 --ip ::1 -o web >made
        say server "a key of type $type and a certificate for $("${zul[@]}" ca list pki | tail -1 | tr -d '\r' | cut -f6)"
        : >server.log
        openssl s_server -accept 127.0.0.1:0 -cert web.pem -cert_chain web-chain.pem -key web.key -www \
            >server.log 2>&1 </dev/null &
        server=$!
        port=$(port_of server.log)
        expect tls "'openssl s_server' has it, on port $port; curl accepts it as localhost" fetches localhost
        expect "" "and as 127.0.0.1" fetches 127.0.0.1
        expect "" "and not as example.com" refuses "no alternative certificate subject name" fetches example.com
        expect openssl "'openssl s_client' accepts it as localhost" connects -verify_hostname localhost
        expect "" "and as ::1" connects -verify_ip ::1
        "${zul[@]}" ca revoke pki web.pem --reason superseded --password-file password >made
        openssl crl -inform DER -in pki/ca.crl -out ca.crl.pem
        expect revoke "revoked in $(tr -d '\r' <made | cut -d' ' -f3): a client that asks for the list refuses it" \
            refuses "certificate revoked" connects -crl_check -CRL ca.crl.pem
        stop_server
        "${zul[@]}" wipe pki/*.key web.key
        rm -r pki
    done
}
