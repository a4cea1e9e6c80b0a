#!/usr/bin/env bash
# coverage.sh [--report] [FOLDER...]: builds the preset "coverage", runs the tests of the library and the replays of the
# corpora in it, prints the share of lines and branches reached in each folder of src/, and writes
# build/coverage/index.html. Lists the lines and branches that are not reached in each FOLDER (src/asn1 ...).
# --report: only reports the counts of the last run.
set -euo pipefail
cd "$(dirname "$0")/.."
build=build/coverage
counts=$build/coverage.json

if [ "${1:-}" = --report ]; then
    shift
else
    cmake --preset coverage >/dev/null
    cmake --build --preset coverage -- --quiet
    find $build -name '*.gcda' -delete
    ctest --test-dir $build -j "$(nproc)" --timeout 3600 --output-on-failure \
        -R '^coverage\.(unit|api|injection|interop|ui|cryptography|cert_report|crl|fuzz\..*)$' >$build/ctest.log || {
        cat $build/ctest.log
        exit 1
    }
    # Branches by which exceptions leave are the compiler's own.
    gcovr --root . --filter src/ --exclude-throw-branches --exclude-unreachable-branches -j "$(nproc)" \
        --json $counts --html-details $build/index.html $build
fi

python3 - "$counts" "$@" <<'END'
import collections
import json
import sys

counts, folders = sys.argv[1], [f.rstrip("/") + "/" for f in sys.argv[2:]]
sums = collections.defaultdict(lambda: [0, 0, 0, 0])
for file in sorted(json.load(open(counts))["files"], key=lambda f: f["file"]):
    name = file["file"]
    text = open(name).read().splitlines()
    for line in file["lines"]:
        if line.get("gcovr/noncode"):
            continue
        branches = [b for b in line["branches"] if not b["throw"]]
        reached = sum(b["count"] > 0 for b in branches)
        for key in ("/".join(name.split("/")[:2]), "all"):
            total = sums[key]
            total[0] += line["count"] > 0
            total[1] += 1
            total[2] += reached
            total[3] += len(branches)
        if name.startswith(tuple(folders)) and (line["count"] == 0 or reached < len(branches)):
            share = f"{reached}/{len(branches)}" if line["count"] else "-"
            print(f"{name}:{line['line_number']}: {share:>5}  {text[line['line_number'] - 1].strip()}")
print(f"{'folder':<16}{'lines':>16}{'':8}{'branches':>16}")
for key, (lines, allLines, taken, branches) in sums.items():
    of = lambda part, whole: f"{part}/{whole}".rjust(16) + f"{100 * part / max(whole, 1):7.1f}%"
    print(f"{key:<16}{of(lines, allLines)}{of(taken, branches)}")
END
