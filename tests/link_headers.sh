#!/bin/bash
# Checks that every generated header kept as a golden expectation declares
# what its generated source defines: a caller that includes the header and
# uses each function and object it declares is linked against the source of
# the same run, compiled with the stand-in run-time headers and their stubs.
# Left out: runs that failed, whose outputs stand unfinished, and headers of
# kernels without parameters, whose declaration lists do not compile.
# Usage: link_headers.sh [tests directory]
tests=$(cd "${1:-$(dirname "$0")}" && pwd)
standin=$tests/standin
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cxx=(g++ -std=c++20 -fpermissive -w -I "$standin")
preamble="#pragma diag_suppress 179,552"
status=0
count=0

fail() {
  echo "FAIL: $header: $1"
  status=1
}

while IFS= read -r -d '' header; do
  [[ $(head -n 1 "$header") == "#ifndef _KV_"* ]] || continue
  case_dir=${header%%/expected/files/*}
  [ "$(cat "$case_dir/expected/status")" = 0 ] || continue
  grep -q '(,$' "$header" && continue

  sources=()
  while IFS= read -r -d '' file; do
    [ "$(head -n 1 "$file")" = "$preamble" ] && sources+=("$file")
  done < <(find "$case_dir/expected/files" -type f -print0)
  if [ ${#sources[@]} -ne 1 ]; then
    fail "expected one generated source beside it, found ${#sources[@]}"
    continue
  fi
  source=${sources[0]}
  count=$((count + 1))

  functions=$(sed -n 's/^\(void\|unsigned int\) \([A-Za-z_0-9]*\)(.*$/\2/p' "$header")
  objects=$(sed -n 's/^extern .* \([A-Za-z_0-9]*\)\(\[.*\]\)\{0,1\};$/\1/p' "$header")
  c_linkage=$(grep -q '^extern "C" ' "$source" && echo 1)
  {
    echo '#include <zelt/zelt.h>'
    [ -n "$c_linkage" ] && echo 'extern "C" {'
    echo "#include \"$header\""
    [ -n "$c_linkage" ] && echo '}'
    echo 'template <class R, class... A> void call(R (*f)(A...)) { f(A()...); }'
    echo 'const void* volatile used;'
    echo 'int main() {'
    for name in $functions; do echo "  call(&$name);"; done
    for name in $objects; do echo "  used = &$name;"; done
    echo '}'
  } > "$work/caller.cpp"

  rm -f "$work"/*.o
  "${cxx[@]}" -c "$work/caller.cpp" -o "$work/caller.o" || { fail "the caller does not compile"; continue; }
  "${cxx[@]}" -include "$standin/zelt_stubs.cpp" -x c++ -c "$source" -o "$work/source.o" ||
    { fail "the source does not compile"; continue; }
  g++ "$work/caller.o" "$work/source.o" -o "$work/linked" || fail "does not link with $source"
done < <(find "$tests"/golden/*/expected/files -type f -print0 2>/dev/null | sort -z)
echo "$count generated headers linked"
exit $status
