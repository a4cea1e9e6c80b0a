#!/usr/bin/env bash
# bench.sh: builds and runs the benchmarks and the whole processes, and writes docs/performance.md with its plot.
# bench.sh --filter=TEXT ...: prints the rows that contain a TEXT, and writes nothing.
# bench.sh --against FILE [--filter=TEXT ...]: compares with an earlier run (docs/performance.json is the last one that was
# kept) and names the rows that lost more than 5 per cent; status 1 if there is one.
set -euo pipefail
cd "$(dirname "$0")/.."

against=
if [ "${1:-}" = --against ]; then
    against=$(realpath "$2")
    shift 2
fi

scripts/setup.sh
[ $# -gt 0 ] || [ -n "$against" ] || scripts/setup.sh --bench
cmake --preset native >/dev/null
cmake --build --preset native --target bench zul load_module seal_process -- --quiet

# A figure is worth more where nothing else gets the processor meanwhile.
first=()
if chrt -f 50 true 2>/dev/null; then
    first=(chrt -f 50)
fi
if [ -n "$against" ]; then
    exec "${first[@]}" python3 scripts/performance.py compare build/native/bench "$against" "$@"
fi
if [ $# -gt 0 ]; then
    exec "${first[@]}" build/native/bench "$@"
fi

"${first[@]}" build/native/bench --json=build/bench.json
processes() {
    export ZUL_ALLOW_ARGUMENT_SECRETS=1
    python3 bench/whole_process.py build/native/zul
    echo
    python3 bench/large_crl.py build/native/zul
    echo
    python3 bench/whole_message.py build/native/zul
    echo
    python3 bench/whole_seal.py build/native/seal_process
    echo
    python3 bench/module_load.py build/native/libzulcore.so build/native/load_module
}
echo
processes | tee build/bench-processes.txt
/usr/bin/python3 scripts/performance.py page build/bench.json build/bench-processes.txt
