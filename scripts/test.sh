#!/usr/bin/env bash
# Sets up and builds (see setup.sh), then runs the whole test suite headless.
# With --qt6: the same suite, install and hosts built against Qt 6 (build-qt6/).
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
elif [ "${1:-}" = "--qt6" ]; then
  build=build-qt6
fi
if [ "$build" != build-asan ]; then
  # A host builds against the installed package, and so does the demo here:
  # what the package leaves out, the demo misses (so it is installed afresh).
  rm -rf "$build/install"
  cmake --install "$build" --prefix "$build/install" > /dev/null
  cmake -S demo -B "$build/demo-installed" -G Ninja -DCMAKE_PREFIX_PATH="$PWD/$build/install" > /dev/null
  cmake --build "$build/demo-installed" -j "$(nproc)"
  "$build/demo-installed/propwidgets-demo" --screenshot "$build/demo-installed/demo.png" > /dev/null
  # The README's hosts are examples/*: each must build and start from the package alone.
  for example in examples/*/; do
    name=$(basename "$example")
    cmake -S "$example" -B "$build/$name" -G Ninja -DCMAKE_PREFIX_PATH="$PWD/$build/install" > /dev/null
    cmake --build "$build/$name" -j "$(nproc)"
    "$build/$name/$name" --check
  done
  # A host of the other Qt major is refused when it finds the package, not when it crashes.
  other=$([ "$build" = build-qt6 ] && echo 5 || echo 6)
  if cmake -S examples/minimal-host -B "$build/other-major" -G Ninja -DCMAKE_PREFIX_PATH="$PWD/$build/install" \
      -DPROPWIDGETS_QT_MAJOR="$other" > "$build/other-major.log" 2>&1 ||
    ! grep -q "host uses Qt $other" "$build/other-major.log"; then
    echo "a host of Qt $other was not refused:" >&2
    cat "$build/other-major.log" >&2
    exit 1
  fi
fi
ctest --test-dir "$build" --output-on-failure
