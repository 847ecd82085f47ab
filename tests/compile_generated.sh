#!/bin/bash
# Compiles every generated source file kept as a golden expectation against
# the stand-in run-time headers, so that the translator's output stays
# valid C++.  Circular-buffer addresses cast pointers to the target's 32-bit
# unsigned int, which a 64-bit host accepts only as permissive.  A generated
# source is recognised by the first line of its preamble, whatever its name.  Usage: compile_generated.sh [tests directory]
tests=${1:-$(dirname "$0")}
status=0
count=0
while IFS= read -r -d '' file; do
  [ "$(head -n 1 "$file")" = "#pragma diag_suppress 179,552" ] || continue
  count=$((count + 1))
  if ! g++ -std=c++20 -fsyntax-only -fpermissive -w -I "$tests/standin" -x c++ "$file"; then
    echo "FAIL: $file"
    status=1
  fi
done < <(find "$tests"/golden/*/expected/files -type f -print0 2>/dev/null | sort -z)
echo "$count generated files checked"
exit $status
