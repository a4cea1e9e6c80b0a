#!/usr/bin/env bash
# package.sh OUTDIR MODULE.so MODULE.dll: zulcore-vba-VERSION.tar.gz of the module, the examples and zulcore.dll.
set -euo pipefail
out=$(cd "$1" && pwd)
"$(dirname "$0")/../package_sources.sh" "$out" vba "$(dirname "$0")" "$3"
