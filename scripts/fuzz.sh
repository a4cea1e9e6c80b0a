#!/usr/bin/env bash
# fuzz.sh TARGET|all MINUTES: searches with libFuzzer under AddressSanitizer and UndefinedBehaviorSanitizer for so many
# minutes of processor time per target, from fuzz/corpus/TARGET; a line for each target, status 1 after a find.
# fuzz.sh --minimise TARGET|all: adds to fuzz/corpus/TARGET what the searches have kept and its seeds do not cover, in
# as few files as reach it, which are named by their digests, and takes away those that others replace.
# Results lie in build/fuzz: kept/TARGET (inputs that reached something new), finds/TARGET, logs/TARGET.log.
set -euo pipefail
cd "$(dirname "$0")/.."
build=build/fuzz
most_files=60 most_bytes=200000
digest_name='.*/'$(printf '[0-9a-f]%.0s' {1..40})

usage() {
    sed -n '2,6s/^# //p' "$0" >&2
    exit 2
}

targets() {
    if [ "$1" = all ]; then
        find fuzz -maxdepth 1 -name '*_fuzz.cpp' -printf '%f\n' | sed 's/_fuzz\.cpp$//' | sort
    elif [ -f "fuzz/$1_fuzz.cpp" ]; then
        printf '%s\n' "$1"
    else
        echo "fuzz.sh: no fuzz/$1_fuzz.cpp" >&2
        exit 2
    fi
}

build_targets() {
    [ -f $build/build.ninja ] || cmake --preset fuzz >/dev/null
    ninja -C $build --quiet "${@/%/_fuzz}"
}

# ticks PID: the processor time that a process has used so far, in ticks of the kernel.
ticks() {
    awk '{sub(/.*\) /, ""); print $12 + $13}' "/proc/$1/stat" 2>/dev/null || true
}

# search_once TARGET TICKS: one run of the search, which a find ends; sets used, executions and edges.
search_once() {
    local target=$1 most=$2 log=$build/logs/$1.log now pid status=0
    $build/"${target}_fuzz" -timeout=20 -rss_limit_mb=2048 -max_len=65536 -print_final_stats=1 \
        -artifact_prefix=$build/finds/"$target"/ $build/kept/"$target" fuzz/corpus/"$target" >"$log.run" 2>&1 &
    pid=$!
    used=0
    while now=$(ticks $pid) && [ -n "$now" ] && kill -0 $pid 2>/dev/null; do
        used=$now
        if [ "$used" -ge "$most" ]; then
            kill -INT $pid 2>/dev/null || true
            break
        fi
        sleep 0.5
    done
    wait $pid || status=$?
    cat "$log.run" >>"$log"
    executions=$(grep -oE '^#[0-9]+' "$log.run" | tail -1 | tr -d '#' || true)
    edges=$(grep -oE 'cov: [0-9]+' "$log.run" | tail -1 | cut -d' ' -f2 || true)
    rm "$log.run"
    # 72: interrupted, as it is when the time is over.
    [ $status -eq 0 ] || [ $status -eq 72 ]
}

# search TARGET MINUTES goes on after a find, a few times.
search() {
    local target=$1 hz finds=0 spent=0 total=0 limit used executions edges=""
    hz=$(getconf CLK_TCK)
    limit=$(($2 * 60 * hz))
    mkdir -p $build/kept/"$target" $build/finds/"$target" $build/logs
    while [ $spent -lt $limit ] && [ $finds -lt 5 ]; do
        search_once "$target" $((limit - spent)) || finds=$((finds + 1))
        # A find at once must not make an endless loop.
        spent=$((spent + used + hz))
        total=$((total + ${executions:-0}))
    done
    printf '%s: %d executions in %d s, %s edges, %d kept, %d finds\n' "$target" $total $((spent / hz)) \
        "${edges:-no}" "$(find $build/kept/"$target" -type f | wc -l)" $finds
    [ $finds -eq 0 ]
}

# minimise TARGET: the merge takes small inputs first. Files above the limits are left out, the largest first.
minimise() {
    local target=$1 merged=$build/merged/$1 dropped=0 count bytes
    rm -rf "$merged"
    mkdir -p "$merged" $build/kept/"$target"
    # Seeds have names that say what they are for; they stay.
    find fuzz/corpus/"$target" -type f ! -regex "$digest_name" -exec cp -t "$merged" {} +
    # Counters of how often an edge is taken would keep ten times as many files.
    $build/"${target}_fuzz" -set_cover_merge=1 -use_counters=0 -timeout=20 -rss_limit_mb=2048 -max_len=65536 \
        "$merged" fuzz/corpus/"$target" $build/kept/"$target" >$build/merge.log 2>&1 || {
        tail -5 $build/merge.log >&2
        return 1
    }
    while read -r count bytes < <(find "$merged" -type f -printf '%s\n' | awk '{s += $1} END {print NR + 0, s + 0}') &&
        { [ "$count" -gt $most_files ] || [ "$bytes" -gt $most_bytes ]; }; do
        find "$merged" -type f -regex "$digest_name" -printf '%s %p\n' | sort -rn | awk 'NR == 1 {print $2}' | xargs rm
        dropped=$((dropped + 1))
    done
    printf '%s: %d files, %d bytes, %d left out\n' "$target" "$count" "$bytes" $dropped
    rm -rf fuzz/corpus/"$target"
    cp -r "$merged" fuzz/corpus/"$target"
}

status=0
case "${1:-}" in
    --minimise)
        [ $# -eq 2 ] || usage
        mapfile -t chosen < <(targets "$2")
        [ ${#chosen[@]} -gt 0 ] || exit 2
        build_targets "${chosen[@]}"
        for target in "${chosen[@]}"; do minimise "$target" || status=1; done
        ;;
    "" | -*) usage ;;
    *)
        [[ $# -eq 2 && $2 =~ ^[1-9][0-9]*$ ]] || usage
        mapfile -t chosen < <(targets "$1")
        [ ${#chosen[@]} -gt 0 ] || exit 2
        build_targets "${chosen[@]}"
        for target in "${chosen[@]}"; do search "$target" "$2" || status=1; done
        ;;
esac
exit $status
