#!/usr/bin/env bash
# demo.sh [FILE]: sets up, builds, and does the tool's main work on a real file (the built module unless one is
# named): once natively and once as a Windows program under Wine. Exits nonzero if anything was not as it should be.
set -euo pipefail
file=$(realpath -e -- "${1:-/dev/null}")
if [ $# -gt 0 ] && [ ! -f "$file" ]; then
    echo "demo: '$1' is not a file" >&2
    exit 2
fi
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"

failures=0
say() { printf '  %-10s %s\n' "$1" "$2"; }
# expect SUBJECT TEXT COMMAND...: says whether the command was true.
expect() {
    local subject=$1 text=$2
    shift 2
    if "$@"; then
        say "$subject" "$text"
    else
        say "$subject" "WRONG: not so: $text"
        failures=$((failures + 1))
    fi
}
# refused CODE ARGUMENT...: the tool ends with status 1 and names that error code. Its words stay in $words.
refused() {
    local code=$1 status=0
    shift
    words=$("${zul[@]}" "$@" 2>&1 >/dev/null) || status=$?
    [ "$status" -eq 1 ] && [[ $words == *": error $code: "* ]]
}
quote_words() { printf '%s\n' "$words" | sed "s/^/  $(printf '%10s' '')   | /"; }
quietly() { "$@" >/dev/null; }
differs() { ! cmp -s "$1" "$2"; }
hex_of() { od -An -v -tx1 "$1" | tr -d ' \n'; }
# flip_bit HEX INDEX: the hex text with the top bit of the byte at INDEX (from 0) flipped.
flip_bit() { printf '%s%02x%s' "${1:0:$((2 * $2))}" $((0x${1:$((2 * $2)):2} ^ 0x80)) "${1:$((2 * $2 + 2))}"; }

show_digests() {
    local alg ours theirs
    for alg in md5 sha1 sha224 sha256 sha384 sha512; do
        ours=$("${zul[@]}" hash "$alg" "$input" | cut -d' ' -f1)
        theirs=$("${alg}sum" <"$file" | cut -d' ' -f1)
        say "$alg" "$ours"
        expect "${alg}sum" "$theirs: equal" [ "$ours" = "$theirs" ]
    done
}

encrypt_and_decrypt() {
    "${zul[@]}" random 32 aes.key
    iv=$("${zul[@]}" random 16 --hex)
    cipher=(-a aes-256-cbc --key-file aes.key --iv "$iv")
    "${zul[@]}" encrypt "${cipher[@]}" "$input" secret.bin
    expect encrypt "AES-256-CBC under a random key: $(stat -c %s secret.bin) bytes that differ from the original" \
        differs "$file" secret.bin
    "${zul[@]}" decrypt "${cipher[@]}" secret.bin plain.bin
    expect decrypt "gives the original back, byte for byte" cmp -s "$file" plain.bin
    openssl enc -d -aes-256-cbc -K "$(hex_of aes.key)" -iv "$iv" -in secret.bin -out openssl.bin
    expect openssl "'openssl enc -d' decrypts it to the original too" cmp -s "$file" openssl.bin
}

refuse_damage() {
    head -c -1 secret.bin >damaged.bin
    expect damage "last byte cut off: refused with 26" refused 26 decrypt "${cipher[@]}" damaged.bin never.bin
    quote_words

    # The top bit of the block before the last one's last byte is the top bit of the pad's last byte, which is
    # 1 to 16: this change is always seen. In a file of one block that byte is the IV's.
    local size at byte
    size=$(stat -c %s secret.bin)
    cp secret.bin damaged.bin
    if [ "$size" -gt 16 ]; then
        at=$((size - 17))
        byte=$(od -An -tu1 -j "$at" -N 1 secret.bin)
        printf '%b' "\\x$(printf %02x $((byte ^ 0x80)))" | dd of=damaged.bin bs=1 seek="$at" conv=notrunc status=none
        expect damage "one bit flipped near the end: refused with 15" \
            refused 15 decrypt "${cipher[@]}" damaged.bin never.bin
    else
        expect damage "one bit of the IV flipped: refused with 15" \
            refused 15 decrypt -a aes-256-cbc --key-file aes.key --iv "$(flip_bit "$iv" 15)" secret.bin never.bin
    fi
    quote_words
    expect "" "no output file was left behind" [ ! -e never.bin ]
}

# A wrong key fails at the pad, except that about one in 256 finds a good pad by chance: then the content is what
# shows it. So wrong keys are tried until one is refused.
refuse_wrong_key() {
    local byte wrong
    for byte in {0..31}; do
        wrong=$(flip_bit "$(hex_of aes.key)" "$byte")
        printf '%s\n' "$wrong" >wrong.key
        if refused 15 decrypt -a aes-256-cbc --key-file wrong.key --iv "$iv" secret.bin wrong.bin; then
            say "wrong key" "one bit of the key wrong: refused with 15"
            quote_words
            return
        fi
        expect "wrong key" "a wrong key hit upon a good pad (chance 1 in 256); the content differs; try another" \
            differs "$file" wrong.bin
    done
    expect "wrong key" "is refused" false
}

wrap_key() {
    "${zul[@]}" random 32 master.key
    "${zul[@]}" wrap -a aes-256 --kek-file master.key -o aes.wrapped aes.key
    expect wrap "the key under a master key: $(stat -c %s aes.wrapped) bytes" [ "$(stat -c %s aes.wrapped)" -eq 40 ]
    "${zul[@]}" unwrap -a aes-256 --kek-file master.key -o again.key aes.wrapped
    expect unwrap "gives the key back" cmp -s aes.key again.key
    expect "" "under another master key: refused with 1" refused 1 unwrap -a aes-256 --kek-file aes.key aes.wrapped
    quote_words
}

seal_file() {
    local recipient
    recipient=$("${zul[@]}" identity my.key)
    "${zul[@]}" seal -r "$recipient" "$input" sealed.age
    expect seal "for $recipient: $(stat -c %s sealed.age) bytes" differs "$file" sealed.age
    "${zul[@]}" open -i my.key sealed.age opened.bin
    expect open "gives the original back, byte for byte" cmp -s "$file" opened.bin
    age -d -i my.key -o age.bin sealed.age
    expect age "'age -d' opens it to the original too" cmp -s "$file" age.bin
    age -r "$recipient" <"$file" >theirs.age
    "${zul[@]}" open -i my.key theirs.age opened.bin
    expect "" "and what 'age -r' makes opens here" cmp -s "$file" opened.bin
    head -c -1 sealed.age >damaged.bin
    expect damage "last byte cut off: refused with 15" refused 15 open -i my.key damaged.bin never.bin
    quote_words
}

make_keys() {
    local search
    "${zul[@]}" random 16 --hex >password
    search=$("${zul[@]}" key make --progress -f pem-alt --password-file password public.pem private.pem 2>&1) || {
        printf '%s\n' "$search" >&2
        return 1
    }
    say "key pair" "RSA, 2048 bits; the search for its primes:"
    printf '%s\n' "${search:-(shown in a console, of which there is none here)}" | tr -d '\r' | fold -w 90 |
        sed "s/^/  $(printf '%10s' '')   | /"
    expect "" "the private key, encrypted with AES-256, and the public one are a pair" \
        quietly "${zul[@]}" key match --password-file password private.pem public.pem
    expect openssl "'openssl pkey -check' finds the private key valid too" \
        quietly openssl pkey -in private.pem -passin file:password -check -noout
}

sign_and_verify() {
    "${zul[@]}" sign -k private.pem --password-file password "$input" file.sig
    say sign "SHA-256 of the file, signed: $(stat -c %s file.sig) bytes"
    expect verify "the signature is good" quietly "${zul[@]}" verify -k public.pem "$input" file.sig
    expect openssl "'openssl dgst -verify' finds it good too" \
        quietly openssl dgst -sha256 -verify public.pem -signature file.sig "$file"
    { cat "$file" && printf x; } >damaged.bin
    expect damage "a file with one byte more: refused with 22" refused 22 verify -k public.pem damaged.bin file.sig
    quote_words
}

sign_on_curves() {
    local type verify
    for type in ed25519 p-256; do
        "${zul[@]}" key make --type "$type" --password-file password "$type.pub" "$type.pem"
        "${zul[@]}" sign -k "$type.pem" --password-file password "$input" file.sig
        say "$type" "a key pair, and the file signed with it: $(stat -c %s file.sig) bytes"
        expect verify "the signature is good" quietly "${zul[@]}" verify -k "$type.pub" "$input" file.sig
        expect damage "a file with one byte more: refused with 22" refused 22 verify -k "$type.pub" damaged.bin file.sig
        verify=(dgst -sha256 -verify "$type.pub" -signature file.sig "$file")
        [ "$type" = p-256 ] || verify=(pkeyutl -verify -rawin -pubin -inkey "$type.pub" -sigfile file.sig -in "$file")
        [ -s "$file" ] || [ "$type" = p-256 ] || continue # 'openssl pkeyutl' takes no empty file
        expect openssl "'openssl ${verify[0]} -verify' finds it good too" quietly openssl "${verify[@]}"
    done
}

. "$root/scripts/demo_certificates.sh"
. "$root/scripts/demo_messages.sh"

wipe_all() {
    local count
    count=$(ls | wc -l)
    "${zul[@]}" wipe *
    expect wipe "$count temporary files overwritten and deleted; none is left" [ -z "$(ls -A)" ]
}

# demonstrate TITLE INPUT COMMAND...: INPUT is the file's name as that tool spells it.
demonstrate() {
    local title=$1
    input=$2
    shift 2
    zul=("$@")
    printf '\n%s: %s\n' "$title" "$("${zul[@]}" version | awk 'NR == 1 { name = $0 } /platform/ { print name, $2 }')"
    say file "$file ($(stat -c %s "$file") bytes)"
    show_digests
    encrypt_and_decrypt
    refuse_damage
    refuse_wrong_key
    wrap_key
    seal_file
    make_keys
    sign_and_verify
    sign_on_curves
    make_certificates
    check_certificates
    revoke_certificate
    serve_tls
    sign_message
    refuse_tampered_message
    encrypt_message
    pack_and_unpack
    ask_responder
    wipe_all
}

scripts/setup.sh
for preset in native windows; do
    echo "building $preset ..."
    mkdir -p build
    { cmake --preset "$preset" && cmake --build --preset "$preset" --target zul; } >"build/demo-$preset.log" 2>&1 || {
        cat "build/demo-$preset.log"
        exit 1
    }
done

work=$(mktemp -d "$root/build/demo.XXXXXX")
trap 'stop_server; rm -rf "$work"' EXIT
cd "$work"
[ $# -gt 0 ] || file=$(realpath "$root/build/native/libzulcore.so")
demonstrate "Linux" "$file" "$root/build/native/zul"
[ $# -gt 0 ] || file=$root/build/windows/zulcore.dll
demonstrate "Windows, under Wine" "Z:$file" "$root/scripts/wine.sh" "$root/build/windows/zul.exe"

echo
if [ "$failures" -gt 0 ]; then
    echo "demo: $failures things were not as they should be"
    exit 1
fi
echo "demo: everything as it should be"
