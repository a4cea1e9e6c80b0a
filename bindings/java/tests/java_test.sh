#!/usr/bin/env bash
# java_test.sh ROOT MODULE: compiles bindings/java, its tests and examples, and runs them.
set -euo pipefail
root=$1
export ZULCORE_LIBRARY=$2
jna=/usr/share/java/jna.jar
rm -rf classes
javac -Xlint:all,-try -Werror -cp "$jna" -d classes "$root"/bindings/java/src/zulcore/*.java \
    "$root"/bindings/java/examples/*.java "$root"/bindings/java/tests/*.java
run() {
    java -XX:TieredStopAtLevel=1 -Xshare:auto -cp "classes:$jna" "$@"
}
run BindingsTest "$root/tests/data/bindings/vectors.txt"

printf abc >message
[ "$(run Hash message)" = ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad ]
run Seal message
run Certificate | grep -q 'CN=www.example.com, www.example.com'
run Sign | grep -q 'good signature by public ed25519 key of 256 bits'
run Error | grep -q 'no such file: OPEN_ERROR (1)'

# A module beside the classes goes before the variable.
cp "$ZULCORE_LIBRARY" libzulcore.so
ZULCORE_LIBRARY=/nowhere run Hash message >/dev/null
rm libzulcore.so
