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
            DISPLAY='' wineboot -i >"$WINEPREFIX/wineboot.log" 2>&1 9>&- || true
            wineserver -w 2>/dev/null || true
            touch "$WINEPREFIX/.ready"
        fi
    ) 9>"$WINEPREFIX/.lock"
fi

# Two programs that together start Wine's session can wait for each other for ever: one starts it for both. The
# server's socket tells that there is a session; Debian keeps it in a folder of a random name.
server=server-$(stat -c %D "$WINEPREFIX")-$(printf %x "$(stat -c %i "$WINEPREFIX")")
folder=$(cat "$WINEPREFIX/wineserver" 2>/dev/null || echo ".wine-$(id -u)")
(
    flock 9
    [ -S "/tmp/$folder/$server/socket" ] || DISPLAY='' wine cmd /c exit >/dev/null 2>&1 </dev/null 9>&- || true
) 9>"$WINEPREFIX/.lock"

# Wine needs the page 0x7ffe0000 in every process and gives up, with status 1 and without a word, where the system has
# put something else there: once in some ten thousand starts with addresses at random, never without.
fixed="setarch $(uname -m) -R"
$fixed true 2>/dev/null || fixed=''
exec $fixed wine "$@"
