#!/usr/bin/env bash
# pascal_test.sh ROOT MODULE [WINE]: compiles bindings/pascal, its tests and examples, and runs them; with WINE for
# Windows, with a run-time library compiled here from the sources of Debian's package fpc-source.
set -euo pipefail
root=$1 module=$2 wine=${3:-}
mkdir -p bin units temp
export TEMP=$PWD/temp TMP=$PWD/temp TMPDIR=$PWD/temp
options=(-Mdelphi -O1 -FEbin -FUunits "-Fu$root/bindings/pascal")
if [ -n "$wine" ]; then
    "$root/bindings/pascal/tests/pascal_rtl.sh" "$PWD/rtl"
    cp "$module" bin/zulcore.dll
    options=(-n -Twin64 -Furtl "${options[@]}")
    suffix=.exe
else
    options+=("-Fl$(dirname "$module")" "-k-rpath=$(dirname "$module")")
    suffix=
fi

compile() {
    ppcx64 "${options[@]}" -vew "$1" >compile.log || {
        cat compile.log
        exit 1
    }
}
run() {
    local program=$1
    shift
    ${wine:+"$wine"} "bin/$program$suffix" "$@"
}

for source in "$root"/bindings/pascal/tests/bindings_test.pas "$root"/bindings/pascal/examples/*.pas; do
    compile "$source"
done
run bindings_test "${wine:+Z:}$root/tests/data/bindings/vectors.txt"

printf abc >message
[ "$(run hash message | tr -d '\r')" = ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad ]
run seal message
run certificate | grep -q 'CN=www.example.com, www.example.com'
run sign | grep -q 'good signature by public ed25519 key of 256 bits'
run error | grep -q 'no such file: OPEN_ERROR (1)'
