#!/usr/bin/env bash
# Sets up and builds (see setup.sh), then runs the demo host. Arguments go to the demo.
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/setup.sh
exec ./build/bin/propwidgets-demo "$@"
