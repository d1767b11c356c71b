#!/usr/bin/env bash
# Sets up and builds (see setup.sh), then runs the whole test suite headless.
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/setup.sh
export QT_QPA_PLATFORM=offscreen
ctest --test-dir build --output-on-failure
