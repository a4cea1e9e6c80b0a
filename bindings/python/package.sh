#!/bin/sh
# package.sh OUTDIR MODULE.so MODULE.dll: writes the wheels of Linux and Windows, reproducible by SOURCE_DATE_EPOCH.
set -eu
exec /usr/bin/python3 -B "$(dirname "$0")/make_wheel.py" "$@"
