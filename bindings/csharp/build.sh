#!/usr/bin/env bash
# build.sh OUTDIR: compiles Zulcore.dll, with Zulcore.xml of the descriptions of its members.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
mcs -nologo -target:library -langversion:6 -warn:4 -warnaserror -deterministic -optimize -r:System.Core.dll \
    -doc:"$1/Zulcore.xml" -out:"$1/Zulcore.dll" "$here"/src/*.cs
