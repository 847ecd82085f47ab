#!/bin/bash
# Compiles every generated source file kept as a golden expectation against
# the stand-in run-time headers, so that the translator's output stays
# valid C++.  Usage: compile_generated.sh [tests directory]
tests=${1:-$(dirname "$0")}
status=0
count=0
while IFS= read -r -d '' file; do
  count=$((count + 1))
  if ! g++ -std=c++20 -fsyntax-only -I "$tests/standin" -x c++ "$file"; then
    echo "FAIL: $file"
    status=1
  fi
done < <(find "$tests"/golden/*/expected/files -type f -name '*.c' -print0 2>/dev/null | sort -z)
echo "$count generated files checked"
exit $status
