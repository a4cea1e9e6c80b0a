#!/usr/bin/env bash
# package.sh OUTDIR MODULE.so MODULE.dll: zulcore-java-VERSION.tar.gz of zulcore.jar, the sources, the examples and both modules.
set -euo pipefail
out=$(cd "$1" && pwd)
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# Archives of this kind have no times before 1980.
time=${SOURCE_DATE_EPOCH:-0}
[ "$time" -ge 315619200 ] || time=315619200
javac -nowarn -g:none --release 11 -cp /usr/share/java/jna.jar -d "$work/classes" "$here"/src/zulcore/*.java
jar --create --file "$work/zulcore.jar" --date "$(date -u -d "@$time" +%Y-%m-%dT%H:%M:%SZ)" -C "$work/classes" zulcore
"$here/../package_sources.sh" "$out" java "$here" "$work/zulcore.jar" "$2" "$3"
