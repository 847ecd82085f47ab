#!/usr/bin/env bash
# Installs what the build needs, then either translates the bundled example
# ("example") or builds with the sanitizers and runs the whole test suite and
# the fuzz step of fuzz/run.sh ("test").
set -euo pipefail
cd "$(dirname "$0")"

packages="cmake g++ make antlr3 libantlr3c-dev default-jre-headless googletest libgtest-dev dpkg-dev groff-base"
if ! dpkg -s $packages > /dev/null 2>&1; then
  apt-get update -qq
  DEBIAN_FRONTEND=noninteractive apt-get install -y -qq $packages > /dev/null
fi

case "${1:-}" in
  example)
    cmake -S . -B build -DZLC_TESTS=OFF > /dev/null
    cmake --build build -j2
    ./build/zlc9k examples/vadd.k build/vadd.c
    cat build/vadd.c
    ;;
  test)
    cmake -S . -B build-test -DZLC_SANITIZE=ON > /dev/null
    cmake --build build-test -j2
    ctest --test-dir build-test -j2 --output-on-failure
    bash fuzz/run.sh
    ;;
  *)
    echo "usage: $0 example|test" >&2
    exit 2
    ;;
esac
