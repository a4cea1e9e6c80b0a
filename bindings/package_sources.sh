#!/usr/bin/env bash
# package_sources.sh OUTDIR LANGUAGE FOLDER FILE...: zulcore-LANGUAGE-VERSION.tar.gz, a reproducible archive of a binding that
# is handed out as sources, without its tests and this project's own scripts, together with modules and other files. All have
# the time SOURCE_DATE_EPOCH.
set -euo pipefail
version=$(sed -n 's/^project(zulcore VERSION \([0-9.]*\) .*/\1/p' "$(dirname "$0")/../CMakeLists.txt")
name=zulcore-$2-${version:?}
archive=$1/$name.tar.gz folder=$(cd "$3" && pwd)
shift 3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp -r "$folder" "$work/$name"
rm -rf "$work/$name/tests" "$work/$name/package.sh" "$work/$name"/*.hand.bas
cp "$(dirname "$0")/../LICENSE" "$work/$name/"
for module in "$@"; do
    soname=
    [[ $module != *.so* ]] || soname=$(objdump -p "$module" | sed -n 's/^ *SONAME *//p')
    cp "$module" "$work/$name/${soname:-$(basename "$module")}"
    # What links the module asks for it by its SONAME, what loads it by the plain name.
    [ -z "$soname" ] || ln -s "$soname" "$work/$name/libzulcore.so"
done
chmod -R u=rwX,go=rX "$work/$name"
tar --sort=name --owner=0 --group=0 --numeric-owner --mtime="@${SOURCE_DATE_EPOCH:-0}" -C "$work" -cf - "$name" |
    gzip -n >"$archive"
