#!/usr/bin/env bash
# package.sh [OPTION...]: makes the packages for Debian, other Linux systems and Windows, with their sums, from builds of
# its own. The same sources give the same bytes, whenever and wherever they are built by the same compilers.
#   --from NATIVE WINDOWS   packages these two build folders instead
#   --to FOLDER             an empty or new folder, instead of build/packages, which is emptied
#   --sign KEY CERT         signs DLL, tool and installer for Windows with a PEM key and certificate (osslsigncode); the
#                           file that ZUL_SIGN_PASSWORD_FILE names has the key's password
#   --no-bindings           leaves out the packages of the bindings
#   --twice                 does it all once more from a copy of the sources in another folder, and compares
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)

usage() {
    sed -n '2,/^set /{/^#/s/^# \{0,1\}//p}' "$0"
    exit "$1"
}
native="" windows="" out="" key="" certificate="" bindings=yes twice=""
while [ $# -gt 0 ]; do
    case $1 in
        --from)
            [ $# -ge 3 ] || usage 2 >&2
            native=$(realpath -e -- "$2") windows=$(realpath -e -- "$3")
            shift 2
            ;;
        --to)
            [ $# -ge 2 ] || usage 2 >&2
            out=$(realpath -m -- "$2")
            shift
            ;;
        --sign)
            [ $# -ge 3 ] || usage 2 >&2
            key=$(realpath -e -- "$2") certificate=$(realpath -e -- "$3")
            shift 2
            ;;
        --no-bindings) bindings="" ;;
        --twice) twice=yes ;;
        --help) usage 0 ;;
        *) usage 2 >&2 ;;
    esac
    shift
done
cd "$root"
if [ -n "$twice" ] && [ -n "$native" ]; then
    echo "package: --twice compares builds of its own, and --from names others" >&2
    exit 2
fi
if [ -z "$out" ]; then
    out=$root/build/packages
    rm -rf "$out"
elif [ -n "$(ls -A "$out" 2>/dev/null)" ]; then
    echo "package: $out is not empty" >&2
    exit 2
fi
mkdir -p "$out"

version=$(sed -n 's/^project(zulcore VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt)
SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct 2>/dev/null || stat -c %Y CMakeLists.txt)}
# What is made must not depend on who makes it. A cache of compilations may bring back the date of an older one.
export SOURCE_DATE_EPOCH LC_ALL=C TZ=UTC CCACHE_DISABLE=1
umask 022
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# build NAME [ARGUMENT...]: a build for packages, in build/package/NAME.
build() {
    local name=$1
    shift
    echo "package: building $name"
    mkdir -p build/package
    {
        cmake -G Ninja -S . -B "build/package/$name" -DCMAKE_BUILD_TYPE=Release -DZUL_BUILD_TESTS=OFF \
            -DCMAKE_C_FLAGS="-ffile-prefix-map=$root=." -DCMAKE_CXX_FLAGS="-ffile-prefix-map=$root=." "$@" &&
            cmake --build "build/package/$name"
    } >"build/package/$name.log" 2>&1 || {
        tail -40 "build/package/$name.log"
        exit 1
    }
}

# stage BUILD NAME: what the build installs, in a folder of that name, all of one date.
stage() {
    cmake --install "$1" --prefix "$work/$2" >"$work/install.log" || {
        cat "$work/install.log"
        exit 1
    }
    rm -f "$1/install_manifest.txt"
}
one_date() {
    find "$1" -type d -empty -delete
    find "$1" -print0 | xargs -0 touch -h -d "@$SOURCE_DATE_EPOCH"
}

# notices TREE PACKAGE...: the licences of what others wrote and is linked in, as its Debian packages have them.
notices() {
    local file=$work/$1/NOTICES.txt package
    shift
    echo "Linked into the programs here are parts of what these packages of Debian hold." >"$file"
    for package in "$@"; do
        printf '\n==== %s %s\n\n' "$package" "$(dpkg-query -W -f '${Version}' "$package")"
        cat "/usr/share/doc/$package/copyright"
    done >>"$file"
}
# sign IN OUT: with the time of the sources in place of the present one.
sign() {
    osslsigncode sign -certs "$certificate" -key "$key" ${ZUL_SIGN_PASSWORD_FILE:+-readpass "$ZUL_SIGN_PASSWORD_FILE"} \
        -h sha256 -n zulcore -time "$SOURCE_DATE_EPOCH" -in "$1" -out "$2" >"$work/sign.log" 2>&1 || {
        cat "$work/sign.log"
        exit 1
    }
}
sign_in_place() {
    sign "$1" "$work/signed"
    chmod --reference="$1" "$work/signed"
    mv "$work/signed" "$1"
}

if [ -z "$native" ]; then
    scripts/setup.sh
    scripts/setup.sh --packaging
    [ -z "$bindings" ] || scripts/setup.sh --bindings
    build native
    build windows --toolchain cmake/mingw-w64.cmake
    native=$root/build/package/native windows=$root/build/package/windows
fi

echo "package: Linux"
linuxName=zulcore-$version-linux-x86_64
stage "$native" "$linuxName"
mv "$work/$linuxName/share/doc/zulcore/LICENSE" "$work/$linuxName/LICENSE"
notices "$linuxName" libcli11-dev gcc-12-base
one_date "$work/$linuxName"
tar --sort=name --owner=0 --group=0 --numeric-owner --format=gnu -C "$work" -cf - "$linuxName" |
    gzip -9n >"$out/$linuxName.tar.gz"
packaging/deb.sh "$work/$linuxName" "$version" "$out"

echo "package: Windows"
windowsName=zulcore-$version-windows-x86_64
stage "$windows" "$windowsName"
mv "$work/$windowsName/doc/LICENSE" "$work/$windowsName/LICENSE.txt"
notices "$windowsName" libcli11-dev mingw-w64-x86-64-dev gcc-mingw-w64-base
if [ -n "$key" ]; then
    sign_in_place "$work/$windowsName/bin/zulcore.dll"
    sign_in_place "$work/$windowsName/bin/zul.exe"
fi
one_date "$work/$windowsName"
(cd "$work" && find "$windowsName" -type f | sort | zip -X -q -9 "$out/$windowsName.zip" -@)
installer=$out/zulcore-$version-x64.msi
packaging/msi.py "$work/$windowsName" "$version" "$installer"
[ -z "$key" ] || sign_in_place "$installer"

mkdir "$work/languages"
if [ -n "$bindings" ]; then
    for script in bindings/*/package.sh; do
        [ -e "$script" ] || continue
        echo "package: $(basename "$(dirname "$script")")"
        "$script" "$work/languages" "$work/$linuxName/lib/libzulcore.so" "$work/$windowsName/bin/zulcore.dll"
    done
fi
packaging/cdx.py --version "$version" --linux "$work/$linuxName" --windows "$work/$windowsName" \
    --languages "$work/languages" >"$out/zulcore-$version.cdx.json"
find "$work/languages" -type f -exec mv -t "$out" {} +

(cd "$out" && find . -maxdepth 1 -type f -printf '%P\n' | sort | xargs -d '\n' sha256sum >"$work/sums" && mv "$work/sums" SHA256SUMS)
chmod 644 "$out"/*
ls -l "$out"

if [ -n "$twice" ]; then
    echo "package: once more, in another folder"
    again=$work/a/copy/of/zulcore
    mkdir -p "$again"
    tar --exclude=./build --exclude=./.git -cf - . | tar -C "$again" -xf -
    same=(--to "$work/again")
    [ -z "$key" ] || same+=(--sign "$key" "$certificate")
    [ -n "$bindings" ] || same+=(--no-bindings)
    "$again/scripts/package.sh" "${same[@]}" >"$work/again.log" || {
        cat "$work/again.log"
        exit 1
    }
    diff -r "$out" "$work/again"
    echo "package: both times the same, byte for byte"
fi
