#!/usr/bin/env bash
# check.sh [format|layers|words|reference|bindings|snippets|cppcheck|tidy]: the checks of the sources, all if none is
# named.
set -uo pipefail
cd "$(dirname "$0")/.."

sources() {
    find include src tools tests bench fuzz examples bindings -name '*.[ch]' -o -name '*.cpp' -o -name '*.hpp' | sort
}

check_format() {
    # The exported header has the layout of C headers, kept by hand.
    sources | grep -v '^include/.*\.h$' | xargs clang-format --dry-run -Werror
}

check_layers() {
    python3 scripts/check_layers.py
}

check_reference() {
    python3 scripts/make_reference.py --check
}

check_bindings() {
    python3 scripts/make_bindings.py --check
}

check_snippets() {
    python3 scripts/snippets.py --check
}

check_tidy() {
    scripts/tidy.py
}

check_cppcheck() {
    # One set of definitions, the one with all kernels, as every other sees less.
    cppcheck -j "$(nproc)" --quiet --error-exitcode=1 --enable=warning,performance,portability --inline-suppr \
        --std=c++20 -Iinclude -Isrc -D__GNUC__=12 -D__ELF__ -D__x86_64__ src tools
}

check_words() {
    local found
    found=$({
        sources
        find scripts packaging cmake docs .ci README.md CMakeLists.txt -type f
        find bindings packaging -type f 2>/dev/null | grep -v /node_modules/
    } | grep -v '^scripts/check.sh$' |
        xargs grep -nE '\b(TODO|FIXME|XXX|HACK)\b|^ *# *if 0\b|DISABLED_|not implemented|unimplemented')
    if [ -n "$found" ]; then
        printf '%s\n' "$found"
        return 1
    fi
}

status=0
for check in ${1:-format layers words reference bindings snippets cppcheck tidy}; do
    if "check_$check"; then
        echo "check $check: good"
    else
        echo "check $check: FAILED"
        status=1
    fi
done
exit $status
