#!/usr/bin/env bash
# setup.sh: installs the Debian packages that building and testing need. Does nothing where all are there.
set -euo pipefail

packages=(
    cmake ninja-build g++ g++-mingw-w64-x86-64-posix binutils-mingw-w64-x86-64 python3
    wine wine64 xvfb xauth xdotool imagemagick
    openssl curl gnutls-bin osslsigncode argon2 age libargon2-dev libssl-dev libcli11-dev googletest libbenchmark-dev
    openjdk-17-jre-headless
    clang-format clang libclang-rt-14-dev valgrind python3-cryptography ca-certificates minisign
)

missing=()
for package in "${packages[@]}"; do
    status=$(dpkg-query -W -f '${Status}' "$package" 2>/dev/null || true)
    [ "$status" = "install ok installed" ] || missing+=("$package")
done
if [ ${#missing[@]} -eq 0 ]; then
    exit 0
fi

echo "setup: installing ${missing[*]}"
as_root=()
if [ "$(id -u)" -ne 0 ]; then
    as_root=(sudo)
fi
apt() {
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -o DPkg::Lock::Timeout=120 -o Acquire::Retries=3 "$@"
}
retry() {
    "$@" || { sleep 5; "$@"; }
}
retry apt update
retry apt install -y --no-install-recommends "${missing[@]}"
