#!/usr/bin/env bash
# package.sh OUTDIR MODULE.so MODULE.dll: zulcore-go-VERSION.tar.gz of the packages, the examples, the header and both modules.
set -euo pipefail
out=$(cd "$1" && pwd)
here=$(cd "$(dirname "$0")" && pwd)
"$here/../package_sources.sh" "$out" go "$here" "$here/../../include/zulcore.h" "$2" "$3"
