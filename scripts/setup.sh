#!/usr/bin/env bash
# setup.sh [--bindings | --packaging | --site | --screens | --bench | --all]: installs the Debian packages that building and
# testing the library and the tool need; --bindings: what the bindings' languages need; --packaging: what making and testing
# packages needs; --site: what the site needs; --screens: what pictures of it need; --bench: what the plot of the benchmarks
# needs; --all: all but the last two. Does nothing where all are there.
set -euo pipefail

library=(
    cmake ninja-build g++ g++-mingw-w64-x86-64-posix binutils-mingw-w64-x86-64 python3
    wine wine64 xvfb xauth xdotool imagemagick
    openssl curl gnutls-bin osslsigncode argon2 age libargon2-dev libssl-dev libcli11-dev googletest libbenchmark-dev
    openjdk-17-jre-headless
    clang-format clang clang-tidy cppcheck gcovr libclang-rt-14-dev valgrind
    python3-cryptography python3-jsonschema ca-certificates minisign
    mandoc man-db groff-base zsh fish
    g++-aarch64-linux-gnu libc6-dev-arm64-cross qemu-user
)
bindings=(
    mono-mcs mono-runtime libmono-system-core4.0-cil libmono-system-numerics4.0-cil
    python3-venv python3-wheel python3-setuptools python3-mypy
    libreoffice-calc-nogui
    fp-compiler fp-units-base fp-units-rtl fpc-source
    openjdk-17-jdk-headless libjna-java
    golang-go
)
packaging=(wixl msitools zip dpkg-dev fakeroot lintian pkg-config llvm lld)
site=(mkdocs mkdocs-material python3-pymdownx)
screens=(chromium imagemagick)
bench=(python3-matplotlib)

# Node.js often comes from elsewhere than Debian, and then with its own npm.
command -v npm >/dev/null || bindings+=(nodejs npm)

case "${1:-}" in
    "") packages=("${library[@]}") ;;
    --bindings) packages=("${bindings[@]}") ;;
    --packaging) packages=("${packaging[@]}") ;;
    --site) packages=("${site[@]}") ;;
    --bench) packages=("${bench[@]}") ;;
    --screens) packages=("${screens[@]}") ;;
    --all) packages=("${library[@]}" "${bindings[@]}" "${packaging[@]}" "${site[@]}") ;;
    *)
        echo "usage: setup.sh [--bindings | --packaging | --site | --screens | --bench | --all]" >&2
        exit 2
        ;;
esac

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
