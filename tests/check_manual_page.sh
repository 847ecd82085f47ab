#!/bin/bash
# Checks the manual page: groff reads it without a warning, its OPTIONS
# section lists exactly the spellings of the option table, and every switch
# that the sources register for --debug: and --disable: is named on it.
# Usage: check_manual_page.sh source-directory
src=$1
page=$src/docs/zlc9k.1
status=0
fail() { echo "FAIL: $*"; status=1; }

warnings=$(groff -man -ww -z "$page" 2>&1) || fail "groff cannot format the page"
[ -z "$warnings" ] || fail "groff warns: $warnings"

# The spellings of the option table: every quoted word that begins with a dash.
table=$(grep -o '"-[^"]*"' "$src/options/options.def" | tr -d '"' | sort)

# The spellings of the page: the tags of the OPTIONS section, without their
# parameters (italic), optional parts and the "=" that introduces a parameter.
page_spellings=$(awk '
  /^\.SH / { in_options = ($2 == "OPTIONS"); next }
  in_options && tag { print; tag = 0; next }
  in_options && /^\.TP/ { tag = 1 }
' "$page" | sed -e 's/^\.[BI]R\? //' -e 's/\\fI[^\\]*\\fP//g' -e 's/\\f[BIRP]//g' -e 's/\\-/-/g' \
               -e 's/\[[^]]*\]//g' -e 's/, /\n/g' | sed 's/=$//' | sort)

missing=$(comm -23 <(echo "$table") <(echo "$page_spellings"))
extra=$(comm -13 <(echo "$table") <(echo "$page_spellings"))
[ -z "$missing" ] || fail "options of the table missing from the page:" $missing
[ -z "$extra" ] || fail "options on the page that the table lacks:" $extra

plain=$(sed -e 's/\\f[BIRP]//g' -e 's/\\-/-/g' "$page")
switches=$(grep -rhoE 'register_option +[A-Za-z_]+\("[^"]*"\)' "$src" --include='*.cpp' \
             --exclude-dir=tests --exclude-dir='build*' | sed 's/.*("\(.*\)")/\1/' | sort -u)
for switch in $switches; do
  echo "$plain" | grep -qF -- "$switch" || fail "switch $switch is not on the page"
done

[ $status -eq 0 ] && echo "$(echo "$table" | wc -l) option spellings and $(echo "$switches" | wc -w) switches documented"
exit $status
