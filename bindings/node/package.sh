#!/bin/sh
# package.sh OUTDIR MODULE.so MODULE.dll: writes the package of npm with both modules. npm gives every file the same time,
# so that the same input gives the same bytes.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
mkdir -p "$1"
stage=$(mktemp -d)
trap 'rm -rf "$stage"' EXIT
cp -r "$here/package.json" "$here/README.md" "$here"/index.* "$here/lib" "$here/examples" "$here/../../LICENSE" "$stage/"
mkdir -p "$stage/prebuilds/linux-x64" "$stage/prebuilds/win32-x64"
install -m 755 "$2" "$stage/prebuilds/linux-x64/libzulcore.so"
install -m 644 "$3" "$stage/prebuilds/win32-x64/zulcore.dll"
packed=$(npm pack --silent --offline --ignore-scripts --pack-destination "$stage" "$stage")
mv "$stage/$packed" "$1/zulcore-node-${packed#zulcore-}"
echo "$1/zulcore-node-${packed#zulcore-}"
