#!/usr/bin/env bash
# package.sh OUTDIR MODULE.so MODULE.dll: zulcore-pascal-VERSION.tar.gz of the units, the examples and both modules.
set -euo pipefail
out=$(cd "$1" && pwd)
"$(dirname "$0")/../package_sources.sh" "$out" pascal "$(dirname "$0")" "$2" "$3"
