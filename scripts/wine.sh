#!/bin/sh
# wine.sh PROGRAM [ARGUMENT...]: runs a Windows program under Wine, in a prefix of this project's own.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
WINEPREFIX=${ZUL_WINEPREFIX:-$root/build/wine}
WINEDEBUG=${WINEDEBUG:--all}
export WINEPREFIX WINEDEBUG

if [ ! -e "$WINEPREFIX/.ready" ]; then
    mkdir -p "$WINEPREFIX"
    # Several tests may start at once; one makes the prefix.
    (
        flock 9
        if [ ! -e "$WINEPREFIX/.ready" ]; then
            DISPLAY='' wineboot -i >"$WINEPREFIX/wineboot.log" 2>&1 || true
            wineserver -w 2>/dev/null || true
            touch "$WINEPREFIX/.ready"
        fi
    ) 9>"$WINEPREFIX/.lock"
fi
exec wine "$@"
