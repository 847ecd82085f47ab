#!/usr/bin/env bash
# Translates an input far larger than any golden case, made at test time:
#   run_large.sh GEN_KERNELS ZLC9K MODE N KERNELS
# The translation must succeed without a message and write KERNELS kernels.
set -u
gen=$1 zlc=$2 mode=$3 n=$4 kernels=$5
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$gen" "$mode" "$n" "$work/large.zc" || exit 1
(cd "$work" && "$zlc" large.zc large.c --output_header=large.h > out 2> err)
status=$?
if [ "$status" != 0 ] || [ -s "$work/err" ] || [ -s "$work/out" ]; then
  echo "status $status"
  head -20 "$work/err" "$work/out"
  exit 1
fi
written=$(grep -c '^/\* Parameter Register Block \*/' "$work/large.h")
if [ "$written" != "$kernels" ]; then
  echo "$written kernels written, $kernels expected"
  exit 1
fi
