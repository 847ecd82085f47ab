#!/bin/bash
# Installs the built tool into a temporary prefix and builds its Debian
# package, then checks what each holds: the tool in bin/, its manual page
# compressed with `gzip -9n` in share/man/man1/, and the guides, the copyright
# notice and the examples in share/doc/zlc9k/; and a package named zlc9k with
# the tool's own version, a maintainer with an address, and dependencies that
# name the package of the ANTLR 3 C runtime that the tool links.
# Usage: install_and_package.sh build-directory source-directory
build=$1
src=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
status=0
fail() { echo "FAIL: $*"; status=1; }

# The version as the tool itself reports it: "v2.0.1.STS" gives 2.0.1.
version=$("$build/zlc9k" --toolversion | sed -n 's/.* v\([0-9][0-9.]*[0-9]\)\..*/\1/p')
[ -n "$version" ] || fail "no version in the output of --toolversion"

cmake --install "$build" --prefix "$work/prefix" > "$work/install.log" 2>&1 ||
  { cat "$work/install.log"; fail "cmake --install"; }
[ -x "$work/prefix/bin/zlc9k" ] || fail "bin/zlc9k is not installed"
gzip -9n -c "$src/docs/zlc9k.1" | cmp -s - "$work/prefix/share/man/man1/zlc9k.1.gz" ||
  fail "share/man/man1/zlc9k.1.gz is not the manual page compressed with gzip -9n"
for doc in language.md messages.md copyright; do
  cmp -s "$work/prefix/share/doc/zlc9k/$doc" "$src/docs/$doc" || fail "share/doc/zlc9k/$doc is not installed"
done
examples=()
for kernel in "$src"/examples/*.k; do
  examples+=("examples/$(basename "$kernel")")
  cmp -s "$work/prefix/share/doc/zlc9k/examples/$(basename "$kernel")" "$kernel" ||
    fail "share/doc/zlc9k/examples/$(basename "$kernel") is not installed"
done
"$work/prefix/bin/zlc9k" --toolversion | grep -q "v$version" ||
  fail "the installed tool does not run"

(cd "$work" && cpack -G DEB --config "$build/CPackConfig.cmake" -B "$work/package") \
  > "$work/cpack.log" 2>&1 || { cat "$work/cpack.log"; fail "cpack -G DEB"; }
debs=("$work"/package/*.deb)
if [ ${#debs[@]} -ne 1 ] || [ ! -f "${debs[0]}" ]; then
  fail "cpack made no single .deb"
  exit 1
fi
deb=${debs[0]}

# The runtime package is the one that owns the shared ANTLR 3 C library that
# the tool loads.
library=$(ldd "$build/zlc9k" | awk '/libantlr3c/ { print $3 }')
runtime=$(dpkg -S "$(readlink -f "$library")" 2>/dev/null | sed 's/:.*//' | head -n 1)
[ -n "$runtime" ] || fail "no Debian package owns the ANTLR 3 C runtime $library"

info=$(dpkg-deb -I "$deb") || fail "dpkg-deb -I cannot read the package"
field() { echo "$info" | sed -n "s/^ $1: //p"; }
[ "$(field Package)" = zlc9k ] || fail "package name '$(field Package)'"
[ "$(field Version)" = "$version" ] || fail "package version '$(field Version)', tool $version"
field Maintainer | grep -qE '^[^<>]+ <[^<>@ ]+@[^<>@ ]+>$' ||
  fail "maintainer '$(field Maintainer)' has no name and address"
field Depends | tr ',|' '\n\n' | sed 's/^ *//; s/ .*//' | grep -qx "$runtime" ||
  fail "dependencies '$(field Depends)' do not name $runtime"

contents=$(dpkg-deb -c "$deb") || fail "dpkg-deb -c cannot list the package"
paths=$(echo "$contents" | awk '{ print $NF }')
for path in bin/zlc9k share/man/man1/zlc9k.1.gz share/doc/zlc9k/language.md \
            share/doc/zlc9k/messages.md share/doc/zlc9k/copyright "${examples[@]/#/share/doc/zlc9k/}"; do
  echo "$paths" | grep -qxF "./usr/$path" || fail "the package lacks /usr/$path"
done
! echo "$paths" | grep -qx './usr/share/man/man1/zlc9k.1' || fail "the package holds an uncompressed manual page"

[ $status -eq 0 ] && echo "installed and packaged zlc9k $version (depends on $runtime)"
exit $status
