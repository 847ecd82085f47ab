#!/usr/bin/env bash
# The fuzz step.  Where clang and its libFuzzer runtime are installed: builds
# the libFuzzer harness with the sanitizers in build-fuzz/, replays the
# regression corpus, then fuzzes for SECONDS (default 60) from the seed
# corpus (the golden inputs and the examples) and the regression corpus.
# Elsewhere: replays the regression corpus with the standalone driver of the
# sanitizer build (build-test/, built by build.sh test) and skips the fuzz
# run.  A finding is left in build-fuzz/findings/ and fails the step.
#   fuzz/run.sh [SECONDS]
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}

clang_fuzzer_works() {
  command -v clang++ > /dev/null || return 1
  local probe
  probe=$(mktemp -d)
  printf 'extern "C" int LLVMFuzzerTestOneInput(const char*, unsigned long) { return 0; }\n' \
    > "$probe/probe.cpp"
  clang++ -fsanitize=fuzzer,address "$probe/probe.cpp" -o "$probe/probe" 2> /dev/null
  local works=$?
  rm -rf "$probe"
  return $works
}

if ! clang_fuzzer_works; then
  cmake --build build-test -j2 --target zlc9k_replay > /dev/null
  ASAN_OPTIONS=detect_leaks=0 build-test/fuzz/zlc9k_replay fuzz/regressions | tail -1
  echo "fuzz: clang with libFuzzer not found; the fuzz run is skipped"
  exit 0
fi

CC=clang CXX=clang++ cmake -S . -B build-fuzz -DZLC_FUZZ=ON -DZLC_SANITIZE=ON -DZLC_TESTS=OFF \
  -DZLC_BENCH=OFF > /dev/null
cmake --build build-fuzz -j2 --target zlc9k_fuzz > /dev/null
fuzzer=build-fuzz/fuzz/zlc9k_fuzz

# Each input is translated in a forked child, so the fuzzing process must stay
# single-threaded: a memory-watching thread could hold an allocator lock at
# the fork and leave the child stuck.  -rss_limit_mb=0 keeps that thread off.
"$fuzzer" -rss_limit_mb=0 fuzz/regressions/* > build-fuzz/replay.log 2>&1 || {
  cat build-fuzz/replay.log
  exit 1
}
echo "fuzz: $(grep -c '^Executed' build-fuzz/replay.log) regression inputs replayed without a finding"

seeds=build-fuzz/seeds
rm -rf "$seeds" && mkdir -p "$seeds" build-fuzz/corpus build-fuzz/findings
for input in tests/golden/*/*.k tests/golden/*/*.zc tests/parse_corpus/*.zc examples/*.k; do
  cp "$input" "$seeds/$(echo "$input" | tr / _)"
done
echo "fuzz: fuzzing for $seconds seconds"
"$fuzzer" -rss_limit_mb=0 -max_total_time="$seconds" -timeout=30 -max_len=8192 -print_final_stats=1 \
  -dict=fuzz/zelt.dict -artifact_prefix=build-fuzz/findings/ \
  build-fuzz/corpus "$seeds" fuzz/regressions > build-fuzz/fuzz.log 2>&1 || {
  tail -60 build-fuzz/fuzz.log
  echo "fuzz: the fuzz run failed; findings are in build-fuzz/findings/"
  exit 1
}
grep -E '^stat::number_of_executed_units|^stat::new_units_added' build-fuzz/fuzz.log
