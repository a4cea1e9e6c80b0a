#!/usr/bin/env bash
# package.sh OUTDIR MODULE.so MODULE.dll: compiles the assembly and writes zulcore.VERSION.nupkg with both modules. The same
# input gives the same bytes: times are SOURCE_DATE_EPOCH, or 1980.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
out=$(cd "$1" && pwd)
linux=$(realpath "$2")
windows=$(realpath "$3")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$here/build.sh" "$work"
python3 "$here/make_nupkg.py" "$out" "$work/Zulcore.dll" "$work/Zulcore.xml" "$linux" "$windows"
