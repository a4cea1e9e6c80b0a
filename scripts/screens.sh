#!/usr/bin/env bash
# screens.sh: pictures of the main pages of the site (scripts/site.sh), as a desktop and as a phone show them, in
# build/screens.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh --screens
site=$PWD/build/site
[ -f "$site/index.html" ] || scripts/site.sh
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p build/screens

# shoot FILE URL WIDTH HEIGHT
shoot() {
    chromium --headless --no-sandbox --disable-gpu --disable-quic --no-first-run --disable-background-networking \
        --disable-component-update --disable-sync --hide-scrollbars --allow-file-access-from-files \
        --user-data-dir="$work/profile" --virtual-time-budget=4000 --window-size="$3,$4" --screenshot="$1" "$2" \
        >/dev/null 2>"$work/log" || {
        cat "$work/log"
        return 1
    }
}

pages=(index cookbook/index cookbook/files reference/index reference/cert conventions coming-from old-and-new)
for page in ${*:-${pages[@]}}; do
    name=${page//\//-}
    [ -f "$site/$page.html" ] || { echo "screens: no page $page" >&2; exit 1; }
    shoot "build/screens/$name-desktop.png" "file://$site/$page.html" 1280 900
    # A window is never narrower than 500 points; a frame in it is as narrow as a phone.
    printf '<body style="margin:0"><iframe src="file://%s/%s.html" style="border:0;width:390px;height:844px"></iframe>' \
        "$site" "$page" >"$work/phone.html"
    shoot "$work/phone.png" "file://$work/phone.html" 500 844
    convert "$work/phone.png" -crop 390x844+0+0 +repage "build/screens/$name-phone.png"
    echo "screens: $name"
done
