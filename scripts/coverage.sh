#!/bin/sh
# Line and branch coverage of the library and the platform layer by the whole test suite,
# from a Debug build with --coverage in build-cov; then of the demo's drawing side, which the
# tests of tests/drawing exercise.
# Usage: scripts/coverage.sh [prefix]   with a prefix, also writes prefix.lines.txt,
# prefix.branches.txt and prefix.json (per file), and prefix.demo.json for the demo,
# to compare one run against another.
set -e
cd "$(dirname "$0")/.."
command -v gcovr >/dev/null || { apt-get update && apt-get install -y gcovr; }
cmake -S . -B build-cov -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS=--coverage \
  -DBUILD_TESTING=ON -DCMAKE_CXX_COMPILER_LAUNCHER=ccache >/dev/null
cmake --build build-cov -j2
find build-cov -name '*.gcda' -delete
(cd build-cov && QT_QPA_PLATFORM=offscreen ctest -j2 --output-on-failure) || true
common="-r . --exclude-unreachable-branches --exclude-throw-branches -j 2"
opts="$common --filter src/ --filter platform/"
demo="$common --filter demo/"
if [ -n "$1" ]; then
  gcovr $opts --json "$1.json" build-cov
  gcovr $opts --add-tracefile "$1.json" --txt "$1.lines.txt"
  gcovr $opts --add-tracefile "$1.json" --branches --txt "$1.branches.txt"
  gcovr $opts --add-tracefile "$1.json" --print-summary | tail -3
  echo "demo:"
  gcovr $demo --json "$1.demo.json" build-cov
  gcovr $demo --add-tracefile "$1.demo.json" --print-summary | tail -3
else
  gcovr $opts --print-summary build-cov | tail -3
  echo "demo:"
  gcovr $demo --print-summary build-cov | tail -3
fi
