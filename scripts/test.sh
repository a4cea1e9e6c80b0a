#!/usr/bin/env bash
# test.sh: sets up, builds everything and runs every check and test; the last line is CTest's summary.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"

step() {
    printf '== %s (%d s)\n' "$*" "$SECONDS"
}

step "packages"
scripts/setup.sh --all

presets=(native windows aarch64 asan tsan fuzz)
mkdir -p build
for preset in "${presets[@]}"; do
    step "build $preset"
    cmake --preset "$preset" >"build/configure-$preset.log" 2>&1 || {
        cat "build/configure-$preset.log"
        exit 1
    }
    cmake --build --preset "$preset" -- --quiet
done

# One run over all the builds.
{
    printf 'subdirs('
    printf '"%s" ' "${presets[@]}"
    printf ')\n'
} >build/CTestTestfile.cmake

step "tests"
status=0
ctest --test-dir build --output-on-failure --no-tests=error -j "$(nproc)" | tee build/ctest.log || status=$?
step "done"
grep -E '[0-9]+% tests passed' build/ctest.log
exit "$status"
