#!/usr/bin/env bash
# Runs one golden case directory:
#   cmd            the arguments of the run, read by the shell
#   (other files)  inputs, copied to a scratch directory where the run happens
#   expected/      stdout, stderr, status, and files/ with every file that the
#                  run created or changed
# The tool is called as "zlc9k" so that its messages do not depend on where
# it was built.  With ZLC_UPDATE=1 the expectations are written instead.
set -u
zlc=$1
case_dir=$(cd "$2" && pwd)
exp=$case_dir/expected
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

mkdir -p "$work/bin" "$work/run" "$work/out"
ln -s "$zlc" "$work/bin/zlc9k"
(cd "$case_dir" && tar --exclude=./expected --exclude=./cmd -cf - .) | (cd "$work/run" && tar -xf -)
(cd "$work/run" && find . -type f -exec md5sum {} + | sort) > "$work/inputs"

(cd "$work/run" && PATH="$work/bin:$PATH" eval "zlc9k $(cat "$case_dir/cmd")" \
   > "$work/out/stdout" 2> "$work/out/stderr" < /dev/null)
echo $? > "$work/out/status"

# Files the run created or changed.
mkdir -p "$work/out/files"
(cd "$work/run" && find . -type f -exec md5sum {} + | sort) > "$work/after"
comm -13 "$work/inputs" "$work/after" | while read -r _ f; do
  mkdir -p "$(dirname "$work/out/files/$f")"
  cp "$work/run/$f" "$work/out/files/$f"
done

if [ "${ZLC_UPDATE:-0}" = 1 ]; then
  rm -rf "$exp" && mkdir -p "$exp" && cp -r "$work/out/." "$exp/"
  exit 0
fi
fail=0
for f in stdout stderr status; do
  diff -u --label "expected/$f" --label "actual/$f" "$exp/$f" "$work/out/$f" || fail=1
done
mkdir -p "$work/empty"
expfiles=$exp/files
[ -d "$expfiles" ] || expfiles=$work/empty  # git keeps no empty directory
diff -ru "$expfiles" "$work/out/files" || fail=1
exit $fail
