#!/usr/bin/env bash
# Installs the build's Debian packages (when missing), configures and builds into build/.
# With --sanitize: a Debug build with AddressSanitizer and UndefinedBehaviorSanitizer into build-asan/.
set -euo pipefail
cd "$(dirname "$0")/.."

packages=(cmake ninja-build g++ qtbase5-dev qtbase5-dev-tools qttools5-dev qttools5-dev-tools libqt5test5 fonts-dejavu-core
  pkg-config libdxflib-dev libmuparser-dev librecad-data qttranslations5-l10n python3-ezdxf)
./scripts/install-packages.sh "${packages[@]}"

build=build
# build/ is also what scripts/package.sh makes the Debian packages from: configured for
# /usr, GNUInstallDirs gives it Debian's lib dir, lib/<multiarch>.
config=(-DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_INSTALL_PREFIX=/usr)
if [ "${1:-}" = "--sanitize" ]; then
  build=build-asan
  source scripts/sanitizers.sh
  # Debug compiles faster than an optimised build and keeps every frame in the reports;
  # the suite is short enough that the slower code does not matter.
  config=(-DCMAKE_BUILD_TYPE=Debug "-DCMAKE_CXX_FLAGS=-fsanitize=address,undefined -fno-omit-frame-pointer")
fi

cmake -S . -B "$build" -G Ninja "${config[@]}" -DBUILD_TESTING=ON
cmake --build "$build" -j "$(nproc)"
