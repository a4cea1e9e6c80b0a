#!/usr/bin/env bash
# csharp_test.sh SOURCES MODULE: compiles the assembly, runs its tests and examples by Mono, and looks into its package.
set -euo pipefail
csharp=$1/bindings/csharp module=$(realpath "$2")
tests=$(cd "$(dirname "$0")" && pwd)
export LC_ALL=C.UTF-8
unset ZULCORE_LIBRARY LD_LIBRARY_PATH MONO_PATH
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
fail() {
    echo "csharp: $*" >&2
    exit 1
}

# The package, twice the same. The module stands for both.
mkdir one two package
"$csharp/package.sh" one "$module" "$module" >/dev/null
"$csharp/package.sh" two "$module" "$module" >/dev/null
cmp one/*.nupkg two/*.nupkg
python3 "$tests/nupkg_test.py" one/*.nupkg package

# Programs without the assembly beside them, so that one build serves every place.
assembly=$work/package/lib/net45
compile() {
    mcs -nologo -langversion:6 -warnaserror -r:System.Core.dll -r:"$assembly/Zulcore.dll" -out:"$1" "$2"
}
compile BindingsTest.exe "$tests/BindingsTest.cs"

# Where the module is found: in the unpacked package; where the variable says; as the system does; beside the assembly, which
# goes before the variable.
found() {
    MONO_PATH=$1 mono BindingsTest.exe 2>&1
}
mkdir alone beside elsewhere
cp "$assembly/Zulcore.dll" alone
cp "$assembly/Zulcore.dll" beside
cp "$module" beside/libzulcore.so
cp "$module" elsewhere/libzulcore.so.3
[ "$(found "$assembly")" = "$(realpath package/runtimes/linux-x64/native/libzulcore.so)" ] || fail "package: $(found "$assembly")"
[ "$(ZULCORE_LIBRARY=$module found alone)" = "$module" ] || fail "variable"
[ "$(LD_LIBRARY_PATH=elsewhere found alone)" -ef elsewhere/libzulcore.so.3 ] || fail "system"
[ "$(ZULCORE_LIBRARY=$module found beside)" -ef beside/libzulcore.so ] || fail "beside"
for named in "$PWD/missing.so" elsewhere/libzulcore.so.3; do
    output=$(ZULCORE_LIBRARY=$named LD_LIBRARY_PATH=elsewhere found alone) && fail "in the stead of $named: $output"
done
output=$(found alone) && fail "a module was found: $output"
grep -q DllNotFoundException <<<"$output" || fail "without a module: $output"

export MONO_PATH=$assembly
mkdir files
mono BindingsTest.exe "$1/tests/data/bindings/vectors.txt" files || fail "tests"
for source in "$csharp"/examples/*.cs; do
    name=$(basename "$source" .cs)
    compile "$name.exe" "$source"
    mono "$name.exe" "$source" >"$name.txt" || fail "example $name"
done
[ "$(head -1 Hash.txt)" = "$(sha256sum <"$csharp/examples/Hash.cs" | cut -d' ' -f1)" ] || fail "another digest"
