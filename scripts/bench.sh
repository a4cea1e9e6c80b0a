#!/usr/bin/env bash
# bench.sh [--filter=TEXT ...]: builds and runs the benchmarks, then whole processes over large files and messages.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh
cmake --preset native >/dev/null
cmake --build --preset native --target bench zul load_module seal_process -- --quiet
build/native/bench "$@"
echo
python3 bench/whole_process.py build/native/zul
echo
python3 bench/large_crl.py build/native/zul
echo
python3 bench/whole_message.py build/native/zul
echo
python3 bench/whole_seal.py build/native/seal_process
echo
python3 bench/module_load.py build/native/libzulcore.so build/native/load_module
