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
ctest --test-dir "$build" --output-on-failure
