#!/usr/bin/env bash
# Installs the build's Debian packages (when missing), configures and builds into build/.
# With --qt6: the same against Qt 6 into build-qt6/.
# With --sanitize: a Debug build with AddressSanitizer and UndefinedBehaviorSanitizer into build-asan/.
set -euo pipefail
cd "$(dirname "$0")/.."

packages=(cmake ninja-build g++ fonts-dejavu-core pkg-config libdxflib-dev libmuparser-dev librecad-data python3-ezdxf)
qt5=(qtbase5-dev qtbase5-dev-tools qttools5-dev qttools5-dev-tools libqt5test5 qttranslations5-l10n)
qt6=(qt6-base-dev qt6-base-dev-tools qt6-tools-dev qt6-tools-dev-tools qt6-l10n-tools qt6-translations-l10n
  libqt6opengl6-dev)
if [ "${1:-}" = "--qt6" ]; then
  ./scripts/install-packages.sh "${packages[@]}" "${qt6[@]}"
else
  ./scripts/install-packages.sh "${packages[@]}" "${qt5[@]}"
fi

build=build
# build/ is also what scripts/package.sh makes the Debian packages from: configured for
# /usr, GNUInstallDirs gives it Debian's lib dir, lib/<multiarch>.
config=(-DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_INSTALL_PREFIX=/usr -DPROPWIDGETS_QT_MAJOR=5)
if [ "${1:-}" = "--qt6" ]; then
  build=build-qt6
  config=(-DCMAKE_BUILD_TYPE=RelWithDebInfo -DPROPWIDGETS_QT_MAJOR=6)
elif [ "${1:-}" = "--sanitize" ]; then
  build=build-asan
  source scripts/sanitizers.sh
  # Debug compiles faster than an optimised build and keeps every frame in the reports;
  # the suite is short enough that the slower code does not matter.
  config=(-DCMAKE_BUILD_TYPE=Debug "-DCMAKE_CXX_FLAGS=-fsanitize=address,undefined -fno-omit-frame-pointer")
fi

cmake -S . -B "$build" -G Ninja "${config[@]}" -DBUILD_TESTING=ON
cmake --build "$build" -j "$(nproc)"
