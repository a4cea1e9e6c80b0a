#!/usr/bin/env bash
# pascal_rtl.sh FOLDER: compiles Free Pascal's run-time library for 64-bit Windows from the sources of Debian's package
# fpc-source into a folder; Debian has no such package. Does nothing where it is there.
set -euo pipefail
folder=$1
[ ! -e "$folder/.ready" ] || exit 0
source=$(echo /usr/share/fpcsrc/*/rtl)
mkdir -p "$folder"
options=(-n -Twin64 -O2 -Sg -v0e "-FU$folder" "-FE$folder")
for part in win win/wininc inc x86_64 win64 objpas objpas/sysutils objpas/classes charmaps; do
    options+=("-Fi$source/$part" "-Fu$source/$part")
done
{
    ppcx64 "${options[@]}" -Us "$source/win64/system.pp"
    ppcx64 "${options[@]}" "$source/objpas/objpas.pp"
    ppcx64 "${options[@]}" "$source/win64/buildrtl.pp"
} >"$folder/compile.log" 2>&1 || {
    cat "$folder/compile.log"
    exit 1
}
touch "$folder/.ready"
