#!/usr/bin/env bash
# package.sh OUTDIR MODULE.so MODULE.dll: zulcore-vba.tar.gz of the module, the examples and zulcore.dll.
set -euo pipefail
out=$(cd "$1" && pwd)
"$(dirname "$0")/../package_sources.sh" "$out/zulcore-vba.tar.gz" "$(dirname "$0")" "$3"
