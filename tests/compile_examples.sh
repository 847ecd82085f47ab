#!/bin/bash
# Translates every bundled example kernel with the built tool and compiles
# the result against the stand-in run-time headers.
# Usage: compile_examples.sh zlc9k-binary source-directory
zlc=$1
src=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
status=0
for kernel in "$src"/examples/*.k; do
  name=$(basename "$kernel" .k)
  if ! "$zlc" "$kernel" "$work/$name.c" --output_header "$work/$name.h"; then
    echo "FAIL: $kernel does not translate"
    status=1
  elif ! g++ -std=c++20 -fsyntax-only -fpermissive -w -I "$src/tests/standin" -x c++ "$work/$name.c"; then
    echo "FAIL: the translation of $kernel does not compile"
    status=1
  fi
done
exit $status
