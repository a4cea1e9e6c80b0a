#!/usr/bin/env bash
# endurance.sh [MINUTES [SEED]]: the long runs of tests/endurance, fuzz/calls and tests/module, one after the other, on the
# builds native and windows: a million mixed calls, random calls for so many minutes (30) on each module, 10,000 loads of the
# DLL. What the test run does of these takes seconds.
set -euo pipefail
cd "$(dirname "$0")/.."
minutes=${1:-30}
seed=${2:-$RANDOM}
work=build/endurance
rm -rf "$work"
mkdir -p "$work"

step() {
    printf '== %s\n' "$*"
    (cd "$work" && "$@") || {
        echo "FAILED"
        exit 1
    }
}

root=$PWD
export DISPLAY=
step "$root/build/native/mixed_calls" 1000000
step "$root/build/native/random_calls" "$seed" "$((minutes * 60))"
step "$root/scripts/wine.sh" "$root/build/windows/load_module.exe" "$root/build/windows/zulcore.dll" cycle 10000
step "$root/scripts/wine.sh" "$root/build/windows/random_calls.exe" "$seed" "$((minutes * 60))"
