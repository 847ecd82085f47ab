#!/usr/bin/env bash
# Deep nesting.  Trip counts nested about a thousand times deeper than real
# kernels (3,200 parentheses, 50,000 unary minuses, a sum of 200,000 terms)
# translate exactly like the plain count they evaluate to, with the text of
# the expression where the plain one shows its text; so does a load whose
# pointer offset is such a sum, and a generator formula of 3,200 terms
# translates like its last term.  Nesting past the
# translator's stack ends with the internal-error report and status 2, and
# the output holds everything written before.
#   deep_nesting.sh ZLC9K
set -u
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/bin"
ln -s "$1" "$work/bin/zlc9k"
cd "$work"
export PATH="$work/bin:$PATH"
fail=0

# A kernel named $1 whose loop counts to the expression in file $2.
kernel() {
  printf 'void %s(__vptr_int16 a, int n)\n{\n   for (int i = 0; i < ' "$1"
  cat "$2"
  printf '; i++) {\n      __vector v;\n      __agen A = i * 2;\n      v = a[A].npt();\n'
  printf '      a[A].npt() = v;\n   }\n}\n'
}

# Writes the expression file $1: $2 copies of $3 around or before $4 and
# $2 copies of $5 after it, 500 to a line.
nest() {
  perl -e 'my ($n, $open, $mid, $close) = @ARGV;
           my $lines = sub { my ($t, $k) = @_; join("\n", map { $t x ($k - $_ < 500 ? $k - $_ : 500) }
                                                    grep { $_ % 500 == 0 } 0 .. $k - 1) };
           print $lines->($open, $n), $mid, ($close eq "" ? "" : $lines->($close, $n));' \
    "$2" "$3" "$4" "$5" > "$1"
}

printf '8' > plain.e
kernel k plain.e > plain.k
zlc9k plain.k plain.c || { echo "plain kernel failed"; exit 1; }

check_deep() {  # name: the run is clean and matches the plain translation
  zlc9k "$1.k" "$1.c" > "$1.log" 2>&1
  local status=$?
  if [ "$status" != 0 ] || [ -s "$1.log" ]; then
    echo "$1: status $status"; head -5 "$1.log"; fail=1; return
  fi
  perl -0777 -e 'open my $e, "<", $ARGV[0]; my $x = <$e>; open my $o, "<", $ARGV[1]; my $t = <$o>;
                 my $n = ($t =~ s/\Q$x\E/8/g); print $t; exit($n ? 0 : 1)' \
    "$1.e" "$1.c" > "$1.plain" || { echo "$1: expression text not found"; fail=1; }
  cmp -s "$1.plain" plain.c || { echo "$1: differs from the plain translation"; fail=1; }
}

nest parens.e 3200 '(' 8 ')'
nest minus.e 50000 '- ' 8 ''
perl -e 'print "7"; for my $i (1 .. 199999) { print $i % 2 ? " + 1" : " - 1"; print "\n" unless $i % 500 }' > sum.e
for name in parens minus sum; do
  kernel k "$name.e" > "$name.k"
  check_deep "$name"
done

# A load whose pointer offset is a sum of 200,000 terms prints the offset as
# one expression, and a generator formula of 3,200 terms of one loop keeps
# the last term's stride, as the single term does.
offset_kernel() {  # name, offset expression, generator formula
  printf 'void k(__vptr_int16 a, int n)\n{\n   for (int i = 0; i < n; i++) {\n      __vector v;\n'
  printf '      __agen A = %s;\n      v = (a + (%s))[A].npt();\n' "$3" "$2"
  printf '      a[A].npt() = v;\n   }\n}\n'
}
check_same() {  # name, reference: a clean run whose output equals the reference's
  zlc9k "$1.k" "$1.c" > "$1.log" 2>&1
  local status=$?
  if [ "$status" != 0 ] || [ -s "$1.log" ]; then
    echo "$1: status $status"; head -5 "$1.log"; fail=1; return
  fi
  cmp -s "$1.c" "$2" || { echo "$1: differs from the plain translation"; fail=1; }
}
offset_kernel plain_offset '4 + 0' 'i * 2' > plain_offset.k
zlc9k plain_offset.k plain_offset.c || { echo "plain offset kernel failed"; exit 1; }
offset_kernel offset_sum "4$(perl -e 'print "\n + 0" x 200000')" 'i * 2' > offset_sum.k
zlc9k offset_sum.k offset_sum.raw > offset_sum.log 2>&1
perl -0777 -pe 'my $sum = "(4" . ("+0" x 200000) . ")"; s/\Q$sum\E/(4+0)/g' offset_sum.raw \
  > offset_sum.c
cmp -s offset_sum.c plain_offset.c && [ ! -s offset_sum.log ] ||
  { echo "offset_sum: differs from the plain translation"; head -5 offset_sum.log; fail=1; }
offset_kernel formula '4 + 0' "$(perl -e 'print join("\n + ", ("i * 2") x 3200)')" > formula.k
check_same formula plain_offset.c

# Past the limit: the first kernel is written out whole before the second
# overflows the stack.
nest overflow.e 1000000 '(' 8 ')'
{ cat plain.k; kernel k2 overflow.e; } > overflow.k
zlc9k overflow.k overflow.c > overflow.out 2> overflow.err
status=$?
cat > expected.err <<'EOF'

INTERNAL ERROR: zlc9k experienced a segmentation fault

This is most likely caused by a defect in the KV ZELT-C Compiler.
KV customer support may be able to suggest a workaround.
Upgrading to the newest version of the compiler may fix the problem.

Please report the problem on the KV support forum: choose "Tools" in the
"Support" menu and follow the link "Submit an issue".

We need to see this ENTIRE error message and a complete, reproducible
test case including ALL of the command-line options.


EOF
[ "$status" = 2 ] || { echo "overflow: status $status"; fail=1; }
diff -u expected.err overflow.err || fail=1
[ -s overflow.out ] && { echo "overflow: stdout not empty"; fail=1; }
cmp -s plain.c overflow.c || { echo "overflow: output is not the first kernel's"; fail=1; }
exit $fail
