# demo_messages.sh: the part of demo.sh about messages, PKCS #12 and OCSP, which it sources. It goes on with the
# certificates of demo_certificates.sh.

sign_message() {
    # A message carries 1 byte to 16 MiB.
    head -c 16000000 "$file" >content
    [ "$(stat -c %s "$file")" -le 16000000 ] || say message "of the first 16,000,000 bytes of the file"
    [ -s content ] || echo "an empty file" >content
    "${zul[@]}" cms sign content -k alice.key --password-file password --cert alice.pem --extra-cert inter.pem \
        --signing-time -o signed.p7m
    expect message "signed by Alice, with the content and certificates: $(stat -c %s signed.p7m) bytes, who is it?" \
        answers 0 "NOT VALIDATED" cms verify signed.p7m
    quote_words
    expect verify "and with a trusted root:" \
        answers 0 "trust       validated" cms verify signed.p7m --trusted root.pem -o content.out
    quote_words
    expect "" "the content that comes out is the original, byte for byte" cmp -s content content.out
    words=$(openssl cms -verify -binary -inform DER -in signed.p7m -CAfile root.pem -out content.theirs 2>&1 || true)
    expect openssl "'openssl cms -verify' finds signature and path good too" grep -q "Verification successful" <<<"$words"
    expect "" "and gives the same content, byte for byte" cmp -s content content.theirs
}

# flip_byte IN AT OUT: a copy with the lowest bit of the byte at AT (from 0) flipped.
flip_byte() {
    local byte
    byte=$(od -An -tu1 -j "$2" -N 1 "$1")
    cp "$1" "$3"
    printf '%b' "\\x$(printf %02x $((byte ^ 1)))" | dd of="$3" bs=1 seek="$2" conv=notrunc status=none
}

refuse_tampered_message() {
    # Where the content begins: the first OCTET STRING, as offset and header length.
    local place
    place=$({ openssl asn1parse -inform DER -in signed.p7m 2>/dev/null || true; } |
        sed -n '/OCTET STRING/{s/^ *\([0-9]*\):d=[0-9]* *hl=\([0-9]*\).*/\1 + \2/p;q}')
    flip_byte signed.p7m $((place)) tampered.p7m
    expect damage "one bit of the content flipped: refused with 22" \
        refused 22 cms verify tampered.p7m --trusted root.pem -o never.bin
    quote_words
    expect "" "a stranger instead of the root: refused with 25" \
        refused 25 cms verify signed.p7m --trusted bob.pem -o never.bin
    quote_words
    expect "" "no content was written" [ ! -e never.bin ]
}

encrypt_message() {
    "${zul[@]}" cms encrypt signed.p7m --to alice.pem --to bob.pem -o secret.p7m
    say encrypt "the signed message, for Alice and Bob: $(stat -c %s secret.p7m) bytes that say of themselves"
    answers 0 "enveloped message" cms show secret.p7m || true
    words=$(grep -E 'CountOfRecip|contentEnc|  recipientSerial' <<<"$words")
    quote_words
    "${zul[@]}" cms decrypt secret.p7m -k bob.key --password-file password -o opened.p7m
    expect decrypt "with Bob's key: the signed message again" cmp -s signed.p7m opened.p7m
    openssl cms -decrypt -binary -inform DER -in secret.p7m -recip alice.pem -inkey alice.key -passin file:password \
        -out opened.p7m
    expect openssl "'openssl cms -decrypt' with Alice's: the same bytes" cmp -s signed.p7m opened.p7m
    openssl cms -encrypt -binary -aes128 -outform DER -in signed.p7m -out theirs.p7m bob.pem
    "${zul[@]}" cms decrypt theirs.p7m -k bob.key --password-file password -o opened.p7m
    expect "" "and what 'openssl cms -encrypt' makes for Bob opens here" cmp -s signed.p7m opened.p7m
    expect "wrong key" "nobody else's key opens it: refused with 15" \
        refused 15 cms decrypt secret.p7m -k root.key --password-file password -o never.bin
    quote_words
}

pack_and_unpack() {
    "${zul[@]}" pfx make alice.pem alice.key --password-file password --name Alice -o alice.p12
    say pfx "Alice's certificate and encrypted key in one PKCS #12 file: $(stat -c %s alice.p12) bytes"
    openssl pkcs12 -in alice.p12 -passin file:password -nodes -out opened.pem 2>/dev/null
    expect openssl "'openssl pkcs12' accepts the password and finds the certificate" \
        [ "$(openssl x509 -in opened.pem)" = "$(openssl x509 -in alice.pem)" ]
    expect "" "and the key: $(openssl pkey -in opened.pem -text -noout | head -1)" \
        [ "$(openssl pkey -in opened.pem)" = "$(openssl pkey -in alice.key -passin file:password)" ]
    "${zul[@]}" pfx extract alice.p12 --password-file password --cert out.pem --key out.key
    expect extract "certificate and key come out as they went in" \
        quietly "${zul[@]}" key match --password-file password out.key alice.pem
    "${zul[@]}" random 16 --hex >wrong.password
    expect "" "the MAC is good" quietly "${zul[@]}" pfx verify alice.p12 --password-file password
    expect "" "with a wrong password: refused with 22" \
        refused 22 pfx verify alice.p12 --password-file wrong.password
    quote_words
}

# answered NAME STATUS WORDS: the responder's answer about a certificate, as the tool reads it, is in $words and has
# WORDS; the tool ends with STATUS.
answered() {
    "${zul[@]}" ocsp request --issuer inter.pem "$1.pem" -o "$1.request" &&
        openssl ocsp -reqin "$1.request" -url "http://127.0.0.1:$port" -noverify -respout "$1.response" >/dev/null 2>&1 &&
        answers "$2" "$3" ocsp read "$1.response" --issuer inter.pem --cert "$1.pem"
}
# quote_status: of a long report what it comes to.
quote_status() {
    words=$(grep -E ' (producedAt|certStatus|revocationTime) |^[a-z]+\.pem:|^zul:|It is revoked' <<<"$words" || true)
    quote_words
}
ask_responder() {
    # The responder's list: bob valid, alice revoked.
    local bob alice
    bob=$(item bob.pem serialNumber)
    alice=$(item alice.pem serialNumber)
    printf '%s\t450101000000Z\t%s\t%s\tunknown\t/CN=%s\n' V "" "${bob^^}" Bob \
        R 260102030405Z "${alice^^}" Alice >index
    openssl pkey -in inter.key -passin file:password -out responder.key
    : >responder.log
    openssl ocsp -index index -CA inter.pem -rsigner inter.pem -rkey responder.key -ndays 1 -port 0 -nrequest 2 \
        >responder.log 2>&1 &
    server=$!
    port=$(port_of responder.log)
    say ocsp "'openssl ocsp' answers for the intermediate, on port $port of this machine"
    expect "" "about Bob's certificate, with a good signature:" answered bob 0 "bob.pem: good"
    quote_status
    expect "" "about Alice's, revoked long ago in its list:" answered alice 1 " 2026-01-02T03:04:05Z"
    quote_status
    stop_server
    expect "" "an answer that another certificate should have signed: refused with 22" \
        refused 22 ocsp read bob.response --issuer root.pem
}
