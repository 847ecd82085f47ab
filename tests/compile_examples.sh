#!/bin/bash
# Translates every bundled example kernel with the built tool, at both vector
# widths, and compiles the result against the stand-in run-time headers.  An
# example is legal: its translation succeeds without a single message.
# Usage: compile_examples.sh zlc9k-binary source-directory
zlc=$1
src=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
status=0
count=0
for kernel in "$src"/examples/*.k; do
  name=$(basename "$kernel" .k)
  for width in 8 16; do
    out="$work/$name-$width"
    count=$((count + 1))
    if ! "$zlc" --zelt_simd=$width "$kernel" "$out.c" --output_header "$out.h" \
         > "$out.messages" 2>&1; then
      echo "FAIL: $kernel does not translate at width $width"
      cat "$out.messages"
      status=1
    elif [ -s "$out.messages" ]; then
      echo "FAIL: $kernel draws messages at width $width"
      cat "$out.messages"
      status=1
    elif ! g++ -std=c++20 -fsyntax-only -fpermissive -w -I "$src/tests/standin" -x c++ "$out.c"; then
      echo "FAIL: the translation of $kernel at width $width does not compile"
      status=1
    fi
  done
done
echo "$count translations checked"
exit $status
