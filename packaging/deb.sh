#!/usr/bin/env bash
# deb.sh TREE VERSION OUT: makes the two Debian packages of an installed tree: zulcore and zulcore-dev.
set -euo pipefail
tree=$1 version=$2 out=$3
here=$(cd "$(dirname "$0")" && pwd)
machine=lib/x86_64-linux-gnu
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# take PACKAGE FROM TO: moves a file or folder of the tree into a package, to a folder below its /usr.
cp -a "$tree" "$work/tree"
take() {
    mkdir -p "$work/$1/usr/$3"
    # A pattern may match nothing: what one build has made another may lack.
    for item in "$work/tree"/$2; do
        if [ -e "$item" ] || [ -L "$item" ]; then
            mv "$item" "$work/$1/usr/$3/"
        fi
    done
}
take zulcore bin/zul bin
take zulcore 'lib/libzulcore.so.*' $machine
take zulcore share/man share
take zulcore share/bash-completion share
take zulcore 'share/zsh/site-functions/*' share/zsh/vendor-completions
take zulcore share/fish share
take zulcore-dev include .
take zulcore-dev lib/libzulcore.so $machine
take zulcore-dev lib/cmake $machine
take zulcore-dev lib/pkgconfig $machine
take zulcore-dev 'share/doc/zulcore/*' share/doc/zulcore-dev
take zulcore NOTICES.txt share/doc/zulcore
rm "$work/tree/LICENSE"
left=$(find "$work/tree" ! -type d)
[ -z "$left" ] || {
    printf 'deb: no package takes this:\n%s\n' "$left" >&2
    exit 1
}
# One folder deeper than in the tree.
sed -i 's|^prefix=.*|&/..|' "$work/zulcore-dev/usr/$machine/pkgconfig/zulcore.pc"
find "$work/zulcore/usr" -path '*/man/*' -name '*.1' -exec gzip -9n {} +

# The versions of other libraries that the programs need.
mkdir -p "$work/debian"
printf 'Source: zulcore\n\nPackage: zulcore\nArchitecture: amd64\n' >"$work/debian/control"
depends=$(cd "$work" && dpkg-shlibdeps -O --ignore-missing-info "-l$work/zulcore/usr/$machine" \
    zulcore/usr/bin/zul zulcore/usr/$machine/libzulcore.so."$version" 2>/dev/null | sed 's/^shlibs:Depends=//')

for package in zulcore zulcore-dev; do
    folder=$work/$package doc=$work/$package/usr/share/doc/$package
    mkdir -p "$doc" "$folder/DEBIAN" "$folder/usr/share/lintian/overrides"
    { sed '/^@LICENSE@$/,$d' "$here/debian/copyright.in" && sed -n '/^Permission/,$ { s/^$/./; s/^/ /; p }' "$tree/LICENSE"; } >"$doc/copyright"
    sed -e "s/@VERSION@/$version/" -e "s/@DATE@/$(date -u -R -d "@$SOURCE_DATE_EPOCH")/" "$here/debian/changelog.in" |
        gzip -9n >"$doc/changelog.gz"
    if [ -e "$here/debian/$package.overrides" ]; then
        cp "$here/debian/$package.overrides" "$folder/usr/share/lintian/overrides/$package"
    fi
    find "$folder" -type d -empty ! -name DEBIAN -delete
    find "$folder" -type d -exec chmod 755 {} + -o -type f -exec chmod 644 {} +
    [ ! -d "$folder/usr/bin" ] || chmod 755 "$folder"/usr/bin/*

    (cd "$folder" && find usr -type f | sort | xargs -d '\n' md5sum >DEBIAN/md5sums)
    size=$(find "$folder/usr" -type f -printf '%s\n' | awk '{ kib += int(($1 + 1023) / 1024) } END { print kib }')
    sed -e "s/@VERSION@/$version/" -e "s/@SIZE@/$size/" -e "s/@DEPENDS@/$depends/" "$here/debian/$package.control.in" \
        >"$folder/DEBIAN/control"
    if [ "$package" = zulcore ]; then
        echo "libzulcore ${version%%.*} zulcore (>= $version)" >"$folder/DEBIAN/shlibs"
        echo "activate-noawait ldconfig" >"$folder/DEBIAN/triggers"
    fi
    find "$folder" -print0 | xargs -0 touch -h -d "@$SOURCE_DATE_EPOCH"
    # One thread: how xz cuts the data depends on their number.
    dpkg-deb --build --root-owner-group -Zxz --threads-max=1 "$folder" "$out/${package}_${version}_amd64.deb" >/dev/null
done
