#!/bin/bash
# Translates every example of the language guide.  A block fenced as
#   ```zelt [options]
# is a source file, translated as example.k with the options; the first
# block fenced as ```messages after it, if any, holds exactly what the tool
# prints on standard error.  An example without messages must translate
# silently, and its output must compile against the stand-in run-time
# headers; one whose messages hold an error must fail with status 1.
# Usage: check_language_guide.sh zlc9k-binary source-directory
zlc=$(readlink -f "$1")
src=$2
guide=$src/docs/language.md
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Split the guide: example N goes to N/example.k, its options to N/options
# and its messages to N/expected.
examples=$(awk -v dir="$work" '
  /^```zelt( |$)/ {
    n++; system("mkdir -p " dir "/" n)
    opts = $0; sub(/^```zelt */, "", opts)
    print opts > (dir "/" n "/options"); close(dir "/" n "/options")
    out = dir "/" n "/example.k"; next
  }
  /^```messages$/ {
    if (!n || taken[n]) { print "messages without an example before them at line " NR; bad = 1 }
    taken[n] = 1; out = dir "/" n "/expected"; next
  }
  /^```/ { out = ""; next }
  out != "" { print > out }
  END { print n; exit bad }
' "$guide") || exit 1

status=0
for n in $(seq "$examples"); do
  dir=$work/$n
  name="example $n of docs/language.md"
  read -r -a options < "$dir/options"
  (cd "$dir" && "$zlc" "${options[@]}" example.k example.c > stdout 2> stderr)
  got=$?
  [ -f "$dir/expected" ] || : > "$dir/expected"
  want=0
  grep -qE '(^|: )(error|fatal error)( #[0-9-]+)?:' "$dir/expected" && want=1
  if ! diff -u "$dir/expected" "$dir/stderr" > "$dir/diff"; then
    echo "FAIL: $name: messages differ"
    cat "$dir/diff"
    status=1
  elif [ -s "$dir/stdout" ]; then
    echo "FAIL: $name: unexpected standard output"
    cat "$dir/stdout"
    status=1
  elif [ $got -ne $want ]; then
    echo "FAIL: $name: exit status $got, expected $want"
    status=1
  elif [ $want -eq 0 ] &&
       ! g++ -std=c++20 -fsyntax-only -fpermissive -w -I "$src/tests/standin" -x c++ "$dir/example.c"; then
    echo "FAIL: $name: the translation does not compile"
    status=1
  fi
done
echo "$examples examples of the language guide checked"
[ "$examples" -gt 0 ] || status=1
exit $status
