#!/usr/bin/env bash
# Sets up and builds (see setup.sh), then runs the whole test suite headless.
# With --sanitize: the same suite built and run under ASan and UBSan (build-asan/);
# any sanitizer report fails the test that caused it.
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/setup.sh "$@"
export QT_QPA_PLATFORM=offscreen
build=build
if [ "${1:-}" = "--sanitize" ]; then
  build=build-asan
  source scripts/sanitizers.sh
fi
if [ "$build" = build ]; then
  # A host builds against the installed package, and so does the demo here:
  # what the package leaves out, the demo misses (so it is installed afresh).
  rm -rf build/install
  cmake --install build --prefix build/install > /dev/null
  cmake -S demo -B build/demo-installed -G Ninja -DCMAKE_PREFIX_PATH="$PWD/build/install" > /dev/null
  cmake --build build/demo-installed -j "$(nproc)"
  build/demo-installed/propwidgets-demo --screenshot build/demo-installed/demo.png > /dev/null
  # The README's hosts are examples/*: each must build and start from the package alone.
  for example in examples/*/; do
    name=$(basename "$example")
    cmake -S "$example" -B "build/$name" -G Ninja -DCMAKE_PREFIX_PATH="$PWD/build/install" > /dev/null
    cmake --build "build/$name" -j "$(nproc)"
    "build/$name/$name" --check
  done
fi
ctest --test-dir "$build" --output-on-failure
