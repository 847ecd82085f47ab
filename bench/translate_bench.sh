#!/usr/bin/env bash
# Whole-translation benchmark: the CPU time of zlc9k against `cpp -P` on the
# same generated source, the tool's peak memory, and how time grows when one
# dimension of the input grows fourfold.
#   bash bench/translate_bench.sh BUILD_DIR
# BUILD_DIR is a build without sanitizers (Release or RelWithDebInfo).
# SIZES (default "1 4 16", in MB) and RUNS (default 3; the least CPU time
# counts) may be set in the environment.
set -u
build=$(cd "$1" && pwd)
gen=$build/bench/gen_kernels
zlc=$build/zlc9k
sizes=${SIZES:-1 4 16}
runs=${RUNS:-3}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Runs a command RUNS times; prints its least CPU time (user and system) in
# seconds, to the millisecond, and its largest peak RSS in KiB.  A
# translation must succeed without a message.
measure() {
  local best="" peak=0 cpu rss status
  local TIMEFORMAT='%3U %3S'
  for ((run = 0; run < runs; ++run)); do
    { time /usr/bin/time -f "%M" -o "$work/rss" "$@" > /dev/null 2> "$work/err"; } 2> "$work/cpu"
    status=$?
    if [ "$status" != 0 ] || [ -s "$work/err" ]; then
      echo "failed: $*" >&2
      head -5 "$work/err" >&2
      exit 1
    fi
    cpu=$(awk '{ printf "%.3f", $1 + $2 }' "$work/cpu")
    rss=$(cat "$work/rss")
    if [ -z "$best" ] || awk -v a="$cpu" -v b="$best" 'BEGIN { exit !(a < b) }'; then best=$cpu; fi
    ((rss > peak)) && peak=$rss
  done
  echo "$best $peak"
}

ratio() { awk -v a="$1" -v b="$2" 'BEGIN { printf "%.2f", (b > 0 ? a / b : 0) }'; }

echo "Whole translation against cpp -P (CPU seconds, least of $runs runs)"
printf "%8s %10s %10s %8s %14s %12s\n" source zlc9k "cpp -P" ratio "peak RSS MiB" "t/t(prev)"
prev=""
for mb in $sizes; do
  src=$work/mix$mb.zc
  "$gen" mix $((mb * 1048576)) "$src"
  read -r tool rss < <(measure "$zlc" "$src" "$work/out.c")
  read -r ref _ < <(measure cpp -P -I "$work" "$src" -o "$work/out.i")
  growth=${prev:+$(ratio "$tool" "$prev")}
  printf "%6s MB %10s %10s %7sx %14s %12s\n" "$mb" "$tool" "$ref" "$(ratio "$tool" "$ref")" \
    "$((rss / 1024))" "${growth:--}"
  prev=$tool
done

# Each dimension at N and 4N: a linear translation gives a ratio near 4.
# Loops, formulas and transposes are repeated over 8, 64 and 4 kernels, so that the times
# are long enough to measure.
echo
echo "Growth of the translation time, t(4N)/t(N)"
printf "%-22s %8s %10s %8s %10s %8s\n" dimension N "t(N)" 4N "t(4N)" ratio
growth_case() {
  local mode=$1 n=$2 what=$3 copies=${4:-} t1 t4
  "$gen" "$mode" "$n" "$work/$mode.zc" $copies
  read -r t1 _ < <(measure "$zlc" "$work/$mode.zc" "$work/out.c")
  "$gen" "$mode" $((4 * n)) "$work/$mode.zc" $copies
  read -r t4 _ < <(measure "$zlc" "$work/$mode.zc" "$work/out.c")
  printf "%-22s %8s %10s %8s %10s %8s\n" "$what" "$n" "$t1" $((4 * n)) "$t4" "$(ratio "$t4" "$t1")"
}
growth_case mix 1048576 "file size (bytes)"
growth_case kernels 5000 "kernels per file"
growth_case loops 1000 "vector loops per kernel" 8
growth_case terms 2000 "terms per formula" 64
growth_case transposes 1000 "transposes per kernel" 4
growth_case macros 10000 "macros per file"
growth_case nesting 250 "nesting of parentheses"
